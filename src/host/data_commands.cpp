#include "host/data_commands.h"

#include <memory>
#include <string_view>

#include "core/guard.h"
#include "host/node_lookup.h"
#include "host/owned_copy.h"
#include "nuv64/core/system.h"

namespace nuv64 {
namespace {

void require(std::uint32_t status) {
    if (status != kSuccess) throw StatusError{status};
}

void copySource(cKoData& to, const cKoData& from) {
    to.DataSourceId = from.DataSourceId;
    to.DataSourceName = from.DataSourceName;
    to.FileTitle = copyOf(from.FileTitle);
    to.FileFolder = copyOf(from.FileFolder);
    to.FilePath = copyOf(from.FilePath);
    to.ExperimentType = from.ExperimentType;
    to.ExperimentName = copyOf(from.ExperimentName);
    require(to.Parameters.CopyFrom(&from.Parameters));
}

// "NP/S" and its kin name series of blocks; one block alone is the experiment without the "/S".
void nameAsOneBlock(cKoData& zone) {
    require(zone.Parameters.SetLine("NBLK", "1", ""));
    if (!zone.ExperimentName) return;
    const std::string_view name = zone.ExperimentName.get();
    if (!name.ends_with("/S")) return;
    zone.ExperimentName[name.size() - 2] = 0;
    require(zone.Parameters.SetLine("EXP", zone.ExperimentName.get(), ""));
}

std::unique_ptr<cKoData> zoneOfBlock(const cKoData& zone, const cKoData& block) {
    auto extracted = std::make_unique<cKoData>();
    auto copy = std::make_unique<cKoData>();
    require(copy->CopyFrom(&block));
    extracted->AppendChild(copy.release());
    copySource(*extracted, zone);
    nameAsOneBlock(*extracted);
    return extracted;
}

}  // namespace

// Every failure, also a block that isn't there, is told as an allocation failure: hosts test for
// it. The new zone is complete before it joins the experiment.
std::uint32_t extractBlock(CommandContext& context) {
    constexpr unsigned kZoneBits = 12;
    constexpr std::uint64_t kZoneMask = (1u << kZoneBits) - 1;
    cKoData* data = context.block.Data;
    const cKoData* zone = zoneAt(data, context.block.Input & kZoneMask);
    const cKoData* block = zone ? zone->ChildAt(context.block.Input >> kZoneBits) : nullptr;
    if (!block) return kAllocationFailure;
    return guardStatus([&] {
               data->AppendChild(zoneOfBlock(*zone, *block).release());
               return kSuccess;
           }) == kSuccess
               ? kSuccess
               : kAllocationFailure;
}

std::uint32_t openZoneFolder(CommandContext& context) {
    const cKoData* zone = zoneAt(context.block.Data, context.block.Input);
    if (zone && zone->FileFolder) OsShellOpen(zone->FileFolder.get());
    return kSuccess;
}

std::uint32_t dataTypeId(CommandContext& context) {
    const cKoData* data = context.block.Data;
    answer(context.block, data ? data->DataSourceId : std::uint64_t{0});
    return kSuccess;
}

std::uint32_t blockCount(CommandContext& context) {
    answer(context.block, context.node->ChildCount());
    return kSuccess;
}

std::uint32_t experimentName(CommandContext& context) {
    const cKoData* owner = context.node->ParameterOwner();
    answer(context.block, owner ? owner->ExperimentName.get() : nullptr);
    return kSuccess;
}

std::uint32_t setZoneMark(CommandContext& context) {
    const auto* request = inputAs<const ZoneAttributeRequest>(context.block);
    if (!request || !request->zone || !request->value) return kMissingInput;
    if (!context.block.Data) return kMissingData;
    cKoData* zone = zoneAt(context.block.Data, *request->zone);
    if (!zone) return kIllegalArgument;
    zone->HostMark = *request->value;
    return kSuccess;
}

}  // namespace nuv64
