#include "nuv64/arrays/array_powers.h"

#include <algorithm>
#include <cmath>

#include "arrays/element_loops.h"
#include "arrays/integer_powers.h"
#include "numeric/sign_transfer.h"
#include "nuv64/numeric/real_powers.h"

using namespace nuv64;

namespace {

constexpr uint64_t kBlock = 64;

// The power of the magnitude, finished by finish(x, power), a block at a time.
template <class Finish>
uint32_t powerOfMagnitudes(uint64_t n, const double* in, double* out, int32_t k,
                           Finish finish) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    double powers[kBlock];
    for (uint64_t i = 0; i < n; i += kBlock) {
        const uint64_t count = std::min(kBlock, n - i);
        for (uint64_t j = 0; j < count; ++j) powers[j] = std::fabs(in[i + j]);
        integerPowers(count, powers, powers, k);
        for (uint64_t j = 0; j < count; ++j) out[i + j] = finish(in[i + j], powers[j]);
    }
    return kSuccess;
}

}  // namespace

uint32_t RArrAbsPower(uint64_t n, const double* in, double* out, double p) noexcept {
    return mapElements(n, in, out, [p](double x) { return rPow(x, p); });
}

uint32_t RArrIpAbsPower(uint64_t n, double* array, double p) noexcept {
    return RArrAbsPower(n, array, array, p);
}

uint32_t RArrSignedPower(uint64_t n, const double* in, double* out, double p) noexcept {
    return mapElements(n, in, out, [p](double x) { return rSignedPower(x, p); });
}

uint32_t RArrIpSignedPower(uint64_t n, double* array, double p) noexcept {
    return RArrSignedPower(n, array, array, p);
}

uint32_t RArrPowerI(uint64_t n, const double* in, double* out, int32_t k) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    integerPowers(n, in, out, k);
    return kSuccess;
}

uint32_t RArrIpPowerI(uint64_t n, double* array, int32_t k) noexcept {
    return RArrPowerI(n, array, array, k);
}

uint32_t RArrAbsPowerI(uint64_t n, const double* in, double* out, int32_t k) noexcept {
    return powerOfMagnitudes(n, in, out, k, [](double, double power) { return power; });
}

uint32_t RArrIpAbsPowerI(uint64_t n, double* array, int32_t k) noexcept {
    return RArrAbsPowerI(n, array, array, k);
}

uint32_t RArrSignedPowerI(uint64_t n, const double* in, double* out, int32_t k) noexcept {
    return powerOfMagnitudes(n, in, out, k, withSignOf);
}

uint32_t RArrIpSignedPowerI(uint64_t n, double* array, int32_t k) noexcept {
    return RArrSignedPowerI(n, array, array, k);
}

uint32_t RArrSquare(uint64_t n, const double* in, double* out) noexcept {
    return mapElements(n, in, out, [](double x) { return x * x; });
}

uint32_t RArrIpSquare(uint64_t n, double* array) noexcept {
    return RArrSquare(n, array, array);
}

uint32_t RArrSignedSquare(uint64_t n, const double* in, double* out) noexcept {
    return mapElements(n, in, out, [](double x) { return withSignOf(x, x * x); });
}

uint32_t RArrIpSignedSquare(uint64_t n, double* array) noexcept {
    return RArrSignedSquare(n, array, array);
}
