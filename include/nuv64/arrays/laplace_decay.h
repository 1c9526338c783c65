/* Sums of decaying exponentials on an axis: what a spectrum of rates looks like in time. */
#ifndef NUV64_ARRAYS_LAPLACE_DECAY_H
#define NUV64_ARRAYS_LAPLACE_DECAY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out[j] = sum over k below m of A[k]*rExp(-R[k]*t[j]), added upward from 0.0, plus offset.
 *
 * t: n times; A and R: m amplitudes and rates, in the inverse unit of the times. out may be t. A
 * term whose exponential overflows is ___NAN and makes the point one.
 * Status: 0 for n = 0 whatever the pointers; 22 null t, A or R, also for m = 0; 18 null out; 0. */
NUV64_API uint32_t RArrLaplaceDecay(uint64_t n, double* out, const double* t, uint64_t m,
                                    const double* A, const double* R, double offset) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
