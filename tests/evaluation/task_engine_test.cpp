#include "evaluation/task_engine.h"

#include <gtest/gtest.h>

#include "evaluation/experiment.h"
#include "evaluation/procedures.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

constexpr std::uint64_t kWindow = 1;
constexpr std::uint64_t kReport = 101;

class TaskEngine : public ::testing::Test {
  protected:
    TaskEngine() { host.block.Data = makeExperiment(2, 3, 8).release(); }

    cKoData& root() { return *host.block.Data; }
    std::uint64_t pointsOf(std::uint64_t zone, std::uint64_t block) {
        return root().ChildAt(zone)->ChildAt(block)->Points;
    }

    Host host;
};

TEST_F(TaskEngine, ProcedureTable) {
    struct Row {
        const char* name;
        std::uint32_t id;
    };
    const Row rows[] = {{"FUNCTION", 2},   {"WINDOW", 1},     {"PHASOR", 3},
                        {"QUANTIFY", 4},   {"QARRAY", 5},     {"FIT", 6},
                        {"ILT", 7},        {"FFCPROFILE", 8}, {"DENOISING", 20},
                        {"APODIZE", 22},   {"NORMALIZE", 23}, {"GROUPDELAY", 24},
                        {"ZEROFILL", 25},  {"FOURIER", 26},   {"PHASING", 27},
                        {"BASELINE", 28},  {"DOSY", 29},      {"DERIVATIVE", 21},
                        {"CALIBPULSE", 9}, {"EXPORT", 100},   {"REPORT", 101}};
    for (const Row& row : rows) {
        EXPECT_EQ(procedureIdFromName(row.name), row.id);
        EXPECT_STREQ(procedureName(row.id), row.name);
    }
    EXPECT_EQ(procedureIdFromName("NO"), 0xFFFFFFFFu);
    EXPECT_EQ(procedureIdFromName(""), 0xFFFFFFFFu);
    EXPECT_STREQ(procedureName(0), "");
    EXPECT_STREQ(procedureName(UINT64_MAX), "");
}

TEST_F(TaskEngine, NullsAndStepsThatAreOff) {
    EXPECT_EQ(RunEvp(&root(), nullptr, &host.block), 0u);
    EXPECT_EQ(DispatchEvp(&root(), nullptr, &host.block), 0u);
    EXPECT_EQ(RunOnNode(&root(), nullptr, &host.block), 0u);
    EXPECT_EQ(PrePass(&root(), nullptr, &host.block), 0u);
    EXPECT_EQ(BlockPass(&root(), nullptr, &host.block), 0u);
    HostStep off(kWindow, 0);
    off.Flags = EvpDataChanged | 0x100;
    EXPECT_EQ(RunEvp(&root(), &off, &host.block), 0u);
    EXPECT_EQ(off.Flags, 0x100u);
    EXPECT_TRUE(host.events.empty());
    HostStep window(kWindow, 1);
    EXPECT_EQ(RunEvp(nullptr, &window, nullptr), 14u);
}

TEST_F(TaskEngine, ProcedureZeroDoesNothingButReport) {
    HostStep nothing(0, 1);
    EXPECT_EQ(RunEvp(&root(), &nothing, &host.block), 0u);
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].text, "#: completed\n\n");
    HostStep exported(100, 1);
    EXPECT_EQ(BlockPass(&root(), &exported, nullptr), 0u);
    EXPECT_EQ(RunEvp(&root(), &exported, nullptr), 9u);
}

TEST_F(TaskEngine, UnknownProceduresFailInEitherPass) {
    HostStep unknown(0xFFFFFFFF, 1);
    EXPECT_EQ(PrePass(&root(), &unknown, nullptr), 69u);
    EXPECT_EQ(BlockPass(&root(), &unknown, nullptr), 69u);
    unknown.Procedure = UINT64_MAX;
    EXPECT_EQ(DispatchEvp(root().ChildAt(0)->ChildAt(0), &unknown, nullptr), 69u);
}

TEST_F(TaskEngine, EventOfEachChangedNodeThenTheReport) {
    HostStep window(kWindow, 1, "1, 3");
    window.Zone = 1;
    EXPECT_EQ(RunEvp(&root(), &window, &host.block), 0u);
    EXPECT_EQ(host.numbers(), (std::vector<std::uint32_t>{53, 53, 53, 20}));
    EXPECT_EQ(host.events[3].text, "#WINDOW: completed\n Cut points from 1 to 3\n New size: 3\n\n");
    EXPECT_EQ(window.ReportText, nullptr);  // the event was its last use
    EXPECT_EQ(host.events[3].input, inputWord(&window));
}

TEST_F(TaskEngine, AMutedHostHearsNothingAndTheReportStays) {
    host.block.Flags = CallbackMuted;
    HostStep window(kWindow, 1, "1, 3");
    EXPECT_EQ(RunEvp(&root(), &window, &host.block), 0u);
    EXPECT_TRUE(host.events.empty());
    EXPECT_STREQ(window.ReportText, " Cut points from 1 to 3\n New size: 3\n");
}

