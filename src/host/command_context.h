// What a command's handler sees: the block, the node that its argument names, and how it answers.
#pragma once

#include <bit>
#include <cstdint>

#include "core/owned.h"
#include "nuv64/host/command.h"

namespace nuv64 {

// Status words of the commands.
inline constexpr std::uint32_t kNotYetImplemented = 9;
inline constexpr std::uint32_t kUnknownCommand = 10;
inline constexpr std::uint32_t kMissingInput = 14;
inline constexpr std::uint32_t kMissingParameters = 21;
inline constexpr std::uint32_t kMissingData = 23;
inline constexpr std::uint32_t kIllegalArgument = 26;
inline constexpr std::uint32_t kFileSystemError = 48;
inline constexpr std::uint32_t kMissingFile = 56;
inline constexpr std::uint32_t kFileNotAccessible = 58;
inline constexpr std::uint32_t kIllegalFileName = 59;
inline constexpr std::uint32_t kUndefinedFile = 63;
inline constexpr std::uint32_t kUnknownDataSource = 65;

inline constexpr std::uint64_t kAllOnes = UINT64_MAX;

struct CommandContext {
    NuvCommandBlock& block;
    cKoData* node = nullptr;  // by the table's word for this command; null where it names none
};

inline bool hostListens(const NuvCommandBlock& block) noexcept {
    return block.Callback && !(block.Flags & CallbackMuted);
}

// Makes an event if the host listens; the callback's result, otherwise 0.
std::uint64_t notifyHost(NuvCommandBlock& block, std::uint32_t event) noexcept;

// The record or text behind Input.
template <class Record>
Record* inputAs(const NuvCommandBlock& block) noexcept {
    return reinterpret_cast<Record*>(static_cast<std::uintptr_t>(block.Input));
}

inline std::uint64_t pointerBits(const void* pointer) noexcept {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pointer));
}

inline void answer(NuvCommandBlock& block, std::uint64_t value) noexcept {
    block.Output = value;
}
inline void answer(NuvCommandBlock& block, double value) noexcept {
    block.Output = std::bit_cast<std::uint64_t>(value);
}
inline void answer(NuvCommandBlock& block, const char* text) noexcept {
    block.Output = pointerBits(text);
}
template <class Ch>
void answer(NuvCommandBlock& block, const Owned<Ch>& text) noexcept {
    block.Output = pointerBits(text.get());
}

}  // namespace nuv64
