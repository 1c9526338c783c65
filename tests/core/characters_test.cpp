#include "nuv64/core/characters.h"

#include <gtest/gtest.h>

#include <string>

namespace {

bool among(unsigned code, const char* set) {
    return code != 0 && code < 128 &&
           std::string(set).find(static_cast<char>(code)) != std::string::npos;
}

constexpr const char* kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr const char* kSmall = "abcdefghijklmnopqrstuvwxyz";

}  // namespace

TEST(Characters, Classes) {
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto ch = static_cast<char16_t>(code);
        EXPECT_EQ(chIsCapLetter(ch), among(code, kCapitals));
        EXPECT_EQ(chIsSmallLetter(ch), among(code, kSmall));
        EXPECT_EQ(chIsAnyLetter(ch), among(code, kCapitals) || among(code, kSmall));
        EXPECT_EQ(chIsBinaryDigit(ch), among(code, "01"));
        EXPECT_EQ(chIsOctalDigit(ch), among(code, "01234567"));
        EXPECT_EQ(chIsDecDigit(ch), among(code, "0123456789"));
        EXPECT_EQ(chIsHexDigit(ch), among(code, "0123456789abcdefABCDEF"));
    }
}

TEST(Characters, Case) {
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto ch = static_cast<char16_t>(code);
        const unsigned lower = among(code, kCapitals) ? code + 32 : code;
        const unsigned upper = among(code, kSmall) ? code - 32 : code;
        EXPECT_EQ(chToLcase(ch), lower);
        EXPECT_EQ(chToUcase(ch), upper);
        if (code > 255) continue;
        EXPECT_EQ(chToLcaseA(static_cast<char>(code)), static_cast<char>(lower));
        EXPECT_EQ(chToUcaseA(static_cast<char>(code)), static_cast<char>(upper));
    }
}

TEST(Characters, HexadecimalDigits) {
    for (uint32_t value = 0; value < 16; ++value) {
        EXPECT_EQ(chDigitToHexA(value), "0123456789ABCDEF"[value]);
        EXPECT_EQ(chDigitToHex(value + 0xFFFFFFF0), u"0123456789ABCDEF"[value]);
        EXPECT_EQ(chHexToDigitA(chDigitToHexA(value)), value);
        EXPECT_EQ(chHexToDigit(chToLcase(chDigitToHex(value))), value);
    }
    for (const char ch : {'g', 'G', '/', ':', '@', '`', ' ', '\0', '\xC1'})
        EXPECT_EQ(chHexToDigitA(ch), UINT32_MAX);
    EXPECT_EQ(chHexToDigit(u'\u0141'), UINT32_MAX);
}

TEST(Characters, AsATextOfItsOwn) {
    char text[2] = {'?', '?'};
    char16_t wide[2] = {u'?', u'?'};
    EXPECT_EQ(chToStringBufferA('x', text), 1u);
    EXPECT_STREQ(text, "x");
    EXPECT_EQ(chToStringBuffer(u'\u00b0', wide), 1u);
    EXPECT_EQ(std::u16string(wide), u"\u00b0");
    EXPECT_EQ(chToStringBufferA(0, text), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(chToStringBufferA('x', nullptr), 0u);
    EXPECT_EQ(chToStringBuffer(u'x', nullptr), 0u);
}
