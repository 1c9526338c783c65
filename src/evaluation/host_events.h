// How the engine speaks to the host while a command runs.
#pragma once

#include <cstdint>

#include "nuv64/host/command.h"

namespace nuv64 {

// Null for a run without a host.
inline bool listens(const NuvCommandBlock* block) noexcept {
    return block && block->Callback && !(block->Flags & CallbackMuted);
}

inline std::uint64_t inputWord(const void* record) noexcept {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(record));
}

// An event with a record or a text in Input; nothing without a listener.
inline void notify(NuvCommandBlock* block, std::uint32_t event, const void* input) {
    if (!listens(block)) return;
    block->Input = inputWord(input);
    block->Callback(event, block);
}

}  // namespace nuv64
