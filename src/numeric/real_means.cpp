#include "nuv64/numeric/real_means.h"

#include <cmath>
#include <cstdarg>
#include <utility>

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

double lehmer(double a, double b, auto power) {
    return (power(a, 0) + power(b, 0)) / (power(a, 1) + power(b, 1));
}

}  // namespace

double rMeanA(double a, double b) noexcept {
    return 0.5 * (a + b);
}

double rMeanG(double a, double b) noexcept {
    const double product = a * b;
    return product < 0.0 ? ___NAN : rSqrt(product);
}

double rMeanH(double a, double b) noexcept {
    if (a == 0.0 || b == 0.0) return 0.0;
    const double mean = 0.5 * (a + b);
    if (a > 0.0 && b > 0.0) {
        if (mean < ___MinReal) return 0.0;
    } else if (a < 0.0 && b < 0.0) {
        if (mean > -___MinReal) return 0.0;
    } else if (std::fabs(mean) < ___MinReal) {
        return ___NAN;
    }
    return a * b / mean;
}

double rMeanH2(double a, double b) noexcept {
    if (a == 0.0 || b == 0.0) return 0.0;
    const double a2 = a * a;
    const double b2 = b * b;
    const double meanSquare = 0.5 * (a2 + b2);
    if (meanSquare < ___MinReal) return 0.0;
    return rSqrt(a2 * b2 / meanSquare);
}

double rMeanRms(double a, double b) noexcept {
    return rSqrt(0.5 * (a * a + b * b));
}

double rMeanHero(double a, double b) noexcept {
    return (2.0 * rMeanA(a, b) + rMeanG(a, b)) / 3.0;
}

double rMeanHeroK(double a, double b, uint64_t k) noexcept {
    if (k == 0) return ___NAN;
    if (k == 1) return rMeanA(a, b);
    if (k == 2) return rMeanHero(a, b);
    const double root = 1.0 / static_cast<double>(k);
    double sum = a + b;
    for (uint64_t i = 1; i < k; ++i) sum += rPow(ruPower(a, i) * ruPower(a, k - i), root);
    return sum / (static_cast<double>(k) + 1.0);
}

double rMeanHoelder(double a, double b, double p) noexcept {
    if (p == 0.0) return rMeanG(a, b);
    return rPow(0.5 * (rPow(a, p) + rPow(b, p)), 1.0 / p);
}

double rMeanHoelderI(double a, double b, int64_t k) noexcept {
    switch (k) {
        case -2:
            return rMeanH2(a, b);
        case -1:
            return rMeanH(a, b);
        case 0:
            return rMeanG(a, b);
        case 1:
            return rMeanA(a, b);
        case 2:
            return rMeanRms(a, b);
        default:
            return rPow(0.5 * (riPower(a, k) + riPower(b, k)), 1.0 / static_cast<double>(k));
    }
}

double rMeanLehmer(double a, double b, double p) noexcept {
    if (p == 0.0) return rMeanH(a, b);
    return lehmer(a, b, [p](double x, int less) { return rPow(x, p - less); });
}

double rMeanLehmerI(double a, double b, int64_t k) noexcept {
    if (k == 0) return rMeanH(a, b);
    if (k == 1) return rMeanA(a, b);
    // The lowest order has none below it; no double tells the two apart.
    const int64_t below = k > INT64_MIN ? k - 1 : k;
    return lehmer(a, b, [=](double x, int less) { return riPower(x, less ? below : k); });
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

double rMeanMAGM(double a, double b) noexcept {
    if (a < 0.0 || b < 0.0) return ___NAN;
    if (b > a) std::swap(a, b);
    if (b == 0.0) return 0.0;
    double z = 0.0;
    while (a - b > a * ___5EpsReal) {
        const double r = rSqrt((a - z) * (b - z));
        a = 0.5 * (a + b);
        b = z + r;
        z = z - r;
    }
    return 0.5 * (a + b);
}

namespace {

// Calls step with each of the n reals until it returns false; tells whether it never did.
template <class Step>
bool forEachReal(uint64_t n, double first, va_list rest, Step step) {
    double x = first;
    for (uint64_t i = 0; i < n; ++i) {
        if (i != 0) x = va_arg(rest, double);
        if (!step(x)) return false;
    }
    return true;
}

template <class Term>
double sumOf(uint64_t n, double first, va_list rest, Term term) {
    double sum = 0.0;
    forEachReal(n, first, rest, [&](double x) {
        sum += term(x);
        return true;
    });
    return sum;
}

template <class Factor>
double productOf(uint64_t n, double first, va_list rest, Factor factor) {
    double product = 1.0;
    forEachReal(n, first, rest, [&](double x) {
        product *= factor(x);
        return true;
    });
    return product;
}

double plainSum(uint64_t n, double first, va_list rest) {
    double sum = first;
    for (uint64_t i = 1; i < n; ++i) sum += va_arg(rest, double);
    return sum;
}

double squareOf(double x) {
    return x * x;
}

double inverseOfInverses(uint64_t n, double first, va_list rest) {
    double sum = 0.0;
    const bool allDiffer = forEachReal(n, first, rest, [&](double x) {
        if (x == 0.0) return false;
        sum += 1.0 / x;
        return true;
    });
    return allDiffer ? 1.0 / sum : 0.0;
}

}  // namespace

double rVaSum(uint64_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double sum = plainSum(n, first, rest);
    va_end(rest);
    return sum;
}

double rVaProduct(uint64_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double product = productOf(n, first, rest, [](double x) { return x; });
    va_end(rest);
    return product;
}

double rVaSumSquares(uint64_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double sum = sumOf(n, first, rest, squareOf);
    va_end(rest);
    return sum;
}

double rVaSumInv(uint64_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double result = inverseOfInverses(n, first, rest);
    va_end(rest);
    return result;
}

double rVaSumLnAbs(uint64_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    double sum = 0.0;
    const bool allDiffer = forEachReal(n, first, rest, [&](double x) {
        if (x == 0.0) return false;
        sum += rLog(std::fabs(x));
        return true;
    });
    va_end(rest);
    return allDiffer ? sum : ___NAN;
}

double rVaMeanA(uint32_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double sum = plainSum(n, first, rest);
    va_end(rest);
    return sum / n;
}

double rVaMeanH(uint32_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double result = inverseOfInverses(n, first, rest);
    va_end(rest);
    return result * n;
}

double rVaMeanRms(uint32_t n, double first, ...) noexcept {
    va_list rest;
    va_start(rest, first);
    const double sum = sumOf(n, first, rest, squareOf);
    va_end(rest);
    return rSqrt(sum / n);
}

double rVaSumFunc(uint64_t n, double (*function)(double), double first, ...) noexcept {
    if (!function) return ___NAN;
    va_list rest;
    va_start(rest, first);
    const double sum = sumOf(n, first, rest, function);
    va_end(rest);
    return sum;
}

double rVaProductFunc(uint64_t n, double (*function)(double), double first, ...) noexcept {
    if (!function) return ___NAN;
    va_list rest;
    va_start(rest, first);
    const double product = productOf(n, first, rest, function);
    va_end(rest);
    return product;
}
