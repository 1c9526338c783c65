#include "nuv64/core/console_input.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "core/owned_result.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "support/console_streams.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

constexpr std::uint32_t kNoGrooming = 0x8000;

TEST(CinToBuffer, ReadsOneLine) {
    const TypedInput typed("first line\r\n  two \n\nlast");
    char16_t wide[40];
    char narrow[40];
    std::uint32_t status = 99;
    EXPECT_EQ(printedBy([&] { status = CinToBuffer(u"Name:", wide, 40, kNoGrooming); }), " Name: ");
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(std::u16string(wide), u"first line");
    EXPECT_EQ(printedBy([&] { status = CinToBufferA("", narrow, 40, kNoGrooming); }), "  ");
    EXPECT_STREQ(narrow, "  two ");
    EXPECT_EQ(printedBy([&] { status = CinToBufferA(nullptr, narrow, 40, kNoGrooming); }), "  ");
    EXPECT_EQ(status, 0u);
    EXPECT_STREQ(narrow, "");
    printedBy([&] { status = CinToBufferA("", narrow, 40, kNoGrooming); });
    EXPECT_STREQ(narrow, "last");
    EXPECT_EQ(status, 0u);
    printedBy([&] { status = CinToBufferA("", narrow, 40, kNoGrooming); });
    EXPECT_EQ(status, 62u);
    EXPECT_STREQ(narrow, "");
    printedBy([&] { status = CinToBuffer(u"", wide, 40, kNoGrooming); });
    EXPECT_EQ(status, 62u);
    EXPECT_EQ(wide[0], 0);
}

TEST(CinToBuffer, GroomsWhatItRead) {
    const TypedInput typed("  a \t b  \n  a \t b  \n");
    char16_t wide[40];
    char narrow[40];
    printedBy([&] {
        CinToBuffer(u"", wide, 40, 0);
        CinToBufferA("", narrow, 40, 0x100);
    });
    EXPECT_EQ(std::u16string(wide), u"a b");
    EXPECT_STREQ(narrow, "A B");
}

TEST(CinToBuffer, DropsWhatTheBufferCannotHold) {
    const TypedInput typed("abcdef\nghijkl\nmno\n\xC3\xA4\xE2\x82\xACz\n\xF0\x9F\x98\x80z\n\n");
    char narrow[5] = "####";
    char16_t wide[5] = u"####";
    std::uint32_t status = 0;
    printedBy([&] { status = CinToBufferA("", narrow, 4, kNoGrooming); });
    EXPECT_EQ(status, 0u);
    EXPECT_STREQ(narrow, "abc");
    printedBy([&] { CinToBuffer(u"", wide, 4, kNoGrooming); });
    EXPECT_EQ(std::u16string(wide), u"ghi");
    printedBy([&] { status = CinToBufferA("", narrow, 1, kNoGrooming); });
    EXPECT_EQ(status, 0u);
    EXPECT_STREQ(narrow, "");
    printedBy([&] { CinToBuffer(u"", wide, 3, kNoGrooming); });
    EXPECT_EQ(std::u16string(wide), u"\u00E4\u20AC");
    printedBy([&] { CinToBuffer(u"", wide, 2, kNoGrooming); });
    EXPECT_EQ(std::u16string(wide), u"") << "no half characters";
}

TEST(CinToBuffer, WithoutABufferNothingIsAsked) {
    const TypedInput typed("line\n");
    char narrow[2] = "x";
    std::uint32_t status = 0;
    EXPECT_EQ(dialogue("", status, [] { return CinToBuffer(u"p", nullptr, 5, 0); }), "");
    EXPECT_EQ(status, 18u);
    EXPECT_EQ(printedBy([&] { status = CinToBufferA("p", narrow, 0, 0); }), "");
    EXPECT_EQ(status, 18u);
}

