#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

#include "platform/posix/file_status.h"
#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

constexpr std::size_t kCopyBlock = std::size_t{1} << 20;

bool isHiddenName(const std::string& native) noexcept {
    const std::size_t name = native.rfind('/') + 1;  // npos + 1 is 0
    return native.size() > name + 1 && native[name] == '.' && native.compare(name, 3, "..") != 0;
}

bool sameFile(const struct stat& a, const struct stat& b) noexcept {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool copyContent(int source, int target) {
    std::vector<char> block(kCopyBlock);
    for (;;) {
        const std::int64_t got = readFile(source, block.data(), block.size());
        if (got < 0) return false;
        if (got == 0) return true;
        if (!writeFile(target, block.data(), static_cast<std::uint64_t>(got))) return false;
    }
}

}  // namespace

std::uint32_t attributesOf(const std::string& native, const struct stat& status) noexcept {
    std::uint32_t attributes = 0;
    if (S_ISDIR(status.st_mode)) attributes |= kAttributeDirectory;
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) attributes |= kAttributeReadOnly;
    if (isHiddenName(native)) attributes |= kAttributeHidden;
    return attributes ? attributes : kAttributeNormal;
}

std::uint32_t fileAttributes(const char16_t* path) {
    if (!path || !*path) return noteError(ENOENT), kNoAttributes;
    const std::string native = nativePath(path);
    struct stat status;
    if (::stat(native.c_str(), &status) != 0) return noteError(), kNoAttributes;
    return attributesOf(native, status);
}

bool copyFile(const char16_t* source, const char16_t* target, bool failIfExists) {
    if (!source || !*source || !target || !*target) return noteError(ENOENT);
    const std::string from = nativePath(source);
    const std::string to = nativePath(target);
    const Descriptor input(
        retried([&] { return ::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); }));
    struct stat status;
    if (input.get() < 0 || ::fstat(input.get(), &status) != 0) return noteError();
    if (S_ISDIR(status.st_mode)) return noteError(EISDIR);
    struct stat present;
    const bool wasPresent = ::stat(to.c_str(), &present) == 0;
    if (wasPresent && sameFile(status, present)) return noteError(EEXIST);
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | (failIfExists ? O_EXCL : O_TRUNC);
    Descriptor output(retried([&] { return ::open(to.c_str(), flags, status.st_mode & 0777); }));
    if (output.get() < 0) return noteError();
    const bool copied = copyContent(input.get(), output.get());
    const std::uint32_t code = lastError();
    if (copied && closeFile(output.release())) return true;
    if (!wasPresent) ::unlink(to.c_str());
    if (!copied) setLastError(code);
    return false;
}

bool deleteFile(const char16_t* path) {
    if (!path || !*path) return noteError(ENOENT);
    return ::unlink(nativePath(path).c_str()) == 0 || noteError();
}

}  // namespace nuv64::platform
