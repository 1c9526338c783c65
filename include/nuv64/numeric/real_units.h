/* Angles in degrees and radians; frequency, angular frequency and period.
 *
 * Frequencies are in Hz, angular frequencies in rad/s, periods in s. Within one last place, but for
 * overflow; a reciprocal of 0 is an infinity. */
#ifndef NUV64_NUMERIC_REAL_UNITS_H
#define NUV64_NUMERIC_REAL_UNITS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Degrees to radians (times 0.017453292519943295) and back (times 57.29577951308232). */
NUV64_API double rDegToRad(double x) NUV64_NOEXCEPT;
NUV64_API double rRadToDeg(double x) NUV64_NOEXCEPT;

/* Frequency to angular frequency, 2 pi*x, and back, x/(2 pi). */
NUV64_API double rHzToRads(double x) NUV64_NOEXCEPT;
NUV64_API double rRadsToHz(double x) NUV64_NOEXCEPT;

/* Period to angular frequency and back: 2 pi/x both ways. */
NUV64_API double rPeriodToRads(double x) NUV64_NOEXCEPT;
NUV64_API double rRadsToPeriod(double x) NUV64_NOEXCEPT;

/* Frequency to period and back: 1/x both ways. */
NUV64_API double rHzToPeriod(double x) NUV64_NOEXCEPT;
NUV64_API double rPeriodToHz(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
