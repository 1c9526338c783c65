#include "nuv64/arrays/kernel_smoothing.h"

#include <cmath>

#include "core/guard.h"
#include "core/owned.h"
#include "core/real_rounding.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/arrays/smoothing.h"
#include "nuv64/numeric/real_elementary.h"

using namespace nuv64;

namespace {

constexpr double kLn2 = 0.6931471805599453;

// Elements on one side of the centre, up to where the Gaussian has fallen to one per cent.
uint64_t reachOf(double width) noexcept {
    return clampToQword(width * rSqrt(-rLog(0.01) / kLn2) + 0.5);
}

uint32_t convoluteWithGaussian(uint64_t n, const double* in, double* out, double width) noexcept {
    const uint64_t reach = reachOf(width);
    if (reach == 0) return kSuccess;
    return guardStatus([&] {
        if (reach > UINT64_MAX / 32) throw std::bad_alloc();
        const uint64_t length = 2 * reach + 1;
        const Owned<double> kernel = allocate<double>(length);
        kernel[reach] = 1.0;
        for (uint64_t k = 1; k <= reach; ++k) {
            const double ratio = static_cast<double>(k) / width;
            kernel[reach - k] = kernel[reach + k] = std::exp(-kLn2 * (ratio * ratio));
        }
        const double sum = RArrSum(length, kernel.get(), 1);
        for (uint64_t k = 0; k < length; ++k) kernel[k] /= sum;
        return RArrConvolute(n, in, out, length, kernel.get());
    });
}

// What a running mean still needs of the input, element by element, while it is overwritten.
void runningMean(uint64_t n, double* array, uint64_t m, double* window) noexcept {
    const uint64_t half = (m - 1) / 2;
    const double last = array[n - 1];
    double sum = 0.0;
    for (uint64_t k = 0; k < m; ++k) {
        const uint64_t i = k < half ? 0 : k - half;
        window[k] = i < n ? array[i] : last;
        sum += window[k];
    }
    uint64_t oldest = 0;
    for (uint64_t i = 0; i < n; ++i) {
        const uint64_t next = i + (m - half);
        const double newest = next < n ? array[next] : last;
        array[i] = sum / static_cast<double>(m);
        sum -= window[oldest];
        sum += newest;
        window[oldest] = newest;
        if (++oldest == m) oldest = 0;
    }
}

}  // namespace

uint32_t RArrGaussConvolution(uint64_t n, const double* in, double width, double* out) noexcept {
    if (!in) return 14;
    if (!out) return 18;
    if (n == 0) return kSuccess;
    if (width < -0.001 / static_cast<double>(n)) width *= -static_cast<double>(n);
    if (!(width >= 0.01)) return kSuccess;
    return convoluteWithGaussian(n, in, out, width);
}

uint32_t RArrGaussSmooth(uint64_t n, const double* in, double* out, double width) noexcept {
    if (!in) return 14;
    if (!out) return 18;
    if (!(width > 0.001)) {
        if (!(-0.001 / static_cast<double>(n) > width)) return kSuccess;
        width *= -static_cast<double>(n);
    }
    return convoluteWithGaussian(n, in, out, width);
}

uint32_t RArrIpGaussSmooth(uint64_t n, double* array, double width) noexcept {
    return RArrGaussSmooth(n, array, array, width);
}

uint32_t RArrRectConvolution(uint64_t n, double* array, double width, double* out) noexcept {
    if (!array) return 14;
    if (!out) return 18;
    if (n == 0) return kSuccess;
    if (width < 0.0) width *= -static_cast<double>(n);
    const uint64_t m = clampToQword(width + 0.5) | 1;
    if (m < 2) return kSuccess;
    return guardStatus([&] {
        const Owned<double> window = allocate<double>(m);
        runningMean(n, array, m, window.get());
        return uint32_t{kSuccess};
    });
}

uint32_t RArrMonotoneFilter() noexcept {
    return kSuccess;
}
