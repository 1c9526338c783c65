/* From numbers to text.
 *
 * The ...ToBuffer functions write into the caller's buffer, terminate the text and return its
 * length; they have no capacity argument: 72 characters hold any integer in any base, 128 any real
 * with up to 60 digits. A null buffer gets nothing, length 0. Bases above 16 print only the low
 * four bits of each digit; a base below 2 gives an empty text. The members of a pair differ in
 * character width alone. */
#ifndef NUV64_CORE_NUMBER_PRINTING_H
#define NUV64_CORE_NUMBER_PRINTING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* An integer in base radix, a minus first when it is negative. */
NUV64_API uint64_t DwordToBuffer(uint32_t value, char16_t* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t DwordToBufferA(uint32_t value, char* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t QwordToBuffer(uint64_t value, char16_t* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t QwordToBufferA(uint64_t value, char* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t LongToBuffer(int32_t value, char16_t* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t LongToBufferA(int32_t value, char* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t QlongToBuffer(int64_t value, char16_t* buffer, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t QlongToBufferA(int64_t value, char* buffer, uint32_t radix) NUV64_NOEXCEPT;

/* A real with exactly digits significant digits in base radix, trailing zeros included; the digits
 * are cut, not rounded.
 *
 * digits: 0 takes as many as the base gives a double for sure, 15 in base 10.
 * Form: "+INF", "-INF", "NaN"; "0" for magnitudes below 2^-1024; positional from exponent -3 up to
 * below digits, with a point that may stand last ("1."); outside of that one digit, the point, the
 * others, "e" ("_" in another base than 10) and the exponent in the same base ("1.00e6"). */
NUV64_API uint64_t RealToBuffer(double value, char16_t* buffer, uint32_t digits,
                                uint32_t radix) NUV64_NOEXCEPT;
NUV64_API uint64_t RealToBufferA(double value, char* buffer, uint32_t digits,
                                 uint32_t radix) NUV64_NOEXCEPT;

/* A count of bytes the short way: divided by 1024 until it is below 16384, then a blank, the letter
 * of that power ("K", "M", "G", "T", "P", "E") and "+" if the divisions lost something; counts
 * below 16384 stand alone. showExact: not 0 adds the exact count, " [16385]". */
NUV64_API uint64_t QwordToKMGbuffer(char16_t* buffer, uint64_t value,
                                    uint32_t showExact) NUV64_NOEXCEPT;
NUV64_API uint64_t QwordToKMGbufferA(char* buffer, uint64_t value,
                                     uint32_t showExact) NUV64_NOEXCEPT;

/* The number as a new text, by the function above of the same name; owned by the caller, null when
 * memory is short. */
NUV64_API char16_t* NewStringFromDword(uint32_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char* NewStringFromDwordA(uint32_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char16_t* NewStringFromLong(int32_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char* NewStringFromLongA(int32_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char16_t* NewStringFromQword(uint64_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char* NewStringFromQwordA(uint64_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char16_t* NewStringFromQlong(int64_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char* NewStringFromQlongA(int64_t value, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char16_t* NewStringFromReal(double value, uint32_t digits, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API char* NewStringFromRealA(double value, uint32_t digits, uint32_t radix) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
