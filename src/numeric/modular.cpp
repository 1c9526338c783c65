// Arithmetic modulo m and the permutations that it makes.
#include "numeric/modular.h"

#include "nuv64/numeric/number_theory.h"

using nuv64::Wide128;

namespace {

constexpr uint64_t kNone = UINT64_MAX;

// a*b mod m for a and b below m, in 64 bits throughout: where the plain product overflows, half of
// the larger factor is taken first.
uint64_t mulReduced(uint64_t a, uint64_t b, uint64_t m) {
    bool negative = false;
    const auto shorten = [&](uint64_t& x) {
        if (m - x < x) {
            x = m - x;
            negative = !negative;
        }
    };
    shorten(a);
    shorten(b);
    const uint64_t big = a > b ? a : b;
    const uint64_t small = a > b ? b : a;
    uint64_t product = 0;
    if (small > 1 && big > 0xFFFFFFFF && small > UINT64_MAX / big) {
        const uint64_t half = mulReduced(small, big >> 1, m);
        product = uModAdd3(half, half, (big & 1) ? small : 0, m);
    } else {
        product = big * small % m;
    }
    return negative && product != 0 ? m - product : product;
}

}  // namespace

uint64_t uModAdd(uint64_t a, uint64_t b, uint64_t m) noexcept {
    if (m == 0) return 0;
    const uint64_t sum = a + b;
    if (sum >= a) return sum % m;
    return (sum % m + UINT64_MAX % m + 1) % m;  // the carry is worth 2^64
}

uint64_t uModAdd3(uint64_t a, uint64_t b, uint64_t c, uint64_t m) noexcept {
    return uModAdd(uModAdd(a, b, m), c, m);
}

uint64_t uModMul(uint64_t a, uint64_t b, uint64_t m) noexcept {
    return m == 0 ? 0 : mulReduced(a % m, b % m, m);
}

uint64_t uModPwr(uint64_t b, uint64_t e, uint64_t m) noexcept {
    if (m < 2) return 0;
    if (e == 0) return 1;
    uint64_t base = b % m;
    if (base < 2 || e == 1) return base;
    uint64_t power = 1;
    for (;; base = uModMul(base, base, m)) {
        if (e & 1) power = uModMul(power, base, m);
        if ((e >>= 1) == 0) return power;
    }
}

uint64_t uPermuteNc0(uint64_t i, uint64_t n, uint64_t c) noexcept {
    return n == 0 ? kNone : nuv64::mulMod(i, c, n);
}

uint64_t uPermuteNc(uint64_t i, uint64_t n, uint64_t c) noexcept {
    return uPermuteNc0(i + 1, n + 1, c) - 1;
}

// j + k*n = 0 mod c has a solution only when g = gcd(n, c) divides j; the smallest k is then
// -j/g times the inverse of n/g, modulo c/g.
uint64_t uPermuteNc0Inv(uint64_t j, uint64_t n, uint64_t c) noexcept {
    if (n == 0 || c == 0) return kNone;
    const uint64_t common = std::gcd(n, c);
    if (j % common != 0) return kNone;
    const uint64_t modulus = c / common;
    const uint64_t wanted = (modulus - j / common % modulus) % modulus;
    const uint64_t k = nuv64::mulMod(wanted, nuv64::inverseMod(n / common, modulus), modulus);
    return static_cast<uint64_t>((j + static_cast<Wide128>(k) * n) / c % n);
}

uint64_t uPermuteNcInv(uint64_t j, uint64_t n, uint64_t c) noexcept {
    const uint64_t index = uPermuteNc0Inv(j + 1, n + 1, c);
    return index == kNone ? kNone : index - 1;
}
