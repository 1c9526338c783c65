#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

using Folders = std::vector<std::string>;

void addFolders(Folders& folders, const std::string& list, char separator) {
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(separator, start), list.size());
        folders.push_back(list.substr(start, end - start));  // an empty one is the working folder
        start = end + 1;
    }
}

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

// The folder of the executable, the working folder, then PATH.
Folders systemSearchPath() {
    Folders folders{folderOf(nativePath(executablePath())), ""};
    if (const char* path = std::getenv("PATH")) addFolders(folders, path, ':');
    return folders;
}

bool isFile(const std::string& path) noexcept {
    struct stat status;
    return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

std::string joined(const std::string& folder, const std::string& name) {
    if (folder.empty() || folder.back() == '/') return folder + name;
    return folder + '/' + name;
}

std::string absolute(const std::string& path) {
    return path[0] == '/' ? path : joined(nativePath(currentFolder()), path);
}

constexpr std::uint32_t kUniqueNumbers = 0xFFFF;  // 1 to 65535, four hexadecimal digits

std::string temporaryName(const std::string& stem, std::uint32_t number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned>(number & kUniqueNumbers));
    return stem + digits + ".tmp";
}

// Claims the first free name from a start that differs from call to call.
std::string claimTemporaryFile(const std::string& stem) {
    const std::uint64_t start = performanceCount() / 1000 + static_cast<std::uint64_t>(::getpid());
    for (std::uint64_t i = 0; i < kUniqueNumbers; ++i) {
        const auto number = static_cast<std::uint32_t>((start + i) % kUniqueNumbers + 1);
        const std::string name = temporaryName(stem, number);
        const int fd = retried(
            [&] { return ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600); });
        if (fd >= 0) {
            ::close(fd);
            return name;
        }
        if (errno != EEXIST) return noteError(), "";
    }
    return noteError(EEXIST), "";
}

}  // namespace

std::u16string searchFile(const char16_t* name, const char16_t* extension,
                          const char16_t* searchPath) {
    std::string file = name ? nativePath(name) : "";
    if (file.empty()) return noteError(ENOENT), u"";
    const std::size_t cleanName = file.rfind('/') + 1;
    if (extension && file.find('.', cleanName) == std::string::npos) file += nativePath(extension);
    Folders folders{""};
    if (cleanName == 0 && searchPath) {
        folders.clear();
        addFolders(folders, nativePath(searchPath), ';');
    } else if (cleanName == 0) {
        folders = systemSearchPath();
    }
    for (const std::string& folder : folders) {
        const std::string path = joined(folder, file);
        if (isFile(path)) return textPath(absolute(path));
    }
    return noteError(ENOENT), u"";
}

std::u16string createTemporaryFile(const char16_t* folder, const char16_t* prefix,
                                   std::uint32_t unique) {
    const std::u16string_view start = prefix ? prefix : u"";
    const std::string stem =
        joined(nativePath(folder ? folder : u""), nativePath(start.substr(0, 3)));
    return textPath(unique ? temporaryName(stem, unique) : claimTemporaryFile(stem));
}

}  // namespace nuv64::platform
