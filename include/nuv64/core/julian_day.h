/* Julian days: days counted from noon of 1 January 4713 BC, for arithmetic with dates.
 *
 * Dates up to 4 October 1582 are of the Julian calendar, from 15 October 1582 on of the Gregorian
 * one; the ten dates between do not exist. There is no year 0: 1 BC is year -1. The whole number of
 * a Julian day belongs to the noon of its date, so midnight is .5. Both directions are exact for
 * all years from -30000 to 30000 and beyond.
 * Source: J. Meeus, Astronomical Algorithms, 2nd edition, chapter 7. */
#ifndef NUV64_CORE_JULIAN_DAY_H
#define NUV64_CORE_JULIAN_DAY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The Julian day of a date.
 *
 * year: not 0, negative before Christ. month: 1 to 12. day: 1 to 31; a day beyond the end of its
 * month counts on into the next. fraction: of a day, counted from noon; it is added to the result.
 * 1 January 2000 at noon is 2451545. Not-a-number (___NAN) for year 0. A month outside its range
 * gives a number of no meaning. */
NUV64_API double tDateToJulianDay(int32_t year, int32_t month, int32_t day,
                                  double fraction) NUV64_NOEXCEPT;

/* The date of a Julian day: of the noon at or before it. fraction receives what jd lies behind that
 * noon, from 0 to below 1.
 *
 * Any pointer may be null. Where jd is infinite or not-a-number the date is 0, 0, 0 and the
 * fraction not-a-number (___NAN). Years beyond the range of 32 bits stop at its limits; month and
 * day mean nothing there. */
NUV64_API void tJulianDayToDate(double jd, int32_t* month, int32_t* day, int32_t* year,
                                double* fraction) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
