/* Blocks of memory: how they are made and released across the module's boundary, and small tools
 * that work on bytes.
 *
 * Texts, arrays and matrices are bare blocks without a header. Every block that a function named
 * New... returns, of whatever kind, may be given to any function named ...Kill; blocks of the
 * Mem...AllocOrFree allocators may not. A zero-length array is a null pointer and no error. */
#ifndef NUV64_CORE_MEMORY_H
#define NUV64_CORE_MEMORY_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Room for a text of n characters and its terminator.
 *
 * fill: not 0: all n characters are set to it and the text is terminated; 0: only the first
 * character is set, to the terminator, and the rest is left as it is.
 * Result: owned by the caller; null when memory is short or the size overflows. */
NUV64_API char16_t* NewString(uint64_t n, char16_t fill) NUV64_NOEXCEPT;
NUV64_API char* NewStringA(uint64_t n, char fill) NUV64_NOEXCEPT;

/* The one Kill, under a name for each family: releases the block at *block and writes null there.
 * A null address and a null block are left alone, so a second Kill of a variable does nothing. */
NUV64_API void KillString(char16_t** text) NUV64_NOEXCEPT;
NUV64_API void KillStringA(char** text) NUV64_NOEXCEPT;
NUV64_API void RArrKill(double** array) NUV64_NOEXCEPT;
NUV64_API void RMatKill(double** matrix) NUV64_NOEXCEPT;
NUV64_API void CArrKill(Complex** array) NUV64_NOEXCEPT;
NUV64_API void CMatKill(Complex** matrix) NUV64_NOEXCEPT;
NUV64_API void CFArrKill(float** array) NUV64_NOEXCEPT;
NUV64_API void IArrKill(int32_t** array) NUV64_NOEXCEPT;
NUV64_API void IMatKill(int32_t** matrix) NUV64_NOEXCEPT;
NUV64_API void IQArrKill(int64_t** array) NUV64_NOEXCEPT;
NUV64_API void IQMatKill(int64_t** matrix) NUV64_NOEXCEPT;
NUV64_API void RPArrKill(void*** array) NUV64_NOEXCEPT;
NUV64_API void UArrKill(uint32_t** array) NUV64_NOEXCEPT;
NUV64_API void UMatKill(uint32_t** matrix) NUV64_NOEXCEPT;
NUV64_API void UQArrKill(uint64_t** array) NUV64_NOEXCEPT;
NUV64_API void UQMatKill(uint64_t** matrix) NUV64_NOEXCEPT;
NUV64_API void SArrKill(double** array) NUV64_NOEXCEPT;

/* A block of the operating system's process heap (the C runtime's where there is none), for memory
 * that must outlive the runtime's allocator or travels to a host.
 *
 * size not 0: allocates that many bytes and stores the address, or null, in *p. size 0: releases
 * *p and writes null; a null *p is left alone.
 * Result: 0; 0x80001 when the block is not to be had; 18 when p is null and size is not 0. */
NUV64_API uint32_t MemDefaultAllocOrFree(uint64_t size, void** p) NUV64_NOEXCEPT;

/* The same on the system's global memory, the kind a clipboard takes; the block is fixed. */
NUV64_API uint32_t MemGlobalAllocOrFree(uint64_t size, void** p) NUV64_NOEXCEPT;

/* The size in bytes of the largest block that the two allocators above can give now, found by
 * trying from 512 GiB down. A report, not a promise: it may exceed what was proved by the last
 * step. 0 when nothing is to be had. */
NUV64_API uint64_t MemDefaultMaxAllocatableBlock(void) NUV64_NOEXCEPT;
NUV64_API uint64_t MemGlobalMaxAllocatableBlock(void) NUV64_NOEXCEPT;

/* Copies n bytes; the blocks may overlap. Nothing happens when n is 0 or a pointer is null.
 * Result: dst. */
NUV64_API void* MemCopy(void* dst, const void* src, uint64_t n) NUV64_NOEXCEPT;

/* Sets n bytes to 0. A null p is left alone. Result: p. */
NUV64_API void* MemZero(void* p, uint64_t n) NUV64_NOEXCEPT;

/* Tests n bytes of writable memory: each byte is set to 0x00, 0x55, 0xAA and 0xFF, read back each
 * time, and restored.
 *
 * firstBad: may be null; set to the first bad byte, or null.
 * Result: the number of bad bytes; 0 for a null p. */
NUV64_API uint64_t MemTest(void* p, uint64_t n, void** firstBad) NUV64_NOEXCEPT;

/* Writes n bytes as digits, most significant first, the same number for each byte.
 *
 * mode: 1 is base 2 with eight digits a byte, 3 is base 16 with two, in capitals.
 * capacity: characters that dst has, with the terminator; all ones for no bound. A byte whose
 * digits and terminator don't fit is not written, nor any behind it.
 * Result: the length of the terminated text. Any other mode, a null src or dst and capacity 0 write
 * nothing and give 0. */
NUV64_API uint64_t MemToBuffer(const void* src, uint64_t n, char16_t* dst, uint64_t capacity,
                               uint32_t mode) NUV64_NOEXCEPT;
NUV64_API uint64_t MemToBufferA(const void* src, uint64_t n, char* dst, uint64_t capacity,
                                uint32_t mode) NUV64_NOEXCEPT;

/* The same as a new text.
 *
 * text, len: receive the text, owned by the caller, and its length; either may be null. They are
 * left alone unless the result is 0 and n is not 0.
 * Result: 0, also for n = 0; 14 for a null src; 9 for a mode other than 1 and 3; 0x80001. */
NUV64_API uint32_t NewAsciFromMem(uint32_t mode, const void* src, uint64_t n, char** text,
                                  uint64_t* len) NUV64_NOEXCEPT;

/* Reads the digits that MemToBufferA writes. A group with a character that is no digit counts up to
 * it; a short last group is dropped.
 *
 * count: the room in dst on entry; the number of bytes stored, at most one less than the room, on
 * exit. A zero byte follows them.
 * Result: 0; 9 for a mode other than 1 and 3; 14 for a null text; 18 for a null dst or count. */
NUV64_API uint32_t MemFromAsci(uint32_t mode, const char* text, void* dst,
                               uint64_t* count) NUV64_NOEXCEPT;

/* Reverses the order of n bytes. A null buf is left alone. */
NUV64_API void InvertBytesOrder(void* buf, uint64_t n) NUV64_NOEXCEPT;

/* A reserved name: gives 9 ("Not yet implemented") and touches nothing. */
NUV64_API uint32_t CrcFromMem(uint32_t mode, const void* src, uint64_t n,
                              void* result) NUV64_NOEXCEPT;

/* The high-resolution performance counter, as a seed. */
NUV64_API uint64_t KoRandomSeed(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
