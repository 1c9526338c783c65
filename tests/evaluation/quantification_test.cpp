#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "evaluation/experiment.h"
#include "evaluation/procedures.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

constexpr std::uint64_t kQuantify = 4;
constexpr std::uint64_t kQArray = 5;

double kept(const EvpRecord& step) {
    return std::bit_cast<double>(step.Work2);
}

TEST(Quantify, MeanMaximumIntegral) {
    struct Case {
        std::uint64_t mode;
        double real;
        const char* report;
    };
    const Case cases[] = {
        {1, 12.5, " Average in [2, 3]\n Real: 12.5\n Imag: -12.5\n"},
        {2, 13.0, " Maximum in [2, 3]\n Real: 13\n Imag: -12\n"},
        {3, 25.0, " Integral in [2, 3]\n Real: 25\n Imag: -25\n"},
    };
    for (const Case& c : cases) {
        const auto block = makeBlock(6, 10.0);
        HostStep step(kQuantify, c.mode, "2, 3");
        EXPECT_EQ(runQuantify(*block, step, nullptr), 0u);
        EXPECT_EQ(kept(step), c.real);
        EXPECT_STREQ(step.ReportText, c.report);
        EXPECT_FALSE(step.Flags & EvpDataChanged);
    }
}

TEST(Quantify, MagnitudePowerReferenceRealOnly) {
    const auto block = makeBlock(4, 3.0);
    const double root2 = std::sqrt(2.0);
    HostStep magnitude(kQuantify, 1, "1, 1");
    magnitude.Flags = 0x200 | 0x400;  // the magnitude comes first
    EXPECT_EQ(runQuantify(*block, magnitude, nullptr), 0u);
    EXPECT_NEAR(kept(magnitude), 4.0 * root2, 1e-14);
    EXPECT_STREQ(magnitude.ReportText, " Average in [1, 1]\n Magnitude: 5.65685\n Imag: -4\n");
    HostStep power(kQuantify, 1, "1, 1");
    power.Flags = 0x400 | 0x100;
    EXPECT_EQ(runQuantify(*block, power, nullptr), 0u);
    EXPECT_STREQ(power.ReportText, " Average in [1, 1]\n Power: 32\n");
    HostStep reference(kQuantify, 3, "1, 1");
    reference.Flags = 0x800;
    EXPECT_EQ(runQuantify(*block, reference, nullptr), 0u);
    EXPECT_STREQ(reference.ReportText, " Integral in [1, 1]\n Real: 4\n Imag: 18\n");
    EXPECT_EQ(channelOf(*block, 1), channelOf(*makeBlock(4, 3.0), 1));
}

TEST(Quantify, WriteBack) {
    const auto block = makeBlock(4, 3.0);
    HostStep step(kQuantify, 1, "1, 2");
    step.Flags = 32;
    EXPECT_EQ(runQuantify(*block, step, nullptr), 0u);
    EXPECT_EQ(channelOf(*block, 1), (std::vector<double>{3, 4.5, 4.5, 6}));
    EXPECT_EQ(channelOf(*block, 2), (std::vector<double>{-3, -4.5, -4.5, -6}));
    EXPECT_TRUE(step.Flags & EvpDataChanged);
    HostStep realOnly(kQuantify, 3, "0, 1");
    realOnly.Flags = 32 | 0x100;
    EXPECT_EQ(runQuantify(*block, realOnly, nullptr), 0u);
    EXPECT_EQ(channelOf(*block, 1), (std::vector<double>{7.5, 7.5, 4.5, 6}));
    EXPECT_EQ(channelOf(*block, 2), (std::vector<double>{-3, -4.5, -4.5, -6}));
}

TEST(Quantify, OnlyTheFirstBlockReports) {
    const auto block = makeBlock(4, 3.0);
    HostStep step(kQuantify, 1);
    EXPECT_EQ(runQuantify(*block, step, nullptr), 0u);
    const std::string first = step.ReportText;
    EXPECT_EQ(runQuantify(*makeBlock(4, 50.0), step, nullptr), 0u);
    EXPECT_EQ(step.ReportText, first);
    EXPECT_EQ(kept(step), 51.5);
}

