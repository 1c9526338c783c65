#include <time.h>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

constexpr std::uint64_t kNanosecondsInSecond = 1'000'000'000;

std::uint64_t nanoseconds(clockid_t clock) noexcept {
    struct timespec now {};
    ::clock_gettime(clock, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * kNanosecondsInSecond +
           static_cast<std::uint64_t>(now.tv_nsec);
}

CalendarTime calendarTime(struct tm* (*convert)(const time_t*, struct tm*)) noexcept {
    struct timespec now {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    struct tm parts {};
    convert(&now.tv_sec, &parts);
    const auto word = [](long value) { return static_cast<std::uint16_t>(value); };
    return {word(parts.tm_year + 1900L), word(parts.tm_mon + 1L),      word(parts.tm_wday),
            word(parts.tm_mday),         word(parts.tm_hour),          word(parts.tm_min),
            word(parts.tm_sec),          word(now.tv_nsec / 1'000'000)};
}

}  // namespace

CalendarTime localTime() noexcept {
    return calendarTime(&::localtime_r);
}

CalendarTime universalTime() noexcept {
    return calendarTime(&::gmtime_r);
}

std::uint64_t performanceCount() noexcept {
    return nanoseconds(CLOCK_MONOTONIC);
}

std::uint64_t performanceFrequency() noexcept {
    return kNanosecondsInSecond;
}

std::uint64_t sessionMilliseconds() noexcept {
    return nanoseconds(CLOCK_BOOTTIME) / 1'000'000;
}

}  // namespace nuv64::platform
