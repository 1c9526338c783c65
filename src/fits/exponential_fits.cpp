// Sums of exponentials. Rates are searched as logarithms, which keeps them positive and makes the
// steps of the search relative ones. The number of evaluations decides the time of a fit, so an
// evaluation works in memory that is set up once.
#include "nuv64/fits/exponential_fits.h"

#include <cmath>
#include <cstddef>
#include <type_traits>

#include "core/guard.h"
#include "core/owned.h"
#include "fits/decay_kernel.h"
#include "fits/exponential_fits.h"
#include "fits/minimiser.h"
#include "fits/residual_norm.h"
#include "nuv64/arrays/real_array.h"

namespace nuv64 {

namespace {

constexpr double kSmallestRate = 1e-5;
constexpr double kTolerance = 0.001;
constexpr double kStep = 0.2;
// The simplex of more components than this would take terabytes.
constexpr std::uint64_t kMostComponents = std::uint64_t{1} << 18;

struct Curve {
    std::uint64_t n;
    const double* x;
    const double* y;
};

// What is fitted; all of it the caller's.
struct Solution {
    std::uint64_t components;
    double* weights;
    double* rates;
    double* offset;
    double* rms;
    double* residuals;
};

// What the score function sees behind userData.
struct ScoreData {
    FitContext context;
    std::uint32_t flags;
    std::uint64_t n;
    std::uint64_t components;
    const double* x;
    const double* y;         // scaled
    const double* spacings;  // null without 0x80000
    double* model;           // scratch
    double* weights;
    double* logRates;
    const double* offset;
    double lowestLogRate;
    double highestLogRate;
};
static_assert(std::is_standard_layout_v<ScoreData> && offsetof(ScoreData, context) == 0);

std::uint64_t parameterCount(std::uint64_t components) noexcept {
    return 2 * components + 1;
}

// Keeps the parameters where the curve can tell of them: at the third point 5 percent of a
// component must be left at least, at the last point 95 percent at most.
void clampParameters(const ScoreData& data) noexcept {
    for (std::uint64_t k = 0; k < data.components; ++k) {
        if (data.logRates[k] > data.highestLogRate) data.logRates[k] = data.highestLogRate;
        if (data.logRates[k] < data.lowestLogRate) data.logRates[k] = data.lowestLogRate;
        if (data.weights[k] < 0.0) data.weights[k] = 0.0;
    }
}

double weightedResidual(const ScoreData& data, std::uint64_t i) noexcept {
    const double residual = residualNorm(data.y[i], data.model[i], data.flags);
    return data.spacings ? residual * data.spacings[i] : residual;
}

// The common case of squared residuals without weights, which needs no decisions inside.
double sumSquares(const ScoreData& data) noexcept {
    double sum = 0.0;
    for (std::uint64_t i = 0; i < data.n; ++i) {
        const double d = data.y[i] - data.model[i];
        sum += d * d;
    }
    return sum;
}

double sumResiduals(const ScoreData& data) noexcept {
    if (isPlainSquare(data.flags) && !data.spacings) return sumSquares(data);
    double sum = 0.0;
    for (std::uint64_t i = 0; i < data.n; ++i) sum += weightedResidual(data, i);
    return sum;
}

double largestResidual(const ScoreData& data) noexcept {
    double largest = 0.0;
    for (std::uint64_t i = 0; i < data.n; ++i) {
        const double residual = weightedResidual(data, i);
        if (residual > largest) largest = residual;
    }
    return largest;
}

std::uint32_t scoreExponentials(MultiParamFit* fit) noexcept {
    const ScoreData& data = *static_cast<const ScoreData*>(fit->userData);
    clampParameters(data);
    RArrFill(data.n, data.model, *data.offset);
    for (std::uint64_t k = 0; k < data.components; ++k) {
        if (!(data.weights[k] > 0.0)) continue;
        addDecay(data.n, data.x, data.weights[k], std::exp(data.logRates[k]), data.model);
    }
    fit->score = keepsLargest(data.flags) ? largestResidual(data) : sumResiduals(data);
    return kSuccess;
}

bool allFinite(std::uint64_t n, const double* values) noexcept {
    for (std::uint64_t i = 0; i < n; ++i) {
        if (!std::isfinite(values[i])) return false;
    }
    return true;
}

std::uint32_t checkArguments(std::uint32_t flags, const Curve& curve, const Solution& s) noexcept {
    if (!curve.x || !curve.y) return 14;
    if (!s.offset || !s.rms) return 18;
    if (s.components != 0 && (!s.weights || !s.rates)) return 18;
    if (curve.n < 3) return 71;
    if (s.components > kMostComponents) return kAllocationFailure;
    if (!allFinite(curve.n, curve.x) || !allFinite(curve.n, curve.y)) return 15;
    const bool made = (flags & kMakeStartValues) != 0;
    if ((!made || (flags & kHoldOffset)) && !std::isfinite(*s.offset)) return 15;
    if (made) return kSuccess;
    return allFinite(s.components, s.weights) && allFinite(s.components, s.rates) ? kSuccess : 15;
}

void makeStartValues(std::uint32_t flags, const Curve& curve, const Solution& s) noexcept {
    const double first = curve.y[0];
    const double last = curve.y[curve.n - 1];
    const double count = static_cast<double>(s.components);
    if (!(flags & kHoldOffset)) *s.offset = last;
    for (std::uint64_t k = 0; k < s.components; ++k) {
        s.weights[k] = (first - last) / count;
        s.rates[k] = count - static_cast<double>(k) * (count - 1.0 / count) / count;
    }
}

double overallDecay(std::uint32_t flags, const Curve& curve) noexcept {
    if (!(flags & kScaleByDecay)) return 1.0;
    const double decay = curve.y[0] - curve.y[curve.n - 1];
    return decay == 0.0 ? 1.0 : decay;
}

// From the caller's terms to those of the search, and back.
void toSearch(const Solution& s, double scale) noexcept {
    *s.offset /= scale;
    for (std::uint64_t k = 0; k < s.components; ++k) {
        s.weights[k] /= scale;
        if (s.weights[k] < 0.0) s.weights[k] = 0.0;
        if (s.rates[k] < kSmallestRate) s.rates[k] = kSmallestRate;
        s.rates[k] = std::log(s.rates[k]);
    }
}

void fromSearch(std::uint32_t flags, const Solution& s, double scale) noexcept {
    // A held offset stays divided by the scale; the residuals below belong to it so.
    if (!(flags & kHoldOffset)) *s.offset *= scale;
    for (std::uint64_t k = 0; k < s.components; ++k) {
        s.weights[k] *= scale;
        s.rates[k] = std::exp(s.rates[k]);
    }
}

// The memory of one fit: the scaled curve, the model and, where they count, the spacings.
class Workspace {
  public:
    Workspace(std::uint32_t flags, const Curve& curve, double scale)
        : n_(curve.n),
          weighted_((flags & kWeightByStep) != 0),
          memory_(allocate<double>((weighted_ ? 3 : 2) * curve.n)) {
        for (std::uint64_t i = 0; i < n_; ++i) memory_[i] = curve.y[i] / scale;
        if (!weighted_) return;
        double* const spacings = memory_.get() + 2 * n_;
        spacings[0] = std::fabs(curve.x[1] - curve.x[0]);
        for (std::uint64_t i = 1; i < n_; ++i) {
            spacings[i] = std::fabs(curve.x[i] - curve.x[i - 1]);
        }
    }
    const double* scaledCurve() const noexcept { return memory_.get(); }
    double* model() const noexcept { return memory_.get() + n_; }
    const double* spacings() const noexcept { return weighted_ ? memory_.get() + 2 * n_ : nullptr; }

