// The formatter on specifications of any make, with an argument list that is kept in step: from
// each group of bytes one specification and its argument is made, between texts taken from the
// input. Both widths agree, and a buffer gets the beginning of the text.
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/text.h"
#include "nuv64/core/formatter.h"
#include "nuv64/core/memory.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool empty() const { return size_ == 0; }
    std::uint8_t byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    std::uint64_t word() {
        std::uint64_t value = 0;
        for (int i = 0; i < 8; ++i) value = value << 8 | byte();
        return value;
    }
    std::string text(std::size_t longest) {
        std::string text;
        for (std::size_t length = byte() % (longest + 1); length != 0 && size_ != 0; --length) {
            const char c = static_cast<char>(byte());
            if (c != 0 && c != '%') text += c;
        }
        return text;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

std::u16string widened(const std::string& text) {
    std::u16string wide;
    for (const char c : text) wide += static_cast<char16_t>(static_cast<signed char>(c));
    return wide;
}

// The texts of both members; compares them and lets go. A character of 16 bits keeps its low byte
// in 8-bit text.
void requireSame(char* narrow, char16_t* wide) {
    require(narrow && wide);
    std::size_t i = 0;
    for (; wide[i] != 0; ++i) {
        // A character whose low byte is 0 ends the 8-bit text.
        if (nuv64::narrow(wide[i]) == 0) break;
        require(narrow[i] == nuv64::narrow(wide[i]));
    }
    require(narrow[i] == 0);
    KillStringA(&narrow);
    KillString(&wide);
}

// Flags, width and precision; stars counts those that take an argument.
std::string specification(Input& input, int& stars) {
    std::string text = "%";
    for (std::uint8_t flags = input.byte(), i = 0; i < 5; ++i)
        if (flags >> i & 1) text += " #+-0"[i];
    const std::uint8_t shape = input.byte();
    stars = 0;
    if (shape & 1) text += std::to_string(input.byte() * (shape & 2 ? 9 : 1));
    if ((shape & 5) == 4) text += '*', ++stars;
    if (shape & 8) {
        text += '.';
        if (shape & 16) text += std::to_string(input.byte() * (shape & 32 ? 7 : 1));
        if ((shape & 80) == 64) text += '*', ++stars;
    }
    return text;
}

enum class Kind { kInt, kLong, kReal, kText, kWideText, kPointer, kAddress };

struct Conversion {
    const char* text;
    Kind kind;
};

constexpr std::array kConversions = {
    Conversion{"d", Kind::kInt},        Conversion{"hhi", Kind::kInt},
    Conversion{"hu", Kind::kInt},       Conversion{"lx", Kind::kInt},
    Conversion{"llX", Kind::kLong},     Conversion{"jo", Kind::kLong},
    Conversion{"I64d", Kind::kLong},    Conversion{"l16u", Kind::kInt},
    Conversion{"zx", Kind::kLong},      Conversion{"c", Kind::kInt},
    Conversion{"lc", Kind::kInt},       Conversion{"a", Kind::kReal},
    Conversion{"E", Kind::kReal},       Conversion{"Lf", Kind::kReal},
    Conversion{"g", Kind::kReal},       Conversion{"G", Kind::kReal},
    Conversion{"r", Kind::kReal},       Conversion{"hs", Kind::kText},
    Conversion{"hZ", Kind::kText},      Conversion{"ls", Kind::kWideText},
    Conversion{"p", Kind::kPointer},    Conversion{"n", Kind::kPointer},
    Conversion{"&lld", Kind::kAddress}, Conversion{"&hhu", Kind::kAddress},
    Conversion{"&g", Kind::kAddress},   Conversion{"&l32f", Kind::kAddress},
    Conversion{"&C", Kind::kAddress},   Conversion{"&Q", Kind::kAddress},
    Conversion{"y", Kind::kInt},        Conversion{"", Kind::kInt},
    Conversion{"%", Kind::kInt},
};

struct Value {
    std::uint64_t bits;
    std::string text;
    std::u16string wide;
    std::array<std::uint64_t, 2> block;
};

template <class... Stars>
void formatOne(const std::string& format, Kind kind, const Value& value, Stars... stars) {
    const std::u16string wide = widened(format);
    const char* const a = format.c_str();
    const char16_t* const w = wide.c_str();
    const auto both = [&](auto argument) {
        requireSame(NewSprintfA(a, stars..., argument), NewSprintf(w, stars..., argument));
        char buffer[40];
        const std::uint64_t length = SprintfToBufferA(buffer, 40, a, stars..., argument);
        require(length < 40 && buffer[length] == 0);
        char* appended = nullptr;
        require(SprintfAppendA(&appended, a, stars..., argument) == appended && appended);
        require(std::string(appended).substr(0, 39) == buffer);
        KillStringA(&appended);
    };
    switch (kind) {
        case Kind::kInt:
            return both(static_cast<int>(value.bits));
        case Kind::kLong:
            return both(value.bits);
        case Kind::kReal:
            return both(std::bit_cast<double>(value.bits));
        case Kind::kText:
            return both(value.bits % 9 ? value.text.c_str() : nullptr);
        case Kind::kWideText:
            return both(value.bits % 9 ? value.wide.c_str() : nullptr);
        case Kind::kPointer:
            return both(reinterpret_cast<void*>(static_cast<std::uintptr_t>(value.bits)));
        case Kind::kAddress:
            return both(value.bits % 9 ? value.block.data() : nullptr);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    for (int pieces = 0; !input.empty() && pieces < 20; ++pieces) {
        int stars = 0;
        const std::string before = input.text(10);
        const std::string start = specification(input, stars);
        const Conversion& conversion = kConversions[input.byte() % kConversions.size()];
        const std::string behind = input.text(3);
        // A specification that ends with the format must not find its conversion in more text.
        const std::string format =
            before + start + (*conversion.text == 0 ? "" : conversion.text + behind);
        Value value{input.word(), input.text(20), {}, {}};
        value.wide = widened(value.text);
        value.block = {value.bits, input.word()};
        const int one = static_cast<std::int16_t>(value.bits) % 3000;
        const int two = static_cast<std::int16_t>(value.bits >> 16) % 2000;
        if (stars == 0) formatOne(format, conversion.kind, value);
        if (stars == 1) formatOne(format, conversion.kind, value, one);
        if (stars == 2) formatOne(format, conversion.kind, value, one, two);
    }
    return 0;
}
