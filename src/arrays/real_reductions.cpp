#include "nuv64/arrays/real_reductions.h"

#include <cmath>

#include "nuv64/core/special_reals.h"

namespace {

struct Extreme {
    double value;
    uint64_t index;
};

// The element that no later one beats; measure is what is compared and returned.
template <class Measure, class Beats>
double findExtreme(uint64_t n, const double* array, uint64_t* index, Measure measure,
                   Beats beats) noexcept {
    if (index) *index = UINT64_MAX;
    if (n == 0 || !array) return ___NAN;
    Extreme best{measure(array[0]), 0};
    for (uint64_t i = 1; i < n; ++i) {
        const double value = measure(array[i]);
        if (beats(value, best.value)) best = {value, i};
    }
    if (index) *index = best.index;
    return best.value;
}

double asIs(double x) noexcept {
    return x;
}

double magnitude(double x) noexcept {
    return std::fabs(x);
}

bool above(double x, double best) noexcept {
    return x > best;
}

bool below(double x, double best) noexcept {
    return x < best;
}

}  // namespace

double RArrSum(uint64_t n, const double* array, uint8_t backward) noexcept {
    if (n == 0 || !array) return ___NAN;
    double sum = 0.0;
    if (backward) {
        for (uint64_t i = n; i-- > 0;) sum += array[i];
    } else {
        for (uint64_t i = 0; i < n; ++i) sum += array[i];
    }
    return sum;
}

double RArrDotProduct(uint64_t n, const double* array, const double* b) noexcept {
    if (n == 0) return 0.0;
    if (!array || !b) return ___NAN;
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) sum += array[i] * b[i];
    return sum;
}

double RArrMax(uint64_t n, const double* array, uint64_t* index) noexcept {
    return findExtreme(n, array, index, asIs, above);
}

double RArrMin(uint64_t n, const double* array, uint64_t* index) noexcept {
    return findExtreme(n, array, index, asIs, below);
}

double RArrAbsMax(uint64_t n, const double* array, uint64_t* index) noexcept {
    return findExtreme(n, array, index, magnitude, above);
}

double RArrAbsMin(uint64_t n, const double* array, uint64_t* index) noexcept {
    return findExtreme(n, array, index, magnitude, below);
}

double RArrRangeMinMax(uint64_t n, const double* array, uint64_t* iMin, uint64_t* iMax) noexcept {
    if (iMin) *iMin = UINT64_MAX;
    if (iMax) *iMax = UINT64_MAX;
    if (n == 0 || !array) return ___NAN;
    Extreme low{array[0], 0};
    Extreme high = low;
    for (uint64_t i = 1; i < n; ++i) {
        if (array[i] < low.value) {
            low = {array[i], i};
        } else if (array[i] > high.value) {
            high = {array[i], i};
        }
    }
    if (iMin) *iMin = low.index;
    if (iMax) *iMax = high.index;
    return high.value - low.value;
}

double RArrMeanA(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    return RArrSum(n, array, 1) / static_cast<double>(n);
}

double RArrNormL2(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    double scale = 0.0;
    double sum = 1.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double v = std::fabs(array[i]);
        if (v == 0.0) continue;
        if (v > scale) {
            const double ratio = scale / v;
            sum = 1.0 + sum * (ratio * ratio);
            scale = v;
        } else {
            const double ratio = v / scale;
            sum += ratio * ratio;
        }
    }
    return scale * std::sqrt(sum);
}
