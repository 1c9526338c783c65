// Commands that bring data in and write files.
#pragma once

#include <string>

#include "host/command_context.h"

namespace nuv64 {

// Parameter text as parameter blocks hold it: every line end, CR LF or LF, is a CR.
std::string withCarriageReturns(const char* text);

std::uint32_t loadData(CommandContext& context);
std::uint32_t exportData(CommandContext& context);
std::uint32_t writeTextFile(CommandContext& context);

}  // namespace nuv64
