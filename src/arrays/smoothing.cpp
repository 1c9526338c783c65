#include "nuv64/arrays/smoothing.h"

#include <algorithm>
#include <cmath>

#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_matrix.h"
#include "nuv64/arrays/real_matrix_inverse.h"
#include "nuv64/arrays/real_matrix_products.h"
#include "nuv64/numeric/real_factorials.h"

using namespace nuv64;

namespace {

constexpr uint32_t kGivenSettings = 1;  // order and points come from the caller
constexpr uint32_t kDerivative = 2;     // derivatives, not Taylor coefficients

// The input with its first element repeated `before` times and its last one `after` times.
Owned<double> paddedCopy(uint64_t n, const double* in, uint64_t before, uint64_t after) {
    if (before > UINT64_MAX - n || after > UINT64_MAX - n - before) throw std::bad_alloc();
    Owned<double> padded = allocate<double>(n + before + after);
    RArrFill(before, padded.get(), in[0]);
    RArrCopy(n, in, padded.get() + before);
    RArrFill(after, padded.get() + before + n, in[n - 1]);
    return padded;
}

// out[i] = sum over k of kernel[k]*in[i + k]. Several outputs go side by side: each one's sum keeps
// its order, and the additions of different sums overlap in time.
void correlate(uint64_t n, const double* in, double* out, uint64_t m, const double* kernel) {
    constexpr uint64_t kLanes = 8;
    uint64_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        double sums[kLanes] = {};
        for (uint64_t k = 0; k < m; ++k) {
            for (uint64_t lane = 0; lane < kLanes; ++lane) {
                sums[lane] += kernel[k] * in[i + k + lane];
            }
        }
        RArrCopy(kLanes, sums, out + i);
    }
    for (; i < n; ++i) out[i] = RArrDotProduct(m, kernel, in + i);
}

struct Filter {
    Owned<double> coefficients;
    double gain = 0.0;
};

// Throws std::bad_alloc where the filter doesn't exist: callers report both alike.
Filter makeFilter(uint64_t d, uint64_t points, uint64_t order, double shift) {
    Filter filter;
    filter.coefficients.reset(RArrNewSGcoeff(d, points, order, shift, &filter.gain));
    if (!filter.coefficients) throw std::bad_alloc();
    return filter;
}

// Abscissae of the window, with 0 at the place of evaluation.
Owned<double> windowAxis(uint64_t points, double shift) {
    Owned<double> axis = allocate<double>(points);
    const double half = static_cast<double>(points - 1) / 2.0;
    for (uint64_t j = 0; j < points; ++j) axis[j] = static_cast<double>(j) - shift - half;
    return axis;
}

// Least squares by the normal equations: with the unit vector number d on the right-hand side their
// solution u gives the coefficients V*u of the d-th Taylor coefficient.
double* newCoefficients(uint64_t d, uint64_t points, uint64_t order, double shift, double* gain) {
    if (order >= UINT32_MAX || points > UINT32_MAX || points < order + 1 || d > order) {
        return nullptr;
    }
    const uint64_t terms = order + 1;
    const Owned<double> axis = windowAxis(points, shift);
    const Owned<double> powers(RMatNewVandermonde(nullptr, axis.get(), points, terms));
    if (!powers) return nullptr;
    const Owned<double> gram(RMatNewGram(nullptr, terms, points, powers.get()));
    const Owned<double> solution(RArrNew0(nullptr, terms));
    Owned<double> coefficients = allocate<double>(points);
    if (!gram || !solution) return nullptr;
    solution[d] = 1.0;
    if (RMatInvert(gram.get(), terms, solution.get(), 1) != kSuccess) return nullptr;
    RMatByRArr(powers.get(), static_cast<uint32_t>(points), static_cast<uint32_t>(terms),
               solution.get(), coefficients.get());
    RArrIpMulConst(points, coefficients.get(), rFactorial(static_cast<int64_t>(d)));
    *gain = std::sqrt(RArrDotProduct(points, coefficients.get(), coefficients.get()));
    return coefficients.release();
}

// The settings of the filter with fitted ends, made to fit an array of n elements.
struct EndFitSettings {
    uint64_t points;
    uint64_t order;

    EndFitSettings(uint64_t n, uint64_t wantedPoints, uint64_t wantedOrder) noexcept {
        points = std::max<uint64_t>(wantedPoints, 3) | 1;
        if (points > n) points = (n - 1) | 1;
        order = std::min(wantedOrder, points);
    }
    uint64_t half() const noexcept { return (points - 1) / 2; }
};