TEST(Quantify, WithoutAnImaginaryChannel) {
    const auto block = makeBlock(3, -3.0, 2);
    HostStep step(kQuantify, 1);
    EXPECT_EQ(runQuantify(*block, step, nullptr), 0u);
    EXPECT_STREQ(step.ReportText, " Average in [0, 2]\n Real: -2\n Imag: nan\n");
    HostStep magnitude(kQuantify, 3);
    magnitude.Flags = 0x200 | 32;
    EXPECT_EQ(runQuantify(*block, magnitude, nullptr), 0u);
    EXPECT_EQ(kept(magnitude), 6.0);
    EXPECT_EQ(channelOf(*block, 1), (std::vector<double>{6, 6, 6}));
}

TEST(Quantify, ModesAndEmptyNodes) {
    const auto block = makeBlock(4, 0.0);
    const std::uint64_t modes[][2] = {{4, 9}, {5, 9}, {6, 11}, {7, 11}, {UINT64_MAX, 11}, {0, 0}};
    for (const auto& mode : modes) {
        HostStep step(kQuantify, mode[0]);
        EXPECT_EQ(runQuantify(*block, step, nullptr), mode[1]);
    }
    cKoData empty;
    HostStep step(kQuantify, 1);
    EXPECT_EQ(runQuantify(empty, step, nullptr), 0u);
    EXPECT_EQ(runQuantify(*makeBlock(4, 0.0, 1), step, nullptr), 14u);
}

TEST(QArray, CurveOfAZone) {
    const auto zone = makeZone(4, 6, "BINI=1\rBEND=7\rBGRD=LIN");
    HostStep step(kQArray, 1, "1, 3");
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(zone->Points, 4u);
    EXPECT_EQ(zone->Channels, 3u);
    EXPECT_EQ(zone->AxisGrid, 1u);
    EXPECT_EQ(channelOf(*zone, 0), (std::vector<double>{1, 3, 5, 7}));
    EXPECT_EQ(channelOf(*zone, 1), (std::vector<double>{2, 102, 202, 302}));
    EXPECT_EQ(channelOf(*zone, 2), (std::vector<double>{-2, -102, -202, -302}));
    EXPECT_TRUE(step.Flags & EvpDataChanged);
    EXPECT_STREQ(step.ReportText, " Channel: Real\n Average in [1, 3]\n");
}

TEST(QArray, MethodsAndParts) {
    struct Case {
        std::uint64_t mode;
        std::uint32_t flags;
        double real;
        double imaginary;
        const char* report;
    };
    const double nan = std::nan("");
    const Case cases[] = {
        {2, 0x100, 102, nan, " Channel: Real\n Maximum in [1, 2]\n"},
        {3, 0x800, 203, 406, " Channel: Real\n Integral in [1, 2]\n"},
        {3, 0x400, 2 * (101. * 101 + 102 * 102), -203, " Channel: Power\n Integral in [1, 2]\n"},
        {2, 0x200, std::sqrt(2 * 102. * 102), -101, " Channel: Magnitude\n Maximum in [1, 2]\n"},
    };
    for (const Case& c : cases) {
        const auto zone = makeZone(2, 4);
        HostStep step(kQArray, c.mode, "1, 2");
        step.Flags = c.flags;
        EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
        EXPECT_DOUBLE_EQ(zone->Channel(1)[1], c.real);
        if (std::isnan(c.imaginary)) {
            EXPECT_TRUE(std::isnan(zone->Channel(2)[1]));
        } else {
            EXPECT_DOUBLE_EQ(zone->Channel(2)[1], c.imaginary);
        }
        EXPECT_STREQ(step.ReportText, c.report);
    }
}

