// The read window, the line readers and the search of the named file.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <random>

#include "core/data_file.h"
#include "core/line_scan.h"
#include "core/line_source.h"
#include "core/owned_result.h"
#include "core/sparse_file.h"
#include "nuv64/core/file.h"
#include "support/temp_folder.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

// What ReadLine is to give at position of content, written down plainly.
struct PlainLine {
    std::int64_t consumed;
    std::string text;
    std::size_t next;
};

PlainLine plainLine(const std::string& content, std::size_t position) {
    std::string text;
    for (std::size_t i = position; i < content.size(); ++i) {
        const char c = content[i];
        if (c != '\n' && c != 26 && c != 0) {
            text += c;
            continue;
        }
        if (c == '\n' && !text.empty() && text.back() == '\r') text.pop_back();
        return {static_cast<std::int64_t>(i + 1 - position), text, i + 1};
    }
    return {0, text, std::max(position, content.size())};
}

std::string randomLines(std::size_t size, std::mt19937& random) {
    static constexpr char kSpecial[] = {'\n', '\r', 26, 0, '\n', '\r'};
    std::string text(size, ' ');
    for (char& c : text) {
        const auto roll = random() % 16;
        c = roll < 6 ? kSpecial[roll] : static_cast<char>(random());
    }
    return text;
}

TEST(FindLineEnd, AgreesWithALoopOverBytes) {
    std::mt19937 random(11);
    for (int i = 0; i < 20000; ++i) {
        std::string text(random() % 40, ' ');
        for (char& c : text) c = static_cast<char>(random() % 3 ? random() : random() % 30);
        const char* const first = text.data();
        const char* const last = first + text.size();
        EXPECT_EQ(nuv64::findLineEnd(first, last),
                  std::find_if(first, last, [](char c) { return c == 10 || c == 26 || c == 0; }));
    }
}

class DataFileWindow : public testing::TestWithParam<std::int64_t> {};

TEST_P(DataFileWindow, ReadsLikeAPlainBuffer) {
    const TempFolder folder(FolderPlace::kMemory);
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    for (int round = 0; round < 30; ++round) {
        const std::string content = randomLines(random() % 300, random);
        cKoFile file(folder.write("a", content).c_str(), nullptr, nullptr);
        ASSERT_TRUE(file.OpenExisting(0, 0));
        file.windowLimit = GetParam();
        const auto size = static_cast<std::int64_t>(content.size());
        std::int64_t at = 0;
        for (int i = 0; i < 400; ++i) {
            if (random() % 3) {
                at = static_cast<std::int64_t>(random() % (content.size() + 10));
                ASSERT_TRUE(file.Seek(at));
            }
            const std::int64_t count = static_cast<std::int64_t>(random() % 60) - 1;
            std::string got(64, '\x55');
            const bool skip = random() % 8 == 0;
            const std::int64_t result = file.Read(skip ? nullptr : got.data(), count);
            const std::int64_t expected =
                count <= 0 ? count : std::clamp<std::int64_t>(size - at, 0, count);
            ASSERT_EQ(result, expected) << "at " << at << " count " << count;
            if (expected > 0 && !skip) {
                ASSERT_EQ(got.substr(0, static_cast<std::size_t>(expected)),
                          content.substr(static_cast<std::size_t>(at),
                                         static_cast<std::size_t>(expected)));
            }
            ASSERT_EQ(got[static_cast<std::size_t>(std::max<std::int64_t>(expected, 0))], '\x55');
            at += std::max<std::int64_t>(expected, 0);
            ASSERT_EQ(file.position, at);
            ASSERT_EQ(file.lastError, 0u);
        }
    }
}

