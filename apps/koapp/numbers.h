// Numbers as text, the same on every system and in every locale.
#pragma once

#include <charconv>
#include <cmath>
#include <concepts>
#include <string>
#include <system_error>

namespace koapp {

template <std::integral Integer>
std::string numberText(Integer value) {
    return std::to_string(value);
}

// significant: digits, 0 for as many as bring the same number back.
inline std::string numberText(double value, int significant) {
    if (std::isnan(value)) return "NaN";
    char text[40];
    const auto end = significant == 0 ? std::to_chars(text, text + sizeof text, value)
                                      : std::to_chars(text, text + sizeof text, value,
                                                      std::chars_format::general, significant);
    return {text, end.ptr};
}

// The number that a text is, shortened for the eye; a text that is none, such as a formula, as it
// is.
inline std::string shortened(const std::string& text, int significant) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end ? numberText(value, significant) : text;
}

}  // namespace koapp
