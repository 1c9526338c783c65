#include "nuv64/numeric/bessel.h"

#include <cmath>

#include "numeric/horner.h"

namespace {

constexpr double kJ0[] = {1.0, -1.0 / 6, 1.0 / 120};

}  // namespace

double rBessel_j0(double x) noexcept {
    const double magnitude = std::fabs(x);
    if (magnitude < 0.001) return nuv64::horner(kJ0, magnitude * magnitude);
    return std::sin(magnitude) / magnitude;
}
