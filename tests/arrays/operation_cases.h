// Operations of the form (n, in, out) held against a plain formulation: every length, several kinds
// of data, out of place and in place, bit for bit, and nothing written behind the end.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "arrays/array_samples.h"

namespace samples {

using Values = std::vector<double>;

struct Kind {
    const char* name;
    Values (*make)(std::uint64_t n);
};

inline Values equal(std::uint64_t n) {
    return Values(n, 3.25);
}

inline Values ascending(std::uint64_t n) {
    Values values = random(n, 7);
    std::sort(values.begin(), values.end());
    return values;
}

inline Values descending(std::uint64_t n) {
    Values values = ascending(n);
    std::reverse(values.begin(), values.end());
    return values;
}

inline const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all = {{"random", [](std::uint64_t n) { return random(n); }},
                                          {"rough", [](std::uint64_t n) { return rough(n); }},
                                          {"equal", equal},
                                          {"ascending", ascending},
                                          {"descending", descending}};
    return all;
}

// 0 to 70 and around 1024.
inline std::vector<std::uint64_t> shortLengths() {
    std::vector<std::uint64_t> result;
    for (std::uint64_t n = 0; n <= 70; ++n) result.push_back(n);
    for (std::uint64_t n : {1023, 1024, 1025}) result.push_back(n);
    return result;
}

// The first place where the two differ in bits, all not-a-numbers being one; n when they agree.
inline std::uint64_t firstDifference(std::uint64_t n, const double* a, const double* b) {
    for (std::uint64_t i = 0; i < n; ++i) {
        if (std::bit_cast<std::uint64_t>(a[i]) == std::bit_cast<std::uint64_t>(b[i])) continue;
        if (a[i] == a[i] || b[i] == b[i]) return i;
    }
    return n;
}

struct OperationCase {
    std::string name;
    std::function<std::uint32_t(std::uint64_t, const double*, double*)> operation;
    std::function<std::uint32_t(std::uint64_t, double*)> inPlace;  // may be empty
    std::function<Values(const Values&)> plain;
};

inline OperationCase elementwise(
    std::string name, std::function<std::uint32_t(std::uint64_t, const double*, double*)> operation,
    std::function<std::uint32_t(std::uint64_t, double*)> inPlace,
    std::function<double(double)> plain) {
    return {std::move(name), std::move(operation), std::move(inPlace), [plain](const Values& in) {
                Values out(in);
                for (double& x : out) x = plain(x);
                return out;
            }};
}

inline void expectPlain(const OperationCase& test, const Values& in, const char* kind) {
    const std::uint64_t n = in.size();
    constexpr double kGuard = 12345.0;
    const Values expected = test.plain(in);
    ASSERT_EQ(expected.size(), n);
    Values out(n + 1, kGuard);
    EXPECT_EQ(test.operation(n, in.data() ? in.data() : &kGuard, out.data()), 0u);
    EXPECT_EQ(firstDifference(n, out.data(), expected.data()), n) << test.name << ' ' << kind << n;
    EXPECT_EQ(out[n], kGuard) << test.name;
    Values same(in);
    same.push_back(kGuard);
    EXPECT_EQ(test.operation(n, same.data(), same.data()), 0u);
    EXPECT_EQ(firstDifference(n, same.data(), expected.data()), n)
        << test.name << " on itself, " << kind << n;
    EXPECT_EQ(same[n], kGuard) << test.name;
    if (!test.inPlace) return;
    std::copy(in.begin(), in.end(), same.begin());
    EXPECT_EQ(test.inPlace(n, same.data()), 0u);
    EXPECT_EQ(firstDifference(n, same.data(), expected.data()), n)
        << test.name << " in place, " << kind << n;
    EXPECT_EQ(same[n], kGuard) << test.name;
}

inline void expectPlainOnAll(const std::vector<OperationCase>& cases, bool withLong = true) {
    for (const Kind& kind : kinds()) {
        for (std::uint64_t n : shortLengths()) {
            const Values in = kind.make(n);
            for (const OperationCase& test : cases) expectPlain(test, in, kind.name);
        }
    }
    if (!withLong) return;
    const Values in = rough(kLong);
    for (const OperationCase& test : cases) expectPlain(test, in, "rough ");
}

// Null pointers, tested before the count.
inline void expectPointerTests(const std::vector<OperationCase>& cases, std::uint32_t nullIn = 14) {
    double one = 1.0;
    for (const OperationCase& test : cases) {
        for (std::uint64_t n : {0, 1}) {
            EXPECT_EQ(test.operation(n, nullptr, nullptr), nullIn) << test.name;
            EXPECT_EQ(test.operation(n, nullptr, &one), nullIn) << test.name;
            EXPECT_EQ(test.operation(n, &one, nullptr), 18u) << test.name;
            if (!test.inPlace) continue;
            EXPECT_EQ(test.inPlace(n, nullptr), nullIn) << test.name;
        }
        EXPECT_EQ(test.operation(0, &one, &one), 0u) << test.name;
        EXPECT_EQ(one, 1.0) << test.name;
    }
}

}  // namespace samples
