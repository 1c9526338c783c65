#include "arrays/column_kernels.h"

#include <algorithm>

namespace nuv64 {

namespace {

constexpr uint64_t kPairs = kPanelWidth / 2;

// The dot products of x with 2*kCount columns. Two rows of two columns are turned into two pairs
// that hold one row each, so that each element of a sum is added at its turn.
template <uint64_t kCount>
void dotPairs(uint64_t n, const double* x, const double* y, uint64_t stride,
              double* sums) noexcept {
    Pair sum[kCount] = {};
    uint64_t i = 0;
    for (; i + 2 <= n; i += 2) {
        const Pair first = bothOf(x[i]);
        const Pair second = bothOf(x[i + 1]);
        for (uint64_t p = 0; p < kCount; ++p) {
            const Pair left = loadPair(y + i + 2 * p * stride);
            const Pair right = loadPair(y + i + (2 * p + 1) * stride);
            sum[p] += first * __builtin_shufflevector(left, right, 0, 2);
            sum[p] += second * __builtin_shufflevector(left, right, 1, 3);
        }
    }
    for (; i < n; ++i) {
        for (uint64_t p = 0; p < kCount; ++p) {
            sum[p] += bothOf(x[i]) * Pair{y[i + 2 * p * stride], y[i + (2 * p + 1) * stride]};
        }
    }
    std::memcpy(sums, sum, sizeof sum);
}

double dot(uint64_t n, const double* x, const double* y) noexcept {
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) sum += x[i] * y[i];
    return sum;
}

}  // namespace

void dotColumns(uint64_t n, const double* x, const double* y, uint64_t stride, uint64_t count,
                double* sums) noexcept {
    uint64_t j = 0;
    for (; j + 8 <= count; j += 8) dotPairs<4>(n, x, y + j * stride, stride, sums + j);
    if (j + 4 <= count) {
        dotPairs<2>(n, x, y + j * stride, stride, sums + j);
        j += 4;
    }
    if (j + 2 <= count) {
        dotPairs<1>(n, x, y + j * stride, stride, sums + j);
        j += 2;
    }
    if (j < count) sums[j] = dot(n, x, y + j * stride);
}

void addColumns(uint64_t n, const double* x, uint64_t stride, uint64_t count, const double* k,
                double* __restrict y) noexcept {
    uint64_t j = 0;
    for (; j + 4 <= count; j += 4) {
        const double* __restrict const a = x + j * stride;
        const double* __restrict const b = a + stride;
        const double* __restrict const c = b + stride;
        const double* __restrict const d = c + stride;
        const double ka = k[j], kb = k[j + 1], kc = k[j + 2], kd = k[j + 3];
        for (uint64_t i = 0; i < n; ++i) {
            y[i] = y[i] + ka * a[i] + kb * b[i] + kc * c[i] + kd * d[i];
        }
    }
    for (; j < count; ++j) addScaled(n, x + j * stride, y, k[j]);
}

void loadPanel(uint64_t rows, uint64_t columns, const double* matrix, double* panel) noexcept {
    for (uint64_t c = 0; c < kPanelWidth; ++c) {
        for (uint64_t r = 0; r < rows; ++r) {
            panel[r * kPanelWidth + c] = c < columns ? matrix[r + c * rows] : 0.0;
        }
    }
}

void storePanel(uint64_t rows, uint64_t columns, const double* panel, double* matrix) noexcept {
    for (uint64_t c = 0; c < columns; ++c) {
        for (uint64_t r = 0; r < rows; ++r) matrix[r + c * rows] = panel[r * kPanelWidth + c];
    }
}

void dotPanel(uint64_t n, const double* x, const double* panel, double* sums) noexcept {
    Pair sum[kPairs] = {};
    for (uint64_t r = 0; r < n; ++r) {
        const Pair factor = bothOf(x[r]);
        for (uint64_t p = 0; p < kPairs; ++p) {
            sum[p] += factor * loadPair(panel + r * kPanelWidth + 2 * p);
        }
    }
    std::memcpy(sums, sum, sizeof sum);
}

void addToPanel(uint64_t n, const double* x, const double* k, double* panel) noexcept {
    Pair factors[kPairs];
    std::memcpy(factors, k, sizeof factors);
    for (uint64_t r = 0; r < n; ++r) {
        const Pair element = bothOf(x[r]);
        for (uint64_t p = 0; p < kPairs; ++p) {
            double* const place = panel + r * kPanelWidth + 2 * p;
            storePair(place, loadPair(place) + factors[p] * element);
        }
    }
}

}  // namespace nuv64
