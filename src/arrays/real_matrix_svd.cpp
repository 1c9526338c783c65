// Singular values: Householder reduction to an upper bidiagonal matrix with diagonal s and
// superdiagonal e, then implicit-shift QR on the pair. All work goes down columns. What a step of
// the reduction does to the rest of the matrix by rows is left for the next step to do, together
// with its own work, so that the matrix is walked twice a step; U and V are made in panels of eight
// columns. None of it changes an element's order of operations.
#include "nuv64/arrays/real_matrix_svd.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "arrays/column_kernels.h"
#include "arrays/matrix_product.h"
#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "numeric/givens_rotation.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_elements.h"
#include "nuv64/arrays/real_matrix_elements.h"
#include "nuv64/arrays/real_norms.h"

using namespace nuv64;

namespace {

constexpr uint32_t kNoConvergence = 39;
constexpr uint64_t kMostElements = UINT64_MAX / 64;  // no matrix has more
constexpr uint64_t kMostPasses = 100;                // for each singular value

// The rotation that turns (a, b) onto the first axis; a becomes the length, never negative.
GivensRotation turnOntoAxis(double* a, double b) noexcept {
    const GivensRotation rotation = givensRotation(*a, b);
    *a = rotation.length;
    return rotation;
}

enum class UKind { kNone, kFull, kThin };

UKind uKind(uint32_t job) noexcept {
    const uint32_t tens = job / 10 % 10;
    return tens == 0 ? UKind::kNone : tens == 1 ? UKind::kFull : UKind::kThin;
}

// Makes the n elements of x the Householder vector that reflects them onto the first axis; returns
// what then stands there.
double makeReflector(uint64_t n, double* x) noexcept {
    double norm = RArrNormL2(n, x);
    if (norm != 0.0) {
        if (x[0] < 0.0) norm = -norm;
        RArrIpMulConst(n, x, 1.0 / norm);
        x[0] += 1.0;
    }
    return -norm;
}

// The multiple of the reflector x that a reflection adds to a column with this dot product.
double reflectionFactor(double dot, const double* x) noexcept {
    return -dot / x[0];
}

class Decomposition {
  public:
    Decomposition(double* a, uint64_t rows, uint64_t cols, double* u, uint64_t uColumns, double* v)
        : a_(a),
          rows_(rows),
          cols_(cols),
          u_(u),
          uColumns_(uColumns),
          v_(v),
          columnSteps_(std::min(rows - 1, cols)),
          rowSteps_(cols > 2 ? std::min(cols - 2, rows) : 0),
          size_(std::min(cols, rows + 1)),
          block_(allocate<double>(rows + 2 * cols + size_ + panelSize())),
          rowSums_(block_.get()),
          e_(rowSums_ + rows),
          factors_(e_ + cols),
          s_(factors_ + cols),
          panel_(s_ + size_) {}

    uint32_t run(double* values) noexcept {
        bidiagonalize();
        if (u_) generateU();
        if (v_) generateV();
        const uint32_t status = iterate();
        RArrCopy(std::min(rows_, cols_), s_, values);
        return status;
    }

  private:
    double& a(uint64_t r, uint64_t c) const noexcept { return a_[r + c * rows_]; }
    double* uColumn(uint64_t c) const noexcept { return u_ + c * rows_; }
    double* vColumn(uint64_t c) const noexcept { return v_ + c * cols_; }

    uint64_t panelSize() const noexcept {
        return u_ || v_ ? kPanelWidth * std::max(rows_, cols_) : 0;
    }

    void bidiagonalize() noexcept {
        for (uint64_t l = 0; l < std::max(columnSteps_, rowSteps_); ++l) {
            reduceColumn(l);
            if (l < rowSteps_) reduceRow(l);
        }
        for (uint64_t j = std::max(columnSteps_, rowSteps_); j < cols_; ++j) finishRowStep(j);
        if (columnSteps_ < cols_) s_[columnSteps_] = a(columnSteps_, columnSteps_);
        if (rows_ < size_) s_[size_ - 1] = 0.0;
        if (rowSteps_ + 1 < size_) e_[rowSteps_] = a(rowSteps_, size_ - 1);
        e_[size_ - 1] = 0.0;
    }

