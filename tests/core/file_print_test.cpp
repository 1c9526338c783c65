#include "nuv64/core/file_print.h"

#include <gtest/gtest.h>

#include <limits>

#include "nuv64/core/file.h"
#include "nuv64/core/special_reals.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

class FilePrinting : public testing::Test {
  protected:
    FilePrinting() : handle_(FileOpen(folder_.wide("out").c_str(), 1 | 16)) {}
    ~FilePrinting() override { FileClose(&handle_, 0); }

    // What stands in the file, which is emptied.
    std::string printed() {
        const std::string text = folder_.read("out");
        FileRewind(handle_, nullptr);
        FileTruncate(handle_);
        return text;
    }
    std::u16string printedWide() {
        const std::string bytes = printed();
        std::u16string text(bytes.size() / 2, 0);
        for (std::size_t i = 0; i < text.size(); ++i)
            text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                            static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
        return text;
    }

    TempFolder folder_;
    std::int64_t handle_;
};

TEST_F(FilePrinting, Texts) {
    EXPECT_TRUE(FilePrintA(handle_, "a", nullptr, "", "bc"));
    EXPECT_EQ(printed(), "abc");
    EXPECT_TRUE(FilePrint(handle_, u"a", u"\u4e2d", nullptr, u"z"));
    EXPECT_EQ(printedWide(), u"a\u4e2dz");
    EXPECT_TRUE(FilePrintA(handle_, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(printed(), "");
}

TEST_F(FilePrinting, UnsignedNumbersStandAtTheRight) {
    EXPECT_TRUE(FilePrintDwordA(handle_, "<", 255, ">", 6, 16));
    EXPECT_EQ(printed(), "<    FF>");
    EXPECT_TRUE(FilePrintDword(handle_, u"<", 4294967295, u">", 12, 10));
    EXPECT_EQ(printedWide(), u"<  4294967295>");
    EXPECT_TRUE(FilePrintDwordA(handle_, nullptr, 12345, nullptr, 3, 10)) << "nothing is cut";
    EXPECT_EQ(printed(), "12345");
    EXPECT_TRUE(FilePrintDwordA(handle_, "a", 7, "b", 0, 10));
    EXPECT_EQ(printed(), "a7b");
    EXPECT_TRUE(FilePrintDwordA(handle_, "a", 7, "b", 2, 0)) << "no digits in base 0";
    EXPECT_EQ(printed(), "a  b");
    EXPECT_TRUE(FilePrintDword(handle_, u"a", 7, u"b", 10000, 10));
    EXPECT_EQ(printedWide(), u"a" + std::u16string(9999, u' ') + u"7b");
}

TEST_F(FilePrinting, SignedNumbersIgnoreTheWidth) {
    EXPECT_TRUE(FilePrintLongA(handle_, "<", -255, ">", 9, 16));
    EXPECT_EQ(printed(), "<-FF>");
    EXPECT_TRUE(FilePrintLong(handle_, u"<", INT32_MIN, nullptr, 20, 10));
    EXPECT_EQ(printedWide(), u"<-2147483648");
    EXPECT_TRUE(FilePrintLongA(handle_, nullptr, INT32_MIN, nullptr, 0, 2));
    EXPECT_EQ(printed(), "-1" + std::string(31, '0'));
}

TEST_F(FilePrinting, Reals) {
    EXPECT_TRUE(FilePrintRealA(handle_, "x=", 1.5, ";", 3, 10));
    EXPECT_EQ(printed(), "x=1.50;");
    EXPECT_TRUE(FilePrintReal(handle_, nullptr, 0.0625, u"\n", 3, 10));
    EXPECT_EQ(printedWide(), u"0.0625\n");
    EXPECT_TRUE(FilePrintRealA(handle_, nullptr, ___NAN, nullptr, 3, 10));
    EXPECT_EQ(printed(), "NaN");
    EXPECT_TRUE(
        FilePrintRealA(handle_, nullptr, -std::numeric_limits<double>::infinity(), nullptr, 0, 0));
    EXPECT_EQ(printed(), "-INF");
    EXPECT_TRUE(FilePrintRealA(handle_, nullptr, 1e300, nullptr, 1000, 10));
    EXPECT_EQ(printed().size(), 1001u);
}

TEST_F(FilePrinting, FormattedTexts) {
    EXPECT_TRUE(FilePrintfA(handle_, "%d|%s|%5.2f", 7, "text", 2.5));
    EXPECT_EQ(printed(), "7|text| 2.50");
    EXPECT_TRUE(FilePrintf(handle_, u"%x", 0xABC));
    EXPECT_EQ(printedWide(), u"abc");
    EXPECT_TRUE(FilePrintfA(handle_, nullptr));
    EXPECT_TRUE(FilePrintf(handle_, nullptr));
    EXPECT_EQ(printed(), "");
}

TEST_F(FilePrinting, WithoutAFile) {
    for (const std::int64_t handle : {std::int64_t{0}, std::int64_t{-1}}) {
        EXPECT_TRUE(FilePrint(handle, u"a", nullptr, nullptr, nullptr));
        EXPECT_TRUE(FilePrintA(handle, "a", nullptr, nullptr, nullptr));
        EXPECT_TRUE(FilePrintDword(handle, u"a", 1, nullptr, 5, 10));
        EXPECT_TRUE(FilePrintDwordA(handle, "a", 1, nullptr, 5, 10));
        EXPECT_TRUE(FilePrintLong(handle, u"a", 1, nullptr, 5, 10));
        EXPECT_TRUE(FilePrintLongA(handle, "a", 1, nullptr, 5, 10));
        EXPECT_TRUE(FilePrintReal(handle, u"a", 1, nullptr, 5, 10));
        EXPECT_TRUE(FilePrintRealA(handle, "a", 1, nullptr, 5, 10));
        EXPECT_FALSE(FilePrintf(handle, u"a"));
        EXPECT_FALSE(FilePrintfA(handle, "a"));
        EXPECT_NE(nuv64::platform::lastError(), 0u);
    }
}

TEST_F(FilePrinting, TheFirstFailureEndsTheCall) {
    std::int64_t reading = FileOpen(folder_.wide("out").c_str(), 2 | 0x80);
    ASSERT_NE(reading, -1);
    EXPECT_FALSE(FilePrintA(reading, nullptr, "a", "b", nullptr));
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_FALSE(FilePrint(reading, u"a", nullptr, nullptr, nullptr));
    EXPECT_FALSE(FilePrintDwordA(reading, nullptr, 1, nullptr, 40, 10));
    EXPECT_FALSE(FilePrintDword(reading, u"a", 1, nullptr, 0, 10));
    EXPECT_FALSE(FilePrintLongA(reading, nullptr, 1, nullptr, 0, 10));
    EXPECT_FALSE(FilePrintLong(reading, nullptr, 1, nullptr, 0, 10));
    EXPECT_FALSE(FilePrintRealA(reading, nullptr, 1, nullptr, 0, 10));
    EXPECT_FALSE(FilePrintReal(reading, nullptr, 1, nullptr, 0, 10));
    EXPECT_FALSE(FilePrintfA(reading, "%d", 1));
    EXPECT_FALSE(FilePrintf(reading, u"%d", 1));
    FileClose(&reading, 0);
}

#ifndef _WIN32
TEST(FilePrintingToAFullDisk, Fails) {
    std::int64_t full = FileOpenA("/dev/full", 1 | 2);
    if (full == -1) GTEST_SKIP() << "no device that is always full";
    EXPECT_FALSE(FilePrintA(full, "a", nullptr, nullptr, nullptr));
    EXPECT_EQ(nuv64::platform::lastError(), static_cast<std::uint32_t>(ENOSPC));
    EXPECT_FALSE(FilePrintDwordA(full, nullptr, 1, nullptr, 100000, 10));
    EXPECT_FALSE(FilePrintfA(full, "%d", 1));
    FileClose(&full, 0);
}
#endif

}  // namespace
