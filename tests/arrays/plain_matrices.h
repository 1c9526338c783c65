// Matrix algorithms in their plain form: one element after the other, in the written order of
// operations, without blocks. What the module computes must agree with them to the last bit.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "nuv64/arrays/real_norms.h"
#include "nuv64/numeric/plane_rotations.h"
#include "nuv64/numeric/real_powers.h"

namespace plain {

using Values = std::vector<double>;

inline Values transpose(const Values& m, std::uint64_t rows, std::uint64_t cols) {
    Values t(m.size());
    for (std::uint64_t r = 0; r < rows; ++r) {
        for (std::uint64_t c = 0; c < cols; ++c) t[c + r * cols] = m[r + c * rows];
    }
    return t;
}

inline Values product(const Values& a, const Values& b, std::uint64_t m, std::uint64_t k,
                      std::uint64_t n) {
    Values out(m * n);
    for (std::uint64_t i = 0; i < m; ++i) {
        for (std::uint64_t j = 0; j < n; ++j) {
            double sum = 0.0;
            for (std::uint64_t l = 0; l < k; ++l) sum += a[i + l * m] * b[l + j * k];
            out[i + j * m] = sum;
        }
    }
    return out;
}

// Householder reduction of a symmetric matrix, counted from 0; A becomes the transformation.
inline void reduceSymmetric(Values& a, std::uint64_t n, Values& d, Values& e) {
    const auto at = [&](std::uint64_t r, std::uint64_t c) -> double& { return a[r + c * n]; };
    for (std::uint64_t i = n - 1; i >= 1; --i) {
        const std::uint64_t l = i;
        double h = 0.0, scale = 0.0;
        if (l > 1) {
            for (std::uint64_t k = 0; k < l; ++k) scale += std::fabs(at(i, k));
            if (scale == 0.0) {
                e[i] = at(i, l - 1);
            } else {
                for (std::uint64_t k = 0; k < l; ++k) {
                    at(i, k) /= scale;
                    h += at(i, k) * at(i, k);
                }
                double f = at(i, l - 1);
                const double g = f >= 0.0 ? -std::sqrt(h) : std::sqrt(h);
                e[i] = scale * g;
                h -= f * g;
                at(i, l - 1) = f - g;
                f = 0.0;
                for (std::uint64_t j = 0; j < l; ++j) {
                    at(j, i) = at(i, j) / h;
                    double sum = 0.0;
                    for (std::uint64_t k = 0; k <= j; ++k) sum += at(j, k) * at(i, k);
                    for (std::uint64_t k = j + 1; k < l; ++k) sum += at(k, j) * at(i, k);
                    e[j] = sum / h;
                    f += e[j] * at(i, j);
                }
                const double hh = f / (h + h);
                for (std::uint64_t j = 0; j < l; ++j) {
                    const double uj = at(i, j);
                    const double q = e[j] - hh * uj;
                    e[j] = q;
                    for (std::uint64_t k = 0; k <= j; ++k) at(j, k) -= uj * e[k] + q * at(i, k);
                }
            }
        } else {
            e[i] = at(i, l - 1);
        }
        d[i] = h;
    }
    d[0] = 0.0;
    e[0] = 0.0;
    for (std::uint64_t i = 0; i < n; ++i) {
        if (d[i] != 0.0) {
            for (std::uint64_t j = 0; j < i; ++j) {
                double g = 0.0;
                for (std::uint64_t k = 0; k < i; ++k) g += at(i, k) * at(k, j);
                for (std::uint64_t k = 0; k < i; ++k) at(k, j) -= g * at(k, i);
            }
        }
        d[i] = at(i, i);
        at(i, i) = 1.0;
        for (std::uint64_t j = 0; j < i; ++j) at(j, i) = at(i, j) = 0.0;
    }
}

inline bool iterateQl(Values& z, std::uint64_t n, Values& d, Values& e) {
    for (std::uint64_t i = 1; i < n; ++i) e[i - 1] = e[i];
    e[n - 1] = 0.0;
    for (std::uint64_t l = 0; l < n; ++l) {
        std::uint64_t iterations = 0, m = 0;
        do {
            for (m = l; m + 1 < n; ++m) {
                const double dd = std::fabs(d[m]) + std::fabs(d[m + 1]);
                if (std::fabs(e[m]) + dd == dd) break;
            }
            if (m == l) continue;
            if (++iterations > 4 * n + 10) return false;
            double g = (d[l + 1] - d[l]) / (2.0 * e[l]);
            double r = rHypot(g, 1.0);
            g = d[m] - d[l] + e[l] / (g + (g >= 0.0 ? r : -r));
            double s = 1.0, c = 1.0, p = 0.0;
            bool fellApart = false;
            for (std::uint64_t i = m; i-- > l && !fellApart;) {
                double f = s * e[i];
                const double b = c * e[i];
                e[i + 1] = r = rHypot(f, g);
                if (r == 0.0) {
                    d[i + 1] -= p;
                    e[m] = 0.0;
                    fellApart = true;
                    break;
                }
                s = f / r;
                c = g / r;
                g = d[i + 1] - p;
                r = (d[i] - g) * s + 2.0 * c * b;
                p = s * r;
                d[i + 1] = g + p;
                g = c * r - b;
                for (std::uint64_t k = 0; k < n; ++k) {
                    f = z[k + (i + 1) * n];
                    z[k + (i + 1) * n] = s * z[k + i * n] + c * f;
                    z[k + i * n] = c * z[k + i * n] - s * f;
                }
            }
            if (fellApart) continue;
            d[l] -= p;
            e[l] = g;
            e[m] = 0.0;
        } while (m != l);
    }
    return true;
}

// Singular values, thin or full U, and V, in the arrangement of LINPACK's SVDC.
class Svd {
  public:
    Svd(Values a, std::uint64_t rows, std::uint64_t cols, std::uint64_t uColumns)
        : n_(rows),
          p_(cols),
          ncu_(uColumns),
          a_(std::move(a)),
          size_(std::min(cols, rows + 1)),
          s(std::max(size_, cols)),
          e_(cols),
          u(rows * uColumns),
          v(cols * cols) {
        reduce();
        makeU();
        makeV();
        converged = iterate();
        s.resize(std::min(rows, cols));
    }

