#include "nuv64/numeric/real_means.h"

#include <utility>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

double rMeanA(double a, double b) noexcept {
    return 0.5 * (a + b);
}

double rMeanG(double a, double b) noexcept {
    const double product = a * b;
    return product < 0.0 ? ___NAN : rSqrt(product);
}

double rMeanAGM(double a, double b) noexcept {
    if (a < 0.0 || b < 0.0) return ___NAN;
    if (b > a) std::swap(a, b);
    if (b == 0.0) return 0.0;
    while (a - b > a * ___5EpsReal) {
        const double mean = 0.5 * (a + b);
        b = rSqrt(a * b);
        a = mean;
    }
    return 0.5 * (a + b);
}
