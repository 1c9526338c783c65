#include "native.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <windows.h>

#include <shellapi.h>
#else
#include <unistd.h>
#endif

#include "failure.h"

namespace koapp {
namespace fs = std::filesystem;

#ifdef _WIN32

std::vector<fs::path> commandLineWords(int, char**) {
    std::vector<fs::path> words;
    int count = 0;
    wchar_t** all = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!all) throw Failure{kAllocationFailure, "command line"};
    for (int i = 1; i < count; ++i) words.emplace_back(all[i]);
    LocalFree(all);
    return words;
}

void prepareConsole() noexcept {
    SetConsoleOutputCP(CP_UTF8);
}
bool isTerminal(std::FILE* stream) noexcept {
    return _isatty(_fileno(stream)) != 0;
}

namespace {
constexpr bool kNativeBackslash = true;
}

#else

std::vector<fs::path> commandLineWords(int argc, char** argv) {
    if (argc < 1) return {};
    return {argv + 1, argv + argc};
}

void prepareConsole() noexcept {}
bool isTerminal(std::FILE* stream) noexcept {
    return isatty(fileno(stream)) != 0;
}

namespace {
constexpr bool kNativeBackslash = false;
}

#endif

std::string utf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

fs::path pathFromUtf8(std::string_view text) {
    return fs::path(std::u8string(reinterpret_cast<const char8_t*>(text.data()), text.size()));
}

// The module writes folders with backslashes on every system, so a name that has one of its own
// can't be told to it where the system's separator is another.
std::u16string modulePath(const fs::path& path) {
    std::u16string text;
    try {
        text = fs::absolute(path).u16string();
    } catch (const std::system_error&) {
        throw Failure{kIllegalFileName, utf8(path)};
    }
    if (!kNativeBackslash && text.find(u'\\') != std::u16string::npos) {
        throw Failure{kIllegalFileName, utf8(path)};
    }
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return text;
}

std::string shownPath(const char16_t* path) {
    if (!path) return {};
    std::u16string text = path;
    if (!kNativeBackslash) std::replace(text.begin(), text.end(), u'\\', u'/');
    try {
        return utf8(fs::path(text));
    } catch (const std::system_error&) {
        return "?";
    }
}

std::string readFile(const fs::path& path) {
    std::error_code ignored;
    if (!fs::exists(path, ignored)) throw Failure{kMissingFile, utf8(path)};
    std::ifstream file(path, std::ios::binary);
    if (!file || fs::is_directory(path, ignored)) throw Failure{kFileNotAccessible, utf8(path)};
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) throw Failure{kFileNotAccessible, utf8(path)};
    return text;
}

void writeFile(const fs::path& path, std::string_view text) {
    errno = 0;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file) throw Failure{errno == ENOSPC ? kDiskFull : kFileNotAccessible, utf8(path)};
}

void print(std::string_view text) {
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
        throw Failure{errno == ENOSPC ? kDiskFull : kFileNotAccessible, "standard output"};
    }
}

void flushOutput() {
    errno = 0;
    if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
        throw Failure{errno == ENOSPC ? kDiskFull : kFileNotAccessible, "standard output"};
    }
}

}  // namespace koapp
