#include "nuv64/arrays/real_reductions.h"

#include <cmath>

#include "arrays/real_extremes.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/sorting.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

using namespace nuv64;

namespace {

template <class Measure, class Beats>
double extreme(uint64_t n, const double* array, uint64_t* index) noexcept {
    if (index) *index = UINT64_MAX;
    if (n == 0 || !array) return ___NAN;
    ExtremeSearch<Measure, Beats> search(array);
    searchAll(n, search);
    const Extreme found = search.result();
    if (index) *index = found.index;
    return found.value;
}

struct Extremes {
    Extreme low;
    Extreme high;
};

template <class Measure>
Extremes findBoth(uint64_t n, const double* array) noexcept {
    ExtremeSearch<Measure, Below> low(array);
    ExtremeSearch<Measure, Above> high(array);
    searchAll(n, low, high);
    return {low.result(), high.result()};
}

template <class Measure>
double range(uint64_t n, const double* array, uint64_t* iMin, uint64_t* iMax) noexcept {
    if (iMin) *iMin = UINT64_MAX;
    if (iMax) *iMax = UINT64_MAX;
    if (n == 0 || !array) return ___NAN;
    const Extremes found = findBoth<Measure>(n, array);
    if (iMin) *iMin = found.low.index;
    if (iMax) *iMax = found.high.index;
    return found.high.value - found.low.value;
}

double sumOfMagnitudes(uint64_t n, const double* array) noexcept {
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) sum += std::fabs(array[i]);
    return sum;
}

// The sign in use is that of the element above; nothing stands above the last one.
double backwardAbsSum(uint64_t n, const double* array) noexcept {
    double sum = 0.0;
    double above = 0.0;
    for (uint64_t i = n; i-- > 0;) {
        const double x = array[i];
        sum += above < 0.0 ? -x : x;
        above = x;
    }
    return sum;
}

template <class Measure>
double product(uint64_t n, const double* array) noexcept {
    double result = 1.0;
    if (!array) return result;
    for (uint64_t i = 0; i < n; ++i) result *= Measure{}(array[i]);
    return result;
}

template <class Measure>
double dotProduct(uint64_t n, const double* array, const double* b) noexcept {
    if (n == 0) return 0.0;
    if (!array || !b) return ___NAN;
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) sum += Measure{}(array[i] * b[i]);
    return sum;
}

template <class Measure>
Owned<double> sortedCopy(uint64_t n, const double* array) {
    Owned<double> copy = allocate<double>(n);
    for (uint64_t i = 0; i < n; ++i) copy[i] = Measure{}(array[i]);
    RArrIpHeapSort(n, copy.get(), 1);
    return copy;
}

// A product of magnitudes is the magnitude of the product, bit for bit. Equal keys may stand in any
// order, since they are the values themselves.
template <class Measure>
double sortedDotProduct(uint64_t n, const double* array, const double* b) noexcept {
    if (n == 0) return 0.0;
    if (!array || !b) return ___NAN;
    return guardValue<double>(___NAN, [&] {
        const Owned<double> sorted = sortedCopy<Measure>(n, array);
        const Owned<double> sortedB = sortedCopy<Measure>(n, b);
        return RArrDotProduct(n, sorted.get(), sortedB.get());
    });
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

double RArrAbsSum(uint64_t n, const double* array, uint8_t backward) noexcept {
    if (n == 0 || !array) return ___NAN;
    return backward ? backwardAbsSum(n, array) : sumOfMagnitudes(n, array);
}

double RArrSkipSum(uint64_t n, const double* array, uint64_t stride) noexcept {
    if (n == 0 || !array || stride == 0) return ___NAN;
    double sum = 0.0;
    for (uint64_t left = (n - 1) / stride + 1; left > 0; --left) {
        sum += *array;
        if (left > 1) array += stride;
    }
    return sum;
}

double RArrProduct(uint64_t n, const double* array) noexcept {
    return product<AsIs>(n, array);
}

double RArrAbsProduct(uint64_t n, const double* array) noexcept {
    return product<Magnitude>(n, array);
}

double RArrAbsProductLn(uint64_t n, const double* array, int64_t* sign) noexcept {
    if (n == 0 || !array) return 0.0;
    double sum = 0.0;
    bool negative = false;
    for (uint64_t i = 1; i < n; ++i) {
        if (array[i] == 0.0) {
            if (sign) *sign = 0;
            return ___MnsINF;
        }
        if (array[i] < 0.0) negative = !negative;
        sum += rLog(std::fabs(array[i]));
    }
    if (sign) *sign = negative ? -1 : 1;
    return sum;
}

double RArrDotProduct(uint64_t n, const double* array, const double* b) noexcept {
    return dotProduct<AsIs>(n, array, b);
}

double RArrAbsDotProduct(uint64_t n, const double* array, const double* b) noexcept {
    return dotProduct<Magnitude>(n, array, b);
}

double RArrSortedDotProduct(uint64_t n, const double* array, const double* b) noexcept {
    return sortedDotProduct<AsIs>(n, array, b);
}

double RArrAbsSortedDotProduct(uint64_t n, const double* array, const double* b) noexcept {
    if (n == 1) return ___NAN;
    return sortedDotProduct<Magnitude>(n, array, b);
}

double RArrMax(uint64_t n, const double* array, uint64_t* index) noexcept {
    return extreme<AsIs, Above>(n, array, index);
}

double RArrMin(uint64_t n, const double* array, uint64_t* index) noexcept {
    return extreme<AsIs, Below>(n, array, index);
}

double RArrAbsMax(uint64_t n, const double* array, uint64_t* index) noexcept {
    return extreme<Magnitude, Above>(n, array, index);
}

double RArrAbsMin(uint64_t n, const double* array, uint64_t* index) noexcept {
    return extreme<Magnitude, Below>(n, array, index);
}

double RArrRangeMinMax(uint64_t n, const double* array, uint64_t* iMin, uint64_t* iMax) noexcept {
    return range<AsIs>(n, array, iMin, iMax);
}

double RArrRangeAbsMinMax(uint64_t n, const double* array, uint64_t* iMin,
                          uint64_t* iMax) noexcept {
    return range<Magnitude>(n, array, iMin, iMax);
}

double RArrExtreme(uint64_t n, const double* array, uint64_t* index) noexcept {
    if (index) *index = UINT64_MAX;
    if (n == 0 || !array) return ___NAN;
    const Extremes found = findBoth<AsIs>(n, array);
    const bool lower = std::fabs(found.low.value) > std::fabs(found.high.value);
    const Extreme& extreme = lower ? found.low : found.high;
    if (index) *index = extreme.index;
    return extreme.value;
}

double RArrAbsExtreme(uint64_t n, const double* array, uint64_t* index) noexcept {
    return rAbs(RArrExtreme(n, array, index));
}

double RArrAbsNecklaceExcess(uint64_t n, const double* array) noexcept {
    return 2.0 * RArrAbsExtreme(n, array, nullptr) - RArrAbsSum(n, array, 1);
}
