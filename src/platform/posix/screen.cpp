// Windows belong to the desktop environment, not to the system: each call gives its failure value.
#include "platform/screen.h"

namespace nuv64::platform {

std::int64_t activeWindow() noexcept {
    return 0;
}

std::int64_t foregroundWindow() noexcept {
    return 0;
}

std::int64_t desktopWindow() noexcept {
    return 0;
}

std::uint64_t desktopColors() noexcept {
    return 0;
}

bool windowRectangle(std::int64_t, Rectangle&) noexcept {
    return false;
}

bool isWindowPresent(const char16_t*) {
    return false;
}

}  // namespace nuv64::platform
