#include "nuv64/numeric/gamma.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/gamma_reference.inc"

constexpr double kBranch = 0x1p-13;

// The largest term of ln Gamma(x), as the module sums it: the error of the logarithm is a few ulps
// of it, absolute.
double lnTerms(double x) {
    if (x > 0x1p-26) return x < 8.5 ? 19.0 : x * std::log(x);
    return lnTerms(1.0 - x) + std::fabs(std::log(std::fabs(std::sin(std::numbers::pi * x))));
}

double ofLogarithm(const double* r) {
    return 1.0 + lnTerms(r[0]) / std::fabs(r[1]);
}

double ofExponential(const double* r) {
    return 1.0 + lnTerms(r[0]);
}

// What a difference of two terms of that size may be off, for the value in the column.
double ofDifference(double size, double value) {
    return 1.0 + size / std::fabs(value);
}

TEST(Gamma, AgreesWithTheReference) {
    holdAccuracy(
        "rGammaLn", kGammaLn, 1, 2.3, [](auto& r) { return rGammaLn(r[0]); }, ofLogarithm);
    holdAccuracy(
        "rGamma", kGamma, 1, 2.5, [](auto& r) { return rGamma(r[0]); }, ofExponential);
    holdAccuracy(
        "r1DivGamma", kGamma, 3, 2.5, [](auto& r) { return r1DivGamma(r[0]); }, ofExponential);
}

TEST(Gamma, TaylorRemaindersAgreeWithTheReference) {
    const auto ofGamma = [](const double* r) {
        if (std::fabs(r[0]) < kBranch) return 1.0;
        return ofDifference(20.0 * (std::fabs(1.0 / r[0]) + std::fabs(std::tgamma(r[0]))), r[1]);
    };
    const auto ofGammaLn = [](const double* r) {
        if (std::fabs(r[0]) < kBranch) return 1.0;
        return ofDifference(lnTerms(1.0 + r[0]) / std::fabs(r[0]), r[3]);
    };
    holdAccuracy(
        "rGammaT1", kGammaTaylor, 1, 1.7, [](auto& r) { return rGammaT1(r[0]); }, ofGamma);
    holdAccuracy(
        "rGammaLnT1", kGammaTaylor, 3, 2.0, [](auto& r) { return rGammaLnT1(r[0]); }, ofGammaLn);
    const auto ofInverse = [](const double* r) { return 1.0 + lnTerms(r[0] - r[1]); };
    const auto inverse = [](auto& r) {
        return r1DivGammaT1(r[0], static_cast<std::int64_t>(r[1]));
    };
    holdAccuracy("r1DivGammaT1", kInverseGammaTaylor, 2, 2.6, inverse, ofInverse);
}

TEST(Gamma, DerivativesAgreeWithTheReference) {
    // psi has zeros, and below 0.1 the rounding of pi x in psi and psi' adds to it.
    const auto ofProduct = [](const double* r) {
        const double angle = std::numbers::pi * std::fmin(r[0], 0.1);
        const double sine = std::sin(angle);
        const double slope = 3.0 + std::numbers::pi * std::fabs(angle) / (sine * sine);
        return 1.0 + lnTerms(r[0]) + std::fabs(angle / sine) +
               slope * std::fabs(std::tgamma(r[0]) / r[1]);
    };
    holdAccuracy(
        "rGammaD", kGammaDerivatives, 1, 2.5, [](auto& r) { return rGammaD(r[0]); }, ofProduct);
    holdAccuracy(
        "rGammaD2", kGammaDerivatives, 3, 2.5, [](auto& r) { return rGammaD2(r[0]); }, ofProduct);
}

