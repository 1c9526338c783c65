#include "nuv64/numeric/stirling_numbers.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numeric/exact_rows.h"
#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/stirling_numbers_reference.inc"

constexpr bool kWithWordOnly = false;

TEST(StirlingNumbers, AreExact) {
    expectExact("uStirling1", kStirling1, uStirling1, kWithWordOnly);
    expectExact("uStirling2", kStirling2, uStirling2, kWithWordOnly);
    expectExact(
        "iStirling1", kSignedStirling1,
        [](std::int64_t n, std::int64_t k, std::uint32_t* flags) {
            return iStirling1(static_cast<std::uint64_t>(n), static_cast<std::uint64_t>(k), flags);
        },
        kWithWordOnly);
}

// Without a word the numbers wrap, but for those that are factorials and binomials.
TEST(StirlingNumbers, WrapWhereNobodyLooks) {
    for (const auto& row : kStirling1) {
        if (row.flags == 0 && row.at[0] < 400) {
            EXPECT_EQ(uStirling1(row.at[0], row.at[1], nullptr), row.value);
        }
    }
    // s(23, 2) = 1153... modulo 2^64, by the recurrence from s(22, 2) and s(22, 1).
    EXPECT_EQ(uStirling1(23, 2, nullptr),
              22 * uStirling1(22, 2, nullptr) + 21 * 2432902008176640000u);
    EXPECT_EQ(uStirling2(70, 2, nullptr), UINT64_MAX);  // 2^69 - 1
    EXPECT_EQ(uStirling1(30, 1, nullptr), UINT64_MAX);
    EXPECT_EQ(iStirling1(30, 1, nullptr), INT64_MIN);
}

TEST(StirlingNumbers, TellOfMemory) {
    std::uint32_t flags = 7;
    const std::uint64_t n = 1ull << 62;
    EXPECT_EQ(uStirling1(n, n - 5, &flags), UINT64_MAX);
    EXPECT_EQ(flags, 0x80000000u);
    EXPECT_EQ(uStirling2(n, n - 5, &flags), UINT64_MAX);
    EXPECT_EQ(flags, 0x80000000u);
    EXPECT_EQ(iStirling1(n, n - 5, &flags), INT64_MIN);
    EXPECT_EQ(flags, 0x80000000u);
    EXPECT_TRUE(answers(kNoResult, ruStirling1(n, n - 5)));
}

TEST(StirlingNumbers, SignedOnesReportTheirLimit) {
    std::uint32_t flags = 7;
    // 9.3e18: within the unsigned range, not within the signed one.
    EXPECT_EQ(uStirling1(21, 2, &flags), 8752948036761600000u);
    EXPECT_EQ(iStirling1(21, 2, &flags), -8752948036761600000);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(uStirling1(21, 3, &flags), 13803759753640704000u);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(iStirling1(21, 3, &flags), INT64_MIN);
    EXPECT_EQ(flags, 0x100u);
    EXPECT_EQ(iStirling1(21, 3, nullptr), INT64_MIN);
}

TEST(StirlingNumbers, AsReals) {
    holdAccuracy(
        "ruStirling1", kRealStirling1, 2, 1.0,
        [](auto& r) {
            return ruStirling1(static_cast<std::uint64_t>(r[0]), static_cast<std::uint64_t>(r[1]));
        },
        [](const double* r) {
            if (r[2] < 0x1p64) return 0.5;
            return r[1] == 1.0 ? 4.0 + r[0] * std::log(r[0]) : r[0];
        });
    EXPECT_EQ(ruStirling1(5, 6), 0.0);
    EXPECT_EQ(ruStirling1(5, 0), 0.0);
    EXPECT_EQ(ruStirling1(0, 0), 1.0);
    EXPECT_EQ(ruStirling1(UINT64_MAX, UINT64_MAX), 1.0);
    EXPECT_EQ(ruStirling1(UINT64_MAX, 0), 0.0);
    EXPECT_EQ(ruStirling1(UINT64_MAX, 1), kInf);
    EXPECT_EQ(ruStirling1(172, 1), kInf);
    EXPECT_LT(ruStirling1(171, 1), kInf);
    EXPECT_EQ(ruStirling1(UINT64_MAX, UINT64_MAX - 1), 0x1p127);
    EXPECT_TRUE(answers(kNoResult, ruStirling1(200, 5)));
    EXPECT_TRUE(answers(kNoResult, ruStirling1(1ull << 60, 5)));
}

}  // namespace
