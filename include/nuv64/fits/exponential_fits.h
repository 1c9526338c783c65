/* Fits of sums of decaying exponentials to a sampled curve,
 *   y(x) = offset + sum over k of weights[k] * exp(-rates[k]*x),
 * by the simplex search of the parameter minimiser.
 *
 * flags: the low byte and 0x100 choose the residual norm (see ResidualNorm, linear_fits.h);
 *   0x10000     the offset is held where it is
 *   0x20000     start values are made here: offset y[n-1] (unless held), K weights
 *               (y[0] - y[n-1])/K, rates K - k*(K - 1/K)/K for k = 0 to K-1
 *   0x40000     the search runs on data divided by the overall decay y[0] - y[n-1] (by 1 where it
 *               is 0)
 *   0x80000     each residual is weighted by the distance of its x from the one before
 *   0x80000000  the callback hears of each new best score, too
 * x has the unit of time (or whatever the rates are the inverse of) and must stand in the order of
 * measurement; weights and offset have the unit of y. Weights are held at or above 0 - with 0x40000
 * at the sign of the overall decay, so that a recovery has negative ones - and rates between
 * -ln(0.95)/x[n-1] and -ln(0.05)/x[2], which is what a curve sampled so can tell of.
 *
 * callback, which may be null, is called by the rules of multi_param_fit.h; a status other than 0
 * from it ends the fit with that status. During the search the caller's arrays hold the logarithms
 * of the rates and scaled weights, and a fit that fails leaves them where they stand.
 *
 * Status: 14 null x or y; 18 null offset or rms, or null weights or rates with components to fit;
 * 71 fewer than 3 points; 15 a not-a-number or infinity among the points or the start values;
 * 0x80001; what the callback returned; 0, also when the search ran into its limit of calls. */
#ifndef NUV64_FITS_EXPONENTIAL_FITS_H
#define NUV64_FITS_EXPONENTIAL_FITS_H

#include "nuv64/core/types.h"
#include "nuv64/fits/multi_param_fit.h"

NUV64_BEGIN_DECLS

/* Fits a given number of components. weights, rates and *offset are read (unless 0x20000 makes
 * them) and written; components without effect come out with weight 0. With P = 2*components + 1,
 * at most P*(P*(35*P + 30) + 25) evaluations are made; the search ends when its simplex has shrunk
 * below 0.001 for good.
 * An offset held together with 0x40000 comes back divided by the overall decay, and the residuals
 * are then those of that offset.
 * *rms receives the root of the mean squared residual; residuals, n elements, which may be null,
 * receives model - y. Components = 0 fits the offset alone. */
NUV64_API uint32_t MultiExpFit(uint32_t flags, uint64_t n, const double* x, const double* y,
                               uint64_t components, double* weights, double* rates, double* offset,
                               double* rms, double* residuals,
                               uint32_t (*callback)(MultiParamFit* fit,
                                                    uint32_t code)) NUV64_NOEXCEPT;

/* Finds the number of components, too: starting with one, adds components (new weight 0.33 times
 * the weight of smallest magnitude, new rate 3 times the largest) as long as each lowers rms by 15
 * percent or more, and takes the last one back; so the number found stays below *components, the
 * largest number allowed, unless that is 1 (or 0, which counts as 1). The last fit starts from
 * flags as given; where its rms is worse than that of the same number on the way up, the latter
 * stands.
 * weights and rates have *components elements (at least 1). *components becomes the number found,
 * 0 on failure. reserved is handed to the callback's context as the progress monitor: null for
 * callers outside the module. Status as above; 21 null components. */
NUV64_API uint32_t MultiExpAutoFit(uint32_t flags, uint64_t n, const double* x, const double* y,
                                   uint64_t* components, double* weights, double* rates,
                                   double* offset, double* rms, double* residuals,
                                   uint32_t (*callback)(MultiParamFit* fit, uint32_t code),
                                   void* reserved) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
