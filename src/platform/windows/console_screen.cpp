// The screen of the console by the calls of the system. Positions are those of the screen buffer.
#include <algorithm>
#include <string>

#include "platform/console.h"
#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

// The console behind standard output as it is now.
struct Screen {
    HANDLE handle = ::GetStdHandle(STD_OUTPUT_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    bool there = ::GetConsoleScreenBufferInfo(handle, &info) != 0;

    // Fills cells from a point on, over the ends of lines.
    void fill(COORD from, std::int64_t cells, char16_t with) const noexcept {
        if (!there || cells <= 0) return;
        const auto count = static_cast<DWORD>(cells);
        DWORD written = 0;
        ::FillConsoleOutputCharacterW(handle, static_cast<wchar_t>(with), count, from, &written);
        ::FillConsoleOutputAttribute(handle, info.wAttributes, count, from, &written);
    }
    std::int64_t cellsBefore(COORD point) const noexcept {
        return std::int64_t{point.Y} * info.dwSize.X + point.X;
    }
    std::int64_t cells() const noexcept { return cellsBefore({0, info.dwSize.Y}); }
};

SHORT coordinate(std::int32_t value) noexcept {
    return static_cast<SHORT>(std::clamp(value, 0, 0x7FFF));
}

}  // namespace

void setTextAttribute(std::uint32_t attribute) noexcept {
    ::SetConsoleTextAttribute(::GetStdHandle(STD_OUTPUT_HANDLE), static_cast<WORD>(attribute));
}

void clearScreen() noexcept {
    const Screen screen;
    if (!screen.there) return;
    screen.fill({0, 0}, screen.cells(), u' ');
    ::SetConsoleCursorPosition(screen.handle, {0, 0});
}

void clearToLineEnd() noexcept {
    const Screen screen;
    const COORD cursor = screen.info.dwCursorPosition;
    screen.fill(cursor, screen.info.dwSize.X - cursor.X, u' ');
}

void clearToScreenEnd() noexcept {
    const Screen screen;
    const COORD cursor = screen.info.dwCursorPosition;
    screen.fill(cursor, screen.cells() - screen.cellsBefore(cursor), u' ');
}

void fillSection(const ScreenSection& section, char16_t fill) {
    const Screen screen;
    if (!screen.there) return;
    const std::int32_t left = std::max(section.left, 0), top = std::max(section.top, 0);
    const std::int32_t right = std::min<std::int32_t>(section.right, screen.info.dwSize.X - 1);
    const std::int32_t bottom = std::min<std::int32_t>(section.bottom, screen.info.dwSize.Y - 1);
    const char16_t shown = isControlCharacter(fill) ? u' ' : fill;
    for (std::int32_t y = top; y <= bottom; ++y)
        screen.fill({coordinate(left), coordinate(y)}, std::int64_t{right} - left + 1, shown);
}

bool cursorPosition(ScreenPoint& point) {
    const Screen screen;
    if (screen.there) point = {screen.info.dwCursorPosition.X, screen.info.dwCursorPosition.Y};
    return screen.there;
}

bool moveCursor(const ScreenPoint& point) {
    const Screen screen;
    if (!screen.there) return false;
    const COORD inside = {coordinate(std::min<std::int32_t>(point.x, screen.info.dwSize.X - 1)),
                          coordinate(std::min<std::int32_t>(point.y, screen.info.dwSize.Y - 1))};
    return ::SetConsoleCursorPosition(screen.handle, inside) != 0;
}

void setConsoleTitle(std::u16string_view title) {
    if (outputIsTerminal()) ::SetConsoleTitleW(wide(std::u16string(title).c_str()));
}

}  // namespace nuv64::platform
