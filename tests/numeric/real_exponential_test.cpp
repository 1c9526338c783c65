#include "nuv64/numeric/real_exponential.h"

#include <gtest/gtest.h>

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_exponential_reference.inc"

constexpr double kBranch = 0x1p-13;

TEST(Exponential, AgreesWithTheReference) {
    holdAccuracy("rExp", kExp, 1, 1.0, [](auto& r) { return rExp(r[0]); });
    holdAccuracy("rExp2", kExp2, 1, 1.0, [](auto& r) { return rExp2(r[0]); });
}

TEST(Exponential, TaylorRemaindersAgreeWithTheReference) {
    // From the last branch point on the plain difference cancels.
    const auto once = [](const double* r) {
        return std::fabs(r[0]) < kBranch ? 1.0 : 1.0 + 1.0 / std::fabs(r[0]);
    };
    const auto twice = [](const double* r) {
        return std::fabs(r[0]) < kBranch ? 1.0 : 2.0 + 1.0 / std::fabs(r[0]) + 2.0 / (r[0] * r[0]);
    };
    holdAccuracy(
        "rExpM1", kExpTerms, 1, 1.0, [](auto& r) { return rExpM1(r[0]); }, once);
    holdAccuracy(
        "rExpT1", kExpTerms, 3, 1.5, [](auto& r) { return rExpT1(r[0]); }, once);
    holdAccuracy(
        "rExpT2", kExpTerms, 5, 1.0, [](auto& r) { return rExpT2(r[0]); }, twice);
}

TEST(Exponential, OthersAgreeWithTheReference) {
    const auto n = [](auto& r) { return static_cast<std::uint64_t>(r[1]); };
    const auto steps = [](const double* r) { return std::fabs(r[0]) <= 1.0 ? 2.0 : r[1]; };
    holdAccuracy(
        "rExpt", kExpt, 2, 1.0, [&](auto& r) { return rExpt(r[0], n(r)); }, steps);
    const auto size = [](const double* r) { return 1.0 + std::fabs(r[0]); };
    holdAccuracy(
        "rExpSym", kExpSym, 1, 1.0, [](auto& r) { return rExpSym(r[0]); }, size);
    const auto decades = [](const double* r) { return 1.0 + 2.303 * std::fabs(r[0]); };
    holdAccuracy(
        "rExpSym10", kExpSym, 3, 2.0, [](auto& r) { return rExpSym10(r[0]); }, decades);
}

TEST(Exponential, SpecialArguments) {
    const double e1 = rExp(-1.0);
    const SpecialAnswers table[] = {
        {"rExp", rExp, {kAnyNan, kNoResult, 0, 1, 1, 1, 1, kNoResult, 0}},
        {"rExp2", rExp2, {kAnyNan, kInf, 0, 1, 1, 1, 1, kInf, 0}},
        {"rExpM1", rExpM1, {kAnyNan, kNoResult, -1, 0, 0, 0x1p-1074, -0x1p-1074, kNoResult, -1}},
        {"rExpT1", rExpT1, {kAnyNan, kNoResult, 0, 1, 1, 1, 1, kNoResult, 0x1p-1024}},
        {"rExpT2", rExpT2, {kAnyNan, kNoResult, kAnyNan, 0.5, 0.5, 0.5, 0.5, kNoResult, 0}},
        {"rExpSym",
         rExpSym,
         {kAnyNan, kNoResult, kNoResult, e1, e1, e1, -e1, kNoResult, kNoResult}},
        {"rExpSym10",
         rExpSym10,
         {kAnyNan, kNoResult, kNoResult, e1, e1, e1, -e1, kNoResult, kNoResult}},
    };
    expectSpecialAnswers(table);
}

