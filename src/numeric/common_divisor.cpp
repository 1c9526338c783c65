#include "nuv64/numeric/common_divisor.h"

#include "numeric/combinatorial_tables.h"

using namespace nuv64;

uint64_t uGcd(uint64_t a, uint64_t b) noexcept {
    while (b != 0) {
        const uint64_t rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

int64_t iGcd(int64_t a, int64_t b) noexcept {
    return static_cast<int64_t>(uGcd(magnitude(a), magnitude(b)));
}

bool uAreCoprime(uint64_t a, uint64_t b) noexcept {
    return uGcd(a, b) == 1;
}

bool uAreNotCoprime(uint64_t a, uint64_t b) noexcept {
    return !uAreCoprime(a, b);
}

bool iAreCoprime(int64_t a, int64_t b) noexcept {
    return uAreCoprime(magnitude(a), magnitude(b));
}

bool iAreNotCoprime(int64_t a, int64_t b) noexcept {
    return !iAreCoprime(a, b);
}

bool iReduceRatio(int64_t* n, int64_t* d) noexcept {
    if (!n || !d) return false;
    if (*d == 0) {
        *n = *n < 0 ? -1 : 1;
        return true;
    }
    uint64_t numerator = magnitude(*n);
    uint64_t denominator = magnitude(*d);
    const bool reduced = uReduceRatio(&numerator, &denominator);
    *n = withSign((*n < 0) != (*d < 0), numerator);
    *d = withSign(false, denominator);
    return reduced;
}

bool uReduceRatio(uint64_t* n, uint64_t* d) noexcept {
    if (!n || !d) return false;
    if (*d == 0) {
        *n = 1;
        return true;
    }
    const uint64_t divisor = uGcd(*n, *d);
    if (divisor < 2) return false;
    *n /= divisor;
    *d /= divisor;
    return true;
}
