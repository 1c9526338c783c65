#include "nuv64/arrays/splines.h"

#include <algorithm>

#include "arrays/sample_table.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_matrix_inverse.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_comparison.h"
#include "nuv64/numeric/real_elementary.h"

using namespace nuv64;

namespace {

double startSlope(const double* x, const double* y, uint64_t n, int64_t mode) noexcept {
    if (mode != 2 || n < 3) return (y[1] - y[0]) / (x[1] - x[0]);
    const double near = x[1] - x[0];
    const double far = x[2] - x[0];
    return ((y[1] - y[0]) * far / near - (y[2] - y[0]) * near / far) / (x[2] - x[1]);
}

struct Parabola {
    double x;
    double y;
    double slope;
    double curvature;

    double at(double t) const noexcept {
        const double d = t - x;
        return y + d * (slope + curvature * d);
    }
};

void evaluateQuadraticSpline(const double* x, const double* y, uint64_t n, const double* t,
                             double* out, uint64_t m, double slope) noexcept {
    Parabola piece{x[0], y[0], 0.0, 0.0};
    uint64_t k = 0;
    for (uint64_t i = 1; i < n; ++i) {
        const double h = x[i] - x[i - 1];
        piece = {x[i - 1], y[i - 1], slope, ((y[i] - y[i - 1]) / h - slope) / h};
        for (; k < m && t[k] <= x[i]; ++k) out[k] = piece.at(t[k]);
        slope += 2.0 * piece.curvature * h;
    }
    for (; k < m; ++k) out[k] = piece.at(t[k]);
}

// Second derivatives at the samples, 0 at both ends: the sweep of the tridiagonal system down and
// back, with the reduced right-hand side in `work`.
void naturalSecondDerivatives(const double* x, const double* y, uint64_t n, double* second,
                              double* work) noexcept {
    second[0] = work[0] = 0.0;
    for (uint64_t i = 1; i + 1 < n; ++i) {
        const double ratio = (x[i] - x[i - 1]) / (x[i + 1] - x[i - 1]);
        const double pivot = ratio * second[i - 1] + 2.0;
        const double bend =
            (y[i + 1] - y[i]) / (x[i + 1] - x[i]) - (y[i] - y[i - 1]) / (x[i] - x[i - 1]);
        second[i] = (ratio - 1.0) / pivot;
        work[i] = (6.0 * bend / (x[i + 1] - x[i - 1]) - ratio * work[i - 1]) / pivot;
    }
    second[n - 1] = 0.0;
    for (uint64_t i = n - 1; i-- > 0;) second[i] = second[i] * second[i + 1] + work[i];
}

// The bracket of the last target serves for the next one as long as it lies inside.
uint32_t evaluateCubicSpline(const TwoArrayTable& samples, const double* second, const double* t,
                             double* out, uint64_t m) noexcept {
    uint64_t low = 0;
    for (uint64_t k = 0; k < m; ++k) {
        const double place = t[k];
        if (!(place >= samples.x(low) && place < samples.x(low + 1))) {
            low = lowerNeighbour(samples, place);
        }
        const double h = samples.x(low + 1) - samples.x(low);
        if (h == 0.0) return 26;
        const double a = (samples.x(low + 1) - place) / h;
        const double b = 1.0 - a;
        out[k] =
            a * samples.y(low) + b * samples.y(low + 1) +
            ((a * a * a - a) * second[low] + (b * b * b - b) * second[low + 1]) * (h * h) / 6.0;
    }
    return kSuccess;
}

// j*(j-1)*...*(j-k+1): what the k-th derivative makes of the power j.
double fallingFactorial(uint64_t j, uint64_t k) noexcept {
    double product = 1.0;
    for (uint64_t i = 0; i < k; ++i) product *= static_cast<double>(j - i);
    return product;
}

// One segment and the samples around it through which its polynomial passes.
struct Segment {
    uint64_t left;
    uint64_t right;
    uint64_t first;
    uint64_t last;
    double centre;

