#include "nuv64/arrays/real_array.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "arrays/array_samples.h"
#include "nuv64/arrays/real_array_means.h"
#include "nuv64/arrays/real_norms.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"

namespace {

using samples::bits;
using samples::kInf;
using testing::Each;
using testing::ElementsAre;

constexpr uint32_t kNoMemory = 0x80001;

TEST(RealArray, ZeroLengthIsNullWithoutError) {
    double one = 1.0;
    uint32_t status = 7;
    EXPECT_EQ(RArrNew(&status, 0), nullptr);
    EXPECT_EQ(status, 0u);
    status = 7;
    EXPECT_EQ(RArrNew0(&status, 0), nullptr);
    EXPECT_EQ(status, 0u);
    status = 7;
    EXPECT_EQ(RArrNewCopy(&status, 0, &one), nullptr);
    EXPECT_EQ(status, 0u);
    status = 7;
    EXPECT_EQ(RArrNewCopy(&status, 5, nullptr), nullptr);
    EXPECT_EQ(status, 0u);
}

TEST(RealArray, SizesThatCannotBeHadAreAllocationFailures) {
    double one = 1.0;
    for (uint64_t n : {uint64_t{1} << 61, uint64_t{1} << 62, uint64_t{1} << 63, UINT64_MAX,
                       (uint64_t{1} << 61) - 1, uint64_t{1} << 60}) {
        uint32_t status = 7;
        EXPECT_EQ(RArrNew(&status, n), nullptr) << n;
        EXPECT_EQ(status, kNoMemory);
        status = 7;
        EXPECT_EQ(RArrNew0(&status, n), nullptr) << n;
        EXPECT_EQ(status, kNoMemory);
        status = 7;
        EXPECT_EQ(RArrNewCopy(&status, n, &one), nullptr) << n;
        EXPECT_EQ(status, kNoMemory);
        EXPECT_EQ(RArrNew(nullptr, n), nullptr);
    }
}

TEST(RealArray, MakesWritableArrays) {
    for (uint64_t n : samples::allLengths()) {
        uint32_t status = 7;
        double* fresh = RArrNew(&status, n);
        ASSERT_NE(fresh, nullptr);
        EXPECT_EQ(status, 0u);
        RArrFill(n, fresh, 2.5);
        EXPECT_EQ(RArrSum(n, fresh, 0), 2.5 * static_cast<double>(n));
        RArrKill(&fresh);
        EXPECT_EQ(fresh, nullptr);
        RArrKill(&fresh);
        double* zeros = RArrNew0(nullptr, n);
        ASSERT_NE(zeros, nullptr);
        EXPECT_THAT(std::vector<double>(zeros, zeros + n), Each(0.0));
        RArrKill(&zeros);
    }
}

TEST(RealArray, CopiesEveryBit) {
    for (uint64_t n : samples::allLengths()) {
        const auto source = samples::rough(n);
        double* copy = RArrNewCopy(nullptr, n, source.data());
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(bits({copy, copy + n}), bits(source));
        RArrKill(&copy);
        std::vector<double> target(n, 7.0);
        EXPECT_EQ(RArrCopy(n, source.data(), target.data()), 0u);
        EXPECT_EQ(bits(target), bits(source));
    }
}

TEST(RealArray, CopyGoesUpward) {
    std::vector<double> a = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    RArrCopy(11, a.data(), a.data() + 1);
    EXPECT_THAT(a, Each(1.0));
    a = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    RArrCopy(8, a.data() + 1, a.data());
    EXPECT_THAT(a, ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 9));
}

TEST(RealArray, CopyAndFillTestTheirArgumentsInOrder) {
    double one = 1.0;
    EXPECT_EQ(RArrCopy(0, nullptr, nullptr), 0u);
    EXPECT_EQ(RArrCopy(1, nullptr, nullptr), 18u);
    EXPECT_EQ(RArrCopy(1, &one, nullptr), 18u);
    EXPECT_EQ(RArrCopy(1, nullptr, &one), 14u);
    EXPECT_EQ(RArrFill(0, nullptr, 1.0), 0u);
    EXPECT_EQ(RArrFill(1, nullptr, 1.0), 18u);
    EXPECT_EQ(RArrZero(0, nullptr), 0u);
    EXPECT_EQ(RArrZero(1, nullptr), 18u);
    EXPECT_EQ(RArrZero(1, &one), 0u);
    EXPECT_EQ(one, 0.0);
}

