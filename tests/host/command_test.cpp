#include "nuv64/host/command.h"

#include <algorithm>
#include <iterator>

#include "host/block_fixture.h"

namespace nuv64::test {
namespace {

using CommandFrame = BlockTest;
using Numbers = std::vector<std::uint32_t>;

// The numbers that do something or answer 9; all others are unknown.
constexpr std::uint32_t kKnown[] = {
    3,     4,     5,     6,     7,     94,    95,    96,    97,    98,    99,    100,
    101,   102,   103,   104,   105,   106,   107,   108,   109,   110,   111,   112,
    113,   114,   115,   116,   117,   118,   119,   120,   121,   122,   123,   124,
    125,   126,   127,   128,   129,   130,   131,   132,   133,   134,   135,   136,
    138,   139,   140,   141,   142,   143,   144,   145,   1000,  1001,  1002,  1003,
    10001, 10002, 10004, 10005, 10007, 10008, 10009, 10010, 10011, 10012, 10013, 10014,
    10015, 10016, 10017, 10018, 10019, 10020, 10021};

// Those of the configuration, the calculators and the plots, and the two reserved.
constexpr std::uint32_t kNotYet[] = {107,   112,   116,   117,   120,   121,   123,   138,
                                     139,   145,   10001, 10002, 10004, 10005, 10007, 10008,
                                     10009, 10010, 10011, 10012, 10013, 10014, 10015, 10016,
                                     10017, 10018, 10019, 10020, 10021};

bool isKnown(std::uint32_t number) {
    return std::find(std::begin(kKnown), std::end(kKnown), number) != std::end(kKnown);
}

TEST(CommandOpen, GivesAZeroedBlockWhateverTheSecondArgument) {
    NuvCommandBlock other{};
    for (NuvCommandBlock* second : {static_cast<NuvCommandBlock*>(nullptr), &other,
                                    reinterpret_cast<NuvCommandBlock*>(std::uintptr_t{8})}) {
        NuvCommandBlock* block = NuvCommand(CmdOpen, second);
        ASSERT_NE(block, nullptr);
        EXPECT_NE(block, second);
        EXPECT_EQ(block->Command, 1u);
        EXPECT_EQ(block->Flags, 0u);
        EXPECT_EQ(block->Status, 0u);
        EXPECT_EQ(block->Callback, nullptr);
        EXPECT_EQ(block->Input, 0u);
        EXPECT_EQ(block->Output, 0u);
        EXPECT_EQ(block->Data, nullptr);
        EXPECT_EQ(NuvCommand(CmdClose, block), nullptr);
    }
}

TEST(CommandFrameWithoutBlock, EveryCommandButOpenGivesNull) {
    EXPECT_EQ(NuvCommand(CmdClose, nullptr), nullptr);
    EXPECT_EQ(NuvCommand(50, nullptr), nullptr);
    EXPECT_EQ(NuvCommand(0, nullptr), nullptr);
    EXPECT_EQ(LibCommand(UINT32_MAX, nullptr, 1, 2), nullptr);
    for (const std::uint32_t number : kKnown) EXPECT_EQ(NuvCommand(number, nullptr), nullptr);
}

TEST_F(CommandFrame, LibCommandIsTheSameDoor) {
    ErrorTextRequest request{10, 0, nullptr, nullptr};
    block_->Input = reinterpret_cast<std::uintptr_t>(&request);
    EXPECT_EQ(LibCommand(CmdErrorTextA, block_, 7, 8), block_);
    EXPECT_STREQ(request.textA, "Unknown command");
    NuvCommandBlock* second = LibCommand(CmdOpen, nullptr, 0, 0);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(LibCommand(CmdClose, second, 0, 0), nullptr);
}

TEST_F(CommandFrame, UnknownNumbersGive10) {
    for (std::uint32_t number = 0; number < 11000; ++number) {
        if (number == CmdOpen || number == CmdClose || isKnown(number)) continue;
        ASSERT_EQ(run(number), 10u) << number;
    }
    EXPECT_EQ(run(0x80000062u), 10u);
    EXPECT_EQ(run(UINT32_MAX), 10u);
}

TEST_F(CommandFrame, NumbersWhoseServiceIsMissingGive9) {
    for (const std::uint32_t number : kNotYet) EXPECT_EQ(run(number), 9u) << number;
}

TEST_F(CommandFrame, EveryKnownCommandStandsANullInputWithoutData) {
    block_->Output = 77;
    for (const std::uint32_t number : kKnown) {
        EXPECT_NE(run(number), 10u) << number;
        EXPECT_EQ(block_->Data, nullptr) << number;
        if (number == CmdLocalTimeText) takeText();
    }
}

TEST_F(CommandFrame, EveryKnownCommandStandsAnEmptyExperiment) {
    for (const std::uint32_t number : kKnown) {
        if (!block_->Data) block_->Data = new cKoData;
        EXPECT_NE(run(number), 10u) << number;
        if (number == CmdLocalTimeText || number == CmdParameterList) takeText();
    }
}

TEST_F(CommandFrame, MakesItsEventsAroundAFailingCommand) {
    for (const std::uint32_t number : {137u, 10003u}) {
        events_.clear();
        EXPECT_EQ(run(number, 99), 10u);
        ASSERT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvCommandEnd, EvCommandFailed}));
        EXPECT_EQ(events_[0].command, number);
        EXPECT_EQ(events_[0].status, 0u);
        EXPECT_EQ(events_[0].input, 99u);
        EXPECT_EQ(events_[1].command, number);
        EXPECT_EQ(events_[1].status, 10u);
        EXPECT_EQ(events_[1].input, 99u);
        EXPECT_EQ(events_[2].command, 0u);
        EXPECT_EQ(events_[2].status, 10u);
    }
}

