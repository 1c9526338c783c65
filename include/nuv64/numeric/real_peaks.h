/* Lorentzian peaks, and the weight of Chebyshev polynomials. */
#ifndef NUV64_NUMERIC_REAL_PEAKS_H
#define NUV64_NUMERIC_REAL_PEAKS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* 1/(1 + (x/2)^2): 1 at 0, half of it at x = 2 and -2. Within 2 last places; 0 where the square
 * overflows. */
NUV64_API double rLorentzianPeak0(double x) NUV64_NOEXCEPT;

/* height*rLorentzianPeak0((x - centre)/width). The half height is two widths away from the centre,
 * so the full width at half height is four times width. Width 0: 0, but a not-a-number at the
 * centre. */
NUV64_API double rLorentzianPeak(double x, double centre, double width,
                                 double height) NUV64_NOEXCEPT;

/* The area below a Lorentzian peak, (pi/2)*width*height. width is here the full width at half
 * height, four times the width of rLorentzianPeak. */
NUV64_API double rLorentzianPeakArea(double height, double width) NUV64_NOEXCEPT;

/* A Lorentzian peak with flanks of different widths: 1 at b, one half at a and at c, which lie on
 * either side. 1/(1 + u^2) with u = (x - b)/(b - a) for x below b, (x - b)/(c - b) from b on. c = b
 * gives a not-a-number at x = b and 0 above it, a = b gives 0 below. */
NUV64_API double rBiLorentzianPeak(double x, double a, double b, double c) NUV64_NOEXCEPT;

/* 1/sqrt(1 - x^2), the weight for which the polynomials T_n are orthogonal on [-1, 1]; an infinity
 * at the ends, ___NAN outside. Four terms of its series where x^2 < ___Root4EpsReal, else
 * 1/sqrt(1 - x)/sqrt(1 + x). Within 3 last places. (Abramowitz and Stegun 22.2.4.) */
NUV64_API double rChebyshevWeight(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
