#include "nuv64/numeric/error_function.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/error_function_reference.inc"

double ofGaussian(const double* r) {
    return 2.0 + 0.7 * r[0] * r[0];
}

TEST(ErrorFunction, AgreesWithTheReference) {
    holdAccuracy("rErf", kErf, 1, {1.0, 2.0}, [](auto& r) { return rErf(r[0]); });
    holdAccuracy("rErfc", kErf, 3, {3.5, 4.0}, [](auto& r) { return rErfc(r[0]); });
}

TEST(ErrorFunction, FastFormsFollowTheirFormula) {
    // The sum of the terms of 7.1.26 with their magnitudes is up to 3.9, and erf is what is left.
    const auto ofErf = [](const double* r) { return 2.0 + 4.0 / std::fabs(r[1]); };
    const auto ofErfc = [](const double* r) {
        return 4.0 + 0.5 * r[0] * r[0] + (r[0] > 0.0 ? 16.0 : 4.0 / r[3]);
    };
    holdAccuracy(
        "rErfFast", kErfFast, 1, 1.0, [](auto& r) { return rErfFast(r[0]); }, ofErf);
    holdAccuracy(
        "rErfcFast", kErfFast, 3, 1.5, [](auto& r) { return rErfcFast(r[0]); }, ofErfc);
    double worst = 0.0;
    for (const auto& row : kErf) worst = std::fmax(worst, std::fabs(rErfFast(row[0]) - row[1]));
    std::printf("%-22s worst absolute error %.3g\n", "rErfFast", worst);
    EXPECT_LT(worst, 1.5e-7);
    EXPECT_EQ(rErfFast(-0.0), rErfFast(0.0));
    EXPECT_NEAR(rErfFast(0.0), 1e-9, 1e-15);
}

TEST(ErrorFunction, FastInverseFollowsItsFormula) {
    // Towards 1 the logarithm's error is divided among the digits of its root.
    const auto ofInverse = [](const double*) { return 6.0; };
    holdAccuracy(
        "rErfInvFast", kErfInverse, 1, 1.0, [](auto& r) { return rErfInvFast(r[0]); }, ofInverse);
    double worst = 0.0;
    double worstFar = 0.0;
    for (const auto& row : kErfInverse) {
        const double error = std::fabs(rErfInv(row[0]) / row[3] - 1.0);
        double& place = std::fabs(row[0]) < 1.0 - 1e-7 ? worst : worstFar;
        if (row[0] != 0.0) place = std::fmax(place, error);
        EXPECT_EQ(rErfInv(row[0]), rErfInvFast(row[0]));
    }
    std::printf("%-22s worst relative error %.3g, beyond 1 - 1e-7 %.3g\n", "rErfInv", worst,
                worstFar);
    EXPECT_LT(worst, 1.5e-7);
    EXPECT_LT(worstFar, 0.08);
    EXPECT_TRUE(answers(kNoResult, rErfInv(1.0)));
    EXPECT_TRUE(answers(kNoResult, rErfInv(-1.0)));
    EXPECT_EQ(rErfInv(-0.3), -rErfInv(0.3));
}

TEST(ErrorFunction, AntiderivativesAndDerivativesAgreeWithTheReference) {
    holdAccuracy(
        "rErfA", kErfAntiderivatives, 1, 1.0, [](auto& r) { return rErfA(r[0]); },
        [](const double*) { return 2.5; });
    const auto ofDifference = [](const double* r) {
        const double x = r[0];
        const double terms = std::exp(-x * x) * (2.0 + x * x) + std::fabs(x * std::erfc(x)) * 4.0;
        return 1.0 + terms / std::fabs(r[3]);
    };
    holdAccuracy(
        "rErfcA", kErfAntiderivatives, 3, 1.0, [](auto& r) { return rErfcA(r[0]); }, ofDifference);
    holdAccuracy(
        "rErfD", kErfDerivatives, 1, 1.0, [](auto& r) { return rErfD(r[0]); }, ofGaussian);
    holdAccuracy(
        "rErfD2", kErfDerivatives, 3, 1.2, [](auto& r) { return rErfD2(r[0]); },
        [](const double* r) { return 1.0 + ofGaussian(r); });
    holdAccuracy(
        "rErfcD", kErfDerivatives, 1, 1.0, [](auto& r) { return -rErfcD(r[0]); }, ofGaussian);
    holdAccuracy(
        "rErfcD2", kErfDerivatives, 3, 1.2, [](auto& r) { return -rErfcD2(r[0]); },
        [](const double* r) { return 1.0 + ofGaussian(r); });
}

TEST(ErrorFunction, ImaginaryFormsAgreeWithTheReference) {
    const auto ofErfi = [](const double* r) { return 60.0 + 0.7 * r[0] * r[0]; };
    holdAccuracy(
        "rErfi", kErfi, 1, 1.0, [](auto& r) { return rErfi(r[0]); }, ofErfi);
    holdAccuracy(
        "rErfiD", kErfi, 3, 1.0, [](auto& r) { return rErfiD(r[0]); }, ofGaussian);
    holdAccuracy(
        "rErfiD2", kErfi, 5, 1.0, [](auto& r) { return rErfiD2(r[0]); },
        [](const double* r) { return 1.0 + ofGaussian(r); });
    const auto ofProduct = [](const double* r) { return 5.0 + 0.7 * r[0] * r[0]; };
    holdAccuracy(
        "rFaddeevaIw", kFaddeeva, 1, 1.0, [](auto& r) { return rFaddeevaIw(r[0]); }, ofProduct);
    const auto ofDifference = [&](const double* r) {
        return 1.0 + (1.13 + ofProduct(r) * std::fabs(2.0 * r[0] * r[1])) / std::fabs(r[3]);
    };
    holdAccuracy(
        "rFaddeevaIwD", kFaddeeva, 3, 1.0, [](auto& r) { return rFaddeevaIwD(r[0]); },
        ofDifference);
}

