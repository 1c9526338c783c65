#include <gtest/gtest.h>

#include "evaluation/experiment.h"
#include "evaluation/procedures.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

constexpr std::uint64_t kReport = 101;

TEST(NodeReport, Table) {
    const auto block = makeBlock(2, 1.5);
    HostStep step(kReport, 1);
    EXPECT_EQ(runReport(*block, step, nullptr), 0u);
    EXPECT_STREQ(step.ReportText, " Channels: 3\n Points: 2\n 0\t0 1.5 -1.5\n 1\t1 2.5 -2.5");
    EXPECT_FALSE(step.Flags & EvpDataChanged);
    EXPECT_EQ(runReport(*makeBlock(1, 7.0, 1), step, nullptr), 0u);  // every node adds its own
    EXPECT_STREQ(step.ReportText,
                 " Channels: 3\n Points: 2\n 0\t0 1.5 -1.5\n 1\t1 2.5 -2.5"
                 " Channels: 1\n Points: 1\n 0\t0");
}

TEST(NodeReport, ZoneAndBlockCountFromOne) {
    const auto block = makeBlock(1, 0.0, 1);
    HostStep step(kReport, 1);
    step.Zone = 4;
    EXPECT_EQ(runReport(*block, step, nullptr), 0u);
    EXPECT_STREQ(step.ReportText, " Zone: 5\n Channels: 1\n Points: 1\n 0\t0");
    HostStep both(kReport, 1);
    both.Zone = 0;
    both.Block = 2;
    EXPECT_EQ(runReport(*block, both, nullptr), 0u);
    EXPECT_STREQ(both.ReportText, " Zone: 1\n Block: 3\n Channels: 1\n Points: 1\n 0\t0");
}

TEST(NodeReport, LongTablesGrow) {
    const auto block = makeBlock(5000, 1e-300, 6);
    HostStep step(kReport, 1);
    EXPECT_EQ(runReport(*block, step, nullptr), 0u);
    const std::string text = step.ReportText;
    EXPECT_EQ(static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n')), 5001u);
    EXPECT_TRUE(text.ends_with("\n 4999\t4999 4999 -4999 0 0 0"));
}

TEST(NodeReport, FailuresAndModes) {
    cKoData empty;
    HostStep step(kReport, 1);
    EXPECT_EQ(runReport(empty, step, nullptr), 14u);
    for (const std::uint64_t mode : {2ull, ~0ull}) {
        HostStep other(kReport, mode);
        EXPECT_EQ(runReport(*makeBlock(1, 0.0), other, nullptr), 69u);
    }
    HostStep off(kReport, 0);
    EXPECT_EQ(runReport(empty, off, nullptr), 0u);
}

TEST(NodeReport, ThroughTheScriptOncePerBlock) {
    Host host;
    host.block.Data = makeExperiment(2, 2, 1).release();
    EXPECT_EQ(RunScript(host.block.Data, "#REPORT,1,0,0z1", &host.block), 0u);
    EXPECT_EQ(host.reports(),
              "#REPORT: completed\n"
              " Zone: 2\n Channels: 3\n Points: 1\n 0\t0 0 -0"
              " Zone: 2\n Channels: 3\n Points: 1\n 0\t0 100 -100\n");
}

}  // namespace
