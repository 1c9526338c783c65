#include <unistd.h>

#include <cstdio>

#include "platform/posix/native.h"

namespace nuv64::platform {

bool inputIsTerminal() noexcept {
    return ::isatty(STDIN_FILENO) == 1;
}

void writeStandardError(std::u16string_view text) {
    const std::string bytes = utf8FromWide(text);
    writeFile(STDERR_FILENO, bytes.data(), bytes.size());
}

bool readInputLine(std::u16string& line) {
    // Through the stream of the C runtime, which the host program may be reading too.
    std::string bytes;
    int c = std::getc(stdin);
    if (c == EOF) return false;
    for (; c != EOF && c != '\n'; c = std::getc(stdin)) bytes += static_cast<char>(c);
    if (!bytes.empty() && bytes.back() == '\r') bytes.pop_back();
    line = wideFromUtf8(bytes);
    return true;
}

bool beep(std::uint32_t, std::uint32_t) noexcept {
    return ::isatty(STDERR_FILENO) == 1 && writeFile(STDERR_FILENO, "\a", 1);
}

}  // namespace nuv64::platform
