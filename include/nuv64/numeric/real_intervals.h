/* Closed intervals of reals, given by their ends in either order.
 *
 * Pointers to ends must not be null: if one is, nothing is stored and the result is ___NAN or
 * false. Ends that are not-a-numbers are left where they are. */
#ifndef NUV64_NUMERIC_REAL_INTERVALS_H
#define NUV64_NUMERIC_REAL_INTERVALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Puts the ends in order: *a <= *b. Returns b - a as they were passed, so below 0 when they were
 * exchanged. */
NUV64_API double rIntervalNormalize(double* a, double* b) NUV64_NOEXCEPT;

/* The distance of x from the interval, with its sign: x less the lower end below it (negative), x
 * less the upper end above it, 0 inside. 0 for not-a-numbers. */
NUV64_API double rIntervalDistanceFromPoint(double x, double a, double b) NUV64_NOEXCEPT;

/* The gap from (a, b) to (c, d): positive when the second lies above the first, negative when it
 * lies below, 0 when they overlap or touch. */
NUV64_API double rIntervalsDistance(double a, double b, double c, double d) NUV64_NOEXCEPT;

/* (*a, *b) becomes the hull of both intervals. Where they overlap or touch, (*c, *d) becomes their
 * intersection and the result is true; where they are apart it becomes the gap between them and the
 * result is false. The four pointers must be different. */
NUV64_API bool rIntervalsGapAndUnion(double* a, double* b, double* c, double* d) NUV64_NOEXCEPT;

/* The ends had to be exchanged: *hi, after the call, comes from what was passed in *lo. */
#define INTERVAL_SWAPPED 1u
/* The interval holds 0 (an end of 0 counts): *lo is 0 now, *hi the larger magnitude. */
#define INTERVAL_HELD_ZERO 2u

/* The interval of the magnitudes of all numbers between *lo and *hi; afterwards *lo <= *hi. Returns
 * |x|, which lies in it when x lay in the interval. *flags (may be null) takes the marks above, or
 * 0. So (-3, -1) becomes (1, 3) with 1, (-3, 2) becomes (0, 3) with 3, (-2, 3) becomes (0, 3) with
 * 2. */
NUV64_API double rIntervalAbsVal(double x, double* lo, double* hi, uint32_t* flags) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
