#include "nuv64/arrays/real_array_means.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arrays/plain_reductions.h"
#include "nuv64/arrays/real_power_sums.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_means.h"
#include "nuv64/numeric/real_special.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using samples::same;
using samples::sumOver;
using samples::Values;

double size(const Values& a) {
    return static_cast<double>(a.size());
}

bool hasZero(const Values& a) {
    return std::find(a.begin(), a.end(), 0.0) != a.end();
}

double plainMeanG(const Values& a, bool countSigns) {
    if (a.size() == 1) return a[0];
    if (a.size() == 2) return rMeanG(a[0], a[1]);
    if (hasZero(a)) return 0.0;
    const auto below = std::count_if(a.begin(), a.end(), [](double x) { return x < 0.0; });
    if (countSigns && below % 2 == 1) return kQuietNan;
    return rExp(sumOver(a, [](double x) { return rLog(std::fabs(x)); }) / size(a));
}

TEST(RealArrayMeans, OfEveryKind) {
    samples::expectEqualResults({
        {"RArrMeanA", RArrMeanA, [](const Values& a) { return samples::backwardSum(a) / size(a); }},
        {"RArrAbsMeanA", RArrAbsMeanA,
         [](const Values& a) { return RArrAbsSum(a.size(), a.data(), 1) / size(a); }},
        {"RArrMeanG", RArrMeanG, [](const Values& a) { return plainMeanG(a, true); }},
        {"RArrAbsMeanG", RArrAbsMeanG, [](const Values& a) { return plainMeanG(a, false); }},
        {"RArrMeanH", RArrMeanH,
         [](const Values& a) {
             if (hasZero(a)) return 0.0;
             return size(a) / sumOver(a, [](double x) { return 1.0 / x; });
         }},
        {"RArrAbsMeanH", RArrAbsMeanH,
         [](const Values& a) {
             if (hasZero(a)) return 0.0;
             return size(a) / sumOver(a, [](double x) { return 1.0 / std::fabs(x); });
         }},
        {"RArrMeanH2", RArrMeanH2,
         [](const Values& a) {
             if (hasZero(a)) return 0.0;
             const auto square = [](double x) { return (1.0 / x) * (1.0 / x); };
             return rSqrt(size(a) / sumOver(a, square));
         }},
        {"RArrMeanRms", RArrMeanRms,
         [](const Values& a) { return sumOver(a, [](double x) { return x * x; }) / size(a); }},
        {"RArrRms", RArrRms,
         [](const Values& a) {
             return rSqrt(sumOver(a, [](double x) { return x * x; }) / size(a));
         }},
        {"RArrMeanAGM", RArrMeanAGM,
         [](const Values& a) {
             const double g = RArrMeanG(a.size(), a.data());
             return rIsNAN(g) ? g : rMeanAGM(RArrMeanA(a.size(), a.data()), g);
         }},
    });
}

TEST(RealArrayMeans, ThatTakeAnExponent) {
    for (int k : {-3, -1, 0, 1, 2, 3, 5}) {
        const double p = k;
        samples::expectEqualResults(
            k == 3 ? samples::kLong : 1025,  // powers of a million elements take their time
            {
                {"RArrMeanHoelder", [p](auto n, auto* a) { return RArrMeanHoelder(n, a, p); },
                 [p](const Values& a) {
                     if (p == 0.0) return RArrMeanG(a.size(), a.data());
                     const double s = RArrAbsHoelderSum(a.size(), a.data(), p);
                     return rIsNAN(s) ? s : rPow(s / size(a), 1.0 / p);
                 }},
                {"RArrMeanHoelderI", [k](auto n, auto* a) { return RArrMeanHoelderI(n, a, k); },
                 [k, p](const Values& a) {
                     if (k == 0) return RArrMeanG(a.size(), a.data());
                     const double s = RArrHoelderSumI(a.size(), a.data(), k);
                     return rIsNAN(s) ? s : s / rPow(size(a), 1.0 / p);
                 }},
                {"RArrMeanLehmer", [p](auto n, auto* a) { return RArrMeanLehmer(n, a, p); },
                 [p](const Values& a) {
                     if (p == 0.0) return RArrMeanH(a.size(), a.data());
                     if (p == 1.0) return RArrMeanA(a.size(), a.data());
                     const double divisor = RArrAbsSumOfPowers(a.size(), a.data(), p - 1.0);
                     if (divisor == 0.0) return kQuietNan;
                     return RArrAbsSumOfPowers(a.size(), a.data(), p) / divisor;
                 }},
                {"RArrMeanLehmerI", [k](auto n, auto* a) { return RArrMeanLehmerI(n, a, k); },
                 [k](const Values& a) {
                     if (k == 0) return RArrMeanH(a.size(), a.data());
                     if (k == 1) return RArrMeanA(a.size(), a.data());
                     const double divisor = RArrSumOfPowersI(a.size(), a.data(), k - 1);
                     if (divisor == 0.0) return kQuietNan;
                     return RArrSumOfPowersI(a.size(), a.data(), k) / divisor;
                 }},
            });
    }
}

