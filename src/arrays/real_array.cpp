#include "nuv64/arrays/real_array.h"

#include <cstdarg>

#include "arrays/array_basics.h"

using namespace nuv64;

double* RArrNew(uint32_t* err, uint64_t n) noexcept {
    return newArray<double>(err, n);
}

double* RArrNew0(uint32_t* err, uint64_t n) noexcept {
    return newZeroArray<double>(err, n);
}

double* RArrNewCopy(uint32_t* err, uint64_t n, const double* source) noexcept {
    return newArrayCopy(err, n, source);
}

uint32_t RArrCopy(uint64_t n, const double* source, double* destination) noexcept {
    return copyArray(n, source, destination);
}

uint32_t RArrFill(uint64_t n, double* array, double value) noexcept {
    return fillArray(n, array, value);
}

uint32_t RArrZero(uint64_t n, double* array) noexcept {
    return RArrFill(n, array, 0.0);
}

uint32_t RArrSkipFill(uint64_t n, double* array, uint64_t start, uint64_t stride, ...) noexcept {
    if (!array || n == 0) return 14;
    std::va_list arguments;
    va_start(arguments, stride);
    const double value = va_arg(arguments, double);
    va_end(arguments);
    for (uint64_t i = start; i < n; i += stride) {
        array[i] = value;
        if (stride == 0 || stride >= n - i) break;
    }
    return kSuccess;
}
