#include "nuv64/numeric/plane_rotations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/plane_rotations_reference.inc"

struct Givens {
    double a, b;
    double c = 99, s = 99;
    Givens(double first, double second) : a(first), b(second) { rGivensRotation(&a, &b, &c, &s); }
};

struct Jacobi {
    double p, q, r;
    double c = 99, s = 99;
    Jacobi(double first, double second, double off) : p(first), q(second), r(off) {
        rJacobiRotation(&p, &q, &r, &c, &s);
    }
};

TEST(GivensRotation, AgreesWithTheReference) {
    holdAccuracy("rGivensRotation length", kGivens, 2, 1.9,
                 [](auto& r) { return Givens(r[0], r[1]).a; });
    holdAccuracy("rGivensRotation c", kGivens, 4, 2.25,
                 [](auto& r) { return Givens(r[0], r[1]).c; });
    holdAccuracy("rGivensRotation s", kGivens, 6, 2.25,
                 [](auto& r) { return Givens(r[0], r[1]).s; });
    for (const auto& row : kGivens) {
        const Givens turned(row[0], row[1]);
        EXPECT_EQ(turned.b, 0.0);
        EXPECT_GE(turned.a, 0.0);
        EXPECT_NEAR(turned.c * turned.c + turned.s * turned.s, 1.0, 3 * 0x1p-52);
    }
}

TEST(GivensRotation, Edges) {
    const Givens none(0.0, -0.0);
    EXPECT_EQ(none.a, 0.0);
    EXPECT_EQ(none.b, 0.0);
    EXPECT_EQ(none.c, 1.0);
    EXPECT_EQ(none.s, 0.0);
    const Givens large(1.2e308, -1.2e308);
    EXPECT_EQ(large.a, 1.2e308 * std::sqrt(2.0));
    EXPECT_EQ(large.s, -large.c);
    const Givens small(-3 * 0x1p-1074, 4 * 0x1p-1074);
    EXPECT_EQ(small.a, 5 * 0x1p-1074);
    EXPECT_NEAR(small.c, -0.6, 1e-15);
    EXPECT_EQ(Givens(-2.0, 0.0).c, -1.0);
    EXPECT_TRUE(std::isnan(Givens(kQuiet, 1.0).a));
    EXPECT_TRUE(std::isnan(Givens(1.0, kQuiet).c));
    EXPECT_TRUE(std::isnan(Givens(kQuiet, 0.0).a));
    EXPECT_TRUE(std::isnan(Givens(0.0, kQuiet).a));
    EXPECT_TRUE(std::isnan(Givens(kInf, 1.0).c));
    double x[4] = {3, 4, 5, 6};
    rGivensRotation(nullptr, x, x, x);
    rGivensRotation(x, nullptr, x, x);
    rGivensRotation(x, x, nullptr, x);
    rGivensRotation(x, x, x, nullptr);
    EXPECT_EQ(x[0], 3);
}

TEST(JacobiRotation, AgreesWithTheReference) {
    // p and q lose what their difference with t*r loses.
    const auto p = [](const double* r) {
        return 1.0 + 3.0 * (std::fabs(r[0]) + r[2]) / std::fabs(r[3]);
    };
    const auto q = [](const double* r) {
        return 1.0 + 3.0 * (std::fabs(r[1]) + r[2]) / std::fabs(r[5]);
    };
    // s and t know p - q only as it is rounded.
    const auto angle = [](const double* r) {
        const double d = std::fabs(r[0] - r[1]);
        return 4.0 + (d == 0 ? 0 : (std::fabs(r[0]) + std::fabs(r[1])) / d);
    };
    const auto made = [](const double* r) { return Jacobi(r[0], r[1], r[2]); };
    holdAccuracy(
        "rJacobiRotation p", kJacobi, 3, 0.6, [&](auto& r) { return made(r).p; }, p);
    holdAccuracy(
        "rJacobiRotation q", kJacobi, 5, 0.55, [&](auto& r) { return made(r).q; }, q);
    holdAccuracy("rJacobiRotation r", kJacobi, 7, 0.0, [&](auto& r) { return made(r).r; });
    holdAccuracy("rJacobiRotation c", kJacobi, 9, 2.25, [&](auto& r) { return made(r).c; });
    holdAccuracy(
        "rJacobiRotation s", kJacobi, 11, 0.6, [&](auto& r) { return made(r).s; }, angle);
    for (const auto& row : kJacobi) {
        const Jacobi turned = made(row);
        EXPECT_NEAR(turned.c * turned.c + turned.s * turned.s, 1.0, 4 * 0x1p-52);
        EXPECT_NEAR(turned.p + turned.q, row[0] + row[1],
                    4 * 0x1p-52 * (std::fabs(row[0]) + std::fabs(row[1]) + row[2]));
    }
}

TEST(JacobiRotation, ItsThreeCases) {
    const Jacobi ordered(3.0, 1.0, 1e-17);
    EXPECT_EQ(ordered.p, 3.0);
    EXPECT_EQ(ordered.c, 1.0);
    EXPECT_EQ(ordered.r, 0.0);
    const Jacobi swapped(1.0, 3.0, 1e-17);
    EXPECT_EQ(swapped.p, 3.0);
    EXPECT_EQ(swapped.q, 1.0);
    EXPECT_EQ(swapped.c, -1.0);
    EXPECT_EQ(swapped.s, 0.0);
    EXPECT_EQ(swapped.r, -1.0);
    // Every r below 0 counts as small; so p = q with one is exchanged too.
    EXPECT_EQ(Jacobi(3.0, 1.0, -2.0).c, 1.0);
    EXPECT_EQ(Jacobi(1.0, 1.0, -2.0).r, -1.0);
    const Jacobi equal(2.0, 2.0, 0.5);
    EXPECT_EQ(equal.p, 2.0);
    EXPECT_EQ(equal.q, 2.0);
    EXPECT_EQ(equal.r, 0.0);
    EXPECT_EQ(equal.c, 0.7071067811865476);
    EXPECT_EQ(equal.s, 0.7071067811865476);
    EXPECT_EQ(Jacobi(0.0, 1e-17, 0.5).s, -0.7071067811865476);
    // 2, 1 and 0.5: u = 1, t = sqrt(2) - 1.
    const Jacobi general(2.0, 1.0, 0.5);
    EXPECT_NEAR(general.p, 2.0 - 0.5 * (std::sqrt(2.0) - 1.0), 1e-15);
    EXPECT_NEAR(general.q, 1.0 + 0.5 * (std::sqrt(2.0) - 1.0), 1e-15);
    EXPECT_EQ(general.r, 0.0);
    EXPECT_NEAR(general.s / general.c, std::sqrt(2.0) - 1.0, 1e-15);
    const Jacobi nothing(1.0, 1.0, 0.0);
    EXPECT_TRUE(std::isnan(nothing.c));
    EXPECT_TRUE(std::isnan(nothing.p));
    EXPECT_TRUE(std::isnan(Jacobi(kQuiet, 1.0, 1.0).p));
    EXPECT_TRUE(std::isnan(Jacobi(2.0, 1.0, kQuiet).s));
    double x[5] = {2, 1, 5, 6, 7};
    for (int missing = 0; missing < 5; ++missing) {
        double* at[5];
        for (int i = 0; i < 5; ++i) at[i] = i == missing ? nullptr : &x[i];
        rJacobiRotation(at[0], at[1], at[2], at[3], at[4]);
    }
    EXPECT_EQ(x[0], 2);
}

}  // namespace
