#include "platform/process.h"

#include "platform/windows/native.h"

namespace nuv64::platform {

static_assert(kStillActive == STILL_ACTIVE);
static_assert(kForEver == INFINITE);

bool launchProcess(const char16_t* commandLine, const char16_t* folder, LaunchedProcess& launched) {
    std::u16string line = commandLine ? commandLine : u"";  // the call writes into it
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (!::CreateProcessW(nullptr, wide(line.data()), nullptr, nullptr, FALSE, 0, nullptr,
                          wide(folder), &start, &made))
        return false;
    launched.process = asNumber(made.hProcess);
    launched.thread = asNumber(made.hThread);
    return true;
}

WaitResult waitForProcess(std::int64_t process, std::uint32_t milliseconds,
                          std::uint32_t& exitCode) {
    switch (::WaitForSingleObject(asHandle(process), milliseconds)) {
        case WAIT_OBJECT_0:
            break;
        case WAIT_TIMEOUT:
            return WaitResult::kRunning;
        default:
            return WaitResult::kFailed;
    }
    DWORD code = 0;
    if (!::GetExitCodeProcess(asHandle(process), &code)) return WaitResult::kFailed;
    exitCode = code;
    return WaitResult::kEnded;
}

bool processTimes(std::int64_t process, RunTimes& times) {
    FILETIME created{}, exited{}, kernel{}, user{};
    if (!::GetProcessTimes(asHandle(process), &created, &exited, &kernel, &user)) return false;
    // Meaningless while the process runs.
    const bool runs = ::WaitForSingleObject(asHandle(process), 0) == WAIT_TIMEOUT;
    times = {asNumber(created), runs ? 0 : asNumber(exited), asNumber(kernel), asNumber(user)};
    return true;
}

std::int64_t currentProcess() noexcept {
    return asNumber(::GetCurrentProcess());
}

std::uint32_t processorCount() noexcept {
    return ::GetActiveProcessorCount(ALL_PROCESSOR_GROUPS);
}

std::uint64_t handleQueuedMessages() noexcept {
    std::uint64_t count = 0;
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
        ++count;
    }
    return count;
}

}  // namespace nuv64::platform
