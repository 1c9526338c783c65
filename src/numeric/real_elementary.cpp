#include "nuv64/numeric/real_elementary.h"

#include <cmath>
#include <numbers>

#include "nuv64/core/special_reals.h"

namespace {

constexpr double kLn2 = 0.6931471805599453;
constexpr double kLog10Of2 = 0.3010299956639812;

double withSignOf(double x, double magnitude) {
    return x < 0 ? -magnitude : magnitude;
}

}  // namespace

double rAbs(double x) noexcept {
    return x < 0.0 ? -x : x;
}

double rExp(double x) noexcept {
    if (x > ___LnMaxReal) return ___NAN;
    if (x < ___LnMinReal) return 0.0;
    return std::exp(x);
}

double rLog2(double x) noexcept {
    return x <= ___MinReal ? ___NAN : std::log2(x);
}

double rLog(double x) noexcept {
    return kLn2 * rLog2(x);
}

double rLog10(double x) noexcept {
    return kLog10Of2 * rLog2(x);
}

double rSqrt(double x) noexcept {
    return std::sqrt(x);
}

double rPow(double x, double y) noexcept {
    if (1.0 + y == 1.0) return 1.0;
    const double exponent = y * std::log(std::fabs(x));
    if (exponent > ___LnMaxReal) return ___MaxReal;
    if (exponent < ___LnMinReal) return ___MinReal;
    return std::exp(exponent);
}

double rSignedPower(double x, double p) noexcept {
    return withSignOf(x, rPow(rAbs(x), p));
}

double ruPower(double x, uint64_t n) noexcept {
    double power = 1.0;
    for (; n != 0; n >>= 1) {
        if (n & 1) power *= x;
        x *= x;
    }
    return power;
}

double riPower(double x, int64_t n) noexcept {
    if (n >= 0) return ruPower(x, static_cast<uint64_t>(n));
    return x == 0.0 ? ___NAN : 1.0 / ruPower(x, -static_cast<uint64_t>(n));
}

double riAbsPower(double x, int64_t n) noexcept {
    return riPower(rAbs(x), n);
}

double riSignedPower(double x, int64_t n) noexcept {
    return withSignOf(x, riAbsPower(x, n));
}

double rHypot(double a, double b) noexcept {
    const double magnitudeA = rAbs(a);
    const double magnitudeB = rAbs(b);
    const double big = magnitudeA > magnitudeB ? magnitudeA : magnitudeB;
    const double small = magnitudeA > magnitudeB ? magnitudeB : magnitudeA;
    if (big == 0.0) return 0.0;
    const double r = small / big;
    const double r2 = r * r;
    if (r < 0.001) return big * (1.0 + r2 * (0.5 + r2 * (-0.125 + r2 * 0.0625)));
    return big * rSqrt(1.0 + r2);
}

double rAtan(double x) noexcept {
    return std::atan(x);
}

double rAtanXY(double x, double y) noexcept {
    if (x < 0.0) {
        x = -x;
        y = -y;
    }
    const double sum = x + rAbs(y);
    if (!(sum > x)) return 0.0;
    if (sum > rAbs(y)) return rAtan(y / x);
    return withSignOf(y, std::numbers::pi / 2);
}

double rAzimuth(double x, double y) noexcept {
    if (!(x < 0.0)) return rAtanXY(x, y);
    return withSignOf(y, std::numbers::pi) - rAtanXY(-x, y);
}
