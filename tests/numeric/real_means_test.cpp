#include "nuv64/numeric/real_means.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_means_reference.inc"

constexpr double kTiny = 0x1p-1074;
constexpr double kHuge = 1.5e308;

std::int64_t whole(double k) {
    return static_cast<std::int64_t>(k);
}

TEST(Means, AgreeWithTheReference) {
    holdAccuracy("rMeanA", kMeans, 2, 0.65, [](auto& r) { return rMeanA(r[0], r[1]); });
    holdAccuracy("rMeanG", kMeans, 4, 0.95, [](auto& r) { return rMeanG(r[0], r[1]); });
    holdAccuracy("rMeanH", kMeans, 6, 1.8, [](auto& r) { return rMeanH(r[0], r[1]); });
    holdAccuracy("rMeanH2", kMeans, 8, 1.3, [](auto& r) { return rMeanH2(r[0], r[1]); });
    holdAccuracy("rMeanRms", kMeans, 10, 1.0, [](auto& r) { return rMeanRms(r[0], r[1]); });
    holdAccuracy("rMeanHero", kMeans, 12, 1.4, [](auto& r) { return rMeanHero(r[0], r[1]); });
    holdAccuracy("rMeanAGM", kMeans, 14, 2.25, [](auto& r) { return rMeanAGM(r[0], r[1]); });
    holdAccuracy("rMeanMAGM", kMeans, 16, 25.0, [](auto& r) { return rMeanMAGM(r[0], r[1]); });
}

TEST(Means, ByPowersAgreeWithTheReference) {
    const auto logarithm = [](const double* r) {
        const double most = std::fmax(std::fabs(r[0]), std::fabs(r[1]));
        return (4.0 + std::fabs(std::log(std::fabs(r[0])))) * (1 + most / std::fabs(r[3]));
    };
    holdAccuracy(
        "rMeanHeroK", kHeroK, 3, 0.45,
        [](auto& r) { return rMeanHeroK(r[0], r[1], static_cast<std::uint64_t>(r[2])); },
        logarithm);
    const auto exponents = [](const double* r) {
        const double logs = std::fabs(std::log(r[0])) + std::fabs(std::log(r[1]));
        return 4.0 + (2.0 + 1.0 / std::fabs(r[2])) * logs + 4.0 / std::fabs(r[2]);
    };
    holdAccuracy(
        "rMeanHoelder", kHoelder, 3, 0.4, [](auto& r) { return rMeanHoelder(r[0], r[1], r[2]); },
        exponents);
    const auto powers = [](const double* r) {
        const double logs = std::fabs(std::log(r[0])) + std::fabs(std::log(r[1]));
        return 4.0 + 2.0 * (1.0 + std::fabs(r[2])) * logs;
    };
    holdAccuracy(
        "rMeanLehmer", kHoelder, 5, 0.45, [](auto& r) { return rMeanLehmer(r[0], r[1], r[2]); },
        powers);
    holdAccuracy(
        "rMeanHoelderI", kHoelderI, 3, 0.45,
        [](auto& r) { return rMeanHoelderI(r[0], r[1], whole(r[2])); },
        [](const double* r) {
            return 6.0 + 2 * std::fabs(std::log(r[0])) + 2 * std::fabs(std::log(r[1]));
        });
    holdAccuracy(
        "rMeanLehmerI", kHoelderI, 5, 0.5,
        [](auto& r) { return rMeanLehmerI(r[0], r[1], whole(r[2])); },
        [](const double* r) { return 4.0 + std::fabs(r[2]); });
}

