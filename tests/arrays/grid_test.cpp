#include "nuv64/arrays/grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "arrays/array_samples.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/memory.h"
#include "nuv64/numeric/real_special.h"

namespace {

using samples::kInf;

double plainPoint(uint64_t i, uint64_t type, uint64_t n, double first, double last) {
    const double t = static_cast<double>(i), m = static_cast<double>(n - 1);
    switch (type) {
        case 2:
            return std::exp(std::log(first) + t * (std::log(last) - std::log(first)) / m);
        case 3:
            return 1.0 / (1.0 / first + t * (1.0 / last - 1.0 / first) / m);
        case 4:
            return std::sqrt(first * first + t * (last * last - first * first) / m);
        default:
            return first + t * (last - first) / m;
    }
}

TEST(Grid, LogarithmicGridOfThreePoints) {
    double out[3];
    EXPECT_EQ(RArrGridFill(2, 1.0, 100.0, 3, out), 0u);
    EXPECT_EQ(out[0], 1.0);
    EXPECT_NEAR(out[1], 10.0, 1e-14);
    EXPECT_NEAR(out[2], 100.0, 1e-13);
}

TEST(Grid, PointsFollowTheirFormula) {
    for (uint64_t type : {0, 1, 2, 3, 4, 5, 77}) {
        for (auto [first, last] : {std::pair{0.25, 80.0}, {80.0, 0.25}, {3.0, 3.0}}) {
            for (uint64_t n : {2, 3, 4, 17, 64, 1001}) {
                std::vector<double> out(n, 7.0);
                ASSERT_EQ(RArrGridFill(type, first, last, n, out.data()), 0u);
                for (uint64_t i = 0; i < n; ++i) {
                    const double exact = plainPoint(i, type, n, first, last);
                    EXPECT_EQ(RArrGridValue(i, type, n, first, last), exact);
                    if (type >= 2 && type <= 4) {
                        EXPECT_EQ(out[i], exact);
                    } else {
                        EXPECT_NEAR(out[i], exact, 1e-12);
                    }
                }
            }
        }
    }
}

TEST(Grid, LinearFillAddsItsStep) {
    double out[11];
    RArrGridFill(1, 0.0, 1.0, 11, out);
    double x = 0.0;
    for (double point : out) {
        EXPECT_EQ(point, x);
        x += 0.1;
    }
    EXPECT_NE(out[10], 1.0);
    EXPECT_EQ(RArrGridValue(10, 1, 11, 0.0, 1.0), 1.0);
}

TEST(Grid, OnePointIsTheFirstValue) {
    for (uint64_t type : {0, 1, 2, 3, 4}) {
        double out = 7.0;
        EXPECT_EQ(RArrGridFill(type, -2.0, 9.0, 1, &out), 0u);
        EXPECT_EQ(out, -2.0);
        EXPECT_EQ(RArrGridValue(0, type, 1, -2.0, 9.0), -2.0);
        EXPECT_EQ(RArrGridIndex(1.0, type, 1, -2.0, 9.0), UINT64_MAX);
    }
}

TEST(Grid, FillTestsItsArguments) {
    double out = 7.0;
    EXPECT_EQ(RArrGridFill(1, 0.0, 1.0, 0, nullptr), 0u);
    EXPECT_EQ(RArrGridFill(1, 0.0, 1.0, 0, &out), 0u);
    EXPECT_EQ(out, 7.0);
    EXPECT_EQ(RArrGridFill(1, 0.0, 1.0, 5, nullptr), 18u);
}

TEST(Grid, NewGridIsAFilledArray) {
    uint32_t status = 7;
    EXPECT_EQ(NewRArrGrid(&status, 2, 1.0, 2.0, 0), nullptr);
    EXPECT_EQ(status, 0u);
    status = 7;
    EXPECT_EQ(NewRArrGrid(&status, 2, 1.0, 2.0, uint64_t{1} << 61), nullptr);
    EXPECT_EQ(status, 0x80001u);
    double* grid = NewRArrGrid(nullptr, 3, 1.0, 4.0, 9);
    ASSERT_NE(grid, nullptr);
    for (uint64_t i = 0; i < 9; ++i) EXPECT_EQ(grid[i], RArrGridValue(i, 3, 9, 1.0, 4.0));
    RArrKill(&grid);
}

TEST(Grid, ValueBehindTheEndIsMissing) {
    EXPECT_TRUE(rIsNAN(RArrGridValue(5, 1, 5, 0.0, 1.0)));
    EXPECT_TRUE(rIsNAN(RArrGridValue(0, 1, 0, 0.0, 1.0)));
    EXPECT_TRUE(rIsNAN(RArrGridValue(UINT64_MAX, 2, 5, 1.0, 2.0)));
}

TEST(Grid, IndexInvertsTheValue) {
    for (uint64_t type : {0, 1, 2, 3, 4}) {
        for (auto [first, last] : {std::pair{0.01, 40.0}, {40.0, 0.01}}) {
            for (uint64_t n : {2, 3, 10, 1000}) {
                for (uint64_t i = 0; i < n; ++i) {
                    const double x = RArrGridValue(i, type, n, first, last);
                    EXPECT_EQ(RArrGridIndex(x, type, n, first, last), i) << type << " " << n;
                }
            }
        }
    }
}

TEST(Grid, IndexIsLimitedToTheGrid) {
    EXPECT_EQ(RArrGridIndex(-100.0, 1, 11, 0.0, 10.0), 0u);
    EXPECT_EQ(RArrGridIndex(1e300, 1, 11, 0.0, 10.0), 10u);
    EXPECT_EQ(RArrGridIndex(3.4, 1, 11, 0.0, 10.0), 3u);
    EXPECT_EQ(RArrGridIndex(3.6, 1, 11, 0.0, 10.0), 4u);
    EXPECT_EQ(RArrGridIndex(-1.0, 2, 11, 1.0, 10.0), 0u);
    EXPECT_EQ(RArrGridIndex(0.0, 2, 11, 1.0, 10.0), 0u);
}

TEST(Grid, IndexOfWhatHasNone) {
    EXPECT_EQ(RArrGridIndex(1.0, 1, 10, 2.0, 2.0), UINT64_MAX);
    EXPECT_EQ(RArrGridIndex(samples::kQuietNan, 1, 10, 1.0, 2.0), UINT64_MAX);
    EXPECT_EQ(RArrGridIndex(kInf, 1, 10, 1.0, 2.0), UINT64_MAX);
    EXPECT_EQ(RArrGridIndex(1.0, 1, 0, 1.0, 2.0), UINT64_MAX);
    EXPECT_EQ(RArrGridIndex(1.0, 1, 1, 1.0, 2.0), UINT64_MAX);
}

TEST(Grid, LimitsThatAreNotNumbersDoNoHarm) {
    for (uint64_t type : {1, 2, 3, 4}) {
        for (double limit : {samples::kQuietNan, kInf, -kInf, 0.0, -1.0}) {
            double out[4];
            EXPECT_EQ(RArrGridFill(type, limit, 2.0, 4, out), 0u);
            EXPECT_EQ(RArrGridFill(type, 2.0, limit, 4, out), 0u);
            EXPECT_LT(RArrGridIndex(1.0, type, 4, limit, 2.0), 4u);
            EXPECT_LT(RArrGridIndex(1.0, type, 4, 2.0, limit), 4u);
        }
    }
}

TEST(Grid, NamesOfTypes) {
    EXPECT_STREQ(RArrGridNameFromTypeA(1), "Lin");
    EXPECT_STREQ(RArrGridNameFromTypeA(2), "Log");
    EXPECT_STREQ(RArrGridNameFromTypeA(3), "Inverse");
    EXPECT_STREQ(RArrGridNameFromTypeA(4), "Square");
    EXPECT_EQ(RArrGridNameFromTypeA(0), nullptr);
    EXPECT_EQ(RArrGridNameFromTypeA(5), nullptr);
    EXPECT_EQ(RArrGridNameFromTypeA(UINT64_MAX), nullptr);
}

TEST(Grid, TypesOfNames) {
    const std::pair<const char*, uint64_t> cases[] = {
        {"Lin", 1},    {"LIN", 1},    {"lin", 1},       {"Regular grid", 1}, {"Linear", 1},
        {"LINE", 1},   {"Log", 2},    {"logarithm", 2}, {"LOG", 2},          {"Inverse", 3},
        {"Square", 4}, {"square", 0}, {"", 0},          {"LiN", 0},          {" Lin", 0},
        {"Li", 0},     {"regular", 0}};
    for (auto [name, type] : cases) EXPECT_EQ(RArrGridTypeFromNameA(name), type) << name;
    EXPECT_EQ(RArrGridTypeFromNameA(nullptr), 0u);
}

TEST(Grid, RecognisesLinearAndLogarithmicGrids) {
    const double doubling[] = {1, 2, 4, 8}, counting[] = {1, 2, 3}, neither[] = {0, 1, 3};
    EXPECT_EQ(RArrTestGridType(doubling, 4, 0.0), 2);
    EXPECT_EQ(RArrTestGridType(counting, 3, 0.0), 1);
    EXPECT_EQ(RArrTestGridType(neither, 3, 0.0), 0);
    EXPECT_EQ(RArrTestGridType(doubling, 2, 0.0), 0);
    EXPECT_EQ(RArrTestGridType(nullptr, 4, 0.0), 0);
    const double flat[] = {1, 1, 1}, broken[] = {1, 2, samples::kQuietNan}, wild[] = {1, 2, 9, 4};
    EXPECT_EQ(RArrTestGridType(flat, 3, 1.0), 0);
    EXPECT_EQ(RArrTestGridType(broken, 3, 1.0), 0);
    EXPECT_EQ(RArrTestGridType(wild, 4, 0.1), 0);
    for (uint64_t type : {1, 2}) {
        double* grid = NewRArrGrid(nullptr, type, 50.0, 0.001, 200);
        EXPECT_EQ(RArrTestGridType(grid, 200, 1e-6), static_cast<int64_t>(type));
        RArrKill(&grid);
    }
    double* inverse = NewRArrGrid(nullptr, 3, 50.0, 0.001, 200);
    EXPECT_EQ(RArrTestGridType(inverse, 200, 1e-6), 0);
    RArrKill(&inverse);
}

}  // namespace
