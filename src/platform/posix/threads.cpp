#include <pthread.h>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <condition_variable>
#include <cstdlib>
#include <limits>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/posix/handles.h"
#include "platform/posix/native.h"
#include "platform/process.h"

namespace nuv64::platform {

namespace {

bool stillRuns(pid_t id, std::uint64_t startTicks) noexcept {
    const auto status = threadStatus(id);
    return status && status->startTicks == startTicks;
}

// A thread that the module started. The thread and each handle keep the record alive.
class StartedThread final : public Task {
  public:
    StartedThread(ThreadFunction function, void* context, bool suspended) noexcept
        : function_(function), context_(context), suspendCount_(suspended ? 1 : 0) {}

    pid_t id() const noexcept override {
        const std::lock_guard lock(mutex_);
        return id_;
    }

    // True until the kernel has let it go, so that nothing of it runs any more when a host that
    // saw false unloads the module.
    bool isActive() override {
        const std::unique_lock lock(mutex_);
        return !ended_ || stillRuns(id_, startTicks_);
    }

    std::optional<RunTimes> times() override {
        const std::lock_guard lock(mutex_);
        if (!ended_) {
            if (const auto status = threadStatus(id_)) {
                times_.kernel = status->times.kernel;
                times_.user = status->times.user;
            }
        }
        return times_;
    }

    std::uint32_t resume() override {
        const std::lock_guard lock(mutex_);
        const std::uint32_t former = suspendCount_;
        suspendCount_ = 0;
        changed_.notify_all();
        return former;
    }

    void waitUntilStarted() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return id_ != 0; });
    }

    void run() {
        const AtEnd atEnd(*this);  // also when the function ends the thread itself
        begin();
        function_(context_);
    }

  private:
    class AtEnd {
      public:
        explicit AtEnd(StartedThread& thread) noexcept : thread_(thread) {}
        AtEnd(const AtEnd&) = delete;
        AtEnd& operator=(const AtEnd&) = delete;
        ~AtEnd() { thread_.end(); }

      private:
        StartedThread& thread_;
    };

    void begin() {
        const pid_t id = ::gettid();
        const auto status = threadStatus(id);
        std::unique_lock lock(mutex_);
        id_ = id;
        startTicks_ = status ? status->startTicks : 0;
        times_.created = fileTimeNow();
        changed_.notify_all();
        changed_.wait(lock, [this] { return suspendCount_ == 0; });
    }

    void end() noexcept {
        struct rusage usage {};
        ::getrusage(RUSAGE_THREAD, &usage);
        const std::lock_guard lock(mutex_);
        times_.exited = fileTimeNow();
        times_.kernel = unitsOf(usage.ru_stime);
        times_.user = unitsOf(usage.ru_utime);
        ended_ = true;
    }

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    const ThreadFunction function_;
    void* const context_;
    std::uint32_t suspendCount_;
    pid_t id_ = 0;
    std::uint64_t startTicks_ = 0;
    bool ended_ = false;
    RunTimes times_;
};

// Any other thread of the process.
class HostThread final : public Task {
  public:
    HostThread(pid_t id, std::uint64_t startTicks) noexcept : id_(id), startTicks_(startTicks) {}
    pid_t id() const noexcept override { return id_; }
    bool isActive() override { return stillRuns(id_, startTicks_); }
    std::optional<RunTimes> times() override {
        const auto status = threadStatus(id_);
        if (!status || status->startTicks != startTicks_) return std::nullopt;
        return status->times;
    }

  private:
    const pid_t id_;
    const std::uint64_t startTicks_;
};

std::shared_ptr<Task> hostThread(pid_t id) {
    const auto status = threadStatus(id);
    if (!status) return nullptr;
    return std::make_shared<HostThread>(id, status->startTicks);
}

std::shared_ptr<Task> threadOf(std::int64_t handle) {
    return handle == kThisThread ? hostThread(::gettid()) : taskOf(handle);
}

// For calls by the thread's number: an ended thread's number may be another's.
std::shared_ptr<Task> activeThreadOf(std::int64_t handle) {
    auto thread = threadOf(handle);
    if (thread && !thread->isActive()) {
        noteError(ESRCH);
        thread = nullptr;
    }
    return thread;
}

extern "C" void* nuv64RunThread(void* argument) {
    const std::unique_ptr<std::shared_ptr<StartedThread>> thread(
        static_cast<std::shared_ptr<StartedThread>*>(argument));
    (*thread)->run();
    return nullptr;
}

// Detached: what a thread leaves is the system's to clear away.
bool startDetached(const std::shared_ptr<StartedThread>& thread) {
    auto argument = std::make_unique<std::shared_ptr<StartedThread>>(thread);
    pthread_attr_t attributes;
    if (const int code = ::pthread_attr_init(&attributes)) return noteError(code);
    ::pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_t unused;
    const int code = ::pthread_create(&unused, &attributes, &nuv64RunThread, argument.get());
    ::pthread_attr_destroy(&attributes);
    if (code != 0) return noteError(code);
    static_cast<void>(argument.release());  // the thread's now
    return true;
}

