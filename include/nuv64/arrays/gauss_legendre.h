/* Nodes and weights of Gauss-Legendre quadrature. */
#ifndef NUV64_ARRAYS_GAUSS_LEGENDRE_H
#define NUV64_ARRAYS_GAUSS_LEGENDRE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The n nodes x, ascending from a to b, and the weights w for which the sum of w[i]*f(x[i]) is the
 * integral of f from a to b, exactly for polynomials up to degree 2n - 1. Nodes by Newton's method
 * from cos(pi*(i + 0.75)/(n + 0.5)), until a step changes nothing or no longer grows smaller.
 * Nodes are good to a few units in 2^-53 of the interval's half width, weights to about 10*n of
 * them, those at the ends the least. The time goes as n squared. Status: 18 null x or w; 0, also
 * for n = 0. Source: Abramowitz and Stegun 25.4.29, 22.7.10. */
NUV64_API uint32_t RArrGaussLegendrePoints(double a, double b, uint64_t n, double* x,
                                           double* w) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
