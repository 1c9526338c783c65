#include "nuv64/numeric/real_scaling.h"

#include <cmath>

#include "core/real_rounding.h"
#include "nuv64/numeric/real_elementary.h"

double rFrexp(double x, int32_t* exponent) noexcept {
    int power = 0;
    const double mantissa = std::isfinite(x) ? std::frexp(x, &power) : x;
    if (exponent) *exponent = power;
    return mantissa;
}

double rLdexp(double x, int32_t exponent) noexcept {
    return std::ldexp(x, exponent);
}

double rMantissaAndExponent(double x, int32_t* exponent, int32_t radix) noexcept {
    return nuv64::mantissaAndExponent(x, exponent, radix);
}

double rMultiplyByRadixToExponent(double x, int32_t e, uint32_t radix) noexcept {
    return x * riPower(radix, e);
}
