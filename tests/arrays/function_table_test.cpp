#include "nuv64/arrays/function_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "core/console_host.h"
#include "support/console_streams.h"

namespace {

double square(double x) {
    return x * x;
}
double scaled(double x, double factor) {
    return x * factor;
}
double power(double x, std::uint64_t n) {
    return std::pow(x, static_cast<double>(n));
}
double thrown(double) {
    throw std::runtime_error("a host's function");
}

const std::string kGrid =
    "\n\n Data-grid specifications: \n   Grid type (0..lin, 1..log, 2..inverse, 3..square):    "
    "Minimum value :    Maximum value :    Total points  : ";
const std::string kDestination =
    "\n Print to:\n 1      only console\n 2      only file\n other  both console and file\n";
const std::string kDots = "\n..................................................\n";
const std::string kSquares = " 1\t1\r\n 2\t4\r\n 3\t9\r\n";

template <class Wide, class Narrow>
std::string both(const std::string& typed, std::uint32_t expected, Wide wide, Narrow narrow) {
    std::uint32_t status = 99;
    const std::string printed = dialogue(typed, status, wide);
    EXPECT_EQ(status, expected);
    EXPECT_EQ(dialogue(typed, status, narrow), printed);
    EXPECT_EQ(status, expected);
    return printed;
}

TEST(ConTabulateRFunctionR, PrintsATable) {
    EXPECT_EQ(
        both(
            "0\n1\n3\n3\n1", 0, [] { return ConTabulateRFunctionR(square, u"Squares"); },
            [] { return ConTabulateRFunctionRA(square, "Squares"); }),
        asCaptured("Squares" + kGrid + kDestination + "1\n\n x\t\t f(x) \n" + kSquares + kDots));
    const std::string tenths = both(
        "1\n1\n100\n3\n1", 0, [] { return ConTabulateRFunctionR(std::sqrt, nullptr); },
        [] { return ConTabulateRFunctionRA(std::sqrt, nullptr); });
    EXPECT_NE(tenths.find(asCaptured(" 1\t1\r\n 10")), std::string::npos) << tenths;
}

TEST(ConTabulateRFunctionRR, AsksForTheParameterFirst) {
    const auto expected = [](const char* columns) {
        return asCaptured("H \n   Parameter     : " + kGrid + kDestination + "1\n" + columns +
                          " 1\t2.5\r\n 2\t5\r\n 3\t7.5\r\n" + kDots);
    };
    const std::string typed = "2.5\n0\n1\n3\n3\n1";
    EXPECT_EQ(both(
                  typed, 0, [] { return ConTabulateRFunctionRR(scaled, u"H"); },
                  [] { return ConTabulateRFunctionRRA(scaled, "H"); }),
              expected("\n x\t\t f(x,r) \n"));
    EXPECT_EQ(both(
                  typed, 0, [] { return ConTabulateRFunctionRD(scaled, u"H"); },
                  [] { return ConTabulateRFunctionRDA(scaled, "H"); }),
              expected("\n x\t\t f(x,d) \n"));
}

TEST(ConTabulateRFunctionRQ, TakesAWholeParameter) {
    EXPECT_EQ(both(
                  "3\n0\n1\n2\n2\n1", 0, [] { return ConTabulateRFunctionRQ(power, u""); },
                  [] { return ConTabulateRFunctionRQA(power, ""); }),
              asCaptured(" \n   Parameter     : " + kGrid + kDestination + "1\n\n x\t\t f(x,q) \n" +
                         " 1\t1\r\n 2\t8\r\n" + kDots));
}

TEST(ConTabulate, RefusesWrongAnswers) {
    for (const char* typed : {"", "0\nx\nx\nx\nx\n", "9\n9\n9\n9\n"}) {
        both(
            typed, 15, [] { return ConTabulateRFunctionR(square, nullptr); },
            [] { return ConTabulateRFunctionRA(square, nullptr); });
    }
    for (const char* typed : {"", "x\n", "1\n\n\n"}) {
        both(
            typed, 15, [] { return ConTabulateRFunctionRR(scaled, nullptr); },
            [] { return ConTabulateRFunctionRDA(scaled, nullptr); });
        both(
            typed, 15, [] { return ConTabulateRFunctionRQ(power, nullptr); },
            [] { return ConTabulateRFunctionRQA(power, nullptr); });
    }
}

TEST(ConTabulate, NeedsAFunction) {
    EXPECT_EQ(ConTabulateRFunctionR(nullptr, u"h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRA(nullptr, "h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRR(nullptr, u"h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRRA(nullptr, "h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRD(nullptr, u"h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRDA(nullptr, "h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRQ(nullptr, u"h"), 20u);
    EXPECT_EQ(ConTabulateRFunctionRQA(nullptr, "h"), 20u);
}

TEST(ConTabulate, HoldsAThrowingFunction) {
    both(
        "0\n1\n2\n2\n1", 47, [] { return ConTabulateRFunctionR(thrown, nullptr); },
        [] { return ConTabulateRFunctionRA(thrown, nullptr); });
}

#ifndef _WIN32
// The file is asked for on the console, which a host must have said that it has.
class ConTabulateFile : public testing::Test {
  protected:
    ConTabulateFile() { nuv64::setConsoleHost(true); }
    ~ConTabulateFile() override { nuv64::setConsoleHost(false); }

    std::string tabulated(char destination, const std::string& file, std::uint32_t expected) {
        std::uint32_t status = 99;
        std::string printed;
        testing::internal::CaptureStderr();
        printed = dialogue("0\n1\n3\n3\n" + std::string(1, destination) + file + "\n", status,
                           [] { return ConTabulateRFunctionR(square, u"S"); });
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(status, expected);
        return printed;
    }
    TempFolder folder_;
};

TEST_F(ConTabulateFile, WritesTheTable) {
    const std::string file = folder_.native("table.txt").string();
    const std::string start = "S" + kGrid + kDestination;
    EXPECT_EQ(tabulated('2', file, 0), start + "2\n" + kDots);
    EXPECT_EQ(folder_.read("table.txt"), kSquares);
    std::filesystem::remove(file);
    EXPECT_EQ(tabulated('3', file, 0), start + "3\n\n x\t\t f(x) \n" + kSquares + kDots);
    EXPECT_EQ(folder_.read("table.txt"), kSquares);
}

TEST_F(ConTabulateFile, ACancelledDialogueEndsIt) {
    EXPECT_EQ(tabulated('2', "", 1), "S" + kGrid + kDestination + "2\n");
}
#endif

TEST(ConTabulate, WithoutAUserNoFileIsChosen) {
    if (nuv64::consoleMayAsk()) GTEST_SKIP() << "there is a user";
    both(
        "0\n1\n3\n3\n2", 1, [] { return ConTabulateRFunctionR(square, nullptr); },
        [] { return ConTabulateRFunctionRA(square, nullptr); });
}

}  // namespace
