/* Counts and tests over real arrays. Not-a-numbers fail each comparison. */
#ifndef NUV64_ARRAYS_REAL_COUNTS_H
#define NUV64_ARRAYS_REAL_COUNTS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Elements strictly above, and strictly below, the level. All ones for n = 0 or null. */
NUV64_API uint64_t RArrAboveCount(uint64_t n, const double* array, double level) NUV64_NOEXCEPT;
NUV64_API uint64_t RArrBelowCount(uint64_t n, const double* array, double level) NUV64_NOEXCEPT;

/* Elements inside [low, high]. Those above high are counted in *above, and of the others those
 * below low in *below; both are cleared first and may be null. Not-a-numbers count as inside. 0 for
 * n = 0 or null. */
NUV64_API uint64_t RArrBandCount(uint64_t n, const double* array, double low, double high,
                                 uint64_t* above, uint64_t* below) NUV64_NOEXCEPT;

/* Elements with |x - value| up to the tolerance. 0 for n = 0 or null. */
NUV64_API uint64_t RArrValueCount(uint64_t n, const double* array, double value,
                                  double tolerance) NUV64_NOEXCEPT;

/* Crossings of the level between neighbours: *down counts those from at or above it to below, *up
 * those back; both are cleared first and may be null. The result is their sum; 0 below two elements
 * or for null. */
NUV64_API uint64_t RArrSignInversionsCount(uint64_t n, const double* array, double level,
                                           uint64_t* down, uint64_t* up) NUV64_NOEXCEPT;

/* Elements for which no earlier one lies strictly nearer than gap (its sign is dropped): the number
 * of groups whose neighbours are nearer than gap, as long as no later element closes a hole between
 * two of them. 0 for n = 0 or null. The time goes as n log n, with working memory for n elements;
 * as n squared when there is none. */
NUV64_API uint64_t RArrChainedGroupsCount(uint64_t n, const double* array,
                                          double gap) NUV64_NOEXCEPT;

/* Whether an element does not differ from the value by more than the tolerance (rIsDifferentAbs, so
 * a not-a-number is "present"); *index (may be null) becomes the place of the first one, and all
 * ones when there is none. False for n = 0 or null. */
NUV64_API bool RArrIsValuePresent(uint64_t n, const double* array, double value, double tolerance,
                                  uint64_t* index) NUV64_NOEXCEPT;

/* Whether no element stands below (above) the one before it, and with strict not 0, whether none
 * equals it either. *index (may be null) becomes the place of the first element that offends
 * against the one before it, all ones when there is none. Below two elements or for null: false,
 * and *index stays. The 64-bit words are compared, as unsigned integers, as in all arrays of 8-byte
 * elements: right for reals of positive sign only. {-1.0, -2.0} is increasing. */
NUV64_API bool RArrIsIncreasing(uint64_t n, const double* array, uint8_t strict,
                                uint64_t* index) NUV64_NOEXCEPT;
NUV64_API bool RArrIsDecreasing(uint64_t n, const double* array, uint8_t strict,
                                uint64_t* index) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
