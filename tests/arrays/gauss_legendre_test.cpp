#include "nuv64/arrays/gauss_legendre.h"

#include <gtest/gtest.h>

#include "arrays/array_samples.h"
#include "arrays/sampled_curves.h"

namespace {

using Values = std::vector<double>;

TEST(GaussLegendre, NodesAndWeights) {
    for (const samples::QuadratureCase& row : samples::kQuadratures) {
        Values x(row.n, 7.0);
        Values w(row.n, 7.0);
        ASSERT_EQ(RArrGaussLegendrePoints(-1.0, 1.0, row.n, x.data(), w.data()), 0u);
        for (std::size_t k = 0; k < row.nodes.size(); ++k) {
            const std::size_t up = row.n - row.nodes.size() + k;
            EXPECT_NEAR(x[up], row.nodes[k], 4e-16) << row.n;
            EXPECT_NEAR(x[row.n - 1 - up], -row.nodes[k], 4e-16) << row.n;
            EXPECT_NEAR(w[up] / row.weights[k], 1.0, 2e-15 * static_cast<double>(row.n + 4));
            EXPECT_EQ(w[row.n - 1 - up], w[up]);
        }
    }
}

TEST(GaussLegendre, EndsForEveryNumberOfPoints) {
    for (std::uint64_t n = 0; n <= 400; ++n) {
        Values x(n + 1, 7.0);
        Values w(n + 1, 7.0);
        ASSERT_EQ(RArrGaussLegendrePoints(2.0, 5.0, n, x.data(), w.data()), 0u);
        EXPECT_EQ(x[n], 7.0);
        double length = 0.0;
        double cube = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            length += w[i];
            cube += w[i] * x[i] * x[i] * x[i];
            EXPECT_LT(i == 0 ? 2.0 : x[i - 1], x[i]);
        }
        if (n >= 1) {
            EXPECT_NEAR(length, 3.0, 1e-13);
        }
        if (n >= 2) {
            EXPECT_NEAR(cube, 152.25, 1e-11);
        }
    }
}

TEST(GaussLegendre, BadArguments) {
    double x[] = {7.0};
    EXPECT_EQ(RArrGaussLegendrePoints(0.0, 1.0, 1, nullptr, x), 18u);
    EXPECT_EQ(RArrGaussLegendrePoints(0.0, 1.0, 1, x, nullptr), 18u);
    EXPECT_EQ(x[0], 7.0);
    double w[] = {7.0};
    EXPECT_EQ(RArrGaussLegendrePoints(samples::kQuietNan, 1.0, 1, x, w), 0u);
    EXPECT_TRUE(std::isnan(x[0]));
    EXPECT_EQ(RArrGaussLegendrePoints(3.0, 1.0, 1, x, w), 0u);
    EXPECT_DOUBLE_EQ(x[0], 2.0);
    EXPECT_DOUBLE_EQ(w[0], -2.0);
}

}  // namespace
