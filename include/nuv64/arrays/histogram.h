/* Histogram of a real array. */
#ifndef NUV64_ARRAYS_HISTOGRAM_H
#define NUV64_ARRAYS_HISTOGRAM_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Counts the elements from index skip below n - skip in `bins` bins of the given width, about zero:
 * an element counts in bin bins/2 (whole division) + floor(in[i]/width), so that bin bins/2 begins
 * at 0; what lies outside goes to the first or the last bin, a not-a-number to the first. hist, of
 * `bins` elements, is set to 0.0 first. A skip of half the elements or more counts nothing.
 * Status: 14 null in or n = 0; 18 null hist; 26 for a width that is not above 0; 0, with nothing
 * done for bins = 0. */
NUV64_API uint32_t RArrHistogram(uint64_t n, const double* in, double* hist, uint64_t bins,
                                 double width, uint64_t skip) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
