#include "nuv64/numeric/real_powers.h"

#include <gtest/gtest.h>

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_powers_reference.inc"

TEST(Powers, RootsAgreeWithTheReference) {
    holdAccuracy("rSqrt", kSqrt, 1, 0.5001, [](auto& r) { return rSqrt(r[0]); });
    holdAccuracy("rSqrtA", kSqrt, 3, 2.5, [](auto& r) { return rSqrtA(r[0]); });
    holdAccuracy("rSqrtD", kSqrt, 5, 1.5, [](auto& r) { return rSqrtD(r[0]); });
    holdAccuracy("rCbrt", kCbrt, 1, 2.0, [](auto& r) { return rCbrt(r[0]); });
    holdAccuracy("rCbrtA", kCbrt, 3, 11.0, [](auto& r) { return rCbrtA(r[0]); });
    holdAccuracy("rCbrtD", kCbrt, 5, 6.0, [](auto& r) { return rCbrtD(r[0]); });
    const auto cancelled = [](const double* r) {
        return std::fabs(r[0]) < 0.001 ? 1.0 : 4.0 + 4.0 / std::fabs(r[0]);
    };
    holdAccuracy(
        "rSqrtT1", kRootTerms, 1, 1.0, [](auto& r) { return rSqrtT1(r[0]); }, cancelled);
    holdAccuracy(
        "rCbrtT1", kRootTerms, 3, 1.2, [](auto& r) { return rCbrtT1(r[0]); }, cancelled);
    const auto inverse = [](auto& r) { return rSqrt1DivBplusAxA(r[0], r[1], r[2]); };
    const auto radicand = [](const double* r) {
        const double term = r[2] * r[0];
        return 2.0 + (std::fabs(term) + r[1]) / std::fabs(term + r[1]);
    };
    holdAccuracy("rSqrt1DivBplusAxA", kSqrt1Div, 3, 1.0, inverse, radicand);
}

TEST(Powers, AgreeWithTheReference) {
    const auto size = [](const double* r) { return 1.0 + std::fabs(r[1] * std::log(r[0])); };
    holdAccuracy(
        "rPow", kPow, 2, 1.5, [](auto& r) { return rPow(r[0], r[1]); }, size);
    const auto degree = [](const double* r) { return static_cast<std::uint64_t>(r[1]); };
    const auto share = [](const double* r) { return 1.0 + std::fabs(std::log(r[0]) / r[1]); };
    holdAccuracy(
        "rRoot", kRoot, 2, 2.0, [&](auto& r) { return rRoot(r[0], degree(r)); }, share);
    const auto factors = [](const double* r) { return 1.0 + std::fabs(r[1]); };
    const auto whole = [](auto& r) { return riPower(r[0], static_cast<std::int64_t>(r[1])); };
    holdAccuracy("riPower", kWholePower, 2, 1.0, whole, factors);
}

TEST(Powers, NormsAgreeWithTheReference) {
    holdAccuracy("rHypot", kHypot, 2, 2.0, [](auto& r) { return rHypot(r[0], r[1]); });
    holdAccuracy("rNorm2D", kHypot, 2, 2.0, [](auto& r) { return rNorm2D(r[0], r[1]); });
    holdAccuracy("rNorm3D", kNorm3D, 3, 2.5, [](auto& r) { return rNorm3D(r[0], r[1], r[2]); });
    holdAccuracy("rSqrNorm2D", kSqrNorm, 3, 1.5, [](auto& r) { return rSqrNorm2D(r[0], r[1]); });
    const auto three = [](auto& r) { return rSqrNorm3D(r[0], r[1], r[2]); };
    holdAccuracy("rSqrNorm3D", kSqrNorm, 5, 2.0, three);
}

