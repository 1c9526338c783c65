#include "core/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>

#include "core/real_rounding.h"
#include "core/text_samples.h"

namespace {

struct ReadNumber {
    double value;
    std::size_t length;
    bool found;
};

template <class Ch>
ReadNumber readFrom(const std::basic_string<Ch>& text) {
    // A range of exactly the text, so that a look behind its end is seen.
    Ch* range = static_cast<Ch*>(std::malloc(text.size() * sizeof(Ch) + 1));
    std::memcpy(range, text.data(), text.size() * sizeof(Ch));
    const Ch* after = nullptr;
    ReadNumber read{};
    read.value = nuv64::readReal(range, range + text.size(), &after, &read.found);
    read.length = static_cast<std::size_t>(after - range);
    std::free(range);
    return read;
}

bool same(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

ReadNumber readBoth(const std::string& text) {
    SCOPED_TRACE(text.substr(0, 100));
    const ReadNumber narrow = readFrom(text), wide = readFrom(widened(text));
    EXPECT_TRUE(same(narrow.value, wide.value));
    EXPECT_EQ(narrow.length, wide.length);
    EXPECT_EQ(narrow.found, wide.found);
    return narrow;
}

void expectRead(const std::string& text, double value, std::size_t length) {
    SCOPED_TRACE(text.substr(0, 100));
    const ReadNumber read = readBoth(text);
    EXPECT_TRUE(read.found);
    EXPECT_TRUE(same(read.value, value)) << read.value;
    EXPECT_EQ(read.length, length);
}

void expectNone(const std::string& text) {
    SCOPED_TRACE(text.substr(0, 100));
    const ReadNumber read = readBoth(text);
    EXPECT_FALSE(read.found);
    EXPECT_EQ(read.length, 0u);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read.value), 0xFFFF000000000000u);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The runtime's own reader. Only where it is known to round correctly.
void expectAsRuntime(const std::string& text) {
    SCOPED_TRACE(text.substr(0, 100));
#ifndef _WIN32
    if (!text.empty() && std::strchr(" \t\n\v\f\r", text[0]) != nullptr) return;
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    const auto length = static_cast<std::size_t>(end - text.c_str());
    if (length == 0) {
        expectNone(text);
    } else {
        expectRead(text, value, length);
    }
    const char* after = nullptr;
    nuv64::readReal<char>(text.c_str(), nullptr, &after);
    EXPECT_EQ(static_cast<std::size_t>(after - text.c_str()), length);
#else
    readBoth(text);
#endif
}

}  // namespace

TEST(NumberText, Grammar) {
    expectRead("0", 0.0, 1);
    expectRead("-0", -0.0, 2);
    expectRead("+12.5e1", 125, 7);
    expectRead(".5", 0.5, 2);
    expectRead("5.", 5, 2);
    expectRead("5.e1", 50, 4);
    expectRead("5e", 5, 1);
    expectRead("5e+", 5, 1);
    expectRead("5e-x", 5, 1);
    expectRead("5..2", 5, 2);
    expectRead("1.2.3", 1.2, 3);
    expectRead("0x", 0, 1);
    expectRead("0x.", 0, 1);
    expectRead("0xg", 0, 1);
    expectRead("0x.8p1", 1, 6);
    expectRead("0xAp", 10, 3);
    expectRead("0XaP-1x", 5, 6);
    expectRead("iNf", kInfinity, 3);
    expectRead("-infinit", -kInfinity, 4);
    expectRead("INFINITYx", kInfinity, 8);
    expectRead("nan", std::nan(""), 3);
    expectRead("nan(12_a)", std::nan(""), 9);
    expectRead("nan(1 )", std::nan(""), 3);
    expectRead("nan(", std::nan(""), 3);
    EXPECT_TRUE(std::signbit(readBoth("-nan").value));
    for (const char* text : {"", "+", "-", ".", "-.", "e5", " 1", "in", "na", "--1", ".e1", "x"})
        expectNone(text);
}

TEST(NumberText, RoundsCorrectly) {
    expectRead("9007199254740993", 9007199254740992.0, 16);
    expectRead("9007199254740993." + std::string(900, '0') + "1", 9007199254740994.0, 918);
    expectRead("9007199254740993." + std::string(900, '0'), 9007199254740992.0, 917);
    expectRead("2.4703282292062327e-324", 0, 23);
    expectRead("2.4703282292062328e-324", 0x1p-1074, 23);
    expectRead("1.7976931348623158e308", 0x1.fffffffffffffp1023, 22);
    expectRead("1.7976931348623159e308", kInfinity, 22);
    expectRead("0x1.fffffffffffff7p1023", 0x1.fffffffffffffp1023, 23);
    expectRead("0x1.fffffffffffff8p1023", kInfinity, 23);
    expectRead("0x1.00000000000008p0", 1, 20);
    expectRead("0x1.0000000000000800001p0", 0x1.0000000000001p0, 25);
    expectRead("0x1p-1075", 0, 9);
    expectRead("0x1.8p-1075", 0x1p-1074, 11);
    expectRead("-0x1p-99999999999999999999", -0.0, 26);
}

