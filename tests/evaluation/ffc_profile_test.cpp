#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "evaluation/experiment.h"
#include "evaluation/procedures.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

constexpr std::uint64_t kProfile = 8;

// Four zones at 3, 1, 2 and 9 MHz, whose rates are 3, 1, 2 and 9 per second.
class FfcProfile : public ::testing::Test {
  protected:
    FfcProfile() {
        host.block.Data = new cKoData;
        const char* names[] = {"NP/S", "PP/S", "00_PP-S", "IRCPMG/S"};
        const double fields[] = {3.0, 1.0, 2.0, 9.0};
        for (int k = 0; k < 4; ++k) {
            auto zone = makeDecayZone({1.0}, {fields[k]}, 0.2);
            setText(zone->ExperimentName, names[k]);
            char text[64];
            std::snprintf(text, sizeof text, "BRLX=%g\rTEMP=%g", fields[k], 300.0 - fields[k]);
            zone->Parameters.AddText(text);
            root().AppendChild(zone.release());
        }
    }
    cKoData& root() { return *host.block.Data; }
    std::uint32_t run(std::uint64_t mode, const char* parameters) {
        step = std::make_unique<HostStep>(kProfile, mode, parameters);
        return runFfcProfile(root(), *step, &host.block);
    }
    std::string reportText() const { return step->ReportText ? step->ReportText : ""; }

    Host host;
    std::unique_ptr<HostStep> step;
};

TEST_F(FfcProfile, RatesAgainstTheFieldSorted) {
    ASSERT_EQ(run(1, "1"), 0u);
    ASSERT_EQ(root().Channels, 2u);
    EXPECT_EQ(channelOf(root(), 0), (std::vector<double>{1, 2, 3}));
    for (std::uint64_t k = 0; k < 3; ++k) {
        EXPECT_NEAR(root().Channel(1)[k], static_cast<double>(k + 1), 0.03);
    }
    EXPECT_EQ(root().AxisGrid, 0u);
    EXPECT_EQ(root().AxisFirst, 1.0);
    EXPECT_EQ(root().AxisLast, 3.0);
    EXPECT_EQ(root().ChannelKinds[0], 1u);
    EXPECT_EQ(root().ChannelKinds[1], 1u);
    EXPECT_TRUE(step->Flags & EvpDataChanged);
    EXPECT_EQ(root().ChildAt(3)->Channels, 3u);  // not chosen, not fitted
    EXPECT_EQ(root().ChildAt(0)->Channels, 4u);
}

TEST_F(FfcProfile, EveryRateRowFollowsTheField) {
    ASSERT_EQ(run(1, "2"), 0u);
    ASSERT_EQ(root().Channels, 3u);
    const std::uint64_t zones[] = {1, 2, 0};  // by their field
    for (std::uint64_t k = 0; k < 3; ++k) {
        EXPECT_EQ(root().Channel(1)[k], root().ChildAt(zones[k])->Results[2]);
        EXPECT_EQ(root().Channel(2)[k], root().ChildAt(zones[k])->Results[3]);
    }
}

TEST_F(FfcProfile, Report) {
    ASSERT_EQ(run(1, "1"), 0u);
    char text[256];
    std::snprintf(text, sizeof text,
                  " Components: 1\n # BRLX [MHz]  Rates [1/s]\n"
                  "   1 %10.5g %10g\n   2 %10.5g %10g\n   3 %10.5g %10g\n",
                  3.0, root().ChildAt(0)->Results[2], 1.0, root().ChildAt(1)->Results[2], 2.0,
                  root().ChildAt(2)->Results[2]);
    EXPECT_EQ(reportText(), text);
    EXPECT_EQ(host.count(EvStepReport), 0u);  // the fits inside make no reports of their own
    EXPECT_EQ(host.count(EvStepChangedData), 3u);
}

TEST_F(FfcProfile, RatesAgainstTheTemperature) {
    ASSERT_EQ(run(2, "1, 3, 0"), 0u);
    EXPECT_EQ(root().Samples, nullptr);
    ASSERT_NE(root().Evaluated, nullptr);
    EXPECT_EQ(channelOf(*root().Evaluated, 0), (std::vector<double>{291, 297}));
    EXPECT_NEAR(root().Evaluated->Channel(1)[1], 3.0, 0.1);
    EXPECT_TRUE(
        reportText().starts_with(" Components: 1\n # T [K]  Rates [1/s]\n   4        291 "));
    ASSERT_EQ(run(2, "1, 1"), 0u);  // the result node is used again
    EXPECT_EQ(channelOf(*root().Evaluated, 0), (std::vector<double>{299}));
}

TEST_F(FfcProfile, NumberOfComponentsFromTheFirstZone) {
    ASSERT_EQ(run(1, ""), 0u);
    const auto found = static_cast<std::uint64_t>(root().ChildAt(0)->Results[0]);
    EXPECT_EQ(root().Channels, found + 1);
    EXPECT_EQ(root().ChildAt(1)->Results[0], root().ChildAt(0)->Results[0]);
}

TEST_F(FfcProfile, MoreComponentsThanResultsHold) {
    ASSERT_EQ(run(1, "20, 0"), 0u);
    ASSERT_EQ(root().Channels, 21u);
    EXPECT_FALSE(std::isnan(root().Channel(18)[0]));
    EXPECT_TRUE(std::isnan(root().Channel(19)[0]));
    EXPECT_TRUE(std::isnan(root().Channel(20)[0]));
    const std::string text = reportText();
    const std::string row = text.substr(text.find("\n   1 ") + 1);
    EXPECT_GE(row.size(), 4u + 19 * 11 + 1);  // the field and 18 rates
    EXPECT_EQ(std::count(row.begin(), row.end(), '\n'), 1);
    EXPECT_EQ(row.find("nan"), std::string::npos);
}

