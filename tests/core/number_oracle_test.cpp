// Numbers read and printed, against independent ways to the same result: the C runtime and the
// standard library's shortest digits, arithmetic of 128 bits, and the printer told plainly.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "core/text_samples.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"

namespace {

__extension__ typedef unsigned __int128 Wide;

std::uint64_t bitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

// The text is read wholly and gives the value, bit by bit.
void expectReads(const char* text, double value) {
    std::uint32_t flags = 0;
    std::uint64_t consumed = 0;
    const double read = StringToRealA(text, &flags, &consumed, 10);
    const std::uint32_t expected = std::fabs(value) == ___MaxReal ? 0x100u : 0u;
    if (bitsOf(read) == bitsOf(value) && flags == expected && text[consumed] == 0) return;
    ADD_FAILURE() << std::string(text).substr(0, 100) << " read as " << read << ", flags " << flags
                  << ", " << consumed;
}

void expectReads(const std::string& text, double value) {
    expectReads(text.c_str(), value);
}

// By the standard library, in count significant digits.
void readBack(double value, int digits) {
    char text[64];
    *std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, digits - 1).ptr =
        0;
    expectReads(text, value);
}

void readBackShortest(double value) {
    char text[64];
    *std::to_chars(text, text + sizeof text, value).ptr = 0;
    expectReads(text, value);
}

// All digits that the value has, as the longest text there is.
std::string exactText(double value) {
    std::string text(1500, 0);
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, 1074);
    text.resize(static_cast<std::size_t>(end.ptr - text.data()));
    return text;
}

double randomFinite(TextSource& source) {
    for (;;) {
        const double value = std::bit_cast<double>(source.bits());
        if (std::isfinite(value)) return value;
    }
}

// RealToBuffer told plainly: one double, its whole part taken off and multiplied by the radix.
std::string plainlyPrinted(double value, std::uint32_t digits, std::uint32_t radix) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "+INF" : "-INF";
    if (std::fabs(value) < ___MinReal) return "0";
    double m = std::fabs(value);
    int exponent = 0;
    while (m >= radix) m /= radix, ++exponent;
    while (m < 1) m *= radix, --exponent;
    if (digits == 0)
        digits = static_cast<std::uint32_t>(std::floor(-std::log(___EpsReal) / std::log(radix)));
    std::string figures;
    for (std::uint32_t i = 0; i < digits; ++i) {
        const double digit = std::floor(m);
        figures += "0123456789ABCDEF"[static_cast<unsigned>(digit) & 15];
        m = (m - digit) * radix;
    }
    std::string text = value < 0 ? "-" : "";
    if (exponent < -3 || exponent >= static_cast<int>(digits)) {
        char number[80];
        *std::to_chars(number, number + sizeof number, exponent, static_cast<int>(radix)).ptr = 0;
        for (char* c = number; *c != 0; ++c)
            if (*c >= 'a') *c = static_cast<char>(*c - 32);
        return text + figures[0] + "." + figures.substr(1) + (radix == 10 ? "e" : "_") + number;
    }
    if (exponent < 0)
        return text + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + figures;
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    return text + figures.substr(0, whole) + "." + figures.substr(whole);
}

void expectPrints(double value, std::uint32_t digits, std::uint32_t radix) {
    char text[2000];
    const std::uint64_t length = RealToBufferA(value, text, digits, radix);
    const std::string expected = plainlyPrinted(value, digits, radix);
    if (expected != text || length != expected.size())
        ADD_FAILURE() << "printed " << text << ", not " << expected << ": " << digits
                      << " digits, radix " << radix;
}

}  // namespace

TEST(NumberOracle, AMillionDoublesSurviveTheRoundTrip) {
    TextSource source(201);
    for (int i = 0; i < 1000000; ++i) {
        const double value = randomFinite(source);
        readBackShortest(value);
        if (i % 4 == 0) readBack(value, 17);
    }
}

