#include "nuv64/numeric/real_rounding.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

constexpr double kUnitLimit = 4503599627370495.5;
constexpr std::int64_t kInvalid = INT64_MIN;

TEST(Rounding, ToWholeReals) {
    EXPECT_EQ(rFloor(-1.5), -2.0);
    EXPECT_EQ(rCeil(-1.5), -1.0);
    EXPECT_EQ(rTrunc(-1.5), -1.0);
    EXPECT_EQ(rRound(-1.5), -2.0);
    EXPECT_EQ(rRound(2.5), 3.0);
    EXPECT_EQ(rRound(0.49999999999999994), 0.0);
    EXPECT_EQ(rRound(kUnitLimit), 4503599627370496.0);
    EXPECT_TRUE(std::signbit(rRound(-0.25)));
    for (double (*round)(double) : {rFloor, rCeil, rRound, rTrunc}) {
        EXPECT_EQ(round(kInf), kInf);
        EXPECT_EQ(round(1e300), 1e300);
        EXPECT_TRUE(std::isnan(round(kQuiet)));
    }
}

TEST(Rounding, ModfSplits) {
    double whole = 0.0;
    EXPECT_EQ(rModf(-3.25, &whole), -0.25);
    EXPECT_EQ(whole, -3.0);
    EXPECT_EQ(rModf(3.25, nullptr), 0.25);
    EXPECT_EQ(rModf(kInf, &whole), 0.0);
    EXPECT_EQ(whole, kInf);
    EXPECT_TRUE(std::isnan(rModf(kQuiet, &whole)));
    EXPECT_TRUE(std::isnan(whole));
    // Both parts have the sign of x, also where they are 0.
    for (const double x : {0.0, 0.25, 3.0, 0x1p60, kInf}) {
        for (const double signedX : {x, -x}) {
            const double fraction = rModf(signedX, &whole);
            EXPECT_EQ(std::signbit(fraction), std::signbit(signedX)) << signedX;
            EXPECT_EQ(std::signbit(whole), std::signbit(signedX)) << signedX;
            EXPECT_EQ(whole, rTrunc(signedX));
        }
    }
}

TEST(Rounding, RemainderTowardsZero) {
    const PairAnswer table[] = {
        {"rFmod", rFmod, 7.5, 2.0, 1.5},
        {"rFmod", rFmod, -7.5, 2.0, -1.5},
        {"rFmod", rFmod, 7.5, -2.0, 1.5},
        {"rFmod", rFmod, 2.0, 2.0, 0.0},
        {"rFmod", rFmod, 1e300, 7.0, 1.0},
        {"rFmod", rFmod, 0x1.fffffffffffffp1023, 0x1p-1074, 0.0},
        {"rFmod", rFmod, 0x1.8p-1073, 0x1p-1073, 0x1p-1074},
        {"rFmod", rFmod, 5.0, kInf, 5.0},
        {"rFmod", rFmod, -0.0, 3.0, 0.0},
        {"rFmod", rFmod, 5.0, 0.0, kAnyNan},
        {"rFmod", rFmod, kInf, 3.0, kAnyNan},
        {"rFmod", rFmod, kQuiet, 3.0, kAnyNan},
        {"rFmod", rFmod, 3.0, kQuiet, kAnyNan},
    };
    expectAnswers(table);
    // Exact: the quotient is a whole number wherever it can be seen.
    std::mt19937_64 random(12);
    for (int i = 0; i < 1000; ++i) {
        const double x = std::uniform_real_distribution<>(-1e6, 1e6)(random);
        const double y = std::uniform_real_distribution<>(0.5, 1e3)(random);
        const double rest = rFmod(x, y);
        EXPECT_LT(std::fabs(rest), y);
        EXPECT_NEAR((x - rest) / y, rTrunc(x / y), 1e-9);
    }
}

TEST(Rounding, SpecialArguments) {
    const double most = 0x1.fffffffffffffp1023;
    const SpecialAnswers table[] = {
        {"rFloor", rFloor, {kAnyNan, kInf, -kInf, 0, 0, 0, -1, most, -most}},
        {"rCeil", rCeil, {kAnyNan, kInf, -kInf, 0, 0, 1, 0, most, -most}},
        {"rRound", rRound, {kAnyNan, kInf, -kInf, 0, 0, 0, 0, most, -most}},
        {"rTrunc", rTrunc, {kAnyNan, kInf, -kInf, 0, 0, 0, 0, most, -most}},
    };
    expectSpecialAnswers(table);
    for (double (*round)(double) : {rFloor, rCeil, rRound, rTrunc}) {
        EXPECT_TRUE(std::signbit(round(-0.0)));
        EXPECT_FALSE(std::signbit(round(0.0)));
        for (const double x : {0x1p51 + 0.5, 0x1p52 - 0.5, 0x1p52 + 1.0, -0x1p52 + 0.5}) {
            EXPECT_EQ(std::trunc(round(x)), round(x)) << x;
            EXPECT_LE(std::fabs(round(x) - x), 0.5) << x;
        }
    }
}

