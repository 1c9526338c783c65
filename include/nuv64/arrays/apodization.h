/* Apodization: windows by which a signal is multiplied before its Fourier transform. */
#ifndef NUV64_ARRAYS_APODIZATION_H
#define NUV64_ARRAYS_APODIZATION_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Multiplies the array in place by the window of the given type.
 *
 * t0 and tEnd are the times of the first and the last element: dt = (tEnd - t0)/(n - 1) and t[i] =
 * t0 + i*dt. p0 and p1 are the parameters; p1 is read by types 2, 5 and 8 only. Times and widths
 * have one unit, rates and frequencies its inverse.
 *
 *   1 Exponential        exp(-pi*p0*t): a line broadening of p0
 *   2 Vorning            cos^2(pi*t/(2*tmax)) up to tmax, 0.0 above it; tmax is tEnd, or, when p1
 *                        is a finite number, p1*p0 (p1*4 for p0 = 0) limited to tEnd
 *   3 Cos2Tmax           cos^2((pi/2)*(t + dt)/p0) for the first ceil((p0 - t0)/dt) elements, at
 *                        most n, the others set to 0.0; all are for p0 = 0
 *   4 Gauss              exp(-g*t^2), g = (pi*p0)^2/(4 ln 2): a line broadening of p0
 *   5 Gauss-Lorentz      exp(-g*t^2 - pi*p1*t)
 *   6 Sinc               sin(w*(t + dt))/(w*t), w = pi*p0; p0 = 0 leaves the array alone
 *   7 Maxwell-Boltzmann  (t/p0)^2*exp(-(t/p0)^2); p0 = 0 sets the array to 0.0
 *   8 Smoothstep         u/(1 + u), u = (t/p0)^k with k = p1 rounded to a whole number, not below
 *                        0; p0 = 0 leaves the array alone, else k = 0 halves it; where u overflows
 *                        the window is a not-a-number
 *
 * All but type 2 run by recurrences: exponentials and rotations are advanced from element to
 * element instead of being evaluated. Errors grow with the index: measured against the window's
 * maximum, they stay within 3e-13 for 10^4 elements and 4e-11 for 10^6; types 4, 5 and 7, where
 * they grow by its square, within 2e-10 and 1.3e-6. Types 3 and 6 turn their angle before they use
 * it: they are a step ahead, and so type 6 is not 1 at t = 0 but divides by zero there. Evaluations
 * rely on it.
 *
 * Status: 14 null array; 0 with nothing done for n below 2; 44 for a type outside 1 to 8; 21 null
 * parameters; 26 for type 8 with p0 below 0 and k not 0, the array left alone; 0. */
NUV64_API uint32_t RArrApodization(uint64_t type, uint64_t n, double* array, double t0, double tEnd,
                                   const double* parameters) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
