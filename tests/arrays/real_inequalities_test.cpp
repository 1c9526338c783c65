#include "nuv64/arrays/real_inequalities.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arrays/plain_reductions.h"
#include "nuv64/arrays/real_power_sums.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/numeric/real_bounded.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using samples::same;
using samples::Values;

void expectFormulas(const Values& va, const Values& vb) {
    const std::uint64_t n = va.size();
    const double* a = va.data();
    const double* b = vb.data();
    const double size = static_cast<double>(n);
    const double sorted = RArrSortedDotProduct(n, a, b);
    const double absSorted = RArrAbsSortedDotProduct(n, a, b);
    for (int32_t k : {1, 2, 3, -1}) {
        const double product = RArrSumOfPowersI(n, a, k) * RArrSumOfPowersI(n, b, k);
        EXPECT_TRUE(
            same(RArrIneqCauchy(n, a, b, k), product - riPower(RArrDotProduct(n, a, b), k)));
        EXPECT_TRUE(
            same(RArrIneqAbsCauchy(n, a, b, k), product - riPower(RArrAbsDotProduct(n, a, b), k)));
        EXPECT_TRUE(same(RArrIneqAbsSortedCauchy(n, a, b, k), product - riPower(absSorted, k)));
    }
    EXPECT_TRUE(same(RArrIneqChebyshev(n, a, b),
                     size * sorted - samples::backwardSum(va) * samples::backwardSum(vb)));
    EXPECT_TRUE(same(RArrIneqAbsChebyshev(n, a, b),
                     size * absSorted - RArrAbsSum(n, a, 1) * RArrAbsSum(n, b, 1)));
    for (double p : {1.5, 2.0, 4.0}) {
        const double norms = RArrAbsHoelderSum(n, a, p) * RArrAbsHoelderSum(n, b, p / (p - 1.0));
        EXPECT_TRUE(same(RArrIneqAbsHoelder(n, a, b, p), norms - RArrAbsDotProduct(n, a, b)));
        EXPECT_TRUE(same(RArrIneqAbsSortedHoelder(n, a, b, p), norms - absSorted));
        EXPECT_TRUE(same(RArrIneqAbsMinkowski(n, a, b, p), RArrAbsHoelderSum(n, a, p) +
                                                               RArrAbsHoelderSum(n, b, p) -
                                                               RArrAbsMinkowskiSum(n, a, b, p)));
    }
    const double magnitude = std::fabs(samples::backwardSum(va));
    EXPECT_TRUE(same(RArrIneqTriangle(n, a), RArrAbsSum(n, a, 1) - magnitude));
    EXPECT_TRUE(same(RArrIneqRatioTriangle(n, a), rSafeDiv(magnitude, RArrAbsSum(n, a, 1))));
}

TEST(RealInequalities, AreTheirFormulas) {
    for (std::uint64_t n : samples::lengths()) {
        expectFormulas(samples::random(n, 12), samples::random(n, 13));
        if (n > 1025) continue;
        expectFormulas(samples::rough(n, 12), samples::random(n, 13));
        expectFormulas(Values(n, -2.5), samples::random(n, 13));
    }
}

TEST(RealInequalities, OfAMillionElements) {
    const Values va = samples::random(samples::kLong, 12);
    const Values vb = samples::random(samples::kLong, 13);
    const std::uint64_t n = va.size();
    const double* a = va.data();
    const double* b = vb.data();
    EXPECT_EQ(RArrIneqCauchy(n, a, b, 2), RArrSumOfPowersI(n, a, 2) * RArrSumOfPowersI(n, b, 2) -
                                              riPower(RArrDotProduct(n, a, b), 2));
    EXPECT_EQ(
        RArrIneqAbsHoelder(n, a, b, 3.0),
        RArrAbsHoelderSum(n, a, 3.0) * RArrAbsHoelderSum(n, b, 1.5) - RArrAbsDotProduct(n, a, b));
    EXPECT_EQ(RArrIneqTriangle(n, a), RArrAbsSum(n, a, 1) - std::fabs(samples::backwardSum(va)));
    // Both sorted: the sum of the squares.
    EXPECT_NEAR(
        RArrIneqChebyshev(n, a, a),
        1e6 * RArrSumOfPowersI(n, a, 2) - samples::backwardSum(va) * samples::backwardSum(va), 1e3);
}

