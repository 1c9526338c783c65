#include "nuv64/numeric/real_peaks.h"

#include <gtest/gtest.h>

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_peaks_reference.inc"

TEST(Peaks, AgreeWithTheReference) {
    holdAccuracy("rLorentzianPeak0", kPeak0, 1, 1.3,
                 [](auto& r) { return rLorentzianPeak0(r[0]); });
    holdAccuracy("rLorentzianPeak", kPeak, 4, 2.5,
                 [](auto& r) { return rLorentzianPeak(r[0], r[1], r[2], r[3]); });
    holdAccuracy("rLorentzianPeakArea", kPeak, 6, 1.7,
                 [](auto& r) { return rLorentzianPeakArea(r[3], r[2]); });
    holdAccuracy("rBiLorentzianPeak", kBiPeak, 4, 2.5,
                 [](auto& r) { return rBiLorentzianPeak(r[0], r[1], r[2], r[3]); });
    holdAccuracy("rChebyshevWeight", kChebyshevWeight, 1, 2.0,
                 [](auto& r) { return rChebyshevWeight(r[0]); });
}

TEST(Peaks, SpecialArguments) {
    const SpecialAnswers table[] = {
        {"rLorentzianPeak0", rLorentzianPeak0, {kAnyNan, 0, 0, 1, 1, 1, 1, 0, 0}},
        {"rChebyshevWeight",
         rChebyshevWeight,
         {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
    };
    expectSpecialAnswers(table);
    EXPECT_EQ(rChebyshevWeight(1.0), kInf);
    EXPECT_EQ(rChebyshevWeight(-1.0), kInf);
    EXPECT_TRUE(answers(kNoResult, rChebyshevWeight(std::nextafter(1.0, 2.0))));
    EXPECT_EQ(rLorentzianPeak0(2.0), 0.5);
    EXPECT_EQ(rLorentzianPeak(1.0, 1.0, 0.5, 3.0), 3.0);
    EXPECT_EQ(rLorentzianPeak(2.0, 1.0, 0.5, 3.0), 1.5);  // two widths away
    EXPECT_EQ(rLorentzianPeak(2.0, 1.0, 0.0, 3.0), 0.0);
    EXPECT_TRUE(std::isnan(rLorentzianPeak(1.0, 1.0, 0.0, 3.0)));
    EXPECT_TRUE(std::isnan(rLorentzianPeak(kQuiet, 1.0, 1.0, 3.0)));
    EXPECT_EQ(rLorentzianPeakArea(2.0, 3.0), std::acos(0.0) * 3.0 * 2.0);
    EXPECT_TRUE(std::isnan(rLorentzianPeakArea(kInf, 0.0)));
}

// The area is that of the peak whose width is the full one at half height.
TEST(Peaks, AreaIsTheIntegral) {
    const double width = 0.7;
    const double height = 2.5;
    double sum = 0.0;
    const double step = 0.01;
    for (int i = -200000; i <= 200000; ++i) {
        sum += rLorentzianPeak(step * i, 0.3, width / 4, height) * step;
    }
    EXPECT_NEAR(sum, rLorentzianPeakArea(height, width), 1e-3);
}

TEST(Peaks, TwoFlanks) {
    EXPECT_EQ(rBiLorentzianPeak(2.0, 1.0, 2.0, 5.0), 1.0);
    EXPECT_EQ(rBiLorentzianPeak(1.0, 1.0, 2.0, 5.0), 0.5);
    EXPECT_EQ(rBiLorentzianPeak(5.0, 1.0, 2.0, 5.0), 0.5);
    EXPECT_EQ(rBiLorentzianPeak(0.0, 2.0, 2.0, 5.0), 0.0);
    EXPECT_EQ(rBiLorentzianPeak(3.0, 1.0, 2.0, 2.0), 0.0);
    EXPECT_TRUE(std::isnan(rBiLorentzianPeak(2.0, 1.0, 2.0, 2.0)));
    EXPECT_TRUE(std::isnan(rBiLorentzianPeak(kQuiet, 1.0, 2.0, 5.0)));
    EXPECT_EQ(rBiLorentzianPeak(kInf, 1.0, 2.0, 5.0), 0.0);
}

}  // namespace