TEST_P(DataFileWindow, BothLineReadersFollowTheRules) {
    const TempFolder folder(FolderPlace::kMemory);
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 100);
    for (int round = 0; round < 200; ++round) {
        const std::string content = randomLines(random() % 200, random);
        const std::u16string path = folder.write("a", content);
        cKoFile copying(path.c_str(), nullptr, nullptr);
        cKoFile viewing(path.c_str(), nullptr, nullptr);
        cKoFile dropping(path.c_str(), nullptr, nullptr);
        nuv64::FileLineSource fromFile(viewing);
        nuv64::MemoryLineSource fromMemory(content);
        char* text = nullptr;
        for (cKoFile* file : {&copying, &viewing, &dropping}) {
            ASSERT_TRUE(file->OpenExisting(0, 0));
            file->windowLimit = GetParam();
        }
        std::size_t at = 0;
        for (int i = 0; i < 300; ++i) {
            if (random() % 5 == 0) {
                at = random() % (content.size() + 1);
                ASSERT_TRUE(copying.Seek(static_cast<std::int64_t>(at)));
                ASSERT_TRUE(dropping.Seek(static_cast<std::int64_t>(at)));
                ASSERT_TRUE(fromFile.seek(static_cast<std::int64_t>(at)));
                ASSERT_TRUE(fromMemory.seek(static_cast<std::int64_t>(at)));
            }
            const PlainLine expected = plainLine(content, at);
            ASSERT_EQ(copying.ReadLine(&text), expected.consumed);
            ASSERT_EQ(text ? text : "", expected.text);
            ASSERT_EQ(text != nullptr, expected.consumed > 0 || !expected.text.empty());
            std::string_view line = "old";
            ASSERT_EQ(fromFile.next(line), expected.consumed);
            ASSERT_EQ(line, expected.text);
            line = "old";
            ASSERT_EQ(fromMemory.next(line), expected.consumed);
            ASSERT_EQ(line, expected.text);
            ASSERT_EQ(dropping.ReadLineAndDrop(), expected.consumed);
            at = expected.next;
            ASSERT_EQ(copying.position, static_cast<std::int64_t>(at));
            ASSERT_EQ(fromFile.tell(), static_cast<std::int64_t>(at));
            ASSERT_EQ(fromMemory.tell(), static_cast<std::int64_t>(at));
            ASSERT_EQ(dropping.position, static_cast<std::int64_t>(at));
        }
        taken(text);
    }
}

TEST_P(DataFileWindow, LineStartsLikeALoopOverBytes) {
    const TempFolder folder(FolderPlace::kMemory);
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 200);
    for (int round = 0; round < 50; ++round) {
        const std::string content = randomLines(1 + random() % 200, random);
        const auto plain = [&](std::int64_t at) {
            while (at > 0 && content[static_cast<std::size_t>(at - 1)] != '\r' &&
                   content[static_cast<std::size_t>(at - 1)] != '\n')
                --at;
            return at;
        };
        cKoFile file(folder.write("a", content).c_str(), nullptr, nullptr);
        ASSERT_TRUE(file.OpenExisting(0, 0));
        file.windowLimit = GetParam();
        for (int i = 0; i < 100; ++i) {
            const auto at = static_cast<std::int64_t>(random() % (content.size() + 1));
            ASSERT_TRUE(file.Seek(at));
            const std::int64_t start = plain(at);
            ASSERT_TRUE(file.LineStart());
            ASSERT_EQ(file.position, start);
            ASSERT_TRUE(file.Seek(at));
            ASSERT_TRUE(file.PreviousLineStart());
            ASSERT_EQ(file.position, start > 0 ? plain(start - 1) : 0);
        }
    }
}

