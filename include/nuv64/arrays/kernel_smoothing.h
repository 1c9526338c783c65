/* Smoothing of sampled curves by a Gaussian kernel and by the running mean.
 *
 * Beyond the ends the first and the last element are repeated. Widths are in elements; a negative
 * one is a fraction of the array, -width*n elements. A width too small to reach a neighbour is no
 * fault: the status is 0 and the output is not written, so that a caller with two arrays keeps what
 * the output held. So is one that is not a number. Statuses: 14 null input; 18 null output;
 * 0x80001; 0. */
#ifndef NUV64_ARRAYS_KERNEL_SMOOTHING_H
#define NUV64_ARRAYS_KERNEL_SMOOTHING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Convolves with exp(-ln 2*(k/width)^2), width being half the width at half height; cut where it
 * has fallen to one per cent, at k = width*sqrt(ln 100/ln 2), rounded, and normalised to the sum 1.
 * in and out may be the same array. Widths below 0.01 (after the fraction, which is taken from
 * -0.001/n downward) leave the output as it is. 0 for n = 0. */
NUV64_API uint32_t RArrGaussConvolution(uint64_t n, const double* in, double width,
                                        double* out) NUV64_NOEXCEPT;

/* The same with another threshold: widths above 0.001 and below -0.001/n are used, all others leave
 * the output as it is. RArrIpGaussSmooth works in place. */
NUV64_API uint32_t RArrGaussSmooth(uint64_t n, const double* in, double* out,
                                   double width) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpGaussSmooth(uint64_t n, double* array, double width) NUV64_NOEXCEPT;

/* The running mean over the odd number of elements next to width (an even number is raised by one).
 * The result is written back to `array`, whatever out says; out is tested for null alone. The sum
 * is kept by taking the oldest element off and adding the newest, so that rounding errors grow with
 * the length of the array. 0 for n = 0. {1, 2, 3} with width 3 becomes {4/3, 2, 8/3}. */
NUV64_API uint32_t RArrRectConvolution(uint64_t n, double* array, double width,
                                       double* out) NUV64_NOEXCEPT;

/* Reserved: takes no action and returns 0. */
NUV64_API uint32_t RArrMonotoneFilter(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
