/* Sums of powers of real arrays, and norms made of them.
 *
 * All take (n, array, ..., exponent) and return ___NAN for n = 0 or a null array, before anything
 * else. Sums run upward; powers to a real exponent are those of rPow, of the magnitude, those to an
 * integer one are made by repeated squaring (ruPower), so that an element's power is off by up to
 * about |k|/2 last places. A zero element to a negative integer power makes the sum ___NAN.
 *
 * The Hoelder sums are the p-norms (sum of |x|^p)^(1/p), scaled by the largest magnitude M against
 * overflow: M * (sum of (x/M)^p)^(1/p). They are ___NAN for the exponent 0, and 0.0 when all
 * elements are zero or when one is and the exponent is negative. Not-a-numbers are passed over in
 * the search for M, but not in the sum.
 * Source: G. H. Hardy, J. E. Littlewood, G. Polya, Inequalities (1934), chapter 2. */
#ifndef NUV64_ARRAYS_REAL_POWER_SUMS_H
#define NUV64_ARRAYS_REAL_POWER_SUMS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Sum of x^k. k = 0 gives n, k = 1 the plain sum (RArrSum, backward), k = 2 the sum of squares. */
NUV64_API double RArrSumOfPowersI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;

/* Sum of |x|^k, and of sign(x)*|x|^k. */
NUV64_API double RArrAbsSumOfPowersI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;
NUV64_API double RArrSumOfSignedPowersI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;

/* Sum of |x|^p. The first power that saturates at ___MaxReal is the result. */
NUV64_API double RArrAbsSumOfPowers(uint64_t n, const double* array, double p) NUV64_NOEXCEPT;

/* 0.0: the sum of signed powers to a real exponent is not formed. Callers tell by the result only
 * whether there is an array, see above. */
NUV64_API double RArrSumOfSignedPowers(uint64_t n, const double* array, double p) NUV64_NOEXCEPT;

/* The Hoelder sum with the powers of rPow, and so of the magnitudes. */
NUV64_API double RArrAbsHoelderSum(uint64_t n, const double* array, double p) NUV64_NOEXCEPT;

/* Hoelder sums to an integer exponent: of the elements with their signs, which for odd k may cancel
 * (the root is that of the sum's magnitude, rPow); of their magnitudes; and of sign(x)*|x|^k, the
 * root keeping the sum's sign. */
NUV64_API double RArrHoelderSumI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;
NUV64_API double RArrAbsHoelderSumI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;
NUV64_API double RArrSignedHoelderSumI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;

/* RArrAbsHoelderSum of the array of |array[i]| + |b[i]|. ___NAN for a null b too. */
NUV64_API double RArrAbsMinkowskiSum(uint64_t n, const double* array, const double* b,
                                     double p) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
