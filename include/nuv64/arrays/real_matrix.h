/* Real matrices: a bare block of rows*cols doubles stored by columns, element (r, c) at index
 * r + c*rows.
 *
 * A matrix is a real array of that length and is released with RMatKill (RArrKill). Sizes are
 * arguments; nothing stores them. Makers with an err argument clear it and set it to 0x80001 when
 * memory is short; err may be null. The six functions from RMatNew to RMatZero are those of the
 * real arrays with n = rows*cols, and this product is taken modulo 2^64 there: a caller with sizes
 * from outside must test it. Everything below them refuses sizes whose product overflows. */
#ifndef NUV64_ARRAYS_REAL_MATRIX_H
#define NUV64_ARRAYS_REAL_MATRIX_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* RArrNew, RArrNew0, RArrNewCopy of rows*cols elements. */
NUV64_API double* RMatNew(uint32_t* err, uint64_t rows, uint64_t cols) NUV64_NOEXCEPT;
NUV64_API double* RMatNew0(uint32_t* err, uint64_t rows, uint64_t cols) NUV64_NOEXCEPT;
NUV64_API double* RMatNewCopy(uint32_t* err, uint64_t rows, uint64_t cols,
                              const double* source) NUV64_NOEXCEPT;

/* RArrCopy of rows*cols elements: 0 for size 0; 18 null destination; 14 null source; 0. */
NUV64_API uint32_t RMatCopy(uint64_t rows, uint64_t cols, const double* source,
                            double* destination) NUV64_NOEXCEPT;

/* RArrFill of rows*cols elements, and the same with 0.0: 0 for size 0; 18 null matrix; 0. */
NUV64_API uint32_t RMatFill(uint64_t rows, uint64_t cols, double* matrix,
                            double value) NUV64_NOEXCEPT;
NUV64_API uint32_t RMatZero(uint64_t rows, uint64_t cols, double* matrix) NUV64_NOEXCEPT;

/* A new matrix of rows + extra rows with M in the top of each column and 0.0 below, owned by the
 * caller. Null for a null M, for a result of size 0 and when memory is short. */
NUV64_API double* NewRMatAppendRows0(const double* M, uint64_t rows, uint64_t cols,
                                     uint64_t extra) NUV64_NOEXCEPT;

/* A new matrix of the first rows - count rows of M, owned by the caller. Null for a null M, unless
 * rows, cols and count are all above 0 and count is below rows, and when memory is short. */
NUV64_API double* NewRMatRemoveRows(const double* M, uint64_t rows, uint64_t cols,
                                    uint64_t count) NUV64_NOEXCEPT;

/* Element (r, c) = p^c with 1.0 at c = 0, where p is x[r - 1]: the base of row r is the element
 * before it, so that row 0 reads one place before x. Callers hand in the address of their second
 * element to have row r use element r. cols = 0 means square. Powers are those of ruPower.
 * Status: 14 rows = 0 or null x; 18 null matrix; 0. */
NUV64_API uint32_t RMatFillVandermonde(double* matrix, const double* x, uint64_t rows,
                                       uint64_t cols) NUV64_NOEXCEPT;

/* A new Vandermonde matrix whose row r has the base x[r]; owned by the caller. cols = 0 means
 * square. Null with *err 0 for rows = 0 or a null x. */
NUV64_API double* RMatNewVandermonde(uint32_t* err, const double* x, uint64_t rows,
                                     uint64_t cols) NUV64_NOEXCEPT;

/* gram(i, j) = dot product of columns i and j of X, which has m rows and n columns; n by n,
 * symmetric. Status: 14 for a size of 0 or a null X; 18 null gram; 0. */
NUV64_API uint32_t RMatFillGram(uint64_t n, double* gram, uint64_t m,
                                const double* X) NUV64_NOEXCEPT;

/* The same in a new matrix, owned by the caller. Null with *err 14 for a size of 0 or a null X. */
NUV64_API double* RMatNewGram(uint32_t* err, uint64_t n, uint64_t m,
                              const double* X) NUV64_NOEXCEPT;

/* out[r] = sum over c upward of M(r, c) * x[c]. out must not overlap the inputs.
 * Status: 14 for a size of 0 or a null input; 18 null out; 0. */
NUV64_API uint32_t RMatByRArr(const double* M, uint32_t rows, uint32_t cols, const double* x,
                              double* out) NUV64_NOEXCEPT;

/* out(c, r) = M(r, c): out has cols rows and rows columns, and may be M itself, which then works
 * through a temporary copy. Status: 0; 0x80001 for such a copy. Nothing is tested for null, except
 * that nothing is touched for a size of 0. */
NUV64_API uint32_t RMatTranspose(const double* M, uint64_t rows, uint64_t cols,
                                 double* out) NUV64_NOEXCEPT;

/* Replaces the n by n matrix A by its inverse and the n by m right-hand side B by the solution of
 * A*X = B, by Gauss-Jordan elimination with full pivoting. A null B means m = 0. A pivot below
 * 5*2^-52 times the largest pivot so far counts as singular; a matrix of zeros alone is not caught
 * by that test and gives infinities. Not-a-numbers end as singular.
 * Status: 14 null A or n = 0; 26 singular, with A and B partly overwritten; 0x80001, untouched; 0.
 * Residuals are of the order of n * 2^-52 * |A| * |X|.
 * Source: F. L. Bauer, C. Reinsch, Handbook for Automatic Computation II (1971), I/3; pivoting over
 * the whole matrix. */
NUV64_API uint32_t RMatInvert(double* A, uint64_t n, double* B, uint64_t m) NUV64_NOEXCEPT;

/* Singular value decomposition A = U * diag(S) * transpose(V); A (rows by cols) is destroyed.
 * With k = min(rows, cols): S receives k values, not negative, descending. The tens digit of the
 * decimal number job says what U is: 0 none, 1 the full rows by rows, 2 or more the thin rows by k.
 * A units digit other than 0 asks for V, cols by cols.
 * Status: 22 null A or a size of 0; 18 null S, or U or V null though asked for; 39 when one value
 * takes more than 100 passes (not-a-numbers and infinities do), with S as far as it came; 0x80001.
 * Singular values hold to a few times max(rows, cols) * 2^-52 * S[0]; U and V are orthogonal within
 * the same factor.
 * Source: Householder bidiagonalisation and implicit-shift QR after G. H. Golub and C. Reinsch,
 * Numer. Math. 14 (1970) 403, in the arrangement of LINPACK's SVDC (J. J. Dongarra et al., LINPACK
 * Users' Guide, 1979, ch. 11). */
NUV64_API uint32_t RMatSVD(double* A, uint64_t rows, uint64_t cols, double* U, double* S, double* V,
                           uint32_t job) NUV64_NOEXCEPT;

/* RMatSVD with job 22: thin U, and V. */
NUV64_API uint32_t RMatThinSVD(double* A, uint64_t rows, uint64_t cols, double* U, double* S,
                               double* V) NUV64_NOEXCEPT;

/* Least-squares solution from a thin decomposition: t[j] = (sum over i of U(i, j)*b[i])/S[j], 0
 * where S[j] is exactly 0, and x[j] = sum over l of V(j, l)*t[l], for the k = min(rows, cols)
 * columns that exist. b has rows elements, x has cols.
 * Status: 22 null U, S or V or a size of 0; 14 null b; 18 null x; 0x80001; 0. */
NUV64_API uint32_t RMatSVDBacksub(const double* U, const double* S, const double* V, uint64_t rows,
                                  uint64_t cols, const double* b, double* x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
