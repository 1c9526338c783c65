#include "nuv64/core/console_input.h"

#include "core/console.h"
#include "core/guard.h"
#include "nuv64/core/console_output.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/text_edit.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kNoBuffer = 18;
constexpr std::uint32_t kEndOfFile = 62;

void groom(char16_t* text, std::uint32_t mode) noexcept {
    StringGroom(text, mode);
}
void groom(char* text, std::uint32_t mode) noexcept {
    StringGroomA(text, mode);
}

template <class Ch>
std::uint32_t lineToBuffer(const Ch* prompt, Ch* buffer, std::uint64_t size,
                           std::uint32_t groomFlags) noexcept {
    if (!buffer || size == 0) return kNoBuffer;
    *buffer = 0;
    return guardStatus([&]() -> std::uint32_t {
        std::basic_string<Ch> line;
        if (!readTypedLine(prompt, line, size - 1)) return kEndOfFile;
        copyToBuffer(std::basic_string_view<Ch>(line), buffer, size);
        groom(buffer, groomFlags);
        return kSuccess;
    });
}

// What was typed; false at the end of the input and when memory is short.
template <class Ch>
bool typedLine(const Ch* prompt, std::basic_string<Ch>& line) noexcept {
    return guardValue(false, [&] { return readTypedLine(prompt, line); });
}

template <class Ch>
Ch* newTypedText(const Ch* prompt) noexcept {
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        std::basic_string<Ch> line;
        if (!readTypedLine(prompt, line)) return nullptr;
        return tryCopy(std::basic_string_view<Ch>(line.c_str())).release();
    });
}

std::uint32_t typedMemory(const char* prompt, void* data, std::uint64_t* length,
                          std::uint32_t radix) {
    constexpr std::uint32_t kNotYetImplemented = 9;
    if (!data || !length) return kNoBuffer;
    const std::uint32_t mode = radix == 2 ? 1 : radix == 16 ? 3 : radix;
    if (mode != 1 && mode != 3) return kNotYetImplemented;
    std::string line;
    if (!readTypedLine(prompt, line)) return kEndOfFile;
    return MemFromAsci(mode, line.c_str(), data, length);
}

template <class Ch, class Number>
using NumberReader = Number (*)(const Ch*, std::uint32_t*, std::uint64_t*, std::uint32_t) noexcept;
template <class Ch, class Number>
using NumberTest = std::uint32_t (*)(const Ch*, Number, Number, Number*) noexcept;

void report(std::uint32_t* flags, std::uint32_t word) noexcept {
    if (flags) *flags = word;
}

template <class Ch, class Number>
Number typedNumber(const Ch* prompt, std::uint32_t* flags, Number none,
                   NumberReader<Ch, Number> reader) noexcept {
    std::uint32_t word = NUM_UNDEFINED;
    Number value = none;
    std::basic_string<Ch> line;
    if (typedLine(prompt, line)) value = reader(line.c_str(), &word, nullptr, 10);
    report(flags, word);
    return word & NUM_UNDEFINED ? none : value;
}

template <class Ch>
struct Complaints {
    const Ch* illegal;
    const Ch* tooLarge;
    const Ch* tooSmall;
};

template <class Ch>
Complaints<Ch> complaints() noexcept;
template <>
Complaints<char16_t> complaints() noexcept {
    return {u"    Illegal! Try again: ", u"    Too large! Try again: ",
            u"    Too small! Try again: "};
}
template <>
Complaints<char> complaints() noexcept {
    return {"    Illegal! Try again: ", "    Too large! Try again: ", "    Too small! Try again: "};
}

// What is wrong with an answer, as the next prompt; null when it will do.
template <class Ch>
const Ch* complaintOf(std::uint32_t word, std::uint32_t illegal) noexcept {
    const Complaints<Ch> texts = complaints<Ch>();
    if (word & illegal) return texts.illegal;
    if (word & NUM_ABOVELIMIT) return texts.tooLarge;
    return word & NUM_BELOWLIMIT ? texts.tooSmall : nullptr;
}

// Bits of a report that make an answer illegal. Of the underflows only that of 32 bits is among
// them: a negative answer to a Qword counts as its 0.
constexpr std::uint32_t kIllegalInteger = 0x30170;
constexpr std::uint32_t kIllegalReal = 0x130;

template <class Ch, class Number>
Number checkedNumber(const Ch* prompt, Number min, Number max, std::uint32_t* flags, Number value,
                     std::uint32_t illegal, NumberTest<Ch, Number> test) noexcept {
    constexpr int kRetries = 3;
    std::uint32_t word = NUM_UNDEFINED;
    for (int retry = 0; prompt || retry == 0; ++retry) {
        std::basic_string<Ch> line;
        word = typedLine(prompt, line) ? test(line.c_str(), min, max, &value) : NUM_UNDEFINED;
        if (retry == kRetries) break;
        prompt = complaintOf<Ch>(word, illegal);
    }
    report(flags, word);
    return value;
}

}  // namespace

// The prompt stands as it is: menus bring their own blanks and line feeds.
template <class Ch>
std::uint16_t askForKeyOf(const Ch* prompt, bool wait) {
    if (prompt) {
        const ColoredText color(TextColor::kPrompt);
        print(viewOf(prompt));
    }
    const ColoredText color(TextColor::kTyped);
    const std::uint16_t code = platform::readKey(wait);
    const auto key = static_cast<char16_t>(code);
    if (!platform::isControlCharacter(key)) print(std::u16string_view(&key, 1));
    return code;
}

std::uint16_t askForKey(const char16_t* prompt, bool wait) {
    return askForKeyOf(prompt, wait);
}

