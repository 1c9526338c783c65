// Taking a command line apart, as the Microsoft C runtime does it (its documentation, "Parsing C++
// command-line arguments"), so that one text means the same on every system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nuv64::platform {

// The program: up to the closing quote, or the first blank when it starts with none. Then the
// arguments: blanks part them, quotes keep blanks together, and a quote is taken literally behind
// an odd number of backslashes, of which every two stand for one, and as the second of two inside
// quotes. Other backslashes are themselves.
std::vector<std::string> splitCommandLine(std::string_view line);

}  // namespace nuv64::platform
