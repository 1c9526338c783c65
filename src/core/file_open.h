// Opening by the mode word that FileOpen and cKoFile share.
#pragma once

#include <cstdint>

namespace nuv64 {

// Bits of the mode word; the full table stands in the public header of the raw file functions.
inline constexpr std::uint32_t kOpenWrite = 0x1;
inline constexpr std::uint32_t kOpenExisting = 0x2;
inline constexpr std::uint32_t kOpenNew = 0x4;
inline constexpr std::uint32_t kOpenAtEnd = 0x8;
inline constexpr std::uint32_t kOpenTruncate = 0x10;
inline constexpr std::uint32_t kOpenReport = 0x10000000;

// The handle, or -1 with the last-error slot set. Throws std::bad_alloc.
std::int64_t openFileByMode(const char16_t* path, std::uint32_t mode);

// The same; with kOpenReport in mode a failure shows a message, cannotCreate when the file isn't
// there already.
std::int64_t openFileReporting(const char16_t* path, std::uint32_t mode,
                               const char16_t* cannotCreate);

}  // namespace nuv64
