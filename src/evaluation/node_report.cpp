// REPORT: a node's numbers as text.
#include <algorithm>
#include <array>
#include <string>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"

namespace nuv64 {
namespace {

template <class... Arguments>
void append(std::string& text, const char* format, Arguments... arguments) {
    std::array<char, 64> buffer{};
    SprintfToBufferA(buffer.data(), buffer.size(), format, arguments...);
    text += buffer.data();
}

std::string tableOf(const cKoData& node) {
    std::string rows;
    for (std::uint64_t point = 0; point < node.Points; ++point) {
        append(rows, "\n %u\t%g", narrow(point), node.Channel(0)[point]);
        for (std::uint64_t channel = 1; channel < node.Channels; ++channel) {
            append(rows, " %g", node.Channel(channel)[point]);
        }
    }
    return rows;
}

}  // namespace

// Every node of the step adds its table.
std::uint32_t runReport(cKoData& node, EvpRecord& evp, NuvCommandBlock*) {
    if (evp.Mode == 0) return kSuccess;
    if (evp.Mode != 1) return status::kUnknownProcedure;
    if (!node.Samples) return status::kMissingInput;
    if (evp.Zone != kUnset) report(evp, " Zone: %u\n", narrow(evp.Zone + 1));
    if (evp.Block != kUnset) report(evp, " Block: %u\n", narrow(evp.Block + 1));
    report(evp, " Channels: %u\n", narrow(node.Channels));
    report(evp, " Points: %u", narrow(node.Points));
    report(evp, "%s", tableOf(node).c_str());
    return kSuccess;
}

}  // namespace nuv64
