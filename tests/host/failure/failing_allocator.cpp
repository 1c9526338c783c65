// The C functions are caught by the linker (--wrap), the C++ operators by replacing them.
#include "host/failure/failing_allocator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

struct State {
    std::uint64_t which = 0;
    nuv64::test::Failing kind = nuv64::test::Failing::Once;
    std::uint64_t counted = 0;
    bool failed = false;
    bool counting = false;
    std::int64_t live = 0;
};

State state;  // the tests have one thread

bool mayAllocate() noexcept {
    if (!state.counting) return true;
    ++state.counted;
    if (state.which == 0) return true;
    const bool fails = state.kind == nuv64::test::Failing::Once ? state.counted == state.which
                                                                : state.counted >= state.which;
    state.failed = state.failed || fails;
    return !fails;
}

void* noted(void* block) noexcept {
    if (block) ++state.live;
    return block;
}

}  // namespace

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size) {
    return mayAllocate() ? noted(__real_malloc(size)) : nullptr;
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return mayAllocate() ? noted(__real_calloc(count, size)) : nullptr;
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (!mayAllocate()) return nullptr;
    void* moved = __real_realloc(block, size);
    return block ? moved : noted(moved);
}

void __wrap_free(void* block) {
    if (block) --state.live;
    __real_free(block);
}

}  // extern "C"

namespace {

void* allocateOrThrow(std::size_t size) {
    if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}

namespace nuv64::test {

void planFailure(std::uint64_t which, Failing kind) noexcept {
    state.which = which;
    state.kind = kind;
    state.counted = 0;
    state.failed = false;
}

void stopFailing() noexcept {
    state.which = 0;
}

std::uint64_t countedAllocations() noexcept {
    return state.counted;
}
bool allocationFailed() noexcept {
    return state.failed;
}
std::int64_t liveBlocks() noexcept {
    return state.live;
}

Counted::Counted() noexcept {
    state.counting = true;
}
Counted::~Counted() {
    state.counting = false;
}

namespace {

void throwAndCatch() {
    try {
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
    }
}

// What the runtime makes once for all is made before the failures begin, by two exceptions. The
// second finds no memory and comes from the runtime's reserve, whose lock the Windows runtime
// allocates when it is first taken; without a lock no exception can be thrown there at all.
class RuntimeBlocks : public testing::Environment {
  public:
    void SetUp() override {
        throwAndCatch();
        planFailure(1, Failing::Once);
        {
            const Counted counted;
            throwAndCatch();
        }
        planFailure(0, Failing::Once);
    }
};

[[maybe_unused]] const testing::Environment* const runtimeBlocks =
    testing::AddGlobalTestEnvironment(new RuntimeBlocks);

}  // namespace

}  // namespace nuv64::test
