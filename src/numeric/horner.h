// Polynomials with stored coefficients, from the low term up.
#pragma once

#include <array>
#include <cstddef>

namespace nuv64 {

template <std::size_t N>
constexpr double horner(const double (&coefs)[N], double x) noexcept {
    double value = coefs[N - 1];
    for (std::size_t k = N - 1; k > 0; --k) value = coefs[k - 1] + x * value;
    return value;
}

template <std::size_t N>
constexpr double horner(const std::array<double, N>& coefs, double x) noexcept {
    double value = coefs[N - 1];
    for (std::size_t k = N - 1; k > 0; --k) value = coefs[k - 1] + x * value;
    return value;
}

}  // namespace nuv64
