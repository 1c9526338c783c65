// The road on files that instruments wrote, against rates fitted with an independent tool.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "evaluation/csv_export.h"
#include "evaluation/experiment.h"
#include "nuv64/data/data_object.h"
#include "platform/platform.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

struct Reference {
    double rate;
    double error;
};

const std::filesystem::path& folder() {
    static const std::filesystem::path path = std::filesystem::path(NUV64_MEASURED_DATA) / "stelar";
    return path;
}

std::vector<Reference> referencesOf(const std::string& file) {
    std::vector<Reference> rows;
    std::ifstream in(folder() / "reference_rates.csv");
    std::string line;
    while (std::getline(in, line)) {
        std::vector<std::string> cells;
        std::istringstream fields(line);
        for (std::string cell; std::getline(fields, cell, ',');) cells.push_back(cell);
        if (cells.size() < 7 || cells[0] != file) continue;
        rows.push_back(
            {std::strtod(cells[5].c_str(), nullptr), std::strtod(cells[6].c_str(), nullptr)});
    }
    return rows;
}

struct Agreement {
    std::uint64_t zones = 0;
    std::uint64_t good = 0;
};

// Zone by zone: within 5 % or three standard errors, whichever is wider. Prints the others.
Agreement evaluate(const std::string& name, const char* script) {
    Host host;
    host.block.Data = new cKoData;
    const std::filesystem::path file = folder() / name;
    EXPECT_EQ(LoadKoDataEx(host.block.Data, 5, platform::wideFromUtf8(file.string()).c_str()), 0u);
    const std::vector<Reference> references = referencesOf(name);
    EXPECT_EQ(host.block.Data->ChildCount(), references.size());
    EXPECT_EQ(runScriptCommand(&host.block, script), 0u);
    Agreement agreement;
    std::uint64_t index = 0;
    for (const cKoData* zone = host.block.Data->FirstChild(); zone && index < references.size();
         zone = zone->Next(), ++index) {
        const Reference& reference = references[index];
        const double difference = std::fabs(zone->Results[2] - reference.rate);
        const bool good = difference <= std::max(0.05 * reference.rate, 3.0 * reference.error);
        ++agreement.zones;
        agreement.good += good;
        if (!good) {
            std::cout << name << " zone " << index + 1 << ": " << zone->Results[2] << ", reference "
                      << reference.rate << " +- " << reference.error << "\n";
        }
    }
    const std::string reports = host.reports();
    EXPECT_NE(reports.find("#FFCPROFILE: completed\n Components: 1\n"), std::string::npos);
    EXPECT_EQ(host.block.Data->Points, references.size());
    std::cout << name << ": " << agreement.good << " of " << agreement.zones << " rates agree\n";
    return agreement;
}

bool present(const char* name) {
    return std::filesystem::exists(folder() / name);
}

// 512: of the magnitude. The windows are those of the reference rates.
constexpr const char* kClassicScript =
    "#QARRAY,1,512,1,,0,24\n#FIT,3,0,1,,0,-1,1\n#FFCPROFILE,1,0,2,,1\n";
constexpr const char* kHeadedScript =
    "#QARRAY,1,512,1,,1,19\n#FIT,3,0,1,,0,-1,1\n#FFCPROFILE,1,0,2,,1\n";

TEST(MeasuredFiles, GlycerolRates) {
    const char* name = "glycerol_d3_300K_classic.sdf";
    if (!present(name)) GTEST_SKIP() << "no measured files here";
    const Agreement agreement = evaluate(name, kClassicScript);
    EXPECT_EQ(agreement.zones, 41u);
    EXPECT_GE(agreement.good * 100, agreement.zones * 95);
}

TEST(MeasuredFiles, HeadedRates) {
    const char* name = "three_runs_headed.sdf";
    if (!present(name)) GTEST_SKIP() << "no measured files here";
    const Agreement agreement = evaluate(name, kHeadedScript);
    EXPECT_EQ(agreement.zones, 70u);
    EXPECT_GE(agreement.good * 100, agreement.zones * 95);
}

TEST(MeasuredFiles, SpeedOfTheRoad) {
    const std::filesystem::path file = folder() / "glycerol_d3_300K_classic.sdf";
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "no measured files here";
    const auto table = std::filesystem::temp_directory_path() / "nuv64_road.csv";
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        std::filesystem::remove(table);
        const auto start = std::chrono::steady_clock::now();
        cKoData data;
        ASSERT_EQ(LoadKoDataEx(&data, 5, platform::wideFromUtf8(file.string()).c_str()), 0u);
        ASSERT_EQ(RunScript(&data, kClassicScript, nullptr), 0u);
        ASSERT_EQ(ExportNodeCsv(&data, 0, platform::wideFromUtf8(table.string()).c_str()), 0u);
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count());
    }
    std::filesystem::remove(table);
    std::cout << "load, curves, fits, profile, table: " << best << " ms\n";
}

}  // namespace
