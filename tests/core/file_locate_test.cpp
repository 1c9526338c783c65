#include "nuv64/core/file_locate.h"

#include <gtest/gtest.h>

#include <random>

#include "core/sparse_file.h"
#include "nuv64/core/file.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

constexpr std::size_t kChunk = 32768;  // characters in a search buffer
constexpr std::uint32_t kIgnoreCase = 1, kFromStart = 16, kGoBehind = 64, kPassCtrlZ = 256;

template <class Ch>
struct Width;
template <>
struct Width<char> {
    static std::int64_t locate(std::int64_t file, const char* text, std::uint32_t flags,
                               std::uint64_t length, char wildcard) {
        return FileLocateStringA(file, text, flags, length, wildcard);
    }
};
template <>
struct Width<char16_t> {
    static std::int64_t locate(std::int64_t file, const char16_t* text, std::uint32_t flags,
                               std::uint64_t length, char16_t wildcard) {
        return FileLocateString(file, text, flags, length, wildcard);
    }
};

// An open file whose content is a text of Ch.
template <class Ch>
class Searched {
  public:
    explicit Searched(const std::basic_string<Ch>& content)
        : handle_(FileOpen(folder_.wide("searched").c_str(), 1 | 4)) {
        EXPECT_TRUE(FileWriteBinary(handle_, content.data(), content.size() * sizeof(Ch)));
        FileRewind(handle_, nullptr);
    }
    ~Searched() { FileClose(&handle_, 0); }

    std::int64_t locate(const std::basic_string<Ch>& text, std::uint32_t flags,
                        std::uint64_t length = 0, Ch wildcard = 0) {
        return Width<Ch>::locate(handle_, text.c_str(), flags, length, wildcard);
    }
    // In characters.
    std::int64_t pointer() const {
        std::int64_t bytes = -1;
        FileGetPointer(handle_, &bytes);
        return bytes / static_cast<std::int64_t>(sizeof(Ch));
    }
    std::int64_t handle() const { return handle_; }

  private:
    TempFolder folder_;
    std::int64_t handle_;
};

template <class Ch>
std::basic_string<Ch> in(const char* text) {
    return std::basic_string<Ch>(text, text + std::char_traits<char>::length(text));
}

template <class Ch>
class FileLocate : public testing::Test {};
using Widths = testing::Types<char, char16_t>;
TYPED_TEST_SUITE(FileLocate, Widths);

TYPED_TEST(FileLocate, FindsAndMovesThePointer) {
    Searched<TypeParam> file(in<TypeParam>("one two one two"));
    EXPECT_EQ(file.locate(in<TypeParam>("two"), 0), 1);
    EXPECT_EQ(file.pointer(), 4);
    EXPECT_EQ(file.locate(in<TypeParam>("two"), 0), 1) << "from the pointer on";
    EXPECT_EQ(file.pointer(), 4);
    EXPECT_EQ(file.locate(in<TypeParam>("two"), kGoBehind), 1);
    EXPECT_EQ(file.pointer(), 7);
    EXPECT_EQ(file.locate(in<TypeParam>("two"), 0), 1);
    EXPECT_EQ(file.pointer(), 12);
    EXPECT_EQ(file.locate(in<TypeParam>("one"), 0), 0);
    EXPECT_EQ(file.pointer(), 15);
    EXPECT_EQ(file.locate(in<TypeParam>("one"), kFromStart), 1);
    EXPECT_EQ(file.pointer(), 0);
    EXPECT_EQ(file.locate(in<TypeParam>("TWO"), 0), 0);
    EXPECT_EQ(file.locate(in<TypeParam>("TwO"), kFromStart | kIgnoreCase), 1);
    EXPECT_EQ(file.pointer(), 4);
    EXPECT_EQ(file.locate(in<TypeParam>("onXXX"), kFromStart | kGoBehind, 2), 1) << "two count";
    EXPECT_EQ(file.pointer(), 2);
    EXPECT_EQ(file.locate(in<TypeParam>("one"), kFromStart, 100), 1) << "no more than there are";
}

