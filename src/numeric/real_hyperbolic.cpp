#include "nuv64/numeric/real_hyperbolic.h"

#include <cmath>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/series.h"

namespace {

constexpr uint64_t kMostTerms = 10000;

struct HyperbolicAngle {
    double sinh;
    double cosh;
};

HyperbolicAngle angleOfTanh(double t) {
    if (std::fabs(t) > 1.0) return {___NAN, ___NAN};
    const double cosh = 1.0 / (std::sqrt(1.0 + t) * std::sqrt(1.0 - t));
    return {t * cosh, cosh};
}

// The running term of a power series, and the power of its first.
struct PowerTerm {
    double value;
    double power;
};

// x^j/j! with j = 2k + power.
double nextTerm(double x, uint64_t k, void* context) {
    PowerTerm& term = *static_cast<PowerTerm*>(context);
    if (k == 0) return term.value;
    const double j = 2.0 * static_cast<double>(k) + term.power;
    term.value *= x / (j - 1.0) * (x / j);
    return term.value;
}

double sumOfPowers(double x, PowerTerm first) {
    double sum = 0.0;
    const uint32_t status = rSeriesTermFunc(x, &sum, nextTerm, &first, kMostTerms, 0);
    return status == 0 ? sum : ___NAN;
}

// Whether the runtime's functions of both arguments are finite.
bool areModerate(double x, double y) {
    return std::fabs(x) <= ___LnMaxReal && std::fabs(y) <= ___LnMaxReal;
}

// (e^|x| + s e^-|x|)/(e^|y| + s e^-|y|) without the large powers.
double ratioOfExponentials(double x, double y, double s) {
    x = std::fabs(x);
    y = std::fabs(y);
    return std::exp(x - y) * (1.0 + s * std::exp(-2.0 * x)) / (1.0 + s * std::exp(-2.0 * y));
}

}  // namespace

double rSinh(double x) noexcept {
    return std::sinh(x);
}

double rTanh(double x) noexcept {
    return std::tanh(x);
}

double rCosh(double x) noexcept {
    return 0.5 * (rExp(x) + rExp(-x));
}

double rSech(double x) noexcept {
    return 2.0 / (rExp(x) + rExp(-x));
}

double rAsinh(double x) noexcept {
    return std::asinh(x);
}

double rAcosh(double x) noexcept {
    return std::acosh(x);
}

double rAtanh(double x) noexcept {
    return std::atanh(x);
}

double rCoshFromSinh(double x) noexcept {
    return rHypot(1.0, x);
}

double rSinhFromCosh(double x) noexcept {
    return x < 1.0 ? ___NAN : std::sqrt(x + 1.0) * std::sqrt(x - 1.0);
}

double rTanhFromSinh(double x) noexcept {
    return x / rCoshFromSinh(x);
}

double rTanhFromCosh(double x) noexcept {
    return rSinhFromCosh(x) / x;
}

double rSinhCoshFromTanh(double t, double* other) noexcept {
    const HyperbolicAngle angle = angleOfTanh(t);
    if (other) *other = angle.cosh;
    return angle.sinh;
}

double rCoshSinhFromTanh(double t, double* other) noexcept {
    const HyperbolicAngle angle = angleOfTanh(t);
    if (other) *other = angle.sinh;
    return angle.cosh;
}

double rCoshNRatio(double x, double n) noexcept {
    if (areModerate(x, n * x)) return std::cosh(x) / std::cosh(n * x);
    return ratioOfExponentials(x, n * x, 1.0);
}

double rSinhNRatio(double x, double n) noexcept {
    if (areModerate(x, n * x)) return rSinh(x) / rSinh(n * x);
    const double ratio = ratioOfExponentials(x, n * x, -1.0);
    return n < 0.0 ? -ratio : ratio;
}

double rCoshSeries(double x) noexcept {
    return sumOfPowers(x, {1.0, 0.0});
}

double rSinhSeries(double x) noexcept {
    return sumOfPowers(x, {x, 1.0});
}
