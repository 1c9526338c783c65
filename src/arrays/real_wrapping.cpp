#include "nuv64/arrays/real_wrapping.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>

#include "arrays/element_loops.h"

using namespace nuv64;

namespace {

// The fraction of x with its sign, as modf gives it: adding and taking away 2^52 rounds a magnitude
// below 2^52 to a whole number.
Pair fraction(Pair x) noexcept {
    constexpr double kNoFraction = 4503599627370496.0;  // 2^52
    const Pair size = magnitudeOf(x);
    const Pair nearest = (size + kNoFraction) - kNoFraction;
    const Pair whole = nearest > size ? nearest - 1.0 : nearest;
    const Pair rest = size >= kNoFraction ? bothOf(0.0) : size - whole;
    return withSigns(rest, signsOf(x));
}

// The powers of two around |x|, between which all doubles have one spacing.
struct Binade {
    double low;
    double high;

    explicit Binade(double x) noexcept {
        constexpr uint64_t kExponent = 0x7FF0000000000000;
        constexpr double kSmallest = std::numeric_limits<double>::min();
        constexpr double kLargest = std::numeric_limits<double>::max();
        low = std::bit_cast<double>(std::bit_cast<uint64_t>(x) & kExponent);
        high = low < kSmallest ? kSmallest : std::min(2.0 * low, kLargest);
    }
    bool holds(double x) const noexcept { return low <= std::fabs(x) && std::fabs(x) < high; }
};

// Within a binade every step moves by the same amount, from the second on (a step that lies halfway
// between two spacings depends on the parity of where it starts, and ends on an even place). So
// many steps are one exact addition, as long as it stays within the binade and short of the goal,
// about `room` away; the last step before either is left out. Returns value where there are no such
// steps.
double takeManySteps(double value, double step, double room) noexcept {
    const Binade binade(value);
    const double first = value + step;
    const double second = first + step;
    if (!binade.holds(value) || !binade.holds(first) || !binade.holds(second)) return value;
    const double moved = second - first;
    const bool shrinks = std::fabs(second) < std::fabs(first);
    const double inBinade =
        shrinks ? std::fabs(first) - binade.low : binade.high - std::fabs(first);
    const double steps = std::floor(std::min(inBinade, room) / std::fabs(moved)) - 1.0;
    return steps >= 2.0 && std::isfinite(steps) ? first + steps * moved : value;
}

// Adds step to value as long as value - reference is beyond the limit.
template <class Beyond>
double stepBack(double value, double reference, double step, double limit, Beyond beyond) noexcept {
    constexpr int kSingleSteps = 8;
    for (int count = 0; beyond(value - reference); ++count) {
        if (count >= kSingleSteps) {
            const double room = std::fabs(value - reference - limit);
            const double far = takeManySteps(value, step, room);
            if (far != value && beyond(far - reference)) value = far;
        }
        const double next = value + step;
        if (next == value) break;
        value = next;
    }
    return value;
}

// beyondLow and beyondHigh compare a difference with the limits -half and half.
template <class BeyondLow>
uint32_t unwrap(uint64_t n, const double* in, double* out, double period, double half,
                BeyondLow beyondLow) noexcept {
    if (!in) return 22;
    if (!out) return 18;
    if (n == 0) return kSuccess;
    out[0] = in[0];
    for (uint64_t i = 1; i < n; ++i) {
        const double reference = out[i - 1];
        const double value = stepBack(in[i], reference, -period, half,
                                      [half](double difference) { return difference >= half; });
        out[i] = stepBack(value, reference, period, -half, beyondLow);
    }
    return kSuccess;
}

}  // namespace

uint32_t RArrModf(uint64_t n, const double* in, double* out, double period) noexcept {
    const Pair zero = bothOf(0.0);
    return mapElementPairs(n, in, out, [period, zero](Pair x) {
        const Pair wrapped = period * fraction(x / period);
        return wrapped == period ? zero : wrapped;
    });
}

uint32_t RArrIpModf(uint64_t n, double* array, double period) noexcept {
    return RArrModf(n, array, array, period);
}

uint32_t RArrSignedModf(uint64_t n, const double* in, double* out, double period) noexcept {
    const double half = period / 2.0;
    return mapElementPairs(n, in, out, [period, half](Pair x) {
        const Pair wrapped = period * fraction(x / period);
        return wrapped >= half ? wrapped - period : wrapped;
    });
}

uint32_t RArrIpSignedModf(uint64_t n, double* array, double period) noexcept {
    return RArrSignedModf(n, array, array, period);
}

uint32_t RArrInversSignedModf(uint64_t n, const double* in, double* out, double period) noexcept {
    const double half = period / 2.0;
    return unwrap(n, in, out, period, half,
                  [half](double difference) { return -half > difference; });
}

uint32_t RArrIpInversSignedModf(uint64_t n, double* array, double period) noexcept {
    return RArrInversSignedModf(n, array, array, period);
}

uint32_t RArrRegularizePhase(uint64_t n, const double* in, double* out) noexcept {
    constexpr double pi = std::numbers::pi;
    return unwrap(n, in, out, 2.0 * pi, pi, [](double difference) { return -pi >= difference; });
}
