/* Disks and folders, and what the system holds back before a disk or a port. On failure the
 * thread's last-error slot holds the system's code. */
#ifndef NUV64_CORE_DISK_H
#define NUV64_CORE_DISK_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The drives that are there, bit 0 for A, bit 1 for B and so on. 0 where drives have no letters. */
NUV64_API uint32_t OsDiskDrives(void) NUV64_NOEXCEPT;

/* Makes a folder; the one that it shall be in must be there. False on failure, also when there is a
 * file or folder of that path already and for a null or empty path. */
NUV64_API bool OsCreateFolder(const char16_t* path) NUV64_NOEXCEPT;
NUV64_API bool OsCreateFolderA(const char* path) NUV64_NOEXCEPT;

/* Has the system write what it holds back for an open file or port. False for no file. */
NUV64_API bool OsFlushFileOrPortBuffers(int64_t handle) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
