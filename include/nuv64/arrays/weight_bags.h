/* Bags of equal things known by their weights: how many things does each hold? */
#ifndef NUV64_ARRAYS_WEIGHT_BAGS_H
#define NUV64_ARRAYS_WEIGHT_BAGS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Finds the three multipliers that bring all n weights nearest to whole numbers, best first.
 *
 * With w the smallest weight, 1000 multipliers x from 0.4/w in steps of (18/w - 0.4/w)/1000 are
 * scored: the product over all weights of 1 - (2*(x*weight - rRound(x*weight)))^2, from the first
 * on, times exp(-(x*w/9)^2), which favours small counts. The first best one gives the first result;
 * its hill (upward and downward as long as scores don't rise) is set to 0, and so again for the
 * next. counts receive x*weight, n values each, not rounded; the qualities are the scores.
 * Weights are meant to be above 0; others give what the formula gives, without a report.
 * Status: 14 null weights or n = 0; 18 for any other null; 0. */
NUV64_API uint32_t RArrBagsToBest3Counts(uint32_t n, const double* weights, double* counts1,
                                         double* quality1, double* counts2, double* quality2,
                                         double* counts3, double* quality3) NUV64_NOEXCEPT;

/* The factor that makes the weights sum up to total: total / RArrSum (backward); 0.0 when the sum
 * is not above 0, so also for n = 0 and a null array. */
NUV64_API double RArrBagsTotalWeightFactor(uint64_t n, const double* array,
                                           double total) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
