#include "nuv64/numeric/real_logarithm.h"

#include <gtest/gtest.h>

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_logarithm_reference.inc"

TEST(Logarithm, AgreesWithTheReference) {
    holdAccuracy("rLog", kLogs, 1, 2.0, [](auto& r) { return rLog(r[0]); });
    holdAccuracy("rLog2", kLogs, 3, 1.0, [](auto& r) { return rLog2(r[0]); });
    holdAccuracy("rLog10", kLogs, 5, 2.0, [](auto& r) { return rLog10(r[0]); });
    const auto cancelled = [](const double* r) {
        return (std::fabs(r[0] * r[1]) + r[0]) / std::fabs(r[7]);
    };
    holdAccuracy(
        "rLogA", kLogs, 7, 3.0, [](auto& r) { return rLogA(r[0]); }, cancelled);
}

TEST(Logarithm, OfOnePlusXAgreesWithTheReference) {
    holdAccuracy("rLog1p", kLogTerms, 1, 1.0, [](auto& r) { return rLog1p(r[0]); });
    holdAccuracy("rLogT1", kLogTerms, 3, 2.0, [](auto& r) { return rLogT1(r[0]); });
    const auto cancelled = [](const double* r) {
        return std::fabs(r[0]) < 0.001 ? 1.0 : 2.0 + 2.0 / std::fabs(r[0]);
    };
    holdAccuracy(
        "rLogT2", kLogTerms, 5, 1.0, [](auto& r) { return rLogT2(r[0]); }, cancelled);
    holdAccuracy("rLogSym", kLogSym, 1, 1.0, [](auto& r) { return rLogSym(r[0]); });
    holdAccuracy("rLogSym10", kLogSym, 3, 2.0, [](auto& r) { return rLogSym10(r[0]); });
}

TEST(Logarithm, OfABaseAgreesWithTheReference) {
    const auto inBase = [](auto& r) { return rLogInBase(r[0], r[1]); };
    holdAccuracy("rLogInBase", kLogInBase, 2, 2.0, inBase);
    const auto ratio = [](auto& r) { return rLogRatio(r[0], r[1]); };
    holdAccuracy("rLogRatio", kLogInBase, 2, 2.0, ratio);
}

TEST(Logarithm, OrdersAgreeWithTheReference) {
    const auto order = [](const double* r) { return static_cast<std::int64_t>(r[1]); };
    const auto allowance = [&](const double* r) {
        const double n = std::fabs(r[1]);
        if (n <= 2.0) return r[1] > 0.0 ? 1.0 : 4.0 + 4.0 / std::fabs(std::log(r[0]) - n * 0.75);
        const double logarithm = std::log(r[0]);
        const double harmonic = std::log(n) + 0.5772156649 + 0.5 / n;
        const double cancelled =
            (std::fabs(logarithm) + harmonic) / std::fabs(logarithm - harmonic);
        if (r[1] > 2.0) return 8.0 + n * std::fabs(logarithm) + std::lgamma(n);
        return 2.0 * cancelled + (n <= 170.0 ? n : n * std::fabs(logarithm) + std::lgamma(n + 1.0));
    };
    const auto value = [&](auto& r) { return rLogAD(r[0], order(r)); };
    holdAccuracy("rLogAD", kLogAD, 2, 2.0, value, allowance);
}

TEST(Logarithm, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const double most = 709.782712893384;
    const SpecialAnswers table[] = {
        {"rLog",
         rLog,
         {kAnyNan, kInf, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, most, kNoResult}},
        {"rLog2",
         rLog2,
         {kAnyNan, kInf, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, 1024, kNoResult}},
        {"rLog10",
         rLog10,
         {kAnyNan, kInf, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, 308.25471555991674,
          kNoResult}},
        {"rLog1p", rLog1p, {kAnyNan, kInf, kAnyNan, 0, 0, tiny, -tiny, most, kAnyNan}},
        {"rLogA",
         rLogA,
         {kAnyNan, kAnyNan, kNoResult, 0, 0, kNoResult, kNoResult, kInf, kNoResult}},
        {"rLogD", rLogD, {kAnyNan, 0, 0, kInf, kInf, kInf, -kInf, kAnyFinite, kAnyFinite}},
        {"rLogSym", rLogSym, {kAnyNan, kInf, -kInf, 0, 0, tiny, -tiny, most, -most}},
        {"rLogSym10", rLogSym10, {kAnyNan, kInf, -kInf, 0, 0, 0, 0, kAnyFinite, kAnyFinite}},
        {"rLogT1", rLogT1, {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, kAnyFinite, kAnyNan}},
        {"rLogT2",
         rLogT2,
         {kAnyNan, kAnyNan, kAnyNan, -0.5, -0.5, -0.5, -0.5, kAnyFinite, kAnyNan}},
    };
    expectSpecialAnswers(table);
}

