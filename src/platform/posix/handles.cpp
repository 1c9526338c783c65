#include "platform/posix/handles.h"

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <mutex>
#include <string_view>
#include <utility>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

constexpr std::uint64_t kUnitsInSecond = 10'000'000;

// Handles start above every file descriptor.
constexpr std::int64_t kFirstHandle = std::int64_t{1} << 32;

struct HandleTable {
    std::mutex mutex;
    std::map<std::int64_t, std::shared_ptr<Task>> tasks;
    std::int64_t next = kFirstHandle;
};

// Never destroyed, for threads of the host may use handles until the process ends. A table without
// open handles holds no memory.
HandleTable& handleTable() noexcept {
    union Lasting {
        Lasting() noexcept : table() {}
        ~Lasting() {}
        HandleTable table;
    };
    static Lasting lasting;
    return lasting.table;
}

}  // namespace

std::int64_t newHandle(std::shared_ptr<Task> task) {
    HandleTable& table = handleTable();
    const std::lock_guard lock(table.mutex);
    table.tasks.emplace(table.next, std::move(task));
    return table.next++;
}

std::shared_ptr<Task> taskOf(std::int64_t handle) noexcept {
    HandleTable& table = handleTable();
    const std::lock_guard lock(table.mutex);
    const auto found = table.tasks.find(handle);
    if (found != table.tasks.end()) return found->second;
    noteError(EBADF);
    return nullptr;
}

std::shared_ptr<Task> knownTask(pid_t id) noexcept {
    HandleTable& table = handleTable();
    const std::lock_guard lock(table.mutex);
    for (const auto& [handle, task] : table.tasks)
        if (task->id() == id) return task;
    return nullptr;
}

bool closeTaskHandle(std::int64_t handle) noexcept {
    std::shared_ptr<Task> last;  // let go outside the lock
    HandleTable& table = handleTable();
    const std::lock_guard lock(table.mutex);
    const auto found = table.tasks.find(handle);
    if (found == table.tasks.end()) return noteError(EBADF);
    last = std::move(found->second);
    table.tasks.erase(found);
    return true;
}

namespace {

constexpr std::size_t kStatSize = 1024;  // more than the file has

// A path or a file of /proc in memory of its own: these calls also run where nothing may throw.
class ShortText {
  public:
    explicit ShortText(std::string_view text) noexcept { add(text); }
    ShortText& add(std::string_view text) noexcept {
        const std::size_t length = std::min(text.size(), kStatSize - 1 - size_);
        std::copy_n(text.data(), length, text_.data() + size_);
        size_ += length;
        return *this;
    }
    ShortText& add(pid_t number) noexcept {
        const auto end =
            std::to_chars(text_.data() + size_, text_.data() + kStatSize - 1, number).ptr;
        size_ = static_cast<std::size_t>(end - text_.data());
        return *this;
    }
    const char* path() const noexcept { return text_.data(); }

  private:
    std::array<char, kStatSize> text_{};
    std::size_t size_ = 0;
};

std::uint64_t unitsFromTicks(std::uint64_t ticks) noexcept {
    return ticks * (kUnitsInSecond / static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK)));
}

// The moment the system was started, as a file time.
std::uint64_t startOfSystem() noexcept {
    struct timespec up {};
    ::clock_gettime(CLOCK_BOOTTIME, &up);
    return fileTimeNow() - (static_cast<std::uint64_t>(up.tv_sec) * kUnitsInSecond +
                            static_cast<std::uint64_t>(up.tv_nsec) / 100);
}

// The fields of a stat file (proc(5)) by their numbers there. The second, a name in parentheses,
// may hold anything.
std::optional<TaskStatus> statusIn(std::string_view stat) noexcept {
    constexpr std::size_t kState = 3, kUserTicks = 14, kKernelTicks = 15, kStartTicks = 22;
    std::size_t at = stat.rfind(')');
    if (at == stat.npos) return std::nullopt;
    std::array<std::uint64_t, kStartTicks + 1> fields{};
    for (std::size_t field = kState; field <= kStartTicks; ++field) {
        at = stat.find_first_not_of(") ", at);
        if (at == stat.npos) return std::nullopt;
        if (field == kState && (stat[at] == 'X' || stat[at] == 'Z')) return std::nullopt;
        std::from_chars(stat.data() + at, stat.data() + stat.size(), fields[field]);
        at = stat.find(' ', at);
    }
    TaskStatus status;
    status.startTicks = fields[kStartTicks];
    status.times.created = startOfSystem() + unitsFromTicks(fields[kStartTicks]);
    status.times.kernel = unitsFromTicks(fields[kKernelTicks]);
    status.times.user = unitsFromTicks(fields[kUserTicks]);
    return status;
}

std::optional<TaskStatus> statusFrom(const char* path) noexcept {
    const Descriptor file(retried([&] { return ::open(path, O_RDONLY | O_CLOEXEC); }));
    std::array<char, kStatSize> text;
    const std::int64_t length =
        file.get() < 0 ? -1 : readFile(file.get(), text.data(), text.size());
    if (length > 0)
        if (const auto status = statusIn({text.data(), static_cast<std::size_t>(length)}))
            return status;
    noteError(ESRCH);
    return std::nullopt;
}

}  // namespace

std::optional<TaskStatus> threadStatus(pid_t thread) noexcept {
    return statusFrom(ShortText("/proc/self/task/").add(thread).add("/stat").path());
}

std::optional<TaskStatus> processStatus(pid_t process) noexcept {
    return statusFrom(ShortText("/proc/").add(process).add("/stat").path());
}

}  // namespace nuv64::platform
