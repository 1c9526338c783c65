/* Hyperbolic functions, their inverses, and conversions between them.
 *
 * Where nothing else is said a function is that of the C runtime, within two units in the last
 * place (ulps). Out of its domain a function gives ___NAN where that is said, and else the
 * not-a-number of the C runtime. */
#ifndef NUV64_NUMERIC_REAL_HYPERBOLIC_H
#define NUV64_NUMERIC_REAL_HYPERBOLIC_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The hyperbolic sine and tangent. Overflow of the sine gives an infinity. */
NUV64_API double rSinh(double x) NUV64_NOEXCEPT;
NUV64_API double rTanh(double x) NUV64_NOEXCEPT;

/* (e^x + e^-x)/2 and its inverse, from two rExp: ___NAN for magnitudes above ___LnMaxReal. Within
 * three ulps. */
NUV64_API double rCosh(double x) NUV64_NOEXCEPT;
NUV64_API double rSech(double x) NUV64_NOEXCEPT;

/* The inverse hyperbolic sine; cosine (result >= 0; a not-a-number for x below 1); tangent (plus or
 * minus infinity at plus or minus 1, a not-a-number beyond). On Windows the error of the inverse
 * cosine near 1 is absolute, about 2^-53. */
NUV64_API double rAsinh(double x) NUV64_NOEXCEPT;
NUV64_API double rAcosh(double x) NUV64_NOEXCEPT;
NUV64_API double rAtanh(double x) NUV64_NOEXCEPT;

/* cosh from sinh, sqrt(1 + x^2); no overflow on the way. Within two ulps. */
NUV64_API double rCoshFromSinh(double x) NUV64_NOEXCEPT;

/* The positive sinh from cosh, sqrt(x + 1)*sqrt(x - 1); ___NAN for x below 1. Within three ulps. */
NUV64_API double rSinhFromCosh(double x) NUV64_NOEXCEPT;

/* tanh from sinh, and the positive tanh from cosh (___NAN for x below 1). Within four ulps. An
 * infinity is divided by itself: a not-a-number. */
NUV64_API double rTanhFromSinh(double x) NUV64_NOEXCEPT;
NUV64_API double rTanhFromCosh(double x) NUV64_NOEXCEPT;

/* sinh and cosh from tanh: the one named first is the result, the other goes to *other (may be
 * null). Both are ___NAN for magnitudes above 1 and infinite at 1. Within four ulps. */
NUV64_API double rSinhCoshFromTanh(double t, double* other) NUV64_NOEXCEPT;
NUV64_API double rCoshSinhFromTanh(double t, double* other) NUV64_NOEXCEPT;

/* cosh(x)/cosh(n*x) and sinh(x)/sinh(n*x). Plain quotients, within four ulps and what the rounding
 * of n*x makes, as long as both magnitudes are up to ___LnMaxReal; beyond in exponentials, with an
 * error of about |x| + |n*x| ulps. The second is a not-a-number for n*x = 0. */
NUV64_API double rCoshNRatio(double x, double n) NUV64_NOEXCEPT;
NUV64_API double rSinhNRatio(double x, double n) NUV64_NOEXCEPT;

/* cosh(x) and sinh(x) by their power series in x^k/k!, summed by rSeriesTermFunc with at most 10000
 * terms beyond the first. An overflow gives an infinity; ___NAN where the sum doesn't end, which
 * is for a not-a-number. The error is about 1 + |x|/4 ulps. (Abramowitz and Stegun 4.5.62,
 * 4.5.63.) */
NUV64_API double rCoshSeries(double x) NUV64_NOEXCEPT;
NUV64_API double rSinhSeries(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
