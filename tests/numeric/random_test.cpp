#include "nuv64/numeric/random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "numeric/random_source.h"
#include "nuv64/core/special_reals.h"

namespace {

// Park and Miller's own check: from the seed 1 the 10000th number is 1043618065. A source made of
// the seed 0 starts with the state 1 and has gone 40 rounds.
TEST(RandomSource, FollowsThePublishedSequence) {
    nuv64::RandomSource source(0);
    std::int64_t state = 0;
    for (int i = 40; i < 10000; ++i) state = source.next();
    EXPECT_EQ(state, 1043618065);
}

// The shuffle in plain arithmetic.
TEST(RandomSource, ShufflesAsTold) {
    const std::uint64_t seed = 0x123456789ABCDEF0;
    nuv64::RandomSource source(seed);
    std::uint64_t state = ((seed & 0xFFFFFFFF) >> 1) + 1;
    const auto step = [&] { return state = state * 16807 % 2147483647; };
    std::uint64_t table[32];
    for (int i = 39; i >= 0; --i) {
        step();
        if (i < 32) table[i] = state;
    }
    std::uint64_t previous = table[0];
    for (int i = 0; i < 5000; ++i) {
        step();
        const std::uint64_t j = previous / 67108864;
        previous = table[j];
        table[j] = state;
        ASSERT_EQ(source.uniform(), std::fmin(4.656612875245797e-10 * static_cast<double>(previous),
                                              1.0 - ___2EpsReal));
    }
}

TEST(RandomSource, NoSeedGetsStuck) {
    for (const std::uint64_t seed : {0xFFFFFFFCull, 0xFFFFFFFDull, 0xFFFFFFFFull, 0ull, ~0ull}) {
        nuv64::RandomSource source(seed);
        double sum = 0.0;
        for (int i = 0; i < 1000; ++i) {
            const double u = source.uniform();
            ASSERT_GT(u, 0.0);
            ASSERT_LT(u, 1.0);
            sum += u;
        }
        EXPECT_NEAR(sum / 1000, 0.5, 0.06);
    }
}

TEST(RandomSource, IsEvenAndNormal) {
    nuv64::RandomSource source(42);
    constexpr int n = 200000;
    std::vector<int> bins(20);
    for (int i = 0; i < n; ++i) ++bins[static_cast<std::size_t>(20 * source.uniform())];
    double chiSquare = 0.0;
    for (const int bin : bins) chiSquare += std::pow(bin - n / 20, 2) / (n / 20);
    EXPECT_LT(chiSquare, 43.8);  // 19 degrees, 0.1 %
    double moments[5] = {};
    for (int i = 0; i < n; ++i) {
        const double z = source.normal();
        for (int k = 0; k < 5; ++k) moments[k] += std::pow(z, k) / n;
    }
    EXPECT_NEAR(moments[1], 0.0, 0.01);
    EXPECT_NEAR(moments[2], 1.0, 0.015);
    EXPECT_NEAR(moments[3], 0.0, 0.04);
    EXPECT_NEAR(moments[4], 3.0, 0.12);
}

TEST(Random, ExportsDrawFromTheSharedSource) {
    double last = pRgUniform0();
    int equal = 0;
    double normals = 0.0;
    for (int i = 0; i < 10000; ++i) {
        const double u = pRgUniform0();
        ASSERT_GT(u, 0.0);
        ASSERT_LE(u, 1.0 - ___2EpsReal);
        equal += u == last;
        last = u;
        normals += pRgNormal0();
    }
    EXPECT_LT(equal, 3);
    EXPECT_NEAR(normals / 10000, 0.0, 0.06);
}

}  // namespace
