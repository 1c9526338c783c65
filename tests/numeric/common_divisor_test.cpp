#include "nuv64/numeric/common_divisor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

TEST(CommonDivisor, OfUnsigned) {
    EXPECT_EQ(uGcd(0, 0), 0u);
    EXPECT_EQ(uGcd(0, 7), 7u);
    EXPECT_EQ(uGcd(7, 0), 7u);
    EXPECT_EQ(uGcd(1, 7), 1u);
    EXPECT_EQ(uGcd(12, 18), 6u);
    EXPECT_EQ(uGcd(UINT64_MAX, UINT64_MAX), UINT64_MAX);
    EXPECT_EQ(uGcd(UINT64_MAX, 3), 3u);
    EXPECT_EQ(uGcd(1ull << 63, 1ull << 40), 1ull << 40);
    EXPECT_EQ(uGcd(12200160415121876738u, 7540113804746346429u), 1u);  // the most steps
    EXPECT_TRUE(uAreCoprime(8, 9));
    EXPECT_FALSE(uAreCoprime(8, 10));
    EXPECT_TRUE(uAreCoprime(0, 1));
    EXPECT_FALSE(uAreCoprime(0, 0));
    EXPECT_FALSE(uAreCoprime(0, 2));
    EXPECT_FALSE(uAreNotCoprime(8, 9));
    EXPECT_TRUE(uAreNotCoprime(8, 10));
    EXPECT_TRUE(uAreNotCoprime(0, 0));
}

TEST(CommonDivisor, OfSigned) {
    EXPECT_EQ(iGcd(-12, 18), 6);
    EXPECT_EQ(iGcd(12, -18), 6);
    EXPECT_EQ(iGcd(-12, 0), 12);
    EXPECT_EQ(iGcd(0, 0), 0);
    EXPECT_EQ(iGcd(INT64_MIN, 12), 4);
    EXPECT_EQ(iGcd(INT64_MIN, INT64_MAX), 1);
    EXPECT_EQ(iGcd(INT64_MIN, 0), INT64_MIN);
    EXPECT_EQ(iGcd(INT64_MIN, INT64_MIN), INT64_MIN);
    EXPECT_TRUE(iAreCoprime(-8, 9));
    EXPECT_FALSE(iAreCoprime(-8, -10));
    EXPECT_TRUE(iAreCoprime(0, -1));
    EXPECT_TRUE(iAreNotCoprime(-8, -10));
    EXPECT_FALSE(iAreNotCoprime(INT64_MIN, 15));
}

TEST(CommonDivisor, AgreesWithTheStandardLibrary) {
    std::mt19937_64 random(53);
    for (int i = 0; i < 5000; ++i) {
        const std::uint64_t a = random() >> (random() % 64);
        const std::uint64_t b = random() >> (random() % 64);
        const std::uint64_t wanted = std::gcd(a, b);
        ASSERT_EQ(uGcd(a, b), wanted);
        ASSERT_EQ(uAreCoprime(a, b), wanted == 1);
        std::uint64_t n = a;
        std::uint64_t d = std::max<std::uint64_t>(b, 1);
        const std::uint64_t divisor = std::gcd(n, d);
        ASSERT_EQ(uReduceRatio(&n, &d), divisor > 1);
        ASSERT_EQ(n, a / divisor);
        ASSERT_EQ(d, std::max<std::uint64_t>(b, 1) / divisor);
    }
}

struct Ratio {
    std::int64_t n, d;
    bool result = iReduceRatio(&n, &d);
};

TEST(Ratio, Reduces) {
    const struct {
        std::int64_t n, d, wantedN, wantedD;
        bool result;
    } cases[] = {
        {6, 4, 3, 2, true},
        {6, -4, -3, 2, true},
        {-6, -4, 3, 2, true},
        {3, -2, -3, 2, false},
        {3, 2, 3, 2, false},
        {0, 5, 0, 1, true},
        {0, 1, 0, 1, false},
        {0, -1, 0, 1, false},
        {-7, 0, -1, 0, true},
        {7, 0, 1, 0, true},
        {0, 0, 1, 0, true},
        {2, INT64_MIN, -1, int64_t{1} << 62, true},
        {1, INT64_MIN, -1, INT64_MIN, false},
        {INT64_MIN, -1, INT64_MIN, 1, false},
        {INT64_MIN, INT64_MIN, 1, 1, true},
        {INT64_MIN, 6, -(int64_t{1} << 62), 3, true},
        {INT64_MAX, INT64_MAX, 1, 1, true},
    };
    for (const auto& c : cases) {
        const Ratio made{c.n, c.d};
        EXPECT_EQ(made.n, c.wantedN) << c.n << '/' << c.d;
        EXPECT_EQ(made.d, c.wantedD) << c.n << '/' << c.d;
        EXPECT_EQ(made.result, c.result) << c.n << '/' << c.d;
    }
    std::uint64_t n = 0;
    std::uint64_t d = 0;
    EXPECT_TRUE(uReduceRatio(&n, &d));
    EXPECT_EQ(n, 1u);
    EXPECT_EQ(d, 0u);
    EXPECT_FALSE(uReduceRatio(nullptr, &d));
    EXPECT_FALSE(uReduceRatio(&n, nullptr));
    std::int64_t i = 6;
    EXPECT_FALSE(iReduceRatio(nullptr, &i));
    EXPECT_FALSE(iReduceRatio(&i, nullptr));
    EXPECT_EQ(i, 6);
}

}  // namespace
