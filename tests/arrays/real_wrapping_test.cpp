#include "nuv64/arrays/real_wrapping.h"

#include <gtest/gtest.h>

#include <numbers>

#include "arrays/operation_cases.h"

namespace {

using samples::elementwise;
using samples::kInf;
using samples::kQuietNan;
using samples::OperationCase;
using samples::Values;

constexpr double kPi = std::numbers::pi;

// As modf, whose zeros lose their sign in one of the runtimes.
double plainFraction(double x) {
    return std::copysign(std::isinf(x) ? 0.0 : x - std::trunc(x), x);
}

std::vector<OperationCase> wraps() {
    std::vector<OperationCase> cases;
    for (double period : {1.0, 3.0, 0.1, 2.0 * kPi, -2.5, 1e-12, 5e-324, 0.0, kInf, kQuietNan}) {
        const auto wrapped = [period](double x) { return period * plainFraction(x / period); };
        cases.push_back(elementwise(
            "Modf " + std::to_string(period),
            [period](uint64_t n, const double* a, double* b) { return RArrModf(n, a, b, period); },
            [period](uint64_t n, double* a) { return RArrIpModf(n, a, period); },
            [=](double x) { return wrapped(x) == period ? 0.0 : wrapped(x); }));
        cases.push_back(elementwise(
            "SignedModf " + std::to_string(period),
            [period](uint64_t n, const double* a, double* b) {
                return RArrSignedModf(n, a, b, period);
            },
            [period](uint64_t n, double* a) { return RArrIpSignedModf(n, a, period); },
            [=](double x) { return wrapped(x) >= period / 2 ? wrapped(x) - period : wrapped(x); }));
    }
    return cases;
}

TEST(RealWrapping, WrapsElementByElement) {
    samples::expectPlainOnAll(wraps(), false);
    const Values in = samples::rough(samples::kLong);
    samples::expectPlain(wraps()[2], in, "rough ");
    samples::expectPlain(wraps()[3], in, "rough ");
}

TEST(RealWrapping, FractionsOfValuesOfAllSizes) {
    Values in;
    for (int e = -1074; e < 1024; ++e) {
        for (double m : {1.0, 1.25, 1.5, 1.999999999999}) {
            in.push_back(std::ldexp(m, e));
            in.push_back(-std::ldexp(m, e));
        }
    }
    for (double x : {4503599627370495.5, 4503599627370496.0, 4503599627370497.0,
                     2251799813685247.75, 0.49999999999999994, 0.99999999999999989}) {
        for (double y : {x, -x, x + 1.0, x - 1.0, std::nextafter(x, 0.0)}) in.push_back(y);
    }
    for (const OperationCase& test : wraps()) samples::expectPlain(test, in, "sizes ");
}

TEST(RealWrapping, KnownValues) {
    double a[] = {2.5, -2.5, 0.75, -0.75, 3.0, -0.0};
    EXPECT_EQ(RArrIpModf(6, a, 1.0), 0u);
    EXPECT_EQ(Values(a, a + 6), (Values{0.5, -0.5, 0.75, -0.75, 0.0, 0.0}));
    double b[] = {2.5, -2.5, 0.75, -0.75};
    EXPECT_EQ(RArrIpSignedModf(4, b, 1.0), 0u);
    EXPECT_EQ(Values(b, b + 4), (Values{-0.5, -0.5, -0.25, -0.75}));
}

TEST(RealWrapping, TestsPointersBeforeTheCount) {
    samples::expectPointerTests(wraps());
}

// Literally step by step. The steps are counted so that a test that never ends is noticed.
Values plainUnwrap(const Values& in, double period, double half, bool equality) {
    Values out(in);
    constexpr int kMost = 3000000;
    for (size_t i = 1; i < out.size(); ++i) {
        int steps = 0;
        while (out[i] - out[i - 1] >= half) {
            const double next = out[i] - period;
            if (next == out[i]) break;
            out[i] = next;
            if (++steps > kMost) throw std::runtime_error("too many steps");
        }
        while (equality ? -half >= out[i] - out[i - 1] : -half > out[i] - out[i - 1]) {
            const double next = out[i] + period;
            if (next == out[i]) break;
            out[i] = next;
            if (++steps > kMost) throw std::runtime_error("too many steps");
        }
    }
    return out;
}

OperationCase unwrapCase(double period) {
    return {"InversSignedModf " + std::to_string(period),
            [period](uint64_t n, const double* a, double* b) {
                return RArrInversSignedModf(n, a, b, period);
            },
            [period](uint64_t n, double* a) { return RArrIpInversSignedModf(n, a, period); },
            [period](const Values& in) { return plainUnwrap(in, period, period / 2.0, false); }};
}

OperationCase phaseCase() {
    return {"RegularizePhase", RArrRegularizePhase, {}, [](const Values& in) {
                return plainUnwrap(in, 2.0 * kPi, kPi, true);
            }};
}

// An infinity as the reference drives the next element away until a step is lost: too long to
// follow step by step.
std::vector<samples::Kind> finiteKinds() {
    std::vector<samples::Kind> kinds = samples::kinds();
    kinds[1] = {"rough", [](uint64_t n) {
                    Values values = samples::rough(n);
                    for (double& x : values) {
                        if (std::isinf(x)) x = std::copysign(1e3, x);
                    }
                    return values;
                }};
    return kinds;
}

TEST(RealWrapping, UnwrapsStepByStep) {
    const OperationCase cases[] = {unwrapCase(3.0), unwrapCase(0.7), unwrapCase(100.0),
                                   phaseCase()};
    for (const samples::Kind& kind : finiteKinds()) {
        for (uint64_t n : samples::shortLengths()) {
            const Values in = kind.make(n);
            for (const OperationCase& test : cases) samples::expectPlain(test, in, kind.name);
        }
    }
    Values wave(samples::kLong);
    for (size_t i = 0; i < wave.size(); ++i) {
        wave[i] = std::remainder(30.0 * std::sin(1e-3 * static_cast<double>(i)), 2.0 * kPi);
    }
    samples::expectPlain(phaseCase(), wave, "wave ");
    samples::expectPlain(unwrapCase(2.0 * kPi), wave, "wave ");
}

TEST(RealWrapping, LongWaysGiveTheResultOfSingleSteps) {
    const Values pairs[] = {{0.0, 1e5},     {0.0, -1e5},      {1e5, -1e5},
                            {-3e4, 7e4},    {1234.5, 12346},  {0.1, 65536.0},
                            {0.0, 65536.0}, {-1.0, 65537.25}, {1e15, 1e15 + 1e4}};
    for (double period : {1.0, 3.0, 0.7, 2.0 * kPi, 1.0 / 3.0, 0.1}) {
        for (const Values& pair : pairs) {
            samples::expectPlain(unwrapCase(period), pair, "pair ");
        }
    }
    for (const Values& pair : pairs) samples::expectPlain(phaseCase(), pair, "pair ");
}

TEST(RealWrapping, StepsBetweenTwoSpacings) {
    // 2^53 has a spacing of 2, where a period of 1, 3, 0.75 or 5.5 rounds at every step.
    const double big = 9007199254740992.0;
    for (double period : {1.0, 3.0, 0.75, 5.5, 7.0, 9.0}) {
        for (double far : {1e5, 3e5, 1e5 + 2.0}) {
            samples::expectPlain(unwrapCase(period), {big, big + far}, "up ");
            samples::expectPlain(unwrapCase(period), {-big, -big - far}, "down ");
            samples::expectPlain(unwrapCase(period), {big - far, big + far}, "across ");
            samples::expectPlain(unwrapCase(period), {big + far, big - far}, "back ");
        }
    }
}

TEST(RealWrapping, RandomLongWays) {
    std::mt19937_64 source(5);
    std::uniform_real_distribution<double> exponent(-3.0, 5.0), place(-1.0, 1.0);
    for (int round = 0; round < 100; ++round) {
        const double size = std::pow(10.0, exponent(source));
        const double offset = std::pow(10.0, 2.0 * exponent(source)) * place(source);
        const double period = size * (0.001 + std::fabs(place(source)));
        Values in;
        for (int i = 0; i < 5; ++i) in.push_back(offset + 2000.0 * size * place(source));
        samples::expectPlain(unwrapCase(period), in, "far ");
    }
}

TEST(RealWrapping, EndsForEveryArgument) {
    const double values[] = {0.0,    -0.0, 1.0,   -1e10, 1e10,      1e300, -1e300, 5e-324,
                             1e-300, kInf, -kInf, 1e16,  kQuietNan, 3e15,  -7e13,  1.7e308};
    const double periods[] = {0.0,  1.0,       -1.0,  1e-10,  1e300,  1.7e308,
                              kInf, kQuietNan, -1e-3, 5e-324, 1e-308, -kInf};
    for (double first : values) {
        for (double second : values) {
            double out[3];
            const double in[] = {first, second, 1.0};
            EXPECT_EQ(RArrRegularizePhase(3, in, out), 0u);
            for (double period : periods) EXPECT_EQ(RArrInversSignedModf(3, in, out, period), 0u);
        }
    }
}

TEST(RealWrapping, UnwrappedPhaseIsContinuous) {
    Values phase, wrapped;
    for (int i = 0; i < 500; ++i) {
        phase.push_back(0.002 * i * i);
        wrapped.push_back(std::remainder(phase.back(), 2.0 * kPi));
    }
    Values out(phase.size());
    EXPECT_EQ(RArrRegularizePhase(phase.size(), wrapped.data(), out.data()), 0u);
    for (size_t i = 0; i < phase.size(); ++i) EXPECT_NEAR(out[i], phase[i], 1e-10);
}

TEST(RealWrapping, AStepOfExactlyPiEndsAtPlusPi) {
    const double in[] = {0.0, kPi};
    double out[2];
    EXPECT_EQ(RArrRegularizePhase(2, in, out), 0u);
    EXPECT_EQ(out[1], kPi);
    EXPECT_EQ(RArrInversSignedModf(2, in, out, 2.0 * kPi), 0u);
    EXPECT_EQ(out[1], -kPi);
}

TEST(RealWrapping, UnwrappingTestsPointersBeforeTheCount) {
    samples::expectPointerTests({unwrapCase(1.0), phaseCase()}, 22);
}

}  // namespace
