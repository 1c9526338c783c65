#include "nuv64/core/characters.h"

#include "core/text.h"

namespace {

template <class Ch>
uint32_t hexToDigit(Ch ch) noexcept {
    const unsigned digit = nuv64::number_text::hexDigit(ch);
    return digit < 16 ? digit : UINT32_MAX;
}

}  // namespace

bool chIsAnyLetter(char16_t ch) noexcept {
    return chIsCapLetter(ch) || chIsSmallLetter(ch);
}

bool chIsBinaryDigit(char16_t ch) noexcept {
    return ch == '0' || ch == '1';
}

bool chIsCapLetter(char16_t ch) noexcept {
    return nuv64::isCapLetter(ch);
}

bool chIsDecDigit(char16_t ch) noexcept {
    return ch >= '0' && ch <= '9';
}

bool chIsHexDigit(char16_t ch) noexcept {
    return nuv64::number_text::hexDigit(ch) < 16;
}

bool chIsOctalDigit(char16_t ch) noexcept {
    return ch >= '0' && ch <= '7';
}

bool chIsSmallLetter(char16_t ch) noexcept {
    return nuv64::isSmallLetter(ch);
}

char16_t chToLcase(char16_t ch) noexcept {
    return nuv64::toLower(ch);
}

char chToLcaseA(char ch) noexcept {
    return nuv64::toLower(ch);
}

char16_t chToUcase(char16_t ch) noexcept {
    return nuv64::toUpper(ch);
}

char chToUcaseA(char ch) noexcept {
    return nuv64::toUpper(ch);
}

uint64_t chToStringBuffer(char16_t ch, char16_t* buffer) noexcept {
    return nuv64::copyToBuffer(std::u16string_view(&ch, ch != 0), buffer, 2);
}

uint64_t chToStringBufferA(char ch, char* buffer) noexcept {
    return nuv64::copyToBuffer(std::string_view(&ch, ch != 0), buffer, 2);
}

char16_t chDigitToHex(uint32_t value) noexcept {
    return u"0123456789ABCDEF"[value & 15];
}

char chDigitToHexA(uint32_t value) noexcept {
    return "0123456789ABCDEF"[value & 15];
}

uint32_t chHexToDigit(char16_t ch) noexcept {
    return hexToDigit(ch);
}

uint32_t chHexToDigitA(char ch) noexcept {
    return hexToDigit(ch);
}
