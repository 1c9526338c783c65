#include "nuv64/core/number_printing.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>

#include "core/text_samples.h"
#include "nuv64/core/special_reals.h"

namespace {

struct PrintedReal {
    double value;
    uint32_t digits;
    uint32_t radix;
    const char* text;
};
#include "core/real_printing_reference.inc"

// The text that a printer leaves in a buffer; its length must be the result.
template <class Ch, class Print>
std::basic_string<Ch> printed(Print print) {
    Ch buffer[2048];
    buffer[0] = 'x';
    const uint64_t length = print(buffer);
    EXPECT_EQ(buffer[length], 0);
    EXPECT_EQ(std::char_traits<Ch>::length(buffer), length);
    return buffer;
}

std::string real(double value, uint32_t digits, uint32_t radix) {
    const auto narrow =
        printed<char>([&](char* buffer) { return RealToBufferA(value, buffer, digits, radix); });
    const auto wide = printed<char16_t>(
        [&](char16_t* buffer) { return RealToBuffer(value, buffer, digits, radix); });
    EXPECT_EQ(wide, widened(narrow));
    return narrow;
}

std::string kmg(uint64_t value, uint32_t showExact) {
    const auto narrow =
        printed<char>([&](char* buffer) { return QwordToKMGbufferA(buffer, value, showExact); });
    const auto wide = printed<char16_t>(
        [&](char16_t* buffer) { return QwordToKMGbuffer(buffer, value, showExact); });
    EXPECT_EQ(wide, widened(narrow));
    return narrow;
}

std::string plain(int64_t value, uint32_t radix) {
    char buffer[80];
    std::string text(buffer,
                     std::to_chars(buffer, buffer + 80, value, static_cast<int>(radix)).ptr);
    for (char& ch : text) ch = ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 32) : ch;
    return text;
}

}  // namespace

TEST(NumberPrinting, Integers) {
    TextSource source(21);
    for (int i = 0; i < 5000; ++i) {
        const auto radix = static_cast<uint32_t>(2 + source.below(15));
        const uint64_t bits = i < 8 ? uint64_t{0} - (i & 1) * (UINT64_MAX >> (i / 2))
                                    : source.bits() >> source.below(64);
        const auto qlong = static_cast<int64_t>(bits);
        const auto dword = static_cast<uint32_t>(bits);
        const auto along = static_cast<int32_t>(bits);
        EXPECT_EQ(printed<char>([&](char* b) { return QlongToBufferA(qlong, b, radix); }),
                  plain(qlong, radix));
        EXPECT_EQ(printed<char16_t>([&](char16_t* b) { return QlongToBuffer(qlong, b, radix); }),
                  widened(plain(qlong, radix)));
        EXPECT_EQ(printed<char>([&](char* b) { return LongToBufferA(along, b, radix); }),
                  plain(along, radix));
        EXPECT_EQ(printed<char16_t>([&](char16_t* b) { return LongToBuffer(along, b, radix); }),
                  widened(plain(along, radix)));
        EXPECT_EQ(printed<char>([&](char* b) { return DwordToBufferA(dword, b, radix); }),
                  plain(dword, radix));
        EXPECT_EQ(printed<char16_t>([&](char16_t* b) { return DwordToBuffer(dword, b, radix); }),
                  widened(plain(dword, radix)));
        const auto positive = static_cast<int64_t>(bits >> 1);
        EXPECT_EQ(printed<char>([&](char* b) { return QwordToBufferA(bits >> 1, b, radix); }),
                  plain(positive, radix));
        EXPECT_EQ(taken(NewStringFromQlongA(qlong, radix)), plain(qlong, radix));
        EXPECT_EQ(taken(NewStringFromQlong(qlong, radix)), widened(plain(qlong, radix)));
        EXPECT_EQ(taken(NewStringFromLongA(along, radix)), plain(along, radix));
        EXPECT_EQ(taken(NewStringFromLong(along, radix)), widened(plain(along, radix)));
        EXPECT_EQ(taken(NewStringFromDwordA(dword, radix)), plain(dword, radix));
        EXPECT_EQ(taken(NewStringFromDword(dword, radix)), widened(plain(dword, radix)));
        EXPECT_EQ(taken(NewStringFromQwordA(bits >> 1, radix)), plain(positive, radix));
        EXPECT_EQ(taken(NewStringFromQword(bits >> 1, radix)), widened(plain(positive, radix)));
    }
}

