#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "evaluation/experiment.h"
#include "evaluation/fit_monitor.h"
#include "evaluation/procedures.h"
#include "fits/minimiser.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

constexpr std::uint64_t kFit = 6;

// A one-zone experiment under a host, so that the zone stands at depth 1.
class Fit : public ::testing::Test {
  protected:
    void hold(std::unique_ptr<cKoData> zone) {
        delete host.block.Data;
        host.block.Data = new cKoData;
        host.block.Data->AppendChild(makeDecayZone({1.0}, {1.0}, 0.0).release());
        host.block.Data->AppendChild(zone.release());
    }
    cKoData& zone() { return *host.block.Data->ChildAt(1); }

    Host host;
};

std::string formatted(const char* format, double a) {
    char text[64];
    std::snprintf(text, sizeof text, format, a);
    return text;
}

TEST_F(Fit, RecoversAKnownDecay) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    HostStep step(kFit, 3, "0, -1, 1");
    EXPECT_EQ(runFit(zone(), step, nullptr), 0u);
    EXPECT_EQ(zone().Results[0], 1.0);
    EXPECT_NEAR(zone().Results[1], 0.5, 0.01);
    EXPECT_NEAR(zone().Results[2], 3.0, 0.05);
    EXPECT_TRUE(std::isnan(zone().Results[3]));
    EXPECT_TRUE(step.Flags & EvpDataChanged);
    ASSERT_EQ(zone().Channels, 4u);
    EXPECT_EQ(zone().ChannelKinds[3], cKoData::kFitKind);
    for (std::uint64_t k = 0; k < zone().Points; ++k) {
        EXPECT_NEAR(zone().Channel(3)[k], zone().Channel(1)[k], 0.02);
    }
    ASSERT_NE(zone().Evaluated, nullptr);
    EXPECT_EQ(zone().Evaluated->Points, 1u);
    EXPECT_EQ(zone().Evaluated->Channel(0)[0], zone().Results[2]);
    EXPECT_NEAR(zone().Evaluated->Channel(1)[0], 2.0, 0.05);
}

TEST_F(Fit, ReportOfAPresetFit) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    HostStep step(kFit, 3, "0, -1, 1");
    ASSERT_EQ(runFit(zone(), step, nullptr), 0u);
    const double rate = zone().Results[2];
    const double weight = zone().Evaluated->Channel(1)[0];
    double sum = 0.0;
    for (std::uint64_t k = 0; k < zone().Points; ++k) {
        const double d = zone().Channel(3)[k] - zone().Channel(1)[k];
        sum += d * d;
    }
    const std::string start =
        " Mode: Multiexponential\n Components Preset: 1\n Components Found: 1\n"
        " Weights[%],  Rates[1/s], T[s]:\n" +
        formatted(" %9.3g,", 100.0 / weight * weight) + formatted(" %9.5g,", rate) +
        formatted(" %9.5g\n", 1.0 / rate) +
        formatted(" Weights scale factor: %10.4g\n", 100.0 / weight) +
        formatted(" Offset estimate: %10.4g\n", zone().Results[1]) + " RMS of residues: ";
    const std::string text = step.ReportText;
    ASSERT_EQ(text.substr(0, start.size()), start);
    EXPECT_NEAR(std::stod(text.substr(start.size())),
                std::sqrt(sum / static_cast<double>(zone().Points)), 1e-4);
    EXPECT_EQ(text.size(), start.size() + 11);
}

