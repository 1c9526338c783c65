#include "nuv64/numeric/combinatorics.h"

#include <gtest/gtest.h>

#include "numeric/exact_rows.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "support/accuracy.h"

using namespace nuv64_test;

namespace {

#include "numeric/combinatorics_reference.inc"

TEST(Combinatorics, SequencesAreExact) {
    expectExact("uFactorial", kFactorial, uFactorial);
    expectExact("uDoubleFactorial", kDoubleFactorial, uDoubleFactorial);
    expectExact("uCatalanNumber", kCatalan, uCatalanNumber);
    expectExact("uBellNumber", kBell, uBellNumber);
    expectExact("uEulerNumber", kEuler, uEulerNumber);
    expectExact("uFibonacci", kFibonacci, uFibonacci);
    expectExact("uLucas", kLucas, uLucas);
}

TEST(Combinatorics, SignedSequencesAreExact) {
    expectExact("iFactorial", kSignedFactorial, iFactorial);
    expectExact("iDoubleFactorial", kSignedDoubleFactorial, iDoubleFactorial);
    expectExact("iEulerNumber", kSignedEuler, iEulerNumber);
    expectExact("iFibonacci", kSignedFibonacci, iFibonacci);
    expectExact("iLucas", kSignedLucas, iLucas);
}

TEST(Combinatorics, RisingFactorialsAreExact) {
    expectExact("iPochhammer", kPochhammer, iPochhammer);
}

TEST(Combinatorics, Ends) {
    std::uint32_t flags = 7;
    EXPECT_EQ(uFactorial(20, &flags), 2432902008176640000u);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(uFactorial(21, &flags), UINT64_MAX);
    EXPECT_EQ(flags, NUM_OVERFLOW);
    EXPECT_EQ(uFibonacci(93, &flags), 12200160415121876738u);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(uFibonacci(94, &flags), 12200160415121876738u + 7540113804746346429u);
    EXPECT_EQ(flags, 0x40100u);
    EXPECT_EQ(iDoubleFactorial(-1, &flags), 1);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(iDoubleFactorial(-3, &flags), -1);
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(iDoubleFactorial(-5, &flags), INT64_MIN);
    EXPECT_EQ(flags, 80u);
    EXPECT_EQ(iDoubleFactorial(-2, &flags), INT64_MIN);
    EXPECT_EQ(flags, NUM_UNDEFINED);
    // The sign rule is one for both sequences.
    EXPECT_EQ(iFibonacci(-4, &flags), -3);
    EXPECT_EQ(iFibonacci(-3, &flags), 2);
    EXPECT_EQ(iLucas(-4, &flags), -7);
    EXPECT_EQ(iLucas(-3, &flags), 4);
    // Above the signed range already, but not told.
    EXPECT_LT(iLucas(91, &flags), 0);
    EXPECT_EQ(flags, 0u);
    iLucas(92, &flags);
    EXPECT_EQ(flags, 0x4100u);
    iFibonacci(94, &flags);
    EXPECT_EQ(flags, 0x44100u);
}

TEST(Combinatorics, EulerNumbersAsReals) {
    holdAccuracy(
        "ruEulerNum", kRealEuler, 1, 1.0,
        [](auto& r) { return ruEulerNum(static_cast<std::uint64_t>(r[0])); },
        [](const double* r) { return r[0] < 26.0 ? 0.5 : 400.0; });
    for (const std::uint64_t n : {1ull, 25ull, 27ull, 185ull, 187ull, 1001ull, ~0ull}) {
        EXPECT_EQ(ruEulerNum(n), 0.0);
    }
    EXPECT_LT(ruEulerNum(186), kInf);
    for (const std::uint64_t n : {188ull, 1ull << 63, ~0ull - 1}) EXPECT_EQ(ruEulerNum(n), kInf);
}

}  // namespace
