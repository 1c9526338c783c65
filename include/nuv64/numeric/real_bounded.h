/* Arithmetic that doesn't overflow in silence.
 *
 * The safe family gives an infinity with the right sign where the result would overflow. The
 * bounded family stays finite: it saturates at ___MaxReal or ___MinReal with the sign of the result
 * and says so in *flag (may be null), which is 0 otherwise: 256 saturated high, 512 saturated low
 * or a sum that vanished, 1024 precision lost. Finite operands are meant; a not-a-number comes
 * through. */
#ifndef NUV64_NUMERIC_REAL_BOUNDED_H
#define NUV64_NUMERIC_REAL_BOUNDED_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* 1/x; an infinity with the sign of x where ___MaxReal*|x| < 1, ___PlsINF for both zeros. */
NUV64_API double rSafeInv(double x) NUV64_NOEXCEPT;

/* a/b; an infinity where |a| > ___MaxReal*|b| (b of either zero counts as positive). 0/0 is a
 * not-a-number. */
NUV64_API double rSafeDiv(double a, double b) NUV64_NOEXCEPT;

/* a*b; an infinity where |a| > ___MaxReal/|b|. */
NUV64_API double rSafeMul(double a, double b) NUV64_NOEXCEPT;

/* a*b/c, the order chosen by the magnitudes so that no intermediate result overflows needlessly. */
NUV64_API double rSafeProportion(double a, double b, double c) NUV64_NOEXCEPT;

/* a + b and a - b. 512 where operands of opposite sign cancel to zero. */
NUV64_API double rBoundAdd(double a, double b, uint16_t* flag) NUV64_NOEXCEPT;
NUV64_API double rBoundSub(double a, double b, uint16_t* flag) NUV64_NOEXCEPT;

/* a*b. Near the limits the test is on logarithms and so good to some hundred last places. */
NUV64_API double rBoundMul(double a, double b, uint16_t* flag) NUV64_NOEXCEPT;

/* a/b. 0 for a = 0, whatever b is; b = 0 gives ___MaxReal with the sign of a and 256. */
NUV64_API double rBoundDiv(double a, double b, uint16_t* flag) NUV64_NOEXCEPT;

/* The remainder of a modulo m, with the sign of a; *quotient (may be null) takes the whole quotient
 * of the magnitudes, with the sign of a. A magnitude that equals m stays: quotient 0. Where the
 * quotient has no fraction left the remainder is 0, with 1024. m = 0 gives a, and *quotient is left
 * alone. */
NUV64_API double rBoundMod(double a, double m, double* quotient, uint16_t* flag) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
