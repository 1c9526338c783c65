#include "nuv64/arrays/real_matrix_svd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "arrays/array_samples.h"
#include "arrays/matrix_samples.h"
#include "arrays/plain_matrices.h"
#include "nuv64/arrays/real_matrix_products.h"
#include "nuv64/arrays/real_norms.h"

namespace {

using samples::distance;
using samples::kEps;
using samples::kInf;
using samples::largest;
using samples::orthogonality;
using testing::Each;
using testing::ElementsAre;
using Values = std::vector<double>;

struct Decomposed {
    uint32_t status;
    Values u, s, v;
};

Decomposed decompose(Values a, uint64_t rows, uint64_t cols, uint64_t uColumns, uint32_t job) {
    const uint64_t k = std::min(rows, cols);
    Decomposed d{0, Values(rows * uColumns, 7.0), Values(k, 7.0), Values(cols * cols, 7.0)};
    d.status = RMatSVD(a.data(), rows, cols, d.u.data(), d.s.data(), d.v.data(), job);
    return d;
}

double rebuildError(const Values& a, const Decomposed& d, uint64_t rows, uint64_t cols) {
    double worst = 0.0;
    for (uint64_t r = 0; r < rows; ++r) {
        for (uint64_t c = 0; c < cols; ++c) {
            double sum = -a[r + c * rows];
            for (uint64_t k = 0; k < std::min(rows, cols); ++k) {
                sum += d.u[r + k * rows] * d.s[k] * d.v[c + k * cols];
            }
            worst = std::max(worst, std::fabs(sum));
        }
    }
    return worst;
}

TEST(SingularValues, AgreeWithReference) {
    double worst = 0.0;
    for (const samples::SingularCase& test : samples::kSingular) {
        const auto d =
            decompose(test.matrix, test.rows, test.cols, std::min(test.rows, test.cols), 22);
        ASSERT_EQ(d.status, 0u);
        const double unit = static_cast<double>(std::max(test.rows, test.cols)) * kEps *
                            std::max(test.singular[0], 1e-300);
        worst = std::max(worst, distance(d.s, test.singular) / unit);
        EXPECT_TRUE(std::is_sorted(d.s.rbegin(), d.s.rend()));
        EXPECT_GE(d.s.back(), 0.0);
        EXPECT_LT(rebuildError(test.matrix, d, test.rows, test.cols), 20.0 * unit);
    }
    std::printf("[  worst   ] singular values, in units of size * 2^-52 * largest: %.2g\n", worst);
    EXPECT_LT(worst, 3.0);
}

TEST(SingularValues, ManyShapesRebuildAndAreOrthogonal) {
    double worst = 0.0;
    for (auto [rows, cols] : {std::pair<uint64_t, uint64_t>{1, 1},
                              {2, 1},
                              {1, 2},
                              {2, 2},
                              {2, 3},
                              {3, 2},
                              {10, 3},
                              {3, 10},
                              {17, 17},
                              {40, 39},
                              {39, 40},
                              {5, 60},
                              {60, 5},
                              {300, 200}}) {
        const auto a = samples::random(rows * cols, 5);
        const uint64_t k = std::min(rows, cols);
        const auto d = decompose(a, rows, cols, k, 22);
        ASSERT_EQ(d.status, 0u) << rows << " " << cols;
        const double unit = static_cast<double>(std::max(rows, cols)) * kEps;
        worst =
            std::max({worst, rebuildError(a, d, rows, cols) / (unit * d.s[0]),
                      orthogonality(d.u, rows, k) / unit, orthogonality(d.v, cols, cols) / unit});
    }
    std::printf("[  worst   ] residual and orthogonality, in units of size * 2^-52: %.2g\n", worst);
    EXPECT_LT(worst, 10.0);
}

TEST(SingularValues, DeficientAndGradedMatricesConverge) {
    for (uint64_t rank : {0, 1, 2, 5}) {
        const uint64_t rows = 12, cols = 9;
        const auto left = samples::random(rows * rank, 1), right = samples::random(cols * rank, 2);
        Values a(rows * cols, 0.0);
        for (uint64_t r = 0; r < rows; ++r) {
            for (uint64_t c = 0; c < cols; ++c) {
                for (uint64_t k = 0; k < rank; ++k)
                    a[r + c * rows] += left[r + k * rows] * right[c + k * cols];
            }
        }
        const auto d = decompose(a, rows, cols, cols, 22);
        ASSERT_EQ(d.status, 0u);
        for (uint64_t k = rank; k < cols; ++k) EXPECT_LE(d.s[k], 1e-13 * (rank ? d.s[0] : 1.0));
        EXPECT_LT(orthogonality(d.u, rows, cols), 1e-13);
        EXPECT_LT(orthogonality(d.v, cols, cols), 1e-13);
    }
    // Exact zeros on and beside the diagonal exercise the deflations.
    const Values holes = {1, 0, 0, 0, 2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 5};
    EXPECT_EQ(decompose(holes, 4, 4, 4, 22).status, 0u);
    const Values shifted = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    const auto d = decompose(shifted, 3, 3, 3, 22);
    EXPECT_EQ(d.status, 0u);
    EXPECT_THAT(d.s, ElementsAre(1, 1, 0));
    for (double scale : {1e-300, 1e300}) {
        Values a = samples::random(20);
        for (double& x : a) x *= scale;
        const auto e = decompose(a, 5, 4, 4, 22);
        ASSERT_EQ(e.status, 0u);
        EXPECT_LT(rebuildError(a, e, 5, 4), 1e-14 * e.s[0]);
    }
}

TEST(SingularValues, ChaseOverExactZeros) {
    for (uint64_t seed = 0; seed < 300; ++seed) {
        const uint64_t rows = 1 + seed % 6, cols = 1 + seed / 6 % 6;
        Values a = samples::random(rows * cols, seed);
        for (double& x : a) x = std::fabs(x) < 6.0 ? 0.0 : std::round(x / 5.0);
        const auto d = decompose(a, rows, cols, std::min(rows, cols), 22);
        ASSERT_EQ(d.status, 0u) << seed;
        EXPECT_LT(rebuildError(a, d, rows, cols), 1e-13) << seed;
        EXPECT_LT(orthogonality(d.u, rows, std::min(rows, cols)), 1e-13) << seed;
        EXPECT_LT(orthogonality(d.v, cols, cols), 1e-13) << seed;
    }
}

TEST(SingularValues, JobChoosesWhatIsMade) {
    const uint64_t rows = 6, cols = 4;
    const auto a = samples::random(rows * cols);
    const auto thin = decompose(a, rows, cols, cols, 22);
    const auto full = decompose(a, rows, cols, rows, 11);
    EXPECT_EQ(full.s, thin.s);
    EXPECT_EQ(full.v, thin.v);
    EXPECT_EQ(Values(full.u.begin(), full.u.begin() + static_cast<int64_t>(rows * cols)), thin.u);
    EXPECT_LT(orthogonality(full.u, rows, rows), 1e-14);
    const auto valuesOnly = decompose(a, rows, cols, cols, 0);
    EXPECT_EQ(valuesOnly.s, thin.s);
    EXPECT_THAT(valuesOnly.u, Each(7.0));
    EXPECT_THAT(valuesOnly.v, Each(7.0));
    const auto onlyV = decompose(a, rows, cols, cols, 5);
    EXPECT_EQ(onlyV.v, thin.v);
    EXPECT_THAT(onlyV.u, Each(7.0));
    const auto onlyU = decompose(a, rows, cols, cols, 30);
    EXPECT_EQ(onlyU.u, thin.u);
    EXPECT_THAT(onlyU.v, Each(7.0));
    Values copy(a), s(cols), u(rows * cols), v(cols * cols);
    EXPECT_EQ(RMatThinSVD(copy.data(), rows, cols, u.data(), s.data(), v.data()), 0u);
    EXPECT_EQ(s, thin.s);
    EXPECT_EQ(u, thin.u);
}

TEST(SingularValues, Arguments) {
    double a[] = {1, 2, 3, 4}, u[4], s[2], v[4];
    EXPECT_EQ(RMatSVD(nullptr, 2, 2, u, s, v, 22), 22u);
    EXPECT_EQ(RMatSVD(a, 0, 2, u, s, v, 22), 22u);
    EXPECT_EQ(RMatSVD(a, 2, 0, u, nullptr, v, 22), 22u);
    EXPECT_EQ(RMatSVD(a, 2, 2, u, nullptr, v, 0), 18u);
    EXPECT_EQ(RMatSVD(a, 2, 2, nullptr, s, v, 10), 18u);
    EXPECT_EQ(RMatSVD(a, 2, 2, u, s, nullptr, 1), 18u);
    EXPECT_EQ(RMatThinSVD(a, 2, 2, nullptr, s, v), 18u);
    EXPECT_EQ(RMatSVD(a, 2, 2, nullptr, s, nullptr, 0), 0u);
    EXPECT_EQ(RMatSVD(a, uint64_t{1} << 61, 1, nullptr, s, nullptr, 0), 0x80001u);
}

TEST(SingularValues, BrokenValuesEndWithoutConvergence) {
    for (double bad : {samples::kQuietNan, kInf, -kInf}) {
        for (uint64_t place = 0; place < 12; ++place) {
            for (auto [rows, cols] :
                 {std::pair<uint64_t, uint64_t>{4, 3}, {3, 4}, {12, 1}, {2, 6}}) {
                Values a = samples::random(12);
                a[place] = bad;
                const auto d = decompose(a, rows, cols, std::min(rows, cols), 22);
                EXPECT_TRUE(d.status == 39 || d.status == 0) << place;
            }
        }
    }
    Values a(9, samples::kQuietNan);
    EXPECT_EQ(decompose(a, 3, 3, 3, 22).status, 39u);
    // The reciprocal of a norm of 2^-1024 overflows.
    const double tiny = 0x1p-1024;
    EXPECT_EQ(decompose({tiny, 0, 0, tiny}, 2, 2, 2, 22).status, 39u);
    EXPECT_EQ(decompose({2 * tiny, 0, 0, 2 * tiny}, 2, 2, 2, 22).status, 0u);
}

TEST(SingularValues, BackSubstitution) {
    const uint64_t rows = 5, cols = 3;
    const auto a = samples::random(rows * cols), x = samples::random(cols, 3);
    Values b(rows);
    RMatByRArr(a.data(), rows, cols, x.data(), b.data());
    const auto d = decompose(a, rows, cols, cols, 22);
    Values solution(cols);
    ASSERT_EQ(
        RMatSVDBacksub(d.u.data(), d.s.data(), d.v.data(), rows, cols, b.data(), solution.data()),
        0u);
    EXPECT_LT(distance(solution, x), 1e-13);
    Values wide(b.size());
    const auto e = decompose(a, cols, rows, cols, 22);
    ASSERT_EQ(RMatSVDBacksub(e.u.data(), e.s.data(), e.v.data(), cols, rows, x.data(), wide.data()),
              0u);
    Values back(cols);
    RMatByRArr(a.data(), cols, rows, wide.data(), back.data());
    EXPECT_LT(distance(back, x), 1e-13);
    const double* u = d.u.data();
    const double* s = d.s.data();
    const double* v = d.v.data();
    double out[3];
    EXPECT_EQ(RMatSVDBacksub(nullptr, s, v, rows, cols, b.data(), out), 22u);
    EXPECT_EQ(RMatSVDBacksub(u, nullptr, v, rows, cols, b.data(), out), 22u);
    EXPECT_EQ(RMatSVDBacksub(u, s, nullptr, rows, cols, b.data(), out), 22u);
    EXPECT_EQ(RMatSVDBacksub(u, s, v, 0, cols, b.data(), out), 22u);
    EXPECT_EQ(RMatSVDBacksub(u, s, v, rows, cols, nullptr, nullptr), 14u);
    EXPECT_EQ(RMatSVDBacksub(u, s, v, rows, cols, b.data(), nullptr), 18u);
}

TEST(SingularValues, ZeroValuesTakeNoPartInTheSolution) {
    const double u[] = {1, 0, 0, 1}, s[] = {2, 0}, v[] = {1, 0, 0, 1}, b[] = {6, 8};
    double x[2];
    EXPECT_EQ(RMatSVDBacksub(u, s, v, 2, 2, b, x), 0u);
    EXPECT_THAT(x, ElementsAre(3, 0));
}

TEST(SingularValues, StepsAreThoseOfThePlainForm) {
    for (auto [rows, cols] : {std::pair<uint64_t, uint64_t>{1, 1},
                              {1, 2},
                              {2, 1},
                              {2, 2},
                              {3, 5},
                              {5, 3},
                              {8, 8},
                              {9, 8},
                              {8, 9},
                              {1, 7},
                              {7, 1},
                              {16, 17},
                              {17, 16},
                              {40, 33},
                              {33, 40},
                              {60, 60},
                              {70, 20},
                              {20, 70}}) {
        for (bool full : {false, true}) {
            const uint64_t uColumns = full ? rows : std::min(rows, cols);
            const auto a = samples::random(rows * cols, 3);
            const auto d = decompose(a, rows, cols, uColumns, full ? 11 : 22);
            const plain::Svd expected(a, rows, cols, uColumns);
            ASSERT_EQ(d.status, 0u);
            ASSERT_TRUE(expected.converged);
            EXPECT_EQ(d.s, expected.s) << rows << " " << cols;
            EXPECT_EQ(d.u, expected.u) << rows << " " << cols;
            EXPECT_EQ(d.v, expected.v) << rows << " " << cols;
        }
    }
}

TEST(SingularValues, SparseStepsAreThoseOfThePlainForm) {
    for (uint64_t seed = 0; seed < 400; ++seed) {
        const uint64_t rows = 1 + seed % 11, cols = 1 + seed / 6 % 10;
        Values a = samples::random(rows * cols, seed);
        for (double& x : a) x = std::fabs(x) < 6.0 ? 0.0 : std::trunc(x / 5.0);
        const auto d = decompose(a, rows, cols, rows, 11);
        const plain::Svd expected(a, rows, cols, rows);
        ASSERT_EQ(d.status, expected.converged ? 0u : 39u) << seed;
        EXPECT_EQ(d.s, expected.s) << seed;
        EXPECT_EQ(d.u, expected.u) << seed;
        EXPECT_EQ(d.v, expected.v) << seed;
    }
}

TEST(SingularValues, ThinOneOfThreeByTwo) {
    Values a{1, 2, 3, 4, 5, 7}, u(7, 9.0), s(3, 9.0), v(5, 9.0);
    const Values original(a);
    ASSERT_EQ(RMatThinSVD(a.data(), 3, 2, u.data(), s.data(), v.data()), 0u);
    EXPECT_GT(s[0], s[1]);
    EXPECT_EQ(s[2], 9.0);
    EXPECT_EQ(u[6], 9.0);
    EXPECT_EQ(v[4], 9.0);
    EXPECT_LT(orthogonality(u, 3, 2), 1e-15);
    EXPECT_LT(orthogonality(v, 2, 2), 1e-15);
    Values back(6);
    ASSERT_EQ(RMatFromThinSVD(back.data(), 3, 2, u.data(), s.data(), v.data()), 0u);
    EXPECT_LT(distance(back, original), 1e-14);
}

TEST(SingularValues, MatricesAreRebuilt) {
    for (auto [rows, cols] : {std::pair<uint64_t, uint64_t>{1, 1},
                              {3, 2},
                              {9, 9},
                              {30, 17},
                              {2, 3},
                              {1, 6},
                              {17, 30}}) {
        const auto a = samples::random(rows * cols, 4);
        Values back(a.size());
        const auto thin = decompose(a, rows, cols, std::min(rows, cols), 22);
        ASSERT_EQ(
            RMatFromThinSVD(back.data(), rows, cols, thin.u.data(), thin.s.data(), thin.v.data()),
            0u);
        EXPECT_LT(distance(back, a), 1e-13);
        const auto full = decompose(a, rows, cols, rows, 11);
        ASSERT_EQ(RMatFromSVD(back.data(), rows, cols, full.u.data(), full.s.data(), full.v.data()),
                  0u);
        if (rows >= cols) {
            EXPECT_LT(distance(back, a), 1e-13);
        }
        // The steps, whatever they give: V transposed, k by k elements scaled, taken as k by cols.
        const uint64_t k = std::min(rows, cols);
        Values t = plain::transpose(full.v, cols, cols);
        for (uint64_t i = 0; i < k * k; ++i) t[i] *= full.s[i % k];
        t.resize(k * cols);
        EXPECT_EQ(back, plain::product(full.u, t, rows, k, cols));
        if (rows >= cols) {
            Values same(thin.u);
            ASSERT_EQ(
                RMatFromThinSVD(same.data(), rows, cols, same.data(), thin.s.data(), thin.v.data()),
                0u);
            EXPECT_LT(distance(same, a), 1e-13);
        }
    }
    const double u[] = {1}, s[] = {2}, v[] = {1};
    double out[1];
    for (auto* function : {RMatFromSVD, RMatFromThinSVD}) {
        EXPECT_EQ(function(nullptr, 1, 1, nullptr, s, v), 22u);
        EXPECT_EQ(function(out, 1, 1, u, nullptr, v), 22u);
        EXPECT_EQ(function(out, 1, 1, u, s, nullptr), 22u);
        EXPECT_EQ(function(nullptr, 1, 1, u, s, v), 18u);
        EXPECT_EQ(function(out, 0, 1, u, s, v), 14u);
        EXPECT_EQ(function(out, 1, 0, u, s, v), 14u);
        EXPECT_EQ(function(out, 1, 1, u, s, v), 0u);
        EXPECT_EQ(out[0], 2.0);
        EXPECT_EQ(function(out, uint64_t{1} << 32, uint64_t{1} << 40, u, s, v), 0x80001u);
    }
}

TEST(LinearSystemBySvd, SquareTallAndWide) {
    for (auto [rows, cols] :
         {std::pair<uint64_t, uint64_t>{1, 1}, {4, 4}, {20, 6}, {6, 20}, {1, 5}, {5, 1}}) {
        const auto a = samples::random(rows * cols, 6), truth = samples::random(cols, 7);
        const Values b = plain::product(a, truth, rows, cols, 1);
        Values x(cols, 9.0);
        const Values kept(a);
        ASSERT_EQ(SolveLinearSystemBySVD(a.data(), x.data(), b.data(), rows, cols, 1e-12), 0u);
        EXPECT_EQ(a, kept);
        EXPECT_LT(distance(plain::product(a, x, rows, cols, 1), b), 1e-11);
        if (rows >= cols) {
            EXPECT_LT(distance(x, truth), 1e-11);
        }
        // The shortest solution.
        EXPECT_LE(RArrNormL2(cols, x.data()), RArrNormL2(cols, truth.data()) * (1.0 + 1e-12));
    }
}

TEST(LinearSystemBySvd, ThresholdLeavesSmallValuesOut) {
    const double a[] = {4, 0, 0, 0, 2, 0, 0, 0, 1}, b[] = {8, 8, 8};
    double x[3];
    ASSERT_EQ(SolveLinearSystemBySVD(a, x, b, 3, 3, 1.0), 0u);
    EXPECT_THAT(x, ElementsAre(2, 0, 0));
    ASSERT_EQ(SolveLinearSystemBySVD(a, x, b, 3, 3, 0.5), 0u);
    EXPECT_THAT(x, ElementsAre(2, 4, 0));
    ASSERT_EQ(SolveLinearSystemBySVD(a, x, b, 3, 3, 0.0), 0u);
    EXPECT_THAT(x, ElementsAre(2, 4, 8));
    ASSERT_EQ(SolveLinearSystemBySVD(a, x, b, 3, 3, samples::kQuietNan), 0u);
    EXPECT_THAT(x, ElementsAre(2, 4, 8));
    ASSERT_EQ(SolveLinearSystemBySVD(a, x, b, 3, 3, kInf), 0u);
    EXPECT_THAT(x, ElementsAre(2, 0, 0));
    const double zeros[9] = {};
    ASSERT_EQ(SolveLinearSystemBySVD(zeros, x, b, 3, 3, 0.1), 0u);
    EXPECT_THAT(x, ElementsAre(0, 0, 0));
}

TEST(LinearSystemBySvd, Arguments) {
    const double a[] = {1, 2, 3, 4}, b[] = {1, 1};
    double x[2];
    EXPECT_EQ(SolveLinearSystemBySVD(nullptr, nullptr, b, 2, 2, 0.0), 14u);
    EXPECT_EQ(SolveLinearSystemBySVD(a, x, nullptr, 2, 2, 0.0), 14u);
    EXPECT_EQ(SolveLinearSystemBySVD(a, nullptr, b, 0, 2, 0.0), 18u);
    EXPECT_EQ(SolveLinearSystemBySVD(a, x, b, 0, 2, 0.0), 22u);
    EXPECT_EQ(SolveLinearSystemBySVD(a, x, b, 2, 0, 0.0), 22u);
    EXPECT_EQ(SolveLinearSystemBySVD(a, x, b, uint64_t{1} << 40, uint64_t{1} << 40, 0.0), 0x80001u);
    const double broken[] = {1, samples::kQuietNan, 3, 4};
    EXPECT_EQ(SolveLinearSystemBySVD(broken, x, b, 2, 2, 0.0), 39u);
}

}  // namespace
