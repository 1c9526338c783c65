#include "nuv64/numeric/binomials.h"

#include <algorithm>
#include <cmath>

#include "numeric/combinatorial_tables.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/common_divisor.h"
#include "nuv64/numeric/gamma.h"

using namespace nuv64;

namespace {

// k and n - k are at least 2; n may be any number.
uint64_t byProduct(uint64_t n, uint64_t k, uint32_t* flags) {
    uint64_t result = 1;
    for (uint64_t i = 1; i <= k; ++i) {
        uint64_t factor = n - (i - 1);
        uint64_t divisor = i;
        uReduceRatio(&factor, &divisor);
        uReduceRatio(&result, &divisor);  // divisor is 1 now: what is left of it divides result
        if (__builtin_mul_overflow(result, factor, &result)) return overflow(flags);
    }
    return result;
}

// A binomial with its sign, as the upper index a whole number of either sign asks for.
struct SignedBinomial {
    uint64_t n;
    bool negative;
};

// C(n, k) = (-1)^k C(k - n - 1, k) for n below 0.
SignedBinomial reflected(int64_t n, uint64_t k) {
    if (n >= 0) return {static_cast<uint64_t>(n), false};
    return {k + magnitude(n) - 1, k % 2 != 0};
}

// The upper index n + k - 1 for multisets; k above 0. Both indices add up to less than 2^64.
SignedBinomial ofMultisets(int64_t n, uint64_t k) {
    if (n >= 0) return {static_cast<uint64_t>(n) + k - 1, false};
    return reflected(n + static_cast<int64_t>(k) - 1, k);
}

int64_t exactly(const SignedBinomial& top, uint64_t k, uint32_t* flags) {
    const uint64_t value = uBinomial(top.n, k, flags);
    return value >= kTwoTo63Whole ? signedOverflow(flags) : withSign(top.negative, value);
}

double asReal(uint64_t n, uint64_t k) {
    if (k > n) return 0.0;
    k = std::min(k, n - k);
    uint32_t flags = 0;
    const uint64_t exact = uBinomial(n, k, &flags);
    if (flags == 0) return static_cast<double>(exact);
    const auto logFactorial = [](uint64_t m) { return rGammaLn(static_cast<double>(m) + 1.0); };
    return std::exp(logFactorial(n) - logFactorial(n - k) - logFactorial(k));
}

double asReal(const SignedBinomial& top, uint64_t k) {
    const double value = asReal(top.n, k);
    return top.negative ? -value : value;
}

}  // namespace

uint64_t uBinomial(uint64_t n, uint64_t k, uint32_t* flags) noexcept {
    store(flags, 0);
    if (k == 0 || k == n) return 1;
    if (k > n) return 0;
    k = std::min(k, n - k);
    if (k == 1) return n;
    if (n < kFactorials.size()) return kFactorials[n] / kFactorials[k] / kFactorials[n - k];
    return byProduct(n, k, flags);
}

uint64_t uCentralBinomial(uint64_t n, uint32_t* flags) noexcept {
    return uBinomial(n, n / 2, flags);
}

uint64_t uCountMultisets(uint64_t n, uint64_t k, uint32_t* flags) noexcept {
    const uint64_t top = n + k - 1;
    // With an upper index of 2^64 or more, all but the edges are at least as large.
    if (n > 1 && k > 0 && top < k) return overflow(flags);
    return uBinomial(top, k, flags);
}

int64_t iBinomial(int64_t n, int64_t k, uint32_t* flags) noexcept {
    store(flags, 0);
    if (k == 0) return 1;
    if (k == 1) return n;
    if (k < 0) return 0;
    const auto lower = static_cast<uint64_t>(k);
    return exactly(reflected(n, lower), lower, flags);
}

int64_t iCountMultisets(int64_t n, int64_t k, uint32_t* flags) noexcept {
    store(flags, 0);
    if (k == 0) return 1;
    if (k == 1) return n;
    if (k < 0) return 0;
    const auto lower = static_cast<uint64_t>(k);
    return exactly(ofMultisets(n, lower), lower, flags);
}

double riBinomial(int64_t n, int64_t k) noexcept {
    if (k == 0) return 1.0;
    if (k < 0) return 0.0;
    const auto lower = static_cast<uint64_t>(k);
    return asReal(reflected(n, lower), lower);
}

double riCatalanNumber(int64_t n) noexcept {
    if (n < 0) return ___NAN;
    const auto count = static_cast<uint64_t>(n);
    return asReal(2 * count, count) / (static_cast<double>(n) + 1.0);
}

double riCentralBinomial(int64_t n) noexcept {
    if (n < 0) return ___NAN;
    const auto count = static_cast<uint64_t>(n);
    return asReal(count, count / 2);
}

double riCountMultisets(int64_t n, int64_t k) noexcept {
    if (k == 0) return 1.0;
    if (k < 0) return 0.0;
    const auto lower = static_cast<uint64_t>(k);
    return asReal(ofMultisets(n, lower), lower);
}
