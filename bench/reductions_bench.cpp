// Reductions and heap sorts of real arrays, each beside the plain loop compiled with the same flags
// and, for sorts, beside std::sort and the same heap sort by the standard library.
//
// The name of a peer ends in "_plain" or names the library. Lengths: one that stays in the first
// cache and one that doesn't fit in any.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "nuv64/arrays/real_array_means.h"
#include "nuv64/arrays/real_counts.h"
#include "nuv64/arrays/real_norms.h"
#include "nuv64/arrays/real_power_sums.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/arrays/sorting.h"

namespace {

std::vector<double> samples(std::int64_t n) {
    std::mt19937_64 source(7);
    std::normal_distribution<double> normal;
    std::vector<double> values(static_cast<std::size_t>(n));
    for (double& x : values) x = normal(source);
    return values;
}

template <class Reduce>
void reduce(benchmark::State& state, Reduce reduction) {
    const std::vector<double> a = samples(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(reduction(a.size(), a.data()));
    state.SetBytesProcessed(state.iterations() * state.range(0) * 8);
}

double plainSum(std::uint64_t n, const double* a) {
    double sum = 0.0;
    for (std::uint64_t i = n; i-- > 0;) sum += a[i];
    return sum;
}

double plainMax(std::uint64_t n, const double* a) {
    double best = a[0];
    for (std::uint64_t i = 1; i < n; ++i) best = a[i] > best ? a[i] : best;
    return best;
}

double plainMaxAndPlace(std::uint64_t n, const double* a) {
    double best = a[0];
    std::uint64_t place = 0;
    for (std::uint64_t i = 1; i < n; ++i) {
        if (a[i] > best) {
            best = a[i];
            place = i;
        }
    }
    benchmark::DoNotOptimize(place);
    return best;
}

double plainRange(std::uint64_t n, const double* a) {
    double low = a[0];
    double high = a[0];
    for (std::uint64_t i = 1; i < n; ++i) {
        low = a[i] < low ? a[i] : low;
        high = a[i] > high ? a[i] : high;
    }
    return high - low;
}

double plainNorm(std::uint64_t n, const double* a) {
    double scale = 0.0;
    double sum = 1.0;
    for (std::uint64_t i = 0; i < n; ++i) {
        const double v = std::fabs(a[i]);
        if (v == 0.0) continue;
        if (v > scale) {
            sum = 1.0 + sum * ((scale / v) * (scale / v));
            scale = v;
        } else {
            sum += (v / scale) * (v / scale);
        }
    }
    return scale * std::sqrt(sum);
}

double plainVariance(std::uint64_t n, const double* a) {
    const double mean = plainSum(n, a) / static_cast<double>(n);
    double sum = 0.0;
    for (std::uint64_t i = 0; i < n; ++i) sum += (a[i] - mean) * (a[i] - mean);
    return sum / static_cast<double>(n);
}

double plainCubes(std::uint64_t n, const double* a) {
    double sum = 0.0;
    for (std::uint64_t i = 0; i < n; ++i) sum += a[i] * a[i] * a[i];
    return sum;
}

std::uint64_t plainAbove(std::uint64_t n, const double* a) {
    std::uint64_t count = 0;
    for (std::uint64_t i = 0; i < n; ++i) count += a[i] > 0.5 ? 1 : 0;
    return count;
}

double statistics(std::uint64_t n, const double* a) {
    RArrStatisticsRec record;
    RArrStatistics(n, a, &record);
    return record.Rms;
}

#define COMPARE(name, ours, peer)                                   \
    BENCHMARK_CAPTURE(reduce, name, ours)->Arg(1000)->Arg(4000000); \
    BENCHMARK_CAPTURE(reduce, name##_plain, peer)->Arg(1000)->Arg(4000000)

COMPARE(
    RArrSum, [](auto n, auto* a) { return RArrSum(n, a, 1); }, plainSum);
COMPARE(
    RArrMax, [](auto n, auto* a) { return RArrMax(n, a, nullptr); }, plainMax);
BENCHMARK_CAPTURE(reduce, RArrMax_plain_with_place, plainMaxAndPlace)->Arg(1000)->Arg(4000000);
COMPARE(
    RArrRangeMinMax, [](auto n, auto* a) { return RArrRangeMinMax(n, a, nullptr, nullptr); },
    plainRange);
COMPARE(RArrNormL2, RArrNormL2, plainNorm);
COMPARE(
    RArrVariance, [](auto n, auto* a) { return RArrVariance(n, a, nullptr); }, plainVariance);
COMPARE(
    RArrSumOfPowersI_3, [](auto n, auto* a) { return RArrSumOfPowersI(n, a, 3); }, plainCubes);
COMPARE(
    RArrAboveCount, [](auto n, auto* a) { return RArrAboveCount(n, a, 0.5); }, plainAbove);
BENCHMARK_CAPTURE(reduce, RArrStatistics, statistics)->Arg(1000)->Arg(4000000);

// A new array each time: the processor learns the branches of one that comes again.
template <class Sort>
void sortCopies(benchmark::State& state, Sort sort) {
    const auto n = static_cast<std::size_t>(state.range(0));
    const std::vector<double> arrays = samples(std::max<std::int64_t>(state.range(0), 1 << 20));
    std::vector<double> copy(n);
    std::size_t first = 0;
    for (auto _ : state) {
        std::copy_n(&arrays[first], n, copy.data());
        sort(copy);
        benchmark::DoNotOptimize(copy.data());
        first = first + 2 * n <= arrays.size() ? first + n : 0;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The same heap sort, written plainly.
void plainHeapSort(std::vector<double>& a) {
    for (std::size_t left = a.size() / 2, right = a.size() - 1;;) {
        double held;
        if (left > 0) {
            held = a[--left];
        } else {
            held = a[right];
            a[right] = a[0];
            if (--right == 0) {
                a[0] = held;
                return;
            }
        }
        std::size_t i = left;
        for (std::size_t j = 2 * i + 1; j <= right; j = 2 * j + 1) {
            if (j < right && a[j] < a[j + 1]) ++j;
            if (!(held < a[j])) break;
            a[i] = a[j];
            i = j;
        }
        a[i] = held;
    }
}

BENCHMARK_CAPTURE(sortCopies, RArrIpHeapSort,
                  [](std::vector<double>& a) { RArrIpHeapSort(a.size(), a.data(), 1); })
    ->Arg(1000)
    ->Arg(1000000);
BENCHMARK_CAPTURE(sortCopies, plain_heap_sort, plainHeapSort)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(sortCopies, std_heap_sort,
                  [](std::vector<double>& a) {
                      std::make_heap(a.begin(), a.end());
                      std::sort_heap(a.begin(), a.end());
                  })
    ->Arg(1000)
    ->Arg(1000000);
BENCHMARK_CAPTURE(sortCopies, std_sort,
                  [](std::vector<double>& a) { std::sort(a.begin(), a.end()); })
    ->Arg(1000)
    ->Arg(1000000);
BENCHMARK_CAPTURE(sortCopies, RArrHeapSortR_one_companion,
                  [](std::vector<double>& a) {
                      static std::vector<std::uint64_t> companion;
                      companion.resize(a.size());
                      RArrHeapSortR(a.data(), a.size(), companion.data(), nullptr, nullptr, nullptr,
                                    nullptr, nullptr);
                  })
    ->Arg(1000)
    ->Arg(1000000);

}  // namespace
