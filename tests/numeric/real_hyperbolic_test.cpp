#include "nuv64/numeric/real_hyperbolic.h"

#include <gtest/gtest.h>

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_hyperbolic_reference.inc"

// The runtime of Windows takes the logarithm of a number near 1: an absolute error.
double acoshAllowance([[maybe_unused]] const double* r) {
#ifdef _WIN32
    return 1.0 + 0x1p-52 / ulpOf(r[1]);
#else
    return 1.0;
#endif
}

TEST(Hyperbolic, RuntimeFunctionsAgreeWithTheReference) {
    holdAccuracy("rSinh", kHyperbolic, 1, 2.0, [](auto& r) { return rSinh(r[0]); });
    holdAccuracy("rCosh", kHyperbolic, 3, 2.0, [](auto& r) { return rCosh(r[0]); });
    holdAccuracy("rTanh", kHyperbolic, 5, 1.5, [](auto& r) { return rTanh(r[0]); });
    holdAccuracy("rSech", kHyperbolic, 7, 2.0, [](auto& r) { return rSech(r[0]); });
    holdAccuracy("rAsinh", kAsinh, 1, 2.0, [](auto& r) { return rAsinh(r[0]); });
    holdAccuracy(
        "rAcosh", kAcosh, 1, 2.0, [](auto& r) { return rAcosh(r[0]); }, acoshAllowance);
    holdAccuracy("rAtanh", kAtanh, 1, 2.0, [](auto& r) { return rAtanh(r[0]); });
}

TEST(Hyperbolic, ConversionsAgreeWithTheReference) {
    holdAccuracy("rCoshFromSinh", kAsinh, 3, 1.5, [](auto& r) { return rCoshFromSinh(r[0]); });
    holdAccuracy("rTanhFromSinh", kAsinh, 5, 2.0, [](auto& r) { return rTanhFromSinh(r[0]); });
    holdAccuracy("rSinhFromCosh", kAcosh, 3, 2.0, [](auto& r) { return rSinhFromCosh(r[0]); });
    holdAccuracy("rTanhFromCosh", kAcosh, 5, 2.5, [](auto& r) { return rTanhFromCosh(r[0]); });
    const auto sinh = [](auto& r) { return rSinhCoshFromTanh(r[0], nullptr); };
    holdAccuracy("rSinhCoshFromTanh", kAtanh, 3, 3.5, sinh);
    const auto cosh = [](auto& r) { return rCoshSinhFromTanh(r[0], nullptr); };
    holdAccuracy("rCoshSinhFromTanh", kAtanh, 5, 2.0, cosh);
}

TEST(Hyperbolic, RatiosAndSeriesAgreeWithTheReference) {
    // The rounding of n*x, and the exponentials of large arguments.
    const auto sizes = [](const double* r) {
        return 3.0 + std::fabs(r[0]) + std::fabs(r[0] * r[1]);
    };
    const auto coshRatio = [](auto& r) { return rCoshNRatio(r[0], r[1]); };
    holdAccuracy("rCoshNRatio", kRatios, 2, 1.0, coshRatio, sizes);
    const auto sinhRatio = [](auto& r) { return rSinhNRatio(r[0], r[1]); };
    holdAccuracy("rSinhNRatio", kRatios, 4, 1.0, sinhRatio, sizes);
    const auto terms = [](const double* r) { return 1.0 + 0.2 * std::fabs(r[0]); };
    holdAccuracy(
        "rCoshSeries", kSeries, 1, 2.0, [](auto& r) { return rCoshSeries(r[0]); }, terms);
    holdAccuracy(
        "rSinhSeries", kSeries, 3, 2.0, [](auto& r) { return rSinhSeries(r[0]); }, terms);
}