    // Adds to column j what the last reduceRow has left.
    void finishRowStep(uint64_t j) noexcept {
        if (pendingRow_ == rows_) return;
        addScaled(rows_ - pendingRow_, &rowSums_[pendingRow_], &a(pendingRow_, j), factors_[j]);
    }

    void reduceColumn(uint64_t l) noexcept {
        finishRowStep(l);
        const bool active = l < columnSteps_;
        if (active) s_[l] = makeReflector(rows_ - l, &a(l, l));
        const bool reflects = active && s_[l] != 0.0;
        for (uint64_t j = l + 1; j < cols_; j += kPanelWidth) {
            const uint64_t count = std::min(kPanelWidth, cols_ - j);
            for (uint64_t k = j; k < j + count; ++k) finishRowStep(k);
            if (reflects) reflectColumns(l, j, count);
            for (uint64_t k = j; k < j + count; ++k) e_[k] = a(l, k);
        }
        pendingRow_ = rows_;
    }

    // Reflects the columns from j on by the vector in column l.
    void reflectColumns(uint64_t l, uint64_t j, uint64_t count) noexcept {
        double dots[kPanelWidth];
        const double* const x = &a(l, l);
        dotColumns(rows_ - l, x, &a(l, j), rows_, count, dots);
        for (uint64_t k = 0; k < count; ++k) {
            addScaled(rows_ - l, x, &a(l, j + k), reflectionFactor(dots[k], x));
        }
    }

    // The reflection of the rows is x := x + sum * factor in each column; the sums and the factors
    // are found here, the rest is done by finishRowStep.
    void reduceRow(uint64_t l) noexcept {
        const uint64_t below = rows_ - l - 1;
        e_[l] = makeReflector(cols_ - l - 1, &e_[l + 1]);
        if (below > 0 && e_[l] != 0.0) {
            pendingRow_ = l + 1;
            double* const sums = &rowSums_[l + 1];
            RArrZero(below, sums);
            addColumns(below, &a(l + 1, l + 1), rows_, cols_ - l - 1, &e_[l + 1], sums);
            for (uint64_t j = l + 1; j < cols_; ++j) factors_[j] = -e_[j] / e_[l + 1];
        }
        if (v_) RArrCopy(cols_ - l - 1, &e_[l + 1], vColumn(l) + l + 1);
    }

    void reflectPanel(uint64_t n, const double* x, double* panel) noexcept {
        double dots[kPanelWidth];
        dotPanel(n, x, panel, dots);
        for (double& dot : dots) dot = reflectionFactor(dot, x);
        addToPanel(n, x, dots, panel);
    }

    static void setUnitColumn(double* panel, uint64_t rows, uint64_t first,
                              uint64_t column) noexcept {
        for (uint64_t r = 0; r < rows; ++r) panel[r * kPanelWidth + column - first] = 0.0;
        panel[column * kPanelWidth + column - first] = 1.0;
    }

    // The first columnSteps_ columns of A hold the reflectors still. Each is applied to all columns
    // of U beyond its own, the last one first; its own column is made then, and what it held before
    // doesn't count.
    void generateU() noexcept {
        for (uint64_t first = 0; first < uColumns_; first += kPanelWidth) {
            const uint64_t end = std::min(first + kPanelWidth, uColumns_);
            std::fill_n(panel_, kPanelWidth * rows_, 0.0);
            for (uint64_t j = std::max(first, columnSteps_); j < end; ++j) {
                setUnitColumn(panel_, rows_, first, j);
            }
            for (uint64_t l = std::min(end, columnSteps_); l-- > 0;) {
                if (s_[l] != 0.0) reflectPanel(rows_ - l, &a(l, l), &panel_[l * kPanelWidth]);
                if (l >= first) startUColumn(first, l);
            }
            storePanel(rows_, end - first, panel_, uColumn(first));
        }
    }

