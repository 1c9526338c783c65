// Passes over real arrays, each beside the plain loop that the compiler makes of it with the same
// flags (in and out declared apart, as the module can't promise), both timed in turn in one run.
//
// Counters, from the shortest times: `plain/ours`, above 1 where the module is faster; `bandwidth`,
// the bytes read and written a second as a share of what memcpy moves on blocks of that size. A
// pass with another result than the plain loop's isn't timed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <random>
#include <vector>

#include "nuv64/arrays/apodization.h"
#include "nuv64/arrays/array_conversion.h"
#include "nuv64/arrays/array_powers.h"
#include "nuv64/arrays/auto_correlation.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_shifts.h"
#include "nuv64/arrays/real_wrapping.h"
#include "nuv64/arrays/running_sums.h"

namespace {

using Values = std::vector<double>;

Values samples(std::uint64_t n, std::uint64_t seed) {
    std::mt19937_64 source(seed);
    std::normal_distribution<double> normal;
    Values values(n);
    for (double& x : values) x = normal(source);
    return values;
}

// The arrays of one pass: out is written, a and b are read.
struct Arrays {
    std::uint64_t n;
    Values a, b, out;
};

// Made once for each length.
Arrays& arraysOf(std::uint64_t n) {
    static std::map<std::uint64_t, Arrays> made;
    const auto found = made.find(n);
    if (found != made.end()) return found->second;
    return made[n] = Arrays{n, samples(n, 1), samples(n, 2), samples(n, 3)};
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The time of one pass, over so many of them that the clock's own time doesn't count.
template <class Pass>
double timeOf(Pass pass, Arrays& arrays, int passes) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < passes; ++i) {
        pass(arrays);
        benchmark::ClobberMemory();
    }
    return secondsSince(start) / passes;
}

void copyBlock(Arrays& x) {
    std::memcpy(x.out.data(), x.a.data(), x.n * sizeof(double));
}

template <class Pass>
Values resultOf(Pass pass, Arrays& arrays) {
    std::copy(arrays.b.rbegin(), arrays.b.rend(), arrays.out.begin());
    pass(arrays);
    return arrays.out;
}

// streams: how many arrays the pass reads or writes.
template <class Ours, class Plain>
void compare(benchmark::State& state, int streams, Ours ours, Plain plain) {
    const std::uint64_t n = static_cast<std::uint64_t>(state.range(0));
    Arrays& arrays = arraysOf(n);
    const Values result = resultOf(ours, arrays), expected = resultOf(plain, arrays);
    if (std::memcmp(result.data(), expected.data(), n * sizeof(double)) != 0) {
        state.SkipWithError("the result is not that of the plain loop");
        return;
    }
    const int passes = static_cast<int>(std::max<std::uint64_t>(1, 200000 / n));
    double bestOurs = 1e300, bestPlain = 1e300, bestCopy = 1e300;
    // Before each the same: caches as a copy leaves them, and no drift to infinity.
    const auto timed = [&](auto pass) {
        std::copy(expected.begin(), expected.end(), arrays.out.begin());
        return timeOf(pass, arrays, passes);
    };
    for (auto _ : state) {
        const double time = timed(ours);
        state.SetIterationTime(time);
        bestOurs = std::min(bestOurs, time);
        bestPlain = std::min(bestPlain, timed(plain));
        bestCopy = std::min(bestCopy, timed(copyBlock));
    }
    state.counters["plain/ours"] = bestPlain / bestOurs;
    state.counters["bandwidth"] = bestCopy / 2.0 * streams / bestOurs;
}

// Element by element, in the order of the arrays.
template <class Operation>
__attribute__((noinline)) void plainMap(std::uint64_t n, const double* __restrict in,
                                        double* __restrict out, Operation operation) {
    for (std::uint64_t i = 0; i < n; ++i) out[i] = operation(in[i]);
}

template <class Operation>
__attribute__((noinline)) void plainPairs(std::uint64_t n, const double* __restrict a,
                                          const double* __restrict b, double* __restrict out,
                                          Operation operation) {
    for (std::uint64_t i = 0; i < n; ++i) out[i] = operation(a[i], b[i]);
}

