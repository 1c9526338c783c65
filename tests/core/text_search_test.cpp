#include "nuv64/core/text_search.h"

#include <gtest/gtest.h>

#include <array>

#include "core/text_samples.h"

namespace {

constexpr uint64_t kNone = UINT64_MAX;

// The place of a result in its text.
template <class Ch>
uint64_t place(const Ch* text, const Ch* found) {
    return found ? static_cast<uint64_t>(found - text) : kNone;
}

// The search told plainly: every place, every character.
uint64_t plainPlace(const std::string& text, std::string sub, bool ignoreCase, char wildcard) {
    const auto folded = [&](char ch) {
        return ignoreCase && ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 32) : ch;
    };
    if (wildcard != 0) {
        // Wildcards behind the pattern need no character, those in front of it do.
        while (!sub.empty() && sub.back() == wildcard) sub.pop_back();
        if (sub.empty()) return 0;
    }
    for (uint64_t i = 0; i + sub.size() <= text.size(); ++i) {
        uint64_t k = 0;
        while (k < sub.size() &&
               ((wildcard != 0 && sub[k] == wildcard) || folded(sub[k]) == folded(text[i + k])))
            ++k;
        if (k == sub.size()) return i;
    }
    return kNone;
}

std::array<uint64_t, 256> shiftsOf(const std::string& sub) {
    std::array<uint64_t, 256> table;
    table.fill(sub.size());
    for (uint64_t i = 0; i + 1 < sub.size(); ++i)
        table[static_cast<unsigned char>(sub[i])] = sub.size() - 1 - i;
    return table;
}

}  // namespace

TEST(TextSearch, LengthAndCounts) {
    EXPECT_EQ(StringLenA("abc"), 3u);
    EXPECT_EQ(StringLen(u"abc"), 3u);
    EXPECT_EQ(StringLenA(nullptr), 0u);
    EXPECT_EQ(StringLen(nullptr), 0u);
    EXPECT_EQ(StringCharCountA("banana", 'a'), 3u);
    EXPECT_EQ(StringCharCount(u"banana", u'n'), 2u);
    EXPECT_EQ(StringCharCountA("banana", 0), 0u);
    EXPECT_EQ(StringCharCountA(nullptr, 'a'), 0u);
    EXPECT_EQ(StringCharCount(nullptr, u'a'), 0u);
    EXPECT_TRUE(StringIsChrPresentA("banana", 'n'));
    EXPECT_FALSE(StringIsChrPresentA("banana", 'x'));
    EXPECT_FALSE(StringIsChrPresentA("banana", 0));
    EXPECT_FALSE(StringIsChrPresentA(nullptr, 'n'));
    EXPECT_TRUE(StringIsChrPresent(u"banana", u'n'));
    EXPECT_FALSE(StringIsChrPresent(nullptr, u'n'));
}

TEST(TextSearch, Indices) {
    EXPECT_EQ(StringIndex1stChrA("banana", 'a'), 1u);
    EXPECT_EQ(StringIndexLastChrA("banana", 'a'), 5u);
    EXPECT_EQ(StringIndex1stChrA("banana", 'x'), kNone);
    EXPECT_EQ(StringIndexLastChrA("", 'x'), kNone);
    EXPECT_EQ(StringIndex1stChrA("banana", 0), kNone);
    EXPECT_EQ(StringIndex1stChr(u"banana", u'n'), 2u);
    EXPECT_EQ(StringIndexLastChr(u"banana", u'n'), 4u);
    EXPECT_EQ(StringIndex1stChr(nullptr, u'n'), kNone);
    EXPECT_EQ(StringIndexLastChrA(nullptr, 'n'), kNone);
    EXPECT_EQ(StringIndex1stOfCharsA("banana", "nx"), 2u);
    EXPECT_EQ(StringIndexLastOfCharsA("banana", "nb"), 4u);
    EXPECT_EQ(StringIndex1stOfCharsA("banana", ""), kNone);
    EXPECT_EQ(StringIndex1stOfCharsA("banana", nullptr), kNone);
    EXPECT_EQ(StringIndex1stOfCharsA(nullptr, "a"), kNone);
    EXPECT_EQ(StringIndex1stOfChars(u"banana", u"nx", 1, 2.0), 2u);
    EXPECT_EQ(StringIndexLastOfChars(u"banana", u"b"), 0u);
    EXPECT_EQ(StringIndexLastOfChars(nullptr, u"b"), kNone);
    EXPECT_EQ(StringIndexLastOfCharsA("banana", nullptr), kNone);
}

