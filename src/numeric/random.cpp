// Park and Miller, Random number generators: good ones are hard to find, CACM 31 (1988) 1192; Bays
// and Durham, ACM TOMS 2 (1976) 59; the product is taken by Schrage's division, which stays within
// 32 bits. Marsaglia and Bray, SIAM Review 6 (1964) 260.
#include "nuv64/numeric/random.h"

#include "numeric/random_source.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace nuv64 {
namespace {

constexpr std::int64_t kModulus = 2147483647;  // 2^31 - 1, a prime
constexpr std::int64_t kMultiplier = 16807;
constexpr std::int64_t kQuotient = 127773;        // kModulus / kMultiplier
constexpr std::int64_t kRemainder = 2836;         // kModulus % kMultiplier
constexpr std::int64_t kEntryWidth = 67108864;    // 2^26: kModulus / entries, rounded up
constexpr double kScale = 4.656612875245797e-10;  // 1 / kModulus

RandomSource& sharedSource() {
    static RandomSource source(KoRandomSeed());
    return source;
}

}  // namespace

// The low 32 bits of the seed, halved and raised by 1. A state of 0 modulo 2^31 - 1 would stay 0
// for ever, so that one seed in 2^31 is moved on.
RandomSource::RandomSource(std::uint64_t seed) noexcept
    : state_(static_cast<std::int64_t>((seed & 0xFFFFFFFF) >> 1) + 1) {
    if (state_ % kModulus == 0) state_ = 1;
    constexpr int kRounds = 40;
    for (int round = kRounds - 1; round >= 0; --round) {
        next();
        if (round < kEntries) table_[round] = state_;
    }
    previous_ = table_[0];
}

std::int64_t RandomSource::next() noexcept {
    const std::int64_t k = state_ / kQuotient;
    state_ = (state_ - k * kQuotient) * kMultiplier - k * kRemainder;
    if (state_ < 0) state_ += kModulus;
    return state_;
}

double RandomSource::uniform() noexcept {
    next();
    std::int64_t& entry = table_[previous_ / kEntryWidth];
    previous_ = entry;
    entry = state_;
    static const double limit = 1.0 - ___2EpsReal;
    const double value = kScale * static_cast<double>(previous_);
    return value < limit ? value : limit;
}

double RandomSource::normal() noexcept {
    if (hasSpare_) {
        hasSpare_ = false;
        return spare_;
    }
    double v1, v2, s;
    do {
        v1 = 2.0 * uniform() - 1.0;
        v2 = 2.0 * uniform() - 1.0;
        s = v1 * v1 + v2 * v2;
    } while (s > 1.0 || 1e-20 > s);
    const double f = rSqrt(-2.0 * rLog(s) / s);
    spare_ = v1 * f;
    hasSpare_ = true;
    return v2 * f;
}

}  // namespace nuv64

double pRgUniform0(void) noexcept {
    return nuv64::sharedSource().uniform();
}

double pRgNormal0(void) noexcept {
    return nuv64::sharedSource().normal();
}