    // The unit column l reflected by its own reflector.
    void startUColumn(uint64_t first, uint64_t l) noexcept {
        setUnitColumn(panel_, rows_, first, l);
        if (s_[l] == 0.0) return;
        for (uint64_t r = l; r < rows_; ++r) {
            panel_[r * kPanelWidth + l - first] = a(r, l) * -1.0;
        }
        panel_[l * kPanelWidth + l - first] += 1.0;
    }

    // The reflectors stand in V, each in its column below the diagonal; the last columns are made
    // first, since the earlier reflectors are still needed.
    void generateV() noexcept {
        const uint64_t panels = (cols_ + kPanelWidth - 1) / kPanelWidth;
        for (uint64_t p = panels; p-- > 0;) {
            const uint64_t first = p * kPanelWidth;
            const uint64_t end = std::min(first + kPanelWidth, cols_);
            std::fill_n(panel_, kPanelWidth * cols_, 0.0);
            for (uint64_t l = end; l-- > 0;) {
                if (l < rowSteps_ && e_[l] != 0.0) {
                    reflectPanel(cols_ - l - 1, vColumn(l) + l + 1, &panel_[(l + 1) * kPanelWidth]);
                }
                if (l >= first) setUnitColumn(panel_, cols_, first, l);
            }
            storePanel(cols_, end - first, panel_, vColumn(first));
        }
    }

    // One value converges after another, from the last upward; m is the number still open. Chases
    // don't count as passes; only not-a-numbers make them repeat, and then their own limit ends it.
    uint32_t iterate() noexcept {
        uint64_t passes = 0;
        uint64_t chases = 0;
        for (uint64_t m = size_; m > 0;) {
            if (passes > kMostPasses || chases > 2 * size_) return kNoConvergence;
            const uint64_t start = startOfBlock(m);
            if (start == m - 1) {
                settle(start);
                passes = 0;
                chases = 0;
                --m;
                continue;
            }
            const uint64_t zero = lastZero(start, m);
            if (zero == kNone) {
                step(start, m);
                ++passes;
                continue;
            }
            if (zero == m - 1) {
                deflate(start, m);
            } else {
                split(zero + 1, m);
            }
            ++chases;
        }
        return kSuccess;
    }

    static constexpr uint64_t kNone = UINT64_MAX;

    // The first index of the unsplit block that ends at m - 1; clears the e above it.
    uint64_t startOfBlock(uint64_t m) noexcept {
        for (uint64_t l = m - 1; l-- > 0;) {
            const double neighbours = std::fabs(s_[l]) + std::fabs(s_[l + 1]);
            if (neighbours + std::fabs(e_[l]) == neighbours) {
                e_[l] = 0.0;
                return l + 1;
            }
        }
        return 0;
    }

    // The last negligible s from start to m - 1, set to 0; kNone without one.
    uint64_t lastZero(uint64_t start, uint64_t m) noexcept {
        for (uint64_t k = m; k-- > start;) {
            double neighbours = 0.0;
            if (k != m - 1) neighbours += std::fabs(e_[k]);
            if (k != start) neighbours += std::fabs(e_[k - 1]);
            if (neighbours + std::fabs(s_[k]) == neighbours) {
                s_[k] = 0.0;
                return k;
            }
        }
        return kNone;
    }

    void rotateU(uint64_t i, uint64_t j, const GivensRotation& turn) noexcept {
        if (!u_ || i >= uColumns_ || j >= uColumns_) return;
        turnColumns(rows_, uColumn(i), uColumn(j), turn.c, turn.s);
    }

    void rotateV(uint64_t i, uint64_t j, const GivensRotation& turn) noexcept {
        if (v_) turnColumns(cols_, vColumn(i), vColumn(j), turn.c, turn.s);
    }

    // s[m-1] is 0: chases e[m-2] upward out of the last column.
    void deflate(uint64_t start, uint64_t m) noexcept {
        double f = e_[m - 2];
        e_[m - 2] = 0.0;
        for (uint64_t k = m - 1; k-- > start;) {
            const GivensRotation turn = turnOntoAxis(&s_[k], f);
            if (k != start) {
                f = -turn.s * e_[k - 1];
                e_[k - 1] *= turn.c;
            }
            rotateV(k, m - 1, turn);
        }
    }

