// The loop behind every element-wise operation of one real array, with its tests of the arguments.
#pragma once

#include <cstdint>

#include "arrays/pairs.h"
#include "core/guard.h"

namespace nuv64 {

// The statuses of (n, in, out), tested also for n = 0.
inline std::uint32_t checkInOut(const double* in, const double* out) noexcept {
    if (!in) return 14;
    if (!out) return 18;
    return kSuccess;
}

// out[i] = operation(in[i]); in and out may be the same array.
template <class Operation>
std::uint32_t mapElements(std::uint64_t n, const double* in, double* out,
                          Operation operation) noexcept {
    if (const std::uint32_t status = checkInOut(in, out)) return status;
    for (std::uint64_t i = 0; i < n; ++i) out[i] = operation(in[i]);
    return kSuccess;
}

// The same for an operation on pairs, where the choices in it keep the compiler from making them
// of single elements.
template <class Operation>
std::uint32_t mapElementPairs(std::uint64_t n, const double* in, double* out,
                              Operation operation) noexcept {
    if (const std::uint32_t status = checkInOut(in, out)) return status;
    std::uint64_t i = 0;
    for (; i + 2 <= n; i += 2) storePair(out + i, operation(loadPair(in + i)));
    if (i < n) out[i] = operation(bothOf(in[i]))[0];
    return kSuccess;
}

}  // namespace nuv64
