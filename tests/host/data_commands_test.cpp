#include "host/data_commands.h"

#include <string>

#include "host/block_fixture.h"

namespace nuv64::test {
namespace {

using DataCommands = BlockTest;

constexpr std::uint32_t kOnZone[] = {CmdBlockCount, CmdBlockPoints, CmdBlockXFirst, CmdBlockXLast,
                                     CmdBlockXUnit, CmdBlockGrid,   CmdZoneXFirst,  CmdZoneXLast,
                                     CmdZoneXUnit,  CmdZoneGrid};
constexpr std::uint32_t kOnZoneOrExperiment[] = {
    CmdZoneFolder,     CmdZoneFolderAgain, CmdZoneTitle,    CmdZonePath, CmdParameterCount,
    CmdExperimentName, CmdZoneDataTypeId,  CmdZoneDataType, CmdZoneMark};

TEST_F(DataCommands, NeedData) {
    for (const std::uint32_t command : kOnZone) EXPECT_EQ(run(command), 23u) << command;
    for (const std::uint32_t command : kOnZoneOrExperiment) EXPECT_EQ(run(command), 23u) << command;
}

TEST_F(DataCommands, RefuseAZoneThatIsNotThere) {
    makeData(2);
    block_->Output = 42;
    for (const std::uint32_t command : kOnZone) {
        EXPECT_EQ(run(command, 2), 26u) << command;
        EXPECT_EQ(run(command, kAllOnes), 26u) << command;
        EXPECT_EQ(run(command, 1), 0u) << command;
        block_->Output = 42;
    }
    for (const std::uint32_t command : kOnZoneOrExperiment) {
        block_->Output = 42;
        EXPECT_EQ(run(command, 3), 26u) << command;
        EXPECT_EQ(run(command, kAllOnes), 26u) << command;
        EXPECT_EQ(block_->Output, 42u) << command;
        EXPECT_EQ(run(command, 2), 0u) << command;
    }
}

TEST_F(DataCommands, TellOfTheFirstBlock) {
    makeData(2, 3, 4);
    EXPECT_EQ(run(CmdBlockPoints, 1), 0u);
    EXPECT_EQ(block_->Output, 4u);
    EXPECT_EQ(run(CmdBlockXFirst, 1), 0u);
    EXPECT_EQ(outputReal(), 0.125);
    EXPECT_EQ(run(CmdBlockXLast, 1), 0u);
    EXPECT_EQ(outputReal(), 0.75);
    EXPECT_EQ(run(CmdBlockXUnit, 1), 0u);
    EXPECT_STREQ(outputText(), "us");
    EXPECT_EQ(run(CmdBlockGrid, 1), 0u);
    EXPECT_EQ(block_->Output, 1u);
}

TEST_F(DataCommands, HaveNoFirstBlockInAnEmptyZone) {
    makeData(1, 0);
    EXPECT_EQ(run(CmdBlockCount, 0), 0u);
    EXPECT_EQ(block_->Output, 0u);
    for (const std::uint32_t command :
         {CmdBlockPoints, CmdBlockXFirst, CmdBlockXLast, CmdBlockXUnit, CmdBlockGrid}) {
        EXPECT_EQ(run(command, 0), 26u);
    }
}

TEST_F(DataCommands, TellOfTheZone) {
    makeData(2, 3, 4);
    EXPECT_EQ(run(CmdBlockCount, 1), 0u);
    EXPECT_EQ(block_->Output, 3u);
    EXPECT_EQ(run(CmdZoneXFirst, 1), 0u);
    EXPECT_EQ(outputReal(), 0.25);
    EXPECT_EQ(run(CmdZoneXLast, 1), 0u);
    EXPECT_EQ(outputReal(), 0.5);
    EXPECT_EQ(run(CmdZoneXUnit, 1), 0u);
    EXPECT_STREQ(outputText(), "s");
    EXPECT_EQ(run(CmdZoneGrid, 1), 0u);
    EXPECT_EQ(block_->Output, 2u);
}

TEST_F(DataCommands, TellOfZonesAndOfTheExperiment) {
    makeData(2);
    EXPECT_EQ(run(CmdZoneFolder, 0), 0u);
    EXPECT_EQ(std::u16string(outputWide()), u"\\data\\zone\\");
    EXPECT_EQ(run(CmdZoneFolderAgain, 2), 0u);
    EXPECT_EQ(std::u16string(outputWide()), u"\\data\\");
    EXPECT_EQ(run(CmdZoneTitle, 2), 0u);
    EXPECT_EQ(std::u16string(outputWide()), u"root.sdf");
    EXPECT_EQ(run(CmdZonePath, 1), 0u);
    EXPECT_EQ(std::u16string(outputWide()), u"\\data\\zone\\zone.sdf");
    EXPECT_EQ(run(CmdZoneDataTypeId, 1), 0u);
    EXPECT_EQ(block_->Output, 5u);
    EXPECT_EQ(run(CmdZoneDataType, 2), 0u);
    EXPECT_STREQ(outputText(), "STELAR");
}

TEST_F(DataCommands, GiveNullForATextThatIsNotSet) {
    makeData(1);
    block_->Data->FileTitle.reset();
    block_->Output = 42;
    EXPECT_EQ(run(CmdZoneTitle, 1), 0u);
    EXPECT_EQ(block_->Output, 0u);
}

TEST_F(DataCommands, NameTheExperimentOfTheNearestParameters) {
    makeData(2);
    EXPECT_EQ(run(CmdExperimentName, 0), 0u);
    EXPECT_STREQ(outputText(), "NP/S");
    // The root has no parameters, and nothing is above it.
    EXPECT_EQ(run(CmdExperimentName, 2), 0u);
    EXPECT_EQ(block_->Output, 0u);
    ASSERT_EQ(block_->Data->Parameters.AddLine("A", "1", ""), 0u);
    EXPECT_EQ(run(CmdExperimentName, 2), 0u);
    EXPECT_STREQ(outputText(), "ROOT/S");
    block_->Data->ChildAt(0)->Parameters.Clear();
    EXPECT_EQ(run(CmdExperimentName, 0), 0u);
    EXPECT_STREQ(outputText(), "ROOT/S");
}

TEST_F(DataCommands, TellTheSourceOfTheData) {
    block_->Output = 42;
    EXPECT_EQ(run(CmdDataTypeId), 0u);
    EXPECT_EQ(block_->Output, 0u);
    makeData();
    EXPECT_EQ(run(CmdDataTypeId), 0u);
    EXPECT_EQ(block_->Output, 5u);
}

TEST_F(DataCommands, OpenNoFolderThatIsNotThere) {
    EXPECT_EQ(run(CmdZoneOpenFolder, 0), 0u);
    makeData(1);
    EXPECT_EQ(run(CmdZoneOpenFolder, 1), 0u);
    EXPECT_EQ(run(CmdZoneOpenFolder, kAllOnes), 0u);
    block_->Data->ChildAt(0)->FileFolder.reset();
    EXPECT_EQ(run(CmdZoneOpenFolder, 0), 0u);
}

TEST_F(DataCommands, KeepTheHostsMark) {
    makeData(2);
    EXPECT_EQ(run(CmdZoneMark, 1), 0u);
    EXPECT_EQ(block_->Output, 101u);
    EXPECT_EQ(run(CmdZoneMark, 2), 0u);
    EXPECT_EQ(block_->Output, kAllOnes);
    const std::uint64_t zone = 1, mark = 0x123456789ABCDEFu;
    const ZoneAttributeRequest request{&zone, &mark};
    EXPECT_EQ(run(CmdSetZoneMark, &request), 0u);
    EXPECT_EQ(run(CmdZoneMark, 1), 0u);
    EXPECT_EQ(block_->Output, mark);
    EXPECT_EQ(run(CmdZoneMark, 0), 0u);
    EXPECT_EQ(block_->Output, 100u);
}

TEST_F(DataCommands, SetMarkRefusesWhatIsIncomplete) {
    std::uint64_t zone = 0;
    const std::uint64_t mark = 1;
    const ZoneAttributeRequest request{&zone, &mark}, noZone{nullptr, &mark},
        noMark{&zone, nullptr};
    EXPECT_EQ(run(CmdSetZoneMark, &request), 23u);
    makeData(1);
    EXPECT_EQ(run(CmdSetZoneMark), 14u);
    EXPECT_EQ(run(CmdSetZoneMark, &noZone), 14u);
    EXPECT_EQ(run(CmdSetZoneMark, &noMark), 14u);
    zone = 1;
    EXPECT_EQ(run(CmdSetZoneMark, &request), 26u);
}

using ExtractBlock = BlockTest;

TEST_F(ExtractBlock, MakesAZoneOfOneBlock) {
    makeData(2, 3, 4);
    ASSERT_EQ(run(CmdExtractBlock, 1 + 2 * 4096), 0u);
    ASSERT_EQ(block_->Data->ChildCount(), 3u);
    cKoData* zone = block_->Data->LastChild();
    ASSERT_EQ(zone->ChildCount(), 1u);
    ASSERT_EQ(zone->FirstChild()->Points, 4u);
    EXPECT_EQ(zone->FirstChild()->Channel(1)[3], 1203.0);
    EXPECT_EQ(zone->DataSourceId, 5u);
    EXPECT_STREQ(zone->DataSourceName, "STELAR");
    EXPECT_EQ(std::u16string(zone->FilePath.get()), u"\\data\\zone\\zone.sdf");
    EXPECT_EQ(std::u16string(zone->FileFolder.get()), u"\\data\\zone\\");
    EXPECT_EQ(std::u16string(zone->FileTitle.get()), u"zone.sdf");
    EXPECT_EQ(zone->ExperimentType, 0u);
    EXPECT_STREQ(zone->ExperimentName.get(), "NP");
    EXPECT_EQ(zone->Parameters.GetInteger("NBLK"), 1u);
    EXPECT_EQ(zone->Parameters.GetInteger("ZONE"), 2u);
    char name[1024];
    EXPECT_NE(zone->Parameters.GetText("EXP", name, nullptr), cKoAsciPars::kNotFound);
    EXPECT_STREQ(name, "NP");
    // The zone that the block came from is as it was.
    const cKoData* from = block_->Data->ChildAt(1);
    EXPECT_EQ(from->ChildCount(), 3u);
    EXPECT_STREQ(from->ExperimentName.get(), "NP/S");
    EXPECT_EQ(from->Parameters.GetInteger("NBLK"), 3u);
}

TEST_F(ExtractBlock, LeavesOtherNamesAlone) {
    makeData(1);
    block_->Data->FirstChild()->ExperimentName = text("CPMG");
    EXPECT_EQ(run(CmdExtractBlock, 0), 0u);
    EXPECT_STREQ(block_->Data->LastChild()->ExperimentName.get(), "CPMG");
    block_->Data->FirstChild()->ExperimentName = text("/S");
    EXPECT_EQ(run(CmdExtractBlock, 0), 0u);
    EXPECT_STREQ(block_->Data->LastChild()->ExperimentName.get(), "");
    block_->Data->FirstChild()->ExperimentName.reset();
    EXPECT_EQ(run(CmdExtractBlock, 0), 0u);
    EXPECT_EQ(block_->Data->LastChild()->ExperimentName.get(), nullptr);
}

TEST_F(ExtractBlock, TellsAMissingItemAsAnAllocationFailure) {
    EXPECT_EQ(run(CmdExtractBlock, 0), 0x80001u);
    makeData(1, 2);
    EXPECT_EQ(run(CmdExtractBlock, 1), 0x80001u);
    EXPECT_EQ(run(CmdExtractBlock, 2 * 4096), 0x80001u);
    EXPECT_EQ(run(CmdExtractBlock, kAllOnes), 0x80001u);
    EXPECT_EQ(block_->Data->ChildCount(), 1u);
    EXPECT_EQ(run(CmdExtractBlock, 1 * 4096), 0u);
}

}  // namespace
}  // namespace nuv64::test
