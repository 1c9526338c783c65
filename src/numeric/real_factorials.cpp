#include "nuv64/numeric/real_factorials.h"

#include <cmath>
#include <numbers>

#include "numeric/gamma_reflection.h"
#include "numeric/sign_transfer.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/combinatorics.h"
#include "nuv64/numeric/gamma.h"
#include "nuv64/numeric/real_exponential.h"
#include "nuv64/numeric/real_logarithm.h"
#include "nuv64/numeric/real_powers.h"

namespace {

using nuv64::kLnPi;
using nuv64::withSignOf;

constexpr uint64_t kLastExactFactorial = 20;
constexpr int64_t kLastFactorial = 170;
constexpr int64_t kLastExactDoubleFactorial = 33;
constexpr int64_t kLastDoubleFactorial = 300;
constexpr double kLn2 = 0.6931471805599453;

double exactFactorial(uint64_t n) {
    uint32_t flags = 0;
    return static_cast<double>(uFactorial(n, &flags));
}

double exactDoubleFactorial(int64_t n) {
    uint32_t flags = 0;
    return static_cast<double>(uDoubleFactorial(static_cast<uint64_t>(n), &flags));
}

double factorialLn(uint64_t n) {
    if (n <= kLastExactFactorial) return rLog(exactFactorial(n));
    return rGammaLn(static_cast<double>(n) + 1.0);
}

uint64_t magnitudeOf(int64_t n) {
    return n < 0 ? -static_cast<uint64_t>(n) : static_cast<uint64_t>(n);
}

// The product of x + j for j from k below n is asked for after those below k made it infinite: a
// factor of zero makes it a not-a-number, and each negative one turns its sign. Not by a loop, n
// may be of any size.
double afterOverflow(double product, double x, uint64_t k, uint64_t n) {
    if (!(x < 0.0)) return product;
    const double stepsToZero = std::ceil(-x);
    if (stepsToZero <= static_cast<double>(n - 1)) {
        if (x == -stepsToZero) return ___NAN;
        n = static_cast<uint64_t>(stepsToZero);
    }
    return n > k && (n - k) % 2 != 0 ? -product : product;
}

// x(x + 1)...(x + n - 1) for n from 1 on. It ends early only where the remaining factors don't
// change the product.
double risingFactorial(double x, uint64_t n) {
    double product = x;
    for (uint64_t k = 1; k < n; ++k) {
        product *= x + static_cast<double>(k);
        if (product == 0.0 || std::isnan(product)) return product;
        if (std::isinf(product)) return afterOverflow(product, x, k + 1, n);
    }
    return product;
}

// For x above 0.
double risingFactorialLn(double x, double n) {
    if (std::fabs(n) == 1.0) return rLog(x);
    if (n > 0.0) return rGammaLn(x + n) - rGammaLn(x);
    return rGammaLn(x + 1.0) - rGammaLn(x + n + 1.0);
}

}  // namespace

double rFactorial(int64_t n) noexcept {
    if (n < 0) return 0.0;
    if (n <= static_cast<int64_t>(kLastExactFactorial)) {
        return exactFactorial(static_cast<uint64_t>(n));
    }
    if (n > kLastFactorial) return ___PlsINF;
    return rExp(rGammaLn(static_cast<double>(n) + 1.0));
}

double rFactorialLn(int64_t n) noexcept {
    return n < 0 ? ___NAN : factorialLn(static_cast<uint64_t>(n));
}

double rDoubleFactorial(int64_t n) noexcept {
    if (n < 0) return 0.0;
    if (n <= kLastExactDoubleFactorial) return exactDoubleFactorial(n);
    if (n > kLastDoubleFactorial) return ___PlsINF;
    if (n % 2 == 0) return rFactorial(n / 2) * riPower(2.0, n / 2);
    const double half = 0.5 * static_cast<double>(n);
    return rGamma(1.0 + half) * rSqrt(riPower(2.0, n + 1) / std::numbers::pi);
}

double rDoubleFactorialLn(int64_t n) noexcept {
    if (n < 0) return ___NAN;
    if (n <= kLastExactDoubleFactorial) return rLog(exactDoubleFactorial(n));
    const double order = static_cast<double>(n);
    if (n % 2 == 0) return rFactorialLn(n / 2) + 0.5 * order * kLn2;
    return rGammaLn(1.0 + 0.5 * order) + 0.5 * ((order + 1.0) * kLn2 - kLnPi);
}

double rMulByFact(double x, uint64_t n) noexcept {
    if (x == 0.0) return x;
    if (n <= kLastExactFactorial) return x * exactFactorial(n);
    return withSignOf(x, rExp(rLog(std::fabs(x)) + factorialLn(n)));
}

double rDivByFact(double x, uint64_t n) noexcept {
    if (x == 0.0) return x;
    if (n <= kLastExactFactorial) return x / exactFactorial(n);
    return withSignOf(x, rExp(rLog(std::fabs(x)) - factorialLn(n)));
}

double rMulByFactLn(double x, uint64_t n) noexcept {
    if (x == 0.0) return ___NAN;
    return rLog(std::fabs(x)) + factorialLn(n);
}

double rDivByFactLn(double x, uint64_t n) noexcept {
    if (x == 0.0) return ___NAN;
    return rLog(std::fabs(x)) - factorialLn(n);
}

double rBinomial(double n, double k) noexcept {
    return rExp(rBinomialLn(n, k));
}

double rBinomialLn(double n, double k) noexcept {
    return rGammaLn(n + 1.0) - rGammaLn(k + 1.0) - rGammaLn(n - k + 1.0);
}

double rPochhammer(double x, int64_t n) noexcept {
    if (n == 0) return 1.0;
    if (x == 0.0) return 0.0;
    if (n > 0) return risingFactorial(x, magnitudeOf(n));
    const double value = risingFactorial(-x, magnitudeOf(n));
    return n % 2 != 0 ? -value : value;
}

double rPochhammerLn(double x, int64_t n) noexcept {
    if (n == 0) return 0.0;
    if (x == 0.0) return ___MnsINF;
    const double order = static_cast<double>(n);
    if (x > 0.0) return risingFactorialLn(x, order);
    if (!(x < 0.0)) return ___NAN;
    const double value = risingFactorialLn(-x, -order);
    return n % 2 != 0 ? -value : value;
}
