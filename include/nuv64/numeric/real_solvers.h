/* Roots of functions of one real, the quadratic equation, a numerical derivative.
 *
 * The functions given are called with the points to evaluate; those of the Rp forms get parameter
 * too, which may be null. They must not be null (the result is ___NAN then) and must not throw. */
#ifndef NUV64_NUMERIC_REAL_SOLVERS_H
#define NUV64_NUMERIC_REAL_SOLVERS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Solvers by a bracket: f must be below 0 at one of a, b and not below 0 at the other, in either
 * order. A value of 0 (or a not-a-number) counts as not below 0, so a zero at an end makes no
 * bracket by itself.
 *
 * The bracket is narrowed until it is at most tolerance wide (absolute; 0 means ___5EpsReal), or
 * until rounding puts the next point on one of its ends or past it, so that a tolerance below the
 * spacing of doubles ends too. The result is the end that began as a, not the middle; *residual
 * (may be null) takes the value of f there. Without a bracket both are ___NAN. */

/* Bisection: about log2(|b - a|/tolerance) calls of f. */
NUV64_API double rSolveBinDiv(double a, double b, double (*f)(double), double* residual,
                              double tolerance) NUV64_NOEXCEPT;
NUV64_API double rSolveBinDivRp(double a, double b, double (*f)(double, void*), void* parameter,
                                double* residual, double tolerance) NUV64_NOEXCEPT;

/* False position, though named for Newton: no derivative is used. The next point is
 * w*a + (1 - w)*b with w = f(b)/(f(b) - f(a)). One end may stay where it is while the other creeps
 * to the root, so the width need never get small and a convex function can take many calls: there
 * is no limit to them. When the moving end is b, the end returned may be far from the root; look at
 * the residual. */
NUV64_API double rSolveNewton(double a, double b, double (*f)(double), double* residual,
                              double tolerance) NUV64_NOEXCEPT;
NUV64_API double rSolveNewtonRp(double a, double b, double (*f)(double, void*), void* parameter,
                                double* residual, double tolerance) NUV64_NOEXCEPT;

/* a*x^2 + b*x + c = 0. Either pointer may be null. With h = b/(2 a) and d = h^2 - c/a:
 *
 * - a = b = 0: root2 is 0, root1 is 0 for c = 0 and ___NAN else; returns root1.
 * - a = 0: root2 is 0, root1 = -c/b; returns root1.
 * - d < 0: root1 = -h and root2 = sqrt(-d) are the real and the imaginary part; returns -h.
 * - d >= 0 and h >= 0: root1 = -c/a/(sqrt(d) + h), the root of smaller magnitude without
 *   cancellation; returns the other one, -h - sqrt(d); root2 is 0.
 * - d >= 0 and h < 0: root1 = -h + sqrt(d), the root of larger magnitude; returns
 *   -c/a/(sqrt(d) - h), which is the other root with the wrong sign; root2 is 0.
 *
 * So *root2 is 0 exactly when the roots are real, root1 is then a root and the second one is the
 * result, which callers turn round where b/a is below 0. h = d = 0 divides 0 by 0: root1 is a
 * not-a-number. */
NUV64_API double rSolveQuadratic(double a, double b, double c, double* root1,
                                 double* root2) NUV64_NOEXCEPT;

/* f'(x) by a least-squares line through x + k*h for k from -3 to 3 without 0: the sum of
 * k/28*f(x + k*h), divided by h = ___SqrtEpsReal. The step is absolute, so x of magnitude about 1
 * is meant: the error is about 1e-8*|f/f'| from rounding. For |x| above 2^27 the points fall
 * together. (Savitzky and Golay, Anal. Chem. 36 (1964) 1627, table III.) */
NUV64_API double rDerivative(double x, double (*f)(double)) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
