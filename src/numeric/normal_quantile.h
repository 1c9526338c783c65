// A first guess for quantiles: Abramowitz and Stegun 26.2.22, good to 3e-3.
#pragma once

#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"

namespace nuv64 {

// The point that a standard normal variable exceeds with the probability p.
inline double normalQuantileGuess(double p) noexcept {
    const double tail = p < 0.5 ? p : 1.0 - p;
    const double t = rSqrt(-2.0 * rLog(tail));
    const double x = (2.30753 + 0.27061 * t) / (1.0 + t * (0.99229 + 0.04481 * t)) - t;
    return p < 0.5 ? -x : x;
}

}  // namespace nuv64
