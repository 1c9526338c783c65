#include "nuv64/arrays/real_power_sums.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arrays/plain_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using samples::kQuietNan;
using samples::Values;

constexpr std::uint64_t kShort = 1025;  // powers of a million elements take their time:
// all lengths for one exponent only.
std::uint64_t longestFor(bool chosen) {
    return chosen ? samples::kLong : kShort;
}

constexpr int64_t kExponents[] = {0, 1, 2, 3, 4, 5, 17, 64, 1000, -1, -2, -3, -31};

TEST(RealPowerSums, AddThePowersInOrder) {
    for (int64_t k : kExponents) {
        SCOPED_TRACE(k);
        samples::expectEqualResults(
            longestFor(k == 3),
            {
                {"RArrSumOfPowersI", [k](auto n, auto* a) { return RArrSumOfPowersI(n, a, k); },
                 [k](const Values& a) {
                     if (k == 1) return samples::backwardSum(a);
                     return samples::sumOver(a, [k](double x) { return riPower(x, k); });
                 }},
                {"RArrAbsSumOfPowersI",
                 [k](auto n, auto* a) { return RArrAbsSumOfPowersI(n, a, k); },
                 [k](const Values& a) {
                     return samples::sumOver(a, [k](double x) { return riAbsPower(x, k); });
                 }},
                {"RArrSumOfSignedPowersI",
                 [k](auto n, auto* a) { return RArrSumOfSignedPowersI(n, a, k); },
                 [k](const Values& a) {
                     return samples::sumOver(a, [k](double x) { return riSignedPower(x, k); });
                 }},
            });
    }
}

TEST(RealPowerSums, PowersToRealExponents) {
    for (double p : {0.5, 1.0, 2.5, -1.5}) {
        samples::expectEqualResults(
            longestFor(p == 2.5),
            {
                {"RArrAbsSumOfPowers", [p](auto n, auto* a) { return RArrAbsSumOfPowers(n, a, p); },
                 [p](const Values& a) {
                     double sum = 0.0;
                     for (double x : a) {
                         if (rPow(x, p) == ___MaxReal) return ___MaxReal;
                         sum += rPow(x, p);
                     }
                     return sum;
                 }},
                {"RArrSumOfSignedPowers",
                 [p](auto n, auto* a) { return RArrSumOfSignedPowers(n, a, p); },
                 [](const Values&) { return 0.0; }},
            });
    }
    const double huge[] = {1.0, 1e300, 1.0};
    EXPECT_EQ(RArrAbsSumOfPowers(3, huge, 3.0), ___MaxReal);
}

// The definition, scaled; power and root tell the forms apart.
double plainHoelder(const Values& a, double exponent, const std::function<double(double)>& power,
                    const std::function<double(double, double)>& root) {
    if (exponent == 0.0) return kQuietNan;
    double largest = 0.0;
    double smallest = ___MaxReal;
    for (double x : a) {
        if (std::fabs(x) > largest) largest = std::fabs(x);
        if (smallest > std::fabs(x)) smallest = std::fabs(x);
    }
    if (largest == 0.0 || (smallest == 0.0 && exponent < 0.0)) return 0.0;
    double sum = 0.0;
    for (double x : a) sum += power(x / largest);
    return largest * root(sum, 1.0 / exponent);
}

TEST(RealPowerSums, HoelderSums) {
    for (int64_t k : kExponents) {
        SCOPED_TRACE(k);
        const double e = static_cast<double>(k);
        const auto real = [e](double x) { return rPow(x, e); };
        const auto plain = [k](double x) { return riPower(x, k); };
        const auto absolute = [k](double x) { return riAbsPower(x, k); };
        const auto withSign = [k](double x) { return riSignedPower(x, k); };
        samples::expectEqualResults(
            longestFor(k == 3),
            {
                {"RArrAbsHoelderSum", [e](auto n, auto* a) { return RArrAbsHoelderSum(n, a, e); },
                 [&](const Values& a) { return plainHoelder(a, e, real, rPow); }},
                {"RArrHoelderSumI", [k](auto n, auto* a) { return RArrHoelderSumI(n, a, k); },
                 [&](const Values& a) { return plainHoelder(a, e, plain, rPow); }},
                {"RArrAbsHoelderSumI", [k](auto n, auto* a) { return RArrAbsHoelderSumI(n, a, k); },
                 [&](const Values& a) { return plainHoelder(a, e, absolute, rPow); }},
                {"RArrSignedHoelderSumI",
                 [k](auto n, auto* a) { return RArrSignedHoelderSumI(n, a, k); },
                 [&](const Values& a) { return plainHoelder(a, e, withSign, rSignedPower); }},
            });
    }
}

