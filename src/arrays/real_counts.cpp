#include "nuv64/arrays/real_counts.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "arrays/monotony.h"
#include "core/guard.h"
#include "nuv64/numeric/real_comparison.h"

using namespace nuv64;

namespace {

template <class Counts>
uint64_t countOf(uint64_t n, const double* array, Counts counts) noexcept {
    uint64_t count = 0;
    for (uint64_t i = 0; i < n; ++i) count += counts(array[i]) ? 1 : 0;
    return count;
}

bool isNear(double a, double b, double gap) noexcept {
    return std::fabs(a - b) < gap;
}

// Compares each element with all earlier ones; needs no memory.
uint64_t countGroupsPlainly(uint64_t n, const double* array, double gap) noexcept {
    uint64_t count = 0;
    for (uint64_t i = 0; i < n; ++i) {
        uint64_t k = 0;
        while (k < i && !isNear(array[i], array[k], gap)) ++k;
        if (k == i) ++count;
    }
    return count;
}

// Elements in the order of their values, chained to their neighbours, so that one can be taken out.
class NeighbourChain {
  public:
    explicit NeighbourChain(uint64_t n, const double* array)
        : array_(array), lower_(n, kNone), higher_(n, kNone) {
        std::vector<uint64_t> order;
        order.reserve(n);
        for (uint64_t i = 0; i < n; ++i) {
            if (std::isfinite(array[i])) order.push_back(i);
        }
        std::sort(order.begin(), order.end(),
                  [array](uint64_t a, uint64_t b) { return array[a] < array[b]; });
        for (uint64_t k = 1; k < order.size(); ++k) {
            lower_[order[k]] = order[k - 1];
            higher_[order[k - 1]] = order[k];
        }
    }
    bool hasNear(uint64_t i, double gap) const noexcept {
        return isNearTo(i, lower_[i], gap) || isNearTo(i, higher_[i], gap);
    }
    void take(uint64_t i) noexcept {
        if (lower_[i] != kNone) higher_[lower_[i]] = higher_[i];
        if (higher_[i] != kNone) lower_[higher_[i]] = lower_[i];
    }

  private:
    static constexpr uint64_t kNone = UINT64_MAX;

    bool isNearTo(uint64_t i, uint64_t other, double gap) const noexcept {
        return other != kNone && isNear(array_[i], array_[other], gap);
    }

    const double* array_;
    std::vector<uint64_t> lower_;
    std::vector<uint64_t> higher_;
};

// From the last element to the first, each taken out when it was looked at: the chain then holds
// the earlier ones alone, and the nearest of them in value are its neighbours. What is not finite
// is near to nothing.
uint64_t countGroupsByOrder(uint64_t n, const double* array, double gap) {
    NeighbourChain chain(n, array);
    uint64_t count = 0;
    for (uint64_t i = n; i-- > 0;) {
        if (!chain.hasNear(i, gap)) ++count;
        chain.take(i);
    }
    return count;
}

}  // namespace

uint64_t RArrAboveCount(uint64_t n, const double* array, double level) noexcept {
    if (n == 0 || !array) return UINT64_MAX;
    return countOf(n, array, [level](double x) { return x > level; });
}

uint64_t RArrBelowCount(uint64_t n, const double* array, double level) noexcept {
    if (n == 0 || !array) return UINT64_MAX;
    return countOf(n, array, [level](double x) { return x < level; });
}

uint64_t RArrBandCount(uint64_t n, const double* array, double low, double high, uint64_t* above,
                       uint64_t* below) noexcept {
    if (above) *above = 0;
    if (below) *below = 0;
    if (n == 0 || !array) return 0;
    const uint64_t higher = countOf(n, array, [high](double x) { return x > high; });
    const uint64_t lower =
        countOf(n, array, [low, high](double x) { return !(x > high) && low > x; });
    if (above) *above = higher;
    if (below) *below = lower;
    return n - higher - lower;
}

uint64_t RArrValueCount(uint64_t n, const double* array, double value, double tolerance) noexcept {
    if (n == 0 || !array) return 0;
    return countOf(n, array,
                   [value, tolerance](double x) { return tolerance >= std::fabs(x - value); });
}

uint64_t RArrSignInversionsCount(uint64_t n, const double* array, double level, uint64_t* down,
                                 uint64_t* up) noexcept {
    uint64_t falls = 0;
    uint64_t rises = 0;
    for (uint64_t i = 1; array && i < n; ++i) {
        const bool wasBelow = level > array[i - 1];
        const bool isBelow = level > array[i];
        falls += isBelow && !wasBelow ? 1 : 0;
        rises += wasBelow && !isBelow ? 1 : 0;
    }
    if (down) *down = falls;
    if (up) *up = rises;
    return falls + rises;
}

uint64_t RArrChainedGroupsCount(uint64_t n, const double* array, double gap) noexcept {
    constexpr uint64_t kFew = 32;
    if (n == 0 || !array) return 0;
    const double width = std::fabs(gap);
    if (n <= kFew) return countGroupsPlainly(n, array, width);
    const uint64_t count =
        guardValue<uint64_t>(UINT64_MAX, [&] { return countGroupsByOrder(n, array, width); });
    return count == UINT64_MAX ? countGroupsPlainly(n, array, width) : count;
}

bool RArrIsValuePresent(uint64_t n, const double* array, double value, double tolerance,
                        uint64_t* index) noexcept {
    if (index) *index = UINT64_MAX;
    for (uint64_t i = 0; array && i < n; ++i) {
        if (rIsDifferentAbs(array[i], value, tolerance)) continue;
        if (index) *index = i;
        return true;
    }
    return false;
}

bool RArrIsIncreasing(uint64_t n, const double* array, uint8_t strict, uint64_t* index) noexcept {
    return isIncreasing(n, array, strict != 0, index);
}

bool RArrIsDecreasing(uint64_t n, const double* array, uint8_t strict, uint64_t* index) noexcept {
    return isDecreasing(n, array, strict != 0, index);
}
