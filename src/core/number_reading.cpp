#include "nuv64/core/number_reading.h"

#include <type_traits>

#include "core/number_text.h"
#include "core/real_rounding.h"
#include "nuv64/core/special_reals.h"

namespace {

constexpr std::uint32_t kEntryFlags = NUM_RADIXPREFIX | NUM_KEEPWRAP;
constexpr std::uint32_t kFailedRead = 0x30170;  // what keeps a limit from being looked at

template <class Ch>
const Ch* skipWhite(const Ch* text) noexcept {
    while (*text != 0 && nuv64::isWhite(*text)) ++text;
    return text;
}

// What a reader reports beside its value.
struct Report {
    std::uint32_t* flags;
    std::uint64_t* consumed;

    std::uint32_t entryFlags() const noexcept { return flags ? *flags & kEntryFlags : 0; }
    void write(std::uint32_t newFlags, std::ptrdiff_t count) const noexcept {
        if (flags) *flags = newFlags;
        if (consumed) *consumed = static_cast<std::uint64_t>(count);
    }
};

template <class Ch>
double toReal(const Ch* text, const Report& report) noexcept {
    if (!text) return report.write(NUM_UNDEFINED, 0), 0.0;
    std::uint32_t flags = report.entryFlags();
    const Ch* start = skipWhite(text);
    const Ch* behind = start;
    bool found = false;
    const double value = nuv64::readReal<Ch>(start, nullptr, &behind, &found);
    if (!found) {
        flags |= NUM_UNDEFINED;
    } else {
        if (value == ___MaxReal || value == -___MaxReal) flags |= NUM_OVERFLOW;
        if (*behind != 0) flags |= NUM_ILLEGALCHAR;
    }
    report.write(flags, behind - text);
    return value;
}

// Reads through toReal and rounds, unless there is nothing to round.
template <class Ch, class Integer>
Integer toRounded(const Ch* text, const Report& report,
                  Integer (*round)(double, std::uint32_t*) noexcept) noexcept {
    std::uint32_t flags = report.entryFlags();
    const double value = toReal(text, Report{&flags, report.consumed});
    Integer result = 0;
    if ((flags & NUM_UNDEFINED) == 0) result = round(value, &flags);
    if (report.flags) *report.flags = flags;
    return result;
}

// Behind the prefix of a number in another base than 10, which *base receives.
template <class Ch>
const Ch* readRadixPrefix(const Ch* text, std::uint64_t* base) noexcept {
    if (*text != '0') return text;
    if (text[1] == 'x' || text[1] == 'X') return *base = 16, text + 2;
    if (text[1] == 'b' || text[1] == 'B') return *base = 2, text + 2;
    if (text[1] == 'o' || text[1] == 'O') return *base = 8, text + 2;
    return text;
}

std::uint32_t rangeFlags(std::uint64_t magnitude) noexcept {
    if (magnitude > 0x7FFFFFFFFFFFFFFF) return NUM_I64OVERFLOW | NUM_U32OVERFLOW | NUM_I32OVERFLOW;
    if (magnitude > 0xFFFFFFFF) return NUM_U32OVERFLOW | NUM_I32OVERFLOW;
    return magnitude > 0x7FFFFFFF ? NUM_I32OVERFLOW : 0;
}

template <class Ch>
std::uint64_t toQwordStrict(const Ch* text, const Report& report) noexcept {
    if (!text) return report.write(NUM_UNDEFINED, 0), 0;
    std::uint32_t flags = report.entryFlags();
    const Ch* p = skipWhite(text);
    if (*p == '+') ++p;
    const bool negative = *p == '-';
    if (negative) ++p;
    std::uint64_t base = 10;
    if ((flags & NUM_RADIXPREFIX) != 0) p = readRadixPrefix(p, &base);
    const Ch* const digits = p;
    std::uint64_t value = 0;
    for (;; ++p) {
        const std::uint64_t digit = nuv64::number_text::hexDigit(*p);
        if (digit >= base) break;
        std::uint64_t scaled, sum;
        const bool wrapped = __builtin_mul_overflow(value, base, &scaled);
        if (__builtin_add_overflow(scaled, digit, &sum) || wrapped)
            flags |= NUM_U64OVERFLOW | NUM_OVERFLOW | rangeFlags(UINT64_MAX);
        value = sum;
    }
    flags |= p == digits ? NUM_UNDEFINED : rangeFlags(value);
    p = skipWhite(p);
    if ((flags & NUM_UNDEFINED) == 0 && *p != 0) flags |= NUM_ILLEGALCHAR;
    report.write(flags, p - text);
    // The limits are not each other's negatives; callers have always seen them so.
    if ((flags & NUM_OVERFLOW) != 0 && (flags & NUM_KEEPWRAP) == 0)
        return negative ? 0x7FFFFFFFFFFFFFFF : UINT64_MAX - 1;
    return negative ? 0 - value : value;
}

template <class Ch>
std::int64_t toQlongStrict(const Ch* text, const Report& report) noexcept {
    std::uint32_t flags = report.entryFlags();
    const std::uint64_t value = toQwordStrict(text, Report{&flags, report.consumed});
    if ((flags & NUM_I64OVERFLOW) != 0) flags |= NUM_OVERFLOW;
    if (report.flags) *report.flags = flags;
    return static_cast<std::int64_t>(value);
}

template <class Ch>
std::uint32_t toDwordStrict(const Ch* text, const Report& report) noexcept {
    std::uint32_t flags = report.entryFlags();
    auto value = static_cast<std::uint32_t>(toQwordStrict(text, Report{&flags, report.consumed}));
    if ((flags & NUM_U32OVERFLOW) != 0) {
        flags |= NUM_OVERFLOW;
        if ((flags & NUM_KEEPWRAP) == 0) value = UINT32_MAX;
    }
    if (report.flags) *report.flags = flags;
    return value;
}

template <class Ch>
std::int32_t toLongStrict(const Ch* text, const Report& report) noexcept {
    std::uint32_t flags = report.entryFlags();
    const std::int64_t wide = toQlongStrict(text, Report{&flags, report.consumed});
    auto value = static_cast<std::int32_t>(wide);
    if ((flags & NUM_I32OVERFLOW) != 0) {
        flags |= NUM_OVERFLOW;
        if ((flags & NUM_KEEPWRAP) == 0) value = wide < 1 ? -0x7FFFFFFF : 0x7FFFFFFF;
    }
    if (report.flags) *report.flags = flags;
    return value;
}

template <class Number>
std::uint32_t storeWithinLimits(Number read, std::uint32_t flags, Number lowest, Number highest,
                                Number* value) noexcept {
    if (value) *value = read;
    if ((flags & kFailedRead) != 0) return flags;
    if (read > highest) flags |= NUM_ABOVELIMIT;
    if (read < lowest) flags |= NUM_BELOWLIMIT;
    return flags;
}

template <class Ch>
std::uint64_t countReals(const Ch* text, std::uint64_t* end) noexcept {
    std::uint64_t count = 0;
    std::uint64_t index = 0;
    while (text) {
        std::uint32_t flags = 0;
        std::uint64_t consumed = 0;
        toReal(text + index, Report{&flags, &consumed});
        if ((flags & NUM_UNDEFINED) != 0) break;
        index += consumed;
        ++count;
    }
    if (end) *end = index;
    return count;
}

}  // namespace

