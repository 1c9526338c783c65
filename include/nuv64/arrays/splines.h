/* Splines through samples, taken at many places.
 *
 * x and y hold n samples with ascending x; t holds m targets and out takes m values. out may be t
 * itself. */
#ifndef NUV64_ARRAYS_SPLINES_H
#define NUV64_ARRAYS_SPLINES_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A quadratic spline, built from the first sample upward: each parabola begins with the slope at
 * which the one before it ends. The start slope is that of the first interval, or, for mode 2 and
 * at least three samples, that of the parabola through the first three. The targets must ascend;
 * those below the first sample lie on the first parabola, those above the last on the last one: it
 * extrapolates. One sample gives its y everywhere. Errors of the data swing on without damping.
 * Status: 0 for m = 0; 18 null out; 14 null x, y or t, or n = 0; 0. */
NUV64_API uint32_t RArrSpline2XarrYarr(const double* x, const double* y, uint64_t n,
                                       const double* t, double* out, uint64_t m,
                                       int64_t mode) NUV64_NOEXCEPT;

/* The natural cubic spline (second derivative 0 at both ends); outside the samples the end cubics
 * go on. Status: 22 null x, y or t; 18 null out; 22 for n below 2; 26 at the first target between
 * two samples of the same x, the targets behind it untouched; 0x80001; 0. Source: J. H. Ahlberg, E.
 * N. Nilson, J. L. Walsh, The Theory of Splines (1967), chapter 2. */
NUV64_API uint32_t RArrSpline3XarrYarr(const double* x, const double* y, uint64_t n,
                                       const double* t, double* out, uint64_t m) NUV64_NOEXCEPT;

/* A piecewise polynomial. The samples are cut into segments of `step` intervals, the last one as
 * long as what remains. In each segment the polynomial passes through the segment's samples and
 * h = (points - 1 - step)/2 more on each side (points is lowered by one when points - step is
 * even), as far as there are any, and has at the segment's left end the first nd derivatives with
 * which the polynomial before it ends; in the first segment they are derivatives[0] for order 1 and
 * so on, 0 above dcount of them. nd = 0 gives continuous pieces without further condition.
 * The targets must ascend: those in a segment, its ends included, are evaluated there until one
 * lies outside; a target that no segment takes, as one below the first sample, gives ___NAN and
 * holds up those behind it. Status: 22 null x, y or t, or nd above 0 with null derivatives or
 * dcount 0; 18 null out or m = 0; 25 step = 0, n below 2 or points not above step; 26 when the
 * equations of a segment are singular, the values of earlier ones stand then; 0x80001; 0. */
NUV64_API uint32_t RArrSplineEx(const double* x, const double* y, uint64_t n,
                                const double* derivatives, uint64_t dcount, uint64_t nd,
                                const double* t, double* out, uint64_t m, uint64_t points,
                                uint64_t step) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
