#include "nuv64/arrays/range_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "arrays/array_samples.h"
#include "nuv64/core/memory.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using Ranges = std::vector<std::pair<double, double>>;

class RangeList : public testing::Test {
  protected:
    ~RangeList() override { RArrKill(&list); }
    void add(double low, double high) { EXPECT_EQ(RArrRangesAddRange(&list, low, high), 0u); }
    Ranges ranges() const {
        Ranges result;
        for (uint64_t i = 0; i < RArrRangesCount(list); ++i) {
            result.emplace_back(list[2 * i], list[2 * i + 1]);
        }
        return result;
    }

    double* list = nullptr;
};

TEST_F(RangeList, StartsEmpty) {
    uint32_t err = 7;
    list = NewRArrRanges(&err);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(list[0], 0.0);
    EXPECT_EQ(list[1], 0.0);
    EXPECT_EQ(RArrRangesCount(list), 0u);
    EXPECT_EQ(RArrRangesCount(nullptr), 0u);
    EXPECT_FALSE(RArrRangesPointIsIn(0.0, list));
    EXPECT_FALSE(RArrRangesPointIsIn(0.0, nullptr));
    EXPECT_FALSE(RArrRangesIntervalIsNested(0.0, 0.0, nullptr, nullptr));
    double* other = NewRArrRanges(nullptr);
    ASSERT_NE(other, nullptr);
    RArrKill(&other);
}

TEST_F(RangeList, KeepsRangesSortedAndJoinsThem) {
    list = NewRArrRanges(nullptr);
    add(5.0, 6.0);
    add(1.0, 2.0);
    add(9.0, 10.0);
    EXPECT_EQ(ranges(), (Ranges{{1, 2}, {5, 6}, {9, 10}}));
    add(3.0, 4.0);
    EXPECT_EQ(ranges(), (Ranges{{1, 2}, {3, 4}, {5, 6}, {9, 10}}));
    add(2.0, 3.0);  // touches on both sides
    EXPECT_EQ(ranges(), (Ranges{{1, 4}, {5, 6}, {9, 10}}));
    add(4.5, 9.5);
    EXPECT_EQ(ranges(), (Ranges{{1, 4}, {4.5, 10}}));
    add(1.5, 2.0);  // nested
    EXPECT_EQ(ranges(), (Ranges{{1, 4}, {4.5, 10}}));
    add(-kInf, kInf);
    EXPECT_EQ(ranges(), (Ranges{{-kInf, kInf}}));
    EXPECT_EQ(list[2], 0.0);
    EXPECT_EQ(list[3], 0.0);
}

TEST_F(RangeList, ARangeWithoutLengthAddsNothing) {
    list = NewRArrRanges(nullptr);
    add(1.0, 1.0);
    EXPECT_EQ(list, nullptr);  // an empty list is released
    add(2.0, 1.0);
    EXPECT_EQ(list, nullptr);
    add(kQuietNan, 1.0);
    add(1.0, kQuietNan);
    EXPECT_EQ(list, nullptr);
    add(1.0, 2.0);
    add(5.0, 5.0);
    add(7.0, 3.0);
    EXPECT_EQ(ranges(), (Ranges{{1, 2}}));
    EXPECT_EQ(RArrRangesAddRange(nullptr, 1.0, 2.0), 18u);
}

TEST_F(RangeList, PointsAndIntervals) {
    add(1.0, 2.0);
    add(5.0, 8.0);
    EXPECT_TRUE(RArrRangesPointIsIn(1.0, list));
    EXPECT_TRUE(RArrRangesPointIsIn(8.0, list));
    EXPECT_FALSE(RArrRangesPointIsIn(3.0, list));
    EXPECT_FALSE(RArrRangesPointIsIn(0.0, list));
    EXPECT_FALSE(RArrRangesPointIsIn(kQuietNan, list));
    EXPECT_FALSE(RArrRangesPointIsIn(kInf, list));
    uint32_t index = 99;
    EXPECT_FALSE(RArrRangesIntervalIsNested(1.5, 5.5, list, &index));
    EXPECT_EQ(index, 99u);
    EXPECT_TRUE(RArrRangesIntervalIsNested(7.0, 5.5, list, &index));
    EXPECT_EQ(index, 2u);
    EXPECT_TRUE(RArrRangesIntervalIsNested(1.0, 2.0, list, &index));
    EXPECT_EQ(index, 0u);
    EXPECT_TRUE(RArrRangesIntervalIsNested(2.0, 1.0, list, nullptr));
    EXPECT_FALSE(RArrRangesIntervalIsNested(kQuietNan, 1.5, list, nullptr));
    EXPECT_FALSE(RArrRangesIntervalIsNested(1.5, kQuietNan, list, nullptr));
}

// Ranges of whole numbers against a field of marks on the half units.
TEST_F(RangeList, RandomRangesAgainstAFieldOfMarks) {
    std::mt19937 source(4);
    for (int round = 0; round < 50; ++round) {
        RArrKill(&list);
        std::vector<bool> marks(201, false);
        for (int step = 0; step < 30; ++step) {
            const int low = static_cast<int>(source() % 95);
            const int high = low + static_cast<int>(source() % 6);
            add(low, high);
            if (high > low) std::fill(marks.begin() + 2 * low, marks.begin() + 2 * high + 1, true);
            for (int place = 0; place <= 200; ++place) {
                ASSERT_EQ(RArrRangesPointIsIn(0.5 * place, list), marks[place]) << place;
            }
            const Ranges now = ranges();
            for (size_t i = 1; i < now.size(); ++i) ASSERT_LT(now[i - 1].second, now[i].first);
        }
    }
}

}  // namespace
