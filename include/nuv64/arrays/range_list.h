/* Lists of ranges on the real axis.
 *
 * A list is a real array of pairs (low, high), sorted and disjoint, ended by the first pair whose
 * high is not above its low; every list made here ends with a pair of zeros. The list belongs to
 * the caller, who releases it with RArrKill. A null list is empty. Ranges include both ends. */
#ifndef NUV64_ARRAYS_RANGE_LIST_H
#define NUV64_ARRAYS_RANGE_LIST_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A new empty list: two zeros. Null with *err 0x80001 when memory is short; err may be null. */
NUV64_API double* NewRArrRanges(uint32_t* err) NUV64_NOEXCEPT;

/* The number of ranges in the list. */
NUV64_API uint64_t RArrRangesCount(const double* array) NUV64_NOEXCEPT;

/* Whether x lies in one of the ranges; not for a not-a-number. */
NUV64_API bool RArrRangesPointIsIn(double x, const double* array) NUV64_NOEXCEPT;

/* Whether one range holds both a and b, which may come in either order. *index (may be null) takes
 * the place of its low end in the array: 0, 2, 4 and so on; it is left alone when there is none. */
NUV64_API bool RArrRangesIntervalIsNested(double a, double b, const double* array,
                                          uint32_t* index) NUV64_NOEXCEPT;

/* Adds the range from low to high and joins it with those that it overlaps or touches.
 *
 * The list is replaced by a new one: *list and every copy of the pointer before the call are
 * invalid after it. A range with high not above low adds nothing; a list without any range is then
 * released and *list null. *list may be null, for an empty list.
 * Status: 18 null list; 0x80001, with the list as it was; 0. */
NUV64_API uint32_t RArrRangesAddRange(double** list, double low, double high) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
