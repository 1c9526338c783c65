#include "nuv64/arrays/array_conversion.h"

#include <gtest/gtest.h>

#include <vector>

#include "arrays/array_samples.h"
#include "nuv64/core/memory.h"

namespace {

using samples::kInf;

TEST(ArrayConversion, FloatsToRealsAndBack) {
    for (uint64_t n : samples::allLengths()) {
        const std::vector<double> reals = samples::rough(n);
        std::vector<float> floats(n, 7.0f);
        EXPECT_EQ(FArrFillFromRArr(n, reals.data(), floats.data()), 0u);
        std::vector<double> back(n, 7.0);
        EXPECT_EQ(RArrFillFromFArr(n, floats.data(), back.data()), 0u);
        for (uint64_t i = 0; i < n; ++i) {
            if (std::isnan(reals[i])) {
                EXPECT_TRUE(std::isnan(floats[i]) && std::isnan(back[i]));
                continue;
            }
            EXPECT_EQ(back[i], static_cast<double>(floats[i]));
            if (std::isinf(reals[i])) continue;
            EXPECT_NEAR(floats[i], reals[i], 6e-8 * std::fabs(reals[i]));
        }
    }
    const double edges[] = {kInf, -kInf, 1e300, -1e300, 1e-300, 3.4028234663852886e38, -0.0};
    float floats[7];
    EXPECT_EQ(FArrFillFromRArr(7, edges, floats), 0u);
    EXPECT_EQ(floats[0], std::numeric_limits<float>::infinity());
    EXPECT_EQ(floats[1], -std::numeric_limits<float>::infinity());
    EXPECT_EQ(floats[2], std::numeric_limits<float>::infinity());
    EXPECT_EQ(floats[3], -std::numeric_limits<float>::infinity());
    EXPECT_EQ(floats[4], 0.0f);
    EXPECT_EQ(floats[5], std::numeric_limits<float>::max());
    EXPECT_TRUE(std::signbit(floats[6]));
}

TEST(ArrayConversion, SignedIntegersAreRoundedToNearest) {
    const int64_t in[] = {0, -1, 9007199254740993, 9007199254740995, INT64_MAX, INT64_MIN, 12345};
    double out[7];
    EXPECT_EQ(RArrFillFromIQArr(7, in, out), 0u);
    const double expected[] = {0.0,
                               -1.0,
                               9007199254740992.0,
                               9007199254740996.0,
                               9223372036854775808.0,
                               -9223372036854775808.0,
                               12345.0};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(out[i], expected[i]);
}

// Halved with the low bit kept, converted and doubled: the plain way for the upper half of the
// range.
double plainReal(uint64_t value) {
    if (value < uint64_t{1} << 63) return static_cast<double>(static_cast<int64_t>(value));
    return 2.0 * static_cast<double>(static_cast<int64_t>((value >> 1) | (value & 1)));
}

TEST(ArrayConversion, UnsignedIntegersAreRoundedToNearest) {
    std::mt19937_64 source(3);
    for (uint64_t n : samples::allLengths()) {
        std::vector<uint64_t> in(n);
        for (uint64_t& x : in) x = source() >> (source() % 64);
        for (uint64_t i = 0; i < n; i += 5) in[i] = (uint64_t{1} << 63) + 1024 + i % 3 - 1;
        std::vector<double> out(n);
        EXPECT_EQ(RArrFillFromUQArr(n, in.data(), out.data()), 0u);
        for (uint64_t i = 0; i < n; ++i) EXPECT_EQ(out[i], plainReal(in[i])) << in[i];
    }
    const uint64_t edges[] = {UINT64_MAX, uint64_t{1} << 63, 0};
    double out[3];
    EXPECT_EQ(RArrFillFromUQArr(3, edges, out), 0u);
    EXPECT_EQ(out[0], 18446744073709551616.0);
    EXPECT_EQ(out[1], 9223372036854775808.0);
    EXPECT_EQ(out[2], 0.0);
}

TEST(ArrayConversion, FillsTestTheirArgumentsInOrder) {
    double real = 1.0;
    float single = 1.0f;
    int64_t whole = 1;
    uint64_t natural = 1;
    EXPECT_EQ(RArrFillFromFArr(0, nullptr, nullptr), 0u);
    EXPECT_EQ(RArrFillFromFArr(1, nullptr, nullptr), 14u);
    EXPECT_EQ(RArrFillFromFArr(1, &single, nullptr), 18u);
    EXPECT_EQ(FArrFillFromRArr(0, nullptr, nullptr), 0u);
    EXPECT_EQ(FArrFillFromRArr(1, nullptr, nullptr), 14u);
    EXPECT_EQ(FArrFillFromRArr(1, &real, nullptr), 18u);
    EXPECT_EQ(RArrFillFromIQArr(0, nullptr, nullptr), 0u);
    EXPECT_EQ(RArrFillFromIQArr(1, nullptr, nullptr), 14u);
    EXPECT_EQ(RArrFillFromIQArr(1, &whole, nullptr), 18u);
    EXPECT_EQ(RArrFillFromUQArr(0, nullptr, nullptr), 0u);
    EXPECT_EQ(RArrFillFromUQArr(1, nullptr, nullptr), 14u);
    EXPECT_EQ(RArrFillFromUQArr(1, &natural, nullptr), 18u);
}

template <class Maker, class Source>
void expectAlwaysNull(Maker make, const Source* source) {
    uint32_t err = 7;
    EXPECT_EQ(make(&err, 3, source), nullptr);
    EXPECT_EQ(err, 0u);
    err = 7;
    EXPECT_EQ(make(&err, 0, source), nullptr);
    EXPECT_EQ(err, 0u);
    err = 7;
    EXPECT_EQ(make(&err, 3, nullptr), nullptr);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(make(&err, uint64_t{1} << 62, source), nullptr);
    EXPECT_EQ(err, 0x80001u);
    EXPECT_EQ(make(nullptr, 3, source), nullptr);
}

TEST(ArrayConversion, MakersGiveNullHoweverGoodTheirArguments) {
    const float singles[] = {1.0f, 2.0f, 3.0f};
    const double reals[] = {1.0, 2.0, 3.0};
    const int64_t wholes[] = {1, 2, 3};
    const uint64_t naturals[] = {1, 2, 3};
    expectAlwaysNull(RArrNewFromFArr, singles);
    expectAlwaysNull(FArrNewFromRArr, reals);
    expectAlwaysNull(RArrNewFromIQArr, wholes);
    expectAlwaysNull(RArrNewFromUQArr, naturals);
}

}  // namespace
