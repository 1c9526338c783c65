#include "nuv64/core/file_print.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <initializer_list>

#include "core/file_calls.h"
#include "core/formatter.h"
#include "core/text.h"
#include "nuv64/core/number_printing.h"

using namespace nuv64;

namespace {

constexpr std::size_t kNumberCapacity = 72;  // 64 binary digits, a sign, a terminator
constexpr std::size_t kPaddingPiece = 4096;  // characters of padding written at once

template <class Ch>
bool print(std::int64_t handle, std::initializer_list<const Ch*> texts) noexcept {
    platform::setLastError(0);
    if (!platform::isHandle(handle)) return true;
    return std::all_of(texts.begin(), texts.end(),
                       [&](const Ch* text) { return !text || writeFileText(handle, text); });
}

template <class Ch>
bool writeBlanks(std::int64_t handle, std::uint64_t count) noexcept {
    std::array<Ch, kPaddingPiece + 1> blanks;
    while (count != 0) {
        const std::uint64_t piece = std::min<std::uint64_t>(count, kPaddingPiece);
        std::fill_n(blanks.begin(), piece, Ch{' '});
        blanks[piece] = 0;
        if (!writeFileText(handle, blanks.data())) return false;
        count -= piece;
    }
    return true;
}

// A number of length characters between its texts, at the right of width characters.
template <class Ch>
bool printNumber(std::int64_t handle, const Ch* prefix, const Ch* number, std::uint64_t length,
                 const Ch* suffix, std::uint32_t width) noexcept {
    if (width <= length || !platform::isHandle(handle))
        return print(handle, {prefix, number, suffix});
    return print(handle, {prefix}) && writeBlanks<Ch>(handle, width - length) &&
           print(handle, {number, suffix});
}

template <class Ch>
bool printReal(std::int64_t handle, const Ch* prefix, const Ch* suffix, Ch* number) noexcept {
    platform::setLastError(0);
    const Owned<Ch> owned(number);
    if (!number) platform::setLastError(platform::kErrorOutOfMemory);
    return number && print<Ch>(handle, {prefix, number, suffix});
}

template <class Ch>
bool printFormatted(std::int64_t handle, const Ch* format, va_list arguments) noexcept {
    return fileCall(
        false, [&] { return writeFileText(handle, formatToString(format, arguments).c_str()); });
}

}  // namespace

bool FilePrint(int64_t handle, const char16_t* a, const char16_t* b, const char16_t* c,
               const char16_t* d) noexcept {
    return print(handle, {a, b, c, d});
}

bool FilePrintA(int64_t handle, const char* a, const char* b, const char* c,
                const char* d) noexcept {
    return print(handle, {a, b, c, d});
}

bool FilePrintDword(int64_t handle, const char16_t* prefix, uint32_t value, const char16_t* suffix,
                    uint32_t width, uint32_t radix) noexcept {
    char16_t number[kNumberCapacity];
    const uint64_t length = DwordToBuffer(value, number, radix);
    return printNumber(handle, prefix, number, length, suffix, width);
}

bool FilePrintDwordA(int64_t handle, const char* prefix, uint32_t value, const char* suffix,
                     uint32_t width, uint32_t radix) noexcept {
    char number[kNumberCapacity];
    const uint64_t length = DwordToBufferA(value, number, radix);
    return printNumber(handle, prefix, number, length, suffix, width);
}

bool FilePrintLong(int64_t handle, const char16_t* prefix, int32_t value, const char16_t* suffix,
                   uint32_t, uint32_t radix) noexcept {
    char16_t number[kNumberCapacity];
    LongToBuffer(value, number, radix);
    return print<char16_t>(handle, {prefix, number, suffix});
}

bool FilePrintLongA(int64_t handle, const char* prefix, int32_t value, const char* suffix, uint32_t,
                    uint32_t radix) noexcept {
    char number[kNumberCapacity];
    LongToBufferA(value, number, radix);
    return print<char>(handle, {prefix, number, suffix});
}

bool FilePrintReal(int64_t handle, const char16_t* prefix, double value, const char16_t* suffix,
                   uint32_t digits, uint32_t flags) noexcept {
    return printReal(handle, prefix, suffix, NewStringFromReal(value, digits, flags));
}

bool FilePrintRealA(int64_t handle, const char* prefix, double value, const char* suffix,
                    uint32_t digits, uint32_t flags) noexcept {
    return printReal(handle, prefix, suffix, NewStringFromRealA(value, digits, flags));
}

bool FilePrintf(int64_t handle, const char16_t* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    const bool written = printFormatted(handle, format, arguments);
    va_end(arguments);
    return written;
}

bool FilePrintfA(int64_t handle, const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    const bool written = printFormatted(handle, format, arguments);
    va_end(arguments);
    return written;
}
