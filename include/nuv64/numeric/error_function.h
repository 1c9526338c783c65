/* The error function and what is derived from it. In the names, D and D2 are the first and second
 * derivative, A an antiderivative. All are defined for every real; where e^(x^2) overflows, for |x|
 * above 26.64, a result made with it is ___NAN. For an infinite x a result is its limit where the
 * formula has one in IEEE arithmetic, and a not-a-number where it makes 0 times infinity.
 *
 * Errors are in units in the last place (ulps). e^(x^2) and e^(-x^2) carry the rounding of x^2 and
 * so an error of up to x^2 ulps. */
#ifndef NUV64_NUMERIC_ERROR_FUNCTION_H
#define NUV64_NUMERIC_ERROR_FUNCTION_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* erf(x) and erfc(x) = 1 - erf(x) (Abramowitz and Stegun 7.1.1, 7.1.2), the C runtime's: within one
 * ulp and, for erfc, 2.5 on Linux. */
NUV64_API double rErf(double x) NUV64_NOEXCEPT;
NUV64_API double rErfc(double x) NUV64_NOEXCEPT;

/* Fast forms by Abramowitz and Stegun 7.1.26. The absolute error is below 1.5e-7, so erf has few
 * digits near 0, where it gives 1e-9 instead of 0, and erfc loses its digits for large x. The
 * largest absolute error measured is 1.4e-7. */
NUV64_API double rErfFast(double x) NUV64_NOEXCEPT;
NUV64_API double rErfcFast(double x) NUV64_NOEXCEPT;

/* The inverse of erf, for |x| below 1; ___NAN else. By the two single-precision polynomials of M.
 * Giles, Approximating the erfinv function (GPU Computing Gems, Jade Edition, 2012), one for the
 * middle and one, in the root of -ln(1 - x^2), from there on. Both names are one routine: there is
 * no better one. The relative error is below 1.3e-7 for |x| up to 1 - 1e-7, and then grows: to 7%
 * at 1 - 2^-53. */
NUV64_API double rErfInvFast(double x) NUV64_NOEXCEPT;
NUV64_API double rErfInv(double x) NUV64_NOEXCEPT;

/* e^(-x^2)/sqrt(pi) + x erf(x), and -e^(-x^2)/sqrt(pi) + x erfc(x): antiderivatives of erf and
 * erfc. The second cancels for positive x: its error is a few ulps of x erfc(x). The first is
 * within 2.5 ulps. */
NUV64_API double rErfA(double x) NUV64_NOEXCEPT;
NUV64_API double rErfcA(double x) NUV64_NOEXCEPT;

/* The first and second derivatives: 2 e^(-x^2)/sqrt(pi) and -4 x e^(-x^2)/sqrt(pi) for erf, their
 * negatives for erfc. 0 for |x| above 26.64; beyond 1e308 the second derivatives are not-a-numbers.
 * Within 2 + x^2 ulps. */
NUV64_API double rErfD(double x) NUV64_NOEXCEPT;
NUV64_API double rErfD2(double x) NUV64_NOEXCEPT;
NUV64_API double rErfcD(double x) NUV64_NOEXCEPT;
NUV64_API double rErfcD2(double x) NUV64_NOEXCEPT;

/* erfi(x) = -i erf(ix), made as 2 F(x) e^(x^2)/sqrt(pi) with Dawson's integral F, and its first and
 * second derivative. Within 100 + x^2 ulps, the derivatives within 2 + x^2. */
NUV64_API double rErfi(double x) NUV64_NOEXCEPT;
NUV64_API double rErfiD(double x) NUV64_NOEXCEPT;
NUV64_API double rErfiD2(double x) NUV64_NOEXCEPT;

/* w(ix) = e^(x^2) erfc(x), the Faddeeva function on the imaginary axis (Abramowitz and Stegun
 * 7.1.3), and its derivative 2 x w(ix) - 2/sqrt(pi), which cancels for large x. ___NAN for |x|
 * above 26.64. Within 5 + x^2 ulps. */
NUV64_API double rFaddeevaIw(double x) NUV64_NOEXCEPT;
NUV64_API double rFaddeevaIwD(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
