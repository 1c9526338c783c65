#include "nuv64/numeric/handbook_integrals.h"

#include <cmath>

#include "numeric/real_bits.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_factorials.h"
#include "nuv64/numeric/real_hyperbolic.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"
#include "nuv64/numeric/real_trigonometric.h"

namespace {

double lnAbs(double x) {
    return rLog(std::fabs(x));
}

// x^(n + 1), for the last n too.
double nextPower(double x, uint64_t n) {
    return n == UINT64_MAX ? ruPower(x, n) * x : ruPower(x, n + 1);
}

// The integral of 1/sqrt(x^2 + b x + c).
double inverseRootMonic(double x, double c, double b) {
    const double discriminant = 4.0 * c - b * b;
    if (discriminant < 0.0) return ___NAN;
    if (discriminant == 0.0) return lnAbs(2.0 * x + b);
    return rAsinh((2.0 * x + b) / rSqrt(discriminant));
}

// The integral of 1/sqrt(a x^2 + b x + c) for a below 0.
double inverseRootFalling(double x, double c, double b, double a) {
    const double discriminant = b * b - 4.0 * a * c;
    if (!(discriminant > 0.0)) return ___NAN;
    const double slope = 2.0 * a * x + b;
    const double root = rSqrt(discriminant);
    if (!(std::fabs(slope) <= root)) return ___NAN;
    return -rAsin(slope / root) / rSqrt(-a);
}

}  // namespace

double rAS_3_3_14(double x, double a, double b, int64_t n) noexcept {
    if (n == 0) return x;
    if (b == 0.0) return x * riPower(a, n);
    const double linear = a + b * x;
    if (n == -1) return lnAbs(linear) / b;
    const double power =
        n > 0 ? nextPower(linear, static_cast<uint64_t>(n)) : riPower(linear, n + 1);
    return power / (b * (static_cast<double>(n) + 1.0));
}

double rAS_3_3_16(double x, double c, double b, double a) noexcept {
    const double discriminant = b * b - 4.0 * a * c;
    const double w = 2.0 * a * x + b;
    if (discriminant > 0.0) {
        const double root = rSqrt(discriminant);
        return lnAbs((w - root) / (w + root)) / root;
    }
    if (discriminant < 0.0) return rAtan(w / rSqrt(-discriminant));
    return discriminant == 0.0 ? -2.0 / w : ___NAN;
}

double rAS_3_3_19(double x, double c, double b, double a) noexcept {
    if (a == 0.0) {
        if (b == 0.0) return c == 0.0 ? ___NAN : x * x / (2.0 * c);
        if (c == 0.0) return x / b;
        return (x - c * rLog(std::fabs(b * x + c) / b)) / b;
    }
    const double ln = lnAbs(c + x * (b + x * a));
    if (b == 0.0) return ln / (2.0 * a);
    return (ln - b * rAS_3_3_16(x, c, b, a)) / (2.0 * a);
}

double rAS_3_3_20(double x, double a, double b, double c, double d) noexcept {
    const double v = b * c - a * d;
    if (v != 0.0) return lnAbs((c * x + d) / (a * x + b)) / v;
    if (c != 0.0) return -1.0 / c / (a * x + b);
    return a == 0.0 ? x / (b * d) : ___NAN;
}

double rAS_3_3_21(double x, double a, double b) noexcept {
    if (b == 0.0) return a == 0.0 ? ___NAN : x / (a * a);
    if (a == 0.0) return -1.0 / (b * b * x);
    return rAtanXY(a, b * x) / (a * b);
}

double rAS_3_3_22(double x, double a, double b) noexcept {
    if (b == 0.0) {
        const double ratio = x / a;
        return a == 0.0 ? ___NAN : 0.5 * ratio * ratio;
    }
    return 0.5 * lnAbs(a * a + b * b * x * x) / (b * b);
}

double rAS_3_3_33(double x, double c, double b, double a) noexcept {
    if (a == 1.0) return inverseRootMonic(x, c, b);
    if (a > 0.0) return inverseRootMonic(x, c / a, b / a) / rSqrt(a);
    if (a < 0.0) return inverseRootFalling(x, c, b, a);
    return ___NAN;
}

double rAS4_1_51(double x, uint64_t n, uint64_t m) noexcept {
    if (x < 0.0 || nuv64::isNoResult(x)) return ___NAN;
    if (x == 0.0) return 0.0;
    const double v = static_cast<double>(n) + 1.0;
    const double power = nextPower(x, n);
    if (m == 0) return power / v;
    const int64_t order = m > INT64_MAX ? INT64_MAX : static_cast<int64_t>(m);
    return -power / nextPower(-v, m) * rFactorial(order) * rExpt(-v * rLog(x), m);
}
