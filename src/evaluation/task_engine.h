// Runs task scripts over a tree of nodes: the driver, the undo chain.
#pragma once

#include <cstdint>

#include "nuv64/core/types.h"
#include "nuv64/evaluation/task_step.h"

namespace nuv64 {

// All take the root node (or the node in hand) and the command block, null for none. All return a
// status and let no exception out.

// Runs the steps of script, or of the root's own script when it is null or empty. A step runs from
// behind a "#" to the next one; the first failure ends the run.
std::uint32_t RunScript(cKoData* root, const char* script, NuvCommandBlock* block);
// Parses one step and runs it. The comment is cut off line in place.
std::uint32_t RunScriptLine(cKoData* root, char* line, NuvCommandBlock* block);
// Runs a step and sends its report by event 20.
std::uint32_t RunEvp(cKoData* root, EvpRecord* evp, NuvCommandBlock* block);
// Walks down to the nodes of the step's level and runs it there.
std::uint32_t DispatchEvp(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);
// Both passes on a target node, or on its children.
std::uint32_t RunOnNode(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);
std::uint32_t PrePass(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);
std::uint32_t BlockPass(cKoData* node, EvpRecord* evp, NuvCommandBlock* block);

// Puts a deep copy of the head on the chain; null, and nothing changed, when memory is short.
cKoData* PushSnapshot(cKoData** data) noexcept;
// Removes the newest snapshot; null, and nothing changed, when there is none.
cKoData* PopSnapshot(cKoData** data) noexcept;

// What the commands that run steps do with block->Data: 14 without data; a snapshot first, unless
// the block forbids it; the run; after a failure back to the state before. A snapshot that memory
// can't hold is done without: the run goes on in place and its failure leaves what it changed.
std::uint32_t runScriptCommand(NuvCommandBlock* block, const char* script);
std::uint32_t runStepCommand(NuvCommandBlock* block, EvpRecord* evp);

}  // namespace nuv64
