#include <gtest/gtest.h>

#include <limits>

#include "evaluation/experiment.h"
#include "evaluation/procedures.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

std::uint32_t runOn(cKoData& node, HostStep& step) {
    return runWindow(node, step, nullptr);
}

TEST(Window, CutsEveryChannelAndTheAxis) {
    const auto block = makeBlock(10, 100.0, 4);
    block->PointTags[4] = 7;
    block->ChannelKinds[3] = 2;
    HostStep step(1, 1, "3, 5");
    EXPECT_EQ(runOn(*block, step), 0u);
    EXPECT_EQ(block->Points, 3u);
    EXPECT_EQ(block->Channels, 4u);
    EXPECT_EQ(channelOf(*block, 0), (std::vector<double>{3, 4, 5}));
    EXPECT_EQ(channelOf(*block, 1), (std::vector<double>{103, 104, 105}));
    EXPECT_EQ(channelOf(*block, 2), (std::vector<double>{-103, -104, -105}));
    EXPECT_EQ(block->AxisFirst, 3.0);
    EXPECT_EQ(block->AxisLast, 5.0);
    EXPECT_EQ(block->PointTags[1], 7u);
    EXPECT_EQ(block->ChannelKinds[3], 2u);
    EXPECT_TRUE(step.Flags & EvpDataChanged);
    EXPECT_STREQ(step.ReportText, " Cut points from 3 to 5\n New size: 3\n");
}

TEST(Window, CutOnALogarithmicAxis) {
    const auto block = makeBlock(3, 0.0);
    block->AxisGrid = 2;
    block->AxisFirst = 1.0;
    block->AxisLast = 100.0;
    HostStep step(1, 1, "1, 1");
    EXPECT_EQ(runOn(*block, step), 0u);
    EXPECT_NEAR(block->AxisFirst, 10.0, 1e-12);
    EXPECT_NEAR(block->AxisLast, 10.0, 1e-12);
}

TEST(Window, RemovingTheFirstPointHasItsOwnWords) {
    const auto block = makeBlock(10, 0.0);
    HostStep step(1, 1, "1, -1");
    EXPECT_EQ(runOn(*block, step), 0u);
    EXPECT_STREQ(step.ReportText, " Removed 1st point\n New size: 9\n");
    EXPECT_EQ(runOn(*block, step), 0u);
    EXPECT_EQ(block->Points, 8u);
    EXPECT_STREQ(step.ReportText, " Removed 1st point\n New size: 9\n");  // told once
}

TEST(Window, TagsAreSetClearedAndToggled) {
    const auto block = makeBlock(4, 0.0);
    block->PointTags[2] = 0xF0;
    HostStep set(1, 2, "1, 2");
    EXPECT_EQ(runOn(*block, set), 0u);
    EXPECT_EQ(block->PointTags[0], 0u);
    EXPECT_EQ(block->PointTags[1], 1u);
    EXPECT_EQ(block->PointTags[2], 0xF1u);
    EXPECT_EQ(set.ReportText, nullptr);
    EXPECT_TRUE(set.Flags & EvpDataChanged);
    HostStep clear(1, 3, "2, 3");
    EXPECT_EQ(runOn(*block, clear), 0u);
    EXPECT_EQ(block->PointTags[1], 1u);
    EXPECT_EQ(block->PointTags[2], 0xF0u);
    HostStep toggle(1, 4);
    EXPECT_EQ(runOn(*block, toggle), 0u);
    EXPECT_EQ(block->PointTags[0], 1u);
    EXPECT_EQ(block->PointTags[1], 0u);
    EXPECT_EQ(block->PointTags[2], 0xF1u);
    EXPECT_EQ(block->PointTags[3], 1u);
}

TEST(Window, ReductionByOneRebuildsTheSameData) {
    const auto block = makeBlock(10, 5.0);
    HostStep step(1, 5, "0, -1, 1");
    EXPECT_EQ(runOn(*block, step), 0u);
    EXPECT_EQ(block->Points, 10u);
    EXPECT_EQ(block->AxisGrid, 0u);
    EXPECT_EQ(block->AxisFirst, 0.0);
    EXPECT_EQ(block->AxisLast, 9.0);
    EXPECT_EQ(channelOf(*block, 1), channelOf(*makeBlock(10, 5.0), 1));
    EXPECT_EQ(channelOf(*block, 2), channelOf(*makeBlock(10, 5.0), 2));
    EXPECT_STREQ(step.ReportText,
                 " Data reduction\n Mode: Linear\n Factor: 1\n Starting point: 0\n New size: 10\n");
}

TEST(Window, ReductionKeepsWhatStandsBefore) {
    const auto block = makeBlock(10, 0.0);
    HostStep step(1, 5, "3, 4, 4, 2");  // the end of the window plays no part
    EXPECT_EQ(runOn(*block, step), 0u);
    EXPECT_EQ(channelOf(*block, 0), (std::vector<double>{0, 1, 2, 3, 7}));
    EXPECT_EQ(channelOf(*block, 2), (std::vector<double>{-0.0, -1, -2, -3, -7}));
    EXPECT_EQ(block->AxisLast, 7.0);
    EXPECT_STREQ(
        step.ReportText,
        " Data reduction\n Mode: Logarithmic\n Factor: 4\n Starting point: 3\n New size: 5\n");
}

TEST(Window, ReductionFactors) {
    const auto big = makeBlock(300, 0.0);
    HostStep automatic(1, 5);  // 300 / 128 + 1
    EXPECT_EQ(runOn(*big, automatic), 0u);
    EXPECT_EQ(big->Points, 100u);
    const auto block = makeBlock(10, 0.0);
    HostStep zero(1, 5, "0, -1, 0, 1");
    EXPECT_EQ(runOn(*block, zero), 70u);
    HostStep logarithmic(1, 5, "0, -1, 2, 1");
    EXPECT_EQ(runOn(*block, logarithmic), 9u);
    EXPECT_EQ(block->Points, 10u);
    EXPECT_FALSE(logarithmic.Flags & EvpDataChanged);
    HostStep huge(1, 5, "2, -1, 1E19");
    EXPECT_EQ(runOn(*block, huge), 0u);
    EXPECT_EQ(channelOf(*block, 0), (std::vector<double>{0, 1, 2}));
}

TEST(Window, ModesAndEmptyNodes) {
    const auto block = makeBlock(4, 0.0);
    for (const std::uint64_t mode : {6ull, 99ull, ~0ull}) {
        HostStep step(1, mode);
        EXPECT_EQ(runOn(*block, step), 69u);
    }
    HostStep off(1, 0);
    EXPECT_EQ(runOn(*block, off), 0u);
    for (std::uint64_t mode = 1; mode <= 5; ++mode) {
        cKoData empty;
        HostStep step(1, mode, "0, 1");
        EXPECT_EQ(runOn(empty, step), 0u);
        EXPECT_FALSE(step.Flags & EvpDataChanged);
    }
}

TEST(Window, OnePoint) {
    for (std::uint64_t mode = 1; mode <= 5; ++mode) {
        const auto block = makeBlock(1, 3.0);
        HostStep step(1, mode);
        EXPECT_EQ(runOn(*block, step), 0u);
        EXPECT_EQ(channelOf(*block, 1), (std::vector<double>{3.0}));
    }
}

}  // namespace
