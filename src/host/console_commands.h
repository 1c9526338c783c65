// The console for hosts: control texts, text and menus.
#pragma once

#include <cstdint>

#include "host/command_context.h"

namespace nuv64 {

std::uint32_t controlConsole(CommandContext& context);
std::uint32_t consoleText(CommandContext& context);
std::uint32_t consoleTextA(CommandContext& context);
std::uint32_t consoleMenu(CommandContext& context);

}  // namespace nuv64
