#include "nuv64/numeric/real_comparison.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
const double kQuiet = std::numeric_limits<double>::quiet_NaN();

TEST(Comparison, WithTolerance) {
    EXPECT_TRUE(rIsDifferentAbs(1.0, 1.2, 0.1));
    EXPECT_FALSE(rIsDifferentAbs(1.0, 1.05, 0.1));
    EXPECT_FALSE(rIsDifferentAbs(1.0, kQuiet, 0.1));
    EXPECT_TRUE(rIsDifferentRel(100.0, 111.0, 0.05));
    EXPECT_FALSE(rIsDifferentRel(-100.0, -104.0, 0.05));
    EXPECT_TRUE(rIsZeroAbs(-0.1, 0.1));
    EXPECT_FALSE(rIsZeroAbs(0.2, 0.1));
    EXPECT_TRUE(rIsZeroAbs(kQuiet, 0.1));
    EXPECT_EQ(rKronDelta(1.0, 1.0, 0.0), 1.0);
    EXPECT_EQ(rKronDelta(1.0, 2.0, 0.1), 0.0);
    double x = 1.0;
    EXPECT_FALSE(rReplaceIfDifferentAbs(&x, 1.05, 0.1));
    EXPECT_EQ(x, 1.0);
    EXPECT_TRUE(rReplaceIfDifferentAbs(&x, 2.0, 0.1));
    EXPECT_EQ(x, 2.0);
    EXPECT_FALSE(rReplaceIfDifferentRel(&x, 2.1, 0.1));
    EXPECT_TRUE(rReplaceIfDifferentRel(&x, 3.0, 0.1));
    EXPECT_EQ(x, 3.0);
    EXPECT_FALSE(rReplaceIfDifferentAbs(nullptr, 1.0, 0.0));
    EXPECT_FALSE(rReplaceIfDifferentRel(nullptr, 1.0, 0.0));
}

TEST(Comparison, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const double most = 0x1.fffffffffffffp1023;
    struct Row {
        double a, b, tol;
        bool abs, rel;
        std::int32_t order;
    };
    const Row table[] = {
        {0.0, -0.0, 0.0, false, false, 0},    {0.0, tiny, 0.0, true, true, -1},
        {tiny, 0.0, tiny, false, true, 1},    {-tiny, tiny, 0.0, true, true, -1},
        {most, -most, 1.0, true, true, 0},    {most, -most, 3.0, true, false, 0},
        {kInf, kInf, 0.0, false, false, 1},   {kInf, 1.0, 0.5, true, false, 0},
        {-kInf, kInf, 1.0, true, false, 0},   {1.0, 2.0, kInf, false, false, 0},
        {1.0, 2.0, -1.0, true, true, -1},     {1.0, 1.0, -1.0, true, true, 1},
        {kQuiet, 1.0, 0.0, false, false, 1},  {1.0, kQuiet, 0.0, false, false, 1},
        {-1.0, kQuiet, 0.0, false, false, 1}, {1.0, 2.0, kQuiet, false, false, -1},
    };
    for (const Row& row : table) {
        EXPECT_EQ(rIsDifferentAbs(row.a, row.b, row.tol), row.abs) << row.a << ' ' << row.b;
        EXPECT_EQ(rIsDifferentRel(row.a, row.b, row.tol), row.rel) << row.a << ' ' << row.b;
        EXPECT_EQ(rKronDelta(row.a, row.b, row.tol), row.rel ? 0.0 : 1.0);
        EXPECT_EQ(rCompare(row.a, row.b, row.tol), row.order) << row.a << ' ' << row.b;
        double x = row.a;
        EXPECT_EQ(rReplaceIfDifferentAbs(&x, row.b, row.tol), row.abs);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(x),
                  std::bit_cast<std::uint64_t>(row.abs ? row.b : row.a));
    }
    EXPECT_FALSE(rIsZeroAbs(kInf, most));
    EXPECT_TRUE(rIsZeroAbs(-kInf, kInf));
    EXPECT_TRUE(rIsZeroAbs(1.0, kQuiet));
    EXPECT_TRUE(rIsZeroAbs(-0.0, 0.0));
    EXPECT_FALSE(rIsZeroAbs(0.0, -1.0));
    EXPECT_EQ(rCompareTo0(kQuiet, 1.0), 1);
    EXPECT_EQ(rCompareTo0(-tiny, 0.0), -1);
    EXPECT_EQ(rCompareTo0(-kInf, most), -1);
    EXPECT_EQ(rCompareTo0(kInf, kInf), 0);
    EXPECT_EQ(rCompareTo0(-0.0, 0.0), 0);
    EXPECT_EQ(rCompareTo0(0.0, -1.0), 1);
    EXPECT_EQ(rCompareTo0(0.0, kQuiet), 1);
    EXPECT_TRUE(rIsBetweenAtoB(kInf, 0.0, kInf));
    EXPECT_TRUE(rIsBetweenAtoB(0.0, -0.0, -0.0));
    EXPECT_FALSE(rIsBetweenAtoB(1.0, kQuiet, 2.0));
    EXPECT_FALSE(rIsBetweenAtoB(1.0, 0.0, kQuiet));
    EXPECT_TRUE(rHaveSameSign(-kInf, -tiny));
    EXPECT_TRUE(rHaveSameSign(-0.0, tiny));
    EXPECT_FALSE(rHaveSameSign(tiny, -tiny));
    EXPECT_FALSE(rIsInteger(tiny));
    EXPECT_FALSE(rIsInteger(most));
    EXPECT_FALSE(rIsInteger(-kInf));
    EXPECT_TRUE(rIsInteger(9223372036854774784.0));
}

