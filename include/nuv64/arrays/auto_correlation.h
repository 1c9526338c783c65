/* Auto-correlation of a real array. */
#ifndef NUV64_ARRAYS_AUTO_CORRELATION_H
#define NUV64_ARRAYS_AUTO_CORRELATION_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out[k] = (sum over j below n - k of in[j]*in[j+k]) / (n - k): each lag k is normalised by its own
 * number of terms, and no mean is taken away. Sums run upward from 0.0. n*n/2 products. in and out
 * may be the same array (a working copy is made then) and must not overlap otherwise.
 * Status: 14 null in or n = 0; 18 null out; 0x80001; 0. */
NUV64_API uint32_t RArrAutoCorr(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
