#include "nuv64/numeric/real_periodic.h"

#include <cmath>
#include <numbers>

#include "core/optional_output.h"
#include "core/real_rounding.h"
#include "nuv64/numeric/real_bounded.h"

namespace {

using nuv64::store;

double roundMagnitude(double x) {
    return x < 0.0 ? -nuv64::roundHalfAway(-x) : nuv64::roundHalfAway(x);
}

}  // namespace

double rModuloOne(double x, double* whole) noexcept {
    if (!(x + 1.0 > x)) {
        store(whole, x);
        return 0.0;
    }
    double below = std::floor(x);
    double fraction = x - below;
    if (fraction < 0.0) {
        fraction = 0.0;
    } else if (fraction >= 1.0) {
        fraction = 0.0;
        below += 1.0;
    }
    store(whole, below);
    return fraction;
}

double rModuloPeriod(double x, double p, double* base) noexcept {
    p = std::fabs(p);
    if (!(x + p > x)) {
        store(base, x);
        return 0.0;
    }
    double below = p * std::floor(x / p);
    double rest = x - below;
    if (rest < 0.0) {
        rest = 0.0;
    } else if (rest >= p) {
        rest = 0.0;
        below += 1.0;
    }
    store(base, below);
    return rest;
}

double rPhaseInPeriod(double x, double p, double* base) noexcept {
    return 2.0 * std::numbers::pi * rModuloPeriod(x, p, base) / p;
}

double rRoundToEps(double x, double eps) noexcept {
    if (eps == 1.0) return roundMagnitude(x);
    if (eps > 0.0) return eps * roundMagnitude(rBoundDiv(x, eps, nullptr));
    return x;
}
