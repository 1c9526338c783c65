// The named file: its path, opening, writing, the discriminator line and changes in the middle.
#include "core/data_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/owned_result.h"
#include "nuv64/core/file.h"
#include "nuv64/core/system.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

std::optional<std::u16string> resolved(const char16_t* name, const char16_t* folder,
                                       const char16_t* extension) {
    cKoFile file;
    if (file.SetPath(name, folder, extension)) return std::u16string(file.path.get());
    EXPECT_EQ(file.path, nullptr);
    return std::nullopt;
}

TEST(DataFileSetPath, PutsTheFolderInFront) {
    EXPECT_EQ(resolved(u"%a.sdf", u"C:/data", nullptr), u"C:\\data\\a.sdf");
    EXPECT_EQ(resolved(u"a.sdf", u"C:/data/", nullptr), u"C:\\data\\a.sdf");
    EXPECT_EQ(resolved(u"a.sdf", u"C:", nullptr), u"C:a.sdf");
    EXPECT_EQ(resolved(u"x\\a.sdf", u"C:\\data", nullptr), u"x\\a.sdf");
    EXPECT_EQ(resolved(u"%x\\a.sdf", u"C:\\data", nullptr), u"C:\\data\\x\\a.sdf");
    EXPECT_EQ(resolved(u"C:a.sdf", u"D:\\data", nullptr), u"C:a.sdf");
    EXPECT_EQ(resolved(u"x\\a.sdf", nullptr, nullptr), u"x\\a.sdf");
    EXPECT_EQ(resolved(u"%x\\a.sdf", nullptr, nullptr), u"x\\a.sdf");
    const auto own = taken(OsStringNewCopy(7));
    EXPECT_EQ(resolved(u"a.sdf", u"", nullptr), *own + u"a.sdf");
}

TEST(DataFileSetPath, GroomsTheName) {
    EXPECT_EQ(resolved(u"  a  b.sdf \t", u" C:/data ", nullptr), u"C:\\data\\a  b.sdf");
    EXPECT_EQ(resolved(u" %  a.sdf", u"C:\\data", nullptr), u"C:\\data\\a.sdf");
    EXPECT_EQ(resolved(u"x/y/a.sdf", nullptr, nullptr), u"x\\y\\a.sdf");
}

TEST(DataFileSetPath, AppendsTheExtensionToANameWithoutDot) {
    EXPECT_EQ(resolved(u"\\d\\a", nullptr, u"sdf"), u"\\d\\a.sdf");
    EXPECT_EQ(resolved(u"\\d\\a", nullptr, u"  .sdf"), u"\\d\\a.sdf");
    EXPECT_EQ(resolved(u"\\d\\a", nullptr, u"  "), u"\\d\\a");
    EXPECT_EQ(resolved(u"\\d\\a", nullptr, u""), u"\\d\\a");
    EXPECT_EQ(resolved(u"\\d\\a.", nullptr, u"sdf"), u"\\d\\a.");
    EXPECT_EQ(resolved(u"\\d.x\\a", nullptr, u"sdf"), u"\\d.x\\a.sdf");
}

TEST(DataFileSetPath, LooksABareNameUp) {
    EXPECT_EQ(resolved(u"no_such_data_q7", nullptr, u"sdf"), std::nullopt);
    const std::u16string executable = nuv64::platform::executablePath();
    const auto name = taken(OsStringNewCopy(8));
    EXPECT_EQ(resolved(name->c_str(), nullptr, nullptr), executable);
}

TEST(DataFileSetPath, MakesATemporaryNameWhenThereIsNone) {
    const TempFolder folder;
    for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u"", u"  ", u"%"}) {
        const auto path = resolved(name, folder.wide("").c_str(), u"sdf");
        ASSERT_TRUE(path);
        EXPECT_NE(path->find(u"~KO"), path->npos);
        EXPECT_FALSE(FileIsPresent(path->c_str(), nullptr));
    }
    const auto path = resolved(nullptr, nullptr, nullptr);
    ASSERT_TRUE(path);
    EXPECT_EQ(path->rfind(*taken(OsStringNewCopy(4)), 0), 0u);
    EXPECT_EQ(resolved(nullptr, u"no_such_folder_q7", nullptr), std::nullopt);
}

