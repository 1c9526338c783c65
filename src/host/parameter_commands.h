// Commands on the parameter blocks of nodes.
#pragma once

#include "host/command_context.h"

namespace nuv64 {

std::uint32_t parameterCount(CommandContext& context);
std::uint32_t parameterList(CommandContext& context);
std::uint32_t setParameter(CommandContext& context);
std::uint32_t getParameter(CommandContext& context);

}  // namespace nuv64
