#include "nuv64/core/console_menu.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "support/console_streams.h"

namespace {

struct Call {
    std::uint32_t word;
    std::uint32_t offset;
    bool operator==(const Call&) const = default;
};
using Calls = std::vector<Call>;

std::uint32_t note(std::uint32_t word, void* context, std::uint32_t offset) {
    static_cast<Calls*>(context)->push_back({word, offset});
    return 0;
}
std::uint32_t fail(std::uint32_t, void*, std::uint32_t) {
    return 14;
}
std::uint32_t throwOut(std::uint32_t, void*, std::uint32_t) {
    throw std::runtime_error("a host's handler");
}

constexpr std::uint32_t kBadHandler = 47;
constexpr std::uint32_t kNone = 0xFFFFFFFF;

const ConMenuRow kMenu[] = {{u"\t Main MENU:", nullptr, 8}, {u"l Load", note, 5},
                            {u"d Drop", note, 6},           {u"f Fail", fail, 0},
                            {u"t Throw", throwOut, 0},      {u"n Nothing", nullptr, 0},
                            {u"\u00E4 Other", note, 9},     {nullptr, nullptr, 0}};
const ConMenuRowA kMenuA[] = {{"\t Main MENU:", nullptr, 8}, {"l Load", note, 5},
                              {"d Drop", note, 6},           {"f Fail", fail, 0},
                              {"t Throw", throwOut, 0},      {"n Nothing", nullptr, 0},
                              {"\xC3\xA4 Other", note, 9},   {nullptr, nullptr, 0}};

const std::string kDashes = "\n -----------------------------------------------------------";
const std::string kShown = "\n\t Main MENU:" + kDashes +
                           "\n l\t Load\n d\t Drop\n f\t Fail\n t\t Throw\n n\t Nothing"
                           "\n \xC3\xA4\t Other\n other\t terminate" +
                           kDashes;
const std::string kChoice = "\n Your choice: ";
const std::string kAnyKey = "\n Hit any key to continue";

TEST(ConFindMenuItem, FindsTheFirstRowOfAKey) {
    EXPECT_EQ(ConFindMenuItem(u'l', kMenu), 1u);
    EXPECT_EQ(ConFindMenuItemA('l', kMenuA), 1u);
    EXPECT_EQ(ConFindMenuItem(u'\t', kMenu), 0u) << "the title counts";
    EXPECT_EQ(ConFindMenuItemA('\t', kMenuA), 0u);
    EXPECT_EQ(ConFindMenuItem(u'\u00E4', kMenu), 6u);
    for (const char16_t key : {u'L', u'x', u' ', char16_t{0}, char16_t{26}, char16_t{0x016C}})
        EXPECT_EQ(ConFindMenuItem(key, kMenu), kNone);
    for (const char key : {'L', 'x', ' ', '\0', '\x1A'})
        EXPECT_EQ(ConFindMenuItemA(key, kMenuA), kNone);
    EXPECT_EQ(ConFindMenuItem(u'l', nullptr), kNone);
    EXPECT_EQ(ConFindMenuItemA('l', nullptr), kNone);
    EXPECT_EQ(ConFindMenuItem(u'l', kMenu + 7), kNone) << "no row at all";
}

struct Session {
    Calls calls;
    std::string printed;
    std::uint32_t status = 99;
};

Session run(const std::string& keys, std::uint32_t flags) {
    Session result;
    result.printed =
        dialogue(keys, result.status, [&] { return ConMenu(kMenu, flags, &result.calls); });
    return result;
}

TEST(ConMenu, CallsTheRowOfTheKey) {
    const Session result = run("d", 4 | 32);
    EXPECT_EQ(result.status, 0u);
    EXPECT_EQ(result.calls, (Calls{{6, 2}}));
    EXPECT_EQ(result.printed, kShown + kChoice + "d\n");
}

TEST(ConMenu, ComesBackUntilAnotherKey) {
    const Session result = run("l d x", 0);
    EXPECT_EQ(result.calls, (Calls{{5, 1}, {6, 2}}));
    EXPECT_EQ(result.printed, kShown + kChoice + "l" + kAnyKey + " " + kShown + kChoice + "d" +
                                  kAnyKey + " " + kShown + kChoice + "x other");
    EXPECT_EQ(run("ldl!", 32).calls, (Calls{{5, 1}, {6, 2}, {5, 1}}));
}

TEST(ConMenu, LeavesWithoutAWordForABlankOrAControlKey) {
    for (const char* key : {" ", "\n", "\r", "\x1A", "\x1B", "\x01"}) {
        const Session result = run(key, 0);
        EXPECT_TRUE(result.calls.empty());
        EXPECT_EQ(result.status, 0u);
        EXPECT_EQ(result.printed, kShown + kChoice + (*key == ' ' ? " " : "")) << int{*key};
    }
}

TEST(ConMenu, EndsWithTheInput) {
    EXPECT_EQ(run("", 0).printed, kShown + kChoice);
    const Session result = run("l", 0);
    EXPECT_EQ(result.printed, kShown + kChoice + "l" + kAnyKey + kShown + kChoice);
}

TEST(ConMenu, ShowsAFailureAndGoesOn) {
    const Session result = run("f", 4 | 32);
    EXPECT_EQ(result.status, 0u);
    EXPECT_EQ(result.printed, kShown + kChoice + "f Error 14: Missing input data\n\n");
    EXPECT_EQ(run("f d ", 0).calls, (Calls{{6, 2}}));
}

TEST(ConMenu, HoldsAThrowingHandler) {
    EXPECT_EQ(run("t", 0).status, kBadHandler);
}

TEST(ConMenu, AKeyWithoutAHandlerDoesNothing) {
    const Session result = run("\t\tnd", 4 | 32);
    EXPECT_EQ(result.calls, (Calls{{6, 2}}));
    EXPECT_EQ(result.printed, kShown + kChoice + kChoice + kChoice + "n" + kChoice + "d\n");
    EXPECT_EQ(run("\t", 4).printed, kShown + kChoice + kChoice);
}

TEST(ConMenu, ReadsKeysBeyondAscii) {
    EXPECT_EQ(run("\xC3\xA4", 4 | 32).calls, (Calls{{9, 6}}));
}

TEST(ConMenuA, DoesTheSameAsConMenu) {
    for (const char* keys : {"d", "l d x", "f", " ", "", "\t\tnd", "t", "ldl!", "\xC4\xB6"}) {
        for (const std::uint32_t flags : {0u, 4u, 32u, 36u, 8u | 16u, UINT32_MAX}) {
            Calls wide, narrow;
            std::uint32_t status = 99, statusA = 99;
            std::string printed =
                dialogue(keys, status, [&] { return ConMenu(kMenu, flags, &wide); });
            const std::string printedA =
                dialogue(keys, statusA, [&] { return ConMenuA(kMenuA, flags, &narrow); });
            // The key of an 8-bit row is one byte.
            for (std::size_t at; (at = printed.find("\xC3\xA4\t Other")) != printed.npos;)
                printed.replace(at, 3, "\xC3\t\xA4");
            EXPECT_EQ(printedA, printed) << keys;
            EXPECT_EQ(narrow, wide);
            EXPECT_EQ(statusA, status);
        }
    }
}

TEST(ConMenu, StandsAMenuThatIsNone) {
    std::uint32_t status = 99;
    EXPECT_EQ(dialogue("l", status, [] { return ConMenu(nullptr, 0, nullptr); }), "");
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(dialogue("l", status, [] { return ConMenuA(nullptr, 0, nullptr); }), "");
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(dialogue("l", status, [] { return ConMenu(kMenu + 7, 0, nullptr); }), "");
    EXPECT_EQ(status, 0u);
}

}  // namespace
