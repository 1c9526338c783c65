// Gauss-Jordan inversion with full pivoting. Rows are walked inside, columns outside: columns are
// contiguous, and each element still gets the same operations in the same order as by rows. While a
// column is at hand its largest element is found too, so that the search for the next pivot looks
// into few columns only.
#include "nuv64/arrays/real_matrix_inverse.h"

#include <cmath>
#include <utility>

#include "arrays/column_kernels.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_elements.h"
#include "nuv64/core/special_reals.h"

using namespace nuv64;

namespace {

constexpr uint64_t kMagnitudeBits = INT64_MAX;

// The magnitudes where the mask is kMagnitudeBits, 0.0 where it is 0.
Pair maskedMagnitude(Pair x, const uint64_t* mask) noexcept {
    using Words = uint64_t __attribute__((vector_size(16)));
    Words words, masks;
    std::memcpy(&words, &x, sizeof words);
    std::memcpy(&masks, mask, sizeof masks);
    words &= masks;
    std::memcpy(&x, &words, sizeof x);
    return x;
}

// Not-a-numbers in x are passed over.
Pair greater(Pair x, Pair best) noexcept {
    return x > best ? x : best;
}

// y[i] -= k * x[i]; gives the largest magnitude afterwards where the mask isn't 0, not-a-numbers
// apart, and 0.0 without one.
double subtractAndFindLargest(uint64_t n, const double* x, double k, const uint64_t* mask,
                              double* y) noexcept {
    const Pair factor = bothOf(k);
    Pair even{}, odd{};
    uint64_t i = 0;
    for (; i + 4 <= n; i += 4) {
        const Pair first = loadPair(y + i) - factor * loadPair(x + i);
        const Pair second = loadPair(y + i + 2) - factor * loadPair(x + i + 2);
        storePair(y + i, first);
        storePair(y + i + 2, second);
        even = greater(maskedMagnitude(first, mask + i), even);
        odd = greater(maskedMagnitude(second, mask + i + 2), odd);
    }
    even = greater(odd, even);
    double best = even[0] > even[1] ? even[0] : even[1];
    for (; i < n; ++i) {
        y[i] -= k * x[i];
        const double magnitude = mask[i] ? std::fabs(y[i]) : 0.0;
        if (magnitude > best) best = magnitude;
    }
    return best;
}

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
          unused_(allocate<uint64_t>(n)),
          pivotRows_(allocate<uint64_t>(n)),
          pivotColumns_(allocate<uint64_t>(n)),
          factors_(allocate<double>(n)),
          largest_(allocate<double>(n)) {
        for (uint64_t i = 0; i < n; ++i) unused_[i] = kMagnitudeBits;
    }

    uint32_t run() noexcept {
        double largest = 0.0;
        for (uint64_t c = 0; c < n_; ++c) largest_[c] = largestOf(n_, a_ + c * n_);
        for (uint64_t step = 0; step < n_; ++step) {
            const Pivot pivot = findPivot();
            if (!pivot.found()) return 26;
            if (pivot.magnitude > largest) largest = pivot.magnitude;
            unused_[pivot.column] = 0;
            pivotRows_[step] = pivot.row;
            pivotColumns_[step] = pivot.column;
            if (largest * ___5EpsReal > pivot.magnitude) return 26;
            eliminate(pivot.row, pivot.column);
        }
        restoreColumns();
        return kSuccess;
    }

  private:
    static double largestOf(uint64_t n, const double* x) noexcept {
        double best = 0.0;
        for (uint64_t i = 0; i < n; ++i) best = std::fabs(x[i]) > best ? std::fabs(x[i]) : best;
        return best;
    }

    // The largest magnitude among the unused rows and columns. Of equal ones the one that is last
    // by rows, then by columns, wins; zeros are candidates, not-a-numbers are none.
    Pivot findPivot() const noexcept {
        Pivot best;
        for (uint64_t c = 0; c < n_; ++c) {
            if (unused_[c] && largest_[c] > best.magnitude) best.magnitude = largest_[c];
        }
        for (uint64_t c = 0; c < n_; ++c) {
            if (!unused_[c] || largest_[c] != best.magnitude) continue;
            const uint64_t row = lastRowWith(best.magnitude, a_ + c * n_);
            if (row == UINT64_MAX || (best.found() && row < best.row)) continue;
            best.row = row;
            best.column = c;
        }
        return best;
    }

    uint64_t lastRowWith(double magnitude, const double* column) const noexcept {
        for (uint64_t r = n_; r-- > 0;) {
            if (std::fabs(column[r]) == magnitude && unused_[r]) return r;
        }
        return UINT64_MAX;
    }

    // Exchanges row i with row j and clears the pivot's column, j, but for row j.
    void eliminate(uint64_t i, uint64_t j) noexcept {
        double* const pivotColumn = a_ + j * n_;
        std::swap(pivotColumn[i], pivotColumn[j]);
        const double scale = 1.0 / pivotColumn[j];
        RArrCopy(n_, pivotColumn, factors_.get());
        RArrZero(n_, pivotColumn);
        pivotColumn[j] = 1.0;
        eliminateInColumn(pivotColumn, j, j, scale);
        for (uint64_t c = 0; c < n_; ++c) {
            if (c != j) largest_[c] = eliminateInColumn(a_ + c * n_, i, j, scale);
        }
        for (uint64_t c = 0; c < m_; ++c) eliminateInColumn(b_ + c * n_, i, j, scale);
    }

    // Gives the largest magnitude in the unused rows.
    double eliminateInColumn(double* column, uint64_t i, uint64_t j, double scale) const noexcept {
        std::swap(column[i], column[j]);
        const double scaled = column[j] * scale;
        const double largest =
            subtractAndFindLargest(n_, factors_.get(), scaled, unused_.get(), column);
        column[j] = scaled;
        return largest;
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
    Owned<uint64_t> unused_;  // of each column, and of the row that its pivot came to: a mask
    Owned<uint64_t> pivotRows_;
    Owned<uint64_t> pivotColumns_;
    Owned<double> factors_;
    Owned<double> largest_;  // magnitude in the unused rows, of each unused column
};

}  // namespace

uint32_t RMatInvert(double* A, uint64_t n, double* B, uint64_t m) noexcept {
    if (!A || n == 0) return 14;
    return guardStatus([&] { return Elimination(A, n, B, m).run(); });
}
