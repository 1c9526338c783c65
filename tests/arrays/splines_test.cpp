#include "nuv64/arrays/splines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrays/array_samples.h"
#include "arrays/sampled_curves.h"
#include "nuv64/arrays/interpolation.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using testing::Each;
using Values = std::vector<double>;

Values ascending(std::uint64_t n, std::uint64_t seed) {
    Values x = samples::random(n, seed);
    double place = -1.0;
    for (double& v : x) v = place += 0.05 + std::fabs(v) / 10.0;
    return x;
}

Values between(const Values& x, int perInterval, double overhang) {
    Values t;
    const double step = (x.back() - x.front()) / (static_cast<double>(x.size()) * perInterval);
    for (double at = x.front() - overhang; at <= x.back() + overhang; at += step) t.push_back(at);
    return t;
}

// --- quadratic

TEST(QuadraticSpline, GoesOnFromIntervalToInterval) {
    for (std::uint64_t n : {2, 3, 4, 9, 50}) {
        const Values x = ascending(n, 31);
        const Values y = samples::random(n, 32);
        const Values t = between(x, 7, 1.0);
        for (int64_t mode : {0, 1, 2}) {
            double slope = (y[1] - y[0]) / (x[1] - x[0]);
            if (mode == 2 && n > 2) {
                // The slope at x0 of the parabola through the first three samples.
                const double upper = (y[2] - y[1]) / (x[2] - x[1]);
                slope -= (upper - slope) / (x[2] - x[0]) * (x[1] - x[0]);
            }
            Values expected;
            std::size_t i = 1;
            for (double at : t) {
                while (at > x[i] && i + 1 < n) {
                    rSplineQ2(at, x[i - 1], x[i], y[i - 1], y[i], &slope);
                    ++i;
                }
                double s = slope;
                expected.push_back(rSplineQ2(at, x[i - 1], x[i], y[i - 1], y[i], &s));
            }
            Values out(t.size(), 7.0);
            EXPECT_EQ(
                RArrSpline2XarrYarr(x.data(), y.data(), n, t.data(), out.data(), t.size(), mode),
                0u);
            for (std::size_t k = 0; k < t.size(); ++k) {
                EXPECT_NEAR(out[k], expected[k], 1e-9 * (1.0 + std::fabs(expected[k])));
            }
            Values inPlace = t;
            RArrSpline2XarrYarr(x.data(), y.data(), n, inPlace.data(), inPlace.data(), t.size(),
                                mode);
            EXPECT_EQ(inPlace, out);
        }
    }
}

TEST(QuadraticSpline, TestsItsArgumentsInOrder) {
    const double a[] = {1.0, 2.0};
    double out[] = {7.0};
    EXPECT_EQ(RArrSpline2XarrYarr(nullptr, nullptr, 0, nullptr, nullptr, 0, 0), 0u);
    EXPECT_EQ(RArrSpline2XarrYarr(nullptr, a, 2, a, nullptr, 1, 0), 18u);
    EXPECT_EQ(RArrSpline2XarrYarr(nullptr, a, 2, a, out, 1, 0), 14u);
    EXPECT_EQ(RArrSpline2XarrYarr(a, nullptr, 2, a, out, 1, 0), 14u);
    EXPECT_EQ(RArrSpline2XarrYarr(a, a, 2, nullptr, out, 1, 0), 14u);
    EXPECT_EQ(RArrSpline2XarrYarr(a, a, 0, a, out, 1, 0), 14u);
    EXPECT_EQ(out[0], 7.0);
    EXPECT_EQ(RArrSpline2XarrYarr(a, a + 1, 1, a, out, 1, 2), 0u);
    EXPECT_EQ(out[0], 2.0);
}

// --- cubic

TEST(CubicSpline, IsTheNaturalOne) {
    for (const samples::SplineCase& row : samples::kSplines) {
        Values out(row.targets.size(), 7.0);
        ASSERT_EQ(RArrSpline3XarrYarr(row.x.data(), row.y.data(), row.x.size(), row.targets.data(),
                                      out.data(), out.size()),
                  0u);
        for (std::size_t k = 0; k < out.size(); ++k) {
            EXPECT_NEAR(out[k], row.values[k], 1e-13 * (1.0 + std::fabs(row.values[k])));
        }
        Values inPlace = row.targets;
        RArrSpline3XarrYarr(row.x.data(), row.y.data(), row.x.size(), inPlace.data(),
                            inPlace.data(), inPlace.size());
        EXPECT_EQ(inPlace, out);
    }
}

