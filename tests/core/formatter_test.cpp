#include "nuv64/core/formatter.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/formatter.h"
#include "core/text_samples.h"
#include "nuv64/core/memory.h"

namespace {

// What both members of the pair make of a format and arguments that mean the same to both.
template <class... Arguments>
std::string formatted(const std::string& format, Arguments... arguments) {
    const std::string narrow = taken(NewSprintfA(format.c_str(), arguments...));
    const std::u16string wide = taken(NewSprintf(widened(format).c_str(), arguments...));
    EXPECT_EQ(wide, widened(narrow)) << format;
    return narrow;
}

#ifndef _WIN32
template <class... Arguments>
std::string asRuntime(const std::string& format, Arguments... arguments) {
    char buffer[3000];
    std::snprintf(buffer, sizeof buffer, format.c_str(), arguments...);
    return buffer;
}
#endif

// The runtime is the judge where it is the one that is matched. Elsewhere, the sum of all texts.
class Judge {
  public:
    template <class... Arguments>
    void judge(const std::string& format, Arguments... arguments) {
        const std::string text = formatted(format, arguments...);
#ifndef _WIN32
        EXPECT_EQ(text, asRuntime(format, arguments...)) << format;
#endif
        for (const char ch : text + '\n')
            sum_ = (sum_ ^ static_cast<unsigned char>(ch)) * 0x100000001B3;  // FNV-1a
    }
    std::uint64_t sum() const {
        return sum_;
    }

  private:
    std::uint64_t sum_ = 0xCBF29CE484222325;
};

std::string randomSpecification(TextSource& source, std::uint64_t widest, std::uint64_t most) {
    static const char* const kFlags[] = {"", "-", "+", " ", "#", "0", "#0", "-#", "+0", "+#", "0-"};
    std::string text = "%";
    text += kFlags[source.below(11)];
    if (source.below(2) != 0) text += std::to_string(source.below(widest));
    if (source.below(2) != 0) text += "." + std::to_string(source.below(most));
    return text;
}

double randomReal(TextSource& source) {
    static const double kChosen[] = {0.0,
                                     -0.0,
                                     std::numeric_limits<double>::infinity(),
                                     -std::numeric_limits<double>::infinity(),
                                     std::nan(""),
                                     9.5,
                                     0.5,
                                     1.5,
                                     2.5,
                                     1e100,
                                     5e-324,
                                     0.0001,
                                     0.00001,
                                     99.5,
                                     99999.5,
                                     1e22};
    const std::uint64_t bits = source.bits();
    switch (source.below(4)) {
        case 0:
            return kChosen[bits % 16];
        case 1:
            return static_cast<double>(static_cast<int>(bits % 2000001) - 1000000) / 1000.0;
        case 2:
            return static_cast<double>(static_cast<int>(bits % 201) - 100) / 8;
        default:
            const auto value = std::bit_cast<double>(bits);
            return std::isnan(value) ? 1.0 : value;
    }
}

std::string formattedByList(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string text = nuv64::formatText(format, arguments).get();
    va_end(arguments);
    return text;
}

}  // namespace

TEST(Formatter, CopiesTextAndWhatItDoesNotKnow) {
    EXPECT_EQ(formatted(""), "");
    EXPECT_EQ(formatted("plain \xC2\xB0"), "plain \xC2\xB0");
    EXPECT_EQ(formatted("100%%"), "100%");
    EXPECT_EQ(formatted("%"), "%");
    EXPECT_EQ(formatted("a%5"), "a%5");
    EXPECT_EQ(formatted("a%-08.3ll"), "a%-08.3ll");
    EXPECT_EQ(formatted("%y %\xE9 %!"), "%y %\xE9 %!");
    EXPECT_EQ(taken(NewSprintfA(nullptr)), "");
    EXPECT_EQ(taken(NewSprintf(nullptr)), u"");
    EXPECT_EQ(formattedByList("%d-%s-%g", 1, "x", 2.5), "1-x-2.5");
}

