#include "nuv64/core/moon_phase.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "core/real_rounding.h"

namespace nuv64 {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kLunationsInCentury = 1236.85;
constexpr std::int64_t kDayOfLunation0 = 2415020;

std::int32_t phaseModulo4(std::int32_t phase) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(phase) % 4u);
}

// How far the true phase is from the mean one, in days: the sun's and the moon's equation of the
// centre.
double periodicTerms(double k, double t, bool isQuarter) noexcept {
    const double m = (359.2242 + 29.105356 * k) * kDegree;
    const double mp = (306.0253 + 385.816918 * k + 0.01073 * t * t) * kDegree;
    if (isQuarter) return (0.1721 - 0.0004 * t) * std::sin(m) - 0.628 * std::sin(mp);
    return (0.1734 - 0.000393 * t) * std::sin(m) - 0.4068 * std::sin(mp);
}

std::int32_t clampToInt32(std::int64_t value) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

void tMoonPhases(int32_t lunation, int32_t phase, int32_t* day, double* fraction) noexcept {
    const std::int32_t p = phaseModulo4(phase);
    const double k = lunation + p / 4.0;
    const double t = k / kLunationsInCentury;
    const double x = 0.75933 + 1.53058868 * k + (0.0001178 - 1.55e-7 * t) * t * t +
                     periodicTerms(k, t, p % 2 != 0);
    // Below 0 one more is taken away than a floor would take, but for whole numbers the same.
    const double whole = x > 0.0 ? std::floor(x) : std::ceil(x - 1.0);
    const std::int64_t days = lunation * std::int64_t{28} + p * 7 + kDayOfLunation0;
    if (day) *day = clampToInt32(days + clampToQlong(whole));
    if (fraction) *fraction = x - whole;
}
