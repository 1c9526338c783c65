// One dialogue on the console, by name, for a test that sits at the keyboard.
#include <cstdint>
#include <cstring>

#include "nuv64/core/console_arrays.h"
#include "nuv64/core/console_control.h"
#include "nuv64/core/console_input.h"
#include "nuv64/core/console_menu.h"
#include "nuv64/core/console_output.h"

namespace {

int numbers() {
    std::uint32_t flags = 0;
    const std::uint32_t count = CinDwordMmA("Count:", 1, 10, &flags);
    CoutDwordA("count=", count, " ", 0, 10);
    CoutNumFlagsA("flags=", flags, "\n");
    const double length = CinReal(u"Wave length [m]:", nullptr);
    CoutReal(u"length=", length, u"\n", 4, 10);
    double values[8];
    std::uint64_t found = 0;
    const std::uint32_t status = CinRArrA("Values:", &found, values, 8);
    CoutfA("status=%u found=%llu last=%g\n", status, found, found ? values[found - 1] : 0.0);
    return 0;
}

int endOfInput() {
    const double none = CinRealA("First:", nullptr);
    CoutRealA("none=", none, "\n", 4, 10);
    const double one = CinRealA("Second:", nullptr);
    CoutRealA("one=", one, "\n", 2, 10);
    return 0;
}

int keys() {
    for (std::uint16_t key = 0; key != u'q';) {
        key = CinWaitKbHit(u"Key? ", 0);
        CoutDwordA(" code=", key, "\n", 0, 10);
    }
    return 0;
}

int text() {
    char16_t line[40];
    CinToBuffer(u"Text:", line, 40, 0);
    Cout(u"[", line, u"]\n", nullptr, nullptr, nullptr);
    CoutStr(u"wide \u00E4\u20AC ");
    CoutStrA("narrow \xC3\xA4\xE2\x82\xAC\n");
    return 0;
}

int screen() {
    ConScipio(u"TDialogue title");
    for (int i = 0; i < 24 * 80 - 1; ++i) CoutChrA('x');
    ConClear();
    std::int32_t x = 10, y = 5;
    CoutDwordA("set=", ConGetOrSetCursorLocation(&x, &y, 0), nullptr, 0, 10);
    x = y = -1;
    const std::uint32_t status = ConGetOrSetCursorLocation(&x, &y, 1);
    CoutfA("\nget=%u %d %d\n", status, x, y);
    CoutStrA("first\n");
    for (std::uint32_t id = 0; id < 8; ++id) {
        ConSetTextColorID(id);
        CoutDwordA("colour", id, "\n", 0, 10);
    }
    ConSetTextColorID(0);
    ConClearSection(2, 10, 5, 11, u'#');
    CoutStrA("abcdef\rabc");
    ConClearEndOfLine();
    CoutStrA("\nabove\nbelow\nbelow");
    ConGetOrSetCursorLocation(&x, &y, 1);
    --y;
    x = 0;
    ConGetOrSetCursorLocation(&x, &y, 0);
    ConClearEndOfScreen();
    CinWaitKbHitA("done?", 0);
    return 0;
}

std::uint32_t load(std::uint32_t word, void* context, std::uint32_t offset) {
    CoutfA(" loaded %u %u %s", word, offset, static_cast<const char*>(context));
    return 0;
}
std::uint32_t refuse(std::uint32_t, void*, std::uint32_t) {
    return 14;
}

const ConMenuRow kMenu[] = {{u"\t Main MENU:", nullptr, 8},
                            {u"l Load a data file", load, 5},
                            {u"s Select data", refuse, 0},
                            {nullptr, nullptr, 0}};

int menu() {
    char context[] = "context";
    const std::uint32_t status = ConMenu(kMenu, kMenu->word, context);
    CoutDwordA("\nleft with ", status, "\n", 0, 10);
    return 0;
}

struct Dialogue {
    const char* name;
    int (*run)();
};
constexpr Dialogue kDialogues[] = {{"numbers", numbers}, {"end", endOfInput}, {"keys", keys},
                                   {"text", text},       {"screen", screen},  {"menu", menu}};

}  // namespace

int main(int count, char** arguments) {
    for (const Dialogue& dialogue : kDialogues)
        if (count == 2 && std::strcmp(arguments[1], dialogue.name) == 0) return dialogue.run();
    return 2;
}
