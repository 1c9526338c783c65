#include "nuv64/arrays/real_shifts.h"

#include <algorithm>
#include <cstring>

#include "arrays/element_loops.h"

using namespace nuv64;

namespace {

// Blocks that may overlap; count may be 0.
void moveElements(uint64_t count, const double* from, double* to) noexcept {
    if (count != 0 && from != to) std::memmove(to, from, count * sizeof(double));
}

// The part of k that keeps elements in the array: its magnitude, at most n.
uint64_t placesOf(int64_t k, uint64_t n) noexcept {
    const uint64_t size = k < 0 ? 0 - static_cast<uint64_t>(k) : static_cast<uint64_t>(k);
    return std::min(size, n);
}

// out[i] = in[i - k]; the places left are filled with what lowFill or highFill say.
uint32_t shift(uint64_t n, const double* in, double* out, int64_t k, double lowFill,
               double highFill) noexcept {
    const uint64_t places = placesOf(k, n);
    if (k >= 0) {
        moveElements(n - places, in, out + places);
        std::fill_n(out, places, lowFill);
    } else {
        moveElements(n - places, in + places, out);
        std::fill_n(out + (n - places), places, highFill);
    }
    return kSuccess;
}

uint64_t rotationStep(uint64_t n, int64_t k) noexcept {
    const uint64_t size = k < 0 ? 0 - static_cast<uint64_t>(k) : static_cast<uint64_t>(k);
    const uint64_t step = k < 0 ? n - size % n : size % n;
    return static_cast<uint32_t>(step) % n;
}

}  // namespace

uint32_t RArrReverse(uint64_t n, const double* in, double* out) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (in == out) {
        std::reverse(out, out + n);
    } else {
        std::reverse_copy(in, in + n, out);
    }
    return kSuccess;
}

uint32_t RArrIpReverse(uint64_t n, double* array) noexcept {
    return RArrReverse(n, array, array);
}

uint32_t RArrRotate(uint64_t n, const double* in, double* out, int64_t k) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (n == 0) return kSuccess;
    const uint64_t first = (n - rotationStep(n, k)) % n;  // the element that moves to index 0
    if (in == out) {
        std::rotate(out, out + first, out + n);
    } else {
        std::rotate_copy(in, in + first, in + n, out);
    }
    return kSuccess;
}

uint32_t RArrIpRotate(uint64_t n, double* array, int64_t k) noexcept {
    return RArrRotate(n, array, array, k);
}

uint32_t RArrShiftZ(uint64_t n, const double* in, double* out, int64_t k) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    return shift(n, in, out, k, 0.0, 0.0);
}

uint32_t RArrIpShiftZ(uint64_t n, double* array, int64_t k) noexcept {
    return RArrShiftZ(n, array, array, k);
}

uint32_t RArrShiftR(uint64_t n, const double* in, double* out, int64_t k) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    if (n == 0) return kSuccess;
    return shift(n, in, out, k, in[0], in[n - 1]);
}

uint32_t RArrIpShiftR(uint64_t n, double* array, int64_t k) noexcept {
    return RArrShiftR(n, array, array, k);
}

uint32_t RArrSwapHalfs(uint64_t n, const double* in, double* out) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    const uint64_t half = n / 2;
    const uint64_t upper = n - half;
    if (in == out) {
        std::swap_ranges(out, out + half, out + upper);
    } else {
        moveElements(half, in + upper, out);
        moveElements(upper - half, in + half, out + half);
        moveElements(half, in, out + upper);
    }
    return kSuccess;
}

uint32_t RArrIpSwapHalfs(uint64_t n, double* array) noexcept {
    return RArrSwapHalfs(n, array, array);
}

uint32_t RArrZeroLowerHalf(uint64_t n, const double* in, double* out) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    const uint64_t lower = n - n / 2;
    moveElements(n / 2, in + lower, out + lower);
    std::fill_n(out, lower, 0.0);
    return kSuccess;
}

uint32_t RArrZeroUpperHalf(uint64_t n, const double* in, double* out) noexcept {
    if (const uint32_t status = checkInOut(in, out)) return status;
    moveElements(n / 2, in, out);
    std::fill_n(out + n / 2, n - n / 2, 0.0);
    return kSuccess;
}
