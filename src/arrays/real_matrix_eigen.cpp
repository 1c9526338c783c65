// Symmetric eigenproblem: Householder reduction to tridiagonal form from the last row up, then QL
// with implicit shifts.
//
// The reduction keeps both triangles of what is left, so that a row is a column; their elements are
// computed from the same products and stay equal to the last bit. The change that a step makes to
// the rest of the matrix is left to the next step, which walks the matrix anyway.
#include "nuv64/arrays/real_matrix_eigen.h"

#include <algorithm>
#include <cmath>

#include "arrays/column_kernels.h"
#include "arrays/matrix_size.h"
#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/numeric/real_powers.h"

using namespace nuv64;

namespace {

constexpr uint32_t kNoSize = 26;
constexpr uint32_t kNoConvergence = 3;

class Reduction {
  public:
    Reduction(double* a, uint64_t n, double* d, double* e)
        : a_(a),
          n_(n),
          d_(d),
          e_(e),
          scaled_(allocate<double>(matrixSize(n, n))),
          products_(allocate<double>(n)),
          pending_(allocate<double>(n)),
          panel_(allocate<double>(n * kPanelWidth)) {}

    void run() noexcept {
        for (uint64_t c = 0; c < n_; ++c) {
            for (uint64_t r = 0; r < c; ++r) a_[r + c * n_] = a_[c + r * n_];
        }
        for (uint64_t i = n_; i-- > 0;) reduce(i);
        d_[0] = 0.0;
        e_[0] = 0.0;
        transform();
    }

  private:
    double* column(uint64_t c) const noexcept { return a_ + c * n_; }

    // Row i, that is column i, is brought to one element beside the diagonal. Afterwards column i
    // holds its reflector u above the diagonal, scaled_ u/h, d[i] h or 0 where nothing was to do.
    void reduce(uint64_t i) noexcept {
        finishChange(i, i + 1);
        double* const u = column(i);
        const double h = i > 1 ? makeReflector(i, u) : 0.0;
        if (i > 0 && h == 0.0) e_[i] = u[i - 1];
        if (h != 0.0) std::fill_n(products_.get(), i, 0.0);
        for (uint64_t k = 0; k < i; k += kColumnsAtATime) {
            const uint64_t count = std::min(kColumnsAtATime, i - k);
            for (uint64_t c = k; c < k + count; ++c) finishChange(c, i);
            if (h != 0.0) addColumns(i, column(k), n_, count, u + k, products_.get());
        }
        changing_ = 0;
        if (h != 0.0) prepareChange(i, h);
        d_[i] = h;
    }

    // Makes the first i elements of row i the Householder vector that reflects them onto the last
    // one of them, stores what then stands there and returns h, half of the vector's square; 0 for
    // a row of zeros, which stays as it is.
    double makeReflector(uint64_t i, double* u) noexcept {
        double scale = 0.0;
        for (uint64_t k = 0; k < i; ++k) scale += std::fabs(u[k]);
        if (scale == 0.0) return 0.0;
        double h = 0.0;
        for (uint64_t k = 0; k < i; ++k) {
            u[k] /= scale;
            h += u[k] * u[k];
        }
        const double last = u[i - 1];
        const double root = last >= 0.0 ? -rSqrt(h) : rSqrt(h);
        e_[i] = scale * root;
        h -= last * root;
        u[i - 1] = last - root;
        return h;
    }

    // The change of element (r, c) is to be u[r]*q[c] + q[r]*u[c], with p = A*u/h and
    // q = p - u*(u.p)/(2h).
    void prepareChange(uint64_t i, double h) noexcept {
        const double* const u = column(i);
        double* const v = &scaled_[i * n_];
        double* const q = pending_.get();
        double sum = 0.0;
        for (uint64_t k = 0; k < i; ++k) v[k] = u[k] / h;
        for (uint64_t k = 0; k < i; ++k) q[k] = products_[k] / h;
        for (uint64_t k = 0; k < i; ++k) sum += q[k] * u[k];
        const double factor = sum / (h + h);
        for (uint64_t k = 0; k < i; ++k) q[k] -= factor * u[k];
        changing_ = i;
    }

    // Subtracts from the first `rows` elements of column c what the last step has left.
    void finishChange(uint64_t c, uint64_t rows) noexcept {
        if (changing_ == 0) return;
        const double* __restrict const u = column(changing_);
        const double* __restrict const q = pending_.get();
        double* __restrict const x = column(c);
        const double uc = u[c];
        const double qc = q[c];
        for (uint64_t r = 0; r < rows; ++r) x[r] -= u[r] * qc + q[r] * uc;
    }

