#include "nuv64/core/process.h"

#include <cstddef>
#include <memory>
#include <string>

#include "core/guard.h"
#include "core/optional_output.h"
#include "core/owned.h"
#include "nuv64/core/file_dialog.h"
#include "nuv64/core/system.h"
#include "nuv64/core/text_edit.h"
#include "platform/process.h"

static_assert(offsetof(OsProcess, process) == 0 && offsetof(OsProcess, thread) == 8);
static_assert(offsetof(OsProcess, exitCode) == 16 && sizeof(OsProcess) == 24);

namespace nuv64 {

namespace {

using platform::WaitResult;

constexpr std::uint32_t kNotLaunched = 1;
constexpr std::uint32_t kCancelled = 0xFFFFFFFF;
constexpr std::uint32_t kNoExitCode = 0xFFFFFFFF;
constexpr std::uint32_t kErrorMessage = 1;  // kind of OsMessage
constexpr std::uint32_t kMustExist = 2;     // flag of the file dialog
constexpr std::uint32_t kKeepBlanks = 0x8;  // of StringGroom: a name may hold two in a row

// Closes both handles before the record goes.
struct DetachProcess {
    void operator()(OsProcess* record) const noexcept {
        try {
            if (platform::isHandle(record->process)) platform::closeHandle(record->process);
            if (platform::isHandle(record->thread)) platform::closeHandle(record->thread);
        } catch (...) {
        }
        std::free(record);
    }
};
using OwnedProcess = std::unique_ptr<OsProcess, DetachProcess>;

std::u16string groomed(const char16_t* path) {
    std::u16string text = path ? path : u"";
    StringGroom(text.data(), kKeepBlanks);
    return text.c_str();
}

std::u16string commandLine(const std::u16string& path, const char16_t* arguments) {
    std::u16string line = path.starts_with(u'"') ? path : u'"' + path + u'"';
    if (arguments && *arguments) line.append(u" ").append(arguments);
    return line;
}

// Null when the program can't be started. path is groomed.
OwnedProcess launch(const std::u16string& path, const char16_t* arguments, const char16_t* folder) {
    if (path.empty()) return nullptr;
    const std::u16string line = commandLine(path, arguments);
    OwnedProcess record(allocate<OsProcess>(1).release());
    *record = {0, 0, platform::kStillActive};
    platform::LaunchedProcess launched;
    if (!platform::launchProcess(line.c_str(), folder && *folder ? folder : nullptr, launched))
        return nullptr;
    record->process = launched.process;
    record->thread = launched.thread;
    return record;
}

std::u16string askForApplication() {
    const Owned<char16_t> chosen(NewOsFileSelectDialog(u"Specify an application to run", nullptr,
                                                       nullptr, nullptr, kMustExist, 0, nullptr));
    return chosen ? chosen.get() : u"";
}

std::uint32_t runApplication(const std::u16string& path, const char16_t* arguments,
                             const char16_t* folder, std::uint32_t* exitCode) {
    const OwnedProcess process = launch(path, arguments, folder);
    if (!process) return kNotLaunched;
    if (exitCode) *exitCode = OsProcessWaitForTermination(process.get(), platform::kForEver);
    return kSuccess;
}

// The record's exit code receives that of an ended program.
WaitResult waitFor(OsProcess* record, std::uint32_t milliseconds) {
    platform::setLastError(0);
    if (!record || !platform::isHandle(record->process)) return WaitResult::kFailed;
    return platform::waitForProcess(record->process, milliseconds, record->exitCode);
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint32_t OsRunApplication(const char16_t* path, const char16_t* arguments, const char16_t* folder,
                          uint32_t quiet, uint32_t* exitCode) noexcept {
    return guardValue(kNotLaunched, [&]() -> uint32_t {
        platform::setLastError(0);
        const std::u16string application = path ? groomed(path) : askForApplication();
        if (!path && application.empty()) return kCancelled;
        const uint32_t result = runApplication(application, arguments, folder, exitCode);
        if (result == kNotLaunched && !quiet)
            OsMessagef(kErrorMessage, u"Failed to launch\n%s", application.c_str());
        return result;
    });
}

OsProcess* OsProcessLaunch(const char16_t* path, const char16_t* arguments,
                           const char16_t* folder) noexcept {
    return guardValue<OsProcess*>(nullptr, [&] {
        platform::setLastError(0);
        return launch(groomed(path), arguments, folder).release();
    });
}

void OsProcessDetach(OsProcess** record) noexcept {
    if (!record || !*record) return;
    const OwnedProcess closed(*record);
    *record = nullptr;
}

bool OsProcessTest(OsProcess* record) noexcept {
    return guardValue(false, [&] { return waitFor(record, 0) == WaitResult::kRunning; });
}

uint32_t OsProcessWaitForTermination(OsProcess* record, uint32_t ms) noexcept {
    return guardValue(kNoExitCode, [&]() -> uint32_t {
        switch (waitFor(record, ms)) {
            case WaitResult::kEnded:
                return record->exitCode;
            case WaitResult::kRunning:
                return platform::kStillActive;
            case WaitResult::kFailed:
                break;
        }
        return kNoExitCode;
    });
}

bool OsProcessTimes(int64_t process, uint64_t* created, uint64_t* exited, uint64_t* kernel,
                    uint64_t* user) noexcept {
    return guardValue(false, [&] {
        platform::setLastError(0);
        platform::RunTimes times;
        if (!platform::processTimes(process, times)) return false;
        store(created, times.created);
        store(exited, times.exited);
        store(kernel, times.kernel);
        store(user, times.user);
        return true;
    });
}

int64_t OsCurrentProcess() noexcept {
    return platform::currentProcess();
}

uint32_t OsProcessors() noexcept {
    return platform::processorCount();
}

uint64_t OsProcessQueuedMessages() noexcept {
    return platform::handleQueuedMessages();
}
