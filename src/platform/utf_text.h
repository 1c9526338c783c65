// UTF-8 <-> UTF-16, the same on every system. Ill-formed input follows the practice of the Unicode
// standard (section 3.9, substitution of maximal subparts): one U+FFFD for each maximal subpart.
// POSIX file names are bytes; those that are not UTF-8 travel as lone surrogates U+DC80 to U+DCFF,
// so that a name found on disk can be opened again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace nuv64::platform {

enum class BadBytes { kReplace, kEscape };

inline constexpr char16_t kReplacement = 0xFFFD;

// The sequence at the start of text: its length, and whether it is well-formed. An ill-formed one
// has the length of its maximal subpart.
struct Utf8Sequence {
    std::size_t length;
    bool valid;
    std::uint32_t codePoint;
};

inline Utf8Sequence utf8Sequence(std::string_view text) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::uint32_t lead = byte(0);
    if (lead < 0x80) return {1, true, lead};
    if (lead < 0xC2 || lead > 0xF4) return {1, false, 0};
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t value = lead & (0x7Fu >> length);
    std::uint32_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    std::uint32_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= text.size() || byte(i) < low || byte(i) > high) return {i, false, 0};
        value = value << 6 | (byte(i) & 0x3F);
        low = 0x80;
        high = 0xBF;
    }
    return {length, true, value};
}

inline void appendUtf16(std::u16string& text, std::uint32_t codePoint) {
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

inline void appendUtf8(std::string& text, std::uint32_t codePoint) {
    const auto put = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto tail = [&](int shift) { put(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | codePoint >> 6);
        tail(0);
    } else if (codePoint < 0x10000) {
        put(0xE0 | codePoint >> 12);
        tail(6);
        tail(0);
    } else {
        put(0xF0 | codePoint >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

inline std::u16string decodeUtf8(std::string_view text, BadBytes badBytes) {
    std::u16string wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const Utf8Sequence sequence = utf8Sequence(text);
        if (sequence.valid) {
            appendUtf16(wide, sequence.codePoint);
        } else if (badBytes == BadBytes::kReplace) {
            wide += kReplacement;
        } else {
            for (const char c : text.substr(0, sequence.length))
                wide += static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(c));
        }
        text.remove_prefix(sequence.length);
    }
    return wide;
}

inline std::string encodeUtf8(std::u16string_view text, BadBytes badBytes) {
    std::string narrow;
    narrow.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::uint32_t unit = text[i];
        const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        if (isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            appendUtf8(narrow, 0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00u));
        } else if (badBytes == BadBytes::kEscape && unit >= 0xDC80 && unit <= 0xDCFF) {
            narrow += static_cast<char>(unit & 0xFF);
        } else {
            appendUtf8(narrow, isHigh || isLow ? kReplacement : unit);
        }
    }
    return narrow;
}

}  // namespace nuv64::platform
