#include "nuv64/numeric/real_factorials.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/real_factorials_reference.inc"

double lnTerms(double x) {
    if (x <= 0.0) return lnTerms(1.0 - x);
    return x < 8.5 ? 19.0 + std::fabs(std::log(x)) : x * std::log(x);
}

std::int64_t order(const double* r, int column = 0) {
    return static_cast<std::int64_t>(r[column]);
}

std::uint64_t count(const double* r) {
    return static_cast<std::uint64_t>(r[1]);
}

TEST(RealFactorials, AgreeWithTheReference) {
    const auto ofFactorial = [](const double* r) {
        return r[0] <= 20.0 ? 0.5 : lnTerms(r[0] + 1.0);
    };
    holdAccuracy(
        "rFactorial", kFactorial, 1, 2.5, [](auto& r) { return rFactorial(order(r)); },
        ofFactorial);
    const auto ofDouble = [](const double* r) {
        return r[0] < 34.0 ? 0.5 : 2.0 + lnTerms(1.0 + 0.5 * r[0]);
    };
    holdAccuracy(
        "rDoubleFactorial", kDoubleFactorial, 1, 2.6,
        [](auto& r) { return rDoubleFactorial(order(r)); }, ofDouble);
    const auto ofLn = [](const double*) { return 3.5; };
    holdAccuracy(
        "rFactorialLn", kFactorialLn, 1, 1.0, [](auto& r) { return rFactorialLn(order(r)); }, ofLn);
    holdAccuracy(
        "rDoubleFactorialLn", kFactorialLn, 3, 1.0,
        [](auto& r) { return rDoubleFactorialLn(order(r)); }, ofLn);
}

TEST(RealFactorials, ProductsAgreeWithTheReference) {
    const auto ofProduct = [](const double* r) {
        return r[1] <= 20.0 ? 1.0
                            : 1.0 + std::fabs(std::log(std::fabs(r[0]))) + lnTerms(r[1] + 1.0);
    };
    holdAccuracy(
        "rMulByFact", kByFactorial, 2, 3.0, [](auto& r) { return rMulByFact(r[0], count(r)); },
        ofProduct);
    holdAccuracy(
        "rDivByFact", kByFactorial, 4, 3.2, [](auto& r) { return rDivByFact(r[0], count(r)); },
        ofProduct);
    const auto ofLn = [](int column) {
        return [column](const double* r) {
            const double terms = std::fabs(std::log(std::fabs(r[0]))) + lnTerms(r[1] + 1.0);
            return 1.0 + terms / std::fabs(r[column]);
        };
    };
    holdAccuracy(
        "rMulByFactLn", kByFactorialLn, 2, 1.5,
        [](auto& r) { return rMulByFactLn(r[0], count(r)); }, ofLn(2));
    holdAccuracy(
        "rDivByFactLn", kByFactorialLn, 4, 1.5,
        [](auto& r) { return rDivByFactLn(r[0], count(r)); }, ofLn(4));
}

TEST(RealFactorials, BinomialsAgreeWithTheReference) {
    const auto terms = [](const double* r) {
        return lnTerms(r[0] + 1.0) + lnTerms(r[1] + 1.0) + lnTerms(r[0] - r[1] + 1.0);
    };
    holdAccuracy(
        "rBinomial", kBinomial, 2, 1.5, [](auto& r) { return rBinomial(r[0], r[1]); },
        [&](const double* r) { return 1.0 + terms(r); });
    holdAccuracy(
        "rBinomialLn", kBinomial, 4, 1.5, [](auto& r) { return rBinomialLn(r[0], r[1]); },
        [&](const double* r) { return 1.0 + terms(r) / std::fabs(r[4]); });
}

