#include "nuv64/core/julian_day.h"

#include <cmath>

#include "core/real_rounding.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {

namespace {

// A date as one number that grows with it: 15 October 1582 is where the Gregorian calendar starts.
constexpr std::int64_t dateOrder(std::int64_t year, std::int64_t month, std::int64_t day) noexcept {
    return day + 31 * (month + 12 * year);
}

constexpr std::int64_t kGregorianStart = dateOrder(1582, 10, 15);
constexpr double kGregorianStartDay = 2299161.0;
constexpr double kDaysInCentury = 36525.0;  // of the Julian calendar

struct Date {
    double year, month, day;
};

// j + 1 + the leap days that the Gregorian calendar leaves out before day j.
double asJulianCalendar(double j) noexcept {
    const double centuries = std::floor((j - 1867216.25) / 36524.25);
    return j + 1.0 + centuries - std::floor(centuries / 4.0);
}

// Of a day number of the Julian calendar that is not negative.
Date dateOfDayNumber(double number) noexcept {
    const double b = number + 1524.0;
    const double c = std::floor(6680.0 + (b - 2439870.0 - 122.1) / 365.25);
    const double d = std::floor(365.0 * c + 0.25 * c);
    const double e = std::floor((b - d) / 30.6001);
    const double day = b - d - std::floor(30.6001 * e);
    const double month = e - 1.0 > 12.0 ? e - 13.0 : e - 1.0;
    const double year = month > 2.0 ? c - 4716.0 : c - 4715.0;
    return {year < 1.0 ? year - 1.0 : year, month, day};
}

Date dateOfNoon(double j) noexcept {
    if (j >= kGregorianStartDay) return dateOfDayNumber(asJulianCalendar(j));
    if (j >= 0.0) return dateOfDayNumber(j);
    // The formula truncates, so it is used a whole number of centuries later.
    const double centuries = std::floor(-j / kDaysInCentury) + 1.0;
    Date date = dateOfDayNumber(j + kDaysInCentury * centuries);
    date.year -= 100.0 * centuries;
    return date;
}

void store(std::int32_t* target, double value) noexcept {
    if (target) *target = clampToLong(value);
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

double tDateToJulianDay(int32_t year, int32_t month, int32_t day, double fraction) noexcept {
    if (year == 0) return ___NAN;
    const bool isEarlyMonth = month <= 2;
    const double y =
        static_cast<double>(year) + (year < 0 ? 1.0 : 0.0) - (isEarlyMonth ? 1.0 : 0.0);
    const double m = static_cast<double>(month) + (isEarlyMonth ? 13.0 : 1.0);
    double jd = std::floor(365.25 * y) + std::floor(30.6001 * m) + day + 1720995.0;
    if (dateOrder(year, month, day) >= kGregorianStart) {
        const double a = std::floor(0.01 * y);
        jd += 2.0 - a + std::floor(a / 4.0);
    }
    return jd + fraction;
}

void tJulianDayToDate(double jd, int32_t* month, int32_t* day, int32_t* year,
                      double* fraction) noexcept {
    const bool isDay = std::isfinite(jd);
    const double j = std::floor(jd);
    const Date date = isDay ? dateOfNoon(j) : Date{0.0, 0.0, 0.0};
    store(month, date.month);
    store(day, date.day);
    store(year, date.year);
    if (fraction) *fraction = isDay ? jd - j : ___NAN;
}