TEST(DataFileSetPath, TakesItsOwnPath) {
    cKoFile file(u"\\d\\a", nullptr, nullptr);
    ASSERT_TRUE(file.SetPath(file.path.get(), nullptr, u"sdf"));
    EXPECT_EQ(std::u16string(file.path.get()), u"\\d\\a.sdf");
    ASSERT_TRUE(file.SetPath(u"b", file.path.get(), nullptr));
    EXPECT_EQ(std::u16string(file.path.get()), u"\\d\\a.sdf\\b");
}

TEST(DataFileSetPath, RefusesPatternCharacters) {
    for (const char16_t* name : {u"a?b", u"a*b", u"a|b", u"a<b", u"a>b", u"a\"b"})
        EXPECT_EQ(resolved(name, u"C:\\", nullptr), std::nullopt);
    cKoFile file(u"%a", u"C:\\", nullptr);
    EXPECT_NE(file.path, nullptr);
    EXPECT_FALSE(file.SetPath(u"a?b", u"C:\\", nullptr));
    EXPECT_EQ(file.path, nullptr) << "the old path is gone too";
}

TEST(DataFileOpen, KeepsItsState) {
    const TempFolder folder;
    const std::u16string path = folder.write("a.sdf", "12345");
    cKoFile file(path.c_str(), nullptr, nullptr);
    EXPECT_FALSE(file.IsOpen());
    file.flags = 0x50000;
    EXPECT_TRUE(file.OpenExisting(0, 0));
    EXPECT_EQ(file.size, 5);
    EXPECT_EQ(file.position, 0);
    EXPECT_EQ(file.flags, 0x50001u) << "read only, and the host's own flags";
    EXPECT_TRUE(file.Open(3 | 8));
    EXPECT_EQ(file.flags, 0x50000u);
    EXPECT_EQ(file.position, 5);
    EXPECT_TRUE(file.Close());
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.IsOpen());
    file.Reset();
    EXPECT_EQ(file.flags, 0u);
    EXPECT_EQ(file.size, 0);
    EXPECT_EQ(file.path, nullptr);
    EXPECT_FALSE(file.Open(0)) << "an empty path";
    EXPECT_NE(file.lastError, 0u);
}

TEST(DataFileOpen, WaysOfOpening) {
    const TempFolder folder;
    const std::u16string path = folder.wide("a.sdf");
    cKoFile file(path.c_str(), nullptr, nullptr);
    EXPECT_FALSE(file.OpenExisting(0, 0));
    EXPECT_NE(file.lastError, 0u);
    EXPECT_FALSE(file.Overwrite(0, 0));
    EXPECT_TRUE(file.Create(0, 0));
    EXPECT_EQ(file.lastError, 0u);
    EXPECT_TRUE(file.WriteLine("abc", nullptr, "", "d", "e"));
    EXPECT_FALSE(file.Create(0, 0));
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(folder.read("a.sdf"), "abcde\r\n");
    EXPECT_TRUE(file.Overwrite(0, 0));
    EXPECT_TRUE(file.WriteNewLine());
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(folder.read("a.sdf"), "\r\n");
    cKoFile inFolder(folder.wide("").c_str(), nullptr, nullptr);
    EXPECT_FALSE(inFolder.OpenExisting(0, 0));
}

TEST(DataFileOpen, ReportsOnRequestOnly) {
    const TempFolder folder;
    const std::u16string old = folder.write("old", "x");
    cKoFile missing(folder.wide("none.x").c_str(), nullptr, nullptr);
    cKoFile present(old.c_str(), nullptr, nullptr);
    const auto message = [](auto&& action) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(action());
        return testing::internal::GetCapturedStderr();
    };
    const std::string shown = message([&] { return missing.OpenExisting(0, 1); });
    EXPECT_NE(shown.find("FILE HANDLING ERROR\n\nFile: "), std::string::npos) << shown;
    EXPECT_NE(shown.find("none.x\nError: Missing/inaccessible file\n"), std::string::npos);
    EXPECT_NE(message([&] { return missing.Overwrite(0, 1); }).find("File does not exist"),
              std::string::npos);
    EXPECT_NE(message([&] { return present.Create(0, 1); }).find("File already exists"),
              std::string::npos);
    cKoFile nowhere((folder.wide("none") + u"\\x").c_str(), nullptr, nullptr);
    EXPECT_NE(message([&] { return nowhere.Create(0, 1); }).find("Cant't create file"),
              std::string::npos);
    cKoFile asFolder(folder.wide("").c_str(), nullptr, nullptr);
    EXPECT_NE(message([&] { return asFolder.Overwrite(0, 1); }).find("Cant't open file"),
              std::string::npos);
    EXPECT_EQ(message([&] { return missing.OpenExisting(0, 0); }), "");
    EXPECT_EQ(message([&] { return missing.Overwrite(0, 0); }), "");
    EXPECT_EQ(message([&] { return present.Create(0, 0); }), "");
}