template <class Integer>
struct Row {
    double x;
    Integer value;
    std::uint32_t flags;
};

template <class Integer, std::size_t N>
void check(Integer (*function)(double, std::uint32_t*), const Row<Integer> (&rows)[N]) {
    for (const auto& row : rows) {
        std::uint32_t flags = 0xDEAD;
        EXPECT_EQ(function(row.x, &flags), row.value) << row.x;
        EXPECT_EQ(flags, row.flags) << row.x;
        EXPECT_EQ(function(row.x, nullptr), row.value);
    }
}

TEST(RoundToInteger, Long) {
    check<std::int32_t>(iRealRoundToLong, {{0.0, 0, 0},
                                           {2.5, 3, 0x40},
                                           {-2.5, -3, 0x40},
                                           {-7.0, -7, 0},
                                           {2147483647.25, 0x7FFFFFFF, 0x40},
                                           {2147483647.5, 0x7FFFFFFF, 0x1100},
                                           {kInf, 0x7FFFFFFF, 0x1100},
                                           {-2147483647.25, -0x7FFFFFFF, 0x40},
                                           {-2147483647.5, -0x7FFFFFFF, 0x2200},
                                           {-2147483648.0, -0x7FFFFFFF, 0x2200},
                                           {-kInf, -0x7FFFFFFF, 0x2200},
                                           {kQuiet, -0x7FFFFFFF, 0x2200}});
}

TEST(RoundToInteger, Qlong) {
    check<std::int64_t>(iRealRoundToQlong, {{0.25, 0, 0x40},
                                            {-0.5, -1, 0x40},
                                            {4503599627370495.0, 4503599627370495, 0},
                                            {kUnitLimit, 4503599627370495, 0x400},
                                            {-kUnitLimit, -4503599627370495, 0x400},
                                            {4503599627370496.0, 4503599627370496, 0x400},
                                            {9223372036854774784.0, 9223372036854774784, 0x400},
                                            {0x1p63, INT64_MAX, 0x4100},
                                            {-0x1p63, -INT64_MAX, 0x8200},
                                            {kInf, INT64_MAX, 0x4100},
                                            {kQuiet, -INT64_MAX, 0x8200}});
}

TEST(RoundToInteger, Dword) {
    check<std::uint32_t>(uRealRoundToDword, {{-0.0, 0, 0},
                                             {-1e-300, 0, 0x20200},
                                             {0.5, 1, 0x40},
                                             {4294967294.0, 0xFFFFFFFE, 0},
                                             {4294967294.25, 0xFFFFFFFE, 0x40},
                                             {4294967294.5, 0xFFFFFFFE, 0x10100},
                                             {kInf, 0xFFFFFFFE, 0x10100},
                                             {-1.0, 0, 0x20200},
                                             {kQuiet, 0, 0x20200}});
}

TEST(RoundToInteger, Qword) {
    check<std::uint64_t>(uRealRoundToQword, {{2.5, 3, 0x40},
                                             {kUnitLimit, 4503599627370495, 0x400},
                                             {0x1p63, std::uint64_t{1} << 63, 0x400},
                                             {0x1p64, UINT64_MAX - 1, 0x40100},
                                             {kInf, UINT64_MAX - 1, 0x40100},
                                             {-1.0, 0, 0x80200},
                                             {kQuiet, 0, 0x80200}});
}

template <class Integer>
struct IntervalCase {
    double x;
    Integer low, high, value;
    bool inside;
};

template <class Integer, std::size_t N>
void check(bool (*function)(double, Integer*, Integer, Integer),
           const IntervalCase<Integer> (&rows)[N]) {
    for (const auto& row : rows) {
        Integer out = 99;
        EXPECT_EQ(function(row.x, &out, row.low, row.high), row.inside) << row.x;
        EXPECT_EQ(out, row.value) << row.x;
        EXPECT_EQ(function(row.x, nullptr, row.low, row.high), row.inside);
    }
}

