// Reductions written as plainly as can be, and the arrays to compare on.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <vector>

#include "arrays/array_samples.h"

namespace samples {

using Values = std::vector<double>;

// Random, rough, equal, sorted and reversed arrays of many lengths.
inline void forEachArray(const std::function<void(const Values&)>& test,
                         std::uint64_t longest = kLong) {
    if (longest == kLong) test(random(kLong));
    for (std::uint64_t n : lengths()) {
        if (n > std::min<std::uint64_t>(longest, 1025)) continue;
        test(random(n));
        test(rough(n));
        test(Values(n, -2.5));
        Values rising(n);
        Values falling(n);
        for (std::uint64_t i = 0; i < n; ++i) {
            rising[i] = 0.25 * static_cast<double>(i);
            falling[i] = 1.0 - rising[i];
        }
        test(rising);
        test(falling);
    }
}

inline bool same(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

// One export of (n, array) and what it should give.
struct Reduction {
    const char* name;
    std::function<double(std::uint64_t, const double*)> exported;
    std::function<double(const Values&)> plain;
};

inline void expectEqualResults(std::uint64_t longest, const std::vector<Reduction>& table) {
    const auto compare = [&](const Values& a) {
        for (const Reduction& row : table) {
            const double got = row.exported(a.size(), a.data());
            const double wanted = row.plain(a);
            EXPECT_TRUE(same(got, wanted))
                << row.name << ' ' << a.size() << ": " << got << ' ' << wanted;
        }
    };
    forEachArray(compare, longest);
}

inline void expectEqualResults(const std::vector<Reduction>& table) {
    expectEqualResults(kLong, table);
}

inline double sumOver(const Values& a, const std::function<double(double)>& term) {
    double sum = 0.0;
    for (double x : a) sum += term(x);
    return sum;
}

inline double backwardSum(const Values& a) {
    double sum = 0.0;
    for (std::size_t i = a.size(); i > 0; --i) sum += a[i - 1];
    return sum;
}

}  // namespace samples