TEST(RealArray, SkipFillSetsEveryOtherElement) {
    for (uint64_t n : samples::allLengths()) {
        for (uint64_t stride : {uint64_t{1}, uint64_t{2}, uint64_t{7}, UINT64_MAX}) {
            for (uint64_t start : {uint64_t{0}, uint64_t{3}, n - 1, n, UINT64_MAX}) {
                std::vector<double> array(n + 1, 7.0), expected(array);
                if (start < n) {
                    for (uint64_t i = 0; i < n; ++i) {
                        if (i >= start && (i - start) % stride == 0) expected[i] = -2.5;
                    }
                }
                EXPECT_EQ(RArrSkipFill(n, array.data(), start, stride, -2.5), 0u);
                EXPECT_EQ(array, expected) << n << ' ' << start << ' ' << stride;
            }
        }
    }
    double one[] = {1.0, 1.0, 1.0};
    EXPECT_EQ(RArrSkipFill(3, one, 1, 0, 5.0), 0u);
    EXPECT_THAT(one, ElementsAre(1.0, 5.0, 1.0));
    EXPECT_EQ(RArrSkipFill(0, one, 0, 1, 5.0), 14u);
    EXPECT_EQ(RArrSkipFill(3, nullptr, 0, 1, 5.0), 14u);
}

// --- element-wise operations

using OneArray = std::function<uint32_t(uint64_t, const double*, double*)>;
using InPlace = std::function<uint32_t(uint64_t, double*)>;

struct MapCase {
    const char* name;
    OneArray map;
    InPlace inPlace;
    std::function<double(double)> plain;
};

std::vector<MapCase> mapCases() {
    return {
        {"Abs", RArrAbs, RArrIpAbs, [](double x) { return x < 0.0 ? 0.0 - x : x; }},
        {"InvertSign", RArrInvertSign, RArrIpInvertSign,
         [](double x) { return std::copysign(x, std::signbit(x) ? 1.0 : -1.0); }},
        {"AddConst",
         [](uint64_t n, const double* a, double* b) { return RArrAddConst(n, a, b, 0.1); },
         [](uint64_t n, double* a) { return RArrIpAddConst(n, a, 0.1); },
         [](double x) { return x + 0.1; }},
        {"MulConst",
         [](uint64_t n, const double* a, double* b) { return RArrMulConst(n, a, b, 0.1); },
         [](uint64_t n, double* a) { return RArrIpMulConst(n, a, 0.1); },
         [](double x) { return x * 0.1; }},
    };
}

TEST(RealElements, OneArrayFormsFollowTheirFormula) {
    for (const MapCase& test : mapCases()) {
        for (uint64_t n : samples::lengths()) {
            const auto in = samples::rough(n);
            std::vector<double> expected(in), out(n, 7.0), same(in);
            for (double& x : expected) x = test.plain(x);
            EXPECT_EQ(test.map(n, in.data(), out.data()), 0u);
            EXPECT_EQ(bits(out), bits(expected)) << test.name << n;
            EXPECT_EQ(test.inPlace(n, same.data()), 0u);
            EXPECT_EQ(bits(same), bits(expected)) << test.name << n;
        }
    }
}

TEST(RealElements, OneArrayFormsTestPointersBeforeTheCount) {
    double one = 1.0;
    for (const MapCase& test : mapCases()) {
        for (uint64_t n : {0, 1}) {
            EXPECT_EQ(test.map(n, nullptr, &one), 14u) << test.name;
            EXPECT_EQ(test.map(n, nullptr, nullptr), 14u) << test.name;
            EXPECT_EQ(test.map(n, &one, nullptr), 18u) << test.name;
            EXPECT_EQ(test.inPlace(n, nullptr), 14u) << test.name;
        }
        EXPECT_EQ(test.map(0, &one, &one), 0u);
    }
    EXPECT_EQ(one, 1.0);
}

TEST(RealElements, NegativeZeroKeepsItsSignInAbs) {
    double zero = -0.0;
    RArrIpAbs(1, &zero);
    EXPECT_TRUE(std::signbit(zero));
}

using TwoArrays = std::function<uint32_t(uint64_t, const double*, const double*, double*)>;

struct PairCase {
    const char* name;
    TwoArrays operation;
    std::function<double(double, double)> plain;
};

