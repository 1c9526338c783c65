// The element count of a matrix whose sizes come from outside.
#pragma once

#include <cstdint>

namespace nuv64 {

// rows*cols, or all ones (which no allocation grants) where the product overflows.
inline std::uint64_t matrixSize(std::uint64_t rows, std::uint64_t cols) noexcept {
    if (rows != 0 && cols > UINT64_MAX / rows) return UINT64_MAX;
    return rows * cols;
}

}  // namespace nuv64
