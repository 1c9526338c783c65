#include "nuv64/arrays/real_reductions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrays/plain_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using samples::forEachArray;
using samples::kInf;
using samples::kQuietNan;
using samples::same;
using samples::Values;

double plainAbsSumBackward(const Values& a) {
    Values padded = a;
    padded.push_back(0.0);  // nothing negative above the last element
    double sum = 0.0;
    for (std::size_t i = a.size(); i > 0; --i) {
        if (padded[i] < 0.0) {
            sum -= a[i - 1];
        } else {
            sum += a[i - 1];
        }
    }
    return sum;
}

TEST(RealReductions, SumsAndProductsGoInTheirOrder) {
    samples::expectEqualResults({
        {"RArrAbsSum forward", [](auto n, auto* a) { return RArrAbsSum(n, a, 0); },
         [](const Values& a) {
             return samples::sumOver(a, [](double x) { return std::fabs(x); });
         }},
        {"RArrAbsSum backward", [](auto n, auto* a) { return RArrAbsSum(n, a, 1); },
         plainAbsSumBackward},
        {"RArrSkipSum 1", [](auto n, auto* a) { return RArrSkipSum(n, a, 1); },
         [](const Values& a) { return samples::sumOver(a, [](double x) { return x; }); }},
        {"RArrSkipSum 3", [](auto n, auto* a) { return RArrSkipSum(n, a, 3); },
         [](const Values& a) {
             double sum = 0.0;
             for (std::size_t i = 0; i < a.size(); i += 3) sum += a[i];
             return sum;
         }},
        {"RArrProduct", RArrProduct,
         [](const Values& a) {
             double product = 1.0;
             for (double x : a) product *= x;
             return product;
         }},
        {"RArrAbsProduct", RArrAbsProduct,
         [](const Values& a) {
             double product = 1.0;
             for (double x : a) product *= std::fabs(x);
             return product;
         }},
        {"RArrAbsProductLn", [](auto n, auto* a) { return RArrAbsProductLn(n, a, nullptr); },
         [](const Values& a) {
             double sum = 0.0;
             for (std::size_t i = 1; i < a.size(); ++i) {
                 if (a[i] == 0.0) return -kInf;
                 sum += rLog(std::fabs(a[i]));
             }
             return sum;
         }},
    });
}

TEST(RealReductions, SumOfMagnitudesBackwardTakesTheSignAbove) {
    const double a[] = {1.0, -2.0, 3.0};
    EXPECT_EQ(RArrAbsSum(3, a, 1), 0.0);
    EXPECT_EQ(RArrAbsSum(3, a, 0), 6.0);
    const double negative[] = {-1.0, -2.0};
    EXPECT_EQ(RArrAbsSum(2, negative, 1), -1.0);
    EXPECT_EQ(RArrAbsSum(1, negative, 1), -1.0);
    EXPECT_EQ(RArrAbsSum(1, negative, 0), 1.0);
}

TEST(RealReductions, SkipSumAtTheLimits) {
    const double a[] = {1.0, 2.0, 3.0};
    EXPECT_EQ(RArrSkipSum(3, a, UINT64_MAX), 1.0);
    EXPECT_EQ(RArrSkipSum(3, a, 2), 4.0);
    EXPECT_TRUE(std::isnan(RArrSkipSum(3, a, 0)));
}

TEST(RealReductions, LogarithmOfTheProductLeavesTheFirstElementOut) {
    int64_t sign = 7;
    const double a[] = {0.0, 2.0};
    EXPECT_DOUBLE_EQ(RArrAbsProductLn(2, a, &sign), std::log(2.0));
    EXPECT_EQ(sign, 1);
    const double b[] = {-1.0, -2.0, 4.0};
    EXPECT_DOUBLE_EQ(RArrAbsProductLn(3, b, &sign), std::log(8.0));
    EXPECT_EQ(sign, -1);
    const double c[] = {1.0, -2.0, 0.0};
    EXPECT_EQ(RArrAbsProductLn(3, c, &sign), -kInf);
    EXPECT_EQ(sign, 0);
    EXPECT_EQ(RArrAbsProductLn(1, c, &sign), 0.0);
    EXPECT_EQ(sign, 1);
    sign = 7;
    EXPECT_EQ(RArrAbsProductLn(0, c, &sign), 0.0);
    EXPECT_EQ(RArrAbsProductLn(2, nullptr, &sign), 0.0);
    EXPECT_EQ(sign, 7);
}