TEST(Means, OfTwoSpecialNumbers) {
    const double root = std::sqrt(0.5);
    const PairAnswer table[] = {
        {"rMeanA", rMeanA, 1, 4, 2.5},
        {"rMeanA", rMeanA, kHuge, kHuge, kInf},
        {"rMeanA", rMeanA, kQuiet, 1, kAnyNan},
        {"rMeanA", rMeanA, kInf, -kInf, kAnyNan},
        {"rMeanG", rMeanG, 1, 4, 2},
        {"rMeanG", rMeanG, -1, -4, 2},
        {"rMeanG", rMeanG, -1, 4, kNoResult},
        {"rMeanG", rMeanG, 0, -4, 0},
        {"rMeanG", rMeanG, kHuge, kHuge, kInf},
        {"rMeanG", rMeanG, kQuiet, 1, kAnyNan},
        {"rMeanH", rMeanH, 2, 6, 3},
        {"rMeanH", rMeanH, -2, -6, -3},
        {"rMeanH", rMeanH, 0, kQuiet, 0},
        {"rMeanH", rMeanH, kInf, 0, 0},
        {"rMeanH", rMeanH, kTiny, kTiny, 0},
        {"rMeanH", rMeanH, -kTiny, -kTiny, 0},
        {"rMeanH", rMeanH, ___MinReal, ___MinReal, 0},  // the product underflows
        {"rMeanH", rMeanH, 3, -3, kNoResult},
        {"rMeanH", rMeanH, 1, -3, 3},
        {"rMeanH", rMeanH, kQuiet, 1, kAnyNan},
        {"rMeanH", rMeanH, kHuge, kHuge, kAnyNan},
        {"rMeanH2", rMeanH2, 1, 1, 1},
        {"rMeanH2", rMeanH2, -1, 7, std::sqrt(49.0 / 25.0)},
        {"rMeanH2", rMeanH2, 0, kInf, 0},
        {"rMeanH2", rMeanH2, 1e-170, 1e-170, 0},
        {"rMeanH2", rMeanH2, kQuiet, 1, kAnyNan},
        {"rMeanH2", rMeanH2, 1e200, 1, kAnyNan},
        {"rMeanRms", rMeanRms, 1, -7, 5},
        {"rMeanRms", rMeanRms, 0, 1, root},
        {"rMeanRms", rMeanRms, 1e200, 1, kInf},
        {"rMeanRms", rMeanRms, kQuiet, 1, kAnyNan},
        {"rMeanHero", rMeanHero, 1, 4, 7.0 / 3.0},
        {"rMeanHero", rMeanHero, -1, 4, kAnyNan},
        {"rMeanHero", rMeanHero, 0, 3, 1},
        {"rMeanHero", rMeanHero, kQuiet, 3, kAnyNan},
        {"rMeanAGM", rMeanAGM, -1, 4, kNoResult},
        {"rMeanAGM", rMeanAGM, 1, -4, kNoResult},
        {"rMeanAGM", rMeanAGM, 0, 4, 0},
        {"rMeanAGM", rMeanAGM, 4, 0, 0},
        {"rMeanAGM", rMeanAGM, kQuiet, 1, kAnyNan},
        {"rMeanAGM", rMeanAGM, kInf, 1, kInf},
        {"rMeanMAGM", rMeanMAGM, -1, 4, kNoResult},
        {"rMeanMAGM", rMeanMAGM, 1, -4, kNoResult},
        {"rMeanMAGM", rMeanMAGM, 0, 4, 0},
        {"rMeanMAGM", rMeanMAGM, 4, 0, 0},
        {"rMeanMAGM", rMeanMAGM, 3, 3, 3},
        {"rMeanMAGM", rMeanMAGM, kQuiet, 1, kAnyNan},
        {"rMeanMAGM", rMeanMAGM, kInf, 1, kInf},
        {"rMeanMAGM", rMeanMAGM, kTiny, 3 * kTiny, kAnyFinite},
    };
    expectAnswers(table);
}

// The perimeter of an ellipse with the half axes 5 and 3, 25.526998863398131.
TEST(Means, ModifiedMeanGivesThePerimeterOfTheEllipse) {
    const double perimeter = 2 * std::acos(-1.0) * rMeanMAGM(25.0, 9.0) / rMeanAGM(5.0, 3.0);
    EXPECT_NEAR(perimeter, 25.526998863398131, 1e-13);
    EXPECT_NEAR(rMeanAGM(24.0, 6.0), 13.458171481725615, 1e-14);
}

TEST(Means, HarmonicMeanOfVanishingNumbersHasNoSign) {
    EXPECT_FALSE(std::signbit(rMeanH(-kTiny, -kTiny)));
    EXPECT_FALSE(std::signbit(rMeanH(-0.0, -1.0)));
}

