#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

CalendarTime calendarTime(const SYSTEMTIME& t) noexcept {
    return {t.wYear, t.wMonth,  t.wDayOfWeek, t.wDay,
            t.wHour, t.wMinute, t.wSecond,    t.wMilliseconds};
}

SYSTEMTIME systemTime(const CalendarTime& t) noexcept {
    return {t.year, t.month, t.dayOfWeek, t.day, t.hour, t.minute, t.second, t.millisecond};
}

constexpr int kLongestForm = 256;

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

std::uint64_t fileTimeNow() noexcept {
    FILETIME time;
    ::GetSystemTimeAsFileTime(&time);
    return asNumber(time);
}

std::u16string dateText(const CalendarTime& time) {
    const SYSTEMTIME moment = systemTime(time);
    wchar_t text[kLongestForm] = {};
    ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &moment, nullptr, text, kLongestForm);
    return fromWide(text);
}

std::u16string timeText(const CalendarTime& time) {
    const SYSTEMTIME moment = systemTime(time);
    wchar_t text[kLongestForm] = {};
    ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &moment, nullptr, text, kLongestForm);
    return fromWide(text);
}

}  // namespace nuv64::platform
