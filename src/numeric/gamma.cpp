#include "nuv64/numeric/gamma.h"

#include <cmath>
#include <numbers>

#include "numeric/gamma_reflection.h"
#include "numeric/horner.h"
#include "numeric/real_bits.h"
#include "numeric/sign_transfer.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/digamma.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_logarithm.h"

namespace {

using nuv64::fromNearestInteger;
using nuv64::horner;
using nuv64::isNoResult;
using nuv64::kLnPi;
using nuv64::sinPi;
using nuv64::withSignOf;

constexpr double kHalfLn2Pi = 0.9189385332046728;
constexpr double kStirlingFrom = 8.5;
constexpr int64_t kMostDownSteps = 10;

// Taylor coefficients about 0 of Gamma(x) - 1/x, and of ln Gamma(1 + x)/x: (-1)^k zeta(k)/k. The
// seventh terms are below 1e-23 where the six are used.
constexpr double kGammaTaylor[] = {-0.5772156649015329, 0.9890559953279726,  -0.9074790760808863,
                                   0.9817280868344002,  -0.9819950689031452, 0.9931491146212762};
constexpr double kGammaLnTaylor[] = {-0.5772156649015329,  0.8224670334241132,
                                     -0.40068563438653143, 0.27058080842778454,
                                     -0.20738555102867398, 0.16955717699740818};

// The Stirling continued fraction of ln Gamma(x) - (x - 1/2) ln x + x - ln(2 pi)/2, of Abramowitz
// and Stegun 6.1.48.
double stirlingFraction(double x) {
    return 0.08333333333333333 /
           (x + 0.03333333333333333 /
                    (x + 0.2523809523809524 /
                             (x + 0.5256064690026954 /
                                      (x + 1.0115230681268417 /
                                               (x + 1.5174736491532874 /
                                                        (x + 2.2694889742049598 / x))))));
}

double gammaLnOfPositive(double x) {
    if (!(x < kStirlingFrom)) {
        return kHalfLn2Pi + (x - 0.5) * rLog(x) - x + stirlingFraction(x);
    }
    double product = 1.0;
    while (x < kStirlingFrom) {
        product *= x;
        x += 1.0;
    }
    return kHalfLn2Pi + (x - 0.5) * rLog(x) - x + stirlingFraction(x) - rLog(product);
}

// Not-a-number or minus infinity: no reflection leads out of these.
bool hasNoReflection(double x) {
    return !(x > -HUGE_VAL);
}

// 1/Gamma(1 + x).
double inverseGammaOf1Plus(double x) {
    if (std::fabs(x) < ___Root4EpsReal) return 1.0 / (1.0 + x * rGammaT1(x));
    return r1DivGamma(x) / x;
}

}  // namespace

double rGammaLn(double x) noexcept {
    if (x > ___SqrtEpsReal) return x == HUGE_VAL ? ___NAN : gammaLnOfPositive(x);
    if (hasNoReflection(x)) return ___NAN;
    const double fraction = fromNearestInteger(x);
    if (fraction == 0.0) return ___NAN;
    return kLnPi - rLog(std::fabs(std::sin(std::numbers::pi * fraction))) - rGammaLn(1.0 - x);
}

double rGamma(double x) noexcept {
    if (x > ___SqrtEpsReal) return rExp(rGammaLn(x));
    if (hasNoReflection(x)) return ___NAN;
    return std::numbers::pi / (sinPi(x) * rGamma(1.0 - x));
}

double r1DivGamma(double x) noexcept {
    if (x > ___SqrtEpsReal) {
        const double gamma = rExp(rGammaLn(x));
        return isNoResult(gamma) ? 0.0 : 1.0 / gamma;
    }
    if (hasNoReflection(x)) return ___NAN;
    const double s = sinPi(x);
    if (s == 0.0) return 0.0;
    const double magnitude = rExp(rLog(std::fabs(s)) + rGammaLn(1.0 - x) - kLnPi);
    return withSignOf(s, isNoResult(magnitude) ? ___PlsINF : magnitude);
}

double rGammaT1(double x) noexcept {
    if (std::fabs(x) < ___Root4EpsReal) return horner(kGammaTaylor, x);
    return rGamma(x) - 1.0 / x;
}

double rGammaLnT1(double x) noexcept {
    if (std::fabs(x) < ___Root4EpsReal) return horner(kGammaLnTaylor, x);
    return rGammaLn(1.0 + x) / x;
}

double r1DivGammaT1(double x, int64_t n) noexcept {
    const double shift = static_cast<double>(n);
    if (n < 0) return r1DivGamma(x - shift) / x;
    if (n > kMostDownSteps) {
        const double value = inverseGammaOf1Plus(-x) * rGamma(shift + 1.0 - x) / rGamma(1.0 + x);
        return n % 2 != 0 ? -value : value;
    }
    double value = inverseGammaOf1Plus(x);
    for (int64_t k = 1; k <= n; ++k) value *= x - static_cast<double>(k);
    return value;
}

double rGammaD(double x) noexcept {
    return rPsi0(x) * rGamma(x);
}

double rGammaD2(double x) noexcept {
    const double psi = rPsi0(x);
    return (rPsi1(x) + psi * psi) * rGamma(x);
}
