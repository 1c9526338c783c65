#include "nuv64/core/console_arrays.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>

#include "core/complex_reading.h"
#include "nuv64/core/special_reals.h"
#include "support/console_streams.h"

namespace {

bool operator==(const Complex& a, const Complex& b) {
    return a.re == b.re && a.im == b.im;
}

struct Reals {
    std::uint32_t status;
    std::uint64_t count;
    std::array<double, 4> values;
    bool operator==(const Reals&) const = default;
};

// Both members on the same line.
Reals reals(const std::string& typed, std::uint64_t count, std::uint64_t capacity) {
    Reals wide{0, count, {-1, -1, -1, -1}}, narrow = wide;
    EXPECT_EQ(dialogue(typed, wide.status,
                       [&] { return CinRArr(u"x:", &wide.count, wide.values.data(), capacity); }),
              dialogue(typed, narrow.status, [&] {
                  return CinRArrA("x:", &narrow.count, narrow.values.data(), capacity);
              }));
    EXPECT_EQ(wide, narrow) << typed;
    return wide;
}

TEST(CinRArr, TakesWhatTheLineHolds) {
    EXPECT_EQ(reals("1 2.5 -3e2\n", 0, 4), (Reals{0, 3, {1, 2.5, -300, -1}}));
    EXPECT_EQ(reals("  1\t2 \n", 0, 4), (Reals{0, 2, {1, 2, -1, -1}}));
    EXPECT_EQ(reals("1 2 3 4 5 6\n", 0, 4), (Reals{0, 4, {1, 2, 3, 4}}));
    EXPECT_EQ(reals("1 2 3\n", 0, 2), (Reals{0, 2, {1, 2, -1, -1}}));
    EXPECT_EQ(reals("1, 2\n", 0, 4), (Reals{0, 1, {1, -1, -1, -1}})) << "a comma ends the numbers";
    EXPECT_EQ(reals("\n", 0, 4).count, 0u);
    EXPECT_EQ(reals("\n", 0, 4).status, 0u);
    EXPECT_EQ(reals("abc\n", 0, 4).count, 0u);
}

TEST(CinRArr, WantsExactlyTheGivenCount) {
    EXPECT_EQ(reals("1 2\n", 2, 4), (Reals{0, 2, {1, 2, -1, -1}}));
    EXPECT_EQ(reals("1 2 3\n", 2, 2), (Reals{0, 2, {1, 2, -1, -1}}));
    EXPECT_EQ(reals("1\n", 2, 4).status, 22u);
    EXPECT_EQ(reals("1\n", 2, 4).count, 2u);
    EXPECT_EQ(reals("x\n", 1, 4).status, 22u);
    EXPECT_EQ(reals("1 2 3\n", 3, 2).status, 25u);
    EXPECT_EQ(reals("1\n", 1, 0).status, 25u);
    EXPECT_EQ(reals("1\n", UINT64_MAX, 4).status, 25u);
}

TEST(CinRArr, ReportsWhatIsMissing) {
    EXPECT_EQ(reals("1\n", 0, 0).status, 22u);
    EXPECT_EQ(reals("", 0, 4).status, 62u);
    std::uint64_t count = 0;
    double value = 0.0;
    std::uint32_t status = 0;
    EXPECT_EQ(dialogue("1\n", status, [&] { return CinRArr(u"x", &count, nullptr, 4); }), "");
    EXPECT_EQ(status, 22u);
    dialogue("1\n", status, [&] { return CinRArrA("x", nullptr, &value, 4); });
    EXPECT_EQ(status, 22u);
}

TEST(CinCArr, ReadsPairsInBrackets) {
    const std::string typed = "(1,2) ( -3.5 , 4e1 )(0,0)\n";
    std::array<Complex, 4> wide{}, narrow{};
    std::uint64_t wideCount = 0, narrowCount = 0;
    std::uint32_t status = 99;
    EXPECT_EQ(dialogue(typed, status,
                       [&] { return CinCArr(u"z:", &wideCount, wide.data(), wide.size()); }),
              " z: ");
    EXPECT_EQ(status, 0u);
    ASSERT_EQ(wideCount, 3u);
    EXPECT_TRUE(wide[0] == (Complex{1, 2}));
    EXPECT_TRUE(wide[1] == (Complex{-3.5, 40}));
    EXPECT_TRUE(wide[2] == (Complex{0, 0}));
    dialogue(typed, status,
             [&] { return CinCArrA("z:", &narrowCount, narrow.data(), narrow.size()); });
    EXPECT_EQ(narrowCount, 3u);
    EXPECT_TRUE(narrow[1] == wide[1]);
    for (const char* bad : {"1 2\n", "(1 2)\n", "(1,)\n", "(,1)\n", "(1,2\n", "\n", "(\n"}) {
        wideCount = narrowCount = 1;
        dialogue(bad, status, [&] { return CinCArr(u"", &wideCount, wide.data(), 4); });
        EXPECT_EQ(status, 22u) << bad;
        dialogue(bad, status, [&] { return CinCArrA("", &narrowCount, narrow.data(), 4); });
        EXPECT_EQ(status, 22u) << bad;
    }
    dialogue("", status, [&] { return CinCArr(u"", &wideCount, wide.data(), 4); });
    EXPECT_EQ(status, 62u);
    dialogue("", status, [&] { return CinCArrA("", nullptr, narrow.data(), 4); });
    EXPECT_EQ(status, 22u);
    dialogue("", status, [&] { return CinCArrA("", &narrowCount, nullptr, 4); });
    EXPECT_EQ(status, 22u);
}

struct Read {
    std::uint32_t report;
    Complex value;
    std::uint64_t consumed;
};

Read readComplex(const std::string& text) {
    Read narrow{}, wide{};
    nuv64::ComplexReader<char> reader(text.c_str());
    narrow.report = reader.read(narrow.value);
    narrow.consumed = reader.consumed();
    const std::u16string wideText(text.begin(), text.end());
    nuv64::ComplexReader<char16_t> wideReader(wideText.c_str());
    wide.report = wideReader.read(wide.value);
    EXPECT_EQ(wide.report, narrow.report) << text;
    EXPECT_EQ(wideReader.consumed(), narrow.consumed);
    return narrow;
}

TEST(ComplexReader, ReportsTheStructure) {
    EXPECT_EQ(readComplex("(1, 2)").report, 0u);
    EXPECT_EQ(readComplex("(1, 2)").consumed, 6u);
    EXPECT_EQ(readComplex(" ( 1 , 2 ) x").report, 0x20u);
    EXPECT_EQ(readComplex("1").report, 0xB0u);
    EXPECT_TRUE(std::isnan(readComplex("1").value.re) && std::isnan(readComplex("1").value.im));
    EXPECT_EQ(readComplex("(1;2)").report, 0xB0u);
    EXPECT_EQ(readComplex("(1,2").report, 0xB0u);
    EXPECT_EQ(readComplex("(a,2)").report, 0x90u);
    EXPECT_EQ(readComplex("(1,a)").report, 0x90u);
    EXPECT_EQ(readComplex("(1.7976931348623157e308,1)").report & 0x180u, 0x180u);
    EXPECT_EQ(readComplex("").report, 0xB0u);
    Complex z{};
    EXPECT_EQ(nuv64::ComplexReader<char>(nullptr).read(z), 0x90u);
}

TEST(CinRMat, IsTypedByRowsAndStoredByColumns) {
    const std::array<double, 6> expected{1, 4, 2, 5, 3, 6};
    for (const char* typed : {"1 2 3\n4 5 6\n", "1 2 3 4 5 6\n", "1\n2\n3 4 5\n6 7\n"}) {
        std::array<double, 6> wide{}, narrow{};
        std::uint32_t status = 99;
        const std::string printed =
            dialogue(typed, status, [&] { return CinRMat(u"M:", 2, 3, wide.data()); });
        EXPECT_EQ(status, 0u);
        EXPECT_EQ(wide, expected) << typed;
        EXPECT_EQ(printed.substr(0, 4), " M: ");
        dialogue(typed, status, [&] { return CinRMatA("M:", 2, 3, narrow.data()); });
        EXPECT_EQ(status, 0u);
        EXPECT_EQ(narrow, expected);
    }
}

TEST(CinRMat, ReportsWhatIsMissing) {
    std::array<double, 6> matrix{};
    std::uint32_t status = 99;
    dialogue("1 2\n\n3\n", status, [&] { return CinRMat(u"", 2, 3, matrix.data()); });
    EXPECT_EQ(status, 22u);
    EXPECT_EQ(matrix[2], 2.0) << "what was typed is stored";
    dialogue("1 2\n", status, [&] { return CinRMatA("", 2, 3, matrix.data()); });
    EXPECT_EQ(status, 62u);
    EXPECT_EQ(dialogue("1\n", status, [&] { return CinRMat(u"p", 2, 3, nullptr); }), "");
    EXPECT_EQ(status, 22u);
    EXPECT_EQ(dialogue("1\n", status, [&] { return CinRMatA("p", 0, 3, nullptr); }), "");
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(dialogue("1\n", status, [&] { return CinRMat(u"p", 3, 0, matrix.data()); }), "");
    EXPECT_EQ(status, 0u);
    dialogue("1\n", status, [&] { return CinRMat(u"p", UINT64_MAX, 3, matrix.data()); });
    EXPECT_EQ(status, 17u);
    dialogue("1\n", status, [&] { return CinRMatA("p", 1u << 31, UINT64_MAX, matrix.data()); });
    EXPECT_EQ(status, 17u);
}

TEST(CinCMat, IsTypedByRowsAndStoredByColumns) {
    std::array<Complex, 4> wide{}, narrow{};
    std::uint32_t status = 99;
    const std::string typed = "(1,0) (2,0)\n(3,1) (4,-1)\n";
    dialogue(typed, status, [&] { return CinCMat(u"M:", 2, 2, wide.data()); });
    EXPECT_EQ(status, 0u);
    EXPECT_TRUE(wide[0] == (Complex{1, 0}) && wide[1] == (Complex{3, 1}));
    EXPECT_TRUE(wide[2] == (Complex{2, 0}) && wide[3] == (Complex{4, -1}));
    dialogue(typed, status, [&] { return CinCMatA("M:", 2, 2, narrow.data()); });
    EXPECT_EQ(status, 0u);
    EXPECT_TRUE(narrow[2] == wide[2]);
    dialogue("1 2\n", status, [&] { return CinCMat(u"M:", 2, 2, wide.data()); });
    EXPECT_EQ(status, 22u);
    dialogue("", status, [&] { return CinCMatA("M:", 2, 2, wide.data()); });
    EXPECT_EQ(status, 62u);
    dialogue("", status, [&] { return CinCMatA("M:", 2, 2, nullptr); });
    EXPECT_EQ(status, 22u);
}

struct Grid {
    std::uint32_t status = 99;
    std::uint64_t type = 77;
    double minimum = 77;
    double maximum = 77;
    std::uint64_t points = 77;
    std::string printed;
};

Grid typedGrid(const std::string& typed) {
    Grid grid;
    grid.printed = dialogue(typed, grid.status, [&] {
        return CinRArrGrid(&grid.type, &grid.minimum, &grid.maximum, &grid.points);
    });
    return grid;
}

TEST(CinRArrGrid, AsksForTypeLimitsAndPoints) {
    const Grid grid = typedGrid("1\n0.5\n100\n11\n");
    EXPECT_EQ(grid.status, 0u);
    EXPECT_EQ(grid.type, 2u);
    EXPECT_EQ(grid.minimum, 0.5);
    EXPECT_EQ(grid.maximum, 100.0);
    EXPECT_EQ(grid.points, 11u);
    EXPECT_EQ(grid.printed,
              "\n\n Data-grid specifications: "
              "\n   Grid type (0..lin, 1..log, 2..inverse, 3..square):    Minimum value :    "
              "Maximum value :    Total points  : ");
    const std::uint64_t codes[] = {1, 2, 3, 4, 1};
    for (std::size_t i = 0; i < std::size(codes); ++i)
        EXPECT_EQ(typedGrid(std::to_string(i) + "\n1\n2\n3\n").type, codes[i]);
}

TEST(CinRArrGrid, HoldsItsLimits) {
    Grid grid = typedGrid("5\n0\n0\n-1\n5.562684646268003e-309\n1e-310\n1\n0\n2\n");
    EXPECT_EQ(grid.status, 0u);
    EXPECT_EQ(grid.minimum, 5.562684646268003e-309);
    EXPECT_EQ(grid.maximum, 1.0);
    EXPECT_EQ(grid.points, 2u);
    grid = typedGrid("0\n3\n2\n3\n1\n");
    EXPECT_EQ(grid.maximum, 3.0) << "not below the lower one";
}

TEST(CinRArrGrid, RefusesWhatIsNoGrid) {
    for (const char* typed : {"", "9\n9\n9\n9\n1\n2\n3\n", "0\na\na\na\na\n", "0\n1\nb\nb\nb\nb\n",
                              "0\n1\n2\n0\n0\n0\n0\n", "0\n1\n2\n", "0\n1\n", "0\nnan\n"}) {
        const Grid grid = typedGrid(typed);
        EXPECT_EQ(grid.status, 15u) << typed;
        EXPECT_EQ(grid.type, 77u);
        EXPECT_EQ(grid.points, 77u);
    }
    double real = 0.0;
    std::uint64_t word = 0;
    EXPECT_EQ(CinRArrGrid(nullptr, &real, &real, &word), 18u);
    EXPECT_EQ(CinRArrGrid(&word, nullptr, &real, &word), 18u);
    EXPECT_EQ(CinRArrGrid(&word, &real, nullptr, &word), 18u);
    EXPECT_EQ(CinRArrGrid(&word, &real, &real, nullptr), 18u);
}

}  // namespace
