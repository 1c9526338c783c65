// Everything the module asks of an operating system; implemented in posix/ and windows/, all system
// calls and nothing else. Paths arrive as UTF-16 with backslashes and are turned into native ones
// here; paths that leave have backslashes. Nothing here throws unless it returns a string.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nuv64::platform {

inline constexpr std::int64_t kBadHandle = -1;

// The thread's last-error slot: the system's code of the last failed call, 0 after a success.
std::uint32_t lastError() noexcept;
void setLastError(std::uint32_t code) noexcept;

// UTF-8 <-> UTF-16; an ill-formed sequence becomes U+FFFD.
std::string utf8FromWide(std::u16string_view text);
std::u16string wideFromUtf8(std::string_view text);

}  // namespace nuv64::platform
