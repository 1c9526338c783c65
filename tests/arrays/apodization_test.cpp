#include "nuv64/arrays/apodization.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <numbers>
#include <vector>

#include "arrays/array_samples.h"

namespace {

using samples::kInf;
using samples::kQuietNan;
using Values = std::vector<double>;

constexpr double kPi = std::numbers::pi;
constexpr double kFourLn2 = 4.0 * std::numbers::ln2;

double square(double x) {
    return x * x;
}

Values apodized(uint64_t type, const Values& in, double t0, double tEnd, const Values& p) {
    Values out(in);
    EXPECT_EQ(RArrApodization(type, out.size(), out.data(), t0, tEnd, p.data()), 0u);
    return out;
}

// Each window as a function of time (and of the time step), by direct evaluation.
struct WindowCase {
    const char* name;
    uint64_t type;
    Values parameters;
    double (*window)(double t, double dt, double tEnd, const Values& p);
};

double vorning(double t, double, double tEnd, const Values& p) {
    const double last =
        std::isfinite(p[1]) ? std::min(p[1] * (p[0] == 0.0 ? 4.0 : p[0]), tEnd) : tEnd;
    return t > last ? 0.0 : square(std::cos(kPi * t / (2.0 * last)));
}

double gaussLorentz(double t, double, double, const Values& p) {
    return std::exp(-square(kPi * p[0]) / kFourLn2 * t * t - kPi * p[1] * t);
}

double smoothstep(double t, double, double, const Values& p) {
    const double u = std::pow(t / p[0], std::round(p[1]));
    return u / (1.0 + u);
}

std::vector<WindowCase> windows() {
    return {
        {"Exponential",
         1,
         {0.4},
         [](double t, double, double, const Values& p) { return std::exp(-kPi * p[0] * t); }},
        {"Exponential, rising",
         1,
         {-0.4},
         [](double t, double, double, const Values& p) { return std::exp(-kPi * p[0] * t); }},
        {"Vorning", 2, {0.0, kQuietNan}, vorning},
        {"Vorning, infinite", 2, {2.0, -kInf}, vorning},
        {"Vorning, factor 4", 2, {0.0, 0.3}, vorning},
        {"Vorning, short", 2, {2.0, 0.4}, vorning},
        {"Vorning, limited", 2, {5.0, 7.0}, vorning},
        {"Cos2Tmax",
         3,
         {1.7},
         [](double t, double dt, double, const Values& p) {
             return t < p[0] ? square(std::cos(kPi / 2.0 * (t + dt) / p[0])) : 0.0;
         }},
        {"Gauss",
         4,
         {0.6},
         [](double t, double dt, double tEnd, const Values& p) {
             return gaussLorentz(t, dt, tEnd, {p[0], 0.0});
         }},
        {"Gauss-Lorentz", 5, {0.6, -0.3}, gaussLorentz},
        {"Sinc",
         6,
         {0.8},
         [](double t, double dt, double, const Values& p) {
             return std::sin(kPi * p[0] * (t + dt)) / (kPi * p[0] * t);
         }},
        {"Maxwell-Boltzmann",
         7,
         {0.7},
         [](double t, double, double, const Values& p) {
             return square(t / p[0]) * std::exp(-square(t / p[0]));
         }},
        {"Smoothstep", 8, {0.9, 3.0}, smoothstep},
        {"Smoothstep, rounded order", 8, {0.9, 1.5}, smoothstep},
    };
}

// The largest deviation from the direct window, in units of the window's maximum.
double worstDeviation(const WindowCase& test, uint64_t n, double t0, double tEnd) {
    const Values out = apodized(test.type, Values(n, 1.0), t0, tEnd, test.parameters);
    const double dt = (tEnd - t0) / static_cast<double>(n - 1);
    double worst = 0.0, largest = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double t = t0 + static_cast<double>(i) * dt;
        const double expected = test.window(t, dt, tEnd, test.parameters);
        worst = std::max(worst, std::fabs(out[i] - expected));
        largest = std::max(largest, std::fabs(expected));
    }
    return worst / largest;
}

TEST(Apodization, IsTheWindowOfItsName) {
    for (const WindowCase& test : windows()) {
        double worst = 0.0;
        for (uint64_t n : {2, 3, 17, 64, 70, 1023, 1024, 1025, 10000}) {
            worst = std::max(worst, worstDeviation(test, n, 0.05, 2.5));
        }
        std::printf("%-28s worst deviation up to 10000 points %.1e\n", test.name, worst);
        EXPECT_LT(worst, 5e-10) << test.name;
    }
}

TEST(Apodization, OfAMillionPoints) {
    for (const WindowCase& test : windows()) {
        const double worst = worstDeviation(test, 1000000, 0.05, 2.5);
        std::printf("%-28s worst deviation for 10^6 points %.1e\n", test.name, worst);
        EXPECT_LT(worst, 5e-6) << test.name;
    }
}

TEST(Apodization, MultipliesTheElements) {
    for (const WindowCase& test : windows()) {
        const Values in = samples::random(100);
        const Values ones = apodized(test.type, Values(100, 1.0), 0.1, 2.0, test.parameters);
        const Values out = apodized(test.type, in, 0.1, 2.0, test.parameters);
        for (size_t i = 0; i < in.size(); ++i) {
            EXPECT_DOUBLE_EQ(out[i], in[i] * ones[i]) << test.name;
        }
    }
}

