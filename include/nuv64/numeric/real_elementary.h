/* Elementary functions of reals.
 *
 * Out of its domain a function gives ___NAN; the domain is tested first. Where nothing else is said
 * the function is that of the C runtime, within one last place. */
#ifndef NUV64_NUMERIC_REAL_ELEMENTARY_H
#define NUV64_NUMERIC_REAL_ELEMENTARY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* |x|, for values below 0: the sign of -0 and of a not-a-number is kept. */
NUV64_API double rAbs(double x) NUV64_NOEXCEPT;

/* e^x. Overflow is "no result" and not an infinity: ___NAN for x above ___LnMaxReal. 0 for x below
 * ___LnMinReal. */
NUV64_API double rExp(double x) NUV64_NOEXCEPT;

/* The logarithms to the base 2, e and 10; ___NAN for x up to ___MinReal, so for 0 and below. rLog2
 * is the C runtime's, the others are 0.6931471805599453 and 0.3010299956639812 times it and so
 * differ from the C runtime's by up to two last places. */
NUV64_API double rLog2(double x) NUV64_NOEXCEPT;
NUV64_API double rLog(double x) NUV64_NOEXCEPT;
NUV64_API double rLog10(double x) NUV64_NOEXCEPT;

/* The square root; a not-a-number for x below 0. */
NUV64_API double rSqrt(double x) NUV64_NOEXCEPT;

/* |x|^y: x enters by its magnitude alone, so rPow(-2, 3) is 8. 1 where 1 + y is 1. Out of range the
 * result saturates: ___MaxReal, or ___MinReal and not zero, so rPow(0, 2) is ___MinReal. Made as
 * e^(y ln|x|), with a relative error of about |y ln|x|| last places. */
NUV64_API double rPow(double x, double y) NUV64_NOEXCEPT;

/* sign(x)*rPow(|x|, p). */
NUV64_API double rSignedPower(double x, double p) NUV64_NOEXCEPT;

/* x^n by binary powering from the low bit; n = 0 gives 1 for every x. Overflow gives an infinity,
 * and the error is about n/2 last places. */
NUV64_API double ruPower(double x, uint64_t n) NUV64_NOEXCEPT;

/* The same for a signed n: 1/ruPower(x, -n) for n below 0, ___NAN when x is 0 then. */
NUV64_API double riPower(double x, int64_t n) NUV64_NOEXCEPT;

/* riPower of |x|, and that with the sign of x put back. */
NUV64_API double riAbsPower(double x, int64_t n) NUV64_NOEXCEPT;
NUV64_API double riSignedPower(double x, int64_t n) NUV64_NOEXCEPT;

/* sqrt(a^2 + b^2) without overflow on the way: with the smaller magnitude r times the larger, the
 * larger times sqrt(1 + r^2), or times its series through r^6 for r below 0.001. */
NUV64_API double rHypot(double a, double b) NUV64_NOEXCEPT;

/* The arc tangent, in [-pi/2, pi/2]. */
NUV64_API double rAtan(double x) NUV64_NOEXCEPT;

/* The angle of the line through (x, y), in [-pi/2, pi/2]: the arc tangent of y/x. 0 when y is lost
 * against x in a sum, so also for x = y = 0; plus or minus pi/2 when x is lost against y. A
 * not-a-number gives 0. */
NUV64_API double rAtanXY(double x, double y) NUV64_NOEXCEPT;

/* The angle of the point (x, y) from the x axis, in [-pi, pi]; pi for y = 0 (of either sign) and x
 * below 0, 0 for x = y = 0. */
NUV64_API double rAzimuth(double x, double y) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