TEST(CubicSpline, TargetsMayComeInAnyOrder) {
    const Values x = ascending(30, 33);
    const Values y = samples::random(30, 34);
    Values t = samples::random(200, 35);
    for (double& at : t) at = at / 3.0 + 1.0;
    t.push_back(kQuietNan);
    t.push_back(x.back());
    Values out(t.size());
    RArrSpline3XarrYarr(x.data(), y.data(), 30, t.data(), out.data(), t.size());
    for (std::size_t k = 0; k < t.size(); ++k) {
        double alone = 7.0;
        RArrSpline3XarrYarr(x.data(), y.data(), 30, &t[k], &alone, 1);
        EXPECT_TRUE(alone == out[k] || (std::isnan(alone) && std::isnan(out[k])));
    }
    EXPECT_DOUBLE_EQ(out.back(), y.back());
}

TEST(CubicSpline, LinesAreReproduced) {
    const Values x = ascending(12, 36);
    Values y = x;
    for (double& v : y) v = 3.0 - 2.0 * v;
    const Values t = between(x, 5, 2.0);
    Values out(t.size());
    RArrSpline3XarrYarr(x.data(), y.data(), 12, t.data(), out.data(), t.size());
    for (std::size_t k = 0; k < t.size(); ++k) EXPECT_NEAR(out[k], 3.0 - 2.0 * t[k], 1e-13);
}

TEST(CubicSpline, TestsItsArgumentsInOrder) {
    const double a[] = {1.0, 2.0, 2.0};
    const double t[] = {1.5, 2.0, 1.5};
    double out[] = {7.0, 7.0, 7.0};
    EXPECT_EQ(RArrSpline3XarrYarr(nullptr, a, 2, t, nullptr, 1), 22u);
    EXPECT_EQ(RArrSpline3XarrYarr(a, nullptr, 2, t, out, 1), 22u);
    EXPECT_EQ(RArrSpline3XarrYarr(a, a, 2, nullptr, out, 1), 22u);
    EXPECT_EQ(RArrSpline3XarrYarr(a, a, 1, t, nullptr, 1), 18u);
    EXPECT_EQ(RArrSpline3XarrYarr(a, a, 1, t, out, 1), 22u);
    EXPECT_EQ(RArrSpline3XarrYarr(a, a, 2, t, out, 0), 0u);
    EXPECT_EQ(RArrSpline3XarrYarr(a, a, UINT64_MAX, t, out, 1), 0x80001u);
    EXPECT_EQ(out[0], 7.0);
    EXPECT_EQ(RArrSpline3XarrYarr(a, a, 3, t, out, 3), 26u);  // coincident nodes end the loop
    EXPECT_EQ(out[2], 7.0);
}

// --- piecewise polynomials

double quartic(double x) {
    return 1.0 + x * (0.5 - x * (0.25 - x * (0.125 + 0.0625 * x)));
}

double quarticSlope(double x) {
    return 0.5 - x * (0.5 - x * (0.375 + 0.25 * x));
}

TEST(PiecewisePolynomial, ReproducesPolynomialsOfItsDegree) {
    for (std::uint64_t n : {5, 6, 9, 10, 23}) {
        const Values x = ascending(n, 37);
        Values y;
        for (double at : x) y.push_back(quartic(at));
        const Values t = between(x, 4, 0.0);
        const double slopes[] = {quarticSlope(x[0])};
        for (std::uint64_t step : {1, 2, 4}) {
            for (std::uint64_t nd : {0, 1}) {
                Values out(t.size(), 7.0);
                ASSERT_EQ(RArrSplineEx(x.data(), y.data(), n, slopes, nd, nd, t.data(), out.data(),
                                       t.size(), 9 + step, step),
                          0u);
                for (std::size_t k = 0; k < t.size(); ++k) {
                    EXPECT_NEAR(out[k], quartic(t[k]), 1e-6) << n << ' ' << step << ' ' << k;
                }
            }
        }
    }
}

TEST(PiecewisePolynomial, OfTwoPointsIsTheChain) {
    const Values x = ascending(20, 38);
    const Values y = samples::random(20, 39);
    const Values t = between(x, 6, 0.0);
    Values out(t.size(), 7.0);
    ASSERT_EQ(
        RArrSplineEx(x.data(), y.data(), 20, nullptr, 0, 0, t.data(), out.data(), t.size(), 2, 1),
        0u);
    for (std::size_t k = 0; k < t.size(); ++k) {
        EXPECT_NEAR(out[k], RArrIntExt2LXarrYarr(t[k], x.data(), y.data(), 20), 1e-11);
    }
    // With the slope carried on, it is the quadratic spline.
    const double slope = (y[1] - y[0]) / (x[1] - x[0]);
    Values quadratic(t.size());
    RArrSpline2XarrYarr(x.data(), y.data(), 20, t.data(), quadratic.data(), t.size(), 0);
    ASSERT_EQ(
        RArrSplineEx(x.data(), y.data(), 20, &slope, 1, 1, t.data(), out.data(), t.size(), 3, 1),
        0u);  // points - step is even: one point less
    for (std::size_t k = 0; k < t.size(); ++k) {
        EXPECT_NEAR(out[k], quadratic[k], 1e-8 * (1.0 + std::fabs(quadratic[k])));
    }
}

