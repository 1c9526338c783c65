// Stands behind every allocation of the program: lets a chosen one fail, and counts the blocks that
// are alive.
#pragma once

#include <cstdint>

namespace nuv64::test {

enum class Failing { Once, FromThenOn };

// Allocation number which, counted from 1 over all stretches that a Counted object spans, fails, or
// it and all behind it. Number 0: none.
void planFailure(std::uint64_t which, Failing kind) noexcept;

// From here on nothing fails any more; what was counted and whether something failed stays.
void stopFailing() noexcept;

// Allocations counted since the plan was made, and whether one was made to fail.
std::uint64_t countedAllocations() noexcept;
bool allocationFailed() noexcept;

// Blocks of the program that are alive.
std::int64_t liveBlocks() noexcept;

// The stretch in which allocations are counted and may fail.
class Counted {
  public:
    Counted() noexcept;
    ~Counted();
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
};

}  // namespace nuv64::test
