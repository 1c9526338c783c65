// The streams of the console by its own calls in UTF-16, so that no code page comes between; by
// plain reads and writes of UTF-8 where they are redirected. The C runtime is passed by: that of
// the host need not be the module's.
#include "platform/console.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/typed_character.h"
#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

bool isConsole(HANDLE stream) noexcept {
    DWORD mode = 0;
    return ::GetConsoleMode(stream, &mode) != 0;
}

constexpr bool isHighSurrogate(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xD800;
}

// A console takes some ten thousand characters at a time.
void writeConsole(HANDLE console, std::u16string_view text) noexcept {
    constexpr std::size_t kPiece = 8000;
    while (!text.empty()) {
        std::size_t count = std::min(kPiece, text.size());
        if (count < text.size() && isHighSurrogate(text[count - 1])) --count;
        DWORD written = 0;
        if (!::WriteConsoleW(console, text.data(), static_cast<DWORD>(count), &written, nullptr))
            return;
        text.remove_prefix(count);
    }
}

void writeBytes(HANDLE stream, std::string_view bytes) noexcept {
    writeFile(reinterpret_cast<std::intptr_t>(stream), bytes.data(), bytes.size());
}

void writeStream(DWORD which, std::u16string_view text) {
    const HANDLE stream = ::GetStdHandle(which);
    if (isConsole(stream)) return writeConsole(stream, text);
    writeBytes(stream, utf8FromWide(text));
}

// A line typed at the console up to its end.
bool readConsole(HANDLE console, std::u16string& line, std::size_t limit) {
    constexpr char16_t kControlZ = 26;
    bool ended = false;
    for (;;) {
        char16_t unit = 0;
        DWORD got = 0;
        if (!::ReadConsoleW(console, &unit, 1, &got, nullptr) || got == 0) return !line.empty();
        if (unit == u'\n') return !ended || !line.empty();
        ended |= unit == kControlZ;  // behind it nothing counts
        if (unit != u'\r' && !ended && line.size() < limit) line += unit;
    }
}

// A byte that was read behind an incomplete character: it comes first.
int heldByte = EOF;

// The next byte of a redirected input, or EOF; one by one, so that nothing is taken from a command
// that reads the same input.
int nextByte(HANDLE stream) noexcept {
    if (heldByte != EOF) return std::exchange(heldByte, EOF);
    unsigned char byte = 0;
    DWORD got = 0;
    return ::ReadFile(stream, &byte, 1, &got, nullptr) && got == 1 ? byte : EOF;
}

bool readBytes(HANDLE stream, std::string& line, std::size_t limit) {
    int c = nextByte(stream);
    if (c == EOF) return false;
    for (; c != EOF && c != '\n'; c = nextByte(stream))
        if (line.size() < limit) line += static_cast<char>(c);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

void cutToLimit(std::u16string& line, std::size_t limit) noexcept {
    if (line.size() > limit) line.resize(limit);
    if (!line.empty() && isHighSurrogate(line.back())) line.pop_back();
}

// As much as the limit lets in, whole characters only.
void cutToLimit(std::string& line, std::size_t limit) noexcept {
    if (line.size() <= limit) return;
    while (limit > 0 && (line[limit] & 0xC0) == 0x80) --limit;
    line.resize(limit);
}

bool keyIsThere(HANDLE console) noexcept {
    INPUT_RECORD event{};
    DWORD count = 0;
    return ::PeekConsoleInputW(console, &event, 1, &count) && count != 0;
}

std::uint16_t consoleKey(HANDLE console, bool wait) noexcept {
    while (wait || keyIsThere(console)) {
        INPUT_RECORD event{};
        DWORD count = 0;
        if (!::ReadConsoleInputW(console, &event, 1, &count) || count == 0) return kEndOfInput;
        if (event.EventType != KEY_EVENT || !event.Event.KeyEvent.bKeyDown) continue;
        const char16_t code = event.Event.KeyEvent.uChar.UnicodeChar;
        if (code != 0) return code;
    }
    return 0;
}

// Whether a read of a redirected input would have to wait.
bool mustWait(HANDLE stream) noexcept {
    DWORD bytes = 0;
    return heldByte == EOF && ::GetFileType(stream) == FILE_TYPE_PIPE &&
           ::PeekNamedPipe(stream, nullptr, 0, nullptr, &bytes, nullptr) && bytes == 0;
}

std::uint16_t streamKey(HANDLE stream, bool wait) {
    if (!wait && mustWait(stream)) return 0;
    int c = nextByte(stream);
    while (wait && c == 0) c = nextByte(stream);
    if (c == EOF) return kEndOfInput;
    return characterFrom(
        c, [&] { return nextByte(stream); }, [](int byte) { heldByte = byte; });
}

}  // namespace

bool inputIsTerminal() noexcept {
    return isConsole(::GetStdHandle(STD_INPUT_HANDLE));
}

bool outputIsTerminal() noexcept {
    return isConsole(::GetStdHandle(STD_OUTPUT_HANDLE));
}

void writeStandardOutput(std::string_view text) {
    std::fflush(stdout);
    const HANDLE stream = ::GetStdHandle(STD_OUTPUT_HANDLE);
    if (isConsole(stream)) return writeConsole(stream, wideFromUtf8(text));
    writeBytes(stream, text);
}

void writeStandardOutput(std::u16string_view text) {
    std::fflush(stdout);
    writeStream(STD_OUTPUT_HANDLE, text);
}

void writeStandardError(std::u16string_view text) {
    writeStream(STD_ERROR_HANDLE, text);
}

bool readInputLine(std::string& line, std::size_t limit) {
    line.clear();
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    if (!isConsole(input)) return readBytes(input, line, limit);
    std::u16string typed;
    if (!readConsole(input, typed, limit)) return false;
    line = utf8FromWide(typed);
    cutToLimit(line, limit);
    return true;
}

bool readInputLine(std::u16string& line, std::size_t limit) {
    line.clear();
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    if (isConsole(input)) {
        if (!readConsole(input, line, limit)) return false;
    } else {
        // No character takes more than three bytes; those behind are for one that the limit cuts.
        std::string bytes;
        if (!readBytes(input, bytes, limit > kNoLimit / 4 ? kNoLimit : 3 * limit + 3)) return false;
        line = wideFromUtf8(bytes);
    }
    cutToLimit(line, limit);
    return true;
}

std::uint16_t readKey(bool wait) noexcept {
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    try {
        return isConsole(input) ? consoleKey(input, wait) : streamKey(input, wait);
    } catch (const std::bad_alloc&) {
        return kEndOfInput;
    }
}

bool beep(std::uint32_t milliseconds, std::uint32_t hertz) noexcept {
    return ::Beep(hertz, milliseconds) != 0;
}

std::int32_t runCommandText(std::u16string_view text) {
    std::fflush(stdout);
    return ::_wsystem(wide(std::u16string(text).c_str()));
}

}  // namespace nuv64::platform
