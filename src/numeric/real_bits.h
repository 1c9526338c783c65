// Doubles by their bits, for the tests and marks of the special values.
#pragma once

#include <bit>
#include <cstdint>

namespace nuv64 {

inline constexpr std::uint64_t kExponentBits = 0x7FF0000000000000;
inline constexpr std::uint64_t kSignBit = 0x8000000000000000;
inline constexpr std::uint64_t kErrorRealBits = 0xFFFF000000000000;

// No result: a not-a-number or an infinity.
constexpr bool isNoResult(double x) noexcept {
    return (std::bit_cast<std::uint64_t>(x) & kExponentBits) == kExponentBits;
}

constexpr double errorReal(std::uint32_t status) noexcept {
    return std::bit_cast<double>(kErrorRealBits | status);
}

// The same value as ___NAN, for constants.
inline constexpr double kNoResult = errorReal(0);

}  // namespace nuv64
