#include <algorithm>

#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

// One call moves at most this much; counts are 32 bits wide.
constexpr std::uint64_t kLargestTransfer = std::uint64_t{1} << 30;

DWORD creation(Disposition disposition) noexcept {
    switch (disposition) {
        case Disposition::kOpenOrCreate:
            return OPEN_ALWAYS;
        case Disposition::kOpenExisting:
            return OPEN_EXISTING;
        case Disposition::kCreateNew:
            return CREATE_NEW;
        case Disposition::kTruncateExisting:
            return TRUNCATE_EXISTING;
        case Disposition::kReplace:
            return CREATE_ALWAYS;
    }
    return OPEN_EXISTING;
}

}  // namespace

std::int64_t openFile(const char16_t* path, const OpenRequest& request) {
    const DWORD access = GENERIC_READ | (request.write ? GENERIC_WRITE : 0);
    const DWORD share =
        (request.shareRead ? FILE_SHARE_READ : 0u) | (request.shareWrite ? FILE_SHARE_WRITE : 0u);
    const HANDLE file = ::CreateFileW(wide(path ? path : u""), access, share, nullptr,
                                      creation(request.disposition), request.attributes, nullptr);
    if (file == INVALID_HANDLE_VALUE) return kBadHandle;
    ::SetLastError(0);  // "already exists" is told even after a success
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(file));
}

bool closeFile(std::int64_t handle) noexcept {
    return ::CloseHandle(asHandle(handle)) != 0;
}

bool flushFile(std::int64_t handle) noexcept {
    return ::FlushFileBuffers(asHandle(handle)) != 0;
}

std::int64_t readFile(std::int64_t handle, void* buffer, std::uint64_t bytes) noexcept {
    std::uint64_t done = 0;
    while (done < bytes) {
        const auto wanted = static_cast<DWORD>(std::min(bytes - done, kLargestTransfer));
        DWORD got = 0;
        if (!::ReadFile(asHandle(handle), static_cast<char*>(buffer) + done, wanted, &got,
                        nullptr)) {
            if (::GetLastError() != ERROR_BROKEN_PIPE) return -1;  // the end of a pipe
            ::SetLastError(0);
            break;
        }
        if (got == 0) break;
        done += got;
    }
    return static_cast<std::int64_t>(done);
}

bool writeFile(std::int64_t handle, const void* data, std::uint64_t bytes) noexcept {
    std::uint64_t done = 0;
    while (done < bytes) {
        const auto wanted = static_cast<DWORD>(std::min(bytes - done, kLargestTransfer));
        DWORD put = 0;
        if (!::WriteFile(asHandle(handle), static_cast<const char*>(data) + done, wanted, &put,
                         nullptr))
            return false;
        if (put == 0) {
            ::SetLastError(ERROR_DISK_FULL);
            return false;
        }
        done += put;
    }
    return true;
}

bool seekFile(std::int64_t handle, std::int64_t distance, Origin origin,
              std::int64_t* result) noexcept {
    LARGE_INTEGER move;
    LARGE_INTEGER place;
    move.QuadPart = distance;
    if (!::SetFilePointerEx(asHandle(handle), move, &place, static_cast<DWORD>(origin)))
        return false;
    if (result) *result = place.QuadPart;
    return true;
}

bool fileSize(std::int64_t handle, std::int64_t* size) noexcept {
    LARGE_INTEGER value;
    if (!::GetFileSizeEx(asHandle(handle), &value)) return false;
    *size = value.QuadPart;
    return true;
}

bool truncateFile(std::int64_t handle) noexcept {
    return ::SetEndOfFile(asHandle(handle)) != 0;
}

}  // namespace nuv64::platform