TEST(DataFileQuerySize, AsksWithAndWithoutAnOpenFile) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "12345").c_str(), nullptr, nullptr);
    EXPECT_EQ(file.QuerySize(), 5);
    EXPECT_FALSE(file.IsOpen());
    file.Open(2);
    EXPECT_EQ(file.QuerySize(), 5);
    file.Close();
    std::filesystem::remove(folder.native("a"));
    EXPECT_EQ(file.QuerySize(), 0);
    EXPECT_NE(file.lastError, 0u);
    cKoFile bare;
    EXPECT_EQ(bare.QuerySize(), 0);
}

std::int32_t check(const TempFolder& folder, const std::string& content, const char* text) {
    cKoFile file(folder.write("d", content).c_str(), nullptr, nullptr);
    const std::int32_t result = file.CheckDiscriminator(text, 1);
    EXPECT_EQ(file.IsOpen(), result == 0);
    EXPECT_EQ(file.position, 0);
    EXPECT_EQ(file.window, nullptr);
    if (result == 0) {
        char* line = nullptr;
        file.ReadLine(&line);
        EXPECT_EQ(taken(line).value_or(""), content.substr(0, content.find('\r')));
    }
    return result;
}

TEST(DataFileDiscriminator, IsTheStartOfTheFirstLine) {
    const TempFolder folder;
    EXPECT_EQ(check(folder, "Data file 1\r\nx", "Data file 1"), 0);
    EXPECT_EQ(check(folder, "  \t Data file 1\r\n", "Data file 1"), 0);
    EXPECT_EQ(check(folder, "Data file 1\r\n", " \tData file 1"), 0);
    EXPECT_EQ(check(folder, "Data file 17 and more\r\n", "Data file 1"), 0);
    EXPECT_EQ(check(folder, "data file 1\r\n", "Data file 1"), -1);
    EXPECT_EQ(check(folder, "Data", "Data file 1"), -1);
    EXPECT_EQ(check(folder, "", "Data file 1"), -1);
    EXPECT_EQ(check(folder, "anything\r\n", nullptr), 0);
    EXPECT_EQ(check(folder, "anything\r\n", ""), 0);
    EXPECT_EQ(check(folder, "anything\r\n", " \t"), 0);
    EXPECT_EQ(check(folder, "", ""), 0);
}

TEST(DataFileDiscriminator, HundredBytesAreLookedAt) {
    const TempFolder folder;
    const std::string line(200, 'x');
    EXPECT_EQ(check(folder, line + "\r\n", line.substr(0, 100).c_str()), 0);
    EXPECT_EQ(check(folder, line + "\r\n", line.substr(0, 101).c_str()), -1);
}

TEST(DataFileDiscriminator, CannotBeCheckedWithoutAFile) {
    const TempFolder folder;
    cKoFile file(folder.wide("none").c_str(), nullptr, nullptr);
    EXPECT_EQ(file.CheckDiscriminator("x", 0), -1);
    cKoFile bare;
    EXPECT_EQ(bare.CheckDiscriminator("", 0), -1);
}

TEST(DataFileDiscriminator, IsWrittenIntoANewFile) {
    const TempFolder folder;
    cKoFile file(folder.wide("new").c_str(), nullptr, nullptr);
    EXPECT_EQ(file.CreateWithDiscriminator("Data file 1", 0), 0);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_EQ(file.CreateWithDiscriminator("Data file 1", 0), -1) << "it exists now";
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(folder.read("new"), "Data file 1\r\n");
    EXPECT_EQ(file.CheckDiscriminator("Data file 1", 0), 0);
}

