#include "nuv64/core/memory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/core/number_reading.h"
#include "platform/platform.h"

namespace {

using nuv64::tryAllocate;
namespace platform = nuv64::platform;

constexpr std::uint32_t kNotYetImplemented = 9;
constexpr std::uint32_t kMissingInputData = 14;
constexpr std::uint32_t kMissingOutputBuffer = 18;

template <class Ch>
Ch* newString(uint64_t n, Ch fill) noexcept {
    if (n == UINT64_MAX) return nullptr;
    auto text = tryAllocate<Ch>(n + 1);
    if (!text) return nullptr;
    if (fill != 0) std::fill_n(text.get(), n, fill);
    text[fill != 0 ? n : 0] = 0;
    return text.release();
}

}  // namespace

char16_t* NewString(uint64_t n, char16_t fill) noexcept {
    return newString(n, fill);
}

char* NewStringA(uint64_t n, char fill) noexcept {
    return newString(n, fill);
}

// One routine behind sixteen names: the pointer types differ, the block is the same to free.
void KillString(char16_t** text) noexcept {
    if (!text || !*text) return;
    std::free(*text);
    *text = nullptr;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"
#pragma GCC diagnostic ignored "-Wunknown-warning-option"
#pragma GCC diagnostic ignored "-Wattribute-alias"
#define NUV64_IS_KILL(name, type) \
    __attribute__((alias("KillString"))) void name(type** block) noexcept
extern "C" {
NUV64_IS_KILL(KillStringA, char);
NUV64_IS_KILL(RArrKill, double);
NUV64_IS_KILL(RMatKill, double);
NUV64_IS_KILL(CArrKill, Complex);
NUV64_IS_KILL(CMatKill, Complex);
NUV64_IS_KILL(CFArrKill, float);
NUV64_IS_KILL(IArrKill, int32_t);
NUV64_IS_KILL(IMatKill, int32_t);
NUV64_IS_KILL(IQArrKill, int64_t);
NUV64_IS_KILL(IQMatKill, int64_t);
NUV64_IS_KILL(RPArrKill, void*);
NUV64_IS_KILL(UArrKill, uint32_t);
NUV64_IS_KILL(UMatKill, uint32_t);
NUV64_IS_KILL(UQArrKill, uint64_t);
NUV64_IS_KILL(UQMatKill, uint64_t);
}
#undef NUV64_IS_KILL
#pragma GCC diagnostic pop

void SArrKill(double** array) noexcept {
    RArrKill(array);
}

namespace {

// One of the system's allocators.
struct SystemHeap {
    void* (*allocate)(std::uint64_t bytes) noexcept;
    void (*release)(void* block) noexcept;
};

constexpr SystemHeap kDefaultHeap{platform::heapAllocate, platform::heapFree};
constexpr SystemHeap kGlobalHeap{platform::globalAllocate, platform::globalFree};

std::uint32_t allocateOrFree(const SystemHeap& heap, uint64_t size, void** p) noexcept {
    if (!p) return size != 0 ? kMissingOutputBuffer : nuv64::kSuccess;
    if (size == 0) {
        heap.release(*p);
        *p = nullptr;
        return nuv64::kSuccess;
    }
    *p = heap.allocate(size);
    return *p ? nuv64::kSuccess : nuv64::kAllocationFailure;
}

bool canAllocate(const SystemHeap& heap, uint64_t size) noexcept {
    void* block = heap.allocate(size);
    heap.release(block);
    return block != nullptr;
}

// The second loop tries the size, not the size plus step, and never shrinks: the report has always
// been made in this order.
uint64_t largestBlock(const SystemHeap& heap) noexcept {
    uint64_t size = uint64_t{1} << 39;
    while (size != 0 && !canAllocate(heap, size)) size /= 2;
    for (uint64_t step = size / 2; step != 0; step /= 2) {
        if (canAllocate(heap, size)) size += step;
    }
    return size;
}

}  // namespace

uint32_t MemDefaultAllocOrFree(uint64_t size, void** p) noexcept {
    return allocateOrFree(kDefaultHeap, size, p);
}

uint32_t MemGlobalAllocOrFree(uint64_t size, void** p) noexcept {
    return allocateOrFree(kGlobalHeap, size, p);
}

uint64_t MemDefaultMaxAllocatableBlock(void) noexcept {
    return largestBlock(kDefaultHeap);
}

uint64_t MemGlobalMaxAllocatableBlock(void) noexcept {
    return largestBlock(kGlobalHeap);
}

void* MemCopy(void* dst, const void* src, uint64_t n) noexcept {
    if (n != 0 && dst && src) std::memmove(dst, src, n);
    return dst;
}

void* MemZero(void* p, uint64_t n) noexcept {
    if (p) std::memset(p, 0, n);
    return p;
}

namespace {

bool byteHolds(volatile unsigned char* byte) noexcept {
    static constexpr unsigned char kPatterns[] = {0x00, 0x55, 0xAA, 0xFF};
    const unsigned char saved = *byte;
    bool good = true;
    for (const unsigned char pattern : kPatterns) {
        *byte = pattern;
        good = good && *byte == pattern;
    }
    *byte = saved;
    return good;
}

}  // namespace

uint64_t MemTest(void* p, uint64_t n, void** firstBad) noexcept {
    if (firstBad) *firstBad = nullptr;
    if (!p) return 0;
    auto* bytes = static_cast<unsigned char*>(p);
    uint64_t bad = 0;
    for (uint64_t i = 0; i < n; ++i) {
        if (byteHolds(bytes + i)) continue;
        if (bad == 0 && firstBad) *firstBad = bytes + i;
        ++bad;
    }
    return bad;
}

namespace {

// Digits that stand for one byte; 0 for a mode that is none.
unsigned digitsOfByte(uint32_t mode) noexcept {
    return mode == 1 ? 8 : mode == 3 ? 2 : 0;
}

template <class Ch>
uint64_t memToBuffer(const void* src, uint64_t n, Ch* dst, uint64_t capacity,
                     uint32_t mode) noexcept {
    const unsigned digits = digitsOfByte(mode);
    if (digits == 0 || !src || !dst || capacity == 0) return 0;
    const unsigned bits = 8 / digits;
    const auto* bytes = static_cast<const unsigned char*>(src);
    uint64_t length = 0;
    for (uint64_t i = 0; i < n && length + digits < capacity; ++i) {
        for (unsigned shift = 8; shift != 0; shift -= bits) {
            const unsigned digit = (bytes[i] >> (shift - bits)) & ((1u << bits) - 1);
            dst[length++] = static_cast<Ch>("0123456789ABCDEF"[digit]);
        }
    }
    dst[length] = 0;
    return length;
}

}  // namespace

uint64_t MemToBuffer(const void* src, uint64_t n, char16_t* dst, uint64_t capacity,
                     uint32_t mode) noexcept {
    return memToBuffer(src, n, dst, capacity, mode);
}

uint64_t MemToBufferA(const void* src, uint64_t n, char* dst, uint64_t capacity,
                      uint32_t mode) noexcept {
    return memToBuffer(src, n, dst, capacity, mode);
}

uint32_t NewAsciFromMem(uint32_t mode, const void* src, uint64_t n, char** text,
                        uint64_t* len) noexcept {
    if (!src) return kMissingInputData;
    if (n == 0) return nuv64::kSuccess;
    const unsigned digits = digitsOfByte(mode);
    if (digits == 0) return kNotYetImplemented;
    if (n > (UINT64_MAX - 1) / digits) return nuv64::kAllocationFailure;
    const uint64_t capacity = digits * n + 1;
    auto digitsText = tryAllocate<char>(capacity);
    if (!digitsText) return nuv64::kAllocationFailure;
    const uint64_t length = MemToBufferA(src, n, digitsText.get(), capacity, mode);
    if (len) *len = length;
    if (text) *text = digitsText.release();
    return nuv64::kSuccess;
}

uint32_t MemFromAsci(uint32_t mode, const char* text, void* dst, uint64_t* count) noexcept {
    const unsigned digits = digitsOfByte(mode);
    if (digits == 0) return kNotYetImplemented;
    if (!dst || !count) return kMissingOutputBuffer;
    if (!text) return kMissingInputData;
    const uint64_t room = *count;
    auto* bytes = static_cast<unsigned char*>(dst);
    uint64_t stored = 0;
    for (; stored + 1 < room; ++stored, text += digits) {
        const void* end = std::memchr(text, 0, digits);
        if (end) break;
        char group[] = "0b........";
        if (digits == 2) group[1] = 'x';
        std::memcpy(group + 2, text, digits);
        group[2 + digits] = 0;
        uint32_t flags = NUM_RADIXPREFIX;
        bytes[stored] = static_cast<unsigned char>(StringToQwordStrictA(group, &flags, nullptr));
    }
    *count = stored;
    if (room != 0) bytes[stored] = 0;
    return nuv64::kSuccess;
}

void InvertBytesOrder(void* buf, uint64_t n) noexcept {
    if (!buf) return;
    auto* bytes = static_cast<unsigned char*>(buf);
    std::reverse(bytes, bytes + n);
}

uint32_t CrcFromMem(uint32_t, const void*, uint64_t, void*) noexcept {
    return kNotYetImplemented;
}

uint64_t KoRandomSeed(void) noexcept {
    return platform::performanceCount();
}
