/* Fits with a closed form: the straight line, linear combinations of basis functions, and a
 * quotient of two such combinations.
 *
 * Arrays belong to the caller. Points are used as they are, except by LinearRegression: a
 * not-a-number among them makes a fit singular (26) or its results not-a-numbers. The fits on a
 * basis solve normal equations by RMatInvert, so that the relative error of the coefficients grows
 * with the square of the condition of the basis: a basis that is nearly dependent on the points
 * loses all digits at a condition of 1e8 and is then mostly reported as singular. */
#ifndef NUV64_FITS_LINEAR_FITS_H
#define NUV64_FITS_LINEAR_FITS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The line y = slope*x + intercept with the smallest sum of squared residuals. Points in which
 * rIsNAN holds for x or y are left out; m is the number of the others. With plain sums,
 * slope = (m*Sxy - Sx*Sy)/(m*Sxx - Sx^2), intercept = (Sy - slope*Sx)/m, and
 * *sigma = sqrt((sum of squared residuals)/(m - 1)); sigma may be null.
 * With all x equal, with one point or none, the divisions by zero give non-finite results, which
 * are returned with status 0. x far from 0 loses digits, about 2*log10(|mean|/spread) of them.
 * Status: 22 null x or y, or n = 0; 21 null slope or intercept; 0. */
NUV64_API uint32_t LinearRegression(const double* x, const double* y, uint64_t n, double* slope,
                                    double* intercept, double* sigma) NUV64_NOEXCEPT;

/* Coefficients of y = sum over k below terms of coefs[k]*basis(x, k), minimising the sum of
 * weights[i] times the squared residual. The weight counts once.
 * Status: 14 null x, y or weights, n = 0 or terms = 0; 18 null coefs; 20 null basis; 26 dependent
 * basis, coefs then without meaning; 0x80001; 0. */
NUV64_API uint32_t MultiLinearFit(uint64_t terms, double* coefs, uint64_t n, const double* x,
                                  const double* y, const double* weights,
                                  double (*basis)(double x, uint64_t k)) NUV64_NOEXCEPT;

/* MultiLinearFit on the Chebyshev polynomials of the first kind, rChebyshevT. x is taken as it is:
 * the polynomials are a good basis where it runs over [-1, 1]. */
NUV64_API uint32_t MultiLinearFitChebyshev(uint64_t terms, double* coefs, uint64_t n,
                                           const double* x, const double* y,
                                           const double* weights) NUV64_NOEXCEPT;

/* Coefficients for the model y = (sum for k = 0 to p-1 of a[k]*f(x, k))/(1 + sum for k = 1 to q-1
 * of b[k]*f(x, k)), p = numeratorTerms, q = denominatorTerms, f = basis. It is made linear by
 * multiplying the denominator out; coefs receives the p numbers of the numerator, then the q - 1 of
 * the denominator, as the solution of the system of N = p + q - 1 rows that sums over the points
 *   row r < p:   w f_r f_c for the columns c < p, w y f_r f_(c-p+1) for the others; right side
 *                w y f_r
 *   row r >= p:  -w y f_(r-p+1) f_c for the columns c < p, -w y^2 f_(r-p+1) f_(c-p+1) for the
 *                others; right side w y^2 f_(r-p+1)
 * These signs are fixed. They are not those of the least-squares problem, whose right side in the
 * lower rows has a minus: for q above 1 the numbers don't minimise the residuals, and a curve that
 * is exactly such a quotient isn't given back. For q = 1 this is MultiLinearFit.
 * Status: as MultiLinearFit, 14 when p + q is below 2. */
NUV64_API uint32_t RationalFit(uint64_t numeratorTerms, uint64_t denominatorTerms, double* coefs,
                               uint64_t n, const double* x, const double* y, const double* weights,
                               double (*basis)(double x, uint64_t k)) NUV64_NOEXCEPT;

/* What one residual adds to a fit's score. d = |observed - model|, and a d of 0 stays 0. With
 * 0x100 in flags d is divided by |observed|, or by half of |model| where observed is 0. The low
 * byte of flags then chooses: 1 and 5 d, 2 sqrt(d), 3 d^3, 4 d^4, all others d^2. Fits add these
 * up, except that they keep the largest where flags & 5 is not 0. */
NUV64_API double ResidualNorm(double observed, double model, uint32_t flags) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
