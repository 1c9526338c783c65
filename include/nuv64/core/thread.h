/* Threads of the host. The module starts none of its own.
 *
 * A handle is a 64-bit value, 0 or all ones for none; it is released by OsKillHandle. Releasing it
 * neither ends the thread nor waits for it. OsThisThreadInfo gives a pseudo handle, which always
 * stands for the thread that uses it and needs no release. On failure the thread's last-error slot
 * holds the system's code. Times are in units of 100 ns: moments from the start of 1601 in
 * universal time, spent times as spans. */
#ifndef NUV64_CORE_THREAD_H
#define NUV64_CORE_THREAD_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Starts a thread that calls function(context); what that returns is the thread's exit code on
 * Windows. flags: 0x4 lets the thread wait for OsThreadResume before it calls the function; the
 * rest are those of the system on Windows, and ignored elsewhere. *threadId (may be null) receives
 * the system's number of the thread. Result: the handle; 0 on failure and for a null function. */
NUV64_API int64_t OsThreadCreate(uint32_t (*function)(void* context), void* context, uint32_t flags,
                                 uint32_t* threadId) NUV64_NOEXCEPT;

/* A handle of the thread with that number. access: the system's access bits on Windows, 0 for all
 * that this header needs; ignored elsewhere. Off Windows only threads of this process can be
 * opened. 0 when there is none. */
NUV64_API int64_t OsThreadOpen(uint32_t threadId, uint32_t access) NUV64_NOEXCEPT;

/* Whether the thread has not ended yet; a thread that waits to be resumed is active. False for no
 * thread. */
NUV64_API bool OsThreadIsActive(int64_t thread) NUV64_NOEXCEPT;

/* Lets a thread go on that was created waiting. The former suspend count: 1 for such a thread, 0
 * for one that runs; all ones for no thread. */
NUV64_API uint32_t OsThreadResume(int64_t thread) NUV64_NOEXCEPT;

/* The priority: -15, -2, -1, 0 (normal), 1, 2 or 15. 0x7FFFFFFF for no thread and for one that has
 * ended. Off Windows by the thread's nice value: 19, 10, 5, 0, -5, -10, -20; the nearest counts. */
NUV64_API int32_t OsThreadPriority(int64_t thread) NUV64_NOEXCEPT;

/* Sets the priority to one of the levels above. False for another level, for no thread, for one
 * that has ended, and where the user may not do that: raising it needs a privilege off Windows. */
NUV64_API bool OsThreadSetPriority(int64_t thread, int32_t priority) NUV64_NOEXCEPT;

/* Lets the thread run on the processors of the mask only, bit 0 for the first. The former mask; 0
 * for no thread, for one that has ended and for a mask without a processor that is there. */
NUV64_API uint64_t OsThreadSetAffinity(int64_t thread, uint64_t mask) NUV64_NOEXCEPT;

/* When the thread was created and when it ended (0 while it runs), and the time it spent in the
 * kernel and in its own code. Any of the pointers may be null. False, with nothing stored, for no
 * thread. */
NUV64_API bool OsThreadTimes(int64_t thread, uint64_t* created, uint64_t* exited, uint64_t* kernel,
                             uint64_t* user) NUV64_NOEXCEPT;

/* The pseudo handle of the calling thread; *threadId (may be null) receives the thread's number. */
NUV64_API int64_t OsThisThreadInfo(uint32_t* threadId) NUV64_NOEXCEPT;

/* OsThreadSetPriority of the calling thread. */
NUV64_API bool OsThisThreadSetPriority(int32_t priority) NUV64_NOEXCEPT;

/* Releases a handle of any kind and sets *handle to 0. True at once for no handle and a null
 * address; otherwise whether the system released it. */
NUV64_API bool OsKillHandle(int64_t* handle) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
