// A failure on its way to main: a status of the module and what it was about.
#pragma once

#include <cstdint>
#include <string>

namespace koapp {

// Status words that the program gives by itself.
inline constexpr std::uint32_t kMissingInput = 14;
inline constexpr std::uint32_t kDiskFull = 53;
inline constexpr std::uint32_t kMissingFile = 56;
inline constexpr std::uint32_t kFileNotAccessible = 58;
inline constexpr std::uint32_t kIllegalFileName = 59;
inline constexpr std::uint32_t kMissingScript = 67;
inline constexpr std::uint32_t kAllocationFailure = 0x80001;

struct Failure {
    std::uint32_t status;
    std::string subject;  // a file or a step of the work, for the message
};

}  // namespace koapp
