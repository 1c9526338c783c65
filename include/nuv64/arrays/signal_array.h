/* Signal arrays: a complex signal of n points as one block of 2n doubles, the real part in elements
 * 0 to n-1 and the imaginary part in elements n to 2n-1.
 *
 * n, the number of points, is the first argument of every function and stands nowhere else. Two
 * neighbouring channels of a data node form such an array. A signal array is released with SArrKill
 * (or RArrKill). Statuses: 14 null input, 18 null output, tested in this order, also for n = 0. in
 * and out may be the same array. Magnitudes are plain square roots of re^2 + im^2: parts above
 * about 1e154 overflow to infinity, below 1e-162 they vanish. */
#ifndef NUV64_ARRAYS_SIGNAL_ARRAY_H
#define NUV64_ARRAYS_SIGNAL_ARRAY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* New arrays: values not set, all 0.0, a copy of source. Owned by the caller. Null with *err 0 for
 * n = 0 or a null source, null with *err 0x80001 when 2n elements can't be had. err may be null. */
NUV64_API double* SArrNew(uint32_t* err, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double* SArrNew0(uint32_t* err, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double* SArrNewCopy(uint32_t* err, uint64_t n, const double* source) NUV64_NOEXCEPT;

/* Copies both parts. Status as RArrCopy: 0 for n = 0; 18 null destination; 14 null source; 0. */
NUV64_API uint32_t SArrCopy(uint64_t n, const double* source, double* destination) NUV64_NOEXCEPT;

/* Sets the real part to re and the imaginary part to im. Status: 0 for n = 0; 18 null data; 0. */
NUV64_API uint32_t SArrFill(uint64_t n, double* data, double re, double im) NUV64_NOEXCEPT;

/* Sets both parts to 0.0. Status as SArrFill. */
NUV64_API uint32_t SArrZero(uint64_t n, double* data) NUV64_NOEXCEPT;

/* real := sqrt(re^2 + im^2); the imaginary part is kept (copied to out). */
NUV64_API uint32_t SArrReplaceRealByMagnitude(uint64_t n, const double* in,
                                              double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t SArrIpReplaceRealByMagnitude(uint64_t n, double* data) NUV64_NOEXCEPT;

/* real := re^2 + im^2; the imaginary part is kept (copied to out). */
NUV64_API uint32_t SArrReplaceRealByPower(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t SArrIpReplaceRealByPower(uint64_t n, double* data) NUV64_NOEXCEPT;

/* The largest re^2 + im^2; the first of equal ones wins. *index (may be null) becomes its place,
 * and all ones, with the result ___NAN, for n = 0 or null data. */
NUV64_API double SArrMaxPower(uint64_t n, const double* data, uint64_t* index) NUV64_NOEXCEPT;

/* The square root of SArrMaxPower; ___NAN passes through. */
NUV64_API double SArrMaxMagnitude(uint64_t n, const double* data, uint64_t* index) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
