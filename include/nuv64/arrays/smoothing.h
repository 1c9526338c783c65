/* Smoothing of sampled curves: convolution and Savitsky-Golay filters.
 *
 * A Savitsky-Golay filter fits a polynomial of the given order to `points` neighbouring samples by
 * least squares and takes its value, or its derivative number d, at one place; samples are spaced
 * by 1, so that derivatives are per sample spacing. `gain` is the noise gain: the root of the sum
 * of squared coefficients, by which white noise is multiplied.
 *
 * Statuses: 14 null input, 18 null output, 21 missing settings, 0x80001 when memory is short or
 * when the coefficients can't be found: fewer points than order + 1, d above order, or normal
 * equations that RMatInvert takes for singular, as it does for high orders far off the centre of a
 * wide window (order 5, 41 points, shift 20).
 * Source: A. Savitzky, M. J. E. Golay, Anal. Chem. 36 (1964) 1627; shifted filters as in
 * P. A. Gorry, Anal. Chem. 62 (1990) 570. Accuracy: the normal equations lose about twice the
 * digits of the Vandermonde matrix; up to order 5 and 41 points coefficients hold to 1e-12. */
#ifndef NUV64_ARRAYS_SMOOTHING_H
#define NUV64_ARRAYS_SMOOTHING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out[i] = sum over k below m of kernel[k] * in[i - (m-1)/2 + k], every index clamped to the array,
 * so that the first and the last element are repeated beyond the ends. The kernel is not reversed,
 * and each sum runs over k upward. in and out may be the same array or overlap.
 * Status: 14 null in or kernel; 18 null out; 0 with nothing done for n = 0 or m = 0; 0x80001. */
NUV64_API uint32_t RArrConvolute(uint64_t n, const double* in, double* out, uint64_t m,
                                 const double* kernel) NUV64_NOEXCEPT;

/* Settings for a filter of a given width (in samples) and derivative d: *order = d + 3, and the
 * result is the number of points, order + floor(1 + |width|) made odd by setting the low bit.
 * order may be null. A width that is not a number counts as 0, one beyond 2^62 as 2^62. */
NUV64_API uint64_t RArrSGpoints(uint64_t d, double width, uint64_t* order) NUV64_NOEXCEPT;

/* The `points` coefficients of the filter for derivative d, evaluated shift samples to the right of
 * the window's centre; shift need not be whole. *gain (may be null) becomes the noise gain.
 * The result belongs to the caller (RArrKill); null when the filter doesn't exist (no points, fewer
 * points than order + 1, d above order, normal equations singular to working precision) or memory
 * is short. */
NUV64_API double* RArrNewSGcoeff(uint64_t d, uint64_t points, uint64_t order, double shift,
                                 double* gain) NUV64_NOEXCEPT;

/* Filters in to out; the ends see the edge values repeated. in and out may be the same array.
 * flags bit 0: order and points are given, both then required (21); otherwise they come from
 * RArrSGpoints with a width of at least 0.5 and are stored where asked for. flags bit 1: the result
 * is the derivative; otherwise, for d above 0, result and gain are divided by d factorial, which
 * makes a Taylor coefficient of it. order, points and gain may be null. */
NUV64_API uint32_t RArrSavitskyGolay(uint64_t n, const double* in, double* out, double width,
                                     uint64_t d, uint64_t* order, uint64_t* points, double* gain,
                                     uint32_t flags, double shift) NUV64_NOEXCEPT;

/* Filters in to out; near the ends the polynomial of the first and of the last full window is
 * evaluated off its centre. in and out may be the same array.
 * points is raised to 3, made odd, and lowered to the largest odd number that fits n; order is
 * lowered to points. (A short array may so end with more unknowns than points, which is 0x80001.)
 * *centre (may be null) becomes the middle coefficient of the filter used between the ends. *gain
 * (may be null) ends as that of the last vector made, the one for the right end. flags bit 1 as
 * above. Status: 14 null in or n = 0; 18 null out; 0x80001; 0. */
NUV64_API uint32_t RArrSavitskyGolayEx(uint64_t n, const double* in, double* out, double* gain,
                                       double shift, uint64_t d, uint64_t order, uint64_t points,
                                       uint32_t flags, double* centre) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
