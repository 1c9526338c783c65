// The readers of numbers on any text: both widths agree, what is consumed lies inside the text, and
// a number that was read whole survives being printed with all its digits.
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/number_text.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/number_reading.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

struct Texts {
    std::string narrow;
    std::u16string wide;
};

template <class Number, class... Radix>
Number readBoth(Number (*narrow)(const char*, std::uint32_t*, std::uint64_t*, Radix...),
                Number (*wide)(const char16_t*, std::uint32_t*, std::uint64_t*, Radix...),
                const Texts& texts, std::uint32_t entry, Radix... radix) {
    std::uint32_t flags = entry, wideFlags = entry;
    std::uint64_t consumed = 0, wideConsumed = 0;
    const Number value = narrow(texts.narrow.c_str(), &flags, &consumed, radix...);
    const Number wideValue = wide(texts.wide.c_str(), &wideFlags, &wideConsumed, radix...);
    require(consumed <= texts.narrow.size());
    require(consumed == wideConsumed && flags == wideFlags);
    if constexpr (sizeof(Number) == 8)
        require(std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(wideValue));
    else
        require(value == wideValue);
    return value;
}

void readStrictly(const Texts& texts, std::uint32_t entry) {
    readBoth(StringToDwordStrictA, StringToDwordStrict, texts, entry);
    readBoth(StringToLongStrictA, StringToLongStrict, texts, entry);
    readBoth(StringToQwordStrictA, StringToQwordStrict, texts, entry);
    readBoth(StringToQlongStrictA, StringToQlongStrict, texts, entry);
}

// The range of the text alone must do: nothing at or behind its end is looked at.
void readTheRange(const std::string& text) {
    const std::string copy(text.begin(), text.end());
    const char* after = nullptr;
    bool found = false;
    const double ranged = nuv64::readReal(copy.data(), copy.data() + copy.size(), &after, &found);
    const char* afterTerminated = nullptr;
    const double terminated = nuv64::readReal<char>(text.c_str(), nullptr, &afterTerminated);
    require(after - copy.data() == afterTerminated - text.c_str());
    require(std::bit_cast<std::uint64_t>(ranged) == std::bit_cast<std::uint64_t>(terminated));
}

void printAndReadBack(double value) {
    char text[64];
    *std::to_chars(text, text + sizeof text, value).ptr = 0;
    std::uint32_t flags = 0;
    const double again = StringToRealA(text, &flags, nullptr, 10);
    require(std::isnan(value) || again == value);
    for (const std::uint32_t radix : {2u, 10u, 16u, 36u}) {
        char digits[256];
        require(RealToBufferA(value, digits, 20, radix) < sizeof digits);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    Texts texts;
    texts.narrow = std::string(reinterpret_cast<const char*>(data) + 1, size - 1).c_str();
    for (const char c : texts.narrow)
        texts.wide += static_cast<char16_t>(static_cast<signed char>(c));
    const std::uint32_t entry = data[0] & 3, radix = 10;
    const double value = readBoth(StringToRealA, StringToReal, texts, entry, radix);
    readBoth(StringToDwordA, StringToDword, texts, entry, radix);
    readBoth(StringToLongA, StringToLong, texts, entry, radix);
    readBoth(StringToQwordA, StringToQword, texts, entry, radix);
    readBoth(StringToQlongA, StringToQlong, texts, entry, radix);
    readStrictly(texts, entry);
    readTheRange(texts.narrow);
    printAndReadBack(value);
    std::uint64_t end = 0, wideEnd = 0;
    require(NumberOfRealItemsInStringA(texts.narrow.c_str(), &end) ==
            NumberOfRealItemsInString(texts.wide.c_str(), &wideEnd));
    require(end == wideEnd && end <= texts.narrow.size());
    return 0;
}
