#include "nuv64/arrays/real_elements.h"

#include "arrays/element_loops.h"
#include "core/guard.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/random.h"

using namespace nuv64;

namespace {

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

uint32_t RArrAddNoise(uint64_t n, const double* in, double* out, double sigma) noexcept {
    return mapElements(n, in, out, [sigma](double x) { return x + (0.0 + sigma * pRgNormal0()); });
}

uint32_t RArrIpAddNoise(uint64_t n, double* array, double sigma) noexcept {
    return RArrAddNoise(n, array, array, sigma);
}

uint32_t RArrClip(uint64_t mode, uint64_t n, const double* in, double* out, double level) noexcept {
    if (n == 0) return kSuccess;
    if (!in) return 14;
    if (!out) return 18;
    const Pair zero = bothOf(0.0);
    const Pair high = bothOf(level);
    const Pair low = -high;
    switch (mode) {
        case 0:
            return mapElementPairs(n, in, out, [=](Pair x) { return x > high ? high : x; });
        case 1:
            return mapElementPairs(n, in, out, [=](Pair x) { return x > high ? zero : x - high; });
        case 2:
            return mapElementPairs(n, in, out, [=](Pair x) { return high > x ? high : x; });
        case 3:
            return mapElementPairs(n, in, out, [=](Pair x) { return high > x ? zero : x - high; });
        case 4:
            return mapElementPairs(n, in, out, [=](Pair x) {
                return low > x ? low : x > high ? high : x;
            });
        case 5:
            return mapElementPairs(n, in, out, [=](Pair x) {
                const Pair positive = x > high ? x - high : zero;
                const Pair negative = low > x ? x + high : zero;
                return x >= 0.0 ? positive : negative;
            });
        default:
            return kSuccess;
    }
}

uint32_t RArrIpClip(uint64_t mode, uint64_t n, double* array, double level) noexcept {
    return RArrClip(mode, n, array, array, level);
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
