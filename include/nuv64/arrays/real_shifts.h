/* Operations that move the elements of a real array: reversal, rotation, shifts, halves.
 *
 * All take (n, in, out, extra); in and out may be the same array and must not overlap otherwise.
 * The RArrIp twin works in place. Status: 14 for a null in, 18 for a null out, else 0, tested in
 * this order also for n = 0; the twins give 14 for a null array. Elements are copied bit for bit.
 *
 * A distance k above 0 moves elements to higher indices. Every value of k is allowed. */
#ifndef NUV64_ARRAYS_REAL_SHIFTS_H
#define NUV64_ARRAYS_REAL_SHIFTS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* out[i] = in[n - 1 - i]. */
NUV64_API uint32_t RArrReverse(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpReverse(uint64_t n, double* array) NUV64_NOEXCEPT;

/* Cyclic shift: element i moves to (i + k) mod n. The distance modulo n is held in 32 bits, so that
 * arrays of more than 2^32 elements turn by its low 32 bits. */
NUV64_API uint32_t RArrRotate(uint64_t n, const double* in, double* out, int64_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpRotate(uint64_t n, double* array, int64_t k) NUV64_NOEXCEPT;

/* Shift by k places: out[i] = in[i - k]. Where there is no such element the Z form sets 0.0 and the
 * R form repeats the element at the edge that was left. */
NUV64_API uint32_t RArrShiftZ(uint64_t n, const double* in, double* out, int64_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpShiftZ(uint64_t n, double* array, int64_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrShiftR(uint64_t n, const double* in, double* out, int64_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpShiftR(uint64_t n, double* array, int64_t k) NUV64_NOEXCEPT;

/* Exchanges the halves: element i with element i + (n+1)/2 for i below n/2. In an odd array the
 * middle element stays where it is. */
NUV64_API uint32_t RArrSwapHalfs(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpSwapHalfs(uint64_t n, double* array) NUV64_NOEXCEPT;

/* Copies, with the first (n+1)/2 elements replaced by 0.0. */
NUV64_API uint32_t RArrZeroLowerHalf(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;

/* Copies the first n/2 elements and sets the rest to 0.0. */
NUV64_API uint32_t RArrZeroUpperHalf(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
