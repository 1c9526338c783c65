#include "nuv64/numeric/real_series_sums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_series_sums_reference.inc"

std::uint64_t count(const double* row) {
    return static_cast<std::uint64_t>(row[0]);
}

TEST(SeriesSums, ArithmeticAgreesWithTheReference) {
    holdAccuracy("rAriSum", kArithmetic, 3, 0.0,
                 [](auto& r) { return rAriSum(count(r), r[1], r[2]); });
    holdAccuracy("rAriSumFl", kArithmetic, 5, 0.0,
                 [](auto& r) { return rAriSumFl(count(r), r[1], r[2]); });
    holdAccuracy("rAriSumPow2", kArithmetic, 7, 1.3,
                 [](auto& r) { return rAriSumPow2(count(r), r[1], r[2]); });
}

// Rounding of ratio^n weighs as ratio^n/(1 - ratio^n), that of 1 - ratio^n nothing.
double geometricAllowance(double n, double ratio) {
    const double power = std::fabs(std::pow(ratio, n));
    const double rest = std::fabs(1.0 - std::pow(ratio, n));
    return 4.0 + (rest == 0.0 ? 0.0 : n * power / rest);
}

TEST(SeriesSums, GeometricAgreesWithTheReference) {
    holdAccuracy(
        "rGeoSum", kGeometric, 3, 0.65, [](auto& r) { return rGeoSum(count(r), r[1], r[2]); },
        [](const double* r) { return geometricAllowance(r[0], r[2]); });
    holdAccuracy(
        "rGeoSumPow2", kGeometric, 5, 0.3,
        [](auto& r) { return rGeoSumPow2(count(r), r[1], r[2]); },
        [](const double* r) {
            // ratio^2 is rounded, which 1 - ratio^2 and the power see.
            const double square = r[2] * r[2];
            const double rest = std::fabs(1.0 - square);
            return geometricAllowance(r[0], square) + (rest == 0 ? 0 : square / rest);
        });
    holdAccuracy(
        "rGeoSumFl", kGeometricEnds, 3, 0.2,
        [](auto& r) { return rGeoSumFl(count(r), r[1], r[2]); },
        [](const double* r) {
            const double q = std::pow(r[2] / r[1], 1.0 / (r[0] - 1.0));
            return 4.0 + (2.0 + std::fabs(std::log(r[2] / r[1]))) * (1.0 + q) / std::fabs(1.0 - q);
        });
    holdAccuracy(
        "rGeoAri", kGeoAri, 3, 0.2, [](auto& r) { return rGeoAri(count(r), r[1], r[2]); },
        [](const double* r) {
            const double power = std::pow(r[1], r[0]);
            const double sum = std::fabs(r[2] * (1.0 - power) / (1.0 - r[1]));
            const double parts =
                std::fabs(power) * (1.0 + r[0]) + sum * geometricAllowance(r[0], r[1]);
            return 4.0 + 2.0 * parts / std::fabs(r[3]);
        });
}

