#include "host/parameter_commands.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/guard.h"
#include "host/node_lookup.h"

namespace nuv64 {
namespace {

constexpr std::uint64_t kRoomPerParameter = 100;
constexpr std::uint64_t kValueRoom = 4096;

// What one line can hold, with the terminators.
struct LineBuffers {
    char key[cKoAsciPars::kKeyLimit + 1];
    char value[cKoAsciPars::kLongValueLimit + 1];
};

std::string listOf(const cKoAsciPars& parameters) {
    std::string list;
    list.reserve(parameters.LineCount * kRoomPerParameter);
    const auto line = std::make_unique<LineBuffers>();
    std::uint64_t position = 0;
    while ((position = parameters.NextLine(position, line->key, line->value, nullptr)) !=
           cKoAsciPars::kNotFound) {
        list.append(line->key).append("\t").append(line->value).append("\t");
    }
    return list;
}

std::vector<cKoData*> zonesNamed(cKoData& data, std::uint64_t index) {
    std::vector<cKoData*> zones;
    if (index == kAllOnes) {
        for (cKoData* zone = data.FirstChild(); zone; zone = zone->Next()) zones.push_back(zone);
    } else if (cKoData* zone = data.ChildAt(index)) {
        zones.push_back(zone);
    }
    return zones;
}

void exchange(cKoAsciPars& a, cKoAsciPars& b) noexcept {
    std::swap(a.Text, b.Text);
    std::swap(a.LineCount, b.LineCount);
    std::swap(a.Capacity, b.Capacity);
    std::swap(a.Length, b.Length);
}

const char* textOrEmpty(const char* text) noexcept {
    return text ? text : "";
}

}  // namespace

std::uint32_t parameterCount(CommandContext& context) {
    answer(context.block, context.node->Parameters.LineCount);
    return kSuccess;
}

std::uint32_t parameterList(CommandContext& context) {
    NuvCommandBlock& block = context.block;
    answer(block, std::uint64_t{0});
    if (!block.Data) return kSuccess;
    const cKoData* node = zoneOrExperimentAt(block.Data, block.Input);
    if (!node) return kIllegalArgument;
    const std::string list = listOf(node->Parameters);
    answer(block, pointerBits(copyText(list.data(), list.size()).release()));
    return kSuccess;
}

// The new blocks are all made before the first takes its place: setting one key in many zones must
// not stop half-way for want of memory.
std::uint32_t setParameter(CommandContext& context) {
    const auto* request = inputAs<const ParameterRequest>(context.block);
    if (!request) return kMissingInput;
    if (!context.block.Data) return kMissingData;
    const std::vector<cKoData*> zones = zonesNamed(*context.block.Data, request->Zone);
    if (zones.empty() && request->Zone != kAllOnes) return kIllegalArgument;

    std::vector<cKoAsciPars> changed(zones.size());
    for (std::size_t i = 0; i < zones.size(); ++i) {
        std::uint32_t status = changed[i].CopyFrom(&zones[i]->Parameters);
        if (status == kSuccess) {
            status = changed[i].SetLine(textOrEmpty(request->Key), textOrEmpty(request->Value), "");
        }
        if (status != kSuccess) return status;
    }
    for (std::size_t i = 0; i < zones.size(); ++i) exchange(zones[i]->Parameters, changed[i]);
    return kSuccess;
}

std::uint32_t getParameter(CommandContext& context) {
    const auto* request = inputAs<const ParameterRequest>(context.block);
    if (!request) return kMissingInput;
    if (!context.block.Data) return kMissingData;
    const cKoData* node = zoneOrExperimentAt(context.block.Data, request->Zone);
    if (!node) return kIllegalArgument;

    OwnedText value = allocate<char>(kValueRoom);
    if (node->Parameters.GetText(textOrEmpty(request->Key), value.get(), nullptr) ==
        cKoAsciPars::kNotFound) {
        answer(context.block, std::uint64_t{0});
        return kMissingParameters;
    }
    answer(context.block, pointerBits(value.release()));
    return kSuccess;
}

}  // namespace nuv64
