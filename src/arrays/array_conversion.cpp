#include "nuv64/arrays/array_conversion.h"

#include "arrays/array_basics.h"

using namespace nuv64;

namespace {

template <class From, class To>
uint32_t convertArray(uint64_t n, const From* source, To* destination) noexcept {
    if (n == 0) return kSuccess;
    if (!source) return 14;
    if (!destination) return 18;
    for (uint64_t i = 0; i < n; ++i) destination[i] = static_cast<To>(source[i]);
    return kSuccess;
}

// Only whether the array can be had: its content could reach nobody.
template <class To>
To* tryRoom(uint32_t* err, uint64_t n) noexcept {
    const Owned<To> room(newArray<To>(err, n));
    return nullptr;
}

}  // namespace

uint32_t RArrFillFromFArr(uint64_t n, const float* source, double* destination) noexcept {
    return convertArray(n, source, destination);
}

uint32_t FArrFillFromRArr(uint64_t n, const double* source, float* destination) noexcept {
    return convertArray(n, source, destination);
}

uint32_t RArrFillFromIQArr(uint64_t n, const int64_t* source, double* destination) noexcept {
    return convertArray(n, source, destination);
}

uint32_t RArrFillFromUQArr(uint64_t n, const uint64_t* source, double* destination) noexcept {
    return convertArray(n, source, destination);
}

double* RArrNewFromFArr(uint32_t* err, uint64_t n, const float*) noexcept {
    return tryRoom<double>(err, n);
}

float* FArrNewFromRArr(uint32_t* err, uint64_t n, const double*) noexcept {
    return tryRoom<float>(err, n);
}

double* RArrNewFromIQArr(uint32_t* err, uint64_t n, const int64_t*) noexcept {
    return tryRoom<double>(err, n);
}

double* RArrNewFromUQArr(uint32_t* err, uint64_t n, const uint64_t*) noexcept {
    return tryRoom<double>(err, n);
}
