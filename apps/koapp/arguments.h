// The command line.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace koapp {

enum class Task { Help, Version, Info, Evaluate };

struct Arguments {
    Task task = Task::Help;
    std::vector<std::filesystem::path> files;
    std::optional<std::filesystem::path> script;
    std::optional<std::filesystem::path> report;
    std::optional<std::filesystem::path> curves;   // --csv
    std::optional<std::filesystem::path> profile;  // --profile-csv
    bool quiet = false;
};

// A command line that means nothing; what() says why.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// words: what follows the program's name.
Arguments parseArguments(const std::vector<std::filesystem::path>& words);

// The text of --help.
const char* helpText() noexcept;

}  // namespace koapp
