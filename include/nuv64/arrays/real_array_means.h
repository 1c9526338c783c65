/* Means, variances and other descriptive figures of real arrays.
 *
 * All take (n, array, extra) and return ___NAN for n = 0 or a null array, unless said otherwise.
 * The means of magnitudes stand on the backward RArrAbsSum, whose signs are those of the
 * neighbours: see there. Sums run upward where it isn't said; two passes are made where a mean is
 * subtracted. */
#ifndef NUV64_ARRAYS_REAL_ARRAY_MEANS_H
#define NUV64_ARRAYS_REAL_ARRAY_MEANS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* RArrSum and RArrAbsSum (backward) divided by n. */
NUV64_API double RArrMeanA(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrAbsMeanA(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* Geometric means. One element is returned as it stands and two go to rMeanG, signs and all, in
 * both functions. From three on: rExp of the mean logarithm (rLog) of the magnitudes, 0.0 as soon
 * as an element is 0.0; RArrMeanG gives ___NAN for an odd count of negative elements. */
NUV64_API double RArrMeanG(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrAbsMeanG(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* Harmonic means: n / sum of 1/x, and of 1/|x|. A zero element gives 0.0. */
NUV64_API double RArrMeanH(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrAbsMeanH(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* sqrt(n / sum of (1/x)^2). A zero element gives 0.0. */
NUV64_API double RArrMeanH2(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The mean square: sum of squares divided by n, no root is taken. {3, 4} gives 12.5. */
NUV64_API double RArrMeanRms(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* The root of the mean square. */
NUV64_API double RArrRms(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* rMeanAGM of RArrMeanA and RArrMeanG; a not-a-number RArrMeanG is returned. 0.0 for n = 0 or
 * null. */
NUV64_API double RArrMeanAGM(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* p = 0: RArrMeanG. Else (S/n)^(1/p) by rPow, with S = RArrAbsHoelderSum: S holds its p-th root
 * already, so this is not the power mean but takes the root twice; RArrMeanHoelderI is the power
 * mean. A not-a-number S is returned. {2, 2} with p = 2 gives the root of sqrt(2). */
NUV64_API double RArrMeanHoelder(uint64_t n, const double* array, double p) NUV64_NOEXCEPT;

/* The power mean: k = 0 RArrMeanG, else RArrHoelderSumI divided by n^(1/k). */
NUV64_API double RArrMeanHoelderI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;

/* Lehmer means: 0 gives RArrMeanH, 1 RArrMeanA, else the sum of powers p over that of powers p - 1,
 * by RArrAbsSumOfPowers or RArrSumOfPowersI; ___NAN when the latter sum is zero. */
NUV64_API double RArrMeanLehmer(uint64_t n, const double* array, double p) NUV64_NOEXCEPT;
NUV64_API double RArrMeanLehmerI(uint64_t n, const double* array, int64_t k) NUV64_NOEXCEPT;

/* The variance of the population (divisor n) about RArrMeanA; and that of the magnitudes about
 * RArrAbsMeanA. *mean (may be null) becomes that mean; it stays when the result is ___NAN for want
 * of an array. */
NUV64_API double RArrVariance(uint64_t n, const double* array, double* mean) NUV64_NOEXCEPT;
NUV64_API double RArrAbsVariance(uint64_t n, const double* array, double* mean) NUV64_NOEXCEPT;

/* The root of RArrVariance. ___NAN below two elements, *mean then untouched. */
NUV64_API double RArrStd(uint64_t n, const double* array, double* mean) NUV64_NOEXCEPT;

/* The sum of |a[i] - a[i-1]|; of the rises alone; of the falls alone, as a positive number. 0.0 for
 * n = 0 or null. */
NUV64_API double RArrVariation(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrVariationPls(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrVariationMns(uint64_t n, const double* array) NUV64_NOEXCEPT;

/* What RArrStatistics finds. */
typedef struct RArrStatisticsRec {
    double Max;
    uint64_t MaxIndex;
    double Min;
    uint64_t MinIndex;
    double AbsMax; /* the larger magnitude of Max and Min, and its place; Max at a tie */
    uint64_t AbsMaxIndex;
    double AbsMin; /* starts as element 0 with its sign: a negative one stays the smallest */
    uint64_t AbsMinIndex;
    double Range;     /* Max - Min */
    double AbsRange;  /* AbsMax - AbsMin */
    double Mean;      /* the sum, upward, divided by n */
    double Rms;       /* the root of the mean square */
    double RmsExcess; /* Rms - Mean^2: the root is taken before the square of the mean goes off */
    double Variation; /* the sum of |a[i] - a[i-1]| */
} RArrStatisticsRec;

/* Fills the record. Comparisons are strict, as in RArrMax.
 * Status: 14 for n = 0 or a null array, 18 for a null record, the record then untouched; 0. */
NUV64_API uint32_t RArrStatistics(uint64_t n, const double* array,
                                  RArrStatisticsRec* out) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
