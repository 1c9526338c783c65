// The product of two matrices, whatever the layout of its factors.
#pragma once

#include <cstdint>

namespace nuv64 {

// Element (r, c) stands at data[r*rowStep + c*columnStep].
struct MatrixView {
    const double* data;
    std::uint64_t rowStep;
    std::uint64_t columnStep;
};

// out = a * b, stored by columns with columnStep between them; a is m by k, b is k by n. Each
// element is summed upward from 0.0. out must not overlap the factors.
void multiply(const MatrixView& a, const MatrixView& b, std::uint64_t m, std::uint64_t k,
              std::uint64_t n, double* out, std::uint64_t columnStep) noexcept;

}  // namespace nuv64