    // s[start-1] is 0: chases e[start-1] downward out of its row.
    void split(uint64_t start, uint64_t m) noexcept {
        double f = e_[start - 1];
        e_[start - 1] = 0.0;
        for (uint64_t k = start; k < m; ++k) {
            const GivensRotation turn = turnOntoAxis(&s_[k], f);
            f = -turn.s * e_[k];
            e_[k] *= turn.c;
            rotateU(k, start - 1, turn);
        }
    }

    struct Shift {
        double f;
        double g;
    };

    // The first rotation's arguments: from the eigenvalue of the trailing 2 by 2 matrix that is
    // nearer to its last element.
    Shift chooseShift(uint64_t start, uint64_t m) const noexcept {
        const double scale =
            std::max({std::fabs(s_[m - 1]), std::fabs(s_[m - 2]), std::fabs(e_[m - 2]),
                      std::fabs(s_[start]), std::fabs(e_[start])});
        const double sm = s_[m - 1] / scale;
        const double smm1 = s_[m - 2] / scale;
        const double emm1 = e_[m - 2] / scale;
        const double sl = s_[start] / scale;
        const double el = e_[start] / scale;
        const double b = ((smm1 + sm) * (smm1 - sm) + emm1 * emm1) / 2.0;
        const double c = (sm * emm1) * (sm * emm1);
        double shift = 0.0;
        if (b != 0.0 || c != 0.0) {
            double r = std::sqrt(b * b + c);
            if (b < 0.0) r = -r;
            shift = c / (b + r);
        }
        return {(sl + sm) * (sl - sm) - shift, sl * el};
    }

    void step(uint64_t start, uint64_t m) noexcept {
        auto [f, g] = chooseShift(start, m);
        for (uint64_t k = start; k + 1 < m; ++k) {
            const GivensRotation right = turnOntoAxis(&f, g);
            if (k != start) e_[k - 1] = f;
            f = right.c * s_[k] + right.s * e_[k];
            e_[k] = right.c * e_[k] - right.s * s_[k];
            g = right.s * s_[k + 1];
            s_[k + 1] *= right.c;
            rotateV(k, k + 1, right);
            const GivensRotation left = turnOntoAxis(&f, g);
            s_[k] = f;
            f = left.c * e_[k] + left.s * s_[k + 1];
            s_[k + 1] = -left.s * e_[k] + left.c * s_[k + 1];
            g = left.s * e_[k + 1];
            e_[k + 1] *= left.c;
            if (k + 1 < rows_) rotateU(k, k + 1, left);
        }
        e_[m - 2] = f;
    }

    // s[k] has converged: makes it positive and lets it bubble up to its place.
    void settle(uint64_t k) noexcept {
        if (s_[k] < 0.0) {
            s_[k] = -s_[k];
            if (v_) RArrIpMulConst(cols_, vColumn(k), -1.0);
        }
        for (; k + 1 < size_ && s_[k] < s_[k + 1]; ++k) {
            std::swap(s_[k], s_[k + 1]);
            if (v_ && k + 1 < cols_) RArrSwap(cols_, vColumn(k), vColumn(k + 1));
            if (u_ && k + 1 < uColumns_) RArrSwap(rows_, uColumn(k), uColumn(k + 1));
        }
    }

    double* a_;
    uint64_t rows_;
    uint64_t cols_;
    double* u_;
    uint64_t uColumns_;
    double* v_;
    uint64_t columnSteps_;
    uint64_t rowSteps_;
    uint64_t size_;
    Owned<double> block_;  // of the five below
    double* rowSums_;
    double* e_;
    double* factors_;
    double* s_;
    double* panel_;                // of U and V, one after the other
    uint64_t pendingRow_ = rows_;  // the first row that rowSums_ is for; rows_ when all is done
};

}  // namespace

