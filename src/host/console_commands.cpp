#include "host/console_commands.h"

#include "core/guard.h"
#include "nuv64/core/console_control.h"
#include "nuv64/core/console_menu.h"
#include "nuv64/core/console_output.h"

namespace nuv64 {

std::uint32_t controlConsole(CommandContext& context) {
    ConScipio(inputAs<const char16_t>(context.block));
    return kSuccess;
}

std::uint32_t consoleText(CommandContext& context) {
    CoutStr(inputAs<const char16_t>(context.block));
    return kSuccess;
}

std::uint32_t consoleTextA(CommandContext& context) {
    CoutStrA(inputAs<const char>(context.block));
    return kSuccess;
}

std::uint32_t consoleMenu(CommandContext& context) {
    const auto* menu = inputAs<const ConMenuRow>(context.block);
    return menu ? ConMenu(menu, menu->word, &context.block) : kSuccess;
}

}  // namespace nuv64
