/* Dawson's integral F(x), e^(-x^2) times the integral of e^(t^2) from 0 to x (Abramowitz and Stegun
 * 7.1.17): odd, largest with 0.541 at 0.924, and 1/(2x) for large x. Defined for every real. Errors
 * are in units in the last place (ulps). */
#ifndef NUV64_NUMERIC_DAWSON_H
#define NUV64_NUMERIC_DAWSON_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* F(x). Below ___Root4EpsReal in magnitude by its series, above the inverse of that by its
 * asymptotic one, between by a continued fraction in 2x^2 with up to 100 levels (W. J. Cody, K. A.
 * Paciorek, H. C. Thacher, Math. Comp. 24, 1970). Within 12 ulps, but 75 for |x| from 1.2 to 9,
 * where the fraction's numerators and denominators cancel. */
NUV64_API double rDawson(double x) NUV64_NOEXCEPT;

/* The first derivative 1 - 2xF and the second 2((2x^2 - 1)F - x), from rDawson. They cancel for
 * large x: the errors are those of F times 2|x| and 4x^2, absolute, and for |x| above 1e154 the
 * results are not finite. */
NUV64_API double rDawsonD(double x) NUV64_NOEXCEPT;
NUV64_API double rDawsonD2(double x) NUV64_NOEXCEPT;

/* 4(x^2 - 1 + (2x^2 - 3) x F). This is not the third derivative, which is 4(x^2 - 1 - (2x^2 - 3) x
 * F): the sign of the last term is kept as it is. Not finite for |x| above 1e154. */
NUV64_API double rDawsonD3(double x) NUV64_NOEXCEPT;

/* A fast approximation of F: x P(x^2)/Q(x^2) with polynomials of degree 5 and 6. Its relative error
 * is at most 1.1e-5. Beyond |x| = 9e25 it falls to 0, and from 2e28 on it is a not-a-number. */
NUV64_API double rDawsonRa5(double x) NUV64_NOEXCEPT;

/* The Hilbert transform of e^(-x^2), 2 F(x)/sqrt(pi). Accuracy of rDawson. */
NUV64_API double rHilbertTransformOfGaussian(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
