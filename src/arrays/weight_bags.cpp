#include "nuv64/arrays/weight_bags.h"

#include <cmath>

#include "core/guard.h"
#include "core/real_rounding.h"
#include "nuv64/arrays/real_array.h"

using namespace nuv64;

namespace {

constexpr double kLowestCount = 0.4;    // of the smallest weight, on the first multiplier
constexpr double kHighestCount = 18.0;  // and on the one behind the last
constexpr double kCountDecay = 9.0;
constexpr uint64_t kCandidates = 1000;

// The scores of all multipliers.
class MultiplierAxis {
  public:
    MultiplierAxis(uint32_t n, const double* weights) noexcept : n_(n), weights_(weights) {
        const double smallest = RArrMin(n, weights, nullptr);
        first_ = kLowestCount / smallest;
        step_ = (kHighestCount / smallest - first_) / static_cast<double>(kCandidates);
        for (uint64_t i = 0; i < kCandidates; ++i) scores_[i] = score(multiplier(i), smallest);
    }
    // The best of what is left, with its hill taken away.
    void takeBest(double* counts, double* quality) noexcept {
        uint64_t best = 0;
        *quality = RArrMax(kCandidates, scores_, &best);
        const double x = multiplier(best);
        for (uint32_t i = 0; i < n_; ++i) counts[i] = x * weights_[i];
        wipeHill(best);
    }

  private:
    double multiplier(uint64_t i) const noexcept { return first_ + static_cast<double>(i) * step_; }

    double score(double x, double smallest) const noexcept {
        double product = 1.0;
        for (uint32_t i = 0; i < n_; ++i) {
            const double count = x * weights_[i];
            const double deviation = 2.0 * (count - roundHalfAway(count));
            product *= 1.0 - deviation * deviation;
        }
        const double size = x * smallest / kCountDecay;
        return product * std::exp(-(size * size));
    }

    void wipeHill(uint64_t peak) noexcept {
        double last = scores_[peak];
        for (uint64_t i = peak + 1; i < kCandidates && !(scores_[i] > last); ++i) {
            last = scores_[i];
            scores_[i] = 0.0;
        }
        last = scores_[peak];
        for (uint64_t i = peak; i-- > 0 && !(scores_[i] > last);) {
            last = scores_[i];
            scores_[i] = 0.0;
        }
        scores_[peak] = 0.0;
    }

    uint32_t n_;
    const double* weights_;
    double first_;
    double step_;
    double scores_[kCandidates];
};

}  // namespace

uint32_t RArrBagsToBest3Counts(uint32_t n, const double* weights, double* counts1, double* quality1,
                               double* counts2, double* quality2, double* counts3,
                               double* quality3) noexcept {
    if (!weights || n == 0) return 14;
    if (!counts1 || !quality1 || !counts2 || !quality2 || !counts3 || !quality3) return 18;
    MultiplierAxis axis(n, weights);
    axis.takeBest(counts1, quality1);
    axis.takeBest(counts2, quality2);
    axis.takeBest(counts3, quality3);
    return kSuccess;
}

double RArrBagsTotalWeightFactor(uint64_t n, const double* array, double total) noexcept {
    const double sum = RArrSum(n, array, 1);
    return sum > 0.0 ? total / sum : 0.0;
}
