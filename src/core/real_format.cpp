#include "core/real_format.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "core/text.h"

namespace nuv64 {
namespace {

constexpr int kMaxDigitsBeforePoint = 309;

std::string toChars(double value, std::chars_format format, int precision) {
    std::string text(
        static_cast<std::size_t>(kMaxDigitsBeforePoint) + 32 + static_cast<std::size_t>(precision),
        0);
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
    return text;
}

// A point in front of the exponent, or at the end, if there is none.
void ensurePoint(std::string& text, char exponentMark) {
    if (text.find('.') != text.npos) return;
    text.insert(std::min(text.find(exponentMark), text.size()), 1, '.');
}

// The decimal exponent that the conversion e shows.
int exponentOf(const std::string& scientific) {
    const char* digits = scientific.data() + scientific.find('e') + 1;
    if (*digits == '+') ++digits;
    int exponent = 0;
    std::from_chars(digits, scientific.data() + scientific.size(), exponent);
    return exponent;
}

// C's rule for g; with alternate the trailing zeros stay.
std::string formatGeneral(double value, int precision, bool alternate) {
    if (precision == 0) precision = 1;
    if (!alternate) return toChars(value, std::chars_format::general, precision);
    std::string text = toChars(value, std::chars_format::scientific, precision - 1);
    const int exponent = exponentOf(text);
    if (exponent >= -4 && exponent < precision)
        text = toChars(value, std::chars_format::fixed, precision - 1 - exponent);
    ensurePoint(text, 'e');
    return text;
}

// The conversion a, from the bits: one digit before the point, 1, or 0 for zero and subnormals.
std::string formatHexadecimal(double magnitude, int precision, bool alternate) {
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << 52) - 1);
    int exponent = static_cast<int>(bits >> 52);
    if (exponent != 0) mantissa |= std::uint64_t{1} << 52;
    if (exponent == 0 && mantissa != 0) exponent = 1;
    if (mantissa != 0) exponent -= 1023;
    int digits = 13;
    if (precision < 0) {
        for (; digits != 0 && (mantissa >> (52 - 4 * digits) & 15) == 0;) --digits;
    } else if (precision < 13) {
        digits = precision;
        const int dropped = 52 - 4 * digits;
        const std::uint64_t unit = std::uint64_t{1} << dropped;
        const std::uint64_t rest = mantissa & (unit - 1);
        mantissa -= rest;
        if (rest > unit / 2 || (rest == unit / 2 && (mantissa & unit) != 0)) mantissa += unit;
    }
    std::string text(1, static_cast<char>('0' + (mantissa >> 52)));
    if (digits != 0 || precision > 0 || alternate) text += '.';
    for (int i = 1; i <= digits; ++i) text += "0123456789abcdef"[mantissa >> (52 - 4 * i) & 15];
    if (precision > digits) text.append(static_cast<std::size_t>(precision - digits), '0');
    text += 'p';
    text += exponent < 0 ? '-' : '+';
    return text += std::to_string(std::abs(exponent));
}

}  // namespace

std::string formatMagnitude(double magnitude, char conversion, int precision, bool alternate) {
    const char lower = toLower(conversion);
    std::string text;
    if (std::isnan(magnitude)) {
        text = "nan";
    } else if (std::isinf(magnitude)) {
        text = "inf";
    } else if (lower == 'a') {
        text = formatHexadecimal(magnitude, precision, alternate);
    } else if (lower == 'g') {
        text = formatGeneral(magnitude, precision < 0 ? 6 : precision, alternate);
    } else {
        const auto format = lower == 'f' ? std::chars_format::fixed : std::chars_format::scientific;
        text = toChars(magnitude, format, precision < 0 ? 6 : precision);
        if (alternate) ensurePoint(text, 'e');
    }
    if (lower != conversion) {
        for (char& ch : text) ch = toUpper(ch);
    }
    return text;
}

}  // namespace nuv64
