/* The bit scrambler: a block becomes a longer one in which every bit has moved to the place
 * i*step mod P, P a prime number of bits. It hides a text from the eye; it is no cipher, and
 * nothing but the length guards against a wrong step. */
#ifndef NUV64_NUMERIC_BIT_SCRAMBLER_H
#define NUV64_NUMERIC_BIT_SCRAMBLER_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Scrambles the n bytes of src. Before them goes n as a 64-bit word, behind them at least pad bytes
 * of random filler; size = (the next prime above 8*(n + pad + 8))/8 + 1 and P is the last prime
 * below 8*size. Bits P to 8*size - 1 of the result are 0.
 *
 * step: the multiplier; below 3 it is the last prime below 4*size. A multiple of P loses all bits
 * but one. outSize: takes size; may be null. Result: a block of size bytes, to be released by a
 * Kill (RArrKill and its kin); null when n is 0, src null, the size out of range or memory short.
 */
NUV64_API void* MemEncryptNew(const void* src, uint64_t n, uint64_t* outSize, uint64_t pad,
                              uint64_t step) NUV64_NOEXCEPT;

/* Restores a block of MemEncryptNew: src and n are its result and size, step the same as then.
 *
 * outSize: takes the number of bytes, 0 with a null result (but is left alone when n is 0); may be
 * null.
 * Result: the bytes, to be released by a Kill; null when src is null, n below 8, the length that is
 * found in the block is 0 or more than the block can hold (this is how a wrong step usually shows)
 * or memory is short. */
NUV64_API void* MemDecryptNew(const void* src, uint64_t n, uint64_t* outSize,
                              uint64_t step) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
