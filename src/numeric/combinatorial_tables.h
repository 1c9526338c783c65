// The exact sequences as far as 64 bits hold them, and how their functions report what they don't.
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include "core/optional_output.h"
#include "numeric/modular.h"
#include "nuv64/core/number_reading.h"

namespace nuv64 {

inline constexpr std::uint64_t kNoUnsigned = std::numeric_limits<std::uint64_t>::max();
inline constexpr std::int64_t kNoSigned = std::numeric_limits<std::int64_t>::min();
inline constexpr std::uint64_t kTwoTo63Whole = std::uint64_t{1} << 63;

inline std::uint64_t overflow(std::uint32_t* flags) noexcept {
    store(flags, NUM_OVERFLOW);
    return kNoUnsigned;
}

inline std::int64_t signedOverflow(std::uint32_t* flags) noexcept {
    store(flags, NUM_OVERFLOW);
    return kNoSigned;
}

constexpr std::uint64_t magnitude(std::int64_t n) noexcept {
    const auto bits = static_cast<std::uint64_t>(n);
    return n < 0 ? 0 - bits : bits;
}

// The value with its sign, wrapped into 64 bits.
constexpr std::int64_t withSign(bool negative, std::uint64_t value) noexcept {
    return static_cast<std::int64_t>(negative ? 0 - value : value);
}

// n!, n = 0 to 20.
inline constexpr auto kFactorials = [] {
    std::array<std::uint64_t, 21> table{1};
    for (std::size_t n = 1; n < table.size(); ++n) table[n] = n * table[n - 1];
    return table;
}();
static_assert(kFactorials.back() == 2432902008176640000);

// n!!, n = 0 to 33.
inline constexpr auto kDoubleFactorials = [] {
    std::array<std::uint64_t, 34> table{1, 1};
    for (std::size_t n = 2; n < table.size(); ++n) table[n] = n * table[n - 2];
    return table;
}();
static_assert(kDoubleFactorials.back() == 6332659870762850625);

// C(2n, n)/(n + 1), n = 0 to 36.
inline constexpr auto kCatalanNumbers = [] {
    std::array<std::uint64_t, 37> table{1};
    for (std::size_t n = 1; n < table.size(); ++n) {
        const Wide128 product = static_cast<Wide128>(table[n - 1]) * (4 * n - 2);
        table[n] = static_cast<std::uint64_t>(product / (n + 1));
    }
    return table;
}();
static_assert(kCatalanNumbers.back() == 11959798385860453492u);

// |E(2n)|, n = 0 to 12: the ends of the even rows of the triangle of Seidel, in which each row sums
// the one before it, from alternate ends.
inline constexpr auto kEulerNumbers = [] {
    std::array<std::uint64_t, 13> table{1};
    std::array<std::uint64_t, 26> row{1};
    for (std::size_t n = 1; n <= 24; ++n) {
        // row holds n numbers, the sums begin at its last one.
        std::array<std::uint64_t, 26> next{};
        for (std::size_t i = 0; i < n; ++i) next[i + 1] = next[i] + row[n - 1 - i];
        row = next;
        if (n % 2 == 0) table[n / 2] = row[n];
    }
    return table;
}();
static_assert(kEulerNumbers.back() == 15514534163557086905u);

// The first entries of the rows of Peirce's triangle: each row begins with the last entry of the
// row before it, and sums it up.
inline constexpr auto kBellNumbers = [] {
    std::array<std::uint64_t, 26> table{1};
    std::array<std::uint64_t, 26> row{1};
    for (std::size_t n = 1; n < table.size(); ++n) {
        table[n] = row[n - 1];
        if (n + 1 == table.size()) break;
        std::array<std::uint64_t, 26> next{row[n - 1]};
        for (std::size_t i = 0; i < n; ++i) next[i + 1] = next[i] + row[i];
        row = next;
    }
    return table;
}();
static_assert(kBellNumbers.back() == 4638590332229999353);

template <std::size_t size>
constexpr std::array<std::uint64_t, size> sumsOfTwo(std::uint64_t first, std::uint64_t second) {
    std::array<std::uint64_t, size> table{first, second};
    for (std::size_t n = 2; n < size; ++n) table[n] = table[n - 2] + table[n - 1];
    return table;
}

inline constexpr auto kFibonacciNumbers = sumsOfTwo<94>(0, 1);
inline constexpr auto kLucasNumbers = sumsOfTwo<93>(2, 1);
static_assert(kFibonacciNumbers.back() == 12200160415121876738u);
static_assert(kLucasNumbers.back() == 16860207025497407047u);

}  // namespace nuv64
