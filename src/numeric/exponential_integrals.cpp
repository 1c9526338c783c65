#include "nuv64/numeric/exponential_integrals.h"

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_logarithm.h"

namespace {

constexpr double kEulerGamma = 0.5772156649015329;
constexpr int kMostTerms = 1000;
constexpr int kMostRounds = 1000;
// The recurrence over the order forgets its start within so many steps: each takes a factor x/k,
// with x below 1, off the start's share.
constexpr uint64_t kStepsToForget = 64;
constexpr uint64_t kLongRecurrence = 256;

// For x in (0, 1).
double byRecurrence(double x, uint64_t n) {
    const double exponential = rExp(-x);
    double value = rE_1(x);
    for (uint64_t k = n > kLongRecurrence ? n - kStepsToForget : 1; k < n; ++k) {
        value = (exponential - x * value) / static_cast<double>(k);
    }
    return value;
}

// The continued fraction of E_n(x) e^x for x from 1 on, by the modified method of Lentz.
double enFraction(double x, double n) {
    const double tolerance = ___EpsReal;
    double b = x + n;
    double c = ___MaxReal;
    double d = 1.0 / b;
    double h = d;
    for (int i = 1; i <= kMostRounds; ++i) {
        const double an = -i * (n - 1.0 + i);
        b += 2.0;
        d = 1.0 / (an * d + b);
        c = b + an / c;
        const double del = c * d;
        h *= del;
        if (std::fabs(del - 1.0) < tolerance) break;
    }
    return h;
}

}  // namespace

double rE_1(double x) noexcept {
    const double tolerance = ___EpsReal;
    double term = -x;
    double sum = term;
    for (int k = 1; k < kMostTerms; ++k) {
        const double next = term * (-k * x / ((k + 1.0) * (k + 1.0)));
        const double difference = std::fabs(next - term);
        term = next;
        sum += term;
        if (difference < tolerance) break;
    }
    return -kEulerGamma - rLog(x) - sum;
}

double rEn(double x, uint64_t n) noexcept {
    if (!(x >= 0.0)) return ___NAN;
    if (x == 0.0) return n > 1 ? 1.0 / static_cast<double>(n - 1) : ___PlsINF;
    if (n == 0) return rExp(-x) / x;
    if (x < 1.0) return byRecurrence(x, n);
    return enFraction(x, static_cast<double>(n)) * rExp(-x);
}

double rEinSeries(double x, uint64_t* terms) noexcept {
    uint64_t k = 0;
    double sum = ___NAN;
    if (std::isfinite(x)) {
        double power = 1.0;
        double before = 0.0;
        for (sum = 1.0, k = 1; sum != before && !std::isnan(sum); ++k) {
            before = sum;
            const double next = static_cast<double>(k + 1);
            power *= -x / next;
            sum += power / next;
        }
    }
    if (terms) *terms = k;
    return std::isnan(sum) ? ___NAN : x * sum;
}
