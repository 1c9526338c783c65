#include "nuv64/arrays/signal_array.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrays/array_samples.h"
#include "nuv64/core/memory.h"

namespace {

using testing::ElementsAre;

constexpr uint64_t kMissing = 0xFFFF000000000000;

TEST(SignalArray, MakersTakeTwoElementsAPoint) {
    uint32_t status = 7;
    EXPECT_EQ(SArrNew(&status, 0), nullptr);
    EXPECT_EQ(status, 0u);
    for (uint64_t n : {uint64_t{1} << 60, uint64_t{1} << 63, UINT64_MAX, (uint64_t{1} << 63) + 1}) {
        const double one = 1.0;
        status = 7;
        EXPECT_EQ(SArrNew(&status, n), nullptr);
        EXPECT_EQ(status, 0x80001u);
        status = 7;
        EXPECT_EQ(SArrNew0(&status, n), nullptr);
        EXPECT_EQ(status, 0x80001u);
        status = 7;
        EXPECT_EQ(SArrNewCopy(&status, n, &one), nullptr);
        EXPECT_EQ(status, 0x80001u);
    }
    double* zeros = SArrNew0(&status, 3);
    EXPECT_EQ(status, 0u);
    EXPECT_THAT(std::vector<double>(zeros, zeros + 6), testing::Each(0.0));
    EXPECT_EQ(SArrFill(3, zeros, 1.0, -2.0), 0u);
    double* copy = SArrNewCopy(nullptr, 3, zeros);
    EXPECT_THAT(std::vector<double>(copy, copy + 6), ElementsAre(1, 1, 1, -2, -2, -2));
    EXPECT_EQ(SArrNewCopy(nullptr, 3, nullptr), nullptr);
    EXPECT_EQ(SArrZero(3, zeros), 0u);
    EXPECT_EQ(SArrCopy(3, copy, zeros), 0u);
    EXPECT_THAT(std::vector<double>(zeros, zeros + 6), ElementsAre(1, 1, 1, -2, -2, -2));
    double* fresh = SArrNew(nullptr, 3);
    ASSERT_NE(fresh, nullptr);
    SArrKill(&fresh);
    SArrKill(&copy);
    SArrKill(&zeros);
}

TEST(SignalArray, CopyAndFillTestTheirArguments) {
    double two[2] = {1.0, 2.0};
    EXPECT_EQ(SArrCopy(0, nullptr, nullptr), 0u);
    EXPECT_EQ(SArrCopy(1, two, nullptr), 18u);
    EXPECT_EQ(SArrCopy(1, nullptr, two), 14u);
    EXPECT_EQ(SArrFill(0, nullptr, 1.0, 1.0), 0u);
    EXPECT_EQ(SArrFill(1, nullptr, 1.0, 1.0), 18u);
    EXPECT_EQ(SArrZero(1, nullptr), 18u);
}

TEST(SignalArray, MagnitudeAndPowerKeepTheImaginaryPart) {
    for (uint64_t n : samples::lengths()) {
        const auto in = samples::rough(2 * n);
        std::vector<double> magnitude(in), power(in), out(2 * n, 7.0), same(in);
        for (uint64_t i = 0; i < n; ++i) {
            power[i] = in[i] * in[i] + in[n + i] * in[n + i];
            magnitude[i] = std::sqrt(power[i]);
        }
        EXPECT_EQ(SArrReplaceRealByMagnitude(n, in.data(), out.data()), 0u);
        EXPECT_EQ(samples::bits(out), samples::bits(magnitude));
        EXPECT_EQ(SArrIpReplaceRealByMagnitude(n, same.data()), 0u);
        EXPECT_EQ(samples::bits(same), samples::bits(magnitude));
        same = in;
        EXPECT_EQ(SArrReplaceRealByPower(n, in.data(), out.data()), 0u);
        EXPECT_EQ(samples::bits(out), samples::bits(power));
        EXPECT_EQ(SArrIpReplaceRealByPower(n, same.data()), 0u);
        EXPECT_EQ(samples::bits(same), samples::bits(power));
    }
}

TEST(SignalArray, ReplacementsTestTheirArguments) {
    double two[2] = {1.0, 2.0};
    for (uint64_t n : {0, 1}) {
        EXPECT_EQ(SArrReplaceRealByMagnitude(n, nullptr, two), 14u);
        EXPECT_EQ(SArrReplaceRealByMagnitude(n, two, nullptr), 18u);
        EXPECT_EQ(SArrIpReplaceRealByMagnitude(n, nullptr), 14u);
        EXPECT_EQ(SArrReplaceRealByPower(n, nullptr, nullptr), 14u);
        EXPECT_EQ(SArrReplaceRealByPower(n, two, nullptr), 18u);
        EXPECT_EQ(SArrIpReplaceRealByPower(n, nullptr), 14u);
    }
}

TEST(SignalArray, MaximaAreTheFirstOfEqualOnes) {
    const double signal[] = {3, 0, 4, 5, -4, 4, 5, 3, 0, 0};
    uint64_t index = 9;
    EXPECT_EQ(SArrMaxPower(5, signal, &index), 25.0);
    EXPECT_EQ(index, 0u);
    EXPECT_EQ(SArrMaxMagnitude(5, signal, &index), 5.0);
    EXPECT_EQ(SArrMaxMagnitude(5, signal, nullptr), 5.0);
    const double later[] = {0, 1, 2, 0, -3, 0};
    EXPECT_EQ(SArrMaxPower(3, later, &index), 10.0);
    EXPECT_EQ(index, 1u);
}

TEST(SignalArray, MaximaOfNothingAreMissing) {
    const double two[2] = {1.0, 2.0};
    for (auto [n, data] : {std::pair<uint64_t, const double*>{0, two}, {3, nullptr}}) {
        uint64_t index = 9;
        EXPECT_EQ(std::bit_cast<uint64_t>(SArrMaxPower(n, data, &index)), kMissing);
        EXPECT_EQ(index, UINT64_MAX);
        index = 9;
        EXPECT_EQ(std::bit_cast<uint64_t>(SArrMaxMagnitude(n, data, &index)), kMissing);
        EXPECT_EQ(index, UINT64_MAX);
    }
}

}  // namespace
