#include "nuv64/numeric/sine_cosine_integrals.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>

#include "numeric/horner.h"
#include "numeric/sine_cosine_coefficients.h"
#include "nuv64/core/special_reals.h"

namespace {

using nuv64::horner;

constexpr double kEulerGamma = 0.5772156649015329;
constexpr double kNearTo = 4.0;

// f and g of Abramowitz and Stegun 5.2.6 and 5.2.7, as x f - 1 and x g: both small for large x.
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

// P - Q/2, with its low term: Si(x)/x falls from 1 to 0.44, and P/Q itself would lose by the
// cancelling of P.
constexpr auto kSineNearD = [] {
    std::array<double, std::size(nuv64::kSineNearP)> d{};
    for (std::size_t k = 0; k < d.size(); ++k) {
        d[k] = nuv64::kSineNearP[k] - 0.5 * nuv64::kSineNearQ[k];
    }
    return d;
}();

constexpr auto kCosineNearD = differences(nuv64::kCosineNearP, nuv64::kCosineNearQ);
constexpr auto kAuxiliaryFD = differences(nuv64::kAuxiliaryFP, nuv64::kAuxiliaryFQ);
constexpr auto kAuxiliaryGD = differences(nuv64::kAuxiliaryGP, nuv64::kAuxiliaryGQ);

// P/Q - 1 as (P - Q)/Q: the ratios are near 1, and so only the small rest carries the rounding of
// the polynomials.
template <std::size_t N>
double restOfRatio(const std::array<double, N - 1>& difference, const double (&q)[N], double u) {
    return u * horner(difference, u) / horner(q, u);
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
    const double ratio = u * horner(kCosineNearD, u) / horner(nuv64::kCosineNearQ, u);
    const double lost = (2.0 * ratio - 0.25) * restOfSquare(x, u);
    return sumOf(kEulerGamma, std::log(x), -0.25 * u, u * ratio + lost);
}

Auxiliary auxiliary(double x) {
    const double inverse = 1.0 / x;
    const double u = inverse * inverse;
    return {restOfRatio(kAuxiliaryFD, nuv64::kAuxiliaryFQ, u),
            inverse + inverse * restOfRatio(kAuxiliaryGD, nuv64::kAuxiliaryGQ, u)};
}

}  // namespace

double rSineIntegral(double x) noexcept {
    if (std::isnan(x)) return ___NAN;
    if (x < 0.0) return 0.0;
    if (x <= kNearTo) {
        const double u = x * x;
        return x * (0.5 + horner(kSineNearD, u) / horner(nuv64::kSineNearQ, u));
    }
    if (std::isinf(x)) return std::numbers::pi / 2;
    const Auxiliary a = auxiliary(x);
    const double cosine = std::cos(x);
    return std::numbers::pi / 2 - (cosine + (a.f * cosine + a.g * std::sin(x))) / x;
}

double rCosineIntegral(double x) noexcept {
    if (std::isnan(x)) return ___NAN;
    if (x < 0.0) return 0.0;
    if (x <= ___MinReal) return ___NAN;
    if (x <= kNearTo) return cosineNear(x);
    if (std::isinf(x)) return 0.0;
    const Auxiliary a = auxiliary(x);
    const double sine = std::sin(x);
    return (sine + (a.f * sine - a.g * std::cos(x))) / x;
}
