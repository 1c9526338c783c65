#include "evaluation/fit_monitor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/host_events.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "fits/minimiser.h"

namespace nuv64 {
namespace {

constexpr std::uint64_t kLowByte = 0xFF;
constexpr std::uint64_t kCallsPerCurve = 10;

std::uint32_t monitorFit(MultiParamFit* fit, std::uint32_t code) {
    auto* context = static_cast<FitContext*>(fit->userData);
    auto* monitor = context ? static_cast<FitMonitor*>(context->monitor) : nullptr;
    return monitor ? monitor->handle(*fit, code) : kSuccess;
}

template <class... Arguments>
void notifyText(NuvCommandBlock* block, std::uint32_t event, const char* format,
                Arguments... arguments) {
    std::array<char, 512> text{};
    SprintfToBufferA(text.data(), text.size(), format, arguments...);
    notify(block, event, text.data());
}

}  // namespace

FitMonitor::FitMonitor(NuvCommandBlock* block, cKoData& node) noexcept
    : block_(block), node_(&node) {
    for (const cKoListItem* item = node.Prev(); item; item = item->Prev()) ++zoneIndex_;
    if (!block_) return;
    oldInput_ = block_->Input;
    block_->Input = inputWord(node_);
    if (listens(block_)) block_->Output &= ~kLowByte;
}

FitMonitor::~FitMonitor() {
    if (block_) block_->Input = oldInput_;
}

void FitMonitor::setScale(double scale, std::uint64_t points) noexcept {
    scale_ = scale;
    points_ = points;
}

void FitMonitor::setRateGrid(const double* rates, std::uint64_t count) noexcept {
    rates_ = rates;
    rateCount_ = count;
}

MultiParamCallback FitMonitor::callback() const noexcept {
    return listens(block_) ? monitorFit : nullptr;
}

std::uint32_t FitMonitor::handle(MultiParamFit& fit, std::uint32_t code) {
    if (!listens(block_)) return kSuccess;
    switch (code) {
        case NUV64_FIT_BEGIN:
            begin();
            break;
        case NUV64_FIT_EVALUATED:
            return stopAsked() ? status::kTooManyCalls : kSuccess;
        case NUV64_FIT_BEST:
            return progress(fit);
        case NUV64_FIT_END:
            end(fit);
            break;
        default:
            break;
    }
    return kSuccess;
}

bool FitMonitor::stopAsked() const noexcept {
    return (block_->Output & kLowByte) != 0;
}

void FitMonitor::begin() {
    counter_ = 0;
    block_->Input = (inputWord(node_) & ~kLowByte) | 1;
    block_->Callback(EvFitBegin, block_);
}

std::uint32_t FitMonitor::progress(MultiParamFit& fit) {
    if (counter_ % kCallsPerCurve == 0) showCurve(fit);
    ++counter_;
    const double meanScore = fit.bestScore / static_cast<double>(points_);
    notifyText(block_, EvFitProgress,
               "n calls: %llu/%llu\ntarget function: %g\nRMS deviations: %g\nwait please...",
               wide(fit.calls), wide(fit.maxCalls), fit.bestScore,
               std::fabs(scale_) * std::sqrt(meanScore));
    return stopAsked() ? status::kTooManyCalls : kSuccess;
}

void FitMonitor::end(const MultiParamFit& fit) {
    counter_ = 0;
    notifyText(block_, EvFitEnd, "n calls: %llu\ntarget function: %g\nwait please...finished",
               wide(fit.calls), fit.bestScore);
}

// A picture for the host; a failure only leaves it out.
void FitMonitor::showCurve(const MultiParamFit& fit) {
    cKoData* zone = block_->Data ? block_->Data->ChildAt(zoneIndex_) : nullptr;
    if (!rates_ || !zone || fit.parameterCount == 0) return;
    const std::uint64_t count = std::min(rateCount_, fit.parameterCount - 1);
    const std::uint32_t status = guardStatus([&] {
        std::vector<double> weights(count);
        for (std::uint64_t k = 0; k < count; ++k) {
            weights[k] = scale_ * std::exp(*fit.parameters[k]);
        }
        return zone->MergeEvaluatedFront(rates_, weights.data(), count);
    });
    if (status != kSuccess) return;
    EvpRecord changed = emptyStep();
    changed.Procedure = IltProcedure;
    changed.Level = 1;
    changed.Zone = zoneIndex_;
    notify(block_, EvStepChangedData, &changed);
}

}  // namespace nuv64
