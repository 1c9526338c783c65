// The element of an array that no later one beats.
#pragma once

#include <cmath>
#include <cstdint>

#include "arrays/pairs.h"

namespace nuv64 {

struct Extreme {
    double value;
    uint64_t index;
};

struct AsIs {
    double operator()(double x) const noexcept { return x; }
};

struct Magnitude {
    double operator()(double x) const noexcept { return std::fabs(x); }
};

struct Above {
    bool operator()(double x, double best) const noexcept { return x > best; }
};

struct Below {
    bool operator()(double x, double best) const noexcept { return x < best; }
};

// With x > best ? x : best, whole pairs become maximum instructions, which single elements in lanes
// don't.
inline Pair measurePair(Pair x, AsIs) noexcept {
    return x;
}

inline Pair measurePair(Pair x, Magnitude) noexcept {
    return x > -x ? x : -x;  // of zeros either one
}

inline Pair betterPair(Pair x, Pair best, Above) noexcept {
    return x > best ? x : best;
}

inline Pair betterPair(Pair x, Pair best, Below) noexcept {
    return x < best ? x : best;
}

// The best value of a block, with independent pairs; a not-a-number beats nothing.
template <class Measure, class Beats>
double bestOfBlock(const double* block, uint64_t n, double start) noexcept {
    Pair best[4] = {{start, start}, {start, start}, {start, start}, {start, start}};
    uint64_t i = 0;
    for (; i + 8 <= n; i += 8) {
        for (int k = 0; k < 4; ++k) {
            const Pair x = measurePair(loadPair(block + i + 2 * k), Measure{});
            best[k] = betterPair(x, best[k], Beats{});
        }
    }
    const Pair all = betterPair(betterPair(best[0], best[1], Beats{}),
                                betterPair(best[2], best[3], Beats{}), Beats{});
    double result = Beats{}(all[0], all[1]) ? all[0] : all[1];
    for (; i < n; ++i) {
        const double x = Measure{}(block[i]);
        result = Beats{}(x, result) ? x : result;
    }
    return result;
}

// The search for the first element whose measure is the best, by a strict comparison: a later one
// of the same measure does not take its place, and a not-a-number in the first place stays. Blocks
// are searched for their best value, and only the block that holds it for the place.
template <class Measure, class Beats>
class ExtremeSearch {
  public:
    explicit ExtremeSearch(const double* array) noexcept
        : array_(array), first_(Measure{}(array[0])), best_(first_) {}

    void block(uint64_t start, uint64_t length) noexcept {
        const double found = bestOfBlock<Measure, Beats>(array_ + start, length, best_);
        if (!Beats{}(found, best_)) return;
        best_ = found;
        start_ = start;
    }
    Extreme result() const noexcept {
        if (!Beats{}(best_, first_)) return {first_, 0};
        uint64_t i = start_;
        while (Measure{}(array_[i]) != best_) ++i;
        return {Measure{}(array_[i]), i};
    }

  private:
    const double* array_;
    double first_;
    double best_;
    uint64_t start_ = 0;
};

// One pass over memory for one or several searches; n is not 0.
template <class... Searches>
void searchAll(uint64_t n, Searches&... searches) noexcept {
    constexpr uint64_t kBlock = 256;
    for (uint64_t start = 0; start < n; start += kBlock) {
        const uint64_t length = n - start < kBlock ? n - start : kBlock;
        (searches.block(start, length), ...);
    }
}

}  // namespace nuv64
