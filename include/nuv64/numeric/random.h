/* The one source of random numbers.
 *
 * The minimal standard generator of Park and Miller, x := 16807 x mod 2^31 - 1, with the shuffle of
 * Bays and Durham over 32 entries (the form known as ran1). It is seeded on the first call from the
 * performance counter (KoRandomSeed) and can't be seeded otherwise, so that sequences differ from
 * run to run. The state is shared by all callers without a lock: numbers are drawn by one thread at
 * a time. Not for secrets. */
#ifndef NUV64_NUMERIC_RANDOM_H
#define NUV64_NUMERIC_RANDOM_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A number from the open interval (0, 1), evenly distributed over the multiples of
 * 4.656612875245797e-10: the largest is 2147483646 of them, 4.7e-10 below 1. A limit at
 * 1 - ___2EpsReal stands above that. */
NUV64_API double pRgUniform0(void) NUV64_NOEXCEPT;

/* A number from the standard normal distribution, by the polar method of Marsaglia. It draws pairs
 * of pRgUniform0 and makes two numbers of an accepted pair; every second call returns the spare. */
NUV64_API double pRgNormal0(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
