/* The singular value decomposition of real matrices (see real_matrix.h), and what is done with it.
 */
#ifndef NUV64_ARRAYS_REAL_MATRIX_SVD_H
#define NUV64_ARRAYS_REAL_MATRIX_SVD_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Singular value decomposition A = U * diag(S) * transpose(V); A (rows by cols) is destroyed.
 * With k = min(rows, cols): S receives k values, not negative, descending. The tens digit of the
 * decimal number job says what U is: 0 none, 1 the full rows by rows, 2 or more the thin rows by k.
 * A units digit other than 0 asks for V, cols by cols.
 * Status: 22 null A or a size of 0; 18 null S, or U or V null though asked for; 39 when one value
 * takes more than 100 passes, with S as far as it came; 0x80001; 0. Not-a-numbers and infinities
 * end in 39 or, where there is nothing to iterate, in S. So does a column or row to reduce whose
 * norm isn't 0 and at most 2^-1024, about 5.6e-309: its reciprocal is infinite.
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

/* Rebuilds the rows by cols matrix of a full decomposition (U rows by rows), with the inner size
 * k = min(rows, cols): T = transpose(V), the first k*k elements of T taken as k by k and their rows
 * scaled by S, out = U * T with T taken as k by cols. T is cols by cols, so that this gives the
 * matrix back for rows >= cols only. U enters with its first k columns, so that a thin U will do
 * too. out must not overlap an input.
 * Status: 22 null U, S or V; 18 null out; 14 for a size of 0; 0x80001; 0. */
NUV64_API uint32_t RMatFromSVD(double* out, uint64_t rows, uint64_t cols, const double* U,
                               const double* S, const double* V) NUV64_NOEXCEPT;

/* The same from a thin decomposition, for all shapes: out = U * diag(S) * transpose(V). The inner
 * sum goes over all cols columns; those that U and S don't have for rows < cols count as 0. out may
 * be U if rows >= cols. Status as RMatFromSVD. */
NUV64_API uint32_t RMatFromThinSVD(double* out, uint64_t rows, uint64_t cols, const double* U,
                                   const double* S, const double* V) NUV64_NOEXCEPT;

/* Least-squares solution from a thin decomposition: t[j] = (sum over i of U(i, j)*b[i])/S[j], 0
 * where S[j] is exactly 0, and x[j] = sum over l of V(j, l)*t[l], for the k = min(rows, cols)
 * columns that exist. b has rows elements, x has cols.
 * Status: 22 null U, S or V or a size of 0; 14 null b; 18 null x; 0x80001; 0. */
NUV64_API uint32_t RMatSVDBacksub(const double* U, const double* S, const double* V, uint64_t rows,
                                  uint64_t cols, const double* b, double* x) NUV64_NOEXCEPT;

/* Solves A*x = b in the least-squares sense, the shortest such x where there are several: by
 * RMatThinSVD of a copy of A and RMatSVDBacksub. Singular values from the second one on that are
 * below threshold*S[0] take no part. A is rows by cols, b has rows elements, x has cols. threshold
 * is 0 or more; 1 leaves the largest value alone with those equal to it; a not-a-number excludes
 * nothing.
 * Status: 14 null A or b; 18 null x; 22 for a size of 0; 39 when the decomposition doesn't
 * converge; 0x80001; 0. */
NUV64_API uint32_t SolveLinearSystemBySVD(const double* A, double* x, const double* b,
                                          uint64_t rows, uint64_t cols,
                                          double threshold) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
