#include "nuv64/numeric/real_elementary.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

TEST(Elementary, Magnitude) {
    const double tiny = 0x1p-1074;
    const double most = 0x1.fffffffffffffp1023;
    const SpecialAnswers table[] = {
        {"rAbs", rAbs, {kAnyNan, kInf, kInf, 0, 0, tiny, tiny, most, most}},
    };
    expectSpecialAnswers(table);
    EXPECT_EQ(rAbs(-2.5), 2.5);
    EXPECT_TRUE(std::signbit(rAbs(-0.0)));
    EXPECT_TRUE(std::signbit(rAbs(-kQuiet)));
}

TEST(Elementary, PowersOfMinusOne) {
    for (const std::int64_t n : {std::int64_t{0}, std::int64_t{2}, std::int64_t{-2}, INT64_MIN}) {
        EXPECT_EQ(rMin1toI(n), 1.0);
        EXPECT_EQ(rByMin1toI(2.5, n), 2.5);
    }
    for (const std::int64_t n : {std::int64_t{1}, std::int64_t{-1}, std::int64_t{-3}, INT64_MAX}) {
        EXPECT_EQ(rMin1toI(n), -1.0);
        EXPECT_EQ(rByMin1toI(2.5, n), -2.5);
    }
    EXPECT_EQ(rMin1toU(0), 1.0);
    EXPECT_EQ(rMin1toU(7), -1.0);
    EXPECT_EQ(rMin1toU(UINT64_MAX), -1.0);
    EXPECT_EQ(rMin1toU(UINT64_MAX - 1), 1.0);
    for (const double x : {0.0, 2.5, -2.5, kInf, 0x1p-1074, kQuiet}) {
        EXPECT_EQ(std::signbit(rByMin1toU(x, 4)), std::signbit(x));
        EXPECT_EQ(std::signbit(rByMin1toU(x, UINT64_MAX)), !std::signbit(x));
        EXPECT_TRUE(answers(-x, rByMin1toU(x, 3)));
        EXPECT_TRUE(answers(-x, rByMin1toI(x, -5)));
    }
}

}  // namespace
