#include "nuv64/arrays/real_matrix_elements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <utility>

#include "arrays/array_samples.h"
#include "nuv64/arrays/array_eval.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/memory.h"

namespace {

using samples::kInf;
using testing::Each;
using testing::ElementsAre;
using Values = std::vector<double>;

using Shape = std::pair<uint64_t, uint64_t>;
const Shape kShapes[] = {{1, 1}, {3, 5}, {5, 3}, {8, 8}, {1, 9}, {9, 1}, {17, 33}};

TEST(MatrixElements, TransposeAlsoInPlace) {
    for (auto [rows, cols] :
         {std::pair<uint64_t, uint64_t>{1, 1}, {3, 5}, {5, 3}, {8, 8}, {1, 9}}) {
        const auto m = samples::random(rows * cols);
        Values out(m.size(), 7.0), same(m);
        EXPECT_EQ(RMatTranspose(m.data(), rows, cols, out.data()), 0u);
        EXPECT_EQ(RMatTranspose(same.data(), rows, cols, same.data()), 0u);
        EXPECT_EQ(same, out);
        for (uint64_t r = 0; r < rows; ++r) {
            for (uint64_t c = 0; c < cols; ++c) EXPECT_EQ(out[c + r * cols], m[r + c * rows]);
        }
    }
    EXPECT_EQ(RMatTranspose(nullptr, 0, 4, nullptr), 0u);
}

TEST(MatrixElements, SumAndDifferenceOfTheWhole) {
    for (auto [rows, cols] : kShapes) {
        const auto a = samples::rough(rows * cols, 1), b = samples::rough(rows * cols, 2);
        Values sum(a.size()), difference(a.size());
        EXPECT_EQ(RMatSum(a.data(), b.data(), rows, cols, sum.data()), 0u);
        EXPECT_EQ(RMatDiff(a.data(), b.data(), rows, cols, difference.data()), 0u);
        Values plainSum(a.size()), plainDifference(a.size());
        for (size_t i = 0; i < a.size(); ++i) {
            plainSum[i] = a[i] + b[i];
            plainDifference[i] = a[i] - b[i];
        }
        EXPECT_EQ(samples::bits(sum), samples::bits(plainSum));
        EXPECT_EQ(samples::bits(difference), samples::bits(plainDifference));
    }
    double a[] = {1, 2}, b[] = {3, 5}, out[2];
    EXPECT_EQ(RMatSum(nullptr, b, 2, 1, nullptr), 14u);
    EXPECT_EQ(RMatSum(a, nullptr, 2, 1, out), 14u);
    EXPECT_EQ(RMatSum(a, b, 2, 1, nullptr), 18u);
    EXPECT_EQ(RMatDiff(nullptr, b, 2, 1, out), 14u);
    EXPECT_EQ(RMatDiff(a, nullptr, 2, 1, out), 14u);
    EXPECT_EQ(RMatDiff(a, b, 2, 1, nullptr), 14u);
    EXPECT_EQ(RMatSum(a, b, 0, 1, out), 0u);
    EXPECT_EQ(RMatDiff(a, b, 2, 0, out), 0u);
    EXPECT_EQ(RMatSum(a, b, 2, 1, a), 0u);
    EXPECT_THAT(a, ElementsAre(4, 7));
}

TEST(MatrixElements, SumsOfAllElements) {
    const double m[] = {3, -1, 2, 4, 0, -5};
    EXPECT_EQ(RMatSumOfPowersI(3, 2, m, 0), 6.0);
    EXPECT_EQ(RMatSumOfPowersI(3, 2, m, 1), 3.0);
    EXPECT_EQ(RMatSumOfPowersI(3, 2, m, 2), 55.0);
    EXPECT_EQ(RMatSumOfPowersI(3, 2, m, 3), 27.0 - 1.0 + 8.0 + 64.0 - 125.0);
    EXPECT_EQ(RMatNormL2(3, 2, m), std::sqrt(55.0));
    EXPECT_EQ(RMatNormL2(1, 2, m + 3), 4.0);
    const double large[] = {1e200, 0.0};
    EXPECT_EQ(RMatNormL2(2, 1, large), kInf);
    EXPECT_TRUE(std::isnan(RMatSumOfPowersI(0, 2, m, 2)));
    EXPECT_TRUE(std::isnan(RMatSumOfPowersI(3, 2, nullptr, 2)));
    EXPECT_TRUE(std::isnan(RMatNormL2(3, 0, m)));
    EXPECT_TRUE(std::isnan(RMatNormL2(3, 2, nullptr)));
}

TEST(MatrixElements, TraceAddsTheDiagonalThatThereIs) {
    const double m[] = {1, 20, 300, 4000, 50000, 600000};
    EXPECT_EQ(RMatTrace(2, 3, m), 4001.0);
    EXPECT_EQ(RMatTrace(3, 2, m), 50001.0);
    EXPECT_EQ(RMatTrace(2, 2, m), 4001.0);
    EXPECT_EQ(RMatTrace(6, 1, m), 1.0);
    EXPECT_TRUE(std::isnan(RMatTrace(0, 3, m)));
    EXPECT_TRUE(std::isnan(RMatTrace(3, 0, m)));
    EXPECT_TRUE(std::isnan(RMatTrace(2, 3, nullptr)));
}

TEST(MatrixElements, ReversalOfRowsAndOfColumns) {
    for (auto [rows, cols] : kShapes) {
        const auto m = samples::random(rows * cols);
        Values r(m.size()), c(m.size()), rSame(m), cSame(m);
        EXPECT_EQ(RMatReverseR(rows, cols, m.data(), r.data()), 0u);
        EXPECT_EQ(RMatReverseC(rows, cols, m.data(), c.data()), 0u);
        EXPECT_EQ(RMatReverseR(rows, cols, rSame.data(), rSame.data()), 0u);
        EXPECT_EQ(RMatReverseC(rows, cols, cSame.data(), cSame.data()), 0u);
        EXPECT_EQ(rSame, r);
        EXPECT_EQ(cSame, c);
        for (uint64_t i = 0; i < rows; ++i) {
            for (uint64_t j = 0; j < cols; ++j) {
                EXPECT_EQ(r[i + j * rows], m[rows - 1 - i + j * rows]);
                EXPECT_EQ(c[i + j * rows], m[i + (cols - 1 - j) * rows]);
            }
        }
    }
}

TEST(MatrixElements, RunningSumsAlongRowsInPlaceOnly) {
    const double m[] = {1, 2, 3, 4, 5, 6};  // 2 by 3
    Values same(m, m + 6);
    EXPECT_EQ(RMatRunningSumR(2, 3, same.data(), same.data()), 0u);
    EXPECT_THAT(same, ElementsAre(1, 2, 4, 6, 9, 12));
    Values out{7, 7, 10, 20, 100, 200};
    EXPECT_EQ(RMatRunningSumR(2, 3, m, out.data()), 0u);
    EXPECT_THAT(out, ElementsAre(1, 2, 11, 22, 111, 222));
}

TEST(MatrixElements, RunningSumsDownColumnsHaveNoStride) {
    const double m[] = {1, 2, 3, 4, 5, 6};
    Values column(m, m + 6);
    EXPECT_EQ(RMatRunningSumC(6, 1, column.data(), column.data()), 0u);
    EXPECT_THAT(column, ElementsAre(1, 3, 6, 10, 15, 21));
    for (auto [rows, cols] : kShapes) {
        const auto in = samples::random(rows * cols, 3);
        Values out = samples::random(rows * cols, 4), plain(out), same(in), plainSame(in);
        EXPECT_EQ(RMatRunningSumC(rows, cols, in.data(), out.data()), 0u);
        EXPECT_EQ(RMatRunningSumC(rows, cols, same.data(), same.data()), 0u);
        for (uint64_t i = 0; i < rows; ++i) plain[i] = in[i];
        for (uint64_t i = 1; i < rows; ++i) {
            for (uint64_t j = 0; j < cols; ++j) {
                plain[i + j] = plain[i - 1 + j] + in[i + j];
                plainSame[i + j] = plainSame[i - 1 + j] + plainSame[i + j];
            }
        }
        EXPECT_EQ(out, plain);
        EXPECT_EQ(same, plainSame);
    }
}

TEST(MatrixElements, RearrangementsTestTheirArguments) {
    double in[] = {1, 2}, out[2];
    for (auto* function : {RMatReverseR, RMatReverseC, RMatRunningSumR, RMatRunningSumC}) {
        EXPECT_EQ(function(0, 2, in, nullptr), 14u);
        EXPECT_EQ(function(2, 0, in, out), 14u);
        EXPECT_EQ(function(2, 1, nullptr, nullptr), 14u);
        EXPECT_EQ(function(2, 1, in, nullptr), 18u);
        EXPECT_EQ(function(1, 1, in, out), 0u);
        EXPECT_EQ(out[0], 1.0);
    }
}

TEST(MatrixElements, EvaluationTakesEachColumn) {
    const uint64_t rows = 5, cols = 3;
    const auto m = samples::random(rows * cols);
    for (uint64_t operation = 0; operation <= 45; ++operation) {
        if (operation == 41) continue;  // noise
        Values out(m.size(), 2.0), plain(m.size(), 2.0);
        uint32_t status = 0;
        for (uint64_t c = 0; c < cols && status == 0; ++c) {
            status = RArrEval(rows, &m[c * rows], &plain[c * rows], operation, 2.0);
        }
        EXPECT_EQ(RMatEvalC(rows, cols, m.data(), out.data(), operation, 2.0), status) << operation;
        EXPECT_EQ(samples::bits(out), samples::bits(plain)) << operation;
    }
    Values sorted(m.size());
    EXPECT_EQ(RMatEvalC(rows, cols, m.data(), sorted.data(), 39, 0.0), 0u);
    for (uint64_t c = 0; c < cols; ++c) {
        EXPECT_TRUE(std::is_sorted(&sorted[c * rows], &sorted[c * rows] + rows));
    }
    EXPECT_EQ(RMatEvalC(rows, 0, nullptr, nullptr, 3, 1.0), 0u);
    EXPECT_EQ(RMatEvalC(rows, cols, nullptr, sorted.data(), 3, 1.0), 14u);
    EXPECT_EQ(RMatEvalC(rows, cols, m.data(), nullptr, 3, 1.0), 18u);
}

TEST(MatrixElements, EvaluationAlongRows) {
    const uint64_t rows = 4, cols = 3;
    const auto m = samples::random(rows * cols);
    const auto single = [](uint64_t k) {
        return (k >= 1 && k <= 8) || (k >= 10 && k <= 15) || k == 23 || k == 24 || k == 41;
    };
    for (uint64_t operation = 0; operation <= 50; ++operation) {
        Values out(m.size(), 2.0), expected(m.size(), 2.0);
        uint32_t status = 9;
        if (single(operation)) {
            status = operation == 41
                         ? 0
                         : RMatEvalC(rows, cols, m.data(), expected.data(), operation, 0.5);
        } else if (operation == 9) {
            status = RMatRunningSumR(rows, cols, m.data(), expected.data());
        } else if (operation == 16) {
            status = RMatReverseR(rows, cols, m.data(), expected.data());
        }
        EXPECT_EQ(RMatEvalR(rows, cols, m.data(), out.data(), operation, 0.5), status) << operation;
        if (operation != 41) {
            EXPECT_EQ(out, expected) << operation;
        }
    }
    Values noisy(m.size());
    EXPECT_EQ(RMatEvalR(rows, cols, m.data(), noisy.data(), 41, 0.0), 0u);
    EXPECT_EQ(noisy, m);
    EXPECT_EQ(RMatEvalR(rows, cols, m.data(), noisy.data(), 39, 0.0), 9u);
    EXPECT_EQ(RMatEvalR(rows, cols, m.data(), noisy.data(), UINT64_MAX, 0.0), 9u);
}

TEST(MatrixElements, EvaluationIntoANewMatrix) {
    const double m[] = {1, -2, 3, -4, 5, -6};
    double* out = nullptr;
    ASSERT_EQ(NewRMatEvalC(3, 2, m, &out, 5, 0.0), 0u);
    EXPECT_THAT(Values(out, out + 6), ElementsAre(1, 2, 3, 4, 5, 6));
    RMatKill(&out);
    ASSERT_EQ(NewRMatEvalR(3, 2, m, &out, 16, 0.0), 0u);
    EXPECT_THAT(Values(out, out + 6), ElementsAre(3, -2, 1, -6, 5, -4));
    RMatKill(&out);
    // A running sum adds columns of the output, which is new here.
    ASSERT_EQ(NewRMatEvalR(3, 2, m, &out, 9, 0.0), 0u);
    EXPECT_THAT(Values(out, out + 6), ElementsAre(1, -2, 3, 1, -2, 3));
    RMatKill(&out);
    double held = 0.0;
    for (auto* function : {NewRMatEvalC, NewRMatEvalR}) {
        EXPECT_EQ(function(3, 2, m, nullptr, 5, 0.0), 18u);
        out = &held;
        EXPECT_EQ(function(3, 2, m, &out, 30, 0.0), 9u);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(function(3, 2, nullptr, &out, 5, 0.0), 14u);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(function(uint64_t{1} << 40, uint64_t{1} << 40, m, &out, 5, 0.0), 0x80001u);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(function(3, 0, m, &out, 5, 0.0), 0u);
        EXPECT_EQ(out, nullptr);
    }
}

}  // namespace