  private:
    using Count = std::uint64_t;
    Count n_, p_, ncu_;
    Values a_;
    Count size_;

  public:
    Values s;

  private:
    Values e_;

  public:
    Values u, v;
    bool converged = false;

  private:
    double& a(Count r, Count c) { return a_[r + c * n_]; }

    static double dot(Count n, const double* x, const double* y) {
        double sum = 0.0;
        for (Count i = 0; i < n; ++i) sum += x[i] * y[i];
        return sum;
    }
    static void add(Count n, double k, const double* x, double* y) {
        for (Count i = 0; i < n; ++i) y[i] = y[i] + k * x[i];
    }
    static void scale(Count n, double k, double* x) {
        for (Count i = 0; i < n; ++i) x[i] *= k;
    }

    Count nct() const { return std::min(n_ - 1, p_); }
    Count nrt() const { return p_ > 2 ? std::min(p_ - 2, n_) : 0; }

    void reduce() {
        Values work(n_);
        for (Count l = 0; l < std::max(nct(), nrt()); ++l) {
            if (l < nct()) {
                s[l] = RArrNormL2(n_ - l, &a(l, l));
                if (s[l] != 0.0) {
                    if (a(l, l) < 0.0) s[l] = -s[l];
                    scale(n_ - l, 1.0 / s[l], &a(l, l));
                    a(l, l) += 1.0;
                }
                s[l] = -s[l];
            }
            for (Count j = l + 1; j < p_; ++j) {
                if (l < nct() && s[l] != 0.0) {
                    const double t = -dot(n_ - l, &a(l, l), &a(l, j)) / a(l, l);
                    add(n_ - l, t, &a(l, l), &a(l, j));
                }
                e_[j] = a(l, j);
            }
            if (l < nct()) {
                for (Count i = l; i < n_ && l < ncu_; ++i) u[i + l * n_] = a(i, l);
            }
            if (l < nrt()) reduceRow(l, work);
        }
        if (nct() < p_) s[nct()] = a(nct(), nct());
        if (n_ < size_) s[size_ - 1] = 0.0;
        if (nrt() + 1 < size_) e_[nrt()] = a(nrt(), size_ - 1);
        e_[size_ - 1] = 0.0;
    }

