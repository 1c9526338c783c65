#include "data/data_object.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "nuv64/core/special_reals.h"
#include "nuv64/data/data_object.h"

namespace {

using Node = std::unique_ptr<cKoData>;

cKoData* addChild(cKoData& parent) {
    auto* child = new cKoData;
    parent.AppendChild(child);
    return child;
}

nuv64::OwnedText text(const char* value) {
    return nuv64::copyText(value, std::strlen(value));
}

// An experiment of zones with blocks of 3 channels.
Node experiment(int zones, int blocks, std::uint64_t points) {
    auto root = std::make_unique<cKoData>();
    for (int z = 0; z < zones; ++z) {
        cKoData* zone = addChild(*root);
        zone->ZoneNumber = static_cast<std::uint64_t>(z + 1);
        zone->Parameters.AddLine("NBLK", "2", nullptr);
        for (int b = 0; b < blocks; ++b) {
            cKoData* block = addChild(*zone);
            block->SetShape(points, 3, 0, 0.0, 1.0);
            for (std::uint64_t i = 0; i < 3 * points; ++i) {
                block->Samples[i] = static_cast<double>(i) + 100.0 * b + 1000.0 * z;
            }
        }
    }
    return root;
}

TEST(DataObject, StartsAsTold) {
    const cKoData node(KoDataTimeDomain);
    EXPECT_EQ(node.Flags, KoDataTimeDomain);
    EXPECT_EQ(node.ExperimentType, UINT64_MAX);
    EXPECT_EQ(node.HostMark, UINT64_MAX);
    EXPECT_EQ(node.AxisFirst, 1.0);
    EXPECT_EQ(node.AxisLast, 1.0);
    EXPECT_EQ(node.AxisScale, 1.0);
    EXPECT_EQ(node.AxisOffset, 0.0);
    EXPECT_EQ(node.ValueScale, 1.0);
    EXPECT_EQ(node.Samples, nullptr);
    for (const double result : node.Results) {
        EXPECT_EQ(std::memcmp(&result, &___NAN, sizeof result), 0);
    }
    EXPECT_EQ(node.Parent(), nullptr);
    EXPECT_EQ(node.Depth(), 0u);
    EXPECT_EQ(node.Height(), 0u);
    EXPECT_EQ(node.SiblingCount(), 0u);
}

TEST(DataObject, TreeWalks) {
    Node root = experiment(3, 2, 4);
    EXPECT_EQ(root->ChildCount(), 3u);
    EXPECT_EQ(root->Height(), 2u);
    EXPECT_EQ(root->ChildAt(3), nullptr);
    EXPECT_EQ(root->ChildAt(UINT64_MAX), nullptr);
    cKoData* zone = root->ChildAt(1);
    ASSERT_NE(zone, nullptr);
    EXPECT_EQ(zone->ZoneNumber, 2u);
    EXPECT_EQ(zone->Parent(), root.get());
    EXPECT_EQ(zone->Height(), 1u);
    EXPECT_EQ(zone->Depth(), 1u);
    EXPECT_EQ(zone->SiblingCount(), 3u);
    EXPECT_EQ(zone->Next(), root->LastChild());
    EXPECT_EQ(root->LastChild()->Next(), nullptr);
    cKoData* block = zone->FirstChild();
    EXPECT_EQ(block->Depth(), 2u);
    EXPECT_EQ(block->Height(), 0u);
    EXPECT_EQ(block->ParameterOwner(), zone);
    EXPECT_EQ(root->ParameterOwner(), nullptr);
    EXPECT_EQ(root->AppendChild(nullptr), 0u);
    EXPECT_EQ(zone->AppendChild(root.get()), 26u);
    EXPECT_EQ(zone->AppendChild(zone), 26u);
    EXPECT_EQ(root->ChildCount(), 3u);
}

TEST(DataObject, DeletesThroughEitherSide) {
    cKoListItem* item = new cKoData;
    addChild(*static_cast<cKoData*>(item));
    delete item;
    cKoList* list = new cKoData;
    addChild(*static_cast<cKoData*>(list));
    delete list;
}

TEST(DataObject, FlagsGoThroughAllDescendants) {
    Node root = experiment(2, 2, 1);
    root->SetFlags(KoDataSelected, false);
    EXPECT_EQ(root->TestFlags(KoDataSelected), KoDataSelected);
    EXPECT_EQ(root->CountFlagged(KoDataSelected, nullptr), 0u);
    root->FirstChild()->SetFlags(KoDataSelected | KoDataDosy, true);
    bool all = true;
    EXPECT_EQ(root->CountFlagged(KoDataSelected, &all), 1u);
    EXPECT_FALSE(all);
    all = true;
    EXPECT_EQ(root->FirstChild()->CountFlagged(KoDataSelected, &all), 2u);
    EXPECT_TRUE(all);
    root->SetFlags(KoDataSelected, true);
    EXPECT_EQ(root->CountFlagged(KoDataSelected, nullptr), 2u);
    root->ClearFlags(KoDataSelected, true);
    EXPECT_EQ(root->FirstChild()->FirstChild()->Flags, KoDataDosy);
    EXPECT_EQ(root->Flags, 0u);
}

TEST(DataObject, SetShape) {
    cKoData node;
    EXPECT_EQ(node.SetShape(4, 2, 2, 1.0, 8.0), 0u);
    EXPECT_EQ(node.Points, 4u);
    EXPECT_EQ(node.Channels, 2u);
    EXPECT_EQ(node.AxisGrid, 2u);
    EXPECT_EQ(node.Channel(1), node.Samples.get() + 4);
    EXPECT_EQ(node.Channel(2), nullptr);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(node.Samples[i], 0.0);
    for (int i = 0; i < 20; ++i) EXPECT_TRUE(std::isnan(node.ChannelStatistics[i]));
    EXPECT_EQ(node.ChannelKinds[1], 0u);
    EXPECT_EQ(node.PointTags[3], 0u);
    EXPECT_EQ(node.SetShape(0, 2, 1, 3.0, 4.0), 0u);
    EXPECT_EQ(node.Points, 0u);
    EXPECT_EQ(node.Channels, 0u);
    EXPECT_EQ(node.AxisFirst, 3.0);
    EXPECT_EQ(node.Samples, nullptr);
    EXPECT_EQ(node.PointTags, nullptr);
    EXPECT_EQ(node.SetShape(UINT64_MAX / 2, 3, 0, 0, 1), 0x80001u);
    EXPECT_EQ(node.SetShape(UINT64_MAX, UINT64_MAX, 0, 0, 1), 0x80001u);
    EXPECT_EQ(node.SetShape(std::uint64_t{1} << 58, 1, 0, 0, 1), 0x80001u);
    EXPECT_EQ(node.Samples, nullptr);
    EXPECT_EQ(node.Points, 0u);
}

TEST(DataObject, ValuesAndTheirScale) {
    cKoData node;
    node.SetShape(2, 2, 0, 0, 1);
    node.Samples[3] = 5.0;
    EXPECT_EQ(node.Value(1, 1, false), 5.0);
    EXPECT_EQ(node.Value(1, 1, true), 5.0);
    EXPECT_EQ(node.ChannelStatistics[19], 1.0);
    node.ChannelStatistics[19] = 3.0;
    EXPECT_EQ(node.Value(1, 1, true), 15.0);
    EXPECT_TRUE(std::isnan(node.Value(2, 1, false)));
    EXPECT_TRUE(std::isnan(node.Value(0, 2, true)));
}

TEST(DataObject, AppendChannel) {
    cKoData node;
    const double values[] = {1, 2, 3};
    std::uint64_t index = 7;
    EXPECT_EQ(node.AppendChannel(nullptr, 3, &index), 0u);
    EXPECT_EQ(index, UINT64_MAX);
    EXPECT_EQ(node.AppendChannel(values, 0, &index), 0u);
    EXPECT_EQ(node.Samples, nullptr);
    EXPECT_EQ(node.AppendChannel(values, 3, &index), 0u);
    EXPECT_EQ(index, 0u);
    EXPECT_EQ(node.Points, 3u);
    node.PointTags[1] = 9;
    node.ChannelKinds[0] = 4;
    node.ChannelStatistics[9] = 2.0;
    EXPECT_EQ(node.AppendChannel(values, 2, &index), 17u);
    EXPECT_EQ(index, UINT64_MAX);
    EXPECT_EQ(node.AppendChannel(node.Channel(0), 3, nullptr), 0u);  // from its own matrix
    EXPECT_EQ(node.Channels, 2u);
    EXPECT_EQ(node.Channel(1)[2], 3.0);
    EXPECT_EQ(node.PointTags[1], 9u);
    EXPECT_EQ(node.ChannelKinds[0], 4u);
    EXPECT_EQ(node.ChannelKinds[1], 0u);
    EXPECT_EQ(node.ChannelStatistics[9], 2.0);
    EXPECT_TRUE(std::isnan(node.ChannelStatistics[19]));
}

TEST(DataObject, StoreChannel) {
    cKoData node;
    const double values[] = {1, 2};
    EXPECT_EQ(node.StoreChannel(nullptr, 2, 0), 0u);
    EXPECT_EQ(node.StoreChannel(values, 0, 5), 0u);
    EXPECT_EQ(node.StoreChannel(values, 2, 0), 17u);
    node.SetShape(2, 2, 0, 0, 1);
    EXPECT_EQ(node.StoreChannel(values, 2, 2), 14u);
    EXPECT_EQ(node.StoreChannel(values, 2, 1), 0u);
    EXPECT_EQ(node.Channel(1)[1], 2.0);
}

TEST(DataObject, StoreFitChannelTakesTheLowestFit) {
    cKoData node;
    const double fit[] = {7, 8};
    EXPECT_EQ(node.StoreFitChannel(fit), 0u);  // no points yet
    EXPECT_EQ(node.Channels, 0u);
    node.SetShape(2, 2, 0, 0, 1);
    EXPECT_EQ(node.StoreFitChannel(nullptr), 0u);
    EXPECT_EQ(node.Channels, 2u);
    EXPECT_EQ(node.StoreFitChannel(fit), 0u);
    ASSERT_EQ(node.Channels, 3u);
    EXPECT_EQ(node.ChannelKinds[2], KoChannelFit);
    const double other[] = {1, 1};
    std::uint64_t index;
    node.AppendChannel(other, 2, &index);
    node.ChannelKinds[3] = KoChannelFit;
    EXPECT_EQ(node.StoreFitChannel(other), 0u);
    EXPECT_EQ(node.Channels, 4u);
    EXPECT_EQ(node.Channel(2)[0], 1.0);
    node.ChannelKinds[2] = node.ChannelKinds[3] = 0;
    node.ChannelKinds[0] = KoChannelFit;  // channel 0 is never taken
    EXPECT_EQ(node.StoreFitChannel(fit), 0u);
    EXPECT_EQ(node.Channels, 5u);
}

TEST(DataObject, ReplaceChannelsOfKind) {
    cKoData node;
    node.SetShape(2, 4, 0, 0, 1);
    for (int i = 0; i < 8; ++i) node.Samples[i] = i;
    node.ChannelKinds[1] = node.ChannelKinds[3] = 5;
    node.ChannelStatistics[29] = 2.0;
    node.PointTags[1] = 3;
    const double rows[] = {10, 11, 12, 13, 14, 15};
    EXPECT_EQ(node.ReplaceChannelsOfKind(5, rows, 3), 0u);
    ASSERT_EQ(node.Channels, 5u);
    EXPECT_EQ(node.Channel(1)[0], 4.0);
    EXPECT_EQ(node.ChannelStatistics[19], 2.0);
    EXPECT_TRUE(std::isnan(node.ChannelStatistics[29]));
    EXPECT_EQ(node.Channel(4)[1], 15.0);
    EXPECT_EQ(node.ChannelKinds[4], 5u);
    EXPECT_EQ(node.ChannelKinds[1], 0u);
    EXPECT_EQ(node.PointTags[1], 3u);
    EXPECT_EQ(node.ReplaceChannelsOfKind(5, nullptr, 9), 0u);
    EXPECT_EQ(node.Channels, 2u);
    EXPECT_EQ(node.ReplaceChannelsOfKind(0, nullptr, 0), 0u);
    EXPECT_EQ(node.Channels, 0u);
    EXPECT_EQ(node.Samples, nullptr);
    EXPECT_EQ(node.Points, 0u);
    EXPECT_EQ(node.ReplaceChannelsOfKind(0, nullptr, 0), 0u);
    EXPECT_EQ(node.ReplaceChannelsOfKind(0, rows, 1), 14u);
    node.SetShape(2, 1, 0, 0, 1);
    EXPECT_EQ(node.ReplaceChannelsOfKind(0, rows, UINT64_MAX), 0x80001u);
    EXPECT_EQ(node.Channels, 1u);
}

TEST(DataObject, ResizePoints) {
    cKoData node;
    EXPECT_EQ(node.ResizePoints(0, 5), 23u);
    EXPECT_EQ(node.ResizePoints(1, 0), 0u);
    node.SetShape(512, 2, 0, 0.0, 511.0);
    for (int i = 0; i < 512; ++i) node.Samples[i] = i;
    node.Channel(1)[511] = 4.0;
    node.PointTags[5] = 6;
    EXPECT_EQ(node.ResizePoints(1, 0), 0u);
    ASSERT_EQ(node.Points, 1024u);
    EXPECT_EQ(node.Channel(0)[1023], 1023.0);
    EXPECT_EQ(node.AxisLast, 1023.0);
    EXPECT_EQ(node.Channel(1)[511], 4.0);
    EXPECT_EQ(node.Channel(1)[512], 0.0);
    EXPECT_EQ(node.PointTags[5], 6u);
    EXPECT_EQ(node.PointTags[1023], 0u);
    EXPECT_EQ(node.ResizePoints(0, 1024), 0u);
    EXPECT_EQ(node.ResizePoints(0, 0), 0u);
    EXPECT_EQ(node.ResizePoints(64, 0), 0x80001u);
    EXPECT_EQ(node.ResizePoints(60, 0), 0x80001u);
    EXPECT_EQ(node.ResizePoints(50, 0), 0x80001u);
    EXPECT_EQ(node.Points, 1024u);
    EXPECT_EQ(node.ResizePoints(0, 3), 0u);
    EXPECT_EQ(node.Points, 3u);
    EXPECT_EQ(node.AxisLast, 2.0);
    EXPECT_EQ(node.Channel(1)[0], 0.0);
}

TEST(DataObject, NewCopies) {
    cKoData node;
    double* values = reinterpret_cast<double*>(1);
    std::uint64_t n = 9;
    EXPECT_EQ(node.NewChannelCopy(&values, &n, 0, 1.0), 14u);
    EXPECT_EQ(values, nullptr);
    EXPECT_EQ(n, 0u);
    node.SetShape(2, 3, 0, 0, 1);
    for (int i = 0; i < 6; ++i) node.Samples[i] = i;
    EXPECT_EQ(node.NewChannelCopy(&values, &n, 2, 2.0), 0u);
    EXPECT_EQ(n, 2u);
    EXPECT_EQ(values[1], 10.0);
    std::free(values);
    EXPECT_EQ(node.NewSignalCopy(&values, &n, 1, -1.0), 0u);
    EXPECT_EQ(n, 2u);
    EXPECT_EQ(values[0], -2.0);
    EXPECT_EQ(values[3], -5.0);
    std::free(values);
    EXPECT_EQ(node.NewSignalCopy(&values, &n, 2, 1.0), 14u);
    EXPECT_EQ(node.NewSignalCopy(&values, &n, UINT64_MAX, 1.0), 14u);
    EXPECT_EQ(node.NewChannelCopy(&values, &n, 3, 1.0), 14u);
    EXPECT_EQ(values, nullptr);
    EXPECT_EQ(node.NewChannelCopy(nullptr, &n, 0, 1.0), 18u);
}

TEST(DataObject, Statistics) {
    cKoData node;
    EXPECT_TRUE(std::isnan(node.ChannelStatistic(0, 4)));
    node.SetShape(40, 3, 0, 0, 1);
    for (int i = 0; i < 40; ++i) {
        node.Channel(1)[i] = i - 10.0;
        node.Channel(2)[i] = i == 20 ? 40.0 : 0.0;
    }
    EXPECT_EQ(node.ChannelStatistic(1, 4), 9.5);
    EXPECT_EQ(node.ChannelStatistic(1, 5), -10.0);
    EXPECT_EQ(node.ChannelStatistic(1, 6), 29.0);
    EXPECT_EQ(node.ChannelStatistic(0, 8), 100.0 + 1600.0);
    EXPECT_NEAR(node.ChannelStatistic(2, 7), std::sqrt(1700.0), 1e-12);
    EXPECT_NEAR(node.ChannelStatistic(1, 3), 0.0, 1e-9);  // a straight line has no noise
    EXPECT_EQ(node.ChannelStatistic(1, 9), 1.0);
    EXPECT_TRUE(std::isnan(node.ChannelStatistic(1, 0)));
    EXPECT_EQ(node.ComputeStatistic(3, 4, 0, UINT64_MAX), 26u);
    EXPECT_EQ(node.ComputeStatistic(1, 10, 0, UINT64_MAX), 26u);
    EXPECT_EQ(node.ComputeStatistic(1, 4, 10, 12), 0u);
    EXPECT_EQ(node.ChannelStatistics[14], 1.0);
    EXPECT_EQ(node.ComputeStatistic(1, 4, 12, 10), 0u);
    EXPECT_EQ(node.ChannelStatistics[14], 1.0);
    EXPECT_EQ(node.ComputeStatistic(1, 4, 100, 200), 0u);
    EXPECT_EQ(node.ChannelStatistics[14], 1.0);
    EXPECT_EQ(node.ComputeStatistic(1, 4, UINT64_MAX, 1), 0u);
    EXPECT_EQ(node.ChannelStatistics[14], -9.5);
    EXPECT_EQ(node.ComputeStatistic(1, 8, 0, 10), 0u);
    EXPECT_EQ(node.ChannelStatistics[18], 100.0);
    cKoData narrow;
    narrow.SetShape(4, 2, 0, 0, 1);
    EXPECT_EQ(narrow.ComputeStatistic(1, 8, 0, UINT64_MAX), 14u);
}

TEST(DataObject, StrongestChild) {
    cKoData zone;
    EXPECT_EQ(zone.StrongestChild(8), nullptr);
    cKoData* first = addChild(zone);
    EXPECT_EQ(zone.StrongestChild(8), first);  // no values at all
    cKoData* second = addChild(zone);
    for (cKoData* each : {first, second}) each->SetShape(2, 3, 0, 0, 1);
    EXPECT_EQ(zone.StrongestChild(8), first);  // a tie
    second->Channel(1)[1] = 3.0;
    EXPECT_EQ(zone.StrongestChild(8), second);
}

TEST(DataObject, CopyIsDeep) {
    Node root = experiment(2, 3, 5);
    root->TaskScript = text("# Report");
    root->AxisUnit = text("ppm");
    root->Results[3] = 4.0;
    const double list[] = {1, 2, 3};
    root->FirstChild()->SetBlockAxis(list, 3);
    root->FirstChild()->Evaluated = new cKoData;
    root->FirstChild()->Evaluated->SetShape(2, 2, 0, 0, 1);
    root->Previous = new cKoData;
    cKoData copy;
    EXPECT_EQ(copy.CopyFrom(root.get()), 0u);
    EXPECT_EQ(copy.Previous, nullptr);
    EXPECT_EQ(copy.ChildCount(), 2u);
    EXPECT_STREQ(copy.TaskScript.get(), "# Report");
    EXPECT_NE(copy.TaskScript.get(), root->TaskScript.get());
    EXPECT_EQ(copy.Results[3], 4.0);
    cKoData* zone = copy.FirstChild();
    EXPECT_EQ(zone->Parent(), &copy);
    EXPECT_EQ(zone->Parameters.LineCount, 1u);
    EXPECT_EQ(zone->BlockAxisCount, 3u);
    EXPECT_EQ(zone->BlockAxis[2], 3.0);
    ASSERT_NE(zone->Evaluated, nullptr);
    EXPECT_NE(zone->Evaluated, root->FirstChild()->Evaluated);
    EXPECT_EQ(zone->Evaluated->Points, 2u);
    EXPECT_EQ(copy.LastChild()->ChildAt(2)->Channel(2)[4], 1214.0);
    EXPECT_EQ(copy.CopyFrom(&copy), 0u);
    EXPECT_EQ(copy.ChildCount(), 2u);
    EXPECT_EQ(copy.CopyFrom(nullptr), 22u);
    EXPECT_EQ(copy.ChildCount(), 2u);
    EXPECT_EQ(copy.CopyFrom(copy.FirstChild()), 0u);  // from a part of itself
    EXPECT_EQ(copy.ChildCount(), 3u);
    EXPECT_EQ(copy.ZoneNumber, 1u);
    ASSERT_NE(copy.Evaluated, nullptr);
    EXPECT_EQ(copy.CopyFrom(copy.Evaluated), 0u);
    EXPECT_EQ(copy.Evaluated, nullptr);
    EXPECT_EQ(copy.Points, 2u);
}

TEST(DataObject, ResetKeepsUndoChainAndResultNode) {
    Node root = experiment(2, 1, 2);
    root->Previous = new cKoData;
    root->Evaluated = new cKoData;
    root->SetShape(2, 2, 1, 5, 6);
    root->Reset();
    EXPECT_EQ(root->ChildCount(), 0u);
    EXPECT_EQ(root->Samples, nullptr);
    EXPECT_EQ(root->Channels, 0u);
    EXPECT_EQ(root->AxisFirst, 1.0);
    EXPECT_EQ(root->lastSerial, 0u);
    EXPECT_NE(root->Previous, nullptr);
    EXPECT_NE(root->Evaluated, nullptr);
    EXPECT_EQ(addChild(*root)->serial, 1);
}

TEST(DataObject, ChildrenThatAreNotOwnedSurvive) {
    cKoData guest;
    {
        cKoData host;
        guest.flags |= cKoListItem::kNotOwned | cKoListItem::kPinned;
        host.AppendChild(&guest);
    }
    EXPECT_EQ(guest.owner, nullptr);
}

TEST(DataObject, LongChainsAndDeepTreesDoNotNest) {
    {
        auto newest = std::make_unique<cKoData>();
        for (int i = 0; i < 200000; ++i) {
            auto next = std::make_unique<cKoData>();
            next->Previous = newest.release();
            newest = std::move(next);
        }
        auto root = std::make_unique<cKoData>();
        cKoData* node = root.get();
        for (int i = 0; i < 200000; ++i) {
            cKoData* child = addChild(*node);
            if (i % 3 == 0) child->Evaluated = new cKoData;
            node = child;
        }
        EXPECT_EQ(root->Height(), 200000u);
        cKoData copy;
        EXPECT_EQ(copy.CopyFrom(root.get()), 0u);
        EXPECT_EQ(copy.Height(), 200000u);
        copy.SetFlags(1, true);
        copy.Reset();
    }
    auto root = std::make_unique<cKoData>();
    cKoData* node = root.get();
    for (int i = 0; i < 300000; ++i) {
        node->Evaluated = new cKoData;
        node = node->Evaluated;
    }
}

TEST(DataObject, ComponentsGoInFrontOfTheDistribution) {
    cKoData zone;
    const double rates[] = {1, 2}, weights[] = {10, 20};
    const double grid[] = {100, 200, 300}, density[] = {0.1, 0.2, 0.3};
    EXPECT_EQ(zone.MergeEvaluatedBack(nullptr, weights, 2), 22u);
    EXPECT_EQ(zone.MergeEvaluatedFront(rates, nullptr, 2), 22u);
    EXPECT_EQ(zone.MergeEvaluatedFront(rates, weights, 0), 22u);
    EXPECT_EQ(zone.Evaluated, nullptr);
    EXPECT_EQ(zone.MergeEvaluatedBack(rates, weights, 2), 0u);
    ASSERT_NE(zone.Evaluated, nullptr);
    EXPECT_EQ(zone.Evaluated->Results[0], 2.0);
    zone.Results[0] = 2.0;
    EXPECT_EQ(zone.MergeEvaluatedFront(grid, density, 3), 0u);  // keeps the two components
    ASSERT_EQ(zone.Evaluated->Points, 5u);
    EXPECT_EQ(zone.Evaluated->Channels, 2u);
    EXPECT_EQ(zone.Evaluated->Channel(0)[1], 2.0);
    EXPECT_EQ(zone.Evaluated->Channel(0)[4], 300.0);
    EXPECT_EQ(zone.Evaluated->Channel(1)[2], 0.1);
    EXPECT_EQ(zone.Evaluated->AxisFirst, 1.0);
    EXPECT_EQ(zone.Evaluated->AxisLast, 300.0);
    EXPECT_EQ(zone.MergeEvaluatedBack(grid, density, 1), 0u);  // keeps the distribution
    ASSERT_EQ(zone.Evaluated->Points, 4u);
    EXPECT_EQ(zone.Evaluated->Channel(0)[0], 100.0);
    EXPECT_EQ(zone.Evaluated->Channel(0)[1], 100.0);
    EXPECT_EQ(zone.Evaluated->Results[0], 1.0);
    // Counts that no longer fit are cut, and a curve may be merged into itself.
    zone.Results[0] = 1e300;
    EXPECT_EQ(zone.MergeEvaluatedFront(zone.Evaluated->Channel(0), zone.Evaluated->Channel(1), 4),
              0u);
    EXPECT_EQ(zone.Evaluated->Points, 8u);
    zone.Results[0] = -3.0;
    EXPECT_EQ(zone.MergeEvaluatedFront(rates, weights, 2), 0u);
    EXPECT_EQ(zone.Evaluated->Points, 2u);
}

TEST(DataObject, HostsReadTheLayout) {
    Node root = experiment(2, 2, 3);
    root->FirstChild()->ExperimentName = text("NP/S");
    const double list[] = {0.1, 0.2};
    root->FirstChild()->SetBlockAxis(list, 2);
    const auto* layout = reinterpret_cast<const KoDataLayout*>(root.get());
    EXPECT_EQ(layout->ChildCount, 2u);
    const auto* zone = reinterpret_cast<const KoDataLayout*>(layout->FirstChild);
    EXPECT_EQ(zone->ZoneNumber, 1u);
    EXPECT_STREQ(zone->ExperimentName, "NP/S");
    EXPECT_EQ(zone->NextSibling, root->LastChild());
    EXPECT_EQ(zone->ParameterLineCount, 1u);
    EXPECT_STREQ(zone->ParameterText, "\rNBLK=2=\r");
    EXPECT_EQ(zone->BlockAxisCount, 2u);
    EXPECT_EQ(zone->BlockAxis[1], 0.2);
    const auto* block = reinterpret_cast<const KoDataLayout*>(zone->FirstChild);
    EXPECT_EQ(block->Channels, 3u);
    EXPECT_EQ(block->Points, 3u);
    EXPECT_EQ(block->Samples[4], 4.0);
}

TEST(DataObject, BlockAxisList) {
    cKoData node;
    const double list[] = {1, 2};
    EXPECT_EQ(node.SetBlockAxis(list, 2), 0u);
    EXPECT_EQ(node.BlockAxisCount, 2u);
    EXPECT_EQ(node.SetBlockAxis(nullptr, 2), 0u);
    EXPECT_EQ(node.BlockAxisCount, 0u);
    EXPECT_EQ(node.BlockAxis, nullptr);
    EXPECT_EQ(node.SetBlockAxis(list, UINT64_MAX), 0x80001u);
}

TEST(DataObject, SourceNames) {
    using nuv64::DataSourceNameFromId;
    EXPECT_STREQ(DataSourceNameFromId(1), "TEXT");
    EXPECT_STREQ(DataSourceNameFromId(NUV64_SOURCE_STELAR), "STELAR");
    EXPECT_STREQ(DataSourceNameFromId(6), "RS");
    EXPECT_STREQ(DataSourceNameFromId(9), "VARIAN");
    EXPECT_STREQ(DataSourceNameFromId(12), "SIMULATION");
    EXPECT_STREQ(DataSourceNameFromId(16), "TEXT");
    EXPECT_EQ(DataSourceNameFromId(0), nullptr);
    EXPECT_EQ(DataSourceNameFromId(13), nullptr);
    EXPECT_EQ(DataSourceNameFromId(17), nullptr);
    EXPECT_EQ(DataSourceNameFromId(UINT64_MAX), nullptr);
}

}  // namespace