double StringToReal(const char16_t* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toReal(text, Report{flags, consumed});
}

double StringToRealA(const char* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toReal(text, Report{flags, consumed});
}

uint32_t StringToDword(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                       uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToDword);
}

uint32_t StringToDwordA(const char* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToDword);
}

int32_t StringToLong(const char16_t* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToLong);
}

int32_t StringToLongA(const char* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToLong);
}

uint64_t StringToQword(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                       uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToQword);
}

uint64_t StringToQwordA(const char* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToQword);
}

int64_t StringToQlong(const char16_t* text, uint32_t* flags, uint64_t* consumed,
                      uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToQlong);
}

int64_t StringToQlongA(const char* text, uint32_t* flags, uint64_t* consumed, uint32_t) noexcept {
    return toRounded(text, Report{flags, consumed}, nuv64::realRoundToQlong);
}

uint64_t StringToQwordStrict(const char16_t* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toQwordStrict(text, Report{flags, consumed});
}

uint64_t StringToQwordStrictA(const char* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toQwordStrict(text, Report{flags, consumed});
}

uint32_t StringToDwordStrict(const char16_t* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toDwordStrict(text, Report{flags, consumed});
}

uint32_t StringToDwordStrictA(const char* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toDwordStrict(text, Report{flags, consumed});
}

int32_t StringToLongStrict(const char16_t* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toLongStrict(text, Report{flags, consumed});
}

int32_t StringToLongStrictA(const char* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toLongStrict(text, Report{flags, consumed});
}

int64_t StringToQlongStrict(const char16_t* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toQlongStrict(text, Report{flags, consumed});
}

int64_t StringToQlongStrictA(const char* text, uint32_t* flags, uint64_t* consumed) noexcept {
    return toQlongStrict(text, Report{flags, consumed});
}

// One StringTestFor... in both widths, over the reader of the same name.
#define NUV64_TEST_FOR(Name, Number)                                                  \
    uint32_t StringTestFor##Name(const char16_t* text, Number lowest, Number highest, \
                                 Number* value) noexcept {                            \
        uint32_t flags = 0;                                                           \
        const Number read = StringTo##Name(text, &flags, nullptr, 10);                \
        return storeWithinLimits(read, flags, lowest, highest, value);                \
    }                                                                                 \
    uint32_t StringTestFor##Name##A(const char* text, Number lowest, Number highest,  \
                                    Number* value) noexcept {                         \
        uint32_t flags = 0;                                                           \
        const Number read = StringTo##Name##A(text, &flags, nullptr, 10);             \
        return storeWithinLimits(read, flags, lowest, highest, value);                \
    }
NUV64_TEST_FOR(Dword, uint32_t)
NUV64_TEST_FOR(Long, int32_t)
NUV64_TEST_FOR(Qlong, int64_t)
NUV64_TEST_FOR(Qword, uint64_t)
NUV64_TEST_FOR(Real, double)
#undef NUV64_TEST_FOR

uint64_t NumberOfRealItemsInString(const char16_t* text, uint64_t* end) noexcept {
    return countReals(text, end);
}

uint64_t NumberOfRealItemsInStringA(const char* text, uint64_t* end) noexcept {
    return countReals(text, end);
}
