#include "nuv64/arrays/smoothing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrays/array_samples.h"
#include "arrays/sampled_curves.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/memory.h"

namespace {

using samples::kInf;
using testing::DoubleEq;
using testing::ElementsAre;

struct FilterCase {
    uint64_t derivative;
    uint64_t points;
    uint64_t order;
    double shift;
    std::vector<double> coefficients;
    double gain;
};

#include "arrays/smoothing_reference.inc"

double clamped(const std::vector<double>& a, int64_t i) {
    return a[static_cast<size_t>(std::clamp<int64_t>(i, 0, static_cast<int64_t>(a.size()) - 1))];
}

TEST(Convolution, FollowsItsFormulaAlsoInPlace) {
    for (uint64_t n : samples::lengths()) {
        for (uint64_t m : {1, 2, 3, 8, 17, 90}) {
            const auto in = samples::random(n, 1), kernel = samples::random(m, 2);
            std::vector<double> expected(n), out(n, 7.0), same(in);
            for (uint64_t i = 0; i < n; ++i) {
                double sum = 0.0;
                for (uint64_t k = 0; k < m; ++k) {
                    const auto place = static_cast<int64_t>(i) - static_cast<int64_t>((m - 1) / 2) +
                                       static_cast<int64_t>(k);
                    sum += kernel[k] * clamped(in, place);
                }
                expected[i] = sum;
            }
            EXPECT_EQ(RArrConvolute(n, in.data(), out.data(), m, kernel.data()), 0u);
            EXPECT_EQ(out, expected);
            EXPECT_EQ(RArrConvolute(n, same.data(), same.data(), m, kernel.data()), 0u);
            EXPECT_EQ(same, expected);
        }
    }
}

TEST(Convolution, TestsItsArgumentsInOrder) {
    double one = 1.0, out = 7.0;
    EXPECT_EQ(RArrConvolute(1, nullptr, nullptr, 1, &one), 14u);
    EXPECT_EQ(RArrConvolute(1, &one, nullptr, 1, nullptr), 14u);
    EXPECT_EQ(RArrConvolute(1, &one, nullptr, 1, &one), 18u);
    EXPECT_EQ(RArrConvolute(0, &one, &out, 1, &one), 0u);
    EXPECT_EQ(RArrConvolute(1, &one, &out, 0, &one), 0u);
    EXPECT_EQ(out, 7.0);
    EXPECT_EQ(RArrConvolute(1, &one, &out, UINT64_MAX, &one), 0x80001u);
    EXPECT_EQ(RArrConvolute(1, &one, &out, uint64_t{1} << 61, &one), 0x80001u);
}

TEST(SavitskyGolay, PointsFromTheWidth) {
    uint64_t order = 0;
    EXPECT_EQ(RArrSGpoints(0, 2.4, &order), 7u);
    EXPECT_EQ(order, 3u);
    EXPECT_EQ(RArrSGpoints(1, 2.4, &order), 7u);
    EXPECT_EQ(order, 4u);
    EXPECT_EQ(RArrSGpoints(0, -2.4, nullptr), 7u);
    EXPECT_EQ(RArrSGpoints(0, 0.5, nullptr), 5u);
    EXPECT_EQ(RArrSGpoints(0, 0.0, nullptr), 5u);
    EXPECT_EQ(RArrSGpoints(0, samples::kQuietNan, nullptr), 5u);
    EXPECT_EQ(RArrSGpoints(0, kInf, nullptr), (uint64_t{1} << 62) + 3);
    EXPECT_EQ(RArrSGpoints(0, -kInf, nullptr), (uint64_t{1} << 62) + 3);
}

TEST(SavitskyGolay, CoefficientsAgreeWithAnOrthogonalDecomposition) {
    double worst = 0.0;
    for (const FilterCase& test : kFilters) {
        double gain = 0.0;
        double* c = RArrNewSGcoeff(test.derivative, test.points, test.order, test.shift, &gain);
        ASSERT_NE(c, nullptr) << test.derivative << " " << test.points;
        double size = 0.0;
        for (double x : test.coefficients) size = std::max(size, std::fabs(x));
        for (uint64_t i = 0; i < test.points; ++i) {
            worst = std::max(worst, std::fabs(c[i] - test.coefficients[i]) / size);
        }
        worst = std::max(worst, std::fabs(gain / test.gain - 1.0));
        RArrKill(&c);
    }
    std::printf("[  worst   ] coefficient error relative to the largest: %.2g\n", worst);
    EXPECT_LT(worst, 1e-12);
}

TEST(SavitskyGolay, CoefficientsThatDoNotExist) {
    double gain = 7.0;
    EXPECT_EQ(RArrNewSGcoeff(0, 0, 0, 0.0, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(0, 3, 3, 0.0, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(4, 9, 3, 0.0, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(0, UINT64_MAX, 3, 0.0, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(0, UINT64_MAX, UINT64_MAX, 0.0, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(UINT64_MAX, 9, 3, 0.0, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(0, 9, 3, samples::kQuietNan, &gain), nullptr);
    EXPECT_EQ(RArrNewSGcoeff(0, 9, 3, kInf, nullptr), nullptr);
    // The normal equations of a wide window far off its centre count as singular.
    EXPECT_EQ(RArrNewSGcoeff(0, 41, 5, 20.0, nullptr), nullptr);
    double* plain = RArrNewSGcoeff(0, 5, 2, 0.0, nullptr);
    ASSERT_NE(plain, nullptr);
    EXPECT_NEAR(plain[2], 17.0 / 35.0, 1e-15);
    RArrKill(&plain);
}

std::vector<double> polynomial(uint64_t n) {
    std::vector<double> y(n);
    for (uint64_t i = 0; i < n; ++i) {
        const double x = static_cast<double>(i) - 20.0;
        y[i] = 3.0 + x * (0.5 + x * (-0.04 + x * 0.003));
    }
    return y;
}

TEST(SavitskyGolay, FittedEndsReproducePolynomials) {
    for (uint64_t n : {17, 18, 40, 101}) {
        const auto y = polynomial(n);
        std::vector<double> out(n, 7.0);
        double gain = 0.0, centre = 0.0;
        ASSERT_EQ(RArrSavitskyGolayEx(n, y.data(), out.data(), &gain, 0.0, 0, 3, 17, 0, &centre),
                  0u);
        for (uint64_t i = 0; i < n; ++i) EXPECT_NEAR(out[i], y[i], 1e-9 * (1.0 + std::fabs(y[i])));
        EXPECT_NEAR(centre, 43.0 / 323.0, 1e-12);
        std::vector<double> same(y);
        ASSERT_EQ(
            RArrSavitskyGolayEx(n, same.data(), same.data(), nullptr, 0.0, 0, 3, 17, 0, nullptr),
            0u);
        EXPECT_EQ(same, out);
    }
}

TEST(SavitskyGolay, FittedEndsUseTheirOwnWindow) {
    const uint64_t n = 30, half = 4;
    const auto y = samples::random(n);
    std::vector<double> out(n);
    double gain = 0.0, centre = 0.0;
    ASSERT_EQ(RArrSavitskyGolayEx(n, y.data(), out.data(), &gain, 0.25, 1, 3, 9, 2, &centre), 0u);
    for (uint64_t i = 0; i < n; ++i) {
        const uint64_t middle = std::clamp<uint64_t>(i, half, n - 1 - half);
        const double shift = 0.25 + static_cast<double>(i) - static_cast<double>(middle);
        double ownGain = 0.0;
        double* c = RArrNewSGcoeff(1, 9, 3, shift, &ownGain);
        EXPECT_NEAR(out[i], RArrDotProduct(9, c, &y[middle - half]), 1e-12);
        if (i == n / 2) {
            EXPECT_EQ(centre, c[half]);
        }
        if (i == n - 1) {
            EXPECT_EQ(gain, ownGain);
        }
        RArrKill(&c);
    }
}

TEST(SavitskyGolay, DerivativesAreTaylorCoefficientsUnlessAsked) {
    const auto y = polynomial(41);
    std::vector<double> taylor(41), derivative(41);
    double gainT = 0.0, gainD = 0.0;
    ASSERT_EQ(RArrSavitskyGolayEx(41, y.data(), taylor.data(), &gainT, 0.0, 2, 4, 15, 0, nullptr),
              0u);
    ASSERT_EQ(
        RArrSavitskyGolayEx(41, y.data(), derivative.data(), &gainD, 0.0, 2, 4, 15, 2, nullptr),
        0u);
    EXPECT_NEAR(derivative[20], -0.08, 1e-9);
    EXPECT_NEAR(taylor[20], -0.04, 1e-9);
    EXPECT_EQ(gainT, gainD / 2.0);
    uint64_t order = 4, points = 15;
    std::vector<double> plain(41);
    ASSERT_EQ(
        RArrSavitskyGolay(41, y.data(), plain.data(), 1.0, 2, &order, &points, &gainT, 1, 0.0), 0u);
    EXPECT_NEAR(plain[20], -0.04, 1e-9);
    ASSERT_EQ(
        RArrSavitskyGolay(41, y.data(), plain.data(), 1.0, 2, &order, &points, &gainD, 3, 0.0), 0u);
    EXPECT_NEAR(plain[20], -0.08, 1e-9);
    EXPECT_EQ(gainT, gainD / 2.0);
}

TEST(SavitskyGolay, PlainFormRepeatsTheEdges) {
    const auto y = samples::random(25);
    std::vector<double> out(25), same(y);
    uint64_t order = 0, points = 0;
    double gain = 0.0;
    ASSERT_EQ(RArrSavitskyGolay(25, y.data(), out.data(), 2.4, 0, &order, &points, &gain, 0, 0.0),
              0u);
    EXPECT_EQ(order, 3u);
    EXPECT_EQ(points, 7u);
    double* c = RArrNewSGcoeff(0, 7, 3, 0.0, nullptr);
    double first = 0.0;
    for (int k = 0; k < 7; ++k) first += c[k] * clamped(y, k - 3);
    EXPECT_EQ(out[0], first);
    RArrKill(&c);
    ASSERT_EQ(
        RArrSavitskyGolay(25, same.data(), same.data(), 2.4, 0, nullptr, nullptr, nullptr, 0, 0.0),
        0u);
    EXPECT_EQ(same, out);
}

TEST(SavitskyGolay, ArgumentsAndSizesThatFail) {
    double y[] = {1, 2, 3, 4, 5}, out[5];
    uint64_t order = 3, points = UINT64_MAX;
    EXPECT_EQ(RArrSavitskyGolay(5, nullptr, out, 2.0, 0, nullptr, nullptr, nullptr, 0, 0.0), 14u);
    EXPECT_EQ(RArrSavitskyGolay(5, y, nullptr, 2.0, 0, nullptr, nullptr, nullptr, 0, 0.0), 18u);
    EXPECT_EQ(RArrSavitskyGolay(5, y, out, 2.0, 0, nullptr, &points, nullptr, 1, 0.0), 21u);
    EXPECT_EQ(RArrSavitskyGolay(5, y, out, 2.0, 0, &order, nullptr, nullptr, 1, 0.0), 21u);
    EXPECT_EQ(RArrSavitskyGolay(5, y, out, 2.0, 0, &order, &points, nullptr, 1, 0.0), 0x80001u);
    EXPECT_EQ(RArrSavitskyGolay(5, y, out, kInf, 0, nullptr, nullptr, nullptr, 0, 0.0), 0x80001u);
    EXPECT_EQ(
        RArrSavitskyGolay(5, y, out, samples::kQuietNan, 0, nullptr, nullptr, nullptr, 0, 0.0), 0u);
    double centre = 7.0;
    EXPECT_EQ(RArrSavitskyGolayEx(5, nullptr, out, nullptr, 0.0, 0, 3, 5, 0, &centre), 14u);
    EXPECT_EQ(RArrSavitskyGolayEx(0, y, out, nullptr, 0.0, 0, 3, 5, 0, &centre), 14u);
    EXPECT_EQ(RArrSavitskyGolayEx(5, y, nullptr, nullptr, 0.0, 0, 3, 5, 0, &centre), 18u);
    // Fewer points than the polynomial has coefficients.
    for (uint64_t n : {1, 2, 3, 4}) {
        EXPECT_EQ(RArrSavitskyGolayEx(n, y, out, nullptr, 0.0, 0, 3, 17, 0, &centre), 0x80001u);
        EXPECT_EQ(centre, 0.0);
    }
    EXPECT_EQ(RArrSavitskyGolayEx(5, y, out, nullptr, 0.0, 9, 3, 5, 0, &centre), 0x80001u);
    EXPECT_EQ(RArrSavitskyGolayEx(5, y, out, nullptr, 0.0, 0, 3, UINT64_MAX, 0, &centre), 0u);
    EXPECT_EQ(RArrSavitskyGolayEx(4, y, out, nullptr, 0.0, 0, 1, 17, 0, &centre), 0u);
    EXPECT_NEAR(out[0], 1.0, 1e-14);
    EXPECT_NEAR(out[3], 4.0, 1e-14);
}

TEST(SavitskyGolay, FiltersAsAnIndependentOne) {
    constexpr uint32_t kGivenDerivative = 3;
    for (const samples::PolynomialFilterCase& row : samples::kPolynomialFilters) {
        const uint64_t n = row.input.size();
        std::vector<double> out(n, 7.0);
        uint64_t order = row.order;
        uint64_t points = row.points;
        ASSERT_EQ(RArrSavitskyGolay(n, row.input.data(), out.data(), 0.0, row.derivative, &order,
                                    &points, nullptr, kGivenDerivative, 0.0),
                  0u);
        for (size_t i = 0; i < n; ++i) EXPECT_NEAR(out[i], row.repeatedEdges[i], 1e-12);
        ASSERT_EQ(RArrSavitskyGolayEx(n, row.input.data(), out.data(), nullptr, 0.0, row.derivative,
                                      order, points, kGivenDerivative, nullptr),
                  0u);
        for (size_t i = 0; i < n; ++i) EXPECT_NEAR(out[i], row.fittedEnds[i], 1e-10);
    }
}

}  // namespace
