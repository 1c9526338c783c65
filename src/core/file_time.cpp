#include "nuv64/core/file_time.h"

#include "platform/platform.h"

using namespace nuv64;

void tOsSystemTimeAsFileTime(uint64_t* time) noexcept {
    if (time) *time = platform::fileTimeNow();
}

void tFileTimesDifference(uint64_t a, uint64_t b, uint64_t* r) noexcept {
    if (r) *r = a - b;
}

void tFileTimesSum(uint64_t a, uint64_t b, uint64_t* r) noexcept {
    if (r) *r = a + b;
}
