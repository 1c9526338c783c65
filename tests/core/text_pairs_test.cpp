// The wide and the 8-bit member of a pair do the same: every pair of the text functions over random
// texts, the wide one over their sign-extended images.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "core/text_samples.h"
#include "nuv64/core/characters.h"
#include "nuv64/core/formatter.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/text_copy.h"
#include "nuv64/core/text_edit.h"
#include "nuv64/core/text_search.h"

namespace {

constexpr int kRounds = 4000;

// A random text in both widths; null once in a while.
struct Pair {
    std::string narrow;
    std::u16string wide;
    bool none = false;

    Pair() = default;
    explicit Pair(std::string text) : narrow(std::move(text)), wide(widened(narrow)) {}
    const char* a() const { return none ? nullptr : narrow.c_str(); }
    const char16_t* w() const { return none ? nullptr : wide.c_str(); }
};

Pair draw(TextSource& source, std::uint64_t longest) {
    Pair pair(source.text(longest));
    pair.none = source.below(20) == 0;
    return pair;
}

char drawChar(TextSource& source) {
    return source.below(4) == 0 ? static_cast<char>(source.below(256))
                                : TextSource::kMixed[source.below(TextSource::kMixed.size())];
}

char16_t wideOf(char ch) {
    return widened(std::string(1, ch))[0];
}

// What a writer left in a buffer of its own, with its result.
template <class Ch>
struct Written {
    std::uint64_t result = 0;
    std::basic_string<Ch> text;
};

template <class Ch, class Write>
Written<Ch> written(Write write) {
    std::basic_string<Ch> buffer(250, Ch{'#'});
    Written<Ch> done;
    done.result = write(buffer.data());
    done.text = buffer.substr(0, buffer.find_last_not_of(Ch{'#'}) + 1);  // the terminator with it
    return done;
}

template <class Narrow, class Wide>
void expectSameWritten(Narrow narrow, Wide wide, const char* what) {
    const auto a = written<char>(narrow);
    const auto w = written<char16_t>(wide);
    EXPECT_EQ(a.result, w.result) << what;
    EXPECT_EQ(widened(a.text), w.text) << what;
}

void expectSame(char* narrow, char16_t* wide, const char* what) {
    EXPECT_EQ(widened(taken(narrow)), taken(wide)) << what;
}

// Runs both members on owned copies that they may change or move.
template <class Narrow, class Wide>
void expectSameMoved(const Pair& text, Narrow narrow, Wide wide, const char* what) {
    char* a = text.none ? nullptr : owned(text.narrow).release();
    char16_t* w = text.none ? nullptr : owned(text.wide).release();
    const char* const resultA = narrow(&a);
    const char16_t* const resultW = wide(&w);
    EXPECT_EQ(resultA == a, resultW == w) << what;
    expectSame(a, w, what);
}

template <class Narrow, class Wide>
void expectSameChanged(const Pair& text, Narrow narrow, Wide wide, const char* what) {
    if (text.none) {
        EXPECT_EQ(narrow(nullptr) == decltype(narrow(nullptr)){},
                  wide(nullptr) == decltype(wide(nullptr)){})
            << what;
        return;
    }
    const auto a = owned(text.narrow);
    const auto w = owned(text.wide);
    narrow(a.get());
    wide(w.get());
    EXPECT_EQ(widened(std::string(a.get())), std::u16string(w.get())) << what;
}

}  // namespace

