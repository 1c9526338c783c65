/* Measuring, searching and comparing texts.
 *
 * Indices count characters from 0; all ones means not found, which is also the answer for a null
 * text. White is any character whose absolute value, signed in its own width, is at most 32. Case
 * is that of ASCII letters. The terminator is never found as a character. */
#ifndef NUV64_CORE_TEXT_SEARCH_H
#define NUV64_CORE_TEXT_SEARCH_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The number of characters before the terminator; 0 for null. */
NUV64_API uint64_t StringLen(const char16_t* text) NUV64_NOEXCEPT;
NUV64_API uint64_t StringLenA(const char* text) NUV64_NOEXCEPT;

/* How many times ch occurs. */
NUV64_API uint64_t StringCharCount(const char16_t* text, char16_t ch) NUV64_NOEXCEPT;
NUV64_API uint64_t StringCharCountA(const char* text, char ch) NUV64_NOEXCEPT;

/* Whether ch occurs. */
NUV64_API bool StringIsChrPresent(const char16_t* text, char16_t ch) NUV64_NOEXCEPT;
NUV64_API bool StringIsChrPresentA(const char* text, char ch) NUV64_NOEXCEPT;

/* The first or the last place of ch. */
NUV64_API uint64_t StringIndex1stChr(const char16_t* text, char16_t ch) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndex1stChrA(const char* text, char ch) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexLastChr(const char16_t* text, char16_t ch) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexLastChrA(const char* text, char ch) NUV64_NOEXCEPT;

/* The first or the last place of any character of set. Further arguments are ignored. */
NUV64_API uint64_t StringIndex1stOfChars(const char16_t* text, const char16_t* set,
                                         ...) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndex1stOfCharsA(const char* text, const char* set, ...) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexLastOfChars(const char16_t* text, const char16_t* set,
                                          ...) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexLastOfCharsA(const char* text, const char* set, ...) NUV64_NOEXCEPT;

/* The first or the last character that is not white. */
NUV64_API uint64_t StringIndex1stNonWhite(const char16_t* text) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndex1stNonWhiteA(const char* text) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexLastNonWhite(const char16_t* text) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexLastNonWhiteA(const char* text) NUV64_NOEXCEPT;

/* Whether there is nothing but white. True for null. */
NUV64_API bool StringIsEmpty(const char16_t* text) NUV64_NOEXCEPT;
NUV64_API bool StringIsEmptyA(const char* text) NUV64_NOEXCEPT;

/* The index behind the first separator for every n above 0, and 0 for n = 0: the search for each
 * separator begins at the text's start, and callers rely on it.
 *
 * separators: a set of characters; null or empty is ",".
 * Result: all ones when there is no separator and n is above 0. */
NUV64_API uint64_t StringIndexNthItem(const char16_t* text, uint64_t n,
                                      const char16_t* separators) NUV64_NOEXCEPT;
NUV64_API uint64_t StringIndexNthItemA(const char* text, uint64_t n,
                                       const char* separators) NUV64_NOEXCEPT;

/* Whether text begins with prefix; case counts. A null text begins with nothing, any other with a
 * null prefix. skipWhite: not 0 passes over leading white of text. */
NUV64_API bool StringStartsWith(const char16_t* text, const char16_t* prefix,
                                uint32_t skipWhite) NUV64_NOEXCEPT;
NUV64_API bool StringStartsWithA(const char* text, const char* prefix,
                                 uint32_t skipWhite) NUV64_NOEXCEPT;

/* The same at the end. */
NUV64_API bool StringEndsWith(const char16_t* text, const char16_t* suffix) NUV64_NOEXCEPT;
NUV64_API bool StringEndsWithA(const char* text, const char* suffix) NUV64_NOEXCEPT;

/* Compares two texts by their unsigned characters.
 *
 * options: 1 ignores case (capitals decide the order), 2 skips leading white of both, 4 leaves
 * trailing white of both out. wildcard: if not 0, that character in a equals any one in b.
 * Result: 0 when equal, 1 when a is the greater, -1 when b is. A null text is an empty one; of an
 * empty text and another the other is the greater, whatever the options. */
NUV64_API int32_t StringsCompare(const char16_t* a, const char16_t* b, uint32_t options,
                                 char16_t wildcard) NUV64_NOEXCEPT;
NUV64_API int32_t StringsCompareA(const char* a, const char* b, uint32_t options,
                                  char wildcard) NUV64_NOEXCEPT;

/* The first place of sub in a text, made for large texts: it runs near the speed of memory.
 *
 * textLen, subLen: lengths; 0 measures.
 * table: null, or 256 shifts that the caller prepared for sub (entry c is the distance from the
 * last character of sub whose low byte is c, the very last of sub left out, to the end of sub;
 * subLen where there is none). The search has become faster than such a table can make it, so it is
 * not looked at: the result is the same with and without. Result: a pointer into text; null when
 * not found and for null text; text for a null or empty sub. */
NUV64_API char16_t* StringLocateSubString(const char16_t* text, const char16_t* sub,
                                          uint64_t textLen, uint64_t subLen,
                                          const uint64_t* table) NUV64_NOEXCEPT;
NUV64_API char* StringLocateSubStringA(const char* text, const char* sub, uint64_t textLen,
                                       uint64_t subLen, const uint64_t* table) NUV64_NOEXCEPT;

/* The same with options and a wildcard.
 *
 * options: 1 ignores the case of the letters A to Z. wildcard: if not 0, that character in sub
 * matches any one. Wildcards at the ends of sub are left out of the search; the result is moved
 * back by those in front, for which the text must have characters. */
NUV64_API char16_t* StringLocateSubStringEx(const char16_t* text, const char16_t* sub,
                                            uint64_t textLen, uint64_t subLen, uint32_t options,
                                            char16_t wildcard,
                                            const uint64_t* table) NUV64_NOEXCEPT;
NUV64_API char* StringLocateSubStringExA(const char* text, const char* sub, uint64_t textLen,
                                         uint64_t subLen, uint32_t options, char wildcard,
                                         const uint64_t* table) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
