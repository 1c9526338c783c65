#include "nuv64/core/text_edit.h"

#include <gtest/gtest.h>

#include "core/text_samples.h"
#include "nuv64/core/memory.h"

namespace {

// A text after a change in place, in a block that has no character to spare.
template <class Ch, class Change>
std::basic_string<Ch> after(const std::basic_string<Ch>& text, Change change) {
    const auto block = owned(text);
    change(block.get());
    return block.get();
}

std::string groomed(const std::string& text, uint32_t mode) {
    return after(text, [mode](char* block) { EXPECT_EQ(StringGroomA(block, mode), block); });
}

std::string unescaped(const std::string& text) {
    return after(text, [](char* block) { EXPECT_EQ(StringRestoreEscapesA(block), block); });
}

// A text that a changer may move, and its end.
template <class Ch, class Change>
std::basic_string<Ch> moved(const Ch* text, Change change) {
    Ch* block = text ? owned(std::basic_string<Ch>(text)).release() : nullptr;
    EXPECT_EQ(change(&block), block);
    return taken(block);
}

std::string enforced(const char* text, char ch) {
    return moved(text, [ch](char** block) { return StringEnforceLastChrA(block, ch); });
}

std::string counted(const char* text) {
    return moved(text, [](char** block) { return StringNextAlphaCountA(block); });
}

}  // namespace

TEST(TextEdit, Groom) {
    EXPECT_EQ(groomed("  a\t  b ", 0), "a b");
    EXPECT_EQ(groomed("  ab", 0x102), "  AB");
    EXPECT_EQ(groomed("  a\t  b ", 0x100), "A B");
    EXPECT_EQ(groomed(" aB ", 0x200), "ab");
    EXPECT_EQ(groomed(" aB ", 0x300), "AB");
    EXPECT_EQ(groomed(" a  b  ", 0x4), "a b ");
    EXPECT_EQ(groomed(" a  b  ", 0x8), "a  b");
    EXPECT_EQ(groomed(" a\t\tb ", 0x10), "a\t\tb");
    EXPECT_EQ(groomed("a\r\n\tb", 0), "a b");
    EXPECT_EQ(groomed("a\r\n\tb", 0x20), "a\r b");
    EXPECT_EQ(groomed("a\r\n\tb", 0x40), "a \n b");
    EXPECT_EQ(groomed("a\r\n\tb", 0x80), "a \tb");
    EXPECT_EQ(groomed("a\r\n\tb", 0x8), "a   b");
    EXPECT_EQ(groomed(" \t a  \t b \t", 0x1A), " \t a  \t b");
    EXPECT_EQ(groomed(" \t a  \t b \t", 0x1E), " \t a  \t b \t");
    EXPECT_EQ(groomed(" a ", 0x8000), " a ");
    EXPECT_EQ(groomed("", 0), "");
    EXPECT_EQ(groomed("   ", 0), "");
    EXPECT_EQ(groomed("   ", 0x2), "");
    EXPECT_EQ(groomed("   ", 0x6), "   ");
    EXPECT_EQ(groomed("\xE1\xC1", 0x1), "aA");
    EXPECT_EQ(groomed("a \xC2\xB0", 0), "a \xC2\xB0");
    EXPECT_EQ(StringGroomA(nullptr, 0), nullptr);
    EXPECT_EQ(StringGroom(nullptr, 0), nullptr);
}

