/* The system's clocks. */
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

NUV64_END_DECLS

#endif
