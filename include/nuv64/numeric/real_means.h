/* Means of two numbers. */
#ifndef NUV64_NUMERIC_REAL_MEANS_H
#define NUV64_NUMERIC_REAL_MEANS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The arithmetic mean, 0.5*(a + b); the sum may overflow to an infinity. */
NUV64_API double rMeanA(double a, double b) NUV64_NOEXCEPT;

/* The geometric mean, sqrt(a*b); ___NAN when a*b is negative. The product may overflow, or
 * underflow to zero. */
NUV64_API double rMeanG(double a, double b) NUV64_NOEXCEPT;

/* The arithmetic-geometric mean: a and b become their arithmetic and geometric means until they
 * agree within ___5EpsReal of the larger. 0 when either is 0, ___NAN when either is negative. About
 * four last places; a*b must not overflow. (Abramowitz and Stegun 17.6.) */
NUV64_API double rMeanAGM(double a, double b) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
