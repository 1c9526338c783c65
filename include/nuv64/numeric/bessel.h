/* Bessel functions. */
#ifndef NUV64_NUMERIC_BESSEL_H
#define NUV64_NUMERIC_BESSEL_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The spherical Bessel function of the first kind and order 0, sin(x)/x, 1 at 0; even. Below 0.001
 * in magnitude 1 - x^2/6 + x^4/120. Within two units in the last place. A not-a-number for an
 * infinite x. (Abramowitz and Stegun 10.1.11.) */
NUV64_API double rBessel_j0(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
