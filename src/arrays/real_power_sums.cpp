#include "nuv64/arrays/real_power_sums.h"

#include <algorithm>
#include <cmath>

#include "arrays/integer_powers.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

using namespace nuv64;

namespace {

// How an element enters, and what its sign does to its power.
struct Plain {
    static double base(double x) noexcept { return x; }
    static double withSign(double, double power) noexcept { return power; }
};

struct Absolute {
    static double base(double x) noexcept { return rAbs(x); }
    static double withSign(double, double power) noexcept { return power; }
};

struct Signed {
    static double base(double x) noexcept { return rAbs(x); }
    static double withSign(double x, double power) noexcept { return x < 0.0 ? -power : power; }
};

// The sum, upward, of the powers of x/divisor; a division by 1 is exact, and slow.
template <class Form>
double integerPowerSum(uint64_t n, const double* array, int64_t k, double divisor) noexcept {
    constexpr uint64_t kBlock = 64;
    double quotients[kBlock];
    double powers[kBlock];
    double sum = 0.0;
    for (uint64_t start = 0; start < n; start += kBlock) {
        const uint64_t length = std::min(n - start, kBlock);
        for (uint64_t i = 0; i < length; ++i) quotients[i] = array[start + i];
        if (divisor != 1.0) {
            for (uint64_t i = 0; i < length; ++i) quotients[i] /= divisor;
        }
        for (uint64_t i = 0; i < length; ++i) powers[i] = Form::base(quotients[i]);
        integerPowers(length, powers, powers, k);
        for (uint64_t i = 0; i < length; ++i) sum += Form::withSign(quotients[i], powers[i]);
    }
    return sum;
}

template <class Form>
double powerSumI(uint64_t n, const double* array, int64_t k) noexcept {
    if (n == 0 || !array) return ___NAN;
    return integerPowerSum<Form>(n, array, k, 1.0);
}

double sumOfSquares(uint64_t n, const double* array) noexcept {
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) sum += array[i] * array[i];
    return sum;
}

// Whether the scaled sum has to be formed; if not, result holds the value.
struct Scale {
    bool needed = false;
    double result = 0.0;
    double largest = 0.0;
};

template <class Element>
Scale scaleOf(uint64_t n, Element element, double exponent) noexcept {
    if (exponent == 0.0) return {false, ___NAN};
    double largest = 0.0;
    double smallest = ___MaxReal;
    for (uint64_t i = 0; i < n; ++i) {
        const double v = rAbs(element(i));
        largest = v > largest ? v : largest;
        smallest = smallest > v ? v : smallest;
    }
    if (largest == 0.0) return {};
    if (smallest == 0.0 && exponent < 0.0) return {};
    return {true, 0.0, largest};
}

template <class Element>
double hoelderSum(uint64_t n, Element element, double p) noexcept {
    const Scale scale = scaleOf(n, element, p);
    if (!scale.needed) return scale.result;
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) sum += rPow(element(i) / scale.largest, p);
    return scale.largest * rPow(sum, 1.0 / p);
}

template <class Form>
double hoelderSumI(uint64_t n, const double* array, int64_t k,
                   double (*root)(double, double) noexcept) noexcept {
    if (n == 0 || !array) return ___NAN;
    const double exponent = static_cast<double>(k);
    const Scale scale = scaleOf(
        n, [array](uint64_t i) { return array[i]; }, exponent);
    if (!scale.needed) return scale.result;
    const double sum = integerPowerSum<Form>(n, array, k, scale.largest);
    return scale.largest * root(sum, 1.0 / exponent);
}

}  // namespace

double RArrSumOfPowersI(uint64_t n, const double* array, int64_t k) noexcept {
    if (n == 0 || !array) return ___NAN;
    if (k == 0) return static_cast<double>(n);
    if (k == 1) return RArrSum(n, array, 1);
    if (k == 2) return sumOfSquares(n, array);
    return powerSumI<Plain>(n, array, k);
}

double RArrAbsSumOfPowersI(uint64_t n, const double* array, int64_t k) noexcept {
    return powerSumI<Absolute>(n, array, k);
}

double RArrSumOfSignedPowersI(uint64_t n, const double* array, int64_t k) noexcept {
    return powerSumI<Signed>(n, array, k);
}

double RArrAbsSumOfPowers(uint64_t n, const double* array, double p) noexcept {
    if (n == 0 || !array) return ___NAN;
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        const double term = rPow(array[i], p);
        if (term == ___MaxReal) return term;
        sum += term;
    }
    return sum;
}

double RArrSumOfSignedPowers(uint64_t n, const double* array, double) noexcept {
    return n == 0 || !array ? ___NAN : 0.0;
}

double RArrAbsHoelderSum(uint64_t n, const double* array, double p) noexcept {
    if (n == 0 || !array) return ___NAN;
    return hoelderSum(
        n, [array](uint64_t i) { return array[i]; }, p);
}

double RArrHoelderSumI(uint64_t n, const double* array, int64_t k) noexcept {
    return hoelderSumI<Plain>(n, array, k, rPow);
}

double RArrAbsHoelderSumI(uint64_t n, const double* array, int64_t k) noexcept {
    return hoelderSumI<Absolute>(n, array, k, rPow);
}

double RArrSignedHoelderSumI(uint64_t n, const double* array, int64_t k) noexcept {
    return hoelderSumI<Signed>(n, array, k, rSignedPower);
}

double RArrAbsMinkowskiSum(uint64_t n, const double* array, const double* b, double p) noexcept {
    if (n == 0 || !array || !b) return ___NAN;
    return hoelderSum(
        n, [array, b](uint64_t i) { return rAbs(array[i]) + rAbs(b[i]); }, p);
}
