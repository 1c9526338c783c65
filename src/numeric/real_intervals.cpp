#include "nuv64/numeric/real_intervals.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

double rIntervalNormalize(double* a, double* b) noexcept {
    if (!a || !b) return ___NAN;
    const double length = *b - *a;
    if (length < 0.0) std::swap(*a, *b);
    return length;
}

double rIntervalDistanceFromPoint(double x, double a, double b) noexcept {
    rIntervalNormalize(&a, &b);
    if (x < a) return x - a;
    if (x > b) return x - b;
    return 0.0;
}

double rIntervalsDistance(double a, double b, double c, double d) noexcept {
    rIntervalNormalize(&a, &b);
    rIntervalNormalize(&c, &d);
    if (c > b) return c - b;
    if (a > d) return d - a;
    return 0.0;
}

bool rIntervalsGapAndUnion(double* a, double* b, double* c, double* d) noexcept {
    if (!a || !b || !c || !d) return false;
    rIntervalNormalize(a, b);
    rIntervalNormalize(c, d);
    const double higherLow = std::max(*a, *c);
    const double lowerHigh = std::min(*b, *d);
    *a = std::min(*a, *c);
    *b = std::max(*b, *d);
    const bool meet = higherLow <= lowerHigh;
    *c = meet ? higherLow : lowerHigh;
    *d = meet ? lowerHigh : higherLow;
    return meet;
}

double rIntervalAbsVal(double x, double* lo, double* hi, uint32_t* flags) noexcept {
    if (flags) *flags = 0;
    if (!lo || !hi) return ___NAN;
    uint32_t marks = 0;
    const bool holdsZero = (*lo <= 0.0 && *hi >= 0.0) || (*lo >= 0.0 && *hi <= 0.0);
    *lo = std::fabs(*lo);
    *hi = std::fabs(*hi);
    if (*lo > *hi) {
        std::swap(*lo, *hi);
        marks |= INTERVAL_SWAPPED;
    }
    if (holdsZero) {
        *lo = 0.0;
        marks |= INTERVAL_HELD_ZERO;
    }
    if (flags) *flags = marks;
    return rAbs(x);
}
