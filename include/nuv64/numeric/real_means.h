/* Means of two numbers, and sums over the arguments of a call.
 *
 * Powers and squares on the way are taken as they stand: they may overflow to an infinity or
 * underflow to 0 for magnitudes beyond ___SqrtMaxReal or below ___SqrtMinReal; those of rPow
 * saturate at ___MaxReal and ___MinReal, and the sum of two such may overflow. A not-a-number gives
 * a not-a-number unless said otherwise. Errors in units of 2^-52 of the result, measured over eight
 * decades of arguments. */
#ifndef NUV64_NUMERIC_REAL_MEANS_H
#define NUV64_NUMERIC_REAL_MEANS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The arithmetic mean, 0.5*(a + b); the sum may overflow to an infinity. Error below 0.5. */
NUV64_API double rMeanA(double a, double b) NUV64_NOEXCEPT;

/* The geometric mean, sqrt(a*b); ___NAN when a*b is negative, so the mean of two negatives is
 * positive. Error below 1. */
NUV64_API double rMeanG(double a, double b) NUV64_NOEXCEPT;

/* The harmonic mean, a*b divided by the arithmetic mean. 0 when either is 0. Where the arithmetic
 * mean is below ___MinReal in magnitude: 0 for two of one sign, ___NAN for opposite signs. Error
 * below 2 for one sign; opposite signs lose what their sum loses. */
NUV64_API double rMeanH(double a, double b) NUV64_NOEXCEPT;

/* The harmonic mean of the squares: sqrt(a^2 b^2/(0.5*(a^2 + b^2))), never negative. 0 when either
 * is 0 or the mean square is below ___MinReal. Error below 2. */
NUV64_API double rMeanH2(double a, double b) NUV64_NOEXCEPT;

/* The root of the mean square, sqrt(0.5*(a^2 + b^2)). Error below 2. */
NUV64_API double rMeanRms(double a, double b) NUV64_NOEXCEPT;

/* Heron's mean, (2*rMeanA + rMeanG)/3 = (a + sqrt(a b) + b)/3: the mean cross-section of a
 * frustum. ___NAN for opposite signs. Error below 2. */
NUV64_API double rMeanHero(double a, double b) NUV64_NOEXCEPT;

/* The family that Heron's mean belongs to: ___NAN for k = 0, rMeanA for 1, rMeanHero for 2. From
 * k = 3 on it is (a + b + sum over i from 1 to k-1 of (a^i a^(k-i))^(1/k))/(k + 1): the inner terms
 * are of a alone, so the result lies nearer to |a| than the symmetric mean does, and
 * rMeanHeroK(1, 4, 3) is (5 + 1 + 1)/4. Results in use depend on it. The powers run up to |a|^k:
 * where that leaves the range of doubles the terms saturate. k - 1 powers are computed. */
NUV64_API double rMeanHeroK(double a, double b, uint64_t k) NUV64_NOEXCEPT;

/* The power mean (Hoelder): (0.5*(|a|^p + |b|^p))^(1/p) with rPow, so of the magnitudes; rMeanG for
 * p = 0. The error grows with |p ln a| and 1/|p|. (Hardy, Littlewood, Polya, Inequalities, 2.2.) */
NUV64_API double rMeanHoelder(double a, double b, double p) NUV64_NOEXCEPT;

/* The power mean of whole order: rMeanH2, rMeanH, rMeanG, rMeanA, rMeanRms for k from -2 to 2, else
 * rPow(0.5*(a^k + b^k), 1/k) with signed powers. ___NAN when a power for k below -2 is that of 0
 * (riPower). */
NUV64_API double rMeanHoelderI(double a, double b, int64_t k) NUV64_NOEXCEPT;

/* The Lehmer mean: (|a|^p + |b|^p)/(|a|^(p-1) + |b|^(p-1)) with rPow; rMeanH for p = 0. p = 0.5 is
 * the geometric, p = 1 the arithmetic mean of positive numbers. (Bullen, Handbook of Means, ch.
 * III.2.6.) */
NUV64_API double rMeanLehmer(double a, double b, double p) NUV64_NOEXCEPT;

/* The same for whole orders, with signed powers; rMeanH for k = 0, rMeanA for k = 1. */
NUV64_API double rMeanLehmerI(double a, double b, int64_t k) NUV64_NOEXCEPT;

/* The arithmetic-geometric mean: a and b become their arithmetic and geometric means until they
 * agree within ___5EpsReal of the larger. 0 when either is 0, ___NAN when either is negative. About
 * four last places; a*b must not overflow. (Abramowitz and Stegun 17.6.) */
NUV64_API double rMeanAGM(double a, double b) NUV64_NOEXCEPT;

/* The modified arithmetic-geometric mean N(a, b): with z = 0 at first and a the larger, (a, b, z)
 * becomes (0.5*(a + b), z + r, z - r) with r = sqrt((a - z)*(b - z)), until a and b agree as above.
 * With it the complete elliptic integral of the second kind is
 * E(m) = pi/2 * N(1, 1 - m)/rMeanAGM(1, sqrt(1 - m)). 0 when either is 0, ___NAN when either is
 * negative. z falls to a multiple of -a that grows with each round, and b is what is left of it:
 * the error is about 25 last places. (S. Adlaj, Notices of the AMS 59 (2012) 1094.) */
NUV64_API double rMeanMAGM(double a, double b) NUV64_NOEXCEPT;

/* Sums over the n reals of the call, the first one named. Each must be passed as a double. */

/* Their sum. The first is taken whatever n is: n = 0 gives it as n = 1 does. */
NUV64_API double rVaSum(uint64_t n, double first, ...) NUV64_NOEXCEPT;

/* Their product, the sum of their squares; 1 and 0 for n = 0. */
NUV64_API double rVaProduct(uint64_t n, double first, ...) NUV64_NOEXCEPT;
NUV64_API double rVaSumSquares(uint64_t n, double first, ...) NUV64_NOEXCEPT;

/* 1/(sum of 1/x), as resistors in parallel; 0 when one of them is 0. An infinity for n = 0. */
NUV64_API double rVaSumInv(uint64_t n, double first, ...) NUV64_NOEXCEPT;

/* The sum of ln|x| (rLog); ___NAN when one of them is 0. 0 for n = 0. */
NUV64_API double rVaSumLnAbs(uint64_t n, double first, ...) NUV64_NOEXCEPT;

/* The arithmetic mean rVaSum/n, the harmonic mean rVaSumInv*n, and sqrt(rVaSumSquares/n). n = 0
 * divides by 0. */
NUV64_API double rVaMeanA(uint32_t n, double first, ...) NUV64_NOEXCEPT;
NUV64_API double rVaMeanH(uint32_t n, double first, ...) NUV64_NOEXCEPT;
NUV64_API double rVaMeanRms(uint32_t n, double first, ...) NUV64_NOEXCEPT;

/* The sum and the product of function(x); 0 and 1 for n = 0. A null function gives ___NAN. */
NUV64_API double rVaSumFunc(uint64_t n, double (*function)(double), double first,
                            ...) NUV64_NOEXCEPT;
NUV64_API double rVaProductFunc(uint64_t n, double (*function)(double), double first,
                                ...) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
