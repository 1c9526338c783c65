#include "nuv64/numeric/real_comparison.h"

#include <gtest/gtest.h>

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
