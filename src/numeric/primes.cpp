#include "nuv64/numeric/number_theory.h"

namespace {

// The divisors 3, 5, 7, 11 and then all numbers without a factor of 2, 3, 5 or 7: from kTurn on the
// increments repeat, their sum is 210.
constexpr uint32_t kWheel[] = {1, 2, 2, 4, 2, 4, 2, 4, 6, 2, 6, 4, 2, 4,  6, 6, 2, 6,
                               4, 2, 6, 4, 6, 8, 4, 2, 4, 2, 4, 8, 6, 4,  6, 2, 4, 6,
                               2, 6, 6, 4, 2, 4, 6, 2, 6, 4, 2, 4, 2, 10, 2, 10};
constexpr unsigned kFirst = 1;
constexpr unsigned kTurn = 4;
constexpr unsigned kEnd = 52;
static_assert(sizeof kWheel / sizeof *kWheel == kEnd);

constexpr uint64_t kTrialLimit = 1000;  // divisors tried before the Fermat test

enum class Verdict { kPrime, kComposite, kOpen };

// Divides n by divisors from divisor on to the end of the wheel's turn.
Verdict divideOneTurn(uint64_t n, uint64_t& divisor, unsigned index) {
    for (; index < kEnd; divisor += kWheel[index++]) {
        const uint64_t quotient = n / divisor;
        if (divisor > quotient) return Verdict::kPrime;
        if (quotient * divisor == n) return Verdict::kComposite;
    }
    return Verdict::kOpen;
}

}  // namespace

bool uIsPrime(uint64_t n) noexcept {
    if (n < 2) return false;
    if (n % 2 == 0) return n == 2;
    uint64_t divisor = 3;
    Verdict verdict = divideOneTurn(n, divisor, kFirst);
    while (verdict == Verdict::kOpen && divisor <= kTrialLimit) {
        verdict = divideOneTurn(n, divisor, kTurn);
    }
    if (verdict == Verdict::kOpen && uModPwr(2, n - 1, n) != 1) return false;
    while (verdict == Verdict::kOpen) verdict = divideOneTurn(n, divisor, kTurn);
    return verdict == Verdict::kPrime;
}

uint64_t uNextPrime(uint64_t n) noexcept {
    if (n < 2) return 2;
    for (uint64_t candidate = n + 1 + n % 2; candidate > n; candidate += 2) {
        if (uIsPrime(candidate)) return candidate;
    }
    return UINT64_MAX;
}

uint64_t uPrevPrime(uint64_t n) noexcept {
    if (n < 3) return UINT64_MAX;
    if (n == 3) return 2;
    uint64_t candidate = n - 1 - n % 2;
    while (!uIsPrime(candidate)) candidate -= 2;
    return candidate;
}
