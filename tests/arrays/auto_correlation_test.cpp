#include "nuv64/arrays/auto_correlation.h"

#include <gtest/gtest.h>

#include <vector>

#include "arrays/operation_cases.h"

namespace {

using samples::Values;

Values plainAutoCorrelation(const Values& in) {
    const size_t n = in.size();
    Values out(n);
    for (size_t k = 0; k < n; ++k) {
        double sum = 0.0;
        for (size_t j = 0; j < n - k; ++j) sum += in[j] * in[j + k];
        out[k] = sum / static_cast<double>(n - k);
    }
    return out;
}

TEST(AutoCorrelation, SumsOverEachLagInOrder) {
    const samples::OperationCase test{"AutoCorr", RArrAutoCorr, {}, plainAutoCorrelation};
    for (const samples::Kind& kind : samples::kinds()) {
        for (uint64_t n = 1; n <= 70; ++n) samples::expectPlain(test, kind.make(n), kind.name);
    }
    for (uint64_t n : {1023, 1024, 1025}) samples::expectPlain(test, samples::random(n), "random ");
}

TEST(AutoCorrelation, OfAWave) {
    Values wave;
    for (int i = 0; i < 600; ++i) wave.push_back(std::cos(0.1 * i));
    Values out(wave.size());
    EXPECT_EQ(RArrAutoCorr(wave.size(), wave.data(), out.data()), 0u);
    for (int k = 0; k < 300; ++k) EXPECT_NEAR(out[k], 0.5 * std::cos(0.1 * k), 0.02);
}

TEST(AutoCorrelation, TestsItsArgumentsInOrder) {
    double x = 1.0;
    EXPECT_EQ(RArrAutoCorr(1, nullptr, nullptr), 14u);
    EXPECT_EQ(RArrAutoCorr(0, &x, nullptr), 14u);
    EXPECT_EQ(RArrAutoCorr(0, &x, &x), 14u);
    EXPECT_EQ(RArrAutoCorr(1, &x, nullptr), 18u);
    double y[] = {1.0, 2.0};
    EXPECT_EQ(RArrAutoCorr(uint64_t{1} << 61, y, y), 0x80001u);
}

}  // namespace
