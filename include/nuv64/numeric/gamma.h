/* The gamma function of a real argument, its logarithm, reciprocal and derivatives.
 *
 * All rest on ln Gamma for positive x; up to ___SqrtEpsReal, and so for negative x, the reflection
 * Gamma(x) Gamma(1 - x) = pi/sin(pi x) is used (Abramowitz and Stegun 6.1.17). x is reduced to its
 * distance from the nearest integer before the sine, so that integers are met exactly and a small x
 * of either sign keeps its digits. A not-a-number and minus infinity give ___NAN.
 *
 * Errors are in units in the last place (ulps), measured against 50 digits. What limits them is the
 * sum behind ln Gamma: T(x), its largest term, is 19 for x below 8.5 and x ln x above; by
 * reflection it is that of 1 - x. */
#ifndef NUV64_NUMERIC_GAMMA_H
#define NUV64_NUMERIC_GAMMA_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* ln |Gamma(x)|: the logarithm of the magnitude for negative x. ___NAN at 0, at negative integers,
 * at infinity and for |x| at or below ___MinReal/pi; an infinity from 2.56e305 on.
 *
 * From x = 8.5 on by Stirling's formula with its continued fraction (Abramowitz and Stegun 6.1.40
 * and 6.1.48, six levels); a smaller x is raised by the recurrence first. The absolute error is
 * below 2.1*2^-52*(T + |ln Gamma|), so relative digits are lost near the zeros at 1 and 2. */
NUV64_API double rGammaLn(double x) NUV64_NOEXCEPT;

/* Gamma(x) as e^rGammaLn(x). ___NAN where it overflows, above x = 171.62; an infinity at 0 and at
 * the negative integers down to -170. Below -170.6 the magnitude is under the range of the
 * reflection and the result is ___NAN too. Within 2.9*(1 + T) ulps: 58 for x from 0 to 8.5, 2000 at
 * most. */
NUV64_API double rGamma(double x) NUV64_NOEXCEPT;

/* 1/Gamma(x), an entire function: 0 at 0, at the negative integers, and above x = 171.62. For
 * negative x beyond the range the result is an infinity of the right sign. Accuracy of rGamma. */
NUV64_API double r1DivGamma(double x) NUV64_NOEXCEPT;

/* Gamma(x) - 1/x, regular at 0, where it is minus Euler's constant. Below ___Root4EpsReal in
 * magnitude by six Taylor terms about 0, within one ulp; beyond as the difference, whose error is
 * that of rGamma and so up to 1e6 ulps just above. */
NUV64_API double rGammaT1(double x) NUV64_NOEXCEPT;

/* ln Gamma(1 + x)/x, regular at 0, where it is minus Euler's constant. Below ___Root4EpsReal in
 * magnitude by six Taylor terms about 0 (Abramowitz and Stegun 6.1.33), within one ulp; beyond as
 * the quotient, up to 3e5 ulps just above. */
NUV64_API double rGammaLnT1(double x) NUV64_NOEXCEPT;

/* 1/(x Gamma(x - n)), regular at x = 0 for n from 0 on; for n below 0 it has a pole there, which
 * gives an infinity. By 1/Gamma for n up to 0, by steps down to n = 10 and by reflection above:
 * there it is (-1)^n Gamma(n + 1 - x)/(Gamma(1 - x) Gamma(1 + x)), ___NAN where a gamma overflows.
 * Within 3*(1 + T(x - n)) ulps. */
NUV64_API double r1DivGammaT1(double x, int64_t n) NUV64_NOEXCEPT;

/* The first and second derivative of Gamma: psi(x) Gamma(x) and (psi'(x) + psi(x)^2) Gamma(x)
 * (Abramowitz and Stegun 6.3.1, 6.4.1). Not-a-numbers where rGamma is, infinities or not-a-numbers
 * at its poles. Accuracy of rGamma for x above 0.1, but for the first one around its zero at
 * 1.4616; below, that of the digamma functions enters. */
NUV64_API double rGammaD(double x) NUV64_NOEXCEPT;
NUV64_API double rGammaD2(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