TEST(NumberText, LongTextsAndExponents) {
    expectRead("0." + std::string(70000, '0') + "1e70001", 1, 70009);
    expectRead("1" + std::string(70000, '0') + "e-70000", 1, 70008);
    expectRead("0e99999999999999999999", 0, 22);
    expectRead("1e99999999999999999999", kInfinity, 22);
    expectRead("1e-99999999999999999999", 0, 23);
    expectRead(std::string(1000, '0') + "1.5", 1.5, 1003);
    expectRead(std::string(1000, '9'), kInfinity, 1000);
}

TEST(NumberText, GoesBackAndForth) {
    TextSource source(31);
    for (int i = 0; i < 100000; ++i) {
        const auto value = std::bit_cast<double>(source.bits());
        if (!std::isfinite(value)) continue;
        char text[64];
        const auto end = std::to_chars(text, text + 64, value).ptr;
        expectRead(std::string(text, end), value, static_cast<std::size_t>(end - text));
    }
}

TEST(NumberText, AgreesWithTheRuntimeOnDigits) {
    TextSource source(32);
    for (int i = 0; i < 100000; ++i) {
        std::string text = source.text(24, "0123456789");
        if (source.below(2) != 0) text.insert(source.below(text.size() + 1), ".");
        if (source.below(2) != 0) text += "e" + std::to_string(int(source.below(700)) - 350);
        expectAsRuntime(text);
    }
}

TEST(NumberText, AgreesWithTheRuntimeOnAnything) {
    TextSource source(33);
    for (int i = 0; i < 200000; ++i)
        expectAsRuntime(source.text(14, "0123456789.eE+-xXpPaAbBfFnNiItTyY() 0123456789"));
}

TEST(NumberText, AgreesWithTheRuntimeBetweenDoubles) {
    // The exact middle of two neighbours, one digit below and one above.
    TextSource source(34);
    for (int i = 0; i < 2000; ++i) {
        const std::uint64_t bits = source.bits() & 0x001FFFFFFFFFFFFF;
        const auto low = std::bit_cast<double>(bits), high = std::bit_cast<double>(bits + 1);
        if (bits >> 52 != ((bits + 1) >> 52)) continue;
        char text[1200];
        const std::string middle(
            text, std::to_chars(text, text + 1200, low, std::chars_format::scientific, 800).ptr);
        expectAsRuntime(middle);
        EXPECT_TRUE(same(readBoth(middle).value, low));
        char hexadecimal[80];
        const auto end =
            std::to_chars(hexadecimal, hexadecimal + 80, low, std::chars_format::hex, 13);
        std::string digits(hexadecimal, end.ptr);
        const std::size_t exponent = digits.find('p');
        const bool even = (bits & 1) == 0;
        const auto between = [&](const char* more) {
            return "0x" + digits.substr(0, exponent) + more + digits.substr(exponent);
        };
        EXPECT_EQ(readBoth(between("8")).value, even ? low : high);
        EXPECT_EQ(readBoth(between("800000000000001")).value, high);
        EXPECT_EQ(readBoth(between("7ffffffffffffff")).value, low);
    }
}

TEST(NumberText, NoLocaleHasASay) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE", "German_Germany.1252", "fr_FR.UTF-8"})
        std::setlocale(LC_ALL, name);
    expectRead("1.5", 1.5, 3);
    expectRead("1,5", 1, 1);
    std::setlocale(LC_ALL, before.c_str());
}

namespace {

// Not std::round: one of the runtimes gives 1 for the number below 1/2.
double plainlyRounded(double x) {
    const double whole = std::floor(std::fabs(x));
    return std::copysign(std::fabs(x) - whole >= 0.5 ? whole + 1 : whole, x);
}

}  // namespace

TEST(RealRounding, HalvesAwayFromZero) {
    for (const double x : {0.0, -0.0, 0.49999999999999994, 0.5, 1.5, 2.5, -2.5, 1e15 + 0.5, 0x1p52,
                           0x1p60, -0x1p51 - 0.5, 1e300})
        EXPECT_TRUE(same(nuv64::roundHalfAway(x), plainlyRounded(x))) << x;
    EXPECT_EQ(nuv64::roundHalfAway(kInfinity), kInfinity);
    EXPECT_TRUE(std::isnan(nuv64::roundHalfAway(std::nan(""))));
    TextSource source(35);
    for (int i = 0; i < 100000; ++i) {
        const double x = std::ldexp(static_cast<double>(static_cast<std::int64_t>(source.bits())),
                                    -static_cast<int>(source.below(70)));
        EXPECT_EQ(nuv64::roundHalfAway(x), plainlyRounded(x)) << x;
    }
}

