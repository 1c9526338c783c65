// The measured files, where they are there: none of them is part of the project.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "data/data_object.h"
#include "nuv64/data/data_object.h"

namespace {

const std::filesystem::path kFolder = std::filesystem::path(NUV64_MEASURED_DATA) / "stelar";

#define REQUIRE_MEASURED_FILES() \
    if (!std::filesystem::exists(kFolder)) GTEST_SKIP() << "no measured files in " << kFolder

void load(const char* name, cKoData& data) {
    const std::string path = std::filesystem::weakly_canonical(kFolder / name).string();
    const std::u16string wide(path.begin(), path.end());
    ASSERT_EQ(LoadKoDataEx(&data, NUV64_SOURCE_STELAR, wide.c_str()), 0u);
}

// sequence and field of each zone of a file, from the independent evaluation
std::vector<std::pair<std::string, double>> reference(const std::string& name) {
    std::vector<std::pair<std::string, double>> zones;
    std::ifstream table(kFolder / "reference_rates.csv");
    std::string line;
    while (std::getline(table, line)) {
        std::istringstream fields(line);
        std::string file, index, run, sequence, field;
        std::getline(fields, file, ',');
        std::getline(fields, index, ',');
        std::getline(fields, run, ',');
        std::getline(fields, sequence, ',');
        std::getline(fields, field, ',');
        if (file == name) zones.emplace_back(sequence, std::stod(field));
    }
    return zones;
}

void expectZones(const cKoData& data, const char* name, std::uint64_t blocks,
                 std::uint64_t points) {
    const auto zones = reference(name);
    ASSERT_EQ(data.ChildCount(), zones.size());
    const cKoData* zone = data.FirstChild();
    for (const auto& [sequence, field] : zones) {
        EXPECT_EQ(sequence.substr(0, sequence.rfind(".ssf")), zone->ExperimentName.get());
        EXPECT_NEAR(zone->Parameters.GetReal("BRLX"), field, 1e-5 * field);
        EXPECT_EQ(zone->ChildCount(), blocks);
        for (const cKoData* block = zone->FirstChild(); block; block = block->Next()) {
            ASSERT_EQ(block->Points, points);
            ASSERT_EQ(block->Channels, 3u);
            for (std::uint64_t i = 0; i < 3 * points; ++i)
                ASSERT_TRUE(std::isfinite(block->Samples[i]));
        }
        zone = zone->Next();
    }
}

TEST(MeasuredStelarFiles, GlycerolHasALogarithmicAxisByFormulas) {
    REQUIRE_MEASURED_FILES();
    cKoData data;
    load("glycerol_d3_300K_classic.sdf", data);
    ASSERT_EQ(data.ChildCount(), 41u);
    expectZones(data, "glycerol_d3_300K_classic.sdf", 16, 512);
    const cKoData& zone = *data.FirstChild();
    EXPECT_EQ(zone.AxisGrid, 2u);
    EXPECT_DOUBLE_EQ(zone.AxisFirst, 0.16);
    EXPECT_EQ(zone.AxisLast, 0.001);
    EXPECT_EQ(zone.ZoneNumber, 1u);
    EXPECT_EQ(zone.BlockAxisCount, 0u);
    const cKoData& block = *zone.FirstChild();
    EXPECT_EQ(block.Channel(0)[0], 1.39e-5);
    EXPECT_NEAR(block.Channel(0)[511], 1.39e-5 + 511 * 0.5e-6, 1e-15);
    EXPECT_DOUBLE_EQ(block.Channel(1)[0], 4005 * 9.952679262);
    EXPECT_DOUBLE_EQ(block.Channel(2)[1], -1009 * 9.952679262);
}

TEST(MeasuredStelarFiles, WaterHasAListAxisAndATimeColumn) {
    REQUIRE_MEASURED_FILES();
    cKoData data;
    load("water_ircpmg_list_grid_classic.sdf", data);
    ASSERT_EQ(data.ChildCount(), 30u);
    expectZones(data, "water_ircpmg_list_grid_classic.sdf", 12, 128);
    for (const cKoData* zone = data.FirstChild(); zone; zone = zone->Next()) {
        const double longest = zone->Parameters.GetReal("T1MX");
        ASSERT_EQ(zone->BlockAxisCount, 12u);
        EXPECT_NEAR(zone->BlockAxis[0], 0.1 * longest, 1e-14);
        EXPECT_NEAR(zone->BlockAxis[11], 4 * longest, 1e-13);
        EXPECT_NEAR(zone->BlockAxis[5] / zone->BlockAxis[4], std::pow(40.0, 1.0 / 11), 1e-12);
    }
    const cKoData& zone = *data.FirstChild();
    EXPECT_EQ(zone.ExperimentType, 1u);
    EXPECT_DOUBLE_EQ(zone.AxisFirst, 1.6);
    EXPECT_DOUBLE_EQ(zone.AxisLast, 0.004);
    EXPECT_DOUBLE_EQ(zone.FirstChild()->Channel(0)[0], 460e-7);
    EXPECT_DOUBLE_EQ(zone.FirstChild()->AxisFirst, 460e-7);
    EXPECT_DOUBLE_EQ(zone.FirstChild()->Channel(2)[1], 305 * 3.971641173);
}

TEST(MeasuredStelarFiles, HeadedRunsAreAllRead) {
    REQUIRE_MEASURED_FILES();
    cKoData data;
    load("three_runs_headed.sdf", data);
    ASSERT_EQ(data.ChildCount(), 70u);
    expectZones(data, "three_runs_headed.sdf", 16, 25);
    for (const cKoData* zone = data.FirstChild(); zone; zone = zone->Next()) {
        const double longest = zone->Parameters.GetReal("T1MAX") * 1e-6;
        const bool rising = zone->AxisFirst < zone->AxisLast;
        EXPECT_EQ(zone->AxisGrid, 2u);
        EXPECT_NEAR(rising ? zone->AxisLast : zone->AxisFirst, 4 * longest, 1e-12);
        EXPECT_NEAR(rising ? zone->AxisFirst : zone->AxisLast, 0.01 * longest, 1e-12);
    }
    const cKoData& block = *data.FirstChild()->FirstChild();
    EXPECT_DOUBLE_EQ(block.Channel(0)[0], 215e-6);
    EXPECT_NEAR(block.Channel(0)[24], 1405.4e-6, 1e-12);
    EXPECT_EQ(block.Channel(1)[0], -441.0);
    EXPECT_EQ(block.Channel(2)[24], -49.0);
}

}  // namespace
