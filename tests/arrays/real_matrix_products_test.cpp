#include "nuv64/arrays/real_matrix_products.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "arrays/array_samples.h"
#include "arrays/plain_matrices.h"

namespace {

using testing::ElementsAre;
using Values = std::vector<double>;

TEST(MatrixProducts, MatrixByVectorAddsUpward) {
    const uint32_t rows = 5, cols = 7;
    const auto m = samples::random(rows * cols, 1), x = samples::random(cols, 2);
    Values out(rows);
    EXPECT_EQ(RMatByRArr(m.data(), rows, cols, x.data(), out.data()), 0u);
    for (uint32_t r = 0; r < rows; ++r) {
        double sum = 0.0;
        for (uint32_t c = 0; c < cols; ++c) sum += m[r + c * rows] * x[c];
        EXPECT_EQ(out[r], sum);
    }
    EXPECT_EQ(RMatByRArr(nullptr, rows, cols, x.data(), out.data()), 14u);
    EXPECT_EQ(RMatByRArr(m.data(), rows, cols, nullptr, out.data()), 14u);
    EXPECT_EQ(RMatByRArr(m.data(), 0, cols, x.data(), nullptr), 14u);
    EXPECT_EQ(RMatByRArr(m.data(), rows, 0, x.data(), out.data()), 14u);
    EXPECT_EQ(RMatByRArr(m.data(), rows, cols, x.data(), nullptr), 18u);
}

TEST(MatrixProducts, AgreeWithThePlainLoopsToTheLastBit) {
    for (uint32_t m : {1, 2, 3, 4, 5, 7, 8, 31, 32, 33, 70}) {
        for (uint32_t k : {1, 2, 3, 4, 9, 127, 128, 129, 300}) {
            for (uint32_t n : {1, 2, 3, 4, 5, 6, 7, 8, 21}) {
                const auto a = samples::random(uint64_t{m} * k, 1);
                const auto b = samples::random(uint64_t{k} * n, 2);
                const Values expected = plain::product(a, b, m, k, n);
                Values out(expected.size() + 1, 7.0), outT(out), outT2(out);
                ASSERT_EQ(RMatByMat(a.data(), b.data(), m, k, n, out.data()), 0u);
                const Values bT = plain::transpose(b, k, n);
                ASSERT_EQ(RMatByMatT(a.data(), bT.data(), m, k, n, outT.data()), 0u);
                ASSERT_EQ(RMatTByMat(a.data(), bT.data(), m, k, n, outT2.data()), 0u);
                EXPECT_EQ(out.back(), 7.0);
                EXPECT_EQ(outT, out);
                EXPECT_EQ(outT2, out);
                out.pop_back();
                ASSERT_EQ(out, expected) << m << " " << k << " " << n;
            }
        }
    }
}

// Zeros that pad a block must not meet the infinities of a neighbour.
TEST(MatrixProducts, SpecialValuesStayInTheirRowsAndColumns) {
    for (uint32_t n : {3, 6, 7, 13, 40}) {
        const auto a = samples::rough(uint64_t{n} * n, 1), b = samples::random(uint64_t{n} * n, 2);
        Values out(a.size());
        ASSERT_EQ(RMatByMat(a.data(), b.data(), n, n, n, out.data()), 0u);
        EXPECT_EQ(samples::bits(out), samples::bits(plain::product(a, b, n, n, n)));
        ASSERT_EQ(RMatByMat(b.data(), a.data(), n, n, n, out.data()), 0u);
        EXPECT_EQ(samples::bits(out), samples::bits(plain::product(b, a, n, n, n)));
    }
}

TEST(MatrixProducts, VectorsFromBothSides) {
    for (uint32_t rows : {1, 2, 3, 8, 33}) {
        for (uint32_t cols : {1, 2, 3, 4, 5, 7, 8, 11, 16, 37}) {
            const auto m = samples::random(uint64_t{rows} * cols, 1);
            const auto left = samples::random(rows, 2), right = samples::random(cols, 3);
            Values byColumns(cols), byRows(rows);
            EXPECT_EQ(RArrByRMat(m.data(), rows, cols, left.data(), byColumns.data()), 0u);
            EXPECT_EQ(RMatByRArr(m.data(), rows, cols, right.data(), byRows.data()), 0u);
            EXPECT_EQ(byColumns, plain::product(left, m, 1, rows, cols));
            EXPECT_EQ(byRows, plain::product(m, right, rows, cols, 1));
        }
    }
}

TEST(MatrixProducts, DiagonalMatrices) {
    const double m[] = {1, 2, 3, 4, 5, 6, 7, 8, 9}, d[] = {2, 10, 100};
    Values left(m, m + 9), right(m, m + 9);
    EXPECT_EQ(RMatByDiagL(left.data(), 3, d), 0u);
    EXPECT_THAT(left, ElementsAre(2, 20, 300, 8, 50, 600, 14, 80, 900));
    EXPECT_EQ(RMatByDiagR(right.data(), 3, d), 0u);
    EXPECT_THAT(right, ElementsAre(2, 4, 6, 40, 50, 60, 700, 800, 900));
}

TEST(MatrixProducts, InPlaceFromTheRight) {
    for (auto [rows, cols] :
         {std::pair<uint32_t, uint32_t>{1, 1}, {3, 5}, {64, 7}, {65, 9}, {130, 20}, {5, 140}}) {
        const auto m = samples::random(uint64_t{rows} * cols, 1);
        const auto s = samples::random(uint64_t{cols} * cols, 2);
        Values product(m);
        EXPECT_EQ(RMatBySquareMatR(product.data(), rows, cols, s.data()), 0u);
        EXPECT_EQ(product, plain::product(m, s, rows, cols, cols));
    }
}

// Rows below see the new rows above them.
TEST(MatrixProducts, InPlaceFromTheLeftUsesFinishedRows) {
    for (auto [rows, cols] :
         {std::pair<uint32_t, uint32_t>{1, 1}, {3, 5}, {5, 3}, {8, 8}, {20, 9}, {33, 17}}) {
        Values s = samples::random(uint64_t{rows} * rows, 2);
        for (double& x : s) x /= 10.0 * rows;
        const auto m = samples::random(uint64_t{rows} * cols, 1);
        Values product(m), expected(m);
        EXPECT_EQ(RMatBySquareMatL(product.data(), rows, cols, s.data()), 0u);
        for (uint64_t i = 0; i < rows; ++i) {
            for (uint64_t c = 0; c < cols; ++c) {
                double sum = 0.0;
                for (uint64_t l = 0; l < rows; ++l) sum += s[i + l * rows] * expected[l + c * rows];
                expected[i + c * rows] = sum;
            }
        }
        EXPECT_EQ(product, expected);
        for (uint64_t c = 0; c < rows; ++c) {
            for (uint64_t r = c + 1; r < rows; ++r) s[r + c * rows] = 0.0;
        }
        product = m;
        EXPECT_EQ(RMatBySquareMatL(product.data(), rows, cols, s.data()), 0u);
        const Values triangular = plain::product(s, m, rows, rows, cols);
        for (size_t i = 0; i < m.size(); ++i) EXPECT_NEAR(product[i], triangular[i], 1e-13);
    }
}

TEST(MatrixProducts, Arguments) {
    double a[] = {1, 2, 3, 4}, b[] = {5, 6, 7, 8}, out[4];
    for (auto* function : {RMatByMat, RMatByMatT, RMatTByMat}) {
        EXPECT_EQ(function(nullptr, b, 2, 2, 2, nullptr), 14u);
        EXPECT_EQ(function(a, nullptr, 2, 2, 2, out), 14u);
        EXPECT_EQ(function(a, b, 0, 2, 2, nullptr), 14u);
        EXPECT_EQ(function(a, b, 2, 0, 2, out), 14u);
        EXPECT_EQ(function(a, b, 2, 2, 0, out), 14u);
        EXPECT_EQ(function(a, b, 2, 2, 2, nullptr), 18u);
    }
    EXPECT_EQ(RArrByRMat(nullptr, 2, 2, b, out), 14u);
    EXPECT_EQ(RArrByRMat(a, 2, 2, nullptr, out), 14u);
    EXPECT_EQ(RArrByRMat(a, 0, 2, b, nullptr), 14u);
    EXPECT_EQ(RArrByRMat(a, 2, 0, b, out), 14u);
    EXPECT_EQ(RArrByRMat(a, 2, 2, b, nullptr), 18u);
    for (auto* function : {RMatByDiagL, RMatByDiagR}) {
        EXPECT_EQ(function(nullptr, 2, b), 14u);
        EXPECT_EQ(function(a, 0, b), 14u);
        EXPECT_EQ(function(a, 2, nullptr), 14u);
    }
    for (auto* function : {RMatBySquareMatR, RMatBySquareMatL}) {
        EXPECT_EQ(function(nullptr, 2, 2, b), 14u);
        EXPECT_EQ(function(a, 0, 2, b), 14u);
        EXPECT_EQ(function(a, 2, 0, b), 14u);
        EXPECT_EQ(function(a, 2, 2, nullptr), 14u);
    }
    EXPECT_EQ(RMatBySquareMatL(a, UINT32_MAX, 1, b), 0x80001u);
    EXPECT_THAT(a, ElementsAre(1, 2, 3, 4));
}

}  // namespace
