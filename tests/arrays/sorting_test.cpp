#include "nuv64/arrays/sorting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "arrays/array_samples.h"

namespace {

using testing::ElementsAre;

// Random keys with many ties, ascending, descending, all equal.
std::vector<std::vector<double>> keySets(uint64_t n) {
    std::vector<double> ties(n), up(n), down(n);
    const auto random = samples::random(n);
    for (uint64_t i = 0; i < n; ++i) {
        ties[i] = std::floor(random[i] / 3.0);
        up[i] = static_cast<double>(i);
        down[i] = -up[i];
    }
    return {random, ties, up, down, std::vector<double>(n, 4.0)};
}

TEST(Sorting, AscendingAndDescending) {
    double a[] = {1, 3, 2};
    EXPECT_EQ(RArrIpHeapSort(3, a, -1), a);
    EXPECT_THAT(a, ElementsAre(3, 2, 1));
    for (uint64_t n : samples::lengths()) {
        for (const auto& keys : keySets(n)) {
            auto expected = keys, sorted = keys, copied = std::vector<double>(n, 7.0);
            std::sort(expected.begin(), expected.end());
            EXPECT_EQ(RArrIpHeapSort(n, sorted.data(), 1), sorted.data());
            EXPECT_EQ(sorted, expected);
            EXPECT_EQ(RArrHeapSortCopy(n, keys.data(), copied.data(), 0), 0u);
            EXPECT_EQ(copied, expected);
            std::reverse(expected.begin(), expected.end());
            EXPECT_EQ(RArrHeapSortCopy(n, keys.data(), copied.data(), -1), 0u);
            EXPECT_EQ(copied, expected);
            EXPECT_EQ(RArrHeapSortCopy(n, sorted.data(), sorted.data(), -5), 0u);
            EXPECT_EQ(sorted, expected);
        }
    }
}

TEST(Sorting, AMillionElementsWithACompanion) {
    const std::vector<double> keys = samples::random(samples::kLong);
    std::vector<double> expected = keys, sorted = keys, companion = keys;
    std::sort(expected.begin(), expected.end());
    RArrIpHeapSort(sorted.size(), sorted.data(), 1);
    EXPECT_TRUE(sorted == expected);
    RArrIpHeapSort(sorted.size(), sorted.data(), 1);  // already in order
    EXPECT_TRUE(sorted == expected);
    std::reverse(sorted.begin(), sorted.end());
    RArrHeapSortR(sorted.data(), sorted.size(), companion.data(), nullptr, nullptr, nullptr,
                  nullptr, nullptr);
    EXPECT_TRUE(sorted == expected);
    sorted = keys;
    companion = keys;
    RArrHeapSortR(sorted.data(), sorted.size(), companion.data(), nullptr, nullptr, nullptr,
                  nullptr, nullptr);
    EXPECT_TRUE(sorted == expected);
    EXPECT_TRUE(companion == expected);
}

TEST(Sorting, NullAndEmpty) {
    double one = 1.0;
    EXPECT_EQ(RArrIpHeapSort(0, &one, 1), nullptr);
    EXPECT_EQ(RArrIpHeapSort(3, nullptr, 1), nullptr);
    EXPECT_EQ(RArrHeapSortCopy(1, nullptr, nullptr, 1), 18u);
    EXPECT_EQ(RArrHeapSortCopy(1, nullptr, &one, 1), 14u);
    EXPECT_EQ(RArrHeapSortCopy(0, &one, &one, 1), 14u);
    EXPECT_EQ(RArrHeapSortCopy(1, &one, &one, 1), 0u);
    EXPECT_EQ(RArrHeapSortR(nullptr, 5, &one, nullptr, nullptr, nullptr, nullptr, nullptr),
              nullptr);
    EXPECT_EQ(RArrHeapSortR(&one, 1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), &one);
    EXPECT_EQ(RArrHeapSortR(&one, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), &one);
    EXPECT_EQ(RArrHeapSortD(nullptr, 5, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              nullptr);
    EXPECT_EQ(RArrHeapSortL(nullptr, 5, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              nullptr);
    uint64_t word[] = {2, 1};
    EXPECT_EQ(RArrHeapSortDR(word, nullptr, 2, nullptr, nullptr, nullptr), word);
    EXPECT_EQ(word[0], 2u);
    EXPECT_EQ(RArrHeapSortDR(nullptr, &one, 2, nullptr, nullptr, nullptr), nullptr);
}

TEST(Sorting, CompanionsStayWithTheirKeys) {
    for (uint64_t n : samples::lengths()) {
        for (const auto& keys : keySets(n)) {
            auto key = keys;
            std::vector<double> twice(n);
            std::vector<uint64_t> place(n);
            std::vector<const double*> address(n);
            for (uint64_t i = 0; i < n; ++i) {
                twice[i] = 2.0 * key[i];
                place[i] = i;
                address[i] = &keys[i];
            }
            EXPECT_EQ(RArrHeapSortR(key.data(), n, twice.data(), nullptr, place.data(), nullptr,
                                    nullptr, address.data()),
                      key.data());
            EXPECT_TRUE(std::is_sorted(key.begin(), key.end()));
            std::vector<bool> seen(n, false);
            for (uint64_t i = 0; i < n; ++i) {
                EXPECT_EQ(key[i], keys[place[i]]);
                EXPECT_EQ(twice[i], 2.0 * key[i]);
                EXPECT_EQ(address[i], &keys[place[i]]);
                seen[place[i]] = true;
            }
            EXPECT_EQ(std::count(seen.begin(), seen.end(), true), static_cast<int64_t>(n));
        }
    }
}

// The heap sort as written: the place of each record of the sorted array in the one before.
// `before` compares two places.
template <class Before>
std::vector<uint64_t> plainHeapSort(uint64_t n, Before before) {
    std::vector<uint64_t> place(n);
    std::iota(place.begin(), place.end(), uint64_t{0});
    for (uint64_t left = n / 2, right = n - 1; n > 1;) {
        uint64_t held;
        if (left > 0) {
            held = place[--left];
        } else {
            held = place[right];
            place[right] = place[0];
            if (--right == 0) {
                place[0] = held;
                break;
            }
        }
        uint64_t i = left;
        for (uint64_t j = 2 * i + 1; j <= right; j = 2 * j + 1) {
            if (j < right && before(place[j], place[j + 1])) ++j;
            if (!before(held, place[j])) break;
            place[i] = place[j];
            i = j;
        }
        place[i] = held;
    }
    return place;
}

TEST(Sorting, OrderOfEqualAndOfUnorderedKeysIsThatOfThePlainForm) {
    for (uint64_t n : samples::lengths()) {
        auto sets = keySets(n);
        sets.push_back(samples::rough(n));
        for (const auto& keys : sets) {
            const auto expected =
                plainHeapSort(n, [&](uint64_t i, uint64_t j) { return keys[i] < keys[j]; });
            auto key = keys;
            std::vector<uint64_t> place(n);
            std::iota(place.begin(), place.end(), uint64_t{0});
            RArrHeapSortR(key.data(), n, place.data(), nullptr, nullptr, nullptr, nullptr, nullptr);
            EXPECT_EQ(place, expected);
            auto alone = keys;
            RArrIpHeapSort(n, alone.data(), 1);
            EXPECT_EQ(samples::bits(alone), samples::bits(key));
            alone = keys;
            RArrHeapSortR(alone.data(), n, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
            EXPECT_EQ(samples::bits(alone), samples::bits(key));
            const auto downward =
                plainHeapSort(n, [&](uint64_t i, uint64_t j) { return keys[i] > keys[j]; });
            for (uint64_t i = 0; i < n; ++i) key[i] = keys[downward[i]];
            alone = keys;
            RArrIpHeapSort(n, alone.data(), -1);
            EXPECT_EQ(samples::bits(alone), samples::bits(key));
        }
        const auto random = samples::random(n, 4);
        std::vector<uint64_t> first(n), place(n);
        std::vector<double> second = samples::rough(n, 5);
        for (uint64_t i = 0; i < n; ++i) {
            first[i] = static_cast<uint64_t>(std::fabs(random[i])) / 3;
            second[i] = std::trunc(second[i] / 4.0);
            place[i] = i;
        }
        const auto expected = plainHeapSort(n, [&](uint64_t i, uint64_t j) {
            return first[i] != first[j] ? first[i] < first[j] : second[i] < second[j];
        });
        RArrHeapSortDR(first.data(), second.data(), n, nullptr, place.data(), nullptr);
        EXPECT_EQ(place, expected);
    }
}

TEST(Sorting, AllSixCompanionsMove) {
    double key[] = {5, 1, 4, 2, 3};
    double c[6][5];
    for (auto& row : c) std::copy(key, key + 5, row);
    RArrHeapSortR(key, 5, c[0], c[1], c[2], c[3], c[4], c[5]);
    EXPECT_THAT(key, ElementsAre(1, 2, 3, 4, 5));
    for (auto& row : c) EXPECT_THAT(row, ElementsAre(1, 2, 3, 4, 5));
}

TEST(Sorting, WordsAreComparedAsTheirType) {
    uint64_t words[] = {UINT64_MAX, 0, uint64_t{1} << 63, 5};
    double mark[] = {1, 2, 3, 4};
    EXPECT_EQ(RArrHeapSortD(words, 4, mark, nullptr, nullptr, nullptr, nullptr, nullptr), words);
    EXPECT_THAT(words, ElementsAre(0, 5, uint64_t{1} << 63, UINT64_MAX));
    EXPECT_THAT(mark, ElementsAre(2, 4, 3, 1));
    int64_t longs[] = {-1, 0, INT64_MIN, 5};
    EXPECT_EQ(RArrHeapSortL(longs, 4, mark, nullptr, nullptr, nullptr, nullptr, nullptr), longs);
    EXPECT_THAT(longs, ElementsAre(INT64_MIN, -1, 0, 5));
}

TEST(Sorting, TheSecondKeyDecidesTies) {
    for (uint64_t n : samples::lengths()) {
        const auto random = samples::random(n, 9);
        std::vector<uint64_t> first(n), place(n);
        std::vector<double> second = samples::random(n, 8);
        for (uint64_t i = 0; i < n; ++i) {
            first[i] = static_cast<uint64_t>(std::fabs(random[i])) / 3;
            place[i] = i;
        }
        std::vector<std::pair<uint64_t, double>> expected;
        for (uint64_t i = 0; i < n; ++i) expected.emplace_back(first[i], second[i]);
        const auto unsorted = expected;
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(RArrHeapSortDR(first.data(), second.data(), n, place.data(), nullptr, nullptr),
                  first.data());
        for (uint64_t i = 0; i < n; ++i) {
            EXPECT_EQ(first[i], expected[i].first);
            EXPECT_EQ(second[i], expected[i].second);
            EXPECT_EQ(unsorted[place[i]], expected[i]);
        }
    }
}

TEST(Sorting, NotANumbersLoseNothing) {
    for (uint64_t n : samples::lengths()) {
        auto a = samples::rough(n);
        auto before = samples::bits(a);
        RArrIpHeapSort(n, a.data(), 1);
        auto after = samples::bits(a);
        std::sort(before.begin(), before.end());
        std::sort(after.begin(), after.end());
        EXPECT_EQ(before, after);
    }
}

}  // namespace
