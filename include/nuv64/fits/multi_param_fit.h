/* The parameter minimiser: one object that minimises a score over doubles held elsewhere.
 *
 * A score function and a progress callback receive the object. The record is read, never written,
 * by a callback; the score function leaves its result in `score`. Both may end the search with a
 * status other than 0. */
#ifndef NUV64_FITS_MULTI_PARAM_FIT_H
#define NUV64_FITS_MULTI_PARAM_FIT_H

#include "nuv64/core/types.h"

/* Codes that a progress callback receives. */
enum {
    NUV64_FIT_BEGIN = 61,     /* the first evaluation is about to be counted */
    NUV64_FIT_EVALUATED = 62, /* after each evaluation */
    NUV64_FIT_BEST = 63,      /* a new best score; only with bit 31 of flags */
    NUV64_FIT_END = 64        /* the search has ended */
};

typedef uint32_t (*MultiParamScore)(MultiParamFit* fit);
typedef uint32_t (*MultiParamCallback)(MultiParamFit* fit, uint32_t code);

struct MultiParamFit {
    uint32_t flags; /* low byte: residual norm; 0x100 relative; bit 31: best-so-far callbacks */
    uint64_t parameterCount; /* all parameters */
    double** parameters;     /* owned list of pointers to the caller's values */
    double** fitted;         /* owned list, null where a parameter is held fixed */
    uint64_t maxCalls;       /* limit of score evaluations, 100000 */
    double tolerance;        /* size at which the search counts as stalled, 0.0001 */
    double step;             /* start step of the simplex, 0.2 */
    uint64_t method;         /* 0 none, 1 simplex, 3 coordinate search */
    MultiParamScore scoreFunction;
    void* userData;
    MultiParamCallback callback; /* may be null */
    double bestScore;            /* lowest seen */
    double score;                /* last evaluated */
    uint64_t calls;              /* evaluations so far */
    uint64_t fittedCount;        /* non-null entries of fitted */
    double** fittedList;         /* owned, the non-null entries */
};

#endif
