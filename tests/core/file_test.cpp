#include "nuv64/core/file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "core/owned.h"
#include "core/owned_result.h"
#include "core/sparse_file.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

constexpr std::int64_t kSizeUnknown = INT64_MIN;

std::uint32_t lastError() {
    return nuv64::platform::lastError();
}

// A handle that is closed on every way out of a test.
struct Handle {
    std::int64_t value;
    ~Handle() { FileClose(&value, 0); }
    bool open() const { return value != 0 && value != -1; }
};

TEST(FileOpen, FollowsTheModeWord) {
    const TempFolder folder;
    const std::u16string old = folder.write("old", "12345");
    const std::u16string missing = folder.wide("missing");
    EXPECT_EQ(FileOpen(missing.c_str(), 2), -1);
    EXPECT_NE(lastError(), 0u);
    EXPECT_EQ(FileOpen(missing.c_str(), 0x13), -1);
    EXPECT_FALSE(FileIsPresent(missing.c_str(), nullptr));
    EXPECT_EQ(FileOpen(old.c_str(), 5), -1);
    EXPECT_EQ(FileOpen(old.c_str(), 0x17), -1) << "bit 2 overrides bits 1 and 4";
    EXPECT_EQ(FileOpen(old.c_str(), 0x12), -1) << "cutting needs write access";
    EXPECT_EQ(folder.read("old"), "12345");
    {
        const Handle file{FileOpen(old.c_str(), 3 | 0x40000)};
        EXPECT_TRUE(file.open());
        EXPECT_EQ(lastError(), 0u);
    }
    EXPECT_EQ(folder.read("old"), "12345");
    {
        const Handle file{FileOpen(old.c_str(), 9)};
        EXPECT_TRUE(FileWriteA(file.value, "6"));
    }
    EXPECT_EQ(folder.read("old"), "123456");
    { const Handle file{FileOpen(old.c_str(), 0x13)}; }
    EXPECT_EQ(folder.read("old"), "");
    {
        const Handle created{FileOpen(missing.c_str(), 1)};
        EXPECT_TRUE(FileWriteA(created.value, "new"));
    }
    EXPECT_EQ(folder.read("missing"), "new");
    { const Handle file{FileOpen(missing.c_str(), 0x11)}; }
    EXPECT_EQ(folder.read("missing"), "");
    { const Handle created{FileOpen(folder.wide("third").c_str(), 5)}; }
    EXPECT_TRUE(FileIsPresent(folder.wide("third").c_str(), nullptr));
}

TEST(FileOpen, FailsForFoldersAndForNoPath) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.native("sub"));
    for (const std::uint32_t mode : {0u, 1u, 2u, 3u, 0x13u})
        EXPECT_EQ(FileOpen(folder.wide("sub").c_str(), mode), -1) << mode;
    for (const std::uint32_t mode : {0u, 5u, 0x11u}) {
        EXPECT_EQ(FileOpen(nullptr, mode), -1);
        EXPECT_EQ(FileOpenA(nullptr, mode), -1);
        EXPECT_EQ(FileOpen(u"", mode), -1);
        EXPECT_EQ(FileOpenA("", mode), -1);
        EXPECT_NE(lastError(), 0u);
    }
}

TEST(FileOpen, TakesUtf8AndBackslashes) {
    const TempFolder folder;
    const std::u16string path = folder.wide("") + u"\\\u00E4\u6570\U0001F600.txt";
    {
        const Handle file{FileOpen(path.c_str(), 5)};
        EXPECT_TRUE(file.open());
    }
    const std::string narrow =
        folder.native("").string() + "\\\xC3\xA4\xE6\x95\xB0\xF0\x9F\x98\x80.txt";
    const Handle file{FileOpenA(narrow.c_str(), 2)};
    EXPECT_TRUE(file.open());
}

TEST(FileOpen, ReadOnlyAttributeOfACreatedFile) {
    const TempFolder folder;
    const std::u16string path = folder.wide("fixed");
    {
        const Handle file{FileOpen(path.c_str(), 5 | 0x200)};
        EXPECT_TRUE(file.open());
    }
    EXPECT_TRUE(FileGetAttributes(path.c_str()) & 1);
    std::filesystem::permissions(folder.native("fixed"), std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
}

TEST(FileOpen, ShowsAMessageOnRequest) {
    const TempFolder folder;
    const std::u16string old = folder.write("old", "x");
    const std::u16string missing = folder.wide("none") + u"\\x";
    const std::string missingA = folder.native("none").string() + "\\x";
    const auto message = [](auto&& open) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(open(), -1);
        return testing::internal::GetCapturedStderr();
    };
    constexpr std::uint32_t kMode = 5 | 0x10000000;
    using testing::internal::CaptureStderr;
    EXPECT_NE(message([&] { return FileOpen(old.c_str(), kMode); }).find("File already exists"),
              std::string::npos);
    EXPECT_NE(message([&] { return FileOpen(missing.c_str(), kMode); }).find("Can't create file"),
              std::string::npos);
    EXPECT_NE(
        message([&] { return FileOpenA(missingA.c_str(), kMode); }).find("Cant't create file"),
        std::string::npos);
    EXPECT_EQ(message([&] { return FileOpenA(missingA.c_str(), 5); }), "");
}