TEST(Means, HeronsFamily) {
    EXPECT_TRUE(answers(kNoResult, rMeanHeroK(1, 4, 0)));
    EXPECT_EQ(rMeanHeroK(1, 4, 1), 2.5);
    EXPECT_EQ(rMeanHeroK(1, 4, 2), rMeanHero(1, 4));
    EXPECT_EQ(rMeanHeroK(1, 4, 3), (5.0 + 1.0 + 1.0) / 4.0);
    EXPECT_TRUE(std::isnan(rMeanHeroK(kQuiet, 4, 3)));
    EXPECT_TRUE(std::isnan(rMeanHeroK(-1, 4, 2)));
    EXPECT_NEAR(rMeanHeroK(0.5, 0.5, 500), 0.5, 1e-15);
    // The powers underflow, and rPow makes ___MinReal of them.
    EXPECT_EQ(rMeanHeroK(0.5, 0.5, 3000), 1.0 / 3001.0);
}

TEST(Means, OfAnOrder) {
    EXPECT_EQ(rMeanHoelder(1, 4, 0.0), 2.0);
    EXPECT_TRUE(answers(kNoResult, rMeanHoelder(-1, 4, 0.0)));
    EXPECT_NEAR(rMeanHoelder(-1, 4, 1.0), 2.5, 1e-14);  // magnitudes
    EXPECT_EQ(rMeanHoelder(2, 4, 5000.0), ___MaxReal);  // the powers saturate, their sum overflows
    EXPECT_TRUE(std::isnan(rMeanHoelder(kQuiet, 4, 1.0)));
    EXPECT_TRUE(std::isnan(rMeanHoelder(1, 4, kQuiet)));
    EXPECT_EQ(rMeanHoelderI(3, 5, -2), rMeanH2(3, 5));
    EXPECT_EQ(rMeanHoelderI(3, 5, -1), rMeanH(3, 5));
    EXPECT_EQ(rMeanHoelderI(3, 5, 0), rMeanG(3, 5));
    EXPECT_EQ(rMeanHoelderI(3, 5, 1), rMeanA(3, 5));
    EXPECT_EQ(rMeanHoelderI(3, 5, 2), rMeanRms(3, 5));
    EXPECT_NEAR(rMeanHoelderI(-3, 5, 3), std::cbrt(49.0), 1e-14);
    EXPECT_TRUE(std::isnan(rMeanHoelderI(0, 5, -3)));
    EXPECT_EQ(rMeanHoelderI(1, 1, INT64_MIN), 1.0);
    EXPECT_EQ(rMeanHoelderI(1, 1, INT64_MAX), 1.0);
    EXPECT_EQ(rMeanLehmer(2, 6, 0.0), 3.0);
    EXPECT_NEAR(rMeanLehmer(1, 4, 0.5), 2.0, 1e-14);
    EXPECT_NEAR(rMeanLehmer(1, 4, 1.0), 2.5, 1e-14);
    EXPECT_TRUE(std::isnan(rMeanLehmer(kQuiet, 4, 1.0)));
    EXPECT_TRUE(std::isnan(rMeanLehmer(2, 6, 5000.0)));
    EXPECT_EQ(rMeanLehmerI(2, 6, 0), 3.0);
    EXPECT_EQ(rMeanLehmerI(2, 6, 1), 4.0);
    EXPECT_EQ(rMeanLehmerI(2, 6, 2), 5.0);
    EXPECT_EQ(rMeanLehmerI(-2, 6, 2), 10.0);
    EXPECT_TRUE(std::isnan(rMeanLehmerI(0, 6, -1)));
    EXPECT_EQ(rMeanLehmerI(1, 1, INT64_MIN), 1.0);
    EXPECT_TRUE(std::isnan(rMeanLehmerI(2, 6, INT64_MAX)));
}

