// The rotation that turns (a, b) onto the first axis, inline: iterations on matrices wait for one
// of them after the other.
#pragma once

#include <cmath>

#include "nuv64/numeric/real_powers.h"

namespace nuv64 {

struct GivensRotation {
    double c;
    double s;
    double length;
};

// The length of two numbers of which the larger one is 1 in magnitude, as rHypot gives it, which
// divides and multiplies by that 1.
inline double lengthOverLarger(double x, double y) noexcept {
    const double magnitudeX = std::fabs(x);
    const double magnitudeY = std::fabs(y);
    const double large = magnitudeX > magnitudeY ? magnitudeX : magnitudeY;
    const double r = magnitudeX > magnitudeY ? magnitudeY : magnitudeX;
    if (large != 1.0) return rHypot(x, y);  // infinities and not-a-numbers
    const double r2 = r * r;
    if (r < 0.001) return 1.0 + r2 * (0.5 + r2 * (-0.125 + r2 * 0.0625));
    return std::sqrt(1.0 + r2);
}

inline GivensRotation givensRotation(double a, double b) noexcept {
    const double magnitudeA = std::fabs(a);
    const double magnitudeB = std::fabs(b);
    const double scale = magnitudeA > magnitudeB ? magnitudeA : magnitudeB;
    // The length is 0, or the not-a-number that was not found larger.
    if (scale == 0.0) return {1.0, 0.0, magnitudeA + magnitudeB};
    const double x = a / scale;
    const double y = b / scale;
    const double length = lengthOverLarger(x, y);
    return {x / length, y / length, scale * length};
}

}  // namespace nuv64
