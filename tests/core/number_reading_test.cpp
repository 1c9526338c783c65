#include "nuv64/core/number_reading.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <ostream>

#include "core/text_samples.h"
#include "nuv64/core/special_reals.h"

namespace {

// A value, its flags and how much was consumed.
template <class Number>
struct Read {
    Number value;
    uint32_t flags;
    uint64_t consumed;

    // Not-a-numbers are equal when their bits are.
    bool operator==(const Read& other) const {
        return std::bit_cast<std::array<char, sizeof(Number)>>(value) ==
                   std::bit_cast<std::array<char, sizeof(Number)>>(other.value) &&
               flags == other.flags && consumed == other.consumed;
    }
    friend std::ostream& operator<<(std::ostream& out, const Read& read) {
        return out << read.value << " flags 0x" << std::hex << read.flags << std::dec
                   << " consumed " << read.consumed;
    }
};

// Reads by both members of a pair, which must agree, also when nobody asks for the reports.
template <class Number, class Narrow, class Wide>
Read<Number> readBy(Narrow narrow, Wide wide, const std::string& text, uint32_t flags) {
    Read<Number> first{{}, flags, 99}, second{{}, flags, 99};
    const auto block = owned(text);
    const auto wideBlock = owned(widened(text));
    first.value = narrow(block.get(), &first.flags, &first.consumed);
    second.value = wide(wideBlock.get(), &second.flags, &second.consumed);
    EXPECT_EQ(first, second) << text;
    if (flags == 0) {
        EXPECT_EQ((Read<Number>{narrow(block.get(), nullptr, nullptr), 0, 0}),
                  (Read<Number>{first.value, 0, 0}));
    }
    return first;
}

template <class Number, class Narrow, class Wide>
Read<Number> readDecimal(Narrow narrow, Wide wide, const std::string& text, uint32_t flags) {
    const auto first = [narrow](const char* t, uint32_t* f, uint64_t* c) {
        return narrow(t, f, c, 10);
    };
    const auto second = [wide](const char16_t* t, uint32_t* f, uint64_t* c) {
        return wide(t, f, c, 0);  // the base does not matter
    };
    return readBy<Number>(first, second, text, flags);
}

using Real = Read<double>;
using Dword = Read<uint32_t>;
using Long = Read<int32_t>;
using Qword = Read<uint64_t>;
using Qlong = Read<int64_t>;

Real real(const std::string& text, uint32_t flags = 0) {
    return readDecimal<double>(StringToRealA, StringToReal, text, flags);
}
Dword dword(const std::string& text, uint32_t flags = 0) {
    return readDecimal<uint32_t>(StringToDwordA, StringToDword, text, flags);
}
Long along(const std::string& text, uint32_t flags = 0) {
    return readDecimal<int32_t>(StringToLongA, StringToLong, text, flags);
}
Qword qword(const std::string& text, uint32_t flags = 0) {
    return readDecimal<uint64_t>(StringToQwordA, StringToQword, text, flags);
}
Qlong qlong(const std::string& text, uint32_t flags = 0) {
    return readDecimal<int64_t>(StringToQlongA, StringToQlong, text, flags);
}
Dword dwordStrict(const std::string& text, uint32_t flags = 0) {
    return readBy<uint32_t>(StringToDwordStrictA, StringToDwordStrict, text, flags);
}
Long longStrict(const std::string& text, uint32_t flags = 0) {
    return readBy<int32_t>(StringToLongStrictA, StringToLongStrict, text, flags);
}
Qword qwordStrict(const std::string& text, uint32_t flags = 0) {
    return readBy<uint64_t>(StringToQwordStrictA, StringToQwordStrict, text, flags);
}
Qlong qlongStrict(const std::string& text, uint32_t flags = 0) {
    return readBy<int64_t>(StringToQlongStrictA, StringToQlongStrict, text, flags);
}

constexpr uint64_t kLimit = UINT64_MAX - 1;

}  // namespace

