#include "nuv64/numeric/real_trigonometric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/bessel.h"
#include "nuv64/numeric/chebyshev.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_trigonometric_reference.inc"

constexpr double kPi = std::numbers::pi;
constexpr double kEps = 0x1p-52;

// Allows an absolute error besides one ulp of the value in the given column.
auto absolute(double error, std::size_t column) {
    return [=](const double* r) { return 1.0 + error / ulpOf(r[column]); };
}

// The runtime of Windows reduces the angle by a pi of 66 bits. What that shifts is allowed here as
// a relative error: shift times the slope over the value.
constexpr double kReduction =
#ifdef _WIN32
    0x1p-65;
#else
    0.0;
#endif

double sineAllowance(const double* r) {
    return 1.0 + kReduction * std::fabs(r[0] * r[3] / ulpOf(r[1]));
}

double cosineAllowance(const double* r) {
    return 1.0 + kReduction * std::fabs(r[0] * r[1] / ulpOf(r[3]));
}

TEST(Trigonometric, RuntimeFunctionsAgreeWithTheReference) {
    holdAccuracy(
        "rSin", kCircular, 1, 1.0, [](auto& r) { return rSin(r[0]); }, sineAllowance);
    holdAccuracy(
        "rCos", kCircular, 3, 1.0, [](auto& r) { return rCos(r[0]); }, cosineAllowance);
    holdAccuracy("rTan", kCircular, 5, 1.0, [](auto& r) { return rTan(r[0]); });
    holdAccuracy(
        "rSec", kCircular, 7, 1.5, [](auto& r) { return rSec(r[0]); }, cosineAllowance);
    holdAccuracy("rTanD", kCircular, 9, 2.5, [](auto& r) { return rTanD(r[0]); });
    holdAccuracy("rAsin", kArcs, 1, 1.0, [](auto& r) { return rAsin(r[0]); });
    holdAccuracy("rAcos", kArcs, 3, 1.5, [](auto& r) { return rAcos(r[0]); });
    holdAccuracy("rAtan", kArcTangent, 1, 1.0, [](auto& r) { return rAtan(r[0]); });
    holdAccuracy("rAtanD", kArcTangent, 3, 2.0, [](auto& r) { return rAtanD(r[0]); });
    const auto tanA = [](auto& r) { return rTanA(r[0]); };
    holdAccuracy("rTanA", kTanA, 1, 1.5, tanA, absolute(kEps, 1));
}

TEST(Trigonometric, TaylorRemaindersAgreeWithTheReference) {
    holdAccuracy("rTanT1", kTanTerms, 1, 1.5, [](auto& r) { return rTanT1(r[0]); });
    holdAccuracy("rTanT3", kTanTerms, 3, 4.0, [](auto& r) { return rTanT3(r[0]); });
    holdAccuracy("rCosT2", kCosTerms, 1, 2.5, [](auto& r) { return rCosT2(r[0]); });
    holdAccuracy("rCosT1", kCosTerms, 3, 3.0, [](auto& r) { return rCosT1(r[0]); });
    holdAccuracy("rHsinc", kCosTerms, 3, 3.0, [](auto& r) { return -rHsinc(r[0]); });
    holdAccuracy("rSinc", kCosTerms, 5, 1.5, [](auto& r) { return rSinc(r[0]); });
    holdAccuracy("rBessel_j0", kCosTerms, 5, 1.5, [](auto& r) { return rBessel_j0(r[0]); });
    const auto normalized = [](auto& r) { return rSincNormalized(r[0]); };
    holdAccuracy("rSincNormalized", kSincNormalized, 1, 1.5, normalized, absolute(kEps, 1));
}

