/* Sorting pointers, or any words of their size, by the caller's order. */
#ifndef NUV64_CORE_POINTER_SORT_H
#define NUV64_CORE_POINTER_SORT_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Heap sort in place (Williams 1964), without recursion or further memory. Not stable.
 *
 * items: n words; null or n below 2 is left alone.
 * compare: negative when a sorts before b; null compares the words themselves as unsigned numbers.
 * direction: negative for descending order. */
NUV64_API void HeapSortByPointers(uint64_t n, void** items,
                                  int32_t (*compare)(const void* a, const void* b),
                                  int32_t direction) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
