/* Eigenvalues and eigenvectors of real symmetric matrices (see real_matrix.h).
 *
 * Reduction to a tridiagonal matrix by Householder reflections, then the QL iteration with implicit
 * shifts. Source: R. S. Martin, C. Reinsch, J. H. Wilkinson, Numer. Math. 11 (1968) 181, procedure
 * tred2; A. Dubrulle, R. S. Martin, J. H. Wilkinson, Numer. Math. 12 (1968) 377, procedure imtql2;
 * both in Handbook for Automatic Computation II (1971), II/2 and II/4. */
#ifndef NUV64_ARRAYS_REAL_MATRIX_EIGEN_H
#define NUV64_ARRAYS_REAL_MATRIX_EIGEN_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Replaces the symmetric n by n matrix A by its orthonormal eigenvectors, in columns, and stores
 * the eigenvalue of column i in eigenvalues[i]. They are not sorted. Only the lower triangle of A
 * is read. With n = 1 the eigenvalue is A[0] and the eigenvector 1.0. Status: 26 n = 0; 14 null A;
 * 18 null eigenvalues; 0x80001; 3 when an eigenvalue doesn't converge (not-a-numbers and infinities
 * make it so), with A and eigenvalues as far as they came; 0. Eigenvalues hold to a few times n *
 * 2^-52 of the one that is largest in magnitude, and the vectors are orthogonal within a few times
 * n * 2^-52. */
NUV64_API uint32_t RMatDiagonalize(double* A, uint64_t n, double* eigenvalues) NUV64_NOEXCEPT;

/* Reduces the symmetric A to T = transpose(Q) * A * Q and replaces A by Q. d receives the n
 * diagonal elements of T, e its off-diagonal ones: e[i] stands between d[i - 1] and d[i], and e[0]
 * is 0. Only the lower triangle of A is read. Status: 26 n = 0; 14 null A; 18 null d or e; 0x80001;
 * 0. */
NUV64_API uint32_t RMatTriDiagonalize(double* A, uint64_t n, double* d, double* e) NUV64_NOEXCEPT;

/* Finds the eigenvalues of the tridiagonal matrix of n diagonal elements d and off-diagonal ones
 * e[1] to e[n - 1], as RMatTriDiagonalize makes them. They replace d, and e is used up. The columns
 * of Z, n by n, take part in each rotation: from RMatTriDiagonalize's Q come the eigenvectors of A,
 * from an identity those of the tridiagonal matrix.
 * Status: 26 n = 0; 14 null Z, d or e; 3 after more than 4*n + 10 iterations for one
 * eigenvalue; 0. */
NUV64_API uint32_t RMatTriDiQL(double* Z, uint64_t n, double* d, double* e) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
