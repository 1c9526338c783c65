/* Summation of series term by term. */
#ifndef NUV64_NUMERIC_SERIES_H
#define NUV64_NUMERIC_SERIES_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Whether value agrees with each of the last three values *c, *b, *a of a sequence within
 * |value*tolerance|, or within -tolerance for a negative tolerance. In any case the three move on:
 * *c takes *b, *b takes *a, *a takes value. False when one of the pointers is null, and nothing
 * moves then. */
NUV64_API bool rConvergenceTest3(double value, double* a, double* b, double* c,
                                 double tolerance) NUV64_NOEXCEPT;

/* The sum over k from 0 of term(x, k, context), to *sum (may be null), which takes what there is of
 * it on failure too. context is handed on; the terms are asked for in order, each once.
 *
 * The sum ends when more than minimum terms (3 at least) are in it and it has stayed within
 * ___5EpsReal over three terms. Result: 0; 26 without a term function; 39 when it didn't end within
 * maximum terms beyond the first, as a sum that is not a number never does; an infinite sum
 * stays. */
NUV64_API uint32_t rSeriesTermFunc(double x, double* sum,
                                   double (*term)(double x, uint64_t k, void* context),
                                   void* context, uint64_t maximum,
                                   uint64_t minimum) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