TEST(RoundToInterval, AllFour) {
    check<std::int32_t>(iRealToLongInterval, {{2.5, -5, 5, 3, true},
                                              {5.4, -5, 5, 5, true},
                                              {5.5, -5, 5, 5, false},
                                              {-6.0, -5, 5, -5, false},
                                              {1e300, INT32_MIN, INT32_MAX, INT32_MAX, false},
                                              {-kInf, INT32_MIN, INT32_MAX, INT32_MIN, false},
                                              {-2147483648.0, INT32_MIN, 5, INT32_MIN, true},
                                              {kQuiet, -5, 5, -5, false}});
    check<std::int64_t>(iRealToQlongInterval, {{2.5, -5, 5, 3, true},
                                               {0x1p63, INT64_MIN, INT64_MAX, INT64_MAX, false},
                                               {-0x1p63, INT64_MIN, 0, INT64_MIN, true},
                                               {-1e19, INT64_MIN, 0, INT64_MIN, false},
                                               {kQuiet, -5, 5, -5, false}});
    check<std::uint32_t>(uRealToDwordInterval, {{2.5, 1, 5, 3, true},
                                                {-0.25, 0, 5, 0, false},
                                                {0.0, 0, 5, 0, true},
                                                {4294967295.0, 0, UINT32_MAX, UINT32_MAX, true},
                                                {4294967296.0, 0, UINT32_MAX, UINT32_MAX, false},
                                                {kQuiet, 2, 5, 2, false}});
    check<std::uint64_t>(uRealToQwordInterval,
                         {{2.5, 1, 5, 3, true},
                          {-3.0, 2, 5, 2, false},
                          {0x1p64, 0, UINT64_MAX, UINT64_MAX, false},
                          {0x1p63, 0, UINT64_MAX, std::uint64_t{1} << 63, true},
                          {kQuiet, 2, 5, 2, false}});
}

TEST(RoundToQlong, PlainForms) {
    EXPECT_EQ(iFloor(-1.25), -2);
    EXPECT_EQ(iCeil(-1.25), -1);
    EXPECT_EQ(iRound(-1.5), -2);
    EXPECT_EQ(iRound(2.5), 3);
    EXPECT_EQ(iSymFloor(-1.75), -1);
    EXPECT_EQ(iSymFloor(1.75), 1);
    EXPECT_EQ(iSymRound(-1.5), -2);
    for (std::int64_t (*function)(double) : {iFloor, iCeil, iRound, iSymFloor, iSymRound}) {
        for (const double x : {0x1p63, -0x1p63, kInf, -kInf, 1e300, kQuiet}) {
            EXPECT_EQ(function(x), kInvalid) << x;
        }
        EXPECT_EQ(function(-9223372036854774784.0), -9223372036854774784);
        EXPECT_EQ(function(0.0), 0);
    }
}

TEST(RoundToQlong, FractionsAddUp) {
    double fraction = 9.0;
    EXPECT_EQ(iFloorFrac(-1.25, &fraction), -2);
    EXPECT_EQ(fraction, 0.75);
    EXPECT_EQ(iCeilFrac(-1.25, &fraction), -1);
    EXPECT_EQ(fraction, -0.25);
    EXPECT_EQ(iRoundFrac(2.5, &fraction), 3);
    EXPECT_EQ(fraction, -0.5);
    EXPECT_EQ(iSymFloorFrac(-1.75, &fraction), -1);
    EXPECT_EQ(fraction, -0.75);
    EXPECT_EQ(iSymRoundFrac(-1.75, &fraction), -2);
    EXPECT_EQ(fraction, 0.25);
    // A difference that rounds to a whole unit moves the integer.
    EXPECT_EQ(iFloorFrac(-1e-20, &fraction), 0);
    EXPECT_EQ(fraction, 0.0);
    EXPECT_EQ(iCeilFrac(1e-20, &fraction), 0);
    EXPECT_EQ(fraction, 0.0);
    std::mt19937_64 random(11);
    for (auto function : {iFloorFrac, iCeilFrac, iRoundFrac, iSymFloorFrac, iSymRoundFrac}) {
        for (const double x : {0x1p63, -0x1p63, kInf, kQuiet}) {
            fraction = 9.0;
            EXPECT_EQ(function(x, &fraction), kInvalid);
            EXPECT_EQ(fraction, 0.0);
        }
        EXPECT_EQ(function(3.0, nullptr), 3);
        for (int i = 0; i < 1000; ++i) {
            const double x = std::uniform_real_distribution<>(-1e6, 1e6)(random);
            const std::int64_t whole = function(x, &fraction);
            EXPECT_EQ(static_cast<double>(whole) + fraction, x);
            EXPECT_LT(std::fabs(fraction), 1.0);
        }
    }
}

}  // namespace
