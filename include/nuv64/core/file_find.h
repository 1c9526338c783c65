/* Searching a folder for files.
 *
 * The searches that run are noted in one record of the process, which nothing guards: only one
 * thread at a time may search. */
#ifndef NUV64_CORE_FILE_FIND_H
#define NUV64_CORE_FILE_FIND_H

#include "nuv64/core/file_info.h"
#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Starts a search for the files and folders that match pattern, a path whose last name may hold "*"
 * (any characters) and "?" (any one character; at the end of a name and in front of a dot also
 * none). "*.*" is every name. The case of letters doesn't count, and the folders "." and ".." match
 * like others. Off Windows only the case of ASCII letters is passed over, and names come sorted.
 *
 * name (may be null) receives the bare name of the first match as a new text; a text that stands
 * there is released before. info (may be null) must be initialised; what it holds is released, and
 * it receives attributes, size and times, mask 43. Result: the handle of the search, which
 * FileFindClose releases; -1 with *name null and *info empty when nothing matches, the folder isn't
 * there, or memory is short, with the system's code in the last-error slot. */
NUV64_API int64_t FileFindFirst(const char16_t* pattern, char16_t** name,
                                FileInfo* info) NUV64_NOEXCEPT;
NUV64_API int64_t FileFindFirstA(const char* pattern, char** name, FileInfo* info) NUV64_NOEXCEPT;

/* The next match of a running search; name and info as for FileFindFirst, of either width. False
 * when there is none left, for another handle, and when memory is short. */
NUV64_API bool FileFindNext(int64_t findHandle, char16_t** name, FileInfo* info) NUV64_NOEXCEPT;
NUV64_API bool FileFindNextA(int64_t findHandle, char** name, FileInfo* info) NUV64_NOEXCEPT;

/* Ends a search. flags is not used. False for a handle of no running search. */
NUV64_API bool FileFindClose(int64_t findHandle, uint32_t flags) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
