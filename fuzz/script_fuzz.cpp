// Any text as a task script, on a small experiment of 2 zones, 3 blocks and 8 points. The steps
// run under the undo rule, with a host that listens; every report must be text.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "data/data_object.h"
#include "evaluation/task_engine.h"
#include "nuv64/host/command.h"

namespace {

constexpr std::size_t kMostSteps = 12;
constexpr int kMostFits = 6;        // later ones are stopped as they begin
constexpr int kMostProgress = 100;  // of all fits together

int fits = 0;
int progress = 0;

std::uint64_t listen(std::uint32_t event, NuvCommandBlock* block) {
    const auto* input = reinterpret_cast<const void*>(static_cast<std::uintptr_t>(block->Input));
    if (event == EvStepReport) {
        const auto* evp = static_cast<const EvpRecord*>(input);
        if (!evp->ReportText || evp->ReportText[0] != '#') std::abort();
    }
    if (event == EvFitProgress && std::strlen(static_cast<const char*>(input)) >= 512) std::abort();
    if (event == EvFitBegin && ++fits > kMostFits) block->Output |= 1;
    if (event == EvFitProgress && ++progress > kMostProgress) block->Output |= 1;
    return 0;
}

std::unique_ptr<cKoData> makeBlock(double amplitude) {
    auto block = std::make_unique<cKoData>();
    block->SetShape(8, 3, 1, 0.0, 7e-3);
    for (std::uint64_t i = 0; i < 8; ++i) {
        const double x = 1e-3 * static_cast<double>(i);
        block->Channel(0)[i] = x;
        block->Channel(1)[i] = amplitude * std::exp(-100.0 * x) + 0.01 * std::sin(7.0 * amplitude);
        block->Channel(2)[i] = amplitude * 0.3;
    }
    return block;
}

std::unique_ptr<cKoData> makeExperiment() {
    auto root = std::make_unique<cKoData>();
    for (int k = 0; k < 2; ++k) {
        auto zone = std::make_unique<cKoData>();
        zone->Parameters.AddText(k == 0 ? "BRLX=1\rBINI=0.1\rBEND=1\rBGRD=LOG\rTEMP=300"
                                        : "BRLX=(1+2)\rBINI=1\rBEND=0.1\rBGRD=LIN\rTEMP=310");
        const char* name = k == 0 ? "NP/S" : "00_PP-S";
        zone->ExperimentName = nuv64::copyText(name, std::strlen(name));
        // A zone with a curve of its own has something to fit without QARRAY.
        zone->SetShape(8, 3, 1, 0.1, 1.0);
        for (std::uint64_t i = 0; i < 8; ++i) {
            zone->Channel(0)[i] = 0.1 + 0.1 * static_cast<double>(i);
            zone->Channel(1)[i] = std::exp(-3.0 * zone->Channel(0)[i]);
        }
        for (int b = 0; b < 3; ++b) zone->AppendChild(makeBlock(1.0 + b).release());
        root->AppendChild(zone.release());
    }
    return root;
}

// The time of a fit grows with the fourth power of its components: the numbers of steps that fit
// are cut to one digit, without exponents and hexadecimal forms.
std::string tamed(const std::string& text) {
    std::string result;
    std::size_t steps = 0;
    bool fitting = false;
    bool atName = false;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == 0 || (c == '#' && ++steps > kMostSteps)) break;
        if (c == '#') {
            atName = true;
            fitting = false;
        } else if (atName && code > 32) {  // control characters count as blanks
            atName = false;
            fitting = c == 'f' || c == 'F';
        }
        const bool digitAfterDigit = std::isdigit(code) != 0 && !result.empty() &&
                                     std::isdigit(static_cast<unsigned char>(result.back())) != 0;
        const bool inNumber = !result.empty() &&
                              std::isdigit(static_cast<unsigned char>(result.back())) != 0 &&
                              std::strchr("eExXpP.", c) != nullptr;
        if (!fitting || (!digitAfterDigit && !inNumber)) result += c;
    }
    return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 2048) return 0;
    const std::string script = tamed(std::string(reinterpret_cast<const char*>(data), size));
    NuvCommandBlock block{};
    block.Callback = listen;
    block.Data = makeExperiment().release();
    fits = 0;
    progress = 0;
    const cKoData* before = block.Data;
    const std::uint32_t status = nuv64::runScriptCommand(&block, script.c_str());
    if (status != 0 && block.Data != before) std::abort();
    delete block.Data;
    return 0;
}
