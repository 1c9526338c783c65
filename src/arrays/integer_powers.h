// Powers of many reals to one integer exponent.
#pragma once

#include <algorithm>
#include <cstdint>

#include "arrays/pairs.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {

namespace detail {

// riPower of eight elements: four pairs that stay in registers.
inline void powersOfEight(const double* in, double* out, uint64_t exponent, bool invert) noexcept {
    constexpr int kPairs = 4;
    const Pair one = bothOf(1.0);
    Pair squares[kPairs], powers[kPairs];
    for (int j = 0; j < kPairs; ++j) {
        squares[j] = loadPair(in + 2 * j);
        powers[j] = exponent & 1 ? squares[j] : one;
    }
    for (uint64_t left = exponent >> 1; left != 0; left >>= 1) {
        for (int j = 0; j < kPairs; ++j) squares[j] *= squares[j];
        if (!(left & 1)) continue;
        for (int j = 0; j < kPairs; ++j) powers[j] *= squares[j];
    }
    const Pair missing = bothOf(___NAN);
    for (int j = 0; j < kPairs; ++j) {
        const Pair x = loadPair(in + 2 * j);
        storePair(out + 2 * j, !invert ? powers[j] : x == 0.0 ? missing : one / powers[j]);
    }
}

}  // namespace detail

// out[i] = riPower(in[i], k), with the multiplications of each in that function's order; the
// elements go side by side. in and out may be the same array.
inline void integerPowers(uint64_t n, const double* in, double* out, int64_t k) noexcept {
    constexpr uint64_t kLanes = 8;
    const bool invert = k < 0;
    const uint64_t exponent = invert ? -static_cast<uint64_t>(k) : static_cast<uint64_t>(k);
    uint64_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        detail::powersOfEight(in + i, out + i, exponent, invert);
    }
    if (i == n) return;
    double rest[kLanes] = {1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0};
    std::copy_n(in + i, n - i, rest);
    detail::powersOfEight(rest, rest, exponent, invert);
    std::copy_n(rest, n - i, out + i);
}

}  // namespace nuv64
