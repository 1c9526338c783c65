/* Reals as a mantissa and a power of a radix, 2 or any other. */
#ifndef NUV64_NUMERIC_REAL_SCALING_H
#define NUV64_NUMERIC_REAL_SCALING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* x as m*2^e with 1/2 <= |m| < 1; the result is m with the sign of x, *exponent (may be null) takes
 * e. Exact. Zero, a not-a-number and an infinity come back with the exponent 0. */
NUV64_API double rFrexp(double x, int32_t* exponent) NUV64_NOEXCEPT;

/* x*2^exponent, rounded once: an infinity on overflow, subnormal or zero on underflow. */
NUV64_API double rLdexp(double x, int32_t exponent) NUV64_NOEXCEPT;

/* Takes x apart into m*radix^e with 1 <= |m| < radix; the result is m with the sign of x, *exponent
 * (may be null) takes e. The radix is divided out or multiplied in step by step and each step
 * rounds, so m is exact for radices that are powers of 2 and otherwise good to a few hundred last
 * places at the ends of the range.
 *
 * Zero gives zero with the exponent 0x80000001; a not-a-number or an infinity comes back with the
 * exponent 0; a radix up to 1 gives ___NAN with the exponent 0. */
NUV64_API double rMantissaAndExponent(double x, int32_t* exponent, int32_t radix) NUV64_NOEXCEPT;

/* x*radix^e, the power made as in riPower: a negative power of the radix 0 gives ___NAN, and where
 * the power itself overflows the result is not finite, or zero, though x might bring it back. */
NUV64_API double rMultiplyByRadixToExponent(double x, int32_t e, uint32_t radix) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
