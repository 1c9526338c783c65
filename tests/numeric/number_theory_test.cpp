#include "nuv64/numeric/number_theory.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <vector>

#include "numeric/modular.h"

namespace {

constexpr std::uint64_t kNone = UINT64_MAX;

std::uint64_t wideMulMod(std::uint64_t a, std::uint64_t b, std::uint64_t m) {
    return static_cast<std::uint64_t>(static_cast<nuv64::Wide128>(a) * b % m);
}

TEST(Primes, AgreeWithASieve) {
    constexpr std::uint64_t limit = 200000;
    std::vector<bool> composite(limit);
    composite[0] = composite[1] = true;
    for (std::uint64_t i = 2; i * i < limit; ++i) {
        for (std::uint64_t j = i * i; !composite[i] && j < limit; j += i) composite[j] = true;
    }
    std::uint64_t below = kNone;
    for (std::uint64_t n = 0; n < limit; ++n) {
        ASSERT_EQ(uIsPrime(n), !composite[n]) << n;
        if (n < 3000) {
            ASSERT_EQ(uPrevPrime(n), below) << n;
        }
        if (!composite[n]) {
            if (below != kNone && below < 3000) {
                ASSERT_EQ(uNextPrime(below), n);
            }
            below = n;
        }
    }
    EXPECT_EQ(uNextPrime(0), 2u);
    EXPECT_EQ(uNextPrime(1), 2u);
    EXPECT_EQ(uPrevPrime(0), kNone);
    EXPECT_EQ(uPrevPrime(2), kNone);
    EXPECT_EQ(uPrevPrime(3), 2u);
    EXPECT_EQ(uPrevPrime(5), 3u);
}

// Numbers past the first thousand divisors: the Fermat test decides, and its liars are found by
// division all the same.
TEST(Primes, PastTheFermatTest) {
    EXPECT_FALSE(uIsPrime(341));                  // the smallest pseudoprime to the base 2
    EXPECT_FALSE(uIsPrime(3215031751));           // strong to the bases 2, 3, 5 and 7
    EXPECT_FALSE(uIsPrime(3825123056546413051));  // strong to the first nine primes
    EXPECT_TRUE(uIsPrime(1299709));
    EXPECT_TRUE(uIsPrime(4294967291));  // 2^32 - 5
    EXPECT_TRUE(uIsPrime(1000000000039));
    EXPECT_FALSE(uIsPrime(1000003ull * 1000033));
    EXPECT_FALSE(uIsPrime(1073741827ull * 1073741831));
    EXPECT_FALSE(uIsPrime(UINT64_MAX));
    EXPECT_EQ(uNextPrime(4294967291), 4294967311u);
    EXPECT_EQ(uPrevPrime(4294967311), 4294967291u);
    EXPECT_EQ(uNextPrime(UINT64_MAX - 58), kNone);  // above the largest 64-bit prime
    EXPECT_EQ(uNextPrime(UINT64_MAX), kNone);
}

TEST(Primes, PseudoprimesWithoutSmallFactors) {
    int found = 0;
    // p and 2p - 1 both prime often make a pseudoprime to the base 2.
    for (std::uint64_t p = 1009; p < 60000; p = uNextPrime(p)) {
        const std::uint64_t n = p * (2 * p - 1);
        if (!uIsPrime(2 * p - 1) || uModPwr(2, n - 1, n) != 1) continue;
        ++found;
        EXPECT_FALSE(uIsPrime(n)) << n;
    }
    EXPECT_GT(found, 20);
}

TEST(Modular, AgreesWith128Bits) {
    std::mt19937_64 random(13);
    for (int i = 0; i < 50000; ++i) {
        const auto any = [&] { return random() >> (random() % 64); };
        const std::uint64_t a = any();
        const std::uint64_t b = any();
        const std::uint64_t c = any();
        const std::uint64_t m = any() | (i % 2);
        if (m == 0) continue;
        const auto sum = static_cast<nuv64::Wide128>(a) + b;
        ASSERT_EQ(uModAdd(a, b, m), static_cast<std::uint64_t>(sum % m));
        ASSERT_EQ(uModAdd3(a, b, c, m), static_cast<std::uint64_t>((sum + c) % m));
        ASSERT_EQ(uModMul(a, b, m), wideMulMod(a, b, m)) << a << ' ' << b << ' ' << m;
    }
    for (const std::uint64_t m : {kNone, kNone - 1, kNone / 2 + 1, kNone / 2 + 2}) {
        ASSERT_EQ(uModMul(kNone - 1, kNone - 2, m), wideMulMod(kNone - 1, kNone - 2, m));
        ASSERT_EQ(uModMul(kNone, kNone, m), wideMulMod(kNone, kNone, m));
    }
    EXPECT_EQ(uModMul(4, 3, 6), 0u);
    EXPECT_EQ(uModMul(5, 0, 6), 0u);
    EXPECT_EQ(uModMul(5, 5, 0), 0u);
    EXPECT_EQ(uModAdd(5, 5, 0), 0u);
    EXPECT_EQ(uModAdd3(5, 5, 5, 0), 0u);
    EXPECT_EQ(uModMul(5, 5, 1), 0u);
}

TEST(Modular, Powers) {
    EXPECT_EQ(uModPwr(7, 0, 5), 1u);
    EXPECT_EQ(uModPwr(7, 0, 1), 0u);
    EXPECT_EQ(uModPwr(7, 3, 0), 0u);
    EXPECT_EQ(uModPwr(7, 1, 5), 2u);
    EXPECT_EQ(uModPwr(5, 9, 5), 0u);
    EXPECT_EQ(uModPwr(6, 9, 5), 1u);
    EXPECT_EQ(uModPwr(3, 200, 13), 9u);
    EXPECT_EQ(uModPwr(2, UINT64_MAX - 59, UINT64_MAX - 58), 1u);  // Fermat, 2^64 - 59 is prime
    std::mt19937_64 random(17);
    for (int i = 0; i < 300; ++i) {
        const std::uint64_t b = random();
        const std::uint64_t m = random() | 2;
        const std::uint64_t e = random() % 50;
        std::uint64_t power = 1;
        for (std::uint64_t k = 0; k < e; ++k) power = wideMulMod(power, b, m);
        ASSERT_EQ(uModPwr(b, e, m), power);
    }
}

TEST(Permutation, IsOneAndHasItsInverse) {
    for (const std::uint64_t n : {1, 2, 7, 30, 101}) {
        for (std::uint64_t c = 1; c < 40; ++c) {
            const bool coprime = std::gcd(n, c) == 1;
            const bool coprimeUp = std::gcd(n + 1, c) == 1;
            for (std::uint64_t i = 0; i < n; ++i) {
                const std::uint64_t j = uPermuteNc0(i, n, c);
                ASSERT_EQ(j, i * c % n);
                if (coprime) {
                    ASSERT_EQ(uPermuteNc0Inv(j, n, c), i);
                }
                const std::uint64_t up = uPermuteNc(i, n, c);
                ASSERT_EQ(up, (i + 1) * c % (n + 1) - 1);
                if (coprimeUp) {
                    ASSERT_EQ(uPermuteNcInv(up, n, c), i);
                }
            }
        }
    }
}

// The definition: the first k below c for which c divides j + k*n.
TEST(Permutation, InverseAgreesWithASearch) {
    for (std::uint64_t n = 1; n < 25; ++n) {
        for (std::uint64_t c = 1; c < 25; ++c) {
            for (std::uint64_t j = 0; j < n + 3; ++j) {
                std::uint64_t k = 0;
                while (k < c && (j + k * n) % c != 0) ++k;
                const std::uint64_t wanted = k < c ? (j + k * n) / c % n : kNone;
                ASSERT_EQ(uPermuteNc0Inv(j, n, c), wanted) << j << ' ' << n << ' ' << c;
            }
        }
    }
}

TEST(Permutation, HugeAndDegenerate) {
    EXPECT_EQ(uPermuteNc0(5, 0, 3), kNone);
    EXPECT_EQ(uPermuteNc0Inv(5, 0, 3), kNone);
    EXPECT_EQ(uPermuteNc0Inv(5, 3, 0), kNone);
    EXPECT_EQ(uPermuteNcInv(5, kNone, 3), kNone);
    EXPECT_EQ(uPermuteNc(1, 5, 3), kNone);  // 6 divides 2*3
    std::mt19937_64 random(19);
    for (int i = 0; i < 2000; ++i) {
        const std::uint64_t n = random() | 1;
        const std::uint64_t c = random();
        if (c == 0 || std::gcd(n, c) != 1) continue;
        const std::uint64_t index = random() % n;
        ASSERT_EQ(uPermuteNc0Inv(uPermuteNc0(index, n, c), n, c), index);
    }
}

}  // namespace
