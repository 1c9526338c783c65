#include "nuv64/core/julian_day.h"

#include <gtest/gtest.h>

#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "nuv64/core/file_time.h"
#include "nuv64/core/special_reals.h"

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

struct Date {
    std::int32_t year, month, day;
    double fraction;
    bool operator==(const Date&) const = default;
};

Date dateOf(double jd) {
    Date date{};
    tJulianDayToDate(jd, &date.month, &date.day, &date.year, &date.fraction);
    return date;
}

double dayOf(const Date& date) {
    return tDateToJulianDay(date.year, date.month, date.day, date.fraction);
}

bool isNan(double x) {
    return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(___NAN);
}

// J. Meeus, Astronomical Algorithms, chapter 7. His years have a 0 between; day fractions are
// counted from midnight there, from noon here.
struct Example {
    std::int32_t astronomicalYear, month;
    double day;
    double julianDay;
};

constexpr Example kExamples[] = {
    {1957, 10, 4.81, 2436116.31}, {333, 1, 27.5, 1842713.0},   {2000, 1, 1.5, 2451545.0},
    {1999, 1, 1.0, 2451179.5},    {1987, 1, 27.0, 2446822.5},  {1987, 6, 19.5, 2446966.0},
    {1988, 1, 27.0, 2447187.5},   {1988, 6, 19.5, 2447332.0},  {1900, 1, 1.0, 2415020.5},
    {1600, 1, 1.0, 2305447.5},    {1600, 12, 31.0, 2305812.5}, {837, 4, 10.3, 2026871.8},
    {-123, 12, 31.0, 1676496.5},  {-122, 1, 1.0, 1676497.5},   {-1000, 7, 12.5, 1356001.0},
    {-1000, 2, 29.0, 1355866.5},  {-1001, 8, 17.9, 1355671.4}, {-4712, 1, 1.5, 0.0},
};

TEST(JulianDay, PublishedExamples) {
    for (const Example& example : kExamples) {
        const std::int32_t year =
            example.astronomicalYear > 0 ? example.astronomicalYear : example.astronomicalYear - 1;
        const double whole = std::floor(example.day);
        const double fraction = example.day - whole - 0.5;
        EXPECT_NEAR(
            tDateToJulianDay(year, example.month, static_cast<std::int32_t>(whole), fraction),
            example.julianDay, 1e-9);
        const Date date = dateOf(example.julianDay + 0.5);  // midnight as noon
        EXPECT_EQ(date.year, year);
        EXPECT_EQ(date.month, example.month);
        EXPECT_NEAR(date.day + date.fraction, example.day, 1e-8);
    }
}

TEST(JulianDay, TheArgumentsStandInThisOrder) {
    EXPECT_EQ(tDateToJulianDay(2000, 1, 1, 0.0), 2451545.0);
    std::int32_t month = 0, day = 0, year = 0;
    double fraction = 0.0;
    tJulianDayToDate(2451605.25, &month, &day, &year, &fraction);
    EXPECT_EQ(month, 3);
    EXPECT_EQ(day, 1);
    EXPECT_EQ(year, 2000);
    EXPECT_EQ(fraction, 0.25);
}

TEST(JulianDay, TheGregorianCalendarStartsAfterTheJulianOne) {
    EXPECT_EQ(tDateToJulianDay(1582, 10, 15, 0.0) - tDateToJulianDay(1582, 10, 4, 0.0), 1.0);
    EXPECT_EQ(dateOf(2299160.0), (Date{1582, 10, 4, 0.0}));
    EXPECT_EQ(dateOf(2299161.0), (Date{1582, 10, 15, 0.0}));
}

TEST(JulianDay, ThereIsNoYear0) {
    EXPECT_TRUE(isNan(tDateToJulianDay(0, 1, 1, 0.0)));
    EXPECT_TRUE(isNan(tDateToJulianDay(0, 12, 31, 0.5)));
    EXPECT_EQ(tDateToJulianDay(1, 1, 1, 0.0) - tDateToJulianDay(-1, 12, 31, 0.0), 1.0);
}

bool isLeapYear(std::int32_t astronomicalYear, bool gregorian) {
    if (gregorian && astronomicalYear % 100 == 0) return astronomicalYear % 400 == 0;
    return astronomicalYear % 4 == 0;
}

// The next day as a calendar on the wall has it.
Date nextDay(Date date) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const std::int32_t astronomical = date.year < 0 ? date.year + 1 : date.year;
    const bool leapDay = date.month == 2 && isLeapYear(astronomical, date.year > 1582);
    if (date.year == 1582 && date.month == 10 && date.day == 4) return {1582, 10, 15, 0.0};
    if (date.day < kDays[date.month - 1] + (leapDay ? 1 : 0))
        return {date.year, date.month, date.day + 1, 0.0};
    if (date.month < 12) return {date.year, date.month + 1, 1, 0.0};
    return {date.year == -1 ? 1 : date.year + 1, 1, 1, 0.0};
}

void walk(Date date, double jd, int days) {
    for (int i = 0; i < days; ++i, ++jd, date = nextDay(date)) {
        ASSERT_EQ(dayOf(date), jd) << date.year << '-' << date.month << '-' << date.day;
        ASSERT_EQ(dateOf(jd), date) << jd;
    }
}

