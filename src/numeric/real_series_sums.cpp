#include "nuv64/numeric/real_series_sums.h"

#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_special.h"

double rAriSum(uint64_t n, double first, double step) noexcept {
    if (n == 0) return 0.0;
    const double count = static_cast<double>(n);
    return count * (first + 0.5 * (count - 1.0) * step);
}

double rAriSumFl(uint64_t n, double first, double last) noexcept {
    return 0.5 * static_cast<double>(n) * (first + last);
}

double rAriSumPow2(uint64_t n, double first, double step) noexcept {
    const double count = static_cast<double>(n);
    const double linear = first + (2.0 * count - 1.0) * step / 6.0;
    return count * (first * first + (count - 1.0) * step * linear);
}

double rGeoSum(uint64_t n, double first, double ratio) noexcept {
    if (n == 0 || first == 0.0) return 0.0;
    if (n == 1 || ratio == 0.0) return first;
    if (ratio == 1.0) return static_cast<double>(n) * first;
    return first * (1.0 - ruPower(ratio, n)) / (1.0 - ratio);
}

double rGeoSumFl(uint64_t n, double first, double last) noexcept {
    if (n == 0) return 0.0;
    if (n == 1) return first;
    if (first == last) return static_cast<double>(n) * first;
    const bool opposite = (first < 0.0 && last > 0.0) || (first > 0.0 && last < 0.0);
    if (first == 0.0 || opposite) return ___NAN;
    const double q = rPow(last / first, 1.0 / static_cast<double>(n - 1));
    return (first - q * last) / (1.0 - q);
}

double rGeoSumPow2(uint64_t n, double first, double ratio) noexcept {
    return rGeoSum(n, first * first, ratio * ratio);
}

double rGeoAri(uint64_t n, double x, double y) noexcept {
    const double power = ruPower(x, n);
    if (rIsNAN(power)) return ___NAN;
    return power + y * (1.0 - power) / (1.0 - x);
}
