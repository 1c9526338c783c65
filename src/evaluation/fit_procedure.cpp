// FIT: models of a curve whose channel 0 is x and whose channel 1 holds the values.
#include <algorithm>
#include <functional>
#include <vector>

#include "core/guard.h"
#include "core/owned.h"
#include "data/data_object.h"
#include "evaluation/fit_monitor.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "fits/exponential_fits.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/arrays/sorting.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {
namespace {

constexpr std::uint64_t kLastMode = 11;
constexpr std::uint64_t kMultiExponential = 3;

// offset + sum of w_k exp(-r_k x)
struct ExponentialSum {
    std::uint64_t components = 0;
    double offset = 0.0;
    double rms = 0.0;
    Owned<double> weights;
    Owned<double> rates;
    Owned<double> residuals;  // model - data, over the window
};

struct Curve {
    std::uint64_t points;
    const double* x;
    const double* y;
};

// Best-so-far callbacks, data scaled by their overall decay, start values made by the fit.
constexpr std::uint32_t kFitFlags = 0x80060000;
constexpr std::uint64_t kMostComponents = 10;  // of an automatic fit
constexpr std::uint64_t kMinimumPoints = 4;
constexpr std::uint64_t kRateSlots = cKoData::kResultCount - 2;

// The factor that kFitFlags makes the fit work with.
double overallDecay(const Curve& curve) noexcept {
    const double decay = curve.y[0] - curve.y[curve.points - 1];
    return decay == 0.0 ? 1.0 : decay;
}

std::uint32_t fitExponentials(ExponentialSum& sum, bool automatic, const Curve& curve,
                              const EvpRecord& evp, cKoData& node, NuvCommandBlock* block) {
    FitMonitor monitor(block, node);
    monitor.setScale(overallDecay(curve), curve.points);
    const MultiParamCallback callback =
        evp.Callback1
            ? reinterpret_cast<MultiParamCallback>(static_cast<std::uintptr_t>(evp.Callback1))
            : monitor.callback();
    const std::uint32_t status =
        automatic ? multiExpAutoFit(kFitFlags, curve.points, curve.x, curve.y, &sum.components,
                                    sum.weights.get(), sum.rates.get(), &sum.offset, &sum.rms,
                                    sum.residuals.get(), callback, &monitor)
                  : multiExpFit(kFitFlags, curve.points, curve.x, curve.y, sum.components,
                                sum.weights.get(), sum.rates.get(), &sum.offset, &sum.rms,
                                sum.residuals.get(), callback, &monitor);
    // A search that was cut short, by its limit or by the host, has found what it has found.
    return status == status::kTooManyCalls ? kSuccess : status;
}

std::uint32_t storeFitCurve(cKoData& node, const PointWindow& window, const Curve& curve,
                            const ExponentialSum& sum) {
    std::vector<double> values(node.Points, ___NAN);
    std::transform(curve.y, curve.y + curve.points, sum.residuals.get(),
                   values.begin() + static_cast<std::ptrdiff_t>(window.first), std::plus<>());
    return node.ReplaceChannelsOfKind(cKoData::kFitKind, values.data(), 1);
}

// The components lie in front of a distribution that the node may have.
std::uint32_t storeComponents(cKoData& node, const ExponentialSum& sum) {
    if (node.Depth() == 1 && sum.components != 0) {
        const std::uint32_t status =
            node.MergeEvaluatedBack(sum.rates.get(), sum.weights.get(), sum.components);
        if (status != kSuccess) return status;
    }
    node.Results[0] = static_cast<double>(sum.components);
    node.Results[1] = sum.offset;
    std::copy_n(sum.rates.get(), std::min(sum.components, kRateSlots), node.Results + 2);
    return kSuccess;
}

void reportExponentials(EvpRecord& evp, bool automatic, const ExponentialSum& sum) {
    if (!reportIsEmpty(evp)) return;
    const double percent = 100.0 / RArrSum(sum.components, sum.weights.get(), 1);
    report(evp, " Mode: Multiexponential\n");
    if (!automatic) report(evp, " Components Preset: %u\n", narrow(sum.components));
    report(evp, " Components Found: %u\n", narrow(sum.components));
    report(evp, " Weights[%%],  Rates[1/s], T[s]:\n");
    for (std::uint64_t k = 0; k < sum.components; ++k) {
        report(evp, " %9.3g, %9.5g, %9.5g\n", percent * sum.weights[k], sum.rates[k],
               1.0 / sum.rates[k]);
    }
    report(evp, " Weights scale factor: %10.4g\n", percent);
    report(evp, " Offset estimate: %10.4g\n", sum.offset);
    report(evp, " RMS of residues: %10.4g\n", sum.rms);
}

std::uint32_t fitMultiExponential(cKoData& node, EvpRecord& evp, const PointWindow& window,
                                  NuvCommandBlock* block) {
    if (window.count < kMinimumPoints) return status::kWindowTooSmall;
    const Curve curve{window.count, node.Channel(0) + window.first, node.Channel(1) + window.first};
    ExponentialSum sum;
    sum.components = GetEvpParameterAsQword(&evp, 2);
    const bool automatic = sum.components == kUnset;
    if (automatic) sum.components = kMostComponents;
    sum.weights = allocate<double>(sum.components);
    sum.rates = allocate<double>(sum.components);
    sum.residuals = allocate<double>(window.count);

    std::uint32_t status = fitExponentials(sum, automatic, curve, evp, node, block);
    if (status != kSuccess) return status;
    RArrHeapSortR(sum.rates.get(), sum.components, sum.weights.get(), nullptr, nullptr, nullptr,
                  nullptr, nullptr);
    status = storeFitCurve(node, window, curve, sum);
    if (status == kSuccess) status = storeComponents(node, sum);
    if (status != kSuccess) return status;
    SetEvpFlags(&evp, EvpDataChanged);
    reportExponentials(evp, automatic, sum);
    return kSuccess;
}

}  // namespace

std::uint32_t runFit(cKoData& node, EvpRecord& evp, NuvCommandBlock* block) {
    if (evp.Mode == 0) return kSuccess;
    if (evp.Mode > kLastMode) return status::kUnknownProcedure;
    if (evp.Mode != kMultiExponential) return status::kNotYetImplemented;
    const PointWindow window = pointWindow(evp, node.Points);
    if (window.count == 0) return kSuccess;
    if (!node.Channel(1)) return status::kMissingInput;
    return fitMultiExponential(node, evp, window, block);
}

}  // namespace nuv64
