/* Stirling numbers of both kinds, by the recurrence of their triangles along one row in place.
 *
 * Flags and overflow values are those of nuv64/numeric/combinatorics.h; 0x80000000 in the flags
 * says that there was no memory for the row of k + 1 numbers. The work is about k*(n - k) steps,
 * but ends at the first overflow. Overflow inside the triangle is looked for only where flags is
 * not null: without it the value is the true one modulo 2^64, after all the steps. (Abramowitz and
 * Stegun 24.1.3, 24.1.4.) */
#ifndef NUV64_NUMERIC_STIRLING_NUMBERS_H
#define NUV64_NUMERIC_STIRLING_NUMBERS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The number of permutations of n with k cycles: the magnitude of the Stirling number of the first
 * kind. 0 for k above n and for k = 0 with n above 0; 1 for k = n. The edges k = 1 and k = n - 1
 * are (n - 1)! and C(n, 2), whose overflow shows in the value also where flags is null. */
NUV64_API uint64_t uStirling1(uint64_t n, uint64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* The number of partitions of a set of n into k parts: the Stirling number of the second kind. */
NUV64_API uint64_t uStirling2(uint64_t n, uint64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* The Stirling number of the first kind with its sign, negative where n - k is odd. A magnitude of
 * 2^63 or more gives NUM_OVERFLOW. */
NUV64_API int64_t iStirling1(uint64_t n, uint64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* uStirling1 as a real: exact, and correctly rounded, while it fits 64 bits. Above it is
 * rFactorial(n - 1) for k = 1, (n - 1)*(0.5*n) for k = n - 1, and the recurrence in reals else,
 * with a relative error of about n last places. ___NAN for want of memory and when a number of the
 * row is no longer finite; rFactorial gives an infinity. */
NUV64_API double ruStirling1(uint64_t n, uint64_t k) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
