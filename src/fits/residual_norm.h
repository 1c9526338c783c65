// The residual norms that all searches score by.
#pragma once

#include <cmath>
#include <cstdint>

namespace nuv64 {

inline constexpr std::uint32_t kRelativeNorm = 0x100;

// Scores keep the largest contribution instead of the sum.
inline bool keepsLargest(std::uint32_t flags) noexcept {
    return (flags & 5) != 0;
}

// The norm is the square of the difference, nothing else.
inline bool isPlainSquare(std::uint32_t flags) noexcept {
    const std::uint32_t norm = flags & 0xFF;
    return (norm == 0 || norm > 5) && !(flags & kRelativeNorm);
}

inline double residualNorm(double observed, double model, std::uint32_t flags) noexcept {
    double d = std::fabs(observed - model);
    if (d == 0.0) return 0.0;
    if (flags & kRelativeNorm) {
        const double reference = observed == 0.0 ? (observed + model) / 2.0 : observed;
        d /= std::fabs(reference);
    }
    switch (flags & 0xFF) {
        case 1:
        case 5:
            return d;
        case 2:
            return std::sqrt(d);
        case 3:
            return d * d * d;
        case 4:
            return (d * d) * (d * d);
        default:
            return d * d;
    }
}

}  // namespace nuv64
