/* The system's clocks: the present time, its local forms, counters and waits. */
#ifndef NUV64_CORE_CLOCK_H
#define NUV64_CORE_CLOCK_H

#include "nuv64/core/types.h"

/* A moment in calendar form. */
typedef struct OsTime {
    uint16_t year;      /* as 2026 */
    uint16_t month;     /* 1 to 12 */
    uint16_t dayOfWeek; /* 0 Sunday to 6 Saturday */
    uint16_t day;       /* 1 to 31 */
    uint16_t hour;      /* 0 to 23 */
    uint16_t minute;
    uint16_t second;
    uint16_t millisecond;
} OsTime;

NUV64_BEGIN_DECLS

/* The present local time. A null record is a no-op. */
NUV64_API void tOsLocalTime(OsTime* record) NUV64_NOEXCEPT;

/* The present universal time (UTC). A null record is a no-op. */
NUV64_API void tOsUniversalTime(OsTime* record) NUV64_NOEXCEPT;

/* The system's finest steady counter, from an arbitrary start. */
NUV64_API uint64_t tOsPerformanceCount(void) NUV64_NOEXCEPT;

/* Counts of tOsPerformanceCount in a second. */
NUV64_API uint64_t tOsPerformanceClock(void) NUV64_NOEXCEPT;

/* Milliseconds since the system was started. */
NUV64_API uint64_t tOsSessionTimeInMs(void) NUV64_NOEXCEPT;

/* The date or the time of day of *record in the short form of the user's locale, written to buffer
 * with its terminator. Off Windows the locale is the one that the environment names.
 *
 * record: the day of the week is not looked at; null for the present local time. capacity: room of
 * buffer in characters, terminator included; all ones for enough. 8-bit text is UTF-8.
 * Result: the length; 0, with an empty text in a buffer that has room, when the form doesn't fit,
 * the record holds no date of the years 1601 to 30827 or no time of day, or memory is short. */
NUV64_API uint64_t tOsDateFormat(const OsTime* record, char16_t* buffer,
                                 uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t tOsDateFormatA(const OsTime* record, char* buffer,
                                  uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t tOsTimeFormat(const OsTime* record, char16_t* buffer,
                                 uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint64_t tOsTimeFormatA(const OsTime* record, char* buffer,
                                  uint64_t capacity) NUV64_NOEXCEPT;

/* The present local date and time as a new text, owned by the caller (KillString).
 *
 * format: letters up to the first comma are the order: "d" gives the date and "t" the time of day
 * in the user's local form, any other letter what was formatted last, nothing at first. The comma
 * and what follows it is the separator, written behind each "t". Null or empty means "dt, ", which
 * gives date, time and ", " behind it. Null when memory is short. */
NUV64_API char16_t* NewStringFromOsClock(const char16_t* format) NUV64_NOEXCEPT;
NUV64_API char* NewStringFromOsClockA(const char* format) NUV64_NOEXCEPT;

/* Waits ms milliseconds in a busy loop on tOsSessionTimeInMs, to its resolution. pump: not 0
 * handles the window messages of the thread meanwhile. Result: the number of messages with pump,
 * otherwise the rounds of the loop; 0 for ms 0. */
NUV64_API uint64_t tOsWaitInMs(uint64_t ms, uint32_t pump) NUV64_NOEXCEPT;

/* Waits us microseconds in a busy loop on the system's time (tOsSystemTimeAsFileTime), so a clock
 * that is set meanwhile shortens or lengthens the wait. Result: the rounds of the loop, 0 for us 0.
 * A wait beyond the range of the clock never ends. */
NUV64_API uint64_t tWaitInMicroSec(uint64_t us) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
