#include "nuv64/numeric/handbook_integrals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/handbook_integrals_reference.inc"

// The table tells how much rounded arguments change the value: the rounding inside is of that size.
template <int kColumn>
double ofCondition(const double* r) {
    return r[kColumn];
}

std::int64_t integer(double x) {
    return static_cast<std::int64_t>(x);
}

TEST(HandbookIntegrals, AgreeWithTheReference) {
    holdAccuracy(
        "rAS_3_3_14", k14, 4, 1.5,
        [](auto& r) { return rAS_3_3_14(r[0], r[1], r[2], integer(r[3])); }, ofCondition<6>);
    holdAccuracy(
        "rAS_3_3_16", k16, 4, 5.5, [](auto& r) { return rAS_3_3_16(r[0], r[1], r[2], r[3]); },
        ofCondition<6>);
    holdAccuracy(
        "rAS_3_3_19", k19, 4, 11.0, [](auto& r) { return rAS_3_3_19(r[0], r[1], r[2], r[3]); },
        ofCondition<6>);
    holdAccuracy(
        "rAS_3_3_20", k20, 5, 1.5, [](auto& r) { return rAS_3_3_20(r[0], r[1], r[2], r[3], r[4]); },
        ofCondition<7>);
    holdAccuracy(
        "rAS_3_3_21", k21, 3, 1.5, [](auto& r) { return rAS_3_3_21(r[0], r[1], r[2]); },
        ofCondition<5>);
    holdAccuracy(
        "rAS_3_3_22", k22, 3, 1.5, [](auto& r) { return rAS_3_3_22(r[0], r[1], r[2]); },
        ofCondition<5>);
    holdAccuracy(
        "rAS_3_3_33", k33, 4, 1.5, [](auto& r) { return rAS_3_3_33(r[0], r[1], r[2], r[3]); },
        ofCondition<6>);
    holdAccuracy(
        "rAS4_1_51", k51, 3, 2.0,
        [](auto& r) {
            return rAS4_1_51(r[0], static_cast<std::uint64_t>(r[1]),
                             static_cast<std::uint64_t>(r[2]));
        },
        ofCondition<5>);
}

template <class F, class G>
void expectSlope(const char* name, double x, F integral, G integrand) {
    const double h = 1e-5;
    const double slope = (integral(x + h) - integral(x - h)) / (2 * h);
    EXPECT_NEAR(slope, integrand(x), 1e-6 * (1.0 + std::fabs(integrand(x)))) << name << ' ' << x;
}

TEST(HandbookIntegrals, AreAntiderivatives) {
    for (double x = 0.6; x < 3.0; x += 0.21) {
        for (int n : {-3, -1, 0, 1, 4}) {
            expectSlope(
                "3.3.14", x, [n](double t) { return rAS_3_3_14(t, 1.2, 0.7, n); },
                [n](double t) { return std::pow(1.2 + 0.7 * t, n); });
        }
        expectSlope(
            "3.3.16", x, [](double t) { return rAS_3_3_16(t, -4.0, 0.3, 0.25); },
            [](double t) { return 1.0 / (0.25 * t * t + 0.3 * t - 4.0); });
        expectSlope(
            "3.3.16 double root", x, [](double t) { return rAS_3_3_16(t, 1.0, 2.0, 1.0); },
            [](double t) { return 1.0 / (t * t + 2.0 * t + 1.0); });
        const double factor = 2.0 / std::sqrt(4.0 * 0.5 * 2.0 - 0.09);
        expectSlope(
            "3.3.17", x, [&](double t) { return factor * rAS_3_3_16(t, 2.0, 0.3, 0.5); },
            [](double t) { return 1.0 / (0.5 * t * t + 0.3 * t + 2.0); });
        expectSlope(
            "3.3.19", x, [](double t) { return rAS_3_3_19(t, -4.0, 0.3, 0.25); },
            [](double t) { return t / (0.25 * t * t + 0.3 * t - 4.0); });
        expectSlope(
            "3.3.19 without b", x, [](double t) { return rAS_3_3_19(t, 2.0, 0.0, 0.25); },
            [](double t) { return t / (0.25 * t * t + 2.0); });
        expectSlope(
            "3.3.19 linear", x, [](double t) { return rAS_3_3_19(t, 2.0, 1.0, 0.0); },
            [](double t) { return t / (t + 2.0); });
        expectSlope(
            "3.3.20", x, [](double t) { return rAS_3_3_20(t, 0.5, 2.0, 1.5, 1.0); },
            [](double t) { return 1.0 / ((0.5 * t + 2.0) * (1.5 * t + 1.0)); });
        expectSlope(
            "3.3.20 proportional", x, [](double t) { return rAS_3_3_20(t, 0.5, 2.0, 0.5, 2.0); },
            [](double t) { return 1.0 / ((0.5 * t + 2.0) * (0.5 * t + 2.0)); });
        expectSlope(
            "3.3.21", x, [](double t) { return rAS_3_3_21(t, 1.3, 0.8); },
            [](double t) { return 1.0 / (1.69 + 0.64 * t * t); });
        expectSlope(
            "3.3.22", x, [](double t) { return rAS_3_3_22(t, 1.3, 0.8); },
            [](double t) { return t / (1.69 + 0.64 * t * t); });
        for (double a : {0.5, 1.0, -0.2}) {
            expectSlope(
                "3.3.33", x, [a](double t) { return rAS_3_3_33(t, 2.0, 0.3, a); },
                [a](double t) { return 1.0 / std::sqrt(a * t * t + 0.3 * t + 2.0); });
        }
        for (std::uint64_t m : {0, 1, 2}) {
            expectSlope(
                "4.1.51", x, [m](double t) { return rAS4_1_51(t, 3, m); },
                [m](double t) { return t * t * t * std::pow(std::log(t), m); });
        }
    }
}

