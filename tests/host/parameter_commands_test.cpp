#include "host/parameter_commands.h"

#include <string>

#include "host/block_fixture.h"

namespace nuv64::test {
namespace {

using ParameterCommands = BlockTest;

TEST_F(ParameterCommands, CountLines) {
    makeData(2);
    EXPECT_EQ(run(CmdParameterCount, 0), 0u);
    EXPECT_EQ(block_->Output, 3u);
    // The number of zones stands for the experiment.
    ASSERT_EQ(block_->Data->Parameters.AddLine("OWN", "1", ""), 0u);
    EXPECT_EQ(run(CmdParameterCount, 2), 0u);
    EXPECT_EQ(block_->Output, 1u);
}

TEST_F(ParameterCommands, ListKeysAndValues) {
    makeData(2);
    EXPECT_EQ(run(CmdParameterList, 1), 0u);
    EXPECT_EQ(takeText(), "ZONE\t2\tNBLK\t3\tEXP\tNP/S\t");
    EXPECT_EQ(run(CmdParameterList, 2), 0u);
    EXPECT_EQ(takeText(), "");
}

TEST_F(ParameterCommands, ListHoldsLongValuesWhole) {
    makeData(1);
    const std::string value(4000, 'v'), key(1000, 'k');
    ASSERT_EQ(block_->Data->FirstChild()->Parameters.AddLine(key.c_str(), value.c_str(), ""), 0u);
    EXPECT_EQ(run(CmdParameterList, 0), 0u);
    EXPECT_EQ(takeText(), "ZONE\t1\tNBLK\t3\tEXP\tNP/S\t" + key + "\t" + value + "\t");
}

TEST_F(ParameterCommands, ListIsNullWithoutDataOrNode) {
    block_->Output = 42;
    EXPECT_EQ(run(CmdParameterList, 0), 0u);
    EXPECT_EQ(block_->Output, 0u);
    makeData(1);
    block_->Output = 42;
    EXPECT_EQ(run(CmdParameterList, 2), 26u);
    EXPECT_EQ(block_->Output, 0u);
}

TEST_F(ParameterCommands, GetOneValue) {
    makeData(2);
    ParameterRequest request{1, "EXP", 0, nullptr};
    EXPECT_EQ(run(CmdGetParameter, &request), 0u);
    EXPECT_EQ(takeText(), "NP/S");
    ASSERT_EQ(block_->Data->Parameters.AddLine("OWN", "root", ""), 0u);
    request = {2, "OWN", 0, nullptr};
    EXPECT_EQ(run(CmdGetParameter, &request), 0u);
    EXPECT_EQ(takeText(), "root");
}

TEST_F(ParameterCommands, GetTellsWhatIsMissing) {
    ParameterRequest request{0, "EXP", 0, nullptr};
    block_->Output = 42;
    EXPECT_EQ(run(CmdGetParameter), 14u);
    EXPECT_EQ(run(CmdGetParameter, &request), 23u);
    makeData(1);
    request.Zone = 2;
    EXPECT_EQ(run(CmdGetParameter, &request), 26u);
    request.Zone = kAllOnes;
    EXPECT_EQ(run(CmdGetParameter, &request), 26u);
    EXPECT_EQ(block_->Output, 42u);
    for (const char* key : {"NONE", "XP", "", static_cast<const char*>(nullptr)}) {
        block_->Output = 42;
        request = {0, key, 0, nullptr};
        EXPECT_EQ(run(CmdGetParameter, &request), 21u);
        EXPECT_EQ(block_->Output, 0u);
    }
}

TEST_F(ParameterCommands, SetInOneZone) {
    makeData(2);
    ParameterRequest request{1, "T1MX", 0, "0.25"};
    EXPECT_EQ(run(CmdSetParameter, &request), 0u);
    EXPECT_EQ(block_->Data->ChildAt(1)->Parameters.GetReal("T1MX"), 0.25);
    EXPECT_EQ(block_->Data->ChildAt(1)->Parameters.LineCount, 4u);
    EXPECT_EQ(block_->Data->ChildAt(0)->Parameters.LineCount, 3u);
    request.Value = "0.5";
    EXPECT_EQ(run(CmdSetParameter, &request), 0u);
    EXPECT_EQ(block_->Data->ChildAt(1)->Parameters.GetReal("T1MX"), 0.5);
    EXPECT_EQ(block_->Data->ChildAt(1)->Parameters.LineCount, 4u);
}

TEST_F(ParameterCommands, SetInEveryZone) {
    makeData(3);
    ParameterRequest request{kAllOnes, "NBLK", 0, "9"};
    EXPECT_EQ(run(CmdSetParameter, &request), 0u);
    for (std::uint64_t zone = 0; zone < 3; ++zone) {
        EXPECT_EQ(block_->Data->ChildAt(zone)->Parameters.GetInteger("NBLK"), 9u);
        EXPECT_EQ(block_->Data->ChildAt(zone)->Parameters.LineCount, 3u);
    }
    EXPECT_EQ(block_->Data->Parameters.LineCount, 0u);
    // The blocks grow on as any other.
    EXPECT_EQ(
        block_->Data->ChildAt(0)->Parameters.AddLine("MORE", std::string(20000, 'x').c_str(), ""),
        0u);
}

TEST_F(ParameterCommands, SetWithoutZonesKeepsStatus0) {
    makeData(0);
    ParameterRequest request{kAllOnes, "A", 0, "1"};
    EXPECT_EQ(run(CmdSetParameter, &request), 0u);
}

TEST_F(ParameterCommands, SetTellsWhatIsMissing) {
    ParameterRequest request{0, "A", 0, "1"};
    EXPECT_EQ(run(CmdSetParameter), 14u);
    EXPECT_EQ(run(CmdSetParameter, &request), 23u);
    makeData(1);
    // The experiment itself can't be named here.
    request.Zone = 1;
    EXPECT_EQ(run(CmdSetParameter, &request), 26u);
    for (const char* key : {"", static_cast<const char*>(nullptr)}) {
        request = {0, key, 0, nullptr};
        EXPECT_EQ(run(CmdSetParameter, &request), 0u);
        EXPECT_EQ(block_->Data->FirstChild()->Parameters.LineCount, 3u);
    }
}

}  // namespace
}  // namespace nuv64::test