TEST(Powers, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const SpecialAnswers table[] = {
        {"rSqrt", rSqrt, {kAnyNan, kInf, kAnyNan, 0, 0, 0x1p-537, kAnyNan, kAnyFinite, kAnyNan}},
        {"rSqrtA", rSqrtA, {kAnyNan, kInf, kAnyNan, 0, 0, 0, kAnyNan, kInf, kAnyNan}},
        {"rSqrtD",
         rSqrtD,
         {kAnyNan, 0, kAnyNan, kInf, -kInf, 0x1p536, kAnyNan, kAnyFinite, kAnyNan}},
        {"rSqrtT1", rSqrtT1, {kAnyNan, kAnyNan, kAnyNan, 0.5, 0.5, 0.5, 0.5, kAnyFinite, kAnyNan}},
        {"rCbrt",
         rCbrt,
         {kAnyNan, kInf, -kInf, 0, 0, kAnyFinite, kAnyFinite, kAnyFinite, kAnyFinite}},
        {"rCbrtA", rCbrtA, {kAnyNan, kInf, kInf, 0, 0, 0, 0, kInf, kInf}},
        {"rCbrtD",
         rCbrtD,
         {kAnyNan, 0, 0, kInf, kInf, kAnyFinite, kAnyFinite, kAnyFinite, kAnyFinite}},
        {"rCbrtT1",
         rCbrtT1,
         {kAnyNan, kAnyNan, kAnyNan, 1.0 / 3, 1.0 / 3, 1.0 / 3, 1.0 / 3, kAnyFinite, kAnyFinite}},
    };
    expectSpecialAnswers(table);
    EXPECT_EQ(rSqrtT1(-1.0), 1.0);
    EXPECT_TRUE(std::isnan(rSqrtT1(std::nextafter(-1.0, -2.0))));
    EXPECT_NEAR(rCbrt(tiny), 0x1p-358, 0x1p-409);
    EXPECT_EQ(rSqrt(9.0), 3.0);
    EXPECT_EQ(rCbrtT1(-1.0), 1.0);
}

TEST(Powers, BranchesMeet) {
    for (const double at : {1e-6, 0.001}) {
        for (const double x : {at, -at}) {
            EXPECT_NEAR(rSqrtT1(std::nextafter(x, 0.0)), rSqrtT1(x), 0x1p-52 / at);
            EXPECT_NEAR(rCbrtT1(std::nextafter(x, 0.0)), rCbrtT1(x), 0x1p-52 / at);
        }
    }
}

