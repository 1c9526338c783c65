/* From text to numbers.
 *
 * The readers named without Strict take a real number by C's grammar in the "C" locale (sign,
 * decimal or hexadecimal digits, exponent, "inf", "nan"), correctly rounded, and the integer ones
 * then round it, halves away from zero. The Strict readers take integer digits only and are exact
 * to 64 bits.
 *
 * Common to all: text may be null. flags (may be null) is a word of NUM_ bits; on entry only the
 * two lowest count. consumed (may be null) receives the index behind the number; without one, the
 * index of the first character that is not white. White is any character whose absolute value,
 * signed in its own width, is at most 32. The members of a pair differ in character width alone.
 * The rounding of an integer reader replaces the flags of the number that was read, so that
 * NUM_ILLEGALCHAR does not survive it. */
#ifndef NUV64_CORE_NUMBER_READING_H
#define NUV64_CORE_NUMBER_READING_H

#include "nuv64/core/types.h"

/* On entry. */
#define NUM_RADIXPREFIX 0x1u /* the strict readers accept the prefixes "0x", "0b" and "0o" */
#define NUM_KEEPWRAP 0x2u    /* the strict readers keep the wrapped value instead of the limit */
/* On exit. */
#define NUM_UNDEFINED 0x10u        /* no number in the text, or null text */
#define NUM_ILLEGALCHAR 0x20u      /* a number was read and something follows */
#define NUM_FRACTIONAL 0x40u       /* an integer reader found a fraction and rounded */
#define NUM_NOSTRUCT 0x80u         /* the text lacks the structure of a compound number */
#define NUM_OVERFLOW 0x100u        /* above what the target holds */
#define NUM_UNDERFLOW 0x200u       /* below what the target holds, or not a number */
#define NUM_PRECISIONLIM 0x400u    /* above 2^52: the double that carried it has no unit digit */
#define NUM_I32OVERFLOW 0x1000u    /* above the signed 32-bit range */
#define NUM_I32UNDERFLOW 0x2000u   /* below it */
#define NUM_I64OVERFLOW 0x4000u    /* above the signed 64-bit range */
#define NUM_I64UNDERFLOW 0x8000u   /* below it */
#define NUM_U32OVERFLOW 0x10000u   /* above the unsigned 32-bit range */
#define NUM_U32UNDERFLOW 0x20000u  /* below it */
#define NUM_U64OVERFLOW 0x40000u   /* above the unsigned 64-bit range */
#define NUM_U64UNDERFLOW 0x80000u  /* below it */
#define NUM_ABOVELIMIT 0x10000000u /* above the limit given to a StringTestFor... */
#define NUM_BELOWLIMIT 0x20000000u /* below that limit */
#define NUM_BADRADIX 0x40000000u   /* the radix is not usable */

NUV64_BEGIN_DECLS

/* A real number.
 *
 * radix: not used; the reader is always decimal in C's sense.
 * Result: the number; above the range an infinity, without a flag; ___NAN with NUM_UNDEFINED when
 * there is none; 0 with NUM_UNDEFINED for null text. NUM_OVERFLOW only when the result is exactly
 * the largest finite double or its negative. NUM_ILLEGALCHAR when anything follows, even white. */
NUV64_API double StringToReal(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                              uint32_t radix) NUV64_NOEXCEPT;
NUV64_API double StringToRealA(const char* text, uint32_t* flags, uint64_t* consumed,
                               uint32_t radix) NUV64_NOEXCEPT;

/* An unsigned 32-bit integer through StringToReal. Negative values and not-a-numbers give 0 with
 * 0x20200, values from 4294967294.5 up 0xFFFFFFFE with 0x10100, no number 0 with NUM_UNDEFINED. */