TEST(NumberReading, Reals) {
    EXPECT_EQ(real(""), (Real{___NAN, 16, 0}));
    EXPECT_EQ(real("   "), (Real{___NAN, 16, 3}));
    EXPECT_EQ(real(" abc"), (Real{___NAN, 16, 1}));
    EXPECT_EQ(real("1.5 "), (Real{1.5, 32, 3}));
    EXPECT_EQ(real("1.5"), (Real{1.5, 0, 3}));
    EXPECT_EQ(real(" \t-2e3,"), (Real{-2000, 32, 6}));
    EXPECT_EQ(real("1e"), (Real{1, 32, 1}));
    EXPECT_EQ(real("1,5"), (Real{1, 32, 1}));
    EXPECT_EQ(real("0x1p4"), (Real{16, 0, 5}));
    EXPECT_EQ(real("inf"), (Real{___PlsINF, 0, 3}));
    EXPECT_EQ(real("-Infinity"), (Real{___MnsINF, 0, 9}));
    EXPECT_TRUE(std::isnan(real("nan").value));
    EXPECT_EQ(real("nan").flags, 0u);
    EXPECT_EQ(real("1e999"), (Real{___PlsINF, 0, 5}));
    EXPECT_EQ(real("-1e999"), (Real{___MnsINF, 0, 6}));
    EXPECT_EQ(real("1e-999"), (Real{0, 0, 6}));
    EXPECT_EQ(real("1.7976931348623157e308"), (Real{___MaxReal, 0x100, 22}));
    EXPECT_EQ(real("-1.7976931348623157e308"), (Real{-___MaxReal, 0x100, 23}));
    EXPECT_EQ(real("1.7976931348623155e308").flags, 0u);
    EXPECT_EQ(real("2", 0xFFFFFFFF), (Real{2, 3, 1}));
    EXPECT_EQ(real("x", 0xFFFFFFFF), (Real{___NAN, 19, 0}));
}

TEST(NumberReading, NullTexts) {
    uint32_t flags = 3;
    uint64_t consumed = 9;
    EXPECT_EQ(StringToRealA(nullptr, &flags, &consumed, 10), 0.0);
    EXPECT_EQ(flags, 16u);
    EXPECT_EQ(consumed, 0u);
    EXPECT_EQ(StringToReal(nullptr, nullptr, nullptr, 10), 0.0);
    EXPECT_EQ(StringToQwordA(nullptr, &flags, &consumed, 10), 0u);
    EXPECT_EQ(StringToQwordStrictA(nullptr, &flags, &consumed), 0u);
    EXPECT_EQ(flags, 16u);
    flags = 3;
    EXPECT_EQ(StringToDwordA(nullptr, &flags, nullptr, 10), 0u);
    EXPECT_EQ(flags, 16u);
    EXPECT_EQ(StringToDword(nullptr, nullptr, nullptr, 10), 0u);
    EXPECT_EQ(StringToLongA(nullptr, nullptr, nullptr, 10), 0);
    EXPECT_EQ(StringToLong(nullptr, &flags, nullptr, 10), 0);
    EXPECT_EQ(StringToQword(nullptr, nullptr, nullptr, 10), 0u);
    EXPECT_EQ(StringToQlongA(nullptr, nullptr, nullptr, 10), 0);
    EXPECT_EQ(StringToQlong(nullptr, nullptr, nullptr, 10), 0);
    EXPECT_EQ(StringToDwordStrictA(nullptr, &flags, nullptr), 0u);
    EXPECT_EQ(StringToLongStrictA(nullptr, &flags, nullptr), 0);
    EXPECT_EQ(StringToQlongStrictA(nullptr, &flags, nullptr), 0);
    EXPECT_EQ(StringToQwordStrict(nullptr, &flags, nullptr), 0u);
    EXPECT_EQ(flags, 16u);
}