TEST(QArray, ADescendingAxisIsTurned) {
    const auto zone = makeZone(3, 2, "BINI=100\rBEND=1\rBGRD=log");
    HostStep step(kQArray, 2);
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(zone->AxisGrid, 2u);
    EXPECT_EQ(zone->AxisFirst, 1.0);
    EXPECT_NEAR(zone->Channel(0)[0], 1.0, 1e-12);
    EXPECT_NEAR(zone->Channel(0)[1], 10.0, 1e-12);
    EXPECT_NEAR(zone->Channel(0)[2], 100.0, 1e-12);
    EXPECT_EQ(channelOf(*zone, 1), (std::vector<double>{201, 101, 1}));
}

TEST(QArray, TheLastBlockOfTheWalkGivesTheReportedWindow) {
    const auto zone = makeZone(2, 9, "BINI=1\rBEND=2");
    zone->ChildAt(1)->SetShape(4, 3, 1, 0, 1);
    HostStep rising(kQArray, 1);
    EXPECT_EQ(runQArray(*zone, rising, nullptr), 0u);
    EXPECT_STREQ(rising.ReportText, " Channel: Real\n Average in [0, 3]\n");
    const auto turned = makeZone(2, 9, "BINI=2\rBEND=1");
    turned->ChildAt(1)->SetShape(4, 3, 1, 0, 1);
    HostStep falling(kQArray, 1);
    EXPECT_EQ(runQArray(*turned, falling, nullptr), 0u);
    EXPECT_STREQ(falling.ReportText, " Channel: Real\n Average in [0, 8]\n");
}

TEST(QArray, GridWords) {
    const struct {
        const char* word;
        std::uint64_t grid;
    } cases[] = {{"LIN", 1}, {"lin", 1}, {"LOG", 2}, {"log", 2}, {"LIST", 0}, {"LOGX", 0}, {"", 0}};
    for (const auto& c : cases) {
        const auto zone = makeZone(2, 4, (std::string("BINI=1\rBEND=2\rBGRD=") + c.word).c_str());
        HostStep step(kQArray, 1);
        EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
        EXPECT_EQ(zone->AxisGrid, c.grid) << c.word;
    }
}

TEST(QArray, AnOwnListOfBlockAxisValuesWins) {
    const auto zone = makeZone(3, 4, "BINI=9\rBEND=1");
    const double values[] = {0.5, 4.0, 5.0};
    ASSERT_EQ(zone->SetBlockAxis(values, 3), 0u);
    HostStep step(kQArray, 2);
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(channelOf(*zone, 0), (std::vector<double>{0.5, 4, 5}));
    EXPECT_EQ(channelOf(*zone, 1), (std::vector<double>{3, 103, 203}));
    const double falling[] = {5.0, 4.0, 0.5};
    ASSERT_EQ(zone->SetBlockAxis(falling, 3), 0u);
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(channelOf(*zone, 0), (std::vector<double>{0.5, 4, 5}));
    EXPECT_EQ(channelOf(*zone, 1), (std::vector<double>{203, 103, 3}));
    ASSERT_EQ(zone->SetBlockAxis(falling, 2), 0u);  // a list of another length doesn't count
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(channelOf(*zone, 0), (std::vector<double>{1, 5, 9}));
}

TEST(QArray, ParametersOfTheExperimentServeZonesWithoutOwn) {
    cKoData root;
    root.Parameters.AddText("BINI=2\rBEND=4\rBGRD=LIN");
    auto zone = makeZone(3, 4, "");
    cKoData* node = zone.get();
    root.AppendChild(zone.release());
    HostStep step(kQArray, 1);
    EXPECT_EQ(runQArray(*node, step, nullptr), 0u);
    EXPECT_EQ(channelOf(*node, 0), (std::vector<double>{2, 3, 4}));
    const auto bare = makeZone(2, 4, "");
    HostStep none(kQArray, 1);
    EXPECT_EQ(runQArray(*bare, none, nullptr), 0u);
    EXPECT_TRUE(std::isnan(bare->Channel(0)[0]));
    EXPECT_EQ(channelOf(*bare, 1), (std::vector<double>{1.5, 101.5}));
}