    void reduceRow(Count l, Values& work) {
        e_[l] = RArrNormL2(p_ - l - 1, &e_[l + 1]);
        if (e_[l] != 0.0) {
            if (e_[l + 1] < 0.0) e_[l] = -e_[l];
            scale(p_ - l - 1, 1.0 / e_[l], &e_[l + 1]);
            e_[l + 1] += 1.0;
        }
        e_[l] = -e_[l];
        const Count below = n_ - l - 1;
        if (below > 0 && e_[l] != 0.0) {
            std::fill(work.begin(), work.end(), 0.0);
            for (Count j = l + 1; j < p_; ++j) add(below, e_[j], &a(l + 1, j), &work[l + 1]);
            for (Count j = l + 1; j < p_; ++j) {
                add(below, -e_[j] / e_[l + 1], &work[l + 1], &a(l + 1, j));
            }
        }
        for (Count i = l + 1; i < p_; ++i) v[i + l * p_] = e_[i];
    }

    void makeU() {
        for (Count j = nct(); j < ncu_; ++j) u[j + j * n_] = 1.0;
        for (Count l = nct(); l-- > 0;) {
            double* const x = &u[l + l * n_];
            if (s[l] != 0.0) {
                for (Count j = l + 1; j < ncu_; ++j) {
                    const double t = -dot(n_ - l, x, &u[l + j * n_]) / x[0];
                    add(n_ - l, t, x, &u[l + j * n_]);
                }
                scale(n_ - l, -1.0, x);
                x[0] += 1.0;
                std::fill_n(&u[l * n_], l, 0.0);
            } else {
                std::fill_n(&u[l * n_], n_, 0.0);
                x[0] = 1.0;
            }
        }
    }

    void makeV() {
        for (Count l = p_; l-- > 0;) {
            if (l < nrt() && e_[l] != 0.0) {
                const double* const x = &v[l + 1 + l * p_];
                for (Count j = l + 1; j < p_; ++j) {
                    double* const y = &v[l + 1 + j * p_];
                    add(p_ - l - 1, -dot(p_ - l - 1, x, y) / x[0], x, y);
                }
            }
            std::fill_n(&v[l * p_], p_, 0.0);
            v[l + l * p_] = 1.0;
        }
    }

    static void turn(Count n, double* x, double* y, double c, double sine) {
        for (Count i = 0; i < n; ++i) {
            const double t = c * x[i] + sine * y[i];
            y[i] = c * y[i] - sine * x[i];
            x[i] = t;
        }
    }
    void turnU(Count i, Count j, double c, double sine) {
        if (i < ncu_ && j < ncu_) turn(n_, &u[i * n_], &u[j * n_], c, sine);
    }
    void turnV(Count i, Count j, double c, double sine) {
        turn(p_, &v[i * p_], &v[j * p_], c, sine);
    }

