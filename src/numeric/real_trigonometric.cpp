#include "nuv64/numeric/real_trigonometric.h"

#include <cmath>
#include <numbers>

#include "core/optional_output.h"
#include "numeric/horner.h"
#include "numeric/sign_transfer.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/bessel.h"
#include "nuv64/numeric/chebyshev.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using nuv64::store;
using nuv64::withSignOf;

constexpr double kPi = std::numbers::pi;

// Taylor coefficients in x^2, good below 0.001: the terms left out are below 2^-62.
constexpr double kBranch = 0.001;
constexpr double kTanT1[] = {1.0, 1.0 / 3, 2.0 / 15};
constexpr double kTanT3[] = {1.0 / 3, 2.0 / 15, 17.0 / 315};
constexpr double kCosT2[] = {1.0 / 2, -1.0 / 24, 1.0 / 720};

constexpr double kLambertEnd = 0.75;  // below it the continued fraction is good to all digits
constexpr double kLambertLast = 19.0;

// q of tan(x) = x/(1 - x^2 q), q = 1/(3 - x^2/(5 - x^2/(7 - ...))); x2 = x^2.
double lambertTail(double x2) {
    double denominator = kLambertLast;
    for (double odd = kLambertLast - 2.0; odd >= 3.0; odd -= 2.0) {
        denominator = odd - x2 / denominator;
    }
    return 1.0 / denominator;
}

struct Direction {
    double sine;
    double cosine;
};

Direction directionOfTangent(double t) {
    const double magnitude = std::fabs(t);
    const double inverse = 1.0 / t;
    const double cosine = magnitude > 1.0 ? 1.0 / (magnitude * std::sqrt(1.0 + inverse * inverse))
                                          : 1.0 / std::sqrt(1.0 + t * t);
    return {t * cosine, cosine};
}

}  // namespace

double rSin(double x) noexcept {
    return std::sin(x);
}

double rCos(double x) noexcept {
    return std::cos(x);
}

double rTan(double x) noexcept {
    return std::tan(x);
}

double rSec(double x) noexcept {
    return 1.0 / rCos(x);
}

double rTanD(double x) noexcept {
    const double tangent = rTan(x);
    return 1.0 + tangent * tangent;
}

double rTanA(double x) noexcept {
    return -std::log(std::fabs(rCos(x)));
}

double rTanT1(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude >= kPi / 2) return ___NAN;
    if (magnitude < kBranch) return nuv64::horner(kTanT1, magnitude * magnitude);
    return std::tan(magnitude) / magnitude;
}

double rTanT3(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude >= kPi / 2) return ___NAN;
    const double square = magnitude * magnitude;
    if (magnitude < kBranch) return nuv64::horner(kTanT3, square);
    if (magnitude < kLambertEnd) {
        const double tail = lambertTail(square);
        return tail / (1.0 - square * tail);
    }
    return (std::tan(magnitude) - magnitude) / (square * magnitude);
}

double rCosT2(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < kBranch) return nuv64::horner(kCosT2, magnitude * magnitude);
    const double ratio = std::sin(0.5 * magnitude) / magnitude;
    return 2.0 * (ratio * ratio);
}

double rCosT1(double x) noexcept {
    return x * rCosT2(x);
}

double rSinc(double x) noexcept {
    return rBessel_j0(x);
}

double rSincNormalized(double x) noexcept {
    return rSinc(kPi * x);
}

double rHsinc(double x) noexcept {
    return -rCosT1(x);
}

double rAsin(double x) noexcept {
    return std::asin(x);
}

double rAcos(double x) noexcept {
    const double magnitude = std::fabs(x);
    const double angle = magnitude > 1.0 ? ___NAN : std::acos(magnitude);
    return x < 0.0 ? kPi - angle : angle;
}

double rAtan(double x) noexcept {
    return std::atan(x);
}

double rAtanD(double x) noexcept {
    return 1.0 / (1.0 + x * x);
}

double rAcosXR(double x, double r) noexcept {
    if (r == 0.0) return ___NAN;
    if (r < 0.0) return rAcosXR(-x, -r);
    const double magnitude = std::fabs(x);
    const double angle = magnitude > r ? 0.0 : rAcos(magnitude / r);
    return x < 0.0 ? kPi - angle : angle;
}

double rAsinXR(double x, double r) noexcept {
    if (r == 0.0) return ___NAN;
    if (r < 0.0) return rAsinXR(-x, -r);
    const double magnitude = std::fabs(x);
    return withSignOf(x, magnitude > r ? 0.0 : rAsin(magnitude / r));
}

double rAcosXY(double x, double y) noexcept {
    return rAcosXR(x, rHypot(x, y));
}

double rAsinXY(double x, double y) noexcept {
    return rAsinXR(y, rHypot(x, y));
}

double rAtanXY(double x, double y) noexcept {
    if (x < 0.0) {
        x = -x;
        y = -y;
    }
    const double sum = x + std::fabs(y);
    if (!(sum > x)) return 0.0;
    if (sum > std::fabs(y)) return rAtan(y / x);
    return withSignOf(y, kPi / 2);
}

double rAcotanXY(double x, double y) noexcept {
    return rAtanXY(y, x);
}

double rAzimuth(double x, double y) noexcept {
    if (!(x < 0.0)) return rAtanXY(x, y);
    return withSignOf(y, kPi) - rAtanXY(-x, y);
}

double rCosFromSin(double x) noexcept {
    return std::fabs(x) > 1.0 ? ___NAN : std::sqrt(1.0 + x) * std::sqrt(1.0 - x);
}

double rSinFromCos(double x) noexcept {
    return rCosFromSin(x);
}

double rSinCosFromTan(double t, double* other) noexcept {
    const Direction direction = directionOfTangent(t);
    store(other, direction.cosine);
    return direction.sine;
}

double rCosSinFromTan(double t, double* other) noexcept {
    const Direction direction = directionOfTangent(t);
    store(other, direction.sine);
    return direction.cosine;
}

double rTan2XFromTanX(double t) noexcept {
    const double magnitude = std::fabs(t);
    if (magnitude >= 1.0) return ___NAN;
    return 2.0 * t / (1.0 + magnitude) / (1.0 - magnitude);
}

double rTanXFromTan2X(double t) noexcept {
    return t / (1.0 + rHypot(1.0, t));
}

double rCosNFromCos(double c, uint64_t n) noexcept {
    return std::fabs(c) > 1.0 ? ___NAN : rChebyshevT(c, n);
}

double rSinNDivSinFromCos(double c, uint64_t n) noexcept {
    if (std::fabs(c) > 1.0) return ___NAN;
    return n == 0 ? 0.0 : rChebyshevU(c, n - 1);
}
