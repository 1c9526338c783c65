#include "nuv64/arrays/pointer_array.h"

#include <gtest/gtest.h>

#include <vector>

#include "arrays/array_samples.h"
#include "nuv64/core/memory.h"

namespace {

TEST(PointerArray, MakesFillsAndCopies) {
    int mark = 0;
    for (uint64_t n : samples::allLengths()) {
        uint32_t err = 7;
        void** array = RPArrNew(&err, n);
        ASSERT_NE(array, nullptr);
        EXPECT_EQ(err, 0u);
        EXPECT_EQ(RPArrFill(n, array, &mark), 0u);
        for (uint64_t i = 0; i < n; ++i) EXPECT_EQ(array[i], &mark);
        array[0] = array;
        err = 7;
        void** copy = RPArrNewCopy(&err, n, array);
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(err, 0u);
        EXPECT_EQ(std::vector<void*>(copy, copy + n), std::vector<void*>(array, array + n));
        void** zeros = RPArrNew0(&err, n);
        ASSERT_NE(zeros, nullptr);
        for (uint64_t i = 0; i < n; ++i) EXPECT_EQ(zeros[i], nullptr);
        EXPECT_EQ(RPArrCopy(n, array, zeros), 0u);
        EXPECT_EQ(std::vector<void*>(zeros, zeros + n), std::vector<void*>(array, array + n));
        EXPECT_EQ(RPArrNull(n, array), 0u);
        for (uint64_t i = 0; i < n; ++i) EXPECT_EQ(array[i], nullptr);
        RPArrKill(&array);
        EXPECT_EQ(array, nullptr);
        RPArrKill(&copy);
        RPArrKill(&zeros);
    }
}

TEST(PointerArray, EmptyNullAndTooLarge) {
    void* one[] = {nullptr};
    for (auto make : {RPArrNew, RPArrNew0}) {
        uint32_t err = 7;
        EXPECT_EQ(make(&err, 0), nullptr);
        EXPECT_EQ(err, 0u);
        EXPECT_EQ(make(&err, uint64_t{1} << 61), nullptr);
        EXPECT_EQ(err, 0x80001u);
        EXPECT_EQ(make(nullptr, UINT64_MAX), nullptr);
    }
    uint32_t err = 7;
    EXPECT_EQ(RPArrNewCopy(&err, 0, one), nullptr);
    EXPECT_EQ(err, 0u);
    err = 7;
    EXPECT_EQ(RPArrNewCopy(&err, 3, nullptr), nullptr);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(RPArrNewCopy(&err, uint64_t{1} << 61, one), nullptr);
    EXPECT_EQ(err, 0x80001u);
}

TEST(PointerArray, CopyAndFillTestTheirArgumentsInOrder) {
    void* one[] = {nullptr};
    EXPECT_EQ(RPArrCopy(0, nullptr, nullptr), 0u);
    EXPECT_EQ(RPArrCopy(1, nullptr, nullptr), 18u);
    EXPECT_EQ(RPArrCopy(1, nullptr, one), 14u);
    EXPECT_EQ(RPArrFill(0, nullptr, one), 0u);
    EXPECT_EQ(RPArrFill(1, nullptr, one), 18u);
    EXPECT_EQ(RPArrNull(0, nullptr), 0u);
    EXPECT_EQ(RPArrNull(1, nullptr), 18u);
}

TEST(PointerArray, FromArgumentsUpToNull) {
    int a, b, c;
    uint32_t err = 7;
    uint64_t count = 0;
    void** array = RPArrNewVa(&err, &count, &a, &b, &c, static_cast<void*>(nullptr));
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(array[0], &a);
    EXPECT_EQ(array[2], &c);
    RPArrKill(&array);
    count = 0;
    err = 7;
    EXPECT_EQ(RPArrNewVa(&err, &count, static_cast<void*>(nullptr)), nullptr);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(count, 0u);
}

TEST(PointerArray, FromACountOfArguments) {
    int a, b;
    uint64_t count = 3;
    void** array = RPArrNewVa(nullptr, &count, &a, static_cast<void*>(nullptr), &b, &a);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(array[0], &a);
    EXPECT_EQ(array[1], nullptr);
    EXPECT_EQ(array[2], &b);
    RPArrKill(&array);
    uint32_t err = 7;
    EXPECT_EQ(RPArrNewVa(&err, nullptr, &a), nullptr);
    EXPECT_EQ(err, 14u);
    count = uint64_t{1} << 61;
    EXPECT_EQ(RPArrNewVa(&err, &count, &a), nullptr);
    EXPECT_EQ(err, 0x80001u);
}

}  // namespace
