/* The special values of a double, and how a status travels inside one.
 *
 * "No result" is a not-a-number; an infinity counts as one as well, so that an infinite
 * intermediate never passes for a number. ___PlsINF, ___MnsINF and ___NAN are in
 * nuv64/core/special_reals.h. */
#ifndef NUV64_NUMERIC_REAL_SPECIAL_H
#define NUV64_NUMERIC_REAL_SPECIAL_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The error real of a status: a quiet not-a-number with the bits 0xFFFF0000 above and code below.
 * The error real of 0 is ___NAN. */
NUV64_API double rSetERR(uint32_t code) NUV64_NOEXCEPT;

/* The lower 32 bits of x where rIsNAN(x), else 0: the status of an error real. It is 0 for ___NAN
 * and for the infinities too, so a result is tested by rIsNAN first. */
NUV64_API uint32_t rGetERR(double x) NUV64_NOEXCEPT;

/* Stores ___NAN, ___PlsINF or ___MnsINF in *x and returns x; null is returned and nothing stored.
 */
NUV64_API double* rSetNAN(double* x) NUV64_NOEXCEPT;
NUV64_API double* rSetPlsINF(double* x) NUV64_NOEXCEPT;
NUV64_API double* rSetMnsINF(double* x) NUV64_NOEXCEPT;

/* Whether the exponent field of x is all ones: true for every not-a-number and for both infinities.
 */
NUV64_API bool rIsNAN(double x) NUV64_NOEXCEPT;

/* Whether x is finite: the reverse of rIsNAN. */
NUV64_API bool rIsNotNAN(double x) NUV64_NOEXCEPT;

/* Whether x is the positive or the negative infinity, by its bits. */
NUV64_API bool rIsPlsINF(double x) NUV64_NOEXCEPT;
NUV64_API bool rIsMnsINF(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
