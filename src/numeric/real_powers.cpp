#include "nuv64/numeric/real_powers.h"

#include <cmath>

#include "numeric/horner.h"
#include "numeric/sign_transfer.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using nuv64::withSignOf;

// Taylor coefficients of (sqrt(1 + x) - 1)/x and (cbrt(1 + x) - 1)/x. The terms left out are
// below 2^-58 within the branches.
constexpr double kShortBranch = 1e-6;
constexpr double kBranch = 0.001;
constexpr double kSqrtShort[] = {1.0 / 2, -1.0 / 8, 1.0 / 16};
constexpr double kSqrt[] = {1.0 / 2, -1.0 / 8, 1.0 / 16, -5.0 / 128, 7.0 / 256, -21.0 / 1024};
constexpr double kCbrtShort[] = {1.0 / 3, -1.0 / 9, 5.0 / 81};
constexpr double kCbrt[] = {1.0 / 3, -1.0 / 9, 5.0 / 81, -10.0 / 243, 22.0 / 729, -154.0 / 6561};

double larger(double a, double b) {
    return a > b ? a : b;
}

double sumOfSquares(double a, double b, double c) {
    return a * a + b * b + c * c;
}

}  // namespace

double rSqrt(double x) noexcept {
    return std::sqrt(x);
}

double rSqrtA(double x) noexcept {
    return 2.0 / 3.0 * x * std::sqrt(x);
}

double rSqrtD(double x) noexcept {
    return 0.5 / std::sqrt(x);
}

double rSqrtT1(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < kShortBranch) return nuv64::horner(kSqrtShort, x);
    if (magnitude < kBranch) return nuv64::horner(kSqrt, x);
    return (std::sqrt(1.0 + x) - 1.0) / x;
}

double rSqrt1DivBplusAxA(double x, double b, double a) noexcept {
    if (a == 0.0) return b < 0.0 ? ___NAN : x / std::sqrt(b);
    const double radicand = a * x + b;
    return radicand < 0.0 ? ___NAN : 2.0 * std::sqrt(radicand) / a;
}

double rCbrt(double x) noexcept {
    return std::cbrt(x);
}

double rCbrtA(double x) noexcept {
    const double root = rCbrt(x);
    const double square = root * root;
    return 0.75 * (square * square);
}

double rCbrtD(double x) noexcept {
    const double root = rCbrt(x);
    return 1.0 / (3.0 * (root * root));
}

double rCbrtT1(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < kShortBranch) return nuv64::horner(kCbrtShort, x);
    if (magnitude < kBranch) return nuv64::horner(kCbrt, x);
    return (rCbrt(1.0 + x) - 1.0) / x;
}

double rRoot(double x, uint64_t n) noexcept {
    if (n == 0) return ___NAN;
    return n == 1 ? x : rPow(x, 1.0 / static_cast<double>(n));
}

double rPow(double x, double y) noexcept {
    if (1.0 + y == 1.0) return 1.0;
    const double exponent = y * std::log(std::fabs(x));
    if (exponent > ___LnMaxReal) return ___MaxReal;
    if (exponent < ___LnMinReal) return ___MinReal;
    return std::exp(exponent);
}

double rSignedPower(double x, double p) noexcept {
    return withSignOf(x, rPow(std::fabs(x), p));
}

double ruPower(double x, uint64_t n) noexcept {
    double power = n & 1 ? x : 1.0;
    while (n >>= 1) {
        x *= x;
        if (n & 1) power *= x;
    }
    return power;
}

double riPower(double x, int64_t n) noexcept {
    if (n >= 0) return ruPower(x, static_cast<uint64_t>(n));
    return x == 0.0 ? ___NAN : 1.0 / ruPower(x, -static_cast<uint64_t>(n));
}

double riAbsPower(double x, int64_t n) noexcept {
    return riPower(std::fabs(x), n);
}

double riSignedPower(double x, int64_t n) noexcept {
    return withSignOf(x, riAbsPower(x, n));
}

double rHypot(double a, double b) noexcept {
    const double magnitudeA = std::fabs(a);
    const double magnitudeB = std::fabs(b);
    const double big = magnitudeA > magnitudeB ? magnitudeA : magnitudeB;
    const double small = magnitudeA > magnitudeB ? magnitudeB : magnitudeA;
    if (big == 0.0) return big + small;  // 0, or the not-a-number that was not found larger
    const double r = small / big;
    const double r2 = r * r;
    if (r < 0.001) return big * (1.0 + r2 * (0.5 + r2 * (-0.125 + r2 * 0.0625)));
    return big * std::sqrt(1.0 + r2);
}

double rNorm2D(double a, double b) noexcept {
    return rHypot(a, b);
}

double rNorm3D(double a, double b, double c) noexcept {
    const double scale = larger(std::fabs(c), larger(std::fabs(a), std::fabs(b)));
    if (scale == 0.0) return scale + sumOfSquares(a, b, c);  // 0, or a not-a-number among them
    return scale * std::sqrt(sumOfSquares(a / scale, b / scale, c / scale));
}

double rSqrNorm2D(double a, double b) noexcept {
    return a * a + b * b;
}

double rSqrNorm3D(double a, double b, double c) noexcept {
    return sumOfSquares(a, b, c);
}