TEST(CinNewString, GivesTheLine) {
    const std::string longLine(3000, 'q');
    const TypedInput typed(" w\xC3\xA4rm \nraw\xFF\n\n" + longLine + "\nnext\n");
    std::optional<std::u16string> wide;
    std::optional<std::string> narrow;
    EXPECT_EQ(printedBy([&] { wide = taken(CinNewString(u"?")); }), " ? ");
    EXPECT_EQ(wide, u" w\u00E4rm ");
    printedBy([&] { narrow = taken(CinNewStringA("?")); });
    EXPECT_EQ(narrow, "raw\xFF") << "bytes as they are typed";
    printedBy([&] { narrow = taken(CinNewStringA("?")); });
    EXPECT_EQ(narrow, "");
    printedBy([&] { narrow = taken(CinNewStringA(nullptr)); });
    EXPECT_EQ(narrow, std::string(1023, 'q'));
    printedBy([&] { wide = taken(CinNewString(nullptr)); });
    EXPECT_EQ(wide, u"next");
    printedBy([&] {
        EXPECT_EQ(CinNewString(u"?"), nullptr);
        EXPECT_EQ(CinNewStringA("?"), nullptr);
    });
}

TEST(CinGetKey, TakesOneCharacterOfARedirectedInput) {
    const TypedInput typed("a\n\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\r z");
    EXPECT_EQ(CinGetKey(0), u'a');
    EXPECT_EQ(CinGetKey(0), u'\n');
    EXPECT_EQ(CinGetKey(0), u'\u00E4');
    EXPECT_EQ(CinGetKey(1), u'\u20AC');
    EXPECT_EQ(CinGetKey(0), 0xFFFD) << "beyond 16 bits";
    EXPECT_EQ(CinGetKey(0), u'\r');
    EXPECT_EQ(CinGetKey(1), u' ');
    EXPECT_EQ(CinGetKey(0), u'z');
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(CinGetKey(0), 26);
        EXPECT_EQ(CinGetKey(1), 26);
    }
}

TEST(CinGetKey, AnIncompleteCharacterLeavesTheNextOneAlone) {
    const TypedInput typed("\xE2\x82x\xC3\n12\n\xF0\x9F");
    EXPECT_EQ(CinGetKey(0), 0xFFFD);
    EXPECT_EQ(CinGetKey(1), u'x');
    EXPECT_EQ(CinGetKey(0), 0xFFFD);
    EXPECT_EQ(taken(CinNewStringA(nullptr)), "") << "the line feed behind it";
    EXPECT_EQ(taken(CinNewString(nullptr)), u"12");
    EXPECT_EQ(CinGetKey(0), 0xFFFD);
    EXPECT_EQ(CinGetKey(0), 26);
}

TEST(CinGetKey, WaitsForACodeThatIsNotZero) {
    const TypedInput typed(std::string("\0\0x\0", 4));
    EXPECT_EQ(CinGetKey(0), u'x');
    EXPECT_EQ(CinGetKey(1), 0);
    EXPECT_EQ(CinGetKey(0), 26);
}

TEST(CinGetKey, LeavesTheRestOfTheLineToItsReader) {
    const TypedInput typed("k12.5\n7\n");
    EXPECT_EQ(CinGetKey(0), u'k');
    double value = 0.0;
    printedBy([&] { value = CinReal(u"", nullptr); });
    EXPECT_EQ(value, 12.5);
    EXPECT_EQ(CinGetKey(0), u'7');
    EXPECT_EQ(CinGetKey(0), u'\n');
}