TYPED_TEST(FileLocate, WildcardsStandForAnything) {
    Searched<TypeParam> file(in<TypeParam>("abcabdabe"));
    EXPECT_EQ(file.locate(in<TypeParam>("a?d"), 0, 0, '?'), 1);
    EXPECT_EQ(file.pointer(), 3);
    EXPECT_EQ(file.locate(in<TypeParam>("?bd"), kFromStart, 0, '?'), 1);
    EXPECT_EQ(file.pointer(), 3);
    EXPECT_EQ(file.locate(in<TypeParam>("e??"), kFromStart, 0, '?'), 1) << "behind the end too";
    EXPECT_EQ(file.pointer(), 8);
    EXPECT_EQ(file.locate(in<TypeParam>("?"), kFromStart | kGoBehind, 0, '?'), 1);
    EXPECT_EQ(file.pointer(), 1);
    EXPECT_EQ(file.locate(in<TypeParam>("?abc"), kFromStart, 0, '?'), 0);
}

TYPED_TEST(FileLocate, CtrlZEndsTheText) {
    Searched<TypeParam> file(in<TypeParam>("ab\x1A") + in<TypeParam>("cd"));
    EXPECT_EQ(file.locate(in<TypeParam>("ab"), kFromStart), 1);
    EXPECT_EQ(file.locate(in<TypeParam>("cd"), kFromStart), 0);
    EXPECT_EQ(file.locate(in<TypeParam>("cd"), kFromStart | kPassCtrlZ), 1);
    EXPECT_EQ(file.pointer(), 3);
    EXPECT_EQ(file.locate(in<TypeParam>("b?c"), kFromStart, 0, '?'), 0);
    EXPECT_EQ(file.locate(in<TypeParam>("b?c"), kFromStart | kPassCtrlZ, 0, '?'), 1);
    EXPECT_EQ(file.locate(in<TypeParam>("\x1A"), kFromStart | kPassCtrlZ), 1);
    EXPECT_EQ(file.pointer(), 2);
}

TYPED_TEST(FileLocate, CtrlZInALaterChunk) {
    std::basic_string<TypeParam> content(3 * kChunk, TypeParam('.'));
    content[kChunk + 100] = 26;
    content.replace(2 * kChunk, 3, in<TypeParam>("xyz"));
    content.replace(kChunk, 3, in<TypeParam>("abc"));
    Searched<TypeParam> file(content);
    EXPECT_EQ(file.locate(in<TypeParam>("xyz"), kFromStart), 0);
    EXPECT_EQ(file.locate(in<TypeParam>("abc"), kFromStart), 1);
    EXPECT_EQ(file.locate(in<TypeParam>("xyz"), kFromStart | kPassCtrlZ), 1);
    EXPECT_EQ(file.pointer(), static_cast<std::int64_t>(2 * kChunk));
}

TYPED_TEST(FileLocate, AcrossEverySeam) {
    const auto needle = in<TypeParam>("Ab?d");
    std::basic_string<TypeParam> content(2 * kChunk + 50, TypeParam('A'));
    for (const std::size_t seam : {kChunk, 2 * kChunk - 3}) {
        for (std::size_t place = seam - 6; place <= seam + 2; ++place) {
            auto text = content;
            text.replace(place, 4, in<TypeParam>("Abcd"));
            Searched<TypeParam> file(text);
            EXPECT_EQ(file.locate(needle, 0, 0, '?'), 1) << place;
            EXPECT_EQ(file.pointer(), static_cast<std::int64_t>(place));
            EXPECT_EQ(file.locate(in<TypeParam>("aBCd"), kFromStart | kIgnoreCase | kGoBehind), 1);
            EXPECT_EQ(file.pointer(), static_cast<std::int64_t>(place + 4));
        }
    }
}