TEST(Exponential, Limits) {
    EXPECT_TRUE(answers(kNoResult, rExp(710.0)));
    EXPECT_EQ(rExp(-710.0), 0.0);
    EXPECT_TRUE(std::isfinite(rExp(___LnMaxReal)));
    EXPECT_TRUE(answers(kNoResult, rExp(std::nextafter(___LnMaxReal, kInf))));
    EXPECT_GT(rExp(___LnMinReal), 0.0);
    EXPECT_EQ(rExp(std::nextafter(___LnMinReal, -kInf)), 0.0);
    EXPECT_EQ(rExp2(1024.0), kInf);
    EXPECT_EQ(rExp2(10.0), 1024.0);
    EXPECT_EQ(rExp2(-1074.0), 0x1p-1074);
    EXPECT_TRUE(answers(kNoResult, rExpM1(710.0)));
    EXPECT_TRUE(answers(kNoResult, rExpT1(710.0)));
    EXPECT_TRUE(answers(kNoResult, rExpT2(710.0)));
    EXPECT_TRUE(answers(kNoResult, rExpSym(712.0)));
    EXPECT_TRUE(answers(kNoResult, rExpSym(-712.0)));
    EXPECT_EQ(rExpSym(1.0), 1.0);
    EXPECT_EQ(rExpSym(-1.0), -1.0);
}

TEST(Exponential, BranchesMeet) {
    for (const double at : {0x1p-52, 0x1p-26, 0x1p-13}) {
        for (const double x : {at, -at}) {
            const double inside = std::nextafter(x, 0.0);
            EXPECT_NEAR(rExpM1(inside) / rExpM1(x), 1.0, 0x1p-53 / at + 0x1p-51);
            EXPECT_NEAR(rExpT1(inside), rExpT1(x), 0x1p-51 / at + 0x1p-51);
        }
    }
    // Within the polynomials nothing cancels: T2 is what is left of T1, and T1 of the function.
    for (const double x : {1e-5, -1e-5, 1e-9, -1e-20}) {
        EXPECT_NEAR(rExpT1(x), 1.0 + x * rExpT2(x), 0x1p-52);
        EXPECT_NEAR(rExpM1(x) / x, rExpT1(x), 0x1p-51);
    }
}

TEST(Exponential, SumsWithPlainDenominators) {
    EXPECT_DOUBLE_EQ(rExpt(1.0, 3), 1.0 + 1.0 + 1.0 / 2 + 1.0 / 3);
    const CountAnswer<std::uint64_t> table[] = {
        {"rExpt", rExpt, 7.0, 0, 1.0},
        {"rExpt", rExpt, 7.0, 1, 8.0},
        {"rExpt", rExpt, 2.0, 2, 5.0},
        {"rExpt", rExpt, 0.0, 5, 1.0},
        {"rExpt", rExpt, 0.0, UINT64_MAX, 1.0},
        {"rExpt", rExpt, kQuiet, 0, 1.0},
        {"rExpt", rExpt, kQuiet, 1, kAnyNan},
        {"rExpt", rExpt, kQuiet, 9, kAnyNan},
        {"rExpt", rExpt, kQuiet, UINT64_MAX, kAnyNan},
        {"rExpt", rExpt, kInf, 4, kInf},
        {"rExpt", rExpt, -kInf, 3, -kInf},
        {"rExpt", rExpt, -kInf, 4, kInf},
        {"rExpt", rExpt, 1e100, 4, kInf},
        {"rExpt", rExpt, -1e100, 4, kInf},
        {"rExpt", rExpt, -1e100, 5, -kInf},
        {"rExpt", rExpt, -1.5, UINT64_MAX, -kInf},
        {"rExpt", rExpt, 0x1p-1074, UINT64_MAX, 1.0},
    };
    expectAnswers(table);
    // Without an end the sum is 1 - ln(1 - x).
    for (const double x : {0.5, -0.5, 0.9, -0.99, 1e-3}) {
        EXPECT_NEAR(rExpt(x, UINT64_MAX), 1.0 - std::log1p(-x), 1e-15) << x;
    }
    // The indices that are left out don't change the sum.
    for (const double x : {0.5, -0.75}) {
        double sum = 1.0 / 5000;
        for (int k = 4999; k > 0; --k) sum = sum * x + 1.0 / k;
        EXPECT_EQ(rExpt(x, 5000), 1.0 + x * sum);
    }
}

}  // namespace
