// Files with holes, so that a test of large offsets fills no disk.
#pragma once

#include <cstdint>

#ifdef _WIN32
#include <windows.h>
#include <winioctl.h>
#endif

// Lets the file have holes. Elsewhere than on Windows every file may.
inline void allowHoles([[maybe_unused]] std::int64_t handle) {
#ifdef _WIN32
    DWORD ignored = 0;
    DeviceIoControl(reinterpret_cast<HANDLE>(handle), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0,
                    &ignored, nullptr);
#endif
}
