// 128-bit intermediates and the inverse modulo m.
#pragma once

#include <cstdint>
#include <numeric>
#include <utility>

namespace nuv64 {

__extension__ using Wide128 = unsigned __int128;

constexpr std::uint64_t mulMod(std::uint64_t a, std::uint64_t b, std::uint64_t m) noexcept {
    return static_cast<std::uint64_t>(static_cast<Wide128>(a) * b % m);
}

// The x below m with a*x = 1 mod m, by the extended algorithm of Euclid. a and m coprime, m not 0.
constexpr std::uint64_t inverseMod(std::uint64_t a, std::uint64_t m) noexcept {
    std::uint64_t rest = m;
    std::uint64_t next = a % m;
    // Factors of a that give rest and next, modulo m.
    std::uint64_t restFactor = 0;
    std::uint64_t nextFactor = 1 % m;
    while (next != 0) {
        const std::uint64_t quotient = rest / next;
        const std::uint64_t taken = mulMod(quotient, nextFactor, m);
        restFactor = restFactor >= taken ? restFactor - taken : restFactor + (m - taken);
        std::swap(restFactor, nextFactor);
        rest -= quotient * next;
        std::swap(rest, next);
    }
    return restFactor;
}

}  // namespace nuv64
