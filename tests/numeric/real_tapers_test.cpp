#include "nuv64/numeric/real_tapers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_tapers_reference.inc"

// What an error of v does to e^(ln 2*(v - 1)/v), besides the rounding of the exponent.
double throughGaussian(double v, double errorOfV) {
    return v == 0.0 ? 1.0 : 2.0 + (1.0 + errorOfV) / v;
}

TEST(SoftSteps, AgreeWithTheReference) {
    const auto up = [](const double* r) { return 2.0 + 1.0 / r[3]; };
    const auto down = [](const double* r) { return 2.0 + 1.0 / r[5]; };
    holdAccuracy(
        "rSoftStepUpL", kSteps, 3, 0.35, [](auto& r) { return rSoftStepUpL(r[0], r[1]); }, up);
    holdAccuracy(
        "rSoftStepDownL", kSteps, 5, 0.8, [](auto& r) { return rSoftStepDownL(r[0], r[1]); }, down);
    holdAccuracy(
        "rSoftStepUpG", kSteps, 7, 0.25, [](auto& r) { return rSoftStepUpG(r[0], r[1], r[2]); },
        [&](const double* r) { return throughGaussian(r[3], up(r)); });
    holdAccuracy(
        "rSoftStepDownG", kSteps, 9, 0.3, [](auto& r) { return rSoftStepDownG(r[0], r[1]); },
        [](const double* r) { return 2.0 + 4.0 / r[9]; });
}

TEST(SoftSteps, Edges) {
    EXPECT_EQ(rSoftStepUpL(0.0, 2.0), 0.5);
    EXPECT_EQ(rSoftStepUpL(2.0, 2.0), 0.75);
    EXPECT_EQ(rSoftStepUpL(-2.0, -2.0), 0.25);
    // Without a width that counts it is a hard step.
    for (const double w : {0.0, 1e-30, kQuiet}) {
        EXPECT_EQ(rSoftStepUpL(-1.0, w), 0.0);
        EXPECT_EQ(rSoftStepUpL(1.0, w), 1.0);
        EXPECT_EQ(rSoftStepDownL(1.0, w), 0.0);
        EXPECT_EQ(rSoftStepUpG(1.0, w, 0.01), 1.0);
        EXPECT_EQ(rSoftStepDownG(-1.0, w), 1.0);
    }
    EXPECT_EQ(rSoftStepUpL(0.0, 0.0), 1.0);
    EXPECT_EQ(rSoftStepUpL(kInf, 1.0), 1.0);
    EXPECT_EQ(rSoftStepUpL(-kInf, 1.0), 0.0);
    EXPECT_EQ(rSoftStepUpL(kQuiet, 1.0), 1.0);
    EXPECT_EQ(rSoftStepUpL(3.0, kInf), 0.5);
    EXPECT_EQ(rSoftStepUpG(-5.0, 1.0, 0.125), 0.0);
    EXPECT_EQ(rSoftStepUpG(-kInf, 1.0, 0.0), 0.0);  // (0 - 1)/0
    EXPECT_EQ(rSoftStepUpG(0.0, 1.0, 0.5), 0.5);
    EXPECT_EQ(rSoftStepUpG(0.0, 1.0, 0.75), 0.0);
    EXPECT_EQ(rSoftStepUpG(1.0, 1.0, kQuiet), rSoftStepUpG(1.0, 1.0, 0.0));
    EXPECT_EQ(rSoftStepDownG(-100.0, 1.0), 1.0);
}

TEST(SoftSteps, RiseAndMirror) {
    double last = 0.0;
    for (int i = -400; i <= 400; ++i) {
        const double x = 0.05 * i;
        const double value = rSoftStepUpL(x, 1.5);
        EXPECT_GE(value, last);
        EXPECT_NEAR(value + rSoftStepUpL(-x, 1.5), 1.0, 1e-15);
        EXPECT_EQ(rSoftStepDownL(x, 1.5), 1.0 - value);
        last = value;
    }
}

