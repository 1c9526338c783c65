#include "nuv64/numeric/real_intervals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

TEST(Intervals, Normalize) {
    double a = 3.0;
    double b = 1.0;
    EXPECT_EQ(rIntervalNormalize(&a, &b), -2.0);
    EXPECT_EQ(a, 1.0);
    EXPECT_EQ(b, 3.0);
    EXPECT_EQ(rIntervalNormalize(&a, &b), 2.0);
    EXPECT_EQ(a, 1.0);
    b = kQuiet;
    EXPECT_TRUE(std::isnan(rIntervalNormalize(&a, &b)));
    EXPECT_EQ(a, 1.0);
    a = kInf;
    b = -kInf;
    EXPECT_EQ(rIntervalNormalize(&a, &b), -kInf);
    EXPECT_EQ(a, -kInf);
    EXPECT_TRUE(answers(kNoResult, rIntervalNormalize(nullptr, &b)));
    EXPECT_TRUE(answers(kNoResult, rIntervalNormalize(&a, nullptr)));
}

TEST(Intervals, DistanceFromAPoint) {
    for (const bool turned : {false, true}) {
        const double a = turned ? 3.0 : -1.0;
        const double b = turned ? -1.0 : 3.0;
        EXPECT_EQ(rIntervalDistanceFromPoint(-2.5, a, b), -1.5);
        EXPECT_EQ(rIntervalDistanceFromPoint(4.0, a, b), 1.0);
        for (const double x : {-1.0, 0.0, 3.0}) EXPECT_EQ(rIntervalDistanceFromPoint(x, a, b), 0.0);
        EXPECT_EQ(rIntervalDistanceFromPoint(kQuiet, a, b), 0.0);
        EXPECT_EQ(rIntervalDistanceFromPoint(kInf, a, b), kInf);
    }
    EXPECT_EQ(rIntervalDistanceFromPoint(5.0, 2.0, 2.0), 3.0);
    EXPECT_EQ(rIntervalDistanceFromPoint(5.0, kQuiet, kQuiet), 0.0);
}

TEST(Intervals, DistanceOfTwo) {
    EXPECT_EQ(rIntervalsDistance(1.0, 2.0, 4.0, 7.0), 2.0);
    EXPECT_EQ(rIntervalsDistance(2.0, 1.0, 7.0, 4.0), 2.0);
    EXPECT_EQ(rIntervalsDistance(4.0, 7.0, 1.0, 2.0), -2.0);
    EXPECT_EQ(rIntervalsDistance(1.0, 4.0, 2.0, 3.0), 0.0);
    EXPECT_EQ(rIntervalsDistance(1.0, 4.0, 4.0, 5.0), 0.0);
    EXPECT_EQ(rIntervalsDistance(kQuiet, 4.0, 5.0, 6.0), 1.0);
    EXPECT_EQ(rIntervalsDistance(-kInf, kInf, 1.0, 2.0), 0.0);
}

struct Four {
    double a, b, c, d;
    bool meet = rIntervalsGapAndUnion(&a, &b, &c, &d);
};

void expectFour(const Four& four, bool meet, double a, double b, double c, double d) {
    EXPECT_EQ(four.meet, meet);
    EXPECT_EQ(four.a, a);
    EXPECT_EQ(four.b, b);
    EXPECT_EQ(four.c, c);
    EXPECT_EQ(four.d, d);
}

TEST(Intervals, GapAndUnion) {
    expectFour({1, 3, 2, 5}, true, 1, 5, 2, 3);
    expectFour({3, 1, 5, 2}, true, 1, 5, 2, 3);
    expectFour({1, 9, 2, 5}, true, 1, 9, 2, 5);
    expectFour({1, 2, 2, 5}, true, 1, 5, 2, 2);
    expectFour({1, 2, 4, 5}, false, 1, 5, 2, 4);
    expectFour({4, 5, 2, 1}, false, 1, 5, 2, 4);
    double x = 1.0;
    EXPECT_FALSE(rIntervalsGapAndUnion(nullptr, &x, &x, &x));
    EXPECT_FALSE(rIntervalsGapAndUnion(&x, nullptr, &x, &x));
    EXPECT_FALSE(rIntervalsGapAndUnion(&x, &x, nullptr, &x));
    EXPECT_FALSE(rIntervalsGapAndUnion(&x, &x, &x, nullptr));
}