TEST(FileClose, GivesTrueForNoFileAndForgetsTheHandle) {
    const TempFolder folder;
    std::int64_t handle = FileOpen(folder.wide("a").c_str(), 5);
    ASSERT_NE(handle, -1);
    [[maybe_unused]] const std::int64_t stale = handle;
    EXPECT_TRUE(FileClose(&handle, 1));
    EXPECT_EQ(handle, -1);
    EXPECT_TRUE(FileClose(&handle, 1));
    handle = 0;
    EXPECT_TRUE(FileClose(&handle, 0));
    EXPECT_TRUE(FileClose(nullptr, 0));
#ifndef _WIN32
    handle = stale;
    EXPECT_FALSE(FileClose(&handle, 0));
    EXPECT_EQ(handle, -1);
    EXPECT_NE(lastError(), 0u);
#endif
}

TEST(FileReadAndWrite, MoveBytesAndTexts) {
    const TempFolder folder;
    const Handle file{FileOpen(folder.wide("a").c_str(), 5)};
    const unsigned char bytes[] = {0, 10, 13, 26, 255};
    EXPECT_TRUE(FileWriteBinary(file.value, bytes, sizeof bytes));
    EXPECT_TRUE(FileWriteBinary(file.value, nullptr, 5));
    EXPECT_TRUE(FileWriteBinary(file.value, bytes, 0));
    EXPECT_FALSE(FileWriteBinary(file.value, bytes, UINT64_MAX)) << "no block is that large";
    EXPECT_NE(lastError(), 0u);
    EXPECT_TRUE(FileWriteA(file.value, "text"));
    EXPECT_TRUE(FileWriteA(file.value, nullptr));
    EXPECT_TRUE(FileWrite(file.value, u"wide"));
    EXPECT_TRUE(FileWrite(file.value, nullptr));
    std::int64_t size = 0;
    EXPECT_TRUE(FileGetSize(file.value, &size));
    EXPECT_EQ(size, 17);
    EXPECT_EQ(FileRewind(file.value, nullptr), 1u);
    unsigned char back[8] = {};
    EXPECT_EQ(FileReadBinary(file.value, back, 5), 5);
    EXPECT_EQ(std::memcmp(back, bytes, 5), 0);
    char text[16];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(FileReadA(file.value, text, 4), 4);
    EXPECT_STREQ(text, "text");
    char16_t wide[16] = {};
    EXPECT_EQ(FileRead(file.value, wide, 15), 4);
    EXPECT_EQ(std::u16string(wide), u"wide");
    EXPECT_EQ(FileRead(file.value, wide, 15), 0);
    EXPECT_EQ(wide[0], 0);
    EXPECT_EQ(FileReadBinary(file.value, back, 8), 0);
    EXPECT_EQ(FileReadBinary(file.value, nullptr, 0), 0);
    EXPECT_EQ(FileReadBinary(file.value, nullptr, 8), -1);
    EXPECT_EQ(FileReadBinary(file.value, back, UINT64_MAX), -1);
    EXPECT_EQ(FileRead(file.value, nullptr, 1), -1);
    EXPECT_EQ(FileReadA(file.value, nullptr, 1), -1);
    EXPECT_EQ(FileRead(file.value, wide, UINT64_MAX), -1);
}

TEST(FileReadAndWrite, TellThatThereIsNoFile) {
    char text[4] = "abc";
    char16_t wide[4] = u"abc";
    for (const std::int64_t none : {std::int64_t{0}, std::int64_t{-1}}) {
        EXPECT_EQ(FileReadBinary(none, text, 1), -1);
        EXPECT_EQ(FileReadA(none, text, 1), -1);
        EXPECT_EQ(FileRead(none, wide, 1), -1);
        EXPECT_FALSE(FileWriteBinary(none, text, 1));
        EXPECT_FALSE(FileWriteBinary(none, nullptr, 0));
        EXPECT_FALSE(FileWriteA(none, text));
        EXPECT_FALSE(FileWrite(none, wide));
        EXPECT_FALSE(FileTruncate(none));
        EXPECT_NE(lastError(), 0u);
        std::int64_t result = 5;
        EXPECT_EQ(FileSetPointer(none, 0, 0, &result), 0xFFFFFFFFu);
        EXPECT_EQ(FileGetPointer(none, &result), 0xFFFFFFFFu);
        EXPECT_EQ(FileRewind(none, nullptr), 0xFFFFFFFFu);
        EXPECT_EQ(FileMoveToEnd(none, nullptr), 0xFFFFFFFFu);
        EXPECT_EQ(result, 5);
        EXPECT_FALSE(FileGetSize(none, &result));
        EXPECT_EQ(result, kSizeUnknown);
        EXPECT_FALSE(FileGetSize(none, nullptr));
    }
    EXPECT_STREQ(text, "abc") << "left as it was";
}

