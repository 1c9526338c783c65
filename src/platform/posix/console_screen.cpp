// The screen of the terminal by the control sequences of ECMA-48, which all terminals of today
// know.
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>

#include "platform/console.h"
#include "platform/platform.h"
#include "platform/posix/terminal.h"

namespace nuv64::platform {

namespace {

constexpr char kEscape = 27;

void send(std::string_view sequence) {
    if (outputIsTerminal()) writeStandardOutput(sequence);
}

void appendNumber(std::string& text, std::int64_t value) {
    char digits[24];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

// Rows and columns of the terminal count from 1.
std::string cursorSequence(std::int64_t x, std::int64_t y) {
    std::string sequence = "\x1b[";
    appendNumber(sequence, y + 1);
    sequence += ';';
    appendNumber(sequence, x + 1);
    return sequence + 'H';
}

// The place in "row;column".
std::optional<ScreenPoint> reportedPoint(std::string_view report) noexcept {
    std::int32_t row = 0, column = 0;
    const char* end = report.data() + report.size();
    const auto first = std::from_chars(report.data(), end, row);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != ';') return {};
    const auto second = std::from_chars(first.ptr + 1, end, column);
    if (second.ec != std::errc() || second.ptr != end) return {};
    return ScreenPoint{column - 1, row - 1};
}

// Reads up to the terminal's report, "<escape>[row;columnR". What was typed before it is kept for
// the readers of keys and lines.
std::optional<ScreenPoint> readReport(const KeyMode& keys) {
    std::string bytes;
    std::optional<ScreenPoint> point;
    for (int c = keys.nextOfReply(); c != EOF; c = keys.nextOfReply()) {
        const std::size_t start = bytes.rfind("\x1b[");
        if (c == 'R' && start != bytes.npos)
            point = reportedPoint(std::string_view(bytes).substr(start + 2));
        if (point) {
            bytes.resize(start);
            break;
        }
        bytes += static_cast<char>(c);
    }
    keepTypedAhead(bytes);
    return point;
}

}  // namespace

void setTextAttribute(std::uint32_t attribute) noexcept {
    // The terminal counts red as 1 and blue as 4; colours 90 to 97 are the bright ones.
    const std::uint32_t color = (attribute & 4) >> 2 | (attribute & 2) | (attribute & 1) << 2;
    char sequence[] = "\x1b[97;40m";
    sequence[2] = attribute & 8 ? '9' : '3';
    sequence[3] = static_cast<char>('0' + color);
    send(sequence);
}

void clearScreen() noexcept {
    send("\x1b[H\x1b[2J");
}

void clearToLineEnd() noexcept {
    send("\x1b[K");
}

void clearToScreenEnd() noexcept {
    send("\x1b[J");
}

void fillSection(const ScreenSection& section, char16_t fill) {
    winsize size{};
    if (!outputIsTerminal() || ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return;
    const std::int32_t left = std::max(section.left, 0), top = std::max(section.top, 0);
    const std::int32_t right = std::min<std::int32_t>(section.right, size.ws_col - 1);
    const std::int32_t bottom = std::min<std::int32_t>(section.bottom, size.ws_row - 1);
    if (left > right) return;
    const std::u16string row(static_cast<std::size_t>(right - left + 1),
                             isControlCharacter(fill) ? u' ' : fill);
    const std::string bytes = utf8FromWide(row);
    std::string sequence{kEscape, '7'};  // remembers the cursor, 8 puts it back
    for (std::int32_t y = top; y <= bottom; ++y) sequence += cursorSequence(left, y) + bytes;
    send(sequence + kEscape + '8');
}

bool cursorPosition(ScreenPoint& point) {
    if (!outputIsTerminal() || !inputIsTerminal()) return false;
    const KeyMode keys;
    send("\x1b[6n");
    const std::optional<ScreenPoint> reported = readReport(keys);
    if (reported) point = *reported;
    return reported.has_value();
}

bool moveCursor(const ScreenPoint& point) {
    if (!outputIsTerminal()) return false;
    send(cursorSequence(std::max(point.x, 0), std::max(point.y, 0)));
    return true;
}

void setConsoleTitle(std::u16string_view title) {
    // A control character would end the sequence and start another one.
    std::u16string shown(title);
    std::erase_if(shown, isControlCharacter);
    send("\x1b]0;" + utf8FromWide(shown) + "\a");
}

}  // namespace nuv64::platform