void divideByFactorial(uint64_t n, double* out, double* gain, uint64_t d) noexcept {
    const double divisor = rFactorial(static_cast<int64_t>(d));
    for (uint64_t i = 0; i < n; ++i) out[i] /= divisor;
    *gain /= divisor;
}

// Returns the gain of the last vector made.
double filterWithFittedEnds(uint64_t n, const double* in, double* out, double shift, uint64_t d,
                            const EndFitSettings& settings, double* centre) {
    const uint64_t points = settings.points;
    const uint64_t half = settings.half();
    for (uint64_t i = 0; i < half; ++i) {
        const double place = shift - static_cast<double>(half - i);
        const Filter filter = makeFilter(d, points, settings.order, place);
        out[i] = RArrDotProduct(points, filter.coefficients.get(), in);
    }
    const Filter middle = makeFilter(d, points, settings.order, shift);
    correlate(n - 2 * half, in, out + half, points, middle.coefficients.get());
    *centre = middle.coefficients[half];
    double gain = middle.gain;
    for (uint64_t i = 0; i < half; ++i) {
        const double place = shift + static_cast<double>(i + 1);
        const Filter filter = makeFilter(d, points, settings.order, place);
        out[n - half + i] = RArrDotProduct(points, filter.coefficients.get(), in + n - points);
        gain = filter.gain;
    }
    return gain;
}

}  // namespace

uint32_t RArrConvolute(uint64_t n, const double* in, double* out, uint64_t m,
                       const double* kernel) noexcept {
    if (!in || !kernel) return 14;
    if (!out) return 18;
    if (n == 0 || m == 0) return kSuccess;
    return guardStatus([&] {
        const uint64_t before = (m - 1) / 2;
        const Owned<double> padded = paddedCopy(n, in, before, m - 1 - before);
        correlate(n, padded.get(), out, m, kernel);
        return kSuccess;
    });
}

uint64_t RArrSGpoints(uint64_t d, double width, uint64_t* order) noexcept {
    constexpr double kWidest = 4611686018427387904.0;  // 2^62
    const double size = std::fabs(width);
    const uint64_t whole = size <= kWidest  ? static_cast<uint64_t>(1.0 + size)
                           : size > kWidest ? uint64_t{1} << 62
                                            : 1;
    if (order) *order = d + 3;
    return (d + 3 + whole) | 1;
}

double* RArrNewSGcoeff(uint64_t d, uint64_t points, uint64_t order, double shift,
                       double* gain) noexcept {
    double unused = 0.0;
    return guardValue<double*>(
        nullptr, [&] { return newCoefficients(d, points, order, shift, gain ? gain : &unused); });
}

uint32_t RArrSavitskyGolay(uint64_t n, const double* in, double* out, double width, uint64_t d,
                           uint64_t* order, uint64_t* points, double* gain, uint32_t flags,
                           double shift) noexcept {
    const bool given = (flags & kGivenSettings) != 0;
    if (!in) return 14;
    if (!out) return 18;
    if (given && (!order || !points)) return 21;
    return guardStatus([&] {
        uint64_t ownOrder = given ? *order : 0;
        const uint64_t ownPoints =
            given ? *points : RArrSGpoints(d, std::max(0.5, width), &ownOrder);
        if (order) *order = ownOrder;
        if (points) *points = ownPoints;
        Filter filter = makeFilter(d, ownPoints, ownOrder, shift);
        const uint32_t status = RArrConvolute(n, in, out, ownPoints, filter.coefficients.get());
        if (status == kSuccess && d != 0 && !(flags & kDerivative)) {
            divideByFactorial(n, out, &filter.gain, d);
        }
        if (gain) *gain = filter.gain;
        return status;
    });
}

uint32_t RArrSavitskyGolayEx(uint64_t n, const double* in, double* out, double* gain, double shift,
                             uint64_t d, uint64_t order, uint64_t points, uint32_t flags,
                             double* centre) noexcept {
    if (!in || n == 0) return 14;
    if (!out) return 18;
    if (centre) *centre = 0.0;
    return guardStatus([&] {
        double ownCentre = 0.0;
        Owned<double> copy;
        if (in == out) copy = paddedCopy(n, in, 0, 0);
        double ownGain = filterWithFittedEnds(n, copy ? copy.get() : in, out, shift, d,
                                              EndFitSettings(n, points, order), &ownCentre);
        if (d >= 2 && !(flags & kDerivative)) divideByFactorial(n, out, &ownGain, d);
        if (gain) *gain = ownGain;
        if (centre) *centre = ownCentre;
        return kSuccess;
    });
}