TEST_F(FfcProfile, ZeroComponentsDoNothing) {
    EXPECT_EQ(run(1, "0"), 0u);
    EXPECT_EQ(run(7, "0"), 0u);
    EXPECT_EQ(reportText(), "");
    EXPECT_EQ(root().Samples, nullptr);
}

TEST_F(FfcProfile, ChoiceOfZones) {
    EXPECT_EQ(run(1, "1, 77"), 24u);  // nothing left of the list
    EXPECT_EQ(run(1, "1, , 2, 77,"), 0u);
    EXPECT_EQ(channelOf(root(), 0), (std::vector<double>{2}));
    for (const char* name : {"PP1E/S", "NP1E/S", "01_NP1E-S_x", "NP-S", "a_PP/S"}) {
        setText(root().ChildAt(3)->ExperimentName, name);
        EXPECT_EQ(run(1, "1"), 0u) << name;
        EXPECT_EQ(root().Points, 4u) << name;
    }
    for (const char* name : {"np/s", "PP/SX", "XPP/S", "PPS", ""}) {
        setText(root().ChildAt(3)->ExperimentName, name);
        EXPECT_EQ(run(1, "1"), 0u) << name;
        EXPECT_EQ(root().Points, 3u) << name;
    }
}

TEST_F(FfcProfile, NothingToWorkOn) {
    for (std::uint64_t k = 0; k < 4; ++k) root().ChildAt(k)->ExperimentName.reset();
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run(1, "1"), 24u);
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("No zones to build an NMRD profile"),
              std::string::npos);
    cKoData bare;
    EXPECT_EQ(runFfcProfile(bare, *step, nullptr), 15u);
    EXPECT_EQ(run(3, "1"), 69u);
    HostStep off(kProfile, 0);
    EXPECT_EQ(runFfcProfile(root(), off, nullptr), 0u);
}

TEST_F(FfcProfile, AZoneWithoutACurveStops) {
    root().ChildAt(1)->SetShape(0, 0, 0, 0, 0);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run(1, "1"), 14u);
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("Need to build Relax curve in zone 2"),
              std::string::npos);
    EXPECT_EQ(root().Samples, nullptr);
}

TEST_F(FfcProfile, AFailingFitStops) {
    root().ChildAt(1)->SetShape(3, 3, 1, 0.0, 1.0);
    EXPECT_EQ(run(1, "1"), 71u);
}

TEST_F(FfcProfile, ThroughTheScript) {
    EXPECT_EQ(runScriptCommand(&host.block, "#FFCPROFILE,1,0,2,,1"), 0u);
    EXPECT_EQ(root().Points, 3u);
    EXPECT_TRUE(host.reports().starts_with("#FFCPROFILE: completed\n Components: 1\n"));
    EXPECT_EQ(host.numbers().back(), 20u);
    EXPECT_EQ(host.numbers()[host.numbers().size() - 2], 53u);
}

// The whole road on signals with known rates.
TEST(Road, KnownRatesComeBack) {
    Host host;
    host.block.Data = new cKoData;
    const double fields[] = {20.0, 0.01, 1.0};
    const double rates[] = {1.5, 14.0, 6.0};
    const std::uint64_t blocks = 24;
    for (int k = 0; k < 3; ++k) {
        auto zone = std::make_unique<cKoData>();
        char text[96];
        const double end = 4.0 / rates[k];
        std::snprintf(text, sizeof text, "BRLX=%g\rBINI=%.12g\rBEND=%.12g\rBGRD=LOG", fields[k],
                      end, end / 400.0);
        zone->Parameters.AddText(text);
        setText(zone->ExperimentName, "PP/S");
        for (std::uint64_t b = 0; b < blocks; ++b) {
            const double tau = end * std::pow(400.0, -static_cast<double>(b) / (blocks - 1.0));
            auto block = makeBlock(64, 0.0);
            for (std::uint64_t i = 0; i < 64; ++i) {
                const double t = static_cast<double>(i);
                const double amplitude =
                    (1.0 + 9.0 * std::exp(-rates[k] * tau)) * std::exp(-t / 40.0);
                block->Channel(1)[i] = amplitude * std::cos(0.3 * t + 0.7);
                block->Channel(2)[i] = amplitude * std::sin(0.3 * t + 0.7);
            }
            zone->AppendChild(block.release());
        }
        host.block.Data->AppendChild(zone.release());
    }
    ASSERT_EQ(runScriptCommand(&host.block,
                               "#QARRAY,1,512,1,,0,15 // 512: magnitude\n"
                               "#FIT,3,0,1,,0,-1,1\n#FFCPROFILE,1,0,2,,1\n"),
              0u);
    const cKoData& profile = *host.block.Data;
    EXPECT_EQ(channelOf(profile, 0), (std::vector<double>{0.01, 1.0, 20.0}));
    EXPECT_NEAR(profile.Channel(1)[0], 14.0, 0.02 * 14.0);
    EXPECT_NEAR(profile.Channel(1)[1], 6.0, 0.02 * 6.0);
    EXPECT_NEAR(profile.Channel(1)[2], 1.5, 0.02 * 1.5);
    EXPECT_EQ(host.count(EvStepReport), 3u);
}

}  // namespace