TEST(Formatter, Reals) {
    EXPECT_EQ(formatted("%g", 100000.0), "100000");
    EXPECT_EQ(formatted("%g", 1e6), "1e+06");
    EXPECT_EQ(formatted("%15.4g|", 0.00012345), "      0.0001234|");
    EXPECT_EQ(formatted("%e", 12345.678), "1.234568e+04");
    EXPECT_EQ(formatted("%.0f %#.0f", 2.5, 2.5), "2 2.");
    EXPECT_EQ(formatted("%f", 1e15), "1000000000000000.000000");
    EXPECT_EQ(formatted("%E", 1e-300), "1.000000E-300");
    EXPECT_EQ(formatted("%a %A", 1.0, -0.1), "0x1p+0 -0X1.999999999999AP-4");
    EXPECT_EQ(formatted("%lf %Lf", 1.5, 2.5), "1.500000 2.500000");
    const double infinity = std::numeric_limits<double>::infinity(), nan = std::nan("");
    EXPECT_EQ(formatted("%g %f %e %a", nan, infinity, -infinity, nan), "nan inf -inf nan");
    EXPECT_EQ(formatted("%G %F", nan, -infinity), "NAN -INF");
    EXPECT_EQ(formatted("%g", -nan), "nan");  // not-a-numbers of the module have their sign set
    EXPECT_EQ(formatted("%06g|%-6g|%+g", nan, infinity, infinity), "   nan|inf   |+inf");
    // Rounding to one digit more: C wants the zeros of "#" here too.
    EXPECT_EQ(formatted("%#g %#.1g", 999999.5, 9.9), "1.00000e+06 1.e+01");
    EXPECT_EQ(formatted("%#.3g", 1.0), "1.00");
    EXPECT_EQ(formatted("%.1000f", 0x1p-1074).size(), 1002u);
    EXPECT_EQ(formatted("%.0e", 1.7976931348623157e308), "2e+308");
}

TEST(Formatter, RealsAreThoseOfTheRuntime) {
    TextSource source(41);
    Judge judge;
    for (int i = 0; i < 60000; ++i) {
        std::string format = randomSpecification(source, 25, 25);
        format += "aAeEfFgG"[source.below(8)];
        const double value = randomReal(source);
        // Where "#" keeps zeros, some runtimes lose them when the rounding carries.
        if (format.find('#') != format.npos && (format.back() | 0x20) == 'g') continue;
        judge.judge(format, value);
    }
    EXPECT_EQ(judge.sum(), 0x2E0133601C500B4Bu);
}

TEST(Formatter, IntegersAreThoseOfTheRuntime) {
    TextSource source(42);
    Judge judge;
    for (int i = 0; i < 60000; ++i) {
        static const char* const kLengths[] = {"", "h", "hh", "ll", "j"};
        const auto length = source.below(5);
        const std::string format =
            randomSpecification(source, 14, 12) + kLengths[length] + "diuoxX"[source.below(6)];
        const std::uint64_t bits = source.bits() >> source.below(64);
        const std::uint64_t value = source.below(9) == 0   ? 0
                                    : source.below(2) == 0 ? bits
                                                           : 0 - bits;
        if (length < 3) {
            judge.judge(format, static_cast<int>(value));
        } else {
            judge.judge(format, value);
        }
    }
    EXPECT_EQ(judge.sum(), 0x5F1FBB11AB29D5DBu);
}

