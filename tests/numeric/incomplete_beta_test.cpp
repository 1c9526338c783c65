#include "nuv64/numeric/incomplete_beta.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/beta.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/incomplete_beta_reference.inc"

double lnTerms(double x) {
    return x < 8.5 ? 19.0 : x * std::log(x);
}

double exponentSize(double x, double a, double b) {
    return 2.0 + std::fabs(a * std::log(x)) + std::fabs(b * std::log1p(-x)) + lnTerms(a + b);
}

bool isReflected(double x, double a, double b) {
    return x * (a + b + 2.0) >= a + 1.0;
}

TEST(IncompleteBeta, AgreesWithTheReference) {
    const auto ofRegular = [](const double* r) {
        const double size = exponentSize(r[0], r[1], r[2]);
        return isReflected(r[0], r[1], r[2]) ? 1.0 + size * (1.0 - r[3]) / r[3] : size;
    };
    holdAccuracy(
        "rBetaIncReg", kIncompleteBeta, 3, 3.6,
        [](auto& r) { return rBetaIncReg(r[0], r[1], r[2]); }, ofRegular);
    const auto ofPlain = [](const double* r) {
        const double size = exponentSize(r[0], r[1], r[2]);
        const double value = std::fabs(r[5]);
        return isReflected(r[0], r[1], r[2]) ? 1.0 + size * (1.0 + value) / value : size;
    };
    holdAccuracy(
        "rBetaInc", kIncompleteBeta, 5, 0.6, [](auto& r) { return rBetaInc(r[0], r[1], r[2]); },
        ofPlain);
}

TEST(IncompleteBeta, QuantilesAgreeWithTheReference) {
    const auto ofInverse = [](const double* r) {
        const double p = r[0], a = r[1], b = r[2], x = r[3];
        const double slope = std::exp(a * std::log(x) + (b - 1.0) * std::log1p(-x) +
                                      std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b));
        const double size = exponentSize(x, a, b);
        return 1.0 + size * (isReflected(x, a, b) ? 1.0 : p) / slope;
    };
    holdAccuracy(
        "rBetaIncRegInv", kBetaQuantile, 3, 3.0,
        [](auto& r) { return rBetaIncRegInv(r[0], r[1], r[2]); }, ofInverse);
}

TEST(IncompleteBeta, EdgesOfTheDomain) {
    const double least = std::numeric_limits<double>::denorm_min();
    const double most = std::numeric_limits<double>::max();
    using Function = double (*)(double, double, double);
    const struct {
        const char* name;
        Function function;
        double atOne;
    } table[] = {{"rBetaInc", rBetaInc, rBeta(2.0, 3.0)},
                 {"rBetaIncReg", rBetaIncReg, 1.0},
                 {"rBetaIncRegInv", rBetaIncRegInv, 1.0}};
    for (const auto& row : table) {
        for (double a : {0.0, -0.0, -1.0, -least, -most, -kInf, kQuiet}) {
            EXPECT_TRUE(answers(kNoResult, row.function(0.5, a, 1.0))) << row.name << ' ' << a;
            EXPECT_TRUE(answers(kNoResult, row.function(0.5, 1.0, a))) << row.name << ' ' << a;
        }
        for (double x : {-1.0, -least, 1.0 + 0x1p-52, 2.0, most, kInf, -kInf, kQuiet}) {
            EXPECT_TRUE(answers(kNoResult, row.function(x, 2.0, 3.0))) << row.name << ' ' << x;
        }
        for (double x : {0.0, -0.0, least, 1e-17}) {
            EXPECT_EQ(row.function(x, 2.0, 3.0), 0.0) << row.name << ' ' << x;
        }
        for (double x : {1.0, 1.0 - 0x1p-53, 1.0 - 0x1p-50}) {
            EXPECT_EQ(row.function(x, 2.0, 3.0), row.atOne) << row.name << ' ' << x;
        }
        EXPECT_TRUE(std::isnan(row.function(0.5, kInf, 1.0))) << row.name;
        if (row.function == rBetaIncRegInv) continue;
        EXPECT_TRUE(std::isnan(row.function(0.5, 1.0, kInf))) << row.name;
    }
    EXPECT_GT(rBetaIncReg(0x1p-49, 0.5, 3.0), 0.0);
    EXPECT_EQ(rBetaIncReg(0x1p-50, 0.5, 3.0), 0.0);
    EXPECT_EQ(rBetaIncRegInv(0x1p-52, 2.0, 3.0), 0.0);
    EXPECT_GT(rBetaIncRegInv(0x1p-51, 2.0, 3.0), 0.0);
    EXPECT_TRUE(answers(kNoResult, rBetaIncReg2(0.1, 2.0, 2.0, 3.0)));
    EXPECT_TRUE(answers(kNoResult, rBetaIncReg2(kQuiet, 0.5, 2.0, 3.0)));
    EXPECT_TRUE(std::isnan(rBetaInc2(0.1, 0.5, -2.0, 3.0)));
    EXPECT_TRUE(std::isnan(rBetaInc2(kQuiet, 0.5, 2.0, 3.0)));
}

