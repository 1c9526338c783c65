#include "nuv64/numeric/incomplete_gamma.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/gamma.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/incomplete_gamma_reference.inc"

// The exponent of the factor x^a e^-x/Gamma(a): its size is the relative error in ulps.
double exponentSize(double a, double x) {
    const double ln = a < 8.5 ? 19.0 : a * std::log(a);
    return 1.0 + std::fabs(a * std::log(x)) + x + ln;
}

bool isUpperRange(const double* r) {
    return r[1] >= r[0] + 1.0;
}

// A row: a, x, then lower, upper, P and Q, each in two columns. In its own range a function is the
// product of the factor, in the other one the difference of its complement from the whole.
template <int kOwn, int kOther, bool kOwnIsUpper>
double ofProductOrDifference(const double* r) {
    const double size = exponentSize(r[0], r[1]);
    if (isUpperRange(r) == kOwnIsUpper) return size;
    return 1.0 + size * (std::fabs(r[kOther]) + std::fabs(r[kOwn])) / std::fabs(r[kOwn]);
}

TEST(IncompleteGamma, AgreesWithTheReference) {
    holdAccuracy(
        "rGammaIncLower", kIncompleteGamma, 2, 2.1,
        [](auto& r) { return rGammaIncLower(r[0], r[1]); }, ofProductOrDifference<2, 4, false>);
    holdAccuracy(
        "rGammaIncUpper", kIncompleteGamma, 4, 2.7,
        [](auto& r) { return rGammaIncUpper(r[0], r[1]); }, ofProductOrDifference<4, 2, true>);
    holdAccuracy(
        "rGammaIncP", kIncompleteGamma, 6, 2.6, [](auto& r) { return rGammaIncP(r[0], r[1]); },
        ofProductOrDifference<6, 8, false>);
    holdAccuracy(
        "rGammaIncQ", kIncompleteGamma, 8, 4.0, [](auto& r) { return rGammaIncQ(r[0], r[1]); },
        ofProductOrDifference<8, 6, true>);
}

TEST(IncompleteGamma, QuantilesAgreeWithTheReference) {
    // The error of P over the slope of ln x.
    const auto ofInverse = [](const double* r) {
        const double a = r[0], p = r[1], x = r[2];
        const double slope = std::exp(a * std::log(x) - x - std::lgamma(a));
        return 1.0 + exponentSize(a, x) * std::fmax(p, x >= a + 1.0 ? 1.0 : p) / slope;
    };
    holdAccuracy(
        "rGammaIncPInv", kGammaQuantile, 2, 1.7, [](auto& r) { return rGammaIncPInv(r[0], r[1]); },
        ofInverse);
}

TEST(IncompleteGamma, EdgesOfTheDomain) {
    const double least = std::numeric_limits<double>::denorm_min();
    const double most = std::numeric_limits<double>::max();
    using Function = double (*)(double, double);
    const struct {
        const char* name;
        Function function;
        double atZero;
    } table[] = {{"rGammaIncLower", rGammaIncLower, 0.0},
                 {"rGammaIncUpper", rGammaIncUpper, rGamma(2.5)},
                 {"rGammaIncP", rGammaIncP, 0.0},
                 {"rGammaIncQ", rGammaIncQ, 1.0}};
    for (const auto& row : table) {
        for (double a : {0.0, -0.0, -1.0, -least, -most, -kInf, kQuiet}) {
            EXPECT_TRUE(answers(kNoResult, row.function(a, 1.0))) << row.name << ' ' << a;
        }
        for (double x : {-1.0, -least, -most, -kInf, kQuiet}) {
            EXPECT_TRUE(answers(kNoResult, row.function(2.5, x))) << row.name << ' ' << x;
        }
        for (double x : {0.0, -0.0, least, 1e-200}) {
            EXPECT_EQ(row.function(2.5, x), row.atZero) << row.name << ' ' << x;
        }
        EXPECT_TRUE(std::isnan(row.function(2.5, kInf))) << row.name;
        EXPECT_TRUE(std::isnan(row.function(kInf, 2.5))) << row.name;
        EXPECT_TRUE(std::isnan(row.function(kInf, kInf))) << row.name;
        EXPECT_TRUE(std::isnan(row.function(1e6, 1e6))) << row.name;
    }
    EXPECT_EQ(rGammaIncP(1.0, 0.0), 0.0);
    EXPECT_EQ(rGammaIncQ(1.0, 0.0), 1.0);
    EXPECT_EQ(rGammaIncP(2.5, most), 1.0);
    EXPECT_EQ(rGammaIncQ(2.5, 1e4), 0.0);
    EXPECT_EQ(rGammaIncQ(2.5, 0x1p-50), 1.0);
    EXPECT_EQ(rGammaIncP(2.5, 0x1p-513), 0.0);
    EXPECT_GT(rGammaIncP(1.5, 0x1p-512), 0.0);
    EXPECT_TRUE(rIsNAN(rGammaIncLower(200.0, 300.0)));
    EXPECT_TRUE(rIsNAN(rGammaIncUpper(200.0, 1.0)));
}

