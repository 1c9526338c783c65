#include "nuv64/arrays/real_matrix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include "arrays/array_samples.h"
#include "nuv64/core/memory.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using samples::kInf;
using testing::Each;
using testing::ElementsAre;
using Values = std::vector<double>;

constexpr double kEps = 0x1p-52;

struct InverseCase {
    uint64_t n;
    uint64_t m;
    Values matrix;
    Values rightSide;
    Values inverse;
    Values solution;
};

struct SingularCase {
    uint64_t rows;
    uint64_t cols;
    Values matrix;
    Values singular;
};

#include "arrays/real_matrix_reference.inc"

// --- life and shape

TEST(RealMatrix, MakersAreThoseOfTheArrays) {
    uint32_t status = 7;
    EXPECT_EQ(RMatNew(&status, 0, 5), nullptr);
    EXPECT_EQ(status, 0u);
    status = 7;
    EXPECT_EQ(RMatNew(&status, uint64_t{1} << 31, uint64_t{1} << 30), nullptr);
    EXPECT_EQ(status, 0x80001u);
    status = 7;
    EXPECT_EQ(RMatNew0(&status, uint64_t{1} << 31, uint64_t{1} << 30), nullptr);
    EXPECT_EQ(status, 0x80001u);
    double* zeros = RMatNew0(&status, 3, 2);
    EXPECT_EQ(status, 0u);
    EXPECT_THAT(Values(zeros, zeros + 6), Each(0.0));
    EXPECT_EQ(RMatFill(3, 2, zeros, 4.0), 0u);
    double* copy = RMatNewCopy(nullptr, 3, 2, zeros);
    EXPECT_THAT(Values(copy, copy + 6), Each(4.0));
    EXPECT_EQ(RMatNewCopy(&status, 3, 2, nullptr), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatZero(3, 2, copy), 0u);
    EXPECT_EQ(RMatCopy(3, 2, copy, zeros), 0u);
    EXPECT_THAT(Values(zeros, zeros + 6), Each(0.0));
    RMatKill(&zeros);
    RMatKill(&copy);
    double one = 1.0;
    EXPECT_EQ(RMatCopy(0, 9, nullptr, nullptr), 0u);
    EXPECT_EQ(RMatCopy(1, 1, nullptr, nullptr), 18u);
    EXPECT_EQ(RMatCopy(1, 1, nullptr, &one), 14u);
    EXPECT_EQ(RMatFill(1, 1, nullptr, 1.0), 18u);
    EXPECT_EQ(RMatZero(1, 0, nullptr), 0u);
}

TEST(RealMatrix, RowsAreAppendedAndRemovedInEachColumn) {
    const double m[] = {1, 2, 3, 4, 5, 6};  // 3 by 2
    double* longer = NewRMatAppendRows0(m, 3, 2, 2);
    EXPECT_THAT(Values(longer, longer + 10), ElementsAre(1, 2, 3, 0, 0, 4, 5, 6, 0, 0));
    RMatKill(&longer);
    double* same = NewRMatAppendRows0(m, 3, 2, 0);
    EXPECT_THAT(Values(same, same + 6), ElementsAre(1, 2, 3, 4, 5, 6));
    RMatKill(&same);
    double* shorter = NewRMatRemoveRows(m, 3, 2, 2);
    EXPECT_THAT(Values(shorter, shorter + 2), ElementsAre(1, 4));
    RMatKill(&shorter);
}

TEST(RealMatrix, RowChangesThatFail) {
    const double m[] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(NewRMatAppendRows0(nullptr, 3, 2, 1), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 0, 1), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 2, UINT64_MAX), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 2, (uint64_t{1} << 63) - 3), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 2, uint64_t{1} << 58), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(nullptr, 3, 2, 1), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 0, 2, 1), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 0, 1), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 2, 0), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 2, 3), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 2, UINT64_MAX), nullptr);
}

