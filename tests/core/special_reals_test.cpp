#include "nuv64/core/special_reals.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

namespace {

std::uint64_t bits(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

}  // namespace

TEST(SpecialReals, HaveTheirBits) {
    EXPECT_EQ(bits(___MaxReal), 0x7FEFFFFFFFFFFFFFu);
    EXPECT_EQ(bits(___SqrtMaxReal), 0x5FF0000000000000u);
    EXPECT_EQ(bits(___Root3MaxReal), 0x554428A2F98D728Bu);
    EXPECT_EQ(bits(___Root4MaxReal), 0x4FF0000000000000u);
    EXPECT_EQ(bits(___Root5MaxReal), 0x4CBBDB8CDADBE120u);
    EXPECT_EQ(bits(___LnMaxReal), 0x40862E42FEFA39EFu);
    EXPECT_EQ(bits(___MinReal), 0x0004000000000000u);
    EXPECT_EQ(bits(___SqrtMinReal), 0x1FF0000000000000u);
    EXPECT_EQ(bits(___LnMinReal), 0xC0862E42FEFA39EFu);
    EXPECT_EQ(bits(___MinRegularReal), 0x0330000000000000u);
    EXPECT_EQ(bits(___EpsReal), 0x3CB0000000000000u);
    EXPECT_EQ(bits(___2EpsReal), 0x3CC0000000000000u);
    EXPECT_EQ(bits(___5EpsReal), 0x3CD4000000000000u);
    EXPECT_EQ(bits(___SqrtEpsReal), 0x3E50000000000000u);
    EXPECT_EQ(bits(___Root3EpsReal), 0x3ED965FEA53D6E3Du);
    EXPECT_EQ(bits(___Root4EpsReal), 0x3F20000000000000u);
    EXPECT_EQ(bits(___Root5EpsReal), 0x3F48406003B2AE5Cu);
    EXPECT_EQ(bits(___LnEpsReal), 0xC04205966F2B4F12u);
    EXPECT_EQ(bits(___PlsINF), 0x7FF0000000000000u);
    EXPECT_EQ(bits(___MnsINF), 0xFFF0000000000000u);
    EXPECT_EQ(bits(___NAN), 0xFFFF000000000000u);
}

TEST(SpecialReals, AreWhatTheirNamesSay) {
    EXPECT_EQ(___SqrtMaxReal, std::ldexp(1.0, 512));
    EXPECT_EQ(___MinReal, std::ldexp(1.0, -1024));
    EXPECT_EQ(___5EpsReal, 5 * ___EpsReal);
    EXPECT_EQ(___LnMinReal, -___LnMaxReal);
    EXPECT_DOUBLE_EQ(___LnEpsReal, std::log(___EpsReal));
    EXPECT_DOUBLE_EQ(___LnMaxReal, std::log(___MaxReal));
    EXPECT_NEAR(std::pow(___Root3EpsReal, 3) / ___EpsReal, 1, 1e-14);
    EXPECT_NEAR(std::pow(___Root5EpsReal, 5) / ___EpsReal, 1, 1e-14);
    EXPECT_NEAR(3 * std::log(___Root3MaxReal) / ___LnMaxReal, 1, 1e-14);
    EXPECT_NEAR(5 * std::log(___Root5MaxReal) / ___LnMaxReal, 1, 1e-14);
    EXPECT_TRUE(std::isnan(___NAN));
}
