// Numbers and texts: reading and printing reals against the standard library, the search for a text
// against the C library and the standard one, moving and clearing memory, sorting pointers.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "nuv64/core/memory.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/pointer_sort.h"
#include "nuv64/core/text_search.h"

namespace {

constexpr std::size_t kNumbers = 4096;

// Kinds of numbers: 0 measured values with 6 digits, 1 any double with 17 digits, 2 counts.
std::vector<std::string> numberTexts(std::int64_t kind) {
    std::mt19937_64 random(7);
    std::normal_distribution<double> normal;
    std::vector<std::string> texts;
    while (texts.size() < kNumbers) {
        char text[64];
        const double any = std::bit_cast<double>(random());
        if (kind == 1 && !std::isfinite(any)) continue;
        if (kind == 0) std::snprintf(text, sizeof text, "%.6g", normal(random) * 1e3);
        if (kind == 1) std::snprintf(text, sizeof text, "%.17g", any);
        if (kind == 2)
            std::snprintf(text, sizeof text, "%u", static_cast<unsigned>(random() % 10000));
        texts.emplace_back(text);
    }
    return texts;
}

std::vector<double> numbers(std::int64_t kind) {
    std::vector<double> values;
    for (const std::string& text : numberTexts(kind))
        values.push_back(std::strtod(text.c_str(), nullptr));
    return values;
}

void require(benchmark::State& state, bool holds) {
    if (!holds) state.SkipWithError("wrong result");
}

template <class Read>
void readNumbers(benchmark::State& state, Read read) {
    const auto texts = numberTexts(state.range(0));
    for (const std::string& text : texts)
        require(state, read(text) == std::strtod(text.c_str(), nullptr));
    for (auto _ : state) {
        double sum = 0;
        for (const std::string& text : texts) sum += read(text);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void BM_Read_StringToRealA(benchmark::State& state) {
    readNumbers(state, [](const std::string& text) {
        std::uint32_t flags = 0;
        std::uint64_t consumed = 0;
        return StringToRealA(text.c_str(), &flags, &consumed, 10);
    });
}
void BM_Read_from_chars(benchmark::State& state) {
    readNumbers(state, [](const std::string& text) {
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    });
}
void BM_Read_strtod(benchmark::State& state) {
    readNumbers(state, [](const std::string& text) { return std::strtod(text.c_str(), nullptr); });
}
BENCHMARK(BM_Read_StringToRealA)->DenseRange(0, 2);
BENCHMARK(BM_Read_from_chars)->DenseRange(0, 2);
BENCHMARK(BM_Read_strtod)->DenseRange(0, 2);

template <class Print>
void printNumbers(benchmark::State& state, Print print) {
    const auto values = numbers(state.range(0));
    char buffer[512];
    for (auto _ : state) {
        std::size_t length = 0;
        for (const double value : values) length += print(value, buffer);
        benchmark::DoNotOptimize(length);
        benchmark::DoNotOptimize(buffer);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

// digits is the second argument; 0 is the default of RealToBuffer, 15 in base 10.
void BM_Print_RealToBufferA(benchmark::State& state) {
    printNumbers(state, [&](double value, char* buffer) {
        return RealToBufferA(value, buffer, static_cast<std::uint32_t>(state.range(1)), 10);
    });
}
void BM_Print_to_chars(benchmark::State& state) {
    printNumbers(state, [&](double value, char* buffer) {
        const int digits = static_cast<int>(state.range(1)) - 1;
        return static_cast<std::size_t>(
            std::to_chars(buffer, buffer + 512, value, std::chars_format::scientific, digits).ptr -
            buffer);
    });
}
void BM_Print_snprintf(benchmark::State& state) {
    printNumbers(state, [&](double value, char* buffer) {
        const int digits = static_cast<int>(state.range(1)) - 1;
        return static_cast<std::size_t>(std::snprintf(buffer, 512, "%.*e", digits, value));
    });
}
BENCHMARK(BM_Print_RealToBufferA)->ArgsProduct({{0, 1, 2}, {6, 15, 0}});
BENCHMARK(BM_Print_to_chars)->ArgsProduct({{0, 1, 2}, {6, 15}});
BENCHMARK(BM_Print_snprintf)->ArgsProduct({{0, 1, 2}, {6, 15}});

// 100 MB, the pattern once at the very end. Kinds: 0 words of lower-case letters with the
// frequencies of English, 1 any bytes but 0, 2 two letters only.
constexpr std::size_t kTextBytes = 100000000;

const std::string& searchedText(std::int64_t kind) {
    static std::string texts[3];
    std::string& text = texts[kind];
    if (!text.empty()) return text;
    static constexpr char kLetters[] =
        "eeeeeeeeeeeetttttttttaaaaaaaaooooooooiiiiiiinnnnnnnsssssshhhhhhrrrrrrddddlllluuucccmmmffww"
        "yyggppbbvk          .,";
    std::mt19937_64 random(11);
    text.resize(kTextBytes);
    for (char& c : text) {
        const std::uint64_t draw = random();
        c = kind == 0   ? kLetters[draw % (sizeof kLetters - 1)]
            : kind == 1 ? static_cast<char>(draw % 255 + 1)
                        : static_cast<char>('a' + (draw & 1));
    }
    return text;
}

// A pattern like the text, of length characters, which stands at the text's end alone.
std::string pattern(std::int64_t kind, std::size_t length) {
    std::string piece = searchedText(kind).substr(kTextBytes - length);
    return piece;
}

template <class Search>
void searchText(benchmark::State& state, Search search) {
    const std::string& text = searchedText(state.range(0));
    const std::string wanted = pattern(state.range(0), static_cast<std::size_t>(state.range(1)));
    const std::size_t expected = text.find(wanted);
    for (auto _ : state) {
        const char* found = search(text, wanted);
        benchmark::ClobberMemory();  // or a compiler that knows memmem asks it once
        if (found != text.data() + expected) return require(state, false);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(expected));
}

void BM_Search_StringLocateSubStringA(benchmark::State& state) {
    searchText(state, [](const std::string& text, const std::string& wanted) {
        return StringLocateSubStringA(text.c_str(), wanted.c_str(), text.size(), wanted.size(),
                                      nullptr);
    });
}
void BM_Search_StringLocateSubStringExA_ignoring_case(benchmark::State& state) {
    searchText(state, [](const std::string& text, const std::string& wanted) {
        return StringLocateSubStringExA(text.c_str(), wanted.c_str(), text.size(), wanted.size(), 1,
                                        0, nullptr);
    });
}
#ifndef _WIN32
void BM_Search_memmem(benchmark::State& state) {
    searchText(state, [](const std::string& text, const std::string& wanted) {
        return static_cast<const char*>(
            memmem(text.data(), text.size(), wanted.data(), wanted.size()));
    });
}
#endif
void BM_Search_boyer_moore_searcher(benchmark::State& state) {
    searchText(state, [](const std::string& text, const std::string& wanted) {
        const std::boyer_moore_searcher searcher(wanted.begin(), wanted.end());
        return std::search(text.data(), text.data() + text.size(), searcher);
    });
}
#define NUV64_SEARCHES \
    ArgsProduct({{0, 1}, {4, 12, 40, 400}})->Args({2, 40})->Unit(benchmark::kMillisecond)
BENCHMARK(BM_Search_StringLocateSubStringA)->NUV64_SEARCHES;
BENCHMARK(BM_Search_StringLocateSubStringExA_ignoring_case)
    ->Args({1, 12})
    ->Args({1, 40})
    ->Unit(benchmark::kMillisecond);
#ifndef _WIN32
BENCHMARK(BM_Search_memmem)->NUV64_SEARCHES;
#endif
BENCHMARK(BM_Search_boyer_moore_searcher)->NUV64_SEARCHES;

template <class Move>
void moveBlock(benchmark::State& state, Move move) {
    const auto bytes = static_cast<std::size_t>(state.range(0));
    std::vector<char> from(bytes, 1), to(bytes, 2);
    for (auto _ : state) {
        move(to.data(), from.data(), bytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
void BM_Memory_MemCopy(benchmark::State& state) {
    moveBlock(state, [](char* to, char* from, std::size_t bytes) { MemCopy(to, from, bytes); });
}
void BM_Memory_memcpy(benchmark::State& state) {
    moveBlock(state, [](char* to, char* from, std::size_t bytes) { std::memcpy(to, from, bytes); });
}
void BM_Memory_MemZero(benchmark::State& state) {
    moveBlock(state, [](char* to, char*, std::size_t bytes) { MemZero(to, bytes); });
}
void BM_Memory_memset(benchmark::State& state) {
    moveBlock(state, [](char* to, char*, std::size_t bytes) { std::memset(to, 0, bytes); });
}
#define NUV64_BLOCKS Arg(64)->Arg(4096)->Arg(1 << 20)->Arg(1 << 26)
BENCHMARK(BM_Memory_MemCopy)->NUV64_BLOCKS;
BENCHMARK(BM_Memory_memcpy)->NUV64_BLOCKS;
BENCHMARK(BM_Memory_MemZero)->NUV64_BLOCKS;
BENCHMARK(BM_Memory_memset)->NUV64_BLOCKS;

// Numbers behind pointers, in random order.
template <class Sort>
void sortPointers(benchmark::State& state, Sort sort) {
    std::mt19937_64 random(3);
    std::vector<double> values(static_cast<std::size_t>(state.range(0)));
    for (double& value : values) value = static_cast<double>(random() >> 11);
    std::vector<void*> items;
    for (double& value : values) items.push_back(&value);
    std::shuffle(items.begin(), items.end(), random);
    std::vector<void*> sorted;
    for (auto _ : state) {
        state.PauseTiming();
        std::shuffle(items.begin(), items.end(), random);  // or the branches would be learnt
        sorted = items;
        state.ResumeTiming();
        sort(sorted);
    }
    require(state, std::is_sorted(sorted.begin(), sorted.end(), [](const void* a, const void* b) {
                return *static_cast<const double*>(a) < *static_cast<const double*>(b);
            }));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

std::int32_t compareNumbers(const void* a, const void* b) {
    const double x = *static_cast<const double*>(a), y = *static_cast<const double*>(b);
    return (x > y) - (x < y);
}

void BM_Sort_HeapSortByPointers(benchmark::State& state) {
    sortPointers(state, [](std::vector<void*>& items) {
        HeapSortByPointers(items.size(), items.data(), compareNumbers, 1);
    });
}
void BM_Sort_make_and_sort_heap(benchmark::State& state) {
    // Through a pointer that the compiler can't see through, as a host's function is called.
    auto* volatile compare = compareNumbers;
    sortPointers(state, [&](std::vector<void*>& items) {
        auto* const order = compare;
        const auto before = [order](const void* a, const void* b) { return order(a, b) < 0; };
        std::make_heap(items.begin(), items.end(), before);
        std::sort_heap(items.begin(), items.end(), before);
    });
}
BENCHMARK(BM_Sort_HeapSortByPointers)->Arg(1000)->Arg(100000);
BENCHMARK(BM_Sort_make_and_sort_heap)->Arg(1000)->Arg(100000);

}  // namespace
