#include "evaluation/csv_export.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include <sys/resource.h>

#include <csignal>
#endif

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "evaluation/experiment.h"
#include "nuv64/core/number_printing.h"
#include "platform/platform.h"

namespace {

using namespace nuv64;
using namespace nuv64::test;

class CsvExport : public ::testing::Test {
  protected:
    CsvExport()
        : file(std::filesystem::temp_directory_path() /
               ("nuv64_csv_" +
                std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) +
                ".csv")),
          path(platform::wideFromUtf8(file.string())) {
        std::filesystem::remove(file);
    }
    ~CsvExport() override { std::filesystem::remove(file); }

    std::string table(cKoData& node, std::uint32_t flags) {
        std::filesystem::remove(file);
        EXPECT_EQ(ExportNodeCsv(&node, flags, path.c_str()), 0u);
        std::ifstream in(file, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }

    std::filesystem::path file;
    std::u16string path;
};

std::string real(double value) {
    char text[128];
    RealToBufferA(value, text, 6, 10);
    return text;
}

TEST_F(CsvExport, ABlock) {
    const auto block = makeBlock(2, 2.5);
    EXPECT_EQ(table(*block, 0), "0,2.50000,-2.50000\r\n1.00000,3.50000,-3.50000\r\n");
    EXPECT_EQ(table(*block, CsvTwoChannels), "0,2.50000\r\n1.00000,3.50000\r\n");
    EXPECT_EQ(table(*block, CsvNoAxis), "2.50000,-2.50000\r\n3.50000,-3.50000\r\n");
    EXPECT_EQ(table(*block, CsvNoAxis | CsvTwoChannels), "2.50000\r\n3.50000\r\n");
    ASSERT_TRUE(block->ExportPath);
    EXPECT_TRUE(std::u16string(block->ExportPath.get()).ends_with(u"ABlock.csv"));
}

TEST_F(CsvExport, OneChannelKeepsTheCommaOfTheAxis) {
    const auto block = makeBlock(2, 0.0, 1);
    EXPECT_EQ(table(*block, 0), "0,\r\n1.00000,\r\n");
    EXPECT_EQ(table(*block, CsvNoAxis), "\r\n\r\n");
}

TEST_F(CsvExport, NotANumberAndInfinity) {
    const auto block = makeBlock(1, 0.0);
    block->Channel(1)[0] = std::nan("");
    block->Channel(2)[0] = -INFINITY;
    EXPECT_EQ(table(*block, 0), "0,NaN,-INF\r\n");
}

TEST_F(CsvExport, HeaderRows) {
    const auto block = makeBlock(1, 1.0);
    block->ChannelKinds[2] = 12;
    block->PointTags[0] = 0x1F;
    EXPECT_EQ(table(*block, CsvChannelRow | CsvKindRow | CsvPointTags),
              "Chn,0,1,2\r\nFlags,0,0,12\r\n1F,0,1.00000,-1.00000\r\n");
    EXPECT_EQ(table(*block, CsvChannelRow | CsvKindRow | CsvNoAxis),
              "Chn,1,2\r\nFlags,0,12\r\n1.00000,-1.00000\r\n");
}

TEST_F(CsvExport, Results) {
    const auto block = makeBlock(1, 1.0);
    block->Results[0] = 2.0;
    block->Results[1] = 0.5;
    const std::string nans = [] {
        std::string text;
        for (int i = 2; i < 20; ++i) text += ",NaN\r\n";
        return text;
    }();
    const std::string data = "0,1.00000,-1.00000\r\n";
    EXPECT_EQ(table(*block, CsvResults), "Results,2.00000\r\n,0.500000\r\n" + nans + "\r\n" + data);
    EXPECT_EQ(table(*block, CsvResults | CsvTwoChannels),
              "Results,2.00000\r\n,0.500000\r\n\r\n0,1.00000\r\n");
    EXPECT_EQ(table(*block, CsvResults | CsvTwoChannels | CsvNoAxis),
              "Results,0.500000\r\n\r\n1.00000\r\n");
}

TEST_F(CsvExport, Statistics) {
    const auto block = makeBlock(4, 1.0);
    const std::string text = table(*block, CsvStatistics | CsvNoAxis | CsvTwoChannels);
    EXPECT_TRUE(text.starts_with("Qval0,NaN\r\nQval1,NaN\r\nQval2,NaN\r\nQval3,")) << text;
    EXPECT_NE(text.find("\r\nQval4,2.50000\r\nQval5,"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\nQval9,1.00000\r\n1.00000\r\n2.00000\r\n"), std::string::npos) << text;
}

TEST_F(CsvExport, AZoneOfBlocks) {
    const auto zone = makeZone(3, 1);
    for (std::uint64_t k = 0; k < 3; ++k) zone->ChildAt(k)->SetShape(1, 2, 1, 0, 0);
    EXPECT_EQ(table(*zone, CsvWholeZone), "Block,1,,2,,3\r\n0,0,0,0,0,0\r\n");
    EXPECT_EQ(table(*zone, CsvWholeZone | CsvOneAxis), "Block,,1,2,3\r\n0,0,0,0\r\n");
    EXPECT_EQ(table(*zone, CsvWholeZone | CsvNoAxis), "Block,1,2,3\r\n0,0,0\r\n");
    EXPECT_EQ(table(*zone, CsvWholeZone | CsvNoAxis | CsvOneAxis), "Block,1,2,3\r\n0,0,0\r\n");
    EXPECT_TRUE(zone->ExportPath);
    EXPECT_FALSE(zone->ChildAt(0)->ExportPath);
}

TEST_F(CsvExport, BlocksOfDifferentShape) {
    const auto zone = makeZone(3, 2);
    zone->ChildAt(1)->SetShape(1, 2, 1, 0, 0);
    EXPECT_EQ(table(*zone, CsvWholeZone),
              "Block,1,,2,,3\r\n0,0,0,0,0,200.000\r\n1.00000,1.00000,NaN,NaN,1.00000,201.000\r\n");
    zone->ChildAt(2)->SetShape(0, 0, 0, 0, 0);
    EXPECT_EQ(ExportNodeCsv(zone.get(), CsvWholeZone, path.c_str()), 14u);
}

TEST_F(CsvExport, TheResultNodeWins) {
    const auto zone = makeZone(2, 2);
    EXPECT_EQ(ExportNodeCsv(zone.get(), CsvEvaluated, path.c_str()), 0u);  // nothing done
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(zone->ExportPath);
    zone->Evaluated = makeBlock(1, 5.0, 2).release();
    EXPECT_EQ(table(*zone, CsvEvaluated), "0,5.00000\r\n");
    EXPECT_EQ(ExportNodeCsv(zone.get(), CsvEvaluated | CsvWholeZone, path.c_str()), 14u);
}

TEST_F(CsvExport, LongTablesComeWhole) {
    const auto block = makeBlock(3000, 1e-5, 7);
    std::string expected;
    for (std::uint64_t point = 0; point < 3000; ++point) {
        for (std::uint64_t channel = 0; channel < 7; ++channel) {
            expected += real(block->Channel(channel)[point]) + (channel < 6 ? "," : "\r\n");
        }
    }
    EXPECT_EQ(table(*block, 0), expected);
}

TEST_F(CsvExport, Failures) {
    const auto block = makeBlock(2, 0.0);
    EXPECT_EQ(ExportNodeCsv(nullptr, 0, path.c_str()), 14u);
    cKoData empty;
    EXPECT_EQ(ExportNodeCsv(&empty, 0, path.c_str()), 14u);
    EXPECT_EQ(ExportNodeCsv(&empty, CsvWholeZone, path.c_str()), 0u);
    EXPECT_EQ(ExportNodeCsv(block.get(), 0, u"\\tmp\\what?.csv"), 59u);
    EXPECT_EQ(ExportNodeCsv(block.get(), 0, u"nuv64 bare new name.csv"), 59u);
    EXPECT_FALSE(std::filesystem::exists(file));
    const std::u16string nowhere =
        platform::wideFromUtf8((file.parent_path() / "no such folder" / "a.csv").string());
    const std::uint32_t status = ExportNodeCsv(block.get(), 0, nowhere.c_str());
    EXPECT_TRUE(status == 48u || status == 59u) << status;
}

TEST_F(CsvExport, ACancelledDialog) {
    const auto block = makeBlock(2, 0.0);
    EXPECT_EQ(ExportNodeCsv(block.get(), 0, nullptr), 63u);
}

TEST_F(CsvExport, AnExistingFileIsNeverOverwritten) {
    const auto block = makeBlock(2, 0.0);
    std::ofstream(file) << "mine";
    EXPECT_EQ(ExportNodeCsv(block.get(), 0, path.c_str()), 48u);
    std::ifstream in(file);
    std::string text;
    in >> text;
    EXPECT_EQ(text, "mine");
}

#ifdef __linux__
// A limit on the size of files stands for a full disk. The table is cut short and nobody is told.
TEST_F(CsvExport, AFullDiskIsNotNoticed) {
    const auto block = makeBlock(20000, 0.0);
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{40000, old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_EQ(ExportNodeCsv(block.get(), 0, path.c_str()), 0u);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(std::filesystem::file_size(file), 40000u);
}
#endif

}  // namespace
