#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#if !defined(_WIN32)
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#endif

#include "data/default_task_script.h"
#include "nuv64/data/data_object.h"
#include "stelar_files.h"
#include "support/temp_folder.h"

namespace {

using stelar_test::classicZone;

const std::string kFirstLine = "STELAR Data File\r\n";

std::uint32_t load(cKoData& data, const std::u16string& path) {
    return LoadKoDataEx(&data, NUV64_SOURCE_STELAR, path.c_str());
}

std::uint32_t save(cKoData& node, const std::u16string& path) {
    return ExportToFileEx(&node, NUV64_SOURCE_STELAR, path.c_str());
}

TEST(LoadKoDataEx, SourcesAndNulls) {
    cKoData data;
    EXPECT_EQ(LoadKoDataEx(nullptr, 5, u"x"), 18u);
    EXPECT_EQ(LoadKoDataEx(nullptr, 6, u"x"), 18u);
    for (const std::uint32_t source : {6u, 7u, 8u, 9u})
        EXPECT_EQ(LoadKoDataEx(&data, source, u"x"), 9u);
    for (const std::uint32_t source : {0u, 1u, 4u, 10u, 12u, 13u, 0xFFFFFFFFu}) {
        EXPECT_EQ(LoadKoDataEx(&data, source, u"x"), 65u);
    }
}

TEST(LoadKoDataEx, NamesTheRootAndAppends) {
    const TempFolder folder;
    const std::u16string first = folder.write("a.sdf", kFirstLine + "\n" + classicZone(1));
    const std::u16string second =
        folder.write("b.sdf", "  STELAR Data File 2\n" + classicZone(2) + classicZone(3));
    cKoData data;
    ASSERT_EQ(load(data, first), 0u);
    EXPECT_EQ(data.ChildCount(), 1u);
    EXPECT_STREQ(data.TaskScript.get(), nuv64::kDefaultTaskScript);
    ASSERT_EQ(load(data, second), 0u);
    EXPECT_EQ(data.ChildCount(), 3u);
    EXPECT_EQ(data.DataSourceId, 5u);
    EXPECT_STREQ(data.DataSourceName, "STELAR");
    EXPECT_EQ(std::u16string(data.FileTitle.get()), u"b.sdf");
    EXPECT_EQ(std::u16string(data.FirstChild()->FileTitle.get()), u"a.sdf");
    EXPECT_EQ(
        std::u16string(data.FilePath.get()).substr(0, std::u16string(data.FileFolder.get()).size()),
        std::u16string(data.FileFolder.get()));
    EXPECT_EQ(data.Height(), 2u);
}

TEST(LoadKoDataEx, Failures) {
    const TempFolder folder;
    cKoData data;
    EXPECT_EQ(load(data, folder.wide("missing.sdf")), 56u);
    EXPECT_EQ(load(data, folder.wide("a?b.sdf")), 59u);
    EXPECT_EQ(load(data, folder.write("empty.sdf", "")), 56u);
    EXPECT_EQ(load(data, folder.write("other.sdf", "Something else\nZONE=1\n")), 56u);
    EXPECT_EQ(load(data, folder.write("only.sdf", "STELAR Data File")), 62u);
    EXPECT_EQ(load(data, folder.write("only2.sdf", kFirstLine + "\r\n\r\n")), 62u);
    EXPECT_EQ(load(data, folder.write("format.sdf", kFirstLine + "HELLO\n")), 27u);
    EXPECT_EQ(load(data, folder.write("huge.sdf", kFirstLine + "ZONE=1\nNBLK=1\nBS=1099511627776\n"
                                                               "DATA=\n1 2\n")),
              0x80001u);
    EXPECT_EQ(data.ChildCount(), 0u);
    EXPECT_EQ(data.TaskScript, nullptr);
    EXPECT_EQ(data.FilePath, nullptr);
    EXPECT_EQ(
        load(data, folder.write("second.sdf", kFirstLine + classicZone(1) + "ZONE=2\nDATA\n")),
        21u);
    EXPECT_EQ(data.ChildCount(), 1u);  // the zone in front of the failing one
    EXPECT_EQ(data.TaskScript, nullptr);
}

TEST(LoadKoDataEx, LoadingFromAFileAndFromMemoryAgree) {
    const TempFolder folder;
    const std::string text = stelar_test::headedHeader() + stelar_test::headedZone(1, "9.0");
    cKoData fromFile, fromMemory;
    ASSERT_EQ(load(fromFile, folder.write("h.sdf", kFirstLine + text)), 0u);
    ASSERT_EQ(stelar_test::load(text, fromMemory), 0u);
    const cKoData& a = *fromFile.FirstChild();
    const cKoData& b = *fromMemory.FirstChild();
    EXPECT_EQ(a.Parameters.View(), b.Parameters.View());
    ASSERT_EQ(a.ChildCount(), b.ChildCount());
    EXPECT_EQ(std::memcmp(a.FirstChild()->Samples.get(), b.FirstChild()->Samples.get(),
                          6 * sizeof(double)),
              0);
}

// The inputs that the fuzz target starts from, all that ever broke the reader among them.
TEST(LoadKoDataEx, FuzzSeedsReachAnEnd) {
    const std::filesystem::path seeds =
        std::filesystem::path(NUV64_TEST_DATA) / ".." / ".." / "fuzz" / "seeds" / "stelar";
    int count = 0;
    for (const auto& seed : std::filesystem::directory_iterator(seeds)) {
        std::ifstream file(seed.path(), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        const std::size_t behindFirstLine = std::min(text.find('\n'), text.size() - 1) + 1;
        cKoData root;
        const std::uint32_t status =
            stelar_test::load(std::string_view(text).substr(behindFirstLine), root);
        EXPECT_LT(status & 0x7FFFFu, 257u) << seed.path();
        ++count;
    }
    EXPECT_GT(count, 15);
}

TEST(StelarReader, StateAndReset) {
    const TempFolder folder;
    cKoStelarData reader;
    EXPECT_EQ(reader.Open(folder.write("a.sdf", kFirstLine + classicZone(4)).c_str()), 0u);
    EXPECT_EQ(reader.state, cKoAsciZones::kLoaded);
    EXPECT_EQ(reader.Count(), 1u);
    EXPECT_NE(reader.folder, nullptr);
    EXPECT_EQ(reader.FirstZone()->zoneNumber, 4u);
    EXPECT_EQ(reader.Open(folder.wide("none.sdf").c_str()), 56u);
    EXPECT_EQ(reader.Count(), 0u);
    EXPECT_EQ(reader.state, 0u);
    EXPECT_EQ(reader.folder, nullptr);
}

TEST(DefaultTaskScript, LinesEndInLf) {
    const std::string script = nuv64::kDefaultTaskScript;
    EXPECT_EQ(std::count(script.begin(), script.end(), '\n'), 35);
    EXPECT_EQ(script.back(), '\n');
    EXPECT_EQ(script.find('\r'), std::string::npos);
    EXPECT_EQ(script.substr(0, script.find('\n')), "// Cuts away points outside the window. ");
    EXPECT_NE(script.find("\n# Phasor,   0, 0x0, 0, -FFC , 0, 100, 2\n\n"), std::string::npos);
    EXPECT_TRUE(script.ends_with("\n# Export,   0, 0x0, *,      , *,  *, Stelar, Test.sdf\n"));
}

cKoData* addBlock(cKoData& zone, std::uint64_t points) {
    auto* block = new cKoData;
    block->SetShape(points, 3, 0, 0.0, 1.0);
    zone.AppendChild(block);
    return block;
}

TEST(ExportToFileEx, WritesTheToldBytes) {
    const TempFolder folder;
    cKoData zone;
    zone.Parameters.AddText(
        "ZONE=3=\rBS=99=points\rVFAC=7=\rXOFF=0=start\rD0=0.1=(RD)\rDATA=old=\rNBLK=5=");
    cKoData* block = addBlock(zone, 2);
    block->Channel(0)[0] = 0.25;
    block->Channel(1)[0] = 2.0;
    block->Channel(2)[1] = -4.0;
    addBlock(zone, 1)->Channel(1)[0] = 1.0;
    ASSERT_EQ(save(zone, folder.wide("w.sdf")), 0u);
    EXPECT_EQ(folder.read("w.sdf"),
              "STELAR Data File\r\n\r\nZONE=3\r\nBS=points=2\r\nXOFF=start=0.250000000000000\r\n"
              "D0=(RD)=0.1\r\nNBLK=5\r\nVFAC=4.00000000000000e-6\r\nDATA=old\r\n"
              "500000\t0\r\n0\t-1000000\r\n250000\t0\r\n");
    EXPECT_EQ(zone.Parameters.View(),
              "\rZONE=3=\rBS=99=points\rVFAC=7=\rXOFF=0=start\rD0=0.1=(RD)\rDATA=old=\rNBLK=5=\r");
}

TEST(ExportToFileEx, ZerosGiveAFactorOfOne) {
    const TempFolder folder;
    cKoData zone;
    zone.Parameters.AddText("ZONE=1=\rBS=2=\rNBLK=1=");
    addBlock(zone, 2);
    ASSERT_EQ(save(zone, folder.wide("z.sdf")), 0u);
    EXPECT_EQ(
        folder.read("z.sdf"),
        "STELAR Data File\r\n\r\nZONE=1\r\nBS=2\r\nNBLK=1\r\nVFAC=1.00000000000000\r\nDATA=\r\n"
        "0\t0\r\n0\t0\r\n");
    EXPECT_EQ(save(zone, folder.wide("z.sdf")), 48u);  // never over an existing file
}

TEST(ExportToFileEx, OddValues) {
    const TempFolder folder;
    cKoData zone;
    zone.Parameters.AddText("ZONE=1=\rBS=4=\rNBLK=1=");
    cKoData* block = addBlock(zone, 4);
    block->Channel(1)[0] = NAN;
    block->Channel(1)[1] = INFINITY;
    block->Channel(1)[2] = 5e-324;
    ASSERT_EQ(save(zone, folder.wide("o.sdf")), 0u);
    // A value that is none takes the rounding's answer for underflow, an infinity its limit.
    const std::string text = folder.read("o.sdf");
    EXPECT_TRUE(text.ends_with("DATA=\r\n-2147483647\t0\r\n2147483647\t0\r\n0\t0\r\n0\t0\r\n"))
        << text;
}

TEST(ExportToFileEx, Failures) {
    const TempFolder folder;
    cKoData root;
    ASSERT_EQ(stelar_test::load(classicZone(1), root), 0u);
    cKoData& zone = *root.FirstChild();
    const std::u16string path = folder.wide("f.sdf");
    EXPECT_EQ(ExportToFileEx(nullptr, 5, path.c_str()), 23u);
    EXPECT_EQ(save(root, path), 28u);
    EXPECT_EQ(save(*zone.FirstChild(), path), 28u);
    EXPECT_EQ(ExportToFileEx(&zone, 8, path.c_str()), 9u);
    EXPECT_EQ(ExportToFileEx(&zone, 9, path.c_str()), 9u);
    EXPECT_EQ(ExportToFileEx(&zone, 6, path.c_str()), 65u);
    EXPECT_EQ(ExportToFileEx(&zone, 10, path.c_str()), 65u);
    EXPECT_EQ(save(zone, folder.wide("a*b.sdf")), 59u);
    EXPECT_EQ(save(zone, folder.wide("none") + u"\\x.sdf"), 48u);
    zone.FirstChild()->SetShape(0, 0, 0, 0, 1);
    EXPECT_EQ(save(zone, path), 14u);
    cKoData bare;
    addBlock(bare, 2);
    EXPECT_EQ(save(bare, path), 14u);
    EXPECT_FALSE(std::filesystem::exists(folder.native("f.sdf")));
}

#if !defined(_WIN32)
// Without a terminal nobody can be asked for a name.
TEST(LoadKoDataEx, NullPathsCountAsCancelled) {
    if (isatty(0)) GTEST_SKIP() << "a terminal would be asked";
    cKoData root;
    EXPECT_EQ(LoadKoDataEx(&root, NUV64_SOURCE_STELAR, nullptr), 63u);
    ASSERT_EQ(stelar_test::load(classicZone(1), root), 0u);
    EXPECT_EQ(ExportToFileEx(root.FirstChild(), NUV64_SOURCE_STELAR, nullptr), 56u);
}

// A disk that takes the first bytes of the file and no more.
TEST(ExportToFileEx, AFullDiskLeavesNoPartOfTheFile) {
    const TempFolder folder;
    cKoData root;
    ASSERT_EQ(stelar_test::load(classicZone(1), root), 0u);
    struct rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t bytes : {0, 5, 18, 40, 100}) {
        struct rlimit limit = before;
        limit.rlim_cur = bytes;
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const std::uint32_t status = save(*root.FirstChild(), folder.wide("full.sdf"));
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        EXPECT_EQ(status, 48u) << bytes;
        EXPECT_FALSE(std::filesystem::exists(folder.native("full.sdf"))) << bytes;
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(save(*root.FirstChild(), u"/dev/full"), 48u);
}
#endif

TEST(ExportToFileEx, WithoutAZoneKeyTheFileIsNotDetected) {
    const TempFolder folder;
    cKoData zone;
    zone.Parameters.AddText("BS=2=\rNBLK=1=");
    addBlock(zone, 2);
    ASSERT_EQ(save(zone, folder.wide("n.sdf")), 0u);
    cKoData data;
    EXPECT_EQ(load(data, folder.wide("n.sdf")), 27u);
}

TEST(ExportToFileEx, ATimedZoneIsWrittenWithoutItsTimes) {
    const TempFolder folder;
    cKoData zone;
    zone.Parameters.AddText("ZONE=1=\rEXPT=1=\rBS=1=\rNBLK=1=");
    cKoData* block = addBlock(zone, 1);
    block->Channel(1)[0] = 1.0;
    block->Channel(2)[0] = -0.5;
    ASSERT_EQ(save(zone, folder.wide("t.sdf")), 0u);
    cKoData data;
    ASSERT_EQ(load(data, folder.wide("t.sdf")), 0u);
    const cKoData& read = *data.FirstChild()->FirstChild();
    EXPECT_DOUBLE_EQ(read.Channel(0)[0], 0.1);  // the first column, taken for a time
    EXPECT_DOUBLE_EQ(read.Channel(1)[0], -0.5);
    EXPECT_TRUE(std::isnan(read.Channel(2)[0]));
}

// What comes back lies within half a unit of the stored scale.
TEST(ExportToFileEx, RoundTripsRandomData) {
    const TempFolder folder;
    std::mt19937_64 random(3);
    std::normal_distribution<double> normal;
    for (int round = 0; round < 12; ++round) {
        const std::uint64_t points = 1 + random() % 60;
        const std::uint64_t blocks = 1 + random() % 5;
        const double size = std::pow(10.0, static_cast<double>(random() % 20) - 10.0);
        cKoData zone;
        zone.Parameters.AddText(
            "ZONE=5=\rEXP=NP/S [x]=\rNBLK=0=\rBS=0=\rDW=2=us\rXOFF=9=\rBGRD=LOG=");
        zone.Parameters.SetLine("NBLK", std::to_string(blocks).c_str(), nullptr);
        double largest = 0.0;
        for (std::uint64_t b = 0; b < blocks; ++b) {
            cKoData* block = addBlock(zone, points);
            for (std::uint64_t i = 0; i < points; ++i) {
                block->Channel(0)[i] = 1e-5 + 2e-6 * static_cast<double>(i);
                for (const std::uint64_t c : {1u, 2u}) {
                    block->Channel(c)[i] = size * normal(random);
                    largest = std::max(largest, std::fabs(block->Channel(c)[i]));
                }
            }
        }
        const std::string name = "r" + std::to_string(round) + ".sdf";
        ASSERT_EQ(save(zone, folder.wide(name)), 0u);
        cKoData data;
        ASSERT_EQ(load(data, folder.wide(name)), 0u);
        const cKoData& read = *data.FirstChild();
        EXPECT_EQ(read.ZoneNumber, 5u);
        EXPECT_STREQ(read.ExperimentName.get(), "NP/S");
        ASSERT_EQ(read.ChildCount(), blocks);
        for (std::uint64_t b = 0; b < blocks; ++b) {
            const cKoData& was = *zone.ChildAt(b);
            const cKoData& is = *read.ChildAt(b);
            ASSERT_EQ(is.Points, points);
            for (std::uint64_t i = 0; i < points; ++i) {
                ASSERT_NEAR(is.Channel(0)[i], was.Channel(0)[i], 1e-15);
                ASSERT_NEAR(is.Channel(1)[i], was.Channel(1)[i], 0.51e-6 * largest);
                ASSERT_NEAR(is.Channel(2)[i], was.Channel(2)[i], 0.51e-6 * largest);
            }
        }
    }
}

}  // namespace
