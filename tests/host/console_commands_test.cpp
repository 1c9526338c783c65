#include <gtest/gtest.h>

#include <vector>

#include "host/block_fixture.h"
#include "nuv64/core/console_menu.h"
#include "nuv64/host/command.h"
#include "support/console_streams.h"

namespace nuv64::test {
namespace {

class ConsoleCommands : public BlockTest {
  protected:
    std::string printedByCommand(std::uint32_t command, const void* input) {
        block_->Input = reinterpret_cast<std::uintptr_t>(input);
        return printedBy([&] { NuvCommand(command, block_); });
    }
};

TEST_F(ConsoleCommands, PrintTheirText) {
    block_->Output = 77;
    EXPECT_EQ(printedByCommand(CmdConsoleText, u"a \u00E4\n"), "a \xC3\xA4\n");
    EXPECT_EQ(block_->Status, 0u);
    EXPECT_EQ(printedByCommand(CmdConsoleTextA, "b\n"), "b\n");
    EXPECT_EQ(block_->Status, 0u);
    EXPECT_EQ(printedByCommand(CmdConsoleControl, u"Ch green"), " green");
    EXPECT_EQ(block_->Status, 0u);
    EXPECT_EQ(printedByCommand(CmdConsoleControl, u"Cd"), "");
    EXPECT_EQ(block_->Output, 77u);
}

TEST_F(ConsoleCommands, DropTheResultOfTheCommandProcessor) {
    block_->Output = 77;
    EXPECT_EQ(printedByCommand(CmdConsoleControl, u"Sexit 3"), "");
    EXPECT_EQ(block_->Status, 0u);
    EXPECT_EQ(block_->Output, 77u);
}

struct Call {
    std::uint32_t word;
    void* context;
    std::uint32_t offset;
};
std::vector<Call> calls;

std::uint32_t note(std::uint32_t word, void* context, std::uint32_t offset) {
    calls.push_back({word, context, offset});
    return 0;
}

// A handler drives the module through the block that it is given.
std::uint32_t askErrorText(std::uint32_t code, void* context, std::uint32_t) {
    auto* block = static_cast<NuvCommandBlock*>(context);
    ErrorTextRequest request{code, 0, nullptr, nullptr};
    block->Input = reinterpret_cast<std::uintptr_t>(&request);
    NuvCommand(CmdErrorTextA, block);
    block->Input = reinterpret_cast<std::uintptr_t>(request.textA);
    NuvCommand(CmdConsoleTextA, block);
    return block->Status;
}

TEST_F(ConsoleCommands, RunAMenuWithTheBlock) {
    const ConMenuRow menu[] = {{u" Title", nullptr, 4 | 32},
                               {u"n Note", note, 7},
                               {u"e Error text", askErrorText, 14},
                               {nullptr, nullptr, 0}};
    calls.clear();
    {
        const TypedInput typed("nn");
        printedByCommand(CmdConsoleMenu, menu);
    }
    EXPECT_EQ(block_->Status, 0u);
    ASSERT_EQ(calls.size(), 1u) << "the flags of the title row";
    EXPECT_EQ(calls[0].word, 7u);
    EXPECT_EQ(calls[0].context, block_);
    EXPECT_EQ(calls[0].offset, 1u);
    const TypedInput typed("e");
    const std::string printed = printedByCommand(CmdConsoleMenu, menu);
    EXPECT_NE(printed.find("choice: eMissing input data\n"), std::string::npos) << printed;
    EXPECT_EQ(block_->Input, reinterpret_cast<std::uintptr_t>(menu)) << "put back";
}

TEST_F(ConsoleCommands, StandANullInput) {
    for (const std::uint32_t command : {1000u, 1001u, 1002u, 1003u}) {
        EXPECT_EQ(printedByCommand(command, nullptr), "");
        EXPECT_EQ(block_->Status, 0u);
    }
}

}  // namespace
}  // namespace nuv64::test
