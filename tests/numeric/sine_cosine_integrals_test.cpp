#include "nuv64/numeric/sine_cosine_integrals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/sine_cosine_integrals_reference.inc"

constexpr double kEulerGamma = 0.5772156649015329;

// Where Ci is small against its terms, around its zeros, the error is that of the largest term.
double ofCosineNear(const double* r) {
    const double logarithm = std::fmax(kEulerGamma, std::fabs(std::log(r[0])));
    const double rest = std::fabs(r[3] - kEulerGamma - std::log(r[0]));
    return std::fmax(1.0, std::fmax(logarithm, rest) / std::fabs(r[3]));
}

// The C runtime of Windows reduces large angles by a pi of 66 bits.
#ifdef _WIN32
constexpr double kReductionUlps = 0x1p-15;
#else
constexpr double kReductionUlps = 0.0;
#endif

double ofCosineFar(const double* r) {
    const double amplitude = 1.0 / r[0] / std::fabs(r[3]);
    return std::fmax(1.0, amplitude) * (1.0 + kReductionUlps * r[0]);
}

TEST(SineCosineIntegrals, AgreeWithTheReference) {
    holdAccuracy("rSineIntegral", kNear, 1, 4.0, [](auto& r) { return rSineIntegral(r[0]); });
    holdAccuracy("rSineIntegral", kFar, 1, 4.0, [](auto& r) { return rSineIntegral(r[0]); });
    holdAccuracy(
        "rCosineIntegral", kNear, 3, 4.0, [](auto& r) { return rCosineIntegral(r[0]); },
        ofCosineNear);
    holdAccuracy(
        "rCosineIntegral", kFar, 3, 4.0, [](auto& r) { return rCosineIntegral(r[0]); },
        ofCosineFar);
}

TEST(SineCosineIntegrals, WithinFourUlpsAwayFromZeros) {
    double worst = 0.0;
    const auto hold = [&worst](const double* r, bool isAway) {
        if (isAway) worst = std::fmax(worst, ulpsOff(rCosineIntegral(r[0]), r[3], r[4]));
    };
    for (const auto& row : kNear) hold(row, std::fabs(row[3]) > 0.25);
    for (const auto& row : kFar) hold(row, row[0] < 1e4 && ofCosineFar(row) <= 2.1);
    std::printf("%-22s worst away from zeros %.3g ulps\n", "rCosineIntegral", worst);
    EXPECT_LE(worst, 4.0);
}

TEST(SineCosineIntegrals, SpecialArguments) {
    const double least = 0x1p-1074;
    const double halfPi = std::numbers::pi / 2;
    const SpecialAnswers table[] = {
        {"rSineIntegral", rSineIntegral, {kNoResult, halfPi, 0, 0, 0, least, 0, halfPi, 0}},
        {"rCosineIntegral",
         rCosineIntegral,
         {kNoResult, 0, 0, kNoResult, kNoResult, kNoResult, 0, kAnyFinite, 0}},
    };
    expectSpecialAnswers(table);
    EXPECT_EQ(rSineIntegral(-1.0), 0.0);
    EXPECT_EQ(rCosineIntegral(-1.0), 0.0);
}

TEST(SineCosineIntegrals, SlopesAndZeros) {
    const double h = 1e-5;
    for (double x = 0.11; x < 30.0; x += 0.37) {
        EXPECT_NEAR((rSineIntegral(x + h) - rSineIntegral(x - h)) / (2 * h), std::sin(x) / x, 1e-9);
        EXPECT_NEAR((rCosineIntegral(x + h) - rCosineIntegral(x - h)) / (2 * h), std::cos(x) / x,
                    1e-7);
    }
    EXPECT_NEAR(rCosineIntegral(0.6165054856207163), 0.0, 1e-15);
    EXPECT_NEAR(rCosineIntegral(3.3841804225511862), 0.0, 1e-15);
    EXPECT_NEAR(rSineIntegral(std::numbers::pi), 1.851937051982466, 1e-15);
    EXPECT_NEAR(rSineIntegral(4.0), rSineIntegral(std::nextafter(4.0, 5.0)), 1e-15);
    EXPECT_NEAR(rCosineIntegral(4.0), rCosineIntegral(std::nextafter(4.0, 5.0)), 1e-15);
}

}  // namespace
