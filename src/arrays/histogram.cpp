#include "nuv64/arrays/histogram.h"

#include <algorithm>
#include <cmath>

#include "core/guard.h"
#include "core/real_rounding.h"

using namespace nuv64;

uint32_t RArrHistogram(uint64_t n, const double* in, double* hist, uint64_t bins, double width,
                       uint64_t skip) noexcept {
    if (!in || n == 0) return 14;
    if (!hist) return 18;
    if (!(width > 0.0)) return 26;
    if (bins == 0) return kSuccess;
    std::fill_n(hist, bins, 0.0);
    if (skip >= n) return kSuccess;
    const double middle = static_cast<double>(bins / 2);
    for (uint64_t i = skip; i < n - skip; ++i) {
        const double place = middle + std::floor(in[i] / width);
        hist[std::min(clampToQword(place), bins - 1)] += 1.0;
    }
    return kSuccess;
}
