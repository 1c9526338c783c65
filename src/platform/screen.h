// Windows on the screen, and the clipboard. Where the system has no windows of its own, the calls
// give their failure value: 0 for a window, false.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace nuv64::platform {

struct Rectangle {
    std::int32_t left = 0, top = 0, width = 0, height = 0;  // pixels
};

std::int64_t activeWindow() noexcept;      // of the calling thread
std::int64_t foregroundWindow() noexcept;  // that the user works with
std::int64_t desktopWindow() noexcept;
std::uint64_t desktopColors() noexcept;
bool windowRectangle(std::int64_t window, Rectangle& rectangle) noexcept;
// Whether there is a top-level window of exactly that title.
bool isWindowPresent(const char16_t* title);

bool setClipboardText(const char16_t* text);
// No value when the clipboard holds no text or can't be reached.
std::optional<std::u16string> clipboardText();

}  // namespace nuv64::platform
