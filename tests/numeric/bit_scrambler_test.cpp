#include "nuv64/numeric/bit_scrambler.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "nuv64/numeric/number_theory.h"

namespace {

struct Free {
    void operator()(void* block) const { std::free(block); }
};
using Block = std::unique_ptr<void, Free>;

std::string bytesOf(std::size_t n, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(n, 0);
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

TEST(BitScrambler, RestoresWhatWentIn) {
    for (const std::size_t n : {1, 2, 7, 8, 9, 63, 64, 1000, 4097}) {
        for (const std::uint64_t pad : {0, 1, 13, 100}) {
            for (const std::uint64_t step : {0, 1, 2, 3, 4, 5, 1000, 65537}) {
                const std::string source = bytesOf(n, 5);
                std::uint64_t size = 0;
                const Block coded(MemEncryptNew(source.data(), n, &size, pad, step));
                ASSERT_TRUE(coded);
                ASSERT_GE(size, n + pad + 8);
                std::uint64_t back = 0;
                const Block plain(MemDecryptNew(coded.get(), size, &back, step));
                if (step % uPrevPrime(size * 8) == 0 && step > 2) continue;
                ASSERT_TRUE(plain) << n << ' ' << pad << ' ' << step;
                ASSERT_EQ(back, n);
                ASSERT_EQ(std::memcmp(plain.get(), source.data(), n), 0);
            }
        }
    }
}

// Every bit by its definition; the filler is not known, but all bits before it are.
TEST(BitScrambler, MovesEachBitToItsPlace) {
    const std::string source = bytesOf(37, 6);
    std::uint64_t size = 0;
    const Block coded(MemEncryptNew(source.data(), source.size(), &size, 5, 0));
    ASSERT_TRUE(coded);
    EXPECT_EQ(size, uNextPrime((37 + 5 + 8) * 8) / 8 + 1);
    const std::uint64_t prime = uPrevPrime(size * 8);
    const std::uint64_t step = uPrevPrime(size * 4);
    std::vector<unsigned char> plain(8);
    plain[0] = 37;
    plain.insert(plain.end(), source.begin(), source.end());
    const auto* out = static_cast<const unsigned char*>(coded.get());
    for (std::uint64_t i = 0; i < plain.size() * 8; ++i) {
        const std::uint64_t j = uPermuteNc0(i, prime, step);
        ASSERT_EQ(out[j / 8] >> (j % 8) & 1, plain[i / 8] >> (i % 8) & 1) << i;
        ASSERT_EQ(uPermuteNc0Inv(j, prime, step), i);
    }
    for (std::uint64_t j = prime; j < size * 8; ++j) EXPECT_EQ(out[j / 8] >> (j % 8) & 1, 0);
}

TEST(BitScrambler, RefusesWhatItCanNotDo) {
    std::uint64_t size = 7;
    EXPECT_EQ(MemEncryptNew("x", 0, &size, 0, 0), nullptr);
    EXPECT_EQ(MemEncryptNew(nullptr, 5, &size, 0, 0), nullptr);
    EXPECT_EQ(MemEncryptNew("x", 1, &size, UINT64_MAX, 0), nullptr);
    EXPECT_EQ(MemEncryptNew("x", 1, &size, std::uint64_t{1} << 59, 0), nullptr);
    EXPECT_EQ(MemEncryptNew("x", UINT64_MAX, &size, 0, 0), nullptr);
    size = 7;
    EXPECT_EQ(MemDecryptNew("12345678", 0, &size, 0), nullptr);
    EXPECT_EQ(size, 7u);
    EXPECT_EQ(MemDecryptNew(nullptr, 20, &size, 0), nullptr);
    EXPECT_EQ(size, 0u);
    for (std::uint64_t n = 1; n < 8; ++n) {
        size = 7;
        EXPECT_EQ(MemDecryptNew("12345678", n, &size, 0), nullptr);
        EXPECT_EQ(size, 0u);
    }
    EXPECT_EQ(MemDecryptNew("12345678", UINT64_MAX, &size, 0), nullptr);
    const Block alone(MemEncryptNew("x", 1, nullptr, 0, 0));
    EXPECT_TRUE(alone);
}

// A length that would reach behind the block is refused, not copied; any garbage ends well.
TEST(BitScrambler, NeverCopiesPastTheBlock) {
    std::mt19937 random(8);
    for (int round = 0; round < 3000; ++round) {
        std::vector<unsigned char> block(8 + random() % 20);
        for (auto& byte : block) byte = static_cast<unsigned char>(random() % 4 ? 0 : random());
        std::uint64_t size = 7;
        const Block plain(MemDecryptNew(block.data(), block.size(), &size, random() % 80));
        ASSERT_LE(size, block.size() - 8);
        ASSERT_EQ(plain == nullptr, size == 0);
    }
    // The identity step 1 is taken as the default; P + 1 is one and can hold any length.
    std::vector<unsigned char> block(16);
    const std::uint64_t identity = uPrevPrime(16 * 8) + 1;
    for (unsigned length = 0; length < 20; ++length) {
        block[0] = static_cast<unsigned char>(length);
        std::uint64_t size = 7;
        const Block plain(MemDecryptNew(block.data(), block.size(), &size, identity));
        EXPECT_EQ(size, length <= 8 ? length : 0) << length;
    }
}

TEST(BitScrambler, AStepOfThePrimeKeepsOneBit) {
    std::uint64_t size = 0;
    const Block probe(MemEncryptNew("abc", 3, &size, 0, 0));
    const std::uint64_t prime = uPrevPrime(size * 8);
    const Block coded(MemEncryptNew("abc", 3, &size, 0, prime));
    ASSERT_TRUE(coded);
    const auto* out = static_cast<const unsigned char*>(coded.get());
    EXPECT_LE(out[0], 1);
    for (std::uint64_t i = 1; i < size; ++i) EXPECT_EQ(out[i], 0);
    std::uint64_t back = 9;
    const Block plain(MemDecryptNew(coded.get(), size, &back, prime));
    EXPECT_LE(back, 1u);
}

TEST(BitScrambler, AWrongStepDoesNotRestore) {
    const std::string source = bytesOf(200, 9);
    std::uint64_t size = 0;
    const Block coded(MemEncryptNew(source.data(), source.size(), &size, 0, 101));
    std::uint64_t back = 0;
    const Block plain(MemDecryptNew(coded.get(), size, &back, 103));
    EXPECT_FALSE(plain);
    EXPECT_EQ(back, 0u);
}

}  // namespace