TEST(Trigonometric, AnglesAgreeWithTheReference) {
    // The quotient's rounding counts by the slope of the arc, 1/sqrt(1 - q^2).
    const auto slope = [](std::size_t column) {
        return [=](const double* r) {
            const double q = r[0] / r[1];
            return 1.0 + std::fabs(q) * kEps / std::sqrt(1.0 - q * q) / ulpOf(r[column]);
        };
    };
    const auto acosXR = [](auto& r) { return rAcosXR(r[0], r[1]); };
    holdAccuracy("rAcosXR", kArcsXR, 2, 1.5, acosXR, slope(2));
    const auto asinXR = [](auto& r) { return rAsinXR(r[0], r[1]); };
    holdAccuracy("rAsinXR", kArcsXR, 4, 1.5, asinXR, slope(4));
    // The same, but never more than half of the digits are lost.
    const auto ofHypot = [](std::size_t leg, std::size_t column) {
        return [=](const double* r) {
            const double q = std::fabs(r[leg]) / std::hypot(r[0], r[1]);
            const double other = std::fabs(r[1 - leg]) / std::hypot(r[0], r[1]);
            return 1.0 + std::fmin(2.0 * q * kEps / other, 3e-8) / ulpOf(r[column]);
        };
    };
    const auto acosXY = [](auto& r) { return rAcosXY(r[0], r[1]); };
    holdAccuracy("rAcosXY", kAngles, 2, 1.5, acosXY, ofHypot(0, 2));
    const auto asinXY = [](auto& r) { return rAsinXY(r[0], r[1]); };
    holdAccuracy("rAsinXY", kAngles, 4, 1.5, asinXY, ofHypot(1, 4));
    const auto atanXY = [](auto& r) { return rAtanXY(r[0], r[1]); };
    holdAccuracy("rAtanXY", kAngles, 6, 1.5, atanXY);
    const auto acotanXY = [](auto& r) { return rAcotanXY(r[0], r[1]); };
    holdAccuracy("rAcotanXY", kAngles, 8, 1.5, acotanXY);
    const auto azimuth = [](auto& r) { return rAzimuth(r[0], r[1]); };
    holdAccuracy("rAzimuth", kAngles, 10, 2.0, azimuth);
}

TEST(Trigonometric, ConversionsAgreeWithTheReference) {
    holdAccuracy("rCosFromSin", kArcs, 5, 2.0, [](auto& r) { return rCosFromSin(r[0]); });
    holdAccuracy("rSinFromCos", kArcs, 5, 2.0, [](auto& r) { return rSinFromCos(r[0]); });
    const auto sine = [](auto& r) { return rSinCosFromTan(r[0], nullptr); };
    holdAccuracy("rSinCosFromTan", kFromTan, 1, 2.0, sine);
    const auto cosine = [](auto& r) { return rCosSinFromTan(r[0], nullptr); };
    holdAccuracy("rCosSinFromTan", kFromTan, 3, 2.0, cosine);
    holdAccuracy("rTanXFromTan2X", kFromTan, 5, 2.0, [](auto& r) { return rTanXFromTan2X(r[0]); });
    holdAccuracy("rTan2XFromTanX", kTan2X, 1, 2.0, [](auto& r) { return rTan2XFromTanX(r[0]); });
    const auto degree = [](auto& r) { return static_cast<std::uint64_t>(r[1]); };
    const auto first = [](const double* r) { return 1.0 + r[1] * kEps / ulpOf(r[2]); };
    const auto cosN = [&](auto& r) { return rCosNFromCos(r[0], degree(r)); };
    holdAccuracy("rCosNFromCos", kMultiples, 2, 1.0, cosN, first);
    const auto second = [](const double* r) { return 4.0 + 2.0 * r[1] * kEps / ulpOf(r[4]); };
    const auto sinN = [&](auto& r) { return rSinNDivSinFromCos(r[0], degree(r)); };
    holdAccuracy("rSinNDivSinFromCos", kMultiples, 4, 1.0, sinN, second);
}