template <class Operation>
__attribute__((noinline)) void plainUpdate(std::uint64_t n, const double* __restrict a,
                                           double* __restrict b, Operation operation) {
    for (std::uint64_t i = 0; i < n; ++i) b[i] = operation(a[i], b[i]);
}

template <class Operation>
auto map(Operation operation) {
    return [operation](Arrays& x) { plainMap(x.n, x.a.data(), x.out.data(), operation); };
}

template <class Operation>
auto pairs(Operation operation) {
    return [operation](Arrays& x) {
        plainPairs(x.n, x.a.data(), x.b.data(), x.out.data(), operation);
    };
}

template <class Operation>
auto update(Operation operation) {
    return [operation](Arrays& x) { plainUpdate(x.n, x.a.data(), x.out.data(), operation); };
}

double fractionOf(double x) {
    double whole;
    return std::modf(x, &whole);
}

double fifthPower(double x) {
    const double square = x * x;
    return x * (square * square);
}

__attribute__((noinline)) void plainReverse(Arrays& x) {
    const double* __restrict in = x.a.data();
    double* __restrict out = x.out.data();
    for (std::uint64_t i = 0, n = x.n; i < n; ++i) out[i] = in[n - 1 - i];
}

__attribute__((noinline)) void plainRotate(Arrays& x) {
    const double* __restrict in = x.a.data();
    double* __restrict out = x.out.data();
    const std::uint64_t n = x.n;
    for (std::uint64_t i = 0; i < n - 100; ++i) out[i + 100] = in[i];
    for (std::uint64_t i = 0; i < 100; ++i) out[i] = in[n - 100 + i];
}

__attribute__((noinline)) void plainRunningSum(Arrays& x) {
    const double* __restrict in = x.a.data();
    double* __restrict out = x.out.data();
    double sum = in[0];
    out[0] = sum;
    for (std::uint64_t i = 1; i < x.n; ++i) {
        sum += in[i];
        out[i] = sum;
    }
}

__attribute__((noinline)) void plainFill(Arrays& x) {
    double* out = x.out.data();
    for (std::uint64_t i = 0; i < x.n; ++i) out[i] = 2.5;
}

__attribute__((noinline)) void plainExponentialWindow(Arrays& x) {
    const double dt = 1.0 / static_cast<double>(x.n - 1);
    for (std::uint64_t i = 0; i < x.n; ++i) {
        x.out[i] *= std::exp(-1e-3 * static_cast<double>(i) * dt);
    }
}

#define COMPARE(name, streams, ours, plain)                \
    BENCHMARK_CAPTURE(compare, name, streams, ours, plain) \
        ->Arg(1000)                                        \
        ->Arg(3000000)                                     \
        ->Iterations(25)                                   \
        ->UseManualTime()                                  \
        ->Unit(benchmark::kMicrosecond)

#define OUT x.n, x.a.data(), x.out.data()
#define TWO x.n, x.a.data(), x.b.data(), x.out.data()

COMPARE(
    RArrCopy, 2, [](Arrays& x) { RArrCopy(OUT); }, map([](double x) { return x; }));
COMPARE(
    RArrFill, 1, [](Arrays& x) { RArrFill(x.n, x.out.data(), 2.5); }, plainFill);
COMPARE(
    RArrAbs, 2, [](Arrays& x) { RArrAbs(OUT); }, map([](double x) { return x < 0.0 ? -x : x; }));
COMPARE(
    RArrInvertSign, 2, [](Arrays& x) { RArrInvertSign(OUT); }, map([](double x) { return -x; }));
COMPARE(
    RArrAddConst, 2, [](Arrays& x) { RArrAddConst(OUT, 1e-9); },
    map([](double x) { return x + 1e-9; }));
COMPARE(
    RArrMulConst, 2, [](Arrays& x) { RArrMulConst(OUT, 0.7); },
    map([](double x) { return x * 0.7; }));
COMPARE(
    RArrIpMulConst, 2, [](Arrays& x) { RArrIpMulConst(x.n, x.out.data(), 0.9999); },
    update([](double, double y) { return y * 0.9999; }));
COMPARE(
    RArrClip0, 2, [](Arrays& x) { RArrClip(0, OUT, 0.5); },
    map([](double x) { return x > 0.5 ? 0.5 : x; }));
