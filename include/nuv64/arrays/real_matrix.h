/* Real matrices: a bare block of rows*cols doubles stored by columns, element (r, c) at index
 * r + c*rows.
 *
 * A matrix is a real array of that length and is released with RMatKill (RArrKill). Sizes are
 * arguments; nothing stores them. Makers with an err argument clear it and set it to 0x80001 when
 * memory is short; err may be null. The six functions from RMatNew to RMatZero are those of the
 * real arrays with n = rows*cols, and this product is taken modulo 2^64 there: a caller with sizes
 * from outside must test it. The makers below them refuse sizes whose product overflows.
 *
 * What is done with matrices stands in real_matrix_elements.h, real_matrix_products.h,
 * real_matrix_inverse.h, real_matrix_eigen.h and real_matrix_svd.h. */
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

/* Ones on the main diagonal, which is walked in steps of rows + 1 through the flat array, and 0.0
 * elsewhere. cols = 0 means square. The walk ends with the array: a matrix with more than rows + 1
 * columns gets a further diagonal from column rows + 1 on.
 * Status: 18 null matrix; 14 rows = 0; 0. */
NUV64_API uint32_t RMatFillIdentity(double* matrix, uint64_t rows, uint64_t cols) NUV64_NOEXCEPT;

/* A new matrix filled so, owned by the caller. cols = 0 means square. Null with *err 0 for
 * rows = 0. */
NUV64_API double* RMatNewIdentity(uint32_t* err, uint64_t rows, uint64_t cols) NUV64_NOEXCEPT;

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

/* The product of x[i] - x[j] over all i < j, taken with i outside and both going up: the
 * determinant of the square Vandermonde matrix of these n bases up to its sign, which is that of
 * the reversed differences. 1.0 for n = 1. A difference with magnitude at or below ___EpsReal gives
 * 0.0 at once, an absolute limit whatever the size of the bases. ___NAN for n = 0 or a null x. */
NUV64_API double RMatVandermondeDeterminant(uint64_t n, const double* x) NUV64_NOEXCEPT;

/* gram(i, j) = dot product of columns i and j of X, which has m rows and n columns; n by n,
 * symmetric. Status: 14 for a size of 0 or a null X; 18 null gram; 0. */
NUV64_API uint32_t RMatFillGram(uint64_t n, double* gram, uint64_t m,
                                const double* X) NUV64_NOEXCEPT;

/* The same in a new matrix, owned by the caller. Null with *err 14 for a size of 0 or a null X. */
NUV64_API double* RMatNewGram(uint32_t* err, uint64_t n, uint64_t m,
                              const double* X) NUV64_NOEXCEPT;

/* Reserved for reading a matrix from a text file: always status 9, "not yet implemented". */
NUV64_API uint32_t NewRMatFromAsciFile(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
