// The whole road as a host walks it: load the measured glycerol file, reduce, fit, build the
// profile, write the table. Aim: below 50 ms.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "nuv64/data/data_object.h"
#include "nuv64/host/command.h"

namespace {

constexpr std::uint32_t kCsv = 10;
constexpr std::uint64_t kZones = 41;
constexpr char kScript[] =
    "# QArray, 1, 768, 1, , 0, 25\n"
    "# Fit, 3, 0, 1, , 0, -1, 1\n"
    "# FFCProfile, 1, 0, 2, , 1\n";

std::u16string modulePath(const std::filesystem::path& path) {
    std::u16string text = path.u16string();
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return text;
}

struct CloseBlock {
    void operator()(NuvCommandBlock* block) const noexcept { NuvCommand(CmdClose, block); }
};

std::uint64_t listen(std::uint32_t event, NuvCommandBlock* block) {
    if (event != EvLoadByHost) return 0;
    const auto& request = *reinterpret_cast<const HostLoadRequest*>(block->Input);
    return LoadKoDataEx(request.Data, static_cast<std::uint32_t>(request.SourceType), request.Path);
}

bool run(NuvCommandBlock* block, std::uint32_t command, const void* input) {
    block->Input = reinterpret_cast<std::uintptr_t>(input);
    NuvCommand(command, block);
    return block->Status == 0;
}

bool walk(const std::u16string& source, const std::u16string& table) {
    const std::unique_ptr<NuvCommandBlock, CloseBlock> block(NuvCommand(CmdOpen, nullptr));
    if (!block) return false;
    block->Callback = listen;
    LoadRequest load{};
    load.SourceType = NUV64_SOURCE_STELAR;
    load.Path = source.c_str();
    ExportRequest save{};
    save.ExportType = kCsv;
    save.Path = table.c_str();
    save.Zone = save.Block = UINT64_MAX;
    return run(block.get(), CmdLoad, &load) && run(block.get(), CmdRunScript, kScript) &&
           run(block.get(), CmdExport, &save);
}

// A wrong answer is not timed: the table has a line of two numbers for each zone.
bool tableIsWhole(const std::filesystem::path& table) {
    std::error_code error;
    const auto size = std::filesystem::file_size(table, error);
    return !error && size > 2 * 8 * kZones;
}

void LoadFitProfileAndTable(benchmark::State& state) {
    const std::filesystem::path source =
        std::filesystem::path(NUV64_MEASURED_DATA) / "stelar" / "glycerol_d3_300K_classic.sdf";
    const std::filesystem::path table = std::filesystem::temp_directory_path() / "nuv64_road.csv";
    if (!std::filesystem::exists(source)) {
        state.SkipWithError("no measured file");
        return;
    }
    const std::u16string sourcePath = modulePath(source.lexically_normal());
    const std::u16string tablePath = modulePath(table);
    for (auto _ : state) {
        std::filesystem::remove(table);
        if (!walk(sourcePath, tablePath) || !tableIsWhole(table)) {
            state.SkipWithError("the road does not lead through");
            return;
        }
    }
    std::filesystem::remove(table);
}
BENCHMARK(LoadFitProfileAndTable)->Unit(benchmark::kMillisecond);

}  // namespace
