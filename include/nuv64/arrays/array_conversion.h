/* Conversion between real arrays and arrays of floats and 64-bit integers.
 *
 * A float array is a bare block of n 32-bit floats, treated like a real array (real_array.h).
 * Every element is converted by itself, rounded to nearest, ties to even. */
#ifndef NUV64_ARRAYS_ARRAY_CONVERSION_H
#define NUV64_ARRAYS_ARRAY_CONVERSION_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* destination[i] = source[i] in the other type; the arrays must not overlap. Reals beyond the range
 * of floats become infinities, integers of more than 53 bits are rounded; floats become reals
 * exactly.
 * Status: 0 for n = 0 whatever the pointers; 14 null source; 18 null destination; 0. */
NUV64_API uint32_t RArrFillFromFArr(uint64_t n, const float* source,
                                    double* destination) NUV64_NOEXCEPT;
NUV64_API uint32_t FArrFillFromRArr(uint64_t n, const double* source,
                                    float* destination) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrFillFromIQArr(uint64_t n, const int64_t* source,
                                     double* destination) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrFillFromUQArr(uint64_t n, const uint64_t* source,
                                     double* destination) NUV64_NOEXCEPT;

/* Names that promise a new converted array and have always given null, whatever their arguments;
 * callers have learned to test for it. Use RArrNew and a Fill function instead.
 * Result: null. *err (may be null): 0, or 0x80001 when an array of n elements can't be had. */
NUV64_API double* RArrNewFromFArr(uint32_t* err, uint64_t n, const float* source) NUV64_NOEXCEPT;
NUV64_API float* FArrNewFromRArr(uint32_t* err, uint64_t n, const double* source) NUV64_NOEXCEPT;
NUV64_API double* RArrNewFromIQArr(uint32_t* err, uint64_t n, const int64_t* source) NUV64_NOEXCEPT;
NUV64_API double* RArrNewFromUQArr(uint32_t* err, uint64_t n,
                                   const uint64_t* source) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
