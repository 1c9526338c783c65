/* Reductions of real arrays to one number: sums, extremes, means, norms.
 *
 * All take (n, array, extra) and return ___NAN for n = 0 or a null array, unless said otherwise.
 * None reports by a status. Sums add in the stated order with a start value of 0.0, without
 * compensation, so that the relative error is at most about n times 2^-53 of the sum of the
 * magnitudes. Comparisons are strict, which means that the first of equal elements is found, that a
 * not-a-number behind the first element is passed over, and that one in the first place stays. An
 * index that is asked for is set to all ones before any test and stays so on failure; its pointer
 * may be null. */
#ifndef NUV64_ARRAYS_REAL_REDUCTIONS_H
#define NUV64_ARRAYS_REAL_REDUCTIONS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The plain signed sum; last element first when backward is not 0. All sums inside the module run
 * backward. */
NUV64_API double RArrSum(uint64_t n, const double* array, uint8_t backward) NUV64_NOEXCEPT;

/* Sum of array[i] * b[i], going upward. 0.0 for n = 0, tested before the pointers; ___NAN when an
 * array is null. */
NUV64_API double RArrDotProduct(uint64_t n, const double* array, const double* b) NUV64_NOEXCEPT;

/* The largest and the smallest element, and where it stands. */
NUV64_API double RArrMax(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;
NUV64_API double RArrMin(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;

/* The largest and the smallest absolute value, and where it stands. */
NUV64_API double RArrAbsMax(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;
NUV64_API double RArrAbsMin(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;

/* Maximum minus minimum, and where both stand. One pass: an element that sets a new minimum is not
 * tested as a new maximum (it can't be one). */
NUV64_API double RArrRangeMinMax(uint64_t n, const double* array, uint64_t* iMin,
                                 uint64_t* iMax) NUV64_NOEXCEPT;

/* RArrSum (backward) divided by n. */
NUV64_API double RArrMeanA(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The Euclidean norm, safe from overflow and underflow of the squares. With scale 0 and sum 1 at
 * the start, each non-zero magnitude v above scale makes sum = 1 + sum*(scale/v)^2 and scale = v,
 * and each other one adds (v/scale)^2; the result is scale * sqrt(sum), 0 for a vector of zeros.
 * Not-a-numbers go through to the result; two infinities give a not-a-number.
 * Source: the scaled sum of squares of the level 1 BLAS of 1979, S. J. Hammarling's form. */
NUV64_API double RArrNormL2(uint64_t n, const double* array) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
