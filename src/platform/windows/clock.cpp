#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

CalendarTime calendarTime(const SYSTEMTIME& t) noexcept {
    return {t.wYear, t.wMonth,  t.wDayOfWeek, t.wDay,
            t.wHour, t.wMinute, t.wSecond,    t.wMilliseconds};
}

}  // namespace

CalendarTime localTime() noexcept {
    SYSTEMTIME time;
    ::GetLocalTime(&time);
    return calendarTime(time);
}

CalendarTime universalTime() noexcept {
    SYSTEMTIME time;
    ::GetSystemTime(&time);
    return calendarTime(time);
}

std::uint64_t performanceCount() noexcept {
    LARGE_INTEGER count;
    ::QueryPerformanceCounter(&count);
    return static_cast<std::uint64_t>(count.QuadPart);
}

std::uint64_t performanceFrequency() noexcept {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<std::uint64_t>(frequency.QuadPart);
}

std::uint64_t sessionMilliseconds() noexcept {
    return ::GetTickCount64();
}

}  // namespace nuv64::platform
