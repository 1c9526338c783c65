/* Limits of the double format, as the module uses them, and its special values.
 *
 * All are set before any code runs, by their exact bits. Iterative code takes ___5EpsReal as its
 * default relative tolerance. */
#ifndef NUV64_CORE_SPECIAL_REALS_H
#define NUV64_CORE_SPECIAL_REALS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

NUV64_API extern const double ___MaxReal;      /* the largest finite double */
NUV64_API extern const double ___SqrtMaxReal;  /* 2^512 */
NUV64_API extern const double ___Root3MaxReal; /* the third root of ___MaxReal */
NUV64_API extern const double ___Root4MaxReal; /* 2^256 */
NUV64_API extern const double ___Root5MaxReal; /* the fifth root of ___MaxReal */
NUV64_API extern const double ___LnMaxReal;    /* ln(___MaxReal), 709.782712893384 */
NUV64_API extern const double ___MinReal; /* 2^-1024, a subnormal; magnitudes below it count as 0 */
NUV64_API extern const double ___SqrtMinReal; /* 2^-512 */
NUV64_API extern const double
    ___LnMinReal; /* exactly -___LnMaxReal: the limit of the module, not of the format */
NUV64_API extern const double ___MinRegularReal; /* 2^-972 */
NUV64_API extern const double ___EpsReal;        /* 2^-52 */
NUV64_API extern const double ___2EpsReal;       /* 2^-51 */
NUV64_API extern const double ___5EpsReal;       /* 5 * 2^-52 */
NUV64_API extern const double ___SqrtEpsReal;    /* 2^-26 */
NUV64_API extern const double ___Root3EpsReal;   /* the third root of ___EpsReal */
NUV64_API extern const double ___Root4EpsReal;   /* 2^-13 */
NUV64_API extern const double ___Root5EpsReal;   /* the fifth root of ___EpsReal */
NUV64_API extern const double ___LnEpsReal;      /* ln(___EpsReal), -36.04365338911715 */

/* The special values. They are variables, not constants, because hosts link to them as such; the
 * module never writes them.
 * ___NAN (bits FFFF000000000000) is "no result" throughout the module and also the error real of
 * status 0: an error real has the upper half FFFF0000 and a status in its lower half. */
NUV64_API extern double ___PlsINF;
NUV64_API extern double ___MnsINF;
NUV64_API extern double ___NAN;

NUV64_END_DECLS

#endif
