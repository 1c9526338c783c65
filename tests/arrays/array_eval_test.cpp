#include "nuv64/arrays/array_eval.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arrays/operation_cases.h"
#include "nuv64/arrays/array_powers.h"
#include "nuv64/arrays/kernel_smoothing.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_shifts.h"
#include "nuv64/arrays/running_sums.h"
#include "nuv64/arrays/sorting.h"
#include "nuv64/core/memory.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using samples::Values;

struct NumberedOperation {
    uint64_t number;
    uint32_t (*direct)(uint64_t n, const double* in, double* out);
};

constexpr double kArgument = 2.4;  // as a distance: 2

const NumberedOperation kTable[] = {
    {1, RArrCopy},
    {2, [](uint64_t n, const double*, double* b) { return RArrFill(n, b, kArgument); }},
    {3, [](uint64_t n, const double* a, double* b) { return RArrAddConst(n, a, b, kArgument); }},
    {4, [](uint64_t n, const double* a, double* b) { return RArrMulConst(n, a, b, kArgument); }},
    {5, RArrAbs},
    {6, RArrInvertSign},
    {7, RArrSquare},
    {8, RArrSignedSquare},
    {9, RArrRunningSum},
    {10, [](uint64_t n, const double* a, double* b) { return RArrClip(0, n, a, b, kArgument); }},
    {11, [](uint64_t n, const double* a, double* b) { return RArrClip(1, n, a, b, kArgument); }},
    {12, [](uint64_t n, const double* a, double* b) { return RArrClip(2, n, a, b, kArgument); }},
    {13, [](uint64_t n, const double* a, double* b) { return RArrClip(3, n, a, b, kArgument); }},
    {14, [](uint64_t n, const double* a, double* b) { return RArrClip(4, n, a, b, kArgument); }},
    {15, [](uint64_t n, const double* a, double* b) { return RArrClip(5, n, a, b, kArgument); }},
    {16, RArrReverse},
    {17, RArrZeroUpperHalf},
    {18, RArrSwapHalfs},
    {19, [](uint64_t n, const double* a, double* b) { return RArrRotate(n, a, b, 2); }},
    {20, [](uint64_t n, const double* a, double* b) { return RArrShiftZ(n, a, b, 2); }},
    {21, [](uint64_t n, const double* a, double* b) { return RArrShiftR(n, a, b, 2); }},
    {22, [](uint64_t n, const double* a, double* b) { return RArrSelfDiff(n, a, b, 2); }},
    {23, [](uint64_t n, const double* a, double* b) { return RArrAdd2(n, a, b, kArgument); }},
    {24, RArrMul2},
    {39, [](uint64_t n, const double* a, double* b) { return RArrHeapSortCopy(n, a, b, 1); }},
    {40,
     [](uint64_t n, const double* a, double* b) { return RArrGaussSmooth(n, a, b, kArgument); }},
    {42, [](uint64_t n, const double* a, double* b) { return RArrAdd2(n, a, b, -kArgument); }},
    {43, RArrDiv2},
};

TEST(ArrayEval, CallsTheFunctionOfTheNumber) {
    for (const NumberedOperation& operation : kTable) {
        for (uint64_t n : {0, 1, 2, 5, 70, 1025}) {
            const Values in = samples::random(n);
            double nothing = 0.0;
            const double* const input = n == 0 ? &nothing : in.data();
            Values out = samples::random(n + 1, 9), expected(out);
            const uint32_t status = operation.direct(n, input, expected.data());
            EXPECT_EQ(RArrEval(n, input, out.data(), operation.number, kArgument), status)
                << operation.number;
            EXPECT_EQ(out, expected) << operation.number;
        }
        double x = 1.0;
        for (uint64_t n : {0, 1}) {
            EXPECT_EQ(RArrEval(n, nullptr, &x, operation.number, kArgument),
                      operation.direct(n, nullptr, &x))
                << operation.number;
            EXPECT_EQ(RArrEval(n, &x, nullptr, operation.number, kArgument),
                      operation.direct(n, &x, nullptr))
                << operation.number;
        }
    }
}

