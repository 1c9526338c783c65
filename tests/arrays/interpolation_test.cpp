#include "nuv64/arrays/interpolation.h"

#include <gtest/gtest.h>

#include "arrays/array_samples.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using Values = std::vector<double>;

// A table of n ascending x with the values of f, in both layouts.
struct Table {
    Values x;
    Values y;
    Values pairs;

    Table(std::uint64_t n, const std::function<double(double)>& f) {
        const Values steps = samples::random(n, 21);
        double place = -3.0;
        for (double step : steps) {
            place += 0.05 + std::fabs(step) / 10.0;
            x.push_back(place);
            y.push_back(f(place));
            pairs.push_back(place);
            pairs.push_back(f(place));
        }
    }
    std::uint64_t size() const { return x.size(); }
    double twoArrays(double (*f)(double, const double*, const double*, std::uint64_t) noexcept,
                     double at) const {
        return f(at, x.data(), y.data(), size());
    }
    double ofPairs(double (*f)(double, const double*, std::uint64_t) noexcept, double at) const {
        return f(at, pairs.data(), size());
    }
};

double cubic(double x) {
    return 1.0 + x * (2.0 - x * (0.5 + 0.25 * x));
}

double parabola(double x) {
    return 2.0 - x * (1.0 - 0.75 * x);
}

TEST(Interpolation, LineThroughTwoPoints) {
    EXPECT_EQ(rIntExt2L(2.0, 1.0, 3.0, 10.0, 20.0), 15.0);
    EXPECT_EQ(rIntExt2L(5.0, 1.0, 3.0, 10.0, 20.0), 30.0);
    EXPECT_FALSE(std::isfinite(rIntExt2L(2.0, 1.0, 1.0, 10.0, 20.0)));
}

TEST(Interpolation, ParabolaThroughThreePoints) {
    for (double x2 : {0.1, 0.5, 0.9}) {
        for (double x : {-2.0, 0.0, 0.3, x2, 1.0, 4.0}) {
            EXPECT_NEAR(rIntExt3Q(x, 0.0, x2, 1.0, parabola(0.0), parabola(x2), parabola(1.0)),
                        parabola(x), 1e-13);
        }
        double xe = 7.0;
        double ye = 7.0;
        EXPECT_NEAR(
            rIntExt3QExtreme(0.0, x2, 1.0, parabola(0.0), parabola(x2), parabola(1.0), &xe, &ye),
            1.5, 1e-13);
        EXPECT_NEAR(xe, 2.0 / 3.0, 1e-13);
        EXPECT_NEAR(ye, parabola(2.0 / 3.0), 1e-13);
    }
    EXPECT_EQ(rIntExt3QExtreme(0.0, 1.0, 2.0, 0.0, 1.0, 0.0, nullptr, nullptr), -2.0);
    double xe = 7.0;
    EXPECT_EQ(rIntExt3QExtreme(0.0, 1.0, 2.0, 0.0, 1.0, 2.0, &xe, nullptr), 0.0);
    EXPECT_EQ(xe, -kInf);
}

TEST(Interpolation, StepOfAQuadraticSpline) {
    double slope = -1.0;
    EXPECT_DOUBLE_EQ(rSplineQ2(0.5, 0.0, 1.0, parabola(0.0), parabola(1.0), &slope), parabola(0.5));
    EXPECT_DOUBLE_EQ(slope, 0.5);
    EXPECT_DOUBLE_EQ(rSplineQ2(1.5, 1.0, 2.0, parabola(1.0), parabola(2.0), &slope), parabola(1.5));
    EXPECT_TRUE(std::isnan(rSplineQ2(0.5, 0.0, 1.0, 0.0, 1.0, nullptr)));
}

