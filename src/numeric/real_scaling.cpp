#include "nuv64/numeric/real_scaling.h"

#include "core/real_rounding.h"
#include "nuv64/numeric/real_elementary.h"

double rMantissaAndExponent(double x, int32_t* exponent, int32_t radix) noexcept {
    return nuv64::mantissaAndExponent(x, exponent, radix);
}

double rMultiplyByRadixToExponent(double x, int32_t e, uint32_t radix) noexcept {
    return x * riPower(radix, e);
}
