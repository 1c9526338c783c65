#include "nuv64/arrays/real_matrix_eigen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "arrays/matrix_samples.h"
#include "arrays/plain_matrices.h"

namespace {

using samples::kEps;
using samples::kInf;
using samples::largest;
using samples::orthogonality;
using testing::ElementsAre;
using Values = std::vector<double>;

Values symmetric(uint64_t n, uint64_t seed) {
    Values a = samples::random(n * n, seed);
    for (uint64_t c = 0; c < n; ++c) {
        for (uint64_t r = 0; r < c; ++r) a[r + c * n] = a[c + r * n];
    }
    return a;
}

// The largest element of A*V - V*diag(d).
double residual(const Values& a, const Values& vectors, const Values& d, uint64_t n) {
    Values left = plain::product(a, vectors, n, n, n);
    double worst = 0.0;
    for (uint64_t c = 0; c < n; ++c) {
        for (uint64_t r = 0; r < n; ++r) {
            worst = std::max(worst, std::fabs(left[r + c * n] - vectors[r + c * n] * d[c]));
        }
    }
    return worst;
}

TEST(SymmetricEigenproblem, OneByOne) {
    double a = 5.0, eigenvalue = 0.0;
    EXPECT_EQ(RMatDiagonalize(&a, 1, &eigenvalue), 0u);
    EXPECT_EQ(eigenvalue, 5.0);
    EXPECT_EQ(a, 1.0);
    double b = -3.0, d = 0.0, e = 7.0;
    EXPECT_EQ(RMatTriDiagonalize(&b, 1, &d, &e), 0u);
    EXPECT_EQ(d, -3.0);
    EXPECT_EQ(e, 0.0);
    EXPECT_EQ(b, 1.0);
    EXPECT_EQ(RMatTriDiQL(&b, 1, &d, &e), 0u);
    EXPECT_EQ(d, -3.0);
}

TEST(SymmetricEigenproblem, StepsAreThoseOfThePlainForm) {
    for (uint64_t n : {2, 3, 4, 5, 7, 8, 9, 16, 17, 33, 60}) {
        for (uint64_t seed = 0; seed < 4; ++seed) {
            const Values a = symmetric(n, seed);
            Values plainZ(a), plainD(n), plainE(n), z(a), d(n), e(n), whole(a), eigenvalues(n);
            plain::reduceSymmetric(plainZ, n, plainD, plainE);
            ASSERT_EQ(RMatTriDiagonalize(z.data(), n, d.data(), e.data()), 0u);
            EXPECT_EQ(z, plainZ);
            EXPECT_EQ(d, plainD);
            EXPECT_EQ(e, plainE);
            ASSERT_TRUE(plain::iterateQl(plainZ, n, plainD, plainE));
            ASSERT_EQ(RMatTriDiQL(z.data(), n, d.data(), e.data()), 0u);
            EXPECT_EQ(z, plainZ);
            EXPECT_EQ(d, plainD);
            ASSERT_EQ(RMatDiagonalize(whole.data(), n, eigenvalues.data()), 0u);
            EXPECT_EQ(whole, z);
            EXPECT_EQ(eigenvalues, d);
        }
    }
}

// Zeros skip reflections, and equal or zero elements split the tridiagonal matrix.
TEST(SymmetricEigenproblem, SparseMatricesToo) {
    for (uint64_t seed = 0; seed < 300; ++seed) {
        const uint64_t n = 2 + seed % 9;
        Values a = symmetric(n, seed);
        for (double& x : a) x = std::fabs(x) < 6.0 ? 0.0 : std::trunc(x / 5.0);
        Values plainZ(a), plainD(n), plainE(n), z(a), d(n), e(n);
        plain::reduceSymmetric(plainZ, n, plainD, plainE);
        ASSERT_EQ(RMatTriDiagonalize(z.data(), n, d.data(), e.data()), 0u);
        EXPECT_EQ(z, plainZ) << seed;
        EXPECT_EQ(d, plainD) << seed;
        EXPECT_EQ(e, plainE) << seed;
        ASSERT_TRUE(plain::iterateQl(plainZ, n, plainD, plainE)) << seed;
        ASSERT_EQ(RMatTriDiQL(z.data(), n, d.data(), e.data()), 0u) << seed;
        EXPECT_EQ(z, plainZ) << seed;
        EXPECT_EQ(d, plainD) << seed;
        EXPECT_LT(residual(a, z, d, n), 1e-13) << seed;
        EXPECT_LT(orthogonality(z, n, n), 1e-13) << seed;
    }
}

TEST(SymmetricEigenproblem, VectorsAreOrthogonalAndSolveTheProblem) {
    double worst = 0.0;
    for (uint64_t n : {2, 5, 10, 40, 100}) {
        for (uint64_t seed = 5; seed < 8; ++seed) {
            const Values a = symmetric(n, seed);
            Values z(a), d(n);
            ASSERT_EQ(RMatDiagonalize(z.data(), n, d.data()), 0u);
            const double unit = static_cast<double>(n) * kEps;
            worst = std::max(
                {worst, residual(a, z, d, n) / (unit * largest(d)), orthogonality(z, n, n) / unit});
        }
    }
    std::printf("[  worst   ] eigenvector residual, orthogonality in units of n * 2^-52: %.2g\n",
                worst);
    EXPECT_LT(worst, 2.0);
}

TEST(SymmetricEigenproblem, KnownValues) {
    // The second difference on n points: 2 - 2*cos(k*pi/(n + 1)).
    const uint64_t n = 12;
    Values a(n * n), d(n);
    for (uint64_t i = 0; i < n; ++i) {
        a[i + i * n] = 2.0;
        if (i > 0) a[i + (i - 1) * n] = a[i - 1 + i * n] = -1.0;
    }
    ASSERT_EQ(RMatDiagonalize(a.data(), n, d.data()), 0u);
    std::sort(d.begin(), d.end());
    for (uint64_t k = 1; k <= n; ++k) {
        const double angle = static_cast<double>(k) * std::acos(-1.0) / static_cast<double>(n + 1);
        EXPECT_NEAR(d[k - 1], 2.0 - 2.0 * std::cos(angle), 8 * kEps);
    }
    double pair[] = {2, 1, 1, 2}, values[2];
    ASSERT_EQ(RMatDiagonalize(pair, 2, values), 0u);
    EXPECT_NEAR(std::min(values[0], values[1]), 1.0, kEps);
    EXPECT_NEAR(std::max(values[0], values[1]), 3.0, 2 * kEps);
    Values zeros(9), none(3, 7.0);
    ASSERT_EQ(RMatDiagonalize(zeros.data(), 3, none.data()), 0u);
    EXPECT_THAT(zeros, ElementsAre(1, 0, 0, 0, 1, 0, 0, 0, 1));
    EXPECT_THAT(none, ElementsAre(0, 0, 0));
}

TEST(SymmetricEigenproblem, OnlyTheLowerTriangleIsRead) {
    const uint64_t n = 6;
    const Values a = symmetric(n, 9);
    Values whole(a), lower(a), d(n), d2(n);
    for (uint64_t c = 0; c < n; ++c) {
        for (uint64_t r = 0; r < c; ++r) lower[r + c * n] = samples::kQuietNan;
    }
    ASSERT_EQ(RMatDiagonalize(whole.data(), n, d.data()), 0u);
    ASSERT_EQ(RMatDiagonalize(lower.data(), n, d2.data()), 0u);
    EXPECT_EQ(lower, whole);
    EXPECT_EQ(d2, d);
}

TEST(SymmetricEigenproblem, TridiagonalFromIdentity) {
    const double d0[] = {1, 2, 3}, e0[] = {0, 0.5, 0.25};
    Values z{1, 0, 0, 0, 1, 0, 0, 0, 1}, d(d0, d0 + 3), e(e0, e0 + 3);
    ASSERT_EQ(RMatTriDiQL(z.data(), 3, d.data(), e.data()), 0u);
    const Values t{1, 0.5, 0, 0.5, 2, 0.25, 0, 0.25, 3};
    EXPECT_LT(residual(t, z, d, 3), 1e-14);
    EXPECT_LT(orthogonality(z, 3, 3), 1e-14);
}

TEST(SymmetricEigenproblem, BrokenValuesEndWithoutConvergence) {
    for (double bad : {samples::kQuietNan, kInf, -kInf}) {
        Values a = symmetric(5, 1), d(5);
        a[1] = a[5] = bad;
        EXPECT_EQ(RMatDiagonalize(a.data(), 5, d.data()), 3u);
    }
    Values z(4), d{1, samples::kQuietNan}, e{0, 1};
    EXPECT_EQ(RMatTriDiQL(z.data(), 2, d.data(), e.data()), 3u);
    // Numbers near both ends of the range still work.
    for (double scale : {1e-290, 1e290}) {
        Values a = symmetric(6, 2), values(6);
        for (double& x : a) x *= scale;
        EXPECT_EQ(RMatDiagonalize(a.data(), 6, values.data()), 0u);
        EXPECT_LT(orthogonality(a, 6, 6), 1e-14);
    }
}

// A few units of the smallest number go in circles for ever. As many sweeps are made as are allowed
// for one eigenvalue, 4*n + 10, and no more: each one turns the columns.
TEST(SymmetricEigenproblem, SweepsAreCounted) {
    const double unit = std::numeric_limits<double>::denorm_min();
    const uint64_t n = 3;
    const Values d0(n, -4.0 * unit), e0{0.0, unit, unit}, identity{1, 0, 0, 0, 1, 0, 0, 0, 1};
    Values d(d0), e(e0), z(identity), plainD(d0), plainE(e0), plainZ(identity);
    EXPECT_EQ(RMatTriDiQL(z.data(), n, d.data(), e.data()), 3u);
    EXPECT_FALSE(plain::iterateQl(plainZ, n, plainD, plainE));
    EXPECT_EQ(z, plainZ);
    EXPECT_EQ(d, plainD);
    EXPECT_EQ(e, plainE);
}

TEST(SymmetricEigenproblem, Arguments) {
    double a[4] = {}, d[2], e[2];
    EXPECT_EQ(RMatDiagonalize(nullptr, 0, nullptr), 26u);
    EXPECT_EQ(RMatDiagonalize(nullptr, 2, nullptr), 14u);
    EXPECT_EQ(RMatDiagonalize(a, 2, nullptr), 18u);
    EXPECT_EQ(RMatDiagonalize(a, 1, nullptr), 18u);
    EXPECT_EQ(RMatDiagonalize(a, uint64_t{1} << 61, d), 0x80001u);
    EXPECT_EQ(RMatTriDiagonalize(nullptr, 0, d, e), 26u);
    EXPECT_EQ(RMatTriDiagonalize(nullptr, 2, nullptr, e), 14u);
    EXPECT_EQ(RMatTriDiagonalize(a, 2, nullptr, e), 18u);
    EXPECT_EQ(RMatTriDiagonalize(a, 2, d, nullptr), 18u);
    EXPECT_EQ(RMatTriDiagonalize(a, uint64_t{1} << 40, d, e), 0x80001u);
    EXPECT_EQ(RMatTriDiQL(nullptr, 0, d, e), 26u);
    EXPECT_EQ(RMatTriDiQL(nullptr, 2, d, e), 14u);
    EXPECT_EQ(RMatTriDiQL(a, 2, nullptr, e), 14u);
    EXPECT_EQ(RMatTriDiQL(a, 2, d, nullptr), 14u);
}

}  // namespace