TEST_F(Fit, AutomaticFitFindsTwoComponentsSortedByRate) {
    hold(makeDecayZone({1.0, 2.0}, {20.0, 1.0}, 0.1, 128, 5.0));
    HostStep step(kFit, 3);
    ASSERT_EQ(runFit(zone(), step, nullptr), 0u);
    const std::string start = " Mode: Multiexponential\n Components Found: ";
    EXPECT_EQ(std::string(step.ReportText).substr(0, start.size()), start);
    ASSERT_GE(zone().Results[0], 2.0);
    const auto found = static_cast<std::uint64_t>(zone().Results[0]);
    ASSERT_EQ(zone().Evaluated->Points, found);
    for (std::uint64_t k = 1; k < found; ++k) {
        EXPECT_LE(zone().Results[1 + k], zone().Results[2 + k]);
    }
    EXPECT_EQ(zone().Evaluated->Results[0], zone().Results[0]);
}

TEST_F(Fit, TheCurveIsNotANumberOutsideTheWindow) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    HostStep step(kFit, 3, "4, 20, 1");
    ASSERT_EQ(runFit(zone(), step, nullptr), 0u);
    for (std::uint64_t k = 0; k < zone().Points; ++k) {
        EXPECT_EQ(std::isnan(zone().Channel(3)[k]), k < 4 || k > 20) << k;
    }
    ASSERT_EQ(runFit(zone(), step, nullptr), 0u);
    EXPECT_EQ(zone().Channels, 4u);  // a second fit replaces the first curve
}

TEST_F(Fit, ComponentsReplaceTheFrontOfTheResultNode) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    HostStep one(kFit, 3, "0, -1, 1");
    ASSERT_EQ(runFit(zone(), one, nullptr), 0u);
    const double grid[] = {10.0, 20.0, 30.0};
    const double weights[] = {0.1, 0.2, 0.3};
    ASSERT_EQ(zone().MergeEvaluatedFront(grid, weights, 3), 0u);
    HostStep two(kFit, 3, "0, -1, 2");
    ASSERT_EQ(runFit(zone(), two, nullptr), 0u);
    const cKoData& result = *zone().Evaluated;
    ASSERT_EQ(result.Points, 5u);
    EXPECT_EQ(result.Channel(0)[0], zone().Results[2]);
    EXPECT_EQ(result.Channel(0)[1], zone().Results[3]);
    EXPECT_EQ(result.Channel(0)[2], 10.0);
    EXPECT_EQ(result.Channel(1)[4], 0.3);
}

TEST_F(Fit, OnlyZonesKeepComponents) {
    const auto block = makeDecayZone({2.0}, {3.0}, 0.5);
    HostStep step(kFit, 3, "0, -1, 1");
    ASSERT_EQ(runFit(*block, step, nullptr), 0u);
    EXPECT_EQ(block->Evaluated, nullptr);
    EXPECT_EQ(block->Results[0], 1.0);
}

TEST_F(Fit, SmallWindowsAndMissingData) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    HostStep three(kFit, 3, "1, 3, 1");
    EXPECT_EQ(runFit(zone(), three, nullptr), 71u);
    HostStep four(kFit, 3, "1, 4, 1");
    EXPECT_EQ(runFit(zone(), four, nullptr), 0u);
    cKoData empty;
    EXPECT_EQ(runFit(empty, four, nullptr), 0u);
    EXPECT_EQ(runFit(*makeBlock(8, 0.0, 1), four, nullptr), 14u);
}

TEST_F(Fit, Modes) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    for (const std::uint64_t mode : {1, 2, 4, 5, 6, 7, 8, 9, 10, 11}) {
        HostStep step(kFit, mode);
        EXPECT_EQ(runFit(zone(), step, nullptr), 9u) << mode;
    }
    for (const std::uint64_t mode : {12ull, 99ull, ~0ull}) {
        HostStep step(kFit, mode);
        EXPECT_EQ(runFit(zone(), step, nullptr), 69u) << mode;
    }
    HostStep off(kFit, 0);
    EXPECT_EQ(runFit(zone(), off, nullptr), 0u);
    EXPECT_EQ(zone().Channels, 3u);
}

