// The minimiser behind the MultiParamFit record: owns its lists, runs the searches.
#pragma once

#include <cstdint>

#include "nuv64/fits/multi_param_fit.h"

namespace nuv64 {

// Every fit of the module lets userData point at a record that begins with this, so that one
// progress monitor serves all of them. monitor is whatever the fit's caller handed in, null mostly.
struct FitContext {
    void* monitor = nullptr;
};

class Minimiser : public MultiParamFit {
  public:
    Minimiser(std::uint32_t flags, MultiParamCallback callback, void* userData) noexcept;
    Minimiser(const Minimiser&) = delete;
    Minimiser& operator=(const Minimiser&) = delete;
    ~Minimiser();

    // Copies both lists of count pointers; 14 when one is missing. A count of 0 does nothing.
    std::uint32_t setParameters(std::uint64_t count, double* const* parameters,
                                double* const* fitted);
    std::uint32_t setParameters(std::uint64_t count, double* const* parameters,
                                double* const* fitted, MultiParamScore scoreFunction);
    std::uint32_t run(std::uint64_t method);
    void release() noexcept;
};

}  // namespace nuv64
