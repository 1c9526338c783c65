#include "nuv64/numeric/real_special.h"

#include "numeric/real_bits.h"

using nuv64::kExponentBits;
using nuv64::kSignBit;

namespace {

double* store(double* x, double value) {
    if (x) *x = value;
    return x;
}

bool hasBits(double x, uint64_t bits) {
    return std::bit_cast<uint64_t>(x) == bits;
}

}  // namespace

double rSetERR(uint32_t code) noexcept {
    return nuv64::errorReal(code);
}

uint32_t rGetERR(double x) noexcept {
    return rIsNAN(x) ? static_cast<uint32_t>(std::bit_cast<uint64_t>(x)) : 0;
}

double* rSetNAN(double* x) noexcept {
    return store(x, nuv64::kNoResult);
}

double* rSetPlsINF(double* x) noexcept {
    return store(x, std::bit_cast<double>(kExponentBits));
}

double* rSetMnsINF(double* x) noexcept {
    return store(x, std::bit_cast<double>(kExponentBits | kSignBit));
}

bool rIsNAN(double x) noexcept {
    return nuv64::isNoResult(x);
}

bool rIsNotNAN(double x) noexcept {
    return !nuv64::isNoResult(x);
}

bool rIsPlsINF(double x) noexcept {
    return hasBits(x, kExponentBits);
}

bool rIsMnsINF(double x) noexcept {
    return hasBits(x, kExponentBits | kSignBit);
}
