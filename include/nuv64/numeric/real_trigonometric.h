/* Trigonometric functions, their inverses, and conversions between them. Angles are in radians.
 *
 * The suffixes: A an antiderivative, D the derivative, T1 to T3 the function less its first Taylor
 * terms, divided by the power that is left: finite and accurate near zero. Where nothing else is
 * said a function is that of the C runtime, within one unit in the last place (ulp), and an
 * infinite angle gives a not-a-number. Out of its domain a function gives ___NAN where that is
 * said. */
#ifndef NUV64_NUMERIC_REAL_TRIGONOMETRIC_H
#define NUV64_NUMERIC_REAL_TRIGONOMETRIC_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Sine, cosine and tangent. The runtime of Windows reduces sine and cosine by a pi of 66 bits, so
 * that near their zeros the error there is absolute, about |x|*2^-66. */
NUV64_API double rSin(double x) NUV64_NOEXCEPT;
NUV64_API double rCos(double x) NUV64_NOEXCEPT;
NUV64_API double rTan(double x) NUV64_NOEXCEPT;

/* 1/cos(x), within two ulps. */
NUV64_API double rSec(double x) NUV64_NOEXCEPT;

/* The derivative of the tangent, 1 + tan(x)^2, within three ulps. */
NUV64_API double rTanD(double x) NUV64_NOEXCEPT;

/* The antiderivative of the tangent that is 0 at 0, -ln|cos(x)|. Its absolute error is about 2^-53:
 * for small x, where it is x^2/2, few digits or none are good. */
NUV64_API double rTanA(double x) NUV64_NOEXCEPT;

/* tan(x)/x, 1 at 0, and (tan(x) - x)/x^3, 1/3 at 0; both even. ___NAN for magnitudes from pi/2 on.
 * Taylor polynomials of three terms below 0.001. Above, rTanT1 is the quotient, within two ulps;
 * rTanT3 is made from Lambert's continued fraction of the tangent (Abramowitz and Stegun 4.3.94) up
 * to 0.75, where the difference would cancel, and then from the difference; within 4 ulps. */
NUV64_API double rTanT1(double x) NUV64_NOEXCEPT;
NUV64_API double rTanT3(double x) NUV64_NOEXCEPT;

/* (1 - cos(x))/x^2, 1/2 at 0, and (1 - cos(x))/x, 0 at 0: rCosT2, and x times it. A Taylor
 * polynomial of three terms below 0.001 in magnitude, else 2 (sin(x/2)/x)^2, which doesn't cancel;
 * within three ulps. */
NUV64_API double rCosT2(double x) NUV64_NOEXCEPT;
NUV64_API double rCosT1(double x) NUV64_NOEXCEPT;

/* sin(x)/x, 1 at 0: rBessel_j0(x). */
NUV64_API double rSinc(double x) NUV64_NOEXCEPT;

/* sin(pi*x)/(pi*x): rSinc of the rounded product, so that its zeros at whole x are those to about
 * 2^-53. */
NUV64_API double rSincNormalized(double x) NUV64_NOEXCEPT;

/* The Hilbert transform of rSinc, (cos(x) - 1)/x: -rCosT1(x). */
NUV64_API double rHsinc(double x) NUV64_NOEXCEPT;

/* The arc sine in [-pi/2, pi/2]; a not-a-number for magnitudes above 1. */
NUV64_API double rAsin(double x) NUV64_NOEXCEPT;

/* The arc cosine in [0, pi], that of a negative x as pi less that of its magnitude; ___NAN for
 * magnitudes above 1. */
NUV64_API double rAcos(double x) NUV64_NOEXCEPT;

/* The arc tangent, in [-pi/2, pi/2], and its derivative 1/(1 + x^2), within two ulps. */
NUV64_API double rAtan(double x) NUV64_NOEXCEPT;
NUV64_API double rAtanD(double x) NUV64_NOEXCEPT;

/* The angle whose cosine, or sine, is x/r: of a leg x and a hypotenuse r. The sign of r counts as
 * one of x. r = 0 gives ___NAN. A magnitude of x above r gives the angle 0 before the sign of x is
 * heeded: so the cosine form gives 0 or pi, as if x were r, and the sine form 0. */
NUV64_API double rAcosXR(double x, double r) NUV64_NOEXCEPT;
NUV64_API double rAsinXR(double x, double r) NUV64_NOEXCEPT;

/* The angle of the point (x, y) by its cosine x/r, in [0, pi], and by its sine y/r, in [-pi/2,
 * pi/2], with r = rHypot(x, y). ___NAN for x = y = 0. Where the cosine (sine) is near 1 the angle
 * is good to 1e-8 only; rAzimuth is good everywhere. */
NUV64_API double rAcosXY(double x, double y) NUV64_NOEXCEPT;
NUV64_API double rAsinXY(double x, double y) NUV64_NOEXCEPT;

/* The angle of the line through (x, y), in [-pi/2, pi/2]: the arc tangent of y/x, within two ulps.
 * 0 when y is lost against x in a sum, so also for x = y = 0; plus or minus pi/2 when x is lost
 * against y. A not-a-number gives 0. */
NUV64_API double rAtanXY(double x, double y) NUV64_NOEXCEPT;

/* The same from the other axis, the arc tangent of x/y: rAtanXY(y, x). */
NUV64_API double rAcotanXY(double x, double y) NUV64_NOEXCEPT;

/* The angle of the point (x, y) from the x axis, in [-pi, pi]; pi for y = 0 (of either sign) and x
 * below 0, 0 for x = y = 0. Within two ulps. A not-a-number gives 0, but pi as y with x below 0. */
NUV64_API double rAzimuth(double x, double y) NUV64_NOEXCEPT;

/* The cosine of an angle in [-pi/2, pi/2] from its sine, and the sine of an angle in [0, pi] from
 * its cosine: sqrt(1 + x)*sqrt(1 - x), one routine. ___NAN for magnitudes above 1. Within three
 * ulps. */
NUV64_API double rCosFromSin(double x) NUV64_NOEXCEPT;
NUV64_API double rSinFromCos(double x) NUV64_NOEXCEPT;

/* Sine and cosine of an angle in (-pi/2, pi/2) from its tangent: the one named first is the result,
 * the other goes to *other (may be null). Within three ulps. An infinite tangent gives the cosine 0
 * and a not-a-number for the sine. */
NUV64_API double rSinCosFromTan(double t, double* other) NUV64_NOEXCEPT;
NUV64_API double rCosSinFromTan(double t, double* other) NUV64_NOEXCEPT;

/* tan(2x) from t = tan(x), 2t/(1 - t^2), ___NAN for magnitudes of t from 1 on; and tan(x) for x in
 * [-pi/4, pi/4] from t = tan(2x), t/(1 + sqrt(1 + t^2)). Within three ulps. */
NUV64_API double rTan2XFromTanX(double t) NUV64_NOEXCEPT;
NUV64_API double rTanXFromTan2X(double t) NUV64_NOEXCEPT;

/* cos(n x) and sin(n x)/sin(x) from c = cos(x): the Chebyshev polynomials T_n(c) and U_(n-1)(c), 1
 * and 0 for n = 0. ___NAN for magnitudes of c above 1. Errors: rChebyshevT and rChebyshevU. */
NUV64_API double rCosNFromCos(double c, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double rSinNDivSinFromCos(double c, uint64_t n) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
