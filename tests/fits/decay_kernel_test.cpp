#include "fits/decay_kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

#include "fits/exponentials_reference.inc"

using nuv64::addDecay;

constexpr double kInf = std::numeric_limits<double>::infinity();

double exponential(double t) {
    const double x = -t;
    double model = 0.0;
    addDecay(1, &x, 1.0, 1.0, &model);
    return model;
}

TEST(DecayKernel, AgreesWithReferenceWithinOneUnit) {
    double worst = 0.0;
    for (const auto& [t, exact] : kExponentials) {
        const double unit = std::ldexp(1.0, std::ilogb(exact) - 52);
        worst = std::max(worst, std::fabs(exponential(t) - exact) / unit);
    }
    std::printf(
        "[  worst   ] exponential, in units of the last place of the rounded result: %.2g\n",
        worst);
    EXPECT_LE(worst, 1.0);
}

TEST(DecayKernel, Limits) {
    EXPECT_EQ(exponential(0.0), 1.0);
    EXPECT_EQ(exponential(-0.0), 1.0);
    EXPECT_EQ(exponential(std::nextafter(-708.0, -kInf)), 0.0);
    EXPECT_GT(exponential(-708.0), 3e-308);
    EXPECT_LT(exponential(709.78), kInf);
    EXPECT_EQ(exponential(std::nextafter(709.78, kInf)), kInf);
    EXPECT_EQ(exponential(-kInf), 0.0);
    EXPECT_EQ(exponential(-1e300), 0.0);
    EXPECT_EQ(exponential(kInf), kInf);
    EXPECT_EQ(exponential(1e300), kInf);
    EXPECT_TRUE(std::isnan(exponential(std::numeric_limits<double>::quiet_NaN())));
    const double infinite = kInf;
    double model = 1.0;
    addDecay(1, &infinite, 1.0, 0.0, &model);
    EXPECT_TRUE(std::isnan(model));
}

TEST(DecayKernel, EveryLengthAndPlaceIsTheSame) {
    for (std::uint64_t n = 0; n < 20; ++n) {
        std::vector<double> x(n), model(n + 1, 2.0);
        for (std::uint64_t i = 0; i < n; ++i) x[i] = 0.1 * static_cast<double>(i);
        addDecay(n, x.data(), 3.0, 1.5, model.data());
        for (std::uint64_t i = 0; i < n; ++i) {
            EXPECT_EQ(model[i], 2.0 + 3.0 * exponential(-1.5 * x[i])) << n;
            EXPECT_NEAR(model[i], 2.0 + 3.0 * std::exp(-1.5 * x[i]), 1e-15);
        }
        EXPECT_EQ(model[n], 2.0);
    }
    addDecay(0, nullptr, 1.0, 1.0, nullptr);
}

}  // namespace