#ifndef _WIN32
TEST(NumberOracle, TheRuntimeReadsTheSame) {
    TextSource source(202);
    for (int i = 0; i < 200000; ++i) {
        // Digits that needn't belong to any double, also more than count.
        std::string text = source.text(1 + source.below(25), "0123456789");
        text.insert(source.below(text.size() + 1), ".");
        if (source.below(2) != 0)
            text += "e" + std::to_string(static_cast<int>(source.below(700)) - 350);
        if (text[0] == '.' && (text.size() == 1 || text[1] == 'e')) continue;
        const double value = std::strtod(text.c_str(), nullptr);
        expectReads(text, value);
    }
}
#endif

TEST(NumberOracle, PowersOfTwo) {
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double value = std::ldexp(1.0, exponent);
        for (const double near : {std::nextafter(value, 0.0), value,
                                  std::nextafter(value, std::numeric_limits<double>::max())}) {
            readBack(near, 17);
            readBackShortest(-near);
            expectReads(exactText(near), near);
        }
    }
}

TEST(NumberOracle, PowersOfTen) {
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const std::string text = "1e" + std::to_string(exponent);
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        expectReads(text, value);
        expectReads("1" + std::string(400, '0') + "e" + std::to_string(exponent - 400), value);
        expectReads("0." + std::string(400, '0') + "1e" + std::to_string(exponent + 401), value);
        expectReads(exactText(value), value);
        expectPrints(value, 17, 10);
        expectPrints(-value, 0, 10);
    }
}

TEST(NumberOracle, Subnormals) {
    TextSource source(203);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::bit_cast<double>(source.bits() >> (12 + source.below(52)));
        readBack(value, 17);
        readBackShortest(value);
        if (i % 20 == 0) expectReads(exactText(value), value);
    }
    expectPrints(5e-324, 15, 10);
    expectPrints(std::nextafter(___MinReal, 0.0), 15, 10);
    expectPrints(___MinReal, 15, 10);
}

TEST(NumberOracle, TextsOfAnyLength) {
    // Halfway between two doubles, and a digit behind as far away as texts go.
    const std::string half = "9007199254740993";
    for (const std::size_t zeros : {0u, 20u, 31u, 32u, 33u, 34u, 700u, 800u, 900u, 100000u}) {
        const std::string text = half + "." + std::string(zeros, '0');
        expectReads(text + "0", 9007199254740992.0);
        expectReads(text + "1", 9007199254740994.0);
        expectReads(text + "1e-3", 9007199254740.993);
        expectReads(text + "0e+000003", 9007199254740993000.0);
    }
    // Zeros stay zero under any exponent.
    for (const std::size_t zeros : {1u, 40u, 46u, 47u, 48u, 49u, 1000u}) {
        for (const char* exponent : {"e400", "e-400", "e99999999999999999999", ".0e777"})
            expectReads("-" + std::string(zeros, '0') + exponent, -0.0);
    }
    // A text that is cut anywhere near an exponent.
    for (std::size_t digits = 10; digits < 60; ++digits) {
        const std::string text = "1" + std::string(digits, '0');
        const double value = std::pow(10.0, static_cast<double>(digits));
        for (const char* exponent : {"e0", "e+0", "e-0", "e00000"}) {
            std::uint64_t consumed = 0;
            const double read = StringToRealA((text + exponent).c_str(), nullptr, &consumed, 10);
            EXPECT_NEAR(read, value, value * 1e-15);
            EXPECT_EQ(consumed, text.size() + std::strlen(exponent));
            EXPECT_EQ(read, StringToReal(widened(text + exponent).c_str(), nullptr, nullptr, 10));
        }
        for (const char* behind : {"e", "e+", "e-", "ex", "."}) {
            std::uint64_t consumed = 0;
            StringToRealA((text + behind).c_str(), nullptr, &consumed, 10);
            EXPECT_EQ(consumed, text.size() + (*behind == '.')) << text << behind;
        }
    }
}

TEST(NumberOracle, PrintedInEveryBase) {
    TextSource source(204);
    for (std::uint32_t radix = 2; radix <= 16; ++radix) {
        for (int i = 0; i < 4000; ++i) {
            const auto digits = static_cast<std::uint32_t>(source.below(60));
            expectPrints(randomFinite(source), digits, radix);
            const double moderate = static_cast<double>(source.bits() >> 11) /
                                    std::ldexp(1.0, static_cast<int>(source.below(70)));
            expectPrints(moderate, digits, radix);
            expectPrints(-std::floor(moderate), digits, radix);
        }
    }
}

