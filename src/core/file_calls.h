// What the raw file functions share: each of them clears the last-error slot first, and none lets a
// lack of memory out.
#pragma once

#include <cstdint>
#include <utility>

#include "nuv64/core/file.h"
#include "platform/platform.h"

namespace nuv64 {

// Notes the failure of a call that got no open file.
inline bool isOpenFile(std::int64_t handle) noexcept {
    platform::setLastError(platform::isHandle(handle) ? 0 : platform::kErrorInvalidHandle);
    return platform::isHandle(handle);
}

// Runs a call that makes or converts texts; a lack of memory becomes the failure value and the
// error code.
template <class Result, class Body>
Result fileCall(Result failure, Body&& body) noexcept {
    platform::setLastError(0);
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        platform::setLastError(platform::kErrorOutOfMemory);
        return failure;
    }
}

inline bool writeFileText(std::int64_t handle, const char16_t* text) noexcept {
    return FileWrite(handle, text);
}
inline bool writeFileText(std::int64_t handle, const char* text) noexcept {
    return FileWriteA(handle, text);
}

}  // namespace nuv64
