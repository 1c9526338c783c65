#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_means.h"
#include "nuv64/numeric/real_special.h"

namespace {

#include "numeric/scalars_reference.inc"

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kEps = 0x1p-52;
const double kQuiet = std::numeric_limits<double>::quiet_NaN();

std::uint64_t bits(double x) {
    return std::bit_cast<std::uint64_t>(x);
}

bool isNan64(double x) {
    return bits(x) == bits(___NAN);
}

// The largest relative error of function over a table, in units of 2^-52, after allowing each row
// scale(row) of them; printed, so that a drift is seen.
template <std::size_t N, std::size_t C, class Function, class Scale>
double worstError(const char* name, const double (&table)[N][C], Function function, Scale scale) {
    double worst = 0.0;
    for (const auto& row : table) {
        const double wanted = row[C - 1];
        const double error = std::fabs(function(row) - wanted) / kEps / scale(row);
        const double relative = wanted == 0.0 ? error : error / std::fabs(wanted);
        worst = std::fmax(worst, std::isnan(relative) ? kInf : relative);
    }
    std::printf("%s: worst error %.3g\n", name, worst);
    return worst;
}

const auto kPlain = [](const double*) { return 1.0; };

TEST(Means, OfTwoNumbers) {
    EXPECT_EQ(rMeanA(1.0, 4.0), 2.5);
    EXPECT_EQ(rMeanG(1.0, 4.0), 2.0);
    EXPECT_EQ(rMeanG(-1.0, -4.0), 2.0);
    EXPECT_TRUE(isNan64(rMeanG(-1.0, 4.0)));
    EXPECT_TRUE(isNan64(rMeanAGM(-1.0, 4.0)));
    EXPECT_TRUE(isNan64(rMeanAGM(1.0, -4.0)));
    EXPECT_EQ(rMeanAGM(0.0, 4.0), 0.0);
    EXPECT_EQ(rMeanAGM(4.0, 0.0), 0.0);
    EXPECT_EQ(rMeanAGM(2.0, 7.0), rMeanAGM(7.0, 2.0));
    EXPECT_TRUE(rIsNAN(rMeanAGM(kInf, 1.0)));
    EXPECT_TRUE(std::isnan(rMeanAGM(kQuiet, 1.0)));
    EXPECT_LT(worstError(
                  "rMeanAGM", kAgm, [](auto& r) { return rMeanAGM(r[0], r[1]); }, kPlain),
              4.0);
}

}  // namespace