TEST(TextSearch, White) {
    EXPECT_EQ(StringIndex1stNonWhiteA(" \t\x01x "), 3u);
    EXPECT_EQ(StringIndexLastNonWhiteA(" x y \r\n"), 3u);
    EXPECT_EQ(StringIndex1stNonWhiteA(" \n"), kNone);
    EXPECT_EQ(StringIndexLastNonWhiteA(""), kNone);
    EXPECT_EQ(StringIndex1stNonWhiteA(nullptr), kNone);
    EXPECT_EQ(StringIndexLastNonWhiteA(nullptr), kNone);
    EXPECT_EQ(StringIndex1stNonWhite(u"  x"), 2u);
    EXPECT_EQ(StringIndexLastNonWhite(u"x  "), 0u);
    EXPECT_TRUE(StringIsEmptyA(nullptr));
    EXPECT_TRUE(StringIsEmptyA(" \t"));
    EXPECT_FALSE(StringIsEmptyA(" .\t"));
    EXPECT_TRUE(StringIsEmpty(u""));
    EXPECT_TRUE(StringIsEmpty(nullptr));
    EXPECT_FALSE(StringIsEmpty(u"\u00e9"));
    // Signed bytes: 0xE0 is -32 and white, 0xDF is -33 and not, 33 is not.
    EXPECT_TRUE(StringIsEmptyA("\xE0\xFF\x20"));
    EXPECT_FALSE(StringIsEmptyA("\xDF"));
    EXPECT_FALSE(StringIsEmptyA("!"));
    EXPECT_FALSE(StringIsEmptyA("\x80"));
    EXPECT_TRUE(StringIsEmpty(u"\xFFE0\xFFFF"));
    EXPECT_FALSE(StringIsEmpty(u"\xFFDF"));
}

TEST(TextSearch, NthItemIsTheSecondForEveryNAboveZero) {
    EXPECT_EQ(StringIndexNthItemA("a,b,c", 0, nullptr), 0u);
    EXPECT_EQ(StringIndexNthItemA("a,b,c", 1, nullptr), 2u);
    EXPECT_EQ(StringIndexNthItemA("a,b,c", 2, ""), 2u);
    EXPECT_EQ(StringIndexNthItemA("a,b,c", 99, ","), 2u);
    EXPECT_EQ(StringIndexNthItemA("ab;c,d", 1, ",;"), 3u);
    EXPECT_EQ(StringIndexNthItemA("abc", 1, ","), kNone);
    EXPECT_EQ(StringIndexNthItemA("abc,", 1, ","), 4u);
    EXPECT_EQ(StringIndexNthItemA(nullptr, 0, ","), kNone);
    EXPECT_EQ(StringIndexNthItem(u"ab,c", 1, nullptr), 3u);
    EXPECT_EQ(StringIndexNthItem(nullptr, 1, u","), kNone);
}

TEST(TextSearch, StartsAndEnds) {
    EXPECT_TRUE(StringStartsWithA("abc", "ab", 0));
    EXPECT_FALSE(StringStartsWithA("abc", "Ab", 0));
    EXPECT_FALSE(StringStartsWithA("a", "ab", 0));
    EXPECT_TRUE(StringStartsWithA("abc", "", 0));
    EXPECT_TRUE(StringStartsWithA("abc", nullptr, 0));
    EXPECT_FALSE(StringStartsWithA(nullptr, "a", 0));
    EXPECT_FALSE(StringStartsWithA(nullptr, nullptr, 0));
    EXPECT_FALSE(StringStartsWithA("  abc", "ab", 0));
    EXPECT_TRUE(StringStartsWithA(" \tabc", "ab", 1));
    EXPECT_FALSE(StringStartsWithA("  ", "a", 1));
    EXPECT_TRUE(StringStartsWith(u" abc", u"ab", 1));
    EXPECT_FALSE(StringStartsWith(nullptr, u"ab", 1));
    EXPECT_TRUE(StringEndsWithA("abc", "bc"));
    EXPECT_FALSE(StringEndsWithA("abc", "BC"));
    EXPECT_FALSE(StringEndsWithA("c", "bc"));
    EXPECT_TRUE(StringEndsWithA("abc", nullptr));
    EXPECT_FALSE(StringEndsWithA(nullptr, nullptr));
    EXPECT_TRUE(StringEndsWith(u"abc", u"abc"));
    EXPECT_FALSE(StringEndsWith(nullptr, u"c"));
}

