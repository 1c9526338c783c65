#include "nuv64/arrays/real_shifts.h"

#include <gtest/gtest.h>

#include "arrays/operation_cases.h"

namespace {

using samples::OperationCase;
using samples::Values;

std::vector<OperationCase> moves() {
    return {{"Reverse", RArrReverse, RArrIpReverse,
             [](const Values& in) { return Values(in.rbegin(), in.rend()); }},
            {"SwapHalfs", RArrSwapHalfs, RArrIpSwapHalfs,
             [](Values a) {
                 const size_t n = a.size();
                 for (size_t i = 0; i < n / 2; ++i) std::swap(a[i], a[i + (n + 1) / 2]);
                 return a;
             }},
            {"ZeroLowerHalf",
             RArrZeroLowerHalf,
             {},
             [](Values a) {
                 for (size_t i = 0; i < (a.size() + 1) / 2; ++i) a[i] = 0.0;
                 return a;
             }},
            {"ZeroUpperHalf", RArrZeroUpperHalf, {}, [](Values a) {
                 for (size_t i = a.size() / 2; i < a.size(); ++i) a[i] = 0.0;
                 return a;
             }}};
}

__extension__ using Wide = __int128;

// The place that element i comes from, for any k: by 128-bit arithmetic.
Values plainRotate(const Values& in, int64_t k) {
    const Wide n = static_cast<Wide>(in.size());
    Values out(in.size());
    for (Wide i = 0; i < n; ++i) {
        out[static_cast<size_t>(((i + k) % n + n) % n)] = in[static_cast<size_t>(i)];
    }
    return out;
}

Values plainShift(const Values& in, int64_t k, bool repeat) {
    const Wide n = static_cast<Wide>(in.size());
    Values out(in.size());
    for (Wide i = 0; i < n; ++i) {
        const Wide from = i - k;
        double& x = out[static_cast<size_t>(i)];
        if (from >= 0 && from < n) {
            x = in[static_cast<size_t>(from)];
        } else {
            x = repeat ? (from < 0 ? in.front() : in.back()) : 0.0;
        }
    }
    return out;
}

std::vector<OperationCase> shiftsBy(int64_t k) {
    const std::string by = " by " + std::to_string(k);
    return {{"Rotate" + by,
             [k](uint64_t n, const double* a, double* b) { return RArrRotate(n, a, b, k); },
             [k](uint64_t n, double* a) { return RArrIpRotate(n, a, k); },
             [k](const Values& in) { return plainRotate(in, k); }},
            {"ShiftZ" + by,
             [k](uint64_t n, const double* a, double* b) { return RArrShiftZ(n, a, b, k); },
             [k](uint64_t n, double* a) { return RArrIpShiftZ(n, a, k); },
             [k](const Values& in) { return plainShift(in, k, false); }},
            {"ShiftR" + by,
             [k](uint64_t n, const double* a, double* b) { return RArrShiftR(n, a, b, k); },
             [k](uint64_t n, double* a) { return RArrIpShiftR(n, a, k); },
             [k](const Values& in) { return plainShift(in, k, true); }}};
}

TEST(RealShifts, ReverseAndHalves) {
    samples::expectPlainOnAll(moves());
}

TEST(RealShifts, RotateAndShift) {
    std::vector<OperationCase> cases;
    for (int64_t k :
         {int64_t{0}, int64_t{1}, int64_t{-1}, int64_t{2}, int64_t{-3}, int64_t{7}, int64_t{-64},
          int64_t{1024}, int64_t{5000000000}, -int64_t{5000000001}, INT64_MAX, INT64_MIN}) {
        for (OperationCase& test : shiftsBy(k)) cases.push_back(std::move(test));
    }
    samples::expectPlainOnAll(cases, false);
    const Values in = samples::rough(samples::kLong);
    for (int64_t k : {333333, -1}) {
        for (const OperationCase& test : shiftsBy(k)) samples::expectPlain(test, in, "rough ");
    }
}

TEST(RealShifts, EveryDistanceOnShortArrays) {
    for (uint64_t n = 0; n <= 13; ++n) {
        const Values in = samples::random(n);
        for (int64_t k = -30; k <= 30; ++k) {
            for (const OperationCase& test : shiftsBy(k)) samples::expectPlain(test, in, "random ");
        }
    }
}

TEST(RealShifts, KnownValues) {
    double a[] = {1.0, 2.0, 3.0};
    EXPECT_EQ(RArrIpSwapHalfs(3, a), 0u);
    EXPECT_EQ(Values(a, a + 3), (Values{3.0, 2.0, 1.0}));
    double b[] = {1.0, 2.0, 3.0, 4.0};
    EXPECT_EQ(RArrIpRotate(4, b, 1), 0u);
    EXPECT_EQ(Values(b, b + 4), (Values{4.0, 1.0, 2.0, 3.0}));
    EXPECT_EQ(RArrIpShiftR(4, b, -2), 0u);
    EXPECT_EQ(Values(b, b + 4), (Values{2.0, 3.0, 3.0, 3.0}));
    EXPECT_EQ(RArrIpShiftZ(4, b, 1), 0u);
    EXPECT_EQ(Values(b, b + 4), (Values{0.0, 2.0, 3.0, 3.0}));
}

TEST(RealShifts, TestPointersBeforeTheCount) {
    samples::expectPointerTests(moves());
    samples::expectPointerTests(shiftsBy(3));
}

}  // namespace