TEST(NumberPrinting, IntegersAtTheirLimits) {
    EXPECT_EQ(taken(NewStringFromQwordA(UINT64_MAX, 10)), "18446744073709551615");
    EXPECT_EQ(taken(NewStringFromQwordA(UINT64_MAX, 2)), std::string(64, '1'));
    EXPECT_EQ(taken(NewStringFromQlongA(INT64_MIN, 2)), "-1" + std::string(63, '0'));
    EXPECT_EQ(taken(NewStringFromLongA(INT32_MIN, 10)), "-2147483648");
    EXPECT_EQ(taken(NewStringFromDwordA(0, 10)), "0");
    // Only the low four bits of a digit are printed.
    EXPECT_EQ(taken(NewStringFromDwordA(35 * 36 + 17, 36)), "31");
    for (const uint32_t radix : {0u, 1u}) {
        EXPECT_EQ(taken(NewStringFromQwordA(5, radix)), "");
        EXPECT_EQ(taken(NewStringFromQlong(-5, radix)), u"");
        EXPECT_EQ(taken(NewStringFromRealA(-5, 3, radix)), "");
    }
    EXPECT_EQ(taken(NewStringFromRealA(5, 3, UINT32_MAX)), "");
    EXPECT_EQ(DwordToBufferA(1, nullptr, 10), 0u);
    EXPECT_EQ(QwordToBuffer(1, nullptr, 10), 0u);
    EXPECT_EQ(LongToBuffer(1, nullptr, 10), 0u);
    EXPECT_EQ(QlongToBufferA(1, nullptr, 10), 0u);
    EXPECT_EQ(RealToBufferA(1, nullptr, 3, 10), 0u);
    EXPECT_EQ(QwordToKMGbufferA(nullptr, 1, 1), 0u);
}

TEST(NumberPrinting, RealsByHand) {
    EXPECT_EQ(real(1.5, 3, 10), "1.50");
    EXPECT_EQ(real(1.0, 1, 10), "1.");
    EXPECT_EQ(real(1000000.0, 3, 10), "1.00e6");
    EXPECT_EQ(real(0.0625, 3, 10), "0.0625");
    EXPECT_EQ(real(-0.00123, 2, 10), "-0.0012");
    EXPECT_EQ(real(0.0001, 1, 10), "1.e-4");
    EXPECT_EQ(real(100.0, 3, 10), "100.");
    EXPECT_EQ(real(100.0, 2, 10), "1.0e2");
    EXPECT_EQ(real(1.999, 2, 10), "1.9");  // cut, not rounded
    EXPECT_EQ(real(1.0, 0, 10), "1.00000000000000");
    EXPECT_EQ(real(1.0, 0, 2), "1." + std::string(51, '0'));
    EXPECT_EQ(real(1.0, 0, 16), "1." + std::string(12, '0'));
    EXPECT_EQ(real(1.0, 0, INT32_MAX), "1.");
    EXPECT_EQ(real(255.5, 4, 16), "FF.80");
    EXPECT_EQ(real(65536.0, 2, 16), "1.0_4");
    EXPECT_EQ(real(std::ldexp(1, -20), 2, 2), "1.0_-10100");
    EXPECT_EQ(real(0.0, 3, 10), "0");
    EXPECT_EQ(real(-0.0, 3, 10), "0");
    EXPECT_EQ(real(std::ldexp(0.9, -1024), 3, 10), "0");
    EXPECT_EQ(real(___MinReal, 3, 10), "5.56e-309");
    EXPECT_EQ(real(-std::ldexp(0.9, -1024), 3, 10), "0");
}

TEST(NumberPrinting, SpecialReals) {
    EXPECT_EQ(real(___PlsINF, 3, 10), "+INF");
    EXPECT_EQ(real(___MnsINF, 3, 10), "-INF");
    EXPECT_EQ(real(___NAN, 3, 10), "NaN");
    EXPECT_EQ(real(std::bit_cast<double>(0xFFFF000000000024u), 3, 10), "NaN");
    EXPECT_EQ(real(std::nan(""), 3, 10), "NaN");
    EXPECT_EQ(taken(NewStringFromReal(___PlsINF, 0, 10)), u"+INF");
}

TEST(NumberPrinting, RealsAgreeWithTheReference) {
    for (const PrintedReal& row : kPrintedReals) {
        EXPECT_EQ(real(row.value, row.digits, row.radix), row.text)
            << row.digits << ' ' << row.radix;
        EXPECT_EQ(taken(NewStringFromRealA(row.value, row.digits, row.radix)), row.text);
        EXPECT_EQ(taken(NewStringFromReal(row.value, row.digits, row.radix)), widened(row.text));
    }
}

TEST(NumberPrinting, ManyDigitsNeedNoFixedBuffer) {
    const std::string text = taken(NewStringFromRealA(0.001, 100000, 10));
    EXPECT_EQ(text.size(), 100000u + 4);
    EXPECT_EQ(text.substr(0, 6), "0.0010");
}

TEST(NumberPrinting, BytesTheShortWay) {
    EXPECT_EQ(kmg(0, 0), "0");
    EXPECT_EQ(kmg(16383, 0), "16383");
    EXPECT_EQ(kmg(16384, 0), "16 K");
    EXPECT_EQ(kmg(16385, 0), "16 K+");
    EXPECT_EQ(kmg(16385, 1), "16 K+ [16385]");
    EXPECT_EQ(kmg(5, 1), "5 [5]");
    EXPECT_EQ(kmg(16384 * 1024 - 1, 0), "16383 K+");
    EXPECT_EQ(kmg(uint64_t{16384} << 10, 0), "16 M");
    EXPECT_EQ(kmg(uint64_t{16384} << 20, 0), "16 G");
    EXPECT_EQ(kmg(uint64_t{16384} << 30, 0), "16 T");
    EXPECT_EQ(kmg(uint64_t{16384} << 40, 0), "16 P");
    EXPECT_EQ(kmg((uint64_t{16383} << 50) + 1, 0), "16383 P+");
    EXPECT_EQ(kmg(UINT64_MAX, 1), "16383 P+ [18446744073709551615]");
}
