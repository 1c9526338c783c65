#include "nuv64/numeric/incomplete_gamma.h"

#include <algorithm>
#include <cmath>

#include "numeric/normal_quantile.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/gamma.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"

namespace {

using nuv64::normalQuantileGuess;

constexpr int kMostRounds = 999;
constexpr int kHalleySteps = 12;
constexpr double kHalleyTolerance = 1e-8;

// A not-a-number fails as well.
bool isOutsideDomain(double a, double x) {
    return !(a > 0.0) || !(x >= 0.0);
}

bool isUpperRange(double a, double x) {
    return x >= a + 1.0;
}

double awayFromZero(double x, double tiny) {
    return std::fabs(x) < tiny ? tiny : x;
}

// The continued fraction of Gamma(a, x)/(e^-x x^a) by the modified method of Lentz; ___NAN when the
// rounds run out.
double upperFraction(double a, double x) {
    const double tiny = ___MinRegularReal;
    const double tolerance = ___5EpsReal;
    double b = x + 1.0 - a;
    double c = 1.0 / tiny;
    double d = 1.0 / b;
    double h = d;
    for (int i = 1; i <= kMostRounds; ++i) {
        const double an = -i * (i - a);
        b += 2.0;
        c = awayFromZero(b + an / c, tiny);
        d = 1.0 / awayFromZero(b + an * d, tiny);
        const double del = c * d;
        if (std::fabs(del - 1.0) <= tolerance) return h;
        h *= del;
    }
    return ___NAN;
}

// The series of gamma(a, x)/(e^-x x^a); ___NAN when the rounds run out.
double lowerSeries(double a, double x) {
    const double tolerance = ___5EpsReal;
    double ap = a;
    double del = 1.0 / a;
    double sum = del;
    for (int n = 1; n <= kMostRounds; ++n) {
        ap += 1.0;
        del *= x / ap;
        sum += del;
        if (std::fabs(sum) * tolerance > std::fabs(del)) return sum;
    }
    return ___NAN;
}

// x^a e^-x, and that over Gamma(a).
double weight(double a, double x) {
    return rExp(a * rLog(x) - x);
}

double weightRegular(double a, double x) {
    return rExp(a * rLog(x) - x - rGammaLn(a));
}

// The approximation of Wilson and Hilferty to the quantile, for a above 1.
double guessOfLargeOrder(double a, double p) {
    const double x = normalQuantileGuess(p);
    const double root = 1.0 - 1.0 / (9.0 * a) - x / (3.0 * rSqrt(a));
    return std::max(1e-3, a * (root * root * root));
}

double guessOfSmallOrder(double a, double p) {
    const double t = 1.0 - a * (0.253 + 0.12 * a);
    if (p < t) return rPow(p / t, 1.0 / a);
    return 1.0 - rLog(1.0 - (p - t) / (1.0 - t));
}

// The gamma density of order a. The C runtime's logarithm, which is finite for ___MinReal as well:
// that is where the guess of a very small quantile saturates.
class Density {
  public:
    explicit Density(double a) : a1_(a - 1.0), gammaLn_(rGammaLn(a)) {
        if (!(a > 1.0)) return;
        lnA1_ = std::log(a1_);
        factor_ = rExp(a1_ * (lnA1_ - 1.0) - gammaLn_);
    }
    double operator()(double x) const {
        if (a1_ > 0.0) return factor_ * rExp(a1_ * (std::log(x) - lnA1_) - (x - a1_));
        return rExp(-x + a1_ * std::log(x) - gammaLn_);
    }

  private:
    double a1_;
    double gammaLn_;
    double lnA1_ = 0.0;
    double factor_ = 0.0;
};

}  // namespace

double rGammaIncLower(double a, double x) noexcept {
    if (isOutsideDomain(a, x)) return ___NAN;
    if (isUpperRange(a, x)) return rExp(rGammaLn(a)) - upperFraction(a, x) * weight(a, x);
    if (x < ___SqrtMinReal) return 0.0;
    return lowerSeries(a, x) * weight(a, x);
}

double rGammaIncUpper(double a, double x) noexcept {
    if (isOutsideDomain(a, x)) return ___NAN;
    if (isUpperRange(a, x)) return upperFraction(a, x) * weight(a, x);
    const double gamma = rGamma(a);
    if (x < ___5EpsReal) return gamma;
    return gamma - lowerSeries(a, x) * weight(a, x);
}

double rGammaIncP(double a, double x) noexcept {
    if (isOutsideDomain(a, x)) return ___NAN;
    if (isUpperRange(a, x)) return 1.0 - upperFraction(a, x) * weightRegular(a, x);
    if (x < ___SqrtMinReal) return 0.0;
    return lowerSeries(a, x) * weightRegular(a, x);
}

double rGammaIncQ(double a, double x) noexcept {
    if (isOutsideDomain(a, x)) return ___NAN;
    if (isUpperRange(a, x)) return upperFraction(a, x) * weightRegular(a, x);
    if (x < ___5EpsReal) return 1.0;
    return 1.0 - lowerSeries(a, x) * weightRegular(a, x);
}

double rGammaIncPInv(double a, double p) noexcept {
    if (isOutsideDomain(a, p) || p > 1.0) return ___NAN;
    if (p == 1.0) return std::max(100.0, a + 100.0 * rSqrt(a));
    if (p == 0.0) return 0.0;
    const Density density(a);
    double x = a > 1.0 ? guessOfLargeOrder(a, p) : guessOfSmallOrder(a, p);
    for (int i = 0; i < kHalleySteps; ++i) {
        if (x <= 0.0) return 0.0;
        const double u = (rGammaIncP(a, x) - p) / density(x);
        const double step = u / (1.0 - 0.5 * std::min(1.0, u * ((a - 1.0) / x - 1.0)));
        x -= step;
        if (x <= 0.0) x = 0.5 * (x + step);
        if (std::fabs(step) < kHalleyTolerance * x) break;
    }
    return x;
}