// Levels by the kernel's nice values, which Linux keeps for each thread.
struct PriorityLevel {
    std::int32_t level;
    int nice;
};
constexpr std::array kPriorityLevels = {
    PriorityLevel{-15, 19}, PriorityLevel{-2, 10}, PriorityLevel{-1, 5},   PriorityLevel{0, 0},
    PriorityLevel{1, -5},   PriorityLevel{2, -10}, PriorityLevel{15, -20},
};

std::int32_t nearestLevel(int nice) noexcept {
    const PriorityLevel* nearest = &kPriorityLevels[0];
    for (const PriorityLevel& row : kPriorityLevels)
        if (std::abs(row.nice - nice) < std::abs(nearest->nice - nice)) nearest = &row;
    return nearest->level;
}

constexpr int kMaskBits = 64;

std::uint64_t maskOf(const cpu_set_t& set) noexcept {
    std::uint64_t mask = 0;
    for (int i = 0; i < kMaskBits; ++i)
        if (CPU_ISSET(static_cast<unsigned>(i), &set)) mask |= std::uint64_t{1} << i;
    return mask;
}

}  // namespace

std::int64_t createThread(ThreadFunction function, void* context, std::uint32_t flags,
                          std::uint32_t& id) {
    if (!function) return noteError(EINVAL), 0;
    const auto thread =
        std::make_shared<StartedThread>(function, context, (flags & kCreateSuspended) != 0);
    NewHandle handle(thread);
    if (!startDetached(thread)) return 0;
    thread->waitUntilStarted();
    id = static_cast<std::uint32_t>(thread->id());
    return handle.release();
}

std::int64_t openThread(std::uint32_t id, std::uint32_t) {
    const auto number = static_cast<pid_t>(id);
    if (number <= 0) return noteError(ESRCH), 0;
    auto thread = knownTask(number);
    if (!thread || !thread->isActive()) thread = hostThread(number);
    return thread ? newHandle(std::move(thread)) : 0;
}

bool threadIsActive(std::int64_t handle) {
    const auto thread = threadOf(handle);
    return thread && thread->isActive();
}

std::uint32_t resumeThread(std::int64_t handle) {
    const auto thread = threadOf(handle);
    return thread ? thread->resume() : kNoSuspendCount;
}

std::int32_t threadPriority(std::int64_t handle) {
    const auto thread = activeThreadOf(handle);
    if (!thread) return kNoPriority;
    errno = 0;
    const int nice = ::getpriority(PRIO_PROCESS, static_cast<id_t>(thread->id()));
    if (nice == -1 && errno != 0) return noteError(), kNoPriority;
    return nearestLevel(nice);
}

bool setThreadPriority(std::int64_t handle, std::int32_t priority) {
    const auto thread = activeThreadOf(handle);
    if (!thread) return false;
    for (const PriorityLevel& row : kPriorityLevels)
        if (row.level == priority)
            return ::setpriority(PRIO_PROCESS, static_cast<id_t>(thread->id()), row.nice) == 0 ||
                   noteError();
    return noteError(EINVAL);
}

std::uint64_t setThreadAffinity(std::int64_t handle, std::uint64_t mask) {
    const auto thread = activeThreadOf(handle);
    if (!thread) return 0;
    cpu_set_t former;
    cpu_set_t wanted;
    CPU_ZERO(&former);
    CPU_ZERO(&wanted);
    for (int i = 0; i < kMaskBits; ++i)
        if (mask >> i & 1) CPU_SET(static_cast<unsigned>(i), &wanted);
    if (::sched_getaffinity(thread->id(), sizeof former, &former) != 0 ||
        ::sched_setaffinity(thread->id(), sizeof wanted, &wanted) != 0)
        return noteError(), 0;
    return maskOf(former);
}

bool threadTimes(std::int64_t handle, RunTimes& times) {
    const auto thread = threadOf(handle);
    const auto known = thread ? thread->times() : std::nullopt;
    if (known) times = *known;
    return known.has_value();
}

std::int64_t currentThread() noexcept {
    return kThisThread;
}

std::uint32_t currentThreadId() noexcept {
    return static_cast<std::uint32_t>(::gettid());
}

bool closeHandle(std::int64_t handle) {
    if (handle == kThisThread || handle == kThisProcess) return true;
    const bool isDescriptor = handle > 0 && handle <= std::numeric_limits<int>::max();
    return isDescriptor ? closeFile(handle) : closeTaskHandle(handle);
}

}  // namespace nuv64::platform
