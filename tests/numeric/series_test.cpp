#include "nuv64/numeric/series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

double powerOf(double x, uint64_t k, void*) {
    return std::pow(x, static_cast<double>(k));
}

double one(double, uint64_t, void*) {
    return 1.0;
}

// Keeps a list of the terms that were asked for; all but the first few are 0.
struct Asked {
    std::vector<uint64_t> terms;
    uint64_t last;
};

double finite(double x, uint64_t k, void* context) {
    Asked& asked = *static_cast<Asked*>(context);
    asked.terms.push_back(k);
    return k <= asked.last ? x : 0.0;
}

double failing(double, uint64_t k, void*) {
    if (k == 3) throw std::runtime_error("term");
    return 1.0;
}

TEST(ConvergenceTest3, ComparesWithThreeValues) {
    double a = 1.0, b = 1.0, c = 1.0;
    EXPECT_TRUE(rConvergenceTest3(1.0 + 1e-10, &a, &b, &c, 1e-9));
    EXPECT_EQ(a, 1.0 + 1e-10);
    EXPECT_EQ(b, 1.0);
    EXPECT_EQ(c, 1.0);
    // Any of the three that is off fails it, and they move on all the same.
    for (int off = 0; off < 3; ++off) {
        double v[3] = {2.0, 2.0, 2.0};
        v[off] = 2.1;
        const double old[3] = {v[0], v[1], v[2]};
        EXPECT_FALSE(rConvergenceTest3(2.0, &v[0], &v[1], &v[2], 0.01));
        EXPECT_EQ(v[0], 2.0);
        EXPECT_EQ(v[1], old[0]);
        EXPECT_EQ(v[2], old[1]);
    }
}

TEST(ConvergenceTest3, ANegativeToleranceIsAbsolute) {
    for (const double size : {1.0, 1e6, -1e6}) {
        double a = size, b = size, c = size;
        EXPECT_TRUE(rConvergenceTest3(size + 0.4, &a, &b, &c, -0.5));
        a = b = c = size;
        EXPECT_FALSE(rConvergenceTest3(size + 0.6, &a, &b, &c, -0.5));
        a = b = c = size;
        EXPECT_EQ(rConvergenceTest3(size + 0.6, &a, &b, &c, 1e-3), std::fabs(size) > 1e3);
    }
    double a = 0.0, b = 0.0, c = 0.0;
    EXPECT_TRUE(rConvergenceTest3(0.0, &a, &b, &c, 0.0));
}

TEST(ConvergenceTest3, OddArguments) {
    double a = 1.0, b = 1.0, c = 1.0;
    EXPECT_FALSE(rConvergenceTest3(std::nan(""), &a, &b, &c, 1.0));
    EXPECT_TRUE(std::isnan(a));
    EXPECT_FALSE(rConvergenceTest3(1.0, &a, &b, &c, 1.0));
    a = b = c = 1.0;
    EXPECT_FALSE(rConvergenceTest3(1.0, &a, &b, &c, std::nan("")));
    EXPECT_FALSE(rConvergenceTest3(1.0, nullptr, &b, &c, 1.0));
    EXPECT_FALSE(rConvergenceTest3(1.0, &a, nullptr, &c, 1.0));
    EXPECT_FALSE(rConvergenceTest3(1.0, &a, &b, nullptr, 1.0));
    EXPECT_EQ(c, 1.0);
}

TEST(SeriesTermFunc, SumsUntilItStays) {
    double sum = 7.0;
    EXPECT_EQ(rSeriesTermFunc(0.5, &sum, powerOf, nullptr, 1000, 0), 0u);
    EXPECT_NEAR(sum, 2.0, 1e-14);
    EXPECT_EQ(rSeriesTermFunc(-0.9, &sum, powerOf, nullptr, 1000, 0), 0u);
    EXPECT_NEAR(sum, 1.0 / 1.9, 1e-14);
    EXPECT_EQ(rSeriesTermFunc(0.5, nullptr, powerOf, nullptr, 1000, 0), 0u);
}

TEST(SeriesTermFunc, Failures) {
    double sum = 7.0;
    EXPECT_EQ(rSeriesTermFunc(0.5, &sum, nullptr, nullptr, 1000, 0), 26u);
    EXPECT_EQ(sum, 0.0);
    EXPECT_EQ(rSeriesTermFunc(0.5, &sum, one, nullptr, 1000, 0), 39u);
    EXPECT_EQ(sum, 1001.0);
    EXPECT_EQ(rSeriesTermFunc(0.5, &sum, one, nullptr, 0, 0), 39u);
    EXPECT_EQ(sum, 1.0);
    EXPECT_EQ(rSeriesTermFunc(std::nan(""), &sum, powerOf, nullptr, 100, 0), 39u);
    EXPECT_TRUE(std::isnan(sum));
    // No exception leaves the module.
    EXPECT_EQ(rSeriesTermFunc(0.5, &sum, failing, nullptr, 1000, 0), 47u);
    // An infinite sum stays.
    EXPECT_EQ(rSeriesTermFunc(kInf, &sum, powerOf, nullptr, 100, 0), 0u);
    EXPECT_EQ(sum, kInf);
}

TEST(SeriesTermFunc, AsksForEachTermOnceAndInOrder) {
    // Term 0 alone: tested from k = 4 on, and three tests pass over before all three have moved on.
    for (const uint64_t minimum : {0u, 3u, 10u}) {
        Asked asked{{}, 0};
        double sum = 0.0;
        EXPECT_EQ(rSeriesTermFunc(2.5, &sum, finite, &asked, 1000, minimum), 0u);
        EXPECT_EQ(sum, 2.5);
        const uint64_t least = minimum < 3 ? 3 : minimum;
        EXPECT_EQ(asked.terms.size(), least + 4);
        for (uint64_t k = 0; k < asked.terms.size(); ++k) EXPECT_EQ(asked.terms[k], k);
    }
    // The maximum counts the terms beyond the first.
    Asked asked{{}, 1000};
    double sum = 0.0;
    EXPECT_EQ(rSeriesTermFunc(1.0, &sum, finite, &asked, 20, 0), 39u);
    EXPECT_EQ(asked.terms.size(), 21u);
    EXPECT_EQ(sum, 21.0);
}

}  // namespace
