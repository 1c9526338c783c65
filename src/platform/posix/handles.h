// Handles of what POSIX has no handles for: processes and threads. They lie above all file
// descriptors, and a number is never used again, so that a stale handle is found out.
#pragma once

#include <sys/time.h>
#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "platform/process.h"

namespace nuv64::platform {

inline constexpr std::int64_t kThisProcess = -1;
inline constexpr std::int64_t kThisThread = -2;

// Something that the kernel schedules: a thread, or the first thread of a process.
class Task {
  public:
    Task() = default;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    virtual ~Task() = default;

    virtual pid_t id() const noexcept = 0;
    virtual bool isActive() = 0;
    // No value when they are no longer known.
    virtual std::optional<RunTimes> times() = 0;
    // The former suspend count.
    virtual std::uint32_t resume() { return 0; }
};

std::int64_t newHandle(std::shared_ptr<Task> task);
// Null, with the last-error slot set, for a handle that is none.
std::shared_ptr<Task> taskOf(std::int64_t handle) noexcept;
bool closeTaskHandle(std::int64_t handle) noexcept;
// A task that has a handle already; null when there is none of that id.
std::shared_ptr<Task> knownTask(pid_t id) noexcept;

// In 100 ns units.
inline std::uint64_t unitsOf(const struct timeval& time) noexcept {
    return static_cast<std::uint64_t>(time.tv_sec) * 10'000'000 +
           static_cast<std::uint64_t>(time.tv_usec) * 10;
}

// A handle that is closed again unless it is given away: made before the task is started, for
// nothing may fail after that.
class NewHandle {
  public:
    explicit NewHandle(std::shared_ptr<Task> task) : handle_(newHandle(std::move(task))) {}
    NewHandle(const NewHandle&) = delete;
    NewHandle& operator=(const NewHandle&) = delete;
    ~NewHandle() {
        if (handle_ != 0) closeTaskHandle(handle_);
    }
    std::int64_t release() noexcept { return std::exchange(handle_, 0); }

  private:
    std::int64_t handle_;
};

// What the kernel tells of a thread or a process; no value when it has ended.
struct TaskStatus {
    std::uint64_t startTicks = 0;  // of the system's clock; tells two tasks of one number apart
    RunTimes times;
};
std::optional<TaskStatus> threadStatus(pid_t thread) noexcept;  // of this process
std::optional<TaskStatus> processStatus(pid_t process) noexcept;

}  // namespace nuv64::platform
