#include "nuv64/core/formatter.h"

#include <cmath>
#include <numeric>

#include "core/formatter.h"
#include "core/guard.h"
#include "core/real_format.h"
#include "core/text.h"
#include "nuv64/core/number_printing.h"

namespace nuv64 {
namespace {

// The arguments, read one after the other.
class Arguments {
  public:
    explicit Arguments(va_list list) noexcept { va_copy(list_, list); }
    ~Arguments() { va_end(list_); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    template <class T>
    T next() noexcept {
        return va_arg(list_, T);
    }
    // The value behind an address; a null address gives 0.
    template <class T>
    T behindAddress() noexcept {
        const T* address = next<const T*>();
        return address ? *address : T{};
    }
    template <class T>
    T value(bool indirect) noexcept {
        return indirect ? behindAddress<T>() : next<T>();
    }

  private:
    va_list list_;
};

struct Specification {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    bool indirect = false;
    int width = 0;
    int precision = -1;
    int bits = 32;
    bool isFloat = false;  // a real of 32 bits, which only an address can name
    char textWidth = 0;    // 'h' or 'l', or that of the format
    char conversion = 0;
};

constexpr int kMaxCount = 0x7FFFFFFF;
constexpr int kMaxPrecision = kMaxCount - 8;  // zeros behind the point come on top

template <class Ch>
class Formatter {
  public:
    Formatter(const Ch* format, va_list arguments) : format_(format), arguments_(arguments) {}

    std::basic_string<Ch> run() {
        while (format_ && *format_ != 0) {
            const Ch* start = format_;
            while (*format_ != 0 && *format_ != '%') ++format_;
            out_.append(start, format_);
            if (*format_ == 0) break;
            start = format_++;
            Specification spec;
            parse(spec);
            if (!convert(spec)) out_.append(start, format_);
        }
        return std::move(out_);
    }

  private:
    void parse(Specification& spec) {
        parseFlags(spec);
        spec.width = parseCount(0);
        if (spec.width < 0) {
            spec.left = true;
            spec.width = spec.width == -kMaxCount - 1 ? kMaxCount : -spec.width;
        }
        if (*format_ == '.') {
            ++format_;
            spec.precision = std::clamp(parseCount(0), -1, kMaxPrecision);
        }
        if (*format_ == '&') {
            spec.indirect = true;
            ++format_;
        }
        parseLength(spec);
        if (*format_ == 0) return;
        if (static_cast<std::make_unsigned_t<Ch>>(*format_) < 128)
            spec.conversion = static_cast<char>(*format_);
        ++format_;
    }

    void parseFlags(Specification& spec) {
        for (;; ++format_) {
            if (*format_ == '-') {
                spec.left = true;
            } else if (*format_ == '+') {
                spec.plus = true;
            } else if (*format_ == ' ') {
                spec.blank = true;
            } else if (*format_ == '#') {
                spec.alternate = true;
            } else if (*format_ == '0') {
                spec.zero = true;
            } else {
                return;
            }
        }
    }

    int parseDigits(int none) {
        if (number_text::decimalDigit(*format_) > 9) return none;
        std::int64_t count = 0;
        for (; number_text::decimalDigit(*format_) <= 9; ++format_)
            count =
                std::min<std::int64_t>(count * 10 + number_text::decimalDigit(*format_), kMaxCount);
        return static_cast<int>(count);
    }

    int parseCount(int none) {
        if (*format_ != '*') return parseDigits(none);
        ++format_;
        return arguments_.template next<int>();
    }

    void parseLength(Specification& spec) {
        const Ch first = *format_;
        if (first == 'h') {
            const bool twice = *++format_ == 'h';
            format_ += twice;
            spec.bits = twice ? 8 : 16;
            spec.textWidth = 'h';
        } else if (first == 'l' || first == 'I') {
            const bool twice = *++format_ == 'l' && first == 'l';
            format_ += twice;
            const int digits = parseDigits(0);
            spec.isFloat = digits == 32;
            spec.bits = digits != 0 ? digits : twice || first == 'I' ? 64 : 32;
            if (first == 'l') spec.textWidth = 'l';
        } else if (first == 'L' || first == 'j' || first == 't' || first == 'z') {
            ++format_;
            spec.bits = 64;
        }
    }

