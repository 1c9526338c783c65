/* Indefinite integrals in closed form, named by their numbers in Abramowitz and Stegun, Handbook of
 * Mathematical Functions. x is the variable, what follows are the parameters; each is one
 * antiderivative, without a constant. Logarithms are of magnitudes; where one is of zero the result
 * is ___NAN. A not-a-number or infinite argument gives what IEEE arithmetic makes of the formula.
 * Errors are a few units in the last place of the largest term, beyond the rounding of linear and
 * quadratic forms that cancel. */
#ifndef NUV64_NUMERIC_HANDBOOK_INTEGRALS_H
#define NUV64_NUMERIC_HANDBOOK_INTEGRALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* 3.3.14: of (a + b x)^n: (a + b x)^(n+1)/(b (n + 1)). x for n = 0; x a^n for b = 0; ln|a + b x|/b
 * for n = -1. */
NUV64_API double rAS_3_3_14(double x, double a, double b, int64_t n) NUV64_NOEXCEPT;

/* 3.3.16 and 3.3.17: of 1/(a x^2 + b x + c). With D = b^2 - 4ac and w = 2ax + b: ln|(w - r)/(w +
 * r)|/r for D above 0, r its root; -2/w for D = 0; atan(w/sqrt(-D)) for D below 0. The last lacks
 * the factor 2/sqrt(-D) of the integral, and callers are used to that: multiply by it where the
 * integral is wanted. */
NUV64_API double rAS_3_3_16(double x, double c, double b, double a) NUV64_NOEXCEPT;

/* 3.3.19: of x/(a x^2 + b x + c): (ln|a x^2 + b x + c| - b rAS_3_3_16)/(2a), so with its branch
 * without the factor. For a = 0: x^2/(2c) for b = 0, x/b for c = 0, else (x - c ln(|b x + c|/b))/b,
 * which is the integral for b = 1 alone and which is ___NAN for b below 0. ___NAN when all three
 * are 0. */
NUV64_API double rAS_3_3_19(double x, double c, double b, double a) NUV64_NOEXCEPT;

/* 3.3.20: of 1/((a x + b)(c x + d)): ln|(c x + d)/(a x + b)|/v with v = bc - ad. For v = 0: -1/(c
 * (a x + b)), x/(b d) for a = c = 0, and ___NAN for c = 0 alone. */
NUV64_API double rAS_3_3_20(double x, double a, double b, double c, double d) NUV64_NOEXCEPT;

/* 3.3.21: of 1/(a^2 + b^2 x^2): rAtanXY(a, b x)/(a b). x/a^2 for b = 0, -1/(b^2 x) for a = 0,
 * ___NAN for both. */
NUV64_API double rAS_3_3_21(double x, double a, double b) NUV64_NOEXCEPT;

/* 3.3.22: of x/(a^2 + b^2 x^2): ln(a^2 + b^2 x^2)/(2 b^2). For b = 0 it is (x/a)^2/2, ___NAN for a
 * = 0 too. */
NUV64_API double rAS_3_3_22(double x, double a, double b) NUV64_NOEXCEPT;

/* 3.3.33 to 3.3.36: of 1/sqrt(a x^2 + b x + c). For a = 1, with D = 4c - b^2: asinh((2x + b)/sqrt
 * D) for D above 0, ln|2x + b| for D = 0, ___NAN below. Another a above 0 is divided out. For a
 * below 0: -asin((2ax + b)/sqrt(b^2 - 4ac))/sqrt(-a) between the zeros of the quadratic, ___NAN
 * else. ___NAN for a = 0. */
NUV64_API double rAS_3_3_33(double x, double c, double b, double a) NUV64_NOEXCEPT;

/* 4.1.51: for x^n (ln x)^m: x^(n+1)/(n + 1) for m = 0, else, with v = n + 1, -x^v m! rExpt(-v ln x,
 * m)/(-v)^(m+1). rExpt divides by the plain index and not by its factorial, so the result is the
 * integral only for m up to 2; it is kept with rExpt. 0 for x = 0; ___NAN for x below 0, infinite
 * or not a number, and no number for m above 170, where m! overflows. */
NUV64_API double rAS4_1_51(double x, uint64_t n, uint64_t m) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
