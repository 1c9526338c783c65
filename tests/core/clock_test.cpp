#include "nuv64/core/clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>

#include "core/owned_result.h"
#include "platform/platform.h"
#include "support/variable.h"

namespace {

TEST(Clock, GivesAPlausibleTime) {
    OsTime local{};
    OsTime universal{};
    tOsLocalTime(&local);
    tOsUniversalTime(&universal);
    tOsLocalTime(nullptr);
    tOsUniversalTime(nullptr);
    for (const OsTime& time : {local, universal}) {
        EXPECT_GE(time.year, 2020);
        EXPECT_TRUE(time.month >= 1 && time.month <= 12);
        EXPECT_LE(time.dayOfWeek, 6);
        EXPECT_TRUE(time.day >= 1 && time.day <= 31);
        EXPECT_LE(time.hour, 23);
        EXPECT_LE(time.minute, 59);
        EXPECT_LE(time.second, 60);
        EXPECT_LE(time.millisecond, 999);
    }
}

TEST(Clock, AgreesWithTheStandardLibrary) {
    OsTime time{};
    tOsUniversalTime(&time);
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now());
    const auto date = year{time.year} / month{time.month} / day{time.day};
    EXPECT_EQ(weekday{sys_days{date}}.c_encoding(), time.dayOfWeek);
    const auto stamp = sys_days{date} + hours{time.hour} + minutes{time.minute} +
                       seconds{time.second} + milliseconds{time.millisecond};
    EXPECT_LT(abs(now - stamp), seconds{5});
}

TEST(Clock, CountersRunAtTheirRate) {
    const std::uint64_t count = tOsPerformanceCount();
    const std::uint64_t session = tOsSessionTimeInMs();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    const double seconds = static_cast<double>(tOsPerformanceCount() - count) /
                           static_cast<double>(tOsPerformanceClock());
    EXPECT_GT(seconds, 0.05);
    EXPECT_LT(seconds, 10.0);
    EXPECT_GE(tOsSessionTimeInMs() - session, 40u);
    EXPECT_LT(tOsSessionTimeInMs() - session, 10000u);
}

constexpr OsTime kMoment{2026, 7, 6, 4, 15, 8, 59, 0};  // a Saturday by record, truly so

template <class Ch, class Format>
std::basic_string<Ch> formatted(Format format, const OsTime* time) {
    Ch buffer[200];
    const std::uint64_t length = format(time, buffer, 200);
    EXPECT_EQ(std::char_traits<Ch>::length(buffer), length);
    return buffer;
}

#ifndef _WIN32
// The form without a locale; those of locales are the system's.
class PlainLocale {
    const Variable all_{"LC_ALL", "C"};
};

TEST(tOsDateFormat, FollowsTheLocaleOfTheUser) {
    const PlainLocale locale;
    EXPECT_EQ(formatted<char>(tOsDateFormatA, &kMoment), "07/04/26");
    EXPECT_EQ(formatted<char16_t>(tOsDateFormat, &kMoment), u"07/04/26");
    EXPECT_EQ(formatted<char>(tOsTimeFormatA, &kMoment), "15:08:59");
    EXPECT_EQ(formatted<char16_t>(tOsTimeFormat, &kMoment), u"15:08:59");
    const Variable unknown("LC_ALL", "no_SUCH.locale");
    EXPECT_EQ(formatted<char>(tOsDateFormatA, &kMoment), "07/04/26");
}
#endif

TEST(tOsDateFormat, TellsTheLength) {
    for (const auto format : {tOsDateFormatA, tOsTimeFormatA}) {
        const std::string text = formatted<char>(format, &kMoment);
        ASSERT_GE(text.size(), 4u);
        std::string buffer(text.size() + 2, '#');
        EXPECT_EQ(format(&kMoment, buffer.data(), text.size() + 1), text.size());
        EXPECT_EQ(buffer, text + '\0' + '#');
        buffer.assign(text.size() + 2, '#');
        EXPECT_EQ(format(&kMoment, buffer.data(), text.size()), 0u) << "no room for the terminator";
        EXPECT_EQ(buffer[0], '\0');
        EXPECT_EQ(format(&kMoment, buffer.data(), UINT64_MAX), text.size());
        buffer[0] = '#';
        EXPECT_EQ(format(&kMoment, buffer.data(), 0), 0u);
        EXPECT_EQ(buffer[0], '#');
        EXPECT_EQ(format(&kMoment, nullptr, 10), 0u);
        EXPECT_FALSE(formatted<char>(format, nullptr).empty()) << "the present time";
    }
    for (const auto format : {tOsDateFormat, tOsTimeFormat}) {
        char16_t buffer[100] = u"#";
        EXPECT_EQ(format(&kMoment, buffer, 2), 0u);
        EXPECT_EQ(buffer[0], u'\0');
        EXPECT_EQ(format(&kMoment, nullptr, 10), 0u);
        EXPECT_GT(format(nullptr, buffer, 100), 3u);
    }
}

TEST(tOsDateFormat, BothWidthsGiveTheSame) {
    EXPECT_EQ(nuv64::platform::utf8FromWide(formatted<char16_t>(tOsDateFormat, &kMoment)),
              formatted<char>(tOsDateFormatA, &kMoment));
    EXPECT_EQ(nuv64::platform::utf8FromWide(formatted<char16_t>(tOsTimeFormat, &kMoment)),
              formatted<char>(tOsTimeFormatA, &kMoment));
}