    // False for a conversion that does not exist.
    bool convert(const Specification& spec) {
        switch (spec.conversion) {
            case '%':
                out_ += Ch{'%'};
                return true;
            case 'd':
            case 'i':
                return putSigned(spec), true;
            case 'u':
            case 'o':
            case 'x':
            case 'X':
                return putUnsigned(spec, nextInteger(spec), {}), true;
            case 'a':
            case 'A':
            case 'e':
            case 'E':
            case 'f':
            case 'F':
            case 'g':
            case 'G':
                return putReal(spec), true;
            case 'r':
                return pad(spec, ownForm(spec, nextReal(spec))), true;
            case 'C':
                return putComplex(spec), true;
            case 'Q':
                return putRational(spec), true;
            case 'c':
                return putCharacter(spec), true;
            case 's':
            case 'S':
            case 'Z':
                return putText(spec), true;
            case 'p':
                return putAddress(spec), true;
            case 'n':
                return skipCount(), true;
            default:
                return false;
        }
    }

    void fill(std::int64_t count, char ch) {
        if (count > 0) out_.append(static_cast<std::size_t>(count), static_cast<Ch>(ch));
    }

    template <class From>
    void put(std::basic_string_view<From> text) {
        for (const From ch : text) put(ch);
    }
    void put(char ch) {
        if constexpr (sizeof(Ch) == 1) {
            out_ += ch;
        } else {
            out_ += widen(ch);
        }
    }
    void put(char16_t ch) {
        if constexpr (sizeof(Ch) == 1) {
            out_ += narrow(ch);
        } else {
            out_ += ch;
        }
    }

    template <class From>
    void pad(const Specification& spec, std::basic_string_view<From> text) {
        const std::int64_t missing = spec.width - static_cast<std::int64_t>(text.size());
        if (!spec.left) fill(missing, ' ');
        put(text);
        if (spec.left) fill(missing, ' ');
    }
    void pad(const Specification& spec, const std::string& text) {
        pad(spec, std::string_view(text));
    }

    // Prefix and digits of a number, with zeros between them where asked for.
    void padNumber(const Specification& spec, bool zeros, std::string_view prefix,
                   std::string_view digits) {
        const std::int64_t missing =
            spec.width - static_cast<std::int64_t>(prefix.size() + digits.size());
        const bool zeroFilled = zeros && spec.zero && !spec.left;
        if (!spec.left && !zeroFilled) fill(missing, ' ');
        put(prefix);
        if (zeroFilled) fill(missing, '0');
        put(digits);
        if (spec.left) fill(missing, ' ');
    }

    std::string_view signOf(const Specification& spec, bool negative) const {
        if (negative) return "-";
        if (spec.plus) return "+";
        return spec.blank ? " " : "";
    }

    // The bits of an integer argument, zeros above its width.
    std::uint64_t nextInteger(const Specification& spec) {
        if (spec.bits > 32) return arguments_.template value<std::uint64_t>(spec.indirect);
        if (spec.indirect && spec.bits <= 8)
            return arguments_.template behindAddress<std::uint8_t>();
        if (spec.indirect && spec.bits <= 16)
            return arguments_.template behindAddress<std::uint16_t>();
        const std::uint32_t value = arguments_.template value<std::uint32_t>(spec.indirect);
        if (spec.bits <= 8) return value & 0xFF;
        return spec.bits <= 16 ? value & 0xFFFF : value;
    }

    double nextReal(const Specification& spec) {
        if (spec.indirect && spec.isFloat)
            return static_cast<double>(arguments_.template behindAddress<float>());
        return arguments_.template value<double>(spec.indirect);
    }

