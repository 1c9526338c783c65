#include "nuv64/numeric/power_derivatives.h"

#include <cmath>
#include <limits>

#include "numeric/combinatorial_tables.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"

using namespace nuv64;

namespace {

// Whether more factors or divisors of magnitude 1 and up can change x but in its sign.
bool isSettled(double x) {
    return x == 0.0 || !std::isfinite(x);
}

// n - d, brought to the lowest number of the same parity where it would leave the range.
int64_t lowered(int64_t n, int64_t d) {
    constexpr int64_t kLeast = std::numeric_limits<int64_t>::min();
    return d > n - kLeast ? kLeast | ((n ^ d) & 1) : n - d;
}

// n*(n - 1)*..., d factors, for d from 1 to n.
double fallingFactorial(uint64_t n, uint64_t d) {
    double product = 1.0;
    for (uint64_t i = 0; i < d && !isSettled(product); ++i) product *= static_cast<double>(n - i);
    return product;
}

// The same for n below 0: the factors are all negative.
double fallingFactorialBelow0(int64_t n, uint64_t d) {
    double product = 1.0;
    for (uint64_t i = 0; i < d && !isSettled(product); ++i) {
        product *= static_cast<double>(n) - static_cast<double>(i);
    }
    return std::copysign(product, d % 2 != 0 ? -1.0 : 1.0);
}

}  // namespace

double ruPowerAD(double x, uint64_t n, int64_t d) noexcept {
    if (d == 0) return ruPower(x, n);
    const uint64_t order = magnitude(d);
    if (d > 0) {
        return order > n ? 0.0 : fallingFactorial(n, order) * ruPower(x, n - order);
    }
    // A sum past the range changes nothing: the divisors bring all but an infinity to 0.
    const uint64_t raised = n + order < n ? std::numeric_limits<uint64_t>::max() : n + order;
    double result = ruPower(x, raised);
    for (uint64_t i = 1; i <= order && !isSettled(result); ++i) {
        result /= static_cast<double>(n) + static_cast<double>(i);
    }
    return result;
}

double riPowerAD(double x, int64_t n, int64_t d) noexcept {
    if (n >= 0) return ruPowerAD(x, static_cast<uint64_t>(n), d);
    if (d == 0) return riPower(x, n);
    if (d > 0) return fallingFactorialBelow0(n, magnitude(d)) * riPower(x, lowered(n, d));
    if (d > n) return riPower(x, n - d);
    double result = rLogAD(std::fabs(x), d - n);
    for (int64_t i = n + 1; i < 0 && !isSettled(result); ++i) result /= static_cast<double>(i);
    return result;
}
