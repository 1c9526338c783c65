#include <new>

#include "platform/process.h"
#include "platform/windows/native.h"

namespace nuv64::platform {

static_assert(kCreateSuspended == CREATE_SUSPENDED);
static_assert(kNoPriority == THREAD_PRIORITY_ERROR_RETURN);
static_assert(sizeof(DWORD) == sizeof(std::uint32_t));

std::int64_t createThread(ThreadFunction function, void* context, std::uint32_t flags,
                          std::uint32_t& id) {
    if (!function) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    // 64-bit Windows has one calling convention; the two types differ in the spelling of 32 bits.
    const auto start = reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(function));
    DWORD number = 0;
    const HANDLE thread = ::CreateThread(nullptr, 0, start, context, flags, &number);
    id = number;
    return asNumber(thread);
}

std::int64_t openThread(std::uint32_t id, std::uint32_t access) {
    constexpr DWORD kAll =
        THREAD_QUERY_INFORMATION | THREAD_SET_INFORMATION | THREAD_SUSPEND_RESUME | SYNCHRONIZE;
    return asNumber(::OpenThread(access ? access : kAll, FALSE, id));
}

bool threadIsActive(std::int64_t thread) {
    return ::WaitForSingleObject(asHandle(thread), 0) == WAIT_TIMEOUT;
}

std::uint32_t resumeThread(std::int64_t thread) {
    return ::ResumeThread(asHandle(thread));
}

std::int32_t threadPriority(std::int64_t thread) {
    return ::GetThreadPriority(asHandle(thread));
}

bool setThreadPriority(std::int64_t thread, std::int32_t priority) {
    return ::SetThreadPriority(asHandle(thread), priority) != 0;
}

std::uint64_t setThreadAffinity(std::int64_t thread, std::uint64_t mask) {
    return ::SetThreadAffinityMask(asHandle(thread), mask);
}

bool threadTimes(std::int64_t thread, RunTimes& times) {
    FILETIME created{}, exited{}, kernel{}, user{};
    if (!::GetThreadTimes(asHandle(thread), &created, &exited, &kernel, &user)) return false;
    // Meaningless while the thread runs.
    const bool runs = threadIsActive(thread);
    times = {asNumber(created), runs ? 0 : asNumber(exited), asNumber(kernel), asNumber(user)};
    return true;
}

std::int64_t currentThread() noexcept {
    return asNumber(::GetCurrentThread());
}

std::uint32_t currentThreadId() noexcept {
    return ::GetCurrentThreadId();
}

bool closeHandle(std::int64_t handle) {
    const HANDLE closed = asHandle(handle);
    if (closed == ::GetCurrentProcess() || closed == ::GetCurrentThread()) return true;
    return ::CloseHandle(closed) != 0;
}

void* makeCriticalSection() noexcept {
    auto* section = new (std::nothrow) CRITICAL_SECTION;
    if (section) ::InitializeCriticalSection(section);
    return section;
}

void enterCriticalSection(void* section) noexcept {
    ::EnterCriticalSection(static_cast<CRITICAL_SECTION*>(section));
}

bool tryEnterCriticalSection(void* section) noexcept {
    return ::TryEnterCriticalSection(static_cast<CRITICAL_SECTION*>(section)) != 0;
}

void leaveCriticalSection(void* section) noexcept {
    ::LeaveCriticalSection(static_cast<CRITICAL_SECTION*>(section));
}

void deleteCriticalSection(void* section) noexcept {
    if (!section) return;
    ::DeleteCriticalSection(static_cast<CRITICAL_SECTION*>(section));
    delete static_cast<CRITICAL_SECTION*>(section);
}

}  // namespace nuv64::platform
