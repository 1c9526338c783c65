/* Text and numbers on the console: the standard output stream of the process.
 *
 * Where the stream is a terminal, texts may be coloured (see console_control.h); where it is
 * redirected the plain text goes out and nothing else. 8-bit text is UTF-8, which goes out as it
 * is; a Windows console gets both widths as UTF-16. Line ends are not translated. Every text is out
 * when its function returns. A process without a console loses the text. Nothing here reports a
 * failure; what can't be made for want of memory is not printed. The members of a pair differ in
 * character width alone.
 *
 * Where prefix and suffix stand around a value, either may be null and adds nothing then; the three
 * are printed as one text. */
#ifndef NUV64_CORE_CONSOLE_OUTPUT_H
#define NUV64_CORE_CONSOLE_OUTPUT_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A text; null prints nothing. */
NUV64_API void CoutStr(const char16_t* text) NUV64_NOEXCEPT;
NUV64_API void CoutStrA(const char* text) NUV64_NOEXCEPT;

/* Up to six texts as one; null ones add nothing. */
NUV64_API void Cout(const char16_t* a, const char16_t* b, const char16_t* c, const char16_t* d,
                    const char16_t* e, const char16_t* f) NUV64_NOEXCEPT;
NUV64_API void CoutA(const char* a, const char* b, const char* c, const char* d, const char* e,
                     const char* f) NUV64_NOEXCEPT;

/* The same in the colour of prompts (4), and back to the normal one. */
NUV64_API void CoutPrompt(const char16_t* a, const char16_t* b, const char16_t* c,
                          const char16_t* d, const char16_t* e, const char16_t* f) NUV64_NOEXCEPT;
NUV64_API void CoutPromptA(const char* a, const char* b, const char* c, const char* d,
                           const char* e, const char* f) NUV64_NOEXCEPT;

/* One character; 0 prints nothing. */
NUV64_API void CoutChr(char16_t c) NUV64_NOEXCEPT;
NUV64_API void CoutChrA(char c) NUV64_NOEXCEPT;

/* One character between two texts; 0 adds nothing. */
NUV64_API void CoutChar(const char16_t* prefix, char16_t c, const char16_t* suffix) NUV64_NOEXCEPT;
NUV64_API void CoutCharA(const char* prefix, char c, const char* suffix) NUV64_NOEXCEPT;

/* "true" or "false". */
NUV64_API void CoutBool(const char16_t* prefix, bool value, const char16_t* suffix) NUV64_NOEXCEPT;
NUV64_API void CoutBoolA(const char* prefix, bool value, const char* suffix) NUV64_NOEXCEPT;

/* An address: "NULL", "INVALID" when all bits are set, or "0x" and hexadecimal digits. */
NUV64_API void CoutPointer(const char16_t* prefix, const void* value,
                           const char16_t* suffix) NUV64_NOEXCEPT;
NUV64_API void CoutPointerA(const char* prefix, const void* value,
                            const char* suffix) NUV64_NOEXCEPT;

/* An integer by the ...ToBuffer function of its type in base radix (a base below 2 prints no
 * digits), right-justified with blanks in width characters. A number that is longer than width is
 * printed whole; width 0 asks for nothing. An invalid value, all ones for Qword and
 * 0x8000000000000000 for Qlong, prints "_InvalidQWORD" or "_InvalidQLONG". */
NUV64_API void CoutDword(const char16_t* prefix, uint32_t value, const char16_t* suffix,
                         uint32_t width, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutDwordA(const char* prefix, uint32_t value, const char* suffix, uint32_t width,
                          uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutLong(const char16_t* prefix, int32_t value, const char16_t* suffix,
                        uint32_t width, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutLongA(const char* prefix, int32_t value, const char* suffix, uint32_t width,
                         uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutQword(const char16_t* prefix, uint64_t value, const char16_t* suffix,
                         uint32_t width, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutQwordA(const char* prefix, uint64_t value, const char* suffix, uint32_t width,
                          uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutQlong(const char16_t* prefix, int64_t value, const char16_t* suffix,
                         uint32_t width, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API void CoutQlongA(const char* prefix, int64_t value, const char* suffix, uint32_t width,
                          uint32_t radix) NUV64_NOEXCEPT;

/* A real as RealToBuffer writes it, with digits significant digits (0 for as many as the base gives
 * a double for sure). flags: the base; 0 for 10. */
NUV64_API void CoutReal(const char16_t* prefix, double value, const char16_t* suffix,
                        uint32_t digits, uint32_t flags) NUV64_NOEXCEPT;
NUV64_API void CoutRealA(const char* prefix, double value, const char* suffix, uint32_t digits,
                         uint32_t flags) NUV64_NOEXCEPT;

/* A text made by the module's formatter (formatter.h); a null format prints nothing. */
NUV64_API void Coutf(const char16_t* format, ...) NUV64_NOEXCEPT;
NUV64_API void CoutfA(const char* format, ...) NUV64_NOEXCEPT;

/* prefix, which may be null, and length bytes at data as digits, by NewAsciFromMem. radix: 1 or 2
 * for base 2, 3 or 16 for base 16; with another one, or null data, the prefix alone. */
NUV64_API void CoutMemA(const char* prefix, const void* data, uint64_t length,
                        uint32_t radix) NUV64_NOEXCEPT;

/* A failure in the colour of errors (1). status not 0: " Error ", its number, ": ", its words by
 * KoErrorString and a line feed. status 0: text, which may be null, and a line feed. wait not 0:
 * then "\n Hit any key to continue" and a key. */
NUV64_API void CoutError(uint32_t status, const char16_t* text, uint32_t wait) NUV64_NOEXCEPT;
NUV64_API void CoutErrorA(uint32_t status, const char* text, uint32_t wait) NUV64_NOEXCEPT;

/* The names of the NUM_ bits that a number reader reported (number_reading.h), each with a blank
 * behind it: UNDEFINED, ILLEGALCHAR, FRACTIONAL, NOSTRUCT, OVERFLOW, UNDERFLOW, PRECISIONLIM, then
 * U64, I64, U32, I32 above their ranges, the same four below, ABOVELIMIT, BELOWLIMIT, BADRADIX. The
 * bits for above and below a range print the same name, "NUM_U64OVERFLOW " and so on. */
NUV64_API void CoutNumFlags(const char16_t* prefix, uint32_t flags,
                            const char16_t* suffix) NUV64_NOEXCEPT;
NUV64_API void CoutNumFlagsA(const char* prefix, uint32_t flags, const char* suffix) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
