/* Element-wise operations, sums and rearrangements of real matrices (see real_matrix.h).
 *
 * in and out may be the same matrix; other overlaps are not allowed. Letters at the end of a name:
 * C works down each column, R along the rows. Status 14 is said for a size of 0 and for a null
 * input before 18 for a null output, unless said otherwise. */
#ifndef NUV64_ARRAYS_REAL_MATRIX_ELEMENTS_H
#define NUV64_ARRAYS_REAL_MATRIX_ELEMENTS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out = A + B, by RArrAdd of the whole. Status: 14 null A or B; 18 null out; 0, also for a size of
 * 0. */
NUV64_API uint32_t RMatSum(const double* A, const double* B, uint64_t rows, uint64_t cols,
                           double* out) NUV64_NOEXCEPT;

/* out = A - B, by RArrSub of the whole. Status: 14 null A, B or out; 0, also for a size of 0. A
 * null out is 14 here, 18 in RMatSum. */
NUV64_API uint32_t RMatDiff(const double* A, const double* B, uint64_t rows, uint64_t cols,
                            double* out) NUV64_NOEXCEPT;

/* RArrSumOfPowersI of all elements: the sum of their k-th powers. ___NAN for a size of 0 or a null
 * M. */
NUV64_API double RMatSumOfPowersI(uint64_t rows, uint64_t cols, const double* M,
                                  int64_t k) NUV64_NOEXCEPT;

/* The Frobenius norm: the root of the sum of squares. The squares are formed as they are, so that
 * elements beyond 1e154 overflow to infinity and those below 1e-162 are lost. ___NAN for a size of
 * 0 or a null M. */
NUV64_API double RMatNormL2(uint64_t rows, uint64_t cols, const double* M) NUV64_NOEXCEPT;

/* Sum of the first min(rows, cols) diagonal elements, going down. ___NAN for a size of 0 or a null
 * M. */
NUV64_API double RMatTrace(uint64_t rows, uint64_t cols, const double* M) NUV64_NOEXCEPT;

/* out(c, r) = M(r, c): out has cols rows and rows columns, and may be M itself, which then works
 * through a temporary copy. Status: 0; 0x80001 for such a copy. Nothing is tested for null, except
 * that nothing is touched for a size of 0. */
NUV64_API uint32_t RMatTranspose(const double* M, uint64_t rows, uint64_t cols,
                                 double* out) NUV64_NOEXCEPT;

/* Each column reversed top to bottom. Status: 14 for a size of 0 or a null in; 18 null out; 0. */
NUV64_API uint32_t RMatReverseR(uint64_t rows, uint64_t cols, const double* in,
                                double* out) NUV64_NOEXCEPT;

/* The columns in reversed order. Status as RMatReverseR. */
NUV64_API uint32_t RMatReverseC(uint64_t rows, uint64_t cols, const double* in,
                                double* out) NUV64_NOEXCEPT;

/* The first column of in is copied to out if they differ; then each column of out is added to the
 * next one of out. So only a call in place sums the input along the rows: out of place, all columns
 * but the first must stand in out before. Status as RMatReverseR. */
NUV64_API uint32_t RMatRunningSumR(uint64_t rows, uint64_t cols, const double* in,
                                   double* out) NUV64_NOEXCEPT;

/* The first column of in is copied to out if they differ; then out[i + j] = out[i - 1 + j] +
 * in[i + j] for i from 1 below rows (outside) and j from 0 below cols, with flat indices. The
 * column is not multiplied by its stride, so that this is a running sum for a single column alone;
 * with more of them the first rows + cols - 1 elements are summed over each other. Status as
 * RMatReverseR. */
NUV64_API uint32_t RMatRunningSumC(uint64_t rows, uint64_t cols, const double* in,
                                   double* out) NUV64_NOEXCEPT;

/* RArrEval with this operation and argument on each column; the status is the first one that isn't
 * 0, which also ends the work. cols = 0 gives 0. */
NUV64_API uint32_t RMatEvalC(uint64_t rows, uint64_t cols, const double* in, double* out,
                             uint64_t operation, double argument) NUV64_NOEXCEPT;

/* The same numbers for work along the rows. Operations 1 to 8, 10 to 15, 23, 24 and 41, which look
 * at single elements, are those of RMatEvalC; 9 is RMatRunningSumR, 16 is RMatReverseR; all others
 * give 9, "not yet implemented". */
NUV64_API uint32_t RMatEvalR(uint64_t rows, uint64_t cols, const double* in, double* out,
                             uint64_t operation, double argument) NUV64_NOEXCEPT;

/* RMatEvalC and RMatEvalR into a new matrix *out of rows*cols zeros, owned by the caller; what *out
 * held before is not released. After a failure *out is null. Status: 18 null out; 0x80001 when
 * memory is short; that of the evaluation. */
NUV64_API uint32_t NewRMatEvalC(uint64_t rows, uint64_t cols, const double* in, double** out,
                                uint64_t operation, double argument) NUV64_NOEXCEPT;
NUV64_API uint32_t NewRMatEvalR(uint64_t rows, uint64_t cols, const double* in, double** out,
                                uint64_t operation, double argument) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
