#include "nuv64/numeric/sine_cosine_integrals.h"

#include <cmath>
#include <numbers>

#include "numeric/horner.h"
#include "numeric/sine_cosine_coefficients.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_logarithm.h"

namespace {

using nuv64::horner;

constexpr double kEulerGamma = 0.5772156649015329;
constexpr double kNearTo = 4.0;

// f and g of Abramowitz and Stegun 5.2.6 and 5.2.7.
struct Auxiliary {
    double f;
    double g;
};

Auxiliary auxiliary(double x) {
    const double inverse = 1.0 / x;
    const double u = inverse * inverse;
    return {inverse * (horner(nuv64::kAuxiliaryFP, u) / horner(nuv64::kAuxiliaryFQ, u)),
            u * (horner(nuv64::kAuxiliaryGP, u) / horner(nuv64::kAuxiliaryGQ, u))};
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
    if (x <= kNearTo) {
        const double u = x * x;
        return kEulerGamma + rLog(x) +
               u * (horner(nuv64::kCosineNearP, u) / horner(nuv64::kCosineNearQ, u));
    }
    if (std::isinf(x)) return 0.0;
    const Auxiliary a = auxiliary(x);
    return a.f * std::sin(x) - a.g * std::cos(x);
}
