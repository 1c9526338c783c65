#include "nuv64/numeric/chebyshev.h"

#include <cmath>

#include "nuv64/core/special_reals.h"

namespace {

constexpr uint64_t kRecurrenceLimit = 64;
// That of U inside [-1, 1]: near the ends its recurrence gathers errors with the cube of n.
constexpr uint64_t kRecurrenceLimitInside = 8;

// The polynomial of degree n that begins with 1 and first, by P_(k+1) = 2 x P_k - P_(k-1).
double byRecurrence(double x, double first, uint64_t n) {
    double previous = 1.0;
    double value = first;
    for (uint64_t k = 1; k < n; ++k) {
        const double next = 2.0 * x * value - previous;
        previous = value;
        value = next;
    }
    return value;
}

// arcosh(magnitude), good near 1 too, where the plain logarithm of the Windows runtime isn't.
// sinh: that of the result.
double hyperbolicAngle(double magnitude, double sinh) {
    return std::log1p(magnitude - 1.0 + sinh);
}

}  // namespace

double rChebyshevT(double x, uint64_t n) noexcept {
    if (n == 0) return 1.0;
    if (n <= kRecurrenceLimit) return byRecurrence(x, x, n);
    const double degree = static_cast<double>(n);
    const double magnitude = std::fabs(x);
    const double value = magnitude <= 1.0 ? std::cos(degree * std::acos(magnitude))
                                          : std::cosh(degree * std::acosh(magnitude));
    return x < 0.0 && n % 2 != 0 ? -value : value;
}

double rChebyshevU(double x, uint64_t n) noexcept {
    if (n == 0) return 1.0;
    const double magnitude = std::fabs(x);
    const uint64_t limit = magnitude < 1.0 ? kRecurrenceLimitInside : kRecurrenceLimit;
    if (n <= limit) return byRecurrence(x, 2.0 * x, n);
    const double multiple = static_cast<double>(n) + 1.0;
    double value = multiple;
    if (magnitude < 1.0) {
        const double sine = std::sqrt(1.0 + magnitude) * std::sqrt(1.0 - magnitude);
        value = std::sin(multiple * std::acos(magnitude)) / sine;
    } else if (magnitude != 1.0) {
        const double sinh = std::sqrt(magnitude + 1.0) * std::sqrt(magnitude - 1.0);
        value = std::sinh(multiple * hyperbolicAngle(magnitude, sinh)) / sinh;
    }
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
