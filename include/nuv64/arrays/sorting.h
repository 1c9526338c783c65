/* Heap sorts of real arrays, and of keys that drag companion arrays along.
 *
 * All sort in place, without allocation, in O(n log n) steps, and are not stable: the order of
 * equal keys is not kept. The sift-down form keeps the element in hand and writes it once; a child
 * is chosen by a strict comparison. Not-a-numbers compare as neither smaller nor larger and end up
 * in no particular place, together with elements around them; the sort still ends.
 *
 * Companions are arrays of n elements of 8 bytes each (doubles, pointers, 64-bit integers); null
 * means that there is none. A companion must not be the key array itself.
 * Source: J. W. J. Williams, Algorithm 232, Comm. ACM 7 (1964) 347; R. W. Floyd, Algorithm 245. */
#ifndef NUV64_ARRAYS_SORTING_H
#define NUV64_ARRAYS_SORTING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Sorts ascending, or descending for a sign below 0.
 * Result: the array; null for n = 0 or a null array. */
NUV64_API double* RArrIpHeapSort(uint64_t n, double* array, int32_t sign) NUV64_NOEXCEPT;

/* Copies in to out, unless they are the same array, and sorts out as RArrIpHeapSort does.
 * Status: 18 null out; 14 null in or n = 0; 0. */
NUV64_API uint32_t RArrHeapSortCopy(uint64_t n, const double* in, double* out,
                                    int32_t sign) NUV64_NOEXCEPT;

/* Sorts real keys ascending and moves up to six companions with them.
 * Result: key, unchanged for n below 2 (null for a null key). */
NUV64_API double* RArrHeapSortR(double* key, uint64_t n, void* c1, void* c2, void* c3, void* c4,
                                void* c5, void* c6) NUV64_NOEXCEPT;

/* The same for keys that are unsigned 64-bit integers. */
NUV64_API uint64_t* RArrHeapSortD(uint64_t* key, uint64_t n, void* c1, void* c2, void* c3, void* c4,
                                  void* c5, void* c6) NUV64_NOEXCEPT;

/* The same for keys that are signed 64-bit integers. */
NUV64_API int64_t* RArrHeapSortL(int64_t* key, uint64_t n, void* c1, void* c2, void* c3, void* c4,
                                 void* c5, void* c6) NUV64_NOEXCEPT;

/* Sorts ascending by key1, unsigned 64-bit, and where it ties by key2, real; up to three companions
 * move along. Result: key1, with nothing done for n below 2 or when a key array is null. */
NUV64_API uint64_t* RArrHeapSortDR(uint64_t* key1, double* key2, uint64_t n, void* c1, void* c2,
                                   void* c3) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
