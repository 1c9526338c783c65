#include "nuv64/numeric/digamma.h"

#include <cmath>
#include <numbers>

#include "numeric/horner.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_logarithm.h"

namespace {

using nuv64::horner;

constexpr double kReflectTo = 0.1;
constexpr double kAsymptoticFrom = 9.0;

// B_2k/(2k), and B_k for k = 0, 2, 4 ...: the Bernoulli numbers of Abramowitz and Stegun 6.3.18 and
// 6.4.12. The first of the second table is the series' leading 1.
constexpr double kPsi0Coefs[] = {1.0 / 12.0,  -1.0 / 120.0,     1.0 / 252.0, -1.0 / 240.0,
                                 1.0 / 132.0, -691.0 / 32760.0, 1.0 / 12.0,  -3617.0 / 8160.0};
constexpr double kPsi1Coefs[] = {1.0,         1.0 / 6.0,  -1.0 / 30.0,     1.0 / 42.0,
                                 -1.0 / 30.0, 5.0 / 66.0, -691.0 / 2730.0, 7.0 / 6.0};

// Not-a-number or minus infinity: no reflection leads out of these.
bool hasNoReflection(double x) {
    return !(x > -HUGE_VAL);
}

}  // namespace

double rPsi0(double x) noexcept {
    if (hasNoReflection(x)) return ___NAN;
    if (x <= kReflectTo) return rPsi0(1.0 - x) - std::numbers::pi / std::tan(std::numbers::pi * x);
    double sum = 0.0;
    for (; x < kAsymptoticFrom; x += 1.0) sum -= 1.0 / x;
    const double u = 1.0 / (x * x);
    return sum + (rLog(x) - 0.5 / x - u * horner(kPsi0Coefs, u));
}

double rPsi1(double x) noexcept {
    if (hasNoReflection(x)) return ___NAN;
    if (x <= kReflectTo) {
        const double ratio = std::numbers::pi / std::sin(std::numbers::pi * x);
        return ratio * ratio - rPsi1(1.0 - x);
    }
    double sum = 0.0;
    for (; x < kAsymptoticFrom; x += 1.0) sum += 1.0 / (x * x);
    const double u = 1.0 / x;
    const double u2 = u * u;
    return sum + (0.5 * u2 + u * horner(kPsi1Coefs, u2));
}
