// The sign of one real on another.
#pragma once

namespace nuv64 {

// magnitude, negated where x is below 0: zeros of either sign and not-a-numbers count as positive,
// in which it differs from copysign.
inline double withSignOf(double x, double magnitude) noexcept {
    return x < 0.0 ? -magnitude : magnitude;
}

}  // namespace nuv64
