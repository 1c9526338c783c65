// The frame around every command: the block's lifetime, the events, the translation of failures.
#include "nuv64/host/command.h"

#include <cstdlib>
#include <exception>

#include "core/guard.h"
#include "data/data_object.h"
#include "host/application_commands.h"
#include "host/command_context.h"
#include "host/command_table.h"
#include "host/node_lookup.h"

namespace nuv64 {

std::uint64_t notifyHost(NuvCommandBlock& block, std::uint32_t event) noexcept {
    if (!hostListens(block)) return 0;
    return guardValue(std::uint64_t{0}, [&] { return block.Callback(event, &block); });
}

namespace {

// Some runtimes allocate a thread's exception state at its first exception, and give up when they
// can't. Asking for it here makes it while there is memory, not when the first bad_alloc needs it.
void prepareExceptions() noexcept {
    [[maybe_unused]] const int uncaught = std::uncaught_exceptions();
}

NuvCommandBlock* openBlock() noexcept {
    auto* block = static_cast<NuvCommandBlock*>(std::calloc(1, sizeof(NuvCommandBlock)));
    if (!block) return nullptr;
    prepareExceptions();
    block->Command = CmdOpen;
    return block;
}

void closeBlock(NuvCommandBlock* block) noexcept {
    if (!block) return;
    block->Command = CmdClose;
    closeData(*block);
    std::free(block);
}

std::uint32_t runHandler(NuvCommandBlock& block, std::uint32_t command) {
    const CommandEntry* entry = findCommand(command);
    if (!entry) return kUnknownCommand;
    CommandContext context{block};
    if (entry->node != CommandNode::None) {
        if (!block.Data) return kMissingData;
        context.node = findNode(*block.Data, entry->node, block.Input);
        if (!context.node) return kIllegalArgument;
    }
    return entry->handler(context);
}

void runFramed(NuvCommandBlock& block, std::uint32_t command) noexcept {
    const std::uint64_t input = block.Input;
    block.Status = kSuccess;
    block.Command = command;
    notifyHost(block, EvCommandBegin);
    block.Status = guardStatus([&] { return runHandler(block, command); });
    block.Input = input;
    notifyHost(block, EvCommandEnd);
    if (!(block.Flags & (KeepCommandA | KeepCommandB))) block.Command = 0;
    if (block.Status != kSuccess) notifyHost(block, EvCommandFailed);
}

}  // namespace
}  // namespace nuv64

NuvCommandBlock* LibCommand(uint32_t command, NuvCommandBlock* block, uint64_t, uint64_t) noexcept {
    using namespace nuv64;
    if (command == CmdOpen) return openBlock();
    if (command == CmdClose) {
        closeBlock(block);
        return nullptr;
    }
    if (block) runFramed(*block, command);
    return block;
}

NuvCommandBlock* NuvCommand(uint32_t command, NuvCommandBlock* block) noexcept {
    return LibCommand(command, block, 0, 0);
}