TEST(TextSearch, Comparing) {
    EXPECT_EQ(StringsCompareA("abc", "abc", 0, 0), 0);
    EXPECT_EQ(StringsCompareA("abc", "abd", 0, 0), -1);
    EXPECT_EQ(StringsCompareA("b", "abd", 0, 0), 1);
    EXPECT_EQ(StringsCompareA("ab", "abc", 0, 0), -1);
    EXPECT_EQ(StringsCompareA("abc", "ab", 0, 0), 1);
    EXPECT_EQ(StringsCompareA("ABC", "abc", 0, 0), -1);
    EXPECT_EQ(StringsCompareA("aBc", "AbC", 1, 0), 0);
    EXPECT_EQ(StringsCompareA("  abc", "abc", 2, 0), 0);
    EXPECT_EQ(StringsCompareA("  abc", "abc", 0, 0), -1);
    EXPECT_EQ(StringsCompareA("abc \t", "abc", 4, 0), 0);
    EXPECT_EQ(StringsCompareA("abc", "abc  ", 4, 0), 0);
    EXPECT_EQ(StringsCompareA("abc ", "abc", 0, 0), 1);
    EXPECT_EQ(StringsCompareA(" aBc ", "\tAbC", 7, 0), 0);
    EXPECT_EQ(StringsCompareA("a?c", "abc", 0, '?'), 0);
    EXPECT_EQ(StringsCompareA("abc", "a?c", 0, '?'), 1);
    EXPECT_EQ(StringsCompareA("ab?", "ab", 0, '?'), 1);
    EXPECT_EQ(StringsCompareA("\xE9", "a", 0, 0), 1);
    EXPECT_EQ(StringsCompareA(nullptr, "", 0, 0), 0);
    EXPECT_EQ(StringsCompareA("", nullptr, 0, 0), 0);
    EXPECT_EQ(StringsCompareA("x", nullptr, 0, 0), 1);
    EXPECT_EQ(StringsCompareA(nullptr, "x", 0, 0), -1);
    EXPECT_EQ(StringsCompareA(" ", "", 6, 0), 1);
    EXPECT_EQ(StringsCompareA("  ", " ", 6, 0), 0);
    EXPECT_EQ(StringsCompare(u"aBc", u"AbC", 1, 0), 0);
    EXPECT_EQ(StringsCompare(u"a?c", u"abc", 0, u'?'), 0);
    EXPECT_EQ(StringsCompare(nullptr, nullptr, 0, 0), 0);
}

