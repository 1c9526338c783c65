#include "nuv64/core/console_output.h"

#include <cstdarg>
#include <initializer_list>

#include "core/console.h"
#include "core/formatter.h"
#include "core/guard.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/status.h"

namespace nuv64 {

namespace {

constexpr std::uint64_t kInvalidQword = UINT64_MAX;
constexpr std::int64_t kInvalidQlong = INT64_MIN;
constexpr std::size_t kNumberRoom = 72;  // any integer in any base

// For functions without a result: what memory does not suffice for is not printed.
template <class Body>
void guarded(Body&& body) noexcept {
    guardStatus([&] {
        body();
        return kSuccess;
    });
}

template <class Ch>
void printAll(std::initializer_list<const Ch*> parts) {
    std::basic_string<Ch> text;
    for (const Ch* part : parts) text += viewOf(part);
    print(std::basic_string_view<Ch>(text));
}

template <class Ch>
void printCharacter(const Ch* prefix, Ch c, const Ch* suffix) noexcept {
    const Ch text[] = {c, 0};
    guarded([&] { printAll<Ch>({prefix, text, suffix}); });
}

// The blanks go out in blocks: a width may be far beyond what any line holds.
template <class Ch>
void printJustified(const Ch* prefix, std::string_view number, const Ch* suffix,
                    std::uint32_t width) {
    constexpr std::size_t kBlock = 4096;
    std::size_t missing = width > number.size() ? width - number.size() : 0;
    std::string field(std::min(missing, kBlock), ' ');
    if (missing <= kBlock) return printJoined(prefix, field += number, suffix);
    print(viewOf(prefix));
    for (; missing > kBlock; missing -= kBlock) print(std::string_view(field));
    field.resize(missing);
    printJoined<Ch>(nullptr, field += number, suffix);
}

template <class Ch, class Integer>
void printInteger(const Ch* prefix, Integer value, const Ch* suffix, std::uint32_t width,
                  std::uint32_t radix,
                  std::uint64_t (*toBuffer)(Integer, char*, std::uint32_t) noexcept) noexcept {
    guarded([&] {
        char digits[kNumberRoom];
        const std::string_view number(digits, toBuffer(value, digits, radix));
        printJustified(prefix, number, suffix, width);
    });
}

template <class Ch>
void printWord(const Ch* prefix, std::string_view word, const Ch* suffix,
               std::uint32_t width = 0) noexcept {
    guarded([&] { printJustified(prefix, word, suffix, width); });
}

template <class Ch>
void printQword(const Ch* prefix, std::uint64_t value, const Ch* suffix, std::uint32_t width,
                std::uint32_t radix) noexcept {
    if (value == kInvalidQword) return printWord(prefix, "_InvalidQWORD", suffix, width);
    printInteger(prefix, value, suffix, width, radix, &QwordToBufferA);
}

template <class Ch>
void printQlong(const Ch* prefix, std::int64_t value, const Ch* suffix, std::uint32_t width,
                std::uint32_t radix) noexcept {
    if (value == kInvalidQlong) return printWord(prefix, "_InvalidQLONG", suffix, width);
    printInteger(prefix, value, suffix, width, radix, &QlongToBufferA);
}

template <class Ch>
void printPointer(const Ch* prefix, const void* value, const Ch* suffix) noexcept {
    const auto address = reinterpret_cast<std::uintptr_t>(value);
    if (address == 0) return printWord(prefix, "NULL", suffix);
    if (address == UINTPTR_MAX) return printWord(prefix, "INVALID", suffix);
    char text[kNumberRoom + 2] = "0x";
    const std::uint64_t length = QwordToBufferA(address, text + 2, 16);
    printWord(prefix, std::string_view(text, length + 2), suffix);
}

template <class Ch>
void printReal(const Ch* prefix, double value, const Ch* suffix, std::uint32_t digits,
               std::uint32_t radix) noexcept {
    guarded([&] {
        const OwnedText number(NewStringFromRealA(value, digits, radix == 0 ? 10 : radix));
        if (number) printJoined(prefix, std::string_view(number.get()), suffix);
    });
}

template <class Ch>
void printFormatted(const Ch* format, va_list arguments) noexcept {
    guarded([&] {
        if (format) print(std::basic_string_view<Ch>(formatToString(format, arguments)));
    });
}

void printMemory(const char* prefix, const void* data, std::uint64_t length, std::uint32_t radix) {
    const std::uint32_t mode = radix == 2 ? 1 : radix == 16 ? 3 : radix;
    char* digits = nullptr;
    NewAsciFromMem(mode, data, length, &digits, nullptr);
    const OwnedText owned(digits);
    printAll<char>({prefix, digits});
}

template <class Ch>
void printFailure(std::uint32_t status, const Ch* text, std::uint32_t wait) noexcept {
    guarded([&] {
        if (status != kSuccess) {
            printError(status);
        } else {
            const ColoredText color(TextColor::kError);
            printJoined<Ch>(text, "\n", nullptr);
        }
        if (wait != 0) waitForAnyKey();
    });
}

struct FlagName {
    std::uint32_t flag;
    const char* name;
};

// Above and below a range share a name.
constexpr FlagName kFlagNames[] = {
    {NUM_UNDEFINED, "NUM_UNDEFINED "},       {NUM_ILLEGALCHAR, "NUM_ILLEGALCHAR "},
    {NUM_FRACTIONAL, "NUM_FRACTIONAL "},     {NUM_NOSTRUCT, "NUM_NOSTRUCT "},
    {NUM_OVERFLOW, "NUM_OVERFLOW "},         {NUM_UNDERFLOW, "NUM_UNDERFLOW "},
    {NUM_PRECISIONLIM, "NUM_PRECISIONLIM "}, {NUM_U64OVERFLOW, "NUM_U64OVERFLOW "},
    {NUM_I64OVERFLOW, "NUM_I64OVERFLOW "},   {NUM_U32OVERFLOW, "NUM_U32OVERFLOW "},
    {NUM_I32OVERFLOW, "NUM_I32OVERFLOW "},   {NUM_U64UNDERFLOW, "NUM_U64OVERFLOW "},
    {NUM_I64UNDERFLOW, "NUM_I64OVERFLOW "},  {NUM_U32UNDERFLOW, "NUM_U32OVERFLOW "},
    {NUM_I32UNDERFLOW, "NUM_I32OVERFLOW "},  {NUM_ABOVELIMIT, "NUM_ABOVELIMIT "},
    {NUM_BELOWLIMIT, "NUM_BELOWLIMIT "},     {NUM_BADRADIX, "NUM_BADRADIX "},
};

template <class Ch>
void printFlags(const Ch* prefix, std::uint32_t flags, const Ch* suffix) noexcept {
    guarded([&] {
        std::string names;
        for (const FlagName& row : kFlagNames)
            if (flags & row.flag) names += row.name;
        printJoined(prefix, names, suffix);
    });
}

}  // namespace

void printError(std::uint32_t status) {
    char digits[kNumberRoom];
    std::string text = " Error ";
    text.append(digits, DwordToBufferA(status, digits, 10));
    text.append(": ").append(KoErrorStringA(status)).append("\n");
    const ColoredText color(TextColor::kError);
    print(std::string_view(text));
}

}  // namespace nuv64

