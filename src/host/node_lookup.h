// Nodes by the index that a host gives.
#pragma once

#include <cstdint>

#include "data/data_object.h"
#include "host/command_table.h"

namespace nuv64 {

// The zone of that index; null without data and for an index that doesn't exist.
cKoData* zoneAt(const cKoData* data, std::uint64_t index) noexcept;
// The same, but the number of zones gives the experiment itself.
cKoData* zoneOrExperimentAt(cKoData* data, std::uint64_t index) noexcept;
// By the table's word; null when there is no such node.
cKoData* findNode(cKoData& data, CommandNode which, std::uint64_t index) noexcept;

}  // namespace nuv64