TEST(SoftWindows, AgreeWithTheReference) {
    holdAccuracy("rSoftEdgedRectL", kRects, 6, 3.75,
                 [](auto& r) { return rSoftEdgedRectL(r[0], r[1], r[2], r[3], r[4]); });
    holdAccuracy(
        "rSoftEdgedRectG", kRects, 8, 0.2,
        [](auto& r) { return rSoftEdgedRectG(r[0], r[1], r[2], r[3], r[4], r[5]); },
        [](const double* r) { return throughGaussian(r[6], 6.0); });
    holdAccuracy("rBumpL", kBumps, 4, 2.5, [](auto& r) { return rBumpL(r[0], r[1], r[2]); });
    holdAccuracy(
        "rBumpG", kBumps, 6, 0.15, [](auto& r) { return rBumpG(r[0], r[1], r[2], r[3]); },
        [](const double* r) {
            const double once = std::exp2(1.0 - 1.0 / r[4]);
            return throughGaussian(once, throughGaussian(r[4], 6.0));
        });
    const auto narrow = [](const double* r) { return 6.0 + 4.0 / r[2]; };
    holdAccuracy(
        "rBumpReledgeL", kReledges, 4, 0.55,
        [](auto& r) { return rBumpReledgeL(r[0], r[1], r[2]); }, narrow);
    holdAccuracy(
        "rBumpReledgeG", kReledges, 6, 0.3,
        [](auto& r) { return rBumpReledgeG(r[0], r[1], r[2], r[3]); },
        [&](const double* r) { return throughGaussian(r[4], narrow(r)); });
}

TEST(SoftWindows, Edges) {
    EXPECT_EQ(rSoftEdgedRectL(0.5, 0.0, 1.0, 1.0, 1.0), 1.0);
    EXPECT_EQ(rSoftEdgedRectL(3.0, 0.0, 1.0, 1.0, 2.0), 0.5);
    EXPECT_EQ(rSoftEdgedRectL(-3.0, 0.0, 1.0, 3.0, 2.0), 0.5);
    // A width of 0 takes the edge away.
    for (const double far : {1.0, 2.0, 1e300, kInf}) {
        EXPECT_EQ(rSoftEdgedRectL(far, 0.0, 1.0, 1.0, 0.0), 1.0);
        EXPECT_EQ(rSoftEdgedRectL(-far, 0.0, 1.0, 0.0, 1.0), 1.0);
        EXPECT_EQ(rSoftEdgedRectG(far, 0.0, 1.0, 1.0, 0.0, 0.01), 1.0);
    }
    EXPECT_EQ(rSoftEdgedRectL(kInf, 0.0, 1.0, 1.0, 1.0), 0.0);
    EXPECT_EQ(rSoftEdgedRectG(kInf, 0.0, 1.0, 1.0, 1.0, 0.0), 0.0);
    EXPECT_EQ(rSoftEdgedRectL(kQuiet, 0.0, 1.0, 1.0, 1.0), 1.0);
    EXPECT_TRUE(std::isnan(rSoftEdgedRectG(2.0, 0.0, 1.0, 1.0, kQuiet, 0.01)));
    EXPECT_EQ(rBumpL(0.9, 2.0, 1.0), 1.0);
    EXPECT_EQ(rBumpL(2.0, 2.0, 1.0), 0.5);
    EXPECT_EQ(rBumpG(2.0, 2.0, 1.0, 0.0), 0.5);
    EXPECT_EQ(rBumpG(2.0, 2.0, 1.0, 0.6), 0.0);
    EXPECT_EQ(rBumpG(1.0 + std::sqrt(99.1), 2.0, 1.0, 0.0), 0.0);
    EXPECT_GT(rSoftEdgedRectG(11.2, -1.0, 1.0, 1.0, 1.0, 0.0), 0.0);
    EXPECT_NEAR(rBumpG(1.0 + std::sqrt(0.5), 2.0, 1.0, 0.0), std::exp2(1.0 - std::sqrt(2.0)),
                1e-15);
    EXPECT_EQ(rBumpReledgeL(2.0, 2.0, 1.0), 1.0);
    EXPECT_EQ(rBumpReledgeL(1.0, 2.0, 1.0), 0.5);
    EXPECT_EQ(rBumpReledgeL(4.0, 2.0, 1.0), 0.5);
    EXPECT_EQ(rBumpReledgeL(4.0, 2.0, 7.0), 0.5);  // r counts as 1
    EXPECT_EQ(rBumpReledgeL(4.0, 2.0, -1.0), 0.0);
    EXPECT_TRUE(std::isnan(rBumpReledgeL(2.0, 2.0, 0.0)));
    EXPECT_TRUE(std::isnan(rBumpReledgeL(1.0, 2.0, kQuiet)));
    EXPECT_EQ(rBumpReledgeG(4.0, 2.0, 1.0, 0.01), 0.5);
    EXPECT_TRUE(std::isnan(rBumpReledgeG(kQuiet, 2.0, 1.0, 0.01)));
}

