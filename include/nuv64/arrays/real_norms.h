/* Norms of a real array and distances between two.
 *
 * All take (n, array, ...) and return ___NAN for n = 0 or a null array, unless said otherwise. */
#ifndef NUV64_ARRAYS_REAL_NORMS_H
#define NUV64_ARRAYS_REAL_NORMS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The largest magnitude. The name says L1, the value is the maximum norm. Not-a-numbers as in
 * RArrAbsMax, which it is. */
NUV64_API double RArrNormL1(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The Euclidean norm, safe from overflow and underflow of the squares. With scale 0 and sum 1 at
 * the start, each non-zero magnitude v above scale makes sum = 1 + sum*(scale/v)^2 and scale = v,
 * and each other one adds (v/scale)^2; the result is scale * sqrt(sum), 0 for a vector of zeros.
 * Not-a-numbers go through to the result; two infinities give a not-a-number.
 * Source: the scaled sum of squares of the level 1 BLAS of 1979, S. J. Hammarling's form. */
NUV64_API double RArrNormL2(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The largest |a[i] - b[i]|; not-a-number differences are passed over but for the first. */
NUV64_API double RArrMetricL1(uint64_t n, const double* a, const double* b) NUV64_NOEXCEPT;

/* The Euclidean norm of a - b, formed as RArrNormL2. */
NUV64_API double RArrMetricL2(uint64_t n, const double* a, const double* b) NUV64_NOEXCEPT;

/* Compares two distributions whatever their total weights: the root of the mean squared difference
 * of the cumulative fractions of a and b, each divided by its own sum (RArrSum, backward). A null
 * array gives 14.0, the status word as a value; a sum of 0 gives a not-a-number or an infinity. */
NUV64_API double RArrMetricVorns(uint64_t n, const double* a, const double* b) NUV64_NOEXCEPT;

/* The same with the elements weighted: 1 between the indices i1 and i2 (in either order; both
 * limited to the array, i1 and i2 need not be whole), outside exp(-(d/edge)^2) with the distance d,
 * in elements, from the nearer of the two: both above the array count as its last index, both below
 * it as 0. What a not-a-number among them gives has no meaning. An edge at or below 0 counts as
 * 0.1. The squares are divided by the sum of the weights. A null array gives 14.0. */
NUV64_API double RArrMetricVornsLoc(uint64_t n, const double* a, const double* b, double i1,
                                    double i2, double edge) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