TEST(HandbookIntegrals, SpecialParameters) {
    EXPECT_EQ(rAS_3_3_14(2.5, 1.0, 3.0, 0), 2.5);
    EXPECT_EQ(rAS_3_3_14(2.5, 3.0, 0.0, 2), 22.5);
    EXPECT_EQ(rAS_3_3_14(2.0, 4.0, 0.0, -1), 0.5);
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_14(2.0, -4.0, 2.0, -1)));
    EXPECT_EQ(rAS_3_3_14(0.5, 0.5, 1.0, INT64_MAX), 1.0 / 0x1p63);
    EXPECT_EQ(rAS_3_3_14(0.5, 0.5, 1.0, INT64_MIN), -1.0 / 0x1p63);
    EXPECT_EQ(rAS_3_3_16(1.0, 1.0, 0.0, 1.0), std::atan(1.0));
    EXPECT_EQ(rAS_3_3_16(3.0, 0.0, 0.0, 0.0), -kInf);
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_16(3.0, 1.0, 2.0, 0.0)));
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_19(3.0, 0.0, 0.0, 0.0)));
    EXPECT_EQ(rAS_3_3_19(3.0, 2.0, 0.0, 0.0), 2.25);
    EXPECT_EQ(rAS_3_3_19(3.0, 0.0, 2.0, 0.0), 1.5);
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_19(3.0, 1.0, -2.0, 0.0)));
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_20(3.0, 1.0, 2.0, 0.0, 0.0)));
    EXPECT_EQ(rAS_3_3_20(3.0, 0.0, 2.0, 0.0, 4.0), 0.375);
    EXPECT_EQ(rAS_3_3_20(3.0, 1.0, 1.0, 2.0, 2.0), -0.125);
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_21(3.0, 0.0, 0.0)));
    EXPECT_EQ(rAS_3_3_21(3.0, 2.0, 0.0), 0.75);
    EXPECT_EQ(rAS_3_3_21(4.0, 0.0, 2.0), -0.0625);
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_22(3.0, 0.0, 0.0)));
    EXPECT_EQ(rAS_3_3_22(3.0, 2.0, 0.0), 1.125);
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_22(0.0, 0.0, 2.0)));
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_33(1.0, 1.0, 1.0, 0.0)));
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_33(1.0, 0.0, 1.0, 1.0)));
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_33(1.0, -1.0, 0.0, -1.0)));
    EXPECT_TRUE(answers(kNoResult, rAS_3_3_33(2.0, 1.0, 0.0, -1.0)));
    EXPECT_EQ(rAS_3_3_33(1.0, 1.0, 0.0, -1.0), std::asin(1.0));
    EXPECT_NEAR(rAS_3_3_33(2.0, 1.0, 2.0, 1.0), std::log(6.0), 1e-15);
    EXPECT_EQ(rAS4_1_51(0.0, 3, 2), 0.0);
    EXPECT_EQ(rAS4_1_51(2.0, 3, 0), 4.0);
    EXPECT_EQ(rAS4_1_51(1.0, UINT64_MAX, 0), 0x1p-64);
    for (double x : {-1.0, kQuiet, kInf, -kInf}) {
        EXPECT_TRUE(answers(kNoResult, rAS4_1_51(x, 1, 1))) << x;
    }
    EXPECT_FALSE(std::isfinite(rAS4_1_51(2.0, 1, 171)));
    EXPECT_FALSE(std::isfinite(rAS4_1_51(2.0, 1, UINT64_MAX)));
}

TEST(HandbookIntegrals, NotANumberGivesNone) {
    for (double x : {kQuiet, kInf, -kInf}) {
        EXPECT_FALSE(std::isfinite(rAS_3_3_14(x, 1.0, 2.0, 2))) << x;
        EXPECT_FALSE(std::isfinite(rAS_3_3_22(x, 1.0, 2.0))) << x;
    }
    for (int place = 0; place < 5; ++place) {
        double a[5] = {0.7, 1.1, 1.3, 1.7, 1.9};
        a[place] = kQuiet;
        EXPECT_TRUE(place >= 3 || std::isnan(rAS_3_3_14(a[0], a[1], a[2], 2))) << place;
        EXPECT_TRUE(place >= 4 || std::isnan(rAS_3_3_16(a[0], a[1], a[2], a[3]))) << place;
        EXPECT_TRUE(place >= 4 || std::isnan(rAS_3_3_19(a[0], a[1], a[2], a[3]))) << place;
        EXPECT_TRUE(std::isnan(rAS_3_3_20(a[0], a[1], a[2], a[3], a[4]))) << place;
        EXPECT_TRUE(place >= 3 || std::isnan(rAS_3_3_22(a[0], a[1], a[2]))) << place;
        EXPECT_TRUE(place >= 4 || std::isnan(rAS_3_3_33(a[0], a[1], a[2], a[3]))) << place;
    }
}

}  // namespace
