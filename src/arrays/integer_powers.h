// Powers of many reals to one integer exponent.
#pragma once

#include <cstdint>

#include "nuv64/core/special_reals.h"

namespace nuv64 {

// out[i] = riPower(in[i], k), with the multiplications of each in that function's order; the
// elements go side by side. in and out may be the same array.
inline void integerPowers(uint64_t n, const double* in, double* out, int64_t k) noexcept {
    constexpr uint64_t kBlock = 64;
    double squares[kBlock];
    double powers[kBlock];
    const uint64_t exponent = k < 0 ? -static_cast<uint64_t>(k) : static_cast<uint64_t>(k);
    for (uint64_t start = 0; start < n; start += kBlock) {
        const uint64_t length = n - start < kBlock ? n - start : kBlock;
        for (uint64_t i = 0; i < length; ++i) squares[i] = in[start + i];
        for (uint64_t i = 0; i < length; ++i) powers[i] = exponent & 1 ? squares[i] : 1.0;
        for (uint64_t left = exponent >> 1; left != 0; left >>= 1) {
            for (uint64_t i = 0; i < length; ++i) squares[i] *= squares[i];
            if (!(left & 1)) continue;
            for (uint64_t i = 0; i < length; ++i) powers[i] *= squares[i];
        }
        if (k >= 0) {
            for (uint64_t i = 0; i < length; ++i) out[start + i] = powers[i];
        } else {
            for (uint64_t i = 0; i < length; ++i) {
                out[start + i] = in[start + i] == 0.0 ? ___NAN : 1.0 / powers[i];
            }
        }
    }
}

}  // namespace nuv64
