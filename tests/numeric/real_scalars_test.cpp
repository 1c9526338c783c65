#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/chebyshev.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_means.h"
#include "nuv64/numeric/real_scaling.h"
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

TEST(Elementary, ExpAgreesWithTheReference) {
    EXPECT_LT(worstError(
                  "rExp", kExp, [](auto& r) { return rExp(r[0]); }, kPlain),
              1.0);
}

TEST(Elementary, LogsAgreeWithTheReference) {
    EXPECT_LT(worstError(
                  "rLog", kLog, [](auto& r) { return rLog(r[0]); }, kPlain),
              2.0);
    const auto log2 = [](auto& r) { return rLog2(r[0]) * 0.6931471805599453094; };
    EXPECT_LT(worstError("rLog2", kLog, log2, kPlain), 2.0);
    const auto log10 = [](auto& r) { return rLog10(r[0]) * 2.302585092994045684; };
    EXPECT_LT(worstError("rLog10", kLog, log10, kPlain), 3.0);
}

TEST(Elementary, PowersAgreeWithTheReference) {
    const auto exponent = [](auto& r) { return 1.0 + std::fabs(r[1] * std::log(r[0])); };
    EXPECT_LT(worstError(
                  "rPow", kPow, [](auto& r) { return rPow(r[0], r[1]); }, exponent),
              1.0);
}

TEST(Elementary, HypotAgreesWithTheReference) {
    EXPECT_LT(worstError(
                  "rHypot", kHypot, [](auto& r) { return rHypot(r[0], r[1]); }, kPlain),
              2.0);
}

TEST(Elementary, AzimuthAgreesWithTheReference) {
    const auto azimuth = [](auto& r) { return rAzimuth(r[0], r[1]); };
    // Where y is lost against x the angle is 0 by decision: absolute there.
    for (const auto& row : kAzimuth) {
        EXPECT_NEAR(azimuth(row), row[2], 2.0 * kEps * std::fabs(row[2]) + kEps)
            << row[0] << ' ' << row[1];
    }
}

TEST(Elementary, ExpKeepsOffInfinity) {
    EXPECT_TRUE(isNan64(rExp(710.0)));
    EXPECT_TRUE(isNan64(rExp(kInf)));
    EXPECT_EQ(rExp(-710.0), 0.0);
    EXPECT_EQ(rExp(-kInf), 0.0);
    EXPECT_TRUE(std::isfinite(rExp(___LnMaxReal)));
    EXPECT_TRUE(isNan64(rExp(std::nextafter(___LnMaxReal, kInf))));
    EXPECT_GT(rExp(___LnMinReal), 0.0);
    EXPECT_EQ(rExp(std::nextafter(___LnMinReal, -kInf)), 0.0);
    EXPECT_TRUE(std::isnan(rExp(kQuiet)));
}

TEST(Elementary, LogsRefuseWhatIsNotPositive) {
    for (double (*log)(double) : {rLog, rLog2, rLog10}) {
        for (const double x : {0.0, -0.0, -1.0, -kInf, ___MinReal}) {
            EXPECT_TRUE(isNan64(log(x)) || std::isnan(log(x))) << x;
        }
        EXPECT_TRUE(std::isfinite(log(std::nextafter(___MinReal, 1.0))));
        EXPECT_EQ(log(1.0), 0.0);
        EXPECT_EQ(log(kInf), kInf);
        EXPECT_TRUE(std::isnan(log(kQuiet)));
    }
    EXPECT_TRUE(isNan64(rLog2(0.0)));
    EXPECT_EQ(rLog2(1024.0), 10.0);
}

