/* Harmonic and Stirling numbers as reals. Errors are in units in the last place (ulps). */
#ifndef NUV64_NUMERIC_REAL_SEQUENCES_H
#define NUV64_NUMERIC_REAL_SEQUENCES_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* H_n = 1 + 1/2 + ... + 1/n; 0 for n = 0. From a table up to n = 39, from its end upwards below 50,
 * and by the asymptotic series Euler's constant + ln n + 1/(2n) - 1/(12n^2) + 1/(120n^4) -
 * 1/(252n^6) from there on (Abramowitz and Stegun 6.3.2, 6.3.18). Within 2.5 ulps. */
NUV64_API double rHarmonicNumber(uint64_t n) NUV64_NOEXCEPT;

/* The Stirling number of the first kind, with its sign (-1)^(n-k). The magnitude is that of
 * ruStirling1; where that gives no number, on overflow and when there is no memory for its row, an
 * infinity of that sign. Accuracy of ruStirling1. */
NUV64_API double rStirling1(uint64_t n, uint64_t k) NUV64_NOEXCEPT;

/* The Stirling number of the second kind, the number of partitions of n things into k parts. Exact
 * while it has 64 bits, then the alternating sum over j from 1 to k of (-1)^(k-j) j^n/(j! (k-j)!)
 * by the ratio of neighbouring terms (Abramowitz and Stegun 24.1.4), or, where that cancels, the
 * sum over the number of parts of more than one thing, whose terms are positive (L. Comtet,
 * Advanced Combinatorics, 1974, p. 222). ___PlsINF on overflow, ___NAN without memory for a row of
 * k numbers. Within 1100 ulps by the first sum, most for n around 210 and k around 50, 30 by the
 * second. */
NUV64_API double rStirling2(uint64_t n, uint64_t k) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
