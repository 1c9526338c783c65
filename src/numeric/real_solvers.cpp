#include "nuv64/numeric/real_solvers.h"

#include <cmath>

#include "core/optional_output.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using nuv64::store;

struct End {
    double x;
    double value;
};

bool isBelow0(const End& end) {
    return end.value < 0.0;
}

double middle(const End& a, const End& b) {
    return 0.5 * (a.x + b.x);
}

double falsePosition(const End& a, const End& b) {
    const double w = b.value / (b.value - a.value);
    return w * a.x + (1.0 - w) * b.x;
}

// A point on an end would replace that end by itself: the bracket can't shrink any more. One that
// rounding puts outside, as false position can, would widen it and mostly go back and forth for
// ever.
bool narrows(double x, const End& a, const End& b) {
    return !(x <= std::fmin(a.x, b.x) || x >= std::fmax(a.x, b.x));
}

template <class Function, class NextPoint>
double solve(double from, double to, Function f, double* residual, double tolerance,
             NextPoint nextPoint) {
    End a{from, f(from)};
    End b{to, f(to)};
    store(residual, ___NAN);
    if (isBelow0(a) == isBelow0(b)) return ___NAN;
    if (tolerance == 0.0) tolerance = ___5EpsReal;
    while (std::fabs(b.x - a.x) > tolerance) {
        const double x = nextPoint(a, b);
        if (!narrows(x, a, b)) break;
        const End next{x, f(x)};
        (isBelow0(next) == isBelow0(b) ? b : a) = next;
    }
    store(residual, a.value);
    return a.x;
}

double noFunction(double* residual) {
    store(residual, ___NAN);
    return ___NAN;
}

// The result, with the roots stored.
double withRoots(double result, double* root1, double first, double* root2, double second) {
    store(root1, first);
    store(root2, second);
    return result;
}

}  // namespace

double rSolveBinDiv(double a, double b, double (*f)(double), double* residual,
                    double tolerance) noexcept {
    if (!f) return noFunction(residual);
    return solve(a, b, f, residual, tolerance, middle);
}

double rSolveBinDivRp(double a, double b, double (*f)(double, void*), void* parameter,
                      double* residual, double tolerance) noexcept {
    if (!f) return noFunction(residual);
    const auto value = [=](double x) { return f(x, parameter); };
    return solve(a, b, value, residual, tolerance, middle);
}

double rSolveNewton(double a, double b, double (*f)(double), double* residual,
                    double tolerance) noexcept {
    if (!f) return noFunction(residual);
    return solve(a, b, f, residual, tolerance, falsePosition);
}

double rSolveNewtonRp(double a, double b, double (*f)(double, void*), void* parameter,
                      double* residual, double tolerance) noexcept {
    if (!f) return noFunction(residual);
    const auto value = [=](double x) { return f(x, parameter); };
    return solve(a, b, value, residual, tolerance, falsePosition);
}

double rSolveQuadratic(double a, double b, double c, double* root1, double* root2) noexcept {
    if (a == 0.0) {
        const double root = b != 0.0 ? -c / b : c == 0.0 ? 0.0 : ___NAN;
        return withRoots(root, root1, root, root2, 0.0);
    }
    if (a != 1.0) {
        b /= a;
        c /= a;
    }
    const double h = 0.5 * b;
    const double d = h * h - c;
    if (d < 0.0) return withRoots(-h, root1, -h, root2, rSqrt(-d));
    const double root = rSqrt(d);
    if (h < 0.0) return withRoots(-c / (root - h), root1, -h + root, root2, 0.0);
    return withRoots(-h - root, root1, -c / (root + h), root2, 0.0);
}

double rDerivative(double x, double (*f)(double)) noexcept {
    if (!f) return ___NAN;
    const double h = ___SqrtEpsReal;
    double sum = -0.1071428571428571 * f(x - 3.0 * h);
    sum -= 0.0714285714285714 * f(x - 2.0 * h);
    sum -= 0.0357142857142857 * f(x - h);
    sum += 0.0357142857142857 * f(x + h);
    sum += 0.0714285714285714 * f(x + 2.0 * h);
    sum += 0.1071428571428571 * f(x + 3.0 * h);
    return sum / h;
}
