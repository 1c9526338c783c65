/* Powers, roots and norms.
 *
 * The suffixes: A an antiderivative, D the derivative, T1 the root of 1 + x less its first Taylor
 * term, divided by x: finite and accurate near zero. Out of its domain a function gives ___NAN
 * where that is said, and else the not-a-number of the C runtime. Errors are in units in the last
 * place (ulps). */
#ifndef NUV64_NUMERIC_REAL_POWERS_H
#define NUV64_NUMERIC_REAL_POWERS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The square root, correctly rounded; a not-a-number for x below 0. */
NUV64_API double rSqrt(double x) NUV64_NOEXCEPT;

/* (2/3)*x*sqrt(x), the antiderivative of the square root, and 0.5/sqrt(x), its derivative (an
 * infinity at 0). A not-a-number for x below 0. Within two ulps. */
NUV64_API double rSqrtA(double x) NUV64_NOEXCEPT;
NUV64_API double rSqrtD(double x) NUV64_NOEXCEPT;

/* (sqrt(1 + x) - 1)/x, 1/2 at 0. Taylor polynomials of three terms below 1e-6 in magnitude and of
 * six below 0.001, within one ulp; then plainly the quotient, whose error is about 2.5/|x| ulps for
 * small x, 2000 near the branch point. A not-a-number for x below -1. (Abramowitz and
 * Stegun 3.6.9.)
 */
NUV64_API double rSqrtT1(double x) NUV64_NOEXCEPT;

/* The antiderivative of 1/sqrt(b + a*x): 2*sqrt(a*x + b)/a, and x/sqrt(b) for a = 0. ___NAN where
 * the radicand is negative; b = 0 with a = 0 divides by zero. Within two ulps, but for the
 * cancellation of a*x + b near its zero. */
NUV64_API double rSqrt1DivBplusAxA(double x, double b, double a) NUV64_NOEXCEPT;

/* The cube root, also of negative x; the C runtime's, within two ulps (Linux) or one (Windows).
 */
NUV64_API double rCbrt(double x) NUV64_NOEXCEPT;

/* With the cube root c: 0.75*c^4, its antiderivative, and 1/(3*c^2), its derivative (an infinity at
 * 0). Within ten and five ulps (Linux), half of that (Windows). */
NUV64_API double rCbrtA(double x) NUV64_NOEXCEPT;
NUV64_API double rCbrtD(double x) NUV64_NOEXCEPT;

/* (cbrt(1 + x) - 1)/x, 1/3 at 0, for every x. The branches of rSqrtT1, and 4/|x| ulps beyond. */
NUV64_API double rCbrtT1(double x) NUV64_NOEXCEPT;

/* The n-th root of |x|, made as rPow(x, 1/n), so the sign of x is lost and zero gives ___MinReal;
 * x itself for n = 1, ___NAN for n = 0. */
NUV64_API double rRoot(double x, uint64_t n) NUV64_NOEXCEPT;

/* |x|^y: x enters by its magnitude alone, so rPow(-2, 3) is 8. 1 where 1 + y is 1. Out of range the
 * result saturates: ___MaxReal, or ___MinReal and not zero, so rPow(0, 2) is ___MinReal. Made as
 * e^(y ln|x|), with a relative error of about |y ln|x|| ulps. */
NUV64_API double rPow(double x, double y) NUV64_NOEXCEPT;

/* sign(x)*rPow(|x|, p). */
NUV64_API double rSignedPower(double x, double p) NUV64_NOEXCEPT;

/* x^n by binary powering from the low bit; n = 0 gives 1 for every x. Overflow gives an infinity,
 * and the error is below n ulps. */
NUV64_API double ruPower(double x, uint64_t n) NUV64_NOEXCEPT;

/* The same for a signed n: 1/ruPower(x, -n) for n below 0, ___NAN when x is 0 then. Where
 * ruPower(x, -n) overflows it is 0. */
NUV64_API double riPower(double x, int64_t n) NUV64_NOEXCEPT;

/* riPower of |x|, and that with the sign of x put back. */
NUV64_API double riAbsPower(double x, int64_t n) NUV64_NOEXCEPT;
NUV64_API double riSignedPower(double x, int64_t n) NUV64_NOEXCEPT;

/* sqrt(a^2 + b^2) without overflow on the way: with the smaller magnitude r times the larger, the
 * larger times sqrt(1 + r^2), or times its series through r^6 for r below 0.001. Within two ulps.
 * Two infinities give a not-a-number. rNorm2D is the same. */
NUV64_API double rHypot(double a, double b) NUV64_NOEXCEPT;
NUV64_API double rNorm2D(double a, double b) NUV64_NOEXCEPT;

/* sqrt(a^2 + b^2 + c^2), scaled by the largest magnitude. Within two ulps. Two infinities give a
 * not-a-number, one as well. */
NUV64_API double rNorm3D(double a, double b, double c) NUV64_NOEXCEPT;

/* a^2 + b^2 and a^2 + b^2 + c^2, plain sums that may overflow to an infinity or underflow. */
NUV64_API double rSqrNorm2D(double a, double b) NUV64_NOEXCEPT;
NUV64_API double rSqrNorm3D(double a, double b, double c) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
