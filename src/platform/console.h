// The console of the process: its standard streams, the keys and the screen. Where a stream is not
// a terminal, output is the plain text alone and keys come from the stream. What the process does
// not have (a program without a console) swallows output and is at the end of its input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace nuv64::platform {

// What a terminal takes for a command to itself rather than for a character.
constexpr bool isControlCharacter(char16_t c) noexcept {
    return c < 32 || (c >= 127 && c < 160);
}

bool inputIsTerminal() noexcept;
// A terminal that understands more than plain text.
bool outputIsTerminal() noexcept;

// 8-bit text is UTF-8; it passes unchanged where the stream takes bytes. Line ends are not
// translated. There is nobody to tell of a failure.
void writeStandardOutput(std::string_view text);
void writeStandardOutput(std::u16string_view text);
void writeStandardError(std::u16string_view text);

// One line of standard input without its line end; characters above the limit are dropped. False at
// the end of the input.
inline constexpr std::size_t kNoLimit = SIZE_MAX;
bool readInputLine(std::string& line, std::size_t limit = kNoLimit);
bool readInputLine(std::u16string& line, std::size_t limit = kNoLimit);

// The code of the next key, or of the next character of a redirected input; kEndOfInput where there
// is none to come. Keys that stand for no character are passed over. Enter is 13 on the keyboard.
// If not told to wait, 0 when there is no key.
inline constexpr std::uint16_t kEndOfInput = 26;
std::uint16_t readKey(bool wait) noexcept;

bool beep(std::uint32_t milliseconds, std::uint32_t hertz) noexcept;

// The screen behind standard output. Nothing happens when that is no terminal. Positions count from
// 0 at the top left.
struct ScreenPoint {
    std::int32_t x, y;
};
// Edges included.
struct ScreenSection {
    std::int32_t left, top, right, bottom;
};
// Bits 1 blue, 2 green, 4 red, 8 bright, on black.
void setTextAttribute(std::uint32_t attribute) noexcept;
void clearScreen() noexcept;
void clearToLineEnd() noexcept;
void clearToScreenEnd() noexcept;
// The part of the section that lies on the screen; the cursor stays where it is.
void fillSection(const ScreenSection& section, char16_t fill);
bool cursorPosition(ScreenPoint& point);
bool moveCursor(const ScreenPoint& point);
void setConsoleTitle(std::u16string_view title);

// Hands a text to the system's command processor and waits. Its exit code; -1 when there is none,
// and 128 more than the signal that ended it.
std::int32_t runCommandText(std::u16string_view text);

}  // namespace nuv64::platform
