/* Rounding, and conversion of reals to integers.
 *
 * Rounding to nearest takes halves away from zero. No argument is undefined: a value out of range,
 * an infinity and a not-a-number give what is told at each function. */
#ifndef NUV64_NUMERIC_REAL_ROUNDING_H
#define NUV64_NUMERIC_REAL_ROUNDING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Rounding to a whole real: down, up, to nearest, towards zero. Whole numbers, infinities and
 * not-a-numbers come back as they are; the sign of zero is kept. */
NUV64_API double rFloor(double x) NUV64_NOEXCEPT;
NUV64_API double rCeil(double x) NUV64_NOEXCEPT;
NUV64_API double rRound(double x) NUV64_NOEXCEPT;
NUV64_API double rTrunc(double x) NUV64_NOEXCEPT;

/* The fraction of x, with the sign of x; *whole (may be null) takes the rest, rTrunc(x). An
 * infinity has the fraction 0 with its sign. */
NUV64_API double rModf(double x, double* whole) NUV64_NOEXCEPT;

/* The remainder of x/y towards zero, x - y*rTrunc(x/y) without a rounding, with the sign of x; the
 * C runtime's. A not-a-number for y = 0 and for an infinite x; x itself for an infinite y. */
NUV64_API double rFmod(double x, double y) NUV64_NOEXCEPT;

/* Rounding to an integer with a report.
 *
 * *flags (may be null) is replaced: 0 for a whole number, 0x40 when rounding changed the value,
 * 0x400 when the magnitude is 4503599627370495.5 (2^52 - 1/2) or more: such a value is truncated, a
 * half would be its last bit. Out of range, and for a not-a-number, which counts as below the
 * range:
 *
 *                        above                            below
 *   iRealRoundToLong     0x7FFFFFFF, 0x1100               -0x7FFFFFFF, 0x2200
 *   iRealRoundToQlong    0x7FFFFFFFFFFFFFFF, 0x4100       -0x7FFFFFFFFFFFFFFF, 0x8200
 *   uRealRoundToDword    0xFFFFFFFE, 0x10100              0, 0x20200
 *   uRealRoundToQword    0xFFFFFFFFFFFFFFFE, 0x40100      0, 0x80200
 *
 * The limits of the 32-bit ones are 2147483647.5 in magnitude and 4294967294.5, those of the 64-bit
 * ones 2^63 and 2^64; a negative fraction is below an unsigned range. All ones and the most
 * negative number are never given: they are the invalid values. */
NUV64_API int32_t iRealRoundToLong(double x, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int64_t iRealRoundToQlong(double x, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint32_t uRealRoundToDword(double x, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint64_t uRealRoundToQword(double x, uint32_t* flags) NUV64_NOEXCEPT;

/* Rounding into the interval [low, high], low not above high. *out (may be null) takes x rounded to
 * nearest, or the nearer bound; a not-a-number takes low, and so does a negative x in the unsigned
 * forms. Result: whether x rounded lies in the interval (not for a negative x in the unsigned
 * forms).
 */
NUV64_API bool iRealToLongInterval(double x, int32_t* out, int32_t low,
                                   int32_t high) NUV64_NOEXCEPT;
NUV64_API bool iRealToQlongInterval(double x, int64_t* out, int64_t low,
                                    int64_t high) NUV64_NOEXCEPT;
NUV64_API bool uRealToDwordInterval(double x, uint32_t* out, uint32_t low,
                                    uint32_t high) NUV64_NOEXCEPT;
NUV64_API bool uRealToQwordInterval(double x, uint64_t* out, uint64_t low,
                                    uint64_t high) NUV64_NOEXCEPT;

/* Rounding to a 64-bit integer: down, up, to nearest, and the last two on the magnitude with the
 * sign put back, so that iSymFloor goes towards zero. 0x8000000000000000 for a not-a-number and for
 * magnitudes from 2^63 on. */
NUV64_API int64_t iFloor(double x) NUV64_NOEXCEPT;
NUV64_API int64_t iCeil(double x) NUV64_NOEXCEPT;
NUV64_API int64_t iRound(double x) NUV64_NOEXCEPT;
NUV64_API int64_t iSymFloor(double x) NUV64_NOEXCEPT;
NUV64_API int64_t iSymRound(double x) NUV64_NOEXCEPT;

/* The same, and *fraction (may be null) takes x minus the result; 0 where the result is
 * 0x8000000000000000. Where x is so near below (iCeilFrac: above) a whole number that the
 * difference rounds to a whole unit, the integer moves by one instead and the fraction is 0. */
NUV64_API int64_t iFloorFrac(double x, double* fraction) NUV64_NOEXCEPT;
NUV64_API int64_t iCeilFrac(double x, double* fraction) NUV64_NOEXCEPT;
NUV64_API int64_t iRoundFrac(double x, double* fraction) NUV64_NOEXCEPT;
NUV64_API int64_t iSymFloorFrac(double x, double* fraction) NUV64_NOEXCEPT;
NUV64_API int64_t iSymRoundFrac(double x, double* fraction) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
