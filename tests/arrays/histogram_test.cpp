#include "nuv64/arrays/histogram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "arrays/array_samples.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using Values = std::vector<double>;

TEST(Histogram, ZeroFallsIntoTheMiddleBin) {
    const double zero[] = {0.0};
    Values hist(4, 7.0);
    EXPECT_EQ(RArrHistogram(1, zero, hist.data(), 4, 1.0, 0), 0u);
    EXPECT_EQ(hist, (Values{0.0, 0.0, 1.0, 0.0}));
    hist.assign(5, 7.0);
    EXPECT_EQ(RArrHistogram(1, zero, hist.data(), 5, 1.0, 0), 0u);
    EXPECT_EQ(hist, (Values{0.0, 0.0, 1.0, 0.0, 0.0}));
}

TEST(Histogram, OutliersGoToTheEdges) {
    const double x[] = {-100.0, 100.0, kInf, -kInf, kQuietNan, 1e300, -0.5, 0.999, 1.0};
    Values hist(4);
    EXPECT_EQ(RArrHistogram(9, x, hist.data(), 4, 1.0, 0), 0u);
    EXPECT_EQ(hist, (Values{3.0, 1.0, 1.0, 4.0}));
}

TEST(Histogram, CountsAsAPlainSearchDoes) {
    for (uint64_t n : samples::allLengths()) {
        const Values in = samples::random(n);
        for (uint64_t bins : {1, 2, 7, 64}) {
            for (uint64_t skip : {0, 1, 5}) {
                if (n == samples::kLong && bins != 7) continue;
                Values hist(bins + 1, 7.0), expected(bins, 0.0);
                EXPECT_EQ(RArrHistogram(n, in.data(), hist.data(), bins, 0.3, skip), 0u);
                for (uint64_t i = skip; i + skip < n; ++i) {
                    const int64_t place = static_cast<int64_t>(bins / 2) +
                                          static_cast<int64_t>(std::floor(in[i] / 0.3));
                    const int64_t last = static_cast<int64_t>(bins) - 1;
                    expected[static_cast<uint64_t>(std::clamp<int64_t>(place, 0, last))] += 1.0;
                }
                expected.push_back(7.0);
                EXPECT_EQ(hist, expected) << n;
            }
        }
    }
}

TEST(Histogram, SkippingHalfOrMoreCountsNothing) {
    const double x[] = {0.0, 1.0, 2.0, 3.0};
    for (uint64_t skip : {uint64_t{2}, uint64_t{3}, uint64_t{4}, uint64_t{5}, UINT64_MAX}) {
        Values hist(3, 7.0);
        EXPECT_EQ(RArrHistogram(4, x, hist.data(), 3, 1.0, skip), 0u);
        EXPECT_EQ(hist, Values(3, 0.0));
    }
}

TEST(Histogram, TestsItsArgumentsInOrder) {
    double x = 1.0, bin = 7.0;
    EXPECT_EQ(RArrHistogram(0, &x, nullptr, 1, 0.0, 0), 14u);
    EXPECT_EQ(RArrHistogram(1, nullptr, nullptr, 1, 0.0, 0), 14u);
    EXPECT_EQ(RArrHistogram(1, &x, nullptr, 1, 0.0, 0), 18u);
    for (double width : {0.0, -1.0, kQuietNan}) {
        EXPECT_EQ(RArrHistogram(1, &x, &bin, 1, width, 0), 26u);
    }
    EXPECT_EQ(RArrHistogram(1, &x, &bin, 0, 1.0, 0), 0u);
    EXPECT_EQ(bin, 7.0);
    EXPECT_EQ(RArrHistogram(1, &x, &bin, 1, kInf, 0), 0u);
    EXPECT_EQ(bin, 1.0);
}

}  // namespace
