// The inner loop of all fits of exponentials.
#pragma once

#include <cstdint>

namespace nuv64 {

// model[i] += weight * exp(-rate*x[i]) for n points.
//
// The exponential is computed here, the same to the last bit on every platform (the runtimes
// differ, and with them the paths of searches), in a form that compilers turn into vector code.
// Error below 1 unit in the last place; arguments below -708 give 0, above 709.78 infinity. A
// not-a-number goes through.
void addDecay(std::uint64_t n, const double* x, double weight, double rate, double* model) noexcept;

}  // namespace nuv64
