// Lines of text files against std::getline, whole reads against fread, and the search in a file.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "core/data_file.h"
#include "nuv64/core/file.h"
#include "nuv64/core/file_locate.h"
#include "nuv64/core/memory.h"

namespace {

constexpr std::size_t kFileBytes = 32 << 20;

// A file of lines with random lengths around the mean, in a temporary place; one for each mean.
struct LinesFile {
    std::filesystem::path path;
    std::size_t lines = 0;
    std::size_t characters = 0;  // without line ends

    explicit LinesFile(std::int64_t mean)
        : path(std::filesystem::temp_directory_path() /
               ("nuv64_lines_" + std::to_string(mean) + ".txt")) {
        std::mt19937 random(1);
        std::string content;
        while (content.size() < kFileBytes) {
            const std::size_t length = random() % static_cast<unsigned>(2 * mean + 1);
            for (std::size_t i = 0; i < length; ++i)
                content += static_cast<char>('0' + random() % 10);
            content += '\n';
            ++lines;
            characters += length;
        }
        std::ofstream(path, std::ios::binary) << content;
    }
    ~LinesFile() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    std::u16string wide() const { return path.u16string(); }
};

const LinesFile& linesOf(std::int64_t mean) {
    static const LinesFile shortLines(9), lines(40), longLines(400);
    return mean == 9 ? shortLines : mean == 40 ? lines : longLines;
}

void report(benchmark::State& state, const LinesFile& file, std::size_t lines,
            std::size_t characters) {
    if (lines != file.lines || characters != file.characters) state.SkipWithError("wrong result");
    const auto passes = static_cast<std::int64_t>(state.iterations());
    state.SetBytesProcessed(passes * static_cast<std::int64_t>(file.lines + file.characters));
}

void BM_Lines_ReadLine(benchmark::State& state) {
    const LinesFile& lines = linesOf(state.range(0));
    std::size_t count = 0, characters = 0;
    for (auto _ : state) {
        cKoFile file(lines.wide().c_str(), nullptr, nullptr);
        file.OpenExisting(0, 0);
        char* text = nullptr;
        count = characters = 0;
        for (std::int64_t consumed; (consumed = file.ReadLine(&text)) > 0; ++count)
            characters += static_cast<std::size_t>(consumed) - 1;
        KillStringA(&text);
    }
    report(state, lines, count, characters);
}

void BM_Lines_ReadLineView(benchmark::State& state) {
    const LinesFile& lines = linesOf(state.range(0));
    std::size_t count = 0, characters = 0;
    for (auto _ : state) {
        cKoFile file(lines.wide().c_str(), nullptr, nullptr);
        file.OpenExisting(0, 0);
        std::string_view text;
        count = characters = 0;
        for (; file.ReadLineView(text) > 0; ++count) characters += text.size();
    }
    report(state, lines, count, characters);
}

void BM_Lines_getline(benchmark::State& state) {
    const LinesFile& lines = linesOf(state.range(0));
    std::size_t count = 0, characters = 0;
    for (auto _ : state) {
        std::ifstream file(lines.path, std::ios::binary);
        std::string text;
        count = characters = 0;
        for (; std::getline(file, text); ++count) characters += text.size();
    }
    report(state, lines, count, characters);
}
BENCHMARK(BM_Lines_ReadLine)->Arg(9)->Arg(40)->Arg(400)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Lines_ReadLineView)->Arg(9)->Arg(40)->Arg(400)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Lines_getline)->Arg(9)->Arg(40)->Arg(400)->Unit(benchmark::kMillisecond);

// Blocks of a few bytes, as binary readers take them.
void BM_Blocks_Read(benchmark::State& state) {
    const LinesFile& lines = linesOf(400);
    char block[4096];
    for (auto _ : state) {
        cKoFile file(lines.wide().c_str(), nullptr, nullptr);
        file.OpenExisting(0, 0);
        while (file.Read(block, state.range(0)) == state.range(0)) benchmark::DoNotOptimize(block);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(lines.lines + lines.characters));
}
void BM_Blocks_fread(benchmark::State& state) {
    const LinesFile& lines = linesOf(400);
    const auto size = static_cast<std::size_t>(state.range(0));
    char block[4096];
    for (auto _ : state) {
        std::FILE* file = std::fopen(lines.path.string().c_str(), "rb");
        while (std::fread(block, 1, size, file) == size) benchmark::DoNotOptimize(block);
        std::fclose(file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(lines.lines + lines.characters));
}
BENCHMARK(BM_Blocks_Read)->Arg(8)->Arg(4096)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Blocks_fread)->Arg(8)->Arg(4096)->Unit(benchmark::kMillisecond);

void BM_Locate_FileLocateStringA(benchmark::State& state) {
    const LinesFile& lines = linesOf(40);
    std::int64_t file = FileOpen(lines.wide().c_str(), 2);
    for (auto _ : state) {
        if (FileLocateStringA(file, "not there", 16, 0, 0) != 0) state.SkipWithError("found");
    }
    FileClose(&file, 0);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(lines.lines + lines.characters));
}
BENCHMARK(BM_Locate_FileLocateStringA)->Unit(benchmark::kMillisecond);

}  // namespace
