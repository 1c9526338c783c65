#include "nuv64/arrays/real_matrix_products.h"

#include <algorithm>

#include "arrays/column_kernels.h"
#include "arrays/matrix_product.h"
#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_elements.h"
#include "nuv64/arrays/real_matrix_elements.h"

using namespace nuv64;

namespace {

constexpr uint64_t kStripRows = 64;

// The status that all products share.
uint32_t checkProduct(bool sizesAboveZero, const void* a, const void* b, const void* out) noexcept {
    if (!sizesAboveZero || !a || !b) return 14;
    return out ? kSuccess : 18;
}

uint32_t multiplyByTransposed(const double* a, const double* b, uint32_t m, uint32_t k, uint32_t n,
                              double* out) noexcept {
    const uint32_t status = checkProduct(m && k && n, a, b, out);
    if (status == kSuccess) multiply({a, 1, m}, {b, n, 1}, m, k, n, out, m);
    return status;
}

// A copy of `count` rows from `first` on, stored by columns.
void copyRows(const double* matrix, uint64_t rows, uint64_t cols, uint64_t first, uint64_t count,
              double* copy) noexcept {
    for (uint64_t c = 0; c < cols; ++c) {
        std::copy_n(matrix + first + c * rows, count, copy + c * count);
    }
}

}  // namespace

uint32_t RMatByMat(const double* A, const double* B, uint32_t m, uint32_t k, uint32_t n,
                   double* out) noexcept {
    const uint32_t status = checkProduct(m && k && n, A, B, out);
    if (status == kSuccess) multiply({A, 1, m}, {B, 1, k}, m, k, n, out, m);
    return status;
}

uint32_t RMatByMatT(const double* A, const double* B, uint32_t m, uint32_t k, uint32_t n,
                    double* out) noexcept {
    return multiplyByTransposed(A, B, m, k, n, out);
}

uint32_t RMatTByMat(const double* A, const double* B, uint32_t m, uint32_t k, uint32_t n,
                    double* out) noexcept {
    return multiplyByTransposed(A, B, m, k, n, out);
}

uint32_t RMatByRArr(const double* M, uint32_t rows, uint32_t cols, const double* x,
                    double* out) noexcept {
    const uint32_t status = checkProduct(rows && cols, M, x, out);
    if (status != kSuccess) return status;
    RArrZero(rows, out);
    addColumns(rows, M, rows, cols, x, out);
    return kSuccess;
}

uint32_t RArrByRMat(const double* M, uint32_t rows, uint32_t cols, const double* x,
                    double* out) noexcept {
    const uint32_t status = checkProduct(rows && cols, M, x, out);
    if (status == kSuccess) dotColumns(rows, x, M, rows, cols, out);
    return status;
}

uint32_t RMatByDiagL(double* M, uint32_t n, const double* d) noexcept {
    const uint32_t status = checkProduct(n, M, d, M);
    if (status != kSuccess) return status;
    for (uint64_t c = 0; c < n; ++c) RArrMul2(n, d, M + c * n);
    return kSuccess;
}

uint32_t RMatByDiagR(double* M, uint32_t n, const double* d) noexcept {
    const uint32_t status = checkProduct(n, M, d, M);
    if (status != kSuccess) return status;
    for (uint64_t c = 0; c < n; ++c) RArrIpMulConst(n, M + c * n, d[c]);
    return kSuccess;
}

uint32_t RMatBySquareMatR(double* M, uint32_t rows, uint32_t cols, const double* S) noexcept {
    const uint32_t status = checkProduct(rows && cols, M, S, M);
    if (status != kSuccess) return status;
    return guardStatus([&] {
        const uint64_t height = std::min<uint64_t>(rows, kStripRows);
        const Owned<double> strip = allocate<double>(height * cols);
        for (uint64_t r = 0; r < rows; r += height) {
            const uint64_t count = std::min(height, rows - r);
            copyRows(M, rows, cols, r, count, strip.get());
            multiply({strip.get(), 1, count}, {S, 1, cols}, count, cols, cols, M + r, rows);
        }
        return kSuccess;
    });
}

uint32_t RMatBySquareMatL(double* M, uint32_t rows, uint32_t cols, const double* S) noexcept {
    const uint32_t status = checkProduct(rows && cols, M, S, M);
    if (status != kSuccess) return status;
    return guardStatus([&] {
        const Owned<double> factors = allocate<double>(matrixSize(rows, rows));
        const Owned<double> panel = allocate<double>(rows * kPanelWidth);
        RMatTranspose(S, rows, rows, factors.get());
        for (uint64_t c = 0; c < cols; c += kPanelWidth) {
            const uint64_t count = std::min(kPanelWidth, cols - c);
            loadPanel(rows, count, M + c * rows, panel.get());
            for (uint64_t i = 0; i < rows; ++i) {
                double sums[kPanelWidth];
                dotPanel(rows, &factors[i * rows], panel.get(), sums);
                std::copy_n(sums, kPanelWidth, &panel[i * kPanelWidth]);
            }
            storePanel(rows, count, panel.get(), M + c * rows);
        }
        return kSuccess;
    });
}