TEST(Trigonometric, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const double right = kPi / 2;
    const SpecialAnswers table[] = {
        {"rSin", rSin, {kAnyNan, kAnyNan, kAnyNan, 0, 0, tiny, -tiny, kAnyFinite, kAnyFinite}},
        {"rCos", rCos, {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, kAnyFinite, kAnyFinite}},
        {"rTan", rTan, {kAnyNan, kAnyNan, kAnyNan, 0, 0, tiny, -tiny, kAnyFinite, kAnyFinite}},
        {"rSec", rSec, {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, kAnyFinite, kAnyFinite}},
        {"rTanD", rTanD, {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, kAnyFinite, kAnyFinite}},
        {"rTanA", rTanA, {kAnyNan, kAnyNan, kAnyNan, 0, 0, 0, 0, kAnyFinite, kAnyFinite}},
        {"rTanT1", rTanT1, {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
        {"rTanT3",
         rTanT3,
         {kAnyNan, kNoResult, kNoResult, 1.0 / 3, 1.0 / 3, 1.0 / 3, 1.0 / 3, kNoResult, kNoResult}},
        {"rCosT2", rCosT2, {kAnyNan, kAnyNan, kAnyNan, 0.5, 0.5, 0.5, 0.5, 0, 0}},
        {"rCosT1", rCosT1, {kAnyNan, kAnyNan, kAnyNan, 0, 0, 0, 0, 0, 0}},
        {"rSinc", rSinc, {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, kAnyFinite, kAnyFinite}},
        {"rSincNormalized",
         rSincNormalized,
         {kAnyNan, kAnyNan, kAnyNan, 1, 1, 1, 1, kAnyNan, kAnyNan}},
        {"rHsinc", rHsinc, {kAnyNan, kAnyNan, kAnyNan, 0, 0, 0, 0, 0, 0}},
        {"rAsin", rAsin, {kAnyNan, kAnyNan, kAnyNan, 0, 0, tiny, -tiny, kAnyNan, kAnyNan}},
        {"rAcos",
         rAcos,
         {kAnyNan, kNoResult, kNoResult, right, right, right, right, kNoResult, kNoResult}},
        {"rAtan", rAtan, {kAnyNan, right, -right, 0, 0, tiny, -tiny, right, -right}},
        {"rAtanD", rAtanD, {kAnyNan, 0, 0, 1, 1, 1, 1, 0, 0}},
        {"rCosFromSin",
         rCosFromSin,
         {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
        {"rSinFromCos",
         rSinFromCos,
         {kAnyNan, kNoResult, kNoResult, 1, 1, 1, 1, kNoResult, kNoResult}},
        {"rTan2XFromTanX",
         rTan2XFromTanX,
         {kAnyNan, kNoResult, kNoResult, 0, 0, 2 * tiny, -2 * tiny, kNoResult, kNoResult}},
        {"rTanXFromTan2X", rTanXFromTan2X, {kAnyNan, kAnyNan, kAnyNan, 0, 0, 0, 0, 1, -1}},
    };
    expectSpecialAnswers(table);
}

TEST(Trigonometric, Limits) {
    EXPECT_NEAR(rSin(kPi), 0.0, kEps);
    EXPECT_EQ(rCos(kPi), -1.0);
    EXPECT_NEAR(rTan(kPi / 4), 1.0, kEps);
    EXPECT_EQ(rAsin(1.0), kPi / 2);
    EXPECT_TRUE(std::isnan(rAsin(std::nextafter(1.0, 2.0))));
    EXPECT_EQ(rAcos(1.0), 0.0);
    EXPECT_EQ(rAcos(-1.0), kPi);
    EXPECT_TRUE(answers(kNoResult, rAcos(std::nextafter(1.0, 2.0))));
    EXPECT_TRUE(answers(kNoResult, rAcos(std::nextafter(-1.0, -2.0))));
    EXPECT_TRUE(answers(kNoResult, rTanT1(kPi / 2)));
    EXPECT_TRUE(answers(kNoResult, rTanT3(-kPi / 2)));
    EXPECT_GT(rTanT1(std::nextafter(kPi / 2, 0.0)), 1e15);
    EXPECT_GT(rTanT3(std::nextafter(kPi / 2, 0.0)), 5e14);
    EXPECT_EQ(rCosFromSin(1.0), 0.0);
    EXPECT_EQ(rCosFromSin(-1.0), 0.0);
    EXPECT_TRUE(answers(kNoResult, rCosFromSin(std::nextafter(1.0, 2.0))));
    EXPECT_TRUE(answers(kNoResult, rTan2XFromTanX(1.0)));
    EXPECT_TRUE(answers(kNoResult, rTan2XFromTanX(-1.0)));
    EXPECT_GT(rTan2XFromTanX(std::nextafter(1.0, 0.0)), 1e15);
    EXPECT_NEAR(rSincNormalized(3.0), 0.0, kEps);
}

TEST(Trigonometric, BranchesMeet) {
    for (double (*f)(double) : {rTanT1, rTanT3, rCosT2, rCosT1, rSinc}) {
        for (const double x : {0.001, -0.001, 0.75, -0.75}) {
            EXPECT_NEAR(f(std::nextafter(x, 0.0)), f(x), 3e-15) << x;
        }
    }
    // tan(x) again from its remainders, (1 - cos(x)) again from its own.
    for (double x = -1.5; x < 1.55; x += 0.01) {
        EXPECT_NEAR(rTanT1(x), 1.0 + x * x * rTanT3(x), 8 * kEps * rTanT1(x));
        EXPECT_NEAR(rCos(x), 1.0 - x * rCosT1(x), 4 * kEps);
    }
}

TEST(Trigonometric, ArcsOfASide) {
    const PairAnswer table[] = {
        {"rAcosXR", rAcosXR, 1.0, 0.0, kNoResult},  {"rAcosXR", rAcosXR, 0.0, 0.0, kNoResult},
        {"rAcosXR", rAcosXR, 3.0, 2.0, 0.0},        {"rAcosXR", rAcosXR, -3.0, 2.0, kPi},
        {"rAcosXR", rAcosXR, 3.0, -2.0, kPi},       {"rAcosXR", rAcosXR, -3.0, -2.0, 0.0},
        {"rAcosXR", rAcosXR, 2.0, 2.0, 0.0},        {"rAcosXR", rAcosXR, -2.0, 2.0, kPi},
        {"rAcosXR", rAcosXR, 0.0, 2.0, kPi / 2},    {"rAcosXR", rAcosXR, 1.0, kInf, kPi / 2},
        {"rAcosXR", rAcosXR, kInf, 1.0, 0.0},       {"rAcosXR", rAcosXR, kInf, kInf, kAnyNan},
        {"rAcosXR", rAcosXR, kQuiet, 1.0, kAnyNan}, {"rAcosXR", rAcosXR, 1.0, kQuiet, kAnyNan},
        {"rAsinXR", rAsinXR, 1.0, 0.0, kNoResult},  {"rAsinXR", rAsinXR, 3.0, 2.0, 0.0},
        {"rAsinXR", rAsinXR, -3.0, 2.0, 0.0},       {"rAsinXR", rAsinXR, 2.0, 2.0, kPi / 2},
        {"rAsinXR", rAsinXR, -2.0, 2.0, -kPi / 2},  {"rAsinXR", rAsinXR, 2.0, -2.0, -kPi / 2},
        {"rAsinXR", rAsinXR, 1.0, kInf, 0.0},       {"rAsinXR", rAsinXR, kQuiet, 1.0, kAnyNan},
        {"rAsinXR", rAsinXR, 1.0, kQuiet, kAnyNan},
    };
    expectAnswers(table);
}

TEST(Trigonometric, AnglesAtTheAxes) {
    const PairAnswer table[] = {
        {"rAcosXY", rAcosXY, 0.0, 0.0, kNoResult},   {"rAcosXY", rAcosXY, 2.0, 0.0, 0.0},
        {"rAcosXY", rAcosXY, -2.0, 0.0, kPi},        {"rAcosXY", rAcosXY, 0.0, -2.0, kPi / 2},
        {"rAcosXY", rAcosXY, kQuiet, 1.0, kAnyNan},  {"rAcosXY", rAcosXY, 1.0, kQuiet, kAnyNan},
        {"rAcosXY", rAcosXY, 1.0, kInf, kPi / 2},    {"rAsinXY", rAsinXY, 0.0, 0.0, kNoResult},
        {"rAsinXY", rAsinXY, 2.0, 0.0, 0.0},         {"rAsinXY", rAsinXY, 0.0, -2.0, -kPi / 2},
        {"rAsinXY", rAsinXY, 1e-9, 1.0, kPi / 2},    {"rAsinXY", rAsinXY, kQuiet, 1.0, kAnyNan},
        {"rAsinXY", rAsinXY, 1.0, kQuiet, kAnyNan},  {"rAtanXY", rAtanXY, 0.0, 0.0, 0.0},
        {"rAtanXY", rAtanXY, 1.0, 1e-17, 0.0},       {"rAtanXY", rAtanXY, 0.0, 2.0, kPi / 2},
        {"rAtanXY", rAtanXY, 1e-17, -2.0, -kPi / 2}, {"rAtanXY", rAtanXY, -1.0, -1.0, kPi / 4},
        {"rAtanXY", rAtanXY, -1.0, 1.0, -kPi / 4},   {"rAtanXY", rAtanXY, 1.0, kInf, kPi / 2},
        {"rAtanXY", rAtanXY, kInf, 1.0, 0.0},        {"rAtanXY", rAtanXY, kInf, kInf, 0.0},
        {"rAtanXY", rAtanXY, kQuiet, 1.0, 0.0},      {"rAtanXY", rAtanXY, 1.0, kQuiet, 0.0},
        {"rAcotanXY", rAcotanXY, 0.0, 0.0, 0.0},     {"rAcotanXY", rAcotanXY, 2.0, 0.0, kPi / 2},
        {"rAcotanXY", rAcotanXY, 0.0, -2.0, 0.0},    {"rAcotanXY", rAcotanXY, 1.0, 1.0, kPi / 4},
        {"rAcotanXY", rAcotanXY, kQuiet, 1.0, 0.0},  {"rAzimuth", rAzimuth, 0.0, 0.0, 0.0},
        {"rAzimuth", rAzimuth, -1.0, 0.0, kPi},      {"rAzimuth", rAzimuth, -1.0, -0.0, kPi},
        {"rAzimuth", rAzimuth, 0.0, -1.0, -kPi / 2}, {"rAzimuth", rAzimuth, kQuiet, 1.0, 0.0},
        {"rAzimuth", rAzimuth, -kInf, 1.0, kPi},     {"rAzimuth", rAzimuth, -kInf, -1.0, -kPi},
    };
    expectAnswers(table);
    EXPECT_NEAR(rAzimuth(-1.0, -1.0), -3 * kPi / 4, kEps);
}

TEST(Trigonometric, PairsOfSineAndCosine) {
    for (const double t : {0.0, 0.75, -0.75, 1.0, -1.0, 3.0, -1e10, 1e-20, 1e300, -1e300}) {
        double cosine = 7.0;
        double sine = 7.0;
        EXPECT_EQ(rSinCosFromTan(t, &cosine), rSinCosFromTan(t, nullptr));
        EXPECT_EQ(rCosSinFromTan(t, &sine), cosine);
        EXPECT_EQ(rSinCosFromTan(t, nullptr), sine);
        EXPECT_NEAR(sine * sine + cosine * cosine, 1.0, 4 * kEps);
        EXPECT_GE(cosine, 0.0);
    }
    EXPECT_EQ(rSinCosFromTan(0.75, nullptr), 0.6000000000000001);
    double other = 7.0;
    EXPECT_TRUE(std::isnan(rSinCosFromTan(kInf, &other)));
    EXPECT_EQ(other, 0.0);
    EXPECT_EQ(rCosSinFromTan(-kInf, &other), 0.0);
    EXPECT_TRUE(std::isnan(other));
    EXPECT_TRUE(std::isnan(rSinCosFromTan(kQuiet, &other)));
    EXPECT_TRUE(std::isnan(other));
}

TEST(Trigonometric, MultiplesOfAnAngle) {
    const CountAnswer<std::uint64_t> table[] = {
        {"rCosNFromCos", rCosNFromCos, 0.3, 0, 1.0},
        {"rCosNFromCos", rCosNFromCos, 0.3, 1, 0.3},
        {"rCosNFromCos", rCosNFromCos, 0.5, 2, -0.5},
        {"rCosNFromCos", rCosNFromCos, 1.0, UINT64_MAX, 1.0},
        {"rCosNFromCos", rCosNFromCos, 1.5, 0, kNoResult},
        {"rCosNFromCos", rCosNFromCos, -1.5, 3, kNoResult},
        {"rCosNFromCos", rCosNFromCos, kInf, 3, kNoResult},
        {"rCosNFromCos", rCosNFromCos, kQuiet, 3, kAnyNan},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, 0.3, 0, 0.0},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, 0.3, 1, 1.0},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, 0.3, 2, 0.6},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, 1.0, 70, 70.0},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, -1.0, 70, -70.0},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, 1.0, UINT64_MAX, 0x1p64},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, 1.5, 0, kNoResult},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, -kInf, 2, kNoResult},
        {"rSinNDivSinFromCos", rSinNDivSinFromCos, kQuiet, 2, kAnyNan},
    };
    expectAnswers(table);
    std::mt19937_64 random(4);
    for (int i = 0; i < 500; ++i) {
        const double angle = std::uniform_real_distribution<>(0.1, 3.0)(random);
        const std::uint64_t n = random() % 200;
        const double multiple = static_cast<double>(n) * angle;
        EXPECT_NEAR(rCosNFromCos(std::cos(angle), n), std::cos(multiple), 1e-12);
        EXPECT_NEAR(rSinNDivSinFromCos(std::cos(angle), n) * std::sin(angle), std::sin(multiple),
                    1e-12);
    }
}

}  // namespace