TEST(ErrorFunction, SpecialArguments) {
    const double c = 0.5641895835477563;
    const double d = 1.1283791670955126;
    const double least = 0x1p-1074;
    const double most = std::numeric_limits<double>::max();
    const double e = rErfFast(0.0);
    const double i = rErfInv(least);
    const SpecialAnswers table[] = {
        {"rErf", rErf, {kAnyNan, 1, -1, 0, 0, least, -least, 1, -1}},
        {"rErfc", rErfc, {kAnyNan, 0, 2, 1, 1, 1, 1, 0, 2}},
        {"rErfFast", rErfFast, {kAnyNan, 1, -1, e, e, e, -e, 1, -1}},
        {"rErfcFast", rErfcFast, {kAnyNan, 0, 2, 1 - e, 1 - e, 1 - e, 1 + e, 0, 2}},
        {"rErfInvFast",
         rErfInvFast,
         {kNoResult, kNoResult, kNoResult, 0, 0, i, -i, kNoResult, kNoResult}},
        {"rErfInv", rErfInv, {kNoResult, kNoResult, kNoResult, 0, 0, i, -i, kNoResult, kNoResult}},
        {"rErfA", rErfA, {kAnyNan, kInf, kInf, c, c, c, c, most, most}},
        {"rErfcA", rErfcA, {kAnyNan, kAnyNan, -kInf, -c, -c, -c, -c, 0, -kInf}},
        {"rErfD", rErfD, {kAnyNan, 0, 0, d, d, d, d, 0, 0}},
        {"rErfD2",
         rErfD2,
         {kAnyNan, kAnyNan, kAnyNan, 0, 0, -2 * least, 2 * least, kAnyNan, kAnyNan}},
        {"rErfcD", rErfcD, {kAnyNan, 0, 0, -d, -d, -d, -d, 0, 0}},
        {"rErfcD2",
         rErfcD2,
         {kAnyNan, kAnyNan, kAnyNan, 0, 0, 2 * least, -2 * least, kAnyNan, kAnyNan}},
        {"rErfi",
         rErfi,
         {kAnyNan, kNoResult, kNoResult, 0, 0, least, -least, kNoResult, kNoResult}},
        {"rErfiD", rErfiD, {kAnyNan, kNoResult, kNoResult, d, d, d, d, kNoResult, kNoResult}},
        {"rErfiD2",
         rErfiD2,
         {kAnyNan, kNoResult, kNoResult, 0, 0, 2 * least, -2 * least, kNoResult, kNoResult}},
        {"rFaddeevaIw",
         rFaddeevaIw,
         {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
        {"rFaddeevaIwD",
         rFaddeevaIwD,
         {kAnyNan, kNoResult, kNoResult, -d, -d, -d, -d, kNoResult, kNoResult}},
    };
    expectSpecialAnswers(table);
}

TEST(ErrorFunction, BothSidesOfTheOverflow) {
    EXPECT_TRUE(std::isfinite(rErfi(26.6)));
    EXPECT_TRUE(answers(kNoResult, rErfi(26.65)));
    EXPECT_TRUE(std::isfinite(rErfiD(26.63)));
    EXPECT_TRUE(answers(kNoResult, rErfiD(-26.65)));
    EXPECT_GT(rFaddeevaIw(26.5), 0.021);
    EXPECT_TRUE(answers(kNoResult, rFaddeevaIw(26.65)));
    EXPECT_GT(rErfD(26.63), 0.0);
    EXPECT_EQ(rErfD(26.65), 0.0);
}

TEST(ErrorFunction, DerivativesAreSlopes) {
    const double h = 1e-5;
    const auto slope = [h](double (*f)(double), double x) {
        return (f(x + h) - f(x - h)) / (2 * h);
    };
    for (double x = -3.0; x < 3.0; x += 0.17) {
        EXPECT_NEAR(slope(rErf, x), rErfD(x), 1e-9) << x;
        EXPECT_NEAR(slope(rErfD, x), rErfD2(x), 1e-9) << x;
        EXPECT_NEAR(slope(rErfc, x), rErfcD(x), 1e-9) << x;
        EXPECT_NEAR(slope(rErfcD, x), rErfcD2(x), 1e-9) << x;
        EXPECT_NEAR(slope(rErfA, x), rErf(x), 1e-9) << x;
        EXPECT_NEAR(slope(rErfcA, x), rErfc(x), 1e-9) << x;
        EXPECT_NEAR(slope(rErfi, x), rErfiD(x), 1e-4) << x;
        EXPECT_NEAR(slope(rErfiD, x), rErfiD2(x), 1e-4) << x;
        EXPECT_NEAR(slope(rFaddeevaIw, x), rFaddeevaIwD(x), 1e-4) << x;
        EXPECT_NEAR(rErf(rErfInv(std::fabs(x) / 3.01)), std::fabs(x) / 3.01, 3e-7) << x;
    }
}

}  // namespace