NUV64_API uint32_t StringToDword(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                                 uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint32_t StringToDwordA(const char* text, uint32_t* flags, uint64_t* consumed,
                                  uint32_t radix) NUV64_NOEXCEPT;

/* A signed 32-bit integer through StringToReal. Outside of +-2147483647.5 the result is
 * +-0x7FFFFFFF with 0x1100 or 0x2200; a not-a-number counts as below. */
NUV64_API int32_t StringToLong(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                               uint32_t radix) NUV64_NOEXCEPT;
NUV64_API int32_t StringToLongA(const char* text, uint32_t* flags, uint64_t* consumed,
                                uint32_t radix) NUV64_NOEXCEPT;

/* An unsigned 64-bit integer through StringToReal. Negative values and not-a-numbers give 0 with
 * 0x80200, values from 2^64 up all ones minus 1 with 0x40100; from 4503599627370495.5 up the value
 * is truncated, with NUM_PRECISIONLIM. */
NUV64_API uint64_t StringToQword(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                                 uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t StringToQwordA(const char* text, uint32_t* flags, uint64_t* consumed,
                                  uint32_t radix) NUV64_NOEXCEPT;

/* A signed 64-bit integer through StringToReal. Magnitudes from 2^63 up give +-(2^63 - 1) with
 * 0x4100 or 0x8200; a not-a-number counts as below. */
NUV64_API int64_t StringToQlong(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                                uint32_t radix) NUV64_NOEXCEPT;
NUV64_API int64_t StringToQlongA(const char* text, uint32_t* flags, uint64_t* consumed,
                                 uint32_t radix) NUV64_NOEXCEPT;

/* Integer digits, exact to 64 bits: white space, one "+", one "-" ("+-5" is minus 5), with
 * NUM_RADIXPREFIX a prefix, digits, white space. Without NUM_RADIXPREFIX "0x10" is its "0".
 * consumed counts the white space behind the digits too.
 *
 * Flags: NUM_ILLEGALCHAR when anything else follows; 0x55100 when the value wraps around; 0x15000
 * above the signed 64-bit range, 0x11000 above 32 bits, 0x1000 above 31 bits.
 * Result: 0 without digits; a negative text gives the two's complement. When it wraps and
 * NUM_KEEPWRAP is not set: all ones minus 1, or 0x7FFFFFFFFFFFFFFF for a negative text. */
NUV64_API uint64_t StringToQwordStrict(const char16_t* text, uint32_t* flags,
                                       uint64_t* consumed) NUV64_NOEXCEPT;
NUV64_API uint64_t StringToQwordStrictA(const char* text, uint32_t* flags,
                                        uint64_t* consumed) NUV64_NOEXCEPT;

/* The same; above 32 bits NUM_OVERFLOW is added and the result is all ones, unless NUM_KEEPWRAP. */
NUV64_API uint32_t StringToDwordStrict(const char16_t* text, uint32_t* flags,
                                       uint64_t* consumed) NUV64_NOEXCEPT;
NUV64_API uint32_t StringToDwordStrictA(const char* text, uint32_t* flags,
                                        uint64_t* consumed) NUV64_NOEXCEPT;

/* The same; above 31 bits NUM_OVERFLOW is added and, unless NUM_KEEPWRAP, the result is 0x7FFFFFFF,
 * or 0x80000001 when StringToQlongStrict reads a value below 1. */
NUV64_API int32_t StringToLongStrict(const char16_t* text, uint32_t* flags,
                                     uint64_t* consumed) NUV64_NOEXCEPT;
NUV64_API int32_t StringToLongStrictA(const char* text, uint32_t* flags,
                                      uint64_t* consumed) NUV64_NOEXCEPT;

/* StringToQwordStrict as a signed word; above the signed range NUM_OVERFLOW is added and the result
 * has the bits that StringToQwordStrict gives. */
NUV64_API int64_t StringToQlongStrict(const char16_t* text, uint32_t* flags,
                                      uint64_t* consumed) NUV64_NOEXCEPT;
NUV64_API int64_t StringToQlongStrictA(const char* text, uint32_t* flags,
                                       uint64_t* consumed) NUV64_NOEXCEPT;

/* Reads through the reader of the same name, stores the value (value may be null) and returns its
 * flags. When none of the bits 0x30170 is among them, a value above highest adds NUM_ABOVELIMIT and
 * one below lowest adds NUM_BELOWLIMIT. */
NUV64_API uint32_t StringTestForDword(const char16_t* text, uint32_t lowest, uint32_t highest,
                                      uint32_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForDwordA(const char* text, uint32_t lowest, uint32_t highest,
                                       uint32_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForLong(const char16_t* text, int32_t lowest, int32_t highest,
                                     int32_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForLongA(const char* text, int32_t lowest, int32_t highest,
                                      int32_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForQlong(const char16_t* text, int64_t lowest, int64_t highest,
                                      int64_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForQlongA(const char* text, int64_t lowest, int64_t highest,
                                       int64_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForQword(const char16_t* text, uint64_t lowest, uint64_t highest,
                                      uint64_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForQwordA(const char* text, uint64_t lowest, uint64_t highest,
                                       uint64_t* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForReal(const char16_t* text, double lowest, double highest,
                                     double* value) NUV64_NOEXCEPT;
NUV64_API uint32_t StringTestForRealA(const char* text, double lowest, double highest,
                                      double* value) NUV64_NOEXCEPT;

/* The count of real numbers that follow each other in the text, with nothing but white between
 * them; anything else ends the count. end (may be null) receives the index behind the last. */
NUV64_API uint64_t NumberOfRealItemsInString(const char16_t* text, uint64_t* end) NUV64_NOEXCEPT;
NUV64_API uint64_t NumberOfRealItemsInStringA(const char* text, uint64_t* end) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
