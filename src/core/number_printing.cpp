#include "nuv64/core/number_printing.h"

#include <bit>
#include <cmath>
#include <cstring>

#include "core/real_rounding.h"
#include "core/text.h"
#include "nuv64/core/special_reals.h"

namespace {

// Writes into a caller's buffer that is known to be large enough.
template <class Ch>
class Writer {
  public:
    explicit Writer(Ch* buffer) noexcept : buffer_(buffer), end_(buffer) {}

    void put(char ch) noexcept { *end_++ = static_cast<Ch>(ch); }
    void put(const char* text) noexcept {
        for (; *text != 0; ++text) put(*text);
    }
    void zeros(std::uint64_t count) noexcept {
        for (; count != 0; --count) put('0');
    }

    Ch* end() const noexcept { return end_; }

    // In front of what stands at place and behind.
    void insert(char ch, Ch* place) noexcept {
        std::memmove(place + 1, place, static_cast<std::size_t>(end_ - place) * sizeof(Ch));
        *place = static_cast<Ch>(ch);
        ++end_;
    }

    // A value below 10000 with its leading zeros.
    void fourDigits(std::uint32_t value) noexcept {
        const std::uint32_t high = value / 100, low = value % 100;
        for (const std::uint32_t digit : {high / 10, high % 10, low / 10, low % 10})
            put(static_cast<char>('0' + digit));
    }

    // The low four bits alone.
    void digit(std::uint32_t value) noexcept { put("0123456789ABCDEF"[value & 15]); }

    // Digits by repeated remainder, reversed in place.
    void integer(std::uint64_t value, std::uint64_t radix) noexcept {
        if (radix == 10) {
            // A division by a constant is a multiplication.
            return digitsReversed(
                value, [](std::uint64_t v) { return v / 10; }, 10);
        }
        if (radix >= 2)
            digitsReversed(
                value, [radix](std::uint64_t v) { return v / radix; }, radix);
    }

    void signedInteger(std::int64_t value, std::uint64_t radix) noexcept {
        const auto bits = static_cast<std::uint64_t>(value);
        if (value < 0 && radix >= 2) put('-');
        integer(value < 0 ? 0 - bits : bits, radix);
    }

    std::uint64_t finish() noexcept {
        *end_ = 0;
        return static_cast<std::uint64_t>(end_ - buffer_);
    }

  private:
    template <class Divide>
    void digitsReversed(std::uint64_t value, Divide divide, std::uint64_t radix) noexcept {
        Ch* const first = end_;
        do {
            const std::uint64_t quotient = divide(value);
            digit(static_cast<std::uint32_t>(value - quotient * radix));
            value = quotient;
        } while (value != 0);
        std::reverse(first, end_);
    }

