/* Chebyshev polynomials. */
#ifndef NUV64_NUMERIC_CHEBYSHEV_H
#define NUV64_NUMERIC_CHEBYSHEV_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* T_n(x), the polynomial with T_n(cos t) = cos(n t): T_0 = 1, T_1 = x, T_2 = 2x^2 - 1. Every real
 * x; outside [-1, 1] it grows like (2x)^n/2 and may overflow to an infinity. A not-a-number x gives
 * one (but 1 for n = 0).
 *
 * Degrees up to 64 go by the recurrence T_(k+1) = 2 x T_k - T_(k-1), higher ones by cos(n arccos x)
 * and cosh(n arcosh |x|). The error in [-1, 1] is below n*2^-52; outside it is relative and about
 * n*2^-52*(1 + ln 2|x|). (Abramowitz and Stegun 22.3.15, 22.7.4.) */
NUV64_API double rChebyshevT(double x, uint64_t n) NUV64_NOEXCEPT;

/* U_n(x), the polynomial of the second kind with U_n(cos t) = sin((n + 1) t)/sin(t): U_0 = 1,
 * U_1 = 2x, U_2 = 4x^2 - 1. Every real x; n + 1 at 1. A not-a-number x gives one (but 1 for n = 0).
 *
 * Degrees up to 64, inside up to 8, go by the recurrence of T, higher ones by sin((n + 1) t)/sin(t)
 * with t = arccos |x|, and by its hyperbolic form outside. The error in [-1, 1] is below
 * 2(n + 1)*2^-52 and a few ulps; outside it is relative and about n*2^-52*(1 + ln 2|x|).
 * (Abramowitz and Stegun 22.3.16, 22.7.5.) */
NUV64_API double rChebyshevU(double x, uint64_t n) NUV64_NOEXCEPT;

/* The series coefs[0]*T_0(x) + ... + coefs[n]*T_n(x), by Clenshaw's recurrence. n is the order, so
 * coefs holds n + 1 values; coefs[0] counts in full. Null coefs give ___NAN. */
NUV64_API double rChebyshevTSeries(double x, const double* coefs, uint64_t n) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
