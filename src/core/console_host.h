// Whether the user can be asked on the console.
#pragma once

namespace nuv64 {

// Command 3 passes on here whether the host described itself as a console application.
void setConsoleHost(bool isConsole) noexcept;

// True for such a host, and whenever standard input is a terminal.
bool consoleMayAsk() noexcept;

}  // namespace nuv64