TEST(TextSearch, LocatingByHand) {
    const char* text = "here is a simple example";
    EXPECT_STREQ(StringLocateSubStringA(text, "example", 0, 0, nullptr), "example");
    EXPECT_EQ(StringLocateSubStringA(text, "examples", 0, 0, nullptr), nullptr);
    EXPECT_EQ(StringLocateSubStringA(text, "example", 23, 0, nullptr), nullptr);
    EXPECT_STREQ(StringLocateSubStringA(text, "example", 0, 2, nullptr), "example");
    EXPECT_EQ(StringLocateSubStringA(text, "", 0, 0, nullptr), text);
    EXPECT_EQ(StringLocateSubStringA(text, nullptr, 0, 0, nullptr), text);
    EXPECT_EQ(StringLocateSubStringA(nullptr, "a", 0, 0, nullptr), nullptr);
    EXPECT_EQ(StringLocateSubStringA("a", "aa", 0, 0, nullptr), nullptr);
    const char16_t* wide = u"\u03c91 \u04c91";
    EXPECT_EQ(StringLocateSubString(wide, u"\u04c91", 0, 0, nullptr), wide + 3);
    EXPECT_EQ(StringLocateSubString(nullptr, u"1", 0, 0, nullptr), nullptr);
    EXPECT_STREQ(StringLocateSubStringExA(text, "EXAMPLE", 0, 0, 1, 0, nullptr), "example");
    EXPECT_EQ(StringLocateSubStringExA(text, "EXAMPLE", 0, 0, 0, 0, nullptr), nullptr);
    EXPECT_STREQ(StringLocateSubStringExA(text, "s?mp", 0, 0, 0, '?', nullptr), "simple example");
    EXPECT_STREQ(StringLocateSubStringExA(text, "??simple??", 0, 0, 0, '?', nullptr),
                 "a simple example");
    EXPECT_STREQ(StringLocateSubStringExA("xb", "?b", 0, 0, 0, '?', nullptr), "xb");
    EXPECT_EQ(StringLocateSubStringExA("b", "?b", 0, 0, 0, '?', nullptr), nullptr);
    EXPECT_STREQ(StringLocateSubStringExA("bxb", "?b", 0, 0, 0, '?', nullptr), "xb");
    EXPECT_STREQ(StringLocateSubStringExA("b", "b?", 0, 0, 0, '?', nullptr), "b");
    EXPECT_STREQ(StringLocateSubStringExA("abc", "??", 0, 0, 0, '?', nullptr), "abc");
    EXPECT_EQ(StringLocateSubStringExA("a", "??", 0, 0, 0, '?', nullptr), nullptr);
    EXPECT_EQ(StringLocateSubStringExA(nullptr, "a", 0, 0, 0, '?', nullptr), nullptr);
    EXPECT_EQ(StringLocateSubStringEx(wide, u"\u04c9?", 0, 0, 1, u'?', nullptr), wide + 3);
}

TEST(TextSearch, LocatingAgreesWithThePlainSearch) {
    TextSource source(12);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = source.text(40, "aAbB\xE3"), sub = source.text(4, "aAb?\xE3");
        if (sub.empty()) continue;
        const std::u16string wide = widened(text), wideSub = widened(sub);
        const bool ignoreCase = source.below(2) != 0;
        const char wildcard = source.below(2) != 0 ? '?' : '\0';
        EXPECT_EQ(
            place(text.c_str(), StringLocateSubStringA(text.c_str(), sub.c_str(), 0, 0, nullptr)),
            text.find(sub));
        EXPECT_EQ(place(text.c_str(), StringLocateSubStringA(text.c_str(), sub.c_str(), 0,
                                                             sub.size(), shiftsOf(sub).data())),
                  text.find(sub));
        const uint64_t found =
            place(text.c_str(), StringLocateSubStringExA(text.c_str(), sub.c_str(), 0, 0,
                                                         ignoreCase, wildcard, nullptr));
        if (sub.find_first_not_of('?') != sub.npos || wildcard == 0) {
            EXPECT_EQ(found, plainPlace(text, sub, ignoreCase, wildcard)) << text << ' ' << sub;
        }
        EXPECT_EQ(place(wide.c_str(),
                        StringLocateSubStringEx(wide.c_str(), wideSub.c_str(), 0, 0, ignoreCase,
                                                static_cast<char16_t>(wildcard), nullptr)),
                  found);
    }
}

