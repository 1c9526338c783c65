// Errors in units in the last place against reference tables, and answers to special arguments.
//
// A row of a table holds the exact arguments and, for each of its functions, two numbers: the
// double nearest to the true value and what is missing to it in units of that double's last place.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace nuv64_test {

inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr double kQuiet = std::numeric_limits<double>::quiet_NaN();

inline double ulpOf(double x) {
    int exponent = 0;
    std::frexp(x, &exponent);
    return std::ldexp(1.0, exponent < -1021 ? -1074 : exponent - 53);
}

inline double ulpsOff(double value, double nearest, double rest) {
    const double error = std::fabs((value - nearest) / ulpOf(nearest) - rest);
    return std::isnan(error) ? kInf : error;
}

// The most that a function may be off, in ulps times the allowance of the row: with the C runtime
// of Linux and, where that is left out, of Windows as well.
struct Bound {
    double here;
    double windows;
    constexpr Bound(double all) : here(all), windows(all) {}
    constexpr Bound(double linuxUlps, double windowsUlps) : here(linuxUlps), windows(windowsUlps) {}
    double value() const {
#ifdef _WIN32
        return windows;
#else
        return here;
#endif
    }
};

// What a row may be off as a multiple of the bound: one ulp where nothing amplifies the rounding.
inline double oneUlp(const double*) {
    return 1.0;
}

// Prints the worst error over a table and holds it. column: that of the nearest double.
template <std::size_t N, std::size_t C, class Function, class Allowance>
void holdAccuracy(const char* name, const double (&table)[N][C], std::size_t column, Bound bound,
                  Function function, Allowance allowance) {
    double worst = 0.0;
    double worstUlps = 0.0;
    const double* at = table[0];
    for (const auto& row : table) {
        const double off = ulpsOff(function(row), row[column], row[column + 1]);
        const double share = off / allowance(row);
        worstUlps = std::fmax(worstUlps, off);
        if (!(share > worst)) continue;
        worst = share;
        at = row;
    }
    std::printf("%-22s worst %.3g ulps, %.3g of what a row may be off, at %.17g (%.17g)\n", name,
                worstUlps, worst, at[0], at[1]);
    EXPECT_LE(worst, bound.value()) << name << " at " << at[0] << ", " << at[1];
}

template <std::size_t N, std::size_t C, class Function>
void holdAccuracy(const char* name, const double (&table)[N][C], std::size_t column, Bound bound,
                  Function function) {
    holdAccuracy(name, table, column, bound, function, oneUlp);
}

// Marks in tables of wanted answers: the module's own not-a-number (its sign aside), any
// not-a-number, any finite value.
inline const double kNoResult = std::bit_cast<double>(std::uint64_t{0xFFFF000000000000});
inline constexpr double kAnyNan = kQuiet;
inline constexpr double kAnyFinite = 0x1.123456789abcdp-77;

inline bool answers(double wanted, double value) {
    constexpr std::uint64_t kNoSign = 0x7FFFFFFFFFFFFFFF;
    const auto bits = [](double x) { return std::bit_cast<std::uint64_t>(x) & kNoSign; };
    if (bits(wanted) == bits(kNoResult)) return bits(value) == bits(kNoResult);
    if (std::isnan(wanted)) return std::isnan(value);
    if (wanted == kAnyFinite) return std::isfinite(value);
    return value == wanted;
}

// Answers to: a not-a-number, plus and minus infinity, plus and minus zero, the smallest subnormal
// of either sign, the largest number of either sign.
struct SpecialAnswers {
    const char* name;
    double (*function)(double);
    double wanted[9];
};

template <std::size_t N>
void expectSpecialAnswers(const SpecialAnswers (&table)[N]) {
    constexpr double most = std::numeric_limits<double>::max();
    constexpr double least = std::numeric_limits<double>::denorm_min();
    const double arguments[9] = {kQuiet, kInf, -kInf, 0.0, -0.0, least, -least, most, -most};
    for (const SpecialAnswers& row : table) {
        for (std::size_t i = 0; i < 9; ++i) {
            const double value = row.function(arguments[i]);
            EXPECT_TRUE(answers(row.wanted[i], value))
                << row.name << '(' << arguments[i] << ") is " << value << ", not " << row.wanted[i];
        }
    }
}

// Answers to two arguments, and to one and a count.
struct PairAnswer {
    const char* name;
    double (*function)(double, double);
    double x, y, wanted;
};

template <std::size_t N>
void expectAnswers(const PairAnswer (&table)[N]) {
    for (const PairAnswer& row : table) {
        const double value = row.function(row.x, row.y);
        EXPECT_TRUE(answers(row.wanted, value)) << row.name << '(' << row.x << ", " << row.y
                                                << ") is " << value << ", not " << row.wanted;
    }
}

template <class Count>
struct CountAnswer {
    const char* name;
    double (*function)(double, Count);
    double x;
    Count n;
    double wanted;
};

template <class Count, std::size_t N>
void expectAnswers(const CountAnswer<Count> (&table)[N]) {
    for (const CountAnswer<Count>& row : table) {
        const double value = row.function(row.x, row.n);
        EXPECT_TRUE(answers(row.wanted, value)) << row.name << '(' << row.x << ", " << row.n
                                                << ") is " << value << ", not " << row.wanted;
    }
}

}  // namespace nuv64_test