  private:
    std::uint64_t n_;
    bool weighted_;
    Owned<double> memory_;
};

std::uint64_t callLimit(std::uint64_t p) noexcept {
    return p * (p * (35 * p + 30) + 25);
}

// Parameters: the offset, the weights, the logarithms of the rates.
std::uint32_t setParameters(Minimiser& minimiser, std::uint32_t flags, const Solution& s) {
    const std::uint64_t count = parameterCount(s.components);
    const Owned<double*> list = allocate<double*>(2 * count);
    double** const fitted = list.get() + count;
    list[0] = s.offset;
    for (std::uint64_t k = 0; k < s.components; ++k) {
        list[1 + k] = s.weights + k;
        list[1 + s.components + k] = s.rates + k;
    }
    std::memcpy(fitted, list.get(), count * sizeof(double*));
    if (flags & kHoldOffset) fitted[0] = nullptr;
    return minimiser.setParameters(count, list.get(), fitted, scoreExponentials);
}

// residual = model - y, in the caller's terms.
void reportResiduals(const Curve& curve, const Solution& s, double* model) noexcept {
    RArrFill(curve.n, model, *s.offset);
    for (std::uint64_t k = 0; k < s.components; ++k) {
        if (s.weights[k] != 0.0) addDecay(curve.n, curve.x, s.weights[k], s.rates[k], model);
    }
    double squares = 0.0;
    for (std::uint64_t i = 0; i < curve.n; ++i) {
        const double residual = model[i] - curve.y[i];
        squares += residual * residual;
        if (s.residuals) s.residuals[i] = residual;
    }
    *s.rms = std::sqrt(squares / static_cast<double>(curve.n));
}

std::uint32_t fitExponentials(std::uint32_t flags, const Curve& curve, const Solution& s,
                              MultiParamCallback callback, void* monitor) {
    const double scale = overallDecay(flags, curve);
    const Workspace workspace(flags, curve, scale);
    ScoreData data{};
    data.context.monitor = monitor;
    data.flags = flags;
    data.n = curve.n;
    data.components = s.components;
    data.x = curve.x;
    data.y = workspace.scaledCurve();
    data.spacings = workspace.spacings();
    data.model = workspace.model();
    data.weights = s.weights;
    data.logRates = s.rates;
    data.offset = s.offset;
    data.highestLogRate = std::log(-std::log(0.05) / curve.x[2]);
    data.lowestLogRate = std::log(-std::log(0.95) / curve.x[curve.n - 1]);
    Minimiser minimiser(flags, callback, &data);
    minimiser.maxCalls = callLimit(parameterCount(s.components));
    minimiser.tolerance = kTolerance;
    minimiser.step = kStep;
    std::uint32_t status = setParameters(minimiser, flags, s);
    if (status != kSuccess) return status;
    if (flags & kMakeStartValues) makeStartValues(flags, curve, s);
    toSearch(s, scale);
    status = minimiser.run(kSimplexSearch);
    if (status != kSuccess && status != kTooManyCalls) return status;
    fromSearch(flags, s, scale);
    reportResiduals(curve, s, workspace.model());
    return kSuccess;
}

// A copy of a solution to fall back to.
class KeptSolution {
  public:
    KeptSolution(std::uint64_t n, const Solution& s)
        : n_(s.residuals ? n : 0),
          components_(s.components),
          offset_(*s.offset),
          rms_(*s.rms),
          memory_(allocate<double>(2 * s.components + n_)) {
        RArrCopy(components_, s.weights, weights());
        RArrCopy(components_, s.rates, rates());
        RArrCopy(n_, s.residuals, residuals());
    }
    double rms() const noexcept { return rms_; }
    void restore(const Solution& s) const noexcept {
        *s.offset = offset_;
        *s.rms = rms_;
        RArrCopy(components_, weights(), s.weights);
        RArrCopy(components_, rates(), s.rates);
        RArrCopy(n_, residuals(), s.residuals);
    }

