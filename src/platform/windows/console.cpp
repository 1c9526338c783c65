#include <cstdio>

#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

bool isConsole(HANDLE stream) noexcept {
    DWORD mode = 0;
    return ::GetConsoleMode(stream, &mode) != 0;
}

// A line typed at the console, read as UTF-16 so that no code page comes between.
bool readConsole(HANDLE console, std::u16string& line) {
    line.clear();
    for (;;) {
        char16_t unit = 0;
        DWORD got = 0;
        if (!::ReadConsoleW(console, &unit, 1, &got, nullptr)) return false;
        if (got == 0 || unit == 26) return !line.empty();  // Ctrl-Z ends the input
        if (unit == u'\n') return true;
        if (unit != u'\r') line += unit;
    }
}

bool readStream(std::u16string& line) {
    std::string bytes;
    int c = std::getc(stdin);
    if (c == EOF) return false;
    for (; c != EOF && c != '\n'; c = std::getc(stdin)) bytes += static_cast<char>(c);
    if (!bytes.empty() && bytes.back() == '\r') bytes.pop_back();
    line = wideFromUtf8(bytes);
    return true;
}

}  // namespace

bool inputIsTerminal() noexcept {
    return isConsole(::GetStdHandle(STD_INPUT_HANDLE));
}

void writeStandardError(std::u16string_view text) {
    const HANDLE stream = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD written = 0;
    if (isConsole(stream)) {
        ::WriteConsoleW(stream, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const std::string bytes = utf8FromWide(text);
    ::WriteFile(stream, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

bool readInputLine(std::u16string& line) {
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    return isConsole(input) ? readConsole(input, line) : readStream(line);
}

bool beep(std::uint32_t milliseconds, std::uint32_t hertz) noexcept {
    return ::Beep(hertz, milliseconds) != 0;
}

}  // namespace nuv64::platform