#ifndef _WIN32
// Standard input as the reading end of a pipe, for the time of one block.
class PipedInput {
  public:
    PipedInput() {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        saved_ = ::dup(STDIN_FILENO);
        ::dup2(ends[0], STDIN_FILENO);
        ::close(ends[0]);
        writer_ = ends[1];
    }
    ~PipedInput() {
        close();
        ::dup2(saved_, STDIN_FILENO);
        ::close(saved_);
    }
    void type(const std::string& text) const {
        EXPECT_EQ(::write(writer_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void close() {
        if (writer_ != -1) ::close(writer_);
        writer_ = -1;
    }

  private:
    int saved_;
    int writer_;
};

TEST(CinGetKey, DoesNotWaitOnAPipe) {
    PipedInput input;
    EXPECT_EQ(CinGetKey(1), 0);
    input.type("ab1\n");
    EXPECT_EQ(CinGetKey(1), u'a');
    EXPECT_EQ(CinGetKey(1), u'b') << "what the runtime has read ahead counts too";
    printedBy([] { EXPECT_EQ(CinDwordA("", nullptr), 1u); });
    EXPECT_EQ(CinGetKey(1), 0);
    input.close();
    EXPECT_EQ(CinGetKey(1), 26);
    EXPECT_EQ(CinGetKey(0), 26);
}
#endif

TEST(CinWaitKbHit, PromptsAndShowsTheKey) {
    const TypedInput typed("q\n\x1B\x7F\xC3\xA4w");
    std::uint16_t key = 0;
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHit(u"\n Key: ", 0); }), "\n Key: q");
    EXPECT_EQ(key, u'q');
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHitA("K", 0); }), "K") << "a control code";
    EXPECT_EQ(key, u'\n');
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHitA("K", 0); }), "K");
    EXPECT_EQ(key, 27);
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHitA(nullptr, 0); }), "");
    EXPECT_EQ(key, 127);
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHitA(nullptr, 0); }), "\xC3\xA4");
    EXPECT_EQ(key, u'\u00E4');
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHit(nullptr, 1); }), "w");
    EXPECT_EQ(key, u'w');
    EXPECT_EQ(printedBy([&] { key = CinWaitKbHit(u"end", 0); }), "end");
    EXPECT_EQ(key, 26);
}

TEST(CinMemA, ReadsDigits) {
    unsigned char bytes[8];
    std::uint64_t length = sizeof bytes;
    std::uint32_t status = 99;
    EXPECT_EQ(dialogue("00A5ff\n", status, [&] { return CinMemA("hex:", bytes, &length, 3); }),
              " hex: ");
    EXPECT_EQ(status, 0u);
    ASSERT_EQ(length, 3u);
    EXPECT_EQ(std::memcmp(bytes, "\x00\xA5\xFF\x00", 4), 0);
    length = sizeof bytes;
    dialogue("10100101\n", status, [&] { return CinMemA("", bytes, &length, 2); });
    ASSERT_EQ(length, 1u);
    EXPECT_EQ(bytes[0], 0xA5);
    length = 3;
    dialogue("01020304\n", status, [&] { return CinMemA("", bytes, &length, 16); });
    EXPECT_EQ(length, 2u);
    EXPECT_EQ(dialogue("01\n", status, [&] { return CinMemA("p", bytes, &length, 10); }), "");
    EXPECT_EQ(status, 9u);
    EXPECT_EQ(dialogue("01\n", status, [&] { return CinMemA("p", nullptr, &length, 3); }), "");
    EXPECT_EQ(status, 18u);
    dialogue("01\n", status, [&] { return CinMemA("p", bytes, nullptr, 3); });
    EXPECT_EQ(status, 18u);
    dialogue("", status, [&] { return CinMemA("p", bytes, &length, 3); });
    EXPECT_EQ(status, 62u);
}

// Calls both members on the same typed text; they must agree in value, flags and print.
template <class Wide, class Narrow>
auto typedBoth(const std::string& typed, Wide wide, Narrow narrow, std::uint32_t* flags,
               std::string* printed = nullptr) {
    decltype(wide(nullptr)) value{}, other{};
    std::uint32_t first = 0x5A5A, second = 0x5A5A;
    const std::string text = dialogue(typed, value, [&] { return wide(&first); });
    EXPECT_EQ(dialogue(typed, other, [&] { return narrow(&second); }), text);
    EXPECT_EQ(std::memcmp(&value, &other, sizeof value), 0) << typed;
    EXPECT_EQ(first, second);
    if (flags) *flags = first;
    if (printed) *printed = text;
    // Without a flags word the same comes out.
    dialogue(typed, other, [&] { return wide(nullptr); });
    EXPECT_EQ(std::memcmp(&value, &other, sizeof value), 0);
    dialogue(typed, other, [&] { return narrow(nullptr); });
    EXPECT_EQ(std::memcmp(&value, &other, sizeof value), 0);
    return value;
}

