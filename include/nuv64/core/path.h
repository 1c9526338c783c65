/* Path texts and the search for files.
 *
 * Paths are written with backslashes on every system and turned into native ones when the system is
 * called; on POSIX these functions accept "/" beside "\\" where they take a path apart. 8-bit paths
 * are UTF-8. New texts belong to the caller (KillString); null is returned when memory is short. */
#ifndef NUV64_CORE_PATH_H
#define NUV64_CORE_PATH_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The index behind the last ":" or "\\" of path, where the bare file name starts. 0 when neither
 * occurs and for a null path. */
NUV64_API uint64_t OffsetToCleanNameInPath(const char16_t* path) NUV64_NOEXCEPT;
NUV64_API uint64_t OffsetToCleanNameInPathA(const char* path) NUV64_NOEXCEPT;

/* A piece of path as a new text, by part:
 *   1  the extension without its dot; null when the file name has no dot
 *   2  the file name without extension
 *   3  the file name with extension
 *   4  the folder with its closing separator; null when there is none
 *   5  the drive name without colon; null when there is no colon or it stands first
 * Any other part gives a copy of the path. A null path gives null. A dot in a folder's name is no
 * dot of the file name. */
NUV64_API char16_t* NewFilePathFraction(const char16_t* path, uint32_t part) NUV64_NOEXCEPT;
NUV64_API char* NewFilePathFractionA(const char* path, uint32_t part) NUV64_NOEXCEPT;

/* folder, one "\\" unless folder already ends in a separator (an empty folder gets one too), and
 * name, as a new text. A null argument counts as empty. */
NUV64_API char16_t* NewFilePathCombination(const char16_t* folder,
                                           const char16_t* name) NUV64_NOEXCEPT;
NUV64_API char* NewFilePathCombinationA(const char* folder, const char* name) NUV64_NOEXCEPT;

/* The full path of an existing file, found along a search path.
 *
 * name: the file name; with a folder in it, only that place is looked at. extension: appended when
 * the name has none, with a dot in front unless it brings its own; may be null. searchPath: folders
 * separated by ";"; null for the system's search path, which off Windows is the folder of the
 * executable, the working folder, then PATH. filePart (may be null) receives the address of the
 * bare name inside the new text. When nothing is found the result is null and so is *filePart, and
 * the last-error slot holds the system's code. */
NUV64_API char16_t* NewFilePathLocator(const char16_t* name, const char16_t* extension,
                                       const char16_t* searchPath,
                                       char16_t** filePart) NUV64_NOEXCEPT;
NUV64_API char* NewFilePathLocatorA(const char* name, const char* extension, const char* searchPath,
                                    char** filePart) NUV64_NOEXCEPT;

/* The name of a temporary file in folder (null: the system's temporary folder), as a new block of
 * at least 512 characters, or null on failure.
 *
 * The name is made of the first three characters of prefix, a hexadecimal number and ".tmp". With
 * unique 0 the number is chosen so that the file is new, and the file is created, empty. Otherwise
 * the low 16 bits of unique are the number, and no file is created. */
NUV64_API char16_t* NewCreateTemporaryFile(const char16_t* folder, const char16_t* prefix,
                                           uint32_t unique) NUV64_NOEXCEPT;
NUV64_API char* NewCreateTemporaryFileA(const char* folder, const char* prefix,
                                        uint32_t unique) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