TEST(JulianDay, EveryDayFollowsTheLast) {
    walk({-4713, 1, 1, 0.0}, 0.0, 80000);
    walk({-5, 1, 1, 0.0}, tDateToJulianDay(-5, 1, 1, 0.0), 4000);
    walk({1500, 1, 1, 0.0}, tDateToJulianDay(1500, 1, 1, 0.0), 250000);
    walk({-30001, 1, 1, 0.0}, tDateToJulianDay(-30001, 1, 1, 0.0), 80000);
    walk({-4780, 1, 1, 0.0}, tDateToJulianDay(-4780, 1, 1, 0.0), 30000);
    walk({30000, 1, 1, 0.0}, tDateToJulianDay(30000, 1, 1, 0.0), 80000);
}

TEST(JulianDay, BothDirectionsAreInverse) {
    std::mt19937 random(3);
    for (int i = 0; i < 200000; ++i) {
        const double jd = std::floor(std::uniform_real_distribution<>(-9e6, 1.3e7)(random));
        const Date date = dateOf(jd);
        ASSERT_EQ(dayOf(date), jd);
        ASSERT_TRUE(date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= 31) << jd;
    }
}

TEST(JulianDay, AgreesWithTheStandardLibrary) {
    using namespace std::chrono;
    constexpr double kStart = 2440588.0;  // noon of 1 January 1970
    for (int days = -141000; days < 400000; days += 37) {
        const year_month_day date{sys_days{std::chrono::days{days}}};
        const double jd = tDateToJulianDay(static_cast<int>(date.year()),
                                           static_cast<int>(unsigned{date.month()}),
                                           static_cast<int>(unsigned{date.day()}), 0.0);
        EXPECT_EQ(jd, kStart + days);
    }
}

TEST(JulianDay, FractionsAreTheRestOfTheDay) {
    EXPECT_EQ(dateOf(2451545.75), (Date{2000, 1, 1, 0.75}));
    EXPECT_EQ(dateOf(-0.25), (Date{-4714, 12, 31, 0.75}));
    EXPECT_EQ(tDateToJulianDay(2000, 1, 1, 1e6), 3451545.0);
    EXPECT_TRUE(std::isnan(tDateToJulianDay(2000, 1, 1, std::nan(""))));
}

TEST(JulianDay, AnyArgumentIsTaken) {
    tJulianDayToDate(0.0, nullptr, nullptr, nullptr, nullptr);
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double jd : {infinity, -infinity, std::nan(""), ___NAN}) {
        const Date date = dateOf(jd);
        EXPECT_EQ(date.year, 0);
        EXPECT_EQ(date.month, 0);
        EXPECT_EQ(date.day, 0);
        EXPECT_TRUE(isNan(date.fraction));
    }
    EXPECT_EQ(dateOf(1e300).year, kMost);
    EXPECT_EQ(dateOf(-1e300).year, kLeast);
    for (const std::int32_t value : {kMost, kLeast, -1, 0, 1, 13})
        EXPECT_TRUE(std::isfinite(tDateToJulianDay(value ? value : 1, value, value, 0.0)));
}

TEST(FileTimes, SumsAndDifferencesCarryBetweenTheHalves) {
    std::mt19937_64 random(8);
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t a = i < 4 ? 0xFFFFFFFFu * std::uint64_t(i) : random();
        const std::uint64_t b = i % 2 ? 1 : random();
        std::uint64_t sum = 0, difference = 0;
        tFileTimesSum(a, b, &sum);
        tFileTimesDifference(a, b, &difference);
        const auto half = [](std::uint64_t x, int which) {
            return static_cast<std::uint32_t>(x >> (32 * which));
        };
        const std::uint32_t low = half(a, 0) + half(b, 0);
        const std::uint32_t carry = low < half(a, 0);
        EXPECT_EQ(half(sum, 0), low);
        EXPECT_EQ(half(sum, 1), half(a, 1) + half(b, 1) + carry);
        const std::uint32_t borrow = half(a, 0) < half(b, 0);
        EXPECT_EQ(half(difference, 0), half(a, 0) - half(b, 0));
        EXPECT_EQ(half(difference, 1), half(a, 1) - half(b, 1) - borrow);
    }
    tFileTimesSum(1, 2, nullptr);
    tFileTimesDifference(1, 2, nullptr);
    std::uint64_t wrapped = 0;
    tFileTimesDifference(0, 1, &wrapped);
    EXPECT_EQ(wrapped, UINT64_MAX);
}

TEST(FileTimes, ThePresentMomentIsThatOfTheStandardLibrary) {
    std::uint64_t time = 0;
    tOsSystemTimeAsFileTime(&time);
    tOsSystemTimeAsFileTime(nullptr);
    using namespace std::chrono;
    const auto start = floor<milliseconds>(sys_days{year{1601} / 1 / 1});
    const auto expected = (floor<milliseconds>(system_clock::now()) - start).count();
    EXPECT_NEAR(static_cast<double>(time) / 1e4, static_cast<double>(expected), 5000.0);
}

}  // namespace
