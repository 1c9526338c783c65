/* Sums of arithmetic and geometric series of n terms, by their closed forms.
 *
 * n = 0 gives 0. Terms that cancel are summed in the closed form all the same, so the relative
 * error grows as the sum vanishes. Counts above 2^53 are rounded to a double. (Abramowitz and
 * Stegun 3.1.9, 3.1.10.) */
#ifndef NUV64_NUMERIC_REAL_SERIES_SUMS_H
#define NUV64_NUMERIC_REAL_SERIES_SUMS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* first + (first + step) + ...: n*(first + 0.5*(n - 1)*step). Within 2 last places for terms of one
 * sign. */
NUV64_API double rAriSum(uint64_t n, double first, double step) NUV64_NOEXCEPT;

/* The same from the first and the last term: 0.5*n*(first + last). */
NUV64_API double rAriSumFl(uint64_t n, double first, double last) NUV64_NOEXCEPT;

/* The sum of the squares of the terms: n*(first^2 + (n - 1)*step*(first + (2 n - 1)*step/6)). */
NUV64_API double rAriSumPow2(uint64_t n, double first, double step) NUV64_NOEXCEPT;

/* first + first*ratio + first*ratio^2 + ...: first*(1 - ratio^n)/(1 - ratio). A first of 0 gives 0,
 * a ratio of 0 first, a ratio of 1 n*first; for n = 1 first. A ratio near 1 loses as many digits as
 * 1 - ratio^n does: the error is about n/2 + 1/|1 - ratio^n| last places. An overflow of ratio^n
 * gives an infinity. */
NUV64_API double rGeoSum(uint64_t n, double first, double ratio) NUV64_NOEXCEPT;

/* The same from the first and the last term: with q = (last/first)^(1/(n-1)), (first - q*last)/(1 -
 * q). n*first when they are equal. ___NAN when first is 0 (and last is not) or they have opposite
 * signs. Where q rounds to 1 it divides by 0. */
NUV64_API double rGeoSumFl(uint64_t n, double first, double last) NUV64_NOEXCEPT;

/* The sum of the squares of the terms: rGeoSum(n, first^2, ratio^2). */
NUV64_API double rGeoSumPow2(uint64_t n, double first, double ratio) NUV64_NOEXCEPT;

/* v after n steps of v := x*v + y from v = 1: x^n + y*(1 - x^n)/(1 - x). ___NAN where x^n is not
 * finite. x = 1 divides 0 by 0 and gives a not-a-number. */
NUV64_API double rGeoAri(uint64_t n, double x, double y) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