#define TYPED(wide, narrow, typed, flags)                      \
    typedBoth(                                                 \
        typed, [](std::uint32_t* f) { return wide(u"p", f); }, \
        [](std::uint32_t* f) { return narrow("p", f); }, flags)

TEST(CinNumbers, AreReadByTheReaderOfTheirType) {
    std::uint32_t flags = 0;
    EXPECT_EQ(TYPED(CinDword, CinDwordA, "42\n", &flags), 42u);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(TYPED(CinDword, CinDwordA, "  42.6 x\n", &flags), 43u);
    EXPECT_EQ(flags, 0x40u);
    EXPECT_EQ(TYPED(CinDword, CinDwordA, "-5\n", &flags), 0u);
    EXPECT_EQ(flags, 0x20200u);
    EXPECT_EQ(TYPED(CinLong, CinLongA, "-5\n", &flags), -5);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(TYPED(CinLong, CinLongA, "3e9\n", &flags), INT32_MAX);
    EXPECT_EQ(flags, 0x1100u);
    EXPECT_EQ(TYPED(CinQword, CinQwordA, "123456789012\n", &flags), 123456789012u);
    EXPECT_EQ(TYPED(CinQword, CinQwordA, "-1", &flags), 0u);
    EXPECT_EQ(flags, 0x80200u);
    EXPECT_EQ(TYPED(CinQlong, CinQlongA, "-123456789012\n", &flags), -123456789012);
    EXPECT_EQ(TYPED(CinReal, CinRealA, "-2.5e-3\n", &flags), -2.5e-3);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(TYPED(CinReal, CinRealA, "1.5 \n", &flags), 1.5);
    EXPECT_EQ(flags, 0x20u);
    EXPECT_EQ(TYPED(CinReal, CinRealA, "inf\n", &flags), HUGE_VAL);
    std::string printed;
    typedBoth(
        "1\n", [](std::uint32_t* f) { return CinReal(u"\n Wave length [m]:", f); },
        [](std::uint32_t* f) { return CinRealA("\n Wave length [m]:", f); }, nullptr, &printed);
    EXPECT_EQ(printed, " \n Wave length [m]: ");
}

TEST(CinNumbers, WithoutANumberGiveTheirMark) {
    for (const char* typed : {"\n", "   \n", "abc\n", ",5\n", "\xC3\xA4\n", ""}) {
        std::uint32_t flags = 0;
        EXPECT_EQ(TYPED(CinDword, CinDwordA, typed, &flags), UINT32_MAX) << typed;
        EXPECT_EQ(flags & 0x10, 0x10u);
        EXPECT_EQ(TYPED(CinLong, CinLongA, typed, &flags), -1);
        EXPECT_EQ(flags & 0x10, 0x10u);
        EXPECT_EQ(TYPED(CinQword, CinQwordA, typed, &flags), UINT64_MAX);
        EXPECT_EQ(flags & 0x10, 0x10u);
        EXPECT_EQ(TYPED(CinQlong, CinQlongA, typed, &flags), -1);
        EXPECT_EQ(flags & 0x10, 0x10u);
        EXPECT_TRUE(std::isnan(TYPED(CinReal, CinRealA, typed, &flags)));
        EXPECT_EQ(flags & 0x10, 0x10u);
    }
}

#define CHECKED(wide, narrow, typed, min, max, flags, printed)            \
    typedBoth(                                                            \
        typed, [&](std::uint32_t* f) { return wide(u"p", min, max, f); }, \
        [&](std::uint32_t* f) { return narrow("p", min, max, f); }, flags, printed)