// The place of the first element that no other one beats by a strict comparison; a not-a-number
// stays only in the first place.
template <class Measure, class Beats>
std::size_t plainPlace(const Values& a, Measure measure, Beats beats) {
    std::size_t best = 0;
    for (std::size_t i = 1; i < a.size(); ++i) {
        if (beats(measure(a[i]), measure(a[best]))) best = i;
    }
    return best;
}

TEST(RealReductions, ExtremesAreTheFirstOfTheirValue) {
    const auto asIs = [](double x) { return x; };
    const auto magnitude = [](double x) { return std::fabs(x); };
    const std::greater<> above;
    const std::less<> below;
    forEachArray([&](const Values& a) {
        const std::uint64_t n = a.size();
        uint64_t i = 7;
        uint64_t j = 7;
        const std::size_t high = plainPlace(a, asIs, above);
        const std::size_t low = plainPlace(a, asIs, below);
        const std::size_t large = plainPlace(a, magnitude, above);
        const std::size_t small = plainPlace(a, magnitude, below);
        EXPECT_TRUE(same(RArrMax(n, a.data(), &i), a[high]));
        EXPECT_EQ(i, high);
        EXPECT_TRUE(same(RArrMin(n, a.data(), &i), a[low]));
        EXPECT_EQ(i, low);
        EXPECT_TRUE(same(RArrAbsMax(n, a.data(), &i), std::fabs(a[large])));
        EXPECT_EQ(i, large);
        EXPECT_TRUE(same(RArrAbsMin(n, a.data(), &i), std::fabs(a[small])));
        EXPECT_EQ(i, small);
        EXPECT_TRUE(same(RArrRangeMinMax(n, a.data(), &i, &j), a[high] - a[low]));
        EXPECT_EQ(i, low);
        EXPECT_EQ(j, high);
        EXPECT_TRUE(same(RArrRangeAbsMinMax(n, a.data(), &i, &j),
                         std::fabs(a[large]) - std::fabs(a[small])));
        EXPECT_EQ(i, small);
        EXPECT_EQ(j, large);
        const std::size_t extreme = std::fabs(a[low]) > std::fabs(a[high]) ? low : high;
        EXPECT_TRUE(same(RArrExtreme(n, a.data(), &i), a[extreme]));
        EXPECT_EQ(i, extreme);
        EXPECT_TRUE(same(RArrAbsExtreme(n, a.data(), &i), std::fabs(a[extreme])));
        EXPECT_EQ(i, extreme);
        EXPECT_TRUE(same(RArrAbsNecklaceExcess(n, a.data()),
                         2.0 * std::fabs(a[extreme]) - plainAbsSumBackward(a)));
    });
}

TEST(RealReductions, ExtremesAreFoundAtEveryPlace) {
    for (std::uint64_t n : {1, 2, 7, 8, 9, 1023, 1024, 1025, 2050}) {
        for (std::uint64_t place = 0; place<n; place += n> 100 ? 31 : 1) {
            Values a(n, -1.0);
            a[place] = 2.0;
            uint64_t i = 7;
            EXPECT_EQ(RArrMax(n, a.data(), &i), 2.0);
            EXPECT_EQ(i, place);
            a[place] = -3.0;
            EXPECT_EQ(RArrMin(n, a.data(), &i), -3.0);
            EXPECT_EQ(i, place);
            EXPECT_EQ(RArrExtreme(n, a.data(), &i), -3.0);
            EXPECT_EQ(i, place);
        }
    }
}

TEST(RealReductions, ZerosOfEitherSignAreEqual) {
    const double a[] = {-1.0, -0.0, 0.0};
    uint64_t i = 7;
    EXPECT_TRUE(std::signbit(RArrMax(3, a, &i)));
    EXPECT_EQ(i, 1u);
    const double b[] = {0.0, -0.0};
    EXPECT_FALSE(std::signbit(RArrMin(2, b, &i)));
    EXPECT_EQ(i, 0u);
}

TEST(RealReductions, ExtremeOfEqualMagnitudesIsTheMaximum) {
    const double a[] = {-3.0, 1.0, 3.0};
    uint64_t i = 7;
    EXPECT_EQ(RArrExtreme(3, a, &i), 3.0);
    EXPECT_EQ(i, 2u);
}

