#include "nuv64/core/console_menu.h"

#include <cstddef>

#include "core/console.h"
#include "core/guard.h"

namespace nuv64 {

namespace {

// Hosts in other languages build menus by these offsets.
static_assert(offsetof(ConMenuRow, handler) == 8 && offsetof(ConMenuRow, word) == 16);
static_assert(sizeof(ConMenuRow) == 24);
static_assert(offsetof(ConMenuRowA, handler) == 8 && offsetof(ConMenuRowA, word) == 16);
static_assert(sizeof(ConMenuRowA) == 24);

constexpr std::uint32_t kNoRow = 0xFFFFFFFF;
constexpr std::string_view kDashes =
    "\n -----------------------------------------------------------";

template <class Row>
using TextOf = std::remove_const_t<std::remove_pointer_t<decltype(Row::text)>>;

template <class Ch, class Row>
std::uint32_t findRow(Ch key, const Row* menu) noexcept {
    if (!menu) return kNoRow;
    for (std::uint32_t i = 0; menu[i].text; ++i)
        if (*menu[i].text == key) return i;
    return kNoRow;
}

// A key beyond ASCII is no byte of an 8-bit text.
std::uint32_t rowOfKey(std::uint16_t code, const ConMenuRow* menu) noexcept {
    return findRow(static_cast<char16_t>(code), menu);
}
std::uint32_t rowOfKey(std::uint16_t code, const ConMenuRowA* menu) noexcept {
    return code < 128 ? findRow(static_cast<char>(code), menu) : kNoRow;
}

template <class Row>
void printTitle(const Row& title) {
    const ColoredText color(TextColor::kTitle);
    printJoined<TextOf<Row>>(nullptr, "\n", title.text);
    print(kDashes);
}

template <class Row>
void printRow(const Row& row) {
    using Ch = TextOf<Row>;
    const std::basic_string_view<Ch> text(row.text);
    {
        const ColoredText color(TextColor::kPrompt);
        const std::basic_string<Ch> key(text.substr(0, 1));
        printJoined<Ch>(nullptr, "\n ", key.c_str());
    }
    printJoined<Ch>(nullptr, "\t", text.empty() ? nullptr : row.text + 1);
}

template <class Row>
void showMenu(const Row* menu) {
    printTitle(menu[0]);
    for (const Row* row = menu + 1; row->text; ++row) printRow(*row);
    {
        const ColoredText color(TextColor::kPrompt);
        print(std::string_view("\n other\t terminate"));
    }
    print(kDashes);
}

// The index of the chosen row, or kNoRow for a key that leaves the menu.
template <class Row>
std::uint32_t chosenRow(const Row* menu) {
    constexpr std::uint32_t kBeepMilliseconds = 300, kBeepHertz = 880;
    for (;;) {
        const std::uint16_t key = askForKey("\n Your choice: ", true);
        const std::uint32_t row = rowOfKey(key, menu);
        if (row != kNoRow && menu[row].handler) return row;
        if (row != kNoRow) continue;
        if (key > 32) {
            print(std::string_view(" other"));
        } else {
            platform::beep(kBeepMilliseconds, kBeepHertz);
        }
        return kNoRow;
    }
}

template <class Row>
std::uint32_t runMenu(const Row* menu, std::uint32_t flags, void* context) {
    if (!menu || !menu[0].text) return kSuccess;
    do {
        if (flags & NUV64_MENU_CLEAR_BEFORE) platform::clearScreen();
        showMenu(menu);
        const std::uint32_t chosen = chosenRow(menu);
        if (chosen == kNoRow) break;
        if (flags & NUV64_MENU_CLEAR_RUN) platform::clearScreen();
        const Row& row = menu[chosen];
        const std::uint32_t status = row.handler(row.word, context, chosen);
        if (status != kSuccess) printError(status);
        if (flags & NUV64_MENU_NO_WAIT) {
            print(std::string_view("\n"));
        } else {
            waitForAnyKey();
        }
    } while (!(flags & NUV64_MENU_ONCE));
    return kSuccess;
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint32_t ConFindMenuItem(char16_t key, const ConMenuRow* menu) noexcept {
    return findRow(key, menu);
}

uint32_t ConFindMenuItemA(char key, const ConMenuRowA* menu) noexcept {
    return findRow(key, menu);
}

uint32_t ConMenu(const ConMenuRow* menu, uint32_t flags, void* context) noexcept {
    return guardStatus([&] { return runMenu(menu, flags, context); });
}

uint32_t ConMenuA(const ConMenuRowA* menu, uint32_t flags, void* context) noexcept {
    return guardStatus([&] { return runMenu(menu, flags, context); });
}