TEST(SeriesSums, Edges) {
    EXPECT_EQ(rAriSum(0, kQuiet, kInf), 0.0);
    EXPECT_EQ(rAriSum(1, 5.0, 7.0), 5.0);
    EXPECT_EQ(rAriSum(5, 1.0, 1.0), 15.0);
    EXPECT_EQ(rAriSum(UINT64_MAX, 1.0, 0.0), 0x1p64);
    EXPECT_TRUE(std::isnan(rAriSum(3, kQuiet, 1.0)));
    EXPECT_EQ(rAriSumFl(0, 3.0, 4.0), 0.0);
    EXPECT_EQ(rAriSumFl(4, 1.0, 4.0), 10.0);
    EXPECT_TRUE(std::isnan(rAriSumFl(0, kInf, 1.0)));
    EXPECT_EQ(rAriSumPow2(0, 3.0, 4.0), 0.0);
    EXPECT_EQ(rAriSumPow2(1, 3.0, 4.0), 9.0);
    EXPECT_NEAR(rAriSumPow2(4, 1.0, 1.0), 30.0, 1e-14);
    EXPECT_EQ(rGeoSum(0, kQuiet, 2.0), 0.0);
    EXPECT_EQ(rGeoSum(1, 3.0, kQuiet), 3.0);
    EXPECT_EQ(rGeoSum(7, 0.0, kInf), 0.0);
    EXPECT_EQ(rGeoSum(7, 3.0, 0.0), 3.0);
    EXPECT_EQ(rGeoSum(7, 3.0, 1.0), 21.0);
    EXPECT_EQ(rGeoSum(4, 1.0, 2.0), 15.0);
    EXPECT_EQ(rGeoSum(4, 1.0, -1.0), 0.0);
    EXPECT_EQ(rGeoSum(2000, 1.0, 2.0), kInf);
    EXPECT_TRUE(std::isnan(rGeoSum(3, 1.0, kQuiet)));
    EXPECT_EQ(rGeoSumFl(0, 1.0, 2.0), 0.0);
    EXPECT_EQ(rGeoSumFl(1, 1.0, 2.0), 1.0);
    EXPECT_EQ(rGeoSumFl(5, 3.0, 3.0), 15.0);
    EXPECT_EQ(rGeoSumFl(2, 1.0, 2.0), 3.0);
    EXPECT_EQ(rGeoSumFl(5, 0.0, 0.0), 0.0);
    EXPECT_TRUE(answers(kNoResult, rGeoSumFl(5, 0.0, 3.0)));
    EXPECT_TRUE(answers(kNoResult, rGeoSumFl(5, -1.0, 3.0)));
    EXPECT_TRUE(answers(kNoResult, rGeoSumFl(5, 1.0, -3.0)));
    EXPECT_EQ(rGeoSumFl(2, -3.0, 0.0), -3.0);
    EXPECT_EQ(rGeoSumFl(UINT64_MAX, 2.0, 1.0), kInf);  // the ratio rounds to 1
    EXPECT_TRUE(std::isnan(rGeoSumFl(3, 1.0, kQuiet)));
    EXPECT_EQ(rGeoSumPow2(3, -2.0, -2.0), 84.0);
    EXPECT_EQ(rGeoSumPow2(0, 1.0, 1.0), 0.0);
    EXPECT_EQ(rGeoAri(0, 3.0, 7.0), 1.0);
    EXPECT_EQ(rGeoAri(3, 2.0, 1.0), 15.0);
    EXPECT_TRUE(std::isnan(rGeoAri(3, 1.0, 1.0)));
    EXPECT_TRUE(answers(kNoResult, rGeoAri(2000, 2.0, 1.0)));
    EXPECT_TRUE(answers(kNoResult, rGeoAri(2, kQuiet, 1.0)));
}

TEST(SeriesSums, AreTheSumsOfTheirTerms) {
    std::mt19937_64 random(31);
    std::uniform_real_distribution<> any(0.2, 1.8);
    for (int i = 0; i < 500; ++i) {
        const std::uint64_t n = 2 + random() % 20;
        const double first = any(random);
        const double step = any(random);
        double ari = 0, ari2 = 0, geo = 0, geo2 = 0, linear = 1.0, power = first;
        for (std::uint64_t k = 0; k < n; ++k) {
            const double term = first + static_cast<double>(k) * step;
            ari += term;
            ari2 += term * term;
            geo += power;
            geo2 += power * power;
            power *= step;
            linear = linear * step + first;
        }
        ASSERT_NEAR(rAriSum(n, first, step) / ari, 1.0, 1e-14);
        ASSERT_NEAR(rAriSumPow2(n, first, step) / ari2, 1.0, 1e-14);
        ASSERT_NEAR(rGeoSum(n, first, step) / geo, 1.0, 1e-11);
        ASSERT_NEAR(rGeoSumFl(n, first, power / step) / geo, 1.0, 1e-11);
        ASSERT_NEAR(rGeoSumPow2(n, first, step) / geo2, 1.0, 1e-11);
        ASSERT_NEAR(rGeoAri(n, step, first) / linear, 1.0, 1e-11);
    }
}

}  // namespace