TEST(Elementary, PowTakesTheMagnitudeAndSaturates) {
    EXPECT_EQ(rPow(2.0, 2000.0), ___MaxReal);
    EXPECT_EQ(rPow(0.0, 2.0), ___MinReal);
    EXPECT_EQ(rPow(0.0, -1.0), ___MaxReal);
    EXPECT_EQ(rPow(-2.0, 2.0), 4.0);
    EXPECT_EQ(rPow(-2.0, 3.0), rPow(2.0, 3.0));
    EXPECT_EQ(rPow(2.0, -2000.0), ___MinReal);
    EXPECT_EQ(rPow(0.0, 0.0), 1.0);
    EXPECT_EQ(rPow(kQuiet, 1e-17), 1.0);
    EXPECT_TRUE(std::isnan(rPow(kQuiet, 1.0)));
    EXPECT_TRUE(std::isnan(rPow(1.0, kInf)));
    EXPECT_EQ(rPow(kInf, 1.0), ___MaxReal);
    EXPECT_EQ(rSignedPower(-2.0, 2.0), -4.0);
    EXPECT_EQ(rSignedPower(2.0, 2.0), 4.0);
    EXPECT_EQ(rSignedPower(-0.0, 1.0), ___MinReal);
}

TEST(Elementary, WholePowers) {
    EXPECT_EQ(ruPower(0.0, 0), 1.0);
    EXPECT_EQ(ruPower(kQuiet, 0), 1.0);
    EXPECT_EQ(ruPower(-3.0, 5), -243.0);
    EXPECT_EQ(ruPower(2.0, 1023), 0x1p1023);
    EXPECT_EQ(ruPower(2.0, 1024), kInf);
    EXPECT_EQ(ruPower(1.0, UINT64_MAX), 1.0);
    EXPECT_EQ(ruPower(-1.0, UINT64_MAX), -1.0);
    EXPECT_EQ(riPower(2.0, -3), 0.125);
    EXPECT_EQ(riPower(-2.0, -3), -0.125);
    EXPECT_TRUE(isNan64(riPower(0.0, -1)));
    EXPECT_EQ(riPower(0.0, 3), 0.0);
    EXPECT_EQ(riPower(-1.0, INT64_MIN), 1.0);
    EXPECT_EQ(riPower(3.0, INT64_MIN), 0.0);
    EXPECT_EQ(riAbsPower(-2.0, 3), 8.0);
    EXPECT_EQ(riSignedPower(-2.0, 2), -4.0);
    EXPECT_EQ(riSignedPower(2.0, -2), 0.25);
    std::mt19937_64 random(3);
    for (int i = 0; i < 1000; ++i) {
        const double x = std::uniform_real_distribution<>(-3.0, 3.0)(random);
        const int n = static_cast<int>(random() % 40);
        EXPECT_NEAR(ruPower(x, static_cast<std::uint64_t>(n)) / std::pow(x, n), 1.0,
                    n * kEps + kEps);
    }
}

TEST(Elementary, SmallThings) {
    EXPECT_EQ(rAbs(-2.5), 2.5);
    EXPECT_EQ(rAbs(2.5), 2.5);
    EXPECT_TRUE(std::signbit(rAbs(-0.0)));
    EXPECT_EQ(rAbs(-kInf), kInf);
    EXPECT_TRUE(std::isnan(rAbs(kQuiet)));
    EXPECT_EQ(rSqrt(9.0), 3.0);
    EXPECT_TRUE(std::isnan(rSqrt(-1.0)));
    EXPECT_EQ(rAtan(0.0), 0.0);
    EXPECT_EQ(rAtan(kInf), std::acos(0.0));
    EXPECT_EQ(rHypot(0.0, 0.0), 0.0);
    EXPECT_EQ(rHypot(-3.0, 4.0), 5.0);
    EXPECT_EQ(rHypot(1e308, 1e308), 1e308 * std::sqrt(2.0));
    EXPECT_TRUE(std::isnan(rHypot(kQuiet, 1.0)));
    EXPECT_TRUE(std::isnan(rHypot(1.0, kQuiet)));
}

TEST(Elementary, AnglesAtTheAxes) {
    const double pi = std::acos(-1.0);
    EXPECT_EQ(rAtanXY(0.0, 0.0), 0.0);
    EXPECT_EQ(rAtanXY(1.0, 1e-17), 0.0);
    EXPECT_EQ(rAtanXY(0.0, 2.0), pi / 2);
    EXPECT_EQ(rAtanXY(1e-17, -2.0), -pi / 2);
    EXPECT_EQ(rAtanXY(-1.0, -1.0), pi / 4);
    EXPECT_EQ(rAtanXY(-1.0, 1.0), -pi / 4);
    EXPECT_EQ(rAtanXY(kQuiet, 1.0), 0.0);
    EXPECT_EQ(rAzimuth(-1.0, 0.0), pi);
    EXPECT_EQ(rAzimuth(-1.0, -0.0), pi);
    EXPECT_EQ(rAzimuth(0.0, -1.0), -pi / 2);
    EXPECT_EQ(rAzimuth(0.0, 0.0), 0.0);
    EXPECT_NEAR(rAzimuth(-1.0, -1.0), -3 * pi / 4, kEps);
}

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

