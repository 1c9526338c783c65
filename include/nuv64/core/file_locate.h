/* Searching an open file for a text. */
#ifndef NUV64_CORE_FILE_LOCATE_H
#define NUV64_CORE_FILE_LOCATE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Finds text in an open file, from the file pointer on, and moves the pointer to the match.
 *
 * text: the characters to find, 16-bit units for the wide form, bytes for the A form. length: how
 * many of them count, at most up to the terminator; 0 for all. wildcard: a character of text that
 * stands for any one character of the file; 0 for none. flags:
 *   0x1    ignore the case of the letters A to Z
 *   0x10   search from the start of the file
 *   0x40   leave the pointer behind the match, not on it
 *   0x100  search on behind a Ctrl-Z (26), which otherwise ends the text of the file
 *
 * Result: 1 when the text was found, also at once for a null or empty text. 0 when it wasn't, with
 * the pointer at the end of what was read. -1 for an invalid handle and when the file can't be
 * read, -2 for more than 0x1000000 characters and when memory is short. The wide form meets
 * characters at even distances from where it starts. */
NUV64_API int64_t FileLocateString(int64_t handle, const char16_t* text, uint32_t flags,
                                   uint64_t length, char16_t wildcard) NUV64_NOEXCEPT;
NUV64_API int64_t FileLocateStringA(int64_t handle, const char* text, uint32_t flags,
                                    uint64_t length, char wildcard) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