TEST(RealMatrix, TransposeAlsoInPlace) {
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

TEST(RealMatrix, VandermondeRowsTakeTheElementBefore) {
    const double x[] = {2.0, 3.0, 5.0};
    Values m(9);
    EXPECT_EQ(RMatFillVandermonde(m.data(), x + 1, 2, 3), 0u);
    EXPECT_THAT(Values(m.begin(), m.begin() + 6), ElementsAre(1, 1, 2, 3, 4, 9));
    EXPECT_EQ(RMatFillVandermonde(m.data(), x + 1, 2, 0), 0u);
    EXPECT_THAT(Values(m.begin(), m.begin() + 4), ElementsAre(1, 1, 2, 3));
    double* fresh = RMatNewVandermonde(nullptr, x, 3, 0);
    EXPECT_THAT(Values(fresh, fresh + 9), ElementsAre(1, 1, 1, 2, 3, 5, 4, 9, 25));
    RMatKill(&fresh);
    EXPECT_EQ(RMatFillVandermonde(m.data(), x + 1, 0, 3), 14u);
    EXPECT_EQ(RMatFillVandermonde(m.data(), nullptr, 2, 3), 14u);
    EXPECT_EQ(RMatFillVandermonde(nullptr, x + 1, 2, 3), 18u);
    uint32_t status = 7;
    EXPECT_EQ(RMatNewVandermonde(&status, x, 0, 3), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatNewVandermonde(&status, nullptr, 3, 3), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatNewVandermonde(&status, x, uint64_t{1} << 40, 0), nullptr);
    EXPECT_EQ(status, 0x80001u);
}

TEST(RealMatrix, GramMatrixHoldsTheProductsOfColumns) {
    const double x[] = {1, 2, 3, 4, 5, 6};  // 3 by 2
    Values gram(4);
    EXPECT_EQ(RMatFillGram(2, gram.data(), 3, x), 0u);
    EXPECT_THAT(gram, ElementsAre(14, 32, 32, 77));
    double* fresh = RMatNewGram(nullptr, 2, 3, x);
    EXPECT_THAT(Values(fresh, fresh + 4), ElementsAre(14, 32, 32, 77));
    RMatKill(&fresh);
    EXPECT_EQ(RMatFillGram(0, gram.data(), 3, x), 14u);
    EXPECT_EQ(RMatFillGram(2, gram.data(), 0, x), 14u);
    EXPECT_EQ(RMatFillGram(2, gram.data(), 3, nullptr), 14u);
    EXPECT_EQ(RMatFillGram(2, nullptr, 3, x), 18u);
    uint32_t status = 7;
    EXPECT_EQ(RMatNewGram(&status, 0, 3, x), nullptr);
    EXPECT_EQ(status, 14u);
    EXPECT_EQ(RMatNewGram(&status, uint64_t{1} << 40, 1, x), nullptr);
    EXPECT_EQ(status, 0x80001u);
}

TEST(RealMatrix, MatrixByVectorAddsUpward) {
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

// --- inversion

double largest(const Values& values) {
    double result = 0.0;
    for (double x : values) result = std::max(result, std::fabs(x));
    return result;
}

double distance(const Values& a, const Values& b) {
    double result = 0.0;
    for (size_t i = 0; i < a.size(); ++i) result = std::max(result, std::fabs(a[i] - b[i]));
    return result;
}

TEST(MatrixInversion, AgreesWithReference) {
    double worst = 0.0;
    for (const InverseCase& test : kInverses) {
        Values a(test.matrix), b(test.rightSide);
        ASSERT_EQ(RMatInvert(a.data(), test.n, b.data(), test.m), 0u);
        const double condition =
            largest(test.matrix) * largest(test.inverse) * static_cast<double>(test.n);
        const double error = std::max(distance(a, test.inverse) / largest(test.inverse),
                                      distance(b, test.solution) / largest(test.solution));
        worst = std::max(worst, error / (condition * kEps));
    }
    std::printf("[  worst   ] inversion error, in units of condition * 2^-52: %.2g\n", worst);
    EXPECT_LT(worst, 2.0);
}

TEST(MatrixInversion, ProductWithTheMatrixIsTheIdentity) {
    for (uint64_t n : {1, 2, 3, 10, 33, 100}) {
        const auto m = samples::random(n * n);
        Values a(m);
        ASSERT_EQ(RMatInvert(a.data(), n, nullptr, 3), 0u);
        double worst = 0.0;
        for (uint64_t i = 0; i < n; ++i) {
            for (uint64_t j = 0; j < n; ++j) {
                double sum = i == j ? -1.0 : 0.0;
                for (uint64_t k = 0; k < n; ++k) sum += m[i + k * n] * a[k + j * n];
                worst = std::max(worst, std::fabs(sum));
            }
        }
        EXPECT_LT(worst, 10.0 * static_cast<double>(n) * kEps * largest(m) * largest(a) *
                             static_cast<double>(n));
    }
}

TEST(MatrixInversion, SingularMatrices) {
    double a[] = {1, 2, 2, 4};
    EXPECT_EQ(RMatInvert(a, 2, nullptr, 0), 26u);
    double graded[] = {1, 0, 0, 1e-15};
    EXPECT_EQ(RMatInvert(graded, 2, nullptr, 0), 26u);
    double fair[] = {1, 0, 0, 2e-15};
    EXPECT_EQ(RMatInvert(fair, 2, nullptr, 0), 0u);
    double broken[] = {1, samples::kQuietNan, 0, 1};
    EXPECT_EQ(RMatInvert(broken, 2, nullptr, 0), 26u);
    double infinite[] = {kInf, 1, 1, 1};
    EXPECT_EQ(RMatInvert(infinite, 2, nullptr, 0), 26u);
    // Nothing is small against a largest pivot of zero: only what follows fails.
    double zero = 0.0;
    EXPECT_EQ(RMatInvert(&zero, 1, nullptr, 0), 0u);
    EXPECT_EQ(zero, kInf);
    double zeros[4] = {};
    EXPECT_EQ(RMatInvert(zeros, 2, nullptr, 0), 26u);
}

TEST(MatrixInversion, Arguments) {
    double a[] = {2, 0, 0, 4}, b[] = {1, 1};
    EXPECT_EQ(RMatInvert(nullptr, 2, b, 1), 14u);
    EXPECT_EQ(RMatInvert(a, 0, b, 1), 14u);
    EXPECT_EQ(RMatInvert(a, uint64_t{1} << 60, nullptr, 0), 0x80001u);
    EXPECT_EQ(RMatInvert(a, 2, b, 0), 0u);
    EXPECT_THAT(b, ElementsAre(1, 1));
    EXPECT_THAT(a, ElementsAre(0.5, 0, 0, 0.25));
    EXPECT_EQ(RMatInvert(a, 2, b, 1), 0u);
    EXPECT_THAT(b, ElementsAre(2, 4));
}

// The written rule, by rows: among equal pivots the one found last is taken.
TEST(MatrixInversion, StepsAreThoseOfThePlainForm) {
    const uint64_t n = 6;
    for (uint64_t seed = 0; seed < 20; ++seed) {
        Values m(n * n);
        const auto random = samples::random(n * n, seed);
        for (size_t i = 0; i < m.size(); ++i) m[i] = std::floor(random[i] / 4.0);
        Values fast(m);
        const uint32_t status = RMatInvert(fast.data(), n, nullptr, 0);
        std::vector<int> used(n, 0);
        std::vector<uint64_t> rows(n), cols(n);
        double biggest = 0.0;
        bool singular = false;
        for (uint64_t step = 0; step < n && !singular; ++step) {
            double best = 0.0;
            for (uint64_t r = 0; r < n; ++r) {
                for (uint64_t c = 0; c < n; ++c) {
                    if (used[r] || used[c] || std::fabs(m[r + c * n]) < best) continue;
                    best = std::fabs(m[r + c * n]);
                    rows[step] = r;
                    cols[step] = c;
                }
            }
            const uint64_t row = rows[step], col = cols[step];
            used[col] = 1;
            biggest = std::max(biggest, best);
            for (uint64_t c = 0; c < n; ++c) std::swap(m[row + c * n], m[col + c * n]);
            if (biggest * 5.0 * kEps > best) {
                singular = true;
                break;
            }
            const double scale = 1.0 / m[col + col * n];
            m[col + col * n] = 1.0;
            for (uint64_t c = 0; c < n; ++c) m[col + c * n] *= scale;
            for (uint64_t r = 0; r < n; ++r) {
                if (r == col) continue;
                const double factor = m[r + col * n];
                m[r + col * n] = 0.0;
                for (uint64_t c = 0; c < n; ++c) m[r + c * n] -= m[col + c * n] * factor;
            }
        }
        EXPECT_EQ(status, singular ? 26u : 0u);
        if (singular) continue;
        for (uint64_t step = n; step-- > 0;) {
            for (uint64_t r = 0; r < n; ++r)
                std::swap(m[r + rows[step] * n], m[r + cols[step] * n]);
        }
        EXPECT_EQ(fast, m);
    }
}

// --- singular values

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

// The largest deviation of transpose(Q)*Q from the identity.
double orthogonality(const Values& q, uint64_t rows, uint64_t cols) {
    double worst = 0.0;
    for (uint64_t i = 0; i < cols; ++i) {
        for (uint64_t j = 0; j < cols; ++j) {
            double sum = i == j ? -1.0 : 0.0;
            for (uint64_t r = 0; r < rows; ++r) sum += q[r + i * rows] * q[r + j * rows];
            worst = std::max(worst, std::fabs(sum));
        }
    }
    return worst;
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
    for (const SingularCase& test : kSingular) {
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

}  // namespace
