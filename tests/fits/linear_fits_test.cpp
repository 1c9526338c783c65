#include "nuv64/fits/linear_fits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "arrays/array_samples.h"
#include "nuv64/arrays/real_matrix_svd.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/chebyshev.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_special.h"

namespace {

using samples::kInf;
using Values = std::vector<double>;

double power(double x, uint64_t k) {
    return ruPower(x, k);
}

double nearlyConstant(double x, uint64_t k) {
    return k == 0 ? 1.0 : 1.0 + 1e-12 * x;
}

// --- the straight line

TEST(LinearRegression, FindsTheLine) {
    const double x[] = {1, 2, 3, 4, 5}, y[] = {2.1, 3.9, 6.2, 7.8, 10.1};
    double slope = 0.0, intercept = 0.0, sigma = 0.0;
    EXPECT_EQ(LinearRegression(x, y, 5, &slope, &intercept, &sigma), 0u);
    EXPECT_NEAR(slope, 1.99, 1e-14);
    EXPECT_NEAR(intercept, 0.05, 1e-13);
    EXPECT_NEAR(sigma, std::sqrt(0.107 / 4.0), 1e-14);
    EXPECT_EQ(LinearRegression(x, y, 5, &slope, &intercept, nullptr), 0u);
}

TEST(LinearRegression, MissingPointsAreLeftOut) {
    const double x[] = {1, ___NAN, 3, 4, 9, 5}, y[] = {3, 1, 7, 9, ___NAN, 11};
    double slope = 0.0, intercept = 0.0, sigma = 7.0;
    EXPECT_EQ(LinearRegression(x, y, 6, &slope, &intercept, &sigma), 0u);
    EXPECT_EQ(slope, 2.0);
    EXPECT_EQ(intercept, 1.0);
    EXPECT_EQ(sigma, 0.0);
}

TEST(LinearRegression, DegeneratePointsGiveNonFiniteResults) {
    const double same[] = {2, 2, 2}, y[] = {1, 2, 3}, missing[] = {___NAN, ___NAN, ___NAN};
    double slope = 0.0, intercept = 0.0, sigma = 0.0;
    EXPECT_EQ(LinearRegression(same, y, 3, &slope, &intercept, &sigma), 0u);
    EXPECT_FALSE(std::isfinite(slope));
    EXPECT_EQ(LinearRegression(y, y, 1, &slope, &intercept, &sigma), 0u);
    EXPECT_FALSE(std::isfinite(slope));
    EXPECT_EQ(LinearRegression(missing, y, 3, &slope, &intercept, &sigma), 0u);
    EXPECT_FALSE(std::isfinite(slope));
}

TEST(LinearRegression, Arguments) {
    const double x[] = {1, 2};
    double a = 0.0, b = 0.0;
    EXPECT_EQ(LinearRegression(nullptr, x, 2, nullptr, nullptr, nullptr), 22u);
    EXPECT_EQ(LinearRegression(x, nullptr, 2, &a, &b, nullptr), 22u);
    EXPECT_EQ(LinearRegression(x, x, 0, &a, &b, nullptr), 22u);
    EXPECT_EQ(LinearRegression(x, x, 2, nullptr, &b, nullptr), 21u);
    EXPECT_EQ(LinearRegression(x, x, 2, &a, nullptr, nullptr), 21u);
}

// --- combinations of basis functions

TEST(MultiLinearFit, ReproducesPolynomials) {
    for (uint64_t terms : {1, 2, 3, 5, 8}) {
        const uint64_t n = 40;
        const auto coefs = samples::random(terms, 1);
        Values x(n), y(n), weights(n), found(terms);
        for (uint64_t i = 0; i < n; ++i) {
            x[i] = -1.0 + 2.0 * static_cast<double>(i) / (n - 1);
            weights[i] = 1.0 + static_cast<double>(i % 3);
            for (uint64_t k = 0; k < terms; ++k) y[i] += coefs[k] * power(x[i], k);
        }
        EXPECT_EQ(MultiLinearFit(terms, found.data(), n, x.data(), y.data(), weights.data(), power),
                  0u);
        for (uint64_t k = 0; k < terms; ++k) EXPECT_NEAR(found[k], coefs[k], 1e-10);
    }
}

TEST(MultiLinearFit, TheWeightCountsOnce) {
    const double x[] = {0, 0, 1, 1}, y[] = {1, 5, 2, 8}, weights[] = {3, 1, 1, 2};
    double coefs[2];
    EXPECT_EQ(MultiLinearFit(2, coefs, 4, x, y, weights, power), 0u);
    EXPECT_NEAR(coefs[0], 2.0, 1e-14);
    EXPECT_NEAR(coefs[0] + coefs[1], 6.0, 1e-14);
}

TEST(MultiLinearFit, NormalEquationsArePlainSums) {
    const uint64_t n = 25, terms = 3;
    const auto x = samples::random(n, 1), y = samples::random(n, 2);
    Values weights = samples::random(n, 3), found(terms);
    for (double& w : weights) w = std::fabs(w);
    ASSERT_EQ(MultiLinearFit(terms, found.data(), n, x.data(), y.data(), weights.data(), power),
              0u);
    // The residuals are orthogonal to every basis function.
    for (uint64_t l = 0; l < terms; ++l) {
        double sum = 0.0, size = 0.0;
        for (uint64_t i = 0; i < n; ++i) {
            double residual = y[i];
            for (uint64_t k = 0; k < terms; ++k) residual -= found[k] * power(x[i], k);
            sum += weights[i] * residual * power(x[i], l);
            size += std::fabs(weights[i] * residual * power(x[i], l));
        }
        EXPECT_LT(std::fabs(sum), 1e-11 * size);
    }
}

TEST(MultiLinearFit, Chebyshev) {
    const uint64_t n = 50, terms = 12;
    const auto coefs = samples::random(terms, 4);
    Values x(n), y(n), weights(n, 1.0), found(terms);
    for (uint64_t i = 0; i < n; ++i) {
        x[i] = std::cos(static_cast<double>(i) / (n - 1) * 3.141592653589793);
        y[i] = rChebyshevTSeries(x[i], coefs.data(), terms - 1);
    }
    EXPECT_EQ(MultiLinearFitChebyshev(terms, found.data(), n, x.data(), y.data(), weights.data()),
              0u);
    for (uint64_t k = 0; k < terms; ++k) EXPECT_NEAR(found[k], coefs[k], 1e-12);
    EXPECT_EQ(MultiLinearFitChebyshev(0, found.data(), n, x.data(), y.data(), weights.data()), 14u);
    EXPECT_EQ(MultiLinearFitChebyshev(2, nullptr, n, x.data(), y.data(), weights.data()), 18u);
}

TEST(MultiLinearFit, Arguments) {
    double x[] = {1, 2, 3}, coefs[3];
    EXPECT_EQ(MultiLinearFit(2, coefs, 3, nullptr, x, x, power), 14u);
    EXPECT_EQ(MultiLinearFit(2, coefs, 3, x, nullptr, x, power), 14u);
    EXPECT_EQ(MultiLinearFit(2, coefs, 3, x, x, nullptr, power), 14u);
    EXPECT_EQ(MultiLinearFit(2, coefs, 0, x, x, x, power), 14u);
    EXPECT_EQ(MultiLinearFit(0, coefs, 3, x, x, x, power), 14u);
    EXPECT_EQ(MultiLinearFit(2, nullptr, 3, x, x, x, power), 18u);
    EXPECT_EQ(MultiLinearFit(2, coefs, 3, x, x, x, nullptr), 20u);
    EXPECT_EQ(MultiLinearFit(uint64_t{1} << 40, coefs, 3, x, x, x, power), 0x80001u);
    EXPECT_EQ(MultiLinearFit(UINT64_MAX, coefs, 3, x, x, x, power), 0x80001u);
    EXPECT_EQ(MultiLinearFit(2, coefs, 3, x, x, x, nearlyConstant), 26u);
    x[1] = samples::kQuietNan;
    EXPECT_EQ(MultiLinearFit(2, coefs, 3, x, x, x, power), 26u);
}

// --- quotients

// Row by row, as the system is written; solved by a decomposition instead of an inversion.
Values plainQuotient(uint64_t p, uint64_t q, const Values& x, const Values& y, const Values& w) {
    const uint64_t terms = p + q - 1;
    Values a(terms * terms, 0.0), b(terms, 0.0), solution(terms);
    for (size_t i = 0; i < x.size(); ++i) {
        for (uint64_t r = 0; r < terms; ++r) {
            const double fr = r < p ? power(x[i], r) : -y[i] * power(x[i], r - p + 1);
            for (uint64_t c = 0; c < terms; ++c) {
                a[r + c * terms] +=
                    w[i] * fr * (c < p ? power(x[i], c) : y[i] * power(x[i], c - p + 1));
            }
            b[r] += w[i] * y[i] * (r < p ? fr : -fr);
        }
    }
    SolveLinearSystemBySVD(a.data(), solution.data(), b.data(), terms, terms, 0.0);
    return solution;
}

TEST(RationalFit, SolvesItsSystem) {
    for (auto [p, q] :
         {std::pair<uint64_t, uint64_t>{1, 1}, {3, 1}, {1, 2}, {2, 2}, {3, 3}, {0, 3}, {2, 4}}) {
        const uint64_t n = 40, terms = p + q - 1;
        const auto x = samples::random(n, 1), y = samples::random(n, 2);
        Values scaled(x), weights(n), coefs(terms);
        for (uint64_t i = 0; i < n; ++i) {
            scaled[i] = x[i] / 10.0;
            weights[i] = 1.0 + static_cast<double>(i % 2);
        }
        ASSERT_EQ(
            RationalFit(p, q, coefs.data(), n, scaled.data(), y.data(), weights.data(), power), 0u);
        const Values expected = plainQuotient(p, q, scaled, y, weights);
        double size = 0.0;
        for (double c : expected) size = std::max(size, std::fabs(c));
        for (uint64_t k = 0; k < terms; ++k) EXPECT_NEAR(coefs[k], expected[k], 1e-9 * size);
    }
}

TEST(RationalFit, WithoutDenominatorItIsTheLinearFit) {
    const uint64_t n = 30;
    const auto x = samples::random(n, 1), y = samples::random(n, 2);
    const Values weights(n, 1.0);
    double rational[3], linear[3];
    ASSERT_EQ(RationalFit(3, 1, rational, n, x.data(), y.data(), weights.data(), power), 0u);
    ASSERT_EQ(MultiLinearFit(3, linear, n, x.data(), y.data(), weights.data(), power), 0u);
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(rational[k], linear[k], 1e-12);
}

TEST(RationalFit, Arguments) {
    double x[] = {1, 2, 3}, coefs[5];
    EXPECT_EQ(RationalFit(2, 2, coefs, 3, nullptr, x, x, power), 14u);
    EXPECT_EQ(RationalFit(2, 2, coefs, 3, x, nullptr, x, power), 14u);
    EXPECT_EQ(RationalFit(2, 2, coefs, 3, x, x, nullptr, power), 14u);
    EXPECT_EQ(RationalFit(2, 2, coefs, 0, x, x, x, power), 14u);
    EXPECT_EQ(RationalFit(0, 0, coefs, 3, x, x, x, power), 14u);
    EXPECT_EQ(RationalFit(1, 0, coefs, 3, x, x, x, power), 14u);
    EXPECT_EQ(RationalFit(0, 1, coefs, 3, x, x, x, power), 14u);
    EXPECT_EQ(RationalFit(2, 2, nullptr, 3, x, x, x, power), 18u);
    EXPECT_EQ(RationalFit(2, 2, coefs, 3, x, x, x, nullptr), 20u);
    EXPECT_EQ(RationalFit(UINT64_MAX, 2, coefs, 3, x, x, x, power), 0x80001u);
    EXPECT_EQ(RationalFit(2, UINT64_MAX, coefs, 3, x, x, x, power), 0x80001u);
    EXPECT_EQ(RationalFit(3, 0, coefs, 3, x, x, x, power), 0u);
    EXPECT_EQ(RationalFit(0, 3, coefs, 3, x, x, x, power), 0u);
}

// --- residual norms

TEST(ResidualNorm, ByTheLowByte) {
    const std::pair<uint32_t, double> cases[] = {{0, 0.0625},   {1, 0.25},     {2, 0.5},
                                                 {3, 0.015625}, {5, 0.25},     {4, 0.00390625},
                                                 {6, 0.0625},   {255, 0.0625}, {0xFFFFFE01, 0.25}};
    for (auto [flags, value] : cases) {
        EXPECT_EQ(ResidualNorm(1.0, 1.25, flags), value) << flags;
        EXPECT_EQ(ResidualNorm(1.25, 1.0, flags), value) << flags;
        EXPECT_EQ(ResidualNorm(-3.0, -3.0, flags), 0.0) << flags;
    }
}

TEST(ResidualNorm, RelativeToTheObservedValue) {
    EXPECT_EQ(ResidualNorm(2.0, 3.0, 0x101), 0.5);
    EXPECT_EQ(ResidualNorm(-2.0, 3.0, 0x101), 2.5);
    EXPECT_EQ(ResidualNorm(0.0, 3.0, 0x101), 2.0);
    EXPECT_EQ(ResidualNorm(0.0, -3.0, 0x100), 4.0);
    EXPECT_EQ(ResidualNorm(0.0, 0.0, 0x101), 0.0);
    EXPECT_EQ(ResidualNorm(2.0, 3.0, 0x103), 0.125);
}

TEST(ResidualNorm, NotANumbersAndInfinitiesGoThrough) {
    EXPECT_TRUE(std::isnan(ResidualNorm(samples::kQuietNan, 1.0, 0)));
    EXPECT_TRUE(std::isnan(ResidualNorm(kInf, kInf, 1)));
    EXPECT_EQ(ResidualNorm(kInf, 1.0, 0), kInf);
}

}  // namespace
