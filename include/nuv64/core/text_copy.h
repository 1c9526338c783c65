/* Making, copying and joining texts.
 *
 * A text is a bare block of characters that ends with a terminator. What a New... function or an
 * append returns belongs to the caller, who releases it with KillString. Null texts are allowed
 * throughout. The two members of a pair differ in character width alone. Makers give null when
 * memory is short. */
#ifndef NUV64_CORE_TEXT_COPY_H
#define NUV64_CORE_TEXT_COPY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A copy of the characters first to last, both included; last at or above the length (all ones for
 * instance) is the last character. first above last, and an empty or null text, give an empty
 * text. */
NUV64_API char16_t* NewCopyString(const char16_t* text, uint64_t first,
                                  uint64_t last) NUV64_NOEXCEPT;
NUV64_API char* NewCopyStringA(const char* text, uint64_t first, uint64_t last) NUV64_NOEXCEPT;

/* A whole copy with room for extra more characters. A null text counts as empty. */
NUV64_API char16_t* NewCopyStringEx(const char16_t* text, uint64_t extra) NUV64_NOEXCEPT;
NUV64_API char* NewCopyStringExA(const char* text, uint64_t extra) NUV64_NOEXCEPT;

/* A copy of the characters from first up to, but not including, end; note that NewCopyString
 * includes its last.
 *
 * first: all ones, and one below it, are 0. end: all ones for the text's end.
 * Result: null for null text and when end is below first; empty when first is behind the end of
 * the text. */
NUV64_API char16_t* NewCopyStringSection(const char16_t* text, uint64_t first,
                                         uint64_t end) NUV64_NOEXCEPT;
NUV64_API char* NewCopyStringSectionA(const char* text, uint64_t first,
                                      uint64_t end) NUV64_NOEXCEPT;

/* A copy of item n, counted from 0, of a list of items with a separator between them. Empty items
 * count, also the one behind a trailing separator. Null past the last item and for null text. */
NUV64_API char16_t* NewCopyStringItem(const char16_t* text, uint64_t n,
                                      char16_t separator) NUV64_NOEXCEPT;
NUV64_API char* NewCopyStringItemA(const char* text, uint64_t n, char separator) NUV64_NOEXCEPT;

/* The text in the other width, character by character, by value and without a code page: AW extends
 * each byte with its sign, WA keeps the low byte. Null for null text. */
NUV64_API char16_t* NewCopyStringAW(const char* text) NUV64_NOEXCEPT;
NUV64_API char* NewCopyStringWA(const char16_t* text) NUV64_NOEXCEPT;

/* One new text of all the count texts that follow; nulls add nothing. */
NUV64_API char16_t* NewStringsConcat(uint64_t count, ...) NUV64_NOEXCEPT;
NUV64_API char* NewStringsConcatA(uint64_t count, ...) NUV64_NOEXCEPT;

/* Appends more to *text, which may move; a null *text is created. more may lie inside *text.
 *
 * Result: the new *text. Null for a null address, and when memory is short; then *text stands. */
NUV64_API char16_t* StringAppend(char16_t** text, const char16_t* more) NUV64_NOEXCEPT;
NUV64_API char* StringAppendA(char** text, const char* more) NUV64_NOEXCEPT;

/* Releases *text and makes it a copy of newText, which may lie inside it; a null newText leaves an
 * empty text. Result as for StringAppend. */
NUV64_API char16_t* StringReplace(char16_t** text, const char16_t* newText) NUV64_NOEXCEPT;
NUV64_API char* StringReplaceA(char** text, const char* newText) NUV64_NOEXCEPT;

/* Copies text into a buffer and terminates it.
 *
 * capacity: characters that buffer holds, with the terminator; all ones for no bound. In
 * StringToBufferWA the terminator's place comes on top of the capacity.
 * Result: the number of characters, the terminator not counted; 0 for null or empty text and for a
 * buffer of no size, which is not touched. */
NUV64_API uint64_t StringToBuffer(const char16_t* text, char16_t* buffer,
                                  uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t StringToBufferA(const char* text, char* buffer,
                                   uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t StringToBufferAW(const char* text, char16_t* buffer,
                                    uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t StringToBufferWA(const char16_t* text, char* buffer,
                                    uint64_t capacity) NUV64_NOEXCEPT;

/* The section of NewCopyStringSection into a buffer as by StringToBuffer; where that gives null the
 * buffer gets an empty text. */
NUV64_API uint64_t StringSectionToBuffer(const char16_t* text, uint64_t first, uint64_t end,
                                         char16_t* buffer, uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t StringSectionToBufferA(const char* text, uint64_t first, uint64_t end,
                                          char* buffer, uint64_t capacity) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