TEST(TextPairs, Copies) {
    TextSource source(101);
    for (int i = 0; i < kRounds; ++i) {
        const Pair text = draw(source, 20);
        const std::uint64_t first =
            source.below(30) == 0 ? UINT64_MAX - source.below(3) : source.below(24);
        const std::uint64_t last =
            source.below(9) == 0 ? UINT64_MAX - source.below(3) : source.below(24);
        expectSame(NewCopyStringA(text.a(), first, last), NewCopyString(text.w(), first, last),
                   "NewCopyString");
        expectSame(NewCopyStringExA(text.a(), last % 50), NewCopyStringEx(text.w(), last % 50),
                   "NewCopyStringEx");
        expectSame(NewCopyStringSectionA(text.a(), first, last),
                   NewCopyStringSection(text.w(), first, last), "NewCopyStringSection");
        const char separator = drawChar(source);
        expectSame(NewCopyStringItemA(text.a(), first % 4, separator),
                   NewCopyStringItem(text.w(), first % 4, wideOf(separator)), "NewCopyStringItem");
        const Pair more = draw(source, 6), third = draw(source, 4);
        expectSame(NewStringsConcatA(3, text.a(), more.a(), third.a()),
                   NewStringsConcat(3, text.w(), more.w(), third.w()), "NewStringsConcat");
        expectSameMoved(
            text, [&](char** t) { return StringAppendA(t, more.a()); },
            [&](char16_t** t) { return StringAppend(t, more.w()); }, "StringAppend");
        expectSameMoved(
            text, [&](char** t) { return StringReplaceA(t, more.a()); },
            [&](char16_t** t) { return StringReplace(t, more.w()); }, "StringReplace");
        const std::uint64_t capacity = source.below(8) == 0 ? UINT64_MAX : source.below(24);
        expectSameWritten([&](char* b) { return StringToBufferA(text.a(), b, capacity); },
                          [&](char16_t* b) { return StringToBuffer(text.w(), b, capacity); },
                          "StringToBuffer");
        expectSameWritten(
            [&](char* b) { return StringSectionToBufferA(text.a(), first, last, b, capacity); },
            [&](char16_t* b) { return StringSectionToBuffer(text.w(), first, last, b, capacity); },
            "StringSectionToBuffer");
        // There and back again.
        expectSame(NewCopyStringWA(text.w()), NewCopyStringAW(text.a()), "NewCopyStringAW");
        expectSameWritten(
            [&](char* b) { return StringToBufferWA(text.w(), b, capacity / 2); },
            [&](char16_t* b) { return StringToBufferAW(text.a(), b, capacity / 2 + 1); },
            "StringToBufferAW");
    }
}

TEST(TextPairs, Searches) {
    TextSource source(102);
    for (int i = 0; i < kRounds; ++i) {
        const Pair text = draw(source, 40), other = draw(source, 3);
        const char ch = drawChar(source);
        const char16_t wideCh = wideOf(ch);
        const auto option = static_cast<std::uint32_t>(source.below(8));
        EXPECT_EQ(StringLenA(text.a()), StringLen(text.w()));
        EXPECT_EQ(StringCharCountA(text.a(), ch), StringCharCount(text.w(), wideCh));
        EXPECT_EQ(StringIsChrPresentA(text.a(), ch), StringIsChrPresent(text.w(), wideCh));
        EXPECT_EQ(StringIndex1stChrA(text.a(), ch), StringIndex1stChr(text.w(), wideCh));
        EXPECT_EQ(StringIndexLastChrA(text.a(), ch), StringIndexLastChr(text.w(), wideCh));
        EXPECT_EQ(StringIndex1stOfCharsA(text.a(), other.a()),
                  StringIndex1stOfChars(text.w(), other.w()));
        EXPECT_EQ(StringIndexLastOfCharsA(text.a(), other.a()),
                  StringIndexLastOfChars(text.w(), other.w()));
        EXPECT_EQ(StringIndex1stNonWhiteA(text.a()), StringIndex1stNonWhite(text.w()));
        EXPECT_EQ(StringIndexLastNonWhiteA(text.a()), StringIndexLastNonWhite(text.w()));
        EXPECT_EQ(StringIsEmptyA(text.a()), StringIsEmpty(text.w()));
        EXPECT_EQ(StringIndexNthItemA(text.a(), option, other.a()),
                  StringIndexNthItem(text.w(), option, other.w()));
        EXPECT_EQ(StringStartsWithA(text.a(), other.a(), option & 1),
                  StringStartsWith(text.w(), other.w(), option & 1));
        EXPECT_EQ(StringEndsWithA(text.a(), other.a()), StringEndsWith(text.w(), other.w()));
        EXPECT_EQ(StringsCompareA(text.a(), other.a(), option, ch),
                  StringsCompare(text.w(), other.w(), option, wideCh));
        const char* found = StringLocateSubStringA(text.a(), other.a(), 0, 0, nullptr);
        const char16_t* wideFound = StringLocateSubString(text.w(), other.w(), 0, 0, nullptr);
        EXPECT_EQ(found ? found - text.a() : -1, wideFound ? wideFound - text.w() : -1);
        found = StringLocateSubStringExA(text.a(), other.a(), 0, 0, option & 1, ch, nullptr);
        wideFound = StringLocateSubStringEx(text.w(), other.w(), 0, 0, option & 1, wideCh, nullptr);
        EXPECT_EQ(found ? found - text.a() : -1, wideFound ? wideFound - text.w() : -1);
    }
}