TEST(Apodization, TestsItsArgumentsInOrder) {
    double x[] = {1.0, 2.0};
    const double p[] = {1.0, 1.0};
    EXPECT_EQ(RArrApodization(9, 0, nullptr, 0.0, 1.0, nullptr), 14u);
    EXPECT_EQ(RArrApodization(1, 2, nullptr, 0.0, 1.0, p), 14u);
    for (uint64_t type = 0; type < 12; ++type) {
        EXPECT_EQ(RArrApodization(type, 1, x, 0.0, 1.0, nullptr), 0u);
        EXPECT_EQ(RArrApodization(type, 0, x, 0.0, 1.0, p), 0u);
    }
    for (uint64_t type : {uint64_t{0}, uint64_t{9}, UINT64_MAX}) {
        EXPECT_EQ(RArrApodization(type, 2, x, 0.0, 1.0, nullptr), 44u);
    }
    EXPECT_EQ(RArrApodization(1, 2, x, 0.0, 1.0, nullptr), 21u);
    EXPECT_EQ(x[0], 1.0);
    EXPECT_EQ(x[1], 2.0);
}

TEST(Apodization, SpecialParameters) {
    const Values in = {1.0, 2.0, 3.0};
    EXPECT_EQ(apodized(3, in, 0.0, 1.0, {0.0}), (Values{0.0, 0.0, 0.0}));
    EXPECT_EQ(apodized(6, in, 0.0, 1.0, {0.0}), in);
    EXPECT_EQ(apodized(7, in, 0.0, 1.0, {0.0}), (Values{0.0, 0.0, 0.0}));
    EXPECT_EQ(apodized(8, in, 0.0, 1.0, {0.0, 3.0}), in);
    EXPECT_EQ(apodized(8, in, 0.0, 1.0, {-2.0, 0.4}), (Values{0.5, 1.0, 1.5}));
    EXPECT_EQ(apodized(8, in, 0.0, 1.0, {-2.0, -7.0}), (Values{0.5, 1.0, 1.5}));
    EXPECT_EQ(apodized(8, in, 0.0, 1.0, {1.0, kQuietNan}), (Values{0.5, 1.0, 1.5}));
    Values out(in);
    const double negative[] = {-2.0, 1.0};
    EXPECT_EQ(RArrApodization(8, 3, out.data(), 0.0, 1.0, negative), 26u);
    EXPECT_EQ(out, in);
}

TEST(Apodization, Cos2TmaxTreatsAnElementMoreOrLess) {
    const Values in(5, 1.0);
    // Times 0, 1, 2, 3, 4: the ends at 2 and 2.5 keep 2 and 3 elements.
    const auto zerosBehind = [&](double last) {
        const Values out = apodized(3, in, 0.0, 4.0, {last});
        uint64_t kept = out.size();
        while (kept > 0 && out[kept - 1] == 0.0) --kept;
        return kept;
    };
    EXPECT_EQ(zerosBehind(2.0), 2u);
    EXPECT_EQ(zerosBehind(2.5), 3u);
    EXPECT_EQ(zerosBehind(100.0), 5u);
    EXPECT_EQ(zerosBehind(-1.0), 0u);
    EXPECT_EQ(zerosBehind(kInf), 5u);
    const Values early = apodized(3, in, 3.0, 7.0, {1.0});  // the end lies before the start
    EXPECT_EQ(early, Values(5, 0.0));
    const Values still = apodized(3, in, 1.0, 1.0, {3.0});  // no time between the elements
    EXPECT_DOUBLE_EQ(still[4], square(std::cos(kPi / 6.0)));
    EXPECT_EQ(apodized(3, in, 5.0, 5.0, {3.0}), Values(5, 0.0));
}

TEST(Apodization, SincIsAStepAheadAndDividesByZeroAtTheOrigin) {
    const Values out = apodized(6, Values(3, 1.0), 0.0, 1.0, {0.5});
    EXPECT_EQ(out[0], kInf);
    EXPECT_NEAR(out[1], std::sin(kPi / 2.0) / (kPi / 4.0), 1e-15);
}

TEST(Apodization, SmoothstepIsMissingWhereThePowerOverflows) {
    const Values out = apodized(8, Values(3, 1.0), 0.0, 2e200, {1.0, 2.0});
    EXPECT_EQ(out[0], 0.0);
    EXPECT_TRUE(std::isnan(out[1]));
}

TEST(Apodization, VorningKeepsNotANumbersBehindItsEnd) {
    const Values out = apodized(2, {1.0, 1.0, kQuietNan, -1.0}, 0.0, 3.0, {1.0, 1.5});
    EXPECT_EQ(out[0], 1.0);
    EXPECT_TRUE(std::isnan(out[2]));
    EXPECT_EQ(out[3], 0.0);
}

TEST(Apodization, EndsForOddArguments) {
    const double odd[] = {0.0, -1.0, 1e300, -1e300, 1e-300, kInf, -kInf, kQuietNan};
    for (uint64_t type = 1; type <= 8; ++type) {
        for (double a : odd) {
            for (double b : odd) {
                Values x(7, 1.0);
                const double p[] = {a, b};
                RArrApodization(type, x.size(), x.data(), b, a, p);
                RArrApodization(type, x.size(), x.data(), 0.0, 1.0, p);
            }
        }
    }
}

}  // namespace
