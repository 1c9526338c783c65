#include "nuv64/numeric/error_function.h"

#include <cmath>

#include "numeric/horner.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/dawson.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"

namespace {

using nuv64::horner;

constexpr double kInvSqrtPi = 0.5641895835477563;
constexpr double k2DivSqrtPi = 1.1283791670955126;
constexpr double k4DivSqrtPi = 2.256758334191025;

double gaussian(double x) {
    return rExp(-(x * x));
}

// The upper tail of |x| by Abramowitz and Stegun 7.1.26.
double fastTail(double x) {
    const double t = 1.0 / (1.0 + 0.3275911 * std::fabs(x));
    const double polynomial =
        t * (0.254829592 +
             t * (-0.284496736 + t * (1.421413741 + t * (-1.453152027 + t * 1.061405429))));
    return polynomial * gaussian(x);
}

// The two polynomials of Giles, in w - 2.5 and in sqrt(w) - 3.
constexpr double kCentralInverse[] = {1.50140941,     0.246640727,   -0.00417768164,
                                      -0.00125372503, 0.00021858087, -4.39150654e-6,
                                      -3.5233877e-6,  3.43273939e-7, 2.81022636e-8};
constexpr double kTailInverse[] = {2.83297682,    1.00167406,     0.00943887047,
                                   -0.0076224613, 0.00573950773,  -0.00367342844,
                                   0.00134934322, 0.000100950558, -0.000200214257};

}  // namespace

double rErf(double x) noexcept {
    return std::erf(x);
}

double rErfc(double x) noexcept {
    return std::erfc(x);
}

double rErfFast(double x) noexcept {
    const double magnitude = 1.0 - fastTail(x);
    return x < 0.0 ? -magnitude : magnitude;
}

double rErfcFast(double x) noexcept {
    const double tail = fastTail(x);
    return x < 0.0 ? 2.0 - tail : tail;
}

double rErfInvFast(double x) noexcept {
    if (!(std::fabs(x) < 1.0)) return ___NAN;
    const double w = -rLog((1.0 + x) * (1.0 - x));
    if (w < 5.0) return horner(kCentralInverse, w - 2.5) * x;
    return horner(kTailInverse, rSqrt(w) - 3.0) * x;
}

double rErfInv(double x) noexcept {
    return rErfInvFast(x);
}

double rErfA(double x) noexcept {
    return kInvSqrtPi * gaussian(x) + x * (1.0 - rErfc(x));
}

double rErfcA(double x) noexcept {
    return -kInvSqrtPi * gaussian(x) + x * rErfc(x);
}

double rErfD(double x) noexcept {
    return k2DivSqrtPi * gaussian(x);
}

double rErfD2(double x) noexcept {
    return -k4DivSqrtPi * x * gaussian(x);
}

double rErfcD(double x) noexcept {
    return -k2DivSqrtPi * gaussian(x);
}

double rErfcD2(double x) noexcept {
    return k4DivSqrtPi * x * gaussian(x);
}

double rErfi(double x) noexcept {
    return k2DivSqrtPi * rDawson(x) * rExp(x * x);
}

double rErfiD(double x) noexcept {
    return k2DivSqrtPi * rExp(x * x);
}

double rErfiD2(double x) noexcept {
    return k4DivSqrtPi * x * rExp(x * x);
}

double rFaddeevaIw(double x) noexcept {
    return rExp(x * x) * rErfc(x);
}

double rFaddeevaIwD(double x) noexcept {
    return rExp(x * x) * rErfc(x) * 2.0 * x - k2DivSqrtPi;
}
