#include "nuv64/core/screen.h"

#include "core/guard.h"
#include "core/optional_output.h"
#include "core/system_text.h"
#include "platform/screen.h"

namespace nuv64 {

namespace {

template <class Ch>
bool isWindowPresent(const Ch* title) noexcept {
    return guardValue(false, [&] {
        return title && *title != 0 && platform::isWindowPresent(SystemText(title).get());
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

int64_t OsActiveWindow() noexcept {
    return platform::activeWindow();
}

int64_t OsActiveWindowLocAndSize(int32_t* left, int32_t* top, int32_t* width,
                                 int32_t* height) noexcept {
    const int64_t window = platform::activeWindow();
    OsWindowLocAndSize(window, left, top, width, height);
    return window;
}

int64_t OsForegroundWindow() noexcept {
    return platform::foregroundWindow();
}

int64_t OsForegroundWindowLocAndSize(int32_t* left, int32_t* top, int32_t* width,
                                     int32_t* height) noexcept {
    const int64_t window = platform::foregroundWindow();
    OsWindowLocAndSize(window, left, top, width, height);
    return window;
}

int64_t OsDesktopWindow() noexcept {
    return platform::desktopWindow();
}

uint64_t OsDesktopColors() noexcept {
    return platform::desktopColors();
}

bool OsWindowLocAndSize(int64_t window, int32_t* left, int32_t* top, int32_t* width,
                        int32_t* height) noexcept {
    platform::Rectangle place;
    const bool isThere = platform::windowRectangle(window, place);
    store(left, place.left);
    store(top, place.top);
    store(width, place.width);
    store(height, place.height);
    return isThere;
}

bool OsIsWindowPresent(const char16_t* title) noexcept {
    return isWindowPresent(title);
}

bool OsIsWindowPresentA(const char* title) noexcept {
    return isWindowPresent(title);
}
