#include "nuv64/core/text_copy.h"

#include <gtest/gtest.h>

#include "core/text_samples.h"
#include "nuv64/core/memory.h"

namespace {

constexpr uint64_t kAll = UINT64_MAX;

}  // namespace

TEST(TextCopy, WholeAndPart) {
    EXPECT_EQ(taken(NewCopyStringA("abcd", 0, kAll)), "abcd");
    EXPECT_EQ(taken(NewCopyStringA("abcd", 1, 3)), "bcd");
    EXPECT_EQ(taken(NewCopyStringA("abcd", 1, 1)), "b");
    EXPECT_EQ(taken(NewCopyStringA("abcd", 3, 100)), "d");
    EXPECT_EQ(taken(NewCopyStringA("abcd", 4, 100)), "");
    EXPECT_EQ(taken(NewCopyStringA("abcd", 3, 2)), "");
    EXPECT_EQ(taken(NewCopyStringA("abcd", kAll, kAll)), "");
    EXPECT_EQ(taken(NewCopyStringA("", 0, kAll)), "");
    EXPECT_EQ(taken(NewCopyStringA(nullptr, 0, kAll)), "");
    EXPECT_EQ(taken(NewCopyString(u"abcd", 1, 3)), u"bcd");
    EXPECT_EQ(taken(NewCopyString(nullptr, 0, 0)), u"");
}

TEST(TextCopy, RoomForMore) {
    char* text = NewCopyStringExA("abc", 3);
    text[3] = text[4] = text[5] = 'x';
    text[6] = 0;
    EXPECT_EQ(taken(text), "abcxxx");
    char16_t* wide = NewCopyStringEx(u"", 1);
    EXPECT_EQ(wide[0], 0);
    wide[0] = u'y';
    wide[1] = 0;
    EXPECT_EQ(taken(wide), u"y");
    EXPECT_EQ(taken(NewCopyStringExA(nullptr, 0)), "");
    EXPECT_EQ(NewCopyStringExA("a", kAll), nullptr);
    EXPECT_EQ(NewCopyStringEx(u"a", kAll / 2), nullptr);
}

TEST(TextCopy, Sections) {
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", 1, 3)), "bc");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", 1, 1)), "");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", 2, 1)), "<null>");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", 2, kAll)), "cd");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", kAll, 2)), "ab");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", kAll - 1, kAll)), "abcd");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", kAll - 2, kAll)), "");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", 2, 100)), "cd");
    EXPECT_EQ(taken(NewCopyStringSectionA("abcd", 50, 100)), "");
    EXPECT_EQ(taken(NewCopyStringSectionA(nullptr, 0, kAll)), "<null>");
    EXPECT_EQ(taken(NewCopyStringSection(u"abcd", 1, 3)), u"bc");
    EXPECT_EQ(taken(NewCopyStringSection(nullptr, 0, 1)), u"<null>");
}