TEST(IncompleteBeta, Symmetry) {
    for (double a : {0.2, 1.0, 4.5, 70.0}) {
        for (double b : {0.4, 1.0, 9.0, 40.0}) {
            for (double x = 0.03; x < 1.0; x += 0.07) {
                EXPECT_NEAR(rBetaIncReg(x, a, b) + rBetaIncReg(1.0 - x, b, a), 1.0, 3e-13)
                    << x << ' ' << a << ' ' << b;
            }
        }
    }
    for (double x = 0.05; x < 1.0; x += 0.1) EXPECT_NEAR(rBetaIncReg(x, 1.0, 1.0), x, 1e-14);
}

TEST(IncompleteBeta, BetweenTwoEnds) {
    EXPECT_EQ(rBetaIncReg2(0.25, 0.75, 2.0, 3.0),
              rBetaIncReg(0.75, 2.0, 3.0) - rBetaIncReg(0.25, 2.0, 3.0));
    EXPECT_EQ(rBetaIncReg2(0.0, 1.0, 2.0, 3.0), 1.0);
    EXPECT_NEAR(rBetaInc2(0.0, 1.0, 2.0, 3.0), 1.0 / 12.0, 1e-15);
    // The integral of t(1 - t)^2 from 0.2 to 0.6.
    const auto antiderivative = [](double t) {
        return t * t / 2 - 2 * t * t * t / 3 + t * t * t * t / 4;
    };
    EXPECT_NEAR(rBetaInc2(0.2, 0.6, 2.0, 3.0), antiderivative(0.6) - antiderivative(0.2), 1e-15);
    EXPECT_LT(rBetaInc2(0.6, 0.2, 2.0, 3.0), 0.0);
}

TEST(IncompleteBeta, UnregularisedFormIsOneLessTheComplementWhenReflected) {
    const double reflected = rBetaInc(0.9, 2.0, 3.0);
    EXPECT_NEAR(reflected, 1.0 - (1.0 - rBetaIncReg(0.9, 2.0, 3.0)) / 12.0, 1e-14);
    EXPECT_NEAR(rBetaInc(0.3, 2.0, 3.0), rBetaIncReg(0.3, 2.0, 3.0) / 12.0, 1e-15);
}

TEST(IncompleteBeta, QuantileInvertsTheFunction) {
    for (double a : {0.3, 1.0, 2.5, 80.0}) {
        for (double b : {0.2, 1.0, 7.0, 300.0}) {
            for (double p = 0.01; p < 1.0; p += 0.045) {
                const double x = rBetaIncRegInv(p, a, b);
                if (x < 1e-13 || x > 1.0 - 1e-5) continue;
                EXPECT_NEAR(rBetaIncReg(x, a, b), p, 1e-10) << p << ' ' << a << ' ' << b;
            }
        }
    }
    // Quantiles below any double of the module come out as next to nothing.
    EXPECT_LT(rBetaIncRegInv(1e-10, 0.01, 1.0), 1e-13);
    EXPECT_GE(rBetaIncRegInv(1e-10, 0.01, 1.0), 0.0);
    // Ten steps don't lead from every guess in a tail to the quantile.
    EXPECT_NEAR(rBetaIncReg(rBetaIncRegInv(1e-6, 340.0, 1.01), 340.0, 1.01), 1e-6, 1e-14);
    EXPECT_LT(rBetaIncReg(rBetaIncRegInv(3e-8, 340.0, 1.01), 340.0, 1.01), 1e-8);
}

}  // namespace
