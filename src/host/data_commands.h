// Commands that read and mark nodes, and the one that makes a zone of a block.
#pragma once

#include "data/data_object.h"
#include "host/command_context.h"

namespace nuv64 {

// Output takes a field of the node.
template <auto field>
std::uint32_t giveField(CommandContext& context) {
    answer(context.block, context.node->*field);
    return 0;
}

std::uint32_t extractBlock(CommandContext& context);
std::uint32_t openZoneFolder(CommandContext& context);
std::uint32_t dataTypeId(CommandContext& context);
std::uint32_t blockCount(CommandContext& context);
std::uint32_t experimentName(CommandContext& context);
std::uint32_t setZoneMark(CommandContext& context);

}  // namespace nuv64