TEST(RealRounding, ClampedTruncation) {
    const double nan = std::nan("");
    EXPECT_EQ(nuv64::clampToLong(nan), 0);
    EXPECT_EQ(nuv64::clampToLong(-1.9), -1);
    EXPECT_EQ(nuv64::clampToLong(2147483647.9), INT32_MAX);
    EXPECT_EQ(nuv64::clampToLong(2147483648.0), INT32_MAX);
    EXPECT_EQ(nuv64::clampToLong(-2147483648.0), INT32_MIN);
    EXPECT_EQ(nuv64::clampToLong(-kInfinity), INT32_MIN);
    EXPECT_EQ(nuv64::clampToQlong(nan), 0);
    EXPECT_EQ(nuv64::clampToQlong(kInfinity), INT64_MAX);
    EXPECT_EQ(nuv64::clampToQlong(-0x1p63), INT64_MIN);
    EXPECT_EQ(nuv64::clampToQlong(-0x1p62), INT64_MIN / 2);
    EXPECT_EQ(nuv64::clampToDword(nan), 0u);
    EXPECT_EQ(nuv64::clampToDword(-1), 0u);
    EXPECT_EQ(nuv64::clampToDword(4294967295.9), UINT32_MAX);
    EXPECT_EQ(nuv64::clampToDword(kInfinity), UINT32_MAX);
    EXPECT_EQ(nuv64::clampToQword(0x1p63), std::uint64_t{1} << 63);
    EXPECT_EQ(nuv64::clampToQword(0x1p64), UINT64_MAX);
    EXPECT_EQ(nuv64::clampToQword(-kInfinity), 0u);
    EXPECT_EQ(nuv64::truncateToQlong(nan), INT64_MIN);
    EXPECT_EQ(nuv64::truncateToQlong(0x1p63), INT64_MIN);
    EXPECT_EQ(nuv64::truncateToQlong(-0x1p63), INT64_MIN);
    EXPECT_EQ(nuv64::truncateToQlong(-2.9), -2);
}

TEST(RealRounding, FlagsMayBeLeftOut) {
    EXPECT_EQ(nuv64::realRoundToLong(kInfinity), 0x7FFFFFFF);
    EXPECT_EQ(nuv64::realRoundToQlong(-kInfinity), -INT64_MAX);
    EXPECT_EQ(nuv64::realRoundToDword(2.5), 3u);
    EXPECT_EQ(nuv64::realRoundToQword(0x1p63 * 1.5), (std::uint64_t{3} << 62));
}

TEST(RealRounding, MantissaAndExponent) {
    std::int32_t exponent = 7;
    EXPECT_EQ(nuv64::mantissaAndExponent(0.0, &exponent, 10), 0.0);
    EXPECT_EQ(static_cast<std::uint32_t>(exponent), 0x80000001u);
    EXPECT_EQ(nuv64::mantissaAndExponent(-1500.0, &exponent, 10), -1.5);
    EXPECT_EQ(exponent, 3);
    EXPECT_EQ(nuv64::mantissaAndExponent(0x1p-1074, &exponent, 2), 1.0);
    EXPECT_EQ(exponent, -1074);
    EXPECT_EQ(nuv64::mantissaAndExponent(0x1.8p1023, &exponent, 2), 1.5);
    EXPECT_EQ(exponent, 1023);
    EXPECT_EQ(nuv64::mantissaAndExponent(-kInfinity, &exponent, 10), -kInfinity);
    EXPECT_EQ(exponent, 0);
    EXPECT_TRUE(std::isnan(nuv64::mantissaAndExponent(std::nan(""), nullptr, 10)));
    for (const std::int32_t radix : {1, 0, -10, INT32_MIN}) {
        exponent = 7;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(nuv64::mantissaAndExponent(5.0, &exponent, radix)),
                  0xFFFF000000000000u);
        EXPECT_EQ(exponent, 0);
    }
    EXPECT_EQ(nuv64::mantissaAndExponent(3.0, nullptr, INT32_MAX), 3.0);
}

TEST(RealRounding, MantissasAreThoseOfRepeatedDivision) {
    for (int binary = 0; binary < 1024; ++binary) {
        // 1.25 decides how many bits of exponent a tenth loses.
        for (const double leading : {1.0, 1.25, 1.5625, 1.953125, 2.0}) {
            double value = std::nextafter(std::ldexp(leading, binary), 0.0);
            for (int i = 0; i < 3 && std::isfinite(value);
                 ++i, value = std::nextafter(value, kInfinity)) {
                double plain = value;
                std::int32_t steps = 0, exponent = 7;
                for (; plain >= 10; ++steps) plain /= 10;
                for (; plain < 1; --steps) plain *= 10;
                ASSERT_EQ(nuv64::mantissaAndExponent(-value, &exponent, 10), -plain) << value;
                ASSERT_EQ(exponent, steps) << value;
            }
        }
    }
}