using namespace nuv64;

void CoutStr(const char16_t* text) noexcept {
    guarded([&] { print(viewOf(text)); });
}

void CoutStrA(const char* text) noexcept {
    guarded([&] { print(viewOf(text)); });
}

void Cout(const char16_t* a, const char16_t* b, const char16_t* c, const char16_t* d,
          const char16_t* e, const char16_t* f) noexcept {
    guarded([&] { printAll({a, b, c, d, e, f}); });
}

void CoutA(const char* a, const char* b, const char* c, const char* d, const char* e,
           const char* f) noexcept {
    guarded([&] { printAll({a, b, c, d, e, f}); });
}

void CoutPrompt(const char16_t* a, const char16_t* b, const char16_t* c, const char16_t* d,
                const char16_t* e, const char16_t* f) noexcept {
    const ColoredText color(TextColor::kPrompt);
    Cout(a, b, c, d, e, f);
}

void CoutPromptA(const char* a, const char* b, const char* c, const char* d, const char* e,
                 const char* f) noexcept {
    const ColoredText color(TextColor::kPrompt);
    CoutA(a, b, c, d, e, f);
}

void CoutChr(char16_t c) noexcept {
    printCharacter<char16_t>(nullptr, c, nullptr);
}

void CoutChrA(char c) noexcept {
    printCharacter<char>(nullptr, c, nullptr);
}

