#include "nuv64/arrays/real_quadrature.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arrays/plain_reductions.h"

namespace {

using samples::Values;

TEST(RealQuadrature, PlainRules) {
    const double a[] = {1.0, 8.0, 27.0, 64.0};  // (x + 1)^3
    EXPECT_EQ(RArrTrapez2(a), 4.5);
    EXPECT_EQ(RArrSimpson3(a), 20.0);    // exact for cubics
    EXPECT_EQ(RArrSimpson38(a), 63.75);  // exact for cubics
    EXPECT_TRUE(std::isnan(RArrTrapez2(nullptr)));
    EXPECT_TRUE(std::isnan(RArrSimpson3(nullptr)));
    EXPECT_TRUE(std::isnan(RArrSimpson38(nullptr)));
}

double plainSimpson3(const Values& a) {
    Values padded = a;
    padded.push_back(0.0);
    const std::size_t m = a.size() % 2 == 1 ? a.size() : a.size() - 1;
    double even = 0.0;
    double odd = 0.0;
    for (std::size_t i = 0; i < m; i += 2) even += a[i];
    for (std::size_t i = 0; i < m; i += 2) odd += padded[i + 1];
    const double sum = 2.0 * even + 4.0 * odd;
    if (!std::isfinite(sum)) return sum;
    double integral = (sum - a[0] - a[m - 1]) / 3.0;
    if (m < a.size()) integral += 0.5 * (a[a.size() - 2] + a[a.size() - 1]);
    return integral;
}

double plainSimpson38(const Values& a) {
    const std::size_t m = (a.size() - 1) / 3 * 3;
    if (m == 0) return samples::kQuietNan;
    double sums[3] = {};
    for (std::size_t i = 0; i < m; ++i) sums[i % 3] += a[i];
    const double sum = 2.0 * sums[0] + 3.0 * sums[1] + 3.0 * sums[2];
    if (!std::isfinite(sum)) return sum;
    return 0.375 * (sum - a[0] - a[m - 1]) + 0.5 * (a[m - 1] + a[m]);
}

double plainTrapez(const Values& a) {
    const double sum = samples::backwardSum(a);
    return std::isfinite(sum) ? sum - 0.5 * (a.front() + a.back()) : sum;
}

TEST(RealQuadrature, CompositeRules) {
    samples::expectEqualResults({
        {"RArrTrapez2Ex", RArrTrapez2Ex, plainTrapez},
        {"RArrSimpson3Ex", RArrSimpson3Ex, plainSimpson3},
        {"RArrSimpson38Ex", RArrSimpson38Ex, plainSimpson38},
    });
}

TEST(RealQuadrature, CompositeRulesOnPowers) {
    Values square(11);
    for (std::size_t i = 0; i < 11; ++i) square[i] = static_cast<double>(i * i);
    EXPECT_DOUBLE_EQ(RArrSimpson3Ex(11, square.data()), 1000.0 / 3.0);
    EXPECT_DOUBLE_EQ(RArrTrapez2Ex(11, square.data()), 335.0);
    // An even count takes its last element with the weight 4/3 too.
    EXPECT_DOUBLE_EQ(RArrSimpson3Ex(10, square.data()), 512.0 / 3.0 + 4.0 / 3.0 * 81.0 + 72.5);
}

TEST(RealQuadrature, WithoutEnoughElements) {
    const double a[] = {1.0, 2.0, 3.0};
    for (auto rule : {RArrTrapez2Ex, RArrSimpson3Ex, RArrSimpson38Ex}) {
        EXPECT_TRUE(std::isnan(rule(0, a)));
        EXPECT_TRUE(std::isnan(rule(3, nullptr)));
    }
    for (std::uint64_t n : {1, 2, 3}) EXPECT_TRUE(std::isnan(RArrSimpson38Ex(n, a)));
    EXPECT_EQ(RArrTrapez2Ex(1, a), 0.0);
    EXPECT_EQ(RArrSimpson3Ex(1, a), 0.0);
    const double broken[] = {1.0, samples::kQuietNan, 1.0, 1.0, 1.0};
    for (auto rule : {RArrTrapez2Ex, RArrSimpson3Ex, RArrSimpson38Ex}) {
        EXPECT_TRUE(std::isnan(rule(5, broken)));
    }
    const double infinite[] = {1.0, samples::kInf, 1.0, 1.0, 1.0};
    EXPECT_EQ(RArrSimpson3Ex(5, infinite), samples::kInf);
}

TEST(RealQuadrature, MeanDerivative) {
    for (uint32_t m : {0u, 1u, 2u, 5u}) {
        for (std::uint64_t n :
             {uint64_t{6}, uint64_t{7}, uint64_t{50}, uint64_t{1023}, samples::kLong}) {
            if (n == samples::kLong && m != 2) continue;
            Values a = samples::random(n, m);
            Values d = a;
            double factorial = 1.0;
            for (uint32_t k = 1; k <= m; ++k) {
                Values next;
                for (std::size_t i = 1; i < d.size(); ++i) next.push_back(d[i] - d[i - 1]);
                d = next;
                factorial *= k;
            }
            const double wanted =
                samples::backwardSum(d) / static_cast<double>(d.size()) / factorial;
            EXPECT_EQ(RArrMthCurvature(n, a.data(), m), wanted);
            EXPECT_EQ(a.back(), d.back());
        }
    }
    double square[] = {0.0, 1.0, 4.0, 9.0, 16.0};
    EXPECT_EQ(RArrMthCurvature(5, square, 2), 1.0);
    double a[] = {1.0, 2.0};
    EXPECT_TRUE(std::isnan(RArrMthCurvature(2, a, 2)));
    EXPECT_TRUE(std::isnan(RArrMthCurvature(0, a, 0)));
    EXPECT_TRUE(std::isnan(RArrMthCurvature(2, a, UINT32_MAX)));
    EXPECT_EQ(a[1], 2.0);
    EXPECT_EQ(RArrMthCurvature(2, nullptr, 1), 14.0);
}

}  // namespace
