/* Reductions of real arrays to one number: sums, products, products of two arrays, extremes.
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

/* Forward (backward = 0): the sum of the magnitudes. Backward: each element is added when the
 * element above it is not negative, and subtracted when that one is; the last element is added as
 * it stands. Backward is so the sum of the magnitudes only where no element is negative, yet every
 * mean, variance and residue of magnitudes in the module stands on it: {1, -2, 3} gives
 * 3 + (-2) - 1 = 0. */
NUV64_API double RArrAbsSum(uint64_t n, const double* array, uint8_t backward) NUV64_NOEXCEPT;

/* The sum of the elements 0, stride, 2*stride, ... below n, going upward. ___NAN for a stride of 0,
 * which has no end. */
NUV64_API double RArrSkipSum(uint64_t n, const double* array, uint64_t stride) NUV64_NOEXCEPT;

/* The product of the elements, and of their magnitudes, going upward. 1.0 for n = 0 or null. */
NUV64_API double RArrProduct(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrAbsProduct(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The sum of the natural logarithms of the magnitudes from element 1 on: element 0 takes no part,
 * in the sign neither. *sign (may be null) becomes -1 for an odd count of negatives, otherwise 1. A
 * zero gives ___MnsINF and the sign 0. n = 0 or null gives 0.0 with *sign untouched. The logarithm
 * is rLog, so a magnitude up to ___MinReal gives ___NAN. {0, 2} gives ln 2 and the sign 1. */
NUV64_API double RArrAbsProductLn(uint64_t n, const double* array, int64_t* sign) NUV64_NOEXCEPT;

/* The sum of array[i] * b[i], and of |array[i] * b[i]|, going upward. 0.0 for n = 0, tested before
 * the pointers; ___NAN when an array is null. */
NUV64_API double RArrDotProduct(uint64_t n, const double* array, const double* b) NUV64_NOEXCEPT;
NUV64_API double RArrAbsDotProduct(uint64_t n, const double* array, const double* b) NUV64_NOEXCEPT;

/* The dot product of both arrays sorted upward, by value; and the sum of the magnitudes of the
 * products after a sort by magnitude. The arrays themselves stay as they are. 0.0 for n = 0; ___NAN
 * when an array is null, when memory is short, and in the form of magnitudes for n = 1.
 * The sorted dot product is the largest that any pairing of the elements gives. Source: G. H.
 * Hardy, J. E. Littlewood, G. Polya, Inequalities (1934), section 10.2. */
NUV64_API double RArrSortedDotProduct(uint64_t n, const double* array,
                                      const double* b) NUV64_NOEXCEPT;
NUV64_API double RArrAbsSortedDotProduct(uint64_t n, const double* array,
                                         const double* b) NUV64_NOEXCEPT;

/* The largest and the smallest element, and where it stands. */
NUV64_API double RArrMax(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;
NUV64_API double RArrMin(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;

/* The largest and the smallest absolute value, and where it stands. */
NUV64_API double RArrAbsMax(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;
NUV64_API double RArrAbsMin(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;

/* Maximum minus minimum, of the elements and of their magnitudes, and where both stand. */
NUV64_API double RArrRangeMinMax(uint64_t n, const double* array, uint64_t* iMin,
                                 uint64_t* iMax) NUV64_NOEXCEPT;
NUV64_API double RArrRangeAbsMinMax(uint64_t n, const double* array, uint64_t* iMin,
                                    uint64_t* iMax) NUV64_NOEXCEPT;

/* The element of largest magnitude, with its sign, and that magnitude; *index (may be null) is its
 * place. When minimum and maximum have the same magnitude, it is the maximum. */
NUV64_API double RArrExtreme(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;
NUV64_API double RArrAbsExtreme(uint64_t n, const double* array, uint64_t* index) NUV64_NOEXCEPT;

/* 2*RArrAbsExtreme minus RArrAbsSum (backward): above 0 when one element outweighs all the others
 * together, so that segments of these lengths don't close to a ring. */
NUV64_API double RArrAbsNecklaceExcess(uint64_t n, const double* array) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
