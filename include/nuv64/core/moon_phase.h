/* Phases of the moon.
 * Source: J. Meeus, Astronomical Formulae for Calculators, chapter 32 (the series from 1900). */
#ifndef NUV64_CORE_MOON_PHASE_H
#define NUV64_CORE_MOON_PHASE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The moment of a phase of the moon.
 *
 * lunation: counted from the new moon of 1 January 1900, which is 0; any sign. phase: taken modulo
 * 4: 0 new moon, 1 first quarter, 2 full moon, 3 last quarter. *day and *fraction (either may be
 * null) receive the Julian day of the moment, in dynamical time, as a whole number, which belongs
 * to noon, and the fraction behind it, from 0 to 1; a fraction of exactly 1 means the next noon.
 *
 * Only the two largest periodic terms are in the series: from 1900 to 2100 the moments are right
 * within an hour (measured 0.036 days against the series with all terms), far away they are worse.
 * Days outside the range of 32 bits stop at its limits. */
NUV64_API void tMoonPhases(int32_t lunation, int32_t phase, int32_t* day,
                           double* fraction) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
