// From doubles to integers without undefined behaviour: every conversion in the module goes through
// one of these. Also the digit-wise decomposition that number printing and axis labels share.
//
// The rounding family answers with a value that is always in range and with a word of flags:
// 0x40 the rounding changed the value, 0x400 the value is so large that the double has no unit
// digit left and it was truncated, and one of the overflow pairs below. All ones is the module's
// invalid value, so the unsigned limits are all ones minus 1.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/optional_output.h"

namespace nuv64 {

inline constexpr std::uint32_t kRoundingInexact = 0x40;
inline constexpr std::uint32_t kRoundingPrecisionLimit = 0x400;
inline constexpr std::uint32_t kLongOverflow = 0x1100;
inline constexpr std::uint32_t kLongUnderflow = 0x2200;
inline constexpr std::uint32_t kQlongOverflow = 0x4100;
inline constexpr std::uint32_t kQlongUnderflow = 0x8200;
inline constexpr std::uint32_t kDwordOverflow = 0x10100;
inline constexpr std::uint32_t kDwordUnderflow = 0x20200;
inline constexpr std::uint32_t kQwordOverflow = 0x40100;
inline constexpr std::uint32_t kQwordUnderflow = 0x80200;

inline constexpr double kTwoTo63 = 9223372036854775808.0;
inline constexpr double kTwoTo64 = 18446744073709551616.0;
inline constexpr double kLastRealWithUnits = 4503599627370495.5;  // 2^52 - 1/2

// Halves away from zero; not-a-number and infinities unchanged, the sign of zero kept.
inline double roundHalfAway(double x) noexcept {
    if (!(std::fabs(x) <= kLastRealWithUnits)) return x;
    double whole = static_cast<double>(static_cast<std::int64_t>(x));
    if (std::fabs(x - whole) >= 0.5) whole += std::copysign(1.0, x);
    return std::copysign(whole, x);
}

// Truncation towards zero; not-a-number gives 0, values outside the range give the nearer limit.
inline std::int32_t clampToLong(double x) noexcept {
    if (!(x > -2147483648.0)) return x < 0.0 ? std::numeric_limits<std::int32_t>::min() : 0;
    if (x >= 2147483648.0) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(x);
}

inline std::int64_t clampToQlong(double x) noexcept {
    if (!(x > -kTwoTo63)) return x < 0.0 ? std::numeric_limits<std::int64_t>::min() : 0;
    if (x >= kTwoTo63) return std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(x);
}

inline std::uint32_t clampToDword(double x) noexcept {
    if (!(x > 0.0)) return 0;
    if (x >= 4294967296.0) return std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(x);
}

inline std::uint64_t clampToQword(double x) noexcept {
    if (!(x > 0.0)) return 0;
    if (x >= kTwoTo64) return std::numeric_limits<std::uint64_t>::max();
    return static_cast<std::uint64_t>(x);
}

// Truncation that answers 0x8000000000000000, the signed invalid value, for not-a-number and for
// magnitudes at or above 2^63.
inline std::int64_t truncateToQlong(double x) noexcept {
    if (!(std::fabs(x) < kTwoTo63)) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(x);
}

namespace detail {

// x lies in the range of Integer already.
template <class Integer>
Integer roundInRange(double x, std::uint32_t* flags) noexcept {
    if (std::fabs(x) >= kLastRealWithUnits) {
        store(flags, kRoundingPrecisionLimit);
        return static_cast<Integer>(x);
    }
    const double rounded = roundHalfAway(x);
    store(flags, rounded == x ? 0 : kRoundingInexact);
    return static_cast<Integer>(rounded);
}

// Divides a finite magnitude of at least 10 by 10 until it is below 10, counting the steps. Each
// quotient is rounded as doubles are, but by integers, which takes half the time of a division: the
// tenth of a significand m of 53 bits is 8m/5 or 4m/5, whichever has 53 bits again. A fifth is
// never a tie, so that rounding to the nearest is taking the whole part of (8m + 2)/5, and that is
// a product's high half (Granlund and Montgomery, ACM SIGPLAN Notices 29(6), 61, 1994).
inline double dividedByTens(double magnitude, std::int32_t& steps) noexcept {
    __extension__ using Wide = unsigned __int128;
    constexpr std::uint64_t one = std::uint64_t{1} << 52;
    constexpr std::uint64_t oneAndAQuarter = one + (one >> 2);
    constexpr std::uint64_t fifth = 0x3333333333333334;  // 2^64 / 5, exact enough below 2^62
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    std::uint64_t significand = (bits & (one - 1)) | one;
    std::uint64_t exponent = bits >> 52;
    constexpr std::uint64_t exponentOf8 = 1023 + 3;
    while (exponent > exponentOf8 || (exponent == exponentOf8 && significand >= oneAndAQuarter)) {
        const bool small = significand < oneAndAQuarter;
        const std::uint64_t dividend = small ? 8 * significand + 2 : 4 * significand + 2;
        significand = static_cast<std::uint64_t>(Wide{dividend} * fifth >> 64);
        exponent -= small ? 4 : 3;
        ++steps;
    }
    return std::bit_cast<double>(exponent << 52 | (significand & (one - 1)));
}

}  // namespace detail

// The four below replace *flags (which may be null). A not-a-number counts as below the range.
inline std::int32_t realRoundToLong(double x, std::uint32_t* flags = nullptr) noexcept {
    if (!(x > -2147483647.5)) return store(flags, kLongUnderflow), -0x7FFFFFFF;
    if (x >= 2147483647.5) return store(flags, kLongOverflow), 0x7FFFFFFF;
    return detail::roundInRange<std::int32_t>(x, flags);
}

inline std::int64_t realRoundToQlong(double x, std::uint32_t* flags = nullptr) noexcept {
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max();
    if (!(x > -kTwoTo63)) return store(flags, kQlongUnderflow), -limit;
    if (x >= kTwoTo63) return store(flags, kQlongOverflow), limit;
    return detail::roundInRange<std::int64_t>(x, flags);
}

inline std::uint32_t realRoundToDword(double x, std::uint32_t* flags = nullptr) noexcept {
    if (!(x >= 0.0)) return store(flags, kDwordUnderflow), 0;
    if (x >= 4294967294.5) return store(flags, kDwordOverflow), 0xFFFFFFFE;
    return detail::roundInRange<std::uint32_t>(x, flags);
}

inline std::uint64_t realRoundToQword(double x, std::uint32_t* flags = nullptr) noexcept {
    if (!(x >= 0.0)) return store(flags, kQwordUnderflow), 0;
    if (x >= kTwoTo64) return store(flags, kQwordOverflow), 0xFFFFFFFFFFFFFFFE;
    return detail::roundInRange<std::uint64_t>(x, flags);
}

// x = m * radix^exponent with 1 <= |m| < radix, by repeated division or multiplication (each step
// rounds; printed digits depend on that). Infinities and not-a-numbers come back with exponent 0, a
// zero comes back with exponent 0x80000001, radix 1 and below gives the module's not-a-number.
inline double mantissaAndExponent(double x, std::int32_t* exponent, std::int32_t radix) noexcept {
    std::int32_t unused;
    std::int32_t& steps = exponent ? *exponent : unused;
    steps = 0;
    if (!std::isfinite(x)) return x;
    if (radix <= 1) {
        constexpr std::uint64_t notANumber = 0xFFFF000000000000;
        return std::bit_cast<double>(notANumber);
    }
    if (x == 0.0) {
        steps = -0x7FFFFFFF;
        return x;
    }
    double magnitude = std::fabs(x);
    if (radix == 10 && magnitude >= 10.0) magnitude = detail::dividedByTens(magnitude, steps);
    for (; magnitude >= radix; ++steps) magnitude /= radix;
    for (; magnitude < 1.0; --steps) magnitude *= radix;
    return std::copysign(magnitude, x);
}

}  // namespace nuv64
