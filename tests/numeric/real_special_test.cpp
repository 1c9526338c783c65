#include "nuv64/numeric/real_special.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

std::uint64_t bits(double x) {
    return std::bit_cast<std::uint64_t>(x);
}

TEST(Special, ErrorRealsCarryAStatus) {
    EXPECT_EQ(bits(rSetERR(0)), bits(___NAN));
    EXPECT_EQ(bits(rSetERR(15)), 0xFFFF00000000000Fu);
    EXPECT_EQ(rGetERR(rSetERR(15)), 15u);
    EXPECT_EQ(rGetERR(rSetERR(36)), 36u);
    EXPECT_EQ(rGetERR(rSetERR(UINT32_MAX)), UINT32_MAX);
    EXPECT_EQ(rGetERR(1.0), 0u);
    EXPECT_EQ(rGetERR(___PlsINF), 0u);
    EXPECT_EQ(rGetERR(___NAN), 0u);
    EXPECT_TRUE(std::isnan(rSetERR(0x80001)));
}

TEST(Special, StoresReturnTheirPointer) {
    double x = 1.0;
    EXPECT_EQ(rSetNAN(&x), &x);
    EXPECT_EQ(bits(x), 0xFFFF000000000000u);
    EXPECT_EQ(rSetPlsINF(&x), &x);
    EXPECT_EQ(x, kInf);
    EXPECT_EQ(rSetMnsINF(&x), &x);
    EXPECT_EQ(x, -kInf);
    EXPECT_EQ(rSetNAN(nullptr), nullptr);
    EXPECT_EQ(rSetPlsINF(nullptr), nullptr);
    EXPECT_EQ(rSetMnsINF(nullptr), nullptr);
}

TEST(Special, AnInfinityIsNoResult) {
    for (const double x : {kInf, -kInf, kQuiet, ___NAN, rSetERR(5)}) {
        EXPECT_TRUE(rIsNAN(x));
        EXPECT_FALSE(rIsNotNAN(x));
    }
    for (const double x : {0.0, -0.0, 1e308, -1e308, 5e-324, ___MaxReal}) {
        EXPECT_FALSE(rIsNAN(x));
        EXPECT_TRUE(rIsNotNAN(x));
    }
    EXPECT_TRUE(rIsPlsINF(___PlsINF));
    EXPECT_FALSE(rIsPlsINF(___MnsINF));
    EXPECT_FALSE(rIsPlsINF(___NAN));
    EXPECT_TRUE(rIsMnsINF(___MnsINF));
    EXPECT_FALSE(rIsMnsINF(___PlsINF));
    EXPECT_FALSE(rIsMnsINF(0.0));
}

}  // namespace