    // Takes unit columns through all reflections. Column j starts at step j; the steps before find
    // and leave zeros in it. The reflectors of a panel's own columns are no longer needed when it
    // is stored, those of the later ones stand still.
    void transform() noexcept {
        for (uint64_t i = 0; i < n_; ++i) {
            const double h = d_[i];
            d_[i] = column(i)[i];
            column(i)[i] = h;
        }
        for (uint64_t first = 0; first < n_; first += kPanelWidth) {
            const uint64_t count = std::min(kPanelWidth, n_ - first);
            double* const panel = panel_.get();
            std::fill_n(panel, n_ * kPanelWidth, 0.0);
            for (uint64_t c = 0; c < count; ++c) panel[(first + c) * kPanelWidth + c] = 1.0;
            for (uint64_t i = first + 1; i < n_; ++i) {
                if (column(i)[i] != 0.0) reflectPanel(i, panel);
            }
            storePanel(n_, count, panel, column(first));
        }
    }

    void reflectPanel(uint64_t i, double* panel) noexcept {
        double factors[kPanelWidth];
        dotPanel(i, column(i), panel, factors);
        for (double& factor : factors) factor = -factor;
        addToPanel(i, &scaled_[i * n_], factors, panel);
    }

    static constexpr uint64_t kColumnsAtATime = 4;

    double* a_;
    uint64_t n_;
    double* d_;
    double* e_;
    Owned<double> scaled_;  // column i: u/h of step i
    Owned<double> products_;
    Owned<double> pending_;  // q of the step whose change is still to be made
    uint64_t changing_ = 0;  // that step; 0 when there is none
    Owned<double> panel_;
};

class Iteration {
  public:
    Iteration(double* z, uint64_t n, double* d, double* e) : z_(z), n_(n), d_(d), e_(e) {}

    uint32_t run() noexcept {
        for (uint64_t i = 1; i < n_; ++i) e_[i - 1] = e_[i];
        e_[n_ - 1] = 0.0;
        for (uint64_t l = 0; l < n_; ++l) {
            if (!isolate(l)) return kNoConvergence;
        }
        return kSuccess;
    }

  private:
    // Sweeps until e[l] is negligible.
    bool isolate(uint64_t l) noexcept {
        const uint64_t most = 4 * n_ + 10;
        for (uint64_t iterations = 1;; ++iterations) {
            const uint64_t m = endOfBlock(l);
            if (m == l) return true;
            if (iterations > most) return false;
            sweep(l, m);
        }
    }

    uint64_t endOfBlock(uint64_t l) const noexcept {
        uint64_t m = l;
        for (; m + 1 < n_; ++m) {
            const double neighbours = std::fabs(d_[m]) + std::fabs(d_[m + 1]);
            if (std::fabs(e_[m]) + neighbours == neighbours) break;
        }
        return m;
    }

    void sweep(uint64_t l, uint64_t m) noexcept {
        double g = (d_[l + 1] - d_[l]) / (2.0 * e_[l]);
        const double root = rHypot(g, 1.0);
        g = d_[m] - d_[l] + e_[l] / (g + (g >= 0.0 ? root : -root));
        double s = 1.0;
        double c = 1.0;
        double p = 0.0;
        for (uint64_t i = m; i-- > l;) {
            const double f = s * e_[i];
            const double b = c * e_[i];
            double r = rHypot(f, g);
            e_[i + 1] = r;
            if (r == 0.0) {  // the block falls apart here
                d_[i + 1] -= p;
                e_[m] = 0.0;
                return;
            }
            s = f / r;
            c = g / r;
            g = d_[i + 1] - p;
            r = (d_[i] - g) * s + 2.0 * c * b;
            p = s * r;
            d_[i + 1] = g + p;
            g = c * r - b;
            turnColumns(n_, z_ + (i + 1) * n_, z_ + i * n_, c, s);
        }
        d_[l] -= p;
        e_[l] = g;
        e_[m] = 0.0;
    }

    double* z_;
    uint64_t n_;
    double* d_;
    double* e_;
};

}  // namespace

uint32_t RMatTriDiagonalize(double* A, uint64_t n, double* d, double* e) noexcept {
    if (n == 0) return kNoSize;
    if (!A) return 14;
    if (!d || !e) return 18;
    return guardStatus([&] {
        Reduction(A, n, d, e).run();
        return kSuccess;
    });
}

uint32_t RMatTriDiQL(double* Z, uint64_t n, double* d, double* e) noexcept {
    if (n == 0) return kNoSize;
    if (!Z || !d || !e) return 14;
    return Iteration(Z, n, d, e).run();
}

uint32_t RMatDiagonalize(double* A, uint64_t n, double* eigenvalues) noexcept {
    if (n == 0) return kNoSize;
    if (!A) return 14;
    if (!eigenvalues) return 18;
    if (n == 1) {
        eigenvalues[0] = A[0];
        A[0] = 1.0;
        return kSuccess;
    }
    return guardStatus([&] {
        const Owned<double> e = allocate<double>(n);
        const uint32_t status = RMatTriDiagonalize(A, n, eigenvalues, e.get());
        return status == kSuccess ? RMatTriDiQL(A, n, eigenvalues, e.get()) : status;
    });
}
