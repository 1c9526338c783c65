#include "nuv64/numeric/real_solvers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_solvers_reference.inc"

using Solver = double (*)(double, double, double (*)(double), double*, double);
using SolverRp = double (*)(double, double, double (*)(double, void*), void*, double*, double);

constexpr Solver kSolvers[] = {rSolveBinDiv, rSolveNewton};
constexpr SolverRp kSolversRp[] = {rSolveBinDivRp, rSolveNewtonRp};

double square(double x) {
    return x * x;
}

double cubeLess2(double x) {
    return x * x * x - 2.0;
}

double nothing(double) {
    return kQuiet;
}

// c0*(x - root) + c1*sin(x - root), and how often it was asked for.
struct Wave {
    double root, c0, c1;
    int calls = 0;
    static double at(double x, void* wave) {
        auto& w = *static_cast<Wave*>(wave);
        ++w.calls;
        return w.c0 * (x - w.root) + w.c1 * std::sin(x - w.root);
    }
};

TEST(Solvers, NeedABracket) {
    for (const Solver solve : kSolvers) {
        double residual = 7.0;
        EXPECT_TRUE(answers(kNoResult, solve(-1.0, 1.0, square, &residual, 0.0)));
        EXPECT_TRUE(answers(kNoResult, residual));
        // A zero at an end is not below 0.
        EXPECT_TRUE(answers(kNoResult, solve(0.0, 1.0, square, &residual, 0.0)));
        EXPECT_TRUE(answers(kNoResult, solve(-2.0, -1.0, cubeLess2, nullptr, 0.0)));
        EXPECT_TRUE(answers(kNoResult, solve(-2.0, -1.0, nothing, nullptr, 0.0)));
        residual = 7.0;
        EXPECT_TRUE(answers(kNoResult, solve(0.0, 2.0, nullptr, &residual, 0.0)));
        EXPECT_TRUE(answers(kNoResult, residual));
        EXPECT_TRUE(std::isnan(solve(kQuiet, 2.0, cubeLess2, nullptr, 0.0)));
        EXPECT_TRUE(std::isnan(solve(kQuiet, 1.0, cubeLess2, nullptr, 0.0)));
    }
    for (const SolverRp solve : kSolversRp) {
        double residual = 7.0;
        EXPECT_TRUE(answers(kNoResult, solve(0.0, 2.0, nullptr, nullptr, &residual, 0.0)));
        EXPECT_TRUE(answers(kNoResult, residual));
    }
}

TEST(Solvers, FindTheRootOfACubic) {
    const double root = std::cbrt(2.0);
    double residual = 7.0;
    EXPECT_NEAR(rSolveBinDiv(0.0, 2.0, cubeLess2, &residual, 0.0), root, ___5EpsReal);
    EXPECT_NEAR(residual, 0.0, 1e-14);
    EXPECT_NEAR(rSolveNewton(0.0, 2.0, cubeLess2, &residual, 0.0), root, 1e-14);
    EXPECT_NEAR(residual, 0.0, 1e-14);
    EXPECT_NEAR(rSolveBinDiv(2.0, 0.0, cubeLess2, nullptr, 1e-5), root, 1e-5);
    // A zero at one end is a root when the other end is below 0.
    const auto line = [](double x) { return x; };
    EXPECT_EQ(rSolveBinDiv(-1.0, 0.0, line, &residual, 0.0), residual);
    EXPECT_NEAR(residual, 0.0, ___5EpsReal);
}

// The result is the end that was passed as a, on its side of the root.
TEST(Solvers, ReturnTheEndThatBeganAsA) {
    double residual = 7.0;
    const double below = rSolveBinDiv(0.0, 2.0, cubeLess2, &residual, 0.25);
    EXPECT_EQ(below, 1.25);
    EXPECT_EQ(residual, cubeLess2(1.25));
    EXPECT_EQ(rSolveBinDiv(2.0, 0.0, cubeLess2, &residual, 0.25), 1.5);
    EXPECT_EQ(residual, cubeLess2(1.5));
    // False position leaves the end where the curve bends away; as a it is the result.
    const auto bent = [](double x) { return 2.0 - x * x * x; };
    EXPECT_EQ(rSolveNewton(2.0, 0.0, bent, &residual, 0.0), 2.0);
    EXPECT_EQ(residual, -6.0);
    EXPECT_NEAR(rSolveNewton(0.0, 2.0, bent, &residual, 0.0), std::cbrt(2.0), 1e-15);
    // Nothing to do for a bracket that is narrow enough.
    EXPECT_EQ(rSolveBinDiv(1.0, 2.0, cubeLess2, &residual, 1.0), 1.0);
    EXPECT_EQ(rSolveNewton(1.0, 2.0, cubeLess2, &residual, 1.0), 1.0);
    EXPECT_EQ(residual, -1.0);
}

