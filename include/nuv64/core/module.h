/* Modules (shared libraries) of the process. A handle is a 64-bit value, 0 for none; a handle that
 * stands for no module in memory is found out and fails. Names may have backslashes on every
 * system; a name without a folder is looked up by the system's rules. On failure the thread's
 * last-error slot holds the system's code. */
#ifndef NUV64_CORE_MODULE_H
#define NUV64_CORE_MODULE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Loads a module, or claims it once more when it is in memory already. 0 on failure, also for a
 * null or empty name. Each success needs an OsFreeModule. */
NUV64_API int64_t OsLoadModule(const char16_t* name) NUV64_NOEXCEPT;
NUV64_API int64_t OsLoadModuleA(const char* name) NUV64_NOEXCEPT;

/* Gives back one claim on the module and sets *module to 0. True at once for a null address and for
 * handle 0; otherwise whether the system knew the module. */
NUV64_API bool OsFreeModule(int64_t* module) NUV64_NOEXCEPT;

/* The address of the function or datum of that name (ASCII) in the module. Null when there is none,
 * for a null or empty name and for no module. */
NUV64_API void* OsProcAddress(const char16_t* name, int64_t module) NUV64_NOEXCEPT;

/* The same within the system itself: its chief modules on Windows, the C library elsewhere. */
NUV64_API void* OsOsProcAddress(const char16_t* name) NUV64_NOEXCEPT;

/* The handle of a module that is in memory, without a claim on it: it must not be freed. A null or
 * empty name gives the host's executable. When the module is not in memory: 0, or with load not 0
 * the result of OsLoadModule, which is a claim. */
NUV64_API int64_t OsModuleHandle(const char16_t* name, uint32_t load) NUV64_NOEXCEPT;
NUV64_API int64_t OsModuleHandleA(const char* name, uint32_t load) NUV64_NOEXCEPT;

/* Turns the system's fault report off for the application of that path: "AddERExcludedApplicationW"
 * of "faultrep.dll". Whether the call was made: false for a null path, and off Windows. */
NUV64_API bool OsNoEmailsToMs(const char16_t* path) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
