// Two doubles side by side in one vector register, for every compiler that builds the module.
// Operators work on both elements alone, each rounded once; a comparison and ?: choose for each.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace nuv64 {

using Pair = double __attribute__((vector_size(16)));
using PairBits = int64_t __attribute__((vector_size(16)));

inline Pair loadPair(const double* from) noexcept {
    Pair pair;
    std::memcpy(&pair, from, sizeof pair);
    return pair;
}

inline void storePair(double* to, Pair pair) noexcept {
    std::memcpy(to, &pair, sizeof pair);
}

inline Pair bothOf(double x) noexcept {
    return Pair{x, x};
}

// The sign bits alone.
inline PairBits signsOf(Pair x) noexcept {
    return std::bit_cast<PairBits>(x) & INT64_MIN;
}

// The signs of x upon another value of sign +.
inline Pair withSigns(Pair positive, PairBits signs) noexcept {
    return std::bit_cast<Pair>(std::bit_cast<PairBits>(positive) | signs);
}

inline Pair magnitudeOf(Pair x) noexcept {
    return std::bit_cast<Pair>(std::bit_cast<PairBits>(x) ^ signsOf(x));
}

}  // namespace nuv64
