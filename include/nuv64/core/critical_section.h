/* Locks for the threads of a host. The module itself takes none of them.
 *
 * The thread that holds a section may enter it again, and has to leave it as often. A section must
 * be left before it is deleted, and by the thread that entered it. */
#ifndef NUV64_CORE_CRITICAL_SECTION_H
#define NUV64_CORE_CRITICAL_SECTION_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A new section, which OsDeleteCriticalSection frees (no Kill does); null when memory is short. */
NUV64_API void* OsMakeCriticalSection(void) NUV64_NOEXCEPT;

/* Waits until no other thread holds the section, and holds it. Null is a no-op. */
NUV64_API void OsEnterCriticalSection(void* section) NUV64_NOEXCEPT;

/* The same without waiting: false when another thread holds the section, and for null. */
NUV64_API bool OsTryEnterCriticalSection(void* section) NUV64_NOEXCEPT;

/* Leaves the section once. Null is a no-op. */
NUV64_API void OsLeaveCriticalSection(void* section) NUV64_NOEXCEPT;

/* Frees the section. Null is a no-op. */
NUV64_API void OsDeleteCriticalSection(void* section) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
