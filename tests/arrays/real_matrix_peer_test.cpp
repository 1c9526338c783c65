// The matrix algorithms beside Eigen's: inverse, eigenvalues, singular values, least squares, for
// all shapes, rank-deficient and graded matrices among them. Residuals and orthogonality are in
// units of size * 2^-52.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC optimize("O2")
#endif

#include <gtest/gtest.h>

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

#include "nuv64/arrays/real_matrix_eigen.h"
#include "nuv64/arrays/real_matrix_inverse.h"
#include "nuv64/arrays/real_matrix_products.h"
#include "nuv64/arrays/real_matrix_svd.h"

namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;

constexpr double kEps = 0x1p-52;

struct Shape {
    Index rows;
    Index cols;
};
constexpr Shape kShapes[] = {{1, 1},  {1, 2},   {2, 1},   {2, 2},   {3, 7},   {7, 3},    {1, 50},
                             {50, 1}, {16, 16}, {40, 33}, {33, 40}, {120, 8}, {300, 200}};

MatrixXd random(Index rows, Index cols, std::uint64_t seed) {
    std::mt19937_64 source(seed);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    return MatrixXd::NullaryExpr(rows, cols, [&] { return uniform(source); });
}

MatrixXd orthonormal(Index rows, Index cols, std::uint64_t seed) {
    return Eigen::HouseholderQR<MatrixXd>(random(rows, cols, seed)).householderQ() *
           MatrixXd::Identity(rows, cols);
}

// A matrix with these singular values.
MatrixXd withSingularValues(Index rows, Index cols, const VectorXd& values, std::uint64_t seed) {
    return orthonormal(rows, values.size(), seed) * values.asDiagonal() *
           orthonormal(cols, values.size(), seed + 1).transpose();
}

// From 1 down to 1/condition, in equal ratios.
VectorXd graded(Index n, double condition) {
    return VectorXd::NullaryExpr(n, [=](Index i) {
        return n == 1 ? 1.0
                      : std::pow(condition, -static_cast<double>(i) / static_cast<double>(n - 1));
    });
}

double orthogonality(const MatrixXd& q) {
    return (q.transpose() * q - MatrixXd::Identity(q.cols(), q.cols())).cwiseAbs().maxCoeff();
}

std::uint64_t count(Index n) {
    return static_cast<std::uint64_t>(n);
}

struct Decomposition {
    MatrixXd u;
    VectorXd s;
    MatrixXd v;
};

Decomposition decompose(MatrixXd a, bool full) {
    const Index k = std::min(a.rows(), a.cols());
    Decomposition d{MatrixXd(a.rows(), full ? a.rows() : k), VectorXd(k),
                    MatrixXd(a.cols(), a.cols())};
    EXPECT_EQ(RMatSVD(a.data(), count(a.rows()), count(a.cols()), d.u.data(), d.s.data(),
                      d.v.data(), full ? 11 : 22),
              0u);
    return d;
}

class Worst {
  public:
    explicit Worst(const char* what) : what_(what) {}
    ~Worst() {
        std::printf("[  worst   ] %s, in units of size * 2^-52: %.2g\n", what_, worst_);
        testing::Test::RecordProperty(what_, std::to_string(worst_));
    }
    Worst(const Worst&) = delete;
    Worst& operator=(const Worst&) = delete;

    void add(double error, Index size) {
        worst_ = std::max(worst_, error / (static_cast<double>(size) * kEps));
    }
    double value() const { return worst_; }

  private:
    const char* what_;
    double worst_ = 0.0;
};

void compareSingularValues(const MatrixXd& a, bool full, Worst& values, Worst& residual,
                           Worst& vectors) {
    const Index size = std::max(a.rows(), a.cols());
    const Index k = std::min(a.rows(), a.cols());
    const Decomposition d = decompose(a, full);
    const VectorXd expected = Eigen::JacobiSVD<MatrixXd>(a).singularValues();
    const double scale = std::max(expected[0], 1e-300);
    values.add((d.s - expected).cwiseAbs().maxCoeff() / scale, size);
    const MatrixXd back = d.u.leftCols(k) * d.s.asDiagonal() * d.v.leftCols(k).transpose();
    residual.add((back - a).cwiseAbs().maxCoeff() / scale, size);
    vectors.add(orthogonality(d.u), size);
    vectors.add(orthogonality(d.v), size);
    for (Index i = 1; i < k; ++i) EXPECT_GE(d.s[i - 1], d.s[i]);
}