TEST(NumberOracle, PrintedInBaseTen) {
    TextSource source(205);
    for (int i = 0; i < 100000; ++i) {
        const double value = randomFinite(source);
        const double moderate = std::ldexp(1.0 + static_cast<double>(source.bits() >> 12) * 0x1p-52,
                                           static_cast<int>(source.below(40)) - 20);
        expectPrints(value, static_cast<std::uint32_t>(source.below(25)), 10);
        expectPrints(moderate, 17, 10);
        expectPrints(moderate, 60, 10);
    }
    for (const double edge : {std::nextafter(1.0, 0.0), std::nextafter(10.0, 0.0), 9.5, 1.0, 10.0,
                              std::nextafter(10.0, 11.0), ___MaxReal, 0.1, 0.001, 0.0001})
        for (std::uint32_t digits = 0; digits < 60; ++digits) expectPrints(edge, digits, 10);
}

TEST(NumberOracle, SeventeenPrintedDigitsComeNearBack) {
    // Digits are cut, not rounded, and the repeated division loses a little.
    TextSource source(206);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::ldexp(1.0 + static_cast<double>(source.bits() >> 12) * 0x1p-52,
                                        static_cast<int>(source.below(100)) - 50);
        char text[64];
        RealToBufferA(value, text, 17, 10);
        std::uint32_t flags = 0;
        const double read = StringToRealA(text, &flags, nullptr, 10);
        ASSERT_EQ(flags, 0u) << text;
        ASSERT_LE(std::fabs(read - value), 8 * ___EpsReal * value) << text;
    }
}

TEST(NumberOracle, IntegersInEveryBase) {
    TextSource source(207);
    for (int i = 0; i < 20000; ++i) {
        const auto radix = static_cast<std::uint32_t>(2 + source.below(15));
        const std::uint64_t value = source.bits() >> source.below(64);
        const auto asSigned = static_cast<std::int64_t>(source.bits()) >> source.below(64);
        char expected[80], text[80];
        const auto upper = [&](char* end) {
            *end = 0;
            for (char* c = expected; *c != 0; ++c)
                if (*c >= 'a') *c = static_cast<char>(*c - 32);
            return static_cast<std::uint64_t>(end - expected);
        };
        const auto base = static_cast<int>(radix);
        EXPECT_EQ(QwordToBufferA(value, text, radix),
                  upper(std::to_chars(expected, expected + 80, value, base).ptr));
        EXPECT_STREQ(text, expected);
        EXPECT_EQ(QlongToBufferA(asSigned, text, radix),
                  upper(std::to_chars(expected, expected + 80, asSigned, base).ptr));
        EXPECT_STREQ(text, expected);
        const auto dword = static_cast<std::uint32_t>(value);
        DwordToBufferA(dword, text, radix);
        upper(std::to_chars(expected, expected + 80, dword, base).ptr);
        EXPECT_STREQ(text, expected);
        const auto asLong = static_cast<std::int32_t>(asSigned);
        LongToBufferA(asLong, text, radix);
        upper(std::to_chars(expected, expected + 80, asLong, base).ptr);
        EXPECT_STREQ(text, expected);
    }
}

