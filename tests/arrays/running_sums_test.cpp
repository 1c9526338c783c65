#include "nuv64/arrays/running_sums.h"

#include <gtest/gtest.h>

#include "arrays/operation_cases.h"

namespace {

using samples::OperationCase;
using samples::Values;

Values plainTrapez(const Values& a) {
    Values out(a);
    if (a.empty()) return out;
    out[0] = 0.5 * a[0];
    for (size_t i = 1; i < a.size(); ++i) out[i] = out[i - 1] + a[i];
    out.back() -= 0.5 * a.back();
    return out;
}

double interval(double inner1, double inner2, double outer1, double outer2) {
    return 13.0 / 24.0 * (inner1 + inner2) - 1.0 / 24.0 * (outer1 + outer2);
}

double interval(double from, double inner1, double inner2, double outer1, double outer2) {
    return from + 13.0 / 24.0 * (inner1 + inner2) - 1.0 / 24.0 * (outer1 + outer2);
}

Values plainModTrapez(const Values& a, double before, double after) {
    const size_t n = a.size();
    Values out(a);
    if (n == 0) return out;
    out[0] = 0.0;
    if (n == 2) out[1] = interval(a[0], a[1], before, after);
    if (n < 3) return out;
    out[1] = interval(a[0], a[1], before, a[2]);
    for (size_t i = 2; i + 2 < n; ++i) {
        out[i] = interval(out[i - 1], a[i - 1], a[i], a[i - 2], a[i + 1]);
    }
    if (n == 3) {
        out[2] = interval(out[1], a[1], a[2], a[0], after);
    } else {
        out[n - 1] = interval(a[n - 2], a[n - 3], a[n - 1], a[n - 4], after);
    }
    return out;
}

std::vector<OperationCase> runs() {
    return {{"RunningSum", RArrRunningSum, RArrIpRunningSum,
             [](Values a) {
                 for (size_t i = 1; i < a.size(); ++i) a[i] = a[i - 1] + a[i];
                 return a;
             }},
            {"RunningProduct", RArrRunningProduct, RArrIpRunningProduct,
             [](Values a) {
                 for (size_t i = 1; i < a.size(); ++i) a[i] = a[i - 1] * a[i];
                 return a;
             }},
            {"RunningTrapez2", RArrRunningTrapez2, RArrIpRunningTrapez2, plainTrapez},
            {"RunningModTrapez",
             [](uint64_t n, const double* a, double* b) {
                 return RArrRunningModTrapez(n, a, b, 0.75, -1.25);
             },
             [](uint64_t n, double* a) { return RArrIpRunningModTrapez(n, a, 0.75, -1.25); },
             [](const Values& a) { return plainModTrapez(a, 0.75, -1.25); }}};
}

TEST(RunningSums, FollowTheirRecurrences) {
    samples::expectPlainOnAll(runs());
}

TEST(RunningSums, TestPointersBeforeTheCount) {
    samples::expectPointerTests(runs());
    samples::expectPointerTests({{"SelfDiff",
                                  [](uint64_t n, const double* a, double* b) {
                                      return RArrSelfDiff(n, a, b, n == 0 ? 0 : 1);
                                  },
                                  {},
                                  {}}});
}

TEST(RunningSums, TrapezoidalSumStandsInTheLastElement) {
    double a[] = {1.0, 2.0, 4.0};
    EXPECT_EQ(RArrIpRunningTrapez2(3, a), 0u);
    EXPECT_EQ(Values(a, a + 3), (Values{0.5, 2.5, 4.5}));
    double one[] = {3.0};
    EXPECT_EQ(RArrIpRunningTrapez2(1, one), 0u);
    EXPECT_EQ(one[0], 0.0);
}

TEST(RunningSums, CubicsAreIntegratedExactly) {
    const auto cubic = [](double x) { return 1.0 + x * (2.0 + x * (-0.5 + x * 0.25)); };
    const auto integral = [](double x) {
        return x * (1.0 + x * (1.0 + x * (-0.5 / 3.0 + x * 0.0625)));
    };
    Values a;
    for (int i = 0; i < 12; ++i) a.push_back(cubic(i));
    Values out(a.size());
    EXPECT_EQ(RArrRunningModTrapez(12, a.data(), out.data(), cubic(-1), cubic(12)), 0u);
    for (int i = 0; i < 10; ++i) EXPECT_NEAR(out[i], integral(i), 1e-11 * integral(12));
    EXPECT_EQ(out[10], a[10]);
    for (uint64_t n : {2, 3}) {
        const double end = static_cast<double>(n);
        EXPECT_EQ(RArrRunningModTrapez(n, a.data(), out.data(), cubic(-1), cubic(end)), 0u);
        for (uint64_t i = 0; i < n; ++i) {
            EXPECT_NEAR(out[i], integral(static_cast<double>(i)), 1e-13);
        }
    }
}

// What is not written keeps `before`.
Values plainSelfDiff(const Values& in, const Values& before, int64_t k) {
    const int64_t n = static_cast<int64_t>(in.size());
    Values out(before);
    if (k == 0) return Values(in.size(), 0.0);
    if (k > n || k < -n) return out;
    for (int64_t i = 0; i < n; ++i) {
        if (i + k >= 0 && i + k < n) out[i] = in[i] - in[i + k];
    }
    return out;
}

TEST(RunningSums, SelfDifferences) {
    const int64_t distances[] = {0, 1, -1, 2, -3, 17, -64, 1024, -5000, INT64_MAX, INT64_MIN};
    for (const samples::Kind& kind : samples::kinds()) {
        for (uint64_t n : samples::shortLengths()) {
            if (n == 0) continue;
            for (int64_t k : distances) {
                const Values in = kind.make(n);
                Values out(n, 7.0), same(in);
                EXPECT_EQ(RArrSelfDiff(n, in.data(), out.data(), k), 0u);
                const Values expected = plainSelfDiff(in, Values(n, 7.0), k);
                EXPECT_EQ(samples::firstDifference(n, out.data(), expected.data()), n) << n << k;
                EXPECT_EQ(RArrSelfDiff(n, same.data(), same.data(), k), 0u);
                const Values expectedSame = plainSelfDiff(in, in, k);
                EXPECT_EQ(samples::firstDifference(n, same.data(), expectedSame.data()), n)
                    << n << k;
            }
        }
    }
    const Values in = samples::rough(samples::kLong);
    for (int64_t k : {3, -3}) {
        Values same(in);
        EXPECT_EQ(RArrSelfDiff(same.size(), same.data(), same.data(), k), 0u);
        const Values expected = plainSelfDiff(in, in, k);
        EXPECT_EQ(samples::firstDifference(in.size(), same.data(), expected.data()), in.size());
    }
}

}  // namespace