TEST(TextSearch, LocatingInLongTexts) {
    TextSource source(21);
    for (int i = 0; i < 4000; ++i) {
        const std::string text = source.text(300, "abA\xE3");
        const uint64_t start = source.below(text.size() + 1);
        std::string sub = text.substr(start, source.below(40));
        if (source.below(3) == 0) sub += source.text(3, "abA\xE3");
        if (source.below(3) == 0) sub.insert(source.below(sub.size() + 1), "?");
        if (sub.find_first_not_of('?') == sub.npos) continue;
        const std::u16string wide = widened(text), wideSub = widened(sub);
        const bool ignoreCase = source.below(2) != 0;
        const uint64_t expected = plainPlace(text, sub, ignoreCase, '?');
        EXPECT_EQ(place(text.c_str(), StringLocateSubStringExA(text.c_str(), sub.c_str(), 0, 0,
                                                               ignoreCase, '?', nullptr)),
                  expected);
        EXPECT_EQ(place(wide.c_str(), StringLocateSubStringEx(wide.c_str(), wideSub.c_str(), 0, 0,
                                                              ignoreCase, u'?', nullptr)),
                  expected);
        EXPECT_EQ(
            place(text.c_str(), StringLocateSubStringA(text.c_str(), sub.c_str(), 0, 0, nullptr)),
            text.find(sub));
    }
}

TEST(TextSearch, NothingBehindTheGivenLengthsIsLookedAt) {
    const std::unique_ptr<char, FreeText> text(static_cast<char*>(std::malloc(100)));
    std::fill_n(text.get(), 100, 'a');
    const char sub[] = {'a', 'b'};
    EXPECT_EQ(StringLocateSubStringA(text.get(), sub, 100, 2, nullptr), nullptr);
    text.get()[99] = 'b';
    EXPECT_EQ(StringLocateSubStringA(text.get(), sub, 100, 2, nullptr), text.get() + 98);
    EXPECT_EQ(StringLocateSubStringA(text.get(), sub, 99, 2, nullptr), nullptr);
    EXPECT_EQ(StringLocateSubStringExA(text.get(), sub, 99, 2, 1, 0, nullptr), nullptr);
}

TEST(TextSearch, ATableChangesNothing) {
    const std::array<uint64_t, 256> zeros{};
    std::array<uint64_t, 256> huge;
    huge.fill(kNone);
    EXPECT_STREQ(StringLocateSubStringA("xxab", "ab", 0, 0, zeros.data()), "ab");
    EXPECT_STREQ(StringLocateSubStringA("xxab", "ab", 0, 0, huge.data()), "ab");
}

TEST(TextSearch, BothWidthsAgree) {
    TextSource source(13);
    for (int i = 0; i < 5000; ++i) {
        const std::string text = source.text(12), other = source.text(3);
        const std::u16string wide = widened(text), wideOther = widened(other);
        const char *t = text.c_str(), *o = other.c_str();
        const char16_t *w = wide.c_str(), *wo = wideOther.c_str();
        const char ch = TextSource::kMixed[source.below(TextSource::kMixed.size())];
        const char16_t wideCh = widened(std::string(1, ch))[0];
        const auto options = static_cast<uint32_t>(source.below(8));
        EXPECT_EQ(StringCharCountA(t, ch), StringCharCount(w, wideCh));
        EXPECT_EQ(StringIndex1stChrA(t, ch), StringIndex1stChr(w, wideCh));
        EXPECT_EQ(StringIndexLastChrA(t, ch), StringIndexLastChr(w, wideCh));
        EXPECT_EQ(StringIndex1stOfCharsA(t, o), StringIndex1stOfChars(w, wo));
        EXPECT_EQ(StringIndexLastOfCharsA(t, o), StringIndexLastOfChars(w, wo));
        EXPECT_EQ(StringIndex1stNonWhiteA(t), StringIndex1stNonWhite(w));
        EXPECT_EQ(StringIndexLastNonWhiteA(t), StringIndexLastNonWhite(w));
        EXPECT_EQ(StringIsEmptyA(t), StringIsEmpty(w));
        EXPECT_EQ(StringIndexNthItemA(t, options, o), StringIndexNthItem(w, options, wo));
        EXPECT_EQ(StringStartsWithA(t, o, options & 1), StringStartsWith(w, wo, options & 1));
        EXPECT_EQ(StringEndsWithA(t, o), StringEndsWith(w, wo));
        EXPECT_EQ(StringsCompareA(t, o, options, ch), StringsCompare(w, wo, options, wideCh));
        EXPECT_EQ(StringsCompareA(t, o, options, 0), -StringsCompareA(o, t, options, 0));
    }
}
