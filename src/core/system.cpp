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
constexpr std::uint32_t kMissingArgument = 22;
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
bool setEnvironmentVariable(const Ch* name, const Ch* value) noexcept {
    return guardValue(false, [&] {
        platform::setLastError(0);
        return platform::setEnvironmentVariable(SystemText(name).get(), SystemText(value).get());
    });
}

std::uint32_t openByDesktop(const char16_t* target) {
    return platform::shellOpen(target) ? kSuccess : kShellError;
}

template <class Ch>
std::uint32_t shellOpen(const Ch* path) noexcept {
    return guardStatus([&]() -> std::uint32_t {
        platform::setLastError(0);
        if (!path || *path == 0) return kUndefinedFile;
        return openByDesktop(SystemText(path).get());
    });
}

std::u16string withScheme(std::u16string_view scheme, std::u16string_view address) {
    std::u16string link(address.starts_with(scheme) ? u"" : scheme);
    return link.append(address);
}

template <class Ch>
std::uint32_t openUrl(const Ch* url) noexcept {
    return guardStatus([&]() -> std::uint32_t {
        platform::setLastError(0);
        if (!url) return kUndefinedFile;
        return openByDesktop(withScheme(u"http://", SystemText(url).get()).c_str());
    });
}

template <class Ch>
std::uint32_t mailTo(const Ch* address, const Ch* subject) noexcept {
    return guardStatus([&]() -> std::uint32_t {
        platform::setLastError(0);
        if (!address || *address == 0) return kMissingArgument;
        std::u16string link = withScheme(u"mailto:", SystemText(address).get());
        if (subject && *subject != 0) link.append(u"?subject=").append(SystemText(subject).get());
        return openByDesktop(link.c_str());
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

bool OsSetEnvironmentVariable(const char16_t* name, const char16_t* value) noexcept {
    return setEnvironmentVariable(name, value);
}

bool OsSetEnvironmentVariableA(const char* name, const char* value) noexcept {
    return setEnvironmentVariable(name, value);
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

uint32_t OsOpenUrl(const char16_t* url) noexcept {
    return openUrl(url);
}

uint32_t OsOpenUrlA(const char* url) noexcept {
    return openUrl(url);
}

uint32_t OsMailTo(const char16_t* address, const char16_t* subject) noexcept {
    return mailTo(address, subject);
}

uint32_t OsMailToA(const char* address, const char* subject) noexcept {
    return mailTo(address, subject);
}
