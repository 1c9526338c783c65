// What the system tells of named files, and its search through folders; implemented beside the
// other calls of platform.h, by the same rules.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/platform.h"

namespace nuv64::platform {

// Times in 100 ns since the start of 1601, UTC. Sizes of folders are 0.
struct FileRecord {
    std::u16string name;  // bare; filled by a search alone
    std::uint32_t attributes = kNoAttributes;
    std::uint64_t size = 0;
    std::uint64_t createdTime = 0;
    std::uint64_t accessedTime = 0;
    std::uint64_t writtenTime = 0;
};

bool fileRecord(const char16_t* path, FileRecord& record);

// The files and folders of one folder whose names match the last name of pattern, with "*" and "?".
// The handle of the search with the first of them, or kBadHandle; the folders "." and ".." match
// too. Only a handle that startSearch gave may be passed on.
std::int64_t startSearch(const char16_t* pattern, FileRecord& first);
bool continueSearch(std::int64_t search, FileRecord& next);
bool endSearch(std::int64_t search) noexcept;

// What the content takes up where the file system compresses it or leaves holes; otherwise the
// size.
std::optional<std::uint64_t> compressedSize(const char16_t* path);

// What only Windows knows; empty elsewhere, and for files that have none of it.
std::optional<std::uint32_t> executableType(const char16_t* path);

struct ShellInfo {
    std::u16string displayName;
    std::u16string typeName;
};
std::optional<ShellInfo> shellInfo(const char16_t* path);

struct VersionInfo {
    std::uint64_t fileVersion = 0;
    std::uint64_t productVersion = 0;
    std::uint32_t flags = 0;  // those that the file says are valid
    std::uint32_t targetSystem = 0;
    std::uint32_t fileType = 0;
    std::uint64_t fileDate = 0;
    std::u16string languages;    // language and code page in hexadecimal digits, separated by ","
    std::u16string description;  // in the first language
};
std::optional<VersionInfo> versionInfo(const char16_t* path);

}  // namespace nuv64::platform