TEST(Interpolation, TablesGiveTheirSamplesAndTheirEnds) {
    for (std::uint64_t n : {1, 2, 3, 4, 5, 8, 17, 70, 1024}) {
        const Table table(n, cubic);
        for (auto f : {RArrIntExt2LXarrYarr, RArrIntExt3QXarrYarr}) {
            EXPECT_EQ(table.twoArrays(f, table.x.front() - 1.0), table.y.front());
            EXPECT_EQ(table.twoArrays(f, table.x.back() + 1.0), table.y.back());
            EXPECT_EQ(table.twoArrays(f, kInf), table.y.back());
            EXPECT_EQ(table.twoArrays(f, -kInf), table.y.front());
            for (std::size_t i = 0; i < n; ++i) {
                EXPECT_NEAR(table.twoArrays(f, table.x[i]), table.y[i],
                            1e-9 * std::fabs(table.y[i]))
                    << n << ' ' << i;
            }
        }
        for (double at = table.x.front() - 0.5; at < table.x.back() + 0.5;
             at += 0.0317 * static_cast<double>(n)) {
            EXPECT_EQ(table.ofPairs(RArrIntExt2LXYarr, at),
                      table.twoArrays(RArrIntExt2LXarrYarr, at));
            EXPECT_EQ(table.ofPairs(RArrIntExt3QXYarr, at),
                      table.twoArrays(RArrIntExt3QXarrYarr, at));
        }
    }
}

TEST(Interpolation, TablesUseTheNearestSamples) {
    const Table table(40, cubic);
    for (std::size_t i = 0; i + 1 < table.size(); ++i) {
        for (double part : {0.01, 0.3, 0.499, 0.501, 0.8}) {
            const double low = table.x[i];
            const double high = table.x[i + 1];
            const double at = low + part * (high - low);
            EXPECT_EQ(table.twoArrays(RArrIntExt2LXarrYarr, at),
                      rIntExt2L(at, low, high, table.y[i], table.y[i + 1]));
            const std::size_t centre =
                std::clamp<std::size_t>(at - low < high - at ? i : i + 1, 1, table.size() - 2);
            EXPECT_EQ(table.twoArrays(RArrIntExt3QXarrYarr, at),
                      rIntExt3Q(at, table.x[centre - 1], table.x[centre], table.x[centre + 1],
                                table.y[centre - 1], table.y[centre], table.y[centre + 1]));
        }
    }
    // As near to both: the upper one.
    const double x[] = {0.0, 1.0, 2.0, 4.0};
    const double y[] = {0.0, 1.0, 4.0, 3.0};
    EXPECT_EQ(RArrIntExt3QXarrYarr(1.5, x, y, 4), rIntExt3Q(1.5, 1.0, 2.0, 4.0, 1.0, 4.0, 3.0));
    EXPECT_EQ(RArrIntExt3QXarrYarr(0.5, x, y, 2), 0.5);  // two samples: the line
}

TEST(Interpolation, PolynomialsAreReproduced) {
    for (std::uint64_t n : {4, 5, 6, 7}) {
        const Table table(n, cubic);
        Values work(n);
        for (double at : {-4.0, -2.5, 0.1, 1.0}) {
            EXPECT_NEAR(table.ofPairs(RArrIntExtLagrangeXYarr, at), cubic(at), 1e-8);
            EXPECT_NEAR(table.twoArrays(RArrIntExtLagrangeXarrYarr, at), cubic(at), 1e-8);
            EXPECT_NEAR(
                RArrIntExtNewtonXarrYarr(at, table.x.data(), table.y.data(), n, work.data(), 0),
                cubic(at), 1e-8);
            EXPECT_NEAR(
                RArrIntExtNewtonXarrYarr(at, table.x.data(), table.y.data(), n, work.data(), 1),
                cubic(at), 1e-8);
            EXPECT_NEAR(work[0], cubic(at), 1e-8);
            EXPECT_NEAR(work[1], 2.0 - at * (1.0 + 0.75 * at), 1e-7);
            EXPECT_NEAR(work[2], -1.0 - 1.5 * at, 1e-6);
            EXPECT_NEAR(work[3], -1.5, 1e-5);
        }
    }
}

