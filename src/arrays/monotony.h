// Whether an array goes one way; one test for arrays of every element type.
#pragma once

#include <bit>
#include <cstdint>

namespace nuv64 {

// The bits of an element as an unsigned integer of its width: what the tests compare.
template <class Element>
auto wordOf(Element x) noexcept {
    if constexpr (sizeof(Element) == 8) {
        return std::bit_cast<uint64_t>(x);
    } else {
        return std::bit_cast<uint32_t>(x);
    }
}

// offends(previous, next) tells of a pair that breaks the order; the place of its second element is
// stored.
template <class Element, class Offends>
bool isMonotone(uint64_t n, const Element* array, uint64_t* index, Offends offends) noexcept {
    if (!array || n < 2) return false;
    if (index) *index = UINT64_MAX;
    for (uint64_t i = 1; i < n; ++i) {
        if (!offends(wordOf(array[i - 1]), wordOf(array[i]))) continue;
        if (index) *index = i;
        return false;
    }
    return true;
}

template <class Element>
bool isIncreasing(uint64_t n, const Element* array, bool strict, uint64_t* index) noexcept {
    return isMonotone(n, array, index, [strict](auto previous, auto next) {
        return previous > next || (strict && previous == next);
    });
}

template <class Element>
bool isDecreasing(uint64_t n, const Element* array, bool strict, uint64_t* index) noexcept {
    return isMonotone(n, array, index, [strict](auto previous, auto next) {
        return previous < next || (strict && previous == next);
    });
}

}  // namespace nuv64
