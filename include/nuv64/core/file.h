/* Raw files: plain functions on the system's file handles.
 *
 * A handle is a 64-bit value; 0 and -1 stand for no file, and no open file has handle 0. Files are
 * sequences of bytes: nothing is translated. Offsets and sizes are 64 bits wide. Every function
 * first clears the thread's last-error slot, and on failure leaves the system's code there. Paths
 * may use backslashes on every system; 8-bit paths are UTF-8. A null or empty path is a path that
 * doesn't exist. Wide and 8-bit (A) members do the same. */
#ifndef NUV64_CORE_FILE_H
#define NUV64_CORE_FILE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Opens or creates a file. The bits of mode:
 *   0x1        write access too, otherwise read only
 *   0x2        the file must exist
 *   0x4        the file must not exist, a new one is made; overrides 0x2 and 0x10
 *   0x8        move to the end after opening
 *   0x10       cut to length 0: with 0x2 an existing file only (and only with 0x1), without it the
 *              file is created or replaced
 *   none of 0x2, 0x4, 0x10: open, or create when missing
 *   0x20, 0x40, 0x80, 0x100: let others read / write / both / neither meanwhile; none of them lets
 *              others read, and the higher bit outranks the lower. Off Windows nothing is locked.
 *   0x200 read-only, 0x400 hidden, 0x800 system, 0x1000 archive, 0x4000 compressed, 0x8000
 *              temporary, 0x10000 offline: attributes of a created file, 0x2000 asks for none of
 *              them but counts as asking; with none of these bits the file has the normal
 *              attribute. Off Windows only read-only has a meaning.
 *   0x10000000 show a message on failure
 * Other bits are ignored. The result is the handle, or -1. A folder can't be opened. */
NUV64_API int64_t FileOpen(const char16_t* path, uint32_t mode) NUV64_NOEXCEPT;
NUV64_API int64_t FileOpenA(const char* path, uint32_t mode) NUV64_NOEXCEPT;

/* Closes *handle and sets it to -1. flush: not 0 writes the system's buffers to the disk first.
 * True at once for no file and a null address; otherwise whether the system released the file. */
NUV64_API bool FileClose(int64_t* handle, uint32_t flush) NUV64_NOEXCEPT;

/* Reads up to bytes bytes at the file pointer. The number read, which is smaller only at the end of
 * the file, or -1, also for a null buffer with bytes above 0. */
NUV64_API int64_t FileReadBinary(int64_t handle, void* buffer, uint64_t bytes) NUV64_NOEXCEPT;

/* Reads up to chars characters (16-bit units, bytes for the A form) and writes a terminator behind
 * them: buffer needs room for chars + 1. The number of whole characters read, or -1 with the buffer
 * left as it is. */
NUV64_API int64_t FileRead(int64_t handle, char16_t* buffer, uint64_t chars) NUV64_NOEXCEPT;
NUV64_API int64_t FileReadA(int64_t handle, char* buffer, uint64_t chars) NUV64_NOEXCEPT;

/* Writes bytes bytes at the file pointer. False for no file, for more than 2^63 - 1 bytes and when
 * not all could be written; true for null data or 0 bytes. */
NUV64_API bool FileWriteBinary(int64_t handle, const void* data, uint64_t bytes) NUV64_NOEXCEPT;

/* Writes a text without its terminator, the wide form as 16-bit units. As FileWriteBinary. */
NUV64_API bool FileWrite(int64_t handle, const char16_t* text) NUV64_NOEXCEPT;
NUV64_API bool FileWriteA(int64_t handle, const char* text) NUV64_NOEXCEPT;

/* Moves the file pointer by distance bytes from the start (origin 0), from where it is (1) or from
 * the end (2); *result (may be null) receives the new offset. 1, 0 on failure (a place before the
 * start, another origin), all ones for no file. */
NUV64_API uint32_t FileSetPointer(int64_t handle, int64_t distance, uint32_t origin,
                                  int64_t* result) NUV64_NOEXCEPT;

/* FileSetPointer with (0, 1): where the pointer is. */
NUV64_API uint32_t FileGetPointer(int64_t handle, int64_t* result) NUV64_NOEXCEPT;
/* FileSetPointer with (0, 0). */
NUV64_API uint32_t FileRewind(int64_t handle, int64_t* result) NUV64_NOEXCEPT;
/* FileSetPointer with (0, 2). */
NUV64_API uint32_t FileMoveToEnd(int64_t handle, int64_t* result) NUV64_NOEXCEPT;

/* The size of the file in bytes. On failure false, and *result is 0x8000000000000000. */
NUV64_API bool FileGetSize(int64_t handle, int64_t* result) NUV64_NOEXCEPT;

/* Cuts the file at the file pointer, or lengthens it with zeros up to there. */
NUV64_API bool FileTruncate(int64_t handle) NUV64_NOEXCEPT;

/* Whether there is a file or a folder of that path. attributes (may be null) receives what
 * FileGetAttributes gives. */
NUV64_API bool FileIsPresent(const char16_t* path, uint32_t* attributes) NUV64_NOEXCEPT;
NUV64_API bool FileIsPresentA(const char* path, uint32_t* attributes) NUV64_NOEXCEPT;

/* The attributes of a file or folder: 0x1 read-only, 0x2 hidden, 0x4 system, 0x10 folder, 0x20
 * archive, 0x80 normal and others of the Windows system. All ones on failure. Off Windows: a file
 * that nobody may write is read-only, a name that starts with a dot hidden, and normal stands for
 * none of read-only, hidden and folder. */
NUV64_API uint32_t FileGetAttributes(const char16_t* path) NUV64_NOEXCEPT;
NUV64_API uint32_t FileGetAttributesA(const char* path) NUV64_NOEXCEPT;

/* Copies a file, and returns when the target is there. failIfExists: not 0 leaves a target that
 * exists alone and gives false; 0 replaces it. A file can't be copied onto itself. */
NUV64_API bool FileCopy(const char16_t* source, const char16_t* target,
                        uint32_t failIfExists) NUV64_NOEXCEPT;
NUV64_API bool FileCopyA(const char* source, const char* target,
                         uint32_t failIfExists) NUV64_NOEXCEPT;

/* Deletes a file; a folder is left alone and gives false. */
NUV64_API bool FileDelete(const char16_t* path) NUV64_NOEXCEPT;
NUV64_API bool FileDeleteA(const char* path) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
