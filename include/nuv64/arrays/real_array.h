/* Real arrays: the module's vector of doubles, and the head of its family.
 *
 * An array is a bare block of n doubles without any header; the count n travels beside the pointer,
 * as the first argument (behind the status word in makers). A zero-length array is a null pointer,
 * and that is no error. This header holds the life of an array: make, copy, fill; including it
 * brings the rest of the basics too, the element-wise operations (real_elements.h) and the
 * reductions (real_reductions.h).
 *
 * Ownership: what a New function returns belongs to the caller, who releases it with RArrKill.
 * Makers clear *err first and write 0x80001 there (and return null) when memory is short; err may
 * be null. Nothing else here allocates or keeps state, so that any thread may call anything on
 * arrays of its own.
 *
 * Values: not-a-numbers and infinities are data like any other and travel by the rules of IEEE
 * arithmetic, unless a function says otherwise. */
#ifndef NUV64_ARRAYS_REAL_ARRAY_H
#define NUV64_ARRAYS_REAL_ARRAY_H

#include "nuv64/arrays/real_elements.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A new array of n elements whose values are not set.
 * Result: the array, owned by the caller; null with *err 0 for n = 0; null with *err 0x80001 when
 * any of the top three bits of n is set (the byte size overflows) or memory is short. */
NUV64_API double* RArrNew(uint32_t* err, uint64_t n) NUV64_NOEXCEPT;

/* A new array of n elements, all 0.0. Result and errors as RArrNew. */
NUV64_API double* RArrNew0(uint32_t* err, uint64_t n) NUV64_NOEXCEPT;

/* A new copy of the n elements of source.
 * Null with *err 0 for n = 0 and for a null source; otherwise as RArrNew. */
NUV64_API double* RArrNewCopy(uint32_t* err, uint64_t n, const double* source) NUV64_NOEXCEPT;

/* destination[i] = source[i], going upward: where the arrays overlap with the destination above the
 * source, elements already written are read again.
 * Status: 0 for n = 0 whatever the pointers; 18 null destination; 14 null source; 0. */
NUV64_API uint32_t RArrCopy(uint64_t n, const double* source, double* destination) NUV64_NOEXCEPT;

/* Sets every element to value. Status: 0 for n = 0; 18 null array; 0. */
NUV64_API uint32_t RArrFill(uint64_t n, double* array, double value) NUV64_NOEXCEPT;

/* Sets every element to 0.0. Status as RArrFill. */
NUV64_API uint32_t RArrZero(uint64_t n, double* array) NUV64_NOEXCEPT;

/* Sets the elements start, start + stride, ... below n to the one double behind the named arguments
 * (an integer there is a fault of the caller). A stride of 0 sets the element at start alone; a
 * start at or above n sets nothing. Status: 14 for a null array or n = 0; 0. */
NUV64_API uint32_t RArrSkipFill(uint64_t n, double* array, uint64_t start, uint64_t stride,
                                ...) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