TEST(RealInequalities, HoldForPositiveArrays) {
    for (std::uint64_t n = 2; n <= 70; ++n) {
        Values a = samples::random(n, 14);
        Values b = samples::random(n, 15);
        for (double& x : a) x = std::fabs(x);
        for (double& x : b) x = std::fabs(x);
        const double slack = 1e-10 * static_cast<double>(n * n);
        EXPECT_GE(RArrIneqCauchy(n, a.data(), b.data(), 2), -slack * 1e4);
        EXPECT_GE(RArrIneqAbsSortedCauchy(n, a.data(), b.data(), 2), -slack * 1e4);
        EXPECT_GE(RArrIneqChebyshev(n, a.data(), b.data()), -slack);
        EXPECT_GE(RArrIneqAbsHoelder(n, a.data(), b.data(), 3.0), -slack);
        EXPECT_GE(RArrIneqAbsSortedHoelder(n, a.data(), b.data(), 3.0), -slack);
        EXPECT_GE(RArrIneqAbsMinkowski(n, a.data(), b.data(), 3.0), -slack);
        EXPECT_NEAR(RArrIneqTriangle(n, a.data()), 0.0, slack);
        EXPECT_NEAR(RArrIneqRatioTriangle(n, a.data()), 1.0, slack);
    }
}

TEST(RealInequalities, WithoutArraysOrOutsideTheExponents) {
    const double a[] = {1.0, 2.0};
    for (auto residue : {RArrIneqCauchy, RArrIneqAbsCauchy, RArrIneqAbsSortedCauchy}) {
        EXPECT_TRUE(std::isnan(residue(0, a, a, 2)));
        EXPECT_TRUE(std::isnan(residue(2, nullptr, a, 0)));
        EXPECT_TRUE(std::isnan(residue(2, a, nullptr, 0)));
    }
    for (auto residue : {RArrIneqChebyshev, RArrIneqAbsChebyshev}) {
        EXPECT_TRUE(std::isnan(residue(0, a, a)));
        EXPECT_TRUE(std::isnan(residue(2, nullptr, a)));
        EXPECT_TRUE(std::isnan(residue(2, a, nullptr)));
    }
    for (auto residue : {RArrIneqAbsHoelder, RArrIneqAbsSortedHoelder, RArrIneqAbsMinkowski}) {
        EXPECT_TRUE(std::isnan(residue(0, a, a, 2.0)));
        EXPECT_TRUE(std::isnan(residue(2, nullptr, a, 2.0)));
        EXPECT_TRUE(std::isnan(residue(2, a, nullptr, 2.0)));
    }
    for (double p : {1.0, 0.5, 0.0, -2.0}) {
        EXPECT_TRUE(std::isnan(RArrIneqAbsHoelder(2, a, a, p)));
        EXPECT_TRUE(std::isnan(RArrIneqAbsSortedHoelder(2, a, a, p)));
    }
    EXPECT_TRUE(std::isnan(RArrIneqAbsMinkowski(2, a, a, 0.0)));
    EXPECT_TRUE(std::isnan(RArrIneqTriangle(0, a)));
    EXPECT_TRUE(std::isnan(RArrIneqTriangle(2, nullptr)));
    EXPECT_TRUE(std::isnan(RArrIneqRatioTriangle(0, a)));
    EXPECT_TRUE(std::isnan(RArrIneqRatioTriangle(2, nullptr)));
}

}  // namespace