TEST(RealFactorials, PochhammerAgreesWithTheReference) {
    // Each factor rounds, and the one nearest to zero may have cancelled.
    const auto ofProduct = [](const double* r) {
        const double nearest = std::fabs(r[0] - std::rint(r[0]));
        const double lost = nearest > 0.0 ? std::fabs(r[0]) / nearest : 0.0;
        return 1.0 + std::fabs(r[1]) + (r[0] * r[1] < 0.0 ? lost : 0.0);
    };
    holdAccuracy(
        "rPochhammer", kPochhammer, 2, 1.0, [](auto& r) { return rPochhammer(r[0], order(r, 1)); },
        ofProduct);
    const auto ofLn = [](const double* r) {
        const double x = std::fabs(r[0]);
        const double n = r[0] < 0.0 ? -r[1] : r[1];
        const double shifted = n > 0.0 ? x + n : x + n + 1.0;
        // Near a pole the shifted argument's own rounding counts.
        const double pole = std::fabs(shifted / (shifted - std::rint(shifted) + 0x1p-40));
        const double terms = lnTerms(shifted) + lnTerms(x) + (shifted < 1.0 ? pole : 0.0);
        return 1.0 + terms / std::fabs(r[2]);
    };
    holdAccuracy(
        "rPochhammerLn", kPochhammerLn, 2, 1.5,
        [](auto& r) { return rPochhammerLn(r[0], order(r, 1)); }, ofLn);
}

TEST(RealFactorials, IntegerArgumentsAtTheirLimits) {
    const struct {
        const char* name;
        double (*function)(std::int64_t);
        std::int64_t n;
        double wanted;
    } table[] = {
        {"rFactorial", rFactorial, 0, 1.0},
        {"rFactorial", rFactorial, 1, 1.0},
        {"rFactorial", rFactorial, -1, 0.0},
        {"rFactorial", rFactorial, 20, 2432902008176640000.0},
        {"rFactorial", rFactorial, 21, kAnyFinite},
        {"rFactorial", rFactorial, 170, kAnyFinite},
        {"rFactorial", rFactorial, 171, kInf},
        {"rFactorial", rFactorial, INT64_MAX, kInf},
        {"rFactorial", rFactorial, INT64_MIN, 0.0},
        {"rFactorialLn", rFactorialLn, 0, 0.0},
        {"rFactorialLn", rFactorialLn, 1, 0.0},
        {"rFactorialLn", rFactorialLn, -1, kNoResult},
        {"rFactorialLn", rFactorialLn, INT64_MIN, kNoResult},
        {"rFactorialLn", rFactorialLn, INT64_MAX, kAnyFinite},
        {"rDoubleFactorial", rDoubleFactorial, 0, 1.0},
        {"rDoubleFactorial", rDoubleFactorial, 1, 1.0},
        {"rDoubleFactorial", rDoubleFactorial, 2, 2.0},
        {"rDoubleFactorial", rDoubleFactorial, 33, 6332659870762850625.0},
        {"rDoubleFactorial", rDoubleFactorial, -1, 0.0},
        {"rDoubleFactorial", rDoubleFactorial, 299, kAnyFinite},
        {"rDoubleFactorial", rDoubleFactorial, 300, kAnyFinite},
        {"rDoubleFactorial", rDoubleFactorial, 301, kInf},
        {"rDoubleFactorial", rDoubleFactorial, INT64_MAX, kInf},
        {"rDoubleFactorial", rDoubleFactorial, INT64_MIN, 0.0},
        {"rDoubleFactorialLn", rDoubleFactorialLn, 0, 0.0},
        {"rDoubleFactorialLn", rDoubleFactorialLn, -1, kNoResult},
        {"rDoubleFactorialLn", rDoubleFactorialLn, INT64_MIN, kNoResult},
        {"rDoubleFactorialLn", rDoubleFactorialLn, INT64_MAX, kAnyFinite},
    };
    for (const auto& row : table) {
        const double value = row.function(row.n);
        EXPECT_TRUE(answers(row.wanted, value)) << row.name << '(' << row.n << ") is " << value;
    }
}

