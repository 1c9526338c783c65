// Memory that may cross the module's boundary: blocks of the C runtime's heap, which the one Kill
// releases, held by RAII while they are inside.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>

namespace nuv64 {

struct FreeBlock {
    void operator()(void* block) const noexcept { std::free(block); }
};

// Owns a bare block of T. Same size and layout as the plain pointer, so that it can be a field of a
// record whose layout callers know.
template <class T>
using Owned = std::unique_ptr<T[], FreeBlock>;

using OwnedText = Owned<char>;
using OwnedWideText = Owned<char16_t>;

static_assert(sizeof(OwnedText) == sizeof(char*));

// An uninitialised block of count elements; null for count 0, for a byte size that overflows and
// when memory is short.
template <class T>
[[nodiscard]] Owned<T> tryAllocate(std::uint64_t count) noexcept {
    static_assert(std::is_trivially_copyable_v<T>);
    if (count == 0 || count > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T)) return {};
    return Owned<T>(static_cast<T*>(std::malloc(count * sizeof(T))));
}

// The same, for count above 0; throws std::bad_alloc instead of giving null.
template <class T>
[[nodiscard]] Owned<T> allocate(std::uint64_t count) {
    Owned<T> block = tryAllocate<T>(count);
    if (!block && count != 0) throw std::bad_alloc();
    return block;
}

// A terminated copy of length characters; throws std::bad_alloc.
template <class Ch>
[[nodiscard]] Owned<Ch> copyText(const Ch* text, std::uint64_t length) {
    Owned<Ch> copy = allocate<Ch>(length + 1);
    if (length != 0) std::memcpy(copy.get(), text, length * sizeof(Ch));
    copy[length] = 0;
    return copy;
}

}  // namespace nuv64
