#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/posix/command_line.h"
#include "platform/posix/handles.h"
#include "platform/posix/native.h"
#include "platform/posix/spawn.h"
#include "platform/process.h"
#include "platform/utf_text.h"

namespace nuv64::platform {

namespace {

constexpr std::uint32_t kUnknownExitCode = 0xFFFFFFFF;
constexpr int kSignalExitCode = 128;  // plus the signal, as shells tell it

std::uint32_t exitCodeOf(int status) noexcept {
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : kSignalExitCode + WTERMSIG(status);
    return static_cast<std::uint32_t>(code);
}

// A child whose handles were closed while it ran is nobody's, but its end still has to be waited
// for, or it stays in the system's table. That is done when the next child comes or goes.
class Orphans {
  public:
    void makeRoom() {
        const std::lock_guard lock(mutex_);
        ids_.reserve(children_ + 1);
        ++children_;
    }
    void childIsReaped() noexcept {
        const std::lock_guard lock(mutex_);
        --children_;
        collect();
    }
    void adopt(pid_t id) noexcept {
        const std::lock_guard lock(mutex_);
        ids_.push_back(id);  // there is room
        collect();
    }

  private:
    void collect() noexcept {
        const auto ended = [](pid_t id) { return ::waitpid(id, nullptr, WNOHANG) != 0; };
        children_ -= std::erase_if(ids_, ended);
        if (children_ == 0) std::vector<pid_t>().swap(ids_);
    }

    std::mutex mutex_;
    std::size_t children_ = 0;  // not waited for, with handles or without
    std::vector<pid_t> ids_;    // those without
};

Orphans& orphans() noexcept {
    union Lasting {  // as the table of handles
        Lasting() noexcept : list() {}
        ~Lasting() {}
        Orphans list;
    };
    static Lasting lasting;
    return lasting.list;
}

class ChildProcess final : public Task {
  public:
    ~ChildProcess() override {
        if (id_ > 0 && !ended_) orphans().adopt(id_);
    }

    bool start(std::vector<std::string> words, const std::string& folder) {
        orphans().makeRoom();
        created_ = fileTimeNow();
        try {
            id_ = spawnProgram(std::move(words), folder);
        } catch (...) {
            orphans().childIsReaped();
            throw;
        }
        if (id_ < 0) orphans().childIsReaped();
        return id_ > 0;
    }

    pid_t id() const noexcept override { return id_; }
    bool isActive() override { return !exitCode(); }

    std::optional<std::uint32_t> exitCode() noexcept {
        const std::lock_guard lock(mutex_);
        if (!ended_) reap();
        return ended_ ? std::optional(exitCode_) : std::nullopt;
    }

    std::optional<RunTimes> times() override {
        RunTimes times;
        if (!exitCode()) {
            if (const auto status = processStatus(id_)) times = status->times;
        }
        const std::lock_guard lock(mutex_);
        if (ended_) times = endTimes_;
        times.created = created_;
        return times;
    }

  private:
    void reap() noexcept {
        int status = 0;
        struct rusage usage {};
        const pid_t result = retried([&] { return ::wait4(id_, &status, WNOHANG, &usage); });
        if (result == 0) return;
        // A host that waits for all children of the process has taken the exit code.
        exitCode_ = result == id_ ? exitCodeOf(status) : kUnknownExitCode;
        ended_ = true;
        endTimes_.exited = fileTimeNow();
        endTimes_.kernel = unitsOf(usage.ru_stime);
        endTimes_.user = unitsOf(usage.ru_utime);
        orphans().childIsReaped();
    }

    std::mutex mutex_;
    std::atomic<pid_t> id_ = -1;  // another thread may look for it in the table meanwhile
    std::uint64_t created_ = 0;
    bool ended_ = false;
    std::uint32_t exitCode_ = kStillActive;
    RunTimes endTimes_;
};

std::shared_ptr<ChildProcess> childOf(std::int64_t handle) noexcept {
    auto child = std::dynamic_pointer_cast<ChildProcess>(taskOf(handle));
    if (!child) noteError(EBADF);
    return child;
}

// Blocks until the child has ended, and leaves it to be reaped.
void waitForEnd(pid_t id) noexcept {
    siginfo_t info;
    retried([&] { return ::waitid(P_PID, static_cast<id_t>(id), &info, WEXITED | WNOWAIT); });
}

void sleepMilliseconds(std::uint64_t milliseconds) noexcept {
    const struct timespec pause {
        static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1'000'000
    };
    ::nanosleep(&pause, nullptr);
}

}  // namespace

bool launchProcess(const char16_t* commandLine, const char16_t* folder, LaunchedProcess& launched) {
    std::vector<std::string> words =
        splitCommandLine(encodeUtf8(commandLine ? commandLine : u"", BadBytes::kEscape));
    std::replace(words[0].begin(), words[0].end(), '\\', '/');
    const auto child = std::make_shared<ChildProcess>();
    NewHandle process(child);
    NewHandle thread(child);
    if (!child->start(std::move(words), folder ? nativePath(folder) : "")) return false;
    launched = {process.release(), thread.release()};
    return true;
}

WaitResult waitForProcess(std::int64_t process, std::uint32_t milliseconds,
                          std::uint32_t& exitCode) {
    const auto child = childOf(process);
    if (!child) return WaitResult::kFailed;
    // The number of a child that is gone may be another's.
    if (milliseconds == kForEver && child->isActive()) waitForEnd(child->id());
    // There is no wait with a time limit for one child: asked again and again, soon at first.
    const std::uint64_t start = sessionMilliseconds();
    for (std::uint64_t pause = 1;; pause = std::min<std::uint64_t>(2 * pause, 16)) {
        if (const auto code = child->exitCode()) {
            exitCode = *code;
            return WaitResult::kEnded;
        }
        const std::uint64_t passed = sessionMilliseconds() - start;
        if (passed >= milliseconds) return WaitResult::kRunning;
        sleepMilliseconds(std::min(pause, milliseconds - passed));
    }
}

bool processTimes(std::int64_t process, RunTimes& times) {
    if (process != kThisProcess) {
        const auto child = childOf(process);
        const auto known = child ? child->times() : std::nullopt;
        if (known) times = *known;
        return known.has_value();
    }
    struct rusage usage {};
    const auto status = processStatus(::getpid());
    if (!status || ::getrusage(RUSAGE_SELF, &usage) != 0) return noteError();
    times = {status->times.created, 0, unitsOf(usage.ru_stime), unitsOf(usage.ru_utime)};
    return true;
}

std::int64_t currentProcess() noexcept {
    return kThisProcess;
}

std::uint32_t processorCount() noexcept {
    return static_cast<std::uint32_t>(std::max(1L, ::sysconf(_SC_NPROCESSORS_ONLN)));
}

// Threads have no message queues here.
std::uint64_t handleQueuedMessages() noexcept {
    return 0;
}

}  // namespace nuv64::platform
