#include "nuv64/arrays/real_elements.h"

#include "core/guard.h"
#include "nuv64/core/special_reals.h"

using namespace nuv64;

namespace {

template <class Operation>
uint32_t mapElements(uint64_t n, const double* in, double* out, Operation operation) noexcept {
    if (!in) return 14;
    if (!out) return 18;
    for (uint64_t i = 0; i < n; ++i) out[i] = operation(in[i]);
    return kSuccess;
}

template <class Operation>
uint32_t mapPairs(uint64_t n, const double* a, const double* b, double* out,
                  Operation operation) noexcept {
    if (n == 0) return kSuccess;
    if (!a || !b) return 14;
    if (!out) return 18;
    for (uint64_t i = 0; i < n; ++i) out[i] = operation(a[i], b[i]);
    return kSuccess;
}

// b := operation(a, b).
template <class Operation>
uint32_t updateSecond(uint64_t n, const double* a, double* b, Operation operation) noexcept {
    if (n == 0) return kSuccess;
    if (!a) return 14;
    if (!b) return 18;
    for (uint64_t i = 0; i < n; ++i) b[i] = operation(a[i], b[i]);
    return kSuccess;
}

}  // namespace

uint32_t RArrAbs(uint64_t n, const double* in, double* out) noexcept {
    return mapElements(n, in, out, [](double x) { return x < 0.0 ? -x : x; });
}

uint32_t RArrIpAbs(uint64_t n, double* array) noexcept {
    return RArrAbs(n, array, array);
}

uint32_t RArrInvertSign(uint64_t n, const double* in, double* out) noexcept {
    return mapElements(n, in, out, [](double x) { return -x; });
}

uint32_t RArrIpInvertSign(uint64_t n, double* array) noexcept {
    return RArrInvertSign(n, array, array);
}

uint32_t RArrAddConst(uint64_t n, const double* in, double* out, double c) noexcept {
    return mapElements(n, in, out, [c](double x) { return x + c; });
}

uint32_t RArrIpAddConst(uint64_t n, double* array, double c) noexcept {
    return RArrAddConst(n, array, array, c);
}

uint32_t RArrMulConst(uint64_t n, const double* in, double* out, double c) noexcept {
    return mapElements(n, in, out, [c](double x) { return x * c; });
}

uint32_t RArrIpMulConst(uint64_t n, double* array, double c) noexcept {
    return RArrMulConst(n, array, array, c);
}

uint32_t RArrAdd(uint64_t n, const double* a, const double* b, double* out) noexcept {
    return mapPairs(n, a, b, out, [](double x, double y) { return x + y; });
}

uint32_t RArrSub(uint64_t n, const double* a, const double* b, double* out) noexcept {
    return mapPairs(n, a, b, out, [](double x, double y) { return x - y; });
}

uint32_t RArrMul(uint64_t n, const double* a, const double* b, double* out) noexcept {
    return mapPairs(n, a, b, out, [](double x, double y) { return x * y; });
}

uint32_t RArrDiv(uint64_t n, const double* a, const double* b, double* out) noexcept {
    const double missing = ___NAN;
    return mapPairs(n, a, b, out,
                    [missing](double x, double y) { return y == 0.0 ? missing : x / y; });
}

uint32_t RArrAdd2(uint64_t n, const double* a, double* b, double k) noexcept {
    if (k == 1.0) return updateSecond(n, a, b, [](double x, double y) { return y + x; });
    return updateSecond(n, a, b, [k](double x, double y) { return y + k * x; });
}

uint32_t RArrSub2(uint64_t n, const double* a, double* b, double k) noexcept {
    if (k == 1.0) return updateSecond(n, a, b, [](double x, double y) { return y - x; });
    return updateSecond(n, a, b, [k](double x, double y) { return y - k * x; });
}

uint32_t RArrMul2(uint64_t n, const double* a, double* b) noexcept {
    return RArrMul(n, b, a, b);
}

uint32_t RArrDiv2(uint64_t n, const double* a, double* b) noexcept {
    return RArrDiv(n, b, a, b);
}

uint32_t RArrLinCombi(uint64_t n, const double* a, double alpha, const double* b, double beta,
                      double* out) noexcept {
    return mapPairs(n, a, b, out,
                    [alpha, beta](double x, double y) { return alpha * x + beta * y; });
}

uint32_t RArrSwap(uint64_t n, double* a, double* b) noexcept {
    if (!a || !b) return 14;
    if (a == b) return kSuccess;
    for (uint64_t i = 0; i < n; ++i) {
        const double held = a[i];
        a[i] = b[i];
        b[i] = held;
    }
    return kSuccess;
}

uint32_t RArrPlaneRotation(uint64_t n, double* x, double* y, double c, double s) noexcept {
    for (uint64_t i = 0; i < n; ++i) {
        const double along = c * x[i] + s * y[i];
        y[i] = c * y[i] - s * x[i];
        x[i] = along;
    }
    return kSuccess;
}
