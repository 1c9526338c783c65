#include "nuv64/numeric/real_scaling.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

TEST(Scaling, MantissaLiesBetweenOneAndTheRadix) {
    std::int32_t e = 7;
    EXPECT_EQ(rMantissaAndExponent(0.0, &e, 10), 0.0);
    EXPECT_EQ(e, static_cast<std::int32_t>(0x80000001));
    EXPECT_EQ(rMantissaAndExponent(-1250.0, &e, 10), -1.25);
    EXPECT_EQ(e, 3);
    EXPECT_EQ(rMantissaAndExponent(0.375, &e, 2), 1.5);
    EXPECT_EQ(e, -2);
    EXPECT_TRUE(answers(kNoResult, rMantissaAndExponent(5.0, &e, 1)));
    EXPECT_EQ(e, 0);
    EXPECT_TRUE(answers(kNoResult, rMantissaAndExponent(5.0, &e, -3)));
    e = 7;
    EXPECT_EQ(rMantissaAndExponent(kInf, &e, 10), kInf);
    EXPECT_EQ(e, 0);
    EXPECT_TRUE(std::isnan(rMantissaAndExponent(kQuiet, nullptr, 10)));
    EXPECT_EQ(rMantissaAndExponent(8.0, nullptr, 2), 1.0);
    std::mt19937_64 random(5);
    for (int i = 0; i < 2000; ++i) {
        const double x = std::bit_cast<double>(random());
        const std::int32_t radix = static_cast<std::int32_t>(2 + random() % 35);
        if (!std::isfinite(x)) continue;
        const double m = rMantissaAndExponent(x, &e, radix);
        EXPECT_GE(std::fabs(m), 1.0);
        EXPECT_LT(std::fabs(m), radix);
        EXPECT_EQ(std::signbit(m), std::signbit(x));
        if (radix == 2) {
            EXPECT_EQ(std::ldexp(m, e), x);
        }
    }
}

TEST(Scaling, MultipliesByAPower) {
    EXPECT_EQ(rMultiplyByRadixToExponent(1.5, 4, 2), 24.0);
    EXPECT_EQ(rMultiplyByRadixToExponent(-3.0, 2, 10), -300.0);
    EXPECT_EQ(rMultiplyByRadixToExponent(3.0, -1, 4), 0.75);
    EXPECT_EQ(rMultiplyByRadixToExponent(7.0, 0, 0), 7.0);
    EXPECT_TRUE(answers(kNoResult, rMultiplyByRadixToExponent(7.0, -1, 0)));
    EXPECT_EQ(rMultiplyByRadixToExponent(1.0, INT32_MIN, 2), 0.0);
    EXPECT_EQ(rMultiplyByRadixToExponent(1.0, 1, UINT32_MAX), 4294967295.0);
}

TEST(Scaling, PowersOfTwoAreExact) {
    std::int32_t e = 7;
    EXPECT_EQ(rFrexp(8.0, &e), 0.5);
    EXPECT_EQ(e, 4);
    EXPECT_EQ(rFrexp(-0.75, &e), -0.75);
    EXPECT_EQ(e, 0);
    EXPECT_EQ(rFrexp(0x1p-1074, &e), 0.5);
    EXPECT_EQ(e, -1073);
    for (const double x : {0.0, -0.0, kInf, -kInf, kQuiet}) {
        e = 7;
        EXPECT_TRUE(answers(x, rFrexp(x, &e)));
        EXPECT_EQ(e, 0);
    }
    EXPECT_TRUE(std::signbit(rFrexp(-0.0, nullptr)));
    EXPECT_EQ(rFrexp(6.0, nullptr), 0.75);
    std::mt19937_64 random(6);
    for (int i = 0; i < 2000; ++i) {
        const double x = std::bit_cast<double>(random());
        if (!std::isfinite(x)) continue;
        const double m = rFrexp(x, &e);
        EXPECT_GE(std::fabs(m), 0.5);
        EXPECT_LT(std::fabs(m), 1.0);
        EXPECT_EQ(rLdexp(m, e), x);
    }
}

TEST(Scaling, PowersOfTwoRoundOnce) {
    const CountAnswer<std::int32_t> table[] = {
        {"rLdexp", rLdexp, 1.5, 4, 24.0},
        {"rLdexp", rLdexp, 1.5, -1, 0.75},
        {"rLdexp", rLdexp, 1.0, 1024, kInf},
        {"rLdexp", rLdexp, -1.0, INT32_MAX, -kInf},
        {"rLdexp", rLdexp, 1.0, INT32_MIN, 0.0},
        {"rLdexp", rLdexp, 0x1p-1074, 2097, 0x1p1023},
        {"rLdexp", rLdexp, 0x1p1023, -2097, 0x1p-1074},
        {"rLdexp", rLdexp, 0x1.fffffffffffffp1023, -2098, 0x1p-1074},
        {"rLdexp", rLdexp, 1.0, -1075, 0.0},
        {"rLdexp", rLdexp, 1.5, -1075, 0x1p-1074},
        {"rLdexp", rLdexp, 0x1.0000000000001p0, -1075, 0x1p-1074},
        {"rLdexp", rLdexp, 0.0, 99, 0.0},
        {"rLdexp", rLdexp, kInf, INT32_MIN, kInf},
        {"rLdexp", rLdexp, kQuiet, 3, kAnyNan},
    };
    expectAnswers(table);
}

}  // namespace
