#include "nuv64/core/system.h"

#include <array>
#include <optional>
#include <string>

#include "core/guard.h"
#include "core/path_text.h"
#include "core/system_text.h"
#include "nuv64/core/path.h"
#include "platform/platform.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kShellError = 4;
constexpr std::uint32_t kUndefinedFile = 63;

std::u16string executableFraction(std::uint32_t part) {
    const Owned<char16_t> piece(NewFilePathFraction(platform::executablePath().c_str(), part));
    return piece ? piece.get() : u"";
}

std::u16string executableFolder() {
    return executableFraction(4);
}
std::u16string executableName() {
    return executableFraction(3);
}
std::u16string executableBareName() {
    return executableFraction(2);
}

// By kind, from 1 on.
constexpr std::array kSystemTexts = {
    &platform::windowsFolder,   &platform::systemFolder,  &platform::desktopFolder,
    &platform::temporaryFolder, &platform::currentFolder, &platform::executablePath,
    &executableFolder,          &executableName,          &executableBareName,
    &platform::commandLine,
};

template <class Ch>
Ch* newSystemText(std::uint32_t kind) noexcept {
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        platform::setLastError(0);
        if (kind == 0 || kind > kSystemTexts.size()) return nullptr;
        return ownedTextOrNull<Ch>(kSystemTexts[kind - 1]()).release();
    });
}

template <class Ch>
Ch* newEnvironmentVariable(const Ch* name) noexcept {
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        platform::setLastError(0);
        const std::optional<std::u16string> value =
            platform::environmentVariable(SystemText(name).get());
        return value ? ownedText<Ch>(*value).release() : nullptr;
    });
}

template <class Ch>
std::uint32_t shellOpen(const Ch* path) noexcept {
    return guardStatus([&]() -> std::uint32_t {
        platform::setLastError(0);
        if (!path || *path == 0) return kUndefinedFile;
        return platform::shellOpen(SystemText(path).get()) ? kSuccess : kShellError;
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

char16_t* OsStringNewCopy(uint32_t kind) noexcept {
    return newSystemText<char16_t>(kind);
}

char* OsStringNewCopyA(uint32_t kind) noexcept {
    return newSystemText<char>(kind);
}

char16_t* OsEnvironmentVariableNewCopy(const char16_t* name) noexcept {
    return newEnvironmentVariable(name);
}

char* OsEnvironmentVariableNewCopyA(const char* name) noexcept {
    return newEnvironmentVariable(name);
}

bool OsBeep(uint32_t duration, uint32_t frequency) noexcept {
    return platform::beep(duration, frequency);
}

uint32_t OsShellOpen(const char16_t* path) noexcept {
    return shellOpen(path);
}

uint32_t OsShellOpenA(const char* path) noexcept {
    return shellOpen(path);
}
