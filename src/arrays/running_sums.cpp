#include "nuv64/arrays/running_sums.h"

#include "arrays/element_loops.h"
#include "nuv64/arrays/real_array.h"

using namespace nuv64;

namespace {

// The cubic through four samples, integrated over the middle interval.
constexpr double kInner = 13.0 / 24.0;  // weight of the two samples of the interval
constexpr double kOuter = 1.0 / 24.0;   // weight of the neighbours

// out[i] = combine(out[i-1], in[i]) behind out[0] = in[0].
template <class Combine>
uint32_t accumulate(uint64_t n, const double* in, double* out, Combine combine) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (n == 0) return kSuccess;
    double last = in[0];
    out[0] = last;
    for (uint64_t i = 1; i < n; ++i) {
        last = combine(last, in[i]);
        out[i] = last;
    }
    return kSuccess;
}

}  // namespace

uint32_t RArrRunningSum(uint64_t n, const double* in, double* out) noexcept {
    return accumulate(n, in, out, [](double sum, double x) { return sum + x; });
}

uint32_t RArrIpRunningSum(uint64_t n, double* array) noexcept {
    return RArrRunningSum(n, array, array);
}

uint32_t RArrRunningProduct(uint64_t n, const double* in, double* out) noexcept {
    return accumulate(n, in, out, [](double product, double x) { return product * x; });
}

uint32_t RArrIpRunningProduct(uint64_t n, double* array) noexcept {
    return RArrRunningProduct(n, array, array);
}

uint32_t RArrRunningTrapez2(uint64_t n, const double* in, double* out) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (n == 0) return kSuccess;
    const double lastHalf = 0.5 * in[n - 1];
    double sum = 0.5 * in[0];
    out[0] = sum;
    for (uint64_t i = 1; i < n; ++i) {
        sum += in[i];
        out[i] = sum;
    }
    out[n - 1] -= lastHalf;
    return kSuccess;
}

uint32_t RArrIpRunningTrapez2(uint64_t n, double* array) noexcept {
    return RArrRunningTrapez2(n, array, array);
}

uint32_t RArrRunningModTrapez(uint64_t n, const double* in, double* out, double before,
                              double after) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (n == 0) return kSuccess;
    double secondLast = in[0];
    out[0] = 0.0;
    if (n == 1) return kSuccess;
    double last = in[1];
    const double beyond = n == 2 ? after : in[2];
    out[1] = kInner * (secondLast + last) - kOuter * (before + beyond);
    if (n == 2) return kSuccess;
    const double lastButOne = in[n - 2];
    for (uint64_t i = 2; i + 2 < n; ++i) {
        const double here = in[i];
        out[i] = out[i - 1] + kInner * (last + here) - kOuter * (secondLast + in[i + 1]);
        secondLast = last;
        last = here;
    }
    if (n > 3) out[n - 2] = lastButOne;
    out[n - 1] = out[n - 2] + kInner * (last + in[n - 1]) - kOuter * (secondLast + after);
    return kSuccess;
}

uint32_t RArrIpRunningModTrapez(uint64_t n, double* array, double before, double after) noexcept {
    return RArrRunningModTrapez(n, array, array, before, after);
}

uint32_t RArrSelfDiff(uint64_t n, const double* in, double* out, int64_t k) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (k == 0) return RArrZero(n, out);
    const uint64_t distance = k < 0 ? 0 - static_cast<uint64_t>(k) : static_cast<uint64_t>(k);
    if (distance >= n) return kSuccess;
    if (k > 0) {
        for (uint64_t i = 0; i < n - distance; ++i) out[i] = in[i] - in[i + distance];
    } else {
        for (uint64_t i = n; i-- > distance;) out[i] = in[i] - in[i - distance];
    }
    return kSuccess;
}
