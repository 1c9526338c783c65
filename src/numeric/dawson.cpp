#include "nuv64/numeric/dawson.h"

#include <cmath>

#include "numeric/horner.h"
#include "nuv64/core/special_reals.h"

namespace {

using nuv64::horner;

constexpr int kMostTerms = 100;
constexpr double k2DivSqrtPi = 1.1283791670955126;

constexpr double kRa5P[] = {
    1.0, 0.10499349466048, 0.04240606039766, 0.00726441824394, 0.00050640337857, 0.0001789970704};
constexpr double kRa5Q[] = {1.0,
                            0.77154710187852,
                            0.2909738638668,
                            0.06945557612124,
                            0.01400054416892,
                            0.0008327944835,
                            0.0003579941408};

// F(x)/x with z = 2x^2: the continued fraction 1/(1 + z - 2z/(3 + z - 4z/(5 + z - ...))), by the
// forward recurrence of numerators and denominators until a value repeats.
double fraction(double z) {
    double c = -2.0 * z;
    double d = 3.0 + z;
    double a0 = 1.0;
    double b0 = 1.0 + z;
    double a1 = d;
    double b1 = d * b0 + c;
    double value = a1 / b1;
    for (int k = 2; k < kMostTerms; ++k) {
        c -= 2.0 * z;
        d += 2.0;
        const double a2 = d * a1 + c * a0;
        const double b2 = d * b1 + c * b0;
        const double next = a2 / b2;
        if (next == value) break;
        value = next;
        a0 = a1;
        b0 = b1;
        a1 = a2;
        b1 = b2;
    }
    return value;
}

}  // namespace

double rDawson(double x) noexcept {
    const double magnitude = std::fabs(x);
    const double x2 = x * x;
    if (magnitude < ___Root4EpsReal) return x * (1.0 - x2 * (2.0 / 3.0 - x2 * (4.0 / 15.0)));
    if (magnitude > 1.0 / ___Root4EpsReal) {
        const double u = 1.0 / x2;
        return 0.5 * (1.0 + u * (0.5 + 0.75 * u)) / x;
    }
    return x * fraction(2.0 * x2);
}

double rDawsonD(double x) noexcept {
    return 1.0 - 2.0 * x * rDawson(x);
}

double rDawsonD2(double x) noexcept {
    return 2.0 * ((2.0 * x * x - 1.0) * rDawson(x) - x);
}

double rDawsonD3(double x) noexcept {
    const double x2 = x * x;
    return 4.0 * (x2 - 1.0 + (2.0 * x2 - 3.0) * x * rDawson(x));
}

double rDawsonRa5(double x) noexcept {
    const double u = x * x;
    return x * horner(kRa5P, u) / horner(kRa5Q, u);
}

double rHilbertTransformOfGaussian(double x) noexcept {
    return k2DivSqrtPi * rDawson(x);
}
