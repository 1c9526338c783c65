#include "nuv64/numeric/random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "numeric/random_source.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/special_reals.h"

namespace {

// Park and Miller's own check: from the seed 1 the 10000th number is 1043618065. A source made of
// the seed 0 starts with the state 1 and has gone 40 rounds.
TEST(RandomSource, FollowsThePublishedSequence) {
    nuv64::RandomSource source(0);
    std::int64_t state = 0;
    for (int i = 40; i < 10000; ++i) state = source.next();
    EXPECT_EQ(state, 1043618065);
}

// The shuffle in plain arithmetic.
TEST(RandomSource, ShufflesAsTold) {
    const std::uint64_t seed = 0x123456789ABCDEF0;
    nuv64::RandomSource source(seed);
    std::uint64_t state = ((seed & 0xFFFFFFFF) >> 1) + 1;
    const auto step = [&] { return state = state * 16807 % 2147483647; };
    std::uint64_t table[32];
    for (int i = 39; i >= 0; --i) {
        step();
        if (i < 32) table[i] = state;
    }
    std::uint64_t previous = table[0];
    for (int i = 0; i < 5000; ++i) {
        step();
        const std::uint64_t j = previous / 67108864;
        previous = table[j];
        table[j] = state;
        ASSERT_EQ(source.uniform(), std::fmin(4.656612875245797e-10 * static_cast<double>(previous),
                                              1.0 - ___2EpsReal));
    }
}

TEST(RandomSource, NoSeedGetsStuck) {
    for (const std::uint64_t seed : {0xFFFFFFFCull, 0xFFFFFFFDull, 0xFFFFFFFFull, 0ull, ~0ull}) {
        nuv64::RandomSource source(seed);
        double sum = 0.0;
        for (int i = 0; i < 1000; ++i) {
            const double u = source.uniform();
            ASSERT_GT(u, 0.0);
            ASSERT_LT(u, 1.0);
            sum += u;
        }
        EXPECT_NEAR(sum / 1000, 0.5, 0.06);
    }
}

// A count of bins against its expectation; the mean of the result is the number of bins less 1.
double chiSquare(const std::vector<int>& bins, double expected) {
    double sum = 0.0;
    for (const int bin : bins) sum += (bin - expected) * (bin - expected) / expected;
    return sum;
}

// What chi-square exceeds once in 10^9 times, by the cube of a normal number (Wilson and Hilferty):
// the seeds of the shared source differ from run to run and the test must not.
double chiSquareLimit(std::size_t bins) {
    const double degrees = static_cast<double>(bins - 1);
    const double part = 2.0 / (9.0 * degrees);
    return degrees * std::pow(1.0 - part + 6.0 * std::sqrt(part), 3);
}

std::size_t binOf(double u, std::size_t bins) {
    return static_cast<std::size_t>(u * static_cast<double>(bins));
}

template <class Draw>
void expectEven(Draw draw) {
    constexpr int n = 200000;
    std::vector<int> bins(100);
    for (int i = 0; i < n; ++i) ++bins[binOf(draw(), bins.size())];
    EXPECT_LT(chiSquare(bins, n / 100.0), chiSquareLimit(bins.size()));
}

// Neighbours as points of a square, triples as points of a cube.
template <class Draw>
void expectSeriallyEven(Draw draw) {
    constexpr int n = 200000;
    std::vector<int> square(24 * 24);
    std::vector<int> cube(8 * 8 * 8);
    for (int i = 0; i < n; ++i) {
        const double u = draw();
        const double v = draw();
        ++square[24 * binOf(u, 24) + binOf(v, 24)];
        ++cube[64 * binOf(u, 8) + 8 * binOf(v, 8) + binOf(draw(), 8)];
    }
    EXPECT_LT(chiSquare(square, n / 576.0), chiSquareLimit(square.size()));
    EXPECT_LT(chiSquare(cube, n / 512.0), chiSquareLimit(cube.size()));
}

// The correlation with the number drawn lag before, which is 0 within 1/sqrt(n).
template <class Draw>
void expectUncorrelated(Draw draw, double mean, double variance) {
    constexpr int n = 100000;
    constexpr int lags = 40;
    std::vector<double> x(n);
    for (double& value : x) value = (draw() - mean) / std::sqrt(variance);
    for (int lag = 1; lag <= lags; ++lag) {
        double sum = 0.0;
        for (int i = lag; i < n; ++i) sum += x[i] * x[i - lag];
        EXPECT_LT(std::fabs(sum / n), 6.5 / std::sqrt(n)) << "lag " << lag;
    }
}

// Of evenly distributed numbers a run up ends after 1 with probability 1/2, after 2 with 1/3, after
// k with 1/k! - 1/(k + 1)!, when the number after each run is left out (Knuth, 3.3.2 G).
template <class Draw>
void expectRuns(Draw draw) {
    constexpr int n = 60000;
    std::vector<int> lengths(7);
    for (int i = 0; i < n; ++i) {
        std::size_t length = 1;
        double last = draw();
        for (double next = draw(); next > last; next = draw()) {
            last = next;
            ++length;
        }
        ++lengths[std::min<std::size_t>(length, 6)];
    }
    double sum = 0.0;
    double factorial = 1.0;
    for (std::size_t k = 1; k <= 6; ++k) {
        factorial *= static_cast<double>(k);
        const double next = k < 6 ? 1.0 / (factorial * static_cast<double>(k + 1)) : 0.0;
        const double expected = n * (1.0 / factorial - next);
        sum += (lengths[k] - expected) * (lengths[k] - expected) / expected;
    }
    EXPECT_LT(sum, chiSquareLimit(6));
}

// Mean 0, variance 1, the third and fourth moment, and the shares between the percentiles.
template <class Draw>
void expectNormal(Draw draw) {
    constexpr int n = 200000;
    double moments[5] = {};
    std::vector<int> bins(50);
    for (int i = 0; i < n; ++i) {
        const double z = draw();
        for (int k = 0; k < 5; ++k) moments[k] += std::pow(z, k) / n;
        ++bins[std::min(binOf(0.5 * std::erfc(-z / std::sqrt(2.0)), bins.size()), bins.size() - 1)];
    }
    const double sigma = 6.5 / std::sqrt(n);
    EXPECT_NEAR(moments[1], 0.0, sigma);
    EXPECT_NEAR(moments[2], 1.0, sigma * std::sqrt(2.0));
    EXPECT_NEAR(moments[3], 0.0, sigma * std::sqrt(15.0));
    EXPECT_NEAR(moments[4], 3.0, sigma * std::sqrt(96.0));
    EXPECT_LT(chiSquare(bins, n / 50.0), chiSquareLimit(bins.size()));
}

// Seeds that the counter can give: small, large, in the middle.
TEST(RandomSource, IsEvenFromEverySeed) {
    for (const std::uint64_t seed : {0ull, 42ull, 0x89ABCDEFull, 0xFFFFFFFEull}) {
        nuv64::RandomSource source(seed);
        const auto draw = [&] { return source.uniform(); };
        expectEven(draw);
        expectSeriallyEven(draw);
        expectUncorrelated(draw, 0.5, 1.0 / 12.0);
        expectRuns(draw);
    }
}

TEST(RandomSource, IsNormalFromEverySeed) {
    for (const std::uint64_t seed : {0ull, 42ull, 0xFFFFFFFEull}) {
        nuv64::RandomSource source(seed);
        const auto draw = [&] { return source.normal(); };
        expectNormal(draw);
        expectUncorrelated(draw, 0.0, 1.0);
        // Location plus scale times the standard form.
        double sum = 0.0;
        double squares = 0.0;
        constexpr int n = 50000;
        for (int i = 0; i < n; ++i) {
            const double x = 7.0 + 0.25 * source.normal();
            sum += x / n;
            squares += (x - 7.0) * (x - 7.0) / n;
        }
        EXPECT_NEAR(sum, 7.0, 6.5 * 0.25 / std::sqrt(n));
        EXPECT_NEAR(squares, 0.0625, 6.5 * 0.0625 * std::sqrt(2.0 / n));
    }
}

// The polar method over the plain shuffle: v2 first, v1 with the next call.
TEST(RandomSource, MakesNormalNumbersInPairs) {
    nuv64::RandomSource source(77);
    nuv64::RandomSource uniform(77);
    for (int i = 0; i < 2000; ++i) {
        double v1, v2, s;
        do {
            v1 = 2.0 * uniform.uniform() - 1.0;
            v2 = 2.0 * uniform.uniform() - 1.0;
            s = v1 * v1 + v2 * v2;
        } while (s > 1.0 || s < 1e-20);
        const double f = std::sqrt(-2.0 * std::log(s) / s);
        const double first = source.normal();
        ASSERT_NEAR(first, v2 * f, 1e-14 * std::fabs(first));
        const double second = source.normal();
        ASSERT_NEAR(second, v1 * f, 1e-14 * std::fabs(second));
    }
}

// Neighbouring counters share a seed, others give sequences of their own.
TEST(RandomSource, SeedsDiffer) {
    std::vector<double> firsts;
    for (std::uint64_t seed = 0; seed < 4000; seed += 2) {
        firsts.push_back(nuv64::RandomSource(seed).uniform());
        ASSERT_EQ(nuv64::RandomSource(seed + 1).uniform(), firsts.back());
    }
    std::sort(firsts.begin(), firsts.end());
    EXPECT_EQ(std::adjacent_find(firsts.begin(), firsts.end()), firsts.end());
    // Only the low 32 bits count.
    EXPECT_EQ(nuv64::RandomSource(0x500000010).uniform(), nuv64::RandomSource(0x10).uniform());
}

TEST(Random, SeedOfTheSystemMovesOn) {
    const std::uint64_t first = KoRandomSeed();
    std::uint64_t second = first;
    for (int i = 0; i < 100000000 && second >> 1 == first >> 1; ++i) second = KoRandomSeed();
    EXPECT_NE(first >> 1, second >> 1);
    EXPECT_NE(nuv64::RandomSource(first).uniform(), nuv64::RandomSource(second).uniform());
}

TEST(Random, ExportsDrawFromTheSharedSource) {
    double last = pRgUniform0();
    int equal = 0;
    double normals = 0.0;
    for (int i = 0; i < 10000; ++i) {
        const double u = pRgUniform0();
        ASSERT_GT(u, 0.0);
        ASSERT_LE(u, 1.0 - ___2EpsReal);
        equal += u == last;
        last = u;
        normals += pRgNormal0();
    }
    EXPECT_LT(equal, 3);
    EXPECT_NEAR(normals / 10000, 0.0, 0.06);
}

TEST(Random, ExportsAreEvenAndNormal) {
    expectEven(pRgUniform0);
    expectSeriallyEven(pRgUniform0);
    expectUncorrelated(pRgUniform0, 0.5, 1.0 / 12.0);
    expectRuns(pRgUniform0);
    expectNormal(pRgNormal0);
}

TEST(Random, TellsItsNextNumber) {
    std::printf("next number %.17g\n", pRgUniform0());
}

// What another run of this program tells.
std::string numberOfAnotherRun() {
    const std::string program = testing::internal::GetArgvs().front();
    const std::string command = "\"" + program + "\" --gtest_filter=Random.TellsItsNextNumber";
#ifdef _WIN32
    FILE* const output = _popen(("\"" + command + "\"").c_str(), "r");
#else
    FILE* const output = popen(command.c_str(), "r");
#endif
    if (!output) return {};
    std::string number;
    char line[256];
    while (std::fgets(line, sizeof line, output)) {
        if (std::string(line).starts_with("next number ")) number = line;
    }
#ifdef _WIN32
    _pclose(output);
#else
    pclose(output);
#endif
    return number;
}

TEST(Random, RunsDiffer) {
    const std::string first = numberOfAnotherRun();
    ASSERT_FALSE(first.empty());
    EXPECT_NE(first, numberOfAnotherRun());
}

}  // namespace