TEST(TextPairs, Changes) {
    TextSource source(103);
    for (int i = 0; i < kRounds; ++i) {
        const Pair text = draw(source, 20), other = draw(source, 2);
        const char ch = drawChar(source), to = drawChar(source);
        // Clearing the top bit belongs to the 8-bit form alone.
        const auto mode = static_cast<std::uint32_t>(source.below(0x10000)) & ~1u;
        expectSameChanged(
            text, [&](char* t) { return StringGroomA(t, mode); },
            [&](char16_t* t) { return StringGroom(t, mode); }, "StringGroom");
        expectSameChanged(
            text, [&](char* t) { return StringCutoffCommentsA(t, other.a(), mode); },
            [&](char16_t* t) { return StringCutoffComments(t, other.w(), mode); },
            "StringCutoffComments");
        expectSameChanged(
            text, [&](char* t) { return StringReplaceChrByChrA(t, ch, to); },
            [&](char16_t* t) { return StringReplaceChrByChr(t, wideOf(ch), wideOf(to)); },
            "StringReplaceChrByChr");
        expectSameChanged(
            text, [&](char* t) { return StringDeleteSubStringA(t, other.a()); },
            [&](char16_t* t) { return StringDeleteSubString(t, other.w()); },
            "StringDeleteSubString");
        expectSameMoved(
            text, [&](char** t) { return StringEnforceLastChrA(t, ch); },
            [&](char16_t** t) { return StringEnforceLastChr(t, wideOf(ch)); },
            "StringEnforceLastChr");
        Pair count(source.text(4, "ABYZ"));
        count.none = source.below(9) == 0;
        expectSameMoved(count, StringNextAlphaCountA, StringNextAlphaCount, "StringNextAlphaCount");
        // Values up to 127 are the same in both widths; greater ones lose different bits.
        expectSameChanged(Pair(source.text(12, "\\\\a\"'?bnrtv01 ")), StringRestoreEscapesA,
                          StringRestoreEscapes, "StringRestoreEscapes");
    }
}

TEST(TextPairs, EscapesDifferInTheBitsThatFitAlone) {
    TextSource source(104);
    for (int i = 0; i < kRounds; ++i) {
        const std::string text = "\\" + source.text(1, "ux01234567") + source.text(6, "09afAFgz ");
        const auto a = owned(text);
        const auto w = owned(widened(text));
        StringRestoreEscapesA(a.get());
        StringRestoreEscapes(w.get());
        EXPECT_EQ(a.get()[0], static_cast<char>(w.get()[0] & 0xFF)) << text;
    }
}

TEST(TextPairs, Characters) {
    for (int code = 0; code < 256; ++code) {
        const char ch = static_cast<char>(code);
        EXPECT_EQ(wideOf(chToLcaseA(ch)), chToLcase(wideOf(ch)));
        EXPECT_EQ(wideOf(chToUcaseA(ch)), chToUcase(wideOf(ch)));
        EXPECT_EQ(chHexToDigitA(ch), chHexToDigit(wideOf(ch)));
        EXPECT_EQ(wideOf(chDigitToHexA(static_cast<std::uint32_t>(code))),
                  chDigitToHex(static_cast<std::uint32_t>(code)));
        expectSameWritten([&](char* b) { return chToStringBufferA(ch, b); },
                          [&](char16_t* b) { return chToStringBuffer(wideOf(ch), b); },
                          "chToStringBuffer");
    }
}

