#include "nuv64/numeric/real_bounded.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

struct Bounded {
    double value;
    unsigned flag;
    bool operator==(const Bounded&) const = default;
};

Bounded call(double (*function)(double, double, std::uint16_t*), double a, double b) {
    std::uint16_t flag = 77;
    const double value = function(a, b, &flag);
    const double again = function(a, b, nullptr);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(again));
    return {value, flag};
}

TEST(Safe, GivesAnInfinityInsteadOfOverflowing) {
    EXPECT_EQ(rSafeInv(4.0), 0.25);
    EXPECT_EQ(rSafeInv(0.0), kInf);
    EXPECT_EQ(rSafeInv(-1e-320), -kInf);
    EXPECT_EQ(rSafeInv(-kInf), 0.0);
    EXPECT_TRUE(std::isnan(rSafeInv(kQuiet)));
    EXPECT_EQ(rSafeDiv(1.0, 1e-320), kInf);
    EXPECT_EQ(rSafeDiv(-1.0, 0.0), -kInf);
    EXPECT_EQ(rSafeDiv(-1.0, -1e-320), kInf);
    EXPECT_TRUE(std::isnan(rSafeDiv(0.0, 0.0)));
    EXPECT_EQ(rSafeDiv(6.0, -3.0), -2.0);
    EXPECT_EQ(rSafeMul(-1e200, 1e200), -kInf);
    EXPECT_EQ(rSafeMul(-1e200, -1e200), kInf);
    EXPECT_EQ(rSafeMul(-3.0, 2.0), -6.0);
    EXPECT_EQ(rSafeProportion(1e300, 1e10, 1e20), 1e300 / 1e20 * 1e10);
    EXPECT_EQ(rSafeProportion(1e-300, 1e-10, 1e-20), 1e-300 * (1e-10 / 1e-20));
    EXPECT_EQ(rSafeProportion(-6.0, 2.0, -3.0), 4.0);
    EXPECT_EQ(rSafeProportion(-6.0, 2.0, 3.0), -4.0);
    EXPECT_EQ(rSafeProportion(-1.0, 1.0, 0.0), -kInf);
}

TEST(Bounded, AddSaturates) {
    EXPECT_EQ(call(rBoundAdd, 1.0, 2.0), (Bounded{3.0, 0}));
    EXPECT_EQ(call(rBoundAdd, 0.0, -2.0), (Bounded{-2.0, 0}));
    EXPECT_EQ(call(rBoundAdd, -2.0, 0.0), (Bounded{-2.0, 0}));
    EXPECT_EQ(call(rBoundAdd, 2.0, -2.0), (Bounded{0.0, 512}));
    EXPECT_EQ(call(rBoundAdd, -2.0, 2.0), (Bounded{0.0, 512}));
    EXPECT_EQ(call(rBoundAdd, -2.0, 1.0), (Bounded{-1.0, 0}));
    EXPECT_EQ(call(rBoundAdd, 1e308, 1e308), (Bounded{___MaxReal, 256}));
    EXPECT_EQ(call(rBoundAdd, -1e308, -1e308), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundSub, 1.0, 2.0), (Bounded{-1.0, 0}));
    EXPECT_EQ(call(rBoundSub, -1e308, 1e308), (Bounded{-___MaxReal, 256}));
}

TEST(Bounded, MulAndDivSaturate) {
    EXPECT_EQ(call(rBoundMul, 1e200, -1e200), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundMul, -1e-200, -1e-200), (Bounded{___MinReal, 512}));
    EXPECT_EQ(call(rBoundMul, 0.0, kInf), (Bounded{0.0, 0}));
    EXPECT_EQ(call(rBoundMul, -3.0, 2.0), (Bounded{-6.0, 0}));
    EXPECT_EQ(call(rBoundMul, 1e200, 1e-200), (Bounded{1e200 * 1e-200, 0}));
    EXPECT_EQ(call(rBoundDiv, -1.0, 0.0), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundDiv, 1.0, -0.0), (Bounded{___MaxReal, 256}));
    EXPECT_EQ(call(rBoundDiv, 0.0, 0.0), (Bounded{0.0, 0}));
    EXPECT_EQ(call(rBoundDiv, 1e300, -1e-300), (Bounded{-___MaxReal, 256}));
    EXPECT_EQ(call(rBoundDiv, 1e-300, -1e300), (Bounded{-___MinReal, 512}));
    EXPECT_EQ(call(rBoundDiv, 6.0, -3.0), (Bounded{-2.0, 0}));
}

