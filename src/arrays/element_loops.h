// The loop behind every element-wise operation of one real array, with its tests of the arguments.
#pragma once

#include <cstdint>

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

}  // namespace nuv64
