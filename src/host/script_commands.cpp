#include "host/script_commands.h"

#include <memory>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/task_engine.h"
#include "host/node_lookup.h"

namespace nuv64 {
namespace {

// Puts fresh in the place of old: it joins at the end, and the followers of old move behind it.
void replaceZone(cKoData& data, cKoData* old, std::unique_ptr<cKoData> fresh) noexcept {
    cKoData* const joined = fresh.release();
    cKoData* follower = old->Next();
    data.AppendChild(joined);
    while (follower && follower != joined) {
        cKoData* const next = follower->Next();
        data.AppendChild(follower);
        follower = next;
    }
    data.RemoveItem(old);
}

std::uint32_t restoreZone(cKoData* data, std::uint64_t index, const cKoData* snapshotZone) {
    cKoData* zone = zoneAt(data, index);
    if (!zone || !snapshotZone) return kSuccess;
    auto copy = std::make_unique<cKoData>();
    const std::uint32_t status = copy->CopyFrom(snapshotZone);
    if (status == kSuccess) replaceZone(*data, zone, std::move(copy));
    return status;
}

}  // namespace

std::uint32_t runStep(CommandContext& context) {
    return runStepCommand(&context.block, inputAs<EvpRecord>(context.block));
}

std::uint32_t runScript(CommandContext& context) {
    return runScriptCommand(&context.block, inputAs<const char>(context.block));
}

std::uint32_t runStoredScript(CommandContext& context) {
    context.block.Input = 0;
    return runScriptCommand(&context.block, nullptr);
}

std::uint32_t undo(CommandContext& context) {
    const bool undone = PopSnapshot(&context.block.Data) != nullptr;
    answer(context.block, std::uint64_t{undone});
    if (undone) notifyHost(context.block, EvUndone);
    return kSuccess;
}

std::uint32_t restoreZonePrevious(CommandContext& context) {
    cKoData* data = context.block.Data;
    const cKoData* previous = data ? data->Previous : nullptr;
    return restoreZone(data, context.block.Input, zoneAt(previous, context.block.Input));
}

std::uint32_t restoreZoneOldest(CommandContext& context) {
    cKoData* data = context.block.Data;
    const cKoData* oldest = nullptr;
    for (const cKoData* state = data ? data->Previous : nullptr; state; state = state->Previous) {
        if (const cKoData* zone = zoneAt(state, context.block.Input)) oldest = zone;
    }
    return restoreZone(data, context.block.Input, oldest);
}

}  // namespace nuv64