TEST(TextEdit, CutoffComments) {
    const auto cut = [](const char* text, const char* marker) {
        return after(std::string(text), [&](char* block) {
            EXPECT_EQ(StringCutoffCommentsA(block, marker, 0), block);
        });
    };
    EXPECT_EQ(cut("a/b//c", "//"), "a/b");
    EXPECT_EQ(cut("x", "//"), "x");
    EXPECT_EQ(cut("x/", "//"), "x/");
    EXPECT_EQ(cut("//x", "//"), "");
    EXPECT_EQ(cut("a//b\nc", "//"), "a");
    EXPECT_EQ(cut("a///b", "//"), "a");
    EXPECT_EQ(cut("aab", "ab"), "a");
    EXPECT_EQ(cut("x", ""), "x");
    EXPECT_EQ(cut("x", nullptr), "x");
    EXPECT_EQ(StringCutoffCommentsA(nullptr, "//", 0), nullptr);
    EXPECT_EQ(StringCutoffComments(nullptr, u"//", 0), nullptr);
    EXPECT_EQ(after(std::u16string(u"a;b"),
                    [](char16_t* block) { StringCutoffComments(block, u";", 7); }),
              u"a");
}

TEST(TextEdit, RestoreEscapes) {
    EXPECT_EQ(unescaped(R"(\"\'\?\\)"), "\"'?\\");
    EXPECT_EQ(unescaped(R"(\a\b\e\f\l\n\r\t\v)"), "\a\b\x1B\f\x10\n\r\t\v");
    EXPECT_EQ(unescaped(R"(\101\1018\7z\60)"), "AA8\az0");
    EXPECT_EQ(unescaped(R"(\8\q)"), "8q");
    EXPECT_EQ(unescaped(R"(ab\)"), "ab");
    EXPECT_EQ(unescaped(R"(\)"), "");
    EXPECT_EQ(unescaped(R"(\x41 b)"), "A b");
    EXPECT_EQ(unescaped(R"(\u41 b)"), "A b");
    EXPECT_EQ(unescaped(R"(\x3A)"), std::string(1, 3 * 16 + 17));  // the letter A is 17
    EXPECT_EQ(unescaped(R"(\x3a)"), std::string(1, 3 * 16 + 17));
    EXPECT_EQ(unescaped(R"(\x2~\x2)"), "\x02~\x02");
    EXPECT_EQ(unescaped("plain"), "plain");
    EXPECT_EQ(unescaped(""), "");
    EXPECT_EQ(unescaped(R"(a\x)"), "a");
    EXPECT_EQ(unescaped(R"(a\x,b)"), "a");
    EXPECT_EQ(StringRestoreEscapesA(nullptr), nullptr);
    EXPECT_EQ(StringRestoreEscapes(nullptr), nullptr);
    EXPECT_EQ(
        after(std::u16string(u"\\x1234\\n"), [](char16_t* block) { StringRestoreEscapes(block); }),
        std::u16string(1, static_cast<char16_t>((0x1234u * 16 + ('\\' - '0')) * 16 + ('N' - '0'))));
    EXPECT_EQ(
        after(std::u16string(u"\\x1234~"), [](char16_t* block) { StringRestoreEscapes(block); }),
        u"\x1234~");
}

TEST(TextEdit, ReplaceAndDelete) {
    const auto slashes = [](char* block) {
        EXPECT_EQ(StringReplaceChrByChrA(block, '/', '\\'), block);
    };
    EXPECT_EQ(after(std::string("a/b/c"), slashes), "a\\b\\c");
    EXPECT_EQ(after(std::u16string(u"a/b"),
                    [](char16_t* block) { StringReplaceChrByChr(block, u'/', u'-'); }),
              u"a-b");
    EXPECT_EQ(StringReplaceChrByChrA(nullptr, 'a', 'b'), nullptr);
    EXPECT_EQ(StringReplaceChrByChr(nullptr, u'a', u'b'), nullptr);
    const auto without = [](const char* text, const char* sub, bool found) {
        return after(std::string(text),
                     [&](char* block) { EXPECT_EQ(StringDeleteSubStringA(block, sub), found); });
    };
    EXPECT_EQ(without("abcabc", "bc", true), "aabc");
    EXPECT_EQ(without("abc", "abc", true), "");
    EXPECT_EQ(without("abc", "c", true), "ab");
    EXPECT_EQ(without("abc", "x", false), "abc");
    EXPECT_EQ(without("abc", "", false), "abc");
    EXPECT_EQ(without("abc", nullptr, false), "abc");
    EXPECT_FALSE(StringDeleteSubStringA(nullptr, "a"));
    EXPECT_FALSE(StringDeleteSubString(nullptr, u"a"));
    const auto withoutB = [](char16_t* block) { EXPECT_TRUE(StringDeleteSubString(block, u"b")); };
    EXPECT_EQ(after(std::u16string(u"abc"), withoutB), u"ac");
}