TEST_P(DataFileWindow, LocatesAcrossSeams) {
    const TempFolder folder(FolderPlace::kMemory);
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 300);
    std::string content(100000, 'a');
    for (char& c : content) c = "abAB\x1A"[random() % 5];
    for (const std::size_t seam : {32768u, 65530u, 65531u, 99990u})
        content.replace(seam - 3, 6, "needle");
    cKoFile file(folder.write("a", content).c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    file.windowLimit = GetParam();
    std::size_t expected = content.find("needle");
    while (expected != content.npos) {
        ASSERT_EQ(file.Locate("needle", 64, 0, 0), 1);
        ASSERT_EQ(file.position, static_cast<std::int64_t>(expected + 6));
        expected = content.find("needle", expected + 6);
    }
    EXPECT_EQ(file.Locate("needle", 0, 0, 0), 0);
    EXPECT_EQ(file.position, 100000);
    EXPECT_EQ(file.Locate("needle", 16, 0, 0), 1);
    EXPECT_EQ(file.position, static_cast<std::int64_t>(content.find("needle")));
    EXPECT_EQ(file.Locate("NEEDLE", 16, 0, 0), 0);
    EXPECT_EQ(file.Locate("NeeDLE", 16, 0, 1), 1);
    EXPECT_EQ(file.Locate("needXY", 16, 4, 0), 1);
    for (int i = 0; i < 200; ++i) {
        const std::string sub = content.substr(random() % 90000, 1 + random() % 12);
        const std::size_t from = random() % 90000;
        ASSERT_TRUE(file.Seek(static_cast<std::int64_t>(from)));
        const std::size_t found = content.find(sub, from);
        ASSERT_EQ(file.Locate(sub.c_str(), 0, 0, 0), found == content.npos ? 0 : 1);
        ASSERT_EQ(file.position, static_cast<std::int64_t>(std::min(found, content.size())));
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, DataFileWindow,
                         testing::Values(3, 5, 16, 64, 200, cKoFile::kLargestWindow));

TEST(DataFileWindowMoves, FollowTheirRules) {
    const TempFolder folder;
    cKoFile file(folder.write("a", std::string(1000, 'x')).c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    const auto window = [&] {
        return std::array{file.windowOffset, file.windowFilled, file.windowSize};
    };
    using Window = std::array<std::int64_t, 3>;
    char bytes[2000];
    const auto read = [&](std::int64_t at, std::int64_t count) {
        EXPECT_TRUE(file.Seek(at));
        return file.Read(bytes, count);
    };
    read(10, 1);
    EXPECT_EQ(window(), (Window{10, 990, 1002})) << "the whole of a small file and two more";
    file.DropWindow();
    EXPECT_EQ(window(), (Window{0, 0, 0}));
    file.windowLimit = 100;
    read(300, 10);
    EXPECT_EQ(window(), (Window{300, 100, 100}));
    read(390, 20);
    EXPECT_EQ(window(), (Window{390, 100, 100})) << "slides";
    read(600, 1);
    EXPECT_EQ(window(), (Window{600, 100, 100})) << "behind its end";
    read(500, 100);
    EXPECT_EQ(window(), (Window{500, 100, 100})) << "before its start";
    read(450, 60);
    EXPECT_EQ(window(), (Window{450, 100, 100})) << "ending inside";
    read(940, 5);
    EXPECT_EQ(window(), (Window{940, 60, 100})) << "filled as far as the file goes";
    EXPECT_EQ(read(930, 80), 70);
    EXPECT_EQ(window(), (Window{930, 70, 82})) << "over both ends of what it holds";
    read(100, 300);
    EXPECT_EQ(window(), (Window{100, 302, 302})) << "more than it can hold";
}

TEST(DataFileLocate, CasesWithoutASearch) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "abc").c_str(), nullptr, nullptr);
    EXPECT_EQ(file.Locate("", 0, 0, 0), 1);
    EXPECT_EQ(file.Locate(nullptr, 0, 0, 0), 1);
    EXPECT_EQ(file.Locate("a", 0, 0, 0), -1) << "not open";
    ASSERT_TRUE(file.OpenExisting(0, 0));
    EXPECT_EQ(file.Locate(std::string(0x1000001, 'a').c_str(), 0, 0, 0), -2);
    EXPECT_EQ(file.Locate("abcd", 0, 0, 0), 0);
}

TEST(DataFileRead, SpecialCounts) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "abc").c_str(), nullptr, nullptr);
    char c = 0;
    EXPECT_EQ(file.Read(&c, 0), 0);
    EXPECT_EQ(file.Read(&c, -7), -7);
    EXPECT_EQ(file.Read(&c, 1), -1) << "not open";
    EXPECT_NE(file.lastError, 0u);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    EXPECT_EQ(file.Read(&c, INT64_MAX), -2);
    EXPECT_EQ(file.Read(&c, INT64_MAX / 2), -2);
    EXPECT_NE(file.lastError, 0u);
    EXPECT_EQ(file.Read(&c, 1), 1) << "usable after a failure";
    EXPECT_EQ(c, 'a');
    file.position = -1;
    EXPECT_EQ(file.Read(&c, 1), -1);
    cKoFile empty(folder.write("b", "").c_str(), nullptr, nullptr);
    ASSERT_TRUE(empty.OpenExisting(0, 0));
    EXPECT_EQ(empty.Read(&c, 1), 0);
    EXPECT_EQ(empty.LineStart(), true);
}

