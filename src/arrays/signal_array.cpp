#include "nuv64/arrays/signal_array.h"

#include <cmath>

#include "core/guard.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/special_reals.h"

using namespace nuv64;

namespace {

// The element count of n points; all ones, which no allocation grants, where it overflows.
uint64_t elementCount(uint64_t n) noexcept {
    return n > UINT64_MAX / 2 ? UINT64_MAX : 2 * n;
}

double power(double re, double im) noexcept {
    return re * re + im * im;
}

template <class Operation>
uint32_t replaceReal(uint64_t n, const double* in, double* out, Operation operation) noexcept {
    if (!in) return 14;
    if (!out) return 18;
    for (uint64_t i = 0; i < n; ++i) out[i] = operation(in[i], in[n + i]);
    return in == out ? kSuccess : RArrCopy(n, in + n, out + n);
}

}  // namespace

double* SArrNew(uint32_t* err, uint64_t n) noexcept {
    return RArrNew(err, elementCount(n));
}

double* SArrNew0(uint32_t* err, uint64_t n) noexcept {
    return RArrNew0(err, elementCount(n));
}

double* SArrNewCopy(uint32_t* err, uint64_t n, const double* source) noexcept {
    return RArrNewCopy(err, elementCount(n), source);
}

uint32_t SArrCopy(uint64_t n, const double* source, double* destination) noexcept {
    return RArrCopy(elementCount(n), source, destination);
}

uint32_t SArrFill(uint64_t n, double* data, double re, double im) noexcept {
    if (n == 0) return kSuccess;
    if (!data) return 18;
    RArrFill(n, data, re);
    return RArrFill(n, data + n, im);
}

uint32_t SArrZero(uint64_t n, double* data) noexcept {
    return SArrFill(n, data, 0.0, 0.0);
}

uint32_t SArrReplaceRealByMagnitude(uint64_t n, const double* in, double* out) noexcept {
    return replaceReal(n, in, out, [](double re, double im) { return std::sqrt(power(re, im)); });
}

uint32_t SArrIpReplaceRealByMagnitude(uint64_t n, double* data) noexcept {
    return SArrReplaceRealByMagnitude(n, data, data);
}

uint32_t SArrReplaceRealByPower(uint64_t n, const double* in, double* out) noexcept {
    return replaceReal(n, in, out, power);
}

uint32_t SArrIpReplaceRealByPower(uint64_t n, double* data) noexcept {
    return SArrReplaceRealByPower(n, data, data);
}

double SArrMaxPower(uint64_t n, const double* data, uint64_t* index) noexcept {
    if (index) *index = UINT64_MAX;
    if (n == 0 || !data) return ___NAN;
    double best = power(data[0], data[n]);
    uint64_t place = 0;
    for (uint64_t i = 1; i < n; ++i) {
        const double value = power(data[i], data[n + i]);
        if (value > best) {
            best = value;
            place = i;
        }
    }
    if (index) *index = place;
    return best;
}

double SArrMaxMagnitude(uint64_t n, const double* data, uint64_t* index) noexcept {
    return std::sqrt(SArrMaxPower(n, data, index));
}
