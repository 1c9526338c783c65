#include "nuv64/core/number_printing.h"

#include <bit>
#include <cmath>

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

// The digits of a mantissa of at least 1 and below the radix, one after the other. Each is the
// whole part of the mantissa, which then loses it and is multiplied by the radix, rounded as
// doubles are.
class Digits {
  public:
    Digits(double mantissa, std::uint32_t radix) noexcept : mantissa_(mantissa), radix_(radix) {}

    std::uint32_t next() noexcept {
        const double digit = std::floor(mantissa_);
        mantissa_ = (mantissa_ - digit) * radix_;
        return nuv64::clampToDword(digit);
    }

  private:
    double mantissa_;
    std::uint32_t radix_;
};

// The same in base 10, with the mantissa as an integer in units of 2^-52, in which each of its
// values is whole: products of up to 56 bits are rounded to the 53 of a double, half to even.
// Several times as fast, as no step waits for a conversion.
class DecimalDigits {
  public:
    explicit DecimalDigits(double mantissa) noexcept
        : mantissa_(static_cast<std::uint64_t>(mantissa * kOne)) {}

    std::uint32_t next() noexcept {
        const auto digit = static_cast<std::uint32_t>(mantissa_ >> 52);
        const std::uint64_t product = (mantissa_ & (kOne - 1)) * 10;
        const int excess = std::max(static_cast<int>(std::bit_width(product)) - 53, 0);
        const std::uint64_t half = (std::uint64_t{1} << excess) >> 1;
        const std::uint64_t even = product >> excess & 1;
        mantissa_ = excess == 0 ? product : (product + half - 1 + even) >> excess << excess;
        return digit;
    }

  private:
    static constexpr std::uint64_t kOne = std::uint64_t{1} << 52;
    std::uint64_t mantissa_;
};

template <class Ch, class Source>
void putDigits(Writer<Ch>& out, Source& source, std::uint32_t count) noexcept {
    for (; count != 0; --count) out.digit(source.next());
}

// What a base gives a double for sure.
std::uint32_t defaultDigits(std::uint32_t radix) noexcept {
    if (radix == 10) return 15;
    return nuv64::clampToDword(std::floor(-std::log(___EpsReal) / std::log(radix)));
}

// The digits and the point, or the exponent, of a number that is not negative.
template <class Ch, class Source>
void putMagnitude(Writer<Ch>& out, Source source, std::int32_t exponent, std::uint32_t digits,
                  std::uint32_t radix) noexcept {
    if (exponent < -3 || exponent >= static_cast<std::int64_t>(digits)) {
        putDigits(out, source, 1);
        out.put('.');
        putDigits(out, source, digits - 1);
        out.put(radix == 10 ? 'e' : '_');
        out.signedInteger(exponent, radix);
    } else if (exponent < 0) {
        out.put("0.");
        out.zeros(static_cast<std::uint64_t>(-exponent - 1));
        putDigits(out, source, digits);
    } else {
        const std::uint32_t whole = static_cast<std::uint32_t>(exponent) + 1;
        putDigits(out, source, whole);
        out.put('.');
        putDigits(out, source, digits - whole);
    }
}

template <class Ch>
void putFinite(Writer<Ch>& out, double value, std::uint32_t digits, std::uint32_t radix) noexcept {
    std::int32_t exponent = 0;
    const double mantissa =
        nuv64::mantissaAndExponent(std::fabs(value), &exponent, static_cast<std::int32_t>(radix));
    if (digits == 0) digits = std::max(defaultDigits(radix), 1u);
    if (value < 0) out.put('-');
    if (radix == 10) {
        putMagnitude(out, DecimalDigits(mantissa), exponent, digits, radix);
    } else {
        putMagnitude(out, Digits(mantissa, radix), exponent, digits, radix);
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