TEST_F(CommandFrame, MakesTwoEventsAroundACommandThatSucceeds) {
    EXPECT_EQ(run(CmdNone), 0u);
    EXPECT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvCommandEnd}));
    EXPECT_EQ(block_->Command, 0u);
}

TEST_F(CommandFrame, ClearsTheStatusOfTheCommandBefore) {
    EXPECT_EQ(run(50), 10u);
    EXPECT_EQ(run(CmdNone), 0u);
}

TEST_F(CommandFrame, StaysSilentWhileMutedOrWithoutCallback) {
    block_->Flags = CallbackMuted;
    EXPECT_EQ(run(137), 10u);
    ApplicationInfo info{};
    info.ApplicationKind = 2;
    EXPECT_EQ(run(CmdApplicationInfo, &info), 0u);
    EXPECT_EQ(run(CmdImportAsk), 0u);
    makeData();
    EXPECT_EQ(run(CmdCloseData), 0u);
    EXPECT_TRUE(events_.empty());
    block_->Flags = 0;
    block_->Callback = nullptr;
    EXPECT_EQ(run(137), 10u);
}

TEST_F(CommandFrame, KeepsTheNumberForTheKeepBitsOnly) {
    for (const std::uint32_t bit : {KeepCommandA, KeepCommandB}) {
        block_->Flags = bit;
        EXPECT_EQ(run(CmdNone), 0u);
        EXPECT_EQ(block_->Command, CmdNone);
        EXPECT_EQ(block_->Flags, bit);
    }
    for (const std::uint32_t bit : {NoUndoSnapshot, CallbackMuted, 1u, 0x0FFFFFFFu}) {
        block_->Flags = bit;
        EXPECT_EQ(run(CmdNone), 0u);
        EXPECT_EQ(block_->Command, 0u);
    }
}

TEST_F(CommandFrame, LeavesOutputOfTheCommandBefore) {
    block_->Output = 42;
    EXPECT_EQ(run(CmdNone), 0u);
    EXPECT_EQ(run(CmdBlockCount, 0), 23u);
    EXPECT_EQ(block_->Output, 42u);
}

// An exception of the host's callback must not reach the module's caller.
TEST_F(CommandFrame, SurvivesACallbackThatThrows) {
    host_ = [](std::uint32_t) -> std::uint64_t { throw std::bad_alloc(); };
    EXPECT_EQ(run(CmdNone), 0u);
    EXPECT_EQ(run(137), 10u);
}

TEST_F(CommandFrame, CloseMakesEvent15WhileDataIsThere) {
    ApplicationInfo info{};
    info.ApplicationKind = 2;
    ASSERT_EQ(run(CmdApplicationInfo, &info), 0u);
    makeData();
    events_.clear();
    EXPECT_EQ(NuvCommand(CmdClose, block_), nullptr);
    EXPECT_EQ(eventNumbers(), Numbers{EvDataClosed});
    block_ = nullptr;
}

}  // namespace
}  // namespace nuv64::test