TEST(NumberReading, UnsignedThroughReals) {
    EXPECT_EQ(qword("-1"), (Qword{0, 0x80200, 2}));
    EXPECT_EQ(qword("2.5"), (Qword{3, 0x40, 3}));
    EXPECT_EQ(qword("12.7 x"), (Qword{13, 0x40, 4}));  // the illegal character is forgotten
    EXPECT_EQ(qword("7 x"), (Qword{7, 0, 1}));
    EXPECT_EQ(qword("4503599627370495"), (Qword{4503599627370495, 0, 16}));
    EXPECT_EQ(qword("4503599627370495.5"), (Qword{4503599627370495, 0x400, 18}));
    EXPECT_EQ(qword("4503599627370497"), (Qword{4503599627370497, 0x400, 16}));
    EXPECT_EQ(qword("18446744073709551615"), (Qword{kLimit, 0x40100, 20}));
    EXPECT_EQ(qword("1e300"), (Qword{kLimit, 0x40100, 5}));
    EXPECT_EQ(qword("nan"), (Qword{0, 0x80200, 3}));
    EXPECT_EQ(qword("inf"), (Qword{kLimit, 0x40100, 3}));
    EXPECT_EQ(qword("-0"), (Qword{0, 0, 2}));
    EXPECT_EQ(qword("0.4"), (Qword{0, 0x40, 3}));
    EXPECT_EQ(qword("", 3), (Qword{0, 19, 0}));
    EXPECT_EQ(dword("4294967294.4"), (Dword{4294967294, 0x40, 12}));
    EXPECT_EQ(dword("4294967294.5"), (Dword{0xFFFFFFFE, 0x10100, 12}));
    EXPECT_EQ(dword("-0.1"), (Dword{0, 0x20200, 4}));
    EXPECT_EQ(dword("nan"), (Dword{0, 0x20200, 3}));
    EXPECT_EQ(dword("17"), (Dword{17, 0, 2}));
    EXPECT_EQ(dword("k"), (Dword{0, 16, 0}));
}

TEST(NumberReading, SignedThroughReals) {
    EXPECT_EQ(along("-2.5"), (Long{-3, 0x40, 4}));
    EXPECT_EQ(along("2147483647"), (Long{0x7FFFFFFF, 0, 10}));
    EXPECT_EQ(along("2147483647.5"), (Long{0x7FFFFFFF, 0x1100, 12}));
    EXPECT_EQ(along("-2147483647.4"), (Long{-0x7FFFFFFF, 0x40, 13}));
    EXPECT_EQ(along("-2147483648"), (Long{-0x7FFFFFFF, 0x2200, 11}));
    EXPECT_EQ(along("nan"), (Long{-0x7FFFFFFF, 0x2200, 3}));
    EXPECT_EQ(qlong("-4503599627370497"), (Qlong{-4503599627370497, 0x400, 17}));
    EXPECT_EQ(qlong("9223372036854775807"), (Qlong{INT64_MAX, 0x4100, 19}));
    EXPECT_EQ(qlong("-9223372036854775808"), (Qlong{-INT64_MAX, 0x8200, 20}));
    EXPECT_EQ(qlong("-1.4"), (Qlong{-1, 0x40, 4}));
    EXPECT_EQ(qlong("nan"), (Qlong{-INT64_MAX, 0x8200, 3}));
    EXPECT_EQ(qlong("."), (Qlong{0, 16, 0}));
}

