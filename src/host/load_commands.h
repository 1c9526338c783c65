// Commands that bring data in and write files.
#pragma once

#include "host/command_context.h"

namespace nuv64 {

std::uint32_t loadData(CommandContext& context);
std::uint32_t exportData(CommandContext& context);
std::uint32_t writeTextFile(CommandContext& context);

}  // namespace nuv64
