/* Logarithms.
 *
 * The suffixes: A an antiderivative, D the derivative, T1 and T2 the logarithm of 1 + x less its
 * first Taylor terms, divided by the power that is left: finite and accurate near zero. Out of its
 * domain a function gives ___NAN. Errors are in units in the last place (ulps). */
#ifndef NUV64_NUMERIC_REAL_LOGARITHM_H
#define NUV64_NUMERIC_REAL_LOGARITHM_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The logarithms to the base 2, e and 10; ___NAN for x up to ___MinReal, so for 0 and below. rLog2
 * is the C runtime's, within one ulp; the others are 0.6931471805599453 and 0.3010299956639812
 * times it, within two. */
NUV64_API double rLog2(double x) NUV64_NOEXCEPT;
NUV64_API double rLog(double x) NUV64_NOEXCEPT;
NUV64_API double rLog10(double x) NUV64_NOEXCEPT;

/* ln(1 + x), the C runtime's, within one ulp: minus infinity at -1, a not-a-number below. */
NUV64_API double rLog1p(double x) NUV64_NOEXCEPT;

/* x*ln(x) - x, the antiderivative of ln that is 0 at 0. ___NAN for x below 0 and, as that of its
 * logarithm, for x above 0 up to ___MinReal. Within three ulps of the larger of its two terms; it
 * cancels around its zero at e. */
NUV64_API double rLogA(double x) NUV64_NOEXCEPT;

/* The derivative of ln, 1/x: rSafeInv(x), so an infinity at 0. */
NUV64_API double rLogD(double x) NUV64_NOEXCEPT;

/* The n-th derivative of ln for n above 0, the -n-fold antiderivative for n below 0, ln for n = 0.
 *
 * Derivatives, (-1)^(n-1) (n-1)!/x^n: 1/x and -1/x^2 by safe division, also of negative x; higher
 * ones as e^(ln Gamma(n) - n ln x), whose error is about |n ln x| + ln Gamma(n) ulps, ___NAN for x
 * up to ___MinReal and on overflow.
 *
 * Antiderivatives with m = -n, (ln x - H(m)) x^m/m! with the harmonic number H: 0 at x = 0, ___NAN
 * below. x^m/m! is a running product up to m = 170, with an error of about m ulps, and above
 * e^(m ln x - ln m!); the difference cancels around its zero at x = e^H(m). */
NUV64_API double rLogAD(double x, int64_t n) NUV64_NOEXCEPT;

/* The logarithm of x to a base: the quotient of their rLog2. Where the base has no logarithm, or x,
 * ___NAN. Base 1 divides by zero: an infinity, or a not-a-number for x = 1. */
NUV64_API double rLogInBase(double x, double base) NUV64_NOEXCEPT;

/* The same, but ___NAN for base 1. */
NUV64_API double rLogRatio(double x, double base) NUV64_NOEXCEPT;

/* The symmetric logarithm sign(x)*ln(1 + |x|): odd, like x near 0 and logarithmic far off. Within
 * one ulp. rLogSym10 is 0.4342944819032518 times it, within two. */
NUV64_API double rLogSym(double x) NUV64_NOEXCEPT;
NUV64_API double rLogSym10(double x) NUV64_NOEXCEPT;

/* ln(1 + x)/x, 1 at 0. Taylor polynomials of four terms below ___Root4EpsReal in magnitude and of
 * six below 0.001 (Abramowitz and Stegun 4.1.24), then ln(u)/(u - 1) with u the rounded 1 + x
 * (Goldberg, ACM Computing Surveys 23 (1991) 5, theorem 4); within two ulps. An infinity at -1, a
 * not-a-number below. */
NUV64_API double rLogT1(double x) NUV64_NOEXCEPT;

/* (ln(1 + x)/x - 1)/x, -1/2 at 0. The branches of rLogT1; one ulp in the polynomials, and beyond
 * them, with the C runtime's log1p, about 2/|x| ulps for small x, 2000 at the branch point. */
NUV64_API double rLogT2(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
