// Texts that the module returned, taken over into standard strings.
#pragma once

#include <optional>
#include <string>

#include "core/owned.h"

inline std::optional<std::string> taken(char* text) {
    const nuv64::OwnedText owned(text);
    return text ? std::optional<std::string>(text) : std::nullopt;
}

inline std::optional<std::u16string> taken(char16_t* text) {
    const nuv64::OwnedWideText owned(text);
    return text ? std::optional<std::u16string>(text) : std::nullopt;
}

inline std::u16string widened(const std::string& text) {
    return std::u16string(text.begin(), text.end());
}
