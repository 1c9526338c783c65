#include "nuv64/numeric/sine_cosine_integrals.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "numeric/horner.h"
#include "numeric/sine_cosine_coefficients.h"
#include "nuv64/core/special_reals.h"

namespace {

using nuv64::horner;

constexpr double kEulerGamma = 0.5772156649015329;
constexpr double kNearTo = 4.0;

// f and g of Abramowitz and Stegun 5.2.6 and 5.2.7.
struct Auxiliary {
    double f;
    double g;
};

// P - c Q for the c, a power of two, that takes the low term away; without that term.
template <std::size_t N>
constexpr std::array<double, N - 1> differences(const double (&p)[N], const double (&q)[N]) {
    std::array<double, N - 1> d{};
    for (std::size_t k = 1; k < N; ++k) d[k - 1] = p[k] - p[0] * q[k];
    return d;
}

constexpr auto kCosineNearD = differences(nuv64::kCosineNearP, nuv64::kCosineNearQ);
constexpr auto kAuxiliaryFD = differences(nuv64::kAuxiliaryFP, nuv64::kAuxiliaryFQ);
constexpr auto kAuxiliaryGD = differences(nuv64::kAuxiliaryGP, nuv64::kAuxiliaryGQ);

// P/Q as 1 + (P - Q)/Q: the ratios are near 1, and so only the small rest carries the rounding of
// the polynomials.
template <std::size_t N>
double nearOne(const std::array<double, N - 1>& difference, const double (&q)[N], double u) {
    return 1.0 + u * horner(difference, u) / horner(q, u);
}

// The sum of three with their roundings put back, and a small fourth.
double sumOf(double a, double b, double c, double small) {
    const double ab = a + b;
    const double restOfB = ab - a;
    const double firstError = (a - (ab - restOfB)) + (b - restOfB);
    const double abc = ab + c;
    const double restOfC = abc - ab;
    const double secondError = (ab - (abc - restOfC)) + (c - restOfC);
    return abc + (firstError + secondError + small);
}

// What x*x loses (Dekker).
double restOfSquare(double x, double square) {
    constexpr double kSplitter = 0x1p27 + 1.0;
    const double high = kSplitter * x - (kSplitter * x - x);
    const double low = x - high;
    return ((high * high - square) + 2.0 * high * low) + low * low;
}

// Euler's constant + ln x + u P/Q with P/Q = -1/4 + (P + Q/4)/Q: between its zeros Ci is smaller
// than its terms, and their roundings would show.
double cosineNear(double x) {
    const double u = x * x;
    const double rest = u * u * horner(kCosineNearD, u) / horner(nuv64::kCosineNearQ, u);
    return sumOf(kEulerGamma, std::log(x), -0.25 * u, rest - 0.25 * restOfSquare(x, u));
}

Auxiliary auxiliary(double x) {
    const double inverse = 1.0 / x;
    const double u = inverse * inverse;
    return {inverse * nearOne(kAuxiliaryFD, nuv64::kAuxiliaryFQ, u),
            u * nearOne(kAuxiliaryGD, nuv64::kAuxiliaryGQ, u)};
}

}  // namespace

double rSineIntegral(double x) noexcept {
    if (std::isnan(x)) return ___NAN;
    if (x < 0.0) return 0.0;
    if (x <= kNearTo) {
        const double u = x * x;
        return x * (horner(nuv64::kSineNearP, u) / horner(nuv64::kSineNearQ, u));
    }
    if (std::isinf(x)) return std::numbers::pi / 2;
    const Auxiliary a = auxiliary(x);
    return std::numbers::pi / 2 - a.f * std::cos(x) - a.g * std::sin(x);
}

double rCosineIntegral(double x) noexcept {
    if (std::isnan(x)) return ___NAN;
    if (x < 0.0) return 0.0;
    if (x <= ___MinReal) return ___NAN;
    if (x <= kNearTo) return cosineNear(x);
    if (std::isinf(x)) return 0.0;
    const Auxiliary a = auxiliary(x);
    return a.f * std::sin(x) - a.g * std::cos(x);
}
