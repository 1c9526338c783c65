// The downhill simplex search of J. A. Nelder and R. Mead, Computer Journal 7 (1965) 308, with a
// stop rule of its own: a size, 1 at the start and after each new best score, is followed through
// expansions and contractions, each by the factor that halves or doubles the simplex's volume; the
// search ends when it has stalled below the tolerance for 3N rounds.
#include <cmath>

#include "core/guard.h"
#include "core/owned.h"
#include "fits/minimiser.h"

namespace nuv64 {

namespace {

class Simplex {
  public:
    explicit Simplex(MultiParamFit& fit)
        : fit_(fit),
          n_(fit.fittedCount),
          memory_(allocate<double>(memorySize(n_))),
          vertices_(memory_.get()),
          scores_(vertices_ + (n_ + 1) * n_),
          sums_(scores_ + n_ + 1),
          trial_(sums_ + n_),
          rho_(std::pow(0.5, 1.0 / static_cast<double>(n_))) {}

    std::uint32_t search() {
        std::uint32_t status = placeVertices();
        bool stalled = false;
        while (status == kSuccess && !stalled) {
            rank();
            status = noteBest();
            if (status != kSuccess) break;
            stalled = isStalled();
            if (!stalled) status = improve();
        }
        return status == kSuccess ? leave() : status;
    }

  private:
    // Vertices and their scores, coordinate sums, the trial point. All ones where it overflows.
    static std::uint64_t memorySize(std::uint64_t n) noexcept {
        return n > UINT32_MAX - 4 ? UINT64_MAX : (n + 1) * (n + 1) + 2 * n;
    }

    double* vertex(std::uint64_t k) const noexcept { return vertices_ + k * n_; }

    void load(const double* place) const noexcept {
        for (std::uint64_t j = 0; j < n_; ++j) *fit_.fittedList[j] = place[j];
    }

    // Loads a place and leaves its score in fit_.score. What the score function makes of the
    // parameters stays theirs: the vertex keeps its own values.
    std::uint32_t evaluate(const double* place) {
        load(place);
        return evaluateScore(fit_);
    }

    std::uint32_t placeVertices() {
        for (std::uint64_t k = 0; k <= n_; ++k) {
            for (std::uint64_t j = 0; j < n_; ++j) vertex(k)[j] = *fit_.fittedList[j];
        }
        for (std::uint64_t k = 1; k <= n_; ++k) vertex(k)[k - 1] += fit_.step;
        for (std::uint64_t k = 0; k <= n_; ++k) {
            const std::uint32_t status = evaluate(vertex(k));
            if (status != kSuccess) return status;
            scores_[k] = fit_.score;
        }
        sumVertices();
        return kSuccess;
    }

    void sumVertices() noexcept {
        for (std::uint64_t j = 0; j < n_; ++j) {
            double sum = 0.0;
            for (std::uint64_t k = 0; k <= n_; ++k) sum += vertex(k)[j];
            sums_[j] = sum;
        }
    }

    // Finds the lowest, the highest and the second highest vertex; the first of equal ones wins.
    void rank() noexcept {
        lowest_ = 0;
        highest_ = 0;
        for (std::uint64_t k = 1; k <= n_; ++k) {
            if (scores_[k] < scores_[lowest_]) lowest_ = k;
            if (scores_[k] > scores_[highest_]) highest_ = k;
        }
        std::uint64_t second = lowest_;
        for (std::uint64_t k = 0; k <= n_; ++k) {
            if (k != highest_ && scores_[k] > scores_[second]) second = k;
        }
        lowestScore_ = scores_[lowest_];
        secondScore_ = scores_[second];
    }

    std::uint32_t noteBest() {
        if (!(lowestScore_ < fit_.bestScore)) return kSuccess;
        stall_ = 0;
        size_ = 1.0;
        if (fit_.flags & kReportBest) load(vertex(lowest_));
        return recordBest(fit_, lowestScore_);
    }

    bool isStalled() noexcept {
        overrun_ = fit_.calls > fit_.maxCalls;
        if (!overrun_ && size_ < fit_.tolerance) ++stall_;
        return overrun_ || stall_ >= 3 * n_;
    }

    // Moves the highest vertex along its line through the middle of the others: to the factor f of
    // its distance from there. Kept only when it gets better.
    std::uint32_t tryMove(double f) {
        const double share = (1.0 - f) / static_cast<double>(n_);
        double* const high = vertex(highest_);
        for (std::uint64_t j = 0; j < n_; ++j) {
            trial_[j] = f * high[j] + share * (sums_[j] - high[j]);
        }
        const std::uint32_t status = evaluate(trial_);
        if (status != kSuccess || !(fit_.score < scores_[highest_])) return status;
        scores_[highest_] = fit_.score;
        for (std::uint64_t j = 0; j < n_; ++j) {
            sums_[j] += trial_[j] - high[j];
            high[j] = trial_[j];
        }
        return kSuccess;
    }

    std::uint32_t improve() {
        const std::uint32_t status = tryMove(-1.0);
        if (status != kSuccess) return status;
        if (fit_.score < lowestScore_) return expand();
        return fit_.score < secondScore_ ? kSuccess : contract();
    }

    std::uint32_t expand() {
        const double before = scores_[highest_];
        const std::uint32_t status = tryMove(2.0);
        if (status == kSuccess && before < fit_.score) size_ /= rho_;
        return status;
    }

    std::uint32_t contract() {
        const double before = scores_[highest_];
        std::uint32_t status = tryMove(0.5);
        if (status == kSuccess && !(fit_.score < before)) status = shrink();
        size_ *= rho_;
        return status;
    }

    // Draws all other vertices towards the lowest one.
    std::uint32_t shrink() {
        const double* const low = vertex(lowest_);
        for (std::uint64_t k = 0; k <= n_; ++k) {
            if (k == lowest_) continue;
            double* const moved = vertex(k);
            for (std::uint64_t j = 0; j < n_; ++j) {
                moved[j] = rho_ * moved[j] + (1.0 - rho_) * low[j];
            }
            const std::uint32_t status = evaluate(moved);
            if (status != kSuccess) return status;
            scores_[k] = fit_.score;
        }
        sumVertices();
        return kSuccess;
    }

    std::uint32_t leave() {
        const std::uint32_t status = evaluate(vertex(lowest_));
        return status == kSuccess && overrun_ ? kTooManyCalls : status;
    }

    MultiParamFit& fit_;
    std::uint64_t n_;
    Owned<double> memory_;
    double* vertices_;
    double* scores_;
    double* sums_;
    double* trial_;
    double rho_;
    double size_ = 1.0;
    std::uint64_t stall_ = 0;
    bool overrun_ = false;
    std::uint64_t lowest_ = 0;
    std::uint64_t highest_ = 0;
    double lowestScore_ = 0.0;
    double secondScore_ = 0.0;
};

}  // namespace

std::uint32_t searchBySimplex(MultiParamFit& fit) {
    if (fit.maxCalls < 2) return kSuccess;
    return guardStatus([&] { return Simplex(fit).search(); });
}

}  // namespace nuv64
