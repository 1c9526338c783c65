/* Binomial coefficients and numbers of multisets, exact in 64 bits and as reals.
 *
 * Flags and overflow values of the exact ones are those of nuv64/numeric/combinatorics.h. The exact
 * ones multiply and divide in turn, with factors in common taken out first, so nothing overflows
 * before the result does; that takes at most some thirty steps, each with two greatest common
 * divisors. */
#ifndef NUV64_NUMERIC_BINOMIALS_H
#define NUV64_NUMERIC_BINOMIALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* C(n, k) = n!/(k! (n - k)!); 0 for k above n. NUM_OVERFLOW above 2^64 - 1. C(2^64 - 1, 1) is all
 * ones and no overflow: the flags tell. */
NUV64_API uint64_t uBinomial(uint64_t n, uint64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* C(n, n/2) with n/2 rounded down. NUM_OVERFLOW from n = 68. */
NUV64_API uint64_t uCentralBinomial(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The number of multisets of k out of n: C(n + k - 1, k). 1 for k = 0, 0 for n = 0 and k above 0.
 */
NUV64_API uint64_t uCountMultisets(uint64_t n, uint64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* C(n, k) for signed n: for n below 0 it is (-1)^k C(k - n - 1, k). 0 for k below 0. NUM_OVERFLOW
 * from magnitudes of 2^63. */
NUV64_API int64_t iBinomial(int64_t n, int64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* C(n + k - 1, k) for signed n, by the rules of iBinomial. */
NUV64_API int64_t iCountMultisets(int64_t n, int64_t k, uint32_t* flags) NUV64_NOEXCEPT;

/* As reals. While the exact number fits 64 bits it is that, correctly rounded. Above it is
 * e^(ln n! - ln (n - k)! - ln k!) by rGammaLn, whose terms cancel: the relative error is up to
 * 4*n ln(n) last places (measured), 4e-12 at n = 770, and from n = 1e14 on no digit is left. An
 * infinity above ___MaxReal. */

/* C(n, k), n and k as for iBinomial. */
NUV64_API double riBinomial(int64_t n, int64_t k) NUV64_NOEXCEPT;

/* The n-th Catalan number, riBinomial(2n, n)/(n + 1); ___NAN for n below 0. */
NUV64_API double riCatalanNumber(int64_t n) NUV64_NOEXCEPT;

/* C(n, n/2) with n/2 rounded down; ___NAN for n below 0. */
NUV64_API double riCentralBinomial(int64_t n) NUV64_NOEXCEPT;

/* C(n + k - 1, k), n and k as for iCountMultisets. */
NUV64_API double riCountMultisets(int64_t n, int64_t k) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
