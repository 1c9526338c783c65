// What the POSIX files share: the last-error slot and the turning of paths.
#pragma once

#include <cerrno>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace nuv64::platform {

// Notes errno in the last-error slot; false, so that a failing call can return it.
inline bool noteError() noexcept {
    setLastError(static_cast<std::uint32_t>(errno));
    return false;
}

inline bool noteError(int code) noexcept {
    setLastError(static_cast<std::uint32_t>(code));
    return false;
}

std::string nativePath(std::u16string_view path);
std::u16string textPath(std::string_view native);

// Repeats a call that a signal interrupted.
template <class Call>
auto retried(Call call) noexcept {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

// A file descriptor of our own, closed on every way out.
class Descriptor {
  public:
    explicit Descriptor(int fd) noexcept : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();
    int get() const noexcept { return fd_; }
    int release() noexcept {
        const int fd = fd_;
        fd_ = -1;
        return fd;
    }

  private:
    int fd_;
};

}  // namespace nuv64::platform
