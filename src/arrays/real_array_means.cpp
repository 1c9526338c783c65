#include "nuv64/arrays/real_array_means.h"

#include <cmath>

#include "arrays/deviations.h"
#include "arrays/real_extremes.h"
#include "core/guard.h"
#include "nuv64/arrays/real_power_sums.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_means.h"
#include "nuv64/numeric/real_special.h"

using namespace nuv64;

namespace {

double count(uint64_t n) noexcept {
    return static_cast<double>(n);
}

// The mean logarithm's exponential; 0 as soon as an element is 0. oddNegatives tells whether an odd
// number of elements is below 0.
double exponentialOfMeanLog(uint64_t n, const double* array, bool* oddNegatives) noexcept {
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double x = array[i];
        if (x == 0.0) {
            *oddNegatives = false;
            return 0.0;
        }
        if (x < 0.0) *oddNegatives = !*oddNegatives;
        sum += rLog(rAbs(x));
    }
    return rExp(sum / count(n));
}

double geometricMean(uint64_t n, const double* array, bool signsCount) noexcept {
    if (n == 0 || !array) return ___NAN;
    if (n == 1) return array[0];
    if (n == 2) return rMeanG(array[0], array[1]);
    bool oddNegatives = false;
    const double mean = exponentialOfMeanLog(n, array, &oddNegatives);
    return signsCount && oddNegatives ? ___NAN : mean;
}

// n / sum of the terms of 1/x, 0 for a zero element; root is applied to the quotient.
template <class Term, class Root>
double harmonicMean(uint64_t n, const double* array, Term term, Root root) noexcept {
    if (n == 0 || !array) return ___NAN;
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        if (array[i] == 0.0) return 0.0;
        sum += term(1.0 / array[i]);
    }
    return root(count(n) / sum);
}

struct Square {
    double operator()(double x) const noexcept { return x * x; }
};

template <class Measure>
double variance(uint64_t n, const double* array, double centre, double* mean) noexcept {
    if (n == 0 || !array) return ___NAN;
    if (mean) *mean = centre;
    return squaredDeviations<Measure>(n, array, centre) / count(n);
}

template <class Term>
double sumOfSteps(uint64_t n, const double* array, Term term) noexcept {
    double sum = 0.0;
    if (!array) return sum;
    for (uint64_t i = 1; i < n; ++i) sum += term(array[i] - array[i - 1]);
    return sum;
}

}  // namespace

double RArrMeanA(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    return RArrSum(n, array, 1) / count(n);
}

double RArrAbsMeanA(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    return RArrAbsSum(n, array, 1) / count(n);
}

double RArrMeanG(uint64_t n, const double* array) noexcept {
    return geometricMean(n, array, true);
}

double RArrAbsMeanG(uint64_t n, const double* array) noexcept {
    return geometricMean(n, array, false);
}

double RArrMeanH(uint64_t n, const double* array) noexcept {
    return harmonicMean(n, array, AsIs{}, AsIs{});
}

double RArrAbsMeanH(uint64_t n, const double* array) noexcept {
    return harmonicMean(n, array, Magnitude{}, AsIs{});
}

double RArrMeanH2(uint64_t n, const double* array) noexcept {
    return harmonicMean(n, array, Square{}, rSqrt);
}

double RArrMeanRms(uint64_t n, const double* array) noexcept {
    return RArrSumOfPowersI(n, array, 2) / count(n);
}

double RArrRms(uint64_t n, const double* array) noexcept {
    return rSqrt(RArrMeanRms(n, array));
}

double RArrMeanAGM(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return 0.0;
    const double geometric = RArrMeanG(n, array);
    if (rIsNAN(geometric)) return geometric;
    return rMeanAGM(RArrMeanA(n, array), geometric);
}

double RArrMeanHoelder(uint64_t n, const double* array, double p) noexcept {
    if (p == 0.0) return RArrMeanG(n, array);
    const double sum = RArrAbsHoelderSum(n, array, p);
    return rIsNAN(sum) ? sum : rPow(sum / count(n), 1.0 / p);
}

