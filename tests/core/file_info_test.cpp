#include "nuv64/core/file_info.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>

#include "core/owned.h"
#include "core/sparse_file.h"
#include "nuv64/core/file.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

constexpr std::uint32_t kSearchMask = 43;

struct Info : FileInfo {
    Info() { InitializeFileInfo(this); }
    ~Info() { EraseFileInfo(this); }
};

std::uint64_t now() {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
               std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count() + 11644473600) *
           10000000;
}

TEST(FileInfoRecord, IsEmptyAfterInitialisingAndErasing) {
    FileInfo info;
    std::memset(&info, 0x5A, sizeof info);
    InitializeFileInfo(&info);
    EXPECT_EQ(info.mask, 0u);
    EXPECT_EQ(info.attributes, 0xFFFFFFFFu);
    EXPECT_EQ(info.size, 0u);
    EXPECT_EQ(info.text3, nullptr);
    info.mask = 43;
    info.text0 = nuv64::copyText("abc", 3).release();
    info.text3 = nuv64::copyText(u"abc", 3).release();
    EraseFileInfo(&info);
    EXPECT_EQ(info.mask, 0u);
    EXPECT_EQ(info.text0, nullptr);
    EXPECT_EQ(info.text3, nullptr);
    InitializeFileInfoA(&info);
    EraseFileInfoA(&info);
    EXPECT_EQ(info.attributes, 0xFFFFFFFFu);
    InitializeFileInfo(nullptr);
    EraseFileInfo(nullptr);
    InitializeFileInfoA(nullptr);
    EraseFileInfoA(nullptr);
}

TEST(FileGetFullInfo, TellsOfAFile) {
    const TempFolder folder;
    const std::uint64_t before = now();
    const std::u16string path = folder.write("a.dat", "12345");
    Info info;
    ASSERT_TRUE(FileGetFullInfo(path.c_str(), &info));
    EXPECT_EQ(info.mask & kSearchMask, kSearchMask);
    EXPECT_EQ(info.attributes, FileGetAttributes(path.c_str()));
    EXPECT_EQ(info.size, 5u);
    EXPECT_TRUE(info.mask & 1u << 4);
    EXPECT_LE(info.compressedSize, 4096u);
    for (const std::uint64_t time : {info.createdTime, info.accessedTime, info.writtenTime}) {
        EXPECT_GE(time, before - 20000000);
        EXPECT_LE(time, now() + 20000000);
    }
    EXPECT_EQ(info.mask & 0x3F84u, 0u) << "neither a program nor a version";
    EXPECT_EQ(info.text3, nullptr);
    EXPECT_EQ(nuv64::platform::lastError(), 0u);
    // The record is released before it is filled anew, by either form.
    ASSERT_TRUE(FileGetFullInfoA(folder.native("a.dat").string().c_str(), &info));
    EXPECT_EQ(info.size, 5u);
    ASSERT_TRUE(FileGetFullInfoA(folder.native("a.dat").string().c_str(), &info));
}

TEST(FileGetFullInfo, TellsOfAFolder) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.native("sub"));
    Info info;
    ASSERT_TRUE(FileGetFullInfo(folder.wide("sub").c_str(), &info));
    EXPECT_TRUE(info.attributes & 0x10);
    EXPECT_EQ(info.size, 0u);
}

TEST(FileGetFullInfo, ASparseFileTakesUpLess) {
    const TempFolder folder;
    const std::u16string path = folder.wide("holes");
    std::int64_t file = FileOpen(path.c_str(), 1 | 4);
    allowHoles(file);
    const std::int64_t size = std::int64_t{5} << 30;
    ASSERT_EQ(FileSetPointer(file, size, 0, nullptr), 1u);
    ASSERT_TRUE(FileTruncate(file));
    FileClose(&file, 0);
    Info info;
    ASSERT_TRUE(FileGetFullInfo(path.c_str(), &info));
    EXPECT_EQ(info.size, static_cast<std::uint64_t>(size));
    EXPECT_TRUE(info.mask & 1u << 4);
#ifndef _WIN32  // Wine gives the size
    EXPECT_LT(info.compressedSize, 1000000u);
#endif
}

TEST(FileGetFullInfo, FailsForWhatIsNotThere) {
    const TempFolder folder;
    Info info;
    info.mask = 1;
    info.text1 = nuv64::copyText("old", 3).release();
    EXPECT_FALSE(FileGetFullInfo(folder.wide("none").c_str(), &info));
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_EQ(info.mask, 0u);
    EXPECT_EQ(info.attributes, 0xFFFFFFFFu);
    EXPECT_EQ(info.text1, nullptr);
    EXPECT_FALSE(FileGetFullInfo(nullptr, &info));
    EXPECT_FALSE(FileGetFullInfoA(nullptr, &info));
    EXPECT_FALSE(FileGetFullInfo(u"", &info));
    EXPECT_FALSE(FileGetFullInfoA("", &info));
    EXPECT_FALSE(FileGetFullInfo(folder.wide("").c_str(), nullptr));
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_FALSE(FileGetFullInfoA(nullptr, nullptr));
}

#ifdef _WIN32
TEST(FileGetFullInfo, TellsTheVersionOfASystemLibrary) {
    Info info;
    ASSERT_TRUE(FileGetFullInfo(u"C:\\windows\\system32\\kernel32.dll", &info));
    EXPECT_EQ(info.mask & 0x3F80u, 0x3F80u);
    EXPECT_NE(info.fileVersion, 0u);
    EXPECT_EQ(info.fileType, 2u) << "a library";
    ASSERT_NE(info.text2, nullptr);
    EXPECT_EQ(std::char_traits<char16_t>::length(static_cast<char16_t*>(info.text2)) % 9, 8u);
    ASSERT_TRUE(FileGetFullInfoA("C:\\windows\\system32\\notepad.exe", &info));
    EXPECT_TRUE(info.mask & 1u << 2);
    EXPECT_EQ(info.executableType, 6u);
    EXPECT_TRUE(info.mask & 1u << 16);
    ASSERT_NE(info.text0, nullptr);
    EXPECT_EQ(std::string(static_cast<char*>(info.text0)).substr(0, 7), "notepad");
}
#endif

}  // namespace
