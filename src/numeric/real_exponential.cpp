#include "nuv64/numeric/real_exponential.h"

#include <cmath>

#include "numeric/horner.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

constexpr double kLn10 = 2.302585092994046;
constexpr double kLnLeastReal = -745.2;  // a little below ln(2^-1075): e to it is 0

// Taylor coefficients of (e^x - 1)/x and (e^x - 1 - x)/x^2. The terms left out are below 2^-64
// within the branches that use them.
constexpr double kT1Short[] = {1.0, 1.0 / 2, 1.0 / 6};
constexpr double kT1[] = {1.0, 1.0 / 2, 1.0 / 6, 1.0 / 24, 1.0 / 120};
constexpr double kT2Short[] = {1.0 / 2, 1.0 / 6, 1.0 / 24};
constexpr double kT2[] = {1.0 / 2, 1.0 / 6, 1.0 / 24, 1.0 / 120};

// The first of indices 1 to n, counted from above, whose power of x counts at all.
uint64_t lastIndexThatCounts(double x, uint64_t n) {
    const double magnitude = std::fabs(x);
    if (!(magnitude < 1.0)) return n;
    if (magnitude == 0.0) return 1;
    const double end = kLnLeastReal / std::log(magnitude) + 1.0;
    return end < static_cast<double>(n) ? static_cast<uint64_t>(end) : n;
}

}  // namespace

double rExp(double x) noexcept {
    if (x > ___LnMaxReal) return ___NAN;
    if (x < ___LnMinReal) return 0.0;
    return std::exp(x);
}

double rExp2(double x) noexcept {
    return std::exp2(x);
}

double rExpM1(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < ___EpsReal) return x;
    if (magnitude < ___SqrtEpsReal) return x + x * x * (0.5 + x * (1.0 / 6));
    if (magnitude < ___Root4EpsReal) return x + x * x * nuv64::horner(kT2, x);
    return rExp(x) - 1.0;
}

double rExpT1(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < ___EpsReal) return 1.0;
    if (magnitude < ___SqrtEpsReal) return nuv64::horner(kT1Short, x);
    if (magnitude < ___Root4EpsReal) return nuv64::horner(kT1, x);
    return (rExp(x) - 1.0) / x;
}

double rExpT2(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < ___EpsReal) return 0.5;
    if (magnitude < ___SqrtEpsReal) return nuv64::horner(kT2Short, x);
    if (magnitude < ___Root4EpsReal) return nuv64::horner(kT2, x);
    return (rExp(x) - 1.0 - x) / (x * x);
}

double rExpt(double x, uint64_t n) noexcept {
    if (n == 0) return 1.0;
    uint64_t k = lastIndexThatCounts(x, n);
    double sum = 1.0 / static_cast<double>(k);
    for (--k; k > 0; --k) {
        sum = sum * x + 1.0 / static_cast<double>(k);
        // Beyond an overflow the powers of x that are left give the sign alone.
        if (!std::isfinite(sum)) return x < 0.0 && k % 2 != 0 ? -sum : sum;
    }
    return 1.0 + x * sum;
}

double rExpSym(double x) noexcept {
    return x < 0.0 ? -rExp(-x - 1.0) : rExp(x - 1.0);
}

double rExpSym10(double x) noexcept {
    return rExpSym(kLn10 * x);
}
