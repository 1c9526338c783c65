/* The plain types that every exported prototype is written in.
 *
 * 16-bit text is char16_t on every platform, never wchar_t. Counts and indices are uint64_t; all
 * ones means "not found", "no index" or "unset". A status is uint32_t; 0 is success. Objects are
 * tagged incomplete structs to C callers. */
#ifndef NUV64_CORE_TYPES_H
#define NUV64_CORE_TYPES_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

#include "nuv64/core/export.h"

/* A complex number: the real part first. */
typedef struct Complex {
    double re;
    double im;
} Complex;

/* A rational number: the numerator first. */
typedef struct Qrat {
    int64_t num;
    int64_t den;
} Qrat;

typedef struct cKoData cKoData;
typedef struct EvpRecord EvpRecord;
typedef struct MultiParamFit MultiParamFit;
typedef struct NuvCommandBlock NuvCommandBlock;

#endif