TEST_F(Fit, MoreComponentsThanMemory) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    for (const char* parameters : {"0,-1,1E19", "0,-1,2E18", "0,-1,300000"}) {
        HostStep step(kFit, 3, parameters);
        EXPECT_EQ(BlockPass(&zone(), &step, nullptr), 0x80001u) << parameters;
        EXPECT_EQ(zone().Channels, 3u);
    }
}

TEST_F(Fit, CurvesWithoutADecay) {
    auto flat = makeDecayZone({0.0}, {1.0}, 3.0);
    hold(std::move(flat));
    HostStep step(kFit, 3, "0, -1, 1");
    EXPECT_EQ(runFit(zone(), step, nullptr), 0u);
    EXPECT_NEAR(zone().Results[1], 3.0, 0.05);
}

TEST_F(Fit, EventsOfAFit) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    host.block.Input = 4711;
    host.block.Output = 0xAB01;  // a stop byte left over from before must not count
    HostStep step(kFit, 3, "0, -1, 1");
    ASSERT_EQ(runFit(zone(), step, &host.block), 0u);
    EXPECT_EQ(host.block.Input, 4711u);
    EXPECT_EQ(host.block.Output, 0xAB00u);
    const auto numbers = host.numbers();
    ASSERT_GE(numbers.size(), 3u);
    EXPECT_EQ(numbers.front(), 60u);
    EXPECT_EQ(numbers.back(), 64u);
    EXPECT_EQ(host.count(60), 1u);
    EXPECT_EQ(host.count(64), 1u);
    EXPECT_EQ(host.count(63), numbers.size() - 2);
    EXPECT_EQ(host.events.front().input & 0xFF, 1u);
    EXPECT_EQ(host.events.front().input | 0xFF, inputWord(&zone()) | 0xFF);
    unsigned long long calls = 0;
    unsigned long long limit = 0;
    double target = 0.0;
    double deviations = 0.0;
    ASSERT_EQ(std::sscanf(host.events[numbers.size() - 2].text.c_str(),
                          "n calls: %llu/%llu\ntarget function: %lg\nRMS deviations: %lg\nwait "
                          "please...",
                          &calls, &limit, &target, &deviations),
              4);
    EXPECT_GT(calls, 0u);
    EXPECT_EQ(limit, 3u * (3 * (35 * 3 + 30) + 25));
    const double decay = zone().Channel(1)[0] - zone().Channel(1)[zone().Points - 1];
    EXPECT_NEAR(deviations, decay * std::sqrt(target / 32.0), 1e-3 * deviations + 1e-12);
    const std::string last = host.events.back().text;
    EXPECT_TRUE(last.starts_with("n calls: "));
    EXPECT_TRUE(last.ends_with("\nwait please...finished"));
    EXPECT_NE(last.find("\ntarget function: "), std::string::npos);
}

TEST_F(Fit, AHostStopsAFitAndItCountsAsSuccess) {
    hold(makeDecayZone({1.0, 2.0}, {20.0, 1.0}, 0.1, 128, 5.0));
    HostStep whole(kFit, 3);
    ASSERT_EQ(runFit(zone(), whole, &host.block), 0u);
    const std::uint64_t all = host.count(63);
    host.events.clear();
    host.stopAfter = 2;
    HostStep stopped(kFit, 3);
    EXPECT_EQ(runFit(zone(), stopped, &host.block), 0u);
    EXPECT_LT(host.count(63), all);
    EXPECT_LE(host.count(63), 4u);  // later searches of the same step end at once
    EXPECT_GE(zone().Results[0], 1.0);
}

TEST_F(Fit, AMutedHostIsNotAsked) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    host.block.Flags = CallbackMuted;
    host.block.Output = 1;
    HostStep step(kFit, 3, "0, -1, 1");
    EXPECT_EQ(runFit(zone(), step, &host.block), 0u);
    EXPECT_TRUE(host.events.empty());
    EXPECT_EQ(host.block.Output, 1u);
    EXPECT_NEAR(zone().Results[2], 3.0, 0.05);
}

