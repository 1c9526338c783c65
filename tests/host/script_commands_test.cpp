#include "host/script_commands.h"

#include <cmath>
#include <cstring>
#include <string>

#include "evaluation/task_engine.h"
#include "host/block_fixture.h"

namespace nuv64::test {
namespace {

using Numbers = std::vector<std::uint32_t>;

// One mean a block, over all its points: 1.5 + 100 b + 1000 z with four points.
constexpr const char* kMeans = "#QARRAY,1,0,1,,0,-1\n";

class ScriptCommands : public BlockTest {
  protected:
    ScriptCommands() {
        host_ = [this](std::uint32_t event) -> std::uint64_t {
            if (event == EvStepReport) {
                const auto* step = reinterpret_cast<const EvpRecord*>(block_->Input);
                reports_.emplace_back(step->ReportText);
            }
            return 0;
        };
    }

    bool hasCurves() const { return block_->Data->FirstChild()->Samples != nullptr; }

    std::vector<std::string> reports_;
};

TEST_F(ScriptCommands, NeedData) {
    EXPECT_EQ(run(CmdRunScript, kMeans), 14u);
    EXPECT_EQ(run(CmdRunStoredScript), 14u);
    EvpRecord step{};
    EXPECT_EQ(run(CmdRunStep, &step), 14u);
    EXPECT_EQ(block_->Data, nullptr);
}

TEST_F(ScriptCommands, RunOnACopyAndKeepTheOldState) {
    makeData(2);
    cKoData* before = block_->Data;
    ASSERT_EQ(run(CmdRunScript, kMeans), 0u);
    EXPECT_NE(block_->Data, before);
    EXPECT_EQ(block_->Data->Previous, before);
    ASSERT_TRUE(hasCurves());
    EXPECT_EQ(block_->Data->ChildAt(1)->Channel(1)[2], 1201.5);
    EXPECT_EQ(before->FirstChild()->Samples, nullptr);
    ASSERT_EQ(reports_.size(), 1u);
    EXPECT_EQ(reports_[0].rfind("#QARRAY: completed\n", 0), 0u) << reports_[0];
}

TEST_F(ScriptCommands, RunInPlaceWithoutSnapshot) {
    makeData(2);
    cKoData* before = block_->Data;
    block_->Flags = NoUndoSnapshot;
    ASSERT_EQ(run(CmdRunScript, kMeans), 0u);
    EXPECT_EQ(block_->Data, before);
    EXPECT_EQ(block_->Data->Previous, nullptr);
    EXPECT_TRUE(hasCurves());
    // Without a snapshot a failure takes nothing back.
    EXPECT_EQ(run(CmdRunScript, "#QARRAY,1,0,1,,0,1\n#EXPORT,1,,,STELAR"), 9u);
    EXPECT_EQ(block_->Data, before);
    EXPECT_EQ(block_->Data->ChildAt(0)->Channel(1)[0], 0.5);
}

TEST_F(ScriptCommands, TakeBackAFailedRun) {
    makeData(2);
    cKoData* before = block_->Data;
    EXPECT_EQ(run(CmdRunScript, "#QARRAY,1,0,1,,0,-1\n#EXPORT,1,,,STELAR\n#QARRAY,1"), 9u);
    EXPECT_EQ(block_->Data, before);
    EXPECT_EQ(block_->Data->Previous, nullptr);
    EXPECT_FALSE(hasCurves());
    ASSERT_EQ(reports_.size(), 2u);
    EXPECT_NE(reports_[1].find("\n Error: Not yet implemented\n Stop evaluation\n"),
              std::string::npos);
}

TEST_F(ScriptCommands, TakeBackOnlyWhatWasPushed) {
    makeData(2);
    ASSERT_EQ(run(CmdRunScript, kMeans), 0u);
    cKoData* before = block_->Data;
    EXPECT_EQ(run(CmdRunScript, "#NOSUCHNAME,1"), 69u);
    EXPECT_EQ(block_->Data, before);
    EXPECT_NE(block_->Data->Previous, nullptr);
    block_->Flags = NoUndoSnapshot;
    EXPECT_EQ(run(CmdRunScript, "#NOSUCHNAME,1"), 69u);
    EXPECT_EQ(block_->Data, before);
}

TEST_F(ScriptCommands, UseTheStoredScriptForNone) {
    makeData(2);
    EXPECT_EQ(run(CmdRunScript), 67u);
    EXPECT_EQ(run(CmdRunScript, ""), 67u);
    EXPECT_EQ(run(CmdRunScript, "no step in here"), 67u);
    EXPECT_EQ(run(CmdRunStoredScript), 67u);
    block_->Data->TaskScript = text(kMeans);
    EXPECT_EQ(run(CmdRunScript), 0u);
    EXPECT_TRUE(hasCurves());
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_FALSE(hasCurves());
    // Command 118 doesn't look at Input.
    EXPECT_EQ(run(CmdRunStoredScript, "#NOSUCHNAME,1"), 0u);
    EXPECT_TRUE(hasCurves());
}

TEST_F(ScriptCommands, MakeTheirEventsInOrder) {
    makeData(1);
    ASSERT_EQ(run(CmdRunScript, kMeans), 0u);
    EXPECT_EQ(eventNumbers(),
              (Numbers{EvCommandBegin, EvStepChangedData, EvStepReport, EvCommandEnd}));
    events_.clear();
    block_->Flags = CallbackMuted;
    ASSERT_EQ(run(CmdRunScript, kMeans), 0u);
    EXPECT_TRUE(events_.empty());
}

TEST_F(ScriptCommands, RunOneStep) {
    makeData(2);
    EvpRecord step{};
    step.Procedure = 5;
    step.Mode = 2;
    step.Level = 1;
    step.Zone = 1;
    step.Block = kAllOnes;
    ASSERT_EQ(run(CmdRunStep, &step), 0u);
    EXPECT_EQ(block_->Data->ChildAt(0)->Samples, nullptr);
    ASSERT_NE(block_->Data->ChildAt(1)->Samples, nullptr);
    EXPECT_EQ(block_->Data->ChildAt(1)->Channel(1)[1], 1103.0);
    EXPECT_NE(block_->Data->Previous, nullptr);
    EXPECT_EQ(step.ReportText, nullptr);

    step.Mode = 99;
    EXPECT_EQ(run(CmdRunStep, &step), 11u);
    EXPECT_NE(block_->Data->ChildAt(1)->Samples, nullptr);
    // A null step is none, and still a state of its own.
    cKoData* before = block_->Data;
    EXPECT_EQ(run(CmdRunStep), 0u);
    EXPECT_EQ(block_->Data->Previous, before);
}

using UndoCommands = ScriptCommands;

TEST_F(UndoCommands, WalkBackToTheFirstState) {
    block_->Output = 42;
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(block_->Output, 0u);
    makeData(1);
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(block_->Output, 0u);
    EXPECT_FALSE(saw(EvUndone));
    ASSERT_EQ(run(CmdRunScript, kMeans), 0u);
    events_.clear();
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(block_->Output, 1u);
    EXPECT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvUndone, EvCommandEnd}));
    EXPECT_FALSE(hasCurves());
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(block_->Output, 0u);
}