TEST(RealFactorials, SpecialArgumentsOfProducts) {
    const double least = std::numeric_limits<double>::denorm_min();
    const double most = std::numeric_limits<double>::max();
    const CountAnswer<std::uint64_t> table[] = {
        {"rMulByFact", rMulByFact, 0.0, 1000, 0.0},
        {"rMulByFact", rMulByFact, kQuiet, 5, kAnyNan},
        {"rMulByFact", rMulByFact, kQuiet, 50, kAnyNan},
        {"rMulByFact", rMulByFact, kInf, 5, kInf},
        {"rMulByFact", rMulByFact, -kInf, 50, kNoResult},
        {"rMulByFact", rMulByFact, least, 20, 2432902008176640000.0 * least},
        {"rMulByFact", rMulByFact, least, 21, kNoResult},
        {"rMulByFact", rMulByFact, most, 21, kNoResult},
        {"rMulByFact", rMulByFact, -2.0, 3, -12.0},
        {"rMulByFact", rMulByFact, -2.0, UINT64_MAX, kNoResult},
        {"rMulByFact", rMulByFact, 1e-300, 180, kAnyFinite},
        {"rDivByFact", rDivByFact, 0.0, 1000, 0.0},
        {"rDivByFact", rDivByFact, kQuiet, 50, kAnyNan},
        {"rDivByFact", rDivByFact, kInf, 5, kInf},
        {"rDivByFact", rDivByFact, kInf, 50, kNoResult},
        {"rDivByFact", rDivByFact, -12.0, 3, -2.0},
        {"rDivByFact", rDivByFact, 1.0, UINT64_MAX, 0.0},
        {"rDivByFact", rDivByFact, most, 180, kAnyFinite},
        {"rMulByFactLn", rMulByFactLn, 0.0, 3, kNoResult},
        {"rMulByFactLn", rMulByFactLn, -0.0, 30, kNoResult},
        {"rMulByFactLn", rMulByFactLn, least, 3, kNoResult},
        {"rMulByFactLn", rMulByFactLn, -1.0, 0, 0.0},
        {"rMulByFactLn", rMulByFactLn, kQuiet, 3, kAnyNan},
        {"rMulByFactLn", rMulByFactLn, kInf, 3, kInf},
        {"rMulByFactLn", rMulByFactLn, 1.0, UINT64_MAX, kAnyFinite},
        {"rDivByFactLn", rDivByFactLn, 0.0, 3, kNoResult},
        {"rDivByFactLn", rDivByFactLn, kQuiet, 3, kAnyNan},
        {"rDivByFactLn", rDivByFactLn, -kInf, 3, kInf},
        {"rDivByFactLn", rDivByFactLn, 1.0, UINT64_MAX, kAnyFinite},
    };
    expectAnswers(table);
    EXPECT_TRUE(std::signbit(rMulByFact(-0.0, 30)));
    EXPECT_TRUE(std::signbit(rDivByFact(-1.0, 1000)));
}

TEST(RealFactorials, SpecialArgumentsOfBinomials) {
    const PairAnswer table[] = {
        {"rBinomial", rBinomial, 5.0, -1.0, kNoResult},
        {"rBinomial", rBinomial, 5.0, 6.0, kNoResult},
        {"rBinomial", rBinomial, -1.0, 2.0, kNoResult},
        {"rBinomial", rBinomial, 1e5, 5e4, kNoResult},
        {"rBinomial", rBinomial, kQuiet, 1.0, kAnyNan},
        {"rBinomial", rBinomial, 1.0, kQuiet, kAnyNan},
        {"rBinomial", rBinomial, kInf, 1.0, kAnyNan},
        {"rBinomialLn", rBinomialLn, -1.0, 2.0, kNoResult},
        {"rBinomialLn", rBinomialLn, 1e5, 5e4, kAnyFinite},
        {"rBinomialLn", rBinomialLn, kQuiet, 1.0, kAnyNan},
        {"rBinomialLn", rBinomialLn, kInf, kInf, kAnyNan},
    };
    expectAnswers(table);
    EXPECT_NEAR(rBinomial(5.0, 2.0), 10.0, 1e-13);
    EXPECT_NEAR(rBinomial(-0.5, 2.0), 0.375, 1e-14);
    // The signs of gamma functions are lost: this one is -0.0625 in truth.
    EXPECT_NEAR(rBinomial(0.5, 3.0), 0.0625, 1e-15);
}