TEST(TextPairs, NumbersPrinted) {
    TextSource source(105);
    for (int i = 0; i < kRounds; ++i) {
        const std::uint64_t bits = source.bits() >> source.below(64);
        const auto radix = static_cast<std::uint32_t>(source.below(40));
        const auto digits = static_cast<std::uint32_t>(source.below(30));
        const auto dword = static_cast<std::uint32_t>(bits);
        const auto asLong = static_cast<std::int32_t>(bits);
        const auto qlong = static_cast<std::int64_t>(0 - bits);
        const auto real = std::bit_cast<double>(source.bits());
        expectSameWritten([&](char* b) { return DwordToBufferA(dword, b, radix); },
                          [&](char16_t* b) { return DwordToBuffer(dword, b, radix); }, "Dword");
        expectSameWritten([&](char* b) { return LongToBufferA(asLong, b, radix); },
                          [&](char16_t* b) { return LongToBuffer(asLong, b, radix); }, "Long");
        expectSameWritten([&](char* b) { return QwordToBufferA(bits, b, radix); },
                          [&](char16_t* b) { return QwordToBuffer(bits, b, radix); }, "Qword");
        expectSameWritten([&](char* b) { return QlongToBufferA(qlong, b, radix); },
                          [&](char16_t* b) { return QlongToBuffer(qlong, b, radix); }, "Qlong");
        expectSameWritten([&](char* b) { return RealToBufferA(real, b, digits, radix); },
                          [&](char16_t* b) { return RealToBuffer(real, b, digits, radix); },
                          "Real");
        expectSameWritten([&](char* b) { return QwordToKMGbufferA(b, bits, radix & 1); },
                          [&](char16_t* b) { return QwordToKMGbuffer(b, bits, radix & 1); }, "KMG");
        expectSame(NewStringFromDwordA(dword, radix), NewStringFromDword(dword, radix), "Dword");
        expectSame(NewStringFromLongA(asLong, radix), NewStringFromLong(asLong, radix), "Long");
        expectSame(NewStringFromQwordA(bits, radix), NewStringFromQword(bits, radix), "Qword");
        expectSame(NewStringFromQlongA(qlong, radix), NewStringFromQlong(qlong, radix), "Qlong");
        expectSame(NewStringFromRealA(real, digits, radix), NewStringFromReal(real, digits, radix),
                   "Real");
    }
}

namespace {

// Both members of a reader give the same value, report and number of characters.
template <class Number>
void expectSameRead(const Pair& text, std::uint32_t flags, bool same, std::uint32_t flagsA,
                    std::uint32_t flagsW, std::uint64_t consumedA, std::uint64_t consumedW) {
    EXPECT_TRUE(same) << text.narrow << ' ' << flags;
    EXPECT_EQ(flagsA, flagsW) << text.narrow << ' ' << flags;
    EXPECT_EQ(consumedA, consumedW) << text.narrow << ' ' << flags;
}

template <class Number, class... Radix>
void readBoth(Number (*narrow)(const char*, std::uint32_t*, std::uint64_t*, Radix...),
              Number (*wide)(const char16_t*, std::uint32_t*, std::uint64_t*, Radix...),
              const Pair& text, std::uint32_t flags, Radix... radix) {
    std::uint32_t flagsA = flags, flagsW = flags;
    std::uint64_t consumedA = 77, consumedW = 77;
    const Number a = narrow(text.a(), &flagsA, &consumedA, radix...);
    const Number w = wide(text.w(), &flagsW, &consumedW, radix...);
    const bool same = std::memcmp(&a, &w, sizeof a) == 0;
    expectSameRead<Number>(text, flags, same, flagsA, flagsW, consumedA, consumedW);
    const Number again = narrow(text.a(), nullptr, nullptr, radix...);
    const Number againWide = wide(text.w(), nullptr, nullptr, radix...);
    EXPECT_EQ(std::memcmp(&again, &againWide, sizeof again), 0) << text.narrow;
}

template <class Number>
void testBoth(std::uint32_t (*narrow)(const char*, Number, Number, Number*),
              std::uint32_t (*wide)(const char16_t*, Number, Number, Number*), const Pair& text) {
    Number a{}, w{};
    EXPECT_EQ(narrow(text.a(), Number(5), Number(500), &a),
              wide(text.w(), Number(5), Number(500), &w))
        << text.narrow;
    EXPECT_EQ(std::memcmp(&a, &w, sizeof a), 0) << text.narrow;
}

}  // namespace

