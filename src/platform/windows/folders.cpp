// clang-format off
#include "platform/windows/native.h"
#include <initguid.h>
#include <knownfolders.h>
#include <shlobj.h>
// clang-format on

namespace nuv64::platform {

std::u16string windowsFolder() {
    return grownText([](wchar_t* buffer, DWORD n) { return ::GetWindowsDirectoryW(buffer, n); });
}

std::u16string systemFolder() {
    return grownText([](wchar_t* buffer, DWORD n) { return ::GetSystemDirectoryW(buffer, n); });
}

std::u16string desktopFolder() {
    PWSTR path = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(FOLDERID_Desktop, 0, nullptr, &path);
    std::u16string folder = SUCCEEDED(result) ? fromWide(path) : u"";
    ::CoTaskMemFree(path);
    closeFolder(folder);
    return folder;
}

std::u16string temporaryFolder() {
    return grownText([](wchar_t* buffer, DWORD n) { return ::GetTempPathW(n, buffer); });
}

std::u16string currentFolder() {
    return grownText([](wchar_t* buffer, DWORD n) { return ::GetCurrentDirectoryW(n, buffer); });
}

std::u16string executablePath() {
    return grownText(
        [](wchar_t* buffer, DWORD n) { return ::GetModuleFileNameW(nullptr, buffer, n); });
}

std::u16string commandLine() {
    return fromWide(::GetCommandLineW());
}

std::optional<std::u16string> environmentVariable(const char16_t* name) {
    if (!name) return std::nullopt;
    ::SetLastError(0);
    std::u16string value = grownText(
        [&](wchar_t* buffer, DWORD n) { return ::GetEnvironmentVariableW(wide(name), buffer, n); });
    // An empty value has length 0 too, but no error.
    if (value.empty() && ::GetLastError() != 0) return std::nullopt;
    return value;
}

bool setEnvironmentVariable(const char16_t* name, const char16_t* value) {
    // The system itself would take a name that starts with "=".
    if (!name || !*name || *name == u'=') {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return ::SetEnvironmentVariableW(wide(name), wide(value)) != 0;
}

bool createFolder(const char16_t* path) {
    return ::CreateDirectoryW(wide(path ? path : u""), nullptr) != 0;
}

std::uint32_t diskDrives() noexcept {
    return ::GetLogicalDrives();
}

}  // namespace nuv64::platform
