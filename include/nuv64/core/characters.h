/* Single characters. ASCII only; no locale has a say. */
#ifndef NUV64_CORE_CHARACTERS_H
#define NUV64_CORE_CHARACTERS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Which class a character of either width belongs to. */
NUV64_API bool chIsAnyLetter(char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool chIsBinaryDigit(char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool chIsCapLetter(char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool chIsDecDigit(char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool chIsHexDigit(char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool chIsOctalDigit(char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool chIsSmallLetter(char16_t ch) NUV64_NOEXCEPT;

/* A to Z to small letters, a to z to capitals; anything else as it is. */
NUV64_API char16_t chToLcase(char16_t ch) NUV64_NOEXCEPT;
NUV64_API char chToLcaseA(char ch) NUV64_NOEXCEPT;
NUV64_API char16_t chToUcase(char16_t ch) NUV64_NOEXCEPT;
NUV64_API char chToUcaseA(char ch) NUV64_NOEXCEPT;

/* Writes a text of the one character; buffer has room for two. Result: its length, 1, or 0 when ch
 * is the terminator or buffer is null. */
NUV64_API uint64_t chToStringBuffer(char16_t ch, char16_t* buffer) NUV64_NOEXCEPT;
NUV64_API uint64_t chToStringBufferA(char ch, char* buffer) NUV64_NOEXCEPT;

/* The digit for the low four bits of value: 0 to 9, A to F. */
NUV64_API char16_t chDigitToHex(uint32_t value) NUV64_NOEXCEPT;
NUV64_API char chDigitToHexA(uint32_t value) NUV64_NOEXCEPT;

/* The value of a hexadecimal digit in either case; all ones for any other character. */
NUV64_API uint32_t chHexToDigit(char16_t ch) NUV64_NOEXCEPT;
NUV64_API uint32_t chHexToDigitA(char ch) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