TEST(ArrayEval, AddsNoise) {
    const Values in(1000, 5.0);
    Values out(1000);
    EXPECT_EQ(RArrEval(1000, in.data(), out.data(), 41, 0.1), 0u);
    EXPECT_NE(out, in);
    for (double x : out) EXPECT_NEAR(x, 5.0, 1.0);
    EXPECT_EQ(RArrEval(1000, nullptr, out.data(), 41, 0.1), 14u);
}

TEST(ArrayEval, OtherNumbersAreNotImplemented) {
    double x = 1.0;
    for (uint64_t number = 0; number < 100; ++number) {
        const bool known = (number >= 1 && number <= 24) || (number >= 39 && number <= 43);
        if (known) continue;
        EXPECT_EQ(RArrEval(1, &x, &x, number, 1.0), 9u) << number;
        EXPECT_EQ(RArrEval(0, nullptr, nullptr, number, 1.0), 9u) << number;
    }
    EXPECT_EQ(RArrEval(1, &x, &x, UINT64_MAX, 1.0), 9u);
    EXPECT_EQ(RArrEval(1, &x, &x, (uint64_t{1} << 32) + 1, 1.0), 9u);
    EXPECT_EQ(x, 1.0);
}

TEST(ArrayEval, DistancesAreRoundedAndBounded) {
    const Values in = {1.0, 2.0, 3.0, 4.0, 5.0};
    Values out(5);
    EXPECT_EQ(RArrEval(5, in.data(), out.data(), 19, 0.5), 0u);  // half away from zero: by 1
    EXPECT_EQ(out, (Values{5.0, 1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(RArrEval(5, in.data(), out.data(), 19, 1e300), 0u);  // by 2147483647, that is 2
    EXPECT_EQ(out, (Values{4.0, 5.0, 1.0, 2.0, 3.0}));
    EXPECT_EQ(RArrEval(5, in.data(), out.data(), 19, -kInf), 0u);
    EXPECT_EQ(out, (Values{3.0, 4.0, 5.0, 1.0, 2.0}));
    EXPECT_EQ(RArrEval(5, in.data(), out.data(), 20, -1e300), 0u);
    EXPECT_EQ(out, Values(5, 0.0));
    EXPECT_EQ(RArrEval(5, in.data(), out.data(), 21, kQuietNan), 0u);  // the lower bound
    EXPECT_EQ(out, Values(5, 5.0));
}

TEST(ArrayEval, NewMakesTheOutput) {
    const Values in = samples::random(100);
    double* out = nullptr;
    EXPECT_EQ(NewRArrEval(100, in.data(), &out, 4, 2.0), 0u);
    ASSERT_NE(out, nullptr);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(out[i], 2.0 * in[i]);
    double* const before = out;
    EXPECT_EQ(NewRArrEval(50, before, &out, 5, 0.0), 0u);  // the old output may be the input
    ASSERT_NE(out, nullptr);
    for (int i = 0; i < 50; ++i) EXPECT_EQ(out[i], std::fabs(2.0 * in[i]));
    EXPECT_EQ(NewRArrEval(100, in.data(), &out, 23, -3.0), 0u);  // upon zeros
    for (int i = 0; i < 100; ++i) EXPECT_EQ(out[i], -3.0 * in[i]);
    RArrKill(&out);
}

TEST(ArrayEval, NewReleasesTheOutputOnFailure) {
    double x[] = {1.0, 2.0};
    double* out = RArrNew0(nullptr, 3);
    EXPECT_EQ(NewRArrEval(2, x, &out, 30, 1.0), 9u);
    EXPECT_EQ(out, nullptr);
    out = RArrNew0(nullptr, 3);
    EXPECT_EQ(NewRArrEval(2, nullptr, &out, 3, 1.0), 14u);
    EXPECT_EQ(out, nullptr);
    out = RArrNew0(nullptr, 3);
    EXPECT_EQ(NewRArrEval(uint64_t{1} << 61, x, &out, 3, 1.0), 0x80001u);
    EXPECT_EQ(out, nullptr);
    out = RArrNew0(nullptr, 3);
    EXPECT_EQ(NewRArrEval(0, x, &out, 1, 1.0), 0u);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(NewRArrEval(0, x, &out, 3, 1.0), 18u);
    EXPECT_EQ(NewRArrEval(2, x, nullptr, 1, 1.0), 18u);
}

}  // namespace