TEST(DataFileRead, AReadErrorIsTold) {
#ifdef _WIN32
    GTEST_SKIP() << "no handle that fails in the middle";
#else
    const TempFolder folder;
    cKoFile file(folder.write("a", "abc\ndef\n").c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    file.windowLimit = 4;
    char text[8];
    EXPECT_EQ(file.Read(text, 2), 2);
    ::close(static_cast<int>(file.handle));
    EXPECT_EQ(file.Read(text, 8), -1);
    EXPECT_EQ(file.lastError, static_cast<std::uint32_t>(EBADF));
    EXPECT_EQ(file.Read(text, 1), -1) << "an error does not turn into the end of the file";
    std::string_view line;
    EXPECT_EQ(file.ReadLineView(line), -1);
    char* copy = nullptr;
    EXPECT_EQ(file.ReadLine(&copy), -1);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(file.ReadLineAndDrop(), -1);
    EXPECT_FALSE(file.LineStart());
    EXPECT_FALSE(file.PreviousLineStart());
    EXPECT_EQ(file.Locate("x", 0, 0, 0), -1);
    EXPECT_FALSE(file.Close());
    EXPECT_FALSE(file.IsOpen());
#endif
}

TEST(DataFileReadLine, CasesOfTheLastLine) {
    const TempFolder folder;
    cKoFile file(folder.write("a", "one\r\ntwo\rx\nlast").c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    EXPECT_EQ(file.ReadLine(nullptr), -2);
    char* text = nullptr;
    EXPECT_EQ(file.ReadLine(&text), 5);
    EXPECT_STREQ(text, "one");
    EXPECT_EQ(file.ReadLine(&text), 6) << "a lone CR ends no line";
    EXPECT_STREQ(text, "two\rx");
    EXPECT_EQ(file.ReadLine(&text), 0);
    EXPECT_STREQ(text, "last") << "the last line has no end, and yet it is there";
    EXPECT_EQ(file.ReadLine(&text), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_TRUE(file.Seek(10));
    EXPECT_TRUE(file.LineStart());
    EXPECT_EQ(file.position, 9) << "but a lone CR starts one";
}

TEST(DataFileReadLine, ALineLongerThanTheLargestWindow) {
    const TempFolder folder(FolderPlace::kMemory);
    std::string content = "head\n" + std::string(20'000'000, 'x') + "\r\ntail\n";
    cKoFile file(folder.write("a", content).c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.OpenExisting(0, 0));
    std::string_view line;
    EXPECT_EQ(file.ReadLineView(line), 5);
    EXPECT_EQ(file.ReadLineView(line), 20'000'002);
    EXPECT_EQ(line.size(), 20'000'000u);
    EXPECT_EQ(line.find_first_not_of('x'), line.npos);
    EXPECT_EQ(file.ReadLineView(line), 5);
    EXPECT_EQ(line, "tail");
    EXPECT_EQ(file.windowSize, cKoFile::kLargestWindow);
    EXPECT_TRUE(file.Seek(static_cast<std::int64_t>(content.size()) - 3));
    EXPECT_TRUE(file.LineStart());
    EXPECT_EQ(file.position, 20'000'007);
    EXPECT_TRUE(file.PreviousLineStart());
    EXPECT_EQ(file.position, 20'000'006) << "between CR and LF the way back stops";
}

TEST(DataFileReadLine, Above4GiB) {
    const TempFolder folder;
    constexpr std::int64_t kOffset = (std::int64_t{5} << 30) + 77;
    cKoFile file(folder.wide("large").c_str(), nullptr, nullptr);
    ASSERT_TRUE(file.Create(0, 0));
    allowHoles(file.handle);
    ASSERT_TRUE(file.Seek(kOffset));
    ASSERT_TRUE(file.WriteLine("far away", nullptr, nullptr, nullptr, nullptr));
    ASSERT_TRUE(file.WriteLine("second", nullptr, nullptr, nullptr, nullptr));
    ASSERT_TRUE(file.Seek(kOffset));
    std::string_view line;
    EXPECT_EQ(file.ReadLineView(line), 10);
    EXPECT_EQ(line, "far away");
    EXPECT_EQ(file.ReadLineView(line), 8);
    EXPECT_EQ(line, "second");
    EXPECT_TRUE(file.Seek(kOffset - 5));
    char bytes[13];
    EXPECT_EQ(file.Read(bytes, 13), 13);
    EXPECT_EQ(std::memcmp(bytes, "\0\0\0\0\0far away", 13), 0);
    EXPECT_TRUE(file.Seek(0));
    EXPECT_EQ(file.ReadLineView(line), 1) << "a NUL ends a line";
    EXPECT_TRUE(file.DeleteBytes(kOffset, 4));
    EXPECT_EQ(file.size, kOffset + 14);
}

TEST(MemoryLineSource, RefusesPlacesOutside) {
    nuv64::MemoryLineSource source("ab\n");
    EXPECT_FALSE(source.seek(-1));
    EXPECT_FALSE(source.seek(4));
    EXPECT_TRUE(source.seek(3));
    std::string_view line = "old";
    EXPECT_EQ(source.next(line), 0);
    EXPECT_EQ(line, "");
    nuv64::MemoryLineSource empty({});
    EXPECT_EQ(empty.next(line), 0);
}

}  // namespace