TEST(Powers, PairsOfArguments) {
    const double least = ___MinReal;
    const double most = ___MaxReal;
    const PairAnswer table[] = {
        {"rPow", rPow, 2.0, 2000.0, most},
        {"rPow", rPow, 2.0, -2000.0, least},
        {"rPow", rPow, 0.0, 2.0, least},
        {"rPow", rPow, 0.0, -1.0, most},
        {"rPow", rPow, 0.0, 0.0, 1.0},
        {"rPow", rPow, -2.0, 2.0, 4.0},
        {"rPow", rPow, kQuiet, 1e-17, 1.0},
        {"rPow", rPow, kQuiet, 1.0, kAnyNan},
        {"rPow", rPow, 2.0, kQuiet, kAnyNan},
        {"rPow", rPow, 1.0, kInf, kAnyNan},
        {"rPow", rPow, 2.0, kInf, most},
        {"rPow", rPow, 2.0, -kInf, least},
        {"rPow", rPow, 0.5, kInf, least},
        {"rPow", rPow, kInf, 1.0, most},
        {"rPow", rPow, -kInf, 1.0, most},
        {"rPow", rPow, kInf, -1.0, least},
        {"rPow", rPow, 0x1p-1074, 1.0, least},
        {"rPow", rPow, 0x1p-1074, -1.0, most},
        {"rSignedPower", rSignedPower, -2.0, 2.0, -rPow(2.0, 2.0)},
        {"rSignedPower", rSignedPower, 2.0, 2.0, rPow(2.0, 2.0)},
        {"rSignedPower", rSignedPower, -0.0, 1.0, least},
        {"rSignedPower", rSignedPower, -kInf, 1.0, -most},
        {"rSignedPower", rSignedPower, kQuiet, 1.0, kAnyNan},
        {"rHypot", rHypot, 0.0, 0.0, 0.0},
        {"rHypot", rHypot, -3.0, 4.0, 5.0},
        {"rHypot", rHypot, 1e308, 1e308, 1e308 * std::sqrt(2.0)},
        {"rHypot", rHypot, most, most, kInf},
        {"rHypot", rHypot, 0x1p-1074, 0.0, 0x1p-1074},
        {"rHypot", rHypot, kQuiet, 1.0, kAnyNan},
        {"rHypot", rHypot, 1.0, kQuiet, kAnyNan},
        {"rHypot", rHypot, kQuiet, 0.0, kAnyNan},
        {"rHypot", rHypot, 0.0, kQuiet, kAnyNan},
        {"rHypot", rHypot, kInf, 1.0, kInf},
        {"rHypot", rHypot, -1.0, -kInf, kInf},
        {"rHypot", rHypot, kInf, kInf, kAnyNan},
        {"rNorm2D", rNorm2D, 3.0, -4.0, 5.0},
        {"rNorm2D", rNorm2D, kQuiet, 0.0, kAnyNan},
        {"rSqrNorm2D", rSqrNorm2D, 3.0, -4.0, 25.0},
        {"rSqrNorm2D", rSqrNorm2D, 1e200, 0.0, kInf},
        {"rSqrNorm2D", rSqrNorm2D, 1e-200, 0.0, 0.0},
        {"rSqrNorm2D", rSqrNorm2D, kQuiet, 0.0, kAnyNan},
        {"rSqrNorm2D", rSqrNorm2D, -kInf, 0.0, kInf},
    };
    expectAnswers(table);
    EXPECT_DOUBLE_EQ(rPow(-2.0, 3.0), rPow(2.0, 3.0));
}

TEST(Powers, ThreeArguments) {
    EXPECT_EQ(rNorm3D(2.0, -3.0, 6.0), 7.0);
    EXPECT_EQ(rNorm3D(0.0, 0.0, 0.0), 0.0);
    EXPECT_DOUBLE_EQ(rNorm3D(2e300, -3e300, 6e300), 7e300);
    EXPECT_TRUE(std::isnan(rNorm3D(kInf, 1.0, 1.0)));
    EXPECT_EQ(rSqrNorm3D(2.0, -3.0, 6.0), 49.0);
    EXPECT_EQ(rSqrNorm3D(1.0, -kInf, 6.0), kInf);
    for (int i = 0; i < 3; ++i) {
        for (const double rest : {0.0, 1.0}) {
            double v[3] = {rest, rest, rest};
            v[i] = kQuiet;
            EXPECT_TRUE(std::isnan(rNorm3D(v[0], v[1], v[2]))) << i;
            EXPECT_TRUE(std::isnan(rSqrNorm3D(v[0], v[1], v[2]))) << i;
        }
    }
    EXPECT_EQ(rSqrt1DivBplusAxA(5.0, 4.0, 0.0), 2.5);
    EXPECT_EQ(rSqrt1DivBplusAxA(2.0, 1.0, 4.0), 1.5);
    EXPECT_EQ(rSqrt1DivBplusAxA(-0.25, 1.0, 4.0), 0.0);
    EXPECT_TRUE(answers(kNoResult, rSqrt1DivBplusAxA(5.0, -4.0, 0.0)));
    EXPECT_TRUE(answers(kNoResult, rSqrt1DivBplusAxA(-1.0, 1.0, 4.0)));
    EXPECT_EQ(rSqrt1DivBplusAxA(5.0, 0.0, 0.0), kInf);
    EXPECT_TRUE(std::isnan(rSqrt1DivBplusAxA(0.0, 0.0, 0.0)));
    EXPECT_TRUE(std::isnan(rSqrt1DivBplusAxA(kQuiet, 1.0, 1.0)));
    EXPECT_TRUE(std::isnan(rSqrt1DivBplusAxA(1.0, kQuiet, 1.0)));
    EXPECT_TRUE(std::isnan(rSqrt1DivBplusAxA(1.0, 1.0, kQuiet)));
    EXPECT_EQ(rSqrt1DivBplusAxA(kInf, 1.0, 1.0), kInf);
}

