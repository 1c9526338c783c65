#include "nuv64/numeric/binomials.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numeric/exact_rows.h"
#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/binomials_reference.inc"

std::int64_t whole(double n) {
    return static_cast<std::int64_t>(n);
}

TEST(Binomials, AreExact) {
    expectExact("uBinomial", kBinomials, uBinomial);
    expectExact("uCentralBinomial", kCentralBinomials, uCentralBinomial);
    expectExact("uCountMultisets", kMultisets, uCountMultisets);
    expectExact("iBinomial", kSignedBinomials, iBinomial);
    expectExact("iCountMultisets", kSignedMultisets, iCountMultisets);
}

TEST(Binomials, AllOnesMayBeANumber) {
    std::uint32_t flags = 7;
    EXPECT_EQ(uBinomial(UINT64_MAX, 1, &flags), UINT64_MAX);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(uBinomial(UINT64_MAX, 2, &flags), UINT64_MAX);
    EXPECT_EQ(flags, 0x100u);
}

// Exact numbers are correctly rounded; logarithms of factorials lose what they are large.
double allowance(double n, double value) {
    return value < 0x1p64 ? 0.5 : 4.0 * n * std::log(n);
}

TEST(RealBinomials, AgreeWithTheReference) {
    holdAccuracy(
        "riBinomial", kRealBinomials, 2, 1.0,
        [](auto& r) { return riBinomial(whole(r[0]), whole(r[1])); },
        [](const double* r) { return allowance(r[0], r[2]); });
    holdAccuracy(
        "riCountMultisets", kRealMultisets, 2, 1.0,
        [](auto& r) { return riCountMultisets(whole(r[0]), whole(r[1])); },
        [](const double* r) { return allowance(r[0] + r[1], r[2]); });
    holdAccuracy(
        "riCatalanNumber", kRealCatalan, 1, 1.0,
        [](auto& r) { return riCatalanNumber(whole(r[0])); },
        [](const double* r) { return 1.0 + allowance(2 * r[0], r[1] * (r[0] + 1)); });
    holdAccuracy(
        "riCentralBinomial", kRealCentral, 1, 1.0,
        [](auto& r) { return riCentralBinomial(whole(r[0])); },
        [](const double* r) { return allowance(r[0], r[1]); });
}

// While the numbers fit, the real forms are the signed exact ones.
TEST(RealBinomials, AreTheExactOnesAsFarAsThoseGo) {
    for (const auto& row : kSignedBinomials) {
        if (row.flags != 0 || row.at[1] == 1) continue;
        EXPECT_EQ(riBinomial(row.at[0], row.at[1]), static_cast<double>(row.value))
            << row.at[0] << ' ' << row.at[1];
    }
    for (const auto& row : kSignedMultisets) {
        if (row.flags != 0 || row.at[1] == 1) continue;
        EXPECT_EQ(riCountMultisets(row.at[0], row.at[1]), static_cast<double>(row.value))
            << row.at[0] << ' ' << row.at[1];
    }
}

TEST(RealBinomials, Edges) {
    EXPECT_EQ(riBinomial(-1, 3), -1.0);
    EXPECT_EQ(riBinomial(67, 33), 14226520737620288370.0);  // above 2^63
    EXPECT_EQ(riBinomial(5, -1), 0.0);
    EXPECT_EQ(riBinomial(5, 6), 0.0);
    EXPECT_EQ(riBinomial(5, 5), 1.0);
    EXPECT_EQ(riBinomial(INT64_MAX, 1), 0x1p63);
    EXPECT_EQ(riBinomial(INT64_MIN, 1), -0x1p63);
    EXPECT_EQ(riBinomial(INT64_MAX, INT64_MAX), 1.0);
    EXPECT_EQ(riBinomial(INT64_MIN, 0), 1.0);
    EXPECT_GT(riBinomial(INT64_MIN, INT64_MAX - 1), 1e300);
    EXPECT_EQ(riBinomial(2000, 1000), kInf);
    EXPECT_EQ(riBinomial(-1000, 1001), -kInf);
    EXPECT_TRUE(answers(kNoResult, riCatalanNumber(-1)));
    EXPECT_EQ(riCatalanNumber(0), 1.0);
    EXPECT_EQ(riCatalanNumber(INT64_MAX), kInf);
    EXPECT_TRUE(answers(kNoResult, riCatalanNumber(INT64_MIN)));
    EXPECT_TRUE(answers(kNoResult, riCentralBinomial(-1)));
    EXPECT_EQ(riCentralBinomial(0), 1.0);
    EXPECT_EQ(riCentralBinomial(5), 10.0);
    EXPECT_EQ(riCentralBinomial(INT64_MAX), kInf);
    EXPECT_EQ(riCountMultisets(3, 0), 1.0);
    EXPECT_EQ(riCountMultisets(0, 0), 1.0);
    EXPECT_EQ(riCountMultisets(0, 3), 0.0);
    EXPECT_EQ(riCountMultisets(3, -1), 0.0);
    EXPECT_EQ(riCountMultisets(1, INT64_MAX), 1.0);
    EXPECT_EQ(riCountMultisets(INT64_MAX, 1), 0x1p63);
    EXPECT_EQ(riCountMultisets(INT64_MIN, 1), -0x1p63);
    EXPECT_EQ(riCountMultisets(INT64_MAX, INT64_MAX), kInf);
}

}  // namespace
