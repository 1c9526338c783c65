#include "nuv64/numeric/bit_scrambler.h"

#include <algorithm>
#include <cstring>

#include "core/guard.h"
#include "core/owned.h"
#include "core/real_rounding.h"
#include "numeric/modular.h"
#include "nuv64/numeric/number_theory.h"
#include "nuv64/numeric/random.h"

namespace nuv64 {
namespace {

using Bytes = Owned<unsigned char>;

constexpr uint64_t kLengthBytes = 8;
constexpr uint64_t kSizeLimit = uint64_t{1} << 60;  // its bits still fit 64 bits
constexpr uint64_t kSmallestStep = 3;

Bytes zeroed(uint64_t size) {
    Bytes block = allocate<unsigned char>(size);
    std::memset(block.get(), 0, size);
    return block;
}

unsigned bitAt(const unsigned char* block, uint64_t index) {
    return block[index / 8] >> (index % 8) & 1u;
}

// Bit j of out becomes bit j*stride mod prime of in, for all j below prime. out is cleared before.
// Gathering writes each byte once; both directions of a permutation can be written so.
void gatherBits(const unsigned char* in, unsigned char* out, uint64_t prime, uint64_t stride) {
    stride %= prime;
    uint64_t from = 0;
    for (uint64_t to = 0; to < prime;) {
        const uint64_t last = std::min(to + 8, prime);
        unsigned byte = 0;
        for (uint64_t bit = to; bit < last; ++bit) {
            byte |= bitAt(in, from) << (bit - to);
            from = from < prime - stride ? from + stride : from - (prime - stride);
        }
        out[to / 8] = static_cast<unsigned char>(byte);
        to = last;
    }
}

unsigned char filler() {
    return static_cast<unsigned char>(255u * clampToDword(12345.0 * pRgUniform0()));
}

// n as a little-endian word, the bytes of src, filler.
Bytes plainBlock(const void* src, uint64_t n, uint64_t size) {
    Bytes block = allocate<unsigned char>(size);
    for (uint64_t i = 0; i < kLengthBytes; ++i) {
        block[i] = static_cast<unsigned char>(n >> (8 * i));
    }
    std::memcpy(block.get() + kLengthBytes, src, n);
    std::generate(block.get() + kLengthBytes + n, block.get() + size, filler);
    return block;
}

uint64_t lengthOf(const Bytes& block) {
    uint64_t length = 0;
    for (uint64_t i = kLengthBytes; i-- > 0;) length = length << 8 | block[i];
    return length;
}

uint64_t stepFor(uint64_t step, uint64_t size) {
    return step < kSmallestStep ? uPrevPrime(size * 4) : step;
}

void* encrypt(const void* src, uint64_t n, uint64_t* outSize, uint64_t pad, uint64_t step) {
    if (n == 0 || !src || n >= kSizeLimit || pad >= kSizeLimit) return nullptr;
    uint64_t size = n + pad + kLengthBytes;
    if (size >= kSizeLimit - 1024) return nullptr;  // the next prime lies close above
    // Before the search for a prime of that size: it takes seconds for the largest ones.
    if (!tryAllocate<unsigned char>(size)) return nullptr;
    size = uNextPrime(size * 8) / 8 + 1;
    if (outSize) *outSize = size;
    const Bytes plain = plainBlock(src, n, size);
    Bytes scrambled = zeroed(size);
    const uint64_t prime = uPrevPrime(size * 8);
    step = stepFor(step, size) % prime;
    if (step == 0) {
        // Every bit goes to place 0; the last one stays.
        scrambled[0] = static_cast<unsigned char>(bitAt(plain.get(), prime - 1));
    } else {
        gatherBits(plain.get(), scrambled.get(), prime, inverseMod(step, prime));
    }
    return scrambled.release();
}

void* decrypt(const void* src, uint64_t n, uint64_t* outSize, uint64_t step) {
    if (n == 0) return nullptr;
    if (outSize) *outSize = 0;
    if (!src || n < kLengthBytes || n >= kSizeLimit) return nullptr;
    const auto* const scrambled = static_cast<const unsigned char*>(src);
    Bytes plain = zeroed(n);
    const uint64_t prime = uPrevPrime(n * 8);
    step = stepFor(step, n) % prime;
    // With all bits moved to place 0 nothing but that one can be had back.
    if (step == 0) {
        plain[0] = static_cast<unsigned char>(bitAt(scrambled, 0));
    } else {
        gatherBits(scrambled, plain.get(), prime, step);
    }
    const uint64_t length = lengthOf(plain);
    if (length == 0 || length > n - kLengthBytes) return nullptr;
    Bytes result = allocate<unsigned char>(length);
    std::memcpy(result.get(), plain.get() + kLengthBytes, length);
    if (outSize) *outSize = length;
    return result.release();
}

}  // namespace
}  // namespace nuv64

void* MemEncryptNew(const void* src, uint64_t n, uint64_t* outSize, uint64_t pad,
                    uint64_t step) noexcept {
    return nuv64::guardValue<void*>(nullptr,
                                    [&] { return nuv64::encrypt(src, n, outSize, pad, step); });
}

void* MemDecryptNew(const void* src, uint64_t n, uint64_t* outSize, uint64_t step) noexcept {
    return nuv64::guardValue<void*>(nullptr, [&] { return nuv64::decrypt(src, n, outSize, step); });
}
