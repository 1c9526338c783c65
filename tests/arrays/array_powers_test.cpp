#include "nuv64/arrays/array_powers.h"

#include <gtest/gtest.h>

#include "arrays/operation_cases.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_powers.h"

namespace {

using samples::elementwise;
using samples::OperationCase;

std::vector<OperationCase> wholePowers() {
    std::vector<OperationCase> cases;
    for (int32_t k : {0, 1, 2, 3, 5, 16, 255, -1, -2, -7, INT32_MAX, INT32_MIN}) {
        cases.push_back(elementwise(
            "PowerI" + std::to_string(k),
            [k](uint64_t n, const double* a, double* b) { return RArrPowerI(n, a, b, k); },
            [k](uint64_t n, double* a) { return RArrIpPowerI(n, a, k); },
            [k](double x) { return riPower(x, k); }));
        cases.push_back(elementwise(
            "AbsPowerI" + std::to_string(k),
            [k](uint64_t n, const double* a, double* b) { return RArrAbsPowerI(n, a, b, k); },
            [k](uint64_t n, double* a) { return RArrIpAbsPowerI(n, a, k); },
            [k](double x) { return riAbsPower(x, k); }));
        cases.push_back(elementwise(
            "SignedPowerI" + std::to_string(k),
            [k](uint64_t n, const double* a, double* b) { return RArrSignedPowerI(n, a, b, k); },
            [k](uint64_t n, double* a) { return RArrIpSignedPowerI(n, a, k); },
            [k](double x) { return riSignedPower(x, k); }));
    }
    return cases;
}

std::vector<OperationCase> squares() {
    return {elementwise("Square", RArrSquare, RArrIpSquare, [](double x) { return x * x; }),
            elementwise("SignedSquare", RArrSignedSquare, RArrIpSignedSquare,
                        [](double x) { return x < 0.0 ? -(x * x) : x * x; })};
}

std::vector<OperationCase> realPowers() {
    std::vector<OperationCase> cases;
    for (double p : {0.5, -1.75, 2.0, 0.0}) {
        cases.push_back(elementwise(
            "AbsPower" + std::to_string(p),
            [p](uint64_t n, const double* a, double* b) { return RArrAbsPower(n, a, b, p); },
            [p](uint64_t n, double* a) { return RArrIpAbsPower(n, a, p); },
            [p](double x) { return rPow(x, p); }));
        cases.push_back(elementwise(
            "SignedPower" + std::to_string(p),
            [p](uint64_t n, const double* a, double* b) { return RArrSignedPower(n, a, b, p); },
            [p](uint64_t n, double* a) { return RArrIpSignedPower(n, a, p); },
            [p](double x) { return rSignedPower(x, p); }));
    }
    return cases;
}

TEST(ArrayPowers, AreTheScalarFunctionsElementByElement) {
    samples::expectPlainOnAll(wholePowers(), false);
    samples::expectPlainOnAll(realPowers(), false);
    samples::expectPlainOnAll(squares());
}

TEST(ArrayPowers, OfAMillionElements) {
    const auto in = samples::rough(samples::kLong);
    for (const OperationCase& test : wholePowers()) {
        if (test.name.ends_with("PowerI5")) samples::expectPlain(test, in, "rough ");
    }
    samples::expectPlain(realPowers()[0], in, "rough ");
}

TEST(ArrayPowers, TestPointersBeforeTheCount) {
    samples::expectPointerTests(wholePowers());
    samples::expectPointerTests(realPowers());
    samples::expectPointerTests(squares());
}

TEST(ArrayPowers, KnownValues) {
    double a[] = {-2.0, 0.0, 3.0};
    EXPECT_EQ(RArrIpPowerI(3, a, 3), 0u);
    EXPECT_EQ(a[0], -8.0);
    EXPECT_EQ(a[1], 0.0);
    EXPECT_EQ(a[2], 27.0);
    EXPECT_EQ(RArrIpPowerI(3, a, -1), 0u);
    EXPECT_EQ(a[0], -0.125);
    EXPECT_EQ(std::bit_cast<uint64_t>(a[1]), 0xFFFF000000000000u);
    double b[] = {-2.0, 0.0, 3.0};
    EXPECT_EQ(RArrIpAbsPower(3, b, 2.0), 0u);
    EXPECT_DOUBLE_EQ(b[0], 4.0);
    EXPECT_EQ(b[1], ___MinReal);
    double c[] = {-3.0, -0.0};
    EXPECT_EQ(RArrIpSignedSquare(2, c), 0u);
    EXPECT_EQ(c[0], -9.0);
}

}  // namespace
