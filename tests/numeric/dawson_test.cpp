#include "nuv64/numeric/dawson.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/dawson_reference.inc"

TEST(Dawson, AgreesWithTheReference) {
    // From 1.2 to 8 the denominators of the continued fraction cancel.
    const auto ofFraction = [](const double* r) {
        const double x = std::fabs(r[0]);
        return x > 1.2 && x < 8.0 ? 75.0 : 12.0;
    };
    holdAccuracy(
        "rDawson", kDawson, 1, 1.0, [](auto& r) { return rDawson(r[0]); }, ofFraction);
    holdAccuracy(
        "rHilbertTransform...", kDawson, 1, 1.0,
        [](auto& r) { return rHilbertTransformOfGaussian(r[0]) / 1.1283791670955126; },
        [&](const double* r) { return 2.0 + ofFraction(r); });
}

TEST(Dawson, FastFormFollowsItsFormula) {
    holdAccuracy("rDawsonRa5", kDawson, 3, 4.0, [](auto& r) { return rDawsonRa5(r[0]); });
    double worst = 0.0;
    for (const auto& row : kDawson) {
        if (std::fabs(row[0]) > 1e-9) worst = std::fmax(worst, std::fabs(row[3] / row[1] - 1.0));
    }
    std::printf("%-22s worst relative error %.3g\n", "rDawsonRa5", worst);
    EXPECT_LT(worst, 1.1e-5);
    EXPECT_NEAR(rDawsonRa5(1e20) * 2e20, 1.0, 1e-5);
    EXPECT_EQ(rDawsonRa5(1e27), 0.0);
}

TEST(Dawson, DerivativesAgreeWithTheReference) {
    // F enters with its error of up to 75 ulps.
    const auto lost = [](const double* r, double factor, double value) {
        const double x = std::fabs(r[0]);
        const double f = x < 1.0 ? x : 0.5 / x + 0.3;
        const double ulps = x > 1.2 && x < 8.0 ? 75.0 : 12.0;
        return 4.0 + ulps * factor * std::fmin(f, 0.54) / std::fabs(value);
    };
    holdAccuracy(
        "rDawsonD", kDawsonDerivatives, 1, 1.0, [](auto& r) { return rDawsonD(r[0]); },
        [&](const double* r) { return lost(r, 2.0 * std::fabs(r[0]), r[1]); });
    holdAccuracy(
        "rDawsonD2", kDawsonDerivatives, 3, 1.0, [](auto& r) { return rDawsonD2(r[0]); },
        [&](const double* r) { return lost(r, 2.0 + 4.0 * r[0] * r[0], r[3]); });
    holdAccuracy(
        "rDawsonD3", kDawsonDerivatives, 5, 1.0, [](auto& r) { return rDawsonD3(r[0]); },
        [&](const double* r) {
            const double x = std::fabs(r[0]);
            return lost(r, x * (12.0 + 8.0 * x * x) + 8.0, r[5]);
        });
}

TEST(Dawson, SpecialArguments) {
    const double least = 0x1p-1074;
    const SpecialAnswers table[] = {
        {"rDawson", rDawson, {kAnyNan, 0, 0, 0, 0, least, -least, kAnyFinite, kAnyFinite}},
        {"rDawsonD", rDawsonD, {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, -kInf, -kInf}},
        {"rDawsonD2",
         rDawsonD2,
         {kAnyNan, kAnyNan, kAnyNan, 0, 0, -4 * least, 4 * least, kInf, -kInf}},
        {"rDawsonD3", rDawsonD3, {kAnyNan, kAnyNan, kAnyNan, -4, -4, -4, -4, kInf, kInf}},
        {"rDawsonRa5",
         rDawsonRa5,
         {kAnyNan, kAnyNan, kAnyNan, 0, 0, least, -least, kAnyNan, kAnyNan}},
        {"rHilbertTransformOfGaussian",
         rHilbertTransformOfGaussian,
         {kAnyNan, 0, 0, 0, 0, least, -least, kAnyFinite, kAnyFinite}},
    };
    expectSpecialAnswers(table);
}

TEST(Dawson, IsOddAndSolvesItsEquation) {
    const double h = 1e-5;
    for (double x = 0.07; x < 9.0; x += 0.31) {
        EXPECT_EQ(rDawson(-x), -rDawson(x));
        EXPECT_NEAR((rDawson(x + h) - rDawson(x - h)) / (2 * h), rDawsonD(x), 3e-10) << x;
        EXPECT_NEAR((rDawsonD(x + h) - rDawsonD(x - h)) / (2 * h), rDawsonD2(x), 3e-9) << x;
    }
}

}  // namespace
