#include <gtest/gtest.h>

#include "evaluation/experiment.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

class TaskScript : public ::testing::Test {
  protected:
    TaskScript() { host.block.Data = makeExperiment(2, 3, 8).release(); }

    cKoData& root() { return *host.block.Data; }
    std::uint32_t run(const char* script) { return RunScript(&root(), script, &host.block); }

    Host host;
};

TEST_F(TaskScript, NoScriptAnywhere) {
    EXPECT_EQ(run(nullptr), 67u);
    EXPECT_EQ(run(""), 67u);
    EXPECT_EQ(run("WINDOW,1"), 67u);
    EXPECT_EQ(RunScript(nullptr, nullptr, nullptr), 67u);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(TaskScript, AnEmptyTextMeansTheStoredScript) {
    setText(root().TaskScript, "#WINDOW,1,0,0,,1,3");
    EXPECT_EQ(run(""), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 3u);
    EXPECT_EQ(run(nullptr), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 2u);
}

TEST_F(TaskScript, TextBeforeTheFirstMarkIsIgnored) {
    EXPECT_EQ(run("WINDOW,1,0,0,,0,1 # REPORT,1,0,0z0b0"), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 8u);
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].procedure, 101u);
}

TEST_F(TaskScript, CommentsRunNothing) {
    EXPECT_EQ(run("#// WINDOW,1\n#//\n# // x"), 0u);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(TaskScript, ACommentReachesToTheEndOfItsStep) {
    EXPECT_EQ(run("#WINDOW,1,0,0 // ,,0,1\n,,0,1\n"), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 8u);  // the parameters went with the comment
}

TEST_F(TaskScript, AMarkInACommentStartsAStep) {
    EXPECT_EQ(run("#REPORT,0 // see #WINDOW,1,0,0,,0,1"), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 2u);
}

TEST_F(TaskScript, StepsThatAreOff) {
    EXPECT_EQ(run("#WINDOW,0"), 0u);
    EXPECT_EQ(run("#WINDOW"), 0u);
    EXPECT_EQ(run("#WINDOW,0x1,0,0"), 0u);
    EXPECT_EQ(run("#WINDOW,,0,0"), 0u);
    EXPECT_EQ(run("#NOSUCHNAME"), 0u);
    EXPECT_TRUE(host.events.empty());
}

TEST_F(TaskScript, UnknownNames) {
    for (const char* script : {"#NOSUCHNAME,1", "#SIMULATE,1", "#EXPOFIT,1,0,1", "#,1", "#FI,1"}) {
        EXPECT_EQ(run(script), 69u) << script;
    }
    EXPECT_EQ(host.events[0].text,
              "#\n Error: Unknown evaluation procedure mode\n Stop evaluation\n\n");
    EXPECT_EQ(run("#NOSUCHNAME,1,0,7"), 0u);  // refused only where it meets a node
}

TEST_F(TaskScript, NamesAreFoundByTheirBeginning) {
    EXPECT_EQ(run("# fitting ,3,0,0z0b0,,0,2"), 71u);  // FIT: window too small
    EXPECT_EQ(run("#Quantify the blocks,1,0,0"), 0u);
    EXPECT_EQ(host.events.back().procedure, 4u);
    EXPECT_EQ(run("#Q A,1,0,0"), 69u);
}

TEST_F(TaskScript, ExportIsNotThereYet) {
    EXPECT_EQ(run("#EXPORT,1,,,STELAR"), 9u);
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].text, "#EXPORT\n Error: Not yet implemented\n Stop evaluation\n\n");
}

TEST_F(TaskScript, ProceduresThatAreNotThereYet) {
    for (const char* name :
         {"FUNCTION", "PHASOR", "ILT", "DENOISING", "APODIZE", "NORMALIZE", "GROUPDELAY",
          "ZEROFILL", "FOURIER", "PHASING", "BASELINE", "DOSY", "DERIVATIVE", "CALIBPULSE"}) {
        const std::string script = std::string("#") + name + ",1,0,0";
        EXPECT_EQ(run(script.c_str()), 9u) << name;
        EXPECT_EQ(host.events.back().text,
                  "#" + std::string(name) + "\n Error: Not yet implemented\n Stop evaluation\n\n");
    }
}

