// The element of an array that no later one beats.
#pragma once

#include <cmath>
#include <cstdint>

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

// The best value of a block, kept in independent lanes, which makes maximum instructions of it. A
// not-a-number beats nothing.
template <class Measure, class Beats>
double bestOfBlock(const double* block, uint64_t n, double start) noexcept {
    constexpr uint64_t kLanes = 8;
    double best[kLanes];
    for (double& lane : best) lane = start;
    uint64_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        for (uint64_t lane = 0; lane < kLanes; ++lane) {
            const double x = Measure{}(block[i + lane]);
            best[lane] = Beats{}(x, best[lane]) ? x : best[lane];
        }
    }
    for (; i < n; ++i) {
        const double x = Measure{}(block[i]);
        best[0] = Beats{}(x, best[0]) ? x : best[0];
    }
    for (uint64_t lane = 1; lane < kLanes; ++lane) {
        best[0] = Beats{}(best[lane], best[0]) ? best[lane] : best[0];
    }
    return best[0];
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
    constexpr uint64_t kBlock = 1024;
    for (uint64_t start = 0; start < n; start += kBlock) {
        const uint64_t length = n - start < kBlock ? n - start : kBlock;
        (searches.block(start, length), ...);
    }
}

}  // namespace nuv64
