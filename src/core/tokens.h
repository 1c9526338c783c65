// The token grammar that formulas and task scripts share: where a name or a number ends. Letters
// and digits are those of ASCII; a character of the upper half of an 8-bit text is none of them,
// nor is it a blank.
#pragma once

#include <cstddef>
#include <type_traits>

namespace nuv64 {

// The code of a character; 8-bit ones count as unsigned.
template <class Ch>
constexpr unsigned codeOf(Ch ch) noexcept {
    return static_cast<std::make_unsigned_t<Ch>>(ch);
}

template <class Ch>
constexpr bool isTokenDigit(Ch ch) noexcept {
    return codeOf(ch) - '0' < 10;
}

template <class Ch>
constexpr bool isTokenLetter(Ch ch) noexcept {
    return (codeOf(ch) | 32) - 'a' < 26;
}

// Control characters and the space; not the terminator.
template <class Ch>
constexpr bool isTokenBlank(Ch ch) noexcept {
    return ch != 0 && codeOf(ch) <= 32;
}

template <class Ch>
constexpr const Ch* skipTokenBlanks(const Ch* at) noexcept {
    while (isTokenBlank(*at)) ++at;
    return at;
}

template <class Ch>
constexpr const Ch* skipTokenDigits(const Ch* at) noexcept {
    while (isTokenDigit(*at)) ++at;
    return at;
}

// A digit, or one behind "-", "." or "-.".
template <class Ch>
constexpr bool startsNumber(const Ch* at) noexcept {
    if (*at == '-') ++at;
    if (*at == '.') ++at;
    return isTokenDigit(*at);
}

// The place behind the number at which at points: digits, "." and digits, and an exponent when it
// has at least one digit, so that "2em" is the number 2 and a name.
template <class Ch>
constexpr const Ch* endOfNumber(const Ch* at) noexcept {
    if (*at == '-') ++at;
    at = skipTokenDigits(at);
    if (*at == '.') at = skipTokenDigits(at + 1);
    if (*at != 'e' && *at != 'E') return at;
    const Ch* exponent = at + 1;
    if (*exponent == '+' || *exponent == '-') ++exponent;
    return isTokenDigit(*exponent) ? skipTokenDigits(exponent) : at;
}

}  // namespace nuv64
