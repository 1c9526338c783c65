#include "nuv64/arrays/weight_bags.h"

#include <gtest/gtest.h>

#include <vector>

#include "arrays/array_samples.h"

namespace {

using Values = std::vector<double>;

struct Result {
    Values counts;
    double quality;
};

struct Bags {
    explicit Bags(const Values& weights) {
        const uint32_t n = static_cast<uint32_t>(weights.size());
        for (Result& result : results) result.counts.resize(n);
        EXPECT_EQ(
            RArrBagsToBest3Counts(n, weights.data(), results[0].counts.data(), &results[0].quality,
                                  results[1].counts.data(), &results[1].quality,
                                  results[2].counts.data(), &results[2].quality),
            0u);
    }
    Result results[3];
};

// The same search, written down plainly.
std::vector<Result> plainBest3(const Values& weights) {
    double least = weights[0];
    for (double w : weights) least = w < least ? w : least;
    const double from = 0.4 / least;
    const double step = (18.0 / least - from) / 1000.0;
    Values x(1000), score(1000);
    for (int i = 0; i < 1000; ++i) {
        x[i] = from + i * step;
        score[i] = 1.0;
        for (double w : weights) {
            const double away = x[i] * w - std::round(x[i] * w);
            score[i] *= 1.0 - 2.0 * away * (2.0 * away);
        }
        score[i] *= std::exp(-(x[i] * least / 9.0) * (x[i] * least / 9.0));
    }
    std::vector<Result> results;
    for (int round = 0; round < 3; ++round) {
        int best = 0;
        for (int i = 1; i < 1000; ++i) {
            if (score[i] > score[best]) best = i;
        }
        results.push_back({{}, score[best]});
        for (double w : weights) results.back().counts.push_back(x[best] * w);
        const Values before = score;
        int i = best;
        do score[i] = 0.0;
        while (++i < 1000 && before[i] <= before[i - 1]);
        i = best;
        do score[i] = 0.0;
        while (--i >= 0 && before[i] <= before[i + 1]);
    }
    return results;
}

TEST(WeightBags, FindsTheCountsOfEqualThings) {
    const Bags bags({6.02, 9.01, 14.98});  // 2, 3 and 5 things of about 3
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(bags.results[0].counts[i], (Values{2, 3, 5})[i], 0.05);
        EXPECT_NEAR(bags.results[1].counts[i], (Values{4, 6, 10})[i], 0.1);
    }
    EXPECT_GT(bags.results[0].quality, bags.results[1].quality);
    EXPECT_GT(bags.results[1].quality, bags.results[2].quality);
}

TEST(WeightBags, IsThePlainSearch) {
    for (uint64_t n : {1, 2, 3, 8, 70}) {
        for (uint64_t seed = 1; seed < 20; ++seed) {
            Values weights = samples::random(n, seed);
            for (double& w : weights) w = std::fabs(w) + 0.01;
            const Bags bags(weights);
            const std::vector<Result> expected = plainBest3(weights);
            for (int k = 0; k < 3; ++k) {
                EXPECT_NEAR(bags.results[k].quality, expected[k].quality,
                            1e-13 * expected[k].quality);
                EXPECT_EQ(bags.results[k].counts, expected[k].counts);
            }
        }
    }
}

TEST(WeightBags, OddWeightsEnd) {
    for (double odd : {0.0, -1.0, samples::kInf, -samples::kInf, samples::kQuietNan, 5e-324}) {
        Bags({odd, 1.0});
        Bags({1.0, odd});
    }
}

TEST(WeightBags, TestsItsArgumentsInOrder) {
    double x = 1.0;
    EXPECT_EQ(RArrBagsToBest3Counts(1, nullptr, &x, &x, &x, &x, &x, nullptr), 14u);
    EXPECT_EQ(RArrBagsToBest3Counts(0, &x, &x, &x, &x, &x, &x, nullptr), 14u);
    for (int missing = 0; missing < 6; ++missing) {
        double* p[6];
        for (int i = 0; i < 6; ++i) p[i] = i == missing ? nullptr : &x;
        EXPECT_EQ(RArrBagsToBest3Counts(1, &x, p[0], p[1], p[2], p[3], p[4], p[5]), 18u);
    }
}

TEST(WeightBags, TotalWeightFactor) {
    const double weights[] = {1.0, 2.0, 5.0};
    EXPECT_EQ(RArrBagsTotalWeightFactor(3, weights, 4.0), 0.5);
    const double none[] = {1.0, -1.0};
    EXPECT_EQ(RArrBagsTotalWeightFactor(2, none, 4.0), 0.0);
    const double negative[] = {1.0, -2.0};
    EXPECT_EQ(RArrBagsTotalWeightFactor(2, negative, 4.0), 0.0);
    EXPECT_EQ(RArrBagsTotalWeightFactor(0, weights, 4.0), 0.0);
    EXPECT_EQ(RArrBagsTotalWeightFactor(3, nullptr, 4.0), 0.0);
    const double order[] = {1.0, 1e16, -1e16};  // the sum runs backward
    EXPECT_EQ(RArrBagsTotalWeightFactor(3, order, 4.0), 4.0);
}

}  // namespace
