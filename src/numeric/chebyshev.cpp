#include "nuv64/numeric/chebyshev.h"

#include <cmath>

#include "nuv64/core/special_reals.h"

namespace {

constexpr uint64_t kRecurrenceLimit = 64;

double byRecurrence(double x, uint64_t n) {
    double previous = 1.0;
    double value = x;
    for (uint64_t k = 1; k < n; ++k) {
        const double next = 2.0 * x * value - previous;
        previous = value;
        value = next;
    }
    return value;
}

}  // namespace

double rChebyshevT(double x, uint64_t n) noexcept {
    if (n == 0) return 1.0;
    if (n <= kRecurrenceLimit) return byRecurrence(x, n);
    const double degree = static_cast<double>(n);
    const double magnitude = std::fabs(x);
    const double value = magnitude <= 1.0 ? std::cos(degree * std::acos(magnitude))
                                          : std::cosh(degree * std::acosh(magnitude));
    return x < 0.0 && n % 2 != 0 ? -value : value;
}

double rChebyshevTSeries(double x, const double* coefs, uint64_t n) noexcept {
    if (!coefs) return ___NAN;
    double next = 0.0;
    double value = 0.0;
    for (uint64_t k = n; k > 0; --k) {
        const double earlier = 2.0 * x * value - next + coefs[k];
        next = value;
        value = earlier;
    }
    return x * value - next + coefs[0];
}
