#include "nuv64/arrays/pointer_array.h"

#include <cstdarg>

#include "arrays/array_basics.h"

using namespace nuv64;

void** RPArrNew(uint32_t* err, uint64_t n) noexcept {
    return newArray<void*>(err, n);
}

void** RPArrNew0(uint32_t* err, uint64_t n) noexcept {
    return newZeroArray<void*>(err, n);
}

void** RPArrNewCopy(uint32_t* err, uint64_t n, void* const* source) noexcept {
    return newArrayCopy<void*>(err, n, source);
}

uint32_t RPArrCopy(uint64_t n, void* const* source, void** destination) noexcept {
    return copyArray<void*>(n, source, destination);
}

uint32_t RPArrFill(uint64_t n, void** array, void* value) noexcept {
    return fillArray<void*>(n, array, value);
}

uint32_t RPArrNull(uint64_t n, void** array) noexcept {
    return RPArrFill(n, array, nullptr);
}

void** RPArrNewVa(uint32_t* err, uint64_t* count, ...) noexcept {
    if (!count) {
        if (err) *err = 14;
        return nullptr;
    }
    std::va_list arguments;
    if (*count == 0) {
        va_start(arguments, count);
        while (va_arg(arguments, void*)) ++*count;
        va_end(arguments);
    }
    void** const array = RPArrNew(err, *count);
    if (!array) return nullptr;
    va_start(arguments, count);
    for (uint64_t i = 0; i < *count; ++i) array[i] = va_arg(arguments, void*);
    va_end(arguments);
    return array;
}
