// The clipboard belongs to the desktop environment; its own tools are asked, where there are some.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/posix/native.h"
#include "platform/posix/spawn.h"
#include "platform/screen.h"

namespace nuv64::platform {

namespace {

using Words = std::vector<std::string>;

// A tool of a session that sets variable.
struct ClipboardTool {
    const char* variable;
    std::array<const char*, 4> write;
    std::array<const char*, 4> read;
};

constexpr std::array kTools = {
    ClipboardTool{"WAYLAND_DISPLAY", {"wl-copy"}, {"wl-paste", "--no-newline"}},
    ClipboardTool{"DISPLAY",
                  {"xclip", "-selection", "clipboard"},
                  {"xclip", "-selection", "clipboard", "-o"}},
    ClipboardTool{
        "DISPLAY", {"xsel", "--clipboard", "--input"}, {"xsel", "--clipboard", "--output"}},
};

// A tool waits for the program that owns the clipboard, which may have hung.
constexpr std::uint64_t kPatience = 5000;  // milliseconds

class Deadline {
  public:
    // Milliseconds that are left.
    std::uint64_t left() const noexcept {
        const std::uint64_t passed = sessionMilliseconds() - start_;
        return passed < kPatience ? kPatience - passed : 0;
    }

  private:
    const std::uint64_t start_ = sessionMilliseconds();
};

Words wordsOf(const std::array<const char*, 4>& command) {
    const auto end = std::find(command.begin(), command.end(), nullptr);
    return Words(command.begin(), end);
}

bool isSession(const char* variable) noexcept {
    const char* value = std::getenv(variable);
    return value && *value;
}

// A program that this waits for, and ends when there is no time left.
class RunningTool {
  public:
    explicit RunningTool(pid_t id) noexcept : id_(id) {}
    RunningTool(const RunningTool&) = delete;
    RunningTool& operator=(const RunningTool&) = delete;
    ~RunningTool() {
        if (id_ <= 0) return;
        ::kill(id_, SIGKILL);
        retried([&] { return ::waitpid(id_, nullptr, 0); });
    }
    bool isStarted() const noexcept { return id_ > 0; }

    bool succeeds(const Deadline& deadline) noexcept {
        for (;;) {
            int status = 0;
            const pid_t result = ::waitpid(id_, &status, WNOHANG);
            if (result == id_ || (result < 0 && errno != EINTR)) {
                id_ = -1;
                return result > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
            }
            if (deadline.left() == 0) return noteError(ETIMEDOUT);
            const struct timespec pause { 0, 2'000'000 };
            ::nanosleep(&pause, nullptr);
        }
    }

  private:
    pid_t id_;
};

// All that comes through the pipe until its other end is closed; no value after the deadline.
std::optional<std::string> contentOf(int pipe, const Deadline& deadline) {
    std::string content;
    std::array<char, 4096> block;
    for (;;) {
        struct pollfd ready {
            pipe, POLLIN, 0
        };
        const int result =
            retried([&] { return ::poll(&ready, 1, static_cast<int>(deadline.left())); });
        if (result <= 0) return noteError(ETIMEDOUT), std::nullopt;
        const ssize_t got = retried([&] { return ::read(pipe, block.data(), block.size()); });
        if (got < 0) return noteError(), std::nullopt;
        if (got == 0) return content;
        content.append(block.data(), static_cast<std::size_t>(got));
    }
}

int silence() noexcept {
    return ::open("/dev/null", O_RDWR | O_CLOEXEC);
}

// The text as a file in memory: unlike a pipe it never blocks, and it doesn't matter whether the
// tool reads it.
bool write(const ClipboardTool& tool, const std::string& text) {
    const Descriptor none(silence());
    const Descriptor input(::memfd_create("clipboard", MFD_CLOEXEC));
    if (none.get() < 0 || input.get() < 0) return noteError();
    if (!writeFile(input.get(), text.data(), text.size()) ||
        !seekFile(input.get(), 0, Origin::kStart, nullptr))
        return false;
    const Deadline deadline;
    // What the tool leaves behind keeps its streams open, so they are not those of the host.
    RunningTool running(
        spawnProgram(wordsOf(tool.write), "", {input.get(), none.get(), none.get()}));
    return running.isStarted() && running.succeeds(deadline);
}

std::optional<std::string> read(const ClipboardTool& tool) {
    const Descriptor none(silence());
    int ends[2];
    if (none.get() < 0 || ::pipe2(ends, O_CLOEXEC) != 0) return noteError(), std::nullopt;
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    const Deadline deadline;
    RunningTool running(
        spawnProgram(wordsOf(tool.read), "", {none.get(), writing.get(), none.get()}));
    ::close(writing.release());
    if (!running.isStarted()) return std::nullopt;
    std::optional<std::string> content = contentOf(reading.get(), deadline);
    if (!content || !running.succeeds(deadline)) return std::nullopt;
    return content;
}

}  // namespace

bool setClipboardText(const char16_t* text) {
    const std::string bytes = utf8FromWide(text);
    setLastError(ENOENT);
    for (const ClipboardTool& tool : kTools)
        if (isSession(tool.variable) && write(tool, bytes)) return true;
    return false;
}

std::optional<std::u16string> clipboardText() {
    setLastError(ENOENT);
    for (const ClipboardTool& tool : kTools) {
        if (!isSession(tool.variable)) continue;
        if (const auto bytes = read(tool)) return wideFromUtf8(*bytes);
    }
    return std::nullopt;
}

}  // namespace nuv64::platform
