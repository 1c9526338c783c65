// What the gamma function's reflection needs: the sine of pi x by the distance of x from the
// nearest integer. The distance is exact, so integers give zero, and a small x of either sign keeps
// all its digits, which x less its floor would lose below zero.
#pragma once

#include <cmath>
#include <numbers>

namespace nuv64 {

inline constexpr double kLnPi = 1.1447298858494002;

// In [-1/2, 1/2]; a not-a-number for an infinity.
inline double fromNearestInteger(double x) noexcept {
    return x - std::rint(x);
}

inline double sinPi(double x) noexcept {
    const double half = 0.5 * std::rint(x);
    const double s = std::sin(std::numbers::pi * fromNearestInteger(x));
    return half == std::rint(half) ? s : -s;
}

}  // namespace nuv64