TEST(Hyperbolic, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const SpecialAnswers table[] = {
        {"rSinh", rSinh, {kAnyNan, kInf, -kInf, 0, 0, tiny, -tiny, kInf, -kInf}},
        {"rCosh", rCosh, {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
        {"rTanh", rTanh, {kAnyNan, 1, -1, 0, 0, tiny, -tiny, 1, -1}},
        {"rSech", rSech, {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
        {"rAsinh", rAsinh, {kAnyNan, kInf, -kInf, 0, 0, tiny, -tiny, kAnyFinite, kAnyFinite}},
        {"rAcosh",
         rAcosh,
         {kAnyNan, kInf, kAnyNan, kAnyNan, kAnyNan, kAnyNan, kAnyNan, kAnyFinite, kAnyNan}},
        {"rAtanh", rAtanh, {kAnyNan, kAnyNan, kAnyNan, 0, 0, tiny, -tiny, kAnyNan, kAnyNan}},
        {"rCoshFromSinh", rCoshFromSinh, {kAnyNan, kInf, kInf, 1, 1, 1, 1, ___MaxReal, ___MaxReal}},
        {"rSinhFromCosh",
         rSinhFromCosh,
         {kAnyNan, kInf, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, kAnyFinite,
          kNoResult}},
        {"rTanhFromSinh", rTanhFromSinh, {kAnyNan, kAnyNan, kAnyNan, 0, 0, tiny, -tiny, 1, -1}},
        {"rTanhFromCosh",
         rTanhFromCosh,
         {kAnyNan, kAnyNan, kNoResult, kNoResult, kNoResult, kNoResult, kNoResult, kAnyFinite,
          kNoResult}},
        {"rCoshSeries", rCoshSeries, {kNoResult, kInf, kInf, 1, 1, 1, 1, kInf, kInf}},
        {"rSinhSeries", rSinhSeries, {kNoResult, kInf, -kInf, 0, 0, tiny, -tiny, kInf, -kInf}},
    };
    expectSpecialAnswers(table);
}

TEST(Hyperbolic, Limits) {
    EXPECT_TRUE(std::isfinite(rCosh(___LnMaxReal)));
    EXPECT_TRUE(answers(kNoResult, rCosh(710.0)));
    EXPECT_TRUE(answers(kNoResult, rCosh(-710.0)));
    EXPECT_TRUE(answers(kNoResult, rSech(710.0)));
    EXPECT_TRUE(std::isfinite(rSinh(710.0)));
    EXPECT_EQ(rAcosh(1.0), 0.0);
    EXPECT_TRUE(std::isnan(rAcosh(std::nextafter(1.0, 0.0))));
    EXPECT_EQ(rAtanh(1.0), kInf);
    EXPECT_EQ(rAtanh(-1.0), -kInf);
    EXPECT_EQ(rSinhFromCosh(1.0), 0.0);
    EXPECT_TRUE(answers(kNoResult, rSinhFromCosh(std::nextafter(1.0, 0.0))));
    EXPECT_EQ(rTanhFromCosh(1.0), 0.0);
    EXPECT_TRUE(answers(kNoResult, rTanhFromCosh(std::nextafter(1.0, 0.0))));
    EXPECT_TRUE(std::isfinite(rCoshSeries(700.0)));
    EXPECT_EQ(rCoshSeries(720.0), kInf);
    EXPECT_EQ(rSinhSeries(-720.0), -kInf);
}

TEST(Hyperbolic, PairsOfSinhAndCosh) {
    for (const double t : {0.0, 0.6, -0.6, 0.999, 1e-20, -0.1}) {
        double cosh = 7.0;
        double sinh = 7.0;
        EXPECT_EQ(rSinhCoshFromTanh(t, &cosh), rSinhCoshFromTanh(t, nullptr));
        EXPECT_EQ(rCoshSinhFromTanh(t, &sinh), cosh);
        EXPECT_EQ(rSinhCoshFromTanh(t, nullptr), sinh);
        EXPECT_NEAR((cosh - sinh) * (cosh + sinh), 1.0, 1e-13);
    }
    double other = 7.0;
    EXPECT_EQ(rSinhCoshFromTanh(1.0, &other), kInf);
    EXPECT_EQ(other, kInf);
    EXPECT_EQ(rCoshSinhFromTanh(-1.0, &other), kInf);
    EXPECT_EQ(other, -kInf);
    for (const double t : {std::nextafter(1.0, 2.0), -1.5, kInf, -kInf}) {
        EXPECT_TRUE(answers(kNoResult, rSinhCoshFromTanh(t, &other)));
        EXPECT_TRUE(answers(kNoResult, other));
        EXPECT_TRUE(answers(kNoResult, rCoshSinhFromTanh(t, &other)));
        EXPECT_TRUE(answers(kNoResult, other));
    }
    EXPECT_TRUE(std::isnan(rSinhCoshFromTanh(kQuiet, nullptr)));
}

TEST(Hyperbolic, Ratios) {
    const PairAnswer table[] = {
        {"rCoshNRatio", rCoshNRatio, 0.0, 3.0, 1.0},
        {"rCoshNRatio", rCoshNRatio, 2.0, 1.0, 1.0},
        {"rCoshNRatio", rCoshNRatio, 2.0, -1.0, 1.0},
        {"rCoshNRatio", rCoshNRatio, 1000.0, 1.0, 1.0},
        {"rCoshNRatio", rCoshNRatio, 1000.0, 3.0, 0.0},
        {"rCoshNRatio", rCoshNRatio, 1000.0, 0.0, kInf},
        {"rCoshNRatio", rCoshNRatio, kInf, 2.0, kAnyNan},
        {"rCoshNRatio", rCoshNRatio, 2.0, kInf, 0.0},
        {"rCoshNRatio", rCoshNRatio, kQuiet, 2.0, kAnyNan},
        {"rCoshNRatio", rCoshNRatio, 2.0, kQuiet, kAnyNan},
        {"rSinhNRatio", rSinhNRatio, 0.0, 3.0, kAnyNan},
        {"rSinhNRatio", rSinhNRatio, 2.0, 0.0, kInf},
        {"rSinhNRatio", rSinhNRatio, 2.0, 1.0, 1.0},
        {"rSinhNRatio", rSinhNRatio, 2.0, -1.0, -1.0},
        {"rSinhNRatio", rSinhNRatio, -1000.0, 1.0, 1.0},
        {"rSinhNRatio", rSinhNRatio, 1000.0, -1.0, -1.0},
        {"rSinhNRatio", rSinhNRatio, 1000.0, 0.0, kInf},
        {"rSinhNRatio", rSinhNRatio, kInf, 2.0, kAnyNan},
        {"rSinhNRatio", rSinhNRatio, kQuiet, 2.0, kAnyNan},
        {"rSinhNRatio", rSinhNRatio, 2.0, kQuiet, kAnyNan},
    };
    expectAnswers(table);
}

}  // namespace
