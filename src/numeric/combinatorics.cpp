#include "nuv64/numeric/combinatorics.h"

#include <cmath>

#include "numeric/combinatorial_tables.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_powers.h"

using namespace nuv64;

namespace {

constexpr uint32_t kAboveUnsigned = NUM_U64OVERFLOW | NUM_OVERFLOW;
constexpr uint32_t kAboveSigned = NUM_I64OVERFLOW | NUM_OVERFLOW;

template <std::size_t size>
uint64_t lookUp(const std::array<uint64_t, size>& table, uint64_t n, uint32_t* flags) {
    store(flags, 0);
    return n < size ? table[n] : overflow(flags);
}

int64_t toSigned(uint64_t value) {
    return value == kNoUnsigned ? kNoSigned : static_cast<int64_t>(value);
}

struct FibonacciPair {
    uint64_t at;     // F(n)
    uint64_t after;  // F(n + 1)
};

// F(n) and F(n + 1) modulo 2^64, bit by bit of n: F(2k) = F(k)*(2 F(k+1) - F(k)) and
// F(2k+1) = F(k)^2 + F(k+1)^2.
FibonacciPair fibonacciPair(uint64_t n) {
    FibonacciPair pair{0, 1};
    for (int bit = 63; bit >= 0; --bit) {
        const uint64_t even = pair.at * (2 * pair.after - pair.at);
        const uint64_t odd = pair.at * pair.at + pair.after * pair.after;
        pair = (n >> bit) & 1 ? FibonacciPair{odd, even + odd} : FibonacciPair{even, odd};
    }
    return pair;
}

// The value of |n| under the sign rule that both sequences have here.
int64_t ofSignedIndex(int64_t n, uint64_t (*sequence)(uint64_t, uint32_t*), int64_t limit,
                      uint32_t* flags) {
    const uint64_t value = sequence(magnitude(n), flags);
    if (n >= limit && flags) *flags |= kAboveSigned;
    return withSign(n < 0 && n % 2 == 0, value);
}

}  // namespace

uint64_t uFactorial(uint64_t n, uint32_t* flags) noexcept {
    return lookUp(kFactorials, n, flags);
}

int64_t iFactorial(int64_t n, uint32_t* flags) noexcept {
    store(flags, 0);
    return n < 0 ? 0 : toSigned(uFactorial(static_cast<uint64_t>(n), flags));
}

uint64_t uDoubleFactorial(uint64_t n, uint32_t* flags) noexcept {
    return lookUp(kDoubleFactorials, n, flags);
}

int64_t iDoubleFactorial(int64_t n, uint32_t* flags) noexcept {
    if (n >= 0) return toSigned(uDoubleFactorial(static_cast<uint64_t>(n), flags));
    store(flags, 0);
    if (n == -1) return 1;
    if (n == -3) return -1;
    store(flags, n % 2 != 0 ? NUM_UNDEFINED | NUM_FRACTIONAL : NUM_UNDEFINED);
    return kNoSigned;
}

uint64_t uCatalanNumber(uint64_t n, uint32_t* flags) noexcept {
    return lookUp(kCatalanNumbers, n, flags);
}

uint64_t uBellNumber(uint64_t n, uint32_t* flags) noexcept {
    return lookUp(kBellNumbers, n, flags);
}

uint64_t uEulerNumber(uint64_t n, uint32_t* flags) noexcept {
    store(flags, 0);
    return n % 2 != 0 ? 0 : lookUp(kEulerNumbers, n / 2, flags);
}

int64_t iEulerNumber(int64_t n, uint32_t* flags) noexcept {
    const uint64_t value = uEulerNumber(static_cast<uint64_t>(n), flags);
    if (value >= kTwoTo63Whole) return signedOverflow(flags);
    return withSign((n / 2) % 2 != 0, value);
}

uint64_t uFibonacci(uint64_t n, uint32_t* flags) noexcept {
    store(flags, 0);
    if (n < kFibonacciNumbers.size()) return kFibonacciNumbers[n];
    store(flags, kAboveUnsigned);
    return fibonacciPair(n).at;
}

uint64_t uLucas(uint64_t n, uint32_t* flags) noexcept {
    store(flags, 0);
    if (n < kLucasNumbers.size()) return kLucasNumbers[n];
    store(flags, kAboveUnsigned);
    const FibonacciPair pair = fibonacciPair(n);
    return 2 * pair.after - pair.at;
}

int64_t iFibonacci(int64_t n, uint32_t* flags) noexcept {
    return ofSignedIndex(n, uFibonacci, 93, flags);
}

int64_t iLucas(int64_t n, uint32_t* flags) noexcept {
    return ofSignedIndex(n, uLucas, 92, flags);
}

int64_t iPochhammer(int64_t x, int64_t n, uint32_t* flags) noexcept {
    store(flags, 0);
    if (n == 0) return 1;
    if (x == 0) return 0;
    const uint64_t count = magnitude(n);
    const uint64_t start = magnitude(x);
    // Factors start, start + 1 ... or start, start - 1 ..., down to one that is 0.
    const bool down = (x < 0) != (n < 0);
    if (down && count > start) return 0;
    const bool oddCount = count % 2 != 0;
    const bool negative = (down && oddCount) != (n < 0 && oddCount);
    if (count == 1) return x;
    uint64_t product = start;
    for (uint64_t i = 1; i < count; ++i) {
        const uint64_t factor = down ? start - i : start + i;
        if (__builtin_mul_overflow(product, factor, &product) || product >= kTwoTo63Whole) {
            return signedOverflow(flags);
        }
    }
    return withSign(negative, product);
}

double ruEulerNum(uint64_t n) noexcept {
    if (n % 2 != 0) return 0.0;
    if (n / 2 < kEulerNumbers.size()) return static_cast<double>(kEulerNumbers[n / 2]);
    if (n >= 187) return ___PlsINF;
    const double x = static_cast<double>(n);
    const double n2 = x * x;
    const double n4 = n2 * n2;
    const double base =
        0.23419932609727664 * x * (n2 + 0.075 + 0.000651 / n4) / (n2 - 0.008333333333333333);
    return std::sqrt(10.185916357881302 * x) * ruPower(base, n);
}
