#include <malloc.h>

#include <cstdlib>

#include "platform/platform.h"

namespace nuv64::platform {

void* heapAllocate(std::uint64_t bytes) noexcept {
    return std::malloc(bytes);
}

void heapFree(void* block) noexcept {
    std::free(block);
}

void* globalAllocate(std::uint64_t bytes) noexcept {
    return std::malloc(bytes);
}

void globalFree(void* block) noexcept {
    std::free(block);
}

std::size_t blockCapacity(void* block) noexcept {
    return ::malloc_usable_size(block);
}

}  // namespace nuv64::platform