TEST(PiecewisePolynomial, WindowsOverhangAsFarAsThereAreSamples) {
    // Nine samples of a parabola but for one outlier: segments whose window holds it show it.
    Values x(9);
    Values y(9);
    for (std::size_t i = 0; i < 9; ++i) {
        x[i] = static_cast<double>(i);
        y[i] = x[i] * x[i];
    }
    y[5] += 1.0;
    Values t;
    for (std::size_t i = 0; i < 8; ++i) t.push_back(x[i] + 0.5);
    Values out(8);
    // Four points, step 1: one sample more on each side.
    ASSERT_EQ(RArrSplineEx(x.data(), y.data(), 9, nullptr, 0, 0, t.data(), out.data(), 8, 4, 1),
              0u);
    for (std::size_t i = 0; i < 8; ++i) {
        const bool inWindow = i >= 3 && i <= 6;  // samples i-1 to i+2 hold sample 5
        const double exact = t[i] * t[i];
        if (inWindow) {
            EXPECT_GT(std::fabs(out[i] - exact), 0.01) << i;
        } else {
            EXPECT_NEAR(out[i], exact, 1e-9) << i;
        }
    }
}

TEST(PiecewisePolynomial, TargetsOutsideGiveNothingAndHoldUp) {
    const double x[] = {0.0, 1.0, 2.0, 3.0};
    const double y[] = {0.0, 1.0, 4.0, 9.0};
    const double beyond[] = {0.5, 2.5, 3.5, 3.0};
    double out[4];
    ASSERT_EQ(RArrSplineEx(x, y, 4, nullptr, 0, 0, beyond, out, 4, 2, 1), 0u);
    EXPECT_EQ(out[0], 0.5);
    EXPECT_DOUBLE_EQ(out[1], 6.5);
    EXPECT_TRUE(std::isnan(out[2]));
    EXPECT_TRUE(std::isnan(out[3]));  // behind one that no segment takes
    const double below[] = {-0.5, 0.5};
    ASSERT_EQ(RArrSplineEx(x, y, 4, nullptr, 0, 0, below, out, 2, 2, 1), 0u);
    EXPECT_TRUE(std::isnan(out[0]));
    EXPECT_TRUE(std::isnan(out[1]));
    double inPlace[] = {0.5, 2.5};
    ASSERT_EQ(RArrSplineEx(x, y, 4, nullptr, 0, 0, inPlace, inPlace, 2, 2, 1), 0u);
    EXPECT_EQ(inPlace[0], 0.5);
    EXPECT_DOUBLE_EQ(inPlace[1], 6.5);
}

TEST(PiecewisePolynomial, TestsItsArgumentsInOrder) {
    const double a[] = {1.0, 2.0};
    double out[] = {7.0};
    EXPECT_EQ(RArrSplineEx(nullptr, a, 2, a, 1, 0, a, nullptr, 1, 2, 1), 22u);
    EXPECT_EQ(RArrSplineEx(a, nullptr, 2, a, 1, 0, a, out, 1, 2, 1), 22u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, 0, nullptr, out, 1, 2, 1), 22u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, nullptr, 1, 1, a, out, 1, 2, 1), 22u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 0, 1, a, out, 1, 2, 1), 22u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, 0, a, nullptr, 1, 2, 0), 18u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, 0, a, out, 0, 2, 0), 18u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, 0, a, out, 1, 2, 0), 25u);
    EXPECT_EQ(RArrSplineEx(a, a, 1, a, 1, 0, a, out, 1, 2, 1), 25u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, 0, a, out, 1, 1, 1), 25u);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, UINT64_MAX, a, out, 1, 2, 1), 0x80001u);
    EXPECT_EQ(out[0], 7.0);
    EXPECT_EQ(RArrSplineEx(a, a, 2, a, 1, 0, a, out, 1, UINT64_MAX, 1), 0u);
    EXPECT_DOUBLE_EQ(out[0], 1.0);
    const double twice[] = {1.0, 1.0};
    EXPECT_EQ(RArrSplineEx(twice, a, 2, nullptr, 0, 0, a, out, 1, 2, 1), 26u);
}

}  // namespace
