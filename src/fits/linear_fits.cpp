#include "nuv64/fits/linear_fits.h"

#include <algorithm>
#include <cmath>

#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "fits/residual_norm.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_matrix_inverse.h"
#include "nuv64/numeric/chebyshev.h"
#include "nuv64/numeric/real_special.h"

using namespace nuv64;

namespace {

using Basis = double (*)(double x, uint64_t k);

struct LineSums {
    double count = 0.0;
    double x = 0.0;
    double y = 0.0;
    double xx = 0.0;
    double xy = 0.0;
};

bool isUsable(double x, double y) noexcept {
    return !rIsNAN(x) && !rIsNAN(y);
}

LineSums sumPoints(const double* x, const double* y, uint64_t n) noexcept {
    LineSums sums;
    for (uint64_t i = 0; i < n; ++i) {
        if (!isUsable(x[i], y[i])) continue;
        sums.count += 1.0;
        sums.x += x[i];
        sums.y += y[i];
        sums.xx += x[i] * x[i];
        sums.xy += x[i] * y[i];
    }
    return sums;
}

double squaredResiduals(const double* x, const double* y, uint64_t n, double slope,
                        double intercept) noexcept {
    double sum = 0.0;
    for (uint64_t i = 0; i < n; ++i) {
        if (!isUsable(x[i], y[i])) continue;
        const double residual = y[i] - (slope * x[i] + intercept);
        sum += residual * residual;
    }
    return sum;
}

Owned<double> allocateZeros(uint64_t n) {
    Owned<double> block = allocate<double>(n);
    RArrZero(n, block.get());
    return block;
}

uint32_t checkFit(const double* coefs, uint64_t n, const double* x, const double* y,
                  const double* weights, Basis basis) noexcept {
    if (!x || !y || !weights || n == 0) return 14;
    if (!coefs) return 18;
    return basis ? kSuccess : 20;
}

// The values of the first `terms` basis functions at x.
void evaluateBasis(Basis basis, double x, uint64_t terms, double* values) {
    for (uint64_t k = 0; k < terms; ++k) values[k] = basis(x, k);
}

// One point's share in the normal equations of a quotient: the unknowns are the p numerator
// coefficients, then those of the denominator functions 1 to terms - p.
void addRationalPoint(double* matrix, double* rightSide, uint64_t p, uint64_t terms,
                      const double* f, double y, double w) noexcept {
    const double wy = w * y;
    const double wyy = wy * y;
    for (uint64_t c = 0; c < terms; ++c) {
        const bool upperColumn = c < p;
        const double g = upperColumn ? f[c] : f[c - p + 1];
        double* const column = matrix + c * terms;
        for (uint64_t r = 0; r < p; ++r) column[r] += (upperColumn ? w : wy) * f[r] * g;
        for (uint64_t r = p; r < terms; ++r) {
            column[r] += -(upperColumn ? wy : wyy) * f[r - p + 1] * g;
        }
    }
    for (uint64_t r = 0; r < p; ++r) rightSide[r] += wy * f[r];
    for (uint64_t r = p; r < terms; ++r) rightSide[r] += wyy * f[r - p + 1];
}

}  // namespace

uint32_t LinearRegression(const double* x, const double* y, uint64_t n, double* slope,
                          double* intercept, double* sigma) noexcept {
    if (!x || !y || n == 0) return 22;
    if (!slope || !intercept) return 21;
    const LineSums s = sumPoints(x, y, n);
    *slope = (s.count * s.xy - s.x * s.y) / (s.count * s.xx - s.x * s.x);
    *intercept = (s.y - *slope * s.x) / s.count;
    if (sigma) *sigma = std::sqrt(squaredResiduals(x, y, n, *slope, *intercept) / (s.count - 1.0));
    return kSuccess;
}

uint32_t MultiLinearFit(uint64_t terms, double* coefs, uint64_t n, const double* x, const double* y,
                        const double* weights, double (*basis)(double x, uint64_t k)) noexcept {
    const uint32_t status = checkFit(coefs, n, x, y, weights, basis);
    if (status != kSuccess) return status;
    if (terms == 0) return 14;
    return guardStatus([&] {
        const Owned<double> matrix = allocateZeros(matrixSize(terms, terms));
        const Owned<double> f = allocate<double>(terms);
        RArrZero(terms, coefs);
        for (uint64_t i = 0; i < n; ++i) {
            evaluateBasis(basis, x[i], terms, f.get());
            for (uint64_t k = 0; k < terms; ++k) {
                const double wf = weights[i] * f[k];
                for (uint64_t l = 0; l < terms; ++l) matrix[l + k * terms] += wf * f[l];
                coefs[k] += y[i] * weights[i] * f[k];
            }
        }
        return RMatInvert(matrix.get(), terms, coefs, 1);
    });
}

uint32_t MultiLinearFitChebyshev(uint64_t terms, double* coefs, uint64_t n, const double* x,
                                 const double* y, const double* weights) noexcept {
    return MultiLinearFit(terms, coefs, n, x, y, weights, rChebyshevT);
}

uint32_t RationalFit(uint64_t numeratorTerms, uint64_t denominatorTerms, double* coefs, uint64_t n,
                     const double* x, const double* y, const double* weights,
                     double (*basis)(double x, uint64_t k)) noexcept {
    const uint32_t status = checkFit(coefs, n, x, y, weights, basis);
    if (status != kSuccess) return status;
    const bool overflows = denominatorTerms > UINT64_MAX - numeratorTerms;
    const uint64_t both = overflows ? UINT64_MAX : numeratorTerms + denominatorTerms;
    if (both < 2) return 14;
    return guardStatus([&] {
        const uint64_t terms = both - 1;
        const uint64_t functions = std::max({numeratorTerms, denominatorTerms, uint64_t{1}});
        const Owned<double> matrix = allocateZeros(matrixSize(terms, terms));
        const Owned<double> f = allocate<double>(functions);
        RArrZero(terms, coefs);
        for (uint64_t i = 0; i < n; ++i) {
            evaluateBasis(basis, x[i], functions, f.get());
            addRationalPoint(matrix.get(), coefs, std::min(numeratorTerms, terms), terms, f.get(),
                             y[i], weights[i]);
        }
        return RMatInvert(matrix.get(), terms, coefs, 1);
    });
}

double ResidualNorm(double observed, double model, uint32_t flags) noexcept {
    return residualNorm(observed, model, flags);
}
