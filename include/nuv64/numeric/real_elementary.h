/* Signs, and the door to the elementary functions of reals: exponentials, logarithms, powers and
 * roots, trigonometric and hyperbolic functions, each in a header of its own. */
#ifndef NUV64_NUMERIC_REAL_ELEMENTARY_H
#define NUV64_NUMERIC_REAL_ELEMENTARY_H

#include "nuv64/core/types.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_hyperbolic.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"
#include "nuv64/numeric/real_trigonometric.h"

NUV64_BEGIN_DECLS

/* |x|, for values below 0: the sign of -0 and of a not-a-number is kept. */
NUV64_API double rAbs(double x) NUV64_NOEXCEPT;

/* (-1)^n as a real: 1 for even n, -1 for odd n. */
NUV64_API double rMin1toI(int64_t n) NUV64_NOEXCEPT;
NUV64_API double rMin1toU(uint64_t n) NUV64_NOEXCEPT;

/* x*(-1)^n: x for even n, -x for odd n. Only the sign bit changes, also of a not-a-number. */
NUV64_API double rByMin1toI(double x, int64_t n) NUV64_NOEXCEPT;
NUV64_API double rByMin1toU(double x, uint64_t n) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
