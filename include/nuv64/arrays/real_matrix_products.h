/* Products of real matrices (see real_matrix.h), also with vectors and with diagonal matrices.
 *
 * Each element of a product is a sum that starts at 0.0 and goes upward, with one rounding for each
 * product and one for each addition, so that its error is at most about k * 2^-53 times the sum of
 * the magnitudes of its k terms, and so that results don't depend on the sizes of the others. Sizes
 * are 32-bit. Status: 14 for a size of 0 or a null input; 18 for a null output; 0. The output must
 * not overlap an input, except where a product is said to be in place. */
#ifndef NUV64_ARRAYS_REAL_MATRIX_PRODUCTS_H
#define NUV64_ARRAYS_REAL_MATRIX_PRODUCTS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out = A * B; A is m by k, B is k by n, out is m by n. */
NUV64_API uint32_t RMatByMat(const double* A, const double* B, uint32_t m, uint32_t k, uint32_t n,
                             double* out) NUV64_NOEXCEPT;

/* out = A * transpose(B); A is m by k, B is stored n by k, out is m by n. Both names are this one
 * product: the second one doesn't transpose A. */
NUV64_API uint32_t RMatByMatT(const double* A, const double* B, uint32_t m, uint32_t k, uint32_t n,
                              double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RMatTByMat(const double* A, const double* B, uint32_t m, uint32_t k, uint32_t n,
                              double* out) NUV64_NOEXCEPT;

/* out[r] = sum over c of M(r, c) * x[c]. */
NUV64_API uint32_t RMatByRArr(const double* M, uint32_t rows, uint32_t cols, const double* x,
                              double* out) NUV64_NOEXCEPT;

/* out[c] = sum over r of x[r] * M(r, c). */
NUV64_API uint32_t RArrByRMat(const double* M, uint32_t rows, uint32_t cols, const double* x,
                              double* out) NUV64_NOEXCEPT;

/* In place, for an n by n matrix M and n factors d: row r of M times d[r]. */
NUV64_API uint32_t RMatByDiagL(double* M, uint32_t n, const double* d) NUV64_NOEXCEPT;

/* In place, for an n by n matrix M and n factors d: column c of M times d[c]. */
NUV64_API uint32_t RMatByDiagR(double* M, uint32_t n, const double* d) NUV64_NOEXCEPT;

/* In place, M := M * S; M is rows by cols, S is cols by cols and must not overlap M. Status also
 * 0x80001 when memory for a part of M is short, M untouched then. */
NUV64_API uint32_t RMatBySquareMatR(double* M, uint32_t rows, uint32_t cols,
                                    const double* S) NUV64_NOEXCEPT;

/* In place, M := S * M row after row; M is rows by cols, S is rows by rows and must not overlap M.
 * Row i of M is replaced as soon as it is computed, and the rows below it are computed with the new
 * one: M(i, c) = sum over l of S(i, l) * M(l, c) with new elements for l < i. This is the product
 * S * M only where S is upper triangular. Status also 0x80001 when memory is short, M untouched
 * then. */
NUV64_API uint32_t RMatBySquareMatL(double* M, uint32_t rows, uint32_t cols,
                                    const double* S) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