TEST(TextCopy, SectionsIntoABuffer) {
    char text[10] = "???";
    EXPECT_EQ(StringSectionToBufferA("abcdef", 1, 5, text, 10), 4u);
    EXPECT_STREQ(text, "bcde");
    EXPECT_EQ(StringSectionToBufferA("abcdef", 1, 5, text, 3), 2u);
    EXPECT_STREQ(text, "bc");
    EXPECT_EQ(StringSectionToBufferA("abcdef", 5, 1, text, 10), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(StringSectionToBufferA("abcdef", kAll, kAll, text, kAll), 6u);
    EXPECT_EQ(StringSectionToBufferA(nullptr, 0, 1, text, 10), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(StringSectionToBufferA("abc", 0, 1, nullptr, 10), 0u);
    char16_t wide[4];
    EXPECT_EQ(StringSectionToBuffer(u"abcdef", 2, kAll, wide, 4), 3u);
    EXPECT_EQ(std::u16string(wide), u"cde");
}

TEST(TextCopy, Items) {
    EXPECT_EQ(taken(NewCopyStringItemA("a,b,", 0, ',')), "a");
    EXPECT_EQ(taken(NewCopyStringItemA("a,b,", 1, ',')), "b");
    EXPECT_EQ(taken(NewCopyStringItemA("a,b,", 2, ',')), "");
    EXPECT_EQ(taken(NewCopyStringItemA("a,b,", 3, ',')), "<null>");
    EXPECT_EQ(taken(NewCopyStringItemA(",b", 0, ',')), "");
    EXPECT_EQ(taken(NewCopyStringItemA("", 0, ',')), "");
    EXPECT_EQ(taken(NewCopyStringItemA("", 1, ',')), "<null>");
    EXPECT_EQ(taken(NewCopyStringItemA("ab", 0, 0)), "ab");
    EXPECT_EQ(taken(NewCopyStringItemA("ab", 1, 0)), "<null>");
    EXPECT_EQ(taken(NewCopyStringItemA(nullptr, 0, ',')), "<null>");
    EXPECT_EQ(taken(NewCopyStringItemA("a,b", kAll, ',')), "<null>");
    EXPECT_EQ(taken(NewCopyStringItem(u"a;bc;d", 1, u';')), u"bc");
}

TEST(TextCopy, WidthsByValue) {
    EXPECT_EQ(taken(NewCopyStringAW("a\xE9\x7F\x80")), u"a\xFFE9\x7F\xFF80");
    EXPECT_EQ(taken(NewCopyStringWA(u"a\u03c9\u00b0")), "a\xC9\xB0");
    EXPECT_EQ(taken(NewCopyStringAW("")), u"");
    EXPECT_EQ(NewCopyStringAW(nullptr), nullptr);
    EXPECT_EQ(NewCopyStringWA(nullptr), nullptr);
    std::string every;
    for (int code = 1; code < 256; ++code) every += static_cast<char>(code);
    const std::u16string wide = taken(NewCopyStringAW(every.c_str()));
    EXPECT_EQ(wide, widened(every));
    EXPECT_EQ(taken(NewCopyStringWA(wide.c_str())), every);
}

TEST(TextCopy, Concatenation) {
    const char* none = nullptr;
    EXPECT_EQ(taken(NewStringsConcatA(0)), "");
    EXPECT_EQ(taken(NewStringsConcatA(1, none)), "");
    EXPECT_EQ(taken(NewStringsConcatA(4, "ab", none, "", "c")), "abc");
    EXPECT_EQ(taken(NewStringsConcat(3, u"x", u"yz", u"w")), u"xyzw");
    EXPECT_EQ(
        taken(NewStringsConcatA(12, "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "a", "b")),
        "0123456789ab");
}

TEST(TextCopy, Appending) {
    char* text = nullptr;
    EXPECT_STREQ(StringAppendA(&text, nullptr), "");
    EXPECT_STREQ(StringAppendA(&text, "ab"), "ab");
    EXPECT_EQ(StringAppendA(&text, ""), text);
    StringAppendA(&text, text);  // itself, and a piece of itself
    StringAppendA(&text, text + 3);
    EXPECT_STREQ(text, "ababb");
    StringAppendA(&text, text + 5);
    EXPECT_STREQ(text, "ababb");
    std::string expected = text;
    for (int i = 0; i < 2000; ++i) {
        expected += "xyz";
        StringAppendA(&text, "xyz");
    }
    EXPECT_EQ(text, expected);
    KillStringA(&text);
    EXPECT_EQ(StringAppendA(nullptr, "x"), nullptr);
    char16_t* wide = nullptr;
    StringAppend(&wide, u"\u03c9");
    EXPECT_EQ(std::u16string(StringAppend(&wide, u"=1")), u"\u03c9=1");
    KillString(&wide);
    EXPECT_EQ(StringAppend(nullptr, u"x"), nullptr);
}

TEST(TextCopy, Replacing) {
    char* text = nullptr;
    EXPECT_STREQ(StringReplaceA(&text, "abcdef"), "abcdef");
    EXPECT_STREQ(StringReplaceA(&text, text + 2), "cdef");
    EXPECT_STREQ(StringReplaceA(&text, nullptr), "");
    KillStringA(&text);
    EXPECT_EQ(StringReplaceA(nullptr, "x"), nullptr);
    char16_t* wide = NewString(5, u'x');
    EXPECT_EQ(std::u16string(StringReplace(&wide, u"ab")), u"ab");
    KillString(&wide);
    EXPECT_EQ(StringReplace(nullptr, u"x"), nullptr);
}

TEST(TextCopy, Buffers) {
    for (uint64_t capacity = 1; capacity < 8; ++capacity) {
        const uint64_t count = std::min<uint64_t>(capacity - 1, 5);
        const auto text = owned(std::string(capacity - 1, '?'));
        EXPECT_EQ(StringToBufferA("abcde", text.get(), capacity), count);
        EXPECT_EQ(std::string(text.get()), std::string("abcde", count));
        const auto wide = owned(std::u16string(capacity - 1, u'?'));
        EXPECT_EQ(StringToBuffer(u"abcde", wide.get(), capacity), count);
        EXPECT_EQ(StringToBufferAW("abcde", wide.get(), capacity), count);
        EXPECT_EQ(std::u16string(wide.get()), std::u16string(u"abcde", count));
        // The terminator comes on top of the capacity here.
        EXPECT_EQ(StringToBufferWA(u"abcde", text.get(), capacity - 1), count);
        EXPECT_EQ(std::string(text.get()), std::string("abcde", count));
    }
    char text[10] = "kept";
    char16_t wide[10] = u"kept";
    EXPECT_EQ(StringToBufferA("abc", text, 0), 0u);
    EXPECT_EQ(StringToBufferAW("abc", wide, 0), 0u);
    EXPECT_EQ(StringToBuffer(u"abc", wide, 0), 0u);
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(std::u16string(wide), u"kept");
    EXPECT_EQ(StringToBufferA("abc", text, kAll), 3u);
    EXPECT_EQ(StringToBufferWA(u"ab\u03c9", text, kAll), 3u);
    EXPECT_STREQ(text, "ab\xC9");
    EXPECT_EQ(StringToBufferAW("a\xE9", wide, kAll), 2u);
    EXPECT_EQ(std::u16string(wide), u"a\xFFE9");
    EXPECT_EQ(StringToBufferA(nullptr, text, 10), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(StringToBufferWA(nullptr, text, 9), 0u);
    EXPECT_EQ(StringToBufferAW(nullptr, wide, 10), 0u);
    EXPECT_EQ(std::u16string(wide), u"");
    EXPECT_EQ(StringToBufferA("abc", nullptr, 10), 0u);
    EXPECT_EQ(StringToBuffer(u"abc", nullptr, 10), 0u);
    EXPECT_EQ(StringToBufferAW("abc", nullptr, 10), 0u);
    EXPECT_EQ(StringToBufferWA(u"abc", nullptr, 10), 0u);
}

TEST(TextCopy, BothWidthsAgree) {
    TextSource source(11);
    for (int i = 0; i < 3000; ++i) {
        const std::string text = source.text(20), more = source.text(5);
        const std::u16string wide = widened(text), wideMore = widened(more);
        const uint64_t first = source.below(24), last = source.below(24);
        EXPECT_EQ(widened(taken(NewCopyStringA(text.c_str(), first, last))),
                  taken(NewCopyString(wide.c_str(), first, last)));
        EXPECT_EQ(widened(taken(NewCopyStringSectionA(text.c_str(), first, last))),
                  taken(NewCopyStringSection(wide.c_str(), first, last)));
        EXPECT_EQ(widened(taken(NewCopyStringItemA(text.c_str(), first % 4, ','))),
                  taken(NewCopyStringItem(wide.c_str(), first % 4, u',')));
        EXPECT_EQ(widened(taken(NewStringsConcatA(2, text.c_str(), more.c_str()))),
                  taken(NewStringsConcat(2, wide.c_str(), wideMore.c_str())));
    }
}
