#include "nuv64/arrays/real_inequalities.h"

#include "nuv64/arrays/real_power_sums.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_bounded.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using DotProduct = double (*)(uint64_t, const double*, const double*) noexcept;

bool missing(uint64_t n, const double* a, const double* b) noexcept {
    return n == 0 || !a || !b;
}

double cauchy(uint64_t n, const double* a, const double* b, int32_t k, DotProduct dot) noexcept {
    if (missing(n, a, b)) return ___NAN;
    return RArrSumOfPowersI(n, a, k) * RArrSumOfPowersI(n, b, k) - riPower(dot(n, a, b), k);
}

double hoelder(uint64_t n, const double* a, const double* b, double p, DotProduct dot) noexcept {
    if (missing(n, a, b) || p <= 1.0) return ___NAN;
    const double q = p / (p - 1.0);
    return RArrAbsHoelderSum(n, a, p) * RArrAbsHoelderSum(n, b, q) - dot(n, a, b);
}

}  // namespace

double RArrIneqCauchy(uint64_t n, const double* a, const double* b, int32_t k) noexcept {
    return cauchy(n, a, b, k, RArrDotProduct);
}

double RArrIneqAbsCauchy(uint64_t n, const double* a, const double* b, int32_t k) noexcept {
    return cauchy(n, a, b, k, RArrAbsDotProduct);
}

double RArrIneqAbsSortedCauchy(uint64_t n, const double* a, const double* b, int32_t k) noexcept {
    return cauchy(n, a, b, k, RArrAbsSortedDotProduct);
}

double RArrIneqChebyshev(uint64_t n, const double* a, const double* b) noexcept {
    if (missing(n, a, b)) return ___NAN;
    return static_cast<double>(n) * RArrSortedDotProduct(n, a, b) -
           RArrSum(n, a, 1) * RArrSum(n, b, 1);
}

double RArrIneqAbsChebyshev(uint64_t n, const double* a, const double* b) noexcept {
    if (missing(n, a, b)) return ___NAN;
    return static_cast<double>(n) * RArrAbsSortedDotProduct(n, a, b) -
           RArrAbsSum(n, a, 1) * RArrAbsSum(n, b, 1);
}

double RArrIneqAbsHoelder(uint64_t n, const double* a, const double* b, double p) noexcept {
    return hoelder(n, a, b, p, RArrAbsDotProduct);
}

double RArrIneqAbsSortedHoelder(uint64_t n, const double* a, const double* b, double p) noexcept {
    return hoelder(n, a, b, p, RArrAbsSortedDotProduct);
}

double RArrIneqAbsMinkowski(uint64_t n, const double* a, const double* b, double p) noexcept {
    if (missing(n, a, b) || p == 0.0) return ___NAN;
    return RArrAbsHoelderSum(n, a, p) + RArrAbsHoelderSum(n, b, p) -
           RArrAbsMinkowskiSum(n, a, b, p);
}

double RArrIneqTriangle(uint64_t n, const double* array) noexcept {
    return RArrAbsSum(n, array, 1) - rAbs(RArrSum(n, array, 1));
}

double RArrIneqRatioTriangle(uint64_t n, const double* array) noexcept {
    return rSafeDiv(rAbs(RArrSum(n, array, 1)), RArrAbsSum(n, array, 1));
}