COMPARE(
    RArrClip5, 2, [](Arrays& x) { RArrClip(5, OUT, 0.5); }, map([](double x) {
        return x >= 0.0 ? (x > 0.5 ? x - 0.5 : 0.0) : (-0.5 > x ? x + 0.5 : 0.0);
    }));
COMPARE(
    RArrSquare, 2, [](Arrays& x) { RArrSquare(OUT); }, map([](double x) { return x * x; }));
COMPARE(
    RArrPowerI5, 2, [](Arrays& x) { RArrPowerI(OUT, 5); }, map(fifthPower));
COMPARE(
    RArrSignedPowerI5, 2, [](Arrays& x) { RArrSignedPowerI(OUT, 5); }, map(fifthPower));
COMPARE(
    RArrAbsPower, 2, [](Arrays& x) { RArrAbsPower(OUT, 0.7); },
    map([](double x) { return std::exp(0.7 * std::log(std::fabs(x))); }));
COMPARE(
    RArrModf, 2, [](Arrays& x) { RArrModf(OUT, 0.3); }, map([](double x) {
        const double wrapped = 0.3 * fractionOf(x / 0.3);
        return wrapped == 0.3 ? 0.0 : wrapped;
    }));
COMPARE(
    RArrAdd, 3, [](Arrays& x) { RArrAdd(TWO); }, pairs([](double x, double y) { return x + y; }));
COMPARE(
    RArrMul, 3, [](Arrays& x) { RArrMul(TWO); }, pairs([](double x, double y) { return x * y; }));
COMPARE(
    RArrDiv, 3, [](Arrays& x) { RArrDiv(TWO); },
    pairs([](double x, double y) { return y == 0.0 ? 0.0 : x / y; }));
COMPARE(
    RArrAdd2, 3, [](Arrays& x) { RArrAdd2(OUT, 1e-9); },
    update([](double x, double y) { return y + 1e-9 * x; }));
COMPARE(
    RArrLinCombi, 3,
    [](Arrays& x) { RArrLinCombi(x.n, x.a.data(), 0.3, x.b.data(), -0.7, x.out.data()); },
    pairs([](double x, double y) { return 0.3 * x + -0.7 * y; }));
COMPARE(
    RArrReverse, 2, [](Arrays& x) { RArrReverse(OUT); }, plainReverse);
COMPARE(
    RArrRotate, 2, [](Arrays& x) { RArrRotate(OUT, 100); }, plainRotate);
COMPARE(
    RArrRunningSum, 2, [](Arrays& x) { RArrRunningSum(OUT); }, plainRunningSum);

// Not the same numbers: the plain loop takes an exponential an element.
void exponentialWindow(benchmark::State& state) {
    Arrays& arrays = arraysOf(static_cast<std::uint64_t>(state.range(0)));
    arrays.out = arrays.b;
    const double p[] = {1e-3 / 3.141592653589793};
    const auto ours = [&](Arrays& x) { RArrApodization(1, x.n, x.out.data(), 0.0, 1.0, p); };
    double bestOurs = 1e300, bestPlain = 1e300;
    for (auto _ : state) {
        const double time = timeOf(ours, arrays, 1);
        state.SetIterationTime(time);
        bestOurs = std::min(bestOurs, time);
        bestPlain = std::min(bestPlain, timeOf(plainExponentialWindow, arrays, 1));
    }
    state.counters["plain/ours"] = bestPlain / bestOurs;
}
BENCHMARK(exponentialWindow)
    ->Arg(100000)
    ->UseManualTime()
    ->Iterations(25)
    ->Unit(benchmark::kMicrosecond);

__attribute__((noinline)) void plainAutoCorrelation(Arrays& x) {
    for (std::uint64_t k = 0; k < x.n; ++k) {
        double sum = 0.0;
        for (std::uint64_t j = 0; j < x.n - k; ++j) sum += x.a[j] * x.a[j + k];
        x.out[k] = sum / static_cast<double>(x.n - k);
    }
}
BENCHMARK_CAPTURE(
    compare, RArrAutoCorr, 2, [](Arrays& x) { RArrAutoCorr(OUT); }, plainAutoCorrelation)
    ->Arg(2000)
    ->UseManualTime()
    ->Iterations(25)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