TEST_F(TaskScript, AZoneThatIsNotThereIsNoFailure) {
    EXPECT_EQ(run("#WINDOW,1,0,0z7,,0,-1"), 0u);
    ASSERT_EQ(host.events.size(), 1u);
    EXPECT_EQ(host.events[0].text, "#WINDOW: completed\n\n");
}

TEST_F(TaskScript, HexadecimalFlagsReadAsZero) {
    // With flag 1 the step would run over the zone's blocks.
    EXPECT_EQ(run("#WINDOW,1,0x1,1,,0,3"), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 8u);
    EXPECT_EQ(run("#WINDOW,1,1,1,,0,3"), 0u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 4u);
}

TEST_F(TaskScript, Targets) {
    struct Case {
        const char* target;
        std::uint64_t cut;  // blocks with a changed size, as bits zone * 3 + block
    };
    const Case cases[] = {
        {"0", 0x3F},     {"*", 0x3F},   {"", 0x3F},    {"0z1", 0x38}, {" 0 z1 b2", 0x20},
        {"0z0b1", 0x02}, {"0b1", 0x12}, {"0z9", 0},    {"0z0b9", 0},  {"3", 0},
        {"0Z1", 0x3F},   {"z1", 0x38},  {"*z1", 0x3F}, {"0z", 0x07},  {"0z1x", 0x38},
    };
    for (const Case& c : cases) {
        delete host.block.Data;
        host.block.Data = makeExperiment(2, 3, 8).release();
        const std::string script = "#WINDOW,1,0," + std::string(c.target) + ",,0,3";
        EXPECT_EQ(run(script.c_str()), 0u) << c.target;
        std::uint64_t cut = 0;
        for (std::uint64_t i = 0; i < 6; ++i) {
            if (root().ChildAt(i / 3)->ChildAt(i % 3)->Points == 4) cut |= 1u << i;
        }
        EXPECT_EQ(cut, c.cut) << c.target;
    }
}

TEST_F(TaskScript, MissingResultNode) {
    EXPECT_EQ(run("#REPORT,1,0,0z0b0e"), 8u);
    root().ChildAt(0)->ChildAt(0)->Evaluated = makeBlock(1, 5.0).release();
    EXPECT_EQ(run("#REPORT,1,0,0z0b0e"), 0u);
    EXPECT_EQ(host.events.back().text,
              "#REPORT: completed\n Zone: 1\n Block: 1\n Channels: 3\n Points: 1\n 0\t0 5 -5\n");
}

TEST_F(TaskScript, TheFirstFailureEndsTheScript) {
    EXPECT_EQ(run("#WINDOW,1,0,0,,0,5 #WINDOW,99 #WINDOW,1,0,0,,0,1"), 69u);
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->Points, 6u);
    EXPECT_EQ(host.count(EvStepReport), 2u);
}

TEST_F(TaskScript, ALineIsParsedInPlace) {
    char line[] = " window , 2 , 0 , 0 , opt , 1, 2 // all of it";
    EXPECT_EQ(RunScriptLine(&root(), line, &host.block), 0u);
    EXPECT_STREQ(line, " window , 2 , 0 , 0 , opt , 1, 2 ");
    EXPECT_EQ(root().ChildAt(0)->ChildAt(0)->PointTags[1], 1u);
    EXPECT_EQ(RunScriptLine(&root(), nullptr, &host.block), 0u);
    char empty[] = "";
    EXPECT_EQ(RunScriptLine(&root(), empty, &host.block), 0u);
}

TEST_F(TaskScript, RunsWithoutAHost) {
    EXPECT_EQ(RunScript(&root(), "#WINDOW,1,0,0,,0,5#REPORT,1", nullptr), 0u);
    EXPECT_EQ(RunScript(nullptr, "#WINDOW,1,0,0,,0,5", nullptr), 14u);
}

}  // namespace