TEST(Safe, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const double most = ___MaxReal;
    const SpecialAnswers inverse[] = {
        {"rSafeInv", rSafeInv, {kAnyNan, 0, 0, kInf, kInf, kInf, -kInf, kAnyFinite, kAnyFinite}},
    };
    expectSpecialAnswers(inverse);
    EXPECT_EQ(rSafeInv(1.0 / most), 1.0 / (1.0 / most));
    const PairAnswer table[] = {
        {"rSafeDiv", rSafeDiv, 1.0, 1e-320, kInf},
        {"rSafeDiv", rSafeDiv, 1.0, -tiny, -kInf},
        {"rSafeDiv", rSafeDiv, tiny, tiny, 1.0},
        {"rSafeDiv", rSafeDiv, tiny, 0.0, kInf},
        {"rSafeDiv", rSafeDiv, tiny, -0.0, kInf},
        {"rSafeDiv", rSafeDiv, most, 0.5, kInf},
        {"rSafeDiv", rSafeDiv, -most, -0.999, kInf},
        {"rSafeDiv", rSafeDiv, most, 1.0, most},
        {"rSafeDiv", rSafeDiv, kInf, 2.0, kInf},
        {"rSafeDiv", rSafeDiv, 2.0, kInf, 0.0},
        {"rSafeDiv", rSafeDiv, kInf, kInf, kAnyNan},
        {"rSafeDiv", rSafeDiv, -0.0, 0.0, kAnyNan},
        {"rSafeDiv", rSafeDiv, kQuiet, 0.0, kAnyNan},
        {"rSafeDiv", rSafeDiv, 0.0, kQuiet, kAnyNan},
        {"rSafeMul", rSafeMul, most, 1.0, most},
        {"rSafeMul", rSafeMul, most, 2.0, kInf},
        {"rSafeMul", rSafeMul, -most, 1.0000001, -kInf},
        {"rSafeMul", rSafeMul, tiny, 0.5, 0.0},
        {"rSafeMul", rSafeMul, kInf, 0.0, kAnyNan},
        {"rSafeMul", rSafeMul, kInf, -2.0, -kInf},
        {"rSafeMul", rSafeMul, kQuiet, 2.0, kAnyNan},
        {"rSafeMul", rSafeMul, 2.0, kQuiet, kAnyNan},
    };
    expectAnswers(table);
    EXPECT_EQ(rSafeProportion(0.0, 5.0, 2.0), 0.0);
    EXPECT_TRUE(std::isnan(rSafeProportion(0.0, 5.0, 0.0)));
    EXPECT_TRUE(std::isnan(rSafeProportion(kQuiet, 5.0, 2.0)));
    EXPECT_TRUE(std::isnan(rSafeProportion(5.0, kQuiet, 2.0)));
    EXPECT_TRUE(std::isnan(rSafeProportion(5.0, 2.0, kQuiet)));
    EXPECT_EQ(rSafeProportion(most, most, most), most);
    EXPECT_EQ(rSafeProportion(-most, 2.0, 2.0), -most);
    EXPECT_EQ(rSafeProportion(2.0, most, 1.0), kInf);
}

