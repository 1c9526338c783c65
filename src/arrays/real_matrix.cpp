#include "nuv64/arrays/real_matrix.h"

#include <cmath>

#include "arrays/column_kernels.h"
#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_powers.h"

using namespace nuv64;

namespace {

// Copies the first `kept` rows of each column.
void copyTopRows(const double* from, uint64_t fromRows, double* to, uint64_t toRows, uint64_t kept,
                 uint64_t cols) noexcept {
    for (uint64_t c = 0; c < cols; ++c) RArrCopy(kept, from + c * fromRows, to + c * toRows);
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

uint32_t RMatFillIdentity(double* matrix, uint64_t rows, uint64_t cols) noexcept {
    if (!matrix) return 18;
    if (rows == 0) return 14;
    const uint64_t size = rows * (cols == 0 ? rows : cols);
    RArrZero(size, matrix);
    for (uint64_t i = 0; i < size; i += rows + 1) matrix[i] = 1.0;
    return kSuccess;
}

double* RMatNewIdentity(uint32_t* err, uint64_t rows, uint64_t cols) noexcept {
    if (cols == 0) cols = rows;
    double* const matrix = RArrNew(err, matrixSize(rows, cols));
    if (matrix) RMatFillIdentity(matrix, rows, cols);
    return matrix;
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

double RMatVandermondeDeterminant(uint64_t n, const double* x) noexcept {
    if (n == 0 || !x) return ___NAN;
    double product = 1.0;
    for (uint64_t i = 0; i < n; ++i) {
        for (uint64_t j = i + 1; j < n; ++j) {
            const double difference = x[i] - x[j];
            if (std::fabs(difference) <= ___EpsReal) return 0.0;
            product *= difference;
        }
    }
    return product;
}

uint32_t RMatFillGram(uint64_t n, double* gram, uint64_t m, const double* X) noexcept {
    if (n == 0 || m == 0 || !X) return 14;
    if (!gram) return 18;
    for (uint64_t i = 0; i < n; ++i) {
        dotColumns(m, X + i * m, X, m, i + 1, gram + i * n);
        for (uint64_t j = 0; j < i; ++j) gram[i + j * n] = gram[j + i * n];
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

uint32_t NewRMatFromAsciFile(void) noexcept {
    return 9;
}
