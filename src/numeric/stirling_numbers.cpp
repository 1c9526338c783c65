#include "nuv64/numeric/stirling_numbers.h"

#include <algorithm>
#include <limits>

#include "core/owned.h"
#include "numeric/combinatorial_tables.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/binomials.h"
#include "nuv64/numeric/combinatorics.h"
#include "nuv64/numeric/real_factorials.h"
#include "nuv64/numeric/real_special.h"

using namespace nuv64;

namespace {

constexpr uint32_t kNoMemoryFlag = 0x80000000;

enum class Outcome { kDone, kStopped, kNoMemory };

// Entry k of row n of a triangle whose entries are made of the row above by next(i, j, &entry,
// left): i is the index of that row, entry holds its entry j and left its entry j - 1. Row 2 is 0,
// 1, 1; 2 <= k <= n - 2. Once a row is so near to n that its first entries can't reach entry k any
// more, they are left out. next stops the work by returning false.
template <class Number, class Next>
Outcome triangleEntry(uint64_t n, uint64_t k, Number* result, Next next) {
    const Owned<Number> row = tryAllocate<Number>(k + 1);
    if (!row) return Outcome::kNoMemory;
    row[0] = 0;
    row[1] = row[2] = 1;
    uint64_t lowest = 1;
    for (uint64_t i = 2; i < n; ++i) {
        const uint64_t highest = std::min(k, i + 1);
        if (highest == i + 1) row[highest] = 0;
        for (uint64_t j = highest; j >= lowest; --j) {
            if (!next(i, j, &row[j], row[j - 1])) return Outcome::kStopped;
        }
        if (i >= n - k) ++lowest;
    }
    *result = row[k];
    return Outcome::kDone;
}

// entry := factor*entry + left; whether that stayed in range, or always true when not tested.
bool multiplyAndAdd(uint64_t factor, uint64_t* entry, uint64_t left, bool tested) {
    uint64_t product = 0;
    bool exceeds = __builtin_mul_overflow(factor, *entry, &product);
    exceeds |= __builtin_add_overflow(product, left, entry);
    return !(tested && exceeds);
}

uint64_t reported(Outcome outcome, uint64_t value, uint32_t* flags) {
    if (outcome == Outcome::kDone) return value;
    store(flags, outcome == Outcome::kNoMemory ? kNoMemoryFlag : NUM_OVERFLOW);
    return kNoUnsigned;
}

// The entries common to both triangles; false when k is none of them.
bool edgeEntry(uint64_t n, uint64_t k, uint32_t* flags, uint64_t* value) {
    store(flags, 0);
    if (k > n || (k == 0 && n > 0)) {
        *value = 0;
    } else if (k == n) {
        *value = 1;
    } else if (k == n - 1 && k > 1) {
        *value = uBinomial(n, 2, flags);
    } else {
        return false;
    }
    return true;
}

double stirling1ByReals(uint64_t n, uint64_t k) {
    double result = 0.0;
    const auto next = [](uint64_t i, uint64_t, double* entry, double left) {
        *entry = static_cast<double>(i) * *entry + left;
        return rIsNotNAN(*entry);
    };
    return triangleEntry(n, k, &result, next) == Outcome::kDone ? result : ___NAN;
}

}  // namespace

uint64_t uStirling1(uint64_t n, uint64_t k, uint32_t* flags) noexcept {
    uint64_t value = 0;
    if (edgeEntry(n, k, flags, &value)) return value;
    if (k == 1) return uFactorial(n - 1, flags);
    const bool tested = flags != nullptr;
    const auto next = [tested](uint64_t i, uint64_t, uint64_t* entry, uint64_t left) {
        return multiplyAndAdd(i, entry, left, tested);
    };
    const Outcome outcome = triangleEntry(n, k, &value, next);
    return reported(outcome, value, flags);
}

uint64_t uStirling2(uint64_t n, uint64_t k, uint32_t* flags) noexcept {
    uint64_t value = 0;
    if (edgeEntry(n, k, flags, &value)) return value;
    if (k == 1) return 1;
    const bool tested = flags != nullptr;
    const auto next = [tested](uint64_t, uint64_t j, uint64_t* entry, uint64_t left) {
        return multiplyAndAdd(j, entry, left, tested);
    };
    const Outcome outcome = triangleEntry(n, k, &value, next);
    return reported(outcome, value, flags);
}

int64_t iStirling1(uint64_t n, uint64_t k, uint32_t* flags) noexcept {
    const uint64_t value = uStirling1(n, k, flags);
    if (value == kNoUnsigned) return kNoSigned;
    if (value >= kTwoTo63Whole) return signedOverflow(flags);
    return withSign((n - k) % 2 != 0, value);
}

double ruStirling1(uint64_t n, uint64_t k) noexcept {
    uint32_t flags = 0;
    const uint64_t exact = uStirling1(n, k, &flags);
    if (flags == 0) return static_cast<double>(exact);
    if (flags & kNoMemoryFlag) return ___NAN;
    if (k == 1) {
        constexpr uint64_t kMost = std::numeric_limits<int64_t>::max();
        return rFactorial(static_cast<int64_t>(std::min(n - 1, kMost)));
    }
    const double count = static_cast<double>(n);
    if (k == n - 1) return (count - 1.0) * (0.5 * count);
    return stirling1ByReals(n, k);
}