// Lengths add up, and the distance tells the same story.
TEST(Intervals, GapAndUnionAgreeWithTheDistance) {
    std::mt19937_64 random(23);
    for (int i = 0; i < 5000; ++i) {
        double ends[4];
        for (double& end : ends) end = static_cast<double>(random() % 12);
        const double lengths = std::fabs(ends[1] - ends[0]) + std::fabs(ends[3] - ends[2]);
        const double distance = rIntervalsDistance(ends[0], ends[1], ends[2], ends[3]);
        const bool apart = distance != 0.0;
        ASSERT_EQ(rIntervalsGapAndUnion(&ends[0], &ends[1], &ends[2], &ends[3]), !apart);
        ASSERT_LE(ends[2], ends[3]);
        const double shared = ends[3] - ends[2];
        ASSERT_EQ(ends[1] - ends[0], apart ? lengths + shared : lengths - shared);
        if (apart) {
            ASSERT_EQ(std::fabs(distance), shared);
        }
    }
}

struct AbsVal {
    double lo, hi;
    std::uint32_t flags = 99;
    double result = rIntervalAbsVal(-7.0, &lo, &hi, &flags);
};

TEST(Intervals, OfMagnitudes) {
    const struct {
        double lo, hi, wantedLo, wantedHi;
        std::uint32_t flags;
    } cases[] = {
        {1, 3, 1, 3, 0},
        {3, 1, 1, 3, INTERVAL_SWAPPED},
        {-3, -1, 1, 3, INTERVAL_SWAPPED},
        {-1, -3, 1, 3, 0},
        {-2, 3, 0, 3, INTERVAL_HELD_ZERO},
        {-3, 2, 0, 3, INTERVAL_HELD_ZERO | INTERVAL_SWAPPED},
        {3, -2, 0, 3, INTERVAL_HELD_ZERO | INTERVAL_SWAPPED},
        {0, 4, 0, 4, INTERVAL_HELD_ZERO},
        {-4, 0, 0, 4, INTERVAL_HELD_ZERO | INTERVAL_SWAPPED},
        {-2, 2, 0, 2, INTERVAL_HELD_ZERO},
        {0, 0, 0, 0, INTERVAL_HELD_ZERO},
        {-kInf, 1, 0, kInf, INTERVAL_HELD_ZERO | INTERVAL_SWAPPED},
    };
    for (const auto& c : cases) {
        const AbsVal made{c.lo, c.hi};
        EXPECT_EQ(made.result, 7.0);
        EXPECT_EQ(made.lo, c.wantedLo) << c.lo << ' ' << c.hi;
        EXPECT_EQ(made.hi, c.wantedHi) << c.lo << ' ' << c.hi;
        EXPECT_EQ(made.flags, c.flags) << c.lo << ' ' << c.hi;
    }
    double lo = -3.0;
    double hi = 1.0;
    EXPECT_EQ(rIntervalAbsVal(2.0, &lo, &hi, nullptr), 2.0);
    EXPECT_EQ(hi, 3.0);
    std::uint32_t flags = 99;
    EXPECT_TRUE(answers(kNoResult, rIntervalAbsVal(2.0, nullptr, &hi, &flags)));
    EXPECT_EQ(flags, 0u);
    EXPECT_TRUE(answers(kNoResult, rIntervalAbsVal(2.0, &lo, nullptr, nullptr)));
    const AbsVal nothing{kQuiet, 1.0};
    EXPECT_TRUE(std::isnan(nothing.lo));
    EXPECT_EQ(nothing.flags, 0u);
    EXPECT_TRUE(std::isnan(rIntervalAbsVal(kQuiet, &lo, &hi, nullptr)));
}

TEST(Intervals, OfMagnitudesHoldsTheMagnitudesOfItsPoints) {
    std::mt19937_64 random(29);
    std::uniform_real_distribution<> any(-5.0, 5.0);
    for (int i = 0; i < 5000; ++i) {
        double lo = any(random);
        double hi = any(random);
        const double inside = lo + 0.1 * static_cast<double>(random() % 11) * (hi - lo);
        const double most = std::max(std::fabs(lo), std::fabs(hi));
        const double x = rIntervalAbsVal(inside, &lo, &hi, nullptr);
        ASSERT_LE(lo, x * (1 + 1e-15));
        ASSERT_GE(hi, x * (1 - 1e-15));
        ASSERT_EQ(hi, most);
    }
}

}  // namespace