TYPED_TEST(FileLocate, AgreesWithAPlainSearch) {
    std::mt19937 random(5);
    std::basic_string<TypeParam> content(2 * kChunk + 5000, 0);
    for (TypeParam& c : content) c = static_cast<TypeParam>('a' + random() % 2);
    Searched<TypeParam> file(content);
    for (int i = 0; i < 60; ++i) {
        const std::size_t start = random() % content.size();
        std::basic_string<TypeParam> needle =
            content.substr(random() % content.size(), 10 + random() % 12);
        if (needle.empty()) continue;
        FileSetPointer(file.handle(), static_cast<std::int64_t>(start * sizeof(TypeParam)), 0,
                       nullptr);
        const std::size_t expected = content.find(needle, start);
        ASSERT_EQ(file.locate(needle, 0), expected != content.npos) << i;
        if (expected != content.npos) {
            ASSERT_EQ(file.pointer(), static_cast<std::int64_t>(expected)) << i;
        }
    }
}

TYPED_TEST(FileLocate, TextsLongerThanTheSmallestBuffer) {
    std::basic_string<TypeParam> needle(kChunk, TypeParam('n'));
    needle.back() = 'm';
    std::basic_string<TypeParam> content(3 * kChunk + 17, TypeParam('n'));
    content += needle + needle;
    Searched<TypeParam> file(content);
    EXPECT_EQ(file.locate(needle, 0), 1);
    EXPECT_EQ(file.pointer(), static_cast<std::int64_t>(3 * kChunk + 17));
    const std::basic_string<TypeParam> longest(0x1000001, TypeParam('n'));
    EXPECT_EQ(file.locate(longest, 0), -2);
    EXPECT_EQ(file.locate(longest, 0, 0x1000000), 0) << "just allowed, and not there";
}

TEST(FileLocateCases, WithoutASearch) {
    Searched<char> file("abc");
    EXPECT_EQ(FileLocateStringA(file.handle(), nullptr, 0, 0, 0), 1);
    EXPECT_EQ(FileLocateString(file.handle(), nullptr, 0, 0, 0), 1);
    EXPECT_EQ(FileLocateStringA(-1, "", 0, 0, 0), 1) << "an empty text is found before all";
    EXPECT_EQ(FileLocateString(-1, u"", 0, 0, 0), 1);
    for (const std::int64_t handle : {std::int64_t{0}, std::int64_t{-1}}) {
        EXPECT_EQ(FileLocateStringA(handle, "a", 0, 0, 0), -1);
        EXPECT_EQ(FileLocateString(handle, u"a", 0, 0, 0), -1);
        EXPECT_NE(nuv64::platform::lastError(), 0u);
    }
    // An odd last byte is no character.
    EXPECT_EQ(FileLocateString(file.handle(), u"\x6261", 0x100, 0, 0), 1);
    EXPECT_EQ(FileLocateString(file.handle(), u"c", kFromStart, 0, 0), 0);
}

TEST(FileLocateCases, Above4GiB) {
    Searched<char> file("");
    allowHoles(file.handle());
    const std::int64_t place = (std::int64_t{1} << 32) + 40000;
    FileSetPointer(file.handle(), place, 0, nullptr);
    ASSERT_TRUE(FileWriteA(file.handle(), "needle"));
    FileSetPointer(file.handle(), place - 33000, 0, nullptr);
    EXPECT_EQ(FileLocateStringA(file.handle(), "needle", 0, 0, 0), 1);
    EXPECT_EQ(file.pointer(), place);
}

#ifndef _WIN32
TEST(FileLocateCases, AReadErrorIsTold) {
    std::int64_t memory = FileOpenA("/proc/self/mem", 2);
    if (memory == -1) GTEST_SKIP() << "no process memory to read";
    EXPECT_EQ(FileLocateStringA(memory, "a", 0, 0, 0), -1) << "address 0 can't be read";
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    FileClose(&memory, 0);
}
#endif

}  // namespace