TEST(Formatter, IntegerLengths) {
    const std::uint64_t big = 0xFEDCBA9876543210;
    EXPECT_EQ(formatted("%llu %ju %zu %tu %Lu", big, big, big, big, big),
              "18364758544493064720 18364758544493064720 18364758544493064720 "
              "18364758544493064720 18364758544493064720");
    EXPECT_EQ(formatted("%I64X %l64x %Ix", big, big, big),
              "FEDCBA9876543210 fedcba9876543210 fedcba9876543210");
    EXPECT_EQ(formatted("%x %lx %I32x %l16x %hhx", 0x12345678u, 0x12345678u, 0x12345678u,
                        0x12345678u, 0x12345678u),
              "12345678 12345678 12345678 5678 78");
    EXPECT_EQ(formatted("%d %ld %lld", -1, -2, std::int64_t{-3}), "-1 -2 -3");
    EXPECT_EQ(formatted("%lld", std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(formatted("%d %hd %hhd", std::numeric_limits<int>::min(), 0x8000, 0x80),
              "-2147483648 -32768 -128");
}

TEST(Formatter, Stars) {
    EXPECT_EQ(formatted("%*d|%-*d|%*d|", 5, 1, 5, 2, -5, 3), "    1|2    |3    |");
    EXPECT_EQ(formatted("%.*f %.*e", -1, 1.5, 2, 2.5), "1.500000 2.50e+00");
    EXPECT_EQ(formatted("%*.*f|", 7, 2, 3.14159), "   3.14|");
}

TEST(Formatter, Texts) {
    const char* narrow = "ab\xE9";
    const char16_t* wide = u"x\u03c9";
    EXPECT_EQ(taken(NewSprintfA("%s|%5s|%-5s|%.2s|%ls", narrow, narrow, narrow, narrow, wide)),
              "ab\xE9|  ab\xE9|ab\xE9  |ab|x\xC9");
    EXPECT_EQ(taken(NewSprintf(u"%s|%5s|%-5s|%.1s|%hs|%ls", wide, wide, wide, wide, narrow, wide)),
              u"x\u03c9|   x\u03c9|x\u03c9   |x|ab\xFFE9|x\u03c9");
    EXPECT_EQ(formatted("%hs %.3ls|%*.*hs", "one", u"three", 5, 2, "four"), "one thr|   fo");
    EXPECT_EQ(taken(NewSprintfA("%S|", u"two")), "two|");
    EXPECT_EQ(taken(NewSprintf(u"%S|", "two")), u"two|");
    EXPECT_EQ(taken(NewSprintfA("%Z", "zet")), "zet");
    const char unterminated[] = {'a', 'b', 'c'};
    EXPECT_EQ(formatted("%.3hs", &unterminated[0]), "abc");
    const char* none = nullptr;
    EXPECT_EQ(formatted("[%hs][%3ls]", none, none), "[][   ]");
    EXPECT_EQ(formatted("%.0hs|", none), "|");
    const std::string large(100000, 'x');
    EXPECT_EQ(taken(NewSprintfA("<%s>", large.c_str())), "<" + large + ">");
}

TEST(Formatter, Characters) {
    EXPECT_EQ(formatted("%c%3c%-3c|", 'a', 'b', 'c'), "a  bc  |");
    EXPECT_EQ(taken(NewSprintf(u"%c%hc%lc", 0x3c9, 0xE9, 0x3c9)), u"\u03c9\xFFE9\u03c9");
    EXPECT_EQ(taken(NewSprintfA("%c%lc", 0xE9, 0x3c9)), "\xE9\xC9");
}

TEST(Formatter, ValuesBehindAddresses) {
    const int number = -7;
    const std::uint64_t large = UINT64_MAX;
    const std::uint16_t small = 0xFFFE;
    const std::uint8_t byte = 0x85;
    const double real = 2.5;
    const float single = 0.1f;
    EXPECT_EQ(
        formatted("%&d %&llu %&hu %&hd %&hhd %&hhu", &number, &large, &small, &small, &byte, &byte),
        "-7 18446744073709551615 65534 -2 -123 133");
    EXPECT_EQ(formatted("%&g", &real), "2.5");
    EXPECT_EQ(formatted("%.3&l32f %&lf %&I64f", &single, &real, &real), "0.100 2.500000 2.500000");
    const char* text = "abc";
    const char16_t* wide = u"def";
    EXPECT_EQ(formatted("%&hs %&ls", &text, &wide), "abc def");
    const char ch = 'q';
    const char16_t wideCh = u'r';
    EXPECT_EQ(formatted("%&hc%&lc", &ch, &wideCh), "qr");
    void* none = nullptr;
    EXPECT_EQ(formatted("%&d %&g %&hs|", none, none, none), "0 0 |");
}

TEST(Formatter, OwnForms) {
    EXPECT_EQ(formatted("%r|%.3r|%8.2r|%-8.2r|", 0.1, 1.5, 12.5, 12.5),
              "0.100000000000000|1.50|     12.|12.     |");
    EXPECT_EQ(formatted("%r", -std::numeric_limits<double>::infinity()), "-INF");
    const Complex z{1.5, -2};
    EXPECT_EQ(formatted("%.3C|%.3&C|%16.2C", z, &z, z),
              "(1.50, -2.00)|(1.50, -2.00)|     (1.5, -2.0)");
    EXPECT_EQ(formatted("%Q %Q %Q %Q", Qrat{6, -4}, Qrat{8, 4}, Qrat{0, 5}, Qrat{-7, 0}),
              "-3/2 2 0 -1/0");
    const Qrat q{1, 3};
    EXPECT_EQ(formatted("%5&Q|%-5Q|", &q, q), "  1/3|1/3  |");
    EXPECT_EQ(formatted("%Q", Qrat{INT64_MIN, 2}), "-4611686018427387904");
    EXPECT_EQ(formatted("%p", reinterpret_cast<void*>(std::uintptr_t{0xABC})), "0xABC");
    EXPECT_EQ(formatted("%p|%8p", static_cast<void*>(nullptr), static_cast<void*>(nullptr)),
              "NULL|    NULL");
    EXPECT_EQ(formatted("%p", reinterpret_cast<void*>(UINTPTR_MAX)), "INVALID");
    int32_t count = 7;
    EXPECT_EQ(formatted("abc%n%d", &count, 12), "abc12");
    EXPECT_EQ(count, 7);
}

TEST(Formatter, IntoABuffer) {
    for (uint64_t capacity = 1; capacity < 9; ++capacity) {
        const uint64_t count = std::min<uint64_t>(capacity - 1, 6);
        const auto text = owned(std::string(capacity - 1, '?'));
        EXPECT_EQ(SprintfToBufferA(text.get(), capacity, "ab%dcd", 12), count);
        EXPECT_EQ(std::string(text.get()), std::string("ab12cd", count));
        const auto wide = owned(std::u16string(capacity - 1, u'?'));
        EXPECT_EQ(SprintfToBuffer(wide.get(), capacity, u"ab%dcd", 12), count);
        EXPECT_EQ(std::u16string(wide.get()), std::u16string(u"ab12cd", count));
    }
    char again[20] = "%s;";
    EXPECT_EQ(SprintfToBufferA(again, 20, again, again), 4u) << "the buffer is an argument";
    EXPECT_STREQ(again, "%s;;");
    char text[20] = "kept";
    EXPECT_EQ(SprintfToBufferA(text, 0, "x"), 0u);
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(SprintfToBufferA(text, UINT64_MAX, "%d", 5), 1u);
    EXPECT_STREQ(text, "5");
    EXPECT_EQ(SprintfToBufferA(text, 20, nullptr), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(SprintfToBufferA(nullptr, 20, "x"), 0u);
    EXPECT_EQ(SprintfToBuffer(nullptr, 20, u"x"), 0u);
}

TEST(Formatter, Appending) {
    char* text = nullptr;
    EXPECT_STREQ(SprintfAppendA(&text, "%d;", 1), "1;");
    EXPECT_STREQ(SprintfAppendA(&text, "%s|%s", text, text), "1;1;|1;");
    EXPECT_STREQ(SprintfAppendA(&text, nullptr), "1;1;|1;");
    KillStringA(&text);
    EXPECT_EQ(SprintfAppendA(nullptr, "x"), nullptr);
    char16_t* wide = nullptr;
    SprintfAppend(&wide, u"%g", 1.5);
    EXPECT_EQ(std::u16string(SprintfAppend(&wide, u"\u03c9")), u"1.5\u03c9");
    KillString(&wide);
    EXPECT_EQ(SprintfAppend(nullptr, u"x"), nullptr);
}

TEST(Formatter, NoLocaleHasASay) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE", "German_Germany.1252", "fr_FR.UTF-8"})
        std::setlocale(LC_ALL, name);
    EXPECT_EQ(formatted("%g %f %r", 1.5, 1.5, 1.5), "1.5 1.500000 1.50000000000000");
    std::setlocale(LC_ALL, before.c_str());
}