TEST(FileReadAndWrite, AFileOpenedForReadingCannotBeWritten) {
    const TempFolder folder;
    const Handle file{FileOpen(folder.write("a", "abc").c_str(), 2)};
    EXPECT_FALSE(FileWriteA(file.value, "x"));
    EXPECT_NE(lastError(), 0u);
    char text[8];
    EXPECT_EQ(FileReadA(file.value, text, 7), 3);
    EXPECT_EQ(lastError(), 0u) << "every call clears the slot first";
}

TEST(FileReadAndWrite, AFullDeviceFailsTheWrite) {
#ifdef _WIN32
    GTEST_SKIP() << "no device that is always full";
#else
    const Handle file{FileOpenA("\\dev\\full", 3)};
    ASSERT_TRUE(file.open());
    EXPECT_FALSE(FileWriteA(file.value, "x"));
    EXPECT_EQ(lastError(), static_cast<std::uint32_t>(ENOSPC));
#endif
}

TEST(FileReadAndWrite, AReadErrorIsTold) {
#ifdef _WIN32
    GTEST_SKIP() << "no file that always fails";
#else
    const Handle file{FileOpenA("/proc/self/mem", 2)};
    if (!file.open()) GTEST_SKIP() << "no process memory to read";
    char text[8] = "same";
    EXPECT_EQ(FileReadBinary(file.value, text, 4), -1);
    EXPECT_EQ(FileReadA(file.value, text, 4), -1);
    EXPECT_STREQ(text, "same");
    EXPECT_NE(lastError(), 0u);
#endif
}

TEST(FileSetPointer, MovesFromTheThreeOrigins) {
    const TempFolder folder;
    const Handle file{FileOpen(folder.write("a", "0123456789").c_str(), 3)};
    std::int64_t at = -1;
    EXPECT_EQ(FileSetPointer(file.value, 4, 0, &at), 1u);
    EXPECT_EQ(at, 4);
    EXPECT_EQ(FileSetPointer(file.value, -3, 1, &at), 1u);
    EXPECT_EQ(at, 1);
    EXPECT_EQ(FileSetPointer(file.value, -2, 2, &at), 1u);
    EXPECT_EQ(at, 8);
    EXPECT_EQ(FileSetPointer(file.value, -9, 1, &at), 0u);
    EXPECT_EQ(FileSetPointer(file.value, 0, 3, &at), 0u);
    EXPECT_NE(lastError(), 0u);
    EXPECT_EQ(FileGetPointer(file.value, &at), 1u);
    EXPECT_EQ(at, 8);
    EXPECT_EQ(FileMoveToEnd(file.value, &at), 1u);
    EXPECT_EQ(at, 10);
    EXPECT_EQ(FileRewind(file.value, &at), 1u);
    EXPECT_EQ(at, 0);
}

TEST(FileTruncate, CutsAndLengthensAtThePointer) {
    const TempFolder folder;
    const std::u16string path = folder.write("a", "0123456789");
    {
        const Handle file{FileOpen(path.c_str(), 3)};
        FileSetPointer(file.value, 4, 0, nullptr);
        EXPECT_TRUE(FileTruncate(file.value));
        FileSetPointer(file.value, 6, 0, nullptr);
        EXPECT_TRUE(FileTruncate(file.value));
    }
    EXPECT_EQ(folder.read("a"), std::string("0123\0\0", 6));
    const Handle readOnly{FileOpen(path.c_str(), 2)};
    EXPECT_FALSE(FileTruncate(readOnly.value));
}