const std::string kIllegal = "     Illegal! Try again:  ";
const std::string kLarge = "     Too large! Try again:  ";
const std::string kSmall = "     Too small! Try again:  ";

TEST(CinDwordMm, AsksAgainForWhatWontDo) {
    std::uint32_t flags = 0;
    std::string printed;
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "7\n", 5u, 10u, &flags, &printed), 7u);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(printed, " p ");
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "x\n11\n4\n10\n", 5u, 10u, &flags, &printed), 10u);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(printed, " p " + kIllegal + kLarge + kSmall);
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "7.5\n-1\n5\n", 5u, 10u, &flags, &printed), 5u);
    EXPECT_EQ(printed, " p " + kIllegal + kIllegal) << "fractions and negative numbers";
}

// Not the limits: the last answer stands, good or bad.
TEST(CinDwordMm, FourBadAnswersGiveTheLastOne) {
    std::uint32_t flags = 0;
    std::string printed;
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "99\n98\n97\n96\n5\n", 1u, 10u, &flags, &printed),
              96u);
    EXPECT_EQ(flags, 0x10000000u);
    EXPECT_EQ(printed, " p " + kLarge + kLarge + kLarge);
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "99\n98\n97\n0\n5\n", 1u, 10u, &flags, &printed),
              0u);
    EXPECT_EQ(flags, 0x20000000u);
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "99\n98\n97\nx\n", 1u, 10u, &flags, &printed), 0u);
    EXPECT_EQ(flags & 0x10, 0x10u);
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "a\nb\nc\n7\n", 1u, 10u, &flags, &printed), 7u)
        << "the third retry counts";
    EXPECT_EQ(flags, 0u);
}

TEST(CinCheckedNumbers, EndWithTheInput) {
    std::uint32_t flags = 0;
    std::string printed;
    EXPECT_EQ(CHECKED(CinDwordMm, CinDwordMmA, "", 1u, 10u, &flags, &printed), UINT32_MAX);
    EXPECT_EQ(flags, 0x10u);
    EXPECT_EQ(printed, " p " + kIllegal + kIllegal + kIllegal);
    EXPECT_EQ(CHECKED(CinLongMm, CinLongMmA, "", -1, 1, &flags, &printed), -1);
    EXPECT_EQ(CHECKED(CinQwordMm, CinQwordMmA, "", 1u, 10u, &flags, &printed), UINT64_MAX);
    EXPECT_EQ(CHECKED(CinQlongMm, CinQlongMmA, "", 1, 10, &flags, &printed), -1);
    EXPECT_TRUE(std::isnan(CHECKED(CinRealMm, CinRealMmA, "", 1, 10, &flags, &printed)));
    EXPECT_EQ(flags, 0x10u);
}

TEST(CinCheckedNumbers, OfTheOtherTypes) {
    std::uint32_t flags = 0;
    std::string printed;
    EXPECT_EQ(CHECKED(CinLongMm, CinLongMmA, "-11\n11\n1e10\n-10\n", -10, 10, &flags, &printed),
              -10);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(printed, " p " + kSmall + kLarge + kIllegal);
    EXPECT_EQ(CHECKED(CinQlongMm, CinQlongMmA, "-11\n\n11\n3\n", -10, 10, &flags, &printed), 3);
    EXPECT_EQ(printed, " p " + kSmall + kIllegal + kLarge);
    EXPECT_EQ(CHECKED(CinQwordMm, CinQwordMmA, "0\n11\n1.5\n10\n", 1u, 10u, &flags, &printed), 10u);
    EXPECT_EQ(printed, " p " + kSmall + kLarge + kIllegal);
    EXPECT_EQ(CHECKED(CinQwordMm, CinQwordMmA, "5x\n", 1u, 10u, &flags, &printed), 5u)
        << "rounding replaces the report of what follows";
    EXPECT_EQ(flags, 0u);
}