std::vector<PairCase> pairCases() {
    return {
        {"Add", RArrAdd, [](double a, double b) { return a + b; }},
        {"Sub", RArrSub, [](double a, double b) { return a - b; }},
        {"Mul", RArrMul, [](double a, double b) { return a * b; }},
        {"Div", RArrDiv, [](double a, double b) { return b == 0.0 ? ___NAN : a / b; }},
        {"LinCombi",
         [](uint64_t n, const double* a, const double* b, double* c) {
             return RArrLinCombi(n, a, 0.3, b, -1.7, c);
         },
         [](double a, double b) {
             const double x = 0.3 * a;
             const double y = -1.7 * b;
             return x + y;
         }},
    };
}

TEST(RealElements, TwoArrayFormsFollowTheirFormula) {
    for (const PairCase& test : pairCases()) {
        for (uint64_t n : samples::allLengths()) {
            const auto a = samples::rough(n, 3);
            const auto b = samples::rough(n, 4);
            std::vector<double> expected(n), out(n, 7.0), first(a), second(b);
            for (uint64_t i = 0; i < n; ++i) expected[i] = test.plain(a[i], b[i]);
            EXPECT_EQ(test.operation(n, a.data(), b.data(), out.data()), 0u);
            test.operation(n, first.data(), b.data(), first.data());
            test.operation(n, a.data(), second.data(), second.data());
            EXPECT_EQ(bits(out), bits(expected)) << test.name << n;
            EXPECT_EQ(bits(first), bits(expected)) << test.name << n;
            EXPECT_EQ(bits(second), bits(expected)) << test.name << n;
        }
    }
}

TEST(RealElements, TwoArrayFormsTestTheirArgumentsInOrder) {
    double x = 1.0;
    for (const PairCase& test : pairCases()) {
        EXPECT_EQ(test.operation(0, nullptr, nullptr, nullptr), 0u) << test.name;
        EXPECT_EQ(test.operation(1, nullptr, &x, nullptr), 14u) << test.name;
        EXPECT_EQ(test.operation(1, &x, nullptr, nullptr), 14u) << test.name;
        EXPECT_EQ(test.operation(1, &x, &x, nullptr), 18u) << test.name;
    }
}

TEST(RealElements, DivisionByZeroIsTheMissingValueInThatElementOnly) {
    const double a[] = {1.0, 2.0, 3.0};
    const double b[] = {2.0, -0.0, 4.0};
    double out[3];
    EXPECT_EQ(RArrDiv(3, a, b, out), 0u);
    EXPECT_EQ(out[0], 0.5);
    EXPECT_EQ(std::bit_cast<uint64_t>(out[1]), 0xFFFF000000000000u);
    EXPECT_EQ(out[2], 0.75);
}

TEST(RealElements, UpdatesOfTheSecondArray) {
    for (uint64_t n : samples::allLengths()) {
        const auto a = samples::rough(n, 5);
        const auto b = samples::rough(n, 6);
        for (double k : {1.0, -0.3}) {
            std::vector<double> sum(b), difference(b), expectedSum(n), expectedDifference(n);
            for (uint64_t i = 0; i < n; ++i) {
                const double term = k * a[i];
                expectedSum[i] = b[i] + term;
                expectedDifference[i] = b[i] - term;
            }
            EXPECT_EQ(RArrAdd2(n, a.data(), sum.data(), k), 0u);
            EXPECT_EQ(RArrSub2(n, a.data(), difference.data(), k), 0u);
            EXPECT_EQ(bits(sum), bits(expectedSum));
            EXPECT_EQ(bits(difference), bits(expectedDifference));
        }
        std::vector<double> product(b), quotient(b), expectedProduct(n), expectedQuotient(n);
        for (uint64_t i = 0; i < n; ++i) {
            expectedProduct[i] = b[i] * a[i];
            expectedQuotient[i] = a[i] == 0.0 ? ___NAN : b[i] / a[i];
        }
        EXPECT_EQ(RArrMul2(n, a.data(), product.data()), 0u);
        EXPECT_EQ(RArrDiv2(n, a.data(), quotient.data()), 0u);
        EXPECT_EQ(bits(product), bits(expectedProduct));
        EXPECT_EQ(bits(quotient), bits(expectedQuotient));
    }
}

