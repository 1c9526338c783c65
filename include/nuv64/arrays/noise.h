/* Noise of a sampled curve: standard deviations of samples, plain, corrected and clipped, and the
 * estimate that they serve. */
#ifndef NUV64_ARRAYS_NOISE_H
#define NUV64_ARRAYS_NOISE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Variance with a corrected divisor: the sum of (a[i] - mean)^2, divided by n + c, where mean is
 * RArrMeanA. c = -1 gives the unbiased form, 0 that of a whole population.
 * *mean (may be null) receives the mean. ___NAN for a null array and when n + c is below 0.001 (or
 * not a number); *mean is then left alone. */
NUV64_API double pRArrVarianceCorr(uint64_t n, const double* a, double c,
                                   double* mean) NUV64_NOEXCEPT;

/* The square root of pRArrVarianceCorr; ___NAN also for n below 2. */
NUV64_API double pRArrStdCorr(uint64_t n, const double* a, double c, double* mean) NUV64_NOEXCEPT;

/* Standard deviation with clipping against zero (not against the mean). It starts from the unbiased
 * standard deviation s; each round keeps the elements with |a[i]| < |k*s|, and
 * s = sqrt((sum of squares - sum^2/m)/(m - 1)) over the m elements kept.
 * ___NAN for a null array and n below 2; a round that keeps fewer than two elements gives a
 * not-a-number, which stays. rounds = 0 gives the plain value. Rounds end early when one changes
 * nothing, so that any number of them is safe. */
NUV64_API double pRArrStdThreshold(uint64_t n, const double* a, double k,
                                   uint64_t rounds) NUV64_NOEXCEPT;

/* The noise of a curve: y is smoothed by RArrSavitskyGolayEx with the given order and number of
 * points, giving the gain g and the centre coefficient c; the residuals y - smoothed have the
 * clipped deviation s = pRArrStdThreshold(n, residuals, sigmas, passes), and
 * *sigma = s / sqrt(1 + g^2 - 2c) takes the filter's own effect on the residuals out.
 * smoothed (may be null, may be y itself) receives the smoothed curve. Customary settings: order 3,
 * 17 points, 3 passes, 3.0 sigmas.
 * Status: 14 null y or n = 0; 18 null sigma; 0x80001 when memory is short or the filter doesn't
 * exist, which is so for fewer than order + 1 points, that is below 5 points with order 3; 0. */
NUV64_API uint32_t RArrNoiseEstimateBySavitskyGolay(uint64_t n, const double* y, double* sigma,
                                                    double* smoothed, uint64_t order,
                                                    uint64_t points, uint64_t passes,
                                                    double sigmas) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
