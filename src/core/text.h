// What the text functions of both widths share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string_view>

#include "core/number_text.h"
#include "core/owned.h"

namespace nuv64 {

inline constexpr std::uint64_t kNotFound = UINT64_MAX;

// A view of a text that may be null.
template <class Ch>
std::basic_string_view<Ch> viewOf(const Ch* text) noexcept {
    return text ? std::basic_string_view<Ch>(text) : std::basic_string_view<Ch>();
}

// The piece from first up to end of a view; anything outside is cut off.
template <class Ch>
std::basic_string_view<Ch> piece(std::basic_string_view<Ch> text, std::uint64_t first,
                                 std::uint64_t end) noexcept {
    end = std::min<std::uint64_t>(end, text.size());
    return first < end ? text.substr(first, end - first) : std::basic_string_view<Ch>();
}

// A new text of a view, or null when memory is short.
template <class Ch>
Owned<Ch> tryCopy(std::basic_string_view<Ch> text) noexcept {
    Owned<Ch> copy = tryAllocate<Ch>(text.size() + 1);
    if (!copy) return {};
    if (!text.empty()) std::memcpy(copy.get(), text.data(), text.size() * sizeof(Ch));
    copy[text.size()] = 0;
    return copy;
}

// Appends more, which may lie inside *text. *text is created when null. The new *text; null when
// memory is short, and then *text stands.
template <class Ch>
Ch* appendText(Ch** text, std::basic_string_view<Ch> more) noexcept {
    const std::uint64_t length = viewOf<Ch>(*text).size();
    if (*text && std::less_equal<>{}(*text, more.data()) &&
        std::less_equal<>{}(more.data(), *text + length)) {
        const Owned<Ch> copy = tryCopy(more);
        return copy ? appendText(text, std::basic_string_view<Ch>(copy.get(), more.size()))
                    : nullptr;
    }
    if (more.size() >= PTRDIFF_MAX / sizeof(Ch) - length) return nullptr;
    void* block = std::realloc(*text, (length + more.size() + 1) * sizeof(Ch));
    if (!block) return nullptr;
    *text = static_cast<Ch*>(block);
    if (!more.empty()) std::memcpy(*text + length, more.data(), more.size() * sizeof(Ch));
    (*text)[length + more.size()] = 0;
    return *text;
}

// As much of a view as a buffer with room for capacity characters, the terminator among them,
// takes. The number of characters.
template <class Ch>
std::uint64_t copyToBuffer(std::basic_string_view<Ch> text, Ch* buffer,
                           std::uint64_t capacity) noexcept {
    if (!buffer || capacity == 0) return 0;
    const std::uint64_t count = std::min<std::uint64_t>(text.size(), capacity - 1);
    if (count != 0) std::memmove(buffer, text.data(), count * sizeof(Ch));
    buffer[count] = 0;
    return count;
}

// ASCII only: no locale has a say.
template <class Ch>
constexpr bool isSmallLetter(Ch ch) noexcept {
    return ch >= 'a' && ch <= 'z';
}

template <class Ch>
constexpr bool isCapLetter(Ch ch) noexcept {
    return ch >= 'A' && ch <= 'Z';
}

template <class Ch>
constexpr Ch toUpper(Ch ch) noexcept {
    return isSmallLetter(ch) ? static_cast<Ch>(ch - 32) : ch;
}

template <class Ch>
constexpr Ch toLower(Ch ch) noexcept {
    return isCapLetter(ch) ? static_cast<Ch>(ch + 32) : ch;
}

// 8-bit to wide extends the sign; wide to 8-bit keeps the low byte.
constexpr char16_t widen(char ch) noexcept {
    return static_cast<char16_t>(static_cast<signed char>(ch));
}
constexpr char narrow(char16_t ch) noexcept {
    return static_cast<char>(ch & 0xFF);
}

}  // namespace nuv64
