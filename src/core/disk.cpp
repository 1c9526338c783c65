#include "nuv64/core/disk.h"

#include "core/guard.h"
#include "core/system_text.h"
#include "platform/platform.h"

namespace nuv64 {

namespace {

template <class Ch>
bool createFolder(const Ch* path) noexcept {
    return guardValue(false, [&] {
        platform::setLastError(0);
        return platform::createFolder(SystemText(path).get());
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint32_t OsDiskDrives() noexcept {
    return platform::diskDrives();
}

bool OsCreateFolder(const char16_t* path) noexcept {
    return createFolder(path);
}

bool OsCreateFolderA(const char* path) noexcept {
    return createFolder(path);
}

bool OsFlushFileOrPortBuffers(int64_t handle) noexcept {
    platform::setLastError(0);
    if (platform::isHandle(handle)) return platform::flushFile(handle);
    platform::setLastError(platform::kErrorInvalidHandle);
    return false;
}