TEST(Bounded, SpecialArguments) {
    const double tiny = 0x1p-1074;
    const double most = ___MaxReal;
    struct Row {
        const char* name;
        double (*function)(double, double, std::uint16_t*);
        double a, b, value;
        unsigned flag;
    };
    const Row table[] = {
        {"rBoundAdd", rBoundAdd, most, tiny, most, 256},
        {"rBoundAdd", rBoundAdd, most, -most, 0.0, 512},
        {"rBoundAdd", rBoundAdd, tiny, tiny, 2.0 * tiny, 0},
        {"rBoundAdd", rBoundAdd, -0.0, 0.0, 0.0, 0},
        {"rBoundAdd", rBoundAdd, kInf, 1.0, most, 256},
        {"rBoundAdd", rBoundAdd, 1.0, kInf, most, 256},
        {"rBoundAdd", rBoundAdd, -kInf, -1.0, -most, 256},
        {"rBoundAdd", rBoundAdd, kInf, -kInf, kAnyNan, 0},
        {"rBoundAdd", rBoundAdd, kQuiet, 1.0, kAnyNan, 0},
        {"rBoundAdd", rBoundAdd, 0.0, kQuiet, kAnyNan, 0},
        {"rBoundAdd", rBoundAdd, 1.0, kQuiet, kAnyNan, 0},
        {"rBoundSub", rBoundSub, most, most, 0.0, 512},
        {"rBoundSub", rBoundSub, most, -most, most, 256},
        {"rBoundSub", rBoundSub, 0.0, tiny, -tiny, 0},
        {"rBoundSub", rBoundSub, kQuiet, 1.0, kAnyNan, 0},
        {"rBoundMul", rBoundMul, most, 1.0, most, 0},
        {"rBoundMul", rBoundMul, most, -2.0, -most, 256},
        {"rBoundMul", rBoundMul, tiny, -0.5, -___MinReal, 512},
        {"rBoundMul", rBoundMul, tiny, 1.0, tiny, 0},
        {"rBoundMul", rBoundMul, 0.0, kQuiet, 0.0, 0},
        {"rBoundMul", rBoundMul, -kInf, 2.0, -most, 256},
        {"rBoundMul", rBoundMul, kQuiet, 2.0, kAnyNan, 0},
        {"rBoundDiv", rBoundDiv, 0.0, kQuiet, 0.0, 0},
        {"rBoundDiv", rBoundDiv, -tiny, 0.0, -most, 256},
        {"rBoundDiv", rBoundDiv, kQuiet, 0.0, most, 256},
        {"rBoundDiv", rBoundDiv, most, 0.5, most, 256},
        {"rBoundDiv", rBoundDiv, tiny, 1.0, ___MinReal, 512},
        {"rBoundDiv", rBoundDiv, 1.0, kInf, ___MinReal, 512},
        {"rBoundDiv", rBoundDiv, kInf, 2.0, kInf, 0},
        {"rBoundDiv", rBoundDiv, kInf, 0.5, most, 256},
        {"rBoundDiv", rBoundDiv, kQuiet, 2.0, kAnyNan, 0},
        {"rBoundDiv", rBoundDiv, 2.0, kQuiet, kAnyNan, 0},
    };
    for (const Row& row : table) {
        const Bounded result = call(row.function, row.a, row.b);
        EXPECT_TRUE(answers(row.value, result.value))
            << row.name << ' ' << row.a << ' ' << row.b << ": " << result.value;
        EXPECT_EQ(result.flag, row.flag) << row.name << ' ' << row.a << ' ' << row.b;
    }
    std::uint16_t flag = 7;
    EXPECT_TRUE(std::isnan(rBoundMod(kQuiet, 2.0, nullptr, &flag)));
    EXPECT_EQ(flag, 0u);
    EXPECT_EQ(rBoundMod(5.0, kQuiet, nullptr, &flag), 5.0);
    EXPECT_EQ(rBoundMod(5.0, kInf, nullptr, &flag), 5.0);
    EXPECT_EQ(rBoundMod(-kInf, 2.0, nullptr, &flag), 0.0);
    EXPECT_EQ(flag, 1024u);
    EXPECT_EQ(rBoundMod(tiny, 2.0 * tiny, nullptr, &flag), tiny);
    EXPECT_EQ(rBoundMod(3.0 * tiny, 2.0 * tiny, nullptr, &flag), tiny);
    EXPECT_EQ(flag, 0u);
}

TEST(Bounded, ModTakesTheSignOfItsFirst) {
    std::uint16_t flag = 7;
    double quotient = 9.0;
    EXPECT_EQ(rBoundMod(-7.5, 2.0, &quotient, &flag), -1.5);
    EXPECT_EQ(quotient, -3.0);
    EXPECT_EQ(flag, 0u);
    EXPECT_EQ(rBoundMod(7.5, -2.0, &quotient, nullptr), 1.5);
    EXPECT_EQ(quotient, 3.0);
    EXPECT_EQ(rBoundMod(2.0, 2.0, &quotient, &flag), 2.0);
    EXPECT_EQ(quotient, 0.0);
    quotient = 9.0;
    EXPECT_EQ(rBoundMod(3.0, 0.0, &quotient, &flag), 3.0);
    EXPECT_EQ(quotient, 9.0);
    EXPECT_EQ(rBoundMod(1e300, 3.0, &quotient, &flag), 0.0);
    EXPECT_EQ(flag, 1024u);
    EXPECT_EQ(quotient, 1e300 / 3.0);
    EXPECT_EQ(rBoundMod(1e300, 1e-300, nullptr, &flag), 0.0);
    EXPECT_EQ(flag, 1024u);
    std::mt19937_64 random(31);
    for (int i = 0; i < 2000; ++i) {
        const double a = std::uniform_real_distribution<>(-1e6, 1e6)(random);
        const double m = std::uniform_real_distribution<>(0.1, 10.0)(random);
        const double rest = rBoundMod(a, m, &quotient, &flag);
        ASSERT_NEAR(quotient * m + rest, a, 1e-9);
        ASSERT_LT(std::fabs(rest), m);
    }
}

}  // namespace
