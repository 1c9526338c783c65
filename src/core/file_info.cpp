#include "nuv64/core/file_info.h"

#include <cstddef>
#include <cstdlib>

#include "core/file_calls.h"
#include "core/file_info.h"
#include "core/system_text.h"

using namespace nuv64;

static_assert(offsetof(FileInfo, mask) == 0 && offsetof(FileInfo, attributes) == 4);
static_assert(offsetof(FileInfo, size) == 8 && offsetof(FileInfo, compressedSize) == 16);
static_assert(offsetof(FileInfo, createdTime) == 24 && offsetof(FileInfo, accessedTime) == 32);
static_assert(offsetof(FileInfo, writtenTime) == 40 && offsetof(FileInfo, executableType) == 48);
static_assert(offsetof(FileInfo, fileVersion) == 56 && offsetof(FileInfo, productVersion) == 64);
static_assert(offsetof(FileInfo, versionFlags) == 72 && offsetof(FileInfo, targetSystem) == 76);
static_assert(offsetof(FileInfo, fileType) == 80 && offsetof(FileInfo, fileDate) == 88);
static_assert(offsetof(FileInfo, text0) == 96 && offsetof(FileInfo, text3) == 120);
static_assert(sizeof(FileInfo) == 128);

namespace {

// Bits of mask.
constexpr std::uint32_t kRecord = 43;  // attributes, size, times
constexpr std::uint32_t kExecutableType = 1u << 2;
constexpr std::uint32_t kCompressedSize = 1u << 4;
constexpr std::uint32_t kVersion = 0x3Fu << 7;  // file and product version, flags, system, type,
                                                // date: they come together
constexpr std::uint32_t kLanguages = 1u << 13;
constexpr std::uint32_t kShell = 1u << 16;

template <class Ch>
void* textField(std::u16string_view text) {
    return ownedTextOrNull<Ch>(text).release();
}

template <class Ch>
void storeShell(const platform::ShellInfo& shell, FileInfo& info) {
    info.text0 = textField<Ch>(shell.displayName);
    info.text1 = textField<Ch>(shell.typeName);
    info.mask |= kShell;
}

template <class Ch>
void storeVersion(const platform::VersionInfo& version, FileInfo& info) {
    info.fileVersion = version.fileVersion;
    info.productVersion = version.productVersion;
    info.versionFlags = version.flags;
    info.targetSystem = version.targetSystem;
    info.fileType = version.fileType;
    info.fileDate = version.fileDate;
    info.mask |= kVersion;
    if (version.languages.empty()) return;
    info.text2 = textField<Ch>(version.languages);
    info.text3 = textField<Ch>(version.description);
    info.mask |= kLanguages;
}

template <class Ch>
bool fill(const char16_t* path, FileInfo& info) {
    platform::FileRecord record;
    if (!platform::fileRecord(path, record)) return false;
    storeFileRecord(record, info);
    if (const auto size = platform::compressedSize(path)) {
        info.compressedSize = *size;
        info.mask |= kCompressedSize;
    }
    if (const auto type = platform::executableType(path)) {
        info.executableType = *type;
        info.mask |= kExecutableType;
    }
    if (const auto shell = platform::shellInfo(path)) storeShell<Ch>(*shell, info);
    if (const auto version = platform::versionInfo(path)) storeVersion<Ch>(*version, info);
    platform::setLastError(0);  // what a file doesn't have is no failure
    return true;
}

template <class Ch>
bool fullInfo(const Ch* path, FileInfo* info) noexcept {
    EraseFileInfo(info);
    if (!info) {
        platform::setLastError(platform::kErrorInvalidArgument);
        return false;
    }
    const bool filled = fileCall(false, [&] { return fill<Ch>(SystemText(path).get(), *info); });
    if (!filled) EraseFileInfo(info);
    return filled;
}

}  // namespace

void nuv64::storeFileRecord(const platform::FileRecord& record, FileInfo& info) noexcept {
    info.mask |= kRecord;
    info.attributes = record.attributes;
    info.size = record.size;
    info.createdTime = record.createdTime;
    info.accessedTime = record.accessedTime;
    info.writtenTime = record.writtenTime;
}

void InitializeFileInfo(FileInfo* info) noexcept {
    if (!info) return;
    *info = FileInfo{};
    info->attributes = platform::kNoAttributes;
}

void InitializeFileInfoA(FileInfo* info) noexcept {
    InitializeFileInfo(info);
}

void EraseFileInfo(FileInfo* info) noexcept {
    if (!info) return;
    for (void* text : {info->text0, info->text1, info->text2, info->text3}) std::free(text);
    InitializeFileInfo(info);
}

void EraseFileInfoA(FileInfo* info) noexcept {
    EraseFileInfo(info);
}

bool FileGetFullInfo(const char16_t* path, FileInfo* info) noexcept {
    return fullInfo(path, info);
}

bool FileGetFullInfoA(const char* path, FileInfo* info) noexcept {
    return fullInfo(path, info);
}