    Ch* buffer_;
    Ch* end_;
};

template <class Ch>
std::uint64_t unsignedToBuffer(std::uint64_t value, Ch* buffer, std::uint32_t radix) noexcept {
    if (!buffer) return 0;
    Writer<Ch> out(buffer);
    out.integer(value, radix);
    return out.finish();
}

template <class Ch>
std::uint64_t signedToBuffer(std::int64_t value, Ch* buffer, std::uint32_t radix) noexcept {
    if (!buffer) return 0;
    Writer<Ch> out(buffer);
    out.signedInteger(value, radix);
    return out.finish();
}

// Writes count digits of a mantissa of at least 1 and below the radix. Each is the whole part of
// the mantissa, which then loses it and is multiplied by the radix, rounded as doubles are.
template <class Ch>
void putDigits(Writer<Ch>& out, double mantissa, std::uint32_t count,
               std::uint32_t radix) noexcept {
    for (; count != 0; --count) {
        const double digit = std::floor(mantissa);
        out.digit(nuv64::clampToDword(digit));
        mantissa = (mantissa - digit) * radix;
    }
}

// A product of up to 56 bits, rounded to the 53 of a double, half to even.
std::uint64_t roundedAsDouble(std::uint64_t product) noexcept {
    const int excess = std::max(static_cast<int>(std::bit_width(product)) - 53, 0);
    if (excess == 0) return product;
    const std::uint64_t half = (std::uint64_t{1} << excess) >> 1;
    const std::uint64_t even = product >> excess & 1;
    return (product + half - 1 + even) >> excess << excess;
}

// The same in base 10, with the mantissa as an integer in units of 2^-52, in which each of its
// values is whole. A product is ten times a fraction and so has one zero bit more at its end than
// that; at most three bits are beyond a double's 53. From the third product on nothing is lost,
// units of 2^-50 do, and four digits come out of one product.
template <class Ch>
void putDecimalDigits(Writer<Ch>& out, double mantissa, std::uint32_t count) noexcept {
    constexpr std::uint64_t one = std::uint64_t{1} << 52, shortOne = one >> 2;
    auto value = static_cast<std::uint64_t>(mantissa * static_cast<double>(one));
    for (int i = 0; i < 2 && count != 0; ++i, --count) {
        out.digit(static_cast<std::uint32_t>(value >> 52));
        value = roundedAsDouble((value & (one - 1)) * 10);
    }
    if (count == 0) return;
    out.digit(static_cast<std::uint32_t>(value >> 52));
    std::uint64_t fraction = (value & (one - 1)) >> 2;
    for (--count; count >= 4; count -= 4) {
        fraction *= 10000;
        out.fourDigits(static_cast<std::uint32_t>(fraction >> 50));
        fraction &= shortOne - 1;
    }
    for (; count != 0; --count) {
        fraction *= 10;
        out.digit(static_cast<std::uint32_t>(fraction >> 50));
        fraction &= shortOne - 1;
    }
}

// What a base gives a double for sure.
std::uint32_t defaultDigits(std::uint32_t radix) noexcept {
    if (radix == 10) return 15;
    return nuv64::clampToDword(std::floor(-std::log(___EpsReal) / std::log(radix)));
}

template <class Ch>
void putFinite(Writer<Ch>& out, double value, std::uint32_t digits, std::uint32_t radix) noexcept {
    std::int32_t exponent = 0;
    const double mantissa =
        nuv64::mantissaAndExponent(std::fabs(value), &exponent, static_cast<std::int32_t>(radix));
    if (digits == 0) digits = std::max(defaultDigits(radix), 1u);
    const bool scientific = exponent < -3 || exponent >= static_cast<std::int64_t>(digits);
    const bool fraction = !scientific && exponent < 0;
    if (value < 0) out.put('-');
    if (fraction) {
        out.put("0.");
        out.zeros(static_cast<std::uint64_t>(-exponent - 1));
    }
    Ch* const first = out.end();
    if (radix == 10) {
        putDecimalDigits(out, mantissa, digits);
    } else {
        putDigits(out, mantissa, digits, radix);
    }
    if (!fraction) out.insert('.', first + (scientific ? 1 : exponent + 1));
    if (scientific) {
        out.put(radix == 10 ? 'e' : '_');
        out.signedInteger(exponent, radix);
    }
}

template <class Ch>
std::uint64_t realToBuffer(double value, Ch* buffer, std::uint32_t digits,
                           std::uint32_t radix) noexcept {
    if (!buffer) return 0;
    Writer<Ch> out(buffer);
    if (std::isinf(value)) {
        out.put(value > 0 ? "+INF" : "-INF");
    } else if (std::isnan(value)) {
        out.put("NaN");
    } else if (std::fabs(value) < ___MinReal) {
        out.put('0');
    } else if (radix >= 2 && radix <= INT32_MAX) {
        putFinite(out, value, digits, radix);
    }
    return out.finish();
}

template <class Ch>
std::uint64_t toKmgBuffer(Ch* buffer, std::uint64_t value, std::uint32_t showExact) noexcept {
    if (!buffer) return 0;
    Writer<Ch> out(buffer);
    std::uint64_t reduced = value;
    unsigned steps = 0;
    for (; reduced >= 16384; reduced /= 1024) ++steps;
    out.integer(reduced, 10);
    if (steps != 0) {
        out.put(' ');
        out.put(" KMGTPE "[steps]);
        if (reduced << (10 * steps) != value) out.put('+');
    }
    if (showExact != 0) {
        out.put(" [");
        out.integer(value, 10);
        out.put(']');
    }
    return out.finish();
}

template <class Ch>
Ch* newFromUnsigned(std::uint64_t value, std::uint32_t radix) noexcept {
    Ch buffer[72];
    const std::uint64_t length = unsignedToBuffer(value, buffer, radix);
    return nuv64::tryCopy(std::basic_string_view<Ch>(buffer, length)).release();
}

template <class Ch>
Ch* newFromSigned(std::int64_t value, std::uint32_t radix) noexcept {
    Ch buffer[72];
    const std::uint64_t length = signedToBuffer(value, buffer, radix);
    return nuv64::tryCopy(std::basic_string_view<Ch>(buffer, length)).release();
}

template <class Ch>
Ch* newFromReal(double value, std::uint32_t digits, std::uint32_t radix) noexcept {
    const nuv64::Owned<Ch> buffer = nuv64::tryAllocate<Ch>(std::uint64_t{digits} + 128);
    if (!buffer) return nullptr;
    const std::uint64_t length = realToBuffer(value, buffer.get(), digits, radix);
    return nuv64::tryCopy(std::basic_string_view<Ch>(buffer.get(), length)).release();
}

}  // namespace

