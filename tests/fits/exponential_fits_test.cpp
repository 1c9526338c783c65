#include "nuv64/fits/exponential_fits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

#include "fits/exponential_fits.h"
#include "fits/minimiser.h"
#include "nuv64/arrays/sorting.h"

namespace {

using Values = std::vector<double>;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr uint32_t kMadeAndScaled = 0x60000;

struct DecayCase {
    uint64_t components;
    Values x;
    Values y;
    Values weights;
    Values rates;
    double offset;
    double rms;
};

#include "fits/decays_reference.inc"

struct Fitted {
    uint32_t status = 0;
    uint64_t components = 0;
    Values weights;
    Values rates;
    double offset = 0.0;
    double rms = -1.0;
    Values residuals;

    // By ascending rate.
    void sort() {
        RArrHeapSortR(rates.data(), components, weights.data(), nullptr, nullptr, nullptr, nullptr,
                      nullptr);
    }
};

Fitted fit(uint32_t flags, const Values& x, const Values& y, uint64_t components,
           MultiParamCallback callback = nullptr) {
    Fitted f;
    f.components = components;
    f.weights.assign(components, 1.0);
    f.rates.assign(components, 1.0);
    f.residuals.assign(x.size(), 7.0);
    f.status = MultiExpFit(flags, x.size(), x.data(), y.data(), components, f.weights.data(),
                           f.rates.data(), &f.offset, &f.rms, f.residuals.data(), callback);
    return f;
}

Fitted autoFit(uint32_t flags, const Values& x, const Values& y, uint64_t allowed) {
    Fitted f;
    f.components = allowed;
    f.weights.assign(std::max<uint64_t>(allowed, 1), 1.0);
    f.rates.assign(std::max<uint64_t>(allowed, 1), 1.0);
    f.residuals.assign(x.size(), 7.0);
    f.status =
        MultiExpAutoFit(flags, x.size(), x.data(), y.data(), &f.components, f.weights.data(),
                        f.rates.data(), &f.offset, &f.rms, f.residuals.data(), nullptr, nullptr);
    return f;
}

Values logarithmic(uint64_t n, double first, double last) {
    Values x(n);
    for (uint64_t i = 0; i < n; ++i) {
        x[i] = first * std::pow(last / first, static_cast<double>(i) / static_cast<double>(n - 1));
    }
    return x;
}

Values decay(const Values& x, const Values& weights, const Values& rates, double offset,
             double noise = 0.0) {
    std::mt19937_64 source(5);
    std::normal_distribution<double> normal(0.0, 1.0);
    Values y(x.size(), offset);
    for (size_t i = 0; i < x.size(); ++i) {
        for (size_t k = 0; k < weights.size(); ++k) y[i] += weights[k] * std::exp(-rates[k] * x[i]);
        y[i] += noise * normal(source);
    }
    return y;
}

void expectResidualsBelongToTheFit(const Fitted& f, const Values& x, const Values& y) {
    double squares = 0.0;
    double size = 0.0;
    for (double v : y) size = std::max(size, std::fabs(v));
    for (size_t i = 0; i < x.size(); ++i) {
        double model = f.offset;
        for (size_t k = 0; k < f.components; ++k) {
            model += f.weights[k] * std::exp(-f.rates[k] * x[i]);
        }
        EXPECT_NEAR(f.residuals[i], model - y[i], 1e-14 * size);
        squares += f.residuals[i] * f.residuals[i];
    }
    EXPECT_NEAR(f.rms, std::sqrt(squares / static_cast<double>(x.size())), 1e-14 * size);
}

TEST(MultiExpFit, AgreesWithLeastSquares) {
    double worstRms = 0.0, worstRate = 0.0;
    for (const DecayCase& test : kDecays) {
        Fitted f = fit(kMadeAndScaled, test.x, test.y, test.components);
        ASSERT_EQ(f.status, 0u);
        expectResidualsBelongToTheFit(f, test.x, test.y);
        f.sort();
        worstRms = std::max(worstRms, f.rms / test.rms - 1.0);
        for (uint64_t k = 0; k < test.components; ++k) {
            worstRate = std::max(worstRate, std::fabs(f.rates[k] / test.rates[k] - 1.0));
            EXPECT_NEAR(f.weights[k] / test.weights[k], 1.0, 0.01);
        }
    }
    std::printf("[  worst   ] rms above the best by %.2g, rates off by %.2g of their value\n",
                worstRms, worstRate);
    EXPECT_LT(worstRms, 1e-4);
    EXPECT_LT(worstRate, 0.01);
}

TEST(MultiExpFit, ExactDecaysAreFound) {
    for (double rate : {0.05, 1.0, 30.0, 2e4}) {
        const Values x = logarithmic(16, 0.02 / rate, 4.0 / rate);
        for (double sign : {1.0, -1.0}) {
            const Values y = decay(x, {50.0 * sign}, {rate}, 7.0);
            const Fitted f = fit(kMadeAndScaled, x, y, 1);
            ASSERT_EQ(f.status, 0u);
            EXPECT_NEAR(f.rates[0] / rate, 1.0, 1e-6);
            EXPECT_NEAR(f.weights[0] / (50.0 * sign), 1.0, 1e-6);
            EXPECT_NEAR(f.offset, 7.0, 1e-5);
            EXPECT_LT(f.rms, 1e-5);
        }
    }
}

TEST(MultiExpFit, UnscaledFitsHoldWeightsAboveZero) {
    const Values x = logarithmic(16, 0.02, 4.0);
    const Values falling = decay(x, {5.0}, {1.0}, 2.0);
    const Fitted good = fit(0x20000, x, falling, 1);
    ASSERT_EQ(good.status, 0u);
    EXPECT_NEAR(good.rates[0], 1.0, 1e-5);
    const Values rising = decay(x, {-5.0}, {1.0}, 7.0);
    const Fitted held = fit(0x20000, x, rising, 1);
    ASSERT_EQ(held.status, 0u);
    EXPECT_GE(held.weights[0], 0.0);
}

TEST(MultiExpFit, RatesStayWhereTheCurveCanTell) {
    const Values x = logarithmic(16, 0.1, 10.0);
    const double highest = -std::log(0.05) / x[2], lowest = -std::log(0.95) / x[15];
    const Fitted fast = fit(kMadeAndScaled, x, decay(x, {9.0}, {1000.0}, 1.0, 0.01), 1);
    ASSERT_EQ(fast.status, 0u);
    EXPECT_LE(fast.rates[0], highest * (1.0 + 1e-12));
    const Fitted slow = fit(kMadeAndScaled, x, decay(x, {9.0}, {1e-6}, 1.0, 0.0), 1);
    ASSERT_EQ(slow.status, 0u);
    EXPECT_GE(slow.rates[0], lowest * (1.0 - 1e-12));
}

TEST(MultiExpFit, GivenStartValuesAreUsed) {
    const Values x = logarithmic(32, 0.01, 5.0);
    const Values y = decay(x, {10.0}, {2.0}, 3.0);
    double weight = 8.0, rate = 1.0, offset = 2.5, rms = -1.0;
    ASSERT_EQ(
        MultiExpFit(0, 32, x.data(), y.data(), 1, &weight, &rate, &offset, &rms, nullptr, nullptr),
        0u);
    EXPECT_NEAR(rate, 2.0, 1e-5);
    EXPECT_NEAR(weight, 10.0, 1e-4);
    EXPECT_NEAR(offset, 3.0, 1e-4);
    // Starts outside their ranges are brought inside.
    weight = -4.0, rate = -1.0, offset = 2.5;
    ASSERT_EQ(
        MultiExpFit(0, 32, x.data(), y.data(), 1, &weight, &rate, &offset, &rms, nullptr, nullptr),
        0u);
    EXPECT_GE(weight, 0.0);
    EXPECT_GT(rate, 0.0);
}

TEST(MultiExpFit, AHeldOffsetStays) {
    const Values x = logarithmic(32, 0.01, 5.0);
    const Values y = decay(x, {10.0}, {2.0}, 3.0);
    double weight = 8.0, rate = 1.0, offset = 3.0, rms = -1.0;
    ASSERT_EQ(MultiExpFit(0x30000, 32, x.data(), y.data(), 1, &weight, &rate, &offset, &rms,
                          nullptr, nullptr),
              0u);
    EXPECT_EQ(offset, 3.0);
    EXPECT_NEAR(rate, 2.0, 1e-5);
    EXPECT_LT(rms, 1e-5);
}

TEST(MultiExpFit, AHeldOffsetComesBackScaled) {
    const Values x = logarithmic(32, 0.01, 5.0);
    const Values y = decay(x, {10.0}, {2.0}, 3.0);
    const double scale = y[0] - y[31];
    double weight = 0.0, rate = 0.0, offset = 3.0, rms = -1.0;
    Values residuals(32);
    ASSERT_EQ(MultiExpFit(0x70000, 32, x.data(), y.data(), 1, &weight, &rate, &offset, &rms,
                          residuals.data(), nullptr),
              0u);
    EXPECT_EQ(offset, 3.0 / scale);
    EXPECT_NEAR(rate, 2.0, 1e-4);
    EXPECT_NEAR(weight, 10.0, 1e-3);
    // The residuals are those of the offset as it stands.
    EXPECT_NEAR(residuals[31], 3.0 / scale - 3.0, 1e-3);
}

TEST(MultiExpFit, WithoutOverallDecayTheScaleIsOne) {
    const Values x = logarithmic(16, 0.1, 10.0);
    Values y = decay(x, {2.0}, {1.0}, 0.0);
    y.back() = y.front();
    const Fitted scaled = fit(kMadeAndScaled, x, y, 1), plain = fit(0x20000, x, y, 1);
    ASSERT_EQ(scaled.status, 0u);
    EXPECT_EQ(scaled.rms, plain.rms);
    EXPECT_EQ(scaled.offset, plain.offset);
    const Values flat(16, 4.0);
    const Fitted constant = fit(kMadeAndScaled, x, flat, 1);
    ASSERT_EQ(constant.status, 0u);
    EXPECT_EQ(constant.offset, 4.0);
    EXPECT_EQ(constant.weights[0], 0.0);
    EXPECT_EQ(constant.rms, 0.0);
}

TEST(MultiExpFit, EveryNormFindsAnExactDecay) {
    const Values x = logarithmic(24, 0.02, 4.0);
    const Values y = decay(x, {5.0}, {1.5}, 1.0);
    for (uint32_t norm : {0, 1, 2, 3, 4, 5, 6, 0x100, 0x102, 0x80000, 0x80104}) {
        const Fitted f = fit(kMadeAndScaled | norm, x, y, 1);
        ASSERT_EQ(f.status, 0u);
        EXPECT_NEAR(f.rates[0], 1.5, 0.02) << norm;
    }
}

// The score as it is defined, for a fit that is stopped after its first evaluation.
struct Stopped {
    double score = 0.0;
};
Stopped stopped;

uint32_t stopAtFirst(MultiParamFit* fit, uint32_t code) {
    if (code != NUV64_FIT_EVALUATED) return 0;
    stopped.score = fit->score;
    return 777;
}

double plainNorm(double observed, double model, uint32_t flags) {
    double d = std::fabs(observed - model);
    if (d == 0.0) return 0.0;
    if (flags & 0x100) d /= std::fabs(observed == 0.0 ? model / 2.0 : observed);
    switch (flags & 255) {
        case 1:
        case 5:
            return d;
        case 2:
            return std::sqrt(d);
        case 3:
            return d * d * d;
        case 4:
            return d * d * (d * d);
        default:
            return d * d;
    }
}

TEST(MultiExpFit, ScoreFollowsItsDefinition) {
    const Values x = logarithmic(20, 0.05, 6.0);
    const Values y = decay(x, {3.0, 5.0}, {0.7, 9.0}, -1.0, 0.1);
    const double scale = y[0] - y[19];
    for (uint32_t norm : {0, 1, 2, 3, 4, 5, 7, 0x100, 0x104, 0x80000, 0x80105}) {
        const Fitted f = fit(kMadeAndScaled | norm, x, y, 2, stopAtFirst);
        EXPECT_EQ(f.status, 777u);
        const Values weights(2, (y[0] - y[19]) / 2.0 / scale);
        const Values rates = {2.0, 2.0 - 1.0 * (2.0 - 0.5) / 2.0};
        double expected = 0.0;
        for (size_t i = 0; i < x.size(); ++i) {
            double model = y[19] / scale;
            for (int k = 0; k < 2; ++k) {
                const double clamped =
                    std::clamp(std::log(rates[k]), std::log(-std::log(0.95) / x[19]),
                               std::log(-std::log(0.05) / x[2]));
                model += weights[k] * std::exp(-std::exp(clamped) * x[i]);
            }
            double r = plainNorm(y[i] / scale, model, norm);
            if (norm & 0x80000) r *= i == 0 ? std::fabs(x[1] - x[0]) : std::fabs(x[i] - x[i - 1]);
            expected = norm & 5 ? std::max(expected, r) : expected + r;
        }
        EXPECT_NEAR(stopped.score / expected, 1.0, 1e-12) << norm;
    }
}

TEST(MultiExpFit, FailedSearchesLeaveTheirParametersStanding) {
    const Values x = logarithmic(20, 0.05, 6.0);
    const Values y = decay(x, {8.0}, {0.7}, -1.0);
    const Fitted f = fit(kMadeAndScaled, x, y, 1, stopAtFirst);
    EXPECT_EQ(f.status, 777u);
    EXPECT_EQ(f.rates[0], 0.0);  // the logarithm of the start rate 1
    EXPECT_EQ(f.weights[0], 1.0);
    EXPECT_EQ(f.rms, -1.0);
    EXPECT_EQ(f.residuals[0], 7.0);
}

TEST(MultiExpFit, Arguments) {
    const Values x = {1, 2, 3, 4}, y = {9, 5, 3, 2};
    double w = 1.0, r = 1.0, o = 0.0, rms = 0.0;
    const auto call = [&](const double* px, const double* py, double* pw, double* pr, double* po,
                          double* prms, uint64_t n, uint64_t k) {
        return MultiExpFit(kMadeAndScaled, n, px, py, k, pw, pr, po, prms, nullptr, nullptr);
    };
    EXPECT_EQ(call(nullptr, y.data(), &w, &r, &o, &rms, 4, 1), 14u);
    EXPECT_EQ(call(x.data(), nullptr, &w, &r, &o, &rms, 4, 1), 14u);
    EXPECT_EQ(call(x.data(), y.data(), nullptr, &r, &o, &rms, 4, 1), 18u);
    EXPECT_EQ(call(x.data(), y.data(), &w, nullptr, &o, &rms, 4, 1), 18u);
    EXPECT_EQ(call(x.data(), y.data(), &w, &r, nullptr, &rms, 4, 1), 18u);
    EXPECT_EQ(call(x.data(), y.data(), &w, &r, &o, nullptr, 4, 1), 18u);
    for (uint64_t n : {0, 1, 2}) EXPECT_EQ(call(x.data(), y.data(), &w, &r, &o, &rms, n, 1), 71u);
    EXPECT_EQ(call(x.data(), y.data(), &w, &r, &o, &rms, 3, 1), 0u);
    for (uint64_t k : {uint64_t{1} << 19, uint64_t{1} << 40, uint64_t{1} << 63, UINT64_MAX}) {
        EXPECT_EQ(call(x.data(), y.data(), &w, &r, &o, &rms, 4, k), 0x80001u);
    }
    EXPECT_EQ(call(x.data(), y.data(), nullptr, nullptr, &o, &rms, 4, 0), 0u);
    EXPECT_NEAR(o, 4.75, 1e-3);
}

TEST(MultiExpFit, ValuesThatAreNotFiniteAreRefused) {
    const Values x = {1, 2, 3, 4}, y = {9, 5, 3, 2};
    for (double bad : {kNan, kInf, -kInf}) {
        for (size_t i = 0; i < 4; ++i) {
            Values broken(x);
            broken[i] = bad;
            EXPECT_EQ(fit(kMadeAndScaled, broken, y, 1).status, 15u);
            broken = y;
            broken[i] = bad;
            EXPECT_EQ(fit(kMadeAndScaled, x, broken, 1).status, 15u);
        }
        double w = 1.0, r = 1.0, o = 0.0, rms = 0.0;
        const auto call = [&](uint32_t flags) {
            return MultiExpFit(flags, 4, x.data(), y.data(), 1, &w, &r, &o, &rms, nullptr, nullptr);
        };
        w = bad;
        EXPECT_EQ(call(0), 15u);
        w = 1.0, r = bad;
        EXPECT_EQ(call(0), 15u);
        r = 1.0, o = bad;
        EXPECT_EQ(call(0), 15u);
        EXPECT_EQ(call(0x30000), 15u);
        EXPECT_EQ(call(0x20000), 0u);
    }
}

TEST(MultiExpFit, OddCurvesEnd) {
    const std::vector<std::pair<Values, Values>> curves = {
        {{0, 0, 0, 0}, {1, 2, 3, 4}},
        {{0, 1, 2, 3}, {0, 0, 0, 0}},
        {{4, 3, 2, 1}, {9, 5, 3, 2}},
        {{-4, -3, -2, -1}, {9, 5, 3, 2}},
        {{1, 2, 3, 4}, {1e308, -1e308, 1e308, -1e308}},
        {{1e-320, 2e-320, 3e-320, 4e-320}, {1, 2, 3, 4}},
        {{1e300, 2e300, 3e300, 4e300}, {4, 3, 2, 1}},
        {{-1e308, 0, 1e308, 1e308}, {4e-310, 3e-310, 2e-310, 1e-310}},
    };
    for (const auto& [x, y] : curves) {
        for (uint32_t flags : {0x20000, 0x60000, 0x70000, 0xE0105}) {
            for (uint64_t components : {0, 1, 2, 3}) {
                EXPECT_EQ(fit(flags, x, y, components).status, 0u);
            }
            const Fitted f = autoFit(flags, x, y, 3);
            EXPECT_TRUE(f.status == 0 || f.status == 15) << f.status;
        }
    }
}

// --- number of components found

TEST(MultiExpAutoFit, FindsTheNumberOfComponents) {
    const Values x = logarithmic(48, 0.005, 8.0);
    const Fitted one = autoFit(0x80060000, x, decay(x, {100.0}, {3.0}, 5.0, 0.2), 10);
    ASSERT_EQ(one.status, 0u);
    EXPECT_EQ(one.components, 1u);
    EXPECT_NEAR(one.rates[0], 3.0, 0.05);
    const Values y = decay(x, {100.0, 60.0}, {0.8, 15.0}, 5.0, 0.2);
    Fitted two = autoFit(0x80060000, x, y, 10);
    ASSERT_EQ(two.status, 0u);
    EXPECT_EQ(two.components, 2u);
    expectResidualsBelongToTheFit(two, x, y);
    two.sort();
    EXPECT_NEAR(two.rates[0], 0.8, 0.05);
    EXPECT_NEAR(two.rates[1], 15.0, 0.5);
}

// The same rule in terms of single fits.
Fitted plainAutoFit(uint32_t flags, const Values& x, const Values& y, uint64_t allowed) {
    Fitted f = fit(flags, x, y, 1), kept;
    const auto refit = [&](uint32_t fitFlags, uint64_t components) {
        f.components = components;
        f.weights.resize(components);
        f.rates.resize(components);
        MultiExpFit(fitFlags, x.size(), x.data(), y.data(), components, f.weights.data(),
                    f.rates.data(), &f.offset, &f.rms, f.residuals.data(), nullptr);
    };
    do {
        kept = f;
        const double smallest =
            *std::min_element(f.weights.begin(), f.weights.end(),
                              [](double a, double b) { return std::fabs(a) < std::fabs(b); });
        f.weights.push_back(0.33 * smallest);
        f.rates.push_back(3.0 * *std::max_element(f.rates.begin(), f.rates.end()));
        refit(flags & ~0x20000u, f.components + 1);
    } while (f.components < allowed && f.rms <= 0.85 * kept.rms);
    refit(flags, kept.components);
    return f.rms > kept.rms ? kept : f;
}

TEST(MultiExpAutoFit, AddsComponentsByItsRule) {
    const Values x = logarithmic(40, 0.005, 8.0);
    std::vector<uint64_t> seen(10, 0);
    for (int k = 0; k < 60; ++k) {
        // The second component goes from plain to lost in the noise.
        const double second = 40.0 * std::pow(0.85, k);
        const Values y = decay(x, {100.0, second}, {0.8, 15.0}, 5.0, 0.5);
        const Fitted found = autoFit(kMadeAndScaled, x, y, 4);
        const Fitted expected = plainAutoFit(kMadeAndScaled, x, y, 4);
        ASSERT_EQ(found.status, 0u);
        ASSERT_EQ(found.components, expected.components) << k;
        ++seen[found.components];
        EXPECT_EQ(found.rms, expected.rms);
        EXPECT_EQ(found.offset, expected.offset);
        EXPECT_EQ(found.residuals, expected.residuals);
        for (uint64_t i = 0; i < found.components; ++i) {
            EXPECT_EQ(found.rates[i], expected.rates[i]);
            EXPECT_EQ(found.weights[i], expected.weights[i]);
        }
    }
    EXPECT_GT(seen[1], 5u);
    EXPECT_GT(seen[2], 5u);
}

TEST(MultiExpAutoFit, OneAllowedComponentIsOneFit) {
    const Values x = logarithmic(48, 0.005, 8.0);
    const Values y = decay(x, {100.0, 60.0}, {0.8, 15.0}, 5.0, 0.2);
    const Fitted single = fit(kMadeAndScaled, x, y, 1);
    for (uint64_t allowed : {0, 1}) {
        const Fitted f = autoFit(kMadeAndScaled, x, y, allowed);
        ASSERT_EQ(f.status, 0u);
        EXPECT_EQ(f.components, 1u);
        EXPECT_EQ(f.rates[0], single.rates[0]);
        EXPECT_EQ(f.weights[0], single.weights[0]);
        EXPECT_EQ(f.rms, single.rms);
        EXPECT_EQ(f.residuals, single.residuals);
    }
}

TEST(MultiExpAutoFit, TheLastComponentIsTakenBackAlsoAtTheLimit) {
    const Values x = logarithmic(48, 0.005, 8.0);
    const Values y = decay(x, {100.0, 60.0}, {0.8, 15.0}, 5.0, 0.2);
    const Fitted f = autoFit(kMadeAndScaled, x, y, 2);
    ASSERT_EQ(f.status, 0u);
    EXPECT_EQ(f.components, 1u);
    EXPECT_LE(f.rms, fit(kMadeAndScaled, x, y, 1).rms);
    EXPECT_EQ(autoFit(kMadeAndScaled, x, y, 3).components, 2u);
}

TEST(MultiExpAutoFit, FailuresLeaveNoComponents) {
    const Values x = {1, 2, 3, 4}, y = {9, 5, 3, 2};
    double w[3], r[3], o, rms;
    uint64_t components = 3;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 2, x.data(), y.data(), &components, w, r, &o, &rms,
                              nullptr, nullptr, nullptr),
              71u);
    EXPECT_EQ(components, 0u);
    components = 3;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 4, nullptr, y.data(), &components, w, r, &o, &rms,
                              nullptr, nullptr, nullptr),
              14u);
    EXPECT_EQ(components, 0u);
    components = 3;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 4, x.data(), y.data(), &components, nullptr, r, &o,
                              &rms, nullptr, nullptr, nullptr),
              18u);
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 4, x.data(), y.data(), nullptr, w, r, &o, &rms,
                              nullptr, nullptr, nullptr),
              21u);
    components = 3;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 4, x.data(), y.data(), &components, w, r, &o, &rms,
                              nullptr, stopAtFirst, nullptr),
              777u);
    EXPECT_EQ(components, 0u);
    components = 3;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 4, x.data(), y.data(), &components, w, r, &o, &rms,
                              nullptr, nullptr, nullptr),
              0u);
    EXPECT_GE(components, 1u);
}