    Segment(const double* x, uint64_t n, uint64_t start, uint64_t step, uint64_t overhang) noexcept
        : left(start),
          right(start + std::min(step, n - 1 - start)),
          first(left - std::min(left, overhang)),
          last(right + std::min(n - 1 - right, overhang)),
          centre(0.5 * (x[left] + x[right])) {}
    uint64_t points() const noexcept { return last - first + 1; }
};

class PiecewisePolynomial {
  public:
    PiecewisePolynomial(const double* x, const double* y, uint64_t n, uint64_t mostPoints,
                        const double* derivatives, uint64_t dcount, uint64_t nd)
        : x_(x), y_(y), nd_(nd) {
        const uint64_t most = std::min(mostPoints, n);
        if (most > kMostTerms || nd > kMostTerms) throw std::bad_alloc();
        matrix_ = allocate<double>((most + nd) * (most + nd));
        coefficients_ = allocate<double>(most + nd);
        carried_ = tryAllocate<double>(nd);
        if (nd != 0 && !carried_) throw std::bad_alloc();
        for (uint64_t k = 0; k < nd; ++k) carried_[k] = k < dcount ? derivatives[k] : 0.0;
    }
    uint32_t fit(const Segment& segment) noexcept {
        terms_ = segment.points() + nd_;
        centre_ = segment.centre;
        for (uint64_t row = 0; row < segment.points(); ++row) {
            setRow(row, x_[segment.first + row], 0);
            coefficients_[row] = y_[segment.first + row];
        }
        for (uint64_t k = 1; k <= nd_; ++k) {
            const uint64_t row = segment.points() + k - 1;
            setRow(row, x_[segment.left], k);
            coefficients_[row] = carried_[k - 1];
        }
        return RMatInvert(matrix_.get(), terms_, coefficients_.get(), 1);
    }
    double derivative(double t, uint64_t k) const noexcept {
        const double u = t - centre_;
        double sum = 0.0;
        for (uint64_t j = k; j < terms_; ++j) {
            sum += coefficients_[j] * (fallingFactorial(j, k) * ruPower(u, j - k));
        }
        return sum;
    }
    void carryTo(double t) noexcept {
        for (uint64_t k = 1; k <= nd_; ++k) carried_[k - 1] = derivative(t, k);
    }

  private:
    static constexpr uint64_t kMostTerms = uint64_t{1} << 28;

    // The k-th derivative at t of each power of the distance from the centre. By columns.
    void setRow(uint64_t row, double t, uint64_t k) noexcept {
        const double u = t - centre_;
        for (uint64_t j = 0; j < terms_; ++j) {
            matrix_[row + j * terms_] = j < k ? 0.0 : fallingFactorial(j, k) * ruPower(u, j - k);
        }
    }

    const double* x_;
    const double* y_;
    uint64_t nd_;
    uint64_t terms_ = 0;
    double centre_ = 0.0;
    Owned<double> matrix_;
    Owned<double> coefficients_;
    Owned<double> carried_;
};

}  // namespace

uint32_t RArrSpline2XarrYarr(const double* x, const double* y, uint64_t n, const double* t,
                             double* out, uint64_t m, int64_t mode) noexcept {
    if (m == 0) return kSuccess;
    if (!out) return 18;
    if (!x || !y || !t || n == 0) return 14;
    const double slope = n > 1 ? startSlope(x, y, n, mode) : 0.0;
    evaluateQuadraticSpline(x, y, n, t, out, m, slope);
    return kSuccess;
}

uint32_t RArrSpline3XarrYarr(const double* x, const double* y, uint64_t n, const double* t,
                             double* out, uint64_t m) noexcept {
    if (!x || !y || !t) return 22;
    if (!out) return 18;
    if (n < 2) return 22;
    return guardStatus([&] {
        const Owned<double> second = allocate<double>(n);
        const Owned<double> work = allocate<double>(n);
        naturalSecondDerivatives(x, y, n, second.get(), work.get());
        return evaluateCubicSpline(TwoArrayTable(x, y, n), second.get(), t, out, m);
    });
}

uint32_t RArrSplineEx(const double* x, const double* y, uint64_t n, const double* derivatives,
                      uint64_t dcount, uint64_t nd, const double* t, double* out, uint64_t m,
                      uint64_t points, uint64_t step) noexcept {
    if (!x || !y || !t || (nd != 0 && (!derivatives || dcount == 0))) return 22;
    if (!out || m == 0) return 18;
    if (step == 0 || n < 2 || points <= step) return 25;
    return guardStatus([&] {
        const uint64_t overhang = (points - 1 - step) / 2;
        PiecewisePolynomial polynomial(x, y, n, points, derivatives, dcount, nd);
        Owned<double> copy;
        if (t == out) {
            copy = allocate<double>(m);
            RArrCopy(m, t, copy.get());
            t = copy.get();
        }
        RArrFill(m, out, ___NAN);
        uint64_t k = 0;
        for (uint64_t start = 0; start < n - 1;) {
            const Segment segment(x, n, start, step, overhang);
            const uint32_t status = polynomial.fit(segment);
            if (status != kSuccess) return status;
            const double low = x[segment.left];
            const double high = x[segment.right];
            for (; k < m && rIsBetweenAtoB(t[k], low, high); ++k) {
                out[k] = polynomial.derivative(t[k], 0);
            }
            if (segment.right < n - 1) polynomial.carryTo(high);
            start = segment.right;
        }
        return uint32_t{kSuccess};
    });
}
