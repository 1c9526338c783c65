#include "nuv64/arrays/real_matrix_elements.h"

#include <algorithm>
#include <cmath>

#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/array_eval.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_elements.h"
#include "nuv64/arrays/real_matrix.h"
#include "nuv64/arrays/real_power_sums.h"
#include "nuv64/arrays/real_shifts.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_powers.h"

using namespace nuv64;

namespace {

constexpr uint32_t kNotYetImplemented = 9;

// The side of the squares that a transpose works in: 8 elements are one line of the cache.
constexpr uint64_t kTransposeTile = 8;

void transposeInto(const double* from, uint64_t rows, uint64_t cols, double* to) noexcept {
    for (uint64_t top = 0; top < rows; top += kTransposeTile) {
        const uint64_t bottom = std::min(top + kTransposeTile, rows);
        for (uint64_t c = 0; c < cols; ++c) {
            for (uint64_t r = top; r < bottom; ++r) to[c + r * cols] = from[r + c * rows];
        }
    }
}

uint32_t checkBoth(uint64_t rows, uint64_t cols, const double* in, const double* out) noexcept {
    if (rows == 0 || cols == 0 || !in) return 14;
    return out ? kSuccess : 18;
}

using Evaluation = uint32_t(uint64_t, uint64_t, const double*, double*, uint64_t, double);

uint32_t evaluateIntoNew(Evaluation* evaluate, uint64_t rows, uint64_t cols, const double* in,
                         double** out, uint64_t operation, double argument) noexcept {
    if (!out) return 18;
    uint32_t status = kSuccess;
    Owned<double> result(RArrNew0(&status, matrixSize(rows, cols)));
    if (status == kSuccess) status = evaluate(rows, cols, in, result.get(), operation, argument);
    *out = status == kSuccess ? result.release() : nullptr;
    return status;
}

bool worksOnSingleElements(uint64_t operation) noexcept {
    return (operation >= 1 && operation <= 8) || (operation >= 10 && operation <= 15) ||
           operation == 23 || operation == 24 || operation == 41;
}

}  // namespace

uint32_t RMatSum(const double* A, const double* B, uint64_t rows, uint64_t cols,
                 double* out) noexcept {
    if (!A || !B) return 14;
    if (!out) return 18;
    return RArrAdd(rows * cols, A, B, out);
}

uint32_t RMatDiff(const double* A, const double* B, uint64_t rows, uint64_t cols,
                  double* out) noexcept {
    if (!A || !B || !out) return 14;
    return RArrSub(rows * cols, A, B, out);
}

double RMatSumOfPowersI(uint64_t rows, uint64_t cols, const double* M, int64_t k) noexcept {
    return RArrSumOfPowersI(rows * cols, M, k);
}

double RMatNormL2(uint64_t rows, uint64_t cols, const double* M) noexcept {
    return rSqrt(RMatSumOfPowersI(rows, cols, M, 2));
}

double RMatTrace(uint64_t rows, uint64_t cols, const double* M) noexcept {
    if (rows == 0 || cols == 0 || !M) return ___NAN;
    double sum = 0.0;
    for (uint64_t i = 0; i < std::min(rows, cols); ++i) sum += M[i + i * rows];
    return sum;
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

uint32_t RMatReverseR(uint64_t rows, uint64_t cols, const double* in, double* out) noexcept {
    const uint32_t status = checkBoth(rows, cols, in, out);
    if (status != kSuccess) return status;
    for (uint64_t c = 0; c < cols; ++c) RArrReverse(rows, in + c * rows, out + c * rows);
    return kSuccess;
}

uint32_t RMatReverseC(uint64_t rows, uint64_t cols, const double* in, double* out) noexcept {
    const uint32_t status = checkBoth(rows, cols, in, out);
    if (status != kSuccess) return status;
    if (out != in) {
        for (uint64_t c = 0; c < cols; ++c) {
            RArrCopy(rows, in + c * rows, out + (cols - 1 - c) * rows);
        }
        return kSuccess;
    }
    for (uint64_t c = 0; c < cols / 2; ++c) {
        RArrSwap(rows, out + c * rows, out + (cols - 1 - c) * rows);
    }
    return kSuccess;
}

uint32_t RMatRunningSumR(uint64_t rows, uint64_t cols, const double* in, double* out) noexcept {
    const uint32_t status = checkBoth(rows, cols, in, out);
    if (status != kSuccess) return status;
    if (out != in) RArrCopy(rows, in, out);
    for (uint64_t c = 1; c < cols; ++c) RArrAdd2(rows, out + (c - 1) * rows, out + c * rows, 1.0);
    return kSuccess;
}

uint32_t RMatRunningSumC(uint64_t rows, uint64_t cols, const double* in, double* out) noexcept {
    const uint32_t status = checkBoth(rows, cols, in, out);
    if (status != kSuccess) return status;
    if (out != in) RArrCopy(rows, in, out);
    for (uint64_t i = 1; i < rows; ++i) {
        for (uint64_t j = 0; j < cols; ++j) out[i + j] = out[i - 1 + j] + in[i + j];
    }
    return kSuccess;
}

uint32_t RMatEvalC(uint64_t rows, uint64_t cols, const double* in, double* out, uint64_t operation,
                   double argument) noexcept {
    for (uint64_t c = 0; c < cols; ++c) {
        const double* const from = in ? in + c * rows : nullptr;
        double* const to = out ? out + c * rows : nullptr;
        const uint32_t status = RArrEval(rows, from, to, operation, argument);
        if (status != kSuccess) return status;
    }
    return kSuccess;
}

uint32_t RMatEvalR(uint64_t rows, uint64_t cols, const double* in, double* out, uint64_t operation,
                   double argument) noexcept {
    if (worksOnSingleElements(operation)) {
        return RMatEvalC(rows, cols, in, out, operation, argument);
    }
    if (operation == 9) return RMatRunningSumR(rows, cols, in, out);
    if (operation == 16) return RMatReverseR(rows, cols, in, out);
    return kNotYetImplemented;
}

uint32_t NewRMatEvalC(uint64_t rows, uint64_t cols, const double* in, double** out,
                      uint64_t operation, double argument) noexcept {
    return evaluateIntoNew(RMatEvalC, rows, cols, in, out, operation, argument);
}

uint32_t NewRMatEvalR(uint64_t rows, uint64_t cols, const double* in, double** out,
                      uint64_t operation, double argument) noexcept {
    return evaluateIntoNew(RMatEvalR, rows, cols, in, out, operation, argument);
}
