/* Rotations of a plane, as matrix algorithms use them. No pointer may be null: nothing is done
 * then. */
#ifndef NUV64_NUMERIC_PLANE_ROTATIONS_H
#define NUV64_NUMERIC_PLANE_ROTATIONS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The rotation that turns (*a, *b) onto the first axis: *a becomes the length, which is never
 * negative, *b becomes 0, and *c = a/length, *s = b/length. (0, 0) gives c = 1, s = 0. Both are
 * scaled by the larger magnitude first, so nothing overflows unless the length does. c^2 + s^2 is 1
 * within 3 last places. The sign is not that of the BLAS rotation. A not-a-number makes the length
 * one, and an infinity makes all three not-a-numbers.
 * (Golub and Van Loan, Matrix Computations, 5.1.8.) */
NUV64_API void rGivensRotation(double* a, double* b, double* c, double* s) NUV64_NOEXCEPT;

/* A rotation step for the symmetric matrix (p, r; r, q).
 *
 * With d = p - q there are three cases:
 * - ___5EpsReal*|d| > r, so also every r below 0: the matrix counts as diagonal, s = 0. p > q gives
 *   c = 1 and r = 0; else p and q are exchanged, c = -1 and r = -1.
 * - ___5EpsReal*r > |d|: c = sqrt(1/2), s the same with the sign of d (0 counts as positive); p and
 *   q stay, r = 0.
 * - else, with u = 0.5*d/r, t = sign(u)/(|u| + sqrt(1 + u^2)), c = 1/sqrt(1 + t^2) and s = c*t; p
 *   loses t*r, q gains it, r = 0. (t solves t^2 + 2*u*t = 1.)
 *
 * c and s are those of a rotation in all three; p and q are what the classical step of Jacobi gives
 * only with d taken as q - p, and r below 0 is not rotated away. Its callers are fitted to that.
 * p = q with r = 0 makes all of them not-a-numbers. (Golub and Van Loan, 8.5.2.) */
NUV64_API void rJacobiRotation(double* p, double* q, double* r, double* c,
                               double* s) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
