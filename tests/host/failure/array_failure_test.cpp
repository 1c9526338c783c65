// Arrays without memory: each maker says so, leaves what it was given as told, and leaks nothing.
#include <gtest/gtest.h>

#include <functional>

#include "host/failure/failing_allocator.h"
#include "nuv64/arrays/array_eval.h"
#include "nuv64/arrays/auto_correlation.h"
#include "nuv64/arrays/paired_arrays.h"
#include "nuv64/arrays/pointer_array.h"
#include "nuv64/arrays/range_list.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/memory.h"

namespace nuv64::test {
namespace {

constexpr std::uint32_t kNoMemory = 0x80001;

// Runs the step with its first, second ... allocation failing, until it meets none any more; then
// it must succeed. `after` looks at what is left and releases it.
void failEachAllocation(const std::function<void()>& before,
                        const std::function<std::uint32_t()>& step,
                        const std::function<void(bool failed)>& after) {
    bool failed = true;
    for (std::uint64_t which = 1; failed; ++which) {
        ASSERT_LT(which, 100u);
        const std::int64_t alive = liveBlocks();
        before();
        planFailure(which, Failing::Once);
        std::uint32_t status;
        {
            const Counted counted;
            status = step();
        }
        stopFailing();
        failed = allocationFailed();
        EXPECT_EQ(status, failed ? kNoMemory : 0u) << "allocation " << which;
        after(failed);
        EXPECT_EQ(liveBlocks(), alive) << "allocation " << which;
    }
}

TEST(ArraysWithoutMemory, PairedArraysAreNotMade) {
    RArrPairedRec* record = nullptr;
    failEachAllocation([] {}, [&] { return NewRArrPairedArrays(&record, 1.0, 3); },
                       [&](bool failed) {
                           EXPECT_EQ(record == nullptr, failed);
                           RArrPairedDelete(&record);
                       });
}

TEST(ArraysWithoutMemory, PairedArraysThatCannotGrowAreReleased) {
    RArrPairedRec* record = nullptr;
    failEachAllocation([&] { ASSERT_EQ(NewRArrPairedArrays(&record, 1.0, 1), 0u); },
                       [&] { return RArrPairedAddPair(1.0, 2.0, &record); },
                       [&](bool failed) {
                           EXPECT_EQ(record == nullptr, failed);
                           RArrPairedDelete(&record);
                       });
}

TEST(ArraysWithoutMemory, ARangeListStaysAsItWas) {
    double* list = nullptr;
    failEachAllocation([&] { ASSERT_EQ(RArrRangesAddRange(&list, 1.0, 2.0), 0u); },
                       [&] { return RArrRangesAddRange(&list, 3.0, 4.0); },
                       [&](bool failed) {
                           EXPECT_EQ(RArrRangesCount(list), failed ? 1u : 2u);
                           RArrKill(&list);
                       });
}

TEST(ArraysWithoutMemory, AnEvaluationEndsWithoutOutput) {
    const double in[] = {1.0, 2.0, 3.0};
    double* out = nullptr;
    failEachAllocation([&] { out = RArrNew0(nullptr, 2); },
                       [&] { return NewRArrEval(3, in, &out, 40, 1.0); },
                       [&](bool failed) {
                           EXPECT_EQ(out == nullptr, failed);
                           RArrKill(&out);
                       });
}

TEST(ArraysWithoutMemory, AnAutoCorrelationInPlaceNeedsACopy) {
    double x[] = {1.0, 2.0, 3.0};
    failEachAllocation([] {}, [&] { return RArrAutoCorr(3, x, x); }, [](bool) {});
}

TEST(ArraysWithoutMemory, PointersAreNotCollected) {
    void** array = nullptr;
    std::uint64_t count = 2;
    const auto step = [&] {
        std::uint32_t err = 7;
        array = RPArrNewVa(&err, &count, &count, &array);
        return err;
    };
    failEachAllocation([] {}, step,
                       [&](bool failed) {
                           EXPECT_EQ(array == nullptr, failed);
                           RPArrKill(&array);
                       });
}

}  // namespace
}  // namespace nuv64::test
