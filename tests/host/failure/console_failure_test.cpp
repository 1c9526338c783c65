// The console without memory: what can't be made is not printed or not read, and nothing leaks.
#include <gtest/gtest.h>

#include <functional>

#include "core/owned.h"
#include "host/failure/failing_allocator.h"
#include "nuv64/core/console_arrays.h"
#include "nuv64/core/console_control.h"
#include "nuv64/core/console_input.h"
#include "nuv64/core/console_menu.h"
#include "nuv64/core/console_output.h"
#include "support/console_streams.h"

namespace nuv64::test {
namespace {

std::uint32_t printMore(std::uint32_t, void*, std::uint32_t) {
    Coutf(u"%s, %d times, in a text that is long enough for a block of its own", u"more", 3);
    return 14;
}

const ConMenuRow kMenu[] = {
    {u"\tA title that is long enough for a block of its own", nullptr, 4},
    {u"m Print more, described in a text with a block of its own", printMore, 0},
    {nullptr, nullptr, 0}};

void printAll() {
    const char bytes[40] = "";
    CoutStr(u"wide \u00E4 text that is long enough for a block of its own");
    CoutA("one text, ", "two texts, ", "three texts, ", "four texts, ", nullptr, nullptr);
    CoutDwordA("width ", 7, "\n", 100, 10);
    CoutReal(u"digits ", 1.0 / 3, nullptr, 60, 10);
    CoutMemA("memory ", bytes, sizeof bytes, 2);
    CoutErrorA(14, nullptr, 1);
    CoutNumFlags(nullptr, UINT32_MAX, u"\n");
}

void readAll() {
    double values[4];
    std::uint64_t count = 0;
    char buffer[64];
    CinToBufferA("a prompt that is long enough for a block of its own", buffer, sizeof buffer, 0);
    const OwnedWideText text(CinNewString(u"text:"));
    CinRealMm(u"number:", 1.0, 2.0, nullptr);
    CinRArrA("numbers:", &count, values, 4);
}

void runMenu() {
    ConMenu(kMenu, kMenu->word, nullptr);
    ConScipioA("Cha text that is long enough for a block of its own");
}

// Makes allocation 1, 2, 3 ... fail until the road meets none any more.
void failEachAllocation(const std::function<void()>& road, const std::string& typed) {
    for (const Failing kind : {Failing::Once, Failing::FromThenOn}) {
        bool failed = true;
        for (std::uint64_t which = 1; failed; ++which) {
            ASSERT_LT(which, 1000u);
            const TypedInput input(typed);
            printedBy([&] {
                const std::int64_t before = liveBlocks();
                planFailure(which, kind);
                {
                    const Counted counted;
                    road();
                }
                stopFailing();
                failed = allocationFailed();
                EXPECT_EQ(liveBlocks(), before) << "allocation " << which;
            });
        }
    }
}

TEST(ConsoleWithoutMemory, Prints) {
    failEachAllocation(printAll, "k");
}

TEST(ConsoleWithoutMemory, Reads) {
    failEachAllocation(readAll,
                       "a line that is long enough for a block\nand another line\n5\n1\n"
                       "1 2 3\n7\n8\n9\n");
}

TEST(ConsoleWithoutMemory, RunsAMenu) {
    failEachAllocation(runMenu, "mk");
}

}  // namespace
}  // namespace nuv64::test
