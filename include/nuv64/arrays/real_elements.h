/* Element-wise operations on real arrays.
 *
 * The one-array forms take (n, in, out, extra); in and out may be the same array. Their status is
 * 14 for a null in, 18 for a null out, else 0, tested in this order also for n = 0. The RArrIp twin
 * works in place and gives 14 for a null array.
 *
 * The two-array forms take whole arrays of n elements each, any of which may be the same array.
 * Their statuses stand with each. Every element is computed by exactly the written operations, in
 * the written order, each rounded once. */
#ifndef NUV64_ARRAYS_REAL_ELEMENTS_H
#define NUV64_ARRAYS_REAL_ELEMENTS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Absolute value: only values below 0.0 are negated, so that -0.0 stays as it is. */
NUV64_API uint32_t RArrAbs(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpAbs(uint64_t n, double* array) NUV64_NOEXCEPT;

/* Negation by a flip of the sign bit, also of zeros and not-a-numbers. */
NUV64_API uint32_t RArrInvertSign(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpInvertSign(uint64_t n, double* array) NUV64_NOEXCEPT;

/* x + c. */
NUV64_API uint32_t RArrAddConst(uint64_t n, const double* in, double* out, double c) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpAddConst(uint64_t n, double* array, double c) NUV64_NOEXCEPT;

/* x * c. */
NUV64_API uint32_t RArrMulConst(uint64_t n, const double* in, double* out, double c) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpMulConst(uint64_t n, double* array, double c) NUV64_NOEXCEPT;

/* x plus a random number from the normal distribution about 0 with standard deviation sigma: x +
 * (0 + sigma*pRgNormal0()), one number drawn for each element whatever sigma is. The generator is
 * shared by the process: see random.h. */
NUV64_API uint32_t RArrAddNoise(uint64_t n, const double* in, double* out,
                                double sigma) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpAddNoise(uint64_t n, double* array, double sigma) NUV64_NOEXCEPT;

/* Clips at a level L, or takes what the level leaves over:
 *
 *   mode 0   L where x > L, else x              1   0 where x > L, else x - L
 *        2   L where L > x, else x              3   0 where L > x, else x - L
 *        4   -L where -L > x, else L where x > L, else x
 *        5   for x >= 0: x - L where x > L, else 0; else: x + L where -L > x, else 0
 *
 * Modes 1 and 3 drop what their names in 0 and 2 would clip, and shift the rest by the level; mode
 * 5 is the soft threshold. Any other mode writes nothing and is no error. A not-a-number stays one,
 * but in mode 5, where it gives 0.
 * Status: 0 for n = 0 whatever the pointers; 14 null in; 18 null out; 0. */
NUV64_API uint32_t RArrClip(uint64_t mode, uint64_t n, const double* in, double* out,
                            double level) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpClip(uint64_t mode, uint64_t n, double* array,
                              double level) NUV64_NOEXCEPT;

/* out = a + b, a - b, a * b.
 * Status: 0 for n = 0 whatever the pointers; 14 null a or b; 18 null out; 0. */
NUV64_API uint32_t RArrAdd(uint64_t n, const double* a, const double* b,
                           double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrSub(uint64_t n, const double* a, const double* b,
                           double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrMul(uint64_t n, const double* a, const double* b,
                           double* out) NUV64_NOEXCEPT;

/* out = a / b. Where b is 0.0 (either sign) the element becomes ___NAN and the call still succeeds.
 * Status as RArrAdd. */
NUV64_API uint32_t RArrDiv(uint64_t n, const double* a, const double* b,
                           double* out) NUV64_NOEXCEPT;

/* b += k * a, and b -= k * a; with k exactly 1.0 nothing is multiplied.
 * Status: 0 for n = 0 whatever the pointers; 14 null a; 18 null b; 0. */
NUV64_API uint32_t RArrAdd2(uint64_t n, const double* a, double* b, double k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrSub2(uint64_t n, const double* a, double* b, double k) NUV64_NOEXCEPT;

/* b = b * a, through RArrMul: a null array is status 14. */
NUV64_API uint32_t RArrMul2(uint64_t n, const double* a, double* b) NUV64_NOEXCEPT;

/* b = b / a, through RArrDiv: ___NAN where a is 0.0; a null array is status 14. */
NUV64_API uint32_t RArrDiv2(uint64_t n, const double* a, double* b) NUV64_NOEXCEPT;

/* out = alpha * a + beta * b. Status as RArrAdd. */
NUV64_API uint32_t RArrLinCombi(uint64_t n, const double* a, double alpha, const double* b,
                                double beta, double* out) NUV64_NOEXCEPT;

/* Exchanges the elements of a and b.
 * Status: 14 for a null array, also with n = 0; 0, with nothing done for equal pointers. */
NUV64_API uint32_t RArrSwap(uint64_t n, double* a, double* b) NUV64_NOEXCEPT;

/* Rotates the pairs (x, y) in their plane: x' = c*x + s*y, y' = c*y - s*x.
 * No argument is tested; null arrays are allowed with n = 0 only. The result is always 0. */
NUV64_API uint32_t RArrPlaneRotation(uint64_t n, double* x, double* y, double c,
                                     double s) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
