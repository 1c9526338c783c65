/* The digamma and trigamma functions, the first two derivatives of ln Gamma.
 *
 * x up to 0.1 is reflected, x below 9 raised by the recurrence, and from there on the asymptotic
 * series with eight Bernoulli numbers serves. A not-a-number and minus infinity give ___NAN. The
 * poles at negative integers are met only within the rounding of pi x: the value there is large but
 * not infinite; at 0 it is an infinity. Errors are in units in the last place (ulps). */
#ifndef NUV64_NUMERIC_DIGAMMA_H
#define NUV64_NUMERIC_DIGAMMA_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* psi(x), the derivative of ln Gamma. It has one zero at positive x, at 1.4616, and one between any
 * two neighbouring poles (Abramowitz and Stegun 6.3.5, 6.3.7, 6.3.18). Above 0.1 the absolute error
 * is below 4.5 ulps of the largest of 3, |psi(x)| and ln x. Below, the rounding of pi x enters,
 * times the slope of the cotangent: a few ulps away from poles and zeros, growing towards both with
 * |x|. */
NUV64_API double rPsi0(double x) NUV64_NOEXCEPT;

/* psi'(x); positive everywhere (Abramowitz and Stegun 6.4.6, 6.4.7, 6.4.12). Within 3 ulps from 11
 * on; below, where the series starts between 9 and 10, the first term that it leaves out shows with
 * up to 4.3e-16: 28 ulps at 9, 15 at 5, 4 at 2. For negative x it grows towards the poles
 * with |x|. */
NUV64_API double rPsi1(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
