#include "nuv64/core/path.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "core/owned_result.h"
#include "nuv64/core/file.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

using Text = std::optional<std::string>;

Text fraction(const char* path, std::uint32_t part) {
    const Text narrow = taken(NewFilePathFractionA(path, part));
    const std::u16string widePath = path ? widened(path) : u"";
    const auto wide = taken(NewFilePathFraction(path ? widePath.c_str() : nullptr, part));
    EXPECT_EQ(narrow.has_value(), wide.has_value()) << path << " " << part;
    if (narrow && wide) {
        EXPECT_EQ(widened(*narrow), *wide);
    }
    return narrow;
}

std::uint64_t cleanName(const char* path) {
    const std::u16string widePath = path ? widened(path) : u"";
    const std::uint64_t narrow = OffsetToCleanNameInPathA(path);
    EXPECT_EQ(narrow, OffsetToCleanNameInPath(path ? widePath.c_str() : nullptr));
    return narrow;
}

TEST(OffsetToCleanNameInPath, IsBehindTheLastSeparatorOrColon) {
    EXPECT_EQ(cleanName(nullptr), 0u);
    EXPECT_EQ(cleanName(""), 0u);
    EXPECT_EQ(cleanName("name.sdf"), 0u);
    EXPECT_EQ(cleanName("C:name"), 2u);
    EXPECT_EQ(cleanName("C:\\d\\name"), 5u);
    EXPECT_EQ(cleanName("\\"), 1u);
    EXPECT_EQ(cleanName("d\\"), 2u);
    EXPECT_EQ(cleanName("d\\e:f"), 4u);
    EXPECT_EQ(cleanName("/tmp/a"), nuv64::platform::kSlashSeparates ? 5u : 0u);
}

TEST(NewFilePathFraction, TakesAPathApart) {
    const char* const path = "C:\\d\\a.b.c";
    EXPECT_EQ(fraction(path, 1), "c");
    EXPECT_EQ(fraction(path, 2), "a.b");
    EXPECT_EQ(fraction(path, 3), "a.b.c");
    EXPECT_EQ(fraction(path, 4), "C:\\d\\");
    EXPECT_EQ(fraction(path, 5), "C");
    EXPECT_EQ(fraction(path, 0), path);
    EXPECT_EQ(fraction(path, 6), path);
    EXPECT_EQ(fraction(path, 0xFFFFFFFF), path);
}

TEST(NewFilePathFraction, GivesNullForWhatIsMissing) {
    for (std::uint32_t part = 0; part < 8; ++part) EXPECT_EQ(fraction(nullptr, part), std::nullopt);
    EXPECT_EQ(fraction("name", 1), std::nullopt);
    EXPECT_EQ(fraction("name", 2), "name");
    EXPECT_EQ(fraction("name", 4), std::nullopt);
    EXPECT_EQ(fraction("name", 5), std::nullopt);
    EXPECT_EQ(fraction(":name", 5), std::nullopt);
    EXPECT_EQ(fraction("C:name", 4), "C:");
    EXPECT_EQ(fraction("", 1), std::nullopt);
    EXPECT_EQ(fraction("", 2), "");
    EXPECT_EQ(fraction("", 3), "");
    EXPECT_EQ(fraction("d\\", 2), "");
    EXPECT_EQ(fraction("d\\", 3), "");
    EXPECT_EQ(fraction("name.", 1), "");
    EXPECT_EQ(fraction(".name", 1), "name");
    EXPECT_EQ(fraction(".name", 2), "");
}

TEST(NewFilePathFraction, ADotInAFolderNameIsNoExtension) {
    EXPECT_EQ(fraction("C:\\d.x\\name", 1), std::nullopt);
    EXPECT_EQ(fraction("C:\\d.x\\name", 2), "name");
    EXPECT_EQ(fraction("C:\\d.x\\name.y", 1), "y");
}

TEST(NewFilePathFraction, TheFolderAndTheNameMakeThePath) {
    std::mt19937 random(7);
    const char letters[] = "ab.:\\ C";
    for (int i = 0; i < 2000; ++i) {
        std::string path(random() % 12, ' ');
        for (char& c : path) c = letters[random() % 7];
        const std::string folder = fraction(path.c_str(), 4).value_or("");
        EXPECT_EQ(folder + *fraction(path.c_str(), 3), path);
        const Text extension = fraction(path.c_str(), 1);
        const std::string bare = *fraction(path.c_str(), 2);
        EXPECT_EQ(extension ? bare + "." + *extension : bare, *fraction(path.c_str(), 3)) << path;
    }
}

TEST(NewFilePathCombination, PutsOneSeparatorBetween) {
    EXPECT_EQ(taken(NewFilePathCombinationA("C:\\d", "a")), "C:\\d\\a");
    EXPECT_EQ(taken(NewFilePathCombinationA("C:\\d\\", "a")), "C:\\d\\a");
    EXPECT_EQ(taken(NewFilePathCombinationA("", "a")), "\\a");
    EXPECT_EQ(taken(NewFilePathCombinationA(nullptr, nullptr)), "\\");
    EXPECT_EQ(taken(NewFilePathCombinationA("C:", "")), "C:\\");
    EXPECT_EQ(taken(NewFilePathCombination(u"C:\\d", u"a")), u"C:\\d\\a");
    EXPECT_EQ(taken(NewFilePathCombination(nullptr, u"a")), u"\\a");
}

