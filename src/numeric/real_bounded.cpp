#include "nuv64/numeric/real_bounded.h"

#include <cmath>
#include <utility>

#include "core/optional_output.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using nuv64::store;

constexpr uint16_t kHigh = 256;
constexpr uint16_t kLow = 512;
constexpr uint16_t kPrecisionLost = 1024;

double infinity(bool negative) {
    return negative ? ___MnsINF : ___PlsINF;
}

double signedBy(bool negative, double magnitude) {
    return negative ? -magnitude : magnitude;
}

double addToPositive(double a, double b, uint16_t* flag) {
    if (b < 0.0) {
        const double sum = a + b;
        if (sum == 0.0) store(flag, kLow);
        return sum;
    }
    if (b >= ___MaxReal - a) {
        store(flag, kHigh);
        return ___MaxReal;
    }
    return a + b;
}

}  // namespace

double rSafeInv(double x) noexcept {
    const double magnitude = rAbs(x);
    if (magnitude < 1.0 && 1.0 > ___MaxReal * magnitude) return infinity(x < 0.0);
    return 1.0 / x;
}

double rSafeDiv(double a, double b) noexcept {
    const double dividend = rAbs(a);
    const double divisor = rAbs(b);
    if (divisor < 1.0 && dividend > divisor && dividend > ___MaxReal * divisor) {
        return infinity((a < 0.0) != (b < 0.0));
    }
    return a / b;
}

double rSafeMul(double a, double b) noexcept {
    if (rAbs(a) > 1.0 && rAbs(b) > 1.0 && rAbs(a) > ___MaxReal / rAbs(b)) {
        return infinity((a < 0.0) != (b < 0.0));
    }
    return a * b;
}

double rSafeProportion(double a, double b, double c) noexcept {
    const bool negative = ((a < 0.0) != (b < 0.0)) != (c < 0.0);
    a = rAbs(a);
    b = rAbs(b);
    c = rAbs(c);
    const bool divideFirst = (c < 1.0 && b > a) || (c > 1.0 && a > b);
    const double result = divideFirst ? rSafeMul(b, rSafeDiv(a, c)) : rSafeMul(a, rSafeDiv(b, c));
    return signedBy(negative, result);
}

double rBoundAdd(double a, double b, uint16_t* flag) noexcept {
    store(flag, 0);
    if (a == 0.0) return b;
    if (b == 0.0) return a;
    return a < 0.0 ? -addToPositive(-a, -b, flag) : addToPositive(a, b, flag);
}

double rBoundSub(double a, double b, uint16_t* flag) noexcept {
    return rBoundAdd(a, -b, flag);
}

double rBoundMul(double a, double b, uint16_t* flag) noexcept {
    store(flag, 0);
    if (a == 0.0 || b == 0.0) return 0.0;
    const bool negative = (a < 0.0) != (b < 0.0);
    double big = rAbs(a);
    double small = rAbs(b);
    if (small > big) std::swap(big, small);
    const auto logarithm = [&] { return std::log(big) + std::log(small); };
    if (small > 1.0 && big > ___SqrtMaxReal && logarithm() > ___LnMaxReal) {
        store(flag, kHigh);
        return signedBy(negative, ___MaxReal);
    }
    if (small <= 1.0 && big < 1.0 && small < ___SqrtMinReal && logarithm() < ___LnMinReal) {
        store(flag, kLow);
        return signedBy(negative, ___MinReal);
    }
    return a * b;
}

double rBoundDiv(double a, double b, uint16_t* flag) noexcept {
    store(flag, 0);
    if (a == 0.0) return 0.0;
    const bool negative = (a < 0.0) != (b < 0.0);
    const double dividend = rAbs(a);
    const double divisor = rAbs(b);
    if (b == 0.0 || (divisor < 1.0 && dividend > divisor * ___MaxReal)) {
        store(flag, kHigh);
        return signedBy(b == 0.0 ? a < 0.0 : negative, ___MaxReal);
    }
    if (divisor >= 1.0 && divisor * ___MinReal > dividend) {
        store(flag, kLow);
        return signedBy(negative, ___MinReal);
    }
    return a / b;
}

double rBoundMod(double a, double m, double* quotient, uint16_t* flag) noexcept {
    store(flag, 0);
    if (m == 0.0) return a;
    const double period = rAbs(m);
    double whole = 0.0;
    double rest = rAbs(a);
    if (rest > period) {
        whole = rBoundDiv(rest, period, nullptr);
        if (!(whole + 0.5 > whole)) {
            store(flag, kPrecisionLost);
            rest = 0.0;
        } else {
            whole = std::floor(whole);
            rest -= whole * period;
            if (rest < 0.0) {
                rest += period;
                whole -= 1.0;
            } else if (rest >= period) {
                rest -= period;
                whole += 1.0;
            }
        }
    }
    if (quotient) *quotient = signedBy(a < 0.0, whole);
    return signedBy(a < 0.0, rest);
}
