// Lets the host watch a long fit and stop it.
#pragma once

#include <cstdint>

#include "nuv64/core/types.h"
#include "nuv64/fits/multi_param_fit.h"

namespace nuv64 {

// Lives on the stack of the procedure that fits, for the length of its fits. While it lives, Input
// of the block is the node in work (event 60 and the texts of 63 and 64 pass through it); then the
// old value comes back. The host's stop byte is cleared once, at the start: a stop ends all further
// searches of the same procedure, too.
class FitMonitor {
  public:
    FitMonitor(NuvCommandBlock* block, cKoData& node) noexcept;
    ~FitMonitor();
    FitMonitor(const FitMonitor&) = delete;
    FitMonitor& operator=(const FitMonitor&) = delete;

    // Scale of the values that the search works on, to those of the node; and their number. The
    // root mean square deviation that the host is told is scale*sqrt(score/points).
    void setScale(double scale, std::uint64_t points) noexcept;
    // For searches whose parameters are logarithms of weights on a grid of rates: the weights so
    // far go to the zone as an intermediate curve. rates must outlive the monitor.
    void setRateGrid(const double* rates, std::uint64_t count) noexcept;

    // The progress callback to hand to the fit; null when nobody listens.
    MultiParamCallback callback() const noexcept;

    std::uint32_t handle(MultiParamFit& fit, std::uint32_t code);

  private:
    void begin();
    std::uint32_t progress(MultiParamFit& fit);
    void end(const MultiParamFit& fit);
    void showCurve(const MultiParamFit& fit);
    bool stopAsked() const noexcept;

    NuvCommandBlock* block_;
    cKoData* node_;
    std::uint64_t zoneIndex_ = 0;  // position of the node among its siblings
    std::uint64_t oldInput_ = 0;
    std::uint64_t counter_ = 0;  // of progress calls
    double scale_ = 1.0;
    std::uint64_t points_ = 1;
    const double* rates_ = nullptr;
    std::uint64_t rateCount_ = 0;
};

}  // namespace nuv64
