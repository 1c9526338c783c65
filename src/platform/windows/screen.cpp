#include "platform/screen.h"

#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

constexpr unsigned kMostColorBits = 63;

struct TitleSearch {
    std::u16string wanted;
    std::u16string title;
    bool found = false;
};

BOOL CALLBACK compareTitle(HWND window, LPARAM data) noexcept {
    auto& search = *reinterpret_cast<TitleSearch*>(data);
    const int length =
        ::GetWindowTextW(window, wide(search.title.data()), static_cast<int>(search.title.size()));
    search.found =
        length > 0 &&
        search.wanted == std::u16string_view(search.title.data(), static_cast<std::size_t>(length));
    return !search.found;
}

}  // namespace

std::int64_t activeWindow() noexcept {
    return asNumber(::GetActiveWindow());
}

std::int64_t foregroundWindow() noexcept {
    return asNumber(::GetForegroundWindow());
}

std::int64_t desktopWindow() noexcept {
    return asNumber(::GetDesktopWindow());
}

std::uint64_t desktopColors() noexcept {
    DEVMODEW mode{};
    mode.dmSize = sizeof mode;
    if (!::EnumDisplaySettingsW(nullptr, ENUM_CURRENT_SETTINGS, &mode)) return 0;
    const DWORD bits = mode.dmBitsPerPel;
    return bits > 0 && bits <= kMostColorBits ? std::uint64_t{1} << bits : 0;
}

bool windowRectangle(std::int64_t window, Rectangle& rectangle) noexcept {
    RECT edges{};
    if (!::GetWindowRect(static_cast<HWND>(asHandle(window)), &edges)) return false;
    rectangle = {edges.left, edges.top, edges.right - edges.left, edges.bottom - edges.top};
    return true;
}

bool isWindowPresent(const char16_t* title) {
    TitleSearch search{title, std::u16string(), false};
    search.title.resize(search.wanted.size() + 2);  // one more than a match, to see a longer one
    ::EnumWindows(&compareTitle, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace nuv64::platform