TEST(Powers, WholePowers) {
    const CountAnswer<std::uint64_t> unsignedPowers[] = {
        {"ruPower", ruPower, 0.0, 0, 1.0},
        {"ruPower", ruPower, kQuiet, 0, 1.0},
        {"ruPower", ruPower, kInf, 0, 1.0},
        {"ruPower", ruPower, -3.0, 5, -243.0},
        {"ruPower", ruPower, 2.0, 1023, 0x1p1023},
        {"ruPower", ruPower, 2.0, 1024, kInf},
        {"ruPower", ruPower, -2.0, 1025, -kInf},
        {"ruPower", ruPower, 0.5, 1074, 0x1p-1074},
        {"ruPower", ruPower, 0.5, 1075, 0.0},
        {"ruPower", ruPower, 1.0, UINT64_MAX, 1.0},
        {"ruPower", ruPower, -1.0, UINT64_MAX, -1.0},
        {"ruPower", ruPower, 0.0, UINT64_MAX, 0.0},
        {"ruPower", ruPower, kQuiet, 1, kAnyNan},
        {"ruPower", ruPower, -kInf, 3, -kInf},
        {"rRoot", rRoot, 7.0, 0, kNoResult},
        {"rRoot", rRoot, -7.0, 1, -7.0},
        {"rRoot", rRoot, kInf, 1, kInf},
        {"rRoot", rRoot, 0.0, 1, 0.0},
        {"rRoot", rRoot, 0.0, 2, 0x1p-1024},
        {"rRoot", rRoot, kInf, 2, ___MaxReal},
        {"rRoot", rRoot, 5.0, UINT64_MAX, 1.0},
        {"rRoot", rRoot, kQuiet, 3, kAnyNan},
    };
    expectAnswers(unsignedPowers);
    EXPECT_DOUBLE_EQ(rRoot(-8.0, 3), 2.0);
    const CountAnswer<std::int64_t> signedPowers[] = {
        {"riPower", riPower, 2.0, -3, 0.125},
        {"riPower", riPower, -2.0, -3, -0.125},
        {"riPower", riPower, 0.0, -1, kNoResult},
        {"riPower", riPower, -0.0, INT64_MIN, kNoResult},
        {"riPower", riPower, 0.0, 3, 0.0},
        {"riPower", riPower, -1.0, INT64_MIN, 1.0},
        {"riPower", riPower, 3.0, INT64_MIN, 0.0},
        {"riPower", riPower, 3.0, INT64_MAX, kInf},
        {"riPower", riPower, kInf, -1, 0.0},
        {"riPower", riPower, kQuiet, -1, kAnyNan},
        {"riPower", riPower, kQuiet, 0, 1.0},
        {"riAbsPower", riAbsPower, -2.0, 3, 8.0},
        {"riAbsPower", riAbsPower, -2.0, -1, 0.5},
        {"riAbsPower", riAbsPower, -0.0, -1, kNoResult},
        {"riAbsPower", riAbsPower, -kInf, 3, kInf},
        {"riAbsPower", riAbsPower, kQuiet, 3, kAnyNan},
        {"riSignedPower", riSignedPower, -2.0, 2, -4.0},
        {"riSignedPower", riSignedPower, -2.0, 3, -8.0},
        {"riSignedPower", riSignedPower, 2.0, -2, 0.25},
        {"riSignedPower", riSignedPower, 0.0, -2, kNoResult},
        {"riSignedPower", riSignedPower, -kInf, 2, -kInf},
        {"riSignedPower", riSignedPower, kQuiet, 2, kAnyNan},
    };
    expectAnswers(signedPowers);
}

}  // namespace
