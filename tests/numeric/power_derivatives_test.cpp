#include "nuv64/numeric/power_derivatives.h"

#include <gtest/gtest.h>

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/power_derivatives_reference.inc"

TEST(PowerDerivatives, AgreeWithTheReference) {
    const auto steps = [](const double* r) {
        return 2.0 + std::fabs(r[1] - r[2]) / 2 + std::fabs(r[2]);
    };
    holdAccuracy(
        "ruPowerAD", kUnsignedPowers, 3, 0.35,
        [](auto& r) {
            return ruPowerAD(r[0], static_cast<std::uint64_t>(r[1]),
                             static_cast<std::int64_t>(r[2]));
        },
        steps);
    holdAccuracy(
        "riPowerAD", kSignedPowers, 3, 0.35,
        [](auto& r) {
            return riPowerAD(r[0], static_cast<std::int64_t>(r[1]),
                             static_cast<std::int64_t>(r[2]));
        },
        [&](const double* r) {
            const double x = std::fabs(r[0]);
            if (r[1] >= 0 || r[2] > r[1]) return steps(r);
            // ln x less a harmonic number cancels.
            double harmonic = 0.0;
            for (double i = 1; i <= r[1] - r[2]; ++i) harmonic += 1.0 / i;
            const double size = std::fabs(std::log(x)) + harmonic;
            return 2.0 * steps(r) + 4.0 * size / std::fabs(std::log(x) - harmonic);
        });
}

TEST(PowerDerivatives, OfUnsignedPowers) {
    EXPECT_EQ(ruPowerAD(3.0, 4, 0), 81.0);
    EXPECT_EQ(ruPowerAD(3.0, 4, 1), 108.0);
    EXPECT_EQ(ruPowerAD(3.0, 4, 4), 24.0);
    EXPECT_EQ(ruPowerAD(3.0, 4, 5), 0.0);
    EXPECT_EQ(ruPowerAD(kQuiet, 4, 5), 0.0);
    EXPECT_EQ(ruPowerAD(3.0, 4, -1), 48.6);
    EXPECT_EQ(ruPowerAD(2.0, 0, -3), 8.0 / 6.0);
    EXPECT_EQ(ruPowerAD(0.0, 0, 0), 1.0);
    EXPECT_EQ(ruPowerAD(0.0, 3, 3), 6.0);
    EXPECT_TRUE(std::isnan(ruPowerAD(kQuiet, 4, -1)));
    EXPECT_EQ(ruPowerAD(kInf, 4, 2), kInf);
    EXPECT_EQ(ruPowerAD(2.0, 3000, -1), kInf);
    // Orders up to the limits of the type end in a few steps.
    EXPECT_EQ(ruPowerAD(1.0, UINT64_MAX, INT64_MAX), kInf);
    EXPECT_TRUE(std::isnan(ruPowerAD(0.5, UINT64_MAX, INT64_MAX)));
    EXPECT_EQ(ruPowerAD(1.0, UINT64_MAX, INT64_MIN), 0.0);
    EXPECT_EQ(ruPowerAD(0.5, 3, INT64_MIN), 0.0);
    EXPECT_EQ(ruPowerAD(3.0, 4, INT64_MAX), 0.0);
}

TEST(PowerDerivatives, OfSignedPowers) {
    EXPECT_EQ(riPowerAD(3.0, 4, 1), 108.0);
    EXPECT_EQ(riPowerAD(2.0, -2, 0), 0.25);
    EXPECT_EQ(riPowerAD(2.0, -2, 1), -0.25);
    EXPECT_EQ(riPowerAD(2.0, -1, 2), 0.25);
    EXPECT_EQ(riPowerAD(2.0, -1, -1), rLog(2.0));
    EXPECT_EQ(riPowerAD(-2.0, -1, -1), rLog(2.0));
    EXPECT_EQ(riPowerAD(-2.0, -1, -2), rLogAD(2.0, -1));
    EXPECT_EQ(riPowerAD(2.0, -3, -3), rLog(2.0) / -2.0 / -1.0);
    // The bare power: -1/x^2 would be the antiderivative of 2/x^3.
    EXPECT_EQ(riPowerAD(2.0, -3, -1), 0.25);
    EXPECT_EQ(riPowerAD(2.0, -3, -2), 0.5);
    EXPECT_TRUE(answers(kNoResult, riPowerAD(0.0, -3, 0)));
    EXPECT_TRUE(std::isnan(riPowerAD(0.0, -3, 2)));
    EXPECT_TRUE(answers(kNoResult, riPowerAD(0.0, -3, -1)));
    EXPECT_TRUE(std::isnan(riPowerAD(0.0, -1, -1)));
    EXPECT_TRUE(std::isnan(riPowerAD(kQuiet, -3, 2)));
    EXPECT_TRUE(std::isnan(riPowerAD(2.0, -3, INT64_MAX)));
    EXPECT_EQ(riPowerAD(0.5, -3, INT64_MAX), -kInf);
    EXPECT_EQ(riPowerAD(1.0, INT64_MIN, INT64_MAX), -kInf);
    EXPECT_EQ(riPowerAD(-1.0, INT64_MIN, INT64_MAX), kInf);
    EXPECT_EQ(riPowerAD(2.0, INT64_MIN, INT64_MIN), 0.0);
    EXPECT_EQ(riPowerAD(2.0, INT64_MIN, -1), 0.0);
    EXPECT_EQ(riPowerAD(2.0, -1, INT64_MIN), 0.0);
}

}  // namespace
