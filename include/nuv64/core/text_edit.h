/* Changing texts in place.
 *
 * A null text is left alone and gives a null result. White is any character whose absolute value,
 * signed in its own width, is at most 32. Case is that of ASCII letters. */
#ifndef NUV64_CORE_TEXT_EDIT_H
#define NUV64_CORE_TEXT_EDIT_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Cleans a text: mode 0 trims both ends, makes blanks of control characters (below 32) and one
 * blank of a run of them.
 *
 * mode: 0x1 clears the top bit of each character (8-bit texts only); 0x2 keeps leading white as it
 * is; 0x4 keeps trailing white; 0x8 keeps runs of blanks; 0x10 keeps control characters, 0x20 CR,
 * 0x40 LF, 0x80 TAB; 0x100 makes capitals, 0x200 small letters (0x100 wins); 0x8000 changes
 * nothing.
 * Result: text. */
NUV64_API char16_t* StringGroom(char16_t* text, uint32_t mode) NUV64_NOEXCEPT;
NUV64_API char* StringGroomA(char* text, uint32_t mode) NUV64_NOEXCEPT;

/* Ends the text at the first occurrence of the whole marker; a comment runs to the end of the text,
 * not of the line. A null or empty marker changes nothing. options: not used. Result: text. */
NUV64_API char16_t* StringCutoffComments(char16_t* text, const char16_t* marker,
                                         uint32_t options) NUV64_NOEXCEPT;
NUV64_API char* StringCutoffCommentsA(char* text, const char* marker,
                                      uint32_t options) NUV64_NOEXCEPT;

/* Makes one character of a backslash and what follows it.
 *
 * A quote, a double quote, a question mark and a backslash stand for themselves; a, b, e, f are 7,
 * 8, 27, 12; l, n, r, t, v are 16, 10, 13, 9, 11; one to three octal digits are a code. Behind u or
 * x every character that in capitals lies from "0" (48) up to 102 counts as the digit code minus
 * 48 of a number in base 16, so that "A" is 17, not 10: texts are written for it. Any other
 * character stands for itself; a backslash at the end is dropped. Result: text. */
NUV64_API char16_t* StringRestoreEscapes(char16_t* text) NUV64_NOEXCEPT;
NUV64_API char* StringRestoreEscapesA(char* text) NUV64_NOEXCEPT;

/* Puts newChr for every oldChr. Result: text. */
NUV64_API char16_t* StringReplaceChrByChr(char16_t* text, char16_t oldChr,
                                          char16_t newChr) NUV64_NOEXCEPT;
NUV64_API char* StringReplaceChrByChrA(char* text, char oldChr, char newChr) NUV64_NOEXCEPT;

/* Takes the first occurrence of sub out. Result: whether there was one; false for a null or empty
 * sub. */
NUV64_API bool StringDeleteSubString(char16_t* text, const char16_t* sub) NUV64_NOEXCEPT;
NUV64_API bool StringDeleteSubStringA(char* text, const char* sub) NUV64_NOEXCEPT;

/* Makes ch the last character of *text that is not white: nothing happens if it is; otherwise it
 * overwrites the first white character behind the last other one, or is appended. *text may move; a
 * null *text is created.
 *
 * Result: the new *text; null for a null address, and when memory is short, *text unchanged. */
NUV64_API char16_t* StringEnforceLastChr(char16_t** text, char16_t ch) NUV64_NOEXCEPT;
NUV64_API char* StringEnforceLastChrA(char** text, char ch) NUV64_NOEXCEPT;

/* Steps a count in letters, as columns of a table are named: null becomes "A", "A" becomes "B", "Z"
 * becomes "AA", "AZ" becomes "BA". *text may move.
 *
 * Result: the new *text; null for a null address, and when memory is short, *text unchanged. */
NUV64_API char16_t* StringNextAlphaCount(char16_t** text) NUV64_NOEXCEPT;
NUV64_API char* StringNextAlphaCountA(char** text) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