TEST(RealArrayMeans, KnownValues) {
    const double a[] = {3.0, 4.0};
    EXPECT_EQ(RArrMeanRms(2, a), 12.5);
    EXPECT_EQ(RArrRms(2, a), std::sqrt(12.5));
    const double twos[] = {2.0, 2.0};
    EXPECT_NEAR(RArrMeanHoelder(2, twos, 2.0), std::sqrt(2.0 * std::sqrt(2.0) / 2.0), 1e-14);
    EXPECT_NEAR(RArrMeanHoelderI(2, twos, 2), 2.0, 1e-14);
    const double b[] = {1.0, 2.0, 4.0};
    EXPECT_NEAR(RArrMeanG(3, b), 2.0, 1e-14);
    EXPECT_NEAR(RArrMeanH(3, b), 12.0 / 7.0, 1e-14);
    EXPECT_NEAR(RArrMeanLehmer(3, b, 2.0), 3.0, 1e-14);
    EXPECT_NEAR(RArrMeanLehmerI(3, b, 2), 3.0, 1e-14);
    EXPECT_NEAR(RArrMeanHoelderI(3, b, -1), 12.0 / 7.0, 1e-14);
    const double c[] = {2.0, 8.0, 4.0};
    EXPECT_NEAR(RArrMeanAGM(3, c), 4.3269111849097866, 1e-14);  // of 14/3 and 4
    const double mixed[] = {1.0, -2.0, 4.0};
    EXPECT_TRUE(std::isnan(RArrMeanG(3, mixed)));
    EXPECT_NEAR(RArrAbsMeanG(3, mixed), 2.0, 1e-14);
    EXPECT_TRUE(std::isnan(RArrAbsMeanG(2, mixed)));  // rMeanG of opposite signs
    EXPECT_EQ(RArrMeanG(1, mixed + 1), -2.0);
    EXPECT_EQ(RArrAbsMeanG(1, mixed + 1), -2.0);
    const double opposite[] = {1.0, -1.0};
    EXPECT_TRUE(std::isnan(RArrMeanLehmerI(2, opposite, 2)));  // the sum of powers 1 is zero
}

template <class Measure>
double plainVariance(const Values& a, double mean, Measure measure) {
    return sumOver(a, [&](double x) { return (measure(x) - mean) * (measure(x) - mean); }) /
           size(a);
}

TEST(RealArrayMeans, Variances) {
    samples::forEachArray([](const Values& a) {
        double mean = 7.0;
        const double meanA = RArrMeanA(a.size(), a.data());
        const double absMeanA = RArrAbsMeanA(a.size(), a.data());
        const double variance = plainVariance(a, meanA, [](double x) { return x; });
        EXPECT_TRUE(same(RArrVariance(a.size(), a.data(), &mean), variance));
        EXPECT_TRUE(same(mean, meanA));
        EXPECT_TRUE(same(RArrAbsVariance(a.size(), a.data(), &mean),
                         plainVariance(a, absMeanA, [](double x) { return std::fabs(x); })));
        EXPECT_TRUE(same(mean, absMeanA));
        if (a.size() >= 2) {
            EXPECT_TRUE(same(RArrStd(a.size(), a.data(), nullptr), rSqrt(variance)));
        }
    });
    const double a[] = {1.0, 2.0, 3.0, 4.0};
    double mean = 7.0;
    EXPECT_EQ(RArrVariance(4, a, &mean), 1.25);
    EXPECT_EQ(mean, 2.5);
    mean = 7.0;
    EXPECT_TRUE(std::isnan(RArrStd(1, a, &mean)));
    EXPECT_TRUE(std::isnan(RArrStd(0, a, &mean)));
    EXPECT_TRUE(std::isnan(RArrVariance(0, a, &mean)));
    EXPECT_TRUE(std::isnan(RArrAbsVariance(3, nullptr, &mean)));
    EXPECT_EQ(mean, 7.0);
}

TEST(RealArrayMeans, VariationsAddTheSteps) {
    const auto steps = [](const Values& a, auto term) {
        double sum = 0.0;
        for (std::size_t i = 1; i < a.size(); ++i) sum += term(a[i] - a[i - 1]);
        return sum;
    };
    samples::expectEqualResults({
        {"RArrVariation", RArrVariation,
         [&](const Values& a) { return steps(a, [](double x) { return std::fabs(x); }); }},
        {"RArrVariationPls", RArrVariationPls,
         [&](const Values& a) { return steps(a, [](double x) { return x > 0 ? x : 0; }); }},
        {"RArrVariationMns", RArrVariationMns,
         [&](const Values& a) { return steps(a, [](double x) { return x < 0 ? -x : 0; }); }},
    });
    const double a[] = {1.0, 4.0, 2.0};
    EXPECT_EQ(RArrVariation(3, a), 5.0);
    EXPECT_EQ(RArrVariationPls(3, a), 3.0);
    EXPECT_EQ(RArrVariationMns(3, a), 2.0);
    for (auto variation : {RArrVariation, RArrVariationPls, RArrVariationMns}) {
        EXPECT_EQ(variation(0, a), 0.0);
        EXPECT_EQ(variation(3, nullptr), 0.0);
    }
}