std::uint64_t hostCalls = 0;
std::uint32_t countCalls(MultiParamFit*, std::uint32_t) {
    ++hostCalls;
    return 0;
}

TEST_F(Fit, ACallbackOfTheStepTakesTheMonitorsPlace) {
    hold(makeDecayZone({2.0}, {3.0}, 0.5));
    HostStep step(kFit, 3, "0, -1, 1");
    step.Callback1 = reinterpret_cast<std::uintptr_t>(&countCalls);
    hostCalls = 0;
    EXPECT_EQ(runFit(zone(), step, &host.block), 0u);
    EXPECT_GT(hostCalls, 10u);
    EXPECT_TRUE(host.events.empty());
}

TEST(FitMonitor, IntermediateCurveOfARateGrid) {
    Host host;
    host.block.Data = new cKoData;
    host.block.Data->AppendChild(new cKoData);
    host.block.Data->AppendChild(new cKoData);
    cKoData& zone = *host.block.Data->ChildAt(1);
    const double rates[] = {1.0, 10.0};
    double logWeights[] = {0.0, std::log(2.0), 5.0};
    double* parameters[] = {&logWeights[0], &logWeights[1], &logWeights[2]};
    FitMonitor monitor(&host.block, zone);
    monitor.setScale(3.0, 4);
    monitor.setRateGrid(rates, 2);
    FitContext context;
    context.monitor = &monitor;
    MultiParamFit fit{};
    fit.userData = &context;
    fit.parameters = parameters;
    fit.parameterCount = 3;
    fit.calls = 5;
    fit.maxCalls = 100;
    fit.bestScore = 16.0;
    const MultiParamCallback callback = monitor.callback();
    EXPECT_EQ(callback(&fit, NUV64_FIT_BEGIN), 0u);
    for (int i = 0; i < 11; ++i) EXPECT_EQ(callback(&fit, NUV64_FIT_BEST), 0u);
    EXPECT_EQ(callback(&fit, NUV64_FIT_EVALUATED), 0u);
    EXPECT_EQ(callback(&fit, NUV64_FIT_END), 0u);
    EXPECT_EQ(callback(&fit, 7), 0u);
    std::vector<std::uint32_t> expected{60, 53, 63};
    for (int i = 0; i < 9; ++i) expected.push_back(63);
    expected.insert(expected.end(), {53, 63, 64});  // every tenth call shows the curve
    EXPECT_EQ(host.numbers(), expected);
    EXPECT_EQ(host.events[1].procedure, 7u);
    EXPECT_EQ(host.events[1].zone, 1u);
    EXPECT_EQ(host.events[2].text,
              "n calls: 5/100\ntarget function: 16\nRMS deviations: 6\nwait please...");
    EXPECT_EQ(host.events.back().text, "n calls: 5\ntarget function: 16\nwait please...finished");
    ASSERT_NE(zone.Evaluated, nullptr);
    EXPECT_EQ(channelOf(*zone.Evaluated, 0), (std::vector<double>{1.0, 10.0}));
    EXPECT_DOUBLE_EQ(zone.Evaluated->Channel(1)[0], 3.0);
    EXPECT_DOUBLE_EQ(zone.Evaluated->Channel(1)[1], 6.0);
    host.block.Output |= 0x80;
    EXPECT_EQ(callback(&fit, NUV64_FIT_EVALUATED), 73u);
    EXPECT_EQ(callback(&fit, NUV64_FIT_BEST), 73u);
    fit.userData = nullptr;
    EXPECT_EQ(callback(&fit, NUV64_FIT_BEST), 0u);
}

TEST(FitMonitor, NobodyListens) {
    cKoData node;
    EXPECT_EQ(FitMonitor(nullptr, node).callback(), nullptr);
    NuvCommandBlock block{};
    EXPECT_EQ(FitMonitor(&block, node).callback(), nullptr);
}

}  // namespace
