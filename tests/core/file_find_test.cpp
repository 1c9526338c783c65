#include "nuv64/core/file_find.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "core/data_file.h"
#include "core/owned_result.h"
#include "nuv64/core/file.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

constexpr std::uint32_t kSearchMask = 43;

class FileFind : public testing::Test {
  protected:
    // All names that match, by the wide functions, each checked against the 8-bit ones.
    std::set<std::string> found(const std::string& pattern) const {
        std::set<std::string> names;
        char16_t* name = nullptr;
        char* nameA = nullptr;
        FileInfo info;
        InitializeFileInfo(&info);
        const std::string nativePattern = folder_.native(pattern).string();
        const std::int64_t search = FileFindFirst(folder_.wide(pattern).c_str(), &name, &info);
        const std::int64_t searchA = FileFindFirstA(nativePattern.c_str(), &nameA, &info);
        EXPECT_EQ(search == -1, searchA == -1);
        if (search == -1) return names;
        EXPECT_NE(search, searchA);
        do {
            EXPECT_EQ(nuv64::platform::lastError(), 0u);
            EXPECT_EQ(info.mask, kSearchMask);
            EXPECT_EQ(widened(nameA), std::u16string(name));
            EXPECT_TRUE(names.insert(nameA).second) << "twice: " << nameA;
        } while (FileFindNextA(searchA, &nameA, &info) && FileFindNext(search, &name, nullptr));
        EXPECT_NE(nuv64::platform::lastError(), 0u);
        EXPECT_EQ(nameA, nullptr);
        EXPECT_EQ(info.mask, 0u);
        EXPECT_FALSE(FileFindNext(search, &name, &info));
        EXPECT_EQ(name, nullptr);
        EXPECT_TRUE(FileFindClose(search, 0));
        EXPECT_TRUE(FileFindClose(searchA, 0));
        EXPECT_FALSE(FileFindClose(search, 0)) << "closed already";
        return names;
    }

    void make(std::initializer_list<const char*> names) const {
        for (const char* name : names) folder_.write(name, name);
    }

    TempFolder folder_;
};

using Names = std::set<std::string>;

TEST_F(FileFind, MatchesPatterns) {
    make({"a.sdf", "b.SDF", "ab.sdf", "noextension", "a.b.c", "x1.txt", "x22.txt"});
    std::filesystem::create_directory(folder_.native("sub"));
    EXPECT_EQ(found("*.sdf"), (Names{"a.sdf", "b.SDF", "ab.sdf"}));
    EXPECT_EQ(found("?.sdf"), (Names{"a.sdf", "b.SDF"}));
    EXPECT_EQ(found("A*"), (Names{"a.sdf", "ab.sdf", "a.b.c"}));
#ifndef _WIN32  // Wine takes each "?" for a character that must be there
    EXPECT_EQ(found("x??.txt"), (Names{"x1.txt", "x22.txt"}));
#endif
    EXPECT_EQ(found("x?.txt"), (Names{"x1.txt"}));
    EXPECT_EQ(found("*b*"), (Names{"b.SDF", "ab.sdf", "sub", "a.b.c"}));
    EXPECT_EQ(found("s?b"), (Names{"sub"}));
    EXPECT_EQ(found("noext*on"), (Names{"noextension"}));
    EXPECT_EQ(found("a.sdf"), (Names{"a.sdf"}));
    EXPECT_EQ(found("*.sd"), Names());
    EXPECT_EQ(found("a.sdf?x"), Names());
    const Names all = found("*");
    EXPECT_EQ(all.size(), 10u) << "with the folder itself and the one above";
    EXPECT_EQ(all.count("."), 1u);
    EXPECT_EQ(found("*.*"), all);
}

