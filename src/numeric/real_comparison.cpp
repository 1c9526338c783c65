#include "nuv64/numeric/real_comparison.h"

#include <cmath>

#include "core/real_rounding.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

double larger(double a, double b) {
    return a > b ? a : b;
}

bool replace(double* x, double value, double tol, bool (*isDifferent)(double, double, double)) {
    if (!x || !isDifferent(*x, value, tol)) return false;
    *x = value;
    return true;
}

}  // namespace

bool rIsDifferentAbs(double a, double b, double tol) noexcept {
    return rAbs(b - a) > tol;
}

bool rIsDifferentRel(double a, double b, double tol) noexcept {
    return rAbs(b - a) > tol * larger(rAbs(a), rAbs(b));
}

bool rIsZeroAbs(double x, double tol) noexcept {
    return !(rAbs(x) > tol);
}

bool rReplaceIfDifferentAbs(double* x, double value, double tol) noexcept {
    return replace(x, value, tol, rIsDifferentAbs);
}

bool rReplaceIfDifferentRel(double* x, double value, double tol) noexcept {
    return replace(x, value, tol, rIsDifferentRel);
}

double rKronDelta(double a, double b, double tol) noexcept {
    return rIsDifferentRel(a, b, tol) ? 0.0 : 1.0;
}

int32_t rCompare(double a, double b, double rel) noexcept {
    if (rel * (rAbs(a) + rAbs(b)) >= rAbs(a - b)) return 0;
    if (a < 0.0 && b < 0.0) return a > b ? -1 : 1;
    if (a < 0.0) return b >= 0.0 ? -1 : 1;
    return b > a ? -1 : 1;
}

int32_t rCompareTo0(double x, double tol) noexcept {
    if (tol >= rAbs(x)) return 0;
    return x < 0.0 ? -1 : 1;
}

bool rIsBetweenAtoB(double x, double a, double b) noexcept {
    return (a <= x && x <= b) || (b <= x && x <= a);
}

bool rHaveSameSign(double a, double b) noexcept {
    return (a >= 0.0 && b >= 0.0) || (a <= 0.0 && b <= 0.0);
}

bool rIsInteger(double x) noexcept {
    return x - static_cast<double>(nuv64::truncateToQlong(x)) == 0.0;
}