uint64_t DwordToBuffer(uint32_t value, char16_t* buffer, uint32_t radix) noexcept {
    return unsignedToBuffer(value, buffer, radix);
}

uint64_t DwordToBufferA(uint32_t value, char* buffer, uint32_t radix) noexcept {
    return unsignedToBuffer(value, buffer, radix);
}

uint64_t QwordToBuffer(uint64_t value, char16_t* buffer, uint32_t radix) noexcept {
    return unsignedToBuffer(value, buffer, radix);
}

uint64_t QwordToBufferA(uint64_t value, char* buffer, uint32_t radix) noexcept {
    return unsignedToBuffer(value, buffer, radix);
}

uint64_t LongToBuffer(int32_t value, char16_t* buffer, uint32_t radix) noexcept {
    return signedToBuffer(value, buffer, radix);
}

uint64_t LongToBufferA(int32_t value, char* buffer, uint32_t radix) noexcept {
    return signedToBuffer(value, buffer, radix);
}

uint64_t QlongToBuffer(int64_t value, char16_t* buffer, uint32_t radix) noexcept {
    return signedToBuffer(value, buffer, radix);
}

uint64_t QlongToBufferA(int64_t value, char* buffer, uint32_t radix) noexcept {
    return signedToBuffer(value, buffer, radix);
}

uint64_t RealToBuffer(double value, char16_t* buffer, uint32_t digits, uint32_t radix) noexcept {
    return realToBuffer(value, buffer, digits, radix);
}

uint64_t RealToBufferA(double value, char* buffer, uint32_t digits, uint32_t radix) noexcept {
    return realToBuffer(value, buffer, digits, radix);
}

uint64_t QwordToKMGbuffer(char16_t* buffer, uint64_t value, uint32_t showExact) noexcept {
    return toKmgBuffer(buffer, value, showExact);
}

uint64_t QwordToKMGbufferA(char* buffer, uint64_t value, uint32_t showExact) noexcept {
    return toKmgBuffer(buffer, value, showExact);
}

char16_t* NewStringFromDword(uint32_t value, uint32_t radix) noexcept {
    return newFromUnsigned<char16_t>(value, radix);
}

char* NewStringFromDwordA(uint32_t value, uint32_t radix) noexcept {
    return newFromUnsigned<char>(value, radix);
}

char16_t* NewStringFromLong(int32_t value, uint32_t radix) noexcept {
    return newFromSigned<char16_t>(value, radix);
}

char* NewStringFromLongA(int32_t value, uint32_t radix) noexcept {
    return newFromSigned<char>(value, radix);
}

char16_t* NewStringFromQword(uint64_t value, uint32_t radix) noexcept {
    return newFromUnsigned<char16_t>(value, radix);
}

char* NewStringFromQwordA(uint64_t value, uint32_t radix) noexcept {
    return newFromUnsigned<char>(value, radix);
}

char16_t* NewStringFromQlong(int64_t value, uint32_t radix) noexcept {
    return newFromSigned<char16_t>(value, radix);
}

char* NewStringFromQlongA(int64_t value, uint32_t radix) noexcept {
    return newFromSigned<char>(value, radix);
}

char16_t* NewStringFromReal(double value, uint32_t digits, uint32_t radix) noexcept {
    return newFromReal<char16_t>(value, digits, radix);
}

char* NewStringFromRealA(double value, uint32_t digits, uint32_t radix) noexcept {
    return newFromReal<char>(value, digits, radix);
}