TEST(Thresholds, AgreeWithTheReference) {
    const auto cancelled = [](const double* r) { return 4.0 + 4.0 / r[6]; };
    holdAccuracy(
        "rThresholdL", kThresholds, 6, 0.25,
        [](auto& r) { return rThresholdL(r[0], r[1], r[2], r[3], r[4]); },
        [&](const double* r) { return r[6] == 0.0 ? 0.0 : cancelled(r); });
    holdAccuracy(
        "rThresholdG", kThresholds, 8, 0.15,
        [](auto& r) { return rThresholdG(r[0], r[1], r[2], r[3], r[4], r[5]); },
        [&](const double* r) { return throughGaussian(r[6], cancelled(r)); });
    const auto relative = [](const double* r) { return (4.0 + 4.0 / r[2]) * (1.0 + 1.0 / r[4]); };
    holdAccuracy(
        "rThresholdRelL", kRelativeThresholds, 4, 0.2,
        [](auto& r) { return rThresholdRelL(r[0], r[1], r[2]); }, relative);
    holdAccuracy(
        "rThresholdRelG", kRelativeThresholds, 6, 0.1,
        [](auto& r) { return rThresholdRelG(r[0], r[1], r[2], r[3]); },
        [&](const double* r) { return throughGaussian(r[4], relative(r)); });
}

