#include "nuv64/arrays/real_norms.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arrays/plain_reductions.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using samples::same;
using samples::Values;

double plainEuclidean(const Values& a) {
    double scale = 0.0;
    double sum = 1.0;
    for (double x : a) {
        const double v = std::fabs(x);
        if (v == 0.0) continue;
        if (v > scale) {
            sum = 1.0 + sum * ((scale / v) * (scale / v));
            scale = v;
        } else {
            sum += (v / scale) * (v / scale);
        }
    }
    return scale * std::sqrt(sum);
}

double plainMaximum(const Values& a) {
    double largest = std::fabs(a[0]);
    for (double x : a) largest = std::fabs(x) > largest ? std::fabs(x) : largest;
    return largest;
}

TEST(RealNorms, OfOneArray) {
    samples::expectEqualResults({
        {"RArrNormL1", RArrNormL1, plainMaximum},
        {"RArrNormL2", RArrNormL2, plainEuclidean},
    });
}

TEST(RealNorms, OfADifference) {
    for (std::uint64_t n : samples::allLengths()) {
        const Values a = samples::rough(n, 7);
        const Values b = samples::random(n, 8);
        Values c(n);
        for (std::size_t i = 0; i < n; ++i) c[i] = a[i] - b[i];
        EXPECT_TRUE(same(RArrMetricL1(n, a.data(), b.data()), plainMaximum(c)));
        EXPECT_TRUE(same(RArrMetricL2(n, a.data(), b.data()), plainEuclidean(c)));
        EXPECT_EQ(RArrMetricL2(n, b.data(), b.data()), 0.0);
        const Values d = samples::random(n, 9);
        for (std::size_t i = 0; i < n; ++i) c[i] = d[i] - b[i];
        EXPECT_EQ(RArrMetricL1(n, d.data(), b.data()), plainMaximum(c));
        EXPECT_EQ(RArrMetricL2(n, d.data(), b.data()), plainEuclidean(c));
    }
    const double a[] = {3e300, 0.0};
    const double b[] = {0.0, 4e300};
    EXPECT_NEAR(RArrMetricL2(2, a, b) / 5e300, 1.0, 1e-15);
    for (auto metric : {RArrMetricL1, RArrMetricL2}) {
        EXPECT_TRUE(std::isnan(metric(0, a, b)));
        EXPECT_TRUE(std::isnan(metric(2, nullptr, b)));
        EXPECT_TRUE(std::isnan(metric(2, a, nullptr)));
    }
    EXPECT_TRUE(std::isnan(RArrNormL1(0, a)));
    EXPECT_TRUE(std::isnan(RArrNormL1(2, nullptr)));
    EXPECT_TRUE(std::isnan(RArrNormL2(2, nullptr)));
}

// The distance of two distributions, weight by weight.
double plainVorns(const Values& a, const Values& b, const Values& w) {
    const double totalA = samples::backwardSum(a);
    const double totalB = samples::backwardSum(b);
    double difference = 0.0;
    double squares = 0.0;
    double weights = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        difference += w[i] * a[i] / totalA - w[i] * b[i] / totalB;
        squares += difference * difference;
        weights += w[i];
    }
    return std::sqrt(squares / weights);
}

TEST(RealNorms, DistanceOfDistributions) {
    for (std::uint64_t n : samples::allLengths()) {
        Values a = samples::random(n, 9);
        Values b = samples::random(n, 10);
        for (double& x : a) x = std::fabs(x) + 0.1;
        for (double& x : b) x = std::fabs(x) + 0.1;
        const double wanted = plainVorns(a, b, Values(n, 1.0));
        EXPECT_NEAR(RArrMetricVorns(n, a.data(), b.data()), wanted, 1e-12);
        Values doubled = a;
        for (double& x : doubled) x *= 2.0;
        EXPECT_NEAR(RArrMetricVorns(n, a.data(), doubled.data()), 0.0, 1e-12);
        const double end = static_cast<double>(n);
        EXPECT_NEAR(RArrMetricVornsLoc(n, a.data(), b.data(), -5.0, end + 3.0, 1.0), wanted, 1e-12);
        const double low = 0.25 * end;
        const double high = 0.5 * end;
        Values w(n);
        for (std::size_t i = 0; i < n; ++i) {
            const double place = static_cast<double>(i);
            const double d = place < low ? low - place : place > high ? place - high : 0.0;
            w[i] = rExp(-(d / 3.0) * (d / 3.0));
        }
        const double local = RArrMetricVornsLoc(n, a.data(), b.data(), low, high, 3.0);
        EXPECT_NEAR(local, plainVorns(a, b, w), 1e-12);
        EXPECT_EQ(RArrMetricVornsLoc(n, a.data(), b.data(), high, low, 3.0), local);
    }
}

TEST(RealNorms, DistanceWithBothIndicesOutsideIsThatAtTheEdge) {
    const Values a = samples::random(20, 9);
    const Values b = samples::random(20, 10);
    const auto distance = [&](double i1, double i2) {
        return RArrMetricVornsLoc(20, a.data(), b.data(), i1, i2, 2.0);
    };
    for (double far : {25.0, 1e300, kInf}) {
        EXPECT_EQ(distance(far, 22.0), distance(19.0, 19.0));
        EXPECT_EQ(distance(-far, -3.0), distance(0.0, 0.0));
    }
    distance(kQuietNan, 3.5);  // ends
    distance(3.5, kQuietNan);
}

TEST(RealNorms, DistanceOfDistributionsWithoutArraysIsAStatus) {
    const double a[] = {1.0, 2.0};
    EXPECT_EQ(RArrMetricVorns(2, nullptr, a), 14.0);
    EXPECT_EQ(RArrMetricVorns(2, a, nullptr), 14.0);
    EXPECT_TRUE(std::isnan(RArrMetricVorns(0, a, a)));
    EXPECT_EQ(RArrMetricVornsLoc(2, nullptr, a, 0.0, 1.0, 1.0), 14.0);
    EXPECT_EQ(RArrMetricVornsLoc(2, a, nullptr, 0.0, 1.0, 1.0), 14.0);
    EXPECT_TRUE(std::isnan(RArrMetricVornsLoc(0, a, a, 0.0, 1.0, 1.0)));
    const double b[] = {2.0, 1.0};
    for (double edge : {0.0, -3.0}) {
        EXPECT_EQ(RArrMetricVornsLoc(2, a, b, 0.25, 0.25, edge),
                  RArrMetricVornsLoc(2, a, b, 0.25, 0.25, 0.1));
    }
    EXPECT_GT(RArrMetricVornsLoc(2, a, b, kInf, -kInf, 1.0), 0.0);
    EXPECT_TRUE(std::isnan(RArrMetricVornsLoc(2, a, b, 0.0, 0.0, kQuietNan)));
    const double zero[] = {0.0, 0.0};
    EXPECT_TRUE(std::isnan(RArrMetricVorns(2, zero, a)));
}

}  // namespace
