#include "nuv64/numeric/beta.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/beta_reference.inc"

double lnTerms(double x) {
    if (x < 0.0) return lnTerms(1.0 - x);
    return x < 8.5 ? 19.0 + std::fabs(std::log(x)) : x * std::log(x);
}

TEST(Beta, AgreesWithTheReference) {
    const auto ofBeta = [](const double* r) {
        const double sum = r[0] + r[1];
        return 1.0 + lnTerms(r[0]) + lnTerms(r[1]) + lnTerms(sum) +
               4.0 * std::fabs(sum / (sum - std::rint(sum) + 0x1p-40)) * (sum < 0.0);
    };
    holdAccuracy(
        "rBeta", kBeta, 2, 1.5, [](auto& r) { return rBeta(r[0], r[1]); }, ofBeta);
    const auto ofBetaLn = [](const double* r) {
        return 1.0 + (lnTerms(r[0]) + lnTerms(r[1]) + lnTerms(r[0] + r[1])) / std::fabs(r[2]);
    };
    holdAccuracy(
        "rBetaLn", kBetaLn, 2, 1.5, [](auto& r) { return rBetaLn(r[0], r[1]); }, ofBetaLn);
    const auto ofBeta3Ln = [](const double* r) {
        return 1.0 + (lnTerms(r[0]) + lnTerms(r[1]) + lnTerms(r[2]) + lnTerms(r[0] + r[1] + r[2])) /
                         std::fabs(r[3]);
    };
    holdAccuracy(
        "rBeta3Ln", kBeta3Ln, 3, 2.7, [](auto& r) { return rBeta3Ln(r[0], r[1], r[2]); },
        ofBeta3Ln);
    holdAccuracy(
        "rBetaMultiLn", kBeta3Ln, 3, 2.7, [](auto& r) { return rBetaMultiLn(3, r); }, ofBeta3Ln);
}

TEST(Beta, IsSymmetric) {
    for (double a : {0.2, 1.0, 3.7, 60.0}) {
        for (double b : {-1.5, 0.5, 2.0, 110.0}) EXPECT_EQ(rBeta(a, b), rBeta(b, a)) << a << b;
    }
    EXPECT_NEAR(rBeta(0.5, 0.5), 3.141592653589793, 2e-14);
    EXPECT_NEAR(rBeta(2.0, 3.0), 1.0 / 12.0, 3e-15);
    EXPECT_TRUE(std::isfinite(rBeta(0.001, 171.0)));
}

TEST(Beta, SpecialArguments) {
    const double least = std::numeric_limits<double>::denorm_min();
    const double most = std::numeric_limits<double>::max();
    const PairAnswer table[] = {
        {"rBeta", rBeta, 1.0, kQuiet, kAnyNan},
        {"rBeta", rBeta, kQuiet, 1.0, kAnyNan},
        {"rBeta", rBeta, kInf, 1.0, kAnyNan},
        {"rBeta", rBeta, -kInf, 1.0, kAnyNan},
        {"rBeta", rBeta, 0.0, 1.0, kInf},
        {"rBeta", rBeta, least, 1.0, kInf},
        {"rBeta", rBeta, -1.0, 2.5, -kInf},
        {"rBeta", rBeta, 172.0, 1.0, kAnyNan},
        {"rBeta", rBeta, most, most, kAnyNan},
        {"rBeta", rBeta, -0.5, 0.5, 0.0},
        {"rBetaLn", rBetaLn, 1.0, kQuiet, kNoResult},
        {"rBetaLn", rBetaLn, kQuiet, 1.0, kNoResult},
        {"rBetaLn", rBetaLn, 0.0, 1.0, kNoResult},
        {"rBetaLn", rBetaLn, 1.0, -1.0, kNoResult},
        {"rBetaLn", rBetaLn, least, 1.0, kNoResult},
        {"rBetaLn", rBetaLn, 0x1.fp-1024, 1.0, kNoResult},
        {"rBetaLn", rBetaLn, 0x1p-1023, 1.0, kAnyFinite},
        {"rBetaLn", rBetaLn, kInf, 1.0, kAnyNan},
        {"rBetaLn", rBetaLn, -kInf, 1.0, kNoResult},
        {"rBetaLn", rBetaLn, most, 1.0, kAnyNan},
    };
    expectAnswers(table);
    for (double x : {kQuiet, 0.0, -1.0, least, -kInf}) {
        EXPECT_TRUE(answers(kNoResult, rBeta3Ln(x, 1.0, 2.0))) << x;
        EXPECT_TRUE(answers(kNoResult, rBeta3Ln(1.0, x, 2.0))) << x;
        EXPECT_TRUE(answers(kNoResult, rBeta3Ln(1.0, 2.0, x))) << x;
        const double row[] = {1.0, 2.0, x};
        EXPECT_TRUE(answers(kNoResult, rBetaMultiLn(3, row))) << x;
        EXPECT_TRUE(answers(kAnyFinite, rBetaMultiLn(2, row))) << x;
    }
    EXPECT_TRUE(std::isnan(rBeta3Ln(1.0, 2.0, kInf)));
}

TEST(Beta, OfManyArguments) {
    const double one[] = {5.0};
    EXPECT_EQ(rBetaMultiLn(1, one), 1.0);
    EXPECT_EQ(rBetaMultiLn(0, one), 1.0);
    EXPECT_TRUE(answers(kNoResult, rBetaMultiLn(0, nullptr)));
    EXPECT_TRUE(answers(kNoResult, rBetaMultiLn(3, nullptr)));
    const double two[] = {2.5, 4.25};
    EXPECT_EQ(rBetaMultiLn(2, two), rBetaLn(2.5, 4.25));
    const std::vector<double> ones(10, 1.0);
    EXPECT_NEAR(rBetaMultiLn(10, ones.data()), -std::log(362880.0), 1e-13);
}

}  // namespace
