#include "nuv64/numeric/real_periodic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_periodic_reference.inc"

constexpr double kTiny = 0x1p-1074;

// A whole part and a rest.
struct Parts {
    double whole = 99.0;
    double rest = 0.0;
};

Parts one(double x) {
    Parts parts;
    parts.rest = rModuloOne(x, &parts.whole);
    return parts;
}

Parts period(double x, double p) {
    Parts parts;
    parts.rest = rModuloPeriod(x, p, &parts.whole);
    return parts;
}

void expectParts(const Parts& parts, double whole, double rest) {
    EXPECT_TRUE(answers(whole, parts.whole)) << parts.whole << " instead of " << whole;
    EXPECT_TRUE(answers(rest, parts.rest)) << parts.rest << " instead of " << rest;
}

TEST(Periodic, AgreesWithTheReference) {
    holdAccuracy("rModuloOne", kModuloOne, 1, 0.0,
                 [](auto& r) { return rModuloOne(r[0], nullptr); });
    holdAccuracy("rModuloOne whole", kModuloOne, 3, 0.0, [](auto& r) { return one(r[0]).whole; });
    // The rest is the difference of x and a rounded multiple of p.
    const auto cancelled = [](const double* r) {
        return r[2] == 0.0 ? 1.0 : 1.0 + std::fabs(r[0] / r[2]);
    };
    holdAccuracy(
        "rModuloPeriod", kModuloPeriod, 2, 0.0,
        [](auto& r) { return rModuloPeriod(r[0], r[1], nullptr); }, cancelled);
    holdAccuracy("rModuloPeriod base", kModuloPeriod, 4, 0.0,
                 [](auto& r) { return period(r[0], r[1]).whole; });
    holdAccuracy(
        "rPhaseInPeriod", kModuloPeriod, 6, 1.7,
        [](auto& r) { return rPhaseInPeriod(r[0], r[1], nullptr); }, cancelled);
    holdAccuracy("rRoundToEps", kRoundToEps, 2, 0.0,
                 [](auto& r) { return rRoundToEps(r[0], r[1]); });
}

TEST(Periodic, FractionsOfSpecialArguments) {
    expectParts(one(-0.25), -1.0, 0.75);
    expectParts(one(-1e-20), 0.0, 0.0);  // 1 - 1e-20 rounds to 1
    expectParts(one(-kTiny), 0.0, 0.0);
    expectParts(one(kTiny), 0.0, kTiny);
    expectParts(one(0.0), 0.0, 0.0);
    expectParts(one(0x1p53), 0x1p53, 0.0);
    expectParts(one(-0x1p54), -0x1p54, 0.0);
    expectParts(one(kInf), kInf, 0.0);
    expectParts(one(-kInf), -kInf, 0.0);
    expectParts(one(kQuiet), kAnyNan, 0.0);
    expectParts(one(___MaxReal), ___MaxReal, 0.0);
}

TEST(Periodic, PeriodsOfSpecialArguments) {
    expectParts(period(-0.5, 2.0), -2.0, 1.5);
    expectParts(period(-0.5, -2.0), -2.0, 1.5);
    expectParts(period(5.0, 2.0), 4.0, 1.0);
    expectParts(period(4.0, 2.0), 4.0, 0.0);
    expectParts(period(-4.0, 2.0), -4.0, 0.0);
    // 10 - 1e-20 rounds to the period: the base is raised by 1, not by 10.
    expectParts(period(-1e-20, 10.0), -9.0, 0.0);
    expectParts(period(7.0, 0.0), 7.0, 0.0);
    expectParts(period(1e20, 2.0), 1e20, 0.0);
    expectParts(period(kInf, 2.0), kInf, 0.0);
    expectParts(period(kQuiet, 2.0), kAnyNan, 0.0);
    expectParts(period(7.0, kQuiet), 7.0, 0.0);
    expectParts(period(7.0, kInf), kAnyNan, kAnyNan);
    expectParts(period(3.0 * kTiny, 2.0 * kTiny), 2.0 * kTiny, kTiny);
    EXPECT_TRUE(std::isnan(rPhaseInPeriod(1.0, 0.0, nullptr)));
    EXPECT_NEAR(rPhaseInPeriod(0.5, 2.0, nullptr), std::acos(0.0), 1e-15);
    EXPECT_NEAR(rPhaseInPeriod(0.5, -2.0, nullptr), -std::acos(0.0), 1e-15);
    double base = 0.0;
    EXPECT_EQ(rPhaseInPeriod(5.0, 2.0, &base), std::acos(-1.0));
    EXPECT_EQ(base, 4.0);
    EXPECT_EQ(rPhaseInPeriod(kQuiet, 2.0, nullptr), 0.0);
}

TEST(Periodic, RestsStayInTheirPeriod) {
    std::mt19937_64 random(17);
    std::uniform_real_distribution<> any(-1.0, 1.0);
    for (int i = 0; i < 20000; ++i) {
        const double p = std::exp(20.0 * any(random));
        const double x = any(random) * std::exp(30.0 * any(random));
        const Parts parts = period(x, p);
        ASSERT_GE(parts.rest, 0.0) << x << ' ' << p;
        ASSERT_LT(parts.rest, p) << x << ' ' << p;
        if (parts.rest == 0.0) continue;
        ASSERT_NEAR(parts.whole + parts.rest, x, 3 * 0x1p-53 * std::fabs(parts.whole)) << p;
        ASSERT_EQ(rModuloPeriod(x, -p, nullptr), parts.rest);
    }
}

TEST(Periodic, RoundsToMultiples) {
    EXPECT_EQ(rRoundToEps(2.5, 1.0), 3.0);
    EXPECT_EQ(rRoundToEps(-2.5, 1.0), -3.0);
    EXPECT_EQ(rRoundToEps(0.37, 0.25), 0.25);
    EXPECT_EQ(rRoundToEps(-0.375, 0.25), -0.5);
    for (const double eps : {0.0, -0.0, -1.0, kQuiet, -kInf}) EXPECT_EQ(rRoundToEps(0.7, eps), 0.7);
    EXPECT_TRUE(std::isnan(rRoundToEps(kQuiet, 1.0)));
    EXPECT_TRUE(std::isnan(rRoundToEps(kQuiet, 0.5)));
    EXPECT_TRUE(std::isnan(rRoundToEps(1.0, kInf)));
    EXPECT_EQ(rRoundToEps(kInf, 1.0), kInf);
    EXPECT_EQ(rRoundToEps(-kInf, 1.0), -kInf);
    EXPECT_EQ(rRoundToEps(0.0, 0.3), 0.0);
    EXPECT_EQ(rRoundToEps(___MaxReal, 0.5), 0.5 * ___MaxReal);  // the quotient saturates
    EXPECT_EQ(rRoundToEps(kTiny, 1e300), 0.0);
}

}  // namespace
