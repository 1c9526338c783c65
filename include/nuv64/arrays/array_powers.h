/* Powers of the elements of a real array.
 *
 * All take (n, in, out, exponent); in and out may be the same array, and the RArrIp twin works in
 * place. Status: 14 for a null in, 18 for a null out, else 0, tested in this order also for n = 0;
 * the twins give 14 for a null array. Each element is what the scalar function named gives
 * (real_powers.h has their formulas, singular points and errors), bit for bit. */
#ifndef NUV64_ARRAYS_ARRAY_POWERS_H
#define NUV64_ARRAYS_ARRAY_POWERS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* rPow(x, p): the power of the magnitude. */
NUV64_API uint32_t RArrAbsPower(uint64_t n, const double* in, double* out, double p) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpAbsPower(uint64_t n, double* array, double p) NUV64_NOEXCEPT;

/* rSignedPower(x, p): the same with the sign of x. */
NUV64_API uint32_t RArrSignedPower(uint64_t n, const double* in, double* out,
                                   double p) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpSignedPower(uint64_t n, double* array, double p) NUV64_NOEXCEPT;

/* riPower(x, k), riAbsPower(x, k), riSignedPower(x, k): whole powers of x, of |x|, and of |x| with
 * the sign of x put back. ___NAN where x is 0 and k is below 0. */
NUV64_API uint32_t RArrPowerI(uint64_t n, const double* in, double* out, int32_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpPowerI(uint64_t n, double* array, int32_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrAbsPowerI(uint64_t n, const double* in, double* out,
                                 int32_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpAbsPowerI(uint64_t n, double* array, int32_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrSignedPowerI(uint64_t n, const double* in, double* out,
                                    int32_t k) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpSignedPowerI(uint64_t n, double* array, int32_t k) NUV64_NOEXCEPT;

/* RArrPowerI and RArrSignedPowerI with k = 2: x*x, and that with the sign of x. */
NUV64_API uint32_t RArrSquare(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpSquare(uint64_t n, double* array) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrSignedSquare(uint64_t n, const double* in, double* out) NUV64_NOEXCEPT;
NUV64_API uint32_t RArrIpSignedSquare(uint64_t n, double* array) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