TEST(NewFilePathLocator, FindsAFileAlongASearchPath) {
    const TempFolder folder;
    folder.write("here.sdf", "x");
    const std::string place = folder.native("").string();
    const std::string path = "nowhere_at_all;" + place;
    char* part = nullptr;
    char* found = NewFilePathLocatorA("here", "sdf", path.c_str(), &part);
    ASSERT_NE(found, nullptr);
    EXPECT_STREQ(part, "here.sdf");
    EXPECT_EQ(part, found + OffsetToCleanNameInPathA(found));
    EXPECT_TRUE(FileIsPresentA(found, nullptr));
    EXPECT_EQ(std::string(found).find('/'), std::string::npos);
    std::free(found);
    EXPECT_TRUE(taken(NewFilePathLocatorA("here", ".sdf", path.c_str(), nullptr)));
    EXPECT_TRUE(taken(NewFilePathLocatorA("here.sdf", "txt", path.c_str(), nullptr)));
    EXPECT_FALSE(taken(NewFilePathLocatorA("here", "txt", path.c_str(), nullptr)));
    EXPECT_FALSE(taken(NewFilePathLocatorA("here", nullptr, path.c_str(), nullptr)));

    char16_t* widePart = nullptr;
    char16_t* wide = NewFilePathLocator(u"here", u"sdf", widened(path).c_str(), &widePart);
    ASSERT_NE(wide, nullptr);
    EXPECT_EQ(std::u16string(widePart), u"here.sdf");
    std::free(wide);
}

TEST(NewFilePathLocator, FindsTheExecutableAlongTheSystemsPath) {
    const std::u16string executable = nuv64::platform::executablePath();
    const std::u16string name = executable.substr(OffsetToCleanNameInPath(executable.c_str()));
    EXPECT_EQ(taken(NewFilePathLocator(name.c_str(), nullptr, nullptr, nullptr)), executable);
    // A full path is looked at where it is.
    EXPECT_EQ(taken(NewFilePathLocator(executable.c_str(), nullptr, nullptr, nullptr)), executable);
}

TEST(NewFilePathLocator, GivesNullWhenNothingIsThere) {
    char here = 'x';
    char* part = &here;
    EXPECT_EQ(NewFilePathLocatorA("no_such_file_q7", nullptr, nullptr, &part), nullptr);
    EXPECT_EQ(part, nullptr);
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_EQ(NewFilePathLocatorA(nullptr, nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(NewFilePathLocatorA("", "sdf", "", nullptr), nullptr);
    EXPECT_EQ(NewFilePathLocator(nullptr, nullptr, nullptr, nullptr), nullptr);
    // A folder is no file.
    const TempFolder folder;
    std::filesystem::create_directory(folder.native("sub"));
    EXPECT_FALSE(
        taken(NewFilePathLocatorA("sub", nullptr, folder.native("").string().c_str(), nullptr)));
}

TEST(NewCreateTemporaryFile, MakesANewFileEachTime) {
    const TempFolder folder;
    const std::string place = folder.native("").string();
    const Text first = taken(NewCreateTemporaryFileA(place.c_str(), "~KOxyz", 0));
    const Text second = taken(NewCreateTemporaryFileA(place.c_str(), "~KOxyz", 0));
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    for (const Text& name : {first, second}) {
        std::uint32_t attributes = 0;
        EXPECT_TRUE(FileIsPresentA(name->c_str(), &attributes));
        const std::string bare = name->substr(OffsetToCleanNameInPathA(name->c_str()));
        EXPECT_EQ(bare.substr(0, 3), "~KO");
        EXPECT_NE(bare[3], 'x');
        EXPECT_EQ(bare.substr(bare.size() - 4), ".tmp");
        std::int64_t handle = FileOpenA(name->c_str(), 2);
        std::int64_t size = -1;
        EXPECT_TRUE(FileGetSize(handle, &size));
        EXPECT_EQ(size, 0);
        EXPECT_TRUE(FileClose(&handle, 0));
    }
}

TEST(NewCreateTemporaryFile, ANumberOfItsOwnOnlyMakesTheName) {
    const TempFolder folder;
    const std::u16string place = folder.wide("");
    const auto name = taken(NewCreateTemporaryFile(place.c_str(), u"ab", 0x1BEEF));
    ASSERT_TRUE(name);
    const std::u16string bare = name->substr(OffsetToCleanNameInPath(name->c_str()));
    EXPECT_TRUE(bare == u"abBEEF.tmp" || bare == u"abbeef.tmp");
    EXPECT_FALSE(FileIsPresent(name->c_str(), nullptr));
}

TEST(NewCreateTemporaryFile, UsesTheTemporaryFolderAndFailsInAMissingOne) {
    const Text name = taken(NewCreateTemporaryFileA(nullptr, nullptr, 0));
    ASSERT_TRUE(name);
    EXPECT_TRUE(FileDeleteA(name->c_str()));
    EXPECT_EQ(NewCreateTemporaryFileA("no_such_folder_q7\\sub", "x", 0), nullptr);
    EXPECT_NE(nuv64::platform::lastError(), 0u);
}

}  // namespace
