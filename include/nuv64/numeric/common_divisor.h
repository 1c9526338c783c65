/* The greatest common divisor, and what rests on it. (Euclid's algorithm with remainders; Knuth,
 * The Art of Computer Programming 2, 4.5.2.) */
#ifndef NUV64_NUMERIC_COMMON_DIVISOR_H
#define NUV64_NUMERIC_COMMON_DIVISOR_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The greatest common divisor. Of 0 and a number it is that number, of 0 and 0 it is 0. */
NUV64_API uint64_t uGcd(uint64_t a, uint64_t b) NUV64_NOEXCEPT;

/* That of the magnitudes. It is 2^63, and so shows as -2^63, for -2^63 with itself or with 0. */
NUV64_API int64_t iGcd(int64_t a, int64_t b) NUV64_NOEXCEPT;

/* Whether the greatest common divisor is 1, and whether it is not. 0 is coprime to 1 and -1 only.
 */
NUV64_API bool uAreCoprime(uint64_t a, uint64_t b) NUV64_NOEXCEPT;
NUV64_API bool uAreNotCoprime(uint64_t a, uint64_t b) NUV64_NOEXCEPT;
NUV64_API bool iAreCoprime(int64_t a, int64_t b) NUV64_NOEXCEPT;
NUV64_API bool iAreNotCoprime(int64_t a, int64_t b) NUV64_NOEXCEPT;

/* Reduces *n / *d to lowest terms with a denominator above 0.
 *
 * d = 0: *n becomes -1 where it was below 0 and 1 otherwise, also for 0, and the result is true.
 * Else the signs of both are turned where d is below 0, and the result tells whether there was a
 * common divisor above 1 to divide by. -2^63 as denominator stays below 0 where nothing divides it,
 * and as numerator wraps when its sign is turned. Null pointers: nothing is done, false. */
NUV64_API bool iReduceRatio(int64_t* n, int64_t* d) NUV64_NOEXCEPT;

/* The same without signs. */
NUV64_API bool uReduceRatio(uint64_t* n, uint64_t* d) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