TEST(QArray, TheZonesMatrixIsKeptWhereItFits) {
    const auto zone = makeZone(3, 4);
    zone->SetShape(3, 4, 1, 0, 0);
    zone->ChannelKinds[3] = 2;
    zone->Channel(3)[1] = 42.0;
    HostStep step(kQArray, 1);
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(zone->Channels, 4u);
    EXPECT_EQ(zone->Channel(3)[1], 42.0);
    zone->SetShape(3, 1, 1, 0, 0);
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(zone->Channels, 3u);
    zone->SetShape(7, 5, 1, 0, 0);  // points that are not the blocks
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(zone->Channels, 3u);
    EXPECT_EQ(zone->Points, 3u);
    EXPECT_EQ(channelOf(*zone, 1), (std::vector<double>{1.5, 101.5, 201.5}));
}

TEST(QArray, BlocksThatLackSomething) {
    const auto zone = makeZone(4, 5);
    zone->ChildAt(1)->SetShape(0, 0, 0, 0, 0);
    zone->ChildAt(2)->SetShape(5, 1, 1, 0, 0);
    zone->ChildAt(3)->SetShape(5, 2, 1, 0, 0);
    HostStep step(kQArray, 1, "1, 3");
    step.Flags = 0x200;
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_TRUE(std::isnan(zone->Channel(1)[1]));
    EXPECT_TRUE(std::isnan(zone->Channel(1)[2]));
    EXPECT_EQ(zone->Channel(1)[3], 0.0);
    EXPECT_TRUE(std::isnan(zone->Channel(2)[3]));
    EXPECT_EQ(zone->Channel(2)[0], -2.0);
}

TEST(QArray, ACurveFromABlock) {
    const auto zone = makeZone(3, 4);
    HostStep step(kQArray, 7, "2");
    EXPECT_EQ(runQArray(*zone, step, nullptr), 0u);
    EXPECT_EQ(zone->Points, 4u);
    EXPECT_EQ(zone->AxisGrid, 1u);
    EXPECT_EQ(zone->AxisLast, 3.0);
    EXPECT_EQ(channelOf(*zone, 1), (std::vector<double>{200, 201, 202, 203}));
    EXPECT_TRUE(step.Flags & EvpDataChanged);
    HostStep absent(kQArray, 7, "3");
    EXPECT_EQ(runQArray(*zone, absent, nullptr), 25u);
    HostStep unset(kQArray, 7);
    EXPECT_EQ(runQArray(*zone, unset, nullptr), 25u);
    zone->ChildAt(1)->SetShape(0, 0, 0, 0, 0);
    HostStep empty(kQArray, 7, "1");
    EXPECT_EQ(runQArray(*zone, empty, nullptr), 0u);
    EXPECT_EQ(zone->Points, 0u);
}

TEST(QArray, ModesAndZonesThatAreTooSmall) {
    const auto zone = makeZone(3, 4);
    const std::uint64_t modes[][2] = {{4, 9}, {5, 9}, {6, 9}, {8, 11}, {UINT64_MAX, 11}, {0, 0}};
    for (const auto& mode : modes) {
        HostStep step(kQArray, mode[0]);
        EXPECT_EQ(runQArray(*zone, step, nullptr), mode[1]);
        EXPECT_FALSE(step.Flags & EvpDataChanged);
    }
    EXPECT_EQ(zone->Samples, nullptr);
    HostStep step(kQArray, 1);
    EXPECT_EQ(runQArray(*makeZone(1, 4), step, nullptr), 15u);
    EXPECT_EQ(runQArray(*makeZone(0, 4), step, nullptr), 15u);
    EXPECT_EQ(runQArray(*makeZone(2, 0), step, nullptr), 0u);  // an empty window
    EXPECT_EQ(step.ReportText, nullptr);
}

}  // namespace
