#include "nuv64/arrays/real_matrix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "arrays/array_samples.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/special_reals.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using Values = std::vector<double>;

TEST(RealMatrix, MakersAreThoseOfTheArrays) {
    uint32_t status = 7;
    EXPECT_EQ(RMatNew(&status, 0, 5), nullptr);
    EXPECT_EQ(status, 0u);
    status = 7;
    EXPECT_EQ(RMatNew(&status, uint64_t{1} << 31, uint64_t{1} << 30), nullptr);
    EXPECT_EQ(status, 0x80001u);
    status = 7;
    EXPECT_EQ(RMatNew0(&status, uint64_t{1} << 31, uint64_t{1} << 30), nullptr);
    EXPECT_EQ(status, 0x80001u);
    double* zeros = RMatNew0(&status, 3, 2);
    EXPECT_EQ(status, 0u);
    EXPECT_THAT(Values(zeros, zeros + 6), Each(0.0));
    EXPECT_EQ(RMatFill(3, 2, zeros, 4.0), 0u);
    double* copy = RMatNewCopy(nullptr, 3, 2, zeros);
    EXPECT_THAT(Values(copy, copy + 6), Each(4.0));
    EXPECT_EQ(RMatNewCopy(&status, 3, 2, nullptr), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatZero(3, 2, copy), 0u);
    EXPECT_EQ(RMatCopy(3, 2, copy, zeros), 0u);
    EXPECT_THAT(Values(zeros, zeros + 6), Each(0.0));
    RMatKill(&zeros);
    RMatKill(&copy);
    double one = 1.0;
    EXPECT_EQ(RMatCopy(0, 9, nullptr, nullptr), 0u);
    EXPECT_EQ(RMatCopy(1, 1, nullptr, nullptr), 18u);
    EXPECT_EQ(RMatCopy(1, 1, nullptr, &one), 14u);
    EXPECT_EQ(RMatFill(1, 1, nullptr, 1.0), 18u);
    EXPECT_EQ(RMatZero(1, 0, nullptr), 0u);
}

TEST(RealMatrix, RowsAreAppendedAndRemovedInEachColumn) {
    const double m[] = {1, 2, 3, 4, 5, 6};  // 3 by 2
    double* longer = NewRMatAppendRows0(m, 3, 2, 2);
    EXPECT_THAT(Values(longer, longer + 10), ElementsAre(1, 2, 3, 0, 0, 4, 5, 6, 0, 0));
    RMatKill(&longer);
    double* same = NewRMatAppendRows0(m, 3, 2, 0);
    EXPECT_THAT(Values(same, same + 6), ElementsAre(1, 2, 3, 4, 5, 6));
    RMatKill(&same);
    double* shorter = NewRMatRemoveRows(m, 3, 2, 2);
    EXPECT_THAT(Values(shorter, shorter + 2), ElementsAre(1, 4));
    RMatKill(&shorter);
}

TEST(RealMatrix, RowChangesThatFail) {
    const double m[] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(NewRMatAppendRows0(nullptr, 3, 2, 1), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 0, 1), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 2, UINT64_MAX), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 2, (uint64_t{1} << 63) - 3), nullptr);
    EXPECT_EQ(NewRMatAppendRows0(m, 3, 2, uint64_t{1} << 58), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(nullptr, 3, 2, 1), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 0, 2, 1), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 0, 1), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 2, 0), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 2, 3), nullptr);
    EXPECT_EQ(NewRMatRemoveRows(m, 3, 2, UINT64_MAX), nullptr);
}

TEST(RealMatrix, VandermondeRowsTakeTheElementBefore) {
    const double x[] = {2.0, 3.0, 5.0};
    Values m(9);
    EXPECT_EQ(RMatFillVandermonde(m.data(), x + 1, 2, 3), 0u);
    EXPECT_THAT(Values(m.begin(), m.begin() + 6), ElementsAre(1, 1, 2, 3, 4, 9));
    EXPECT_EQ(RMatFillVandermonde(m.data(), x + 1, 2, 0), 0u);
    EXPECT_THAT(Values(m.begin(), m.begin() + 4), ElementsAre(1, 1, 2, 3));
    double* fresh = RMatNewVandermonde(nullptr, x, 3, 0);
    EXPECT_THAT(Values(fresh, fresh + 9), ElementsAre(1, 1, 1, 2, 3, 5, 4, 9, 25));
    RMatKill(&fresh);
    EXPECT_EQ(RMatFillVandermonde(m.data(), x + 1, 0, 3), 14u);
    EXPECT_EQ(RMatFillVandermonde(m.data(), nullptr, 2, 3), 14u);
    EXPECT_EQ(RMatFillVandermonde(nullptr, x + 1, 2, 3), 18u);
    uint32_t status = 7;
    EXPECT_EQ(RMatNewVandermonde(&status, x, 0, 3), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatNewVandermonde(&status, nullptr, 3, 3), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatNewVandermonde(&status, x, uint64_t{1} << 40, 0), nullptr);
    EXPECT_EQ(status, 0x80001u);
}