TEST(RealElements, UpdatesTestTheirArgumentsInOrder) {
    double x = 1.0;
    EXPECT_EQ(RArrAdd2(0, nullptr, nullptr, 2.0), 0u);
    EXPECT_EQ(RArrAdd2(1, nullptr, nullptr, 2.0), 14u);
    EXPECT_EQ(RArrAdd2(1, &x, nullptr, 1.0), 18u);
    EXPECT_EQ(RArrSub2(0, nullptr, nullptr, 2.0), 0u);
    EXPECT_EQ(RArrSub2(1, nullptr, &x, 2.0), 14u);
    EXPECT_EQ(RArrSub2(1, &x, nullptr, 1.0), 18u);
    EXPECT_EQ(RArrMul2(0, nullptr, nullptr), 0u);
    EXPECT_EQ(RArrMul2(1, nullptr, &x), 14u);
    EXPECT_EQ(RArrMul2(1, &x, nullptr), 14u);
    EXPECT_EQ(RArrDiv2(1, &x, nullptr), 14u);
}

TEST(RealElements, SwapExchangesAndRefusesNull) {
    auto a = samples::random(37, 1), b = samples::random(37, 2);
    const auto a0 = a, b0 = b;
    EXPECT_EQ(RArrSwap(37, a.data(), b.data()), 0u);
    EXPECT_EQ(a, b0);
    EXPECT_EQ(b, a0);
    EXPECT_EQ(RArrSwap(37, a.data(), a.data()), 0u);
    EXPECT_EQ(RArrSwap(0, nullptr, a.data()), 14u);
    EXPECT_EQ(RArrSwap(1, a.data(), nullptr), 14u);
}

TEST(RealElements, PlaneRotationTurnsPairs) {
    const double c = 0.6, s = 0.8;
    auto x = samples::random(41, 1), y = samples::random(41, 2);
    const auto x0 = x, y0 = y;
    EXPECT_EQ(RArrPlaneRotation(41, x.data(), y.data(), c, s), 0u);
    for (size_t i = 0; i < x.size(); ++i) {
        EXPECT_EQ(x[i], c * x0[i] + s * y0[i]);
        EXPECT_EQ(y[i], c * y0[i] - s * x0[i]);
    }
    EXPECT_EQ(RArrPlaneRotation(0, nullptr, nullptr, c, s), 0u);
}

// --- reductions

TEST(RealReductions, SumsAddInTheirOrder) {
    for (uint64_t n : samples::allLengths()) {
        const auto a = samples::random(n);
        double forward = 0.0, backward = 0.0;
        for (uint64_t i = 0; i < n; ++i) forward += a[i];
        for (uint64_t i = n; i > 0; --i) backward += a[i - 1];
        EXPECT_EQ(RArrSum(n, a.data(), 0), forward);
        EXPECT_EQ(RArrSum(n, a.data(), 1), backward);
        EXPECT_EQ(RArrSum(n, a.data(), 255), backward);
        EXPECT_EQ(RArrMeanA(n, a.data()), backward / static_cast<double>(n));
    }
    const double order[] = {1.0, 1e16, -1e16};
    EXPECT_EQ(RArrSum(3, order, 0), 0.0);
    EXPECT_EQ(RArrSum(3, order, 1), 1.0);
}

TEST(RealReductions, DotProductGoesUpward) {
    for (uint64_t n : samples::lengths()) {
        const auto a = samples::random(n, 1), b = samples::random(n, 2);
        double sum = 0.0;
        for (uint64_t i = 0; i < n; ++i) sum += a[i] * b[i];
        EXPECT_EQ(RArrDotProduct(n, a.data(), b.data()), sum);
    }
    EXPECT_EQ(RArrDotProduct(0, nullptr, nullptr), 0.0);
    const double x = 1.0;
    EXPECT_TRUE(rIsNAN(RArrDotProduct(1, &x, nullptr)));
    EXPECT_TRUE(rIsNAN(RArrDotProduct(1, nullptr, &x)));
}

TEST(RealReductions, ExtremesAreTheFirstOfEqualOnes) {
    const double a[] = {2.0, -5.0, 5.0, 5.0, -5.0, 0.5};
    uint64_t index = 9;
    EXPECT_EQ(RArrMax(6, a, &index), 5.0);
    EXPECT_EQ(index, 2u);
    EXPECT_EQ(RArrMin(6, a, &index), -5.0);
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(RArrAbsMax(6, a, &index), 5.0);
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(RArrAbsMin(6, a, &index), 0.5);
    EXPECT_EQ(index, 5u);
    EXPECT_EQ(RArrMax(6, a, nullptr), 5.0);
    uint64_t low = 9, high = 9;
    EXPECT_EQ(RArrRangeMinMax(6, a, &low, &high), 10.0);
    EXPECT_EQ(low, 1u);
    EXPECT_EQ(high, 2u);
    EXPECT_EQ(RArrRangeMinMax(6, a, nullptr, nullptr), 10.0);
}