TEST(RealPowerSums, HoelderSumsAreNorms) {
    const double a[] = {3.0, -4.0};
    EXPECT_NEAR(RArrAbsHoelderSum(2, a, 2.0), 5.0, 1e-14);
    EXPECT_NEAR(RArrAbsHoelderSumI(2, a, 2), 5.0, 1e-14);
    EXPECT_NEAR(RArrAbsHoelderSumI(2, a, 1), 7.0, 1e-14);
    EXPECT_NEAR(RArrSignedHoelderSumI(2, a, 1), -1.0, 1e-14);
    const double large[] = {3e200, 4e200};
    EXPECT_NEAR(RArrAbsHoelderSumI(2, large, 2) / 5e200, 1.0, 1e-14);
    const double zeros[] = {0.0, 0.0};
    EXPECT_EQ(RArrAbsHoelderSum(2, zeros, 2.0), 0.0);
    const double mixed[] = {0.0, 1.0};
    EXPECT_EQ(RArrHoelderSumI(2, mixed, -1), 0.0);
    const double broken[] = {kQuietNan, 1.0};
    EXPECT_TRUE(std::isnan(RArrHoelderSumI(2, broken, 3)));
    EXPECT_EQ(RArrAbsHoelderSumI(1, broken, 3), 0.0);  // no magnitude is found
}

TEST(RealPowerSums, MinkowskiSumIsTheNormOfTheSumOfMagnitudes) {
    const auto compare = [](const Values& a, const Values& b) {
        const std::uint64_t n = a.size();
        Values c(n);
        for (std::size_t i = 0; i < n; ++i) c[i] = std::fabs(a[i]) + std::fabs(b[i]);
        for (double p : {2.0, 0.5, 1.0, 3.5, -2.0, 0.0}) {
            if (n == samples::kLong && p != 2.0) continue;
            EXPECT_TRUE(samples::same(RArrAbsMinkowskiSum(n, a.data(), b.data(), p),
                                      RArrAbsHoelderSum(n, c.data(), p)));
        }
    };
    for (std::uint64_t n : samples::allLengths()) {
        compare(samples::random(n, 5), samples::random(n, 6));
        compare(samples::rough(n, 5), samples::random(n, 6));
    }
}

TEST(RealPowerSums, WithoutAnArrayThereIsNoResult) {
    const double a[] = {1.0, 2.0};
    for (auto sum : {RArrSumOfPowersI, RArrAbsSumOfPowersI, RArrSumOfSignedPowersI, RArrHoelderSumI,
                     RArrAbsHoelderSumI, RArrSignedHoelderSumI}) {
        EXPECT_TRUE(std::isnan(sum(0, a, 2)));
        EXPECT_TRUE(std::isnan(sum(2, nullptr, 0)));
    }
    for (auto sum : {RArrAbsSumOfPowers, RArrSumOfSignedPowers, RArrAbsHoelderSum}) {
        EXPECT_TRUE(std::isnan(sum(0, a, 2.0)));
        EXPECT_TRUE(std::isnan(sum(2, nullptr, 2.0)));
    }
    EXPECT_TRUE(std::isnan(RArrAbsMinkowskiSum(0, a, a, 2.0)));
    EXPECT_TRUE(std::isnan(RArrAbsMinkowskiSum(2, a, nullptr, 2.0)));
    EXPECT_TRUE(std::isnan(RArrAbsMinkowskiSum(2, nullptr, a, 2.0)));
    EXPECT_EQ(RArrSumOfPowersI(2, a, INT64_MIN), 1.0);
}

}  // namespace
