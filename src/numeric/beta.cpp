#include "nuv64/numeric/beta.h"

#include <utility>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/gamma.h"

namespace {

// What ln Gamma takes of its range; a not-a-number fails as well.
bool isTooSmall(double a) {
    return !(a >= 2.0 * ___MinReal);
}

}  // namespace

double rBeta(double a, double b) noexcept {
    if (a > b) std::swap(a, b);
    return rGamma(b) * r1DivGamma(a + b) * rGamma(a);
}

double rBetaLn(double a, double b) noexcept {
    if (isTooSmall(a) || isTooSmall(b)) return ___NAN;
    return rGammaLn(a) + rGammaLn(b) - rGammaLn(a + b);
}

double rBeta3Ln(double a, double b, double c) noexcept {
    if (isTooSmall(a) || isTooSmall(b) || isTooSmall(c)) return ___NAN;
    return rGammaLn(a) + rGammaLn(b) + rGammaLn(c) - rGammaLn(a + b + c);
}

double rBetaMultiLn(uint32_t n, const double* array) noexcept {
    if (!array) return ___NAN;
    if (n < 2) return 1.0;
    double sum = 0.0;
    double logs = 0.0;
    for (uint32_t i = 0; i < n; ++i) {
        if (isTooSmall(array[i])) return ___NAN;
        sum += array[i];
        logs += rGammaLn(array[i]);
    }
    return logs - rGammaLn(sum);
}
