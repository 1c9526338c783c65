/* Comparison of reals with a tolerance. A comparison with a not-a-number is false, so tests for a
 * difference find none there. */
#ifndef NUV64_NUMERIC_REAL_COMPARISON_H
#define NUV64_NUMERIC_REAL_COMPARISON_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Whether |b - a| > tol, and whether |b - a| > tol*max(|a|, |b|). */
NUV64_API bool rIsDifferentAbs(double a, double b, double tol) NUV64_NOEXCEPT;
NUV64_API bool rIsDifferentRel(double a, double b, double tol) NUV64_NOEXCEPT;

/* Whether |x| is not above tol; true for a not-a-number. */
NUV64_API bool rIsZeroAbs(double x, double tol) NUV64_NOEXCEPT;

/* Stores value in *x and returns true when the two differ by the test of that name; else, and for a
 * null x, false. */
NUV64_API bool rReplaceIfDifferentAbs(double* x, double value, double tol) NUV64_NOEXCEPT;
NUV64_API bool rReplaceIfDifferentRel(double* x, double value, double tol) NUV64_NOEXCEPT;

/* 0 when rIsDifferentRel, else 1. */
NUV64_API double rKronDelta(double a, double b, double tol) NUV64_NOEXCEPT;

/* 0 when rel*(|a| + |b|) >= |a - b|. Otherwise -1 or 1: a number below 0 comes before one that is
 * not, two that are not below 0 follow their values, but two below 0 follow their magnitudes, so
 * that rCompare(-1, -2, 0) is -1: sorting by magnitude relies on it. A not-a-number among them
 * gives 1. */
NUV64_API int32_t rCompare(double a, double b, double rel) NUV64_NOEXCEPT;

/* 0 when tol >= |x|, else the sign of x as -1 or 1 (1 for a not-a-number). */
NUV64_API int32_t rCompareTo0(double x, double tol) NUV64_NOEXCEPT;

/* Whether x lies between a and b, in either order, both included. */
NUV64_API bool rIsBetweenAtoB(double x, double a, double b) NUV64_NOEXCEPT;

/* Whether both are >= 0 or both <= 0: zero agrees with every sign. */
NUV64_API bool rHaveSameSign(double a, double b) NUV64_NOEXCEPT;

/* Whether x is a whole number within the signed 64-bit range. */
NUV64_API bool rIsInteger(double x) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
