/* Integrals of samples spaced by 1, and their mean derivative.
 *
 * The composite rules take (n, array) and return ___NAN for n = 0 or a null array; the plain ones
 * take the array alone and read 2, 3 or 4 elements. Sources: Abramowitz and Stegun 25.4.1, 25.4.5,
 * 25.4.13 (Newton-Cotes formulas). */
#ifndef NUV64_ARRAYS_REAL_QUADRATURE_H
#define NUV64_ARRAYS_REAL_QUADRATURE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* (a0 + a1)/2, Simpson's (a0 + 4*a1 + a2)/3, and 3/8*(a0 + 3*a1 + 3*a2 + a3). ___NAN for null. */
NUV64_API double RArrTrapez2(const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrSimpson3(const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrSimpson38(const double* array) NUV64_NOEXCEPT;

/* The sum (backward) less half of the first and the last element. A not-a-number or infinite sum is
 * returned as it is. */
NUV64_API double RArrTrapez2Ex(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* Simpson's rule over the first m elements, with m = n, or n - 1 for even n, where a trapezoid over
 * the last interval is added: (S - a[0] - a[m-1])/3, S = 2*(a0 + a2 + ...) + 4*(a1 + a3 + ...).
 * The second sum runs up to a[m]: for even n it takes the last element too, and so isn't Simpson's
 * rule there but too large by 4/3 of that element; for odd n the element behind the array counts as
 * 0. A not-a-number or infinite S is returned as it is. */
NUV64_API double RArrSimpson3Ex(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The 3/8 rule with m = (n-1) - (n-1) mod 3 elements and a trapezoid over the interval behind them:
 * 3/8*(S - a[0] - a[m-1]) + (a[m-1] + a[m])/2, S = 2*(a0 + a3 + ...) + 3*(a1 + a4 + ...) +
 * 3*(a2 + a5 + ...). Elements above m take no part. Below four elements there is no S: ___NAN. */
NUV64_API double RArrSimpson38Ex(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The mean m-th derivative: differences a[i] - a[i-1] are formed m times in place, and the mean of
 * the n - m that are left is divided by m factorial. Destroys the array. 14.0 for a null array;
 * ___NAN when m is not below n, the array then untouched. */
NUV64_API double RArrMthCurvature(uint64_t n, double* a, uint32_t m) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
