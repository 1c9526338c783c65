/* Processes: starting programs, waiting for their end, and what is known of the present one.
 *
 * Handles belong to the system; OsCurrentProcess gives a pseudo handle, which stands for the
 * calling process and needs no closing. Times are in units of 100 ns: moments from the start of
 * 1601 in universal time, spent times as spans. On failure the thread's last-error slot holds the
 * system's code. */
#ifndef NUV64_CORE_PROCESS_H
#define NUV64_CORE_PROCESS_H

#include "nuv64/core/types.h"

/* A started process. */
typedef struct OsProcess {
    int64_t process;   /* its handle */
    int64_t thread;    /* a handle of its first thread */
    uint32_t exitCode; /* 259 until its end was seen by one of the calls below */
} OsProcess;

NUV64_BEGIN_DECLS

/* Runs a program.
 *
 * path: the program; blanks at its ends are dropped, and it is put in double quotes unless it
 * starts with one, so a text that starts with a quote may hold arguments too. A name without a
 * folder is looked up along the system's search path. Null asks the user for a file ("Specify an
 * application to run"). arguments: one text, may be null; parted by blanks, quotes keep blanks
 * together, and no shell stands in between. folder: where the program runs; null for the current
 * folder. quiet: not 0 shows no message when the program can't be started. exitCode: null returns
 * at once; otherwise the call waits for the end and stores the code here (off Windows 128 plus the
 * number of the signal that ended the program).
 *
 * Result: 0; 1 when the program could not be started (*exitCode is left alone); all ones when the
 * user cancelled. */
NUV64_API uint32_t OsRunApplication(const char16_t* path, const char16_t* arguments,
                                    const char16_t* folder, uint32_t quiet,
                                    uint32_t* exitCode) NUV64_NOEXCEPT;

/* Starts a program, with path, arguments and folder as in OsRunApplication, and returns its record,
 * which OsProcessDetach releases. Null when it can't be started and for a null path. */
NUV64_API OsProcess* OsProcessLaunch(const char16_t* path, const char16_t* arguments,
                                     const char16_t* folder) NUV64_NOEXCEPT;

/* Closes both handles, frees the record and writes null. The program goes on. A null address or
 * record is a no-op. */
NUV64_API void OsProcessDetach(OsProcess** record) NUV64_NOEXCEPT;

/* Whether the program still runs. If not, record->exitCode receives its exit code. False for a null
 * record. */
NUV64_API bool OsProcessTest(OsProcess* record) NUV64_NOEXCEPT;

/* Waits for the end of the program, ms milliseconds at most, all ones for ever.
 *
 * Result: its exit code, which record->exitCode receives too; 259 when it still runs; all ones for
 * a null record and when the system can't tell. */
NUV64_API uint32_t OsProcessWaitForTermination(OsProcess* record, uint32_t ms) NUV64_NOEXCEPT;

/* When a process was created and when it ended (0 while it runs; off Windows when that was
 * noticed), and the time it spent in the kernel and in its own code. Any of the pointers may be
 * null. False, with nothing stored, for a handle that is no process. */
NUV64_API bool OsProcessTimes(int64_t process, uint64_t* created, uint64_t* exited,
                              uint64_t* kernel, uint64_t* user) NUV64_NOEXCEPT;

/* The pseudo handle of the calling process. */
NUV64_API int64_t OsCurrentProcess(void) NUV64_NOEXCEPT;

/* The number of processors of the computer. */
NUV64_API uint32_t OsProcessors(void) NUV64_NOEXCEPT;

/* Handles the waiting window messages of the calling thread and returns their number. A request to
 * quit is left for the host. Off Windows threads have no messages: 0. */
NUV64_API uint64_t OsProcessQueuedMessages(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
