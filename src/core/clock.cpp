#include "nuv64/core/clock.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/guard.h"
#include "core/system_text.h"
#include "platform/platform.h"
#include "platform/process.h"

using namespace nuv64;

static_assert(offsetof(OsTime, year) == 0 && offsetof(OsTime, month) == 2);
static_assert(offsetof(OsTime, dayOfWeek) == 4 && offsetof(OsTime, day) == 6);
static_assert(offsetof(OsTime, hour) == 8 && offsetof(OsTime, minute) == 10);
static_assert(offsetof(OsTime, second) == 12 && offsetof(OsTime, millisecond) == 14);
static_assert(sizeof(OsTime) == 16);

namespace {

using platform::CalendarTime;

void store(const CalendarTime& time, OsTime* record) noexcept {
    if (!record) return;
    *record = {time.year, time.month,  time.dayOfWeek, time.day,
               time.hour, time.minute, time.second,    time.millisecond};
}

CalendarTime calendarTime(const OsTime* record) noexcept {
    if (!record) return platform::localTime();
    return {record->year, record->month,  record->dayOfWeek, record->day,
            record->hour, record->minute, record->second,    record->millisecond};
}

bool isDate(const CalendarTime& time) noexcept {
    static constexpr std::array<int, 12> kDays = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (time.year < 1601 || time.year > 30827) return false;  // what a file time can tell
    if (time.month < 1 || time.month > 12) return false;
    const bool isLeapYear = time.year % 4 == 0 && (time.year % 100 != 0 || time.year % 400 == 0);
    const int days = time.month == 2 && !isLeapYear ? 28 : kDays[time.month - 1u];
    return time.day >= 1 && time.day <= days;
}

bool isTimeOfDay(const CalendarTime& time) noexcept {
    return time.hour < 24 && time.minute < 60 && time.second < 60 && time.millisecond < 1000;
}

std::string inWidthOf(const char*, const std::u16string& text) {
    return platform::utf8FromWide(text);
}

const std::u16string& inWidthOf(const char16_t*, const std::u16string& text) noexcept {
    return text;
}

// A part of a moment: whether it is one, and its local form.
struct MomentPart {
    bool (*isValid)(const CalendarTime& time) noexcept;
    std::u16string (*localForm)(const CalendarTime& time);
};

constexpr MomentPart kDate{&isDate, &platform::dateText};
constexpr MomentPart kTimeOfDay{&isTimeOfDay, &platform::timeText};

template <class Ch>
uint64_t formatMoment(const MomentPart& part, const OsTime* record, Ch* buffer,
                      uint64_t capacity) noexcept {
    if (!buffer || capacity == 0) return 0;
    buffer[0] = 0;
    return guardValue(uint64_t{0}, [&]() -> uint64_t {
        platform::setLastError(0);
        const CalendarTime time = calendarTime(record);
        if (!part.isValid(time)) {
            platform::setLastError(platform::kErrorInvalidArgument);
            return 0;
        }
        const std::basic_string<Ch> text = inWidthOf(buffer, part.localForm(time));
        if (text.size() >= capacity) return 0;
        std::copy_n(text.c_str(), text.size() + 1, buffer);
        return text.size();
    });
}

template <class Ch>
Ch* newStringFromClock(const Ch* format) noexcept {
    static constexpr Ch kUsual[] = {'d', 't', ',', ' ', 0};
    return guardValue<Ch*>(nullptr, [&] {
        const std::basic_string_view<Ch> whole = format && *format ? format : kUsual;
        const std::size_t comma = std::min(whole.find(Ch(',')), whole.size());
        const std::basic_string_view<Ch> separator = whole.substr(comma);
        const CalendarTime now = platform::localTime();
        std::basic_string<Ch> formatted;
        std::basic_string<Ch> text;
        for (const Ch letter : whole.substr(0, comma)) {
            if (letter == Ch('d')) formatted = inWidthOf(format, platform::dateText(now));
            if (letter == Ch('t')) formatted = inWidthOf(format, platform::timeText(now));
            text += formatted;
            if (letter == Ch('t')) text += separator;
        }
        return copyText(text.data(), text.size()).release();
    });
}

constexpr uint64_t kFileTimeUnitsInMicrosecond = 10;

}  // namespace

void tOsLocalTime(OsTime* record) noexcept {
    store(platform::localTime(), record);
}

void tOsUniversalTime(OsTime* record) noexcept {
    store(platform::universalTime(), record);
}

uint64_t tOsPerformanceCount() noexcept {
    return platform::performanceCount();
}

uint64_t tOsPerformanceClock() noexcept {
    return platform::performanceFrequency();
}

uint64_t tOsSessionTimeInMs() noexcept {
    return platform::sessionMilliseconds();
}

uint64_t tOsDateFormat(const OsTime* record, char16_t* buffer, uint64_t capacity) noexcept {
    return formatMoment(kDate, record, buffer, capacity);
}

uint64_t tOsDateFormatA(const OsTime* record, char* buffer, uint64_t capacity) noexcept {
    return formatMoment(kDate, record, buffer, capacity);
}

uint64_t tOsTimeFormat(const OsTime* record, char16_t* buffer, uint64_t capacity) noexcept {
    return formatMoment(kTimeOfDay, record, buffer, capacity);
}

uint64_t tOsTimeFormatA(const OsTime* record, char* buffer, uint64_t capacity) noexcept {
    return formatMoment(kTimeOfDay, record, buffer, capacity);
}

char16_t* NewStringFromOsClock(const char16_t* format) noexcept {
    return newStringFromClock(format);
}

char* NewStringFromOsClockA(const char* format) noexcept {
    return newStringFromClock(format);
}

uint64_t tOsWaitInMs(uint64_t ms, uint32_t pump) noexcept {
    const uint64_t start = platform::sessionMilliseconds();
    uint64_t rounds = 0;
    uint64_t messages = 0;
    for (; platform::sessionMilliseconds() - start < ms; ++rounds)
        if (pump) messages += platform::handleQueuedMessages();
    return pump ? messages : rounds;
}

uint64_t tWaitInMicroSec(uint64_t us) noexcept {
    const uint64_t now = platform::fileTimeNow();
    const uint64_t room = (UINT64_MAX - now) / kFileTimeUnitsInMicrosecond;
    const uint64_t end = us < room ? now + kFileTimeUnitsInMicrosecond * us : UINT64_MAX;
    uint64_t rounds = 0;
    while (platform::fileTimeNow() < end) ++rounds;
    return rounds;
}
