#include "nuv64/arrays/real_matrix.h"

#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/numeric/real_elementary.h"

using namespace nuv64;

namespace {

// Copies the first `kept` rows of each column.
void copyTopRows(const double* from, uint64_t fromRows, double* to, uint64_t toRows, uint64_t kept,
                 uint64_t cols) noexcept {
    for (uint64_t c = 0; c < cols; ++c) RArrCopy(kept, from + c * fromRows, to + c * toRows);
}

void transposeInto(const double* from, uint64_t rows, uint64_t cols, double* to) noexcept {
    for (uint64_t c = 0; c < cols; ++c) {
        for (uint64_t r = 0; r < rows; ++r) to[c + r * cols] = from[r + c * rows];
    }
}

}  // namespace

double* RMatNew(uint32_t* err, uint64_t rows, uint64_t cols) noexcept {
    return RArrNew(err, rows * cols);
}

double* RMatNew0(uint32_t* err, uint64_t rows, uint64_t cols) noexcept {
    return RArrNew0(err, rows * cols);
}

double* RMatNewCopy(uint32_t* err, uint64_t rows, uint64_t cols, const double* source) noexcept {
    return RArrNewCopy(err, rows * cols, source);
}

uint32_t RMatCopy(uint64_t rows, uint64_t cols, const double* source,
                  double* destination) noexcept {
    return RArrCopy(rows * cols, source, destination);
}

uint32_t RMatFill(uint64_t rows, uint64_t cols, double* matrix, double value) noexcept {
    return RArrFill(rows * cols, matrix, value);
}

uint32_t RMatZero(uint64_t rows, uint64_t cols, double* matrix) noexcept {
    return RArrFill(rows * cols, matrix, 0.0);
}

double* NewRMatAppendRows0(const double* M, uint64_t rows, uint64_t cols, uint64_t extra) noexcept {
    if (!M || extra > UINT64_MAX - rows) return nullptr;
    const uint64_t newRows = rows + extra;
    double* const result = RArrNew0(nullptr, matrixSize(newRows, cols));
    if (result) copyTopRows(M, rows, result, newRows, rows, cols);
    return result;
}

double* NewRMatRemoveRows(const double* M, uint64_t rows, uint64_t cols, uint64_t count) noexcept {
    if (!M || rows == 0 || cols == 0 || count == 0 || count >= rows) return nullptr;
    const uint64_t newRows = rows - count;
    double* const result = RArrNew(nullptr, matrixSize(newRows, cols));
    if (result) copyTopRows(M, rows, result, newRows, newRows, cols);
    return result;
}

uint32_t RMatFillVandermonde(double* matrix, const double* x, uint64_t rows,
                             uint64_t cols) noexcept {
    if (rows == 0 || !x) return 14;
    if (!matrix) return 18;
    if (cols == 0) cols = rows;
    RArrFill(rows, matrix, 1.0);
    const double* const base = x - 1;
    for (uint64_t c = 1; c < cols; ++c) {
        for (uint64_t r = 0; r < rows; ++r) matrix[r + c * rows] = ruPower(base[r], c);
    }
    return kSuccess;
}

double* RMatNewVandermonde(uint32_t* err, const double* x, uint64_t rows, uint64_t cols) noexcept {
    if (cols == 0) cols = rows;
    double* const matrix = RArrNew(err, x ? matrixSize(rows, cols) : 0);
    if (matrix) RMatFillVandermonde(matrix, x + 1, rows, cols);
    return matrix;
}

uint32_t RMatFillGram(uint64_t n, double* gram, uint64_t m, const double* X) noexcept {
    if (n == 0 || m == 0 || !X) return 14;
    if (!gram) return 18;
    for (uint64_t i = 0; i < n; ++i) {
        for (uint64_t j = 0; j <= i; ++j) {
            const double product = RArrDotProduct(m, X + i * m, X + j * m);
            gram[i + j * n] = product;
            gram[j + i * n] = product;
        }
    }
    return kSuccess;
}

double* RMatNewGram(uint32_t* err, uint64_t n, uint64_t m, const double* X) noexcept {
    return guardMaker<double>(err, [&] {
        if (n == 0 || m == 0 || !X) throw StatusError{14};
        Owned<double> gram = allocate<double>(matrixSize(n, n));
        RMatFillGram(n, gram.get(), m, X);
        return gram.release();
    });
}

uint32_t RMatByRArr(const double* M, uint32_t rows, uint32_t cols, const double* x,
                    double* out) noexcept {
    if (!M || !x || rows == 0 || cols == 0) return 14;
    if (!out) return 18;
    RArrZero(rows, out);
    for (uint64_t c = 0; c < cols; ++c) {
        const double* const column = M + c * rows;
        for (uint64_t r = 0; r < rows; ++r) out[r] += column[r] * x[c];
    }
    return kSuccess;
}

uint32_t RMatTranspose(const double* M, uint64_t rows, uint64_t cols, double* out) noexcept {
    return guardStatus([&] {
        if (M != out) {
            transposeInto(M, rows, cols, out);
            return kSuccess;
        }
        const uint64_t size = matrixSize(rows, cols);
        const Owned<double> copy = allocate<double>(size);
        RArrCopy(size, M, copy.get());
        transposeInto(copy.get(), rows, cols, out);
        return kSuccess;
    });
}