TEST(TextEdit, EnforceLastChr) {
    EXPECT_EQ(enforced("ab", ';'), "ab;");
    EXPECT_EQ(enforced("ab;", ';'), "ab;");
    EXPECT_EQ(enforced("ab; ", ';'), "ab; ");
    EXPECT_EQ(enforced("ab  ", ';'), "ab; ");
    EXPECT_EQ(enforced("", ';'), ";");
    EXPECT_EQ(enforced("  ", ';'), "; ");
    EXPECT_EQ(enforced(nullptr, ';'), ";");
    EXPECT_EQ(enforced("ab", '\n'), "ab\n");
    EXPECT_EQ(enforced("ab\n", '\n'), "ab\n");
    EXPECT_EQ(StringEnforceLastChrA(nullptr, ';'), nullptr);
    EXPECT_EQ(StringEnforceLastChr(nullptr, u';'), nullptr);
    EXPECT_EQ(moved(u"x", [](char16_t** block) { return StringEnforceLastChr(block, u'\\'); }),
              u"x\\");
}

TEST(TextEdit, AlphaCount) {
    EXPECT_EQ(counted(nullptr), "A");
    EXPECT_EQ(counted(""), "A");
    EXPECT_EQ(counted("A"), "B");
    EXPECT_EQ(counted("Z"), "AA");
    EXPECT_EQ(counted("AZ"), "BA");
    EXPECT_EQ(counted("ZZ"), "AAA");
    EXPECT_EQ(counted("AZZ"), "BAA");
    EXPECT_EQ(StringNextAlphaCountA(nullptr), nullptr);
    EXPECT_EQ(StringNextAlphaCount(nullptr), nullptr);
    char16_t* text = nullptr;
    for (int column = 0; column < 26 + 26 * 26 + 1; ++column) StringNextAlphaCount(&text);
    EXPECT_EQ(taken(text), u"AAA");
}

TEST(TextEdit, BothWidthsAgree) {
    TextSource source(14);
    for (int i = 0; i < 5000; ++i) {
        const std::string text = source.text(16), sub = source.text(2);
        const std::u16string wide = widened(text), wideSub = widened(sub);
        const auto mode = static_cast<uint32_t>(source.below(0x400)) & ~1u;
        EXPECT_EQ(widened(groomed(text, mode)),
                  after(wide, [mode](char16_t* block) { StringGroom(block, mode); }));
        EXPECT_EQ(groomed(groomed(text, 0), 0), groomed(text, 0));
        EXPECT_EQ(widened(after(text, [&](char* b) { StringCutoffCommentsA(b, sub.c_str(), 0); })),
                  after(wide, [&](char16_t* b) { StringCutoffComments(b, wideSub.c_str(), 0); }));
        EXPECT_EQ(widened(after(text, [&](char* b) { StringDeleteSubStringA(b, sub.c_str()); })),
                  after(wide, [&](char16_t* b) { StringDeleteSubString(b, wideSub.c_str()); }));
        EXPECT_EQ(widened(enforced(text.c_str(), ',')),
                  moved(wide.c_str(), [](char16_t** b) { return StringEnforceLastChr(b, u','); }));
        const std::string escaped = source.text(10, "\\\\\\abn?q'019 ");
        EXPECT_EQ(widened(unescaped(escaped)),
                  after(widened(escaped), [](char16_t* b) { StringRestoreEscapes(b); }));
    }
}
