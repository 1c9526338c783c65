// The commands by number.
#pragma once

#include <cstdint>

#include "host/command_context.h"

namespace nuv64 {

// Runs with every exception translated by the frame; the result becomes Status.
using CommandHandler = std::uint32_t (*)(CommandContext& context);

// The node that a command works on, found before its handler runs: 23 without data, 26 when the
// argument names nothing.
enum class CommandNode : std::uint8_t {
    None,              // the handler looks for itself
    Zone,              // the zone of index Input
    ZoneOrExperiment,  // the same; the number of zones stands for the experiment
    FirstBlock,        // the first block of that zone
};

struct CommandEntry {
    std::uint32_t number;
    CommandHandler handler;
    CommandNode node;
};

// Null for a number that no command has.
const CommandEntry* findCommand(std::uint32_t number) noexcept;

}  // namespace nuv64
