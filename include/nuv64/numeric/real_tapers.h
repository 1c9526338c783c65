/* Soft steps, windows and thresholds, and tapers that bend a value towards a bound: smooth weights.
 * docs/tapers.md shows them.
 *
 * A final L marks Lorentzian flanks, which fall off as 1/x^2. A final G marks the Gaussian-like
 * form made of the L form v: 0 where v is below floor, else e^(ln 2*(v - 1)/v). It maps 1 to 1 and
 * 1/2 to 1/2, so the points of half height stay, and cuts the flanks at the height that floor maps
 * to; floor 0 cuts nothing. The error is within ten last places, but where the
 * formula makes a small value v of a difference (steps, thresholds) it is about 4/v, and a G form
 * adds about (2 + the error of v)/v. Comparisons are taken as they stand, so a not-a-number takes
 * the branch of a false one. */
#ifndef NUV64_NUMERIC_REAL_TAPERS_H
#define NUV64_NUMERIC_REAL_TAPERS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A step from 0 to 1 through 1/2 at x = 0, a quarter and three quarters at x = -w and w:
 * 0.5*(1 + sign(x)*s) with s = r^2/(1 + r^2), r = x/w. The sign of w doesn't count. Where w is lost
 * against x in a sum (w = 0, x infinite or not a number) it is a hard step: 0 for x below 0, else
 * 1. The curve is flat at 0: all its slope lies near w/sqrt(3) on either side. */
NUV64_API double rSoftStepUpL(double x, double w) NUV64_NOEXCEPT;

/* 1 - rSoftStepUpL. */
NUV64_API double rSoftStepDownL(double x, double w) NUV64_NOEXCEPT;

/* The G form of rSoftStepUpL; and 1 - rSoftStepUpG(x, w, 0.01). */
NUV64_API double rSoftStepUpG(double x, double w, double floor) NUV64_NOEXCEPT;
NUV64_API double rSoftStepDownG(double x, double w) NUV64_NOEXCEPT;

/* 1 between a and b, a <= b, with Lorentzian flanks: 1/(1 + ((x - b)/wb)^2) from b on and
 * 1/(1 + ((a - x)/wa)^2) up to a. A width of 0 doesn't make a hard edge, it takes the edge away:
 * the result is 1 on that side. */
NUV64_API double rSoftEdgedRectL(double x, double a, double b, double wa, double wb) NUV64_NOEXCEPT;
NUV64_API double rSoftEdgedRectG(double x, double a, double b, double wa, double wb,
                                 double floor) NUV64_NOEXCEPT;

/* rSoftEdgedRectL from -width/2 to width/2 with flanks of edge on both sides. */
NUV64_API double rBumpL(double x, double width, double edge) NUV64_NOEXCEPT;

/* rSoftEdgedRectG of the same with the floor 0.01, and then the G transform once more, with the
 * floor given: the flanks fall off steeper than those of the other G forms, and are 0 wherever the
 * Lorentzian one is below 0.01. */
NUV64_API double rBumpG(double x, double width, double edge, double floor) NUV64_NOEXCEPT;

/* A bump on a relative scale: rBiLorentzianPeak with half heights at centre/(1 + r) and
 * centre*(1 + r), r clamped to [0, 1]. For r = 0 a not-a-number at the centre and 0 elsewhere. */
NUV64_API double rBumpReledgeL(double x, double centre, double r) NUV64_NOEXCEPT;
NUV64_API double rBumpReledgeG(double x, double centre, double r, double floor) NUV64_NOEXCEPT;

/* A step from 0 to 1 through 1/2 at mid, for positive x. Below mid it is 0.5*(1 - t^2/(1 + t^2))
 * with t = k*(1/x - 1/mid)/(1/low - 1/mid), above mid 0.5*(1 + t^2/(1 + t^2)) with
 * t = k*(x - mid)/(high - mid); so it is 0.5/(1 + k^2) at low and as much below 1 at high. It is
 * exactly 0 and 1 a thousand times as far from mid as low (in 1/x) and high, also for x below 0,
 * and exactly 1/2 within a thousandth of high - low from mid.
 *
 * The signs of low, mid and high don't count; low and high may come in either order, and mid is
 * moved between them. low = mid or mid = high makes that side a hard step. low = 0: 1/2 all the way
 * below mid, a not-a-number at x = 0. */
NUV64_API double rThresholdL(double x, double low, double mid, double high,
                             double k) NUV64_NOEXCEPT;
NUV64_API double rThresholdG(double x, double low, double mid, double high, double k,
                             double floor) NUV64_NOEXCEPT;

/* The threshold on a relative scale: low = mid/(1 + r), high = (1 + r)*mid, k = 3. */
NUV64_API double rThresholdRelL(double x, double mid, double r) NUV64_NOEXCEPT;
NUV64_API double rThresholdRelG(double x, double mid, double r, double floor) NUV64_NOEXCEPT;

/* Tapers: odd functions that leave a range of magnitudes as it is. Written for x >= 0; that of -x
 * is minus that of x. bound is positive. */

/* Lifts small magnitudes: with e = factor*bound, x above e stays; below it is x + ((e - x)/e)^2*
 * bound, so that 0 becomes bound. factor 2 or more keeps it from falling below bound on the way. A
 * bound of 0 gives a not-a-number at x = 0. */
NUV64_API double rSmoothLoBoundTaper(double x, double bound, double factor) NUV64_NOEXCEPT;

/* Bends large magnitudes: with e = bound/factor, x below e stays; above it is
 * x - ((x - e)/x)*(x - e), which rises towards 2 e; factor 2 makes that the bound. The
 * error is up to 4*(1 + x/bound) last places. An infinite x gives a not-a-number. */
NUV64_API double rSmoothHiBoundTaper(double x, double bound, double factor) NUV64_NOEXCEPT;

/* rSmoothHiBoundTaper by high of rSmoothLoBoundTaper by low, both with the same factor. */
NUV64_API double rSmoothHiAndLoBoundsTaper(double x, double low, double high,
                                           double factor) NUV64_NOEXCEPT;

/* The same with factors made so that each taper takes the fraction f of the interval: magnitudes
 * between low + f*(high - low) and high - f*(high - low) stay as they are, as long as f is at most
 * 1/2. The low factor is 1 + f*(high/low - 1), the high factor 1/(1 - f*(1 - low/high)), so large
 * magnitudes rise towards 2*(high - f*(high - low)) and not towards high. */
NUV64_API double rSmoothIntervalTaper(double x, double low, double high, double f) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
