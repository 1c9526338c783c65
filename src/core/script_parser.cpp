#include "nuv64/core/script_parser.h"

#include "core/expression.h"
#include "core/tokens.h"

namespace nuv64 {
namespace {

template <class Ch>
const Ch* endOfWord(const Ch* at) {
    while (isTokenLetter(*at) || isTokenDigit(*at)) ++at;
    return at;
}

template <class Ch>
uint32_t kindAt(const Ch* at, const Ch** end) {
    *end = at;
    if (*at == 0) return cKoParser::kEndOfText;
    if (isTokenLetter(*at)) {
        *end = endOfWord(at);
        return cKoParser::kName;
    }
    if (startsNumber(at)) {
        *end = endOfNumber(at);
        return cKoParser::kNumber;
    }
    *end = at + 1;
    return cKoParser::kCharacter;
}

template <class Ch>
Ch capital(Ch ch) {
    return ch >= 'a' && ch <= 'z' ? static_cast<Ch>(ch - 'a' + 'A') : ch;
}

template <class Ch>
uint32_t parse(Ch* token, const Ch* text, uint64_t* consumed, bool capitals) {
    static constexpr Ch kEmpty[] = {0};
    const Ch* const begin = text ? text : kEmpty;
    const Ch* const start = skipTokenBlanks(begin);
    const Ch* end = start;
    const uint32_t kind = kindAt(start, &end);
    if (token) {
        for (const Ch* at = start; at != end; ++at) *token++ = capitals ? capital(*at) : *at;
        *token = 0;
    }
    if (consumed) *consumed = static_cast<uint64_t>(end - begin);
    return kind;
}

}  // namespace
}  // namespace nuv64

uint32_t ScriptParser(char16_t* token, const char16_t* text, uint64_t* consumed) noexcept {
    return nuv64::parse(token, text, consumed, false);
}

uint32_t ScriptParserA(char* token, const char* text, uint64_t* consumed) noexcept {
    return nuv64::parse(token, text, consumed, false);
}

uint32_t ScriptParserCap(char16_t* token, const char16_t* text, uint64_t* consumed) noexcept {
    return nuv64::parse(token, text, consumed, true);
}

uint32_t ScriptParserCapA(char* token, const char* text, uint64_t* consumed) noexcept {
    return nuv64::parse(token, text, consumed, true);
}
