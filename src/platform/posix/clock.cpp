#include <locale.h>
#include <time.h>

#include <array>

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

constexpr std::uint64_t kSecondsFrom1601To1970 = 11'644'473'600;

// The user's locale as the environment tells it. The locale of the process, which belongs to the
// host, is neither read nor changed.
class UserLocale {
  public:
    UserLocale() noexcept : locale_(::newlocale(LC_ALL_MASK, "", nullptr)) {
        if (!locale_) locale_ = ::newlocale(LC_ALL_MASK, "C", nullptr);
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;
    ~UserLocale() {
        if (locale_) ::freelocale(locale_);
    }
    locale_t get() const noexcept { return locale_; }

  private:
    locale_t locale_;
};

// The day of the week of a Gregorian date, 0 for Sunday (T. Sakamoto's rule).
int dayOfWeek(const CalendarTime& time) noexcept {
    static constexpr std::array<int, 12> kShift = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    const int year = time.year - (time.month < 3 ? 1 : 0);
    return (year + year / 4 - year / 100 + year / 400 + kShift[time.month - 1u] + time.day) % 7;
}

std::u16string localForm(const char* format, const struct tm& parts) {
    const UserLocale locale;
    char text[128];
    if (!locale.get() || ::strftime_l(text, sizeof text, format, &parts, locale.get()) == 0)
        return u"";
    return wideFromUtf8(text);
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

std::uint64_t fileTimeNow() noexcept {
    return nanoseconds(CLOCK_REALTIME) / 100 + kSecondsFrom1601To1970 * 10'000'000;
}

std::u16string dateText(const CalendarTime& time) {
    struct tm parts {};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    parts.tm_wday = dayOfWeek(time);
    return localForm("%x", parts);
}

std::u16string timeText(const CalendarTime& time) {
    struct tm parts {};
    parts.tm_hour = time.hour;
    parts.tm_min = time.minute;
    parts.tm_sec = time.second;
    parts.tm_mday = 1;
    return localForm("%X", parts);
}

}  // namespace nuv64::platform
