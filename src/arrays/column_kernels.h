// Passes over several columns of a matrix at once. Each sum keeps its own order of additions; the
// gain comes from the independent sums that run side by side, two of them in one vector register.
#pragma once

#include <cstdint>

#include "arrays/pairs.h"

namespace nuv64 {

// sums[j] = sum over i upward, from 0.0, of x[i] * y[i + j*stride], for j below count.
void dotColumns(std::uint64_t n, const double* x, const double* y, std::uint64_t stride,
                std::uint64_t count, double* sums) noexcept;

// y[i] += sum over j upward of k[j] * x[i + j*stride], each product added to y[i] in turn.
void addColumns(std::uint64_t n, const double* x, std::uint64_t stride, std::uint64_t count,
                const double* k, double* y) noexcept;

// y[i] += k * x[i].
inline void addScaled(std::uint64_t n, const double* __restrict x, double* __restrict y,
                      double k) noexcept {
    for (std::uint64_t i = 0; i < n; ++i) y[i] += k * x[i];
}

// x[i] := c*x[i] + s*y[i], y[i] := c*y[i] - s*x[i] with the old x[i]. Called between two rotations
// of an iteration this costs little: the processor does it while it waits for the next one's
// divisions.
inline void turnColumns(std::uint64_t n, double* __restrict x, double* __restrict y, double c,
                        double s) noexcept {
    for (std::uint64_t i = 0; i < n; ++i) {
        const double along = c * x[i] + s * y[i];
        y[i] = c * y[i] - s * x[i];
        x[i] = along;
    }
}

// The number of columns that a panel holds.
inline constexpr std::uint64_t kPanelWidth = 8;

// A panel is eight columns of a matrix side by side, element (r, c) at r * kPanelWidth + c.
// Columns beyond the matrix are kept at zero.
void loadPanel(std::uint64_t rows, std::uint64_t columns, const double* matrix,
               double* panel) noexcept;
void storePanel(std::uint64_t rows, std::uint64_t columns, const double* panel,
                double* matrix) noexcept;

// sums[c] = sum over r upward, from 0.0, of x[r] * panel(r, c).
void dotPanel(std::uint64_t n, const double* x, const double* panel, double* sums) noexcept;

// panel(r, c) += k[c] * x[r].
void addToPanel(std::uint64_t n, const double* x, const double* k, double* panel) noexcept;

}  // namespace nuv64