TEST(IncompleteGamma, PartsMakeTheWhole) {
    for (double a : {0.1, 0.7, 1.0, 3.0, 12.5, 60.0}) {
        for (double x = 0.05; x < 3.0 * a + 10.0; x *= 1.3) {
            EXPECT_NEAR(rGammaIncP(a, x) + rGammaIncQ(a, x), 1.0, 1e-15) << a << ' ' << x;
            EXPECT_NEAR((rGammaIncLower(a, x) + rGammaIncUpper(a, x)) / rGamma(a), 1.0, 1e-13)
                << a << ' ' << x;
            EXPECT_NEAR(rGammaIncQ(1.0, x), std::exp(-x), 1e-13) << x;
        }
    }
}

TEST(IncompleteGamma, QuantileAtItsEdges) {
    const double least = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(rGammaIncPInv(1.0, 1.0), 101.0);
    EXPECT_EQ(rGammaIncPInv(0.25, 1.0), 100.0);
    EXPECT_EQ(rGammaIncPInv(400.0, 1.0), 2400.0);
    EXPECT_EQ(rGammaIncPInv(3.0, 0.0), 0.0);
    for (double p : {-1.0, -least, 1.0 + 0x1p-52, kInf, -kInf, kQuiet}) {
        EXPECT_TRUE(answers(kNoResult, rGammaIncPInv(3.0, p))) << p;
    }
    for (double a : {0.0, -1.0, -kInf, kQuiet}) {
        EXPECT_TRUE(answers(kNoResult, rGammaIncPInv(a, 0.5))) << a;
    }
    EXPECT_TRUE(std::isnan(rGammaIncPInv(kInf, 0.5)));
    // Quantiles below any double of the module come out as next to nothing.
    for (double a : {1e-3, 0.01, 0.05}) {
        for (double p : {1e-300, 1e-20, 0.01}) {
            const double x = rGammaIncPInv(a, p);
            EXPECT_GE(x, 0.0) << a << ' ' << p;
            EXPECT_LT(x, 1e-30) << a << ' ' << p;
        }
    }
    // Twelve steps don't lead all the way down from the least guess.
    EXPECT_LT(rGammaIncPInv(2.0, least), 1e-8);
    // Nor up: the quantile is 0.0435.
    EXPECT_NEAR(rGammaIncPInv(7.6, 2.5e-15), 0.024, 1e-4);
}

TEST(IncompleteGamma, QuantileInvertsTheFunction) {
    for (double a : {0.05, 0.3, 1.0, 1.5, 7.0, 150.0, 3000.0}) {
        for (double p = 0.001; p < 1.0; p += 0.0313) {
            EXPECT_NEAR(rGammaIncP(a, rGammaIncPInv(a, p)), p, 1e-11) << a << ' ' << p;
        }
    }
}

}  // namespace