namespace {

struct Strict {
    std::uint64_t value;
    std::uint32_t flags;
    std::uint64_t consumed;
};

// The strict reader of 64 bits with arithmetic of 128, for a text of sign, prefix and up to 30
// digits.
Strict plainlyRead(const std::string& text, std::uint32_t entry) {
    std::size_t i = text.find_first_not_of(" \t");
    if (i == text.npos) i = text.size();
    const auto at = [&](std::size_t k) { return k < text.size() ? text[k] : '\0'; };
    if (at(i) == '+') ++i;
    const bool negative = at(i) == '-';
    i += negative;
    unsigned base = 10;
    if ((entry & 1) && at(i) == '0') {
        const char letter = static_cast<char>(at(i + 1) | 0x20);
        base = letter == 'x' ? 16 : letter == 'b' ? 2 : letter == 'o' ? 8 : 10;
        i += base == 10 ? 0 : 2;
    }
    Wide sum = 0;
    bool over = false, any = false;
    for (;; ++i) {
        const char c = at(i);
        const int digit = c >= '0' && c <= '9'   ? c - '0'
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                          : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                 : 99;
        if (digit >= static_cast<int>(base)) break;
        any = true;
        sum = sum * base + static_cast<unsigned>(digit);
        over = over || sum > UINT64_MAX;
    }
    while (at(i) == ' ' || at(i) == '\t') ++i;
    const auto low = static_cast<std::uint64_t>(sum);
    std::uint32_t flags = entry & 3;
    if (over) flags |= 0x55100;
    if (!any) flags |= 0x10;
    if (any && low > INT64_MAX) flags |= 0x15000;
    if (any && low > UINT32_MAX) flags |= 0x11000;
    if (any && low > INT32_MAX) flags |= 0x1000;
    if (any && i < text.size()) flags |= 0x20;
    std::uint64_t value = negative ? 0 - low : low;
    if (over && !(entry & 2)) value = negative ? 0x7FFFFFFFFFFFFFFF : UINT64_MAX - 1;
    return {value, flags, i};
}

}  // namespace

TEST(NumberOracle, StrictReadersAgainst128Bits) {
    static const char* const kPrefixes[] = {"", "0x", "0X", "0b", "0o", "0B", "0O"};
    static const char* const kDigits[] = {"0123456789", "0123456789abcdefABCDEF", "01", "01234567"};
    static const char* const kEnds[] = {"", "", " ", " \t", "x", " 1", "."};
    TextSource source(208);
    for (int i = 0; i < 200000; ++i) {
        const std::uint64_t kind = source.below(4);
        std::string text = source.below(3) == 0 ? " \t" : "";
        if (source.below(3) == 0) text += "+";
        if (source.below(3) == 0) text += "-";
        text += kPrefixes[source.below(7)];
        if (source.below(3) == 0) {
            // Around the limits.
            static const std::uint64_t kLimits[] = {0, 0x7FFFFFFF, 0xFFFFFFFF, 0x7FFFFFFFFFFFFFFF,
                                                    UINT64_MAX};
            text += std::to_string(kLimits[source.below(5)] + source.below(3) - 1);
        } else {
            text += source.text(kind == 2 ? 66 : 24, kDigits[kind]);
        }
        text += kEnds[source.below(7)];
        const auto entry = static_cast<std::uint32_t>(source.below(4));
        const bool binary = text.find_first_of("bB") != text.npos && (entry & 1);
        if (kind == 2 && !binary && text.size() > 40) continue;  // beyond 128 bits
        const Strict expected = plainlyRead(text, entry);
        std::uint32_t flags = entry;
        std::uint64_t consumed = 0;
        const std::uint64_t value = StringToQwordStrictA(text.c_str(), &flags, &consumed);
        ASSERT_EQ(value, expected.value) << text << ' ' << entry;
        ASSERT_EQ(flags, expected.flags) << text << ' ' << entry;
        ASSERT_EQ(consumed, expected.consumed) << text << ' ' << entry;
        flags = entry;
        ASSERT_EQ(StringToQlongStrictA(text.c_str(), &flags, &consumed),
                  static_cast<std::int64_t>(expected.value));
        ASSERT_EQ(flags, expected.flags | (expected.flags & 0x4000 ? 0x100u : 0u)) << text;
        flags = entry;
        const std::uint32_t dword = StringToDwordStrictA(text.c_str(), &flags, &consumed);
        const bool above = (expected.flags & 0x10000) != 0;
        ASSERT_EQ(dword,
                  above && !(entry & 2) ? UINT32_MAX : static_cast<std::uint32_t>(expected.value));
        ASSERT_EQ(flags, expected.flags | (above ? 0x100u : 0u));
        flags = entry;
        const std::int32_t asLong = StringToLongStrictA(text.c_str(), &flags, &consumed);
        const bool beyond = (expected.flags & 0x1000) != 0;
        const auto asQlong = static_cast<std::int64_t>(expected.value);
        const std::int32_t limit = asQlong < 1 ? -0x7FFFFFFF : 0x7FFFFFFF;
        ASSERT_EQ(asLong, beyond && !(entry & 2) ? limit : static_cast<std::int32_t>(asQlong))
            << text;
    }
}