    void putSigned(const Specification& spec) {
        const std::uint64_t bits = nextInteger(spec);
        const int width = spec.bits > 32 ? 64 : spec.bits > 16 ? 32 : spec.bits > 8 ? 16 : 8;
        const bool negative = (bits >> (width - 1) & 1) != 0;
        std::uint64_t magnitude = negative ? 0 - bits : bits;
        if (width < 64) magnitude &= (std::uint64_t{1} << width) - 1;
        putUnsigned(spec, magnitude, signOf(spec, negative));
    }

    void putUnsigned(const Specification& spec, std::uint64_t value, std::string_view sign) {
        const unsigned radix = spec.conversion == 'o'            ? 8
                               : (spec.conversion | 0x20) == 'x' ? 16
                                                                 : 10;
        char buffer[72];
        std::string digits(buffer, QwordToBufferA(value, buffer, radix));
        if (value == 0 && spec.precision == 0) digits.clear();
        if (spec.precision > 0 && digits.size() < static_cast<std::size_t>(spec.precision))
            digits.insert(0, static_cast<std::size_t>(spec.precision) - digits.size(), '0');
        if (radix == 8 && spec.alternate && !digits.starts_with('0')) digits.insert(0, 1, '0');
        if (spec.conversion == 'x') {
            for (char& ch : digits) ch = toLower(ch);
        }
        std::string_view prefix = sign;
        if (radix == 16 && spec.alternate && value != 0)
            prefix = spec.conversion == 'x' ? "0x" : "0X";
        padNumber(spec, spec.precision < 0, prefix, digits);
    }

    void putReal(const Specification& spec) {
        const double value = nextReal(spec);
        const bool negative = std::signbit(value) && !std::isnan(value);
        std::string prefix(signOf(spec, negative));
        if (std::isfinite(value) && (spec.conversion | 0x20) == 'a')
            prefix += spec.conversion == 'a' ? "0x" : "0X";
        padNumber(
            spec, std::isfinite(value), prefix,
            formatMagnitude(std::fabs(value), spec.conversion, spec.precision, spec.alternate));
    }

    static std::string ownForm(const Specification& spec, double value) {
        const auto digits = static_cast<std::uint32_t>(std::max(spec.precision, 0));
        std::string text(std::size_t{digits} + 128, 0);
        text.resize(RealToBufferA(value, text.data(), digits, 10));
        return text;
    }

    void putComplex(const Specification& spec) {
        const Complex value = arguments_.template value<Complex>(spec.indirect);
        pad(spec, "(" + ownForm(spec, value.re) + ", " + ownForm(spec, value.im) + ")");
    }

    void putRational(const Specification& spec) {
        const Qrat value = arguments_.template value<Qrat>(spec.indirect);
        bool negative = value.num < 0;
        std::uint64_t num = magnitudeOf(value.num), den = magnitudeOf(value.den);
        if (den == 0) {
            num = 1;
        } else {
            negative = num != 0 && negative != (value.den < 0);
            const std::uint64_t common = std::gcd(num, den);
            num /= common;
            den /= common;
        }
        std::string text = (negative ? "-" : "") + std::to_string(num);
        if (den != 1) text += "/" + std::to_string(den);
        pad(spec, text);
    }

    static std::uint64_t magnitudeOf(std::int64_t value) {
        const auto bits = static_cast<std::uint64_t>(value);
        return value < 0 ? 0 - bits : bits;
    }

    // Whether characters and texts are 16-bit ones.
    static bool isWide(const Specification& spec) {
        if (spec.conversion == 'S') return sizeof(Ch) == 1;
        return spec.textWidth == 0 ? sizeof(Ch) == 2 : spec.textWidth == 'l';
    }

    void putCharacter(const Specification& spec) {
        if (isWide(spec)) {
            const char16_t ch = spec.indirect ? arguments_.template behindAddress<char16_t>()
                                              : static_cast<char16_t>(nextCode());
            pad(spec, std::u16string_view(&ch, 1));
        } else {
            const char ch = spec.indirect ? arguments_.template behindAddress<char>()
                                          : static_cast<char>(nextCode());
            pad(spec, std::string_view(&ch, 1));
        }
    }
    int nextCode() { return arguments_.template next<int>(); }

