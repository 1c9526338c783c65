#include "platform/file_records.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/posix/file_status.h"
#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

constexpr std::int64_t kSecondsTo1970 = 11644473600;  // from the start of 1601
constexpr std::uint64_t kBlockBytes = 512;            // unit of st_blocks

struct Search {
    std::string folder;  // native, with a closing "/"
    std::vector<std::string> names;
    std::size_t next = 0;
};

std::uint64_t ticks(std::int64_t seconds, std::int64_t nanoseconds) noexcept {
    return static_cast<std::uint64_t>((seconds + kSecondsTo1970) * 10000000 + nanoseconds / 100);
}

std::uint64_t ticks(const struct timespec& time) noexcept {
    return ticks(time.tv_sec, time.tv_nsec);
}

// Where the file system doesn't know the time of birth, the oldest of the others.
std::uint64_t createdTime(const std::string& native, const struct stat& status) noexcept {
#ifdef STATX_BTIME
    struct statx extended;
    if (::statx(AT_FDCWD, native.c_str(), AT_STATX_SYNC_AS_STAT, STATX_BTIME, &extended) == 0 &&
        (extended.stx_mask & STATX_BTIME))
        return ticks(extended.stx_btime.tv_sec, extended.stx_btime.tv_nsec);
#else
    static_cast<void>(native);
#endif
    return std::min(ticks(status.st_mtim), ticks(status.st_ctim));
}

bool recordOf(const std::string& native, FileRecord& record) {
    struct stat status;
    if (::stat(native.c_str(), &status) != 0) return noteError();
    record.attributes = attributesOf(native, status);
    record.size = S_ISDIR(status.st_mode) ? 0 : static_cast<std::uint64_t>(status.st_size);
    record.createdTime = createdTime(native, status);
    record.accessedTime = ticks(status.st_atim);
    record.writtenTime = ticks(status.st_mtim);
    return true;
}

char folded(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// One character of UTF-8.
const char* nextCharacter(const char* text) noexcept {
    do ++text;
    while ((*text & 0xC0) == 0x80);
    return text;
}

// "*" is any run of characters, "?" any one, at the end of a name or in front of a dot also none.
// The case of ASCII letters doesn't count.
bool matches(const char* name, const char* pattern) noexcept {
    const char* retryPattern = nullptr;
    const char* retryName = nullptr;
    for (;;) {
        if (*pattern == '*') {
            retryPattern = ++pattern;
            retryName = name;
        } else if (*pattern == '?') {
            ++pattern;
            if (*name != 0 && *name != '.') name = nextCharacter(name);
        } else if (*name != 0 && folded(*name) == folded(*pattern)) {
            ++pattern;
            ++name;
        } else if (*name == 0 && *pattern == 0) {
            return true;
        } else if (retryPattern && *retryName != 0) {
            pattern = retryPattern;
            name = retryName = nextCharacter(retryName);
        } else {
            return false;
        }
    }
}

std::vector<std::string> namesIn(const std::string& folder, const std::string& pattern) {
    std::vector<std::string> names;
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> directory(::opendir(folder.c_str()), close);
    if (!directory) return noteError(), names;
    // "*.*" has always meant every name, also one without a dot.
    const char* const wanted = pattern == "*.*" ? "*" : pattern.c_str();
    while (const dirent* entry = ::readdir(directory.get()))
        if (matches(entry->d_name, wanted)) names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const auto less = [](char x, char y) { return folded(x) < folded(y); };
        const bool before =
            std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less);
        return before ||
               (!std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), less) &&
                a < b);
    });
    if (names.empty()) noteError(ENOENT);
    return names;
}

Search* asSearch(std::int64_t handle) noexcept {
    return reinterpret_cast<Search*>(static_cast<std::intptr_t>(handle));
}

bool advance(Search& search, FileRecord& record) {
    while (search.next < search.names.size()) {
        const std::string& name = search.names[search.next++];
        // A name may have gone meanwhile, or be a link to nothing.
        if (!recordOf(search.folder + name, record)) continue;
        record.name = wideFromUtf8(name);
        return true;
    }
    return noteError(ENOENT);
}

}  // namespace

bool fileRecord(const char16_t* path, FileRecord& record) {
    if (!path || !*path) return noteError(ENOENT);
    return recordOf(nativePath(path), record);
}

std::int64_t startSearch(const char16_t* pattern, FileRecord& first) {
    if (!pattern || !*pattern) return noteError(ENOENT), kBadHandle;
    const std::string native = nativePath(pattern);
    const std::size_t name = native.rfind('/') + 1;  // npos + 1 is 0
    auto search = std::make_unique<Search>();
    search->folder = name == 0 ? "./" : native.substr(0, name);
    search->names = namesIn(search->folder, native.substr(name));
    if (search->names.empty() || !advance(*search, first)) return kBadHandle;
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(search.release()));
}

bool continueSearch(std::int64_t search, FileRecord& next) {
    return advance(*asSearch(search), next);
}

bool endSearch(std::int64_t search) noexcept {
    const std::unique_ptr<Search> ended(asSearch(search));
    return true;
}

std::optional<std::uint64_t> compressedSize(const char16_t* path) {
    struct stat status;
    if (!path || ::stat(nativePath(path).c_str(), &status) != 0 || S_ISDIR(status.st_mode))
        return std::nullopt;
    return std::min(static_cast<std::uint64_t>(status.st_size),
                    static_cast<std::uint64_t>(status.st_blocks) * kBlockBytes);
}

std::optional<std::uint32_t> executableType(const char16_t*) {
    return std::nullopt;
}

std::optional<ShellInfo> shellInfo(const char16_t*) {
    return std::nullopt;
}

std::optional<VersionInfo> versionInfo(const char16_t*) {
    return std::nullopt;
}

}  // namespace nuv64::platform