  private:
    double* weights() const noexcept { return memory_.get(); }
    double* rates() const noexcept { return memory_.get() + components_; }
    double* residuals() const noexcept { return memory_.get() + 2 * components_; }

    std::uint64_t n_;
    std::uint64_t components_;
    double offset_;
    double rms_;
    Owned<double> memory_;
};

// Start values for one component more.
void addComponent(Solution& s) noexcept {
    const std::uint64_t k = s.components++;
    std::uint64_t smallest = 0;
    RArrAbsMin(k, s.weights, &smallest);
    s.weights[k] = 0.33 * s.weights[smallest];
    s.rates[k] = 3.0 * RArrMax(k, s.rates, nullptr);
}

// Adds components while each takes 15 percent off the rms, then takes the last one back: s ends
// with the number found.
template <class Fit>
std::uint32_t growSolution(std::uint32_t flags, std::uint64_t n, std::uint64_t allowed, Solution& s,
                           Fit fit) {
    for (;;) {
        const KeptSolution kept(n, s);
        addComponent(s);
        std::uint32_t status = fit(flags & ~kMakeStartValues, s);
        if (status != kSuccess) return status;
        if (s.components < allowed && *s.rms <= 0.85 * kept.rms()) continue;
        --s.components;
        status = fit(flags, s);
        if (status == kSuccess && !(*s.rms <= kept.rms())) kept.restore(s);
        return status;
    }
}

}  // namespace

std::uint32_t multiExpFit(std::uint32_t flags, std::uint64_t n, const double* x, const double* y,
                          std::uint64_t components, double* weights, double* rates, double* offset,
                          double* rms, double* residuals, MultiParamCallback callback,
                          void* monitor) noexcept {
    const Curve curve{n, x, y};
    const Solution solution{components, weights, rates, offset, rms, residuals};
    const std::uint32_t status = checkArguments(flags, curve, solution);
    if (status != kSuccess) return status;
    return guardStatus([&] { return fitExponentials(flags, curve, solution, callback, monitor); });
}

std::uint32_t multiExpAutoFit(std::uint32_t flags, std::uint64_t n, const double* x,
                              const double* y, std::uint64_t* components, double* weights,
                              double* rates, double* offset, double* rms, double* residuals,
                              MultiParamCallback callback, void* monitor) noexcept {
    if (!components) return 21;
    const std::uint64_t allowed = *components;
    *components = 0;
    return guardStatus([&] {
        const auto fit = [&](std::uint32_t fitFlags, const Solution& s) {
            return multiExpFit(fitFlags, n, x, y, s.components, s.weights, s.rates, s.offset, s.rms,
                               s.residuals, callback, monitor);
        };
        Solution s{1, weights, rates, offset, rms, residuals};
        std::uint32_t status = fit(flags, s);
        if (status == kSuccess && allowed >= 2) status = growSolution(flags, n, allowed, s, fit);
        if (status == kSuccess) *components = s.components;
        return status;
    });
}

}  // namespace nuv64

uint32_t MultiExpFit(uint32_t flags, uint64_t n, const double* x, const double* y,
                     uint64_t components, double* weights, double* rates, double* offset,
                     double* rms, double* residuals,
                     uint32_t (*callback)(MultiParamFit* fit, uint32_t code)) noexcept {
    return nuv64::multiExpFit(flags, n, x, y, components, weights, rates, offset, rms, residuals,
                              callback, nullptr);
}

uint32_t MultiExpAutoFit(uint32_t flags, uint64_t n, const double* x, const double* y,
                         uint64_t* components, double* weights, double* rates, double* offset,
                         double* rms, double* residuals,
                         uint32_t (*callback)(MultiParamFit* fit, uint32_t code),
                         void* reserved) noexcept {
    return nuv64::multiExpAutoFit(flags, n, x, y, components, weights, rates, offset, rms,
                                  residuals, callback, reserved);
}