TEST(RealReductions, ExtremesOfManyLengths) {
    for (uint64_t n : samples::allLengths()) {
        const auto a = samples::random(n);
        const auto low = std::min_element(a.begin(), a.end());
        const auto high = std::max_element(a.begin(), a.end());
        uint64_t i = 0, j = 0;
        EXPECT_EQ(RArrMin(n, a.data(), &i), *low);
        EXPECT_EQ(RArrMax(n, a.data(), &j), *high);
        EXPECT_EQ(a.begin() + static_cast<int64_t>(i), low);
        EXPECT_EQ(a.begin() + static_cast<int64_t>(j), high);
        uint64_t p = 0, q = 0;
        EXPECT_EQ(RArrRangeMinMax(n, a.data(), &p, &q), *high - *low);
        EXPECT_EQ(p, i);
        EXPECT_EQ(q, j);
        EXPECT_EQ(RArrAbsMax(n, a.data(), nullptr), std::max(std::fabs(*low), std::fabs(*high)));
    }
}

TEST(RealReductions, NotANumbersBehindTheFirstElementArePassedOver) {
    const double a[] = {1.0, samples::kQuietNan, 3.0};
    EXPECT_EQ(RArrMax(3, a, nullptr), 3.0);
    EXPECT_EQ(RArrMin(3, a, nullptr), 1.0);
    uint64_t index = 0;
    EXPECT_TRUE(std::isnan(RArrMax(2, a + 1, &index)));
    EXPECT_EQ(index, 0u);
}

TEST(RealReductions, EmptyOrNullIsTheMissingValue) {
    const double a[] = {1.0};
    for (auto [n, array] : {std::pair<uint64_t, const double*>{0, a}, {3, nullptr}}) {
        uint64_t i = 5, j = 5;
        const double results[] = {RArrSum(n, array, 1),          RArrMeanA(n, array),
                                  RArrNormL2(n, array),          RArrMax(n, array, &i),
                                  RArrAbsMax(n, array, nullptr), RArrAbsMin(n, array, nullptr),
                                  RArrMin(n, array, &j)};
        for (double x : results) EXPECT_EQ(std::bit_cast<uint64_t>(x), 0xFFFF000000000000u);
        EXPECT_EQ(i, UINT64_MAX);
        EXPECT_EQ(j, UINT64_MAX);
        i = j = 5;
        EXPECT_TRUE(rIsNAN(RArrRangeMinMax(n, array, &i, &j)));
        EXPECT_EQ(i, UINT64_MAX);
        EXPECT_EQ(j, UINT64_MAX);
    }
}

TEST(RealReductions, NormIsSafeFromOverflowAndUnderflow) {
    const double a[] = {3.0, 0.0, -4.0};
    EXPECT_EQ(RArrNormL2(3, a), 5.0);
    const double large[] = {3e300, -4e300};
    EXPECT_NEAR(RArrNormL2(2, large) / 5e300, 1.0, 1e-15);
    const double small[] = {3e-310, 4e-310};
    EXPECT_NEAR(RArrNormL2(2, small) / 5e-310, 1.0, 1e-12);
    const double zeros[] = {0.0, -0.0};
    EXPECT_EQ(RArrNormL2(2, zeros), 0.0);
    const double infinite[] = {1.0, -kInf, 2.0};
    EXPECT_EQ(RArrNormL2(3, infinite), kInf);
    const double broken[] = {1.0, samples::kQuietNan, 2.0};
    EXPECT_TRUE(std::isnan(RArrNormL2(3, broken)));
    for (uint64_t n : samples::allLengths()) {
        const auto b = samples::random(n);
        long double squares = 0;
        for (double x : b) squares += static_cast<long double>(x) * x;
        const double exact = static_cast<double>(std::sqrt(squares));
        EXPECT_NEAR(RArrNormL2(n, b.data()) / exact, 1.0, 1e-15 * std::sqrt(n) + 1e-15);
    }
}

}  // namespace
