// Singular values: Householder reduction to an upper bidiagonal matrix with diagonal s and
// superdiagonal e, then implicit-shift QR on the pair. All work goes down columns.
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_matrix.h"
#include "nuv64/numeric/real_elementary.h"

using namespace nuv64;

namespace {

constexpr uint32_t kNoConvergence = 39;
constexpr uint64_t kMostPasses = 100;  // for each singular value

struct Rotation {
    double c;
    double s;
};

// The rotation that turns (a, b) onto the first axis; a becomes the length, never negative.
Rotation turnOntoAxis(double* a, double b) noexcept {
    const double scale = std::max(std::fabs(*a), std::fabs(b));
    if (scale == 0.0) {
        *a = 0.0;
        return {1.0, 0.0};
    }
    const double x = *a / scale;
    const double y = b / scale;
    const double length = rHypot(x, y);
    *a = scale * length;
    return {x / length, y / length};
}

enum class UKind { kNone, kFull, kThin };

UKind uKind(uint32_t job) noexcept {
    const uint32_t tens = job / 10 % 10;
    return tens == 0 ? UKind::kNone : tens == 1 ? UKind::kFull : UKind::kThin;
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
          e_(allocate<double>(cols)),
          work_(allocate<double>(rows)),
          s_(allocate<double>(size_)) {}

    uint32_t run(double* values) noexcept {
        bidiagonalize();
        if (u_) generateU();
        if (v_) generateV();
        const uint32_t status = iterate();
        RArrCopy(std::min(rows_, cols_), s_.get(), values);
        return status;
    }

  private:
    double& a(uint64_t r, uint64_t c) const noexcept { return a_[r + c * rows_]; }
    double& u(uint64_t r, uint64_t c) const noexcept { return u_[r + c * rows_]; }
    double& v(uint64_t r, uint64_t c) const noexcept { return v_[r + c * cols_]; }

    // Makes the n elements of x the Householder vector that reflects them onto the first axis;
    // returns what then stands there.
    static double makeReflector(uint64_t n, double* x) noexcept {
        double norm = RArrNormL2(n, x);
        if (norm != 0.0) {
            if (x[0] < 0.0) norm = -norm;
            RArrIpMulConst(n, x, 1.0 / norm);
            x[0] += 1.0;
        }
        return -norm;
    }

    // y := y reflected by the vector x.
    static void reflect(uint64_t n, const double* x, double* y) noexcept {
        RArrAdd2(n, x, y, -RArrDotProduct(n, x, y) / x[0]);
    }

    void bidiagonalize() noexcept {
        for (uint64_t l = 0; l < std::max(columnSteps_, rowSteps_); ++l) {
            reduceColumn(l);
            if (l < rowSteps_) reduceRow(l);
        }
        if (columnSteps_ < cols_) s_[columnSteps_] = a(columnSteps_, columnSteps_);
        if (rows_ < size_) s_[size_ - 1] = 0.0;
        if (rowSteps_ + 1 < size_) e_[rowSteps_] = a(rowSteps_, size_ - 1);
        e_[size_ - 1] = 0.0;
    }

    void reduceColumn(uint64_t l) noexcept {
        const bool active = l < columnSteps_;
        if (active) s_[l] = makeReflector(rows_ - l, &a(l, l));
        for (uint64_t j = l + 1; j < cols_; ++j) {
            if (active && s_[l] != 0.0) reflect(rows_ - l, &a(l, l), &a(l, j));
            e_[j] = a(l, j);
        }
        if (u_ && active) RArrCopy(rows_ - l, &a(l, l), &u(l, l));
    }

    void reduceRow(uint64_t l) noexcept {
        const uint64_t below = rows_ - l - 1;
        e_[l] = makeReflector(cols_ - l - 1, &e_[l + 1]);
        if (below > 0 && e_[l] != 0.0) {
            double* const sum = &work_[l + 1];
            RArrZero(below, sum);
            for (uint64_t j = l + 1; j < cols_; ++j) RArrAdd2(below, &a(l + 1, j), sum, e_[j]);
            for (uint64_t j = l + 1; j < cols_; ++j) {
                RArrAdd2(below, sum, &a(l + 1, j), -e_[j] / e_[l + 1]);
            }
        }
        if (v_) RArrCopy(cols_ - l - 1, &e_[l + 1], &v(l + 1, l));
    }

    void generateU() noexcept {
        for (uint64_t j = columnSteps_; j < uColumns_; ++j) setUnitColumn(u_, rows_, j);
        for (uint64_t l = columnSteps_; l-- > 0;) {
            if (s_[l] == 0.0) {
                setUnitColumn(u_, rows_, l);
                continue;
            }
            for (uint64_t j = l + 1; j < uColumns_; ++j) reflect(rows_ - l, &u(l, l), &u(l, j));
            RArrIpMulConst(rows_ - l, &u(l, l), -1.0);
            u(l, l) += 1.0;
            RArrZero(l, &u(0, l));
        }
    }

    void generateV() noexcept {
        for (uint64_t l = cols_; l-- > 0;) {
            if (l < rowSteps_ && e_[l] != 0.0) {
                for (uint64_t j = l + 1; j < cols_; ++j) {
                    reflect(cols_ - l - 1, &v(l + 1, l), &v(l + 1, j));
                }
            }
            setUnitColumn(v_, cols_, l);
        }
    }

    static void setUnitColumn(double* matrix, uint64_t rows, uint64_t column) noexcept {
        RArrZero(rows, matrix + column * rows);
        matrix[column + column * rows] = 1.0;
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

    void rotateU(uint64_t i, uint64_t j, double c, double s) noexcept {
        if (u_ && i < uColumns_ && j < uColumns_) {
            RArrPlaneRotation(rows_, &u(0, i), &u(0, j), c, s);
        }
    }

    void rotateV(uint64_t i, uint64_t j, double c, double s) noexcept {
        if (v_) RArrPlaneRotation(cols_, &v(0, i), &v(0, j), c, s);
    }

    // s[m-1] is 0: chases e[m-2] upward out of the last column.
    void deflate(uint64_t start, uint64_t m) noexcept {
        double f = e_[m - 2];
        e_[m - 2] = 0.0;
        for (uint64_t k = m - 1; k-- > start;) {
            const auto [c, s] = turnOntoAxis(&s_[k], f);
            if (k != start) {
                f = -s * e_[k - 1];
                e_[k - 1] *= c;
            }
            rotateV(k, m - 1, c, s);
        }
    }

    // s[start-1] is 0: chases e[start-1] downward out of its row.
    void split(uint64_t start, uint64_t m) noexcept {
        double f = e_[start - 1];
        e_[start - 1] = 0.0;
        for (uint64_t k = start; k < m; ++k) {
            const auto [c, s] = turnOntoAxis(&s_[k], f);
            f = -s * e_[k];
            e_[k] *= c;
            rotateU(k, start - 1, c, s);
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
            const auto [cv, sv] = turnOntoAxis(&f, g);
            if (k != start) e_[k - 1] = f;
            f = cv * s_[k] + sv * e_[k];
            e_[k] = cv * e_[k] - sv * s_[k];
            g = sv * s_[k + 1];
            s_[k + 1] *= cv;
            rotateV(k, k + 1, cv, sv);
            const auto [cu, su] = turnOntoAxis(&f, g);
            s_[k] = f;
            f = cu * e_[k] + su * s_[k + 1];
            s_[k + 1] = -su * e_[k] + cu * s_[k + 1];
            g = su * e_[k + 1];
            e_[k + 1] *= cu;
            if (k + 1 < rows_) rotateU(k, k + 1, cu, su);
        }
        e_[m - 2] = f;
    }

    // s[k] has converged: makes it positive and lets it bubble up to its place.
    void settle(uint64_t k) noexcept {
        if (s_[k] < 0.0) {
            s_[k] = -s_[k];
            if (v_) RArrIpMulConst(cols_, &v(0, k), -1.0);
        }
        for (; k + 1 < size_ && s_[k] < s_[k + 1]; ++k) {
            std::swap(s_[k], s_[k + 1]);
            if (v_ && k + 1 < cols_) RArrSwap(cols_, &v(0, k), &v(0, k + 1));
            if (u_ && k + 1 < uColumns_) RArrSwap(rows_, &u(0, k), &u(0, k + 1));
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
    Owned<double> e_;
    Owned<double> work_;
    Owned<double> s_;
};

}  // namespace

uint32_t RMatSVD(double* A, uint64_t rows, uint64_t cols, double* U, double* S, double* V,
                 uint32_t job) noexcept {
    if (!A || rows == 0 || cols == 0) return 22;
    const UKind kind = uKind(job);
    const bool wantV = job % 10 != 0;
    if (!S || (kind != UKind::kNone && !U) || (wantV && !V)) return 18;
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
        for (uint64_t j = 0; j < size; ++j) {
            t[j] = S[j] == 0.0 ? 0.0 : RArrDotProduct(rows, U + j * rows, b) / S[j];
        }
        RArrZero(cols, x);
        for (uint64_t l = 0; l < size; ++l) {
            for (uint64_t j = 0; j < cols; ++j) x[j] += V[j + l * cols] * t[l];
        }
        return kSuccess;
    });
}
