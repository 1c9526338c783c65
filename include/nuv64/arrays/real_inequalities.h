/* How far a classic inequality between sums is from equality, for given arrays.
 *
 * All return ___NAN for n = 0 or a null array. The sums are those of real_reductions.h and
 * real_power_sums.h; where the magnitudes are summed backward (RArrAbsSum), arrays of mixed signs
 * give what that sum gives, and a residue may then be negative.
 * Source: G. H. Hardy, J. E. Littlewood, G. Polya, Inequalities (1934), chapters 2 and 10. */
#ifndef NUV64_ARRAYS_REAL_INEQUALITIES_H
#define NUV64_ARRAYS_REAL_INEQUALITIES_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Cauchy: (sum of a^k)*(sum of b^k) - (a.b)^k, with the dot product of the elements
 * (RArrDotProduct), of their magnitudes, or of both arrays sorted by magnitude. Not below 0 for
 * k = 2, but for rounding. */
NUV64_API double RArrIneqCauchy(uint64_t n, const double* a, const double* b,
                                int32_t k) NUV64_NOEXCEPT;
NUV64_API double RArrIneqAbsCauchy(uint64_t n, const double* a, const double* b,
                                   int32_t k) NUV64_NOEXCEPT;
NUV64_API double RArrIneqAbsSortedCauchy(uint64_t n, const double* a, const double* b,
                                         int32_t k) NUV64_NOEXCEPT;

/* Chebyshev: n times the sorted dot product less the product of the sums; of elements, and of
 * magnitudes. */
NUV64_API double RArrIneqChebyshev(uint64_t n, const double* a, const double* b) NUV64_NOEXCEPT;
NUV64_API double RArrIneqAbsChebyshev(uint64_t n, const double* a, const double* b) NUV64_NOEXCEPT;

/* Hoelder: |a|_p * |b|_q less the dot product of the magnitudes, plain or sorted, with
 * q = p/(p - 1). ___NAN for p up to 1. */
NUV64_API double RArrIneqAbsHoelder(uint64_t n, const double* a, const double* b,
                                    double p) NUV64_NOEXCEPT;
NUV64_API double RArrIneqAbsSortedHoelder(uint64_t n, const double* a, const double* b,
                                          double p) NUV64_NOEXCEPT;

/* Minkowski: |a|_p + |b|_p less the p-norm of |a| + |b|. ___NAN for p = 0. */
NUV64_API double RArrIneqAbsMinkowski(uint64_t n, const double* a, const double* b,
                                      double p) NUV64_NOEXCEPT;

/* The triangle: the sum of the magnitudes less the magnitude of the sum; and the latter divided by
 * the former (rSafeDiv). */
NUV64_API double RArrIneqTriangle(uint64_t n, const double* array) NUV64_NOEXCEPT;
NUV64_API double RArrIneqRatioTriangle(uint64_t n, const double* array) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