TEST(tOsDateFormat, RefusesWhatIsNoDate) {
    char buffer[100];
    const auto isDate = [&](std::uint16_t year, std::uint16_t month, std::uint16_t day) {
        const OsTime time{year, month, 0, day, 0, 0, 0, 0};
        return tOsDateFormatA(&time, buffer, sizeof buffer) != 0;
    };
    EXPECT_TRUE(isDate(1601, 1, 1));
    EXPECT_TRUE(isDate(2000, 2, 29));
    EXPECT_TRUE(isDate(2024, 2, 29));
    EXPECT_TRUE(isDate(9999, 12, 31));
    EXPECT_FALSE(isDate(1600, 12, 31));
    EXPECT_FALSE(isDate(30828, 1, 1));
    EXPECT_FALSE(isDate(2026, 0, 1));
    EXPECT_FALSE(isDate(2026, 13, 1));
    EXPECT_FALSE(isDate(2026, 1, 0));
    EXPECT_FALSE(isDate(2026, 1, 32));
    EXPECT_FALSE(isDate(2026, 4, 31));
    EXPECT_FALSE(isDate(2026, 2, 29));
    EXPECT_FALSE(isDate(1900, 2, 29));
    EXPECT_FALSE(isDate(65535, 65535, 65535));
}

TEST(tOsTimeFormat, RefusesWhatIsNoTimeOfDay) {
    char buffer[100];
    const auto isTime = [&](std::uint16_t hour, std::uint16_t minute, std::uint16_t second) {
        const OsTime time{2026, 7, 6, 4, hour, minute, second, 0};
        return tOsTimeFormatA(&time, buffer, sizeof buffer) != 0;
    };
    EXPECT_TRUE(isTime(0, 0, 0));
    EXPECT_TRUE(isTime(23, 59, 59));
    EXPECT_FALSE(isTime(24, 0, 0));
    EXPECT_FALSE(isTime(0, 60, 0));
    EXPECT_FALSE(isTime(0, 0, 60));
    EXPECT_FALSE(isTime(65535, 65535, 65535));
}

// The text by plain means; again when a second has passed in between.
template <class Check>
void atOneMoment(Check&& check) {
    for (int trial = 0; trial < 5; ++trial) {
        const std::string date = formatted<char>(tOsDateFormatA, nullptr);
        const std::string time = formatted<char>(tOsTimeFormatA, nullptr);
        if (check(date, time)) return;
    }
    ADD_FAILURE() << "not the present time";
}

std::string clockText(const char* format) {
    const std::string text = *taken(NewStringFromOsClockA(format));
    EXPECT_EQ(text.size(),
              taken(NewStringFromOsClock(format ? widened(format).c_str() : nullptr))->size());
    return text;
}

TEST(NewStringFromOsClock, TheUsualFormat) {
    for (const char* format : {static_cast<const char*>(nullptr), "", "dt, "})
        atOneMoment([&](const std::string& date, const std::string& time) {
            return clockText(format) == date + time + ", ";
        });
    atOneMoment([](const std::string& date, const std::string& time) {
        return taken(NewStringFromOsClock(nullptr)) == widened(date + time + ", ");
    });
}

TEST(NewStringFromOsClock, TheSeparatorStandsBehindTheTimeOnly) {
    atOneMoment([](const std::string& date, const std::string& time) {
        return clockText("td,; ") == time + ",; " + date;
    });
    atOneMoment([](const std::string& date, const std::string& time) {
        return clockText("tdt,") == time + "," + date + time + ",";
    });
    atOneMoment(
        [](const std::string& date, const std::string&) { return clockText("d, , t") == date; });
    atOneMoment([](const std::string& date, const std::string& time) {
        return clockText("dt") == date + time;
    });
}

TEST(NewStringFromOsClock, OtherLettersRepeat) {
    atOneMoment([](const std::string& date, const std::string& time) {
        return clockText("xd-tT,|") == date + date + time + ",|" + time;
    });
    EXPECT_EQ(clockText(","), "");
    EXPECT_EQ(clockText(",dt"), "");
    EXPECT_EQ(clockText("x y,d"), "");
}

TEST(tOsWaitInMs, WaitsThatLong) {
    for (const std::uint32_t pump : {0u, 1u}) {
        const std::uint64_t start = tOsSessionTimeInMs();
        const std::uint64_t result = tOsWaitInMs(60, pump);
        EXPECT_GE(tOsSessionTimeInMs() - start, 60u);
        EXPECT_LT(tOsSessionTimeInMs() - start, 10000u);
        if (pump) {
            EXPECT_EQ(result, 0u) << "no messages";
        } else {
            EXPECT_GT(result, 0u);
        }
    }
    EXPECT_EQ(tOsWaitInMs(0, 0), 0u);
    EXPECT_EQ(tOsWaitInMs(0, 1), 0u);
}

TEST(tWaitInMicroSec, WaitsThatLong) {
    using namespace std::chrono;
    const auto start = steady_clock::now();
    EXPECT_GT(tWaitInMicroSec(50000), 0u);
    EXPECT_GT(steady_clock::now() - start, milliseconds{40});
    EXPECT_LT(steady_clock::now() - start, seconds{10});
    EXPECT_EQ(tWaitInMicroSec(0), 0u);
}

}  // namespace