TEST(Gamma, SpecialArguments) {
    const double least = std::numeric_limits<double>::denorm_min();
    const double euler = -0.5772156649015329;
    const SpecialAnswers table[] = {
        {"rGammaLn",
         rGammaLn,
         {kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, kInf,
          kNoResult}},
        {"rGamma",
         rGamma,
         {kNoResult, kNoResult, kNoResult, kInf, kInf, kInf, -kInf, kNoResult, kAnyNan}},
        {"r1DivGamma", r1DivGamma, {kNoResult, 0, kNoResult, 0, 0, kInf, -kInf, 0, 0}},
        {"rGammaT1",
         rGammaT1,
         {kNoResult, kNoResult, kNoResult, euler, euler, euler, euler, kNoResult, kAnyNan}},
        {"rGammaLnT1",
         rGammaLnT1,
         {kNoResult, kNoResult, kNoResult, euler, euler, euler, euler, kInf, kNoResult}},
        {"rGammaD",
         rGammaD,
         {kNoResult, kNoResult, kNoResult, -kInf, kInf, -kInf, -kInf, kAnyNan, kAnyNan}},
        {"rGammaD2",
         rGammaD2,
         {kNoResult, kNoResult, kNoResult, kInf, kInf, kInf, -kInf, kAnyNan, kAnyNan}},
    };
    expectSpecialAnswers(table);
    EXPECT_EQ(rGamma(least), kInf);
}

TEST(Gamma, ZeroAndNegativeIntegers) {
    for (double x : {-1.0, -2.0, -3.0, -100.0, -0x1p40 - 1.0, -0x1p52 - 1.0, -0x1p60}) {
        EXPECT_TRUE(answers(kNoResult, rGammaLn(x))) << x;
        EXPECT_EQ(r1DivGamma(x), 0.0) << x;
    }
    for (int n = 0; n <= 170; ++n) EXPECT_TRUE(std::isinf(rGamma(-n))) << n;
    EXPECT_TRUE(rIsNAN(rGamma(-171.0)));
}

TEST(Gamma, SmallNegativeArgumentsKeepTheirDigits) {
    for (double x : {-1e-9, -1e-20, -1e-100, -1e-300}) {
        EXPECT_NEAR(rGamma(x) * x, 1.0, 1e-8) << x;
        EXPECT_NEAR(r1DivGamma(x) / x, 1.0, 1e-8) << x;
        EXPECT_NEAR(rGammaLn(x), -std::log(-x), 1e-9 * std::fabs(std::log(-x))) << x;
    }
}

TEST(Gamma, OverflowIsNoResult) {
    EXPECT_TRUE(std::isfinite(rGamma(171.6)));
    EXPECT_TRUE(answers(kNoResult, rGamma(171.7)));
    EXPECT_TRUE(answers(kNoResult, rGamma(-200.5)));
    EXPECT_GT(r1DivGamma(171.6), 0.0);
    EXPECT_EQ(r1DivGamma(171.7), 0.0);
    EXPECT_EQ(r1DivGamma(-200.5), -kInf);
    EXPECT_EQ(r1DivGamma(-201.5), kInf);
    EXPECT_EQ(rGammaLn(2.6e305), kInf);
}

TEST(Gamma, ReflectionAndRecurrence) {
    for (double x = 0.02; x < 19.9; x += 0.37) {
        const double sine = std::sin(std::numbers::pi * x);
        EXPECT_NEAR(rGamma(x) * rGamma(1.0 - x) * sine / std::numbers::pi, 1.0, 1e-12) << x;
        EXPECT_NEAR(rGamma(x + 1.0) / (x * rGamma(x)), 1.0, 3e-14) << x;
        EXPECT_NEAR(rGamma(-x) * r1DivGamma(-x), 1.0, 1e-12) << x;
    }
}

TEST(Gamma, InverseOfShiftedArgumentsAtZero) {
    // 1/(x Gamma(x - n)) is (-1)^n n! at 0.
    double factorial = 1.0;
    for (int n = 0; n <= 30; ++n) {
        if (n > 0) factorial *= -n;
        EXPECT_NEAR(r1DivGammaT1(0.0, n) / factorial, 1.0, 2e-13) << n;
    }
    const CountAnswer<std::int64_t> table[] = {
        {"r1DivGammaT1", r1DivGammaT1, 0.0, -1, kInf},
        {"r1DivGammaT1", r1DivGammaT1, 0.0, 200, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, kQuiet, 0, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, kQuiet, -5, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, kQuiet, 5, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, kQuiet, 50, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, kInf, 3, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, kInf, 0, 0.0},
        {"r1DivGammaT1", r1DivGammaT1, -kInf, 0, kAnyNan},
        {"r1DivGammaT1", r1DivGammaT1, 1.5, INT64_MIN, 0.0},
        {"r1DivGammaT1", r1DivGammaT1, 1.5, INT64_MAX, kAnyNan},
    };
    expectAnswers(table);
}

}  // namespace
