#include "nuv64/arrays/kernel_smoothing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrays/array_samples.h"
#include "arrays/sampled_curves.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using testing::Each;
using testing::ElementsAre;
using Values = std::vector<double>;

TEST(GaussianKernel, SmoothsAsAnIndependentOne) {
    for (const samples::GaussianCase& row : samples::kGaussians) {
        const std::uint64_t n = row.input.size();
        Values out(n, 7.0);
        ASSERT_EQ(RArrGaussConvolution(n, row.input.data(), row.width, out.data()), 0u);
        for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(out[i], row.smoothed[i], 1e-14);
        Values again(n, 7.0);
        ASSERT_EQ(RArrGaussSmooth(n, row.input.data(), again.data(), row.width), 0u);
        EXPECT_EQ(again, out);
        Values inPlace = row.input;
        ASSERT_EQ(RArrIpGaussSmooth(n, inPlace.data(), row.width), 0u);
        EXPECT_EQ(inPlace, out);
        // The width as a fraction of the array.
        const double fraction = -row.width / static_cast<double>(n);
        RArrGaussSmooth(n, row.input.data(), again.data(), fraction);
        for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(again[i], out[i], 1e-12);
        RArrGaussConvolution(n, row.input.data(), fraction, again.data());
        for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(again[i], out[i], 1e-12);
    }
}

TEST(GaussianKernel, KeepsConstantsAndWeight) {
    Values a(100, 3.0);
    RArrIpGaussSmooth(100, a.data(), 4.0);
    for (double x : a) EXPECT_NEAR(x, 3.0, 1e-14);
    Values peak(101, 0.0);
    peak[50] = 1.0;
    RArrIpGaussSmooth(101, peak.data(), 3.0);
    EXPECT_NEAR(std::accumulate(peak.begin(), peak.end(), 0.0), 1.0, 1e-14);
    EXPECT_NEAR(peak[53] / peak[50], 0.5, 1e-14);  // half height at the width
    EXPECT_EQ(peak[47], peak[53]);
    EXPECT_EQ(peak[50 - 9], 0.0);  // cut at one per cent: 3*sqrt(ln 100/ln 2) = 7.7
    EXPECT_GT(peak[50 - 8], 0.0);
}

TEST(GaussianKernel, WidthsTooSmallLeaveTheOutput) {
    const Values in = {1.0, 5.0, 2.0};
    for (double width : {0.0005, 0.0, -0.0001, 0.15, kQuietNan}) {
        Values out(3, 7.0);
        EXPECT_EQ(RArrGaussSmooth(3, in.data(), out.data(), width), 0u);
        EXPECT_THAT(out, Each(7.0)) << width;
        EXPECT_EQ(RArrGaussConvolution(3, in.data(), width, out.data()), 0u);
        EXPECT_THAT(out, Each(7.0)) << width;
    }
    Values out(3, 7.0);
    EXPECT_EQ(RArrGaussSmooth(3, in.data(), out.data(), 0.25), 0u);
    EXPECT_NE(out[0], 7.0);
}

TEST(GaussianKernel, TestsItsArgumentsInOrder) {
    double a[] = {1.0, 2.0};
    EXPECT_EQ(RArrGaussConvolution(0, nullptr, 1.0, nullptr), 14u);
    EXPECT_EQ(RArrGaussConvolution(0, a, 1.0, nullptr), 18u);
    EXPECT_EQ(RArrGaussConvolution(0, a, 1.0, a), 0u);
    EXPECT_EQ(RArrGaussConvolution(2, a, kInf, a), 0x80001u);
    EXPECT_EQ(RArrGaussSmooth(0, nullptr, nullptr, 1.0), 14u);
    EXPECT_EQ(RArrGaussSmooth(0, a, nullptr, 1.0), 18u);
    EXPECT_EQ(RArrGaussSmooth(0, a, a, 1.0), 0u);
    EXPECT_EQ(RArrGaussSmooth(0, a, a, -1.0), 0u);
    EXPECT_EQ(RArrGaussSmooth(2, a, a, 1e300), 0x80001u);
    EXPECT_EQ(RArrIpGaussSmooth(2, nullptr, 1.0), 14u);
    EXPECT_THAT(a, ElementsAre(1.0, 2.0));
}

TEST(RunningMean, OfAFewElements) {
    double a[] = {1.0, 2.0, 3.0};
    double out[] = {7.0, 7.0, 7.0};
    EXPECT_EQ(RArrRectConvolution(3, a, 3.0, out), 0u);
    EXPECT_THAT(a, ElementsAre(4.0 / 3.0, 2.0, 8.0 / 3.0));
    EXPECT_THAT(out, Each(7.0));
}

TEST(RunningMean, IsTheMeanOfTheWindow) {
    for (std::uint64_t n : samples::allLengths()) {
        const Values in = samples::random(n, 41);
        for (double width : {1.0, 2.0, 3.4, 5.0, 6.6, 40.0, -0.3, -2.0}) {
            const double size = width < 0.0 ? -width * static_cast<double>(n) : width;
            const auto m = static_cast<std::int64_t>(size + 0.5) | 1;
            if (m > 1000) continue;
            Values a = in;
            double out = 7.0;
            ASSERT_EQ(RArrRectConvolution(n, a.data(), width, &out), 0u);
            const std::uint64_t stride = n > 2000 ? 977 : 1;
            for (std::uint64_t i = 0; i < n; i += stride) {
                double sum = 0.0;
                for (std::int64_t k = -(m - 1) / 2; k <= (m - 1) / 2; ++k) {
                    const std::int64_t place = static_cast<std::int64_t>(i) + k;
                    sum += in[static_cast<std::size_t>(
                        std::clamp<std::int64_t>(place, 0, static_cast<std::int64_t>(n) - 1))];
                }
                EXPECT_NEAR(a[i], sum / static_cast<double>(m), 1e-9);
            }
        }
    }
}

TEST(RunningMean, WidthsTooSmallAndArguments) {
    double a[] = {1.0, 2.0};
    double out = 7.0;
    EXPECT_EQ(RArrRectConvolution(2, nullptr, 3.0, nullptr), 14u);
    EXPECT_EQ(RArrRectConvolution(2, a, 3.0, nullptr), 18u);
    EXPECT_EQ(RArrRectConvolution(0, a, 3.0, &out), 0u);
    for (double width : {0.0, 0.4, 1.4, -0.2, kQuietNan}) {
        EXPECT_EQ(RArrRectConvolution(2, a, width, &out), 0u);
        EXPECT_THAT(a, ElementsAre(1.0, 2.0));
    }
    EXPECT_EQ(RArrRectConvolution(2, a, kInf, &out), 0x80001u);
    EXPECT_THAT(a, ElementsAre(1.0, 2.0));
}

TEST(MonotoneFilter, DoesNothing) {
    EXPECT_EQ(RArrMonotoneFilter(), 0u);
}

}  // namespace
