/* The sine and cosine integrals for x from 0 on; the negative axis isn't served and gives 0.0. A
 * not-a-number gives ___NAN.
 *
 * Up to x = 4 by rational approximations of degree 7 in x^2, beyond by the auxiliary functions f
 * and g (Abramowitz and Stegun 5.2.6 to 5.2.9), rational of degree 9 in 1/x^2. The coefficients are
 * near-minimax and made by tests/reference/sine_cosine_coefficients.py. Errors are in units in the
 * last place (ulps). */
#ifndef NUV64_NUMERIC_SINE_COSINE_INTEGRALS_H
#define NUV64_NUMERIC_SINE_COSINE_INTEGRALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Si(x), the integral of sin(t)/t from 0 to x; pi/2 at infinity. Within 3 ulps. */
NUV64_API double rSineIntegral(double x) NUV64_NOEXCEPT;

/* Ci(x), Euler's constant + ln x + the integral of (cos(t) - 1)/t from 0 to x; ___NAN for x from 0
 * to ___MinReal, 0 at infinity. Within 4 ulps where |Ci| is above 0.25 for x up to 4, or above
 * 1/(2x) beyond. Around its zeros, at 0.617, 3.384 and so on, the error is up to 2 ulps of the
 * largest term, 1, ln x or x^2/4, up to 4, and up to 3.2 ulps of 1/x beyond. For large x the C
 * runtime's reduction of angles enters: that of Windows loses x*2^-15 ulps. */
NUV64_API double rCosineIntegral(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
