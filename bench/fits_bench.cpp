// Fits of exponentials: one component on 16 points, as a zone has them, against the time that its
// evaluations of the model alone would take with the runtime's exp. A fit that doesn't give the
// known rate isn't timed.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <vector>

#include "nuv64/fits/exponential_fits.h"
#include "nuv64/fits/multi_param_fit.h"

namespace {

constexpr std::uint32_t kFlags = 0x80060000;  // start values made, scaled, best scores told
constexpr double kRate = 3.3;

struct Curve {
    std::vector<double> x;
    std::vector<double> y;
};

// A decay on a logarithmic grid, with a small disturbance that stands for noise.
Curve decay(std::size_t n, const std::vector<double>& rates) {
    Curve curve;
    for (std::size_t i = 0; i < n; ++i) {
        const double step = static_cast<double>(i) / static_cast<double>(n - 1);
        curve.x.push_back(0.01 * std::pow(400.0, step));
        double y = 5.0 + 0.05 * std::sin(7.1 * static_cast<double>(i));
        for (double rate : rates) y += 100.0 * std::exp(-rate * curve.x.back());
        curve.y.push_back(y);
    }
    return curve;
}

std::uint64_t evaluations = 0;

std::uint32_t countEvaluations(MultiParamFit* fit, std::uint32_t code) {
    if (code == NUV64_FIT_END) evaluations = fit->calls;
    return 0;
}

double plainEvaluation(const Curve& curve, double rate) {
    double sum = 0.0;
    for (std::size_t i = 0; i < curve.x.size(); ++i) {
        const double d = curve.y[i] - (5.0 + 100.0 * std::exp(-rate * curve.x[i]));
        sum += d * d;
    }
    return sum;
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void oneComponent(benchmark::State& state) {
    const Curve curve = decay(static_cast<std::size_t>(state.range(0)), {kRate});
    const std::uint64_t n = curve.x.size();
    double weight = 0.0, rate = 0.0, offset = 0.0, rms = 0.0;
    std::vector<double> residuals(n);
    const auto fit = [&](MultiParamCallback callback) {
        return MultiExpFit(kFlags, n, curve.x.data(), curve.y.data(), 1, &weight, &rate, &offset,
                           &rms, residuals.data(), callback);
    };
    if (fit(countEvaluations) != 0 || std::fabs(rate / kRate - 1.0) > 0.01) {
        state.SkipWithError("the fit doesn't find the rate");
        return;
    }
    double ours = 0.0;
    double plain = 0.0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(fit(nullptr));
        const double time = secondsSince(start);
        state.SetIterationTime(time);
        ours += time;
        start = std::chrono::steady_clock::now();
        for (std::uint64_t k = 0; k < evaluations; ++k) {
            benchmark::DoNotOptimize(plainEvaluation(curve, kRate + 1e-6 * static_cast<double>(k)));
        }
        plain += secondsSince(start);
    }
    state.counters["evaluations"] = static_cast<double>(evaluations);
    state.counters["ratio_to_plain_evaluations"] = ours / plain;
}
BENCHMARK(oneComponent)->Arg(16)->Arg(64)->UseManualTime()->Unit(benchmark::kMicrosecond);

void automatic(benchmark::State& state) {
    const Curve curve = decay(32, {0.7, 11.0});
    double weights[10], rates[10];
    double offset = 0.0, rms = 0.0;
    for (auto _ : state) {
        std::uint64_t components = 10;
        MultiExpAutoFit(kFlags, curve.x.size(), curve.x.data(), curve.y.data(), &components,
                        weights, rates, &offset, &rms, nullptr, nullptr, nullptr);
        if (components < 2) state.SkipWithError("the fit doesn't find two components");
    }
}
BENCHMARK(automatic)->Unit(benchmark::kMicrosecond);

}  // namespace
