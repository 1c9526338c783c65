#include "nuv64/numeric/exponential_integrals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/exponential_integrals_reference.inc"

std::uint64_t order(const double* r) {
    return static_cast<std::uint64_t>(r[1]);
}

TEST(ExponentialIntegrals, AgreeWithTheReference) {
    const auto ofSeries = [](const double* r) {
        const double x = r[0];
        return 2.0 + (0.6 + std::fabs(std::log(x)) + std::exp(x) / std::fmax(1.0, x)) / r[1];
    };
    holdAccuracy(
        "rE_1", kE1, 1, 1.0, [](auto& r) { return rE_1(r[0]); }, ofSeries);
    const auto ofEn = [](const double* r) {
        return r[0] < 1.0 || r[1] == 0.0 ? 12.0 : 6.0 + 64.0 / r[0];
    };
    holdAccuracy(
        "rEn", kEn, 2, 1.0, [](auto& r) { return rEn(r[0], order(r)); }, ofEn);
    const auto ofEntire = [](const double* r) {
        const double x = std::fmax(r[0], 1.0);
        return 10.0 + std::fabs(r[0]) + std::exp(x) / x / std::fabs(r[1]) * (r[0] > 1.0);
    };
    holdAccuracy(
        "rEinSeries", kEin, 1, 1.0, [](auto& r) { return rEinSeries(r[0], nullptr); }, ofEntire);
}

TEST(ExponentialIntegrals, SpecialArguments) {
    const double least = 0x1p-1074;
    const double most = std::numeric_limits<double>::max();
    const SpecialAnswers table[] = {
        {"rE_1",
         rE_1,
         {kAnyNan, kAnyNan, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, kAnyNan,
          kNoResult}},
    };
    expectSpecialAnswers(table);
    const CountAnswer<std::uint64_t> orders[] = {
        {"rEn", rEn, kQuiet, 0, kNoResult},
        {"rEn", rEn, kQuiet, 5, kNoResult},
        {"rEn", rEn, -1.0, 3, kNoResult},
        {"rEn", rEn, -least, 3, kNoResult},
        {"rEn", rEn, -kInf, 3, kNoResult},
        {"rEn", rEn, 0.0, 0, kInf},
        {"rEn", rEn, 0.0, 1, kInf},
        {"rEn", rEn, -0.0, 1, kInf},
        {"rEn", rEn, 0.0, 2, 1.0},
        {"rEn", rEn, 0.0, 5, 0.25},
        {"rEn", rEn, 0.0, UINT64_MAX, 0x1p-64},
        {"rEn", rEn, least, 1, kNoResult},
        {"rEn", rEn, least, 1000, kNoResult},
        {"rEn", rEn, least, 0, kInf},
        {"rEn", rEn, kInf, 0, 0.0},
        {"rEn", rEn, kInf, 1, kAnyNan},
        {"rEn", rEn, most, 0, 0.0},
        {"rEn", rEn, most, 3, 0.0},
        {"rEn", rEn, 800.0, 3, 0.0},
        {"rEn", rEn, 0.5, UINT64_MAX, std::exp(-0.5) * 0x1p-64},
        {"rEn", rEn, 2.0, UINT64_MAX, kAnyFinite},
    };
    expectAnswers(orders);
    EXPECT_TRUE(rIsNAN(rE_1(1e300)));
}

// What the recurrence over the order would give if it were run in full.
TEST(ExponentialIntegrals, LongRecurrencesForgetTheirStart) {
    for (double x : {1e-300, 1e-5, 0.3, 0.999}) {
        double value = rE_1(x);
        for (std::uint64_t k = 1; k < 3000; ++k) {
            value = (std::exp(-x) - x * value) / static_cast<double>(k);
            if (k % 97 != 0) continue;
            EXPECT_EQ(rEn(x, k + 1), value) << x << ' ' << k;
        }
    }
}

TEST(ExponentialIntegrals, RecurrenceOverTheOrder) {
    for (double x : {0.01, 0.5, 1.0, 2.5, 30.0}) {
        for (std::uint64_t n = 1; n < 40; n += 3) {
            const double wanted = (std::exp(-x) - x * rEn(x, n)) / static_cast<double>(n);
            const double tolerance = 4e-15 * std::exp(-x);
            EXPECT_NEAR(rEn(x, n + 1), wanted, tolerance) << x << ' ' << n;
        }
    }
    EXPECT_NEAR(rE_1(1.0), 0.21938393439552029, 1e-15);
}

TEST(ExponentialIntegrals, EntireSeries) {
    std::uint64_t terms = 77;
    EXPECT_EQ(rEinSeries(0.0, &terms), 0.0);
    EXPECT_EQ(terms, 2u);
    EXPECT_NEAR(rEinSeries(1.0, &terms), 0.7965995992970531, 1e-15);
    EXPECT_GT(terms, 10u);
    EXPECT_LT(terms, 25u);
    for (double x : {kQuiet, kInf, -kInf}) {
        terms = 77;
        EXPECT_TRUE(answers(kNoResult, rEinSeries(x, &terms))) << x;
        EXPECT_EQ(terms, 0u);
        EXPECT_TRUE(answers(kNoResult, rEinSeries(x, nullptr))) << x;
    }
    EXPECT_EQ(rEinSeries(0x1p-1074, nullptr), 0x1p-1074);
    EXPECT_TRUE(answers(kNoResult, rEinSeries(1e4, &terms)));
    EXPECT_TRUE(answers(kNoResult, rEinSeries(std::numeric_limits<double>::max(), &terms)));
    EXPECT_EQ(rEinSeries(-1e4, &terms), -kInf);
    // Ein is the rest of E_1.
    for (double x : {0.1, 1.0, 4.0}) {
        EXPECT_NEAR(rEinSeries(x, nullptr), rE_1(x) + std::log(x) + 0.5772156649015329, 2e-14) << x;
    }
}

}  // namespace
