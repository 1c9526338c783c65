#include <windows.h>

#include <malloc.h>

#include "platform/platform.h"

namespace nuv64::platform {

void* heapAllocate(std::uint64_t bytes) noexcept {
    const HANDLE heap = GetProcessHeap();
    return heap ? HeapAlloc(heap, 0, bytes) : nullptr;
}

void heapFree(void* block) noexcept {
    const HANDLE heap = GetProcessHeap();
    if (heap && block) HeapFree(heap, 0, block);
}

void* globalAllocate(std::uint64_t bytes) noexcept {
    return GlobalAlloc(GMEM_FIXED, bytes);
}

void globalFree(void* block) noexcept {
    if (block) GlobalFree(block);
}

std::size_t blockCapacity(void* block) noexcept {
    return block ? ::_msize(block) : 0;
}

}  // namespace nuv64::platform
