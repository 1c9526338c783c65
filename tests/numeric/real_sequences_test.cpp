#include "nuv64/numeric/real_sequences.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_sequences_reference.inc"

std::uint64_t at(const double* r, int column) {
    return static_cast<std::uint64_t>(r[column]);
}

TEST(RealSequences, AgreeWithTheReference) {
    holdAccuracy("rHarmonicNumber", kHarmonic, 1, 2.5,
                 [](auto& r) { return rHarmonicNumber(at(r, 0)); });
    // Beyond 20! the numbers with k = 1 are factorials of the gamma function.
    const auto ofFirst = [](const double* r) {
        return r[1] == 1.0 && r[0] > 21.0 ? r[0] * std::log(r[0]) : 8.0;
    };
    holdAccuracy(
        "rStirling1", kStirling, 2, 1.7, [](auto& r) { return rStirling1(at(r, 0), at(r, 1)); },
        ofFirst);
    // The powers of the alternating sum's ratios, at (112, 30) and (209, 49).
    const auto second = [](auto& r) { return rStirling2(at(r, 0), at(r, 1)); };
    holdAccuracy("rStirling2", kStirling, 4, 170.0, second);
    holdAccuracy("rStirling2", kStirlingSecond, 2, 1100.0, second);
}

TEST(RealSequences, HarmonicNumbersAroundTheTable) {
    EXPECT_EQ(rHarmonicNumber(0), 0.0);
    EXPECT_EQ(rHarmonicNumber(1), 1.0);
    EXPECT_EQ(rHarmonicNumber(39), 4.253543038936376);
    EXPECT_EQ(rHarmonicNumber(40), rHarmonicNumber(39) + 1.0 / 40.0);
    EXPECT_EQ(rHarmonicNumber(41), rHarmonicNumber(40) + 1.0 / 41.0);
    EXPECT_NEAR(rHarmonicNumber(50) - rHarmonicNumber(49), 0.02, 2e-15);
    EXPECT_NEAR(rHarmonicNumber(UINT64_MAX), 0.5772156649015329 + 64.0 * std::log(2.0), 1e-14);
}

TEST(RealSequences, StirlingNumbersAtTheirLimits) {
    EXPECT_EQ(rStirling1(0, 0), 1.0);
    EXPECT_EQ(rStirling1(3, 5), 0.0);
    EXPECT_FALSE(std::signbit(rStirling1(4, 5)));
    EXPECT_EQ(rStirling1(4, 2), 11.0);
    EXPECT_EQ(rStirling1(4, 3), -6.0);
    EXPECT_EQ(rStirling1(300, 2), kInf);
    EXPECT_EQ(rStirling1(301, 2), -kInf);
    EXPECT_EQ(rStirling2(0, 0), 1.0);
    EXPECT_EQ(rStirling2(5, 0), 0.0);
    EXPECT_EQ(rStirling2(3, 5), 0.0);
    EXPECT_EQ(rStirling2(4, 2), 7.0);
    EXPECT_EQ(rStirling2(65, 2), 18446744073709551615.0);
    EXPECT_EQ(rStirling2(66, 2), 0x1p65);
    EXPECT_EQ(rStirling2(1024, 2), 0x1p1023);
    EXPECT_EQ(rStirling2(1025, 2), kInf);
    EXPECT_EQ(rStirling2(2000, 1), 1.0);
    EXPECT_EQ(rStirling2(1000, 500), kInf);
    EXPECT_EQ(rStirling2(100000, 7), kInf);
}

// n = k + 2: three things together, or two pairs. Neither way may count up to k.
TEST(RealSequences, StirlingNumbersOfManyParts) {
    for (std::uint64_t k : {100000u, 1000000u, 10000000u}) {
        const double n = static_cast<double>(k + 2);
        const double threes = n * (n - 1.0) / 2.0 * (n - 2.0) / 3.0;
        const double wanted = threes + 3.0 * threes * (n - 3.0) / 4.0;
        EXPECT_NEAR(rStirling2(k + 2, k) / wanted, 1.0, 2e-15) << k;
    }
    EXPECT_EQ(rStirling2(10000050, 10000000), kInf);
}

// Both sums of the large numbers meet the identity of the triangle.
TEST(RealSequences, StirlingTriangleBeyondTheExactRange) {
    for (std::uint64_t n = 30; n < 130; n += 9) {
        for (std::uint64_t k = 2; k < n; k += 3) {
            const double wanted =
                static_cast<double>(k) * rStirling2(n - 1, k) + rStirling2(n - 1, k - 1);
            EXPECT_NEAR(rStirling2(n, k) / wanted, 1.0, 3e-14) << n << ' ' << k;
        }
    }
}

}  // namespace