TEST(DataFileWrite, StandsAtThePositionAlsoAfterReading) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "0123456789").c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(1, 0));
    char text[4] = {};
    EXPECT_EQ(file.Read(text, 3), 3);
    EXPECT_TRUE(file.Write("ab", 2));
    EXPECT_EQ(file.position, 5);
    EXPECT_EQ(file.Read(text, 3), 3);
    EXPECT_EQ(std::string(text, 3), "567");
    EXPECT_TRUE(file.SeekEnd());
    EXPECT_TRUE(file.Write("xyz", 3));
    EXPECT_EQ(file.size, 13);
    EXPECT_TRUE(file.Seek(11));
    EXPECT_EQ(file.Read(text, 4), 2);
    EXPECT_EQ(std::string(text, 2), "yz");
    EXPECT_TRUE(file.Write(nullptr, 5));
    EXPECT_TRUE(file.Write("x", 0));
    EXPECT_EQ(folder.read("a"), "012ab56789xyz") << "flushed while the file is open";
}

TEST(DataFileWrite, FailuresAreTold) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "abc").c_str(), nullptr, nullptr);
    EXPECT_FALSE(file.Write("x", 1)) << "not open";
    EXPECT_NE(file.lastError, 0u);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    EXPECT_FALSE(file.Write("x", 1)) << "read only";
    EXPECT_FALSE(file.WriteLine("x", nullptr, nullptr, nullptr, nullptr));
    EXPECT_FALSE(file.WriteNewLine());
    EXPECT_NE(file.lastError, 0u);
    EXPECT_EQ(file.position, 0);
    EXPECT_TRUE(file.Close());
}

TEST(DataFileWrite, AFullDeviceFails) {
#ifdef _WIN32
    GTEST_SKIP() << "no device that is always full";
#else
    cKoFile file(u"\\dev\\full", nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(1, 0));
    EXPECT_FALSE(file.Write("x", 1));
    EXPECT_EQ(file.lastError, static_cast<std::uint32_t>(ENOSPC));
    EXPECT_FALSE(file.InsertBytes(0, "x", 1));
    EXPECT_EQ(file.lastError, static_cast<std::uint32_t>(ENOSPC));
#endif
}

TEST(DataFileSeek, KeepsThePosition) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "0123456789").c_str(), nullptr, nullptr);
    EXPECT_FALSE(file.Seek(0));
    EXPECT_FALSE(file.SeekRelative(0));
    EXPECT_FALSE(file.SeekEnd());
    ASSERT_TRUE(file.OpenExisting(0, 0));
    EXPECT_TRUE(file.Seek(4));
    EXPECT_TRUE(file.SeekRelative(-3));
    EXPECT_EQ(file.position, 1);
    EXPECT_FALSE(file.SeekRelative(-2));
    EXPECT_FALSE(file.Seek(-1));
    EXPECT_NE(file.lastError, 0u);
    EXPECT_EQ(file.position, 1);
    EXPECT_FALSE(file.SeekRelative(INT64_MAX));
    EXPECT_TRUE(file.SeekEnd());
    EXPECT_EQ(file.position, 10);
    EXPECT_TRUE(file.SeekRelative(5));
    char c;
    EXPECT_EQ(file.Read(&c, 1), 0) << "behind the end";
}

std::string pattern(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string text(size, ' ');
    for (char& c : text) c = static_cast<char>(random());
    return text;
}

// Every case around the chunk of 32,768 bytes in which the tail is moved.
class DataFileEdits : public testing::TestWithParam<std::size_t> {};