TEST(RealFactorials, Pochhammer) {
    const double most = std::numeric_limits<double>::max();
    const CountAnswer<std::int64_t> table[] = {
        {"rPochhammer", rPochhammer, 2.0, 3, 24.0},
        {"rPochhammer", rPochhammer, 7.5, 0, 1.0},
        {"rPochhammer", rPochhammer, kQuiet, 0, 1.0},
        {"rPochhammer", rPochhammer, 0.0, 5, 0.0},
        {"rPochhammer", rPochhammer, 0.0, -5, 0.0},
        {"rPochhammer", rPochhammer, 3.5, 1, 3.5},
        {"rPochhammer", rPochhammer, 3.5, -1, 3.5},
        {"rPochhammer", rPochhammer, 5.0, -3, 60.0},
        {"rPochhammer", rPochhammer, 2.0, -3, 0.0},
        {"rPochhammer", rPochhammer, -2.0, 3, 0.0},
        {"rPochhammer", rPochhammer, -2.0, 2, 2.0},
        {"rPochhammer", rPochhammer, -2.0, -3, -24.0},
        {"rPochhammer", rPochhammer, kQuiet, 3, kAnyNan},
        {"rPochhammer", rPochhammer, kInf, 3, kInf},
        {"rPochhammer", rPochhammer, -kInf, 3, -kInf},
        {"rPochhammer", rPochhammer, -kInf, 2, kInf},
        {"rPochhammer", rPochhammer, most, 2, kInf},
        {"rPochhammer", rPochhammer, 1.5, INT64_MAX, kInf},
        {"rPochhammer", rPochhammer, 1.5, INT64_MIN, kInf},
        {"rPochhammer", rPochhammer, -1e6, 999999, -kInf},
        {"rPochhammer", rPochhammer, -1e6, 1000000, kInf},
        {"rPochhammer", rPochhammer, -1e6, 1000001, kAnyNan},
        {"rPochhammer", rPochhammer, -1e15 - 0.5, INT64_MAX, -kInf},
        {"rPochhammer", rPochhammer, -1e15 + 0.5, INT64_MAX, kInf},
        {"rPochhammerLn", rPochhammerLn, kQuiet, 0, 0.0},
        {"rPochhammerLn", rPochhammerLn, kQuiet, 3, kNoResult},
        {"rPochhammerLn", rPochhammerLn, 0.0, 3, -kInf},
        {"rPochhammerLn", rPochhammerLn, 0.0, -3, -kInf},
        {"rPochhammerLn", rPochhammerLn, 1.0, 1, 0.0},
        {"rPochhammerLn", rPochhammerLn, 1.0, -1, 0.0},
        {"rPochhammerLn", rPochhammerLn, 2.0, -5, kNoResult},
        {"rPochhammerLn", rPochhammerLn, kInf, 3, kAnyNan},
        {"rPochhammerLn", rPochhammerLn, 2.0, INT64_MAX, kAnyFinite},
        {"rPochhammerLn", rPochhammerLn, 2.0, INT64_MIN, kNoResult},
        {"rPochhammerLn", rPochhammerLn, -2.0, INT64_MIN, kAnyFinite},
    };
    expectAnswers(table);
    // The logarithm for negative x is that of the positive one, negated for odd orders.
    EXPECT_EQ(rPochhammerLn(-5.5, -3), -rPochhammerLn(5.5, 3));
    EXPECT_EQ(rPochhammerLn(-5.5, -4), rPochhammerLn(5.5, 4));
}

}  // namespace
