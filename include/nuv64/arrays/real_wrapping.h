/* Wrapping of a real array into one period, and unwrapping.
 *
 * All take (n, in, out, period), with period in the unit of the elements; in and out may be the
 * same array, and the RArrIp twin works in place. Pointers are tested before the count. */
#ifndef NUV64_ARRAYS_REAL_WRAPPING_H
#define NUV64_ARRAYS_REAL_WRAPPING_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* period times the fraction of x/period, with the sign of x/period (rModf); a result equal to the
 * period becomes 0.0. Negative elements so stay negative. Infinities give 0 times the period, a
 * period of 0 gives 0 or, for a 0, a not-a-number.
 * Status: 14 null in; 18 null out; 0. */
NUV64_API uint32_t RArrModf(uint64_t n, const double* in, double* out,
                            double period) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpModf(uint64_t n, double* array, double period) NUV64_NOEXCEPT;

/* period times the fraction of x/period; a result at or above period/2 has the period subtracted.
 * Only the upper half is folded: an element of -0.9 periods stays there. Status as RArrModf. */
NUV64_API uint32_t RArrSignedModf(uint64_t n, const double* in, double* out,
                                  double period) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpSignedModf(uint64_t n, double* array, double period) NUV64_NOEXCEPT;

/* Unwraps: out[0] = in[0], and each following element starts as in[i] and moves by whole periods
 * towards out[i-1]: while out[i] - out[i-1] >= period/2 the period is subtracted, then, while
 * -(period/2) > out[i] - out[i-1], it is added, each step rounded. It stops as well when a step no
 * longer changes the value, as with a period that is lost against it. Long ways are taken at once,
 * with the result of the single steps. A period below 0 drives elements away until they stop so.
 * Status: 22 null in; 18 null out; 0. */
NUV64_API uint32_t RArrInversSignedModf(uint64_t n, const double* in, double* out,
                                        double period) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpInversSignedModf(uint64_t n, double* array, double period) NUV64_NOEXCEPT;

/* Unwraps a phase in radians by 2 pi in the same manner; both tests include equality: while out[i]
 * - out[i-1] >= pi, then while -pi >= out[i] - out[i-1]. in and out may be the same array.
 * Status: 22 null in; 18 null out; 0. */
NUV64_API uint32_t RArrRegularizePhase(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
