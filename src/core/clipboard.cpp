#include "nuv64/core/clipboard.h"

#include "core/guard.h"
#include "core/system_text.h"
#include "platform/screen.h"

namespace nuv64 {

namespace {

template <class Ch>
bool toClipboard(const Ch* text) noexcept {
    return guardValue(false, [&] {
        platform::setLastError(0);
        return text && platform::setClipboardText(SystemText(text).get());
    });
}

template <class Ch>
Ch* newFromClipboard() noexcept {
    return guardValue<Ch*>(nullptr, []() -> Ch* {
        platform::setLastError(0);
        const std::optional<std::u16string> text = platform::clipboardText();
        return text ? ownedText<Ch>(*text).release() : nullptr;
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

bool OsTextToClipboard(const char16_t* text) noexcept {
    return toClipboard(text);
}

bool OsTextToClipboardA(const char* text) noexcept {
    return toClipboard(text);
}

char16_t* NewOsTextFromClipboard() noexcept {
    return newFromClipboard<char16_t>();
}

char* NewOsTextFromClipboardA() noexcept {
    return newFromClipboard<char>();
}
