// The attribute word that stands for what POSIX knows of a file.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace nuv64::platform {

std::uint32_t attributesOf(const std::string& native, const struct stat& status) noexcept;

}  // namespace nuv64::platform
