/* Interpolation of one value between samples.
 *
 * Tables of n samples come in two layouts: XYarr is one array of pairs x0, y0, x1, y1, ...;
 * XarrYarr is two arrays. The x must ascend strictly; where they don't, the result is without
 * meaning, yet nothing outside the table is read. A null table and n = 0 give ___NAN, unless said
 * otherwise. Not-a-numbers go through to the result. */
#ifndef NUV64_ARRAYS_INTERPOLATION_H
#define NUV64_ARRAYS_INTERPOLATION_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The line through two points, y1 + (y2-y1)*(x-x1)/(x2-x1), also outside of them. */
NUV64_API double rIntExt2L(double x, double x1, double x2, double y1, double y2) NUV64_NOEXCEPT;

/* The parabola through three points. With the slopes k of the upper and l of the lower interval,
 * c = (k-l)/(x3-x1); the slope at x2 comes from the longer of the two intervals, which is better
 * conditioned, k - c*(x3-x2) or l + c*(x2-x1); the value is y2 + (x-x2)*(slope + c*(x-x2)).
 * Source: Abramowitz and Stegun 25.2.28 (divided differences). */
NUV64_API double rIntExt3Q(double x, double x1, double x2, double x3, double y1, double y2,
                           double y3) NUV64_NOEXCEPT;

/* The vertex of the parabola through three points: *xe and *ye (either may be null) are its place
 * and value, the result is the second derivative (below 0 at a maximum). Points on a line give a
 * second derivative of 0 and a vertex at infinity or not a number. */
NUV64_API double rIntExt3QExtreme(double x1, double x2, double x3, double y1, double y2, double y3,
                                  double* xe, double* ye) NUV64_NOEXCEPT;

/* One interval of a quadratic spline: the parabola from (x1, y1) with the slope *slope there to
 * (x2, y2), taken at x. *slope becomes the slope at x2, with which the next interval begins. ___NAN
 * for a null slope. */
NUV64_API double rSplineQ2(double x, double x1, double x2, double y1, double y2,
                           double* slope) NUV64_NOEXCEPT;

/* The line between the two samples around x. At and below the first sample its y, at and above the
 * last its y: nothing is extrapolated. */
NUV64_API double RArrIntExt2LXYarr(double x, const double* table, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double RArrIntExt2LXarrYarr(double x, const double* xTable, const double* yTable,
                                      uint64_t n) NUV64_NOEXCEPT;

/* The parabola through the sample nearest to x (the upper one of two as near) and its neighbours on
 * both sides; the first and the last sample don't serve as the middle. The ends as above. Two
 * samples give the line. */
NUV64_API double RArrIntExt3QXYarr(double x, const double* table, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double RArrIntExt3QXarrYarr(double x, const double* xTable, const double* yTable,
                                      uint64_t n) NUV64_NOEXCEPT;

/* Lagrange's polynomial through all samples: the sum of y_i * product(x-x_j) / product(x_i-x_j).
 * Extrapolates. ___NAN when a denominator is zero. A null table or n below 2 gives 0.0 in the XYarr
 * form, ___NAN in the other. Source: Abramowitz and Stegun 25.2.2. */
NUV64_API double RArrIntExtLagrangeXYarr(double x, const double* table, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double RArrIntExtLagrangeXarrYarr(double x, const double* xTable, const double* yTable,
                                            uint64_t n) NUV64_NOEXCEPT;

/* Newton's polynomial through all samples, by divided differences; extrapolates. work holds n reals
 * and is overwritten; for derivatives = 1 it ends as the value and the derivatives of orders 1 to
 * n - 1 at x. ___NAN for any null array or n below 2.
 * The XYarr form divides every difference by the spacing of the two nodes x[i], x[i+1] at its
 * lower end. That is the interpolating polynomial for n = 2 only; results of the form depend on it.
 * Source: Abramowitz and Stegun 25.2.26; derivatives by repeated synthetic division. */
NUV64_API double RArrIntExtNewtonXYarr(double x, const double* table, uint64_t n, double* work,
                                       uint64_t derivatives) NUV64_NOEXCEPT;
NUV64_API double RArrIntExtNewtonXarrYarr(double x, const double* xTable, const double* yTable,
                                          uint64_t n, double* work,
                                          uint64_t derivatives) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
