#include "host/node_lookup.h"

namespace nuv64 {

cKoData* zoneAt(const cKoData* data, std::uint64_t index) noexcept {
    return data ? data->ChildAt(index) : nullptr;
}

cKoData* zoneOrExperimentAt(cKoData* data, std::uint64_t index) noexcept {
    if (data && index == data->ChildCount()) return data;
    return zoneAt(data, index);
}

cKoData* findNode(cKoData& data, CommandNode which, std::uint64_t index) noexcept {
    if (which == CommandNode::ZoneOrExperiment) return zoneOrExperimentAt(&data, index);
    cKoData* zone = zoneAt(&data, index);
    if (which == CommandNode::FirstBlock && zone) return zone->FirstChild();
    return zone;
}

}  // namespace nuv64
