/* Exponential integrals. Errors are in units in the last place (ulps). */
#ifndef NUV64_NUMERIC_EXPONENTIAL_INTEGRALS_H
#define NUV64_NUMERIC_EXPONENTIAL_INTEGRALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* E_1(x), the integral of e^-t/t from x to infinity, for x above 0: ___NAN for x up to ___MinReal.
 * By its power series about 0 (Abramowitz and Stegun 5.1.11) with up to 1000 terms, until two
 * neighbours differ by less than ___EpsReal. The terms alternate: the absolute error is about e^x/x
 * ulps of 1, and E_1 itself falls like e^-x/x, so use rEn(x, 1) from x = 1 on. Within 4 ulps for x
 * up to 0.5. */
NUV64_API double rE_1(double x) NUV64_NOEXCEPT;

/* E_n(x), the integral of e^(-xt)/t^n from t = 1 to infinity, for x from 0 on (Abramowitz and
 * Stegun 5.1.4); ___NAN for x below 0, and for x up to ___MinReal but 0 with n above 0. At 0 it is
 * 1/(n - 1), or ___PlsINF for n up to 1. E_0 is e^-x/x.
 *
 * Below x = 1 from rE_1 by the recurrence over the order (5.1.14), from there on by the continued
 * fraction (5.1.22) with up to 1000 rounds. 0 where e^-x underflows, a not-a-number at infinity for
 * n above 0. Within 12 ulps below 1 and 60 just above, where the fraction converges slowly; 12 from
 * x = 20 on. */
NUV64_API double rEn(double x, uint64_t n) NUV64_NOEXCEPT;

/* The entire exponential integral Ein(x), the integral of (1 - e^-t)/t from 0 to x, by its power
 * series until the sum stops changing (Abramowitz and Stegun 5.1.11, 5.1.40). *terms, which may be
 * null, receives the number of terms. ___NAN, with 0 terms, where rIsNAN(x). The terms of a
 * positive x alternate: the absolute error is about e^x/x ulps of 1 and few digits are left above
 * 30; ___NAN where a term overflows, above 710. */
NUV64_API double rEinSeries(double x, uint64_t* terms) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
