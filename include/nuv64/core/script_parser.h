/* The tokenizer of task scripts. */
#ifndef NUV64_CORE_SCRIPT_PARSER_H
#define NUV64_CORE_SCRIPT_PARSER_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Reads one token from the start of text. Blanks and control characters before it are skipped.
 * Kinds: 1    the end of the text; the token is empty 2    any other single character 4    a name:
 * a letter, then letters and digits 128  a number: an optional "-", digits with an optional ".",
 * and an optional exponent that has digits; "-", "." and "-." begin a number only before a digit
 * Letters and digits are those of ASCII.
 *
 * token: takes the token with a terminator; it needs room for as many characters as text has, and
 * one more. May be null. text: null is an empty text. consumed: takes the number of characters
 * read, skipped ones included; may be null. Result: the kind. */
NUV64_API uint32_t ScriptParser(char16_t* token, const char16_t* text,
                                uint64_t* consumed) NUV64_NOEXCEPT;
NUV64_API uint32_t ScriptParserA(char* token, const char* text, uint64_t* consumed) NUV64_NOEXCEPT;

/* The same, with the small letters of the token turned to capitals. */
NUV64_API uint32_t ScriptParserCap(char16_t* token, const char16_t* text,
                                   uint64_t* consumed) NUV64_NOEXCEPT;
NUV64_API uint32_t ScriptParserCapA(char* token, const char* text,
                                    uint64_t* consumed) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
