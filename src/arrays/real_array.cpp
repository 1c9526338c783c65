#include "nuv64/arrays/real_array.h"

#include <cstdlib>

#include "core/guard.h"
#include "core/owned.h"

using namespace nuv64;

namespace {

// The shape of all makers: allocate says how.
template <class Allocate>
double* makeArray(uint32_t* err, uint64_t n, Allocate&& allocate) noexcept {
    if (err) *err = kSuccess;
    if (n == 0) return nullptr;
    Owned<double> block = allocate(n);
    if (!block && err) *err = kAllocationFailure;
    return block.release();
}

// calloc: large blocks come from the system as zeros already.
Owned<double> tryAllocateZeros(uint64_t n) noexcept {
    if (n > SIZE_MAX / 2 / sizeof(double)) return {};
    return Owned<double>(static_cast<double*>(std::calloc(n, sizeof(double))));
}

}  // namespace

double* RArrNew(uint32_t* err, uint64_t n) noexcept {
    return makeArray(err, n, [](uint64_t count) { return tryAllocate<double>(count); });
}

double* RArrNew0(uint32_t* err, uint64_t n) noexcept {
    return makeArray(err, n, [](uint64_t count) { return tryAllocateZeros(count); });
}

double* RArrNewCopy(uint32_t* err, uint64_t n, const double* source) noexcept {
    double* const copy = RArrNew(err, source ? n : 0);
    if (copy) std::memcpy(copy, source, n * sizeof(double));
    return copy;
}

uint32_t RArrCopy(uint64_t n, const double* source, double* destination) noexcept {
    if (n == 0) return kSuccess;
    if (!destination) return 18;
    if (!source) return 14;
    for (uint64_t i = 0; i < n; ++i) destination[i] = source[i];
    return kSuccess;
}

uint32_t RArrFill(uint64_t n, double* array, double value) noexcept {
    if (n == 0) return kSuccess;
    if (!array) return 18;
    for (uint64_t i = 0; i < n; ++i) array[i] = value;
    return kSuccess;
}

uint32_t RArrZero(uint64_t n, double* array) noexcept {
    return RArrFill(n, array, 0.0);
}
