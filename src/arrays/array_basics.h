// The life of a bare array of any element type: make, copy, fill. The array families are thin
// members over these, so that they agree in their statuses and in what counts as too large.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "core/guard.h"
#include "core/owned.h"

namespace nuv64 {

// calloc: large blocks come from the system as zeros already.
template <class T>
[[nodiscard]] Owned<T> tryAllocateZeros(std::uint64_t n) noexcept {
    if (n > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T)) return {};
    return Owned<T>(static_cast<T*>(std::calloc(n, sizeof(T))));
}

namespace detail {

// The shape of all makers: allocate says how.
template <class T, class Allocate>
T* makeArray(std::uint32_t* err, std::uint64_t n, Allocate&& allocate) noexcept {
    if (err) *err = kSuccess;
    if (n == 0) return nullptr;
    Owned<T> block = allocate(n);
    if (!block && err) *err = kAllocationFailure;
    return block.release();
}

}  // namespace detail

template <class T>
T* newArray(std::uint32_t* err, std::uint64_t n) noexcept {
    return detail::makeArray<T>(err, n, [](std::uint64_t count) { return tryAllocate<T>(count); });
}

template <class T>
T* newZeroArray(std::uint32_t* err, std::uint64_t n) noexcept {
    return detail::makeArray<T>(err, n,
                                [](std::uint64_t count) { return tryAllocateZeros<T>(count); });
}

template <class T>
T* newArrayCopy(std::uint32_t* err, std::uint64_t n, const T* source) noexcept {
    T* const copy = newArray<T>(err, source ? n : 0);
    if (copy) std::memcpy(copy, source, n * sizeof(T));
    return copy;
}

// Upward, element by element: a destination that begins within the source sees what was written
// before. For all others that is what memmove does.
template <class T>
std::uint32_t copyArray(std::uint64_t n, const T* source, T* destination) noexcept {
    if (n == 0) return kSuccess;
    if (!destination) return 18;
    if (!source) return 14;
    const std::uintptr_t distance =
        reinterpret_cast<std::uintptr_t>(destination) - reinterpret_cast<std::uintptr_t>(source);
    if (distance == 0 || distance >= n * sizeof(T)) {
        std::memmove(destination, source, n * sizeof(T));
    } else {
        for (std::uint64_t i = 0; i < n; ++i) destination[i] = source[i];
    }
    return kSuccess;
}

template <class T>
std::uint32_t fillArray(std::uint64_t n, T* array, T value) noexcept {
    if (n == 0) return kSuccess;
    if (!array) return 18;
    for (std::uint64_t i = 0; i < n; ++i) array[i] = value;
    return kSuccess;
}

}  // namespace nuv64
