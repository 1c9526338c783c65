// The status words that the evaluation procedures answer with; core/status.cpp holds their texts.
#pragma once

#include <cstdint>

namespace nuv64::status {

inline constexpr std::uint32_t kInterfaceError = 8;
inline constexpr std::uint32_t kNotYetImplemented = 9;
inline constexpr std::uint32_t kIllegalMode = 11;
inline constexpr std::uint32_t kMissingInput = 14;
inline constexpr std::uint32_t kIllegalData = 15;
inline constexpr std::uint32_t kIllegalInput = 24;
inline constexpr std::uint32_t kIllegalParameters = 25;
inline constexpr std::uint32_t kFileSystemError = 48;
inline constexpr std::uint32_t kIllegalFileName = 59;
inline constexpr std::uint32_t kUndefinedFile = 63;
inline constexpr std::uint32_t kMissingScript = 67;
inline constexpr std::uint32_t kUnknownProcedure = 69;
inline constexpr std::uint32_t kIllegalWindow = 70;
inline constexpr std::uint32_t kWindowTooSmall = 71;
inline constexpr std::uint32_t kTooManyCalls = 73;

}  // namespace nuv64::status
