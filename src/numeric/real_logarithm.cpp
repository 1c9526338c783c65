#include "nuv64/numeric/real_logarithm.h"

#include <cmath>

#include "numeric/horner.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/gamma.h"
#include "nuv64/numeric/real_bounded.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_sequences.h"

namespace {

constexpr double kLn2 = 0.6931471805599453;
constexpr double kLog10Of2 = 0.3010299956639812;
constexpr double kLog10OfE = 0.4342944819032518;

// Up to here no intermediate x^m/m! overflows that doesn't in the end.
constexpr uint64_t kLargestRunningProduct = 170;

// Taylor coefficients of ln(1 + x)/x and (ln(1 + x)/x - 1)/x. The terms left out are below
// 2^-54 within the short branch (2^-13) and 2^-62 within the long one (0.001).
constexpr double kBranch = 0.001;
constexpr double kT1Short[] = {1.0, -1.0 / 2, 1.0 / 3, -1.0 / 4};
constexpr double kT1[] = {1.0, -1.0 / 2, 1.0 / 3, -1.0 / 4, 1.0 / 5, -1.0 / 6};
constexpr double kT2Short[] = {-1.0 / 2, 1.0 / 3, -1.0 / 4, 1.0 / 5};
constexpr double kT2[] = {-1.0 / 2, 1.0 / 3, -1.0 / 4, 1.0 / 5, -1.0 / 6, 1.0 / 7};

double derivative(double x, uint64_t n) {
    if (n == 1) return rSafeInv(x);
    if (n == 2) return -rSafeDiv(rSafeInv(x), x);
    const double order = static_cast<double>(n);
    const double magnitude = rExp(rGammaLn(order) - order * rLog(x));
    return n % 2 == 0 ? -magnitude : magnitude;
}

double powerByFactorial(double x, uint64_t m) {
    const double order = static_cast<double>(m);
    if (m > kLargestRunningProduct) return rExp(order * rLog(x) - rGammaLn(order + 1.0));
    double value = 1.0;
    for (uint64_t k = 1; k <= m; ++k) value *= x / static_cast<double>(k);
    return value;
}

double antiderivative(double x, uint64_t m) {
    if (x == 0.0) return 0.0;
    if (x < 0.0) return ___NAN;
    const double logarithm = rLog(x);
    if (m == 1) return x * (logarithm - 1.0);
    if (m == 2) return 0.5 * x * x * (logarithm - 1.5);
    return (logarithm - rHarmonicNumber(m)) * powerByFactorial(x, m);
}

}  // namespace

double rLog2(double x) noexcept {
    return x <= ___MinReal ? ___NAN : std::log2(x);
}

double rLog(double x) noexcept {
    return kLn2 * rLog2(x);
}

double rLog10(double x) noexcept {
    return kLog10Of2 * rLog2(x);
}

double rLog1p(double x) noexcept {
    return std::log1p(x);
}

double rLogA(double x) noexcept {
    if (x < 0.0) return ___NAN;
    if (x == 0.0) return 0.0;
    return x * rLog(x) - x;
}

double rLogD(double x) noexcept {
    return rSafeInv(x);
}

double rLogAD(double x, int64_t n) noexcept {
    if (n == 0) return rLog(x);
    const auto order = static_cast<uint64_t>(n);
    return n > 0 ? derivative(x, order) : antiderivative(x, 0 - order);
}

double rLogInBase(double x, double base) noexcept {
    const double divisor = rLog2(base);
    return std::isnan(divisor) ? divisor : rLog2(x) / divisor;
}

double rLogRatio(double x, double base) noexcept {
    return base == 1.0 ? ___NAN : rLogInBase(x, base);
}

double rLogSym(double x) noexcept {
    return x < 0.0 ? -std::log1p(-x) : std::log1p(x);
}

double rLogSym10(double x) noexcept {
    return kLog10OfE * rLogSym(x);
}

double rLogT1(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < ___Root4EpsReal) return nuv64::horner(kT1Short, x);
    if (magnitude < kBranch) return nuv64::horner(kT1, x);
    // The rounding of u enters both and nearly cancels.
    const double u = 1.0 + x;
    return std::log(u) / (u - 1.0);
}

double rLogT2(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < ___Root4EpsReal) return nuv64::horner(kT2Short, x);
    if (magnitude < kBranch) return nuv64::horner(kT2, x);
    return (std::log1p(x) / x - 1.0) / x;
}
