#include "info.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "host.h"
#include "native.h"
#include "numbers.h"
#include "table.h"

namespace koapp {
namespace {

constexpr int kShownDigits = 6;

using Parameters = std::vector<std::pair<std::string, std::string>>;

const char* gridName(std::uint64_t grid) {
    switch (grid) {
        case 1:
            return "linear";
        case 2:
            return "logarithmic";
        case 3:
            return "inverse";
        case 4:
            return "square";
        default:
            return "no grid";
    }
}

std::string range(double first, double last) {
    return numberText(first, kShownDigits) + " .. " + numberText(last, kShownDigits);
}

std::string axisText(Host& host, std::uint64_t zone, const KoDataLayout& node) {
    std::string text;
    if (node.BlockAxisCount != 0) {
        text = "list of " + numberText(node.BlockAxisCount) + ", " +
               range(node.BlockAxis[0], node.BlockAxis[node.BlockAxisCount - 1]);
    } else {
        text = std::string(gridName(host.number(CmdZoneGrid, zone))) + " " +
               range(host.real(CmdZoneXFirst, zone), host.real(CmdZoneXLast, zone));
    }
    const std::string unit = host.text(CmdZoneXUnit, zone);
    return text + " " + (unit.empty() ? "s" : unit);
}

std::string zoneTable(Host& host) {
    Table table({"zone", "number", "sequence", "blocks", "points", "BRLX [MHz]", "block axis"},
                "rrlrrrl");
    const KoDataLayout* node = firstChild(*host.data());
    for (std::uint64_t zone = 0; node; ++zone, node = nextSibling(*node)) {
        table.add({numberText(zone + 1), numberText(node->ZoneNumber),
                   host.text(CmdExperimentName, zone), numberText(host.number(CmdBlockCount, zone)),
                   numberText(host.number(CmdBlockPoints, zone)),
                   shortened(host.parameter(zone, "BRLX"), kShownDigits),
                   axisText(host, zone, *node)});
    }
    return table.text();
}

// Key, tab, value, tab, and so on.
Parameters parametersOf(Host& host, std::uint64_t zone) {
    Parameters parameters;
    const std::string list = host.newText(CmdParameterList, zone);
    std::size_t at = 0;
    while (at < list.size()) {
        const std::size_t keyEnd = std::min(list.find('\t', at), list.size());
        const std::size_t valueFrom = std::min(keyEnd + 1, list.size());
        const std::size_t valueEnd = std::min(list.find('\t', valueFrom), list.size());
        parameters.emplace_back(list.substr(at, keyEnd - at),
                                list.substr(valueFrom, valueEnd - valueFrom));
        at = valueEnd + 1;
    }
    return parameters;
}

bool holds(const Parameters& parameters, const std::pair<std::string, std::string>& line) {
    return std::find(parameters.begin(), parameters.end(), line) != parameters.end();
}

std::string lineText(const std::pair<std::string, std::string>& line) {
    return "  " + line.first + " = " + line.second + "\n";
}

// Most parameters are the same in all zones: they are listed once, the others zone by zone.
std::string parameterText(Host& host) {
    std::vector<Parameters> zones;
    for (std::uint64_t zone = 0; zone < host.data()->ChildCount; ++zone) {
        zones.push_back(parametersOf(host, zone));
    }
    if (zones.empty()) return {};
    Parameters common;
    for (const auto& line : zones.front()) {
        if (std::all_of(zones.begin(), zones.end(),
                        [&](const Parameters& zone) { return holds(zone, line); })) {
            common.push_back(line);
        }
    }
    std::string text = "\nParameters of all zones\n";
    for (const auto& line : common) text += lineText(line);
    for (std::size_t zone = 0; zone < zones.size(); ++zone) {
        if (zones[zone].size() == common.size()) continue;
        text += "\nParameters of zone " + numberText(zone + 1) + "\n";
        for (const auto& line : zones[zone]) {
            if (!holds(common, line)) text += lineText(line);
        }
    }
    return text;
}

}  // namespace

void showInfo(const std::filesystem::path& file) {
    Host host;
    host.load(file);
    const std::uint64_t zones = host.data()->ChildCount;
    const auto* path = reinterpret_cast<const char16_t*>(
        static_cast<std::uintptr_t>(host.number(CmdZonePath, zones)));
    print(shownPath(path) + "\n" + host.text(CmdZoneDataType, zones) + ", " + numberText(zones) +
          (zones == 1 ? " zone\n\n" : " zones\n\n"));
    print(zoneTable(host));
    print(parameterText(host));
    flushOutput();
}

}  // namespace koapp
