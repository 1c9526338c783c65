#include "nuv64/arrays/real_counts.h"

#include <gtest/gtest.h>

#include <bit>

#include <algorithm>

#include "arrays/plain_reductions.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using samples::Values;

std::uint64_t plainCount(const Values& a, const std::function<bool(double)>& counts) {
    return static_cast<std::uint64_t>(std::count_if(a.begin(), a.end(), counts));
}

TEST(RealCounts, OfElements) {
    samples::forEachArray([](const Values& a) {
        const std::uint64_t n = a.size();
        for (double level : {-20.0, -2.5, 0.0, 3.0, 20.0, kInf}) {
            EXPECT_EQ(RArrAboveCount(n, a.data(), level),
                      plainCount(a, [&](double x) { return x > level; }));
            EXPECT_EQ(RArrBelowCount(n, a.data(), level),
                      plainCount(a, [&](double x) { return x < level; }));
            EXPECT_EQ(RArrValueCount(n, a.data(), level, 1.5),
                      plainCount(a, [&](double x) { return std::fabs(x - level) <= 1.5; }));
        }
        for (const auto& band : {std::pair{-1.0, 4.0}, {4.0, -1.0}, {0.0, 0.0}}) {
            const double low = band.first;
            const double high = band.second;
            uint64_t above = 7;
            uint64_t below = 7;
            const uint64_t inside = RArrBandCount(n, a.data(), low, high, &above, &below);
            EXPECT_EQ(above, plainCount(a, [&](double x) { return x > high; }));
            EXPECT_EQ(below, plainCount(a, [&](double x) { return !(x > high) && low > x; }));
            EXPECT_EQ(inside, n - above - below);
            EXPECT_EQ(RArrBandCount(n, a.data(), low, high, nullptr, nullptr), inside);
        }
    });
}

TEST(RealCounts, OfCrossings) {
    samples::forEachArray([](const Values& a) {
        uint64_t down = 7;
        uint64_t up = 7;
        uint64_t falls = 0;
        uint64_t rises = 0;
        for (std::size_t i = 1; i < a.size(); ++i) {
            if (1.0 > a[i] && !(1.0 > a[i - 1])) ++falls;
            if (!(1.0 > a[i]) && 1.0 > a[i - 1]) ++rises;
        }
        EXPECT_EQ(RArrSignInversionsCount(a.size(), a.data(), 1.0, &down, &up), falls + rises);
        EXPECT_EQ(down, falls);
        EXPECT_EQ(up, rises);
    });
    const double a[] = {1.0, 0.0, -1.0, 0.0};
    uint64_t down = 7;
    uint64_t up = 7;
    EXPECT_EQ(RArrSignInversionsCount(4, a, 0.0, &down, &up), 2u);
    EXPECT_EQ(down, 1u);
    EXPECT_EQ(up, 1u);
    EXPECT_EQ(RArrSignInversionsCount(4, a, 0.0, nullptr, nullptr), 2u);
    EXPECT_EQ(RArrSignInversionsCount(1, a, 0.0, &down, &up), 0u);
    EXPECT_EQ(down + up, 0u);
    down = up = 7;
    EXPECT_EQ(RArrSignInversionsCount(4, nullptr, 0.0, &down, &up), 0u);
    EXPECT_EQ(down + up, 0u);
}

TEST(RealCounts, OfGroups) {
    samples::forEachArray(
        [](const Values& a) {
            for (double gap : {0.0, 0.01, -0.3, 2.0, 100.0, kInf}) {
                uint64_t groups = 0;
                for (std::size_t i = 0; i < a.size(); ++i) {
                    bool isNear = false;
                    for (std::size_t k = 0; k < i; ++k) {
                        isNear = isNear || std::fabs(a[i] - a[k]) < std::fabs(gap);
                    }
                    if (!isNear) ++groups;
                }
                EXPECT_EQ(RArrChainedGroupsCount(a.size(), a.data(), gap), groups)
                    << a.size() << ' ' << gap;
            }
        },
        1025);
    const Values many = samples::random(1000000);
    EXPECT_LE(RArrChainedGroupsCount(many.size(), many.data(), 0.1), 201u);
    EXPECT_EQ(RArrChainedGroupsCount(many.size(), many.data(), 0.0), many.size());
    EXPECT_EQ(RArrChainedGroupsCount(100, many.data(), kQuietNan), 100u);
}