uint32_t stopInSecondFit(MultiParamFit* fit, uint32_t code) {
    return code == NUV64_FIT_BEGIN && fit->parameterCount == 5 ? 321 : 0;
}

TEST(MultiExpAutoFit, AStopInALaterFitEndsAll) {
    const Values x = logarithmic(48, 0.005, 8.0);
    const Values y = decay(x, {100.0, 60.0}, {0.8, 15.0}, 5.0, 0.2);
    double w[5], r[5], o, rms;
    uint64_t components = 5;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 48, x.data(), y.data(), &components, w, r, &o, &rms,
                              nullptr, stopInSecondFit, nullptr),
              321u);
    EXPECT_EQ(components, 0u);
}

// --- the progress monitor

uint32_t countEnds(MultiParamFit* fit, uint32_t code) {
    const auto& context = *static_cast<const nuv64::FitContext*>(fit->userData);
    if (code == NUV64_FIT_END) ++*static_cast<int*>(context.monitor);
    return 0;
}

TEST(ExponentialMonitor, ArrivesInTheContext) {
    const Values x = logarithmic(48, 0.005, 8.0);
    const Values y = decay(x, {100.0, 60.0}, {0.8, 15.0}, 5.0, 0.2);
    double w[5], r[5], o, rms;
    int ends = 0;
    EXPECT_EQ(nuv64::multiExpFit(kMadeAndScaled, 48, x.data(), y.data(), 1, w, r, &o, &rms, nullptr,
                                 countEnds, &ends),
              0u);
    EXPECT_EQ(ends, 1);
    uint64_t components = 5;
    ends = 0;
    EXPECT_EQ(nuv64::multiExpAutoFit(kMadeAndScaled, 48, x.data(), y.data(), &components, w, r, &o,
                                     &rms, nullptr, countEnds, &ends),
              0u);
    EXPECT_EQ(ends, 4);  // 1, 2 and 3 components, and 2 again
    components = 5;
    ends = 0;
    EXPECT_EQ(MultiExpAutoFit(kMadeAndScaled, 48, x.data(), y.data(), &components, w, r, &o, &rms,
                              nullptr, countEnds, &ends),
              0u);
    EXPECT_EQ(ends, 4);
}

}  // namespace