void CoutChar(const char16_t* prefix, char16_t c, const char16_t* suffix) noexcept {
    printCharacter(prefix, c, suffix);
}

void CoutCharA(const char* prefix, char c, const char* suffix) noexcept {
    printCharacter(prefix, c, suffix);
}

void CoutBool(const char16_t* prefix, bool value, const char16_t* suffix) noexcept {
    printWord(prefix, value ? "true" : "false", suffix);
}

void CoutBoolA(const char* prefix, bool value, const char* suffix) noexcept {
    printWord(prefix, value ? "true" : "false", suffix);
}

void CoutPointer(const char16_t* prefix, const void* value, const char16_t* suffix) noexcept {
    printPointer(prefix, value, suffix);
}

void CoutPointerA(const char* prefix, const void* value, const char* suffix) noexcept {
    printPointer(prefix, value, suffix);
}

void CoutDword(const char16_t* prefix, uint32_t value, const char16_t* suffix, uint32_t width,
               uint32_t radix) noexcept {
    printInteger(prefix, value, suffix, width, radix, &DwordToBufferA);
}

void CoutDwordA(const char* prefix, uint32_t value, const char* suffix, uint32_t width,
                uint32_t radix) noexcept {
    printInteger(prefix, value, suffix, width, radix, &DwordToBufferA);
}

void CoutLong(const char16_t* prefix, int32_t value, const char16_t* suffix, uint32_t width,
              uint32_t radix) noexcept {
    printInteger(prefix, value, suffix, width, radix, &LongToBufferA);
}

void CoutLongA(const char* prefix, int32_t value, const char* suffix, uint32_t width,
               uint32_t radix) noexcept {
    printInteger(prefix, value, suffix, width, radix, &LongToBufferA);
}

void CoutQword(const char16_t* prefix, uint64_t value, const char16_t* suffix, uint32_t width,
               uint32_t radix) noexcept {
    printQword(prefix, value, suffix, width, radix);
}

void CoutQwordA(const char* prefix, uint64_t value, const char* suffix, uint32_t width,
                uint32_t radix) noexcept {
    printQword(prefix, value, suffix, width, radix);
}

void CoutQlong(const char16_t* prefix, int64_t value, const char16_t* suffix, uint32_t width,
               uint32_t radix) noexcept {
    printQlong(prefix, value, suffix, width, radix);
}

void CoutQlongA(const char* prefix, int64_t value, const char* suffix, uint32_t width,
                uint32_t radix) noexcept {
    printQlong(prefix, value, suffix, width, radix);
}

void CoutReal(const char16_t* prefix, double value, const char16_t* suffix, uint32_t digits,
              uint32_t flags) noexcept {
    printReal(prefix, value, suffix, digits, flags);
}

void CoutRealA(const char* prefix, double value, const char* suffix, uint32_t digits,
               uint32_t flags) noexcept {
    printReal(prefix, value, suffix, digits, flags);
}

void Coutf(const char16_t* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    printFormatted(format, arguments);
    va_end(arguments);
}

void CoutfA(const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    printFormatted(format, arguments);
    va_end(arguments);
}

void CoutMemA(const char* prefix, const void* data, uint64_t length, uint32_t radix) noexcept {
    guarded([&] { printMemory(prefix, data, length, radix); });
}

void CoutError(uint32_t status, const char16_t* text, uint32_t wait) noexcept {
    printFailure(status, text, wait);
}

void CoutErrorA(uint32_t status, const char* text, uint32_t wait) noexcept {
    printFailure(status, text, wait);
}

void CoutNumFlags(const char16_t* prefix, uint32_t flags, const char16_t* suffix) noexcept {
    printFlags(prefix, flags, suffix);
}

void CoutNumFlagsA(const char* prefix, uint32_t flags, const char* suffix) noexcept {
    printFlags(prefix, flags, suffix);
}
