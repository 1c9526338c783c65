#include "nuv64/arrays/paired_arrays.h"

#include <gtest/gtest.h>

#include <vector>

#include "arrays/array_samples.h"

namespace {

using samples::kInf;
using samples::kQuietNan;

class PairedArrays : public testing::Test {
  protected:
    ~PairedArrays() override { RArrPairedDelete(&record); }

    RArrPairedRec* record = nullptr;
};

TEST_F(PairedArrays, StartEmptyWithTheirCapacity) {
    ASSERT_EQ(NewRArrPairedArrays(&record, 0.5, 0), 0u);
    EXPECT_EQ(record->Count, 0u);
    EXPECT_EQ(record->Capacity, 10u);
    EXPECT_EQ(record->Tolerance, 0.5);
    EXPECT_EQ(RArrPairedDelete(&record), 0u);
    EXPECT_EQ(record, nullptr);
    ASSERT_EQ(NewRArrPairedArrays(&record, 0.5, 3), 0u);
    EXPECT_EQ(record->Capacity, 3u);
}

TEST_F(PairedArrays, AccumulateUnderTheFirstKeyWithinTheTolerance) {
    ASSERT_EQ(NewRArrPairedArrays(&record, 0.5, 4), 0u);
    for (auto [value, key] : {std::pair{1.0, 10.0}, {2.0, 10.4}, {4.0, 10.5}, {8.0, 10.45}}) {
        EXPECT_EQ(RArrPairedAddPair(value, key, &record), 0u);
    }
    uint64_t count = 0;
    double *first = nullptr, *second = nullptr;
    EXPECT_EQ(RArrPairedGetPointers(&count, &first, &second, &record), 0u);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(first, record->First);
    EXPECT_EQ(second, record->Second);
    EXPECT_EQ(first[0], 11.0);  // 10.5 lies a full tolerance away, 10.45 nearer than that
    EXPECT_EQ(second[0], 10.0);
    EXPECT_EQ(first[1], 4.0);
    EXPECT_EQ(second[1], 10.5);
}

TEST_F(PairedArrays, WithoutToleranceEachPairIsNew) {
    for (double tolerance : {0.0, -1.0, kQuietNan}) {
        ASSERT_EQ(NewRArrPairedArrays(&record, tolerance, 2), 0u);
        for (int i = 0; i < 5; ++i) EXPECT_EQ(RArrPairedAddPair(1.0, 3.0, &record), 0u);
        EXPECT_EQ(record->Count, 5u);
        RArrPairedDelete(&record);
    }
}

TEST_F(PairedArrays, OddKeysAreKept) {
    ASSERT_EQ(NewRArrPairedArrays(&record, 1.0, 2), 0u);
    for (double key : {kQuietNan, kQuietNan, kInf, kInf, -kInf}) {
        EXPECT_EQ(RArrPairedAddPair(1.0, key, &record), 0u);
    }
    EXPECT_EQ(record->Count, 5u);  // infinity minus infinity is near nothing
}

TEST_F(PairedArrays, GrowByTenWhenFull) {
    ASSERT_EQ(NewRArrPairedArrays(&record, 0.25, 1), 0u);
    EXPECT_EQ(RArrPairedAddPair(0.0, 0.0, &record), 0u);
    EXPECT_EQ(record->Capacity, 11u);
    for (int i = 1; i < 1025; ++i) EXPECT_EQ(RArrPairedAddPair(2.0 * i, i, &record), 0u);
    EXPECT_EQ(record->Count, 1025u);
    EXPECT_EQ(record->Capacity, 1031u);
    for (int i = 0; i < 1025; ++i) {
        ASSERT_EQ(record->First[i], 2.0 * i);
        ASSERT_EQ(record->Second[i], i);
    }
    EXPECT_EQ(RArrPairedReset(&record), 0u);
    EXPECT_EQ(record->Count, 0u);
    EXPECT_EQ(record->Capacity, 1031u);
    EXPECT_EQ(RArrPairedAddPair(5.0, 0.0, &record), 0u);
    EXPECT_EQ(record->Count, 1u);
    EXPECT_EQ(record->First[0], 5.0);
}

TEST_F(PairedArrays, WithoutARecord) {
    uint64_t count = 77;
    double x = 1.0;
    double *first = &x, *second = &x;
    EXPECT_EQ(RArrPairedGetPointers(&count, &first, &second, &record), 14u);
    EXPECT_EQ(count, 77u);
    EXPECT_EQ(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(RArrPairedGetPointers(nullptr, nullptr, nullptr, nullptr), 14u);
    EXPECT_EQ(RArrPairedAddPair(1.0, 1.0, &record), 18u);
    EXPECT_EQ(RArrPairedAddPair(1.0, 1.0, nullptr), 18u);
    EXPECT_EQ(RArrPairedReset(&record), 18u);
    EXPECT_EQ(RArrPairedReset(nullptr), 18u);
    EXPECT_EQ(RArrPairedDelete(&record), 0u);
    EXPECT_EQ(RArrPairedDelete(nullptr), 0u);
    EXPECT_EQ(NewRArrPairedArrays(nullptr, 1.0, 1), 18u);
}

TEST_F(PairedArrays, TooLargeACapacityIsAnAllocationFailure) {
    for (uint64_t capacity : {uint64_t{1} << 60, uint64_t{1} << 61, UINT64_MAX}) {
        EXPECT_EQ(NewRArrPairedArrays(&record, 1.0, capacity), 0x80001u);
        EXPECT_EQ(record, nullptr);
    }
}

}  // namespace