TEST(NumberReading, StrictQwords) {
    EXPECT_EQ(qwordStrict("0x10", 1), (Qword{16, 1, 4}));
    EXPECT_EQ(qwordStrict("0x10", 0), (Qword{0, 32, 1}));
    EXPECT_EQ(qwordStrict("0b101", 1), (Qword{5, 1, 5}));
    EXPECT_EQ(qwordStrict("0O17", 1), (Qword{15, 1, 4}));
    EXPECT_EQ(qwordStrict("0Xff", 1), (Qword{255, 1, 4}));
    EXPECT_EQ(qwordStrict("017", 1), (Qword{17, 1, 3}));
    EXPECT_EQ(qwordStrict("0", 1), (Qword{0, 1, 1}));
    EXPECT_EQ(qwordStrict("0x", 1), (Qword{0, 17, 2}));
    EXPECT_EQ(qwordStrict("0b2", 1), (Qword{0, 17, 2}));
    EXPECT_EQ(qwordStrict("12 "), (Qword{12, 0, 3}));
    EXPECT_EQ(qwordStrict("12 x"), (Qword{12, 32, 3}));
    EXPECT_EQ(qwordStrict("1.5"), (Qword{1, 32, 1}));
    EXPECT_EQ(qwordStrict(""), (Qword{0, 16, 0}));
    EXPECT_EQ(qwordStrict("x"), (Qword{0, 16, 0}));
    EXPECT_EQ(qwordStrict("+"), (Qword{0, 16, 1}));
    EXPECT_EQ(qwordStrict("+-5"), (Qword{uint64_t(-5), 0, 3}));
    EXPECT_EQ(qwordStrict("-+5"), (Qword{0, 16, 1}));
    EXPECT_EQ(qwordStrict("2147483648"), (Qword{2147483648, 0x1000, 10}));
    EXPECT_EQ(qwordStrict("4294967296"), (Qword{4294967296, 0x11000, 10}));
    EXPECT_EQ(qwordStrict("9223372036854775808"), (Qword{uint64_t{1} << 63, 0x15000, 19}));
    EXPECT_EQ(qwordStrict("18446744073709551615"), (Qword{UINT64_MAX, 0x15000, 20}));
    EXPECT_EQ(qwordStrict("99999999999999999999"), (Qword{kLimit, 0x55100, 20}));
    EXPECT_EQ(qwordStrict("18446744073709551616"), (Qword{kLimit, 0x55100, 20}));
    EXPECT_EQ(qwordStrict("-18446744073709551616"), (Qword{INT64_MAX, 0x55100, 21}));
    EXPECT_EQ(qwordStrict("18446744073709551617", 2), (Qword{1, 0x55102, 20}));
    EXPECT_EQ(qwordStrict("-18446744073709551617", 2), (Qword{UINT64_MAX, 0x55102, 21}));
}

TEST(NumberReading, OtherStrictReaders) {
    EXPECT_EQ(dwordStrict("4294967296"), (Dword{UINT32_MAX, 0x11100, 10}));
    EXPECT_EQ(dwordStrict("4294967297", 2), (Dword{1, 0x11102, 10}));
    EXPECT_EQ(dwordStrict("4294967295"), (Dword{UINT32_MAX, 0x1000, 10}));
    EXPECT_EQ(dwordStrict("-1"), (Dword{UINT32_MAX, 0, 2}));
    EXPECT_EQ(dwordStrict("0x1F", 1), (Dword{31, 1, 4}));
    EXPECT_EQ(longStrict("2147483647"), (Long{0x7FFFFFFF, 0, 10}));
    EXPECT_EQ(longStrict("2147483648"), (Long{0x7FFFFFFF, 0x1100, 10}));
    EXPECT_EQ(longStrict("-2147483649"), (Long{-0x7FFFFFFF, 0x1100, 11}));
    EXPECT_EQ(longStrict("-2147483649", 2), (Long{0x7FFFFFFF, 0x1102, 11}));
    EXPECT_EQ(longStrict("-17 "), (Long{-17, 0, 4}));
    // All ones minus 1 is minus 2 to the signed reader, and so below 1.
    EXPECT_EQ(longStrict("99999999999999999999"), (Long{-0x7FFFFFFF, 0x55100, 20}));
    EXPECT_EQ(qlongStrict("99999999999999999999"), (Qlong{-2, 0x55100, 20}));
    EXPECT_EQ(qlongStrict("9223372036854775807"), (Qlong{INT64_MAX, 0x11000, 19}));
    EXPECT_EQ(qlongStrict("9223372036854775808"), (Qlong{INT64_MIN, 0x15100, 19}));
    EXPECT_EQ(qlongStrict("-5"), (Qlong{-5, 0, 2}));
    EXPECT_EQ(qlongStrict(""), (Qlong{0, 16, 0}));
}