    bool iterate() {
        Count passes = 0;
        for (Count m = size_; m > 0;) {
            if (passes > 100) return false;
            // l: one below the block's first index, counted from 1 as in the published form.
            Count l = m - 1;
            for (; l > 0; --l) {
                const double test = std::fabs(s[l - 1]) + std::fabs(s[l]);
                if (test + std::fabs(e_[l - 1]) == test) {
                    e_[l - 1] = 0.0;
                    break;
                }
            }
            if (l == m - 1) {
                settle(m - 1);
                passes = 0;
                --m;
                continue;
            }
            Count ls = m;
            for (; ls > l; --ls) {
                double test = 0.0;
                if (ls != m) test += std::fabs(e_[ls - 1]);
                if (ls != l + 1) test += std::fabs(e_[ls - 2]);
                if (test + std::fabs(s[ls - 1]) == test) {
                    s[ls - 1] = 0.0;
                    break;
                }
            }
            if (ls == l) {
                step(l, m);
                ++passes;
            } else if (ls == m) {
                deflate(l, m);
            } else {
                split(ls, m);
            }
        }
        return true;
    }

    void deflate(Count l, Count m) {
        double f = e_[m - 2];
        e_[m - 2] = 0.0;
        for (Count k = m - 1; k-- > l;) {
            double c = 0.0, sine = 0.0;
            rGivensRotation(&s[k], &f, &c, &sine);
            if (k != l) {
                f = -sine * e_[k - 1];
                e_[k - 1] *= c;
            }
            turnV(k, m - 1, c, sine);
        }
    }

    void split(Count l, Count m) {
        double f = e_[l - 1];
        e_[l - 1] = 0.0;
        for (Count k = l; k < m; ++k) {
            double c = 0.0, sine = 0.0;
            rGivensRotation(&s[k], &f, &c, &sine);
            f = -sine * e_[k];
            e_[k] *= c;
            turnU(k, l - 1, c, sine);
        }
    }

    void step(Count l, Count m) {
        const double scaling = std::max({std::fabs(s[m - 1]), std::fabs(s[m - 2]),
                                         std::fabs(e_[m - 2]), std::fabs(s[l]), std::fabs(e_[l])});
        const double sm = s[m - 1] / scaling, smm1 = s[m - 2] / scaling, emm1 = e_[m - 2] / scaling;
        const double sl = s[l] / scaling, el = e_[l] / scaling;
        const double b = ((smm1 + sm) * (smm1 - sm) + emm1 * emm1) / 2.0;
        const double c0 = (sm * emm1) * (sm * emm1);
        double shift = 0.0;
        if (b != 0.0 || c0 != 0.0) {
            const double root = std::sqrt(b * b + c0);
            shift = c0 / (b + (b < 0.0 ? -root : root));
        }
        double f = (sl + sm) * (sl - sm) - shift;
        double g = sl * el;
        for (Count k = l; k + 1 < m; ++k) {
            double c = 0.0, sine = 0.0;
            rGivensRotation(&f, &g, &c, &sine);
            if (k != l) e_[k - 1] = f;
            f = c * s[k] + sine * e_[k];
            e_[k] = c * e_[k] - sine * s[k];
            g = sine * s[k + 1];
            s[k + 1] *= c;
            turnV(k, k + 1, c, sine);
            rGivensRotation(&f, &g, &c, &sine);
            s[k] = f;
            f = c * e_[k] + sine * s[k + 1];
            s[k + 1] = -sine * e_[k] + c * s[k + 1];
            g = sine * e_[k + 1];
            e_[k + 1] *= c;
            if (k + 1 < n_) turnU(k, k + 1, c, sine);
        }
        e_[m - 2] = f;
    }

    void settle(Count k) {
        if (s[k] < 0.0) {
            s[k] = -s[k];
            scale(p_, -1.0, &v[k * p_]);
        }
        for (; k + 1 < size_ && s[k] < s[k + 1]; ++k) {
            std::swap(s[k], s[k + 1]);
            if (k + 1 < p_) std::swap_ranges(&v[k * p_], &v[k * p_] + p_, &v[(k + 1) * p_]);
            if (k + 1 < ncu_) std::swap_ranges(&u[k * n_], &u[k * n_] + n_, &u[(k + 1) * n_]);
        }
    }
};

}  // namespace plain
