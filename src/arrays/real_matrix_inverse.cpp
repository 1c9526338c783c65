// Gauss-Jordan inversion with full pivoting. Rows are walked inside, columns outside: columns are
// contiguous, and each element still gets the same operations in the same order as by rows.
#include <cmath>
#include <utility>

#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_matrix.h"
#include "nuv64/core/special_reals.h"

using namespace nuv64;

namespace {

struct Pivot {
    uint64_t row = UINT64_MAX;
    uint64_t column = UINT64_MAX;
    double magnitude = 0.0;

    bool found() const noexcept { return row != UINT64_MAX; }
};

class Elimination {
  public:
    Elimination(double* a, uint64_t n, double* b, uint64_t m)
        : a_(a),
          n_(n),
          b_(b),
          m_(b ? m : 0),
          used_(allocate<uint64_t>(n)),
          pivotRows_(allocate<uint64_t>(n)),
          pivotColumns_(allocate<uint64_t>(n)),
          factors_(allocate<double>(n)) {
        for (uint64_t i = 0; i < n; ++i) used_[i] = 0;
    }

    uint32_t run() noexcept {
        double largest = 0.0;
        for (uint64_t step = 0; step < n_; ++step) {
            const Pivot pivot = findPivot();
            if (!pivot.found()) return 26;
            if (pivot.magnitude > largest) largest = pivot.magnitude;
            used_[pivot.column] = 1;
            pivotRows_[step] = pivot.row;
            pivotColumns_[step] = pivot.column;
            exchangeRows(pivot.row, pivot.column);
            if (largest * ___5EpsReal > pivot.magnitude) return 26;
            eliminate(pivot.column);
        }
        restoreColumns();
        return kSuccess;
    }

  private:
    // The largest magnitude among the unused rows and columns. Of equal ones the one that is last
    // by rows, then by columns, wins; zeros are candidates, not-a-numbers are none.
    Pivot findPivot() const noexcept {
        Pivot best;
        for (uint64_t c = 0; c < n_; ++c) {
            if (used_[c]) continue;
            const double* const column = a_ + c * n_;
            for (uint64_t r = 0; r < n_; ++r) {
                const double magnitude = std::fabs(column[r]);
                if (!(magnitude >= best.magnitude) || used_[r]) continue;
                const bool tie = magnitude == best.magnitude && best.found();
                if (tie && r < best.row) continue;
                best = {r, c, magnitude};
            }
        }
        return best;
    }

    void exchangeRows(uint64_t i, uint64_t j) noexcept {
        if (i == j) return;
        for (uint64_t c = 0; c < n_; ++c) std::swap(a_[i + c * n_], a_[j + c * n_]);
        for (uint64_t c = 0; c < m_; ++c) std::swap(b_[i + c * n_], b_[j + c * n_]);
    }

    // Clears the pivot's column but for the pivot's row, which stands on the diagonal now.
    void eliminate(uint64_t pivot) noexcept {
        double* const pivotColumn = a_ + pivot * n_;
        const double scale = 1.0 / pivotColumn[pivot];
        RArrCopy(n_, pivotColumn, factors_.get());
        RArrZero(n_, pivotColumn);
        pivotColumn[pivot] = 1.0;
        for (uint64_t c = 0; c < n_; ++c) eliminateInColumn(a_ + c * n_, pivot, scale);
        for (uint64_t c = 0; c < m_; ++c) eliminateInColumn(b_ + c * n_, pivot, scale);
    }

    void eliminateInColumn(double* column, uint64_t pivot, double scale) const noexcept {
        const double* const factors = factors_.get();
        const double scaled = column[pivot] * scale;
        for (uint64_t r = 0; r < n_; ++r) column[r] -= scaled * factors[r];
        column[pivot] = scaled;
    }

    void restoreColumns() noexcept {
        for (uint64_t step = n_; step-- > 0;) {
            const uint64_t i = pivotRows_[step];
            const uint64_t j = pivotColumns_[step];
            if (i != j) RArrSwap(n_, a_ + i * n_, a_ + j * n_);
        }
    }

    double* a_;
    uint64_t n_;
    double* b_;
    uint64_t m_;
    Owned<uint64_t> used_;
    Owned<uint64_t> pivotRows_;
    Owned<uint64_t> pivotColumns_;
    Owned<double> factors_;
};

}  // namespace

uint32_t RMatInvert(double* A, uint64_t n, double* B, uint64_t m) noexcept {
    if (!A || n == 0) return 14;
    return guardStatus([&] { return Elimination(A, n, B, m).run(); });
}
