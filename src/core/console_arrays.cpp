#include "nuv64/core/console_arrays.h"

#include <cmath>
#include <limits>

#include "core/complex_reading.h"
#include "core/console.h"
#include "core/guard.h"
#include "nuv64/core/console_input.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kIllegalData = 15;
constexpr std::uint32_t kIllegalSize = 17;
constexpr std::uint32_t kNoBuffer = 18;
constexpr std::uint32_t kMissingArgument = 22;
constexpr std::uint32_t kIllegalParameters = 25;
constexpr std::uint32_t kEndOfFile = 62;

// The next number of a line from at on; false when there is none.
template <class Ch>
bool nextNumber(const Ch* line, std::uint64_t& at, double& value) noexcept {
    std::uint32_t flags = 0;
    std::uint64_t consumed = 0;
    value = partOfText(line + at, &flags, &consumed);
    at += consumed;
    return !(flags & NUM_UNDEFINED);
}

template <class Ch>
bool nextNumber(const Ch* line, std::uint64_t& at, Complex& value) noexcept {
    ComplexReader<Ch> reader(line + at);
    const std::uint32_t flags = reader.read(value);
    at += reader.consumed();
    return !(flags & (NUM_UNDEFINED | NUM_NOSTRUCT));
}

// How many numbers were stored, at most wanted; store(i, value) takes them.
template <class Number, class Ch, class Store>
std::uint64_t numbersOfLine(const Ch* line, std::uint64_t wanted, Store store) noexcept {
    std::uint64_t at = 0, stored = 0;
    Number value{};
    while (stored < wanted && nextNumber(line, at, value)) store(stored++, value);
    return stored;
}

template <class Ch, class Number>
std::uint32_t typedArray(const Ch* prompt, std::uint64_t* count, Number* array,
                         std::uint64_t capacity) {
    if (!count || !array || (*count == 0 && capacity == 0)) return kMissingArgument;
    if (capacity < *count) return kIllegalParameters;
    std::basic_string<Ch> line;
    if (!readTypedLine(prompt, line)) return kEndOfFile;
    const bool open = *count == 0;
    const std::uint64_t wanted = open ? capacity : *count;
    const std::uint64_t stored = numbersOfLine<Number>(
        line.c_str(), wanted, [&](std::uint64_t i, const Number& value) { array[i] = value; });
    if (open) *count = stored;
    return open || stored == wanted ? kSuccess : kMissingArgument;
}

template <class Ch, class Number>
std::uint32_t typedMatrix(const Ch* prompt, std::uint64_t rows, std::uint64_t cols,
                          Number* matrix) {
    if (rows == 0 || cols == 0) return kSuccess;
    if (!matrix) return kMissingArgument;
    if (cols > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(Number) / rows)
        return kIllegalSize;
    const std::uint64_t elements = rows * cols;
    for (std::uint64_t done = 0; done < elements; prompt = nullptr) {
        std::basic_string<Ch> line;
        if (!readTypedLine(prompt, line)) return kEndOfFile;
        const auto store = [&](std::uint64_t i, const Number& value) {
            const std::uint64_t place = done + i;
            matrix[place / cols + place % cols * rows] = value;
        };
        const std::uint64_t stored = numbersOfLine<Number>(line.c_str(), elements - done, store);
        if (stored == 0) return kMissingArgument;
        done += stored;
    }
    return kSuccess;
}

// The least value that a limit may have, so that the logarithm and the inverse of every grid exist.
constexpr double kLeastLimit = 5.562684646268003e-309;
constexpr double kGreatestLimit = 1.7976931348623157e308;

struct TypedGrid {
    std::uint64_t type;
    double minimum;
    double maximum;
    std::uint64_t points;
};

std::uint32_t askForGrid(TypedGrid& grid) noexcept {
    constexpr std::uint64_t kTypes[] = {1, 2, 3, 4, 1};  // by the typed number
    constexpr std::uint64_t kMostPoints = UINT64_MAX - 1;
    const std::uint64_t typed =
        CinQwordMmA("\n   Grid type (0..lin, 1..log, 2..inverse, 3..square):", 0,
                    std::size(kTypes) - 1, nullptr);
    if (typed >= std::size(kTypes)) return kIllegalData;
    grid.type = kTypes[typed];
    grid.minimum = CinRealMmA("  Minimum value :", kLeastLimit, kGreatestLimit, nullptr);
    if (std::isnan(grid.minimum)) return kIllegalData;
    grid.maximum = CinRealMmA("  Maximum value :", grid.minimum, kGreatestLimit, nullptr);
    if (std::isnan(grid.maximum)) return kIllegalData;
    grid.points = CinQwordMmA("  Total points  :", 1, kMostPoints, nullptr);
    return grid.points == 0 || grid.points > kMostPoints ? kIllegalData : kSuccess;
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint32_t CinRArr(const char16_t* prompt, uint64_t* count, double* array,
                 uint64_t capacity) noexcept {
    return guardStatus([&] { return typedArray(prompt, count, array, capacity); });
}

uint32_t CinRArrA(const char* prompt, uint64_t* count, double* array, uint64_t capacity) noexcept {
    return guardStatus([&] { return typedArray(prompt, count, array, capacity); });
}

uint32_t CinCArr(const char16_t* prompt, uint64_t* count, Complex* array,
                 uint64_t capacity) noexcept {
    return guardStatus([&] { return typedArray(prompt, count, array, capacity); });
}

uint32_t CinCArrA(const char* prompt, uint64_t* count, Complex* array, uint64_t capacity) noexcept {
    return guardStatus([&] { return typedArray(prompt, count, array, capacity); });
}

uint32_t CinRMat(const char16_t* prompt, uint64_t rows, uint64_t cols, double* matrix) noexcept {
    return guardStatus([&] { return typedMatrix(prompt, rows, cols, matrix); });
}

uint32_t CinRMatA(const char* prompt, uint64_t rows, uint64_t cols, double* matrix) noexcept {
    return guardStatus([&] { return typedMatrix(prompt, rows, cols, matrix); });
}

uint32_t CinCMat(const char16_t* prompt, uint64_t rows, uint64_t cols, Complex* matrix) noexcept {
    return guardStatus([&] { return typedMatrix(prompt, rows, cols, matrix); });
}

uint32_t CinCMatA(const char* prompt, uint64_t rows, uint64_t cols, Complex* matrix) noexcept {
    return guardStatus([&] { return typedMatrix(prompt, rows, cols, matrix); });
}

uint32_t CinRArrGrid(uint64_t* gridType, double* minimum, double* maximum,
                     uint64_t* points) noexcept {
    if (!gridType || !minimum || !maximum || !points) return kNoBuffer;
    return guardStatus([&] {
        print(std::string_view("\n\n Data-grid specifications:"));
        TypedGrid grid{};
        const std::uint32_t status = askForGrid(grid);
        if (status != kSuccess) return status;
        *gridType = grid.type;
        *minimum = grid.minimum;
        *maximum = grid.maximum;
        *points = grid.points;
        return kSuccess;
    });
}