TEST_F(TaskEngine, AFailingStepTellsWhatItWroteBefore) {
    root().ChildAt(1)->ChildAt(0)->SetShape(0, 0, 0, 0, 0);  // the fourth block can't report
    HostStep report(kReport, 1);
    report.Zone = 1;
    EXPECT_EQ(RunEvp(&root(), &report, &host.block), 14u);
    EXPECT_EQ(host.reports(), "#REPORT\n Error: Missing input data\n Stop evaluation\n\n");
    host.events.clear();
    report.Zone = UINT64_MAX;
    EXPECT_EQ(RunEvp(&root(), &report, &host.block), 14u);
    const std::string text = host.reports();
    EXPECT_TRUE(text.starts_with("#REPORT\n Error: "));
    EXPECT_NE(text.find("\n Stop evaluation\n Channels: 3\n Points: 8\n 0\t0 0 -0\n 1\t1 1 -1"),
              std::string::npos)
        << text;
}

TEST_F(TaskEngine, LevelsAboveTheTreeTouchNothing) {
    HostStep window(kWindow, 99);
    window.Level = 5;
    EXPECT_EQ(DispatchEvp(&root(), &window, nullptr), 0u);
    window.Level = 2;
    EXPECT_EQ(DispatchEvp(&root(), &window, nullptr), 69u);
}

TEST_F(TaskEngine, OverTheChildrenOfATarget) {
    HostStep window(kWindow, 1, "0, 3");
    window.Level = 1;
    window.Zone = 0;
    window.Flags = EvpOverChildren | EvpRefStrongest;
    EXPECT_EQ(DispatchEvp(&root(), &window, &host.block), 0u);
    EXPECT_EQ(pointsOf(0, 2), 4u);
    EXPECT_EQ(pointsOf(1, 0), 8u);
    EXPECT_EQ(host.numbers(), (std::vector<std::uint32_t>{53}));  // one target, one event
    window.Level = 0;  // a block has no children to run over
    window.Mode = 99;
    EXPECT_EQ(DispatchEvp(&root(), &window, nullptr), 0u);
}

TEST_F(TaskEngine, AReferenceChildMeetsTheUnknownProcedureFirst) {
    HostStep unknown(999, 1);
    unknown.Level = 1;
    for (std::uint32_t flags : {0u, 2u, 4u, 8u, 14u}) {
        unknown.Flags = EvpOverChildren | flags;
        EXPECT_EQ(DispatchEvp(&root(), &unknown, nullptr), 69u);
    }
}

TEST_F(TaskEngine, SnapshotsFormAChain) {
    cKoData* original = host.block.Data;
    original->ZoneNumber = 1;
    cKoData* copy = PushSnapshot(&host.block.Data);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy, host.block.Data);
    EXPECT_EQ(copy->Previous, original);
    EXPECT_EQ(copy->ZoneNumber, 1u);
    EXPECT_EQ(pointsOf(1, 2), 8u);
    EXPECT_EQ(PopSnapshot(&host.block.Data), original);
    EXPECT_EQ(host.block.Data, original);
    EXPECT_EQ(PopSnapshot(&host.block.Data), nullptr);
    EXPECT_EQ(host.block.Data, original);
    cKoData* none = nullptr;
    EXPECT_EQ(PushSnapshot(&none), nullptr);
    EXPECT_EQ(PopSnapshot(&none), nullptr);
    EXPECT_EQ(PushSnapshot(nullptr), nullptr);
    EXPECT_EQ(PopSnapshot(nullptr), nullptr);
}

TEST_F(TaskEngine, AFailedScriptLeavesTheDataAsTheyWere) {
    cKoData* before = host.block.Data;
    EXPECT_EQ(runScriptCommand(&host.block, "#WINDOW,1,0,0,,0,1#NOSUCHNAME,1"), 69u);
    EXPECT_EQ(host.block.Data, before);
    EXPECT_EQ(pointsOf(0, 0), 8u);
    EXPECT_EQ(host.count(EvStepReport), 2u);
}

TEST_F(TaskEngine, ASuccessfulScriptLeavesASnapshotBehind) {
    cKoData* before = host.block.Data;
    EXPECT_EQ(runScriptCommand(&host.block, "#WINDOW,1,0,0,,0,1"), 0u);
    EXPECT_EQ(host.block.Data->Previous, before);
    EXPECT_EQ(pointsOf(0, 0), 2u);
    EXPECT_EQ(before->ChildAt(0)->ChildAt(0)->Points, 8u);
    PopSnapshot(&host.block.Data);
    EXPECT_EQ(pointsOf(0, 0), 8u);
}

TEST_F(TaskEngine, WithoutSnapshotAFailureStays) {
    PushSnapshot(&host.block.Data);
    cKoData* before = host.block.Data;
    host.block.Flags = NoUndoSnapshot;
    EXPECT_EQ(runScriptCommand(&host.block, "#WINDOW,1,0,0,,0,1#NOSUCHNAME,1"), 69u);
    EXPECT_EQ(host.block.Data, before);  // the older snapshot is not touched
    EXPECT_EQ(pointsOf(0, 0), 2u);
}

TEST_F(TaskEngine, StepsOfAHostUnderTheSameRule) {
    cKoData* before = host.block.Data;
    HostStep bad(999, 1);
    EXPECT_EQ(runStepCommand(&host.block, &bad), 69u);
    EXPECT_EQ(host.block.Data, before);
    HostStep good(kWindow, 1, "0, 1");
    EXPECT_EQ(runStepCommand(&host.block, &good), 0u);
    EXPECT_EQ(host.block.Data->Previous, before);
    EXPECT_EQ(runStepCommand(&host.block, nullptr), 0u);
    NuvCommandBlock empty{};
    EXPECT_EQ(runStepCommand(&empty, &good), 14u);
    EXPECT_EQ(runScriptCommand(&empty, "#WINDOW,1"), 14u);
}

}  // namespace
