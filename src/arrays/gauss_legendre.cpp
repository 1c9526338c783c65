#include "nuv64/arrays/gauss_legendre.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "core/guard.h"

using namespace nuv64;

namespace {

struct Legendre {
    double value;
    double derivative;
};

// P_n and its derivative at z by the three-term recurrence; |z| below 1.
Legendre legendre(uint64_t n, double z) noexcept {
    double p = 1.0;
    double before = 0.0;
    for (uint64_t j = 1; j <= n; ++j) {
        const double k = static_cast<double>(j);
        const double twoBefore = before;
        before = p;
        p = ((2.0 * k - 1.0) * z * before - (k - 1.0) * twoBefore) / k;
    }
    return {p, static_cast<double>(n) * (z * p - before) / (z * z - 1.0)};
}

struct Root {
    double z;
    double derivative;
};

// For many n the steps end in a cycle of two or three neighbouring values, so that waiting for one
// that changes nothing would never end.
Root rootNear(uint64_t n, double z) noexcept {
    double smallest = std::numeric_limits<double>::infinity();
    for (;;) {
        const Legendre p = legendre(n, z);
        const double old = z;
        z = old - p.value / p.derivative;
        const double step = std::fabs(z - old);
        if (!(step > 0.0 && step < smallest)) return {z, p.derivative};
        smallest = step;
    }
}

}  // namespace

uint32_t RArrGaussLegendrePoints(double a, double b, uint64_t n, double* x, double* w) noexcept {
    if (!x || !w) return 18;
    const double middle = 0.5 * (a + b);
    const double half = 0.5 * (b - a);
    for (uint64_t i = 0; i < (n + 1) / 2; ++i) {
        const double angle =
            std::numbers::pi * (static_cast<double>(i) + 0.75) / (static_cast<double>(n) + 0.5);
        const Root root = rootNear(n, std::cos(angle));
        x[i] = middle - half * root.z;
        x[n - 1 - i] = middle + half * root.z;
        w[i] = 2.0 * half / ((1.0 - root.z * root.z) * root.derivative * root.derivative);
        w[n - 1 - i] = w[i];
    }
    return kSuccess;
}
