/* What the system tells of a named file, in one record. */
#ifndef NUV64_CORE_FILE_INFO_H
#define NUV64_CORE_FILE_INFO_H

#include "nuv64/core/types.h"

/* What is known of a file or folder. mask tells which fields are valid, by the bits named below;
 * all other fields are 0 or null. The texts are owned by the record and have the width of the
 * function that filled it. Versions are four numbers of 16 bits, the first the highest. */
typedef struct FileInfo {
    uint32_t mask;           /* 0 when empty */
    uint32_t attributes;     /* bit 0; as FileGetAttributes, all ones when empty */
    uint64_t size;           /* bit 1; bytes, 0 for a folder */
    uint64_t compressedSize; /* bit 4; bytes that a compressed or sparse file takes up, otherwise as
                                size */
    uint64_t createdTime;    /* bits 3 and 5: times in 100 ns since the start of 1601, UTC */
    uint64_t accessedTime;
    uint64_t writtenTime;
    uint32_t
        executableType;   /* bit 2; 0 a program of 32 bits, 6 of 64 bits, 1 to 5 of older kinds */
    uint64_t fileVersion; /* bit 7 */
    uint64_t productVersion; /* bit 8 */
    uint32_t versionFlags;   /* bit 9; only those that the file says are valid: 1 debug, 2
                                prerelease, 4 patched, 8 private build, 0x20 special build */
    uint32_t targetSystem;   /* bit 10; as in the file's version resource, 0x40004 for Windows */
    uint32_t fileType;       /* bit 11; 1 program, 2 library, 3 driver, 4 font */
    uint64_t fileDate;       /* bit 12; as in the version resource, mostly 0 */
    void* text0;             /* bit 16; the name that the shell shows */
    void* text1;             /* bit 16; the kind of file in the shell's words */
    void* text2;             /* bit 13; languages and code pages of the version resource: 8
                                hexadecimal digits each, separated by "," */
    void* text3;             /* the description in the first of these languages */
} FileInfo;

NUV64_BEGIN_DECLS

/* Makes *info empty: all fields 0 or null, attributes all ones. The old content is not looked at,
 * so a record must be initialised before it is first used. Null is a no-op. The A name is the same
 * routine. */
NUV64_API void InitializeFileInfo(FileInfo* info) NUV64_NOEXCEPT;
NUV64_API void InitializeFileInfoA(FileInfo* info) NUV64_NOEXCEPT;

/* Frees the texts of *info and makes it empty. Null is a no-op. The A name is the same routine. */
NUV64_API void EraseFileInfo(FileInfo* info) NUV64_NOEXCEPT;
NUV64_API void EraseFileInfoA(FileInfo* info) NUV64_NOEXCEPT;

/* All that the system knows of the file or folder at path. *info must be initialised; what it holds
 * is released first. Attributes, size and times (mask 43) and the compressed size of a file are
 * there on every system, the rest on Windows only, as far as the file has it.
 *
 * True when the file is there. False with *info empty when it isn't, or when memory is short; the
 * last-error slot holds the system's code. A null info gives false. */
NUV64_API bool FileGetFullInfo(const char16_t* path, FileInfo* info) NUV64_NOEXCEPT;
NUV64_API bool FileGetFullInfoA(const char* path, FileInfo* info) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