TEST(Logarithm, Limits) {
    for (double (*log)(double) : {rLog, rLog2, rLog10}) {
        EXPECT_TRUE(answers(kNoResult, log(___MinReal)));
        EXPECT_TRUE(std::isfinite(log(std::nextafter(___MinReal, 1.0))));
        EXPECT_EQ(log(1.0), 0.0);
    }
    EXPECT_EQ(rLog2(1024.0), 10.0);
    EXPECT_EQ(rLog1p(-1.0), -kInf);
    EXPECT_EQ(rLogA(1.0), -1.0);
    EXPECT_TRUE(answers(kNoResult, rLogA(___MinReal)));
    EXPECT_EQ(rLogD(-4.0), -0.25);
    EXPECT_EQ(rLogT1(-1.0), kInf);
    EXPECT_EQ(rLogT2(-1.0), -kInf);
}

TEST(Logarithm, BranchesMeet) {
    for (const double at : {0x1p-13, 0.001}) {
        for (const double x : {at, -at}) {
            EXPECT_NEAR(rLogT1(std::nextafter(x, 0.0)), rLogT1(x), 0x1p-51);
            EXPECT_NEAR(rLogT2(std::nextafter(x, 0.0)), rLogT2(x), 0x1p-51 / at);
        }
    }
}

TEST(Logarithm, PairsOfArguments) {
    const PairAnswer table[] = {
        {"rLogInBase", rLogInBase, 8.0, 2.0, 3.0},
        {"rLogInBase", rLogInBase, 8.0, 0.5, -3.0},
        {"rLogInBase", rLogInBase, 8.0, 0.0, kNoResult},
        {"rLogInBase", rLogInBase, 8.0, -2.0, kNoResult},
        {"rLogInBase", rLogInBase, 0.0, 2.0, kNoResult},
        {"rLogInBase", rLogInBase, 8.0, kQuiet, kAnyNan},
        {"rLogInBase", rLogInBase, kQuiet, 2.0, kAnyNan},
        {"rLogInBase", rLogInBase, 8.0, 1.0, kInf},
        {"rLogInBase", rLogInBase, 0.125, 1.0, -kInf},
        {"rLogInBase", rLogInBase, 1.0, 1.0, kAnyNan},
        {"rLogInBase", rLogInBase, 8.0, kInf, 0.0},
        {"rLogInBase", rLogInBase, kInf, 2.0, kInf},
        {"rLogRatio", rLogRatio, 8.0, 2.0, 3.0},
        {"rLogRatio", rLogRatio, 8.0, 1.0, kNoResult},
        {"rLogRatio", rLogRatio, 1.0, 1.0, kNoResult},
        {"rLogRatio", rLogRatio, -1.0, 2.0, kNoResult},
        {"rLogRatio", rLogRatio, 8.0, 0.0, kNoResult},
        {"rLogRatio", rLogRatio, kQuiet, 2.0, kAnyNan},
    };
    expectAnswers(table);
}

TEST(Logarithm, Orders) {
    const CountAnswer<std::int64_t> table[] = {
        {"rLogAD", rLogAD, 2.0, 0, rLog(2.0)},
        {"rLogAD", rLogAD, -2.0, 0, kNoResult},
        {"rLogAD", rLogAD, 2.0, 1, 0.5},
        {"rLogAD", rLogAD, -2.0, 1, -0.5},
        {"rLogAD", rLogAD, 0.0, 1, kInf},
        {"rLogAD", rLogAD, 2.0, 2, -0.25},
        {"rLogAD", rLogAD, -2.0, 2, -0.25},
        {"rLogAD", rLogAD, 1e-200, 2, -kInf},
        {"rLogAD", rLogAD, -2.0, 3, kNoResult},
        {"rLogAD", rLogAD, -2.0, 4, kNoResult},
        {"rLogAD", rLogAD, 0.0, 3, kNoResult},
        {"rLogAD", rLogAD, 1.0, 200, kNoResult},
        {"rLogAD", rLogAD, 1.0, INT64_MAX, kNoResult},
        {"rLogAD", rLogAD, 0.0, -1, 0.0},
        {"rLogAD", rLogAD, 0.0, -7, 0.0},
        {"rLogAD", rLogAD, -1.0, -1, kNoResult},
        {"rLogAD", rLogAD, -1.0, -7, kNoResult},
        {"rLogAD", rLogAD, 1.0, -1, -1.0},
        {"rLogAD", rLogAD, 1.0, -2, -0.75},
        {"rLogAD", rLogAD, 1.0, INT64_MIN, 0.0},
        {"rLogAD", rLogAD, kQuiet, 0, kAnyNan},
        {"rLogAD", rLogAD, kQuiet, 3, kAnyNan},
        {"rLogAD", rLogAD, kQuiet, -3, kAnyNan},
        {"rLogAD", rLogAD, kInf, 1, 0.0},
        {"rLogAD", rLogAD, kInf, 3, 0.0},
        {"rLogAD", rLogAD, kInf, -1, kInf},
        {"rLogAD", rLogAD, kInf, -3, kInf},
    };
    expectAnswers(table);
    // Each order is the derivative of the one below it.
    for (std::int64_t n = -6; n <= 6; ++n) {
        const double slope = (rLogAD(2.001, n) - rLogAD(1.999, n)) / 0.002;
        EXPECT_NEAR(slope / rLogAD(2.0, n + 1), 1.0, 2e-5) << n;
    }
}

}  // namespace
