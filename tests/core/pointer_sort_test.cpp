#include "nuv64/core/pointer_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

int32_t byLastDigit(const void* a, const void* b) {
    const auto left = reinterpret_cast<std::uintptr_t>(a) % 10;
    const auto right = reinterpret_cast<std::uintptr_t>(b) % 10;
    return left < right ? INT32_MIN : left > right;  // the negation of which does not exist
}

std::vector<void*> words(std::mt19937_64& generator, std::size_t count, std::uint64_t limit) {
    std::vector<void*> items(count);
    for (void*& item : items) item = reinterpret_cast<void*>(generator() % limit);
    return items;
}

}  // namespace

TEST(PointerSort, SortsWordsBothWays) {
    std::mt19937_64 generator(1);
    for (std::size_t count = 0; count < 70; ++count) {
        for (const std::uint64_t limit : {std::uint64_t{4}, UINT64_MAX}) {
            std::vector<void*> items = words(generator, count, limit);
            std::vector<void*> expected = items;
            std::sort(expected.begin(), expected.end(), std::less<>());
            HeapSortByPointers(count, items.data(), nullptr, 1);
            EXPECT_EQ(items, expected);
            std::shuffle(items.begin(), items.end(), generator);
            std::reverse(expected.begin(), expected.end());
            HeapSortByPointers(count, items.data(), nullptr, -1);
            EXPECT_EQ(items, expected);
        }
    }
}

TEST(PointerSort, SortsByTheCallersOrder) {
    std::mt19937_64 generator(2);
    const auto digit = [](void* item) { return reinterpret_cast<std::uintptr_t>(item) % 10; };
    for (const int32_t direction : {1, 0, -1, INT32_MIN}) {
        std::vector<void*> items = words(generator, 1000, 100000);
        std::vector<void*> before = items;
        HeapSortByPointers(items.size(), items.data(), byLastDigit, direction);
        for (std::size_t i = 1; i < items.size(); ++i) {
            if (direction < 0) {
                EXPECT_GE(digit(items[i - 1]), digit(items[i]));
            } else {
                EXPECT_LE(digit(items[i - 1]), digit(items[i]));
            }
        }
        std::sort(before.begin(), before.end(), std::less<>());
        std::sort(items.begin(), items.end(), std::less<>());
        EXPECT_EQ(items, before);
    }
}

TEST(PointerSort, LeavesNothingAndOneAlone) {
    HeapSortByPointers(0, nullptr, nullptr, 1);
    HeapSortByPointers(10, nullptr, nullptr, 1);
    void* item = &item;
    HeapSortByPointers(1, &item, nullptr, 1);
    EXPECT_EQ(item, &item);
    void* pair[] = {reinterpret_cast<void*>(2), reinterpret_cast<void*>(1)};
    HeapSortByPointers(0, pair, nullptr, 1);
    HeapSortByPointers(1, pair, nullptr, 1);
    EXPECT_EQ(pair[0], reinterpret_cast<void*>(2));
}