// Newton's scheme of pairs as it is: each difference divided by the spacing at its lower end.
double plainNewtonOfPairs(double at, const Table& table) {
    Values work = table.y;
    const std::size_t n = work.size();
    for (std::size_t j = 1; j < n; ++j) {
        for (std::size_t i = 0; i < n - j; ++i) {
            work[i] = (work[i + 1] - work[i]) / (table.x[i + 1] - table.x[i]);
        }
    }
    double value = work[0];
    for (std::size_t i = 1; i < n; ++i) value = value * (at - table.x[i]) + work[i];
    return value;
}

TEST(Interpolation, NewtonOfPairsDividesByNeighbouringSpacings) {
    const Table two(2, cubic);
    Values work(9);
    EXPECT_DOUBLE_EQ(RArrIntExtNewtonXYarr(-2.0, two.pairs.data(), 2, work.data(), 0),
                     rIntExt2L(-2.0, two.x[0], two.x[1], two.y[0], two.y[1]));
    for (std::uint64_t n : {3, 4, 9}) {
        const Table table(n, cubic);
        EXPECT_EQ(RArrIntExtNewtonXYarr(-2.2, table.pairs.data(), n, work.data(), 0),
                  plainNewtonOfPairs(-2.2, table));
        EXPECT_NEAR(RArrIntExtNewtonXYarr(-2.2, table.pairs.data(), n, work.data(), 1),
                    plainNewtonOfPairs(-2.2, table), 1e-9);
    }
}

TEST(Interpolation, WithoutATableThereIsNoResult) {
    const double table[] = {0.0, 1.0, 1.0, 3.0};
    double work[2];
    for (auto f : {RArrIntExt2LXYarr, RArrIntExt3QXYarr}) {
        EXPECT_TRUE(std::isnan(f(0.5, nullptr, 2)));
        EXPECT_TRUE(std::isnan(f(0.5, table, 0)));
        EXPECT_EQ(f(0.5, table, 1), 1.0);
        EXPECT_TRUE(std::isnan(f(kQuietNan, table, 2)));
    }
    for (auto f : {RArrIntExt2LXarrYarr, RArrIntExt3QXarrYarr, RArrIntExtLagrangeXarrYarr}) {
        EXPECT_TRUE(std::isnan(f(0.5, nullptr, table, 2)));
        EXPECT_TRUE(std::isnan(f(0.5, table, nullptr, 2)));
        EXPECT_TRUE(std::isnan(f(0.5, table, table, 0)));
    }
    EXPECT_EQ(RArrIntExtLagrangeXYarr(0.5, nullptr, 2), 0.0);
    EXPECT_EQ(RArrIntExtLagrangeXYarr(0.5, table, 1), 0.0);
    EXPECT_TRUE(std::isnan(RArrIntExtLagrangeXarrYarr(0.5, table, table, 1)));
    const double twice[] = {1.0, 1.0, 1.0, 3.0};
    EXPECT_TRUE(std::isnan(RArrIntExtLagrangeXYarr(0.5, twice, 2)));
    EXPECT_TRUE(std::isnan(RArrIntExtNewtonXYarr(0.5, nullptr, 2, work, 0)));
    EXPECT_TRUE(std::isnan(RArrIntExtNewtonXYarr(0.5, table, 1, work, 0)));
    EXPECT_TRUE(std::isnan(RArrIntExtNewtonXYarr(0.5, table, 2, nullptr, 0)));
    EXPECT_TRUE(std::isnan(RArrIntExtNewtonXarrYarr(0.5, nullptr, table, 2, work, 0)));
    EXPECT_TRUE(std::isnan(RArrIntExtNewtonXarrYarr(0.5, table, nullptr, 2, work, 0)));
    EXPECT_TRUE(std::isnan(RArrIntExtNewtonXarrYarr(0.5, table, table, 2, nullptr, 0)));
}

}  // namespace