// Three states of zone 1: mark 1 in the oldest, 2 in the middle, 3 in the newest.
class RestoreCommands : public UndoCommands {
  protected:
    void makeChain() {
        makeData(3);
        for (std::uint64_t state = 1; state <= 3; ++state) {
            if (state > 1) {
                ASSERT_NE(PushSnapshot(&block_->Data), nullptr);
            }
            for (std::uint64_t zone = 0; zone < 3; ++zone) {
                block_->Data->ChildAt(zone)->HostMark = 10 * state + zone;
            }
        }
    }
    std::vector<std::uint64_t> marks() const {
        std::vector<std::uint64_t> all;
        for (cKoData* zone = block_->Data->FirstChild(); zone; zone = zone->Next()) {
            all.push_back(zone->HostMark);
        }
        return all;
    }
    using Marks = std::vector<std::uint64_t>;
};

TEST_F(RestoreCommands, BringBackOneZoneInItsPlace) {
    makeChain();
    EXPECT_EQ(run(CmdRestoreZonePrevious, 1), 0u);
    EXPECT_EQ(marks(), (Marks{30, 21, 32}));
    EXPECT_EQ(run(CmdRestoreZoneOldest, 0), 0u);
    EXPECT_EQ(marks(), (Marks{10, 21, 32}));
    EXPECT_EQ(run(CmdRestoreZoneOldest, 2), 0u);
    EXPECT_EQ(marks(), (Marks{10, 21, 12}));
    EXPECT_EQ(block_->Data->ChildAt(1)->ChildCount(), 3u);
    EXPECT_EQ(block_->Data->ChildAt(1)->FirstChild()->Channel(1)[2], 1002.0);
    // The snapshots keep theirs.
    EXPECT_EQ(block_->Data->Previous->ChildAt(1)->HostMark, 21u);
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(marks(), (Marks{20, 21, 22}));
}

TEST_F(RestoreCommands, LookForTheOldestStateThatHoldsTheZone) {
    makeChain();
    cKoData* oldest = block_->Data->Previous->Previous;
    ASSERT_EQ(oldest->RemoveItem(oldest->ChildAt(2)), 0u);
    EXPECT_EQ(run(CmdRestoreZoneOldest, 2), 0u);
    EXPECT_EQ(marks(), (Marks{30, 31, 22}));
}

TEST_F(RestoreCommands, DoNothingWhereAStateIsMissing) {
    EXPECT_EQ(run(CmdRestoreZonePrevious, 0), 0u);
    EXPECT_EQ(run(CmdRestoreZoneOldest, 0), 0u);
    makeChain();
    for (const std::uint32_t command : {CmdRestoreZonePrevious, CmdRestoreZoneOldest}) {
        EXPECT_EQ(run(command, 3), 0u);
        EXPECT_EQ(run(command, kAllOnes), 0u);
    }
    EXPECT_EQ(marks(), (Marks{30, 31, 32}));
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(run(CmdUndo), 0u);
    EXPECT_EQ(run(CmdRestoreZonePrevious, 0), 0u);
    EXPECT_EQ(run(CmdRestoreZoneOldest, 0), 0u);
    EXPECT_EQ(marks(), (Marks{10, 11, 12}));
}

}  // namespace
}  // namespace nuv64::test