TEST_F(FileFind, FillsTheRecord) {
    make({"five"});
    char16_t* name = nuv64::copyText(u"old", 3).release();
    FileInfo info;
    InitializeFileInfo(&info);
    info.text0 = nuv64::copyText("old", 3).release();
    const std::int64_t search = FileFindFirst(folder_.wide("f*").c_str(), &name, &info);
    ASSERT_NE(search, -1);
    EXPECT_EQ(taken(name), u"five");
    EXPECT_EQ(info.mask, kSearchMask);
    EXPECT_EQ(info.size, 4u);
    EXPECT_EQ(info.attributes, FileGetAttributes(folder_.wide("five").c_str()));
    EXPECT_EQ(info.text0, nullptr);
    FileInfo full;
    InitializeFileInfo(&full);
    ASSERT_TRUE(FileGetFullInfo(folder_.wide("five").c_str(), &full));
    EXPECT_EQ(info.writtenTime, full.writtenTime);
    EraseFileInfo(&full);
    EXPECT_FALSE(FileFindNext(search, nullptr, nullptr));
    EXPECT_TRUE(FileFindClose(search, 7));
}

TEST_F(FileFind, FailsWhereNothingIs) {
    char16_t* name = nuv64::copyText(u"old", 3).release();
    char* nameA = nuv64::copyText("old", 3).release();
    EXPECT_EQ(FileFindFirst(folder_.wide("none\\*").c_str(), &name, nullptr), -1);
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(FileFindFirstA(nullptr, &nameA, nullptr), -1);
    EXPECT_EQ(nameA, nullptr);
    EXPECT_EQ(FileFindFirst(nullptr, nullptr, nullptr), -1);
    EXPECT_EQ(FileFindFirst(u"", nullptr, nullptr), -1);
    EXPECT_EQ(FileFindFirstA("", nullptr, nullptr), -1);
    for (const std::int64_t handle :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{12345}, INT64_MIN, INT64_MAX}) {
        EXPECT_FALSE(FileFindNext(handle, &name, nullptr));
        EXPECT_NE(nuv64::platform::lastError(), 0u);
        EXPECT_FALSE(FileFindNextA(handle, &nameA, nullptr));
        EXPECT_FALSE(FileFindClose(handle, 0));
        EXPECT_NE(nuv64::platform::lastError(), 0u);
    }
}

TEST_F(FileFind, AFileDeletedMeanwhileIsPassedOver) {
    make({"1", "2", "3"});
    char* name = nullptr;
    const std::int64_t search =
        FileFindFirstA(folder_.native("?").string().c_str(), &name, nullptr);
    ASSERT_NE(search, -1);
    for (const char* file : {"1", "2", "3"}) FileDelete(folder_.wide(file).c_str());
    while (FileFindNextA(search, &name, nullptr)) continue;
    EXPECT_EQ(name, nullptr);
    EXPECT_TRUE(FileFindClose(search, 0));
}

TEST_F(FileFind, ResettingANamedFileEndsItsSearch) {
    make({"a", "b"});
    cKoFile file;
    file.findHandle = FileFindFirst(folder_.wide("*").c_str(), nullptr, nullptr);
    const std::int64_t search = file.findHandle;
    ASSERT_NE(search, -1);
    file.Reset();
    EXPECT_EQ(file.findHandle, -1);
    EXPECT_FALSE(FileFindClose(search, 0));
}

#ifndef _WIN32
TEST_F(FileFind, LinksToNothingAreNoFiles) {
    std::filesystem::create_symlink("nowhere", folder_.native("link"));
    EXPECT_EQ(found("l*"), Names());
}
#endif

TEST_F(FileFind, TakesUtf8) {
    char* name = nullptr;
    std::int64_t file = FileOpen(folder_.wide("").append(u"\u00e4\u4e2d.x").c_str(), 5);
    ASSERT_NE(file, -1);
    FileClose(&file, 0);
    const std::int64_t search =
        FileFindFirstA((folder_.native("").string() + "\xC3\xA4?.x").c_str(), &name, nullptr);
    ASSERT_NE(search, -1);
    EXPECT_EQ(taken(name), "\xC3\xA4\xE4\xB8\xAD.x");
    EXPECT_TRUE(FileFindClose(search, 0));
}

}  // namespace
