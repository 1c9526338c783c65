#include "nuv64/arrays/real_elements.h"

#include <gtest/gtest.h>

#include "arrays/operation_cases.h"
#include "nuv64/core/special_reals.h"

namespace {

using samples::elementwise;
using samples::kInf;
using samples::kQuietNan;
using samples::OperationCase;
using samples::Values;

double plainClip(uint64_t mode, double x, double level) {
    switch (mode) {
        case 0:
            if (x > level) return level;
            return x;
        case 1:
            if (x > level) return 0.0;
            return x - level;
        case 2:
            if (level > x) return level;
            return x;
        case 3:
            if (level > x) return 0.0;
            return x - level;
        case 4:
            if (-level > x) return -level;
            if (x > level) return level;
            return x;
        default:
            if (x >= 0.0) return x > level ? x - level : 0.0;
            return -level > x ? x + level : 0.0;
    }
}

std::vector<OperationCase> clips() {
    std::vector<OperationCase> cases;
    for (uint64_t mode = 0; mode < 6; ++mode) {
        for (double level : {2.5, -1.5, 0.0, 3.0, kInf, kQuietNan}) {
            cases.push_back(elementwise(
                "Clip" + std::to_string(mode) + " at " + std::to_string(level),
                [=](uint64_t n, const double* a, double* b) {
                    return RArrClip(mode, n, a, b, level);
                },
                [=](uint64_t n, double* a) { return RArrIpClip(mode, n, a, level); },
                [=](double x) { return plainClip(mode, x, level); }));
        }
    }
    return cases;
}

TEST(RealElements, ClipFollowsItsTable) {
    samples::expectPlainOnAll(clips(), false);
    const Values in = samples::rough(samples::kLong);
    for (size_t i = 0; i < clips().size(); i += 6) samples::expectPlain(clips()[i], in, "rough ");
}

TEST(RealElements, ClipOfKnownValues) {
    double x[] = {5.0, 1.0};
    EXPECT_EQ(RArrIpClip(1, 2, x, 2.0), 0u);
    EXPECT_EQ(x[0], 0.0);
    EXPECT_EQ(x[1], -1.0);
    double soft[] = {-7.0, -1.0, 1.0, 7.0, kQuietNan};
    EXPECT_EQ(RArrIpClip(5, 5, soft, 2.0), 0u);
    EXPECT_EQ(Values(soft, soft + 5), (Values{-5.0, 0.0, 0.0, 5.0, 0.0}));
}

TEST(RealElements, ClipTestsTheCountFirst) {
    double x = 1.0;
    for (uint64_t mode : {uint64_t{0}, uint64_t{5}, uint64_t{6}, UINT64_MAX}) {
        EXPECT_EQ(RArrClip(mode, 0, nullptr, nullptr, 1.0), 0u);
        EXPECT_EQ(RArrClip(mode, 1, nullptr, nullptr, 1.0), 14u);
        EXPECT_EQ(RArrClip(mode, 1, nullptr, &x, 1.0), 14u);
        EXPECT_EQ(RArrClip(mode, 1, &x, nullptr, 1.0), 18u);
        EXPECT_EQ(RArrIpClip(mode, 0, nullptr, 1.0), 0u);
        EXPECT_EQ(RArrIpClip(mode, 1, nullptr, 1.0), 14u);
    }
}

TEST(RealElements, ClipModesWithoutMeaningWriteNothing) {
    const double in[] = {5.0, -5.0};
    double out[] = {7.0, 8.0};
    EXPECT_EQ(RArrClip(6, 2, in, out, 1.0), 0u);
    EXPECT_EQ(RArrClip(UINT64_MAX, 2, in, out, 1.0), 0u);
    EXPECT_EQ(Values(out, out + 2), (Values{7.0, 8.0}));
}

TEST(RealElements, NoiseHasTheGivenSpread) {
    constexpr uint64_t n = 200000;
    const Values in(n, 10.0);
    Values out(n), same(in);
    EXPECT_EQ(RArrAddNoise(n, in.data(), out.data(), 0.5), 0u);
    EXPECT_EQ(RArrIpAddNoise(n, same.data(), -0.5), 0u);
    for (const Values& noisy : {out, same}) {
        double sum = 0.0, squares = 0.0, beyondTwoSigma = 0.0;
        for (double x : noisy) {
            sum += x - 10.0;
            squares += (x - 10.0) * (x - 10.0);
            if (std::fabs(x - 10.0) > 1.0) ++beyondTwoSigma;
        }
        EXPECT_NEAR(sum / n, 0.0, 0.007);  // 6 sigma of the mean
        EXPECT_NEAR(std::sqrt(squares / n), 0.5, 0.005);
        EXPECT_NEAR(beyondTwoSigma / n, 0.0455, 0.003);
    }
    EXPECT_NE(out, same);
}

TEST(RealElements, NoiseWithoutSpreadChangesNothing) {
    const Values in = samples::rough(1025);
    Values out(in.size());
    EXPECT_EQ(RArrAddNoise(in.size(), in.data(), out.data(), 0.0), 0u);
    for (size_t i = 0; i < in.size(); ++i) {
        EXPECT_TRUE(out[i] == in[i] || (std::isnan(out[i]) && std::isnan(in[i])));
    }
    EXPECT_EQ(RArrIpAddNoise(in.size(), out.data(), kQuietNan), 0u);
    for (double x : out) EXPECT_TRUE(std::isnan(x));
}

TEST(RealElements, NoiseTestsPointersBeforeTheCount) {
    samples::expectPointerTests(
        {{"AddNoise",
          [](uint64_t n, const double* a, double* b) { return RArrAddNoise(n, a, b, 1.0); },
          [](uint64_t n, double* a) { return RArrIpAddNoise(n, a, 1.0); },
          {}}});
}

TEST(RealElements, AMillionElements) {
    const Values in = samples::rough(samples::kLong);
    const std::vector<OperationCase> cases = {
        elementwise("Abs", RArrAbs, RArrIpAbs, [](double x) { return x < 0.0 ? -x : x; }),
        elementwise("InvertSign", RArrInvertSign, RArrIpInvertSign, [](double x) { return -x; }),
        elementwise(
            "AddConst",
            [](uint64_t n, const double* a, double* b) { return RArrAddConst(n, a, b, 0.1); },
            [](uint64_t n, double* a) { return RArrIpAddConst(n, a, 0.1); },
            [](double x) { return x + 0.1; }),
        elementwise(
            "MulConst",
            [](uint64_t n, const double* a, double* b) { return RArrMulConst(n, a, b, 0.1); },
            [](uint64_t n, double* a) { return RArrIpMulConst(n, a, 0.1); },
            [](double x) { return x * 0.1; })};
    for (const OperationCase& test : cases) samples::expectPlain(test, in, "rough ");
}

}  // namespace
