// Commands that run task scripts and walk the undo chain.
#pragma once

#include "host/command_context.h"

namespace nuv64 {

std::uint32_t runStep(CommandContext& context);
std::uint32_t runScript(CommandContext& context);
std::uint32_t runStoredScript(CommandContext& context);
std::uint32_t undo(CommandContext& context);
std::uint32_t restoreZonePrevious(CommandContext& context);
std::uint32_t restoreZoneOldest(CommandContext& context);

}  // namespace nuv64