TEST_P(DataFileEdits, InsertDeleteAndReplaceBytes) {
    const TempFolder folder(FolderPlace::kMemory);
    const std::size_t size = GetParam();
    const std::string before = pattern(size, 1), inserted = pattern(40005, 3);
    for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, size / 2, size - 1, size}) {
        for (const std::size_t count : {1u, 2u, 32767u, 32768u, 32769u, 40000u}) {
            std::string plain = before;
            cKoFile file(folder.write("a", plain).c_str(), nullptr, nullptr);
            ASSERT_TRUE(file.OpenExisting(1, 0));
            char first;
            file.Read(&first, 1);
            const auto at = static_cast<std::int64_t>(offset);
            const auto n = static_cast<std::int64_t>(count);
            ASSERT_TRUE(file.InsertBytes(at, inserted.data(), n));
            EXPECT_EQ(file.position, at + n);
            plain.insert(offset, inserted, 0, count);
            ASSERT_EQ(folder.read("a"), plain) << size << " " << offset << " " << count;
            ASSERT_TRUE(file.DeleteBytes(at + 1, n));
            plain.erase(offset + 1, count);
            ASSERT_EQ(folder.read("a"), plain) << size << " " << offset << " " << count;
            EXPECT_EQ(file.size, static_cast<std::int64_t>(plain.size()));
            ASSERT_TRUE(file.ReplaceBytes(at, 2, inserted.data() + 5, n));
            plain.replace(offset, 2, inserted, 5, count);
            ASSERT_EQ(folder.read("a").substr(0, plain.size()), plain);
            ASSERT_TRUE(file.ReplaceBytes(at, n, inserted.data(), 1));
            plain.replace(offset, count, inserted, 0, 1);
            ASSERT_EQ(folder.read("a"), plain) << size << " " << offset << " " << count;
            EXPECT_EQ(file.position, at + 1);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AroundTheChunk, DataFileEdits,
                         testing::Values(2, 32767, 32768, 32769, 65536, 70001));

TEST(DataFileEditCases, NoOperations) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "abc").c_str(), nullptr, nullptr);
    EXPECT_FALSE(file.DeleteBytes(0, 1)) << "not open";
    EXPECT_FALSE(file.InsertBytes(0, "x", 1));
    ASSERT_TRUE(file.OpenExisting(1, 0));
    EXPECT_TRUE(file.DeleteBytes(1, 0));
    EXPECT_TRUE(file.DeleteBytes(3, 5));
    EXPECT_TRUE(file.DeleteBytes(100, 5));
    EXPECT_TRUE(file.InsertBytes(1, "x", 0));
    EXPECT_TRUE(file.InsertBytes(1, nullptr, 5));
    EXPECT_TRUE(file.ReplaceBytes(1, 0, nullptr, 5));
    EXPECT_FALSE(file.DeleteBytes(-1, 1));
    EXPECT_FALSE(file.DeleteBytes(0, -1));
    EXPECT_FALSE(file.InsertBytes(-1, "x", 1));
    EXPECT_FALSE(file.InsertBytes(0, "x", -1));
    EXPECT_FALSE(file.ReplaceBytes(0, -1, "x", 1));
    EXPECT_FALSE(file.InsertBytes(INT64_MAX, "x", 1));
    EXPECT_FALSE(file.InsertBytes(INT64_MAX - 1, "xyz", 3));
    EXPECT_FALSE(file.InsertBytes(1, "x", INT64_MAX)) << "more than any file holds";
    EXPECT_FALSE(file.ReplaceBytes(INT64_MAX, 1, "x", 1));
    EXPECT_FALSE(file.ReplaceBytes(INT64_MAX, 0, "x", 1));
    EXPECT_NE(file.lastError, 0u);
    EXPECT_TRUE(file.DeleteBytes(INT64_MAX, INT64_MAX));
    EXPECT_EQ(folder.read("a"), "abc");
    EXPECT_TRUE(file.ReplaceBytes(1, 1, nullptr, 5)) << "deletes";
    EXPECT_EQ(folder.read("a"), "ac");
    EXPECT_TRUE(file.ReplaceBytes(0, 1, "z", 1));
    EXPECT_TRUE(file.DeleteBytes(1, INT64_MAX));
    EXPECT_EQ(folder.read("a"), "z");
    EXPECT_TRUE(file.InsertBytes(3, "end", 3));
    EXPECT_EQ(folder.read("a"), std::string("z\0\0end", 6));
}

TEST(DataFileEditCases, AReadOnlyFileStaysAsItIs) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "abcdef").c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    ASSERT_TRUE(file.Seek(2));
    EXPECT_FALSE(file.DeleteBytes(1, 2));
    EXPECT_FALSE(file.InsertBytes(1, "x", 1));
    EXPECT_FALSE(file.ReplaceBytes(1, 1, "x", 1));
    EXPECT_NE(file.lastError, 0u);
    EXPECT_EQ(file.position, 2);
    char c = 0;
    EXPECT_EQ(file.Read(&c, 1), 1);
    EXPECT_EQ(c, 'c');
    EXPECT_EQ(folder.read("a"), "abcdef");
}

}  // namespace