// A negative answer to an unsigned 64-bit question reports bits that are not among the illegal
// ones, so it counts as the 0 that the reader gives.
TEST(CinQwordMm, TakesANegativeAnswerForZero) {
    std::uint32_t flags = 0;
    std::string printed;
    EXPECT_EQ(CHECKED(CinQwordMm, CinQwordMmA, "-3\n", 0u, 10u, &flags, &printed), 0u);
    EXPECT_EQ(flags, 0x80200u);
    EXPECT_EQ(printed, " p ");
    EXPECT_EQ(CHECKED(CinQwordMm, CinQwordMmA, "-3\n4\n", 1u, 10u, &flags, &printed), 4u);
    EXPECT_EQ(printed, " p " + kSmall);
}

TEST(CinRealMm, ChecksItsLimits) {
    std::uint32_t flags = 0;
    std::string printed;
    EXPECT_EQ(CHECKED(CinRealMm, CinRealMmA, "1.5\n", 1.0, 2.0, &flags, &printed), 1.5);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(CHECKED(CinRealMm, CinRealMmA, "0.5\n2.5\n1.5 m\n2\n", 1.0, 2.0, &flags, &printed),
              2.0);
    EXPECT_EQ(printed, " p " + kSmall + kLarge + kIllegal);
    EXPECT_EQ(CHECKED(CinRealMm, CinRealMmA, "3\n4\n5\n6\n", 1.0, 2.0, &flags, &printed), 6.0);
    EXPECT_EQ(flags, 0x10000000u);
    EXPECT_TRUE(
        std::isnan(CHECKED(CinRealMm, CinRealMmA, "a\nb\nc\nd\n", 1.0, 2.0, &flags, &printed)));
    EXPECT_EQ(CHECKED(CinRealMm, CinRealMmA, "inf\n1\n", 1.0, 2.0, &flags, &printed), 1.0);
    EXPECT_EQ(printed, " p " + kLarge);
    EXPECT_TRUE(std::isnan(CHECKED(CinRealMm, CinRealMmA, "nan\n", 1.0, 2.0, &flags, &printed)))
        << "neither above nor below";
    EXPECT_EQ(CHECKED(CinRealMm, CinRealMmA, "7\n", ___NAN, ___NAN, &flags, &printed), 7.0);
}

TEST(CinNumbers, StandANullPrompt) {
    std::uint32_t status = 0;
    std::string typed = "1\n";
    EXPECT_EQ(dialogue(typed, status, [] { return CinDword(nullptr, nullptr); }), "  ");
    EXPECT_EQ(dialogue(typed, status, [] { return CinDwordA(nullptr, nullptr); }), "  ");
    EXPECT_EQ(dialogue(typed, status, [] { return CinDwordMm(nullptr, 0, 1, nullptr); }), "  ");
    EXPECT_EQ(dialogue(typed, status, [] { return CinDwordMmA(nullptr, 0, 1, nullptr); }), "  ");
    EXPECT_EQ(status, 1u);
}

TEST(CinOutputDestination, IsChosenByOneKey) {
    const std::string question =
        "\n Print to:\n 1      only console\n 2      only file\n other  both console and file\n";
    std::uint32_t result = 0;
    EXPECT_EQ(dialogue("1", result, [] { return CinOutputDestination(); }), question + "1\n");
    EXPECT_EQ(result, 1u);
    EXPECT_EQ(dialogue("2", result, [] { return CinOutputDestination(); }), question + "2\n");
    EXPECT_EQ(result, 2u);
    EXPECT_EQ(dialogue("7", result, [] { return CinOutputDestination(); }), question + "7\n");
    EXPECT_EQ(result, 3u);
    EXPECT_EQ(dialogue("", result, [] { return CinOutputDestination(); }), question + "\n");
    EXPECT_EQ(result, 3u);
}

}  // namespace
