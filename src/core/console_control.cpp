#include "nuv64/core/console_control.h"

#include <algorithm>
#include <iterator>

#include "core/console.h"
#include "core/guard.h"
#include "core/system_text.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kConsoleError = 5;
constexpr std::uint32_t kMissingArgument = 22;

constexpr std::uint32_t kNormalAttribute = 15;
constexpr std::uint32_t kAttributes[] = {kNormalAttribute, 12, 10, 9, 14, 11, 13, 7};

struct ColorLetter {
    char letter;
    std::uint32_t color;
};
constexpr ColorLetter kColorLetters[] = {{'e', 1}, {'g', 7}, {'h', 2},
                                         {'i', 5}, {'m', 5}, {'p', 4}};

template <class Ch>
std::uint32_t colorOfLetter(Ch letter) noexcept {
    const auto* row = std::find_if(
        std::begin(kColorLetters), std::end(kColorLetters),
        [&](const ColorLetter& entry) { return static_cast<Ch>(entry.letter) == letter; });
    return row == std::end(kColorLetters) ? 0 : row->color;
}

template <class Ch>
void printInColor(const Ch* control) {
    setTextColor(colorOfLetter(*control));
    if (*control != 0) print(viewOf(control + 1));
}

template <class Ch>
std::int32_t obey(const Ch* control) {
    if (!control) return 0;
    switch (*control) {
        case 'C':
            printInColor(control + 1);
            return 0;
        case 'S':
            return platform::runCommandText(SystemText(control + 1).get());
        case 'T':
            platform::setConsoleTitle(SystemText(control + 1).get());
            return 0;
        case 'X':
            if (control[1] == 's') platform::clearScreen();
            return 0;
        default:
            return 0;
    }
}

void fillSection(const platform::ScreenSection& section, char16_t fill) noexcept {
    guardStatus([&] {
        platform::fillSection(section, fill);
        return kSuccess;
    });
}

std::uint32_t getCursor(std::int32_t* x, std::int32_t* y) {
    platform::ScreenPoint point{};
    if (!platform::cursorPosition(point)) return kConsoleError;
    if (x) *x = point.x;
    if (y) *y = point.y;
    return kSuccess;
}

std::uint32_t setCursor(const std::int32_t* x, const std::int32_t* y) {
    if (!x || !y) return kMissingArgument;
    return platform::moveCursor({*x, *y}) ? kSuccess : kConsoleError;
}

}  // namespace

void setTextColor(std::uint32_t id) noexcept {
    if (!platform::outputIsTerminal()) return;
    platform::setTextAttribute(id < std::size(kAttributes) ? kAttributes[id] : kNormalAttribute);
}

}  // namespace nuv64

using namespace nuv64;

void ConClear() noexcept {
    platform::clearScreen();
}

void ConClearEndOfLine() noexcept {
    platform::clearToLineEnd();
}

void ConClearEndOfScreen() noexcept {
    platform::clearToScreenEnd();
}

void ConClearSection(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     char16_t fill) noexcept {
    fillSection({left, top, right, bottom}, fill);
}

void ConClearSectionA(int32_t left, int32_t top, int32_t right, int32_t bottom,
                      char fill) noexcept {
    // A byte of a longer character fills nothing by itself.
    fillSection({left, top, right, bottom}, (fill & 0x80) ? u'\uFFFD' : widen(fill));
}

uint32_t ConGetOrSetCursorLocation(int32_t* x, int32_t* y, uint32_t get) noexcept {
    return guardStatus([&] { return get != 0 ? getCursor(x, y) : setCursor(x, y); });
}

void ConSetTextColorID(uint32_t id) noexcept {
    setTextColor(id);
}

int32_t ConScipio(const char16_t* control) noexcept {
    return guardValue(int32_t{-1}, [&] { return obey(control); });
}

int32_t ConScipioA(const char* control) noexcept {
    return guardValue(int32_t{-1}, [&] { return obey(control); });
}