TEST(Thresholds, Edges) {
    EXPECT_EQ(rThresholdL(2.0, 1.0, 2.0, 3.0, 3.0), 0.5);
    EXPECT_NEAR(rThresholdL(1.0, 1.0, 2.0, 3.0, 3.0), 0.05, 1e-15);
    EXPECT_NEAR(rThresholdL(3.0, 1.0, 2.0, 3.0, 3.0), 0.95, 1e-15);
    // The signs of the marks, and the order of low and high.
    EXPECT_EQ(rThresholdL(2.5, -3.0, -2.0, -1.0, 3.0), rThresholdL(2.5, 1.0, 2.0, 3.0, 3.0));
    // mid is moved between the others; both sides are hard then.
    EXPECT_EQ(rThresholdL(2.9, 1.0, 9.0, 3.0, 3.0), rThresholdL(2.9, 1.0, 3.0, 3.0, 3.0));
    EXPECT_EQ(rThresholdL(0.9, 1.0, 0.5, 3.0, 3.0), 0.0);
    EXPECT_EQ(rThresholdL(3.1, 1.0, 9.0, 3.0, 3.0), 1.0);
    EXPECT_EQ(rThresholdL(0.9, 1.0, 1.0, 1.0, 3.0), 0.0);
    EXPECT_EQ(rThresholdL(1.0, 1.0, 1.0, 1.0, 3.0), 0.5);
    EXPECT_EQ(rThresholdL(1.1, 1.0, 1.0, 1.0, 3.0), 1.0);
    // The dead zone around mid, the cuts far away.
    EXPECT_EQ(rThresholdL(2.0019, 1.0, 2.0, 3.0, 3.0), 0.5);
    EXPECT_GT(rThresholdL(2.0021, 1.0, 2.0, 3.0, 3.0), 0.5);
    EXPECT_EQ(rThresholdL(2.00199, 1.0, 2.0, 3.0, 3.0), 0.5);
    EXPECT_EQ(rThresholdL(1002.1, 1.0, 2.0, 3.0, 3.0), 1.0);
    EXPECT_LT(rThresholdL(1001.9, 1.0, 2.0, 3.0, 3.0), 1.0);
    EXPECT_EQ(rThresholdL(0.001998, 1.0, 2.0, 3.0, 3.0), 0.0);
    EXPECT_GT(rThresholdL(0.001999, 1.0, 2.0, 3.0, 3.0), 0.0);
    for (const double x : {0.0, -1.0, -kInf}) EXPECT_EQ(rThresholdL(x, 1.0, 2.0, 3.0, 3.0), 0.0);
    EXPECT_EQ(rThresholdL(kInf, 1.0, 2.0, 3.0, 3.0), 1.0);
    EXPECT_EQ(rThresholdL(kQuiet, 1.0, 2.0, 3.0, 3.0), 0.5);
    // low = 0 has no lower flank.
    EXPECT_EQ(rThresholdL(0.1, 0.0, 2.0, 3.0, 3.0), 0.5);
    EXPECT_TRUE(std::isnan(rThresholdL(0.0, 0.0, 2.0, 3.0, 3.0)));
    EXPECT_EQ(rThresholdL(-1.0, 0.0, 2.0, 3.0, 3.0), 0.0);
    EXPECT_EQ(rThresholdG(2.0, 1.0, 2.0, 3.0, 3.0, 0.01), 0.5);
    EXPECT_EQ(rThresholdG(0.0, 1.0, 2.0, 3.0, 3.0, 0.0), 0.0);
    EXPECT_EQ(rThresholdG(1.0, 1.0, 2.0, 3.0, 3.0, 0.1), 0.0);
    EXPECT_EQ(rThresholdG(2000.0, 1.0, 2.0, 3.0, 3.0, 0.1), 1.0);
    EXPECT_EQ(rThresholdRelL(5.0, 5.0, 0.5), 0.5);
    EXPECT_NEAR(rThresholdRelL(7.5, 5.0, 0.5), 0.95, 1e-14);
    EXPECT_EQ(rThresholdRelL(4.0, 5.0, 0.0), 0.0);
    EXPECT_EQ(rThresholdRelL(4.0, 5.0, kQuiet), 0.5);
    EXPECT_EQ(rThresholdRelG(5.0, 5.0, 0.5, 0.01), 0.5);
    EXPECT_EQ(rThresholdRelG(1e9, 5.0, 0.5, 0.01), 1.0);
}

TEST(Tapers, AgreeWithTheReference) {
    holdAccuracy("rSmoothLoBoundTaper", kTapers, 4, 1.2,
                 [](auto& r) { return rSmoothLoBoundTaper(r[0], r[1], r[3]); });
    holdAccuracy(
        "rSmoothHiBoundTaper", kTapers, 6, 0.8,
        [](auto& r) { return rSmoothHiBoundTaper(r[0], r[2], r[3]); },
        [](const double* r) { return 1.0 + std::fabs(r[0] / r[2]); });
    holdAccuracy(
        "rSmoothHiAndLoBoundsTaper", kTapers, 8, 1.2,
        [](auto& r) { return rSmoothHiAndLoBoundsTaper(r[0], r[1], r[2], r[3]); },
        [](const double* r) { return 1.0 + std::fabs(r[0] / r[2]); });
    holdAccuracy(
        "rSmoothIntervalTaper", kIntervalTapers, 4, 2.25,
        [](auto& r) { return rSmoothIntervalTaper(r[0], r[1], r[2], r[3]); },
        [](const double* r) { return 1.0 + std::fabs(r[0] / r[2]); });
}

