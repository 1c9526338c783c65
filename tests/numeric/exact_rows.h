// Rows of exact numbers: arguments, the value, the flags.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

namespace nuv64_test {

template <std::size_t count>
struct UnsignedRow {
    std::uint64_t at[count];
    std::uint64_t value;
    std::uint32_t flags;
};

template <std::size_t count>
struct SignedRow {
    std::int64_t at[count];
    std::int64_t value;
    std::uint32_t flags;
};

// function(row.at..., &flags) for all rows, with a word that has something in it before and, where
// nullToo is set, without a word.
template <class Row, std::size_t rows, class Function>
void expectExact(const char* name, const Row (&table)[rows], Function function,
                 bool nullToo = true) {
    for (const Row& row : table) {
        const auto call = [&](std::uint32_t* flags) {
            if constexpr (sizeof row.at == sizeof row.at[0]) {
                return function(row.at[0], flags);
            } else {
                return function(row.at[0], row.at[1], flags);
            }
        };
        std::uint32_t flags = 0xABCDEF01;
        const auto value = call(&flags);
        const auto second = row.at[sizeof row.at / sizeof row.at[0] - 1];
        EXPECT_EQ(value, row.value) << name << ' ' << row.at[0] << ' ' << second;
        EXPECT_EQ(flags, row.flags) << name << ' ' << row.at[0] << ' ' << second;
        if (nullToo) {
            EXPECT_EQ(call(nullptr), row.value) << name << ' ' << row.at[0] << ' ' << second;
        }
    }
}

}  // namespace nuv64_test