TEST(RealMatrix, GramMatrixHoldsTheProductsOfColumns) {
    const double x[] = {1, 2, 3, 4, 5, 6};  // 3 by 2
    Values gram(4);
    EXPECT_EQ(RMatFillGram(2, gram.data(), 3, x), 0u);
    EXPECT_THAT(gram, ElementsAre(14, 32, 32, 77));
    double* fresh = RMatNewGram(nullptr, 2, 3, x);
    EXPECT_THAT(Values(fresh, fresh + 4), ElementsAre(14, 32, 32, 77));
    RMatKill(&fresh);
    EXPECT_EQ(RMatFillGram(0, gram.data(), 3, x), 14u);
    EXPECT_EQ(RMatFillGram(2, gram.data(), 0, x), 14u);
    EXPECT_EQ(RMatFillGram(2, gram.data(), 3, nullptr), 14u);
    EXPECT_EQ(RMatFillGram(2, nullptr, 3, x), 18u);
    uint32_t status = 7;
    EXPECT_EQ(RMatNewGram(&status, 0, 3, x), nullptr);
    EXPECT_EQ(status, 14u);
    EXPECT_EQ(RMatNewGram(&status, uint64_t{1} << 40, 1, x), nullptr);
    EXPECT_EQ(status, 0x80001u);
}

TEST(RealMatrix, GramSumsAreThoseOfTheDotProduct) {
    for (uint64_t n : {1, 2, 3, 5, 8, 9, 17}) {
        for (uint64_t m : {1, 2, 3, 10, 33}) {
            const auto x = samples::random(n * m, n);
            Values gram(n * n);
            EXPECT_EQ(RMatFillGram(n, gram.data(), m, x.data()), 0u);
            for (uint64_t i = 0; i < n; ++i) {
                for (uint64_t j = 0; j < n; ++j) {
                    EXPECT_EQ(gram[i + j * n], RArrDotProduct(m, &x[i * m], &x[j * m]));
                }
            }
        }
    }
}

TEST(RealMatrix, IdentityOfAllShapes) {
    Values m(6, 7.0);
    EXPECT_EQ(RMatFillIdentity(m.data(), 3, 2), 0u);
    EXPECT_THAT(m, ElementsAre(1, 0, 0, 0, 1, 0));
    EXPECT_EQ(RMatFillIdentity(m.data(), 2, 3), 0u);
    EXPECT_THAT(m, ElementsAre(1, 0, 0, 1, 0, 0));
    EXPECT_EQ(RMatFillIdentity(m.data(), 2, 0), 0u);
    EXPECT_THAT(Values(m.begin(), m.begin() + 4), ElementsAre(1, 0, 0, 1));
    // The walk goes on through the flat array: from column rows + 1 there are ones again.
    EXPECT_EQ(RMatFillIdentity(m.data(), 1, 6), 0u);
    EXPECT_THAT(m, ElementsAre(1, 0, 1, 0, 1, 0));
    EXPECT_EQ(RMatFillIdentity(nullptr, 0, 2), 18u);
    EXPECT_EQ(RMatFillIdentity(m.data(), 0, 2), 14u);
    uint32_t status = 7;
    double* fresh = RMatNewIdentity(&status, 2, 0);
    EXPECT_EQ(status, 0u);
    EXPECT_THAT(Values(fresh, fresh + 4), ElementsAre(1, 0, 0, 1));
    RMatKill(&fresh);
    fresh = RMatNewIdentity(nullptr, 3, 2);
    EXPECT_THAT(Values(fresh, fresh + 6), ElementsAre(1, 0, 0, 0, 1, 0));
    RMatKill(&fresh);
    status = 7;
    EXPECT_EQ(RMatNewIdentity(&status, 0, 2), nullptr);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(RMatNewIdentity(&status, uint64_t{1} << 40, 0), nullptr);
    EXPECT_EQ(status, 0x80001u);
}

TEST(RealMatrix, VandermondeDeterminantIsTheProductOfDifferences) {
    const double x[] = {2.0, 3.0, 5.0};
    EXPECT_EQ(RMatVandermondeDeterminant(3, x), (2.0 - 3.0) * (2.0 - 5.0) * (3.0 - 5.0));
    EXPECT_EQ(RMatVandermondeDeterminant(1, x), 1.0);
    const double equal[] = {2.0, 3.0, 2.0, samples::kQuietNan};
    EXPECT_EQ(RMatVandermondeDeterminant(3, equal), 0.0);
    // The limit is absolute and the test comes before the product.
    const double close[] = {1e-20, 2e-20, samples::kInf};
    EXPECT_EQ(RMatVandermondeDeterminant(3, close), 0.0);
    const double limit[] = {0.0, ___EpsReal, 1.0};
    EXPECT_EQ(RMatVandermondeDeterminant(2, limit), 0.0);
    const double above[] = {0.0, 2.0 * ___EpsReal};
    EXPECT_EQ(RMatVandermondeDeterminant(2, above), -2.0 * ___EpsReal);
    EXPECT_TRUE(std::isnan(RMatVandermondeDeterminant(2, equal + 2)));
    const double infinite[] = {1.0, samples::kInf};
    EXPECT_EQ(RMatVandermondeDeterminant(2, infinite), -samples::kInf);
    EXPECT_TRUE(std::isnan(RMatVandermondeDeterminant(0, x)));
    EXPECT_TRUE(std::isnan(RMatVandermondeDeterminant(3, nullptr)));
}

TEST(RealMatrix, ReadingFromTextIsReserved) {
    EXPECT_EQ(NewRMatFromAsciFile(), 9u);
}

}  // namespace
