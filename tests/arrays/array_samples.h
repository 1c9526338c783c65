// Sample arrays for the tests of the array functions.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace samples {

inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline const double kQuietNan = std::numeric_limits<double>::quiet_NaN();

inline std::vector<std::uint64_t> lengths() {
    std::vector<std::uint64_t> result;
    for (std::uint64_t n = 1; n <= 70; ++n) result.push_back(n);
    for (std::uint64_t n : {1023, 1024, 1025, 100003}) result.push_back(n);
    return result;
}

inline constexpr std::uint64_t kLong = 1000000;

// The same with the longest of all, for what is quick enough.
inline std::vector<std::uint64_t> allLengths() {
    std::vector<std::uint64_t> result = lengths();
    result.back() = kLong;
    return result;
}

inline std::vector<double> random(std::uint64_t n, std::uint64_t seed = 1) {
    std::mt19937_64 source(seed + 1000 * n);
    std::uniform_real_distribution<double> uniform(-10.0, 10.0);
    std::vector<double> values(n);
    for (double& x : values) x = uniform(source);
    return values;
}

// Random values with zeros, infinities, not-a-numbers and repeated values among them.
inline std::vector<double> rough(std::uint64_t n, std::uint64_t seed = 2) {
    const double special[] = {0.0, -0.0, kInf, -kInf, kQuietNan, 3.0, 3.0, -3.0};
    std::vector<double> values = random(n, seed);
    for (std::uint64_t i = 0; i < n; i += 3) values[i] = special[(i / 3 + n) % 8];
    return values;
}

inline std::vector<std::uint64_t> bits(const std::vector<double>& values) {
    std::vector<std::uint64_t> result;
    result.reserve(values.size());
    for (double x : values) {
        result.push_back(std::isnan(x) ? UINT64_MAX : std::bit_cast<std::uint64_t>(x));
    }
    return result;
}

}  // namespace samples