double RArrMeanHoelderI(uint64_t n, const double* array, int64_t k) noexcept {
    if (k == 0) return RArrMeanG(n, array);
    const double sum = RArrHoelderSumI(n, array, k);
    return rIsNAN(sum) ? sum : sum / rPow(count(n), 1.0 / static_cast<double>(k));
}

double RArrMeanLehmer(uint64_t n, const double* array, double p) noexcept {
    if (p == 0.0) return RArrMeanH(n, array);
    if (p == 1.0) return RArrMeanA(n, array);
    const double divisor = RArrAbsSumOfPowers(n, array, p - 1.0);
    return divisor == 0.0 ? ___NAN : RArrAbsSumOfPowers(n, array, p) / divisor;
}

double RArrMeanLehmerI(uint64_t n, const double* array, int64_t k) noexcept {
    if (k == 0) return RArrMeanH(n, array);
    if (k == 1) return RArrMeanA(n, array);
    const int64_t below = k == INT64_MIN ? k : k - 1;
    const double divisor = RArrSumOfPowersI(n, array, below);
    return divisor == 0.0 ? ___NAN : RArrSumOfPowersI(n, array, k) / divisor;
}

double RArrVariance(uint64_t n, const double* array, double* mean) noexcept {
    return variance<AsIs>(n, array, RArrMeanA(n, array), mean);
}

double RArrAbsVariance(uint64_t n, const double* array, double* mean) noexcept {
    return variance<Magnitude>(n, array, RArrAbsMeanA(n, array), mean);
}

double RArrStd(uint64_t n, const double* array, double* mean) noexcept {
    return n < 2 ? ___NAN : rSqrt(RArrVariance(n, array, mean));
}

double RArrVariation(uint64_t n, const double* array) noexcept {
    return sumOfSteps(n, array, [](double step) { return std::fabs(step); });
}

double RArrVariationPls(uint64_t n, const double* array) noexcept {
    return sumOfSteps(n, array, [](double step) { return step > 0.0 ? step : 0.0; });
}

double RArrVariationMns(uint64_t n, const double* array) noexcept {
    return sumOfSteps(n, array, [](double step) { return step < 0.0 ? -step : 0.0; });
}

uint32_t RArrStatistics(uint64_t n, const double* array, RArrStatisticsRec* out) noexcept {
    if (n == 0 || !array) return 14;
    if (!out) return 18;
    ExtremeSearch<AsIs, Above> highest(array);
    ExtremeSearch<AsIs, Below> lowest(array);
    searchAll(n, highest, lowest);
    const Extreme high = highest.result();
    const Extreme low = lowest.result();
    Extreme small{array[0], 0};
    double sum = array[0];
    double squares = array[0] * array[0];
    double variation = 0.0;
    for (uint64_t i = 1; i < n; ++i) {
        sum += array[i];
        squares += array[i] * array[i];
        variation += std::fabs(array[i] - array[i - 1]);
        if (small.value > std::fabs(array[i])) small = {std::fabs(array[i]), i};
    }
    const bool lower = std::fabs(low.value) > std::fabs(high.value);
    const Extreme large = lower ? low : high;
    out->Max = high.value;
    out->MaxIndex = high.index;
    out->Min = low.value;
    out->MinIndex = low.index;
    out->AbsMax = std::fabs(large.value);
    out->AbsMaxIndex = large.index;
    out->AbsMin = small.value;
    out->AbsMinIndex = small.index;
    out->Range = high.value - low.value;
    out->AbsRange = out->AbsMax - out->AbsMin;
    out->Mean = sum / count(n);
    out->Rms = rSqrt(squares / count(n));
    out->RmsExcess = out->Rms - out->Mean * out->Mean;
    out->Variation = variation;
    return kSuccess;
}
