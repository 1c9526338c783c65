/* The inverse of a real matrix, and linear systems by it (see real_matrix.h). */
#ifndef NUV64_ARRAYS_REAL_MATRIX_INVERSE_H
#define NUV64_ARRAYS_REAL_MATRIX_INVERSE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Replaces the n by n matrix A by its inverse and the n by m right-hand side B by the solution of
 * A*X = B, by Gauss-Jordan elimination with full pivoting. A null B means m = 0. A pivot below
 * 5*2^-52 times the largest pivot so far counts as singular; a matrix of zeros alone is not caught
 * by that test and gives infinities. Not-a-numbers end as singular.
 * Status: 14 null A or n = 0; 26 singular, with A and B partly overwritten; 0x80001, untouched; 0.
 * Residuals are of the order of n * 2^-52 * |A| * |X|.
 * Source: F. L. Bauer, C. Reinsch, Handbook for Automatic Computation II (1971), I/3; pivoting over
 * the whole matrix. */
NUV64_API uint32_t RMatInvert(double* A, uint64_t n, double* B, uint64_t m) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
