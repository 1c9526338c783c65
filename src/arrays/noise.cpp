#include "nuv64/arrays/noise.h"

#include <cmath>

#include "arrays/deviations.h"
#include "arrays/real_extremes.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_array_means.h"
#include "nuv64/arrays/smoothing.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"

using namespace nuv64;

namespace {

// The unbiased deviation, against their own mean, of the elements with a magnitude below limit.
double clippedDeviation(uint64_t n, const double* a, double limit) noexcept {
    double count = 0.0;
    double sum = 0.0;
    double squares = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        if (!(std::fabs(a[i]) < limit)) continue;
        count += 1.0;
        sum += a[i];
        squares += a[i] * a[i];
    }
    return std::sqrt((squares - sum * sum / count) / (count - 1.0));
}

}  // namespace

double pRArrVarianceCorr(uint64_t n, const double* a, double c, double* mean) noexcept {
    const double divisor = static_cast<double>(n) + c;
    if (!a || !(divisor >= 0.001)) return ___NAN;
    const double centre = RArrMeanA(n, a);
    if (mean) *mean = centre;
    return squaredDeviations<AsIs>(n, a, centre) / divisor;
}

double pRArrStdCorr(uint64_t n, const double* a, double c, double* mean) noexcept {
    if (n < 2) return ___NAN;
    return std::sqrt(pRArrVarianceCorr(n, a, c, mean));
}

double pRArrStdThreshold(uint64_t n, const double* a, double k, uint64_t rounds) noexcept {
    double deviation = pRArrStdCorr(n, a, -1.0, nullptr);
    for (uint64_t round = 0; round < rounds && !rIsNAN(deviation); ++round) {
        const double previous = deviation;
        deviation = clippedDeviation(n, a, std::fabs(deviation * k));
        if (deviation == previous) break;
    }
    return deviation;
}

uint32_t RArrNoiseEstimateBySavitskyGolay(uint64_t n, const double* y, double* sigma,
                                          double* smoothed, uint64_t order, uint64_t points,
                                          uint64_t passes, double sigmas) noexcept {
    if (!y || n == 0) return 14;
    if (!sigma) return 18;
    return guardStatus([&] {
        const Owned<double> curve = allocate<double>(n);
        const Owned<double> residuals = allocate<double>(n);
        double gain = 0.0;
        double centre = 0.0;
        const uint32_t status =
            RArrSavitskyGolayEx(n, y, curve.get(), &gain, 0.0, 0, order, points, 0, &centre);
        if (status != kSuccess) return status;
        RArrSub(n, y, curve.get(), residuals.get());
        const double deviation = pRArrStdThreshold(n, residuals.get(), sigmas, passes);
        *sigma = deviation / std::sqrt(1.0 + gain * gain - 2.0 * centre);
        if (smoothed) RArrCopy(n, curve.get(), smoothed);
        return kSuccess;
    });
}
