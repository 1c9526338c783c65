// Sums of squared deviations from a centre.
#pragma once

#include <cstdint>

namespace nuv64 {

// The sum, upward, of (Measure(a[i]) - centre)^2.
template <class Measure>
double squaredDeviations(uint64_t n, const double* a, double centre) noexcept {
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double deviation = Measure{}(a[i]) - centre;
        sum += deviation * deviation;
    }
    return sum;
}

}  // namespace nuv64
