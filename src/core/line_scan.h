// The line rules that all text input shares: a line ends with LF, Ctrl-Z or NUL, and a CR before an
// LF belongs to the line end. A lone CR does not end a line.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/character_vector.h"

namespace nuv64 {

constexpr bool endsLine(char c) noexcept {
    return c == '\n' || c == '\x1A' || c == '\0';
}

// Bit 7 of each byte of word that is 0; bytes above the lowest such byte may be marked too (the
// borrow of the subtraction), the lowest one never wrongly.
constexpr std::uint64_t zeroBytes(std::uint64_t word) noexcept {
    return (word - 0x0101010101010101u) & ~word & 0x8080808080808080u;
}

// The first character of [first, last) that ends a line, or last. A vector at a time where there
// are vectors, otherwise a word: lines of data files are short, so that calls of memchr for the
// three characters would cost more than they save.
inline const char* findLineEnd(const char* first, const char* last) noexcept {
#if defined(NUV64_CHARACTER_VECTORS)
    using Vector = platform::CharacterVector<char>;
    const Vector lineFeed = Vector::all('\n'), ctrlZ = Vector::all('\x1A'), nul = Vector::all(0);
    for (; last - first >= static_cast<std::ptrdiff_t>(Vector::kSize); first += Vector::kSize) {
        const Vector block = Vector::load(first);
        const unsigned ends = ((block == lineFeed) | (block == ctrlZ) | (block == nul)).places();
        if (ends) return first + Vector::placeOf(ends);
    }
#endif
    if constexpr (std::endian::native == std::endian::little) {
        constexpr std::uint64_t kLineFeeds = 0x0101010101010101u * '\n';
        constexpr std::uint64_t kCtrlZs = 0x0101010101010101u * '\x1A';
        for (; last - first >= 8; first += 8) {
            std::uint64_t word;
            std::memcpy(&word, first, sizeof word);
            const std::uint64_t ends =
                zeroBytes(word) | zeroBytes(word ^ kLineFeeds) | zeroBytes(word ^ kCtrlZs);
            if (ends) return first + std::countr_zero(ends) / 8;
        }
    }
    while (first != last && !endsLine(*first)) ++first;
    return first;
}

// line holds a line with its line end, which is taken off.
inline std::string_view withoutLineEnd(std::string_view line) noexcept {
    const char end = line.back();
    line.remove_suffix(1);
    if (end == '\n' && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

}  // namespace nuv64