TEST(NumberReading, WithinLimits) {
    uint32_t d = 0;
    EXPECT_EQ(StringTestForDwordA("15", 10, 20, &d), 0u);
    EXPECT_EQ(d, 15u);
    EXPECT_EQ(StringTestForDwordA("25", 10, 20, &d), uint32_t{NUM_ABOVELIMIT});
    EXPECT_EQ(d, 25u);
    EXPECT_EQ(StringTestForDword(u"5", 10, 20, &d), uint32_t{NUM_BELOWLIMIT});
    EXPECT_EQ(StringTestForDwordA("5", 20, 0, nullptr), NUM_BELOWLIMIT | NUM_ABOVELIMIT);
    EXPECT_EQ(StringTestForDwordA("25.5", 10, 20, &d), uint32_t{NUM_FRACTIONAL});
    EXPECT_EQ(d, 26u);
    EXPECT_EQ(StringTestForDwordA("", 10, 20, &d), uint32_t{NUM_UNDEFINED});
    EXPECT_EQ(StringTestForDwordA(nullptr, 10, 20, &d), uint32_t{NUM_UNDEFINED});
    EXPECT_EQ(StringTestForDword(nullptr, 10, 20, &d), uint32_t{NUM_UNDEFINED});
    int32_t l = 0;
    EXPECT_EQ(StringTestForLongA("-5", -4, 4, &l), uint32_t{NUM_BELOWLIMIT});
    EXPECT_EQ(StringTestForLong(u"-4", -4, 4, &l), 0u);
    EXPECT_EQ(l, -4);
    int64_t ql = 0;
    EXPECT_EQ(StringTestForQlongA("5", -4, 4, &ql), uint32_t{NUM_ABOVELIMIT});
    EXPECT_EQ(StringTestForQlong(u"4", -4, 4, &ql), 0u);
    uint64_t q = 7;
    // An underflow of 64 bits is not among what keeps the limits from being looked at.
    EXPECT_EQ(StringTestForQwordA("-1", 1, 4, &q), 0x80200u | NUM_BELOWLIMIT);
    EXPECT_EQ(q, 0u);
    EXPECT_EQ(StringTestForQword(u"2", 1, 4, &q), 0u);
    double r = 0;
    EXPECT_EQ(StringTestForRealA("1.5", 1, 2, &r), 0u);
    EXPECT_EQ(r, 1.5);
    EXPECT_EQ(StringTestForRealA("2.5", 1, 2, &r), uint32_t{NUM_ABOVELIMIT});
    EXPECT_EQ(StringTestForReal(u"0.5", 1, 2, &r), uint32_t{NUM_BELOWLIMIT});
    EXPECT_EQ(StringTestForRealA("2.5 ", 1, 2, &r), uint32_t{NUM_ILLEGALCHAR});
    EXPECT_EQ(StringTestForRealA("nan", 1, 2, &r), 0u);
}

TEST(NumberReading, CountingItems) {
    const auto count = [](const std::string& text) {
        uint64_t end = 99, wideEnd = 99;
        const uint64_t items = NumberOfRealItemsInStringA(text.c_str(), &end);
        EXPECT_EQ(NumberOfRealItemsInString(widened(text).c_str(), &wideEnd), items);
        EXPECT_EQ(wideEnd, end);
        EXPECT_EQ(NumberOfRealItemsInStringA(text.c_str(), nullptr), items);
        return std::pair(items, end);
    };
    EXPECT_EQ(count("1 2.5\t-3e4"), std::pair(uint64_t{3}, uint64_t{10}));
    EXPECT_EQ(count("1 2, 3"), std::pair(uint64_t{2}, uint64_t{3}));
    EXPECT_EQ(count("1 2 "), std::pair(uint64_t{2}, uint64_t{3}));
    EXPECT_EQ(count("1-2+3.5.5"), std::pair(uint64_t{4}, uint64_t{9}));
    EXPECT_EQ(count(""), std::pair(uint64_t{0}, uint64_t{0}));
    EXPECT_EQ(count(" x 1"), std::pair(uint64_t{0}, uint64_t{0}));
    uint64_t end = 99;
    EXPECT_EQ(NumberOfRealItemsInStringA(nullptr, &end), 0u);
    EXPECT_EQ(end, 0u);
    EXPECT_EQ(NumberOfRealItemsInString(nullptr, nullptr), 0u);
}

TEST(NumberReading, BothWidthsAgree) {
    TextSource source(15);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = source.text(10, "0123456789+-.eExXbBoO \tinfaN\xE3\x80");
        const auto flags = static_cast<uint32_t>(source.below(4));
        real(text, flags);
        dword(text, flags);
        along(text, flags);
        qword(text, flags);
        qlong(text, flags);
        dwordStrict(text, flags);
        longStrict(text, flags);
        qwordStrict(text, flags);
        qlongStrict(text, flags);
    }
}
