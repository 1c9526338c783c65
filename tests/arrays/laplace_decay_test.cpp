#include "nuv64/arrays/laplace_decay.h"

#include <gtest/gtest.h>

#include <vector>

#include "arrays/array_samples.h"
#include "nuv64/numeric/real_exponential.h"

namespace {

using samples::kInf;
using samples::kQuietNan;

TEST(LaplaceDecay, IsTheSumOfItsTerms) {
    for (uint64_t n : samples::allLengths()) {
        const auto t = samples::random(n, 1);
        for (uint64_t m : {0, 1, 2, 9}) {
            if (n == samples::kLong && m > 2) continue;
            const auto amplitudes = samples::random(m + 1, 2), rates = samples::random(m + 1, 3);
            std::vector<double> out(n), expected(n);
            EXPECT_EQ(
                RArrLaplaceDecay(n, out.data(), t.data(), m, amplitudes.data(), rates.data(), 0.25),
                0u);
            for (uint64_t j = 0; j < n; ++j) {
                for (uint64_t k = 0; k < m; ++k) {
                    expected[j] += amplitudes[k] * rExp(-rates[k] * t[j]);
                }
                expected[j] += 0.25;
            }
            EXPECT_EQ(out, expected);
        }
    }
}

TEST(LaplaceDecay, OddTimesAndRates) {
    const double t[] = {0.0, 1000.0, -1000.0, kInf, kQuietNan};
    const double one[] = {1.0};
    double out[5];
    EXPECT_EQ(RArrLaplaceDecay(5, out, t, 1, one, one, 0.5), 0u);
    EXPECT_EQ(out[0], 1.5);
    EXPECT_EQ(out[1], 0.5);
    EXPECT_TRUE(std::isnan(out[2]));  // the exponential has no result
    EXPECT_EQ(out[3], 0.5);
    EXPECT_TRUE(std::isnan(out[4]));
    double same[] = {0.0, 1000.0};
    EXPECT_EQ(RArrLaplaceDecay(2, same, same, 1, one, one, 0.5), 0u);
    EXPECT_EQ(same[0], 1.5);
    EXPECT_EQ(same[1], 0.5);
}

TEST(LaplaceDecay, TestsItsArgumentsInOrder) {
    double x = 1.0;
    EXPECT_EQ(RArrLaplaceDecay(0, nullptr, nullptr, 1, nullptr, nullptr, 0.0), 0u);
    EXPECT_EQ(RArrLaplaceDecay(1, nullptr, nullptr, 1, &x, &x, 0.0), 22u);
    EXPECT_EQ(RArrLaplaceDecay(1, &x, &x, 1, nullptr, &x, 0.0), 22u);
    EXPECT_EQ(RArrLaplaceDecay(1, &x, &x, 0, &x, nullptr, 0.0), 22u);
    EXPECT_EQ(RArrLaplaceDecay(1, nullptr, &x, 1, &x, &x, 0.0), 18u);
}

}  // namespace
