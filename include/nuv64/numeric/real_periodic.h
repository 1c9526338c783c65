/* Reduction of a real to one period, and rounding to multiples.
 *
 * The whole part goes to the pointer, which may be null; the rest, always in [0, period), is the
 * result. Where the period is lost against x in a sum (x too large, not a number, or the period 0)
 * x counts as whole: the rest is 0 and the whole part is x itself. Results are exact but for the
 * rounding of one difference. */
#ifndef NUV64_NUMERIC_REAL_PERIODIC_H
#define NUV64_NUMERIC_REAL_PERIODIC_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* x - floor(x), in [0, 1). *whole takes floor(x), raised by 1 where the difference rounds to 1: so
 * -1e-20 is 0 and 0. */
NUV64_API double rModuloOne(double x, double* whole) NUV64_NOEXCEPT;

/* x - p*floor(x/p), in [0, |p|); the sign of p doesn't count. *base takes |p|*floor(x/|p|).
 *
 * A difference that rounds to below 0 counts as 0. One that rounds to |p| counts as 0 and raises
 * *base by 1.0, whatever p is; callers that add base and rest see it only there, for x a rounding
 * error below a multiple of p. Both are not-a-numbers for an infinite p and a finite x. */
NUV64_API double rModuloPeriod(double x, double p, double* base) NUV64_NOEXCEPT;

/* The phase of x in a period p, in radians: 2 pi*rModuloPeriod(x, p, base)/p. In [0, 2 pi), for p
 * below 0 in (-2 pi, 0]; a not-a-number for p = 0. */
NUV64_API double rPhaseInPeriod(double x, double p, double* base) NUV64_NOEXCEPT;

/* x rounded to a multiple of eps, halves away from zero: eps*round(x/eps). The quotient saturates
 * at ___MaxReal. x itself for eps of 0, below 0 or not a number; not-a-numbers come through. An
 * infinite eps gives a not-a-number. */
NUV64_API double rRoundToEps(double x, double eps) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
