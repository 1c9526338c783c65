#include "nuv64/core/clock.h"

#include <algorithm>
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

std::string inWidthOf(const char*, const std::u16string& text) {
    return platform::utf8FromWide(text);
}

const std::u16string& inWidthOf(const char16_t*, const std::u16string& text) noexcept {
    return text;
}

// The local form of a moment: platform::dateText or platform::timeText.
using LocalForm = std::u16string (*)(const CalendarTime& time);

template <class Ch>
uint64_t formatMoment(LocalForm form, const OsTime* record, Ch* buffer,
                      uint64_t capacity) noexcept {
    if (!buffer || capacity == 0) return 0;
    buffer[0] = 0;
    return guardValue(uint64_t{0}, [&]() -> uint64_t {
        platform::setLastError(0);
        const std::basic_string<Ch> text = inWidthOf(buffer, form(calendarTime(record)));
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
    return formatMoment(&platform::dateText, record, buffer, capacity);
}

uint64_t tOsDateFormatA(const OsTime* record, char* buffer, uint64_t capacity) noexcept {
    return formatMoment(&platform::dateText, record, buffer, capacity);
}

uint64_t tOsTimeFormat(const OsTime* record, char16_t* buffer, uint64_t capacity) noexcept {
    return formatMoment(&platform::timeText, record, buffer, capacity);
}

uint64_t tOsTimeFormatA(const OsTime* record, char* buffer, uint64_t capacity) noexcept {
    return formatMoment(&platform::timeText, record, buffer, capacity);
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