TEST(Files, Above4GiB) {
    const TempFolder folder;
    const std::u16string path = folder.wide("large");
    constexpr std::int64_t kOffset = (std::int64_t{5} << 30) + 12345;
    {
        const Handle file{FileOpen(path.c_str(), 5)};
        allowHoles(file.value);
        std::int64_t at = 0;
        ASSERT_EQ(FileSetPointer(file.value, kOffset, 0, &at), 1u);
        EXPECT_EQ(at, kOffset);
        ASSERT_TRUE(FileWriteA(file.value, "end"));
    }
    const Handle file{FileOpen(path.c_str(), 2)};
    std::int64_t size = 0;
    EXPECT_TRUE(FileGetSize(file.value, &size));
    EXPECT_EQ(size, kOffset + 3);
    FileSetPointer(file.value, -3, 2, nullptr);
    char text[8];
    EXPECT_EQ(FileReadA(file.value, text, 7), 3);
    EXPECT_STREQ(text, "end");
}

TEST(FileIsPresent, KnowsFilesAndFolders) {
    const TempFolder folder;
    const std::u16string file = folder.write("a", "x");
    std::uint32_t attributes = 0;
    EXPECT_TRUE(FileIsPresent(file.c_str(), &attributes));
    EXPECT_EQ(attributes & 0x10, 0u);
    EXPECT_EQ(attributes, FileGetAttributes(file.c_str()));
    EXPECT_TRUE(FileIsPresentA(folder.native("").string().c_str(), &attributes));
    EXPECT_EQ(attributes & 0x10, 0x10u);
    EXPECT_EQ(FileGetAttributesA(folder.native("a").string().c_str()),
              FileGetAttributes(file.c_str()));
    EXPECT_FALSE(FileIsPresent(folder.wide("b").c_str(), &attributes));
    EXPECT_EQ(attributes, 0xFFFFFFFFu);
    EXPECT_FALSE(FileIsPresent(nullptr, nullptr));
    EXPECT_FALSE(FileIsPresentA(nullptr, nullptr));
    EXPECT_EQ(FileGetAttributes(nullptr), 0xFFFFFFFFu);
    EXPECT_EQ(FileGetAttributesA(""), 0xFFFFFFFFu);
    EXPECT_NE(lastError(), 0u);
}

TEST(FileCopy, CopiesReplacesAndRefuses) {
    const TempFolder folder;
    std::string content;
    for (int i = 0; i < 3'000'000; ++i) content += static_cast<char>(i * 7);
    const std::u16string source = folder.write("source", content);
    const std::u16string target = folder.write("target", "old");
    EXPECT_FALSE(FileCopy(source.c_str(), target.c_str(), 1));
    EXPECT_NE(lastError(), 0u);
    EXPECT_EQ(folder.read("target"), "old");
    EXPECT_TRUE(FileCopy(source.c_str(), target.c_str(), 0));
    EXPECT_EQ(folder.read("target"), content);
    EXPECT_TRUE(FileCopyA(folder.native("source").string().c_str(),
                          folder.native("second").string().c_str(), 1));
    EXPECT_EQ(folder.read("second"), content);
    EXPECT_FALSE(FileCopy(source.c_str(), source.c_str(), 0));
    EXPECT_EQ(folder.read("source"), content) << "a copy onto itself destroys nothing";
    EXPECT_FALSE(FileCopy(folder.wide("none").c_str(), target.c_str(), 0));
    EXPECT_EQ(folder.read("target"), content);
    EXPECT_FALSE(FileCopy(folder.wide("").c_str(), folder.wide("x").c_str(), 0));
    EXPECT_FALSE(FileCopy(nullptr, target.c_str(), 0));
    EXPECT_FALSE(FileCopy(source.c_str(), nullptr, 0));
    EXPECT_FALSE(FileCopyA(nullptr, nullptr, 0));
}

TEST(FileCopy, AFullDeviceFailsTheCopy) {
#ifdef _WIN32
    GTEST_SKIP() << "no device that is always full";
#else
    const TempFolder folder;
    EXPECT_FALSE(FileCopy(folder.write("a", "x").c_str(), u"\\dev\\full", 0));
    EXPECT_EQ(lastError(), static_cast<std::uint32_t>(ENOSPC));
#endif
}

TEST(FileDelete, DeletesFilesOnly) {
    const TempFolder folder;
    const std::u16string file = folder.write("a", "x");
    EXPECT_TRUE(FileDelete(file.c_str()));
    EXPECT_FALSE(FileIsPresent(file.c_str(), nullptr));
    EXPECT_FALSE(FileDelete(file.c_str()));
    EXPECT_NE(lastError(), 0u);
    std::filesystem::create_directory(folder.native("sub"));
    EXPECT_FALSE(FileDelete(folder.wide("sub").c_str()));
    EXPECT_TRUE(std::filesystem::exists(folder.native("sub")));
    folder.write("b", "x");
    EXPECT_TRUE(FileDeleteA(folder.native("b").string().c_str()));
    EXPECT_FALSE(FileDelete(nullptr));
    EXPECT_FALSE(FileDeleteA(nullptr));
}

}  // namespace
