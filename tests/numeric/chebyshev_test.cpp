#include "nuv64/numeric/chebyshev.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/chebyshev_reference.inc"

constexpr double kEps = 0x1p-52;

std::uint64_t degree(const double* r) {
    return static_cast<std::uint64_t>(r[1]);
}

TEST(Chebyshev, AgreesWithTheReferenceInside) {
    // Absolute errors with the rounding of the multiple of the angle.
    const auto first = [](const double* r) { return 1.0 + r[1] * kEps / ulpOf(r[2]); };
    const auto t = [](auto& r) { return rChebyshevT(r[0], degree(r)); };
    holdAccuracy("rChebyshevT inside", kChebyshevInside, 2, 1.0, t, first);
    const auto second = [](const double* r) {
        return 4.0 + 2.0 * (r[1] + 1.0) * kEps / ulpOf(r[4]);
    };
    const auto u = [](auto& r) { return rChebyshevU(r[0], degree(r)); };
    holdAccuracy("rChebyshevU inside", kChebyshevInside, 4, 1.0, u, second);
}

TEST(Chebyshev, AgreesWithTheReferenceOutside) {
    const auto scale = [](const double* r) {
        return 1.0 + r[1] * (1.0 + std::log(2.0 * std::fabs(r[0])));
    };
    const auto t = [](auto& r) { return rChebyshevT(r[0], degree(r)); };
    holdAccuracy("rChebyshevT outside", kChebyshevOutside, 2, 1.5, t, scale);
    const auto u = [](auto& r) { return rChebyshevU(r[0], degree(r)); };
    holdAccuracy("rChebyshevU outside", kChebyshevOutside, 4, 1.5, u, scale);
}

TEST(Chebyshev, Singles) {
    EXPECT_EQ(rChebyshevT(0.3, 0), 1.0);
    EXPECT_EQ(rChebyshevT(kQuiet, 0), 1.0);
    EXPECT_EQ(rChebyshevT(0.3, 1), 0.3);
    EXPECT_EQ(rChebyshevT(3.0, 2), 17.0);
    EXPECT_EQ(rChebyshevT(-1.0, 999), -1.0);
    EXPECT_EQ(rChebyshevT(1.0, UINT64_MAX), 1.0);
    EXPECT_EQ(rChebyshevT(-100.0, 1001), -kInf);
    EXPECT_TRUE(std::isnan(rChebyshevT(kQuiet, 5)));
    EXPECT_TRUE(std::isnan(rChebyshevT(kQuiet, 500)));
}

TEST(Chebyshev, SinglesOfTheSecondKind) {
    const CountAnswer<std::uint64_t> table[] = {
        {"rChebyshevU", rChebyshevU, 0.3, 0, 1.0},
        {"rChebyshevU", rChebyshevU, kQuiet, 0, 1.0},
        {"rChebyshevU", rChebyshevU, 0.3, 1, 0.6},
        {"rChebyshevU", rChebyshevU, 3.0, 2, 35.0},
        {"rChebyshevU", rChebyshevU, 1.0, 999, 1000.0},
        {"rChebyshevU", rChebyshevU, -1.0, 999, -1000.0},
        {"rChebyshevU", rChebyshevU, -1.0, 1000, 1001.0},
        {"rChebyshevU", rChebyshevU, 1.0, UINT64_MAX, 0x1p64},
        {"rChebyshevU", rChebyshevU, -100.0, 1001, -kInf},
        {"rChebyshevU", rChebyshevU, kInf, 100, kAnyNan},
        {"rChebyshevU", rChebyshevU, kInf, 1, kInf},
        {"rChebyshevU", rChebyshevU, kQuiet, 5, kAnyNan},
        {"rChebyshevU", rChebyshevU, kQuiet, 500, kAnyNan},
    };
    expectAnswers(table);
    // T_n = U_n - x U_(n-1), over the passage from one method to the other.
    for (std::uint64_t n = 60; n < 70; ++n) {
        for (const double x : {-0.9, -0.1, 0.5, 0.999, 1.01, -1.2}) {
            const double u = rChebyshevU(x, n);
            EXPECT_NEAR(rChebyshevT(x, n), u - x * rChebyshevU(x, n - 1),
                        1e-12 * std::fabs(u) + 1e-12);
        }
    }
}

TEST(Chebyshev, SeriesIsTheSumOfItsTerms) {
    EXPECT_TRUE(answers(kNoResult, rChebyshevTSeries(0.5, nullptr, 3)));
    const double one[] = {2.5};
    EXPECT_EQ(rChebyshevTSeries(0.7, one, 0), 2.5);
    std::mt19937_64 random(9);
    std::uniform_real_distribution<> any(-1.0, 1.0);
    for (int round = 0; round < 200; ++round) {
        double coefs[12];
        for (double& c : coefs) c = any(random);
        const double x = 1.5 * any(random);
        const std::uint64_t order = random() % 12;
        double sum = 0.0;
        double size = 0.0;
        for (std::uint64_t k = 0; k <= order; ++k) {
            sum += coefs[k] * rChebyshevT(x, k);
            size += std::fabs(coefs[k] * rChebyshevT(x, k)) + 1.0;
        }
        EXPECT_NEAR(rChebyshevTSeries(x, coefs, order), sum, 20 * kEps * size);
    }
}

}  // namespace
