#include "nuv64/arrays/real_quadrature.h"

#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_special.h"

namespace {

// a[1] + a[3] + ... + a[m] for odd m, with 0 where the array has ended.
double oddSum(uint64_t n, uint64_t m, const double* array) noexcept {
    double sum = 0.0;
    for (uint64_t i = 1; i <= m && i < n; i += 2) sum += array[i];
    return sum;
}

}  // namespace

double RArrTrapez2(const double* array) noexcept {
    return array ? 0.5 * (array[0] + array[1]) : ___NAN;
}

double RArrSimpson3(const double* array) noexcept {
    return array ? (array[0] + 4.0 * array[1] + array[2]) / 3.0 : ___NAN;
}

double RArrSimpson38(const double* array) noexcept {
    if (!array) return ___NAN;
    return 0.375 * (array[0] + 3.0 * array[1] + 3.0 * array[2] + array[3]);
}

double RArrTrapez2Ex(uint64_t n, const double* array) noexcept {
    const double sum = RArrSum(n, array, 1);
    return rIsNAN(sum) ? sum : sum - 0.5 * (array[0] + array[n - 1]);
}

double RArrSimpson3Ex(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    const uint64_t m = n % 2 == 1 ? n : n - 1;
    const double sum = 2.0 * RArrSkipSum(m, array, 2) + 4.0 * oddSum(n, m, array);
    if (rIsNAN(sum)) return sum;
    const double integral = (sum - array[0] - array[m - 1]) / 3.0;
    return m < n ? integral + 0.5 * (array[n - 2] + array[n - 1]) : integral;
}

double RArrSimpson38Ex(uint64_t n, const double* array) noexcept {
    if (n == 0 || !array) return ___NAN;
    const uint64_t m = (n - 1) - (n - 1) % 3;
    if (m == 0) return ___NAN;
    const double sum = 2.0 * RArrSkipSum(m, array, 3) + 3.0 * RArrSkipSum(m, array + 1, 3) +
                       3.0 * RArrSkipSum(m, array + 2, 3);
    if (rIsNAN(sum)) return sum;
    return 0.375 * (sum - array[0] - array[m - 1]) + RArrTrapez2(array + (m - 1));
}

double RArrMthCurvature(uint64_t n, double* a, uint32_t m) noexcept {
    if (!a) return 14.0;
    if (n <= m) return ___NAN;
    double factorial = 1.0;
    for (uint64_t k = 1; k <= m; ++k) {
        for (uint64_t i = n - 1; i >= k; --i) a[i] -= a[i - 1];
        factorial *= static_cast<double>(k);
    }
    return RArrSum(n - m, a + m, 1) / static_cast<double>(n - m) / factorial;
}
