// Commands that describe the host, close data, turn a status into words and release memory.
#pragma once

#include "host/command_context.h"

namespace nuv64 {

// The process-wide copy of what the last command 3 said.
const ApplicationInfo& applicationInfo() noexcept;

// Deletes Data with its undo chain; without data nothing happens.
void closeData(NuvCommandBlock& block) noexcept;

std::uint32_t describeApplication(CommandContext& context);
std::uint32_t errorText(CommandContext& context);
std::uint32_t errorTextA(CommandContext& context);
std::uint32_t shellOpen(CommandContext& context);
std::uint32_t localTimeText(CommandContext& context);
std::uint32_t closeDataCommand(CommandContext& context);
std::uint32_t deleteObject(CommandContext& context);
std::uint32_t askImport(CommandContext& context);
std::uint32_t killBlock(CommandContext& context);
std::uint32_t doNothing(CommandContext& context);
std::uint32_t notYetImplemented(CommandContext& context);

}  // namespace nuv64
