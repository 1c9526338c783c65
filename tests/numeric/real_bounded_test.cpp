#include "nuv64/numeric/real_bounded.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "nuv64/core/special_reals.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
const double kQuiet = std::numeric_limits<double>::quiet_NaN();

struct Bounded {
    double value;
    unsigned flag;
    bool operator==(const Bounded&) const = default;
};

Bounded call(double (*function)(double, double, std::uint16_t*), double a, double b) {
    std::uint16_t flag = 77;
    const double value = function(a, b, &flag);
    const double again = function(a, b, nullptr);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(again));
    return {value, flag};
}

TEST(Safe, GivesAnInfinityInsteadOfOverflowing) {
    EXPECT_EQ(rSafeInv(4.0), 0.25);
    EXPECT_EQ(rSafeInv(0.0), kInf);
    EXPECT_EQ(rSafeInv(-1e-320), -kInf);
    EXPECT_EQ(rSafeInv(-kInf), 0.0);
    EXPECT_TRUE(std::isnan(rSafeInv(kQuiet)));
    EXPECT_EQ(rSafeDiv(1.0, 1e-320), kInf);
    EXPECT_EQ(rSafeDiv(-1.0, 0.0), -kInf);
    EXPECT_EQ(rSafeDiv(-1.0, -1e-320), kInf);
    EXPECT_TRUE(std::isnan(rSafeDiv(0.0, 0.0)));
    EXPECT_EQ(rSafeDiv(6.0, -3.0), -2.0);
    EXPECT_EQ(rSafeMul(-1e200, 1e200), -kInf);
    EXPECT_EQ(rSafeMul(-1e200, -1e200), kInf);
    EXPECT_EQ(rSafeMul(-3.0, 2.0), -6.0);
    EXPECT_EQ(rSafeProportion(1e300, 1e10, 1e20), 1e300 / 1e20 * 1e10);
    EXPECT_EQ(rSafeProportion(1e-300, 1e-10, 1e-20), 1e-300 * (1e-10 / 1e-20));
    EXPECT_EQ(rSafeProportion(-6.0, 2.0, -3.0), 4.0);
    EXPECT_EQ(rSafeProportion(-6.0, 2.0, 3.0), -4.0);
    EXPECT_EQ(rSafeProportion(-1.0, 1.0, 0.0), -kInf);
}

TEST(Bounded, AddSaturates) {
    EXPECT_EQ(call(rBoundAdd, 1.0, 2.0), (Bounded{3.0, 0}));
    EXPECT_EQ(call(rBoundAdd, 0.0, -2.0), (Bounded{-2.0, 0}));
    EXPECT_EQ(call(rBoundAdd, -2.0, 0.0), (Bounded{-2.0, 0}));
    EXPECT_EQ(call(rBoundAdd, 2.0, -2.0), (Bounded{0.0, 512}));
    EXPECT_EQ(call(rBoundAdd, -2.0, 2.0), (Bounded{0.0, 512}));
    EXPECT_EQ(call(rBoundAdd, -2.0, 1.0), (Bounded{-1.0, 0}));
    EXPECT_EQ(call(rBoundAdd, 1e308, 1e308), (Bounded{___MaxReal, 256}));
    EXPECT_EQ(call(rBoundAdd, -1e308, -1e308), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundSub, 1.0, 2.0), (Bounded{-1.0, 0}));
    EXPECT_EQ(call(rBoundSub, -1e308, 1e308), (Bounded{-___MaxReal, 256}));
}

TEST(Bounded, MulAndDivSaturate) {
    EXPECT_EQ(call(rBoundMul, 1e200, -1e200), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundMul, -1e-200, -1e-200), (Bounded{___MinReal, 512}));
    EXPECT_EQ(call(rBoundMul, 0.0, kInf), (Bounded{0.0, 0}));
    EXPECT_EQ(call(rBoundMul, -3.0, 2.0), (Bounded{-6.0, 0}));
    EXPECT_EQ(call(rBoundMul, 1e200, 1e-200), (Bounded{1e200 * 1e-200, 0}));
    EXPECT_EQ(call(rBoundDiv, -1.0, 0.0), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundDiv, 1.0, -0.0), (Bounded{___MaxReal, 256}));
    EXPECT_EQ(call(rBoundDiv, 0.0, 0.0), (Bounded{0.0, 0}));
    EXPECT_EQ(call(rBoundDiv, 1e300, -1e-300), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundDiv, 1e-300, -1e300), (Bounded{-___MinReal, 512}));
    EXPECT_EQ(call(rBoundDiv, 6.0, -3.0), (Bounded{-2.0, 0}));
}

TEST(Bounded, ModTakesTheSignOfItsFirst) {
    std::uint16_t flag = 7;
    double quotient = 9.0;
    EXPECT_EQ(rBoundMod(-7.5, 2.0, &quotient, &flag), -1.5);
    EXPECT_EQ(quotient, -3.0);
    EXPECT_EQ(flag, 0u);
    EXPECT_EQ(rBoundMod(7.5, -2.0, &quotient, nullptr), 1.5);
    EXPECT_EQ(quotient, 3.0);
    EXPECT_EQ(rBoundMod(2.0, 2.0, &quotient, &flag), 2.0);
    EXPECT_EQ(quotient, 0.0);
    quotient = 9.0;
    EXPECT_EQ(rBoundMod(3.0, 0.0, &quotient, &flag), 3.0);
    EXPECT_EQ(quotient, 9.0);
    EXPECT_EQ(rBoundMod(1e300, 3.0, &quotient, &flag), 0.0);
    EXPECT_EQ(flag, 1024u);
    EXPECT_EQ(quotient, 1e300 / 3.0);
    EXPECT_EQ(rBoundMod(1e300, 1e-300, nullptr, &flag), 0.0);
    EXPECT_EQ(flag, 1024u);
    std::mt19937_64 random(31);
    for (int i = 0; i < 2000; ++i) {
        const double a = std::uniform_real_distribution<>(-1e6, 1e6)(random);
        const double m = std::uniform_real_distribution<>(0.1, 10.0)(random);
        const double rest = rBoundMod(a, m, &quotient, &flag);
        ASSERT_NEAR(quotient * m + rest, a, 1e-9);
        ASSERT_LT(std::fabs(rest), m);
    }
}

}  // namespace