TEST(TextPairs, NumbersRead) {
    static const char* const kAlphabets[] = {"0123456789", "0123456789+-.eE \t,",
                                             "0xXbBoOaAfFpP19.-", "infatyINFnan()_ -"};
    TextSource source(106);
    for (int i = 0; i < 5 * kRounds; ++i) {
        Pair text(source.text(source.below(4) == 0 ? 70 : 12, kAlphabets[source.below(4)]));
        if (source.below(5) == 0) text = draw(source, 20);
        const auto flags = static_cast<std::uint32_t>(source.bits());
        const std::uint32_t radix = 10;
        readBoth(StringToRealA, StringToReal, text, flags, radix);
        readBoth(StringToDwordA, StringToDword, text, flags, radix);
        readBoth(StringToLongA, StringToLong, text, flags, radix);
        readBoth(StringToQwordA, StringToQword, text, flags, radix);
        readBoth(StringToQlongA, StringToQlong, text, flags, radix);
        readBoth(StringToDwordStrictA, StringToDwordStrict, text, flags);
        readBoth(StringToLongStrictA, StringToLongStrict, text, flags);
        readBoth(StringToQwordStrictA, StringToQwordStrict, text, flags);
        readBoth(StringToQlongStrictA, StringToQlongStrict, text, flags);
        testBoth<std::uint32_t>(StringTestForDwordA, StringTestForDword, text);
        testBoth<std::int32_t>(StringTestForLongA, StringTestForLong, text);
        testBoth<std::uint64_t>(StringTestForQwordA, StringTestForQword, text);
        testBoth<std::int64_t>(StringTestForQlongA, StringTestForQlong, text);
        testBoth<double>(StringTestForRealA, StringTestForReal, text);
        std::uint64_t endA = 1, endW = 2;
        EXPECT_EQ(NumberOfRealItemsInStringA(text.a(), &endA),
                  NumberOfRealItemsInString(text.w(), &endW));
        EXPECT_EQ(endA, endW);
    }
}

TEST(TextPairs, FormattedTexts) {
    TextSource source(107);
    for (int i = 0; i < kRounds; ++i) {
        // Any text around the specifications, also pieces of them.
        std::string before = source.text(8), behind = source.text(8, "ab%%-+ #0.&");
        for (std::size_t at = 0; (at = before.find('%', at)) != before.npos; at += 2)
            before.insert(at, "%");
        behind.erase(std::remove(behind.begin(), behind.end(), '%'), behind.end());
        static const char* const kConversions[] = {"%d", "%08X", "%-5d|", "%+i", "%#o", "%5u"};
        const Pair format(before + kConversions[source.below(6)] + behind + "%hs%lls%.3f%C%Q");
        const Pair text = draw(source, 10);
        const auto value = static_cast<int>(source.bits());
        const double real = std::bit_cast<double>(source.bits());
        const Complex complex{1.5, -2.0};
        const Qrat ratio{-6, static_cast<std::int64_t>(source.below(9))};
        expectSame(NewSprintfA(format.a(), value, text.a(), text.w(), real, complex, ratio),
                   NewSprintf(format.w(), value, text.a(), text.w(), real, complex, ratio),
                   "NewSprintf");
        const std::uint64_t capacity = source.below(60);
        expectSameWritten(
            [&](char* b) {
                return SprintfToBufferA(b, capacity, format.a(), value, text.a(), text.w(), real,
                                        complex, ratio);
            },
            [&](char16_t* b) {
                return SprintfToBuffer(b, capacity, format.w(), value, text.a(), text.w(), real,
                                       complex, ratio);
            },
            "SprintfToBuffer");
        expectSameMoved(
            text,
            [&](char** t) {
                return SprintfAppendA(t, format.a(), value, text.a(), text.w(), real, complex,
                                      ratio);
            },
            [&](char16_t** t) {
                return SprintfAppend(t, format.w(), value, text.a(), text.w(), real, complex,
                                     ratio);
            },
            "SprintfAppend");
    }
}
