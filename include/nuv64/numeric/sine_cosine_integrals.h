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

/* Si(x), the integral of sin(t)/t from 0 to x; pi/2 at infinity. */
NUV64_API double rSineIntegral(double x) NUV64_NOEXCEPT;

/* Ci(x), Euler's constant + ln x + the integral of (cos(t) - 1)/t from 0 to x; ___NAN for x from 0
 * to
 * ___MinReal, 0 at infinity. */
NUV64_API double rCosineIntegral(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
