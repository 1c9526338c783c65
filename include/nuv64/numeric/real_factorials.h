/* Factorials, binomials and rising factorials in real arithmetic, and their logarithms.
 *
 * Up to 20! and 33!! the exact integers serve; beyond, e^rGammaLn, whose relative error is up to
 * 2.3 n ln n ulps. (Abramowitz and Stegun 6.1.5, 6.1.21, 6.1.22.) Errors are in units in the last
 * place (ulps). */
#ifndef NUV64_NUMERIC_REAL_FACTORIALS_H
#define NUV64_NUMERIC_REAL_FACTORIALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* n!: 0 for n below 0, ___PlsINF above 170. Within half an ulp to 20, 2.3 n ln n beyond and 1030 at
 * most. */
NUV64_API double rFactorial(int64_t n) NUV64_NOEXCEPT;

/* ln n!; ___NAN for n below 0. Within 3.5 ulps. */
NUV64_API double rFactorialLn(int64_t n) NUV64_NOEXCEPT;

/* n!! = n (n - 2) (n - 4) ...: 0 for n below 0, ___PlsINF above 300. Beyond 33 it is (n/2)! 2^(n/2)
 * for even n and Gamma(1 + n/2) sqrt(2^(n+1)/pi) for odd n. Within half an ulp to 33, 1030 to 300.
 */
NUV64_API double rDoubleFactorial(int64_t n) NUV64_NOEXCEPT;

/* ln n!!; ___NAN for n below 0. Within 3 ulps. */
NUV64_API double rDoubleFactorialLn(int64_t n) NUV64_NOEXCEPT;

/* x n! and x/n!, in range also where n! alone is not: beyond n = 20 by logarithms, so ___NAN on
 * overflow, 0 on underflow and ___NAN for |x| up to ___MinReal but 0. 0 is returned as it is.
 * Within one ulp to n = 20, 3 (n ln n + |ln|x||) beyond. */
NUV64_API double rMulByFact(double x, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double rDivByFact(double x, uint64_t n) NUV64_NOEXCEPT;

/* ln(|x| n!) and ln(|x|/n!); ___NAN for |x| up to ___MinReal, 0 too. The absolute error is about
 * one ulp of the larger logarithm. */
NUV64_API double rMulByFactLn(double x, uint64_t n) NUV64_NOEXCEPT;
NUV64_API double rDivByFactLn(double x, uint64_t n) NUV64_NOEXCEPT;

/* The binomial coefficient of reals, Gamma(n + 1)/(Gamma(k + 1) Gamma(n - k + 1)), and its
 * logarithm. Of the magnitudes: signs of gamma functions of negative arguments are lost. ___NAN
 * where one of the three arguments is 0 or a negative integer, although the coefficient is 0 for
 * some of these, and where the value overflows. The logarithm's error is up to 1.3 ulps of the sum
 * of their magnitudes; the coefficient's is up to twice that sum, in its own ulps: 5500 for n to
 * 300. */
NUV64_API double rBinomial(double n, double k) NUV64_NOEXCEPT;
NUV64_API double rBinomialLn(double n, double k) NUV64_NOEXCEPT;

/* The rising factorial x (x + 1) ... (x + n - 1), multiplied step by step; 1 for n = 0, also where
 * x is a not-a-number, and 0 for x = 0. For negative n it is (-1)^n times that of -x and -n, so x
 * itself for n = -1: the falling factorial x (x - 1) ... (x + n + 1). Overflow gives an infinity,
 * or a not-a-number when a factor of 0 follows. Within |n| ulps while no factor cancels. */
NUV64_API double rPochhammer(double x, int64_t n) NUV64_NOEXCEPT;

/* The logarithm of rPochhammer for x above 0, by two rGammaLn, with ___NAN for |n| = 1 and x up to
 * ___MinReal. 0 for n = 0, ___MnsINF for x = 0. For x below 0 it is the logarithm of -x and -n,
 * negated for odd n: the negation goes with the product, not with its logarithm, and is kept.
 * ___NAN for a not-a-number. The absolute error is a few ulps of the larger rGammaLn. */
NUV64_API double rPochhammerLn(double x, int64_t n) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