TEST(Tapers, Edges) {
    EXPECT_EQ(rSmoothLoBoundTaper(0.0, 1.5, 3.0), 1.5);
    EXPECT_EQ(rSmoothLoBoundTaper(-0.0, 1.5, 3.0), 1.5);
    EXPECT_EQ(rSmoothLoBoundTaper(4.6, 1.5, 3.0), 4.6);
    EXPECT_EQ(rSmoothLoBoundTaper(4.5001, 1.5, 3.0), 4.5001);
    EXPECT_GT(rSmoothLoBoundTaper(4.4999, 1.5, 3.0), 4.4999);
    EXPECT_EQ(rSmoothLoBoundTaper(4.5, 1.5, 3.0), 4.5);
    EXPECT_EQ(rSmoothLoBoundTaper(0.7, 0.0, 3.0), 0.7);
    EXPECT_TRUE(std::isnan(rSmoothLoBoundTaper(0.0, 0.0, 3.0)));
    EXPECT_TRUE(std::isnan(rSmoothLoBoundTaper(kQuiet, 1.5, 3.0)));
    EXPECT_EQ(rSmoothLoBoundTaper(kInf, 1.5, 3.0), kInf);
    EXPECT_EQ(rSmoothLoBoundTaper(-kInf, 1.5, 3.0), -kInf);
    EXPECT_EQ(rSmoothHiBoundTaper(0.7, 3.0, 2.0), 0.7);
    EXPECT_EQ(rSmoothHiBoundTaper(1.5, 3.0, 2.0), 1.5);
    EXPECT_EQ(rSmoothHiBoundTaper(3.0, 3.0, 2.0), 2.25);
    EXPECT_NEAR(rSmoothHiBoundTaper(1e6, 3.0, 2.0), 3.0, 1e-5);
    EXPECT_TRUE(std::isnan(rSmoothHiBoundTaper(kInf, 3.0, 2.0)));
    EXPECT_TRUE(std::isnan(rSmoothHiBoundTaper(0.0, 0.0, 2.0)));
    EXPECT_TRUE(std::isnan(rSmoothHiBoundTaper(kQuiet, 3.0, 2.0)));
    EXPECT_EQ(rSmoothHiAndLoBoundsTaper(2.0, 0.5, 8.0, 2.0), 2.0);
    EXPECT_EQ(rSmoothHiAndLoBoundsTaper(0.0, 0.5, 8.0, 2.0), 0.5);
    EXPECT_TRUE(std::isnan(rSmoothHiAndLoBoundsTaper(kQuiet, 0.5, 8.0, 2.0)));
    EXPECT_EQ(rSmoothIntervalTaper(2.0, 1.0, 3.0, 0.25), 2.0);
    EXPECT_EQ(rSmoothIntervalTaper(1.5, 1.0, 3.0, 0.25), 1.5);
    EXPECT_NE(rSmoothIntervalTaper(1.4, 1.0, 3.0, 0.25), 1.4);
    EXPECT_NE(rSmoothIntervalTaper(2.6, 1.0, 3.0, 0.25), 2.6);
    EXPECT_TRUE(std::isnan(rSmoothIntervalTaper(kQuiet, 1.0, 3.0, 0.25)));
}

TEST(Tapers, AreOddAndRise) {
    std::mt19937_64 random(41);
    std::uniform_real_distribution<> any(0.0, 10.0);
    for (int i = 0; i < 2000; ++i) {
        const double x = any(random);
        const double more = x + 0.01;
        const auto rises = [&](auto taper) {
            ASSERT_EQ(taper(-x), x == 0.0 ? taper(x) : -taper(x));
            ASSERT_GE(taper(more), taper(x)) << x;
        };
        rises([](double y) { return rSmoothLoBoundTaper(y, 1.0, 2.0); });
        rises([](double y) { return rSmoothHiBoundTaper(y, 6.0, 2.0); });
        rises([](double y) { return rSmoothHiAndLoBoundsTaper(y, 1.0, 6.0, 2.0); });
        rises([](double y) { return rSmoothIntervalTaper(y, 1.0, 6.0, 0.3); });
    }
}

}  // namespace
