#include "nuv64/numeric/real_sequences.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "core/guard.h"
#include "numeric/real_bits.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"
#include "nuv64/numeric/stirling_numbers.h"

namespace {

using nuv64::guardValue;
using nuv64::isNoResult;

constexpr double kEulerGamma = 0.5772156649015329;
constexpr uint64_t kAsymptoticFrom = 50;

constexpr double kHarmonic[] = {
    0.0,
    1.0,
    1.5,
    1.8333333333333333,
    2.0833333333333335,
    2.283333333333333,
    2.45,
    2.592857142857143,
    2.717857142857143,
    2.828968253968254,
    2.9289682539682538,
    3.019877344877345,
    3.103210678210678,
    3.180133755133755,
    3.2515623265623264,
    3.3182289932289932,
    3.3807289932289932,
    3.4395525226407577,
    3.4951080781963135,
    3.547739657143682,
    3.597739657143682,
    3.6453587047627294,
    3.690813250217275,
    3.73429151108684,
    3.7759581777535067,
    3.8159581777535068,
    3.8544197162150455,
    3.8914567532520823,
    3.927171038966368,
    3.961653797587058,
    3.994987130920391,
    4.02724519543652,
    4.05849519543652,
    4.08879822573955,
    4.118209990445433,
    4.146781419016861,
    4.174559196794639,
    4.201586223821666,
    4.22790201329535,
    4.253543038936376,
};
constexpr uint64_t kLastHarmonic = std::size(kHarmonic) - 1;

// Abramowitz and Stegun 6.3.18 at n + 1.
double harmonicAsymptotic(double n) {
    const double u = 1.0 / (n * n);
    return kEulerGamma + rLog(n) + 0.5 / n -
           u * (1.0 / 12.0 - u * (1.0 / 120.0 - u * (1.0 / 252.0)));
}

struct SignedSum {
    double sum;   // with the signs of the terms
    double mass;  // of their magnitudes
};

// S(n, k) as the alternating sum over j of j^n/(j! (k - j)!). It is scaled as it goes: dividing by
// j at each step makes the (k - 1)! of the first term, and the ratio of neighbours has that j too.
SignedSum stirling2Alternating(uint64_t n, uint64_t k) {
    double term = 1.0;
    SignedSum s{1.0, 1.0};
    for (uint64_t i = 1; i < k; ++i) {
        const double j = static_cast<double>(i);
        term *= -(static_cast<double>(k - i) / j / j) * ruPower((j + 1.0) / j, n - 1);
        s.sum = s.sum / j + term;
        s.mass = s.mass / j + std::fabs(term);
        if (isNoResult(s.mass)) break;  // it stays so, and k may be of any size
    }
    if (k % 2 == 0) s.sum = -s.sum;
    return s;
}

double binomial(uint64_t n, uint64_t k) {
    k = std::min(k, n - k);
    double value = 1.0;
    for (uint64_t i = 0; i < k; ++i) {
        value *= static_cast<double>(n - i) / static_cast<double>(i + 1);
    }
    return value;
}

// The partitions of d + j things into j parts without a part of one thing, for j from 0 to most: by
// the thing put last, in a larger part or in a pair (L. Comtet, Advanced Combinatorics, 1974, p.
// 222).
std::vector<double> partitionsWithoutSingles(uint64_t d, uint64_t most) {
    std::vector<double> row(most + 1, 0.0);
    row[0] = 1.0;
    for (uint64_t i = 1; i <= d; ++i) {
        for (uint64_t j = most; j > 0; --j) {
            row[j] = static_cast<double>(j) * row[j] + static_cast<double>(i + j - 1) * row[j - 1];
        }
        row[0] = 0.0;
    }
    return row;
}

// S(n, k) by the number j of its parts of more than one thing, which hold n - k + j things. All
// terms are positive, and the work depends on n - k alone.
double stirling2ByLargerParts(uint64_t n, uint64_t k) {
    const uint64_t d = n - k;
    const std::vector<double> larger = partitionsWithoutSingles(d, std::min(d, k));
    double sum = 0.0;
    for (uint64_t j = 1; j < larger.size(); ++j) sum += larger[j] * binomial(n, d + j);
    return isNoResult(sum) ? ___PlsINF : sum;
}

// For values beyond 64 bits, so for 1 < k < n - 1.
double stirling2Large(uint64_t n, uint64_t k) {
    // S(n, k) is at least k^(n - k). This bounds n - k, and so the work, too.
    if (static_cast<double>(n - k) * rLog(static_cast<double>(k)) > ___LnMaxReal) {
        return ___PlsINF;
    }
    constexpr double kMostCancelled = 4.0;
    const SignedSum s = stirling2Alternating(n, k);
    if (!isNoResult(s.mass) && s.mass < kMostCancelled * s.sum) return s.sum;
    return guardValue(___NAN, [&] { return stirling2ByLargerParts(n, k); });
}

}  // namespace

double rHarmonicNumber(uint64_t n) noexcept {
    if (n <= kLastHarmonic) return kHarmonic[n];
    if (n >= kAsymptoticFrom) return harmonicAsymptotic(static_cast<double>(n));
    double sum = kHarmonic[kLastHarmonic];
    for (uint64_t k = kLastHarmonic + 1; k <= n; ++k) sum += 1.0 / static_cast<double>(k);
    return sum;
}

double rStirling1(uint64_t n, uint64_t k) noexcept {
    if (k > n) return 0.0;
    const double magnitude = ruStirling1(n, k);
    const bool isNegative = (n - k) % 2 != 0;
    if (isNoResult(magnitude)) return isNegative ? ___MnsINF : ___PlsINF;
    return isNegative ? -magnitude : magnitude;
}

double rStirling2(uint64_t n, uint64_t k) noexcept {
    uint32_t flags = 0;
    const uint64_t exact = uStirling2(n, k, &flags);
    if (flags == 0) return static_cast<double>(exact);
    return (flags & NUM_OVERFLOW) != 0 ? stirling2Large(n, k) : ___NAN;
}