std::uint16_t askForKey(const char* prompt, bool wait) {
    return askForKeyOf(prompt, wait);
}

void waitForAnyKey() {
    askForKey("\n Hit any key to continue", true);
}

}  // namespace nuv64

using namespace nuv64;

uint32_t CinToBuffer(const char16_t* prompt, char16_t* buffer, uint64_t size,
                     uint32_t groomFlags) noexcept {
    return lineToBuffer(prompt, buffer, size, groomFlags);
}

uint32_t CinToBufferA(const char* prompt, char* buffer, uint64_t size,
                      uint32_t groomFlags) noexcept {
    return lineToBuffer(prompt, buffer, size, groomFlags);
}

uint16_t CinGetKey(uint32_t noWait) noexcept {
    return platform::readKey(noWait == 0);
}

uint16_t CinWaitKbHit(const char16_t* prompt, uint32_t noWait) noexcept {
    return guardValue(platform::kEndOfInput, [&] { return askForKey(prompt, noWait == 0); });
}

uint16_t CinWaitKbHitA(const char* prompt, uint32_t noWait) noexcept {
    return guardValue(platform::kEndOfInput, [&] { return askForKey(prompt, noWait == 0); });
}

char16_t* CinNewString(const char16_t* prompt) noexcept {
    return newTypedText(prompt);
}

char* CinNewStringA(const char* prompt) noexcept {
    return newTypedText(prompt);
}

uint32_t CinMemA(const char* prompt, void* data, uint64_t* length, uint32_t radix) noexcept {
    return guardStatus([&] { return typedMemory(prompt, data, length, radix); });
}

uint32_t CinDword(const char16_t* prompt, uint32_t* flags) noexcept {
    return typedNumber<char16_t>(prompt, flags, UINT32_MAX, &StringToDword);
}

uint32_t CinDwordA(const char* prompt, uint32_t* flags) noexcept {
    return typedNumber<char>(prompt, flags, UINT32_MAX, &StringToDwordA);
}

int32_t CinLong(const char16_t* prompt, uint32_t* flags) noexcept {
    return typedNumber<char16_t>(prompt, flags, int32_t{-1}, &StringToLong);
}

int32_t CinLongA(const char* prompt, uint32_t* flags) noexcept {
    return typedNumber<char>(prompt, flags, int32_t{-1}, &StringToLongA);
}

uint64_t CinQword(const char16_t* prompt, uint32_t* flags) noexcept {
    return typedNumber<char16_t>(prompt, flags, uint64_t{UINT64_MAX}, &StringToQword);
}

uint64_t CinQwordA(const char* prompt, uint32_t* flags) noexcept {
    return typedNumber<char>(prompt, flags, uint64_t{UINT64_MAX}, &StringToQwordA);
}

int64_t CinQlong(const char16_t* prompt, uint32_t* flags) noexcept {
    return typedNumber<char16_t>(prompt, flags, int64_t{-1}, &StringToQlong);
}

int64_t CinQlongA(const char* prompt, uint32_t* flags) noexcept {
    return typedNumber<char>(prompt, flags, int64_t{-1}, &StringToQlongA);
}

double CinReal(const char16_t* prompt, uint32_t* flags) noexcept {
    return typedNumber<char16_t>(prompt, flags, double{___NAN}, &StringToReal);
}

double CinRealA(const char* prompt, uint32_t* flags) noexcept {
    return typedNumber<char>(prompt, flags, double{___NAN}, &StringToRealA);
}

uint32_t CinDwordMm(const char16_t* prompt, uint32_t min, uint32_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, UINT32_MAX, kIllegalInteger, &StringTestForDword);
}

uint32_t CinDwordMmA(const char* prompt, uint32_t min, uint32_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, UINT32_MAX, kIllegalInteger,
                         &StringTestForDwordA);
}

int32_t CinLongMm(const char16_t* prompt, int32_t min, int32_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, int32_t{-1}, kIllegalInteger, &StringTestForLong);
}

int32_t CinLongMmA(const char* prompt, int32_t min, int32_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, int32_t{-1}, kIllegalInteger,
                         &StringTestForLongA);
}

uint64_t CinQwordMm(const char16_t* prompt, uint64_t min, uint64_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, uint64_t{UINT64_MAX}, kIllegalInteger,
                         &StringTestForQword);
}

uint64_t CinQwordMmA(const char* prompt, uint64_t min, uint64_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, uint64_t{UINT64_MAX}, kIllegalInteger,
                         &StringTestForQwordA);
}

int64_t CinQlongMm(const char16_t* prompt, int64_t min, int64_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, int64_t{-1}, kIllegalInteger,
                         &StringTestForQlong);
}

int64_t CinQlongMmA(const char* prompt, int64_t min, int64_t max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, int64_t{-1}, kIllegalInteger,
                         &StringTestForQlongA);
}

double CinRealMm(const char16_t* prompt, double min, double max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, double{___NAN}, kIllegalReal, &StringTestForReal);
}

double CinRealMmA(const char* prompt, double min, double max, uint32_t* flags) noexcept {
    return checkedNumber(prompt, min, max, flags, double{___NAN}, kIllegalReal,
                         &StringTestForRealA);
}

uint32_t CinOutputDestination() noexcept {
    constexpr std::uint32_t kConsole = 1, kFile = 2;
    const std::uint16_t key = CinWaitKbHitA(
        "\n Print to:\n 1      only console\n 2      only file\n other  both console and file\n",
        0);
    CoutStrA("\n");
    if (key == u'1') return kConsole;
    return key == u'2' ? kFile : kConsole | kFile;
}