    void putText(const Specification& spec) {
        if (isWide(spec)) {
            putTextOf<char16_t>(spec);
        } else {
            putTextOf<char>(spec);
        }
    }

    // With a precision the text need not be terminated within it.
    template <class From>
    void putTextOf(const Specification& spec) {
        const From* text = arguments_.template value<const From*>(spec.indirect);
        const std::size_t limit =
            spec.precision < 0 ? SIZE_MAX : static_cast<std::size_t>(spec.precision);
        std::size_t length = 0;
        while (text && length < limit && text[length] != 0) ++length;
        pad(spec, std::basic_string_view<From>(text, length));
    }

    // In the way of the console's pointers.
    void putAddress(const Specification& spec) {
        const auto address =
            reinterpret_cast<std::uintptr_t>(arguments_.template value<const void*>(spec.indirect));
        if (address == 0) return pad(spec, std::string_view("NULL"));
        if (address == UINTPTR_MAX) return pad(spec, std::string_view("INVALID"));
        Specification hexadecimal = spec;
        hexadecimal.conversion = 'X';
        hexadecimal.alternate = false;
        putUnsigned(hexadecimal, address, "0x");
    }

    // A format must never write to memory; only its argument is passed over.
    void skipCount() { arguments_.template next<void*>(); }

    const Ch* format_;
    Arguments arguments_;
    std::basic_string<Ch> out_;
};

template <class Ch>
Ch* newFormatted(const Ch* format, va_list arguments) noexcept {
    return guardValue<Ch*>(nullptr, [&] { return formatText(format, arguments).release(); });
}

template <class Ch>
std::uint64_t formatToBuffer(Ch* buffer, std::uint64_t capacity, const Ch* format,
                             va_list arguments) noexcept {
    // Not before the text is made: the buffer may be one of the arguments.
    const std::uint64_t written = guardValue<std::uint64_t>(kNotFound, [&] {
        const std::basic_string<Ch> text = formatToString(format, arguments);
        return copyToBuffer(std::basic_string_view<Ch>(text), buffer, capacity);
    });
    return written != kNotFound ? written
                                : copyToBuffer(std::basic_string_view<Ch>(), buffer, capacity);
}

template <class Ch>
Ch* appendFormatted(Ch** text, const Ch* format, va_list arguments) noexcept {
    if (!text) return nullptr;
    return guardValue<Ch*>(nullptr, [&] {
        const std::basic_string<Ch> more = formatToString(format, arguments);
        return appendText(text, std::basic_string_view<Ch>(more));
    });
}

}  // namespace

template <class Ch>
std::basic_string<Ch> formatToString(const Ch* format, va_list arguments) {
    return Formatter<Ch>(format, arguments).run();
}

template std::basic_string<char> formatToString(const char* format, va_list arguments);
template std::basic_string<char16_t> formatToString(const char16_t* format, va_list arguments);

}  // namespace nuv64

char16_t* NewSprintf(const char16_t* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    char16_t* text = nuv64::newFormatted(format, arguments);
    va_end(arguments);
    return text;
}

char* NewSprintfA(const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    char* text = nuv64::newFormatted(format, arguments);
    va_end(arguments);
    return text;
}

uint64_t SprintfToBuffer(char16_t* buffer, uint64_t capacity, const char16_t* format,
                         ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    const uint64_t length = nuv64::formatToBuffer(buffer, capacity, format, arguments);
    va_end(arguments);
    return length;
}

uint64_t SprintfToBufferA(char* buffer, uint64_t capacity, const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    const uint64_t length = nuv64::formatToBuffer(buffer, capacity, format, arguments);
    va_end(arguments);
    return length;
}

char16_t* SprintfAppend(char16_t** text, const char16_t* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    char16_t* appended = nuv64::appendFormatted(text, format, arguments);
    va_end(arguments);
    return appended;
}

char* SprintfAppendA(char** text, const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    char* appended = nuv64::appendFormatted(text, format, arguments);
    va_end(arguments);
    return appended;
}
