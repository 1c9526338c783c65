/* The beta function and its logarithm, of two and of more arguments. The logarithms are sums of ln
 * Gamma and lose the digits that cancel: their error is up to 2.4 ulps of the sum of the terms'
 * magnitudes (19 or x ln x each). */
#ifndef NUV64_NUMERIC_BETA_H
#define NUV64_NUMERIC_BETA_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* B(a, b) = Gamma(a) Gamma(b)/Gamma(a + b) (Abramowitz and Stegun 6.2.2), of reals of any sign. The
 * arguments are put in order and the large factors kept apart, but where a gamma function
 * overflows, for a or b above 171.62, the result is ___NAN; so use rBetaLn there. A not-a-number or
 * an infinity where a or b is 0 or a negative integer. The error is up to 2.3 ulps times the sum of
 * the three T of rGammaLn, 19 or x ln x each: 2800 for arguments to 85. */
NUV64_API double rBeta(double a, double b) NUV64_NOEXCEPT;

/* ln B(a, b) for positive arguments; ___NAN when one is below 2*___MinReal. */
NUV64_API double rBetaLn(double a, double b) NUV64_NOEXCEPT;

/* ln of Gamma(a) Gamma(b) Gamma(c)/Gamma(a + b + c) for positive arguments; ___NAN when one is
 * below 2*___MinReal. */
NUV64_API double rBeta3Ln(double a, double b, double c) NUV64_NOEXCEPT;

/* The same of the n positive elements of array: the normaliser of the Dirichlet distribution.
 * ___NAN for a null array or an element below 2*___MinReal; fewer than two elements give 1.0, and
 * aren't read. */
NUV64_API double rBetaMultiLn(uint32_t n, const double* array) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
