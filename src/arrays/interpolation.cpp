#include "nuv64/arrays/interpolation.h"

#include <algorithm>

#include "arrays/sample_table.h"
#include "nuv64/core/special_reals.h"

using namespace nuv64;

namespace {

template <class Table>
double onLine(const Table& table, uint64_t low, double x) noexcept {
    return rIntExt2L(x, table.x(low), table.x(low + 1), table.y(low), table.y(low + 1));
}

template <class Table>
double onNearestParabola(const Table& table, uint64_t low, double x) noexcept {
    const uint64_t n = table.size();
    if (n < 3) return onLine(table, low, x);
    const bool lower = x - table.x(low) < table.x(low + 1) - x;
    const uint64_t i = std::clamp<uint64_t>(lower ? low : low + 1, 1, n - 2);
    return rIntExt3Q(x, table.x(i - 1), table.x(i), table.x(i + 1), table.y(i - 1), table.y(i),
                     table.y(i + 1));
}

// The end values outside the table, and between its ends what `between` finds behind the lower
// neighbour.
template <class Table, class Between>
double withinEnds(const Table& table, double x, Between between) noexcept {
    if (table.missing()) return ___NAN;
    const uint64_t last = table.size() - 1;
    if (x <= table.x(0)) return table.y(0);
    if (last == 0 || x >= table.x(last)) return table.y(last);
    return between(table, lowerNeighbour(table, x), x);
}

template <class Table>
double lagrange(const Table& table, double x) noexcept {
    const uint64_t n = table.size();
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        double numerator = 1.0;
        double denominator = 1.0;
        for (uint64_t j = 0; j < n; ++j) {
            if (j == i) continue;
            numerator *= x - table.x(j);
            denominator *= table.x(i) - table.x(j);
        }
        if (denominator == 0.0) return ___NAN;
        sum += table.y(i) * numerator / denominator;
    }
    return sum;
}

// work holds the differences that end at the last node, the highest order first.
template <class Table>
double newtonValue(const Table& table, double x, const double* work) noexcept {
    double value = work[0];
    for (uint64_t i = 1; i < table.size(); ++i) value = value * (x - table.x(i)) + work[i];
    return value;
}

// Repeated synthetic division: round k leaves the k-th Taylor coefficient at x at its place.
template <class Table>
double newtonDerivatives(const Table& table, double x, double* work) noexcept {
    const uint64_t n = table.size();
    std::reverse(work, work + n);
    double factorial = 1.0;
    for (uint64_t k = 1; k < n; ++k) {
        uint64_t i = n - 1;
        for (uint64_t l = k; l < n; ++l) {
            --i;
            work[i] += work[i + 1] * (x - table.x(l));
        }
        work[i] *= factorial;
        factorial *= static_cast<double>(k);
    }
    work[n - 1] *= factorial;
    return work[0];
}

// spacing(i, j) divides the difference of order j that begins at node i.
template <class Table, class Spacing>
double newton(const Table& table, double x, double* work, uint64_t derivatives,
              Spacing spacing) noexcept {
    const uint64_t n = table.size();
    if (table.missing() || !work || n < 2) return ___NAN;
    for (uint64_t i = 0; i < n; ++i) work[i] = table.y(i);
    for (uint64_t j = 1; j < n; ++j) {
        for (uint64_t i = 0; i < n - j; ++i) work[i] = (work[i + 1] - work[i]) / spacing(i, j);
    }
    return derivatives == 1 ? newtonDerivatives(table, x, work) : newtonValue(table, x, work);
}

}  // namespace

double rIntExt2L(double x, double x1, double x2, double y1, double y2) noexcept {
    return y1 + (y2 - y1) * (x - x1) / (x2 - x1);
}

double rIntExt3Q(double x, double x1, double x2, double x3, double y1, double y2,
                 double y3) noexcept {
    const double upper = (y3 - y2) / (x3 - x2);
    const double twice = 2.0 * (upper - (y1 - y2) / (x1 - x2)) / (x3 - x1);
    const double c = 0.5 * twice;
    const double slope =
        x3 + x1 >= 2.0 * x2 ? upper - c * (x3 - x2) : (y2 - y1) / (x2 - x1) + c * (x2 - x1);
    return y2 + (x - x2) * (slope + c * (x - x2));
}

double rIntExt3QExtreme(double x1, double x2, double x3, double y1, double y2, double y3,
                        double* xe, double* ye) noexcept {
    const double upper = (y3 - y2) / (x3 - x2);
    const double second = 2.0 * (upper - (y1 - y2) / (x1 - x2)) / (x3 - x1);
    const double slope = upper - second * (x3 - x2) / 2.0;
    const double step = slope / second;
    if (xe) *xe = x2 - step;
    if (ye) *ye = y2 - 0.5 * slope * step;
    return second;
}

double rSplineQ2(double x, double x1, double x2, double y1, double y2, double* slope) noexcept {
    if (!slope) return ___NAN;
    const double s = *slope;
    const double h = x2 - x1;
    const double c = ((y2 - y1) / h - s) / h;
    *slope = s + 2.0 * c * h;
    return y1 + (x - x1) * (s + c * (x - x1));
}

double RArrIntExt2LXYarr(double x, const double* table, uint64_t n) noexcept {
    return withinEnds(PairTable(table, n), x, onLine<PairTable>);
}

double RArrIntExt2LXarrYarr(double x, const double* xTable, const double* yTable,
                            uint64_t n) noexcept {
    return withinEnds(TwoArrayTable(xTable, yTable, n), x, onLine<TwoArrayTable>);
}

double RArrIntExt3QXYarr(double x, const double* table, uint64_t n) noexcept {
    return withinEnds(PairTable(table, n), x, onNearestParabola<PairTable>);
}

double RArrIntExt3QXarrYarr(double x, const double* xTable, const double* yTable,
                            uint64_t n) noexcept {
    return withinEnds(TwoArrayTable(xTable, yTable, n), x, onNearestParabola<TwoArrayTable>);
}

double RArrIntExtLagrangeXYarr(double x, const double* table, uint64_t n) noexcept {
    const PairTable samples(table, n);
    return samples.missing() || n < 2 ? 0.0 : lagrange(samples, x);
}

double RArrIntExtLagrangeXarrYarr(double x, const double* xTable, const double* yTable,
                                  uint64_t n) noexcept {
    const TwoArrayTable samples(xTable, yTable, n);
    return samples.missing() || n < 2 ? ___NAN : lagrange(samples, x);
}

double RArrIntExtNewtonXYarr(double x, const double* table, uint64_t n, double* work,
                             uint64_t derivatives) noexcept {
    const PairTable samples(table, n);
    return newton(samples, x, work, derivatives,
                  [&](uint64_t i, uint64_t) { return samples.x(i + 1) - samples.x(i); });
}

double RArrIntExtNewtonXarrYarr(double x, const double* xTable, const double* yTable, uint64_t n,
                                double* work, uint64_t derivatives) noexcept {
    const TwoArrayTable samples(xTable, yTable, n);
    return newton(samples, x, work, derivatives,
                  [&](uint64_t i, uint64_t j) { return samples.x(i + j) - samples.x(i); });
}