TEST(Scaling, MantissaLiesBetweenOneAndTheRadix) {
    std::int32_t e = 7;
    EXPECT_EQ(rMantissaAndExponent(0.0, &e, 10), 0.0);
    EXPECT_EQ(e, static_cast<std::int32_t>(0x80000001));
    EXPECT_EQ(rMantissaAndExponent(-1250.0, &e, 10), -1.25);
    EXPECT_EQ(e, 3);
    EXPECT_EQ(rMantissaAndExponent(0.375, &e, 2), 1.5);
    EXPECT_EQ(e, -2);
    EXPECT_TRUE(isNan64(rMantissaAndExponent(5.0, &e, 1)));
    EXPECT_EQ(e, 0);
    EXPECT_TRUE(isNan64(rMantissaAndExponent(5.0, &e, -3)));
    e = 7;
    EXPECT_EQ(rMantissaAndExponent(kInf, &e, 10), kInf);
    EXPECT_EQ(e, 0);
    EXPECT_TRUE(std::isnan(rMantissaAndExponent(kQuiet, nullptr, 10)));
    EXPECT_EQ(rMantissaAndExponent(8.0, nullptr, 2), 1.0);
    std::mt19937_64 random(5);
    for (int i = 0; i < 2000; ++i) {
        const double x = std::bit_cast<double>(random());
        const std::int32_t radix = static_cast<std::int32_t>(2 + random() % 35);
        if (rIsNAN(x)) continue;
        const double m = rMantissaAndExponent(x, &e, radix);
        EXPECT_GE(std::fabs(m), 1.0);
        EXPECT_LT(std::fabs(m), radix);
        EXPECT_EQ(std::signbit(m), std::signbit(x));
        if (radix == 2) {
            EXPECT_EQ(std::ldexp(m, e), x);
        }
    }
}

TEST(Scaling, MultipliesByAPower) {
    EXPECT_EQ(rMultiplyByRadixToExponent(1.5, 4, 2), 24.0);
    EXPECT_EQ(rMultiplyByRadixToExponent(-3.0, 2, 10), -300.0);
    EXPECT_EQ(rMultiplyByRadixToExponent(3.0, -1, 4), 0.75);
    EXPECT_EQ(rMultiplyByRadixToExponent(7.0, 0, 0), 7.0);
    EXPECT_TRUE(isNan64(rMultiplyByRadixToExponent(7.0, -1, 0)));
    EXPECT_EQ(rMultiplyByRadixToExponent(1.0, INT32_MIN, 2), 0.0);
    EXPECT_EQ(rMultiplyByRadixToExponent(1.0, 1, UINT32_MAX), 4294967295.0);
}

TEST(Special, ErrorRealsCarryAStatus) {
    EXPECT_EQ(bits(rSetERR(0)), bits(___NAN));
    EXPECT_EQ(bits(rSetERR(15)), 0xFFFF00000000000Fu);
    EXPECT_EQ(rGetERR(rSetERR(15)), 15u);
    EXPECT_EQ(rGetERR(rSetERR(36)), 36u);
    EXPECT_EQ(rGetERR(rSetERR(UINT32_MAX)), UINT32_MAX);
    EXPECT_EQ(rGetERR(1.0), 0u);
    EXPECT_EQ(rGetERR(___PlsINF), 0u);
    EXPECT_EQ(rGetERR(___NAN), 0u);
    EXPECT_TRUE(std::isnan(rSetERR(0x80001)));
}

