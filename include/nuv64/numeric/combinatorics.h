/* Factorials and the classic integer sequences as exact 64-bit numbers. Binomials, Stirling numbers
 * and the greatest common divisor have headers of their own.
 *
 * The u functions are unsigned, the i functions signed. *flags takes 0, or the reason why there is
 * no exact result, in the bits of nuv64/core/number_reading.h; it may be null. The value is then
 * all ones for the u functions and 0x8000000000000000 for the i functions, unless told otherwise.
 * All but the last of the functions here look their value up in a table or take a few steps. */
#ifndef NUV64_NUMERIC_COMBINATORICS_H
#define NUV64_NUMERIC_COMBINATORICS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* n!; NUM_OVERFLOW from n = 21. */
NUV64_API uint64_t uFactorial(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The same; 0 for n below 0. */
NUV64_API int64_t iFactorial(int64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* n!! = n*(n - 2)*(n - 4)..., 0!! = 1; NUM_OVERFLOW from n = 34. */
NUV64_API uint64_t uDoubleFactorial(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The same. Below 0 only (-1)!! = 1 and (-3)!! = -1 are whole: other odd n give NUM_UNDEFINED with
 * NUM_FRACTIONAL (80), even n NUM_UNDEFINED. */
NUV64_API int64_t iDoubleFactorial(int64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The n-th Catalan number, C(2n, n)/(n + 1): 1, 1, 2, 5, 14. NUM_OVERFLOW from n = 37. */
NUV64_API uint64_t uCatalanNumber(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The number of partitions of a set of n: 1, 1, 2, 5, 15, 52. NUM_OVERFLOW from n = 26. */
NUV64_API uint64_t uBellNumber(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The magnitude of the n-th Euler number, the n-th derivative of 1/cosh at 0: 1 for 0, 1 for 2, 5
 * for 4, 61 for 6. 0 for odd n; NUM_OVERFLOW for even n from 26. */
NUV64_API uint64_t uEulerNumber(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The same with its sign, negative where n/2 is odd. NUM_OVERFLOW for n = 24, whose number is above
 * the signed range, for even n from 26 and for even n below 0. */
NUV64_API int64_t iEulerNumber(int64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The n-th Fibonacci number: 0, 1, 1, 2, 3, 5. From n = 94 it is above the range: NUM_OVERFLOW with
 * NUM_U64OVERFLOW (0x40100), and the value is the true one modulo 2^64. */
NUV64_API uint64_t uFibonacci(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The n-th Lucas number: 2, 1, 3, 4, 7, 11. As uFibonacci, from n = 93. */
NUV64_API uint64_t uLucas(uint64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The same for signed n: that of |n|, negated for even n below 0, which is F(-n). The value wraps
 * into the signed range; NUM_OVERFLOW with NUM_I64OVERFLOW (0x4100) from n = 93 joins the flags of
 * uFibonacci. Below 0 only those are set. */
NUV64_API int64_t iFibonacci(int64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* uLucas of |n|, negated for even n below 0: the sign rule of iFibonacci, while L(-n) would be
 * negated for odd n. 0x4100 from n = 92; the number of n = 91 is above the signed range as well and
 * wraps without a flag. */
NUV64_API int64_t iLucas(int64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The rising factorial x*(x + 1)*...*(x + n - 1); 1 for n = 0, 0 where a factor is 0. For n below 0
 * it is (-1)^n times that of -x and -n, which is x*(x - 1)*...*(x + n + 1). NUM_OVERFLOW from
 * magnitudes of 2^63. */
NUV64_API int64_t iPochhammer(int64_t x, int64_t n, uint32_t* flags) NUV64_NOEXCEPT;

/* The magnitude of the n-th Euler number as a real: 0 for odd n, correctly rounded for n below 26.
 * From there on its asymptotic form, sqrt(32 n/pi)*(2/(pi e)*n*(n^2 + 0.075 + 0.000651/n^4)/(n^2 -
 * 1/120))^n, raised by ruPower, within 400 last places (1e-13, measured), most
 * of it from the power. ___PlsINF from n = 187. */
NUV64_API double ruEulerNum(uint64_t n) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
