#include "core/console_host.h"

#include "platform/platform.h"

namespace nuv64 {

namespace {

bool consoleHost = false;

}  // namespace

void setConsoleHost(bool isConsole) noexcept {
    consoleHost = isConsole;
}

bool consoleMayAsk() noexcept {
    return consoleHost || platform::inputIsTerminal();
}

}  // namespace nuv64