TEST(Special, StoresReturnTheirPointer) {
    double x = 1.0;
    EXPECT_EQ(rSetNAN(&x), &x);
    EXPECT_EQ(bits(x), 0xFFFF000000000000u);
    EXPECT_EQ(rSetPlsINF(&x), &x);
    EXPECT_EQ(x, kInf);
    EXPECT_EQ(rSetMnsINF(&x), &x);
    EXPECT_EQ(x, -kInf);
    EXPECT_EQ(rSetNAN(nullptr), nullptr);
    EXPECT_EQ(rSetPlsINF(nullptr), nullptr);
    EXPECT_EQ(rSetMnsINF(nullptr), nullptr);
}

TEST(Special, AnInfinityIsNoResult) {
    for (const double x : {kInf, -kInf, kQuiet, ___NAN, rSetERR(5)}) {
        EXPECT_TRUE(rIsNAN(x));
        EXPECT_FALSE(rIsNotNAN(x));
    }
    for (const double x : {0.0, -0.0, 1e308, -1e308, 5e-324, ___MaxReal}) {
        EXPECT_FALSE(rIsNAN(x));
        EXPECT_TRUE(rIsNotNAN(x));
    }
    EXPECT_TRUE(rIsPlsINF(___PlsINF));
    EXPECT_FALSE(rIsPlsINF(___MnsINF));
    EXPECT_FALSE(rIsPlsINF(___NAN));
    EXPECT_TRUE(rIsMnsINF(___MnsINF));
    EXPECT_FALSE(rIsMnsINF(___PlsINF));
    EXPECT_FALSE(rIsMnsINF(0.0));
}

TEST(Chebyshev, AgreesWithTheReferenceInside) {
    double worst = 0.0;
    for (const auto& row : kChebyshevInside) {
        const double value = rChebyshevT(row[0], static_cast<std::uint64_t>(row[1]));
        worst = std::fmax(worst, std::fabs(value - row[2]) / kEps / row[1]);
    }
    std::printf("rChebyshevT inside: worst error %.3g n*2^-52\n", worst);
    EXPECT_LT(worst, 1.0);
}

TEST(Chebyshev, AgreesWithTheReferenceOutside) {
    const auto scale = [](auto& r) { return r[1] * (1.0 + std::log(2.0 * std::fabs(r[0]))); };
    const auto value = [](auto& r) { return rChebyshevT(r[0], static_cast<std::uint64_t>(r[1])); };
    EXPECT_LT(worstError("rChebyshevT outside", kChebyshevOutside, value, scale), 1.0);
}

TEST(Chebyshev, Singles) {
    EXPECT_EQ(rChebyshevT(0.3, 0), 1.0);
    EXPECT_EQ(rChebyshevT(kQuiet, 0), 1.0);
    EXPECT_EQ(rChebyshevT(0.3, 1), 0.3);
    EXPECT_EQ(rChebyshevT(3.0, 2), 17.0);
    EXPECT_EQ(rChebyshevT(-1.0, 999), -1.0);
    EXPECT_EQ(rChebyshevT(1.0, UINT64_MAX), 1.0);
    EXPECT_EQ(rChebyshevT(-100.0, 1001), -kInf);
    EXPECT_TRUE(std::isnan(rChebyshevT(kQuiet, 5)));
    EXPECT_TRUE(std::isnan(rChebyshevT(kQuiet, 500)));
}

TEST(Chebyshev, SeriesIsTheSumOfItsTerms) {
    EXPECT_TRUE(isNan64(rChebyshevTSeries(0.5, nullptr, 3)));
    const double one[] = {2.5};
    EXPECT_EQ(rChebyshevTSeries(0.7, one, 0), 2.5);
    std::mt19937_64 random(9);
    std::uniform_real_distribution<> any(-1.0, 1.0);
    for (int round = 0; round < 200; ++round) {
        double coefs[12];
        for (double& c : coefs) c = any(random);
        const double x = 1.5 * any(random);
        const std::uint64_t order = random() % 12;
        double sum = 0.0;
        double size = 0.0;
        for (std::uint64_t k = 0; k <= order; ++k) {
            sum += coefs[k] * rChebyshevT(x, k);
            size += std::fabs(coefs[k] * rChebyshevT(x, k)) + 1.0;
        }
        EXPECT_NEAR(rChebyshevTSeries(x, coefs, order), sum, 20 * kEps * size);
    }
}

}  // namespace
