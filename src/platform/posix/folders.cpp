#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string homeFolder() {
    std::string home = variable("HOME");
    if (!home.empty()) return home;
    struct passwd entry;
    struct passwd* found = nullptr;
    std::vector<char> texts(16384);
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) == 0 && found)
        home = found->pw_dir;
    return home.empty() ? "/" : home;
}

std::string wholeFile(const std::string& native) {
    std::string content;
    const std::int64_t handle = openFile(textPath(native).c_str(), OpenRequest{});
    if (!isHandle(handle)) return content;
    const Descriptor file(static_cast<int>(handle));
    char block[4096];
    for (;;) {
        const std::int64_t got = readFile(file.get(), block, sizeof block);
        if (got <= 0) return content;
        content.append(block, static_cast<std::size_t>(got));
    }
}

// The line XDG_DESKTOP_DIR="$HOME/Desktop" of the user's directories file (xdg-user-dirs); empty
// when there is none.
std::string desktopByUserDirs(const std::string& home) {
    std::string folder = variable("XDG_CONFIG_HOME");
    if (folder.empty()) folder = home + "/.config";
    const std::string text = "\n" + wholeFile(folder + "/user-dirs.dirs");
    static const std::string key = "\nXDG_DESKTOP_DIR=\"";
    const std::size_t start = text.find(key);
    if (start == std::string::npos) return "";
    const std::size_t value = start + key.size();
    const std::size_t end = text.find_first_of("\"\n", value);
    if (end == std::string::npos || text[end] != '"') return "";
    std::string path = text.substr(value, end - value);
    if (path.compare(0, 5, "$HOME") == 0) path.replace(0, 5, home);
    return path;
}

std::string closed(std::string folder) {
    if (folder.empty() || folder.back() != '/') folder += '/';
    return folder;
}

std::string linkTarget(const char* link) {
    std::string target(256, '\0');
    for (;;) {
        const ssize_t length = ::readlink(link, target.data(), target.size());
        if (length < 0) return noteError(), "";
        if (static_cast<std::size_t>(length) < target.size()) {
            target.resize(static_cast<std::size_t>(length));
            return target;
        }
        target.resize(2 * target.size());
    }
}

}  // namespace

std::u16string windowsFolder() {
    return u"\\";
}

std::u16string systemFolder() {
    return u"\\";
}

std::u16string desktopFolder() {
    const std::string home = homeFolder();
    std::string desktop = desktopByUserDirs(home);
    if (desktop.empty()) desktop = closed(home) + "Desktop";
    return textPath(closed(desktop));
}

std::u16string temporaryFolder() {
    const std::string folder = variable("TMPDIR");
    return textPath(closed(folder.empty() ? "/tmp" : folder));
}

std::u16string currentFolder() {
    std::string folder(256, '\0');
    while (!::getcwd(folder.data(), folder.size())) {
        if (errno != ERANGE) return noteError(), u"";
        folder.resize(2 * folder.size());
    }
    return textPath(folder.c_str());
}

std::u16string executablePath() {
    return textPath(linkTarget("/proc/self/exe"));
}

std::u16string commandLine() {
    const std::string arguments = wholeFile("/proc/self/cmdline");
    std::string line;
    for (std::size_t start = 0; start < arguments.size();) {
        const std::string argument = arguments.c_str() + start;
        const bool quoted = argument.empty() || argument.find_first_of(" \t") != std::string::npos;
        if (!line.empty()) line += ' ';
        line += quoted ? '"' + argument + '"' : argument;
        start += argument.size() + 1;
    }
    return wideFromUtf8(line);
}

std::optional<std::u16string> environmentVariable(const char16_t* name) {
    const char* value = name ? std::getenv(utf8FromWide(name).c_str()) : nullptr;
    if (!value) {
        noteError(ENOENT);
        return std::nullopt;
    }
    return wideFromUtf8(value);
}

bool setEnvironmentVariable(const char16_t* name, const char16_t* value) {
    if (!name) return noteError(EINVAL);
    const std::string key = utf8FromWide(name);
    const int result =
        value ? ::setenv(key.c_str(), utf8FromWide(value).c_str(), 1) : ::unsetenv(key.c_str());
    return result == 0 || noteError();
}

bool createFolder(const char16_t* path) {
    if (!path || !*path) return noteError(ENOENT);
    return ::mkdir(nativePath(path).c_str(), 0777) == 0 || noteError();
}

std::uint32_t diskDrives() noexcept {
    return 0;
}

}  // namespace nuv64::platform
