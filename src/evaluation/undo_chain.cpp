// Whole copies of the experiment, newest first, linked through Previous.
#include <memory>
#include <new>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/status_words.h"
#include "evaluation/task_engine.h"
#include "nuv64/host/command.h"

namespace nuv64 {
namespace {

template <class Body>
std::uint32_t runUndoable(NuvCommandBlock& block, Body body) {
    if (!block.Data) return status::kMissingInput;
    const bool pushed = !(block.Flags & NoUndoSnapshot) && PushSnapshot(&block.Data);
    const std::uint32_t status = body();
    if (status != kSuccess && pushed) PopSnapshot(&block.Data);
    return status;
}

}  // namespace

cKoData* PushSnapshot(cKoData** data) noexcept {
    if (!data || !*data) return nullptr;
    return guardValue<cKoData*>(nullptr, [&]() -> cKoData* {
        auto copy = std::make_unique<cKoData>();
        if (copy->CopyFrom(*data) != kSuccess) return nullptr;
        copy->Previous = *data;
        return *data = copy.release();
    });
}

cKoData* PopSnapshot(cKoData** data) noexcept {
    if (!data || !*data || !(*data)->Previous) return nullptr;
    const std::unique_ptr<cKoData> newest(*data);
    *data = newest->Previous;
    newest->Previous = nullptr;
    return *data;
}

std::uint32_t runScriptCommand(NuvCommandBlock* block, const char* script) {
    return runUndoable(*block, [&] { return RunScript(block->Data, script, block); });
}

std::uint32_t runStepCommand(NuvCommandBlock* block, EvpRecord* evp) {
    return runUndoable(*block, [&] { return RunEvp(block->Data, evp, block); });
}

}  // namespace nuv64
