/* File times: moments and spans in units of 100 ns, as 64-bit numbers. A moment is counted from the
 * start of 1601 in universal time. */
#ifndef NUV64_CORE_FILE_TIME_H
#define NUV64_CORE_FILE_TIME_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The present moment by the system's clock, which may be set at any time. A null address is a
 * no-op. */
NUV64_API void tOsSystemTimeAsFileTime(uint64_t* time) NUV64_NOEXCEPT;

/* *r = a - b and *r = a + b, modulo 2^64. A null r is a no-op. */
NUV64_API void tFileTimesDifference(uint64_t a, uint64_t b, uint64_t* r) NUV64_NOEXCEPT;
NUV64_API void tFileTimesSum(uint64_t a, uint64_t b, uint64_t* r) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
