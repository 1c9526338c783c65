#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

// One call moves at most this much: the kernel's own limit lies just below 2 GiB.
constexpr std::uint64_t kLargestTransfer = std::uint64_t{1} << 30;

int openFlags(const OpenRequest& request) noexcept {
    const int flags = O_CLOEXEC | O_NOCTTY | (request.write ? O_RDWR : O_RDONLY);
    switch (request.disposition) {
        case Disposition::kOpenOrCreate:
            return flags | O_CREAT;
        case Disposition::kOpenExisting:
            return flags;
        case Disposition::kCreateNew:
            return flags | O_CREAT | O_EXCL;
        case Disposition::kTruncateExisting:
            return flags | O_TRUNC;
        case Disposition::kReplace:
            return flags | O_CREAT | O_TRUNC;
    }
    return flags;
}

// Moves a descriptor out of the range of the standard streams: a program that closed its standard
// input would otherwise get a file with handle 0, which means "not open".
int aboveStandardStreams(int fd) noexcept {
    if (fd > 2 || fd < 0) return fd;
    const int moved = ::fcntl(fd, F_DUPFD_CLOEXEC, 3);
    const int code = errno;
    ::close(fd);
    errno = code;
    return moved;
}

// The handles of threads and processes lie above all descriptors; cut to an int they would be those
// of other files.
int descriptorOf(std::int64_t handle) noexcept {
    return handle >= 0 && handle <= std::numeric_limits<int>::max() ? static_cast<int>(handle) : -1;
}

bool isDirectory(int fd) noexcept {
    struct stat status;
    return ::fstat(fd, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

Descriptor::~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
}

std::int64_t openFile(const char16_t* path, const OpenRequest& request) {
    if (!path || !*path) return noteError(ENOENT), kBadHandle;
    const std::string native = nativePath(path);
    const mode_t mode = (request.attributes & kAttributeReadOnly) ? 0444 : 0666;
    const int flags = openFlags(request);
    Descriptor file(
        aboveStandardStreams(retried([&] { return ::open(native.c_str(), flags, mode); })));
    if (file.get() < 0) return noteError(), kBadHandle;
    if (isDirectory(file.get())) return noteError(EISDIR), kBadHandle;
    return file.release();
}

bool closeFile(std::int64_t handle) noexcept {
    // Never repeated: after EINTR the descriptor is gone and its number may be in use again.
    return ::close(descriptorOf(handle)) == 0 || errno == EINTR || noteError();
}

bool flushFile(std::int64_t handle) noexcept {
    if (retried([&] { return ::fsync(descriptorOf(handle)); }) == 0) return true;
    // Devices and pipes hold nothing back that could be flushed.
    return errno == EINVAL || errno == EROFS || errno == ENOTSUP || noteError();
}

std::int64_t readFile(std::int64_t handle, void* buffer, std::uint64_t bytes) noexcept {
    std::uint64_t done = 0;
    while (done < bytes) {
        const std::uint64_t wanted = std::min(bytes - done, kLargestTransfer);
        const ssize_t got = retried([&] {
            return ::read(descriptorOf(handle), static_cast<char*>(buffer) + done, wanted);
        });
        if (got < 0) return noteError(), -1;
        if (got == 0) break;
        done += static_cast<std::uint64_t>(got);
    }
    return static_cast<std::int64_t>(done);
}

bool writeFile(std::int64_t handle, const void* data, std::uint64_t bytes) noexcept {
    std::uint64_t done = 0;
    while (done < bytes) {
        const std::uint64_t wanted = std::min(bytes - done, kLargestTransfer);
        const ssize_t put = retried([&] {
            return ::write(descriptorOf(handle), static_cast<const char*>(data) + done, wanted);
        });
        if (put < 0) return noteError();
        if (put == 0) return noteError(ENOSPC);
        done += static_cast<std::uint64_t>(put);
    }
    return true;
}

bool seekFile(std::int64_t handle, std::int64_t distance, Origin origin,
              std::int64_t* result) noexcept {
    const int whence = origin == Origin::kStart ? SEEK_SET
                       : origin == Origin::kEnd ? SEEK_END
                                                : SEEK_CUR;
    const off_t offset = ::lseek(descriptorOf(handle), distance, whence);
    if (offset < 0) return noteError();
    if (result) *result = offset;
    return true;
}

bool fileSize(std::int64_t handle, std::int64_t* size) noexcept {
    struct stat status;
    if (::fstat(descriptorOf(handle), &status) != 0) return noteError();
    *size = status.st_size;
    return true;
}

bool truncateFile(std::int64_t handle) noexcept {
    std::int64_t offset = 0;
    if (!seekFile(handle, 0, Origin::kCurrent, &offset)) return false;
    return retried([&] { return ::ftruncate(descriptorOf(handle), offset); }) == 0 || noteError();
}

}  // namespace nuv64::platform
