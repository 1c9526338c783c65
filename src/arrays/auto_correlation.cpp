#include "nuv64/arrays/auto_correlation.h"

#include <algorithm>

#include "core/guard.h"
#include "core/owned.h"

using namespace nuv64;

namespace {

constexpr uint64_t kLanes = 8;

double lagSum(uint64_t from, uint64_t to, const double* in, uint64_t lag, double sum) noexcept {
    for (uint64_t j = from; j < to; ++j) sum += in[j] * in[j + lag];
    return sum;
}

// Eight lags side by side: each one's sum keeps its order, and the additions of different sums
// overlap in time. The longer ones are completed one by one.
void correlate(uint64_t n, const double* in, double* out) noexcept {
    uint64_t lag = 0;
    for (; lag + kLanes <= n; lag += kLanes) {
        double sums[kLanes] = {};
        const uint64_t common = n - (lag + kLanes - 1);
        for (uint64_t j = 0; j < common; ++j) {
            for (uint64_t lane = 0; lane < kLanes; ++lane) {
                sums[lane] += in[j] * in[j + lag + lane];
            }
        }
        for (uint64_t lane = 0; lane < kLanes; ++lane) {
            const uint64_t terms = n - (lag + lane);
            out[lag + lane] =
                lagSum(common, terms, in, lag + lane, sums[lane]) / static_cast<double>(terms);
        }
    }
    for (; lag < n; ++lag) {
        out[lag] = lagSum(0, n - lag, in, lag, 0.0) / static_cast<double>(n - lag);
    }
}

}  // namespace

uint32_t RArrAutoCorr(uint64_t n, const double* in, double* out) noexcept {
    if (!in || n == 0) return 14;
    if (!out) return 18;
    return guardStatus([&] {
        Owned<double> copy;
        if (in == out) {
            copy = allocate<double>(n);
            std::copy_n(in, n, copy.get());
        }
        correlate(n, copy ? copy.get() : in, out);
        return kSuccess;
    });
}