TEST(Means, LieBetweenTheirNumbersAndAreSymmetric) {
    std::mt19937_64 random(37);
    std::uniform_real_distribution<> any(-4.0, 4.0);
    constexpr double more = 1 + 1e-13;
    for (int i = 0; i < 3000; ++i) {
        const double a = std::exp(any(random));
        const double b = std::exp(any(random));
        const double low = std::fmin(a, b) / more;
        const double high = std::fmax(a, b) * more;
        for (const auto mean :
             {rMeanA, rMeanG, rMeanH, rMeanH2, rMeanRms, rMeanHero, rMeanAGM, rMeanMAGM}) {
            const double value = mean(a, b);
            ASSERT_GE(value, low);
            ASSERT_LE(value, high);
            ASSERT_EQ(value, mean(b, a));
        }
        ASSERT_LE(rMeanH2(a, b), rMeanH(a, b) * more);
        ASSERT_LE(rMeanH(a, b), rMeanG(a, b) * more);
        ASSERT_LE(rMeanG(a, b), rMeanAGM(a, b) * more);
        ASSERT_LE(rMeanAGM(a, b), rMeanA(a, b) * more);
        ASSERT_LE(rMeanA(a, b), rMeanRms(a, b) * more);
        ASSERT_EQ(rMeanH(-a, -b), -rMeanH(a, b));
        ASSERT_EQ(rMeanRms(-a, b), rMeanRms(a, b));
    }
}

double half(double x) {
    return 0.5 * x;
}

TEST(Arguments, SumsAndProducts) {
    EXPECT_EQ(rVaSum(1, 2.5), 2.5);
    EXPECT_EQ(rVaSum(0, 2.5), 2.5);
    EXPECT_EQ(rVaSum(4, 1.0, 2.0, 3.0, 4.0), 10.0);
    EXPECT_EQ(rVaSum(12, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 0.5), 11.5);
    EXPECT_TRUE(std::isnan(rVaSum(2, 1.0, kQuiet)));
    // The order counts: from the first on.
    EXPECT_EQ(rVaSum(3, 1e16, 1.0, 1.0), 1e16);
    EXPECT_EQ(rVaSum(3, 1.0, 1.0, 1e16), 1e16 + 2.0);
    EXPECT_EQ(rVaProduct(0, 7.0), 1.0);
    EXPECT_EQ(rVaProduct(3, 2.0, -3.0, 4.0), -24.0);
    EXPECT_EQ(rVaProduct(2, kInf, 2.0), kInf);
    EXPECT_EQ(rVaSumSquares(0, 7.0), 0.0);
    EXPECT_EQ(rVaSumSquares(3, 2.0, -3.0, 4.0), 29.0);
    EXPECT_EQ(rVaSumInv(2, 3.0, 6.0), 2.0);
    EXPECT_EQ(rVaSumInv(3, 3.0, 0.0, kQuiet), 0.0);
    EXPECT_EQ(rVaSumInv(0, 3.0), kInf);
    EXPECT_TRUE(std::isnan(rVaSumInv(2, 3.0, kQuiet)));
    EXPECT_NEAR(rVaSumLnAbs(3, 2.0, -3.0, 4.0), std::log(24.0), 1e-15);
    EXPECT_TRUE(answers(kNoResult, rVaSumLnAbs(3, 2.0, 0.0, 4.0)));
    EXPECT_EQ(rVaSumLnAbs(0, 2.0), 0.0);
    EXPECT_EQ(rVaSumLnAbs(1, kInf), kInf);
}

TEST(Arguments, MeansAndFunctions) {
    EXPECT_EQ(rVaMeanA(4, 1.0, 2.0, 3.0, 4.0), 2.5);
    EXPECT_EQ(rVaMeanA(0, 1.0), kInf);
    EXPECT_EQ(rVaMeanH(2, 2.0, 6.0), 3.0);
    EXPECT_EQ(rVaMeanH(2, 2.0, 0.0), 0.0);
    EXPECT_TRUE(std::isnan(rVaMeanH(0, 2.0)));
    EXPECT_EQ(rVaMeanRms(2, 1.0, -7.0), 5.0);
    EXPECT_TRUE(std::isnan(rVaMeanRms(0, 1.0)));
    EXPECT_TRUE(std::isnan(rVaMeanRms(1, kQuiet)));
    EXPECT_EQ(rVaSumFunc(3, half, 2.0, 4.0, 6.0), 6.0);
    EXPECT_EQ(rVaSumFunc(0, half, 2.0), 0.0);
    EXPECT_EQ(rVaProductFunc(3, half, 2.0, 4.0, 6.0), 6.0);
    EXPECT_EQ(rVaProductFunc(0, half, 2.0), 1.0);
    EXPECT_TRUE(answers(kNoResult, rVaSumFunc(1, nullptr, 2.0)));
    EXPECT_TRUE(answers(kNoResult, rVaProductFunc(1, nullptr, 2.0)));
}

}  // namespace
