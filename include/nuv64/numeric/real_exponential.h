/* Exponentials.
 *
 * Overflow is "no result" and not an infinity: ___NAN. The suffixes T1 and T2 stand for the
 * exponential less its first one or two Taylor terms, divided by the power that is left: finite and
 * accurate near zero, where polynomials take over. Errors are in units in the last place (ulps). */
#ifndef NUV64_NUMERIC_REAL_EXPONENTIAL_H
#define NUV64_NUMERIC_REAL_EXPONENTIAL_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* e^x. ___NAN for x above ___LnMaxReal, 0 for x below ___LnMinReal. The C runtime's, within one
 * ulp. */
NUV64_API double rExp(double x) NUV64_NOEXCEPT;

/* 2^x, the C runtime's: an infinity from x = 1024 on, subnormal or 0 below -1022. Within one ulp.
 */
NUV64_API double rExp2(double x) NUV64_NOEXCEPT;

/* e^x - 1. Below ___EpsReal in magnitude it is x, below ___SqrtEpsReal the Taylor polynomial of
 * three terms, below ___Root4EpsReal that of five, each within one ulp; from there on plainly the
 * difference, ___NAN and -1 outside the range of rExp. The difference cancels: its error is about
 * 1/|x| ulps for small x, 4096 at the last branch point. (Abramowitz and Stegun 4.2.1.) */
NUV64_API double rExpM1(double x) NUV64_NOEXCEPT;

/* (e^x - 1)/x, 1 at 0. The branches and errors of rExpM1, with one ulp more. */
NUV64_API double rExpT1(double x) NUV64_NOEXCEPT;

/* (e^x - 1 - x)/x^2, 1/2 at 0. The branches of rExpM1; one ulp below ___Root4EpsReal, and from
 * there on about 2/x^2 ulps for small x: eight digits are good at the branch point, and all from
 * |x| = 1 on. A magnitude whose square overflows gives 0, or ___NAN. */
NUV64_API double rExpT2(double x) NUV64_NOEXCEPT;

/* 1 + x + x^2/2 + x^3/3 + ... + x^n/n: the denominators are the indices, not their factorials, so
 * this is 1 - ln(1 - x) cut off after n terms. 1 for n = 0, 1 + x for n = 1. By Horner's scheme
 * from 1/n down; for |x| < 1 from the first index whose power is not lost to underflow. An overflow
 * gives an infinity. The error is below 2 ulps for magnitudes up to 1 and below n ulps for larger
 * x; for x below -1 the sum cancels. Time grows with n where |x| is near 1. */
NUV64_API double rExpt(double x, uint64_t n) NUV64_NOEXCEPT;

/* The symmetric exponential: e^(x-1) for x >= 0, -e^(-x-1) for x below 0. It grows as the inverse
 * of rLogSym does, up to the factor e, and jumps from -1/e to 1/e at 0. ___NAN where rExp gives it,
 * with the sign of x. The error is below 1 + |x| ulps. */
NUV64_API double rExpSym(double x) NUV64_NOEXCEPT;

/* rExpSym(2.302585092994046*x), so that a unit of x is a decade; the error is below 2 + 5|x| ulps.
 */
NUV64_API double rExpSym10(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