double plainSortedDot(Values a, Values b) {
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
    return sum;
}

void expectPlainDots(const Values& a, const Values& b) {
    double sum = 0.0;
    double magnitudes = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += a[i] * b[i];
        magnitudes += std::fabs(a[i] * b[i]);
    }
    EXPECT_TRUE(same(RArrDotProduct(a.size(), a.data(), b.data()), sum));
    EXPECT_TRUE(same(RArrAbsDotProduct(a.size(), a.data(), b.data()), magnitudes));
}

TEST(RealReductions, DotProducts) {
    for (std::uint64_t n : samples::allLengths()) {
        const Values a = samples::random(n, 3);
        const Values b = samples::random(n, 4);
        expectPlainDots(a, b);
        expectPlainDots(samples::rough(n, 3), b);
        if (n == samples::kLong) continue;  // sorts take their time
        EXPECT_EQ(RArrSortedDotProduct(n, a.data(), b.data()), plainSortedDot(a, b));
        Values c = a;
        Values d = b;
        for (double& x : c) x = std::fabs(x);
        for (double& x : d) x = std::fabs(x);
        const double sorted = RArrAbsSortedDotProduct(n, a.data(), b.data());
        if (n == 1) {
            EXPECT_TRUE(std::isnan(sorted));
        } else {
            EXPECT_EQ(sorted, plainSortedDot(c, d));
        }
    }
    const double one = 2.0;
    EXPECT_EQ(RArrSortedDotProduct(1, &one, &one), 4.0);
    const double broken[] = {1.0, kQuietNan, 3.0};
    EXPECT_TRUE(std::isnan(RArrSortedDotProduct(3, broken, broken)));
}

TEST(RealReductions, WithoutAnArrayThereIsNoResult) {
    const double a[] = {1.0, 2.0};
    uint64_t i = 7;
    uint64_t j = 7;
    for (auto reduce : {RArrMax, RArrMin, RArrAbsMax, RArrAbsMin, RArrExtreme, RArrAbsExtreme}) {
        i = 7;
        EXPECT_TRUE(std::isnan(reduce(0, a, &i)));
        EXPECT_EQ(i, UINT64_MAX);
        i = 7;
        EXPECT_TRUE(std::isnan(reduce(2, nullptr, &i)));
        EXPECT_EQ(i, UINT64_MAX);
        EXPECT_FALSE(std::isnan(reduce(2, a, nullptr)));
    }
    for (auto reduce : {RArrRangeMinMax, RArrRangeAbsMinMax}) {
        i = j = 7;
        EXPECT_TRUE(std::isnan(reduce(0, a, &i, &j)));
        EXPECT_EQ(i, UINT64_MAX);
        EXPECT_EQ(j, UINT64_MAX);
        EXPECT_TRUE(std::isnan(reduce(2, nullptr, nullptr, nullptr)));
        EXPECT_EQ(reduce(2, a, nullptr, nullptr), 1.0);
    }
    for (uint8_t backward : {uint8_t{0}, uint8_t{1}}) {
        EXPECT_TRUE(std::isnan(RArrAbsSum(0, a, backward)));
        EXPECT_TRUE(std::isnan(RArrAbsSum(2, nullptr, backward)));
    }
    EXPECT_TRUE(std::isnan(RArrSkipSum(0, a, 1)));
    EXPECT_TRUE(std::isnan(RArrSkipSum(2, nullptr, 1)));
    EXPECT_TRUE(std::isnan(RArrAbsNecklaceExcess(0, a)));
    EXPECT_EQ(RArrProduct(0, a), 1.0);
    EXPECT_EQ(RArrProduct(2, nullptr), 1.0);
    EXPECT_EQ(RArrAbsProduct(2, nullptr), 1.0);
    for (auto dot :
         {RArrDotProduct, RArrAbsDotProduct, RArrSortedDotProduct, RArrAbsSortedDotProduct}) {
        EXPECT_EQ(dot(0, nullptr, nullptr), 0.0);
        EXPECT_TRUE(std::isnan(dot(2, nullptr, a)));
        EXPECT_TRUE(std::isnan(dot(2, a, nullptr)));
    }
    EXPECT_TRUE(std::isnan(RArrSortedDotProduct(UINT64_MAX, a, a)));  // no such memory
}

}  // namespace
