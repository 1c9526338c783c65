#include "nuv64/core/console_output.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "core/owned_result.h"
#include "nuv64/core/formatter.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/status.h"
#include "support/console_streams.h"

namespace {

// Both widths must print the same; the text of the wide one is returned.
template <class Wide, class Narrow>
std::string both(Wide&& wide, Narrow&& narrow) {
    const std::string text = printedBy(wide);
    EXPECT_EQ(printedBy(narrow), text);
    return text;
}

TEST(CoutStr, PrintsTheTextAndNothingElse) {
    EXPECT_EQ(both([] { CoutStr(u"a\n\tb"); }, [] { CoutStrA("a\n\tb"); }), "a\n\tb");
    EXPECT_EQ(both([] { CoutStr(nullptr); }, [] { CoutStrA(nullptr); }), "");
    EXPECT_EQ(both([] { CoutStr(u""); }, [] { CoutStrA(""); }), "");
    EXPECT_EQ(both([] { CoutStr(u"\u00E4\u20AC\U0001F600"); },
                   [] { CoutStrA("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"); }),
              "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(printedBy([] { CoutStrA("\xE4|\xFF"); }), "\xE4|\xFF") << "bytes as they are";
    const std::string large(100000, 'x');
    EXPECT_EQ(both([&] { CoutStr(widened(large).c_str()); }, [&] { CoutStrA(large.c_str()); }),
              large);
}

TEST(Cout, JoinsItsTexts) {
    EXPECT_EQ(both([] { Cout(u"1", u"2", u"3", u"4", u"5", u"6"); },
                   [] { CoutA("1", "2", "3", "4", "5", "6"); }),
              "123456");
    EXPECT_EQ(both([] { Cout(u"1", nullptr, nullptr, nullptr, nullptr, nullptr); },
                   [] { CoutA("1", nullptr, nullptr, nullptr, nullptr, nullptr); }),
              "1");
    EXPECT_EQ(both([] { Cout(nullptr, u"2", nullptr, nullptr, nullptr, u"6"); },
                   [] { CoutA(nullptr, "2", nullptr, nullptr, nullptr, "6"); }),
              "26");
    EXPECT_EQ(both([] { Cout(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr); },
                   [] { CoutA(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr); }),
              "");
}

TEST(CoutPrompt, IsPlainTextWithoutATerminal) {
    EXPECT_EQ(both([] { CoutPrompt(u"a", u"b", nullptr, u"d", nullptr, nullptr); },
                   [] { CoutPromptA("a", "b", nullptr, "d", nullptr, nullptr); }),
              "abd");
}

TEST(CoutChr, PrintsOneCharacter) {
    EXPECT_EQ(both([] { CoutChr(u'x'); }, [] { CoutChrA('x'); }), "x");
    EXPECT_EQ(both([] { CoutChr(u'\n'); }, [] { CoutChrA('\n'); }), "\n");
    EXPECT_EQ(both([] { CoutChr(0); }, [] { CoutChrA(0); }), "");
    EXPECT_EQ(printedBy([] { CoutChr(u'\u20AC'); }), "\xE2\x82\xAC");
    EXPECT_EQ(printedBy([] { CoutChr(0xD800); }), "\xEF\xBF\xBD") << "half a character";
}

TEST(CoutChar, StandsBetweenItsTexts) {
    EXPECT_EQ(both([] { CoutChar(u"<", u'x', u">"); }, [] { CoutCharA("<", 'x', ">"); }), "<x>");
    EXPECT_EQ(
        both([] { CoutChar(nullptr, u'x', nullptr); }, [] { CoutCharA(nullptr, 'x', nullptr); }),
        "x");
    EXPECT_EQ(both([] { CoutChar(u"<", 0, u">"); }, [] { CoutCharA("<", 0, ">"); }), "<>");
}

TEST(CoutBool, SaysTrueOrFalse) {
    EXPECT_EQ(both([] { CoutBool(u"<", true, u">"); }, [] { CoutBoolA("<", true, ">"); }),
              "<true>");
    EXPECT_EQ(
        both([] { CoutBool(nullptr, false, nullptr); }, [] { CoutBoolA(nullptr, false, nullptr); }),
        "false");
}

TEST(CoutPointer, PrintsAsTheFormatterDoes) {
    const std::uintptr_t addresses[] = {0, 1, 0x1234ABCDu, UINTPTR_MAX - 1, UINTPTR_MAX};
    for (const std::uintptr_t address : addresses) {
        const auto* pointer = reinterpret_cast<const void*>(address);
        EXPECT_EQ(both([&] { CoutPointer(u"<", pointer, u">"); },
                       [&] { CoutPointerA("<", pointer, ">"); }),
                  *taken(NewSprintfA("<%p>", pointer)));
    }
    EXPECT_EQ(printedBy([] { CoutPointerA("p=", nullptr, nullptr); }), "p=NULL");
}

// A width that is too small for the number prints it whole.
TEST(CoutDword, IsRightJustified) {
    const auto text = [](std::uint32_t value, std::uint32_t width, std::uint32_t radix) {
        return both([&] { CoutDword(u"<", value, u">", width, radix); },
                    [&] { CoutDwordA("<", value, ">", width, radix); });
    };
    EXPECT_EQ(text(12345, 0, 10), "<12345>");
    EXPECT_EQ(text(12345, 3, 10), "<12345>");
    EXPECT_EQ(text(12345, 5, 10), "<12345>");
    EXPECT_EQ(text(12345, 8, 10), "<   12345>");
    EXPECT_EQ(text(UINT32_MAX, 0, 10), "<4294967295>");
    EXPECT_EQ(text(255, 4, 16), "<  FF>");
    EXPECT_EQ(text(5, 0, 2), "<101>");
    EXPECT_EQ(text(5, 0, 0), "<>") << "as DwordToBuffer";
    EXPECT_EQ(text(5, 3, 1), "<   >");
    EXPECT_EQ(text(7, 10000, 10), "<" + std::string(9999, ' ') + "7>");
    EXPECT_EQ(printedBy([] { CoutDword(nullptr, 7, nullptr, 2, 10); }), " 7");
    EXPECT_EQ(printedBy([] { CoutDwordA(nullptr, 7, nullptr, 2, 10); }), " 7");
}

struct IntegerCase {
    std::uint64_t bits;
    std::uint32_t width;
    std::uint32_t radix;

    auto d() const { return static_cast<std::uint32_t>(bits); }
    auto l() const { return static_cast<std::int32_t>(bits); }
    auto q() const { return static_cast<std::int64_t>(bits); }
    std::string padded(char* number) const {
        const std::string text = *taken(number);
        return "[" + std::string(width > text.size() ? width - text.size() : 0, ' ') + text + "]";
    }
};

std::vector<IntegerCase> integerCases() {
    std::mt19937_64 random(17);
    std::vector<IntegerCase> cases;
    for (int i = 0; i < 500; ++i) {
        const auto word = [&] { return static_cast<std::uint32_t>(random()); };
        cases.push_back({random() >> word() % 64, word() % 40, 2 + word() % 15});
        if (cases.back().bits == UINT64_MAX) cases.pop_back();
    }
    return cases;
}

TEST(CoutIntegers, PrintWhatTheirPrintersWrite) {
    const auto cases = integerCases();
    std::string expected;
    for (const auto& c : cases) {
        expected += c.padded(NewStringFromDwordA(c.d(), c.radix));
        expected += c.padded(NewStringFromLongA(c.l(), c.radix));
        expected += c.padded(NewStringFromQwordA(c.bits, c.radix));
        expected += c.padded(NewStringFromQlongA(c.q(), c.radix));
    }
    const auto wide = [&] {
        for (const auto& c : cases) {
            CoutDword(u"[", c.d(), u"]", c.width, c.radix);
            CoutLong(u"[", c.l(), u"]", c.width, c.radix);
            CoutQword(u"[", c.bits, u"]", c.width, c.radix);
            CoutQlong(u"[", c.q(), u"]", c.width, c.radix);
        }
    };
    const auto narrow = [&] {
        for (const auto& c : cases) {
            CoutDwordA("[", c.d(), "]", c.width, c.radix);
            CoutLongA("[", c.l(), "]", c.width, c.radix);
            CoutQwordA("[", c.bits, "]", c.width, c.radix);
            CoutQlongA("[", c.q(), "]", c.width, c.radix);
        }
    };
    EXPECT_EQ(both(wide, narrow), expected);
    EXPECT_EQ(printedBy([] { CoutLongA(nullptr, INT32_MIN, nullptr, 0, 10); }), "-2147483648");
    EXPECT_EQ(printedBy([] { CoutQwordA(nullptr, UINT64_MAX - 1, nullptr, 0, 10); }),
              "18446744073709551614");
    EXPECT_EQ(printedBy([] { CoutQlongA(nullptr, INT64_MIN + 1, nullptr, 0, 10); }),
              "-9223372036854775807");
}

TEST(CoutIntegers, InvalidOnesHaveTheirNames) {
    EXPECT_EQ(both([] { CoutQword(u"<", UINT64_MAX, u">", 0, 10); },
                   [] { CoutQwordA("<", UINT64_MAX, ">", 0, 10); }),
              "<_InvalidQWORD>");
    EXPECT_EQ(both([] { CoutQlong(u"<", INT64_MIN, u">", 0, 16); },
                   [] { CoutQlongA("<", INT64_MIN, ">", 0, 16); }),
              "<_InvalidQLONG>");
}

struct RealCase {
    double value;
    std::uint32_t digits;
    std::uint32_t radix;
};

std::vector<RealCase> realCases() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    std::vector<RealCase> cases = {{1.5, 3, 1}, {1.0 / 3, 500, 10}};
    for (const double value : {0.0, -0.0, 1.5, -1e6, 0.0625, double{___MaxReal}, 5e-324,
                               double{___NAN}, kInfinity, -kInfinity})
        for (const std::uint32_t radix : {0u, 2u, 10u, 16u}) cases.push_back({value, 0, radix});
    std::mt19937_64 random(18);
    for (int i = 0; i < 200; ++i) {
        const int exponent = static_cast<int>(random() % 200) - 160;
        const auto digits = static_cast<std::uint32_t>(random() % 20);
        cases.push_back({std::ldexp(static_cast<double>(random()), exponent), digits, 10});
    }
    return cases;
}

// 0 as the base stands for 10.
TEST(CoutReal, PrintsWhatRealToBufferWrites) {
    const auto cases = realCases();
    std::string expected;
    for (const auto& c : cases)
        expected +=
            "<" + *taken(NewStringFromRealA(c.value, c.digits, c.radix ? c.radix : 10)) + ">";
    const auto wide = [&] {
        for (const auto& c : cases) CoutReal(u"<", c.value, u">", c.digits, c.radix);
    };
    const auto narrow = [&] {
        for (const auto& c : cases) CoutRealA("<", c.value, ">", c.digits, c.radix);
    };
    EXPECT_EQ(both(wide, narrow), expected);
    EXPECT_EQ(printedBy([] { CoutRealA(" Frequency", 2.5, " Hz\n", 3, 0); }),
              " Frequency2.50 Hz\n");
    EXPECT_EQ(printedBy([] { CoutReal(nullptr, 1.0, nullptr, 1, 10); }), "1.");
}

TEST(Coutf, PrintsFormattedText) {
    EXPECT_EQ(both([] { Coutf(u"%d|%5.2f|%s", -3, 1.25, u"t"); },
                   [] { CoutfA("%d|%5.2f|%s", -3, 1.25, "t"); }),
              "-3| 1.25|t");
    EXPECT_EQ(both([] { Coutf(u"100%%"); }, [] { CoutfA("100%%"); }), "100%");
    EXPECT_EQ(both([] { Coutf(nullptr); }, [] { CoutfA(nullptr); }), "");
}

TEST(CoutMemA, PrintsBytesAsDigits) {
    const unsigned char bytes[] = {0x00, 0xA5, 0xFF};
    const auto text = [&](std::uint32_t radix) {
        return printedBy([&] { CoutMemA("m: ", bytes, sizeof bytes, radix); });
    };
    EXPECT_EQ(text(3), "m: 00A5FF");
    EXPECT_EQ(text(16), "m: 00A5FF");
    EXPECT_EQ(text(1), "m: 000000001010010111111111");
    EXPECT_EQ(text(2), text(1));
    for (const std::uint32_t radix : {0u, 4u, 10u, UINT32_MAX}) EXPECT_EQ(text(radix), "m: ");
    EXPECT_EQ(printedBy([&] { CoutMemA(nullptr, bytes, 1, 16); }), "00");
    EXPECT_EQ(printedBy([&] { CoutMemA("m", bytes, 0, 16); }), "m");
    EXPECT_EQ(printedBy([] { CoutMemA("m", nullptr, 4, 16); }), "m");
}

TEST(CoutError, NamesTheStatus) {
    for (const std::uint32_t status : {1u, 14u, 56u, 0x80001u, 9999u}) {
        const std::string expected =
            " Error " + std::to_string(status) + ": " + KoErrorStringA(status) + "\n";
        EXPECT_EQ(both([&] { CoutError(status, u"unused", 0); },
                       [&] { CoutErrorA(status, "unused", 0); }),
                  expected);
    }
    EXPECT_EQ(printedBy([] { CoutErrorA(14, nullptr, 0); }), " Error 14: Missing input data\n");
    EXPECT_EQ(both([] { CoutError(0, u"own text", 0); }, [] { CoutErrorA(0, "own text", 0); }),
              "own text\n");
    EXPECT_EQ(both([] { CoutError(0, nullptr, 0); }, [] { CoutErrorA(0, nullptr, 0); }), "\n");
}

TEST(CoutError, WaitsForAKey) {
    const TypedInput typed("ab");
    EXPECT_EQ(printedBy([] { CoutErrorA(0, "t", 1); }), "t\n\n Hit any key to continuea");
    EXPECT_EQ(printedBy([] { CoutError(5, nullptr, 2); }),
              " Error 5: Console management error\n\n Hit any key to continueb");
    EXPECT_EQ(printedBy([] { CoutError(0, u"t", 1); }), "t\n\n Hit any key to continue")
        << "the end of the input";
}

TEST(CoutNumFlags, NamesTheBitsInTheirOrder) {
    EXPECT_EQ(both([] { CoutNumFlags(u"<", 0xFFFFFFFF, u">"); },
                   [] { CoutNumFlagsA("<", 0xFFFFFFFF, ">"); }),
              "<NUM_UNDEFINED NUM_ILLEGALCHAR NUM_FRACTIONAL NUM_NOSTRUCT NUM_OVERFLOW "
              "NUM_UNDERFLOW NUM_PRECISIONLIM NUM_U64OVERFLOW NUM_I64OVERFLOW NUM_U32OVERFLOW "
              "NUM_I32OVERFLOW NUM_U64OVERFLOW NUM_I64OVERFLOW NUM_U32OVERFLOW NUM_I32OVERFLOW "
              "NUM_ABOVELIMIT NUM_BELOWLIMIT NUM_BADRADIX >");
    EXPECT_EQ(
        both([] { CoutNumFlags(nullptr, 0, nullptr); }, [] { CoutNumFlagsA(nullptr, 0, nullptr); }),
        "");
    struct Name {
        std::uint32_t bit;
        const char* name;
    };
    const Name names[] = {
        {16, "NUM_UNDEFINED "},        {32, "NUM_ILLEGALCHAR "},      {64, "NUM_FRACTIONAL "},
        {128, "NUM_NOSTRUCT "},        {0x100, "NUM_OVERFLOW "},      {0x200, "NUM_UNDERFLOW "},
        {0x400, "NUM_PRECISIONLIM "},  {0x40000, "NUM_U64OVERFLOW "}, {0x4000, "NUM_I64OVERFLOW "},
        {0x10000, "NUM_U32OVERFLOW "}, {0x1000, "NUM_I32OVERFLOW "},  {0x80000, "NUM_U64OVERFLOW "},
        {0x8000, "NUM_I64OVERFLOW "},  {0x20000, "NUM_U32OVERFLOW "}, {0x2000, "NUM_I32OVERFLOW "},
        {1u << 28, "NUM_ABOVELIMIT "}, {1u << 29, "NUM_BELOWLIMIT "}, {1u << 30, "NUM_BADRADIX "}};
    std::uint32_t named = 0;
    for (const Name& row : names) {
        EXPECT_EQ(printedBy([&] { CoutNumFlagsA(nullptr, row.bit, nullptr); }), row.name);
        named |= row.bit;
    }
    EXPECT_EQ(printedBy([&] { CoutNumFlagsA("<", ~named, ">"); }), "<>");
    std::uint32_t flags = 0;
    StringToQwordA("-1", &flags, nullptr, 10);
    EXPECT_EQ(printedBy([&] { CoutNumFlagsA("", flags, "\n"); }),
              "NUM_UNDERFLOW NUM_U64OVERFLOW \n");
}

}  // namespace