TEST(BesideEigen, SingularValues) {
    Worst values("singular values"), residual("U*S*V' - A"), vectors("orthogonality of U and V");
    for (const auto& [rows, cols] : kShapes) {
        const Index k = std::min(rows, cols);
        const bool large = k > 100;
        compareSingularValues(random(rows, cols, 1), false, values, residual, vectors);
        if (large) continue;
        compareSingularValues(random(rows, cols, 2), true, values, residual, vectors);
        const MatrixXd poor = random(rows, (k + 1) / 2, 3) * random((k + 1) / 2, cols, 4);
        compareSingularValues(poor, false, values, residual, vectors);
        compareSingularValues(poor, true, values, residual, vectors);
        for (double condition : {1e4, 1e10, 1e14}) {
            const MatrixXd steep = withSingularValues(rows, cols, graded(k, condition), 5);
            compareSingularValues(steep, false, values, residual, vectors);
        }
        compareSingularValues(MatrixXd::Constant(rows, cols, 2.5), false, values, residual,
                              vectors);
        compareSingularValues(MatrixXd::Zero(rows, cols), true, values, residual, vectors);
    }
    EXPECT_LT(values.value(), 3.0);
    EXPECT_LT(residual.value(), 3.0);
    EXPECT_LT(vectors.value(), 4.0);
}

// Rows and columns scaled over many powers of ten.
TEST(BesideEigen, SingularValuesOfScaledMatrices) {
    Worst values("singular values, scaled"), residual("U*S*V' - A, scaled"),
        vectors("orthogonality, scaled");
    for (const Shape shape : {Shape{20, 12}, {12, 20}, {30, 30}}) {
        MatrixXd a = random(shape.rows, shape.cols, 7);
        for (Index c = 0; c < a.cols(); ++c) {
            a.col(c) *= std::pow(10.0, -0.7 * static_cast<double>(c));
        }
        compareSingularValues(a, false, values, residual, vectors);
        const MatrixXd reversed = a.rowwise().reverse();
        compareSingularValues(reversed, false, values, residual, vectors);
        compareSingularValues(1e-200 * a, false, values, residual, vectors);
        compareSingularValues(1e200 * a, false, values, residual, vectors);
    }
    EXPECT_LT(values.value(), 3.0);
    EXPECT_LT(residual.value(), 3.0);
    EXPECT_LT(vectors.value(), 4.0);
}

void compareEigenvalues(const MatrixXd& a, Worst& values, Worst& residual, Worst& vectors) {
    MatrixXd z = a;
    VectorXd d(a.rows());
    ASSERT_EQ(RMatDiagonalize(z.data(), count(a.rows()), d.data()), 0u);
    const double scale = std::max(d.cwiseAbs().maxCoeff(), 1e-300);
    residual.add((a * z - z * d.asDiagonal()).cwiseAbs().maxCoeff() / scale, a.rows());
    vectors.add(orthogonality(z), a.rows());
    std::sort(d.data(), d.data() + d.size());
    const VectorXd expected =
        Eigen::SelfAdjointEigenSolver<MatrixXd>(a, Eigen::EigenvaluesOnly).eigenvalues();
    values.add((d - expected).cwiseAbs().maxCoeff() / scale, a.rows());
}

