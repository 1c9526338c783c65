// Processes, threads and locks of the operating system. Failures leave the system's code in the
// last-error slot; see platform.h. 0 and -1 are no handles here, but for the two pseudo handles,
// which need no closing.
#pragma once

#include <cstdint>

#include "platform/platform.h"

namespace nuv64::platform {

// Times in 100 ns units: moments since the start of 1601 in UTC, spent times as spans.
struct RunTimes {
    std::uint64_t created = 0;
    std::uint64_t exited = 0;  // 0 while it runs
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
};

// Processes.
inline constexpr std::uint32_t kStillActive = 259;  // exit code of a process that runs
inline constexpr std::uint32_t kForEver = 0xFFFFFFFF;

struct LaunchedProcess {
    std::int64_t process = 0;
    std::int64_t thread = 0;  // its first thread
};

// Starts a program in folder (null: the current one), with the standard streams of this process.
// commandLine is the program, in double quotes where it holds blanks, and its arguments, taken
// apart by the rules of the Microsoft C runtime on every system. A bare name is looked up along the
// search path.
bool launchProcess(const char16_t* commandLine, const char16_t* folder, LaunchedProcess& launched);

enum class WaitResult { kEnded, kRunning, kFailed };
// Waits up to milliseconds for the end of a process, and tells its exit code then.
WaitResult waitForProcess(std::int64_t process, std::uint32_t milliseconds,
                          std::uint32_t& exitCode);
bool processTimes(std::int64_t process, RunTimes& times);
std::int64_t currentProcess() noexcept;  // a pseudo handle
std::uint32_t processorCount() noexcept;
// Handles the waiting messages of the calling thread; their number. A request to quit stays for the
// host's own loop.
std::uint64_t handleQueuedMessages() noexcept;

// Threads.
using ThreadFunction = std::uint32_t (*)(void* context);

inline constexpr std::uint32_t kCreateSuspended = 0x4;
inline constexpr std::uint32_t kNoSuspendCount = 0xFFFFFFFF;
inline constexpr std::int32_t kNoPriority = 0x7FFFFFFF;

// 0 on failure. id receives the system's number of the thread.
std::int64_t createThread(ThreadFunction function, void* context, std::uint32_t flags,
                          std::uint32_t& id);
std::int64_t openThread(std::uint32_t id, std::uint32_t access);
bool threadIsActive(std::int64_t thread);
// The former suspend count, or kNoSuspendCount.
std::uint32_t resumeThread(std::int64_t thread);
// Levels -15, -2 to 2 and 15; 0 is normal.
std::int32_t threadPriority(std::int64_t thread);
bool setThreadPriority(std::int64_t thread, std::int32_t priority);
// The former mask, or 0.
std::uint64_t setThreadAffinity(std::int64_t thread, std::uint64_t mask);
bool threadTimes(std::int64_t thread, RunTimes& times);
std::int64_t currentThread() noexcept;  // a pseudo handle
std::uint32_t currentThreadId() noexcept;

// Closes a handle of any kind; what it stood for goes on.
bool closeHandle(std::int64_t handle);

// Locks that the thread that holds one can enter again.
void* makeCriticalSection() noexcept;  // null when memory is short
void enterCriticalSection(void* section) noexcept;
bool tryEnterCriticalSection(void* section) noexcept;
void leaveCriticalSection(void* section) noexcept;
void deleteCriticalSection(void* section) noexcept;

}  // namespace nuv64::platform
