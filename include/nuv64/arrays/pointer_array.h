/* Arrays of pointers: bare blocks of n pointers, arrays of arrays for the most part.
 *
 * They are treated like real arrays (real_array.h): the count travels beside the pointer, a
 * zero-length array is null, what New returns is released with RPArrKill, err may be null. What the
 * elements point to is never looked at and never released. */
#ifndef NUV64_ARRAYS_POINTER_ARRAY_H
#define NUV64_ARRAYS_POINTER_ARRAY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A new array of n pointers, not set and all null.
 * Result: owned by the caller; null with *err 0 for n = 0; null with *err 0x80001 when memory is
 * short or the size overflows. */
NUV64_API void** RPArrNew(uint32_t* err, uint64_t n) NUV64_NOEXCEPT;
NUV64_API void** RPArrNew0(uint32_t* err, uint64_t n) NUV64_NOEXCEPT;

/* A new copy of n pointers. Null with *err 0 for n = 0 and for a null source; otherwise as
 * RPArrNew. */
NUV64_API void** RPArrNewCopy(uint32_t* err, uint64_t n, void* const* source) NUV64_NOEXCEPT;

/* destination[i] = source[i], going upward.
 * Status: 0 for n = 0 whatever the pointers; 18 null destination; 14 null source; 0. */
NUV64_API uint32_t RPArrCopy(uint64_t n, void* const* source, void** destination) NUV64_NOEXCEPT;

/* Sets every element to value; RPArrNull sets it to null. Status: 0 for n = 0; 18 null array; 0. */
NUV64_API uint32_t RPArrFill(uint64_t n, void** array, void* value) NUV64_NOEXCEPT;
NUV64_API uint32_t RPArrNull(uint64_t n, void** array) NUV64_NOEXCEPT;

/* A new array of the pointers behind the named arguments.
 *
 * count: how many follow; 0 lets them be counted up to the first null pointer (which must be there
 * then, as a pointer, not as a plain 0) and takes the number, the null not counted.
 * Result and errors as RPArrNew; null with *err 14 for a null count. */
NUV64_API void** RPArrNewVa(uint32_t* err, uint64_t* count, ...) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
