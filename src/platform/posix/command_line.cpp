#include "platform/posix/command_line.h"

#include <algorithm>

namespace nuv64::platform {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string takeProgram(std::string_view& rest) {
    const bool quoted = !rest.empty() && rest.front() == '"';
    if (quoted) rest.remove_prefix(1);
    const std::size_t end =
        std::min(quoted ? rest.find('"') : rest.find_first_of(kBlanks), rest.size());
    std::string program(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return program;
}

// The backslashes at the start of rest and the quote that may follow; true when that quote is no
// literal one and still stands at the start.
bool takeBackslashes(std::string_view& rest, std::string& argument) {
    const std::size_t count = std::min(rest.find_first_not_of('\\'), rest.size());
    const bool beforeQuote = count < rest.size() && rest[count] == '"';
    rest.remove_prefix(count);
    argument.append(beforeQuote ? count / 2 : count, '\\');
    if (!beforeQuote) return false;
    if (count % 2 == 0) return true;
    argument += '"';
    rest.remove_prefix(1);
    return false;
}

std::string takeArgument(std::string_view& rest) {
    std::string argument;
    bool inQuotes = false;
    while (!rest.empty()) {
        if (takeBackslashes(rest, argument)) {
            rest.remove_prefix(1);
            const bool doubled = inQuotes && !rest.empty() && rest.front() == '"';
            if (doubled) {
                argument += '"';
                rest.remove_prefix(1);
            } else {
                inQuotes = !inQuotes;
            }
        } else if (!rest.empty() && rest.front() != '\\' && rest.front() != '"') {
            if (!inQuotes && kBlanks.find(rest.front()) != kBlanks.npos) break;
            argument += rest.front();
            rest.remove_prefix(1);
        }
    }
    return argument;
}

void skipBlanks(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
}

}  // namespace

std::vector<std::string> splitCommandLine(std::string_view line) {
    std::vector<std::string> words;
    skipBlanks(line);
    words.push_back(takeProgram(line));
    for (skipBlanks(line); !line.empty(); skipBlanks(line)) words.push_back(takeArgument(line));
    return words;
}

}  // namespace nuv64::platform