RArrStatisticsRec plainStatistics(const Values& a) {
    RArrStatisticsRec r{a[0], 0, a[0], 0, 0, 0, a[0], 0, 0, 0, a[0], a[0] * a[0], 0, 0};
    for (std::size_t i = 1; i < a.size(); ++i) {
        const double x = a[i];
        if (x > r.Max) {
            r.Max = x;
            r.MaxIndex = i;
        } else if (r.Min > x) {
            r.Min = x;
            r.MinIndex = i;
        }
        if (r.AbsMin > std::fabs(x)) {
            r.AbsMin = std::fabs(x);
            r.AbsMinIndex = i;
        }
        r.Mean += x;
        r.Rms += x * x;
        r.Variation += std::fabs(x - a[i - 1]);
    }
    r.AbsMax = std::fabs(r.Max);
    r.AbsMaxIndex = r.MaxIndex;
    if (std::fabs(r.Min) > r.AbsMax) {
        r.AbsMax = std::fabs(r.Min);
        r.AbsMaxIndex = r.MinIndex;
    }
    r.Range = r.Max - r.Min;
    r.AbsRange = r.AbsMax - r.AbsMin;
    r.Mean /= size(a);
    r.Rms = std::sqrt(r.Rms / size(a));
    r.RmsExcess = r.Rms - r.Mean * r.Mean;
    return r;
}

TEST(RealArrayMeans, Statistics) {
    samples::forEachArray([](const Values& a) {
        RArrStatisticsRec got{};
        ASSERT_EQ(RArrStatistics(a.size(), a.data(), &got), 0u);
        const RArrStatisticsRec wanted = plainStatistics(a);
        EXPECT_TRUE(same(got.Max, wanted.Max));
        EXPECT_EQ(got.MaxIndex, wanted.MaxIndex);
        EXPECT_TRUE(same(got.Min, wanted.Min));
        EXPECT_EQ(got.MinIndex, wanted.MinIndex);
        EXPECT_TRUE(same(got.AbsMax, wanted.AbsMax));
        EXPECT_EQ(got.AbsMaxIndex, wanted.AbsMaxIndex);
        EXPECT_TRUE(same(got.AbsMin, wanted.AbsMin));
        EXPECT_EQ(got.AbsMinIndex, wanted.AbsMinIndex);
        EXPECT_TRUE(same(got.Range, wanted.Range));
        EXPECT_TRUE(same(got.AbsRange, wanted.AbsRange));
        EXPECT_TRUE(same(got.Mean, wanted.Mean));
        EXPECT_TRUE(same(got.Rms, wanted.Rms));
        EXPECT_TRUE(same(got.RmsExcess, wanted.RmsExcess));
        EXPECT_TRUE(same(got.Variation, wanted.Variation));
    });
    const double a[] = {-3.0, 4.0, 1.0};
    RArrStatisticsRec record{};
    EXPECT_EQ(RArrStatistics(3, a, &record), 0u);
    EXPECT_EQ(record.AbsMin, -3.0);  // the first element, signed, stays for good
    EXPECT_EQ(record.AbsMinIndex, 0u);
    EXPECT_EQ(record.RmsExcess, record.Rms - record.Mean * record.Mean);
    record.Max = 7.0;
    EXPECT_EQ(RArrStatistics(0, a, &record), 14u);
    EXPECT_EQ(RArrStatistics(3, nullptr, &record), 14u);
    EXPECT_EQ(RArrStatistics(0, a, nullptr), 14u);
    EXPECT_EQ(RArrStatistics(3, a, nullptr), 18u);
    EXPECT_EQ(record.Max, 7.0);
}

TEST(RealArrayMeans, WithoutAnArrayThereIsNoResult) {
    const double a[] = {1.0, 2.0};
    for (auto mean : {RArrMeanA, RArrAbsMeanA, RArrMeanG, RArrAbsMeanG, RArrMeanH, RArrAbsMeanH,
                      RArrMeanH2, RArrMeanRms, RArrRms}) {
        EXPECT_TRUE(std::isnan(mean(0, a)));
        EXPECT_TRUE(std::isnan(mean(2, nullptr)));
    }
    EXPECT_EQ(RArrMeanAGM(0, a), 0.0);
    EXPECT_EQ(RArrMeanAGM(2, nullptr), 0.0);
    for (double p : {0.0, 1.0, 2.0}) {
        EXPECT_TRUE(std::isnan(RArrMeanHoelder(0, a, p)));
        EXPECT_TRUE(std::isnan(RArrMeanLehmer(2, nullptr, p)));
        EXPECT_TRUE(std::isnan(RArrMeanHoelderI(2, nullptr, static_cast<int64_t>(p))));
        EXPECT_TRUE(std::isnan(RArrMeanLehmerI(0, a, static_cast<int64_t>(p))));
    }
    EXPECT_EQ(RArrMeanLehmerI(2, a, INT64_MIN), 1.0);
}

}  // namespace
