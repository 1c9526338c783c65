// Loading the measured glycerol file against the least that any reader must do: std::from_chars
// over the same text. Both run alternately in one loop, and the ratio is what counts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#if defined(__linux__)
#include <malloc.h>
#include <unistd.h>
#endif

#include "data/data_object.h"
#include "nuv64/data/data_object.h"

namespace {

const std::string kFile = std::string(NUV64_MEASURED_DATA) + "/stelar/glycerol_d3_300K_classic.sdf";

std::string fileText() {
    std::ifstream file(kFile, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::uint32_t load(cKoData& data) {
    const std::u16string path(kFile.begin(), kFile.end());
    return LoadKoDataEx(&data, NUV64_SOURCE_STELAR, path.c_str());
}

// Sum of all numbers of the text; whatever is none is stepped over.
double sumOfNumbers(const std::string& text) {
    double sum = 0.0;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        double value = 0.0;
        const auto [behind, error] = std::from_chars(at, end, value);
        if (error == std::errc()) {
            sum += value;
            at = behind;
        } else {
            ++at;
        }
    }
    return sum;
}

std::uint64_t sampleBytes(const cKoData& root) {
    std::uint64_t bytes = 0;
    for (const cKoData* zone = root.FirstChild(); zone; zone = zone->Next()) {
        for (const cKoData* block = zone->FirstChild(); block; block = block->Next()) {
            bytes += block->Channels * block->Points * sizeof(double);
        }
    }
    return bytes;
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void LoadAgainstFromChars(benchmark::State& state) {
    const std::string text = fileText();
    if (text.empty()) {
        state.SkipWithError("no measured file");
        return;
    }
    double loading = 1e9;  // best of all rounds, seconds
    double plain = 1e9;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        {
            cKoData data;
            if (load(data) != 0 || data.ChildCount() != 41) {
                state.SkipWithError("the file was not read");
                return;
            }
            loading = std::min(loading, secondsSince(start));
        }
        start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(sumOfNumbers(text));
        plain = std::min(plain, secondsSince(start));
    }
    state.counters["load_ms"] = 1e3 * loading;
    state.counters["from_chars_ms"] = 1e3 * plain;
    state.counters["ratio"] = loading / plain;
    state.counters["MB_per_s"] = 1e-6 * static_cast<double>(text.size()) / loading;
}
BENCHMARK(LoadAgainstFromChars)->Unit(benchmark::kMillisecond);

#if defined(__linux__)
double residentBytes() {
    std::ifstream statm("/proc/self/statm");
    double pages = 0.0;
    double resident = 0.0;
    statm >> pages >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// Resident memory that one load adds, over the bytes of the samples and the file's text.
void ResidentAfterLoad(benchmark::State& state) {
    const double text = static_cast<double>(fileText().size());
    double worst = 0.0;
    double samples = 1.0;
    for (auto _ : state) {
        malloc_trim(0);
        const double before = residentBytes();
        cKoData data;
        if (load(data) != 0) {
            state.SkipWithError("no measured file");
            return;
        }
        samples = static_cast<double>(sampleBytes(data));
        worst = std::max(worst, residentBytes() - before);
    }
    state.counters["resident_MB"] = 1e-6 * worst;
    state.counters["samples_and_text_MB"] = 1e-6 * (samples + text);
    state.counters["ratio"] = worst / (samples + text);
}
BENCHMARK(ResidentAfterLoad)->Unit(benchmark::kMillisecond);
#endif

}  // namespace

BENCHMARK_MAIN();
