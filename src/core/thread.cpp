#include "nuv64/core/thread.h"

#include "core/guard.h"
#include "core/optional_output.h"
#include "platform/process.h"

namespace nuv64 {

namespace {

// Runs body on a handle that may be one; failure for no handle.
template <class Result, class Body>
Result withThread(std::int64_t thread, Result failure, Body&& body) noexcept {
    return guardValue(failure, [&]() -> Result {
        platform::setLastError(0);
        if (platform::isHandle(thread)) return body();
        platform::setLastError(platform::kErrorInvalidHandle);
        return failure;
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

int64_t OsThreadCreate(uint32_t (*function)(void* context), void* context, uint32_t flags,
                       uint32_t* threadId) noexcept {
    return guardValue(int64_t{0}, [&] {
        platform::setLastError(0);
        uint32_t id = 0;
        const int64_t thread = platform::createThread(function, context, flags, id);
        if (threadId) *threadId = id;
        return thread;
    });
}

int64_t OsThreadOpen(uint32_t threadId, uint32_t access) noexcept {
    return guardValue(int64_t{0}, [&] {
        platform::setLastError(0);
        return platform::openThread(threadId, access);
    });
}

bool OsThreadIsActive(int64_t thread) noexcept {
    return withThread(thread, false, [&] { return platform::threadIsActive(thread); });
}

uint32_t OsThreadResume(int64_t thread) noexcept {
    return withThread(thread, platform::kNoSuspendCount,
                      [&] { return platform::resumeThread(thread); });
}

int32_t OsThreadPriority(int64_t thread) noexcept {
    return withThread(thread, platform::kNoPriority,
                      [&] { return platform::threadPriority(thread); });
}

bool OsThreadSetPriority(int64_t thread, int32_t priority) noexcept {
    return withThread(thread, false, [&] { return platform::setThreadPriority(thread, priority); });
}

uint64_t OsThreadSetAffinity(int64_t thread, uint64_t mask) noexcept {
    return withThread(thread, uint64_t{0},
                      [&] { return platform::setThreadAffinity(thread, mask); });
}

bool OsThreadTimes(int64_t thread, uint64_t* created, uint64_t* exited, uint64_t* kernel,
                   uint64_t* user) noexcept {
    return withThread(thread, false, [&] {
        platform::RunTimes times;
        if (!platform::threadTimes(thread, times)) return false;
        store(created, times.created);
        store(exited, times.exited);
        store(kernel, times.kernel);
        store(user, times.user);
        return true;
    });
}

int64_t OsThisThreadInfo(uint32_t* threadId) noexcept {
    if (threadId) *threadId = platform::currentThreadId();
    return platform::currentThread();
}

bool OsThisThreadSetPriority(int32_t priority) noexcept {
    return OsThreadSetPriority(platform::currentThread(), priority);
}

bool OsKillHandle(int64_t* handle) noexcept {
    return guardValue(false, [&] {
        platform::setLastError(0);
        if (!handle) return true;
        const int64_t closed = *handle;
        *handle = 0;
        return !platform::isHandle(closed) || platform::closeHandle(closed);
    });
}
