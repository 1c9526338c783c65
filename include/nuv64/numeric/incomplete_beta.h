/* The incomplete beta functions, for x in [0, 1] and a and b above 0.
 *
 * By the continued fraction of Abramowitz and Stegun 26.5.8 with the modified method of Lentz, to a
 * relative tolerance of ___5EpsReal; where x (a + b + 2) is a + 1 or more the fraction is that of 1
 * - x with a and b exchanged. Outside the domain and when 10000 rounds don't settle the result is
 * ___NAN. x below ___5EpsReal counts as 0, x within ___5EpsReal of 1 as 1. The factor x^a (1 - x)^b
 * is made by logarithms: its relative error in units in the last place (ulps) is about the sum of
 * its logarithms' magnitudes. */
#ifndef NUV64_NUMERIC_INCOMPLETE_BETA_H
#define NUV64_NUMERIC_INCOMPLETE_BETA_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The integral of t^(a-1) (1 - t)^(b-1) from 0 to x while x (a + b + 2) is below a + 1; B(a, b) for
 * x = 1. For the x between, the result is 1 less the integral from x to 1: the rule of the
 * regularised form, which isn't the complement here, is used as it stands. Take rBetaIncReg(x, a,
 * b)*rBeta(a, b) where the integral itself is wanted. */
NUV64_API double rBetaInc(double x, double a, double b) NUV64_NOEXCEPT;

/* I_x(a, b), the regularised function: the integral over its value for x = 1. From x (a + b + 2) =
 * a + 1 on it is 1 less the reflected one. Within 3.2 times the error of the factor: 200 ulps for a
 * and b of some tens, more where the difference cancels. */
NUV64_API double rBetaIncReg(double x, double a, double b) NUV64_NOEXCEPT;

/* rBetaIncReg(x2, a, b) - rBetaIncReg(x1, a, b), and that times rBeta(a, b): the integral from x1
 * to x2. Of nearby ends the digits that agree are lost. */
NUV64_API double rBetaIncReg2(double x1, double x2, double a, double b) NUV64_NOEXCEPT;
NUV64_API double rBetaInc2(double x1, double x2, double a, double b) NUV64_NOEXCEPT;

/* The x at which I_x(a, b) is p, for p from 0 to 1: the quantile of the beta distribution. 0 for p
 * up to ___EpsReal, 1 for p within ___5EpsReal of 1.
 *
 * First a guess (for a and b from 1 on Abramowitz and Stegun 26.2.22 and 26.5.22), then up to 10
 * steps of Halley's method until one is below ___EpsReal x. The result carries the error of I_x
 * over its slope. Quantiles below ___5EpsReal, where I_x counts as 0, are right in being next to
 * nothing alone. Where p or 1 - p is below 3e-7 the steps may run out on the way from a guess far
 * off, most for one order a little above 1 and the other large. */
NUV64_API double rBetaIncRegInv(double p, double a, double b) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
