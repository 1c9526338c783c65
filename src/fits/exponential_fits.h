// The fits of exponentials as the evaluation calls them: with the progress monitor that the
// callback finds in the FitContext behind the minimiser's userData.
#pragma once

#include <cstdint>

#include "nuv64/fits/exponential_fits.h"

namespace nuv64 {

inline constexpr std::uint32_t kHoldOffset = 0x10000;
inline constexpr std::uint32_t kMakeStartValues = 0x20000;
inline constexpr std::uint32_t kScaleByDecay = 0x40000;
inline constexpr std::uint32_t kWeightByStep = 0x80000;

std::uint32_t multiExpFit(std::uint32_t flags, std::uint64_t n, const double* x, const double* y,
                          std::uint64_t components, double* weights, double* rates, double* offset,
                          double* rms, double* residuals, MultiParamCallback callback,
                          void* monitor) noexcept;

std::uint32_t multiExpAutoFit(std::uint32_t flags, std::uint64_t n, const double* x,
                              const double* y, std::uint64_t* components, double* weights,
                              double* rates, double* offset, double* rms, double* residuals,
                              MultiParamCallback callback, void* monitor) noexcept;

}  // namespace nuv64
