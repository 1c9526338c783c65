// Text on its way to and from the system: the platform layer speaks UTF-16, and 8-bit text is UTF-8
// there.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "core/owned.h"
#include "platform/platform.h"

namespace nuv64 {

// An argument text of either width as the platform layer takes it. A null stays null.
class SystemText {
  public:
    explicit SystemText(const char16_t* text) noexcept : text_(text) {}
    explicit SystemText(const char* text) {
        if (!text) return;
        converted_ = platform::wideFromUtf8(text);
        text_ = converted_.c_str();
    }
    SystemText(const SystemText&) = delete;
    SystemText& operator=(const SystemText&) = delete;

    const char16_t* get() const noexcept { return text_; }

  private:
    std::u16string converted_;
    const char16_t* text_ = nullptr;
};

// A text of the platform layer in either width, for a caller to own.
template <class Ch>
Owned<Ch> ownedText(std::u16string_view text) {
    if constexpr (std::is_same_v<Ch, char>) {
        const std::string narrow = platform::utf8FromWide(text);
        return copyText(narrow.data(), narrow.size());
    } else {
        return copyText(text.data(), text.size());
    }
}

// The same with an empty text, the platform layer's failure, turned into null.
template <class Ch>
Owned<Ch> ownedTextOrNull(std::u16string_view text) {
    if (text.empty()) return {};
    return ownedText<Ch>(text);
}

}  // namespace nuv64