TEST(BesideEigen, SymmetricEigenproblem) {
    Worst values("eigenvalues"), residual("A*Z - Z*d"), vectors("orthogonality of Z");
    for (const Index n : {1, 2, 3, 5, 8, 17, 40, 90, 200}) {
        const MatrixXd a = random(n, n, 11);
        compareEigenvalues(a + a.transpose(), values, residual, vectors);
        if (n > 100) continue;
        const MatrixXd q = orthonormal(n, n, 12);
        for (double condition : {1e4, 1e14}) {
            const MatrixXd b = q * graded(n, condition).asDiagonal() * q.transpose();
            compareEigenvalues(0.5 * (b + b.transpose()), values, residual, vectors);
        }
        const MatrixXd thin = random(n, (n + 1) / 2, 13);
        compareEigenvalues(thin * thin.transpose(), values, residual, vectors);
        compareEigenvalues(MatrixXd::Constant(n, n, 1.0), values, residual, vectors);
        compareEigenvalues(MatrixXd::Identity(n, n), values, residual, vectors);
        compareEigenvalues(MatrixXd::Zero(n, n), values, residual, vectors);
    }
    EXPECT_LT(values.value(), 3.0);
    EXPECT_LT(residual.value(), 3.0);
    EXPECT_LT(vectors.value(), 4.0);
}

// The errors of an inverse are those of a slightly other matrix: they go with the condition.
TEST(BesideEigen, InverseAndSolution) {
    Worst inverses("inverse / condition"), residual("A*X - B / (|A||X|)");
    const auto compare = [&](const MatrixXd& a) {
        const Index n = a.rows();
        MatrixXd inverse = a;
        const MatrixXd right = random(n, 3, 21);
        MatrixXd x = right;
        ASSERT_EQ(RMatInvert(inverse.data(), count(n), x.data(), 3), 0u);
        const MatrixXd expected = a.fullPivLu().inverse();
        const double condition = a.norm() * expected.norm();
        inverses.add((inverse - expected).norm() / (expected.norm() * condition), n);
        residual.add((a * x - right).norm() / (a.norm() * x.norm()), n);
    };
    for (const Index n : {1, 2, 3, 5, 8, 17, 40, 90, 200}) {
        compare(random(n, n, 22));
        if (n > 100) continue;
        for (double condition : {1e4, 1e10, 1e13}) {
            compare(withSingularValues(n, n, graded(n, condition), 23));
        }
    }
    EXPECT_LT(inverses.value(), 3.0);
    EXPECT_LT(residual.value(), 3.0);
}

TEST(BesideEigen, LeastSquares) {
    Worst solutions("least squares / condition");
    for (const Shape& shape : kShapes) {
        const Index rows = shape.rows;
        const Index cols = shape.cols;
        const Index k = std::min(rows, cols);
        if (k > 100) continue;
        const VectorXd b = random(rows, 1, 31);
        const auto compare = [&](const MatrixXd& a, double threshold) {
            VectorXd x(cols);
            ASSERT_EQ(SolveLinearSystemBySVD(a.data(), x.data(), b.data(), count(rows), count(cols),
                                             threshold),
                      0u);
            Eigen::JacobiSVD<MatrixXd> svd(a, Eigen::ComputeThinU | Eigen::ComputeThinV);
            svd.setThreshold(threshold);
            const VectorXd expected = svd.solve(b);
            const VectorXd s = svd.singularValues();
            const double condition = s[0] / s[svd.rank() - 1];
            const double size = std::max(expected.norm(), b.norm() / s[svd.rank() - 1]) * condition;
            solutions.add((x - expected).norm() / size, std::max(rows, cols));
        };
        compare(random(rows, cols, 32), 1e-12);
        compare(withSingularValues(rows, cols, graded(k, 1e6), 33), 1e-12);
        compare(withSingularValues(rows, cols, graded(k, 1e14), 34), 1e-8);
        compare(random(rows, (k + 1) / 2, 35) * random((k + 1) / 2, cols, 36), 1e-10);
    }
    EXPECT_LT(solutions.value(), 3.0);
}

TEST(BesideEigen, Products) {
    for (const Index n : {1, 2, 7, 50, 130}) {
        const MatrixXd a = random(n, n + 3, 41), b = random(n + 3, n + 1, 42);
        MatrixXd out(n, n + 1);
        ASSERT_EQ(RMatByMat(a.data(), b.data(), static_cast<std::uint32_t>(n),
                            static_cast<std::uint32_t>(n + 3), static_cast<std::uint32_t>(n + 1),
                            out.data()),
                  0u);
        EXPECT_LT((out - a * b).cwiseAbs().maxCoeff(), static_cast<double>(n + 3) * kEps);
    }
}

}  // namespace
