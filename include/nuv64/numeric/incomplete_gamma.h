/* The incomplete gamma functions of order a above 0 at x from 0 on.
 *
 * From x = a + 1 on by the continued fraction (Abramowitz and Stegun 6.5.31) with the modified
 * method of Lentz, below by the power series (6.5.29), to a relative tolerance of ___5EpsReal.
 * Outside the domain, for an infinity or a not-a-number, and when 999 rounds don't settle (for x
 * just below a from about a = 1.6e4 on, just above from 1.4e6 on) the result is ___NAN. The factor
 * x^a e^-x is made by logarithms: its relative error in units in the last place (ulps) is about the
 * sum of |a ln x|, x and 19 or a ln a, and that dominates for large arguments. What is made as a
 * difference from the whole loses the digits that cancel: P and the lower function just above x = a
 * + 1, Q and the upper one below. Measured against 50 digits for a up to 120: 150 ulps where a
 * function is the product, and up to four times the error of its factor, relative to the whole,
 * where it is the difference. */
#ifndef NUV64_NUMERIC_INCOMPLETE_GAMMA_H
#define NUV64_NUMERIC_INCOMPLETE_GAMMA_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The lower function gamma(a, x), the integral of t^(a-1) e^-t from 0 to x; 0 for x below
 * ___SqrtMinReal. ___NAN where Gamma(a), or the factor, overflows. */
NUV64_API double rGammaIncLower(double a, double x) NUV64_NOEXCEPT;

/* The upper function Gamma(a, x), the integral of t^(a-1) e^-t from x to infinity; Gamma(a) for x
 * below ___5EpsReal. ___NAN where Gamma(a), or the factor, overflows. */
NUV64_API double rGammaIncUpper(double a, double x) NUV64_NOEXCEPT;

/* The regularised lower function P(a, x) = gamma(a, x)/Gamma(a); 0 for x below ___SqrtMinReal. */
NUV64_API double rGammaIncP(double a, double x) NUV64_NOEXCEPT;

/* The regularised upper function Q(a, x) = 1 - P(a, x); 1 for x below ___5EpsReal. */
NUV64_API double rGammaIncQ(double a, double x) NUV64_NOEXCEPT;

/* The x at which P(a, x) is p, for p from 0 to 1: the quantile of the gamma distribution. 0 for p =
 * 0, and for p = 1 the larger of 100 and a + 100 sqrt(a), where infinity would be right.
 *
 * First a guess (for a above 1 that of Wilson and Hilferty from Abramowitz and Stegun 26.2.22 and
 * 26.4.17), then up to 12 steps of Halley's method until one is below 1e-8 x. ___NAN where P
 * doesn't converge. The result carries the error of P over its slope, a few hundred ulps for a of
 * some tens. Quantiles below 1e-150, where P counts as 0, are right in being next to nothing alone.
 * For a above 1 the steps may run out on the way from a guess far off where p is below 4e-12: for a
 * = 7.6 and p = 2.5e-15 they end at half of the quantile. */
NUV64_API double rGammaIncPInv(double a, double p) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