TEST(Solvers, EndWhereDoublesAreFurtherApartThanTheTolerance) {
    Wave wave{1e6 + 1.0 / 3.0, 1.0, 0.5};
    double residual = 7.0;
    const double x = rSolveBinDivRp(0.0, 3e6, Wave::at, &wave, &residual, 0.0);
    EXPECT_NEAR(x, wave.root, 3e-10);
    EXPECT_LT(wave.calls, 80);
    wave.calls = 0;
    EXPECT_NEAR(rSolveBinDivRp(3e6, 0.0, Wave::at, &wave, &residual, -1.0), wave.root, 3e-10);
    EXPECT_LT(wave.calls, 80);
    // The whole range; the middle overflows on the way and ends it.
    wave.root = 1e308;
    EXPECT_FALSE(std::isnan(rSolveBinDivRp(0.9e308, 1.7e308, Wave::at, &wave, nullptr, 0.0)));
}

TEST(Solvers, BracketRandomRoots) {
    std::mt19937_64 random(43);
    std::uniform_real_distribution<> any(0.1, 2.0);
    for (int i = 0; i < 2000; ++i) {
        Wave wave{any(random) - 1.0, any(random), 0.5 * any(random)};
        double a = wave.root - any(random);
        double b = wave.root + any(random);
        if (i % 2 == 0) std::swap(a, b);
        const double tolerance = i % 3 == 0 ? 1e-9 : 1e-4;
        double residual = 7.0;
        const double x = rSolveBinDivRp(a, b, Wave::at, &wave, &residual, tolerance);
        ASSERT_NEAR(x, wave.root, tolerance);
        ASSERT_EQ(residual, Wave::at(x, &wave));
        ASSERT_EQ(x < wave.root, a < wave.root);
        ASSERT_LE(wave.calls, 4 + std::log2(4.0 / tolerance));
        wave.calls = 0;
        const double y = rSolveNewtonRp(a, b, Wave::at, &wave, &residual, tolerance);
        ASSERT_LE(std::fabs(y - wave.root), std::fabs(a - wave.root));
        ASSERT_EQ(y < wave.root, a < wave.root);
        ASSERT_EQ(residual, Wave::at(y, &wave));
    }
}

// Here rounding puts the point of false position just outside its bracket, for ever to and fro.
TEST(Solvers, FalsePositionEndsWhereRoundingWidensTheBracket) {
    struct Exponential {
        double rate, root;
        int calls = 0;
        static double at(double x, void* exponential) {
            auto& e = *static_cast<Exponential*>(exponential);
            if (++e.calls > 100000) return 0.0 / 0.0;
            return std::exp(e.rate * x) - std::exp(e.rate * e.root);
        }
    };
    std::mt19937_64 random(1);
    std::uniform_real_distribution<> any(-1.0, 1.0);
    int most = 0;
    for (int i = 0; i < 3000; ++i) {
        Exponential e{0.5 + std::fabs(any(random)), 3.0 * any(random)};
        const double a = e.root + std::fabs(any(random));
        const double b = e.root - std::fabs(any(random));
        rSolveNewtonRp(a, b, Exponential::at, &e, nullptr, 0.0);
        most = std::max(most, e.calls);
    }
    EXPECT_LT(most, 1000);
}

struct Quadratic {
    double root1 = 99, root2 = 99, result;
    Quadratic(double a, double b, double c) : result(rSolveQuadratic(a, b, c, &root1, &root2)) {}
};

