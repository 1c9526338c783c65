#include "nuv64/core/text_edit.h"

#include "core/text.h"

namespace {

using nuv64::isWhite;
using nuv64::viewOf;
template <class Ch>
using View = std::basic_string_view<Ch>;

enum Groom : uint32_t {
    kClearTopBit = 0x1,
    kKeepLeading = 0x2,
    kKeepTrailing = 0x4,
    kKeepRuns = 0x8,
    kKeepControls = 0x10,
    kKeepCr = 0x20,
    kKeepLf = 0x40,
    kKeepTab = 0x80,
    kToCapitals = 0x100,
    kToSmall = 0x200,
    kNothing = 0x8000,
    kKeepAllWhite = kKeepLeading | kKeepRuns | kKeepControls,
};

template <class Ch>
bool keepsControl(Ch ch, uint32_t mode) noexcept {
    return (mode & kKeepControls) != 0 || (ch == '\r' && (mode & kKeepCr) != 0) ||
           (ch == '\n' && (mode & kKeepLf) != 0) || (ch == '\t' && (mode & kKeepTab) != 0);
}

// Leading white, control characters and runs of blanks, in one pass.
template <class Ch>
void compressWhite(Ch* text, uint32_t mode) noexcept {
    const Ch* from = text;
    while (*from != 0 && isWhite(*from)) ++from;
    Ch* to = (mode & kKeepLeading) != 0 ? text + (from - text) : text;
    for (Ch previous = 0; *from != 0; ++from) {
        const bool control = static_cast<std::make_unsigned_t<Ch>>(*from) < 32;
        const Ch ch = control && !keepsControl(*from, mode) ? Ch{' '} : *from;
        if (ch == ' ' && previous == ' ' && (mode & kKeepRuns) == 0) continue;
        previous = *to++ = ch;
    }
    *to = 0;
}

template <class Ch>
void trimEnd(Ch* text) noexcept {
    uint64_t length = viewOf(text).size();
    while (length != 0 && isWhite(text[length - 1])) --length;
    text[length] = 0;
}

template <class Ch>
Ch* groom(Ch* text, uint32_t mode) noexcept {
    if (!text || *text == 0 || (mode & kNothing) != 0) return text;
    if constexpr (sizeof(Ch) == 1) {
        if ((mode & kClearTopBit) != 0)
            for (Ch* p = text; *p != 0; ++p) *p = static_cast<Ch>(*p & 0x7F);
    }
    if ((mode & kKeepAllWhite) != kKeepAllWhite) compressWhite(text, mode);
    if ((mode & kKeepTrailing) == 0) trimEnd(text);
    if ((mode & kToCapitals) != 0) {
        for (Ch* p = text; *p != 0; ++p) *p = nuv64::toUpper(*p);
    } else if ((mode & kToSmall) != 0) {
        for (Ch* p = text; *p != 0; ++p) *p = nuv64::toLower(*p);
    }
    return text;
}

template <class Ch>
Ch* cutoffComments(Ch* text, const Ch* marker) noexcept {
    if (!text || !marker || *marker == 0) return text;
    const std::size_t place = View<Ch>(text).find(marker);
    if (place != View<Ch>::npos) text[place] = 0;
    return text;
}

// What one character behind a backslash stands for, where that is one fixed character.
struct Escape {
    char letter;
    char code;
};
constexpr Escape kEscapes[] = {{'a', 7},  {'b', 8},  {'e', 27}, {'f', 12}, {'l', 16},
                               {'n', 10}, {'r', 13}, {'t', 9},  {'v', 11}};

template <class Ch>
bool isOctalDigit(Ch ch) noexcept {
    return ch >= '0' && ch <= '7';
}

// Reads what stands behind a backslash, not at the end of the text, and steps over it.
template <class Ch>
Ch readEscape(const Ch*& from) noexcept {
    unsigned value = 0;
    if (isOctalDigit(*from)) {
        for (int digits = 0; digits < 3 && isOctalDigit(*from); ++digits)
            value = value * 8 + static_cast<unsigned>(*from++ - '0');
        return static_cast<Ch>(value);
    }
    const Ch letter = *from++;
    if (letter == 'u' || letter == 'x') {
        for (;; ++from) {
            const unsigned digit = static_cast<unsigned>(nuv64::toUpper(*from)) - 48;
            if (digit >= 103 - 48) return static_cast<Ch>(value);
            value = value * 16 + digit;
        }
    }
    for (const Escape& escape : kEscapes) {
        if (letter == static_cast<Ch>(escape.letter)) return static_cast<Ch>(escape.code);
    }
    return letter;
}

template <class Ch>
Ch* restoreEscapes(Ch* text) noexcept {
    if (!text) return text;
    const Ch* from = text;
    Ch* to = text;
    while (*from != 0) {
        if (*from != '\\') {
            *to++ = *from++;
        } else if (*++from != 0) {
            *to++ = readEscape(from);
        }
    }
    *to = 0;
    return text;
}

template <class Ch>
Ch* replaceChrByChr(Ch* text, Ch oldChr, Ch newChr) noexcept {
    for (Ch* p = text; p && *p != 0; ++p) {
        if (*p == oldChr) *p = newChr;
    }
    return text;
}

template <class Ch>
bool deleteSubString(Ch* text, const Ch* sub) noexcept {
    const View<Ch> whole = viewOf(text), taken = viewOf(sub);
    if (whole.empty() || taken.empty()) return false;
    const std::size_t place = whole.find(taken);
    if (place == whole.npos) return false;
    const std::size_t behind = place + taken.size();
    std::memmove(text + place, text + behind, (whole.size() + 1 - behind) * sizeof(Ch));
    return true;
}

template <class Ch>
Ch* enforceLastChr(Ch** text, Ch ch) noexcept {
    if (!text) return nullptr;
    const View<Ch> whole = viewOf<Ch>(*text);
    std::size_t behind = whole.size();
    while (behind != 0 && isWhite(whole[behind - 1])) --behind;
    if (behind != 0 && whole[behind - 1] == ch) return *text;
    if (behind == whole.size()) return nuv64::appendText(text, View<Ch>(&ch, 1));
    (*text)[behind] = ch;
    return *text;
}

template <class Ch>
Ch* nextAlphaCount(Ch** text) noexcept {
    if (!text) return nullptr;
    const std::size_t length = viewOf<Ch>(*text).size();
    std::size_t place = length;
    while (place != 0 && (*text)[place - 1] == 'Z') --place;
    if (place == 0) {
        static constexpr Ch kFirst = 'A';
        if (!nuv64::appendText(text, View<Ch>(&kFirst, 1))) return nullptr;
    } else {
        ++(*text)[place - 1];
    }
    std::fill(*text + place, *text + length, Ch{'A'});
    return *text;
}

}  // namespace

