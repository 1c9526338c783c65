#include "nuv64/numeric/digamma.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/gamma.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/digamma_reference.inc"

// Up to 0.1 the rounding of pi x enters, amplified by the slope of the reflection's cotangent; the
// terms are the cotangent and psi of 1 - x.
double ofPsi0(const double* r) {
    const double x = r[0];
    if (x > 0.1) return 1.0 + (x < 9.0 ? 3.0 : std::log(x)) / std::fabs(r[1]);
    const double sine = std::sin(std::numbers::pi * x);
    const double slope = std::numbers::pi / (sine * sine) * std::fabs(std::numbers::pi * x);
    return 1.0 +
           (3.0 + std::log1p(-x) + std::fabs(std::numbers::pi / sine) + slope) / std::fabs(r[1]);
}

double ofPsi1(const double* r) {
    const double x = r[0];
    if (x > 0.1) {
        // The first term that the series leaves out.
        return 2.0 + 7.1 * std::pow(std::fmax(x, 9.0), -17.0) / (0x1p-52 * r[3]);
    }
    const double sine = std::sin(std::numbers::pi * x);
    const double square = std::numbers::pi * std::numbers::pi / (sine * sine);
    return 2.0 + square * (1.0 + 2.0 * std::fabs(std::numbers::pi * x / sine)) / r[3];
}

TEST(Digamma, AgreesWithTheReference) {
    holdAccuracy(
        "rPsi0", kDigamma, 1, 1.7, [](auto& r) { return rPsi0(r[0]); }, ofPsi0);
    holdAccuracy(
        "rPsi1", kDigamma, 3, 1.7, [](auto& r) { return rPsi1(r[0]); }, ofPsi1);
}

TEST(Digamma, SpecialArguments) {
    const SpecialAnswers table[] = {
        {"rPsi0",
         rPsi0,
         {kNoResult, kInf, kNoResult, -kInf, kInf, -kInf, kInf, kAnyFinite, kAnyNan}},
        {"rPsi1", rPsi1, {kNoResult, 0, kNoResult, kInf, kInf, kInf, kInf, kAnyFinite, kAnyNan}},
    };
    expectSpecialAnswers(table);
}

TEST(Digamma, KnownValues) {
    EXPECT_NEAR(rPsi0(1.0), -0.5772156649015329, 1e-15);
    EXPECT_NEAR(rPsi0(0.5), -0.5772156649015329 - 2.0 * std::numbers::ln2, 2e-15);
    EXPECT_NEAR(rPsi0(1.4616321449683623), 0.0, 1e-15);
    EXPECT_NEAR(rPsi1(1.0), std::numbers::pi * std::numbers::pi / 6.0, 1e-15);
    EXPECT_NEAR(rPsi1(0.5), std::numbers::pi * std::numbers::pi / 2.0, 3e-15);
}

TEST(Digamma, PolesAreMetWithinTheRoundingOfPi) {
    for (double n = 1.0; n < 6.0; n += 1.0) {
        EXPECT_GT(std::fabs(rPsi0(-n)), 1e13) << n;
        EXPECT_GT(rPsi1(-n), 1e27) << n;
        EXPECT_TRUE(std::isfinite(rPsi0(-n))) << n;
    }
}

TEST(Digamma, RecurrenceAndSlopeOfGammaLn) {
    for (double x = 0.15; x < 30.0; x += 0.31) {
        EXPECT_NEAR(rPsi0(x + 1.0) - rPsi0(x), 1.0 / x, 3e-15 * (1.0 + 1.0 / x)) << x;
        EXPECT_NEAR(rPsi1(x) - rPsi1(x + 1.0), 1.0 / (x * x), 1e-14 * (1.0 + 1.0 / (x * x))) << x;
        const double h = 1e-5;
        EXPECT_NEAR((rGammaLn(x + h) - rGammaLn(x - h)) / (2 * h), rPsi0(x), 2e-8) << x;
    }
}

}  // namespace
