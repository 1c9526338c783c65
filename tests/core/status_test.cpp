#include "nuv64/core/status.h"

#include <gtest/gtest.h>

#include <string>

TEST(Status, KnownCodesHaveTheirTexts) {
    EXPECT_STREQ(KoErrorStringA(0), "");
    EXPECT_STREQ(KoErrorStringA(1), "Allocation failure");
    EXPECT_STREQ(KoErrorStringA(9), "Not yet implemented");
    EXPECT_STREQ(KoErrorStringA(14), "Missing input data");
    EXPECT_STREQ(KoErrorStringA(62), "Unexpected file end");
    EXPECT_STREQ(KoErrorStringA(67), "Missing/Invalid evaluation task script");
    EXPECT_STREQ(KoErrorStringA(73), "Too many function calls");
    EXPECT_STREQ(KoErrorStringA(80), "Mixed scoring type");
    EXPECT_STREQ(KoErrorStringA(82), "Missing or illegal script");
    EXPECT_STREQ(KoErrorStringA(256), "Unkown mol-script type");
}

TEST(Status, TheAllocationMarkIsMaskedOut) {
    EXPECT_STREQ(KoErrorStringA(0x80001), "Allocation failure");
    EXPECT_STREQ(KoErrorStringA(0x80000), "");
    EXPECT_STREQ(KoErrorStringA(0xFFF80003), "Internal system error");
}

TEST(Status, OnlyTheListedCodesHaveANameOfTheirOwn) {
    std::uint32_t named = 0;
    for (std::uint32_t code = 0; code < 0x80000; ++code)
        named += std::string(KoErrorStringA(code)) != "Unnamed error";
    EXPECT_EQ(named, 77u);  // 0 to 73, 80, 82, 256
    for (const std::uint32_t code : {74u, 79u, 81u, 83u, 255u, 257u, 0x7FFFFu, 0xFFFFFFFFu})
        EXPECT_STREQ(KoErrorStringA(code), "Unnamed error") << code;
}

TEST(Status, TheWideFormHasOneBuffer) {
    const char16_t* first = KoErrorString(53);
    EXPECT_EQ(std::u16string(first), u"Disk is full");
    EXPECT_EQ(KoErrorString(0), first);
    EXPECT_EQ(std::u16string(first), u"");
    for (std::uint32_t code = 0; code < 300; ++code) {
        const std::string narrow = KoErrorStringA(code);
        EXPECT_EQ(std::u16string(KoErrorString(code)),
                  std::u16string(narrow.begin(), narrow.end()));
    }
}
