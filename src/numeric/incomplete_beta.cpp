#include "nuv64/numeric/incomplete_beta.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "numeric/normal_quantile.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/beta.h"
#include "nuv64/numeric/gamma.h"
#include "nuv64/numeric/real_comparison.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"

namespace {

using nuv64::normalQuantileGuess;

constexpr int kMostRounds = 10000;
constexpr int kHalleySteps = 10;

// A not-a-number fails as well.
bool isOutsideDomain(double x, double a, double b) {
    return !(a > 0.0) || !(b > 0.0) || !(x >= 0.0) || !(x <= 1.0);
}

bool isOne(double x) {
    return !rIsDifferentRel(x, 1.0, ___5EpsReal);
}

double awayFromZero(double x, double tiny) {
    return std::fabs(x) < tiny ? tiny : x;
}

// The continued fraction of B_x(a, b) a/(x^a (1 - x)^b) by the modified method of Lentz, an even
// and an odd step a round; ___NAN when the rounds run out.
double betaFraction(double x, double a, double b) {
    const double tiny = ___MinReal / ___EpsReal;
    const double tolerance = ___5EpsReal;
    const double qab = a + b;
    const double qap = a + 1.0;
    const double qam = a - 1.0;
    double c = 1.0;
    double d = 1.0 / awayFromZero(1.0 - qab * x / qap, tiny);
    double h = d;
    for (int i = 1; i <= kMostRounds; ++i) {
        const double m = i;
        const double m2 = 2.0 * m;
        const double even = m * (b - m) * x / ((qam + m2) * (a + m2));
        d = 1.0 / awayFromZero(1.0 + even * d, tiny);
        c = awayFromZero(1.0 + even / c, tiny);
        h *= d * c;
        const double odd = -(a + m) * (qab + m) * x / ((a + m2) * (qap + m2));
        d = 1.0 / awayFromZero(1.0 + odd * d, tiny);
        c = awayFromZero(1.0 + odd / c, tiny);
        const double del = d * c;
        h *= del;
        if (std::fabs(del - 1.0) <= tolerance) return h;
    }
    return ___NAN;
}

// factor is x^a (1 - x)^b, over B(a, b) in the regular form.
double byFraction(double x, double a, double b, double factor) {
    const bool isReflected = x * (a + b + 2.0) >= a + 1.0;
    if (isReflected) {
        x = 1.0 - x;
        std::swap(a, b);
    }
    const double h = betaFraction(x, a, b);
    if (std::isnan(h)) return ___NAN;
    const double value = factor * h / a;
    return isReflected ? 1.0 - value : value;
}

double lnWeight(double x, double a, double b) {
    return a * rLog(x) + b * rLog1p(-x);
}

// Abramowitz and Stegun 26.5.22, for a and b from 1 on.
double guessOfLargeOrders(double p, double a, double b) {
    const double u = normalQuantileGuess(p);
    const double al = (u * u - 3.0) / 6.0;
    const double ra = 1.0 / (2.0 * a - 1.0);
    const double rb = 1.0 / (2.0 * b - 1.0);
    const double h = 2.0 / (ra + rb);
    const double w =
        u * rSqrt(al + h) / h - (rb - ra) * (al + 0.8333333333333334 - 2.0 / (3.0 * h));
    return a / (a + b * rExp(2.0 * w));
}

// The two ends' power laws, joined.
double guessOfSmallOrders(double p, double a, double b) {
    const double t = rExp(a * rLog(a / (a + b))) / a;
    const double u = rExp(b * rLog(b / (a + b))) / b;
    const double w = t + u;
    if (p < t / w) return rPow(a * w * p, 1.0 / a);
    return 1.0 - rPow(b * w * (1.0 - p), 1.0 / b);
}

}  // namespace

double rBetaInc(double x, double a, double b) noexcept {
    if (isOutsideDomain(x, a, b)) return ___NAN;
    if (x < ___5EpsReal) return 0.0;
    if (isOne(x)) return rBeta(a, b);
    return byFraction(x, a, b, rExp(lnWeight(x, a, b)));
}

double rBetaIncReg(double x, double a, double b) noexcept {
    if (isOutsideDomain(x, a, b)) return ___NAN;
    if (x < ___5EpsReal) return 0.0;
    if (isOne(x)) return 1.0;
    const double lnInverseBeta = rGammaLn(a + b) - rGammaLn(a) - rGammaLn(b);
    return byFraction(x, a, b, rExp(lnInverseBeta + lnWeight(x, a, b)));
}

double rBetaIncReg2(double x1, double x2, double a, double b) noexcept {
    return rBetaIncReg(x2, a, b) - rBetaIncReg(x1, a, b);
}

double rBetaInc2(double x1, double x2, double a, double b) noexcept {
    return rBetaIncReg2(x1, x2, a, b) * rBeta(a, b);
}

double rBetaIncRegInv(double p, double a, double b) noexcept {
    if (isOutsideDomain(p, a, b)) return ___NAN;
    if (p <= ___EpsReal) return 0.0;
    if (isOne(p)) return 1.0;
    const double a1 = a - 1.0;
    const double b1 = b - 1.0;
    const double afac = -rBetaLn(a, b);
    double x = a >= 1.0 && b >= 1.0 ? guessOfLargeOrders(p, a, b) : guessOfSmallOrders(p, a, b);
    for (int i = 0; i < kHalleySteps; ++i) {
        if (x == 0.0 || x == 1.0) return x;
        // The C runtime's logarithm, which is finite for ___MinReal as well: that is where the
        // guess of a very small quantile saturates.
        const double density = rExp(a1 * std::log(x) + b1 * rLog1p(-x) + afac);
        const double u = (rBetaIncReg(x, a, b) - p) / density;
        const double step = u / (1.0 - 0.5 * std::min(1.0, u * (a1 / x - b1 / (1.0 - x))));
        x -= step;
        if (x <= 0.0) x = 0.5 * (x + step);
        if (x >= 1.0) x = 0.5 * (x + step + 1.0);
        if (std::fabs(step) < ___EpsReal * x) break;
    }
    return x;
}
