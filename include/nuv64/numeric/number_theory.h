/* Primes, arithmetic modulo m and the permutations that stand on them, over the whole range of
 * unsigned 64-bit numbers. */
#ifndef NUV64_NUMERIC_NUMBER_THEORY_H
#define NUV64_NUMERIC_NUMBER_THEORY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Primes.
 *
 * The test is exact: trial division over the wheel of 210, with one Fermat test to the base 2 once
 * the divisors are past 1000, which saves the long division of nearly all composites. A prime n
 * costs sqrt(n)/4 divisions, seconds for the largest ones. No table of primes is kept. */

/* Whether n is prime; 0 and 1 are not. */
NUV64_API bool uIsPrime(uint64_t n) NUV64_NOEXCEPT;

/* The smallest prime above n; all ones when no 64-bit number is one (n from 2^64 - 59 on). */
NUV64_API uint64_t uNextPrime(uint64_t n) NUV64_NOEXCEPT;

/* The largest prime below n; all ones for n up to 2, below which there is none. */
NUV64_API uint64_t uPrevPrime(uint64_t n) NUV64_NOEXCEPT;

/* Arithmetic modulo m. Operands may be any numbers, also above m; intermediate results never
 * overflow. m = 0 gives 0. */

/* (a + b) mod m and (a + b + c) mod m. */
NUV64_API uint64_t uModAdd(uint64_t a, uint64_t b, uint64_t m) NUV64_NOEXCEPT;
NUV64_API uint64_t uModAdd3(uint64_t a, uint64_t b, uint64_t c, uint64_t m) NUV64_NOEXCEPT;

/* a*b mod m. */
NUV64_API uint64_t uModMul(uint64_t a, uint64_t b, uint64_t m) NUV64_NOEXCEPT;

/* b^e mod m by binary powering; m below 2 gives 0, e = 0 gives 1. */
NUV64_API uint64_t uModPwr(uint64_t b, uint64_t e, uint64_t m) NUV64_NOEXCEPT;

/* Permutations of an index by multiplication modulo n. */

/* i*c mod n: a permutation of 0 to n-1 that keeps 0, when n and c are coprime. n = 0 gives all
 * ones.
 */
NUV64_API uint64_t uPermuteNc0(uint64_t i, uint64_t n, uint64_t c) NUV64_NOEXCEPT;

/* ((i + 1)*c mod (n + 1)) - 1: a permutation of 0 to n-1 when n + 1 and c are coprime; a product
 * that n + 1 divides gives all ones. */
NUV64_API uint64_t uPermuteNc(uint64_t i, uint64_t n, uint64_t c) NUV64_NOEXCEPT;

/* The inverses: the index that uPermuteNc0 and uPermuteNc take to j. They are the quotient
 * (j + k*n)/c mod n for the smallest k that makes it whole; when c and n are not coprime such a k
 * may be missing, and the result is all ones. All ones also for c or n (n + 1) 0. */
NUV64_API uint64_t uPermuteNc0Inv(uint64_t j, uint64_t n, uint64_t c) NUV64_NOEXCEPT;
NUV64_API uint64_t uPermuteNcInv(uint64_t j, uint64_t n, uint64_t c) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
