#include "nuv64/core/console_control.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/console.h"
#include "support/console_streams.h"

namespace {

// In a file there is no colour, no cursor and no title.
TEST(ConControl, SendsNothingToAFile) {
    EXPECT_EQ(printedBy([] {
                  ConClear();
                  ConClearEndOfLine();
                  ConClearEndOfScreen();
                  ConClearSection(0, 0, 5, 5, u'#');
                  ConClearSectionA(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX, '#');
                  for (std::uint32_t id = 0; id < 10; ++id) ConSetTextColorID(id);
                  ConSetTextColorID(UINT32_MAX);
                  ConScipio(u"TTitle");
                  ConScipioA("TTitle");
                  ConScipioA("Xs");
              }),
              "");
}

TEST(ConGetOrSetCursorLocation, NeedsATerminal) {
    std::int32_t x = 7, y = 8;
    printedBy([&] {
        EXPECT_EQ(ConGetOrSetCursorLocation(&x, &y, 1), 5u);
        EXPECT_EQ(ConGetOrSetCursorLocation(nullptr, nullptr, 1), 5u);
        EXPECT_EQ(ConGetOrSetCursorLocation(&x, &y, 0), 5u);
        EXPECT_EQ(ConGetOrSetCursorLocation(nullptr, &y, 0), 22u);
        EXPECT_EQ(ConGetOrSetCursorLocation(&x, nullptr, 0), 22u);
    });
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 8);
}

std::string obeyed(const std::string& control, std::int32_t expected = 0) {
    const std::u16string wide(control.begin(), control.end());
    const std::string printed =
        printedBy([&] { EXPECT_EQ(ConScipio(wide.c_str()), expected) << control; });
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(ConScipioA(control.c_str()), expected); }), printed);
    return printed;
}

TEST(ConScipio, PrintsTheTextBehindAColour) {
    EXPECT_EQ(obeyed("Cd"), "");
    EXPECT_EQ(obeyed("C"), "");
    EXPECT_EQ(obeyed("Ch"), "");
    EXPECT_EQ(obeyed("Cetext"), "text");
    EXPECT_EQ(obeyed("C?\n a Cb"), "\n a Cb");
}

TEST(ConScipio, LetsTheRestBe) {
    EXPECT_EQ(ConScipio(nullptr), 0);
    EXPECT_EQ(ConScipioA(nullptr), 0);
    for (const char* control : {"", "x", "cd", "X", "Xx", "Xs", "T", "Ttitle", "?text", " Cetext"})
        EXPECT_EQ(obeyed(control), "") << control;
}

TEST(ConScipio, HandsACommandToTheCommandProcessor) {
    EXPECT_EQ(ConScipioA("Sexit 7"), 7);
    EXPECT_EQ(ConScipio(u"Sexit 3"), 3);
    EXPECT_EQ(ConScipioA("Sexit 0"), 0);
#ifndef _WIN32
    EXPECT_EQ(ConScipioA("S"), 0);
    EXPECT_EQ(ConScipioA("Skill -9 $$"), 128 + 9);
    EXPECT_EQ(printedBy([] { ConScipioA("Secho text"); }), "text\n");
    EXPECT_EQ(printedBy([] { ConScipio(u"Secho \u00E4"); }), "\xC3\xA4\n");
#endif
}

}  // namespace
