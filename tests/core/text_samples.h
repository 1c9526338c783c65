// Texts for the tests that hold the two members of a pair against each other.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>

// The 16-bit image of an 8-bit text: each byte extended with its sign.
inline std::u16string widened(const std::string& text) {
    std::u16string wide;
    for (const char ch : text) wide += static_cast<char16_t>(static_cast<signed char>(ch));
    return wide;
}

struct FreeText {
    void operator()(void* block) const { std::free(block); }
};

// What a maker gave, as a string, released; null is told apart from an empty text.
template <class Ch>
std::basic_string<Ch> taken(Ch* text) {
    static constexpr Ch kNull[] = {'<', 'n', 'u', 'l', 'l', '>', 0};
    const std::unique_ptr<Ch, FreeText> owner(text);
    return text ? std::basic_string<Ch>(text) : std::basic_string<Ch>(kNull);
}

// A block of its own with exactly room for the text, so that the sanitizer sees every overrun.
template <class Ch>
std::unique_ptr<Ch, FreeText> owned(const std::basic_string<Ch>& text) {
    std::unique_ptr<Ch, FreeText> block(
        static_cast<Ch*>(std::malloc((text.size() + 1) * sizeof(Ch))));
    std::char_traits<Ch>::copy(block.get(), text.c_str(), text.size() + 1);
    return block;
}

class TextSource {
  public:
    explicit TextSource(std::uint64_t seed) : generator_(seed) {}

    // Below limit; the same on every system.
    std::uint64_t below(std::uint64_t limit) { return generator_() % limit; }

    std::string text(std::uint64_t longest, const std::string& alphabet = kMixed) {
        std::string text(below(longest + 1), ' ');
        for (char& ch : text) ch = alphabet[below(alphabet.size())];
        return text;
    }

    std::uint64_t bits() { return generator_(); }

    // White, letters, digits, separators, and bytes above 127 that are white or not.
    static inline const std::string kMixed =
        "  \t\r\n\x01 abcABCzZ019+-.,;/\\\"'xe\x80\xA9\xE3\xFF";

  private:
    std::mt19937_64 generator_;
};