TEST(Quadratics, AgreeWithTheReference) {
    // The discriminant cancels.
    const auto allowance = [](const double* r) {
        if (r[0] == 0.0) return 2.0;
        const double h = 0.5 * r[1] / r[0];
        const double c = r[2] / r[0];
        const double d = std::fabs(h * h - c);
        return 8.0 + (d == 0.0 ? 0.0 : 2.0 * (h * h + std::fabs(c)) / d);
    };
    const auto solved = [](const double* r) { return Quadratic(r[0], r[1], r[2]); };
    holdAccuracy(
        "rSolveQuadratic", kQuadratics, 3, 0.35, [&](auto& r) { return solved(r).result; },
        allowance);
    holdAccuracy(
        "rSolveQuadratic root1", kQuadratics, 5, 0.35, [&](auto& r) { return solved(r).root1; },
        allowance);
    holdAccuracy(
        "rSolveQuadratic root2", kQuadratics, 7, 0.1, [&](auto& r) { return solved(r).root2; },
        allowance);
}

void expectQuadratic(double a, double b, double c, double result, double root1, double root2) {
    const Quadratic solved(a, b, c);
    EXPECT_TRUE(answers(result, solved.result)) << solved.result;
    EXPECT_TRUE(answers(root1, solved.root1)) << solved.root1;
    EXPECT_TRUE(answers(root2, solved.root2)) << solved.root2;
}

TEST(Quadratics, ItsCases) {
    expectQuadratic(1, 0, 1, 0, 0, 1);
    expectQuadratic(0, 0, 0, 0, 0, 0);
    expectQuadratic(0, 0, 3, kNoResult, kNoResult, 0);
    expectQuadratic(0, 2, -3, 1.5, 1.5, 0);
    expectQuadratic(2, 4, 10, -1, -1, 2);
    expectQuadratic(1, 3, 2, -2, -1, 0);
    expectQuadratic(2, 6, 4, -2, -1, 0);
    // For h below 0 the result is the other root with the wrong sign.
    expectQuadratic(1, -3, 2, -1, 2, 0);
    expectQuadratic(1, -1e8, 1, -1e-8, 1e8, 0);
    expectQuadratic(1, 0, -4, -2, 2, 0);
    expectQuadratic(1, 2, 1, -1, -1, 0);
    expectQuadratic(1, 0, 0, 0, kAnyNan, 0);
    expectQuadratic(kQuiet, 1, 1, kAnyNan, kAnyNan, kAnyFinite);
    expectQuadratic(1, kInf, 1, -kInf, 0, 0);
    EXPECT_EQ(rSolveQuadratic(1, 3, 2, nullptr, nullptr), -2.0);
}

TEST(Derivative, OfSmoothFunctions) {
    std::mt19937_64 random(47);
    std::uniform_real_distribution<> any(-3.0, 3.0);
    double worst = 0.0;
    for (int i = 0; i < 300; ++i) {
        const double x = any(random);
        worst = std::fmax(
            worst, std::fabs(rDerivative(x, [](double y) { return std::sin(y); }) - std::cos(x)));
    }
    std::printf("rDerivative of the sine: worst error %.3g\n", worst);
    EXPECT_LT(worst, 3e-8);
    EXPECT_NEAR(rDerivative(1.0, [](double y) { return 4.0 * y - 3.0; }), 4.0, 1e-8);
    EXPECT_NEAR(rDerivative(0.0, [](double y) { return y * y; }), 0.0, 1e-22);
    EXPECT_EQ(rDerivative(0x1p40, [](double y) { return y; }), 0.0);
    EXPECT_TRUE(std::isnan(rDerivative(kQuiet, square)));
    EXPECT_TRUE(std::isnan(rDerivative(kInf, square)));
    EXPECT_TRUE(answers(kNoResult, rDerivative(1.0, nullptr)));
}

// The weights by their decimals: a step of one at each point shows them. The middle is not asked.
TEST(Derivative, ItsWeights) {
    static double at;
    static bool asked;
    const double h = 0x1p-26;
    const double weights[] = {-0.1071428571428571, -0.0714285714285714, -0.0357142857142857, 0.0,
                              0.0357142857142857,  0.0714285714285714,  0.1071428571428571};
    for (int k = -3; k <= 3; ++k) {
        at = k * h;
        asked = false;
        const double value = rDerivative(0.0, [](double y) {
            asked |= y == at;
            return y == at ? 1.0 : 0.0;
        });
        EXPECT_EQ(value, weights[k + 3] / h);
        EXPECT_EQ(asked, k != 0);
    }
}

}  // namespace