char16_t* StringGroom(char16_t* text, uint32_t mode) noexcept {
    return groom(text, mode);
}

char* StringGroomA(char* text, uint32_t mode) noexcept {
    return groom(text, mode);
}

char16_t* StringCutoffComments(char16_t* text, const char16_t* marker, uint32_t) noexcept {
    return cutoffComments(text, marker);
}

char* StringCutoffCommentsA(char* text, const char* marker, uint32_t) noexcept {
    return cutoffComments(text, marker);
}

char16_t* StringRestoreEscapes(char16_t* text) noexcept {
    return restoreEscapes(text);
}

char* StringRestoreEscapesA(char* text) noexcept {
    return restoreEscapes(text);
}

char16_t* StringReplaceChrByChr(char16_t* text, char16_t oldChr, char16_t newChr) noexcept {
    return replaceChrByChr(text, oldChr, newChr);
}

char* StringReplaceChrByChrA(char* text, char oldChr, char newChr) noexcept {
    return replaceChrByChr(text, oldChr, newChr);
}

bool StringDeleteSubString(char16_t* text, const char16_t* sub) noexcept {
    return deleteSubString(text, sub);
}

bool StringDeleteSubStringA(char* text, const char* sub) noexcept {
    return deleteSubString(text, sub);
}

char16_t* StringEnforceLastChr(char16_t** text, char16_t ch) noexcept {
    return enforceLastChr(text, ch);
}

char* StringEnforceLastChrA(char** text, char ch) noexcept {
    return enforceLastChr(text, ch);
}

char16_t* StringNextAlphaCount(char16_t** text) noexcept {
    return nextAlphaCount(text);
}

char* StringNextAlphaCountA(char** text) noexcept {
    return nextAlphaCount(text);
}