uint32_t RMatSVD(double* A, uint64_t rows, uint64_t cols, double* U, double* S, double* V,
                 uint32_t job) noexcept {
    if (!A || rows == 0 || cols == 0) return 22;
    const UKind kind = uKind(job);
    const bool wantV = job % 10 != 0;
    if (!S || (kind != UKind::kNone && !U) || (wantV && !V)) return 18;
    if (matrixSize(rows, cols) > kMostElements) return kAllocationFailure;
    return guardStatus([&] {
        double* const u = kind == UKind::kNone ? nullptr : U;
        const uint64_t uColumns = kind == UKind::kFull ? rows : std::min(rows, cols);
        return Decomposition(A, rows, cols, u, uColumns, wantV ? V : nullptr).run(S);
    });
}

uint32_t RMatThinSVD(double* A, uint64_t rows, uint64_t cols, double* U, double* S,
                     double* V) noexcept {
    return RMatSVD(A, rows, cols, U, S, V, 22);
}

uint32_t RMatSVDBacksub(const double* U, const double* S, const double* V, uint64_t rows,
                        uint64_t cols, const double* b, double* x) noexcept {
    if (!U || !S || !V || rows == 0 || cols == 0) return 22;
    if (!b) return 14;
    if (!x) return 18;
    return guardStatus([&] {
        const uint64_t size = std::min(rows, cols);
        const Owned<double> t = allocate<double>(size);
        dotColumns(rows, b, U, rows, size, t.get());
        for (uint64_t j = 0; j < size; ++j) {
            if (S[j] == 0.0) {
                t[j] = 0.0;
            } else {
                t[j] /= S[j];
            }
        }
        RArrZero(cols, x);
        addColumns(cols, V, cols, size, t.get(), x);
        return kSuccess;
    });
}

uint32_t RMatFromSVD(double* out, uint64_t rows, uint64_t cols, const double* U, const double* S,
                     const double* V) noexcept {
    if (!U || !S || !V) return 22;
    if (!out) return 18;
    if (rows == 0 || cols == 0) return 14;
    return guardStatus([&] {
        const uint64_t k = std::min(rows, cols);
        const Owned<double> scaled = allocate<double>(matrixSize(cols, cols));
        RMatTranspose(V, cols, cols, scaled.get());
        for (uint64_t c = 0; c < k; ++c) RArrMul2(k, S, &scaled[c * k]);
        multiply({U, 1, rows}, {scaled.get(), 1, k}, rows, k, cols, out, rows);
        return kSuccess;
    });
}

uint32_t RMatFromThinSVD(double* out, uint64_t rows, uint64_t cols, const double* U,
                         const double* S, const double* V) noexcept {
    if (!U || !S || !V) return 22;
    if (!out) return 18;
    if (rows == 0 || cols == 0) return 14;
    return guardStatus([&] {
        const uint64_t k = std::min(rows, cols);
        const Owned<double> scaled = allocate<double>(matrixSize(cols, cols));
        const Owned<double> copy = allocate<double>(matrixSize(rows, k));
        RMatTranspose(V, cols, cols, scaled.get());
        for (uint64_t c = 0; c < cols; ++c) RArrMul2(k, S, &scaled[c * cols]);
        RArrCopy(rows * k, U, copy.get());
        multiply({copy.get(), 1, rows}, {scaled.get(), 1, cols}, rows, k, cols, out, rows);
        return kSuccess;
    });
}

uint32_t SolveLinearSystemBySVD(const double* A, double* x, const double* b, uint64_t rows,
                                uint64_t cols, double threshold) noexcept {
    if (!A || !b) return 14;
    if (!x) return 18;
    if (rows == 0 || cols == 0) return 22;
    return guardStatus([&] {
        const uint64_t k = std::min(rows, cols);
        const uint64_t size = matrixSize(rows, cols);
        const Owned<double> a = allocate<double>(size);
        const Owned<double> u = allocate<double>(matrixSize(rows, k));
        const Owned<double> s = allocate<double>(k);
        const Owned<double> v = allocate<double>(matrixSize(cols, cols));
        RArrCopy(size, A, a.get());
        const uint32_t status = RMatThinSVD(a.get(), rows, cols, u.get(), s.get(), v.get());
        if (status != kSuccess) return status;
        for (uint64_t i = 1; i < k; ++i) {
            if (threshold * s[0] > s[i]) s[i] = 0.0;
        }
        return RMatSVDBacksub(u.get(), s.get(), v.get(), rows, cols, b, x);
    });
}
