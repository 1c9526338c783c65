/* Formatted text.
 *
 * The format text is copied up to a "%"; "%%" gives one "%". A specification is, in this order:
 *   flags      any of blank "#" "+" "-" "0", as in C;
 *   width      digits or "*";
 *   precision  "." and digits or "*";
 *   "&"        the argument is the address of the value;
 *   length     "h" 16 bits, "hh" 8, none and "l" 32 (on every system), "ll" "L" "j" "t" "z" 64, "l"
 *              and "I" with digits that many bits, "I" alone 64;
 *   conversion:
 *     d i       a signed integer              u o x X   an unsigned one
 *     a e f g   a double, as in C, correctly rounded, with "nan", "inf" and "-inf"; capitals for
 *               A E F G; behind "&" and a length of 32 bits the address is that of a float
 *     r         a double as RealToBuffer writes it in base 10; the precision counts its digits
 *     C         a Complex, "(re, im)" in the way of r
 *     Q         a Qrat, reduced, "num/den", or "num" when the denominator is 1
 *     c         a character                   s         a text, "" when null
 *     S         a text of the other width     Z         like s
 *     p         an address: "NULL", "INVALID" when all bits are set, or "0x" and hexadecimal digits
 *     n         takes an address and does nothing with it: a format never writes to memory
 * Characters and texts have the width of the format; with "l" they are 16-bit, with "h" 8-bit ones,
 * converted by value: a byte is extended with its sign, a wide character gives its low byte.
 * Anything else behind "%" is copied as it stands. Nothing depends on a locale, and nothing is cut.
 * A null format is an empty one. The members of a pair differ in character width alone. */
#ifndef NUV64_CORE_FORMATTER_H
#define NUV64_CORE_FORMATTER_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The formatted text, owned by the caller; null when memory is short. */
NUV64_API char16_t* NewSprintf(const char16_t* format, ...) NUV64_NOEXCEPT;
NUV64_API char* NewSprintfA(const char* format, ...) NUV64_NOEXCEPT;

/* The formatted text into a buffer, at most capacity - 1 characters of it and the terminator;
 * capacity all ones for no bound. The buffer may be an argument.
 *
 * Result: the number of characters written; 0 with an empty text when memory is short, and 0 for a
 * null buffer or capacity 0. */
NUV64_API uint64_t SprintfToBuffer(char16_t* buffer, uint64_t capacity, const char16_t* format,
                                   ...) NUV64_NOEXCEPT;
NUV64_API uint64_t SprintfToBufferA(char* buffer, uint64_t capacity, const char* format,
                                    ...) NUV64_NOEXCEPT;

/* Appends the formatted text to *text, which may move and may be an argument; a null *text is
 * created. Result: the new *text; null for a null address, and when memory is short, *text
 * unchanged. */
NUV64_API char16_t* SprintfAppend(char16_t** text, const char16_t* format, ...) NUV64_NOEXCEPT;
NUV64_API char* SprintfAppendA(char** text, const char* format, ...) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
