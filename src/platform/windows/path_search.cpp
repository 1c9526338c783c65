#include "platform/windows/native.h"

namespace nuv64::platform {

std::u16string searchFile(const char16_t* name, const char16_t* extension,
                          const char16_t* searchPath) {
    if (!name || !*name) {
        ::SetLastError(ERROR_FILE_NOT_FOUND);
        return u"";
    }
    std::u16string path = grownText([&](wchar_t* buffer, DWORD n) {
        return ::SearchPathW(wide(searchPath), wide(name), wide(extension), n, buffer, nullptr);
    });
    const DWORD attributes = ::GetFileAttributesW(wide(path.data()));
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        ::SetLastError(ERROR_FILE_NOT_FOUND);
        return u"";
    }
    return path;
}

std::u16string createTemporaryFile(const char16_t* folder, const char16_t* prefix,
                                   std::uint32_t unique) {
    wchar_t name[MAX_PATH] = {};
    if (!::GetTempFileNameW(wide(folder ? folder : u""), wide(prefix ? prefix : u""), unique, name))
        return u"";
    return fromWide(name);
}

}  // namespace nuv64::platform
