// Reading a real number from a range of characters, the one place where text becomes a double.
//
// The grammar is that of C's strtod in the "C" locale: optional sign; decimal digits with an
// optional point and an optional exponent; "0x" and hexadecimal digits with an optional binary
// exponent; "inf", "infinity", "nan", "nan(...)" in any case. The result is correctly rounded;
// above the range it is an infinity, below it a zero, each with its sign. No locale, no allocation,
// and nothing at or behind the end of the range is looked at.
#pragma once

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace nuv64 {

// White is every character whose absolute value, taken as signed in its own width, is at most 32.
// So are the bytes 0xE0 to 0xFF and their sign-extended 16-bit images; line and list parsing has
// always worked so. The terminator counts too: test for it first.
inline bool isWhite(char ch) noexcept {
    const int value = static_cast<signed char>(ch);
    return value <= 32 && value >= -32;
}
inline bool isWhite(char16_t ch) noexcept {
    const int value = static_cast<std::int16_t>(ch);
    return value <= 32 && value >= -32;
}

namespace number_text {

template <class Ch>
constexpr unsigned decimalDigit(Ch ch) noexcept {  // 0 to 9, or more
    return static_cast<unsigned>(ch) - '0';
}

template <class Ch>
constexpr unsigned hexDigit(Ch ch) noexcept {  // 0 to 15, or 16
    const unsigned code = static_cast<unsigned>(ch);
    if (code - '0' < 10) return code - '0';
    const unsigned letter = (code | 0x20) - 'a';
    return letter < 6 ? letter + 10 : 16;
}

template <class Ch>
constexpr bool isLetter(Ch ch, char lower) noexcept {
    return (static_cast<unsigned>(ch) | 0x20) == static_cast<unsigned char>(lower);
}

// Behind word if the range begins with it, in any case; begin otherwise.
template <class Ch>
const Ch* skipWord(const Ch* begin, const Ch* end, const char* word) noexcept {
    const Ch* p = begin;
    for (; *word != 0; ++word, ++p) {
        if (p == end || !isLetter(*p, *word)) return begin;
    }
    return p;
}

// Behind an exponent (marker, optional sign, digits), adding it to *exponent; p if there is none.
// The sum is capped far outside any double's range, which keeps it from wrapping.
template <class Ch>
const Ch* readExponent(const Ch* p, const Ch* end, char marker, std::int64_t* exponent) noexcept {
    if (p == end || !isLetter(*p, marker)) return p;
    const Ch* digits = p + 1;
    const bool negative = digits != end && *digits == '-';
    if (digits != end && (*digits == '-' || *digits == '+')) ++digits;
    if (digits == end || decimalDigit(*digits) > 9) return p;
    std::int64_t value = 0;
    for (; digits != end && decimalDigit(*digits) <= 9; ++digits) {
        if (value < 1000000000000000) value = value * 10 + decimalDigit(*digits);
    }
    *exponent += negative ? -value : value;
    return digits;
}

// The digits of a hexadecimal number as an integer times a power of 16.
struct ScannedDigits {
    std::uint64_t mantissa = 0;
    std::int64_t exponent = 0;  // in digits
    bool cut = false;           // digits other than 0 did not fit the mantissa
    bool any = false;
};

// Digits with an optional point, which may also stand first or last. A lone point leaves any false.
template <class Ch>
const Ch* scanHexadecimal(const Ch* p, const Ch* end, ScannedDigits& scanned) noexcept {
    constexpr int room = 16;  // digits that always fit the mantissa
    int held = 0;
    bool behindPoint = false;
    for (; p != end; ++p) {
        const unsigned digit = hexDigit(*p);
        if (digit >= 16) {
            if (*p != '.' || behindPoint) break;
            behindPoint = true;
            continue;
        }
        scanned.any = true;
        if (held < room) {
            scanned.mantissa = scanned.mantissa * 16 + digit;
            held += scanned.mantissa != 0;
            scanned.exponent -= behindPoint;
        } else {
            scanned.cut |= digit != 0;
            scanned.exponent += !behindPoint;
        }
    }
    return p;
}

// mantissa * 2^exponent, rounded once, half to even; cut tells of lost digits below.
inline double scaledByTwo(std::uint64_t mantissa, std::int64_t exponent, bool cut) noexcept {
    if (mantissa == 0) return 0.0;
    const int shift = std::countl_zero(mantissa);
    mantissa <<= shift;
    exponent -= shift;  // now 2^63 <= mantissa
    if (exponent > 1023 - 63) return std::numeric_limits<double>::infinity();
    if (exponent < -1074 - 64) return 0.0;
    const std::int64_t bits = exponent + 64 + 1074 < 53 ? exponent + 64 + 1074 : 53;
    constexpr std::uint64_t top = std::uint64_t{1} << 63;
    if (bits == 0) return mantissa > top || cut ? std::numeric_limits<double>::denorm_min() : 0.0;
    const int drop = static_cast<int>(64 - bits);
    std::uint64_t kept = mantissa >> drop;
    const std::uint64_t lost = mantissa << bits;
    if (lost > top || (lost == top && (cut || (kept & 1) != 0))) ++kept;
    return std::ldexp(static_cast<double>(kept), static_cast<int>(exponent) + drop);
}

// digits times 10^exponent by the library's reader; text has room behind digitsEnd.
// lead is the decimal exponent of 0.ddd and tells overflow from underflow.
inline double fromDecimalText(char* text, char* digitsEnd, char* textEnd, std::int64_t exponent,
                              std::int64_t lead) noexcept {
    if (lead > 320) return std::numeric_limits<double>::infinity();
    if (lead < -330) return 0.0;
    *digitsEnd = 'e';
    const char* end = std::to_chars(digitsEnd + 1, textEnd, exponent).ptr;
    double value = 0.0;
    const auto result = std::from_chars(text, end, value);
    if (result.ec == std::errc::result_out_of_range)
        return lead > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return value;
}

// The digits of [p, end) times 10^exponent, however many there are. A double is decided by at most
// 768 significant digits: 800 are kept, and one more digit stands for all that follow.
template <class Ch>
double longDecimal(const Ch* p, const Ch* end, std::int64_t exponent) noexcept {
    constexpr int room = 800;
    char text[room + 40];
    int count = 0;
    std::int64_t dropped = 0;  // digits that text lacks
    bool cut = false;
    for (; p != end; ++p) {
        const unsigned digit = decimalDigit(*p);
        if (digit > 9 || (count == 0 && digit == 0)) continue;
        if (count < room) {
            text[count++] = static_cast<char>('0' + digit);
        } else {
            cut |= digit != 0;
            ++dropped;
        }
    }
    if (count == 0) return 0.0;  // whatever the exponent
    // exponent belongs to the last digit of the whole number.
    exponent += dropped;
    const std::int64_t lead = exponent + count;
    if (cut) {
        text[count++] = '1';
        --exponent;
    }
    return fromDecimalText(text, text + count, text + sizeof text, exponent, lead);
}

// Behind a decimal number of few digits without exponent, as nearly all are: the digits as an
// integer and the power of ten are exact, so that one division rounds correctly (Clinger, ACM
// SIGPLAN Notices 25(6), 92, 1990). begin when it is none, or more than that.
template <class Ch>
const Ch* readPlainDecimal(const Ch* begin, const Ch* end, double* value) noexcept {
    static constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr std::ptrdiff_t longest = 15;  // digits that a double's 53 bits hold for sure
    std::uint64_t digits = 0;
    const Ch* p = begin;
    for (; p != end && decimalDigit(*p) <= 9; ++p) digits = digits * 10 + decimalDigit(*p);
    std::ptrdiff_t length = p - begin, fraction = 0;
    if (p != end && *p == '.') {
        const Ch* const point = p++;
        for (; p != end && decimalDigit(*p) <= 9; ++p) digits = digits * 10 + decimalDigit(*p);
        fraction = p - point - 1;
        length += fraction;
    }
    if (length == 0 || length > longest || (p != end && isLetter(*p, 'e'))) return begin;
    *value = static_cast<double>(digits) / kPowers[fraction];
    return p;
}

// Behind a decimal number of moderate length and range, by the library's reader; begin when it is
// none, or one that needs the general way.
template <class Ch>
const Ch* readShortDecimal(const Ch* begin, const Ch* end, double* value) noexcept {
    constexpr std::ptrdiff_t longest = 48;
    char narrow[longest] = {};
    const char* first = narrow;
    std::ptrdiff_t length = 0;
    if constexpr (sizeof(Ch) == 1) {
        first = begin;
        if (end) {
            length = end - begin < longest ? end - begin : longest;
        } else {
            const void* terminator = std::memchr(begin, 0, longest);
            length = terminator ? static_cast<const char*>(terminator) - begin : longest;
        }
    } else {
        for (; length < longest && begin + length != end; ++length) {
            const Ch ch = begin[length];
            if (decimalDigit(ch) > 9 && !isLetter(ch, 'e') && ch != '.' && ch != '-' && ch != '+')
                break;
            narrow[length] = static_cast<char>(ch);
        }
    }
    const auto result = std::from_chars(first, first + length, *value);
    if (result.ec != std::errc()) return begin;
    // An exponent may have been cut behind its mark or sign.
    if (length == longest && first + length - result.ptr < 3) return begin;
    return begin + (result.ptr - first);
}

// Behind a decimal number, or begin.
template <class Ch>
const Ch* readDecimal(const Ch* begin, const Ch* end, double* value) noexcept {
    if (begin == end || (decimalDigit(*begin) > 9 && *begin != '.')) return begin;
    const Ch* after = readPlainDecimal(begin, end, value);
    if (after == begin) after = readShortDecimal(begin, end, value);
    if (after != begin) return after;
    std::int64_t fraction = 0;  // digits behind the point
    bool any = false, behindPoint = false;
    const Ch* p = begin;
    for (; p != end; ++p) {
        if (decimalDigit(*p) <= 9) {
            any = true;
            fraction += behindPoint;
        } else if (*p == '.' && !behindPoint) {
            behindPoint = true;
        } else {
            break;
        }
    }
    if (!any) return begin;
    std::int64_t exponent = 0;
    after = readExponent(p, end, 'e', &exponent);
    *value = longDecimal(begin, p, exponent - fraction);
    return after;
}

// Behind a hexadecimal number whose "0x" stands in front of begin, or begin.
template <class Ch>
const Ch* readHexadecimal(const Ch* begin, const Ch* end, double* value) noexcept {
    ScannedDigits scanned;
    const Ch* digitsEnd = scanHexadecimal(begin, end, scanned);
    if (!scanned.any) return begin;
    std::int64_t exponent = scanned.exponent * 4;
    const Ch* after = readExponent(digitsEnd, end, 'p', &exponent);
    *value = scaledByTwo(scanned.mantissa, exponent, scanned.cut);
    return after;
}

// Behind "inf", "infinity", "nan" or "nan(...)", or begin.
template <class Ch>
const Ch* readWord(const Ch* begin, const Ch* end, double* value) noexcept {
    const Ch* p = skipWord(begin, end, "inf");
    if (p != begin) {
        *value = std::numeric_limits<double>::infinity();
        return skipWord(p, end, "inity");
    }
    p = skipWord(begin, end, "nan");
    if (p == begin) return begin;
    *value = std::numeric_limits<double>::quiet_NaN();
    if (p == end || *p != '(') return p;
    for (const Ch* q = p + 1; q != end; ++q) {
        if (*q == ')') return q + 1;
        const unsigned letter = (static_cast<unsigned>(*q) | 0x20) - 'a';
        if (decimalDigit(*q) > 9 && letter > 25 && *q != '_') break;
    }
    return p;
}

}  // namespace number_text

// The number at begin (no white space is skipped). A null end stands for a terminated text, of
// which no more is looked at than belongs to the number. *after (may be null) is set behind it;
// *found (may be null) tells whether there is one. Without a number the result is the module's
// not-a-number and *after is begin.
template <class Ch>
double readReal(const Ch* begin, const Ch* end, const Ch** after, bool* found = nullptr) noexcept {
    using namespace number_text;
    const Ch* p = begin;
    const bool negative = p != end && *p == '-';
    if (p != end && (*p == '-' || *p == '+')) ++p;
    double value = 0.0;
    const Ch* behind = p;
    if ((!end || end - p > 2) && *p == '0' && isLetter(p[1], 'x')) {
        behind = readHexadecimal(p + 2, end, &value);
        if (behind == p + 2) behind = p;
    }
    if (behind == p) behind = readDecimal(p, end, &value);
    if (behind == p) behind = readWord(p, end, &value);
    const bool ok = behind != p;
    if (after) *after = ok ? behind : begin;
    if (found) *found = ok;
    if (!ok) return std::bit_cast<double>(std::uint64_t{0xFFFF000000000000});
    return negative ? -value : value;
}

}  // namespace nuv64