TEST(RealCounts, ValuePresent) {
    const double a[] = {1.0, 5.0, 5.25, kQuietNan};
    uint64_t i = 7;
    EXPECT_TRUE(RArrIsValuePresent(4, a, 5.5, 0.25, &i));
    EXPECT_EQ(i, 2u);
    EXPECT_TRUE(RArrIsValuePresent(4, a, 5.5, 0.5, nullptr));
    EXPECT_FALSE(RArrIsValuePresent(3, a, 9.0, 0.5, &i));
    EXPECT_EQ(i, UINT64_MAX);
    EXPECT_TRUE(RArrIsValuePresent(4, a, 9.0, 0.5, &i));  // a not-a-number differs from nothing
    EXPECT_EQ(i, 3u);
    EXPECT_FALSE(RArrIsValuePresent(0, a, 1.0, 0.5, &i));
    EXPECT_EQ(i, UINT64_MAX);
    i = 7;
    EXPECT_FALSE(RArrIsValuePresent(4, nullptr, 1.0, 0.5, &i));
    EXPECT_EQ(i, UINT64_MAX);
}

TEST(RealCounts, MonotonyIsThatOfTheWords) {
    samples::forEachArray([](const Values& a) {
        for (uint8_t strict : {uint8_t{0}, uint8_t{1}, uint8_t{200}}) {
            uint64_t place = UINT64_MAX;
            uint64_t fall = UINT64_MAX;
            for (std::size_t i = a.size() - 1; i > 0; --i) {
                const auto x = std::bit_cast<std::uint64_t>(a[i - 1]);
                const auto y = std::bit_cast<std::uint64_t>(a[i]);
                if (x > y || (strict && x == y)) place = i;
                if (x < y || (strict && x == y)) fall = i;
            }
            uint64_t i = 7;
            const bool two = a.size() > 1;
            EXPECT_EQ(RArrIsIncreasing(a.size(), a.data(), strict, &i), two && place == UINT64_MAX);
            EXPECT_EQ(i, two ? place : 7);
            i = 7;
            EXPECT_EQ(RArrIsDecreasing(a.size(), a.data(), strict, &i), two && fall == UINT64_MAX);
            EXPECT_EQ(i, two ? fall : 7);
        }
    });
    const double a[] = {-1.0, -2.0};
    EXPECT_TRUE(RArrIsIncreasing(2, a, 1, nullptr));
    EXPECT_FALSE(RArrIsDecreasing(2, a, 0, nullptr));
    const double b[] = {1.0, 2.0, 2.0, 1.0};
    uint64_t i = 7;
    EXPECT_FALSE(RArrIsIncreasing(4, b, 0, &i));
    EXPECT_EQ(i, 3u);
    EXPECT_FALSE(RArrIsIncreasing(4, b, 1, &i));
    EXPECT_EQ(i, 2u);
    i = 7;
    EXPECT_FALSE(RArrIsIncreasing(4, nullptr, 0, &i));
    EXPECT_FALSE(RArrIsDecreasing(0, b, 0, &i));
    EXPECT_EQ(i, 7u);
}

TEST(RealCounts, WithoutAnArray) {
    const double a[] = {1.0};
    for (auto count : {RArrAboveCount, RArrBelowCount}) {
        EXPECT_EQ(count(0, a, 0.0), UINT64_MAX);
        EXPECT_EQ(count(1, nullptr, 0.0), UINT64_MAX);
    }
    uint64_t above = 7;
    uint64_t below = 7;
    EXPECT_EQ(RArrBandCount(0, a, 0.0, 1.0, &above, &below), 0u);
    EXPECT_EQ(above + below, 0u);
    EXPECT_EQ(RArrBandCount(1, nullptr, 0.0, 1.0, nullptr, nullptr), 0u);
    EXPECT_EQ(RArrValueCount(0, a, 1.0, 1.0), 0u);
    EXPECT_EQ(RArrValueCount(1, nullptr, 1.0, 1.0), 0u);
    EXPECT_EQ(RArrChainedGroupsCount(0, a, 1.0), 0u);
    EXPECT_EQ(RArrChainedGroupsCount(1, nullptr, 1.0), 0u);
}

}  // namespace
