#include "nuv64/arrays/real_matrix_inverse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "arrays/array_samples.h"
#include "arrays/matrix_samples.h"

namespace {

using samples::distance;
using samples::kEps;
using samples::kInf;
using samples::largest;
using testing::ElementsAre;
using Values = std::vector<double>;

TEST(MatrixInversion, AgreesWithReference) {
    double worst = 0.0;
    for (const samples::InverseCase& test : samples::kInverses) {
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
    for (uint64_t seed = 0; seed < 80; ++seed) {
        const uint64_t n = 1 + seed % 16 * (seed % 3 + 1);
        Values m(n * n);
        const auto random = samples::random(n * n, seed);
        for (size_t i = 0; i < m.size(); ++i) {
            m[i] = seed % 2 ? random[i] : std::floor(random[i] / 4.0);
        }
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

}  // namespace
