#include "nuv64/arrays/noise.h"

#include <gtest/gtest.h>

#include "arrays/array_samples.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/smoothing.h"
#include "nuv64/numeric/real_special.h"

namespace {

std::vector<double> normal(uint64_t n, double sigma, uint64_t seed) {
    std::mt19937_64 source(seed);
    std::normal_distribution<double> distribution(0.0, sigma);
    std::vector<double> values(n);
    for (double& x : values) x = distribution(source);
    return values;
}

TEST(Deviation, VarianceWithACorrectedDivisor) {
    const double a[] = {1, 2, 3, 6};
    double mean = 0.0;
    EXPECT_EQ(pRArrVarianceCorr(4, a, 0.0, &mean), 14.0 / 4.0);
    EXPECT_EQ(mean, 3.0);
    EXPECT_EQ(pRArrVarianceCorr(4, a, -1.0, nullptr), 14.0 / 3.0);
    EXPECT_EQ(pRArrVarianceCorr(4, a, 3.0, nullptr), 2.0);
    EXPECT_EQ(pRArrStdCorr(4, a, -1.0, &mean), std::sqrt(14.0 / 3.0));
    mean = 7.0;
    EXPECT_TRUE(rIsNAN(pRArrVarianceCorr(4, a, -4.0, &mean)));
    EXPECT_TRUE(rIsNAN(pRArrVarianceCorr(4, a, -3.9995, &mean)));
    EXPECT_TRUE(rIsNAN(pRArrVarianceCorr(4, a, samples::kQuietNan, &mean)));
    EXPECT_TRUE(rIsNAN(pRArrVarianceCorr(4, nullptr, 0.0, &mean)));
    EXPECT_TRUE(rIsNAN(pRArrVarianceCorr(0, a, 0.0, &mean)));
    EXPECT_EQ(mean, 7.0);
    EXPECT_EQ(pRArrVarianceCorr(1, a, 0.0, nullptr), 0.0);
    EXPECT_TRUE(rIsNAN(pRArrStdCorr(1, a, 0.0, nullptr)));
    EXPECT_TRUE(rIsNAN(pRArrStdCorr(4, nullptr, 0.0, nullptr)));
}

TEST(Deviation, ClippingIsAgainstZero) {
    std::vector<double> a = normal(1000, 1.0, 3);
    a[100] = 50.0;
    a[200] = -80.0;
    double s = pRArrStdCorr(1000, a.data(), -1.0, nullptr);
    EXPECT_EQ(pRArrStdThreshold(1000, a.data(), 3.0, 0), s);
    for (uint64_t rounds = 1; rounds <= 6; ++rounds) {
        double count = 0.0, sum = 0.0, squares = 0.0;
        for (double x : a) {
            if (std::fabs(x) < 3.0 * s) count += 1.0, sum += x, squares += x * x;
        }
        s = std::sqrt((squares - sum * sum / count) / (count - 1.0));
        EXPECT_EQ(pRArrStdThreshold(1000, a.data(), 3.0, rounds), s);
        EXPECT_EQ(pRArrStdThreshold(1000, a.data(), -3.0, rounds), s);
    }
    EXPECT_NEAR(pRArrStdThreshold(1000, a.data(), 3.0, UINT64_MAX), 1.0, 0.1);
    EXPECT_TRUE(rIsNAN(pRArrStdThreshold(1, a.data(), 3.0, 3)));
    EXPECT_TRUE(rIsNAN(pRArrStdThreshold(1000, nullptr, 3.0, 3)));
    EXPECT_TRUE(rIsNAN(pRArrStdThreshold(1000, a.data(), 0.0, 3)));
    EXPECT_TRUE(rIsNAN(pRArrStdThreshold(1000, a.data(), samples::kQuietNan, 1)));
    // Elements far from zero are all clipped, although they lie close together.
    const double off[] = {100.0, 101.0, 102.0};
    EXPECT_EQ(pRArrStdThreshold(3, off, 3.0, 0), 1.0);
    EXPECT_TRUE(rIsNAN(pRArrStdThreshold(3, off, 3.0, 1)));
}

TEST(NoiseEstimate, FollowsItsFormula) {
    const uint64_t n = 200;
    std::vector<double> y = normal(n, 0.5, 7);
    for (uint64_t i = 0; i < n; ++i) y[i] += 100.0 * std::exp(-0.02 * static_cast<double>(i));
    std::vector<double> smooth(n), expected(n), residuals(n);
    double gain = 0.0, centre = 0.0, sigma = 0.0;
    RArrSavitskyGolayEx(n, y.data(), expected.data(), &gain, 0.0, 0, 3, 17, 0, &centre);
    RArrSub(n, y.data(), expected.data(), residuals.data());
    const double s = pRArrStdThreshold(n, residuals.data(), 3.0, 3);
    ASSERT_EQ(RArrNoiseEstimateBySavitskyGolay(n, y.data(), &sigma, smooth.data(), 3, 17, 3, 3.0),
              0u);
    EXPECT_EQ(sigma, s / std::sqrt(1.0 + gain * gain - 2.0 * centre));
    EXPECT_EQ(smooth, expected);
    double again = 0.0;
    ASSERT_EQ(RArrNoiseEstimateBySavitskyGolay(n, y.data(), &again, nullptr, 3, 17, 3, 3.0), 0u);
    EXPECT_EQ(again, sigma);
    ASSERT_EQ(RArrNoiseEstimateBySavitskyGolay(n, y.data(), &again, y.data(), 3, 17, 3, 3.0), 0u);
    EXPECT_EQ(again, sigma);
    EXPECT_EQ(y, expected);
}

TEST(NoiseEstimate, IsProportionalToTheNoise) {
    const auto noise = normal(500, 1.0, 11);
    double unit = 0.0;
    ASSERT_EQ(RArrNoiseEstimateBySavitskyGolay(500, noise.data(), &unit, nullptr, 3, 17, 3, 3.0),
              0u);
    EXPECT_GT(unit, 0.5);
    EXPECT_LT(unit, 1.3);
    auto doubled = noise;
    RArrIpMulConst(500, doubled.data(), 2.0);
    double two = 0.0;
    ASSERT_EQ(RArrNoiseEstimateBySavitskyGolay(500, doubled.data(), &two, nullptr, 3, 17, 3, 3.0),
              0u);
    EXPECT_NEAR(two / unit, 2.0, 1e-12);
}

TEST(NoiseEstimate, Arguments) {
    double y[] = {1, 2, 1, 3, 2, 4}, sigma = 7.0;
    EXPECT_EQ(RArrNoiseEstimateBySavitskyGolay(6, nullptr, &sigma, nullptr, 3, 17, 3, 3.0), 14u);
    EXPECT_EQ(RArrNoiseEstimateBySavitskyGolay(0, y, &sigma, nullptr, 3, 17, 3, 3.0), 14u);
    EXPECT_EQ(RArrNoiseEstimateBySavitskyGolay(6, y, nullptr, nullptr, 3, 17, 3, 3.0), 18u);
    for (uint64_t n : {1, 2, 3, 4}) {
        EXPECT_EQ(RArrNoiseEstimateBySavitskyGolay(n, y, &sigma, nullptr, 3, 17, 3, 3.0), 0x80001u);
    }
    EXPECT_EQ(
        RArrNoiseEstimateBySavitskyGolay(uint64_t{1} << 60, y, &sigma, nullptr, 3, 17, 3, 3.0),
        0x80001u);
    EXPECT_EQ(sigma, 7.0);
    y[2] = samples::kQuietNan;
    EXPECT_EQ(RArrNoiseEstimateBySavitskyGolay(6, y, &sigma, nullptr, 3, 5, 3, 3.0), 0u);
    EXPECT_TRUE(rIsNAN(sigma));
}

}  // namespace
