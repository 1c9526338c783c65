#include "platform/file_records.h"

// Behind windows.h, which native.h includes.
#include "platform/windows/native.h"
//
#include <shellapi.h>
#include <winver.h>

#include <vector>

namespace nuv64::platform {

namespace {

std::uint64_t joined(DWORD high, DWORD low) noexcept {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

std::uint64_t ticks(const FILETIME& time) noexcept {
    return joined(time.dwHighDateTime, time.dwLowDateTime);
}

// Both of the system's records have these fields.
template <class Data>
void store(const Data& data, FileRecord& record) {
    record.attributes = data.dwFileAttributes;
    record.size = data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY
                      ? 0
                      : joined(data.nFileSizeHigh, data.nFileSizeLow);
    record.createdTime = ticks(data.ftCreationTime);
    record.accessedTime = ticks(data.ftLastAccessTime);
    record.writtenTime = ticks(data.ftLastWriteTime);
}

void storeFound(const WIN32_FIND_DATAW& data, FileRecord& record) {
    store(data, record);
    record.name = fromWide(data.cFileName);
}

std::u16string hexadecimal(DWORD value) {
    std::u16string text(8, u'0');
    for (std::size_t i = text.size(); i-- > 0; value >>= 4)
        text[i] = u"0123456789ABCDEF"[value & 15];
    return text;
}

// A value of a version resource; null when it isn't there.
const void* versionValue(const std::vector<char>& block, const std::u16string& name, UINT* bytes) {
    void* value = nullptr;
    return ::VerQueryValueW(block.data(), wide(name.c_str()), &value, bytes) ? value : nullptr;
}

struct Translation {
    WORD language;
    WORD codePage;
};

void storeTexts(const std::vector<char>& block, VersionInfo& info) {
    UINT bytes = 0;
    const auto* list =
        static_cast<const Translation*>(versionValue(block, u"\\VarFileInfo\\Translation", &bytes));
    if (!list || bytes < sizeof(Translation)) return;
    for (std::size_t i = 0; i < bytes / sizeof(Translation); ++i) {
        if (i != 0) info.languages += u',';
        info.languages +=
            hexadecimal(static_cast<DWORD>(list[i].language) << 16 | list[i].codePage);
    }
    const auto* text = static_cast<const wchar_t*>(versionValue(
        block, u"\\StringFileInfo\\" + info.languages.substr(0, 8) + u"\\FileDescription", &bytes));
    if (text && bytes != 0) info.description = fromWide(text);
}

}  // namespace

bool fileRecord(const char16_t* path, FileRecord& record) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!::GetFileAttributesExW(wide(path ? path : u""), GetFileExInfoStandard, &data))
        return false;
    store(data, record);
    return true;
}

std::int64_t startSearch(const char16_t* pattern, FileRecord& first) {
    WIN32_FIND_DATAW data;
    const HANDLE search = ::FindFirstFileW(wide(pattern ? pattern : u""), &data);
    if (search == INVALID_HANDLE_VALUE) return kBadHandle;
    try {
        storeFound(data, first);
    } catch (...) {
        ::FindClose(search);
        throw;
    }
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(search));
}

bool continueSearch(std::int64_t search, FileRecord& next) {
    WIN32_FIND_DATAW data;
    if (!::FindNextFileW(asHandle(search), &data)) return false;
    storeFound(data, next);
    return true;
}

bool endSearch(std::int64_t search) noexcept {
    return ::FindClose(asHandle(search)) != 0;
}

std::optional<std::uint64_t> compressedSize(const char16_t* path) {
    DWORD high = 0;
    ::SetLastError(NO_ERROR);
    const DWORD low = ::GetCompressedFileSizeW(wide(path ? path : u""), &high);
    if (low == INVALID_FILE_SIZE && ::GetLastError() != NO_ERROR) return std::nullopt;
    return joined(high, low);
}

std::optional<std::uint32_t> executableType(const char16_t* path) {
    DWORD type = 0;
    if (!::GetBinaryTypeW(wide(path ? path : u""), &type)) return std::nullopt;
    return type;
}

std::optional<ShellInfo> shellInfo(const char16_t* path) {
    SHFILEINFOW info = {};
    if (!::SHGetFileInfoW(wide(path ? path : u""), 0, &info, sizeof info,
                          SHGFI_DISPLAYNAME | SHGFI_TYPENAME))
        return std::nullopt;
    return ShellInfo{fromWide(info.szDisplayName), fromWide(info.szTypeName)};
}

std::optional<VersionInfo> versionInfo(const char16_t* path) {
    DWORD ignored = 0;
    const DWORD size = ::GetFileVersionInfoSizeW(wide(path ? path : u""), &ignored);
    if (size == 0) return std::nullopt;
    std::vector<char> block(size);
    if (!::GetFileVersionInfoW(wide(path), 0, size, block.data())) return std::nullopt;
    UINT bytes = 0;
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(versionValue(block, u"\\", &bytes));
    if (!fixed || bytes < sizeof *fixed) return std::nullopt;
    VersionInfo info;
    info.fileVersion = joined(fixed->dwFileVersionMS, fixed->dwFileVersionLS);
    info.productVersion = joined(fixed->dwProductVersionMS, fixed->dwProductVersionLS);
    info.flags = fixed->dwFileFlags & fixed->dwFileFlagsMask;
    info.targetSystem = fixed->dwFileOS;
    info.fileType = fixed->dwFileType;
    info.fileDate = joined(fixed->dwFileDateMS, fixed->dwFileDateLS);
    storeTexts(block, info);
    return info;
}

}  // namespace nuv64::platform
