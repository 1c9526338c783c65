/* Running sums, products and integrals of real arrays, and differences.
 *
 * All take (n, in, out, extra); in and out may be the same array. The RArrIp twin works in place.
 * Status: 14 for a null in, 18 for a null out, else 0, tested in this order also for n = 0; the
 * twins give 14 for a null array. Sums add in the written order, without compensation: after i
 * terms the error is at most about i * 2^-53 of the sum of the magnitudes. */
#ifndef NUV64_ARRAYS_RUNNING_SUMS_H
#define NUV64_ARRAYS_RUNNING_SUMS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out[0] = in[0], out[i] = out[i-1] + in[i]. */
NUV64_API uint32_t RArrRunningSum(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpRunningSum(uint64_t n, double* array) NUV64_NOEXCEPT;

/* out[0] = in[0], out[i] = out[i-1] * in[i]. */
NUV64_API uint32_t RArrRunningProduct(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpRunningProduct(uint64_t n, double* array) NUV64_NOEXCEPT;

/* Running integral by the trapezoidal rule, samples spaced by 1, of which only the last element is
 * a trapezoidal sum: out[0] = in[0]/2, out[i] = out[i-1] + in[i], and at the end in[n-1]/2 is taken
 * from out[n-1]. The elements between lack the half of their last sample. */
NUV64_API uint32_t RArrRunningTrapez2(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpRunningTrapez2(uint64_t n, double* array) NUV64_NOEXCEPT;

/* Running integral by the modified trapezoidal rule, samples spaced by 1: out[0] = 0, and each
 * interval adds the integral of the cubic through the four samples around it, (13/24)*(a[i-1] +
 * a[i]) - (1/24)*(a[i-2] + a[i+1]), with `before` and `after` for the samples beyond the ends.
 * Source: Abramowitz and Stegun, section 25.4.
 *
 * For n above 3 the last but one interval is missing: out[n-2] is in[n-2] instead of an integral,
 * and out[n-1] builds upon it. Elements up to n - 3, and arrays of up to 3 points, are right. */
NUV64_API uint32_t RArrRunningModTrapez(uint64_t n, const double* in, double* out, double before,
                                        double after) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpRunningModTrapez(uint64_t n, double* array, double before,
                                          double after) NUV64_NOEXCEPT;

/* Differences of elements k places apart: out[i] = in[i] - in[i+k] wherever both exist. For k above
 * 0 the last k elements of out are left as they were, for k below 0 the first |k|; a |k| of n or
 * more leaves all. k = 0 sets out to 0.0. */
NUV64_API uint32_t RArrSelfDiff(uint64_t n, const double* in, double* out,
                                int64_t k) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