TEST(Comparison, TwoNegativesFollowTheirMagnitudes) {
    EXPECT_EQ(rCompare(-1.0, -2.0, 0.0), -1);
    EXPECT_EQ(rCompare(-2.0, -1.0, 0.0), 1);
    EXPECT_EQ(rCompare(1.0, 2.0, 0.0), -1);
    EXPECT_EQ(rCompare(2.0, 1.0, 0.0), 1);
    EXPECT_EQ(rCompare(-1.0, 0.0, 0.0), -1);
    EXPECT_EQ(rCompare(0.0, -1.0, 0.0), 1);
    EXPECT_EQ(rCompare(1.0, 1.01, 0.1), 0);
    EXPECT_EQ(rCompare(2.0, 2.0, 0.0), 0);
    EXPECT_EQ(rCompare(kQuiet, 1.0, 0.5), 1);
    EXPECT_EQ(rCompareTo0(-0.5, 0.1), -1);
    EXPECT_EQ(rCompareTo0(0.5, 0.1), 1);
    EXPECT_EQ(rCompareTo0(-0.1, 0.1), 0);
}

TEST(Comparison, PlacesAndSigns) {
    EXPECT_TRUE(rIsBetweenAtoB(2.0, 1.0, 3.0));
    EXPECT_TRUE(rIsBetweenAtoB(2.0, 3.0, 2.0));
    EXPECT_FALSE(rIsBetweenAtoB(4.0, 3.0, 2.0));
    EXPECT_FALSE(rIsBetweenAtoB(kQuiet, 3.0, 2.0));
    EXPECT_TRUE(rHaveSameSign(-1.0, -2.0));
    EXPECT_TRUE(rHaveSameSign(0.0, -2.0));
    EXPECT_TRUE(rHaveSameSign(0.0, 2.0));
    EXPECT_FALSE(rHaveSameSign(1.0, -2.0));
    EXPECT_FALSE(rHaveSameSign(1.0, kQuiet));
    EXPECT_TRUE(rIsInteger(-3.0));
    EXPECT_TRUE(rIsInteger(-0.0));
    EXPECT_TRUE(rIsInteger(-0x1p63));
    EXPECT_FALSE(rIsInteger(0.5));
    EXPECT_FALSE(rIsInteger(0x1p63));
    EXPECT_FALSE(rIsInteger(kInf));
    EXPECT_FALSE(rIsInteger(kQuiet));
}

}  // namespace
