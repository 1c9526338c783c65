#include "nuv64/arrays/real_norms.h"

#include <algorithm>
#include <cmath>

#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

constexpr double kNoArray = 14.0;  // a status word as a value

template <class Element>
double euclideanNorm(uint64_t n, Element element) noexcept {
    double scale = 0.0;
    double sum = 1.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double v = std::fabs(element(i));
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
    return scale * rSqrt(sum);
}

// Between two indices an element counts in full, outside by a Gaussian of the distance.
struct IndexWindow {
    double low;
    double high;
    double edge;

    IndexWindow(uint64_t n, double i1, double i2, double width) noexcept
        : low(i1 > i2 ? i2 : i1), high(i1 > i2 ? i1 : i2), edge(width <= 0.0 ? 0.1 : width) {
        if (low < 0.0) low = 0.0;
        if (high >= static_cast<double>(n)) high = static_cast<double>(n - 1);
    }
    double weight(uint64_t i) const noexcept {
        const double place = static_cast<double>(i);
        if (low <= place && place <= high) return 1.0;
        const double ratio = std::min(std::fabs(place - low), std::fabs(place - high)) / edge;
        return rExp(-(ratio * ratio));
    }
};

}  // namespace

double RArrNormL1(uint64_t n, const double* array) noexcept {
    return RArrAbsMax(n, array, nullptr);
}

double RArrNormL2(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    return euclideanNorm(n, [array](uint64_t i) { return array[i]; });
}

double RArrMetricL1(uint64_t n, const double* a, const double* b) noexcept {
    if (n == 0 || !a || !b) return ___NAN;
    double largest = std::fabs(a[0] - b[0]);
    for (uint64_t i = 1; i < n; ++i) {
        const double v = std::fabs(a[i] - b[i]);
        largest = v > largest ? v : largest;
    }
    return largest;
}

double RArrMetricL2(uint64_t n, const double* a, const double* b) noexcept {
    if (n == 0 || !a || !b) return ___NAN;
    return euclideanNorm(n, [a, b](uint64_t i) { return a[i] - b[i]; });
}

double RArrMetricVorns(uint64_t n, const double* a, const double* b) noexcept {
    if (!a || !b) return kNoArray;
    if (n == 0) return ___NAN;
    const double totalA = RArrSum(n, a, 1);
    const double totalB = RArrSum(n, b, 1);
    double fractionA = 0.0;
    double fractionB = 0.0;
    double squares = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        fractionA += a[i] / totalA;
        fractionB += b[i] / totalB;
        const double difference = fractionA - fractionB;
        squares += difference * difference;
    }
    return rSqrt(squares / static_cast<double>(n));
}

double RArrMetricVornsLoc(uint64_t n, const double* a, const double* b, double i1, double i2,
                          double edge) noexcept {
    if (!a || !b) return kNoArray;
    if (n == 0) return ___NAN;
    const IndexWindow window(n, i1, i2, edge);
    const double totalA = RArrSum(n, a, 1);
    const double totalB = RArrSum(n, b, 1);
    double fractionA = 0.0;
    double fractionB = 0.0;
    double squares = 0.0;
    double weights = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double weight = window.weight(i);
        fractionA += weight * a[i] / totalA;
        fractionB += weight * b[i] / totalB;
        const double difference = fractionA - fractionB;
        squares += difference * difference;
        weights += weight;
    }
    return rSqrt(squares / weights);
}
