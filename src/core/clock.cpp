#include "nuv64/core/clock.h"

#include <cstddef>

#include "platform/platform.h"

using namespace nuv64;

static_assert(offsetof(OsTime, year) == 0 && offsetof(OsTime, month) == 2);
static_assert(offsetof(OsTime, dayOfWeek) == 4 && offsetof(OsTime, day) == 6);
static_assert(offsetof(OsTime, hour) == 8 && offsetof(OsTime, minute) == 10);
static_assert(offsetof(OsTime, second) == 12 && offsetof(OsTime, millisecond) == 14);
static_assert(sizeof(OsTime) == 16);

namespace {

void store(const platform::CalendarTime& time, OsTime* record) noexcept {
    if (!record) return;
    *record = {time.year, time.month,  time.dayOfWeek, time.day,
               time.hour, time.minute, time.second,    time.millisecond};
}

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
