/* Derivatives and antiderivatives of whole powers: d > 0 is the order of the derivative, -d that of
 * the antiderivative, d = 0 the power itself. Integration constants are 0. */
#ifndef NUV64_NUMERIC_POWER_DERIVATIVES_H
#define NUV64_NUMERIC_POWER_DERIVATIVES_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Of x^n: n*(n - 1)*...*(n - d + 1)*x^(n - d) for d > 0, which is 0 for d above n;
 * x^(n - d)/((n + 1)*...*(n - d)) for d < 0. Powers by ruPower; the error is about n/2 + |d| last
 * places. A power that overflows gives an infinity, before any division. So does the product of
 * the factors before it meets the power: a power of 0 makes a not-a-number of it. */
NUV64_API double ruPowerAD(double x, uint64_t n, int64_t d) NUV64_NOEXCEPT;

/* The same for signed n; n >= 0 is ruPowerAD. For n below 0:
 *
 * - d >= 0: n*(n - 1)*...*(n - d + 1)*riPower(x, n - d).
 * - d < 0 and d <= n: the antiderivatives have passed x^-1 and are those of the logarithm:
 *   rLogAD(|x|, d - n)/((n + 1)*...*(-1)).
 * - d < 0 and d > n: the bare power riPower(x, n - d), without the divisors (n + 1)*...*(n - d) of
 *   the antiderivative; callers divide by them. */
NUV64_API double riPowerAD(double x, int64_t n, int64_t d) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
