// Runs task scripts over a tree of nodes: the driver, the undo chain.
#pragma once

#include <cstdint>

#include "nuv64/core/types.h"
#include "nuv64/evaluation/task_step.h"

namespace nuv64 {

// All take the root node (or the node in hand) and the command block, null for none.
std::uint32_t RunScript(cKoData* root, const char* script, NuvCommandBlock* block);
std::uint32_t RunScriptLine(cKoData* root, char* line, NuvCommandBlock* block);
std::uint32_t RunEvp(cKoData* root, EvpRecord* evp, NuvCommandBlock* block);
std::uint32_t DispatchEvp(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);
std::uint32_t RunOnNode(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);
std::uint32_t PrePass(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);
std::uint32_t BlockPass(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);

// Puts a deep copy of the head on the chain; null, and nothing changed, when memory is short.
cKoData* PushSnapshot(cKoData** data) noexcept;
// Removes the newest snapshot; null, and nothing changed, when there is none.
cKoData* PopSnapshot(cKoData** data) noexcept;

}  // namespace nuv64
