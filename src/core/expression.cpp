#include "core/expression.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <vector>

#include "core/number_text.h"
#include "core/tokens.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/text_edit.h"

using namespace nuv64;

// Tokenizer.

namespace {

constexpr std::uint32_t kGroomToCapitals = 256;

bool isOneOf(const OwnedText& set, char ch) {
    return set && std::strchr(set.get(), ch) != nullptr;
}

char escaped(char ch) {
    switch (ch) {
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 't':
            return '\t';
        case 'f':
            return '\f';
        default:
            return ch;
    }
}

}  // namespace

cKoParser::~cKoParser() {
    SetText(nullptr);
}

void cKoParser::SetText(const char* newText) noexcept {
    if (flags & kOwnsText) std::free(const_cast<char*>(text));
    flags &= ~kOwnsText;
    text = newText;
    position = 0;
    tokenKind = 0;
    if (token) token[0] = 0;
}

const char* cKoParser::here() const noexcept {
    return text ? text + position : "";
}

const char* cKoParser::skipBlanks() {
    const char* const place = skipTokenBlanks(here());
    moveTo(place);
    return place;
}

void cKoParser::moveTo(const char* place) {
    if (!text) return;
    const auto distance = static_cast<std::size_t>(place - text);
    if (distance > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("text");
    position = static_cast<std::uint32_t>(distance);
}

const char* cKoParser::PeekToken(std::uint32_t* kind, std::uint32_t tokenFlags) {
    return read(kind, tokenFlags, false);
}

const char* cKoParser::NextToken(std::uint32_t* kind, std::uint32_t tokenFlags) {
    return read(kind, tokenFlags, true);
}

const char* cKoParser::read(std::uint32_t* kind, std::uint32_t tokenFlags, bool step) {
    const Scan found = scan(skipTokenBlanks(here()));
    tokenKind = found.kind;
    if (kind) *kind = found.kind;
    if (step) moveTo(found.end);
    if (((flags | tokenFlags) & kTrimTokens) && found.kind != kString) {
        StringGroomA(token.get(), kGroomToCapitals);
    }
    return token.get();
}

// Reads the token at a place without a blank into token.
cKoParser::Scan cKoParser::scan(const char* at) {
    Scan found{kCharacter, at + 1};
    if (*at == 0) {
        found = {kEndOfText, at};
    } else if (isTokenLetter(*at) || isOneOf(nameStart, *at)) {
        found = {kName, endOfName(at + 1)};
    } else if (startsNumber(at)) {
        found = {kNumber, endOfNumber(at)};
    } else if (*at == '"') {
        return {kString, readString(at + 1)};
    }
    setToken({at, static_cast<std::size_t>(found.end - at)});
    return found;
}

const char* cKoParser::endOfName(const char* at) const noexcept {
    while (isTokenLetter(*at) || isTokenDigit(*at) || (*at != 0 && isOneOf(nameChars, *at))) ++at;
    return at;
}

// at: behind the opening quote. Returns the place behind the closing one. A backslash takes the
// next character with it; one at the end of the text ends the string.
const char* cKoParser::readString(const char* at) {
    const char* end = at;
    while (*end != 0 && *end != '"') end += *end == '\\' && end[1] != 0 ? 2 : 1;
    char* out = tokenRoom(static_cast<std::size_t>(end - at));
    for (; at != end; ++at) {
        if (*at != '\\') {
            *out++ = *at;
        } else if (at + 1 != end) {
            *out++ = escaped(*++at);
        }
    }
    *out = 0;
    return *end == '"' ? end + 1 : end;
}

// The token's buffer with room for length characters and the terminator.
char* cKoParser::tokenRoom(std::size_t length) {
    if (length >= capacity) {
        constexpr std::uint64_t kSmallest = 32;
        const std::uint64_t doubled = std::max(std::uint64_t{capacity} * 2, kSmallest);
        const std::uint64_t wanted = std::max<std::uint64_t>(doubled, length + 1);
        if (wanted > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
        token = allocate<char>(wanted);
        capacity = static_cast<std::uint32_t>(wanted);
    }
    return token.get();
}

void cKoParser::setToken(std::string_view newToken) {
    char* const room = tokenRoom(newToken.size());
    newToken.copy(room, newToken.size());
    room[newToken.size()] = 0;
}

// Evaluator.

cKoExpression::~cKoExpression() = default;

// One level of nesting, counted along the whole chain, for as long as it stands.
class cKoExpression::Nesting {
  public:
    explicit Nesting(cKoExpression& expression) noexcept
        : chain_(expression.chain ? *expression.chain : expression.ownChain) {
        ++chain_.depth;
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { --chain_.depth; }
    bool tooDeep() const noexcept { return chain_.depth > ExpressionChain::kDepthLimit; }
    bool tooLong() noexcept {
        return tooDeep() || ++chain_.evaluations > ExpressionChain::kEvaluationLimit;
    }

  private:
    ExpressionChain& chain_;
};

double cKoExpression::Evaluate(const char* newText, const char** end) {
    SetText(newText);
    error = kNoError;
    unresolved = 0;
    depth = 0;
    if (!chain) ownChain = {};
    Nesting nesting(*this);
    const double value = nesting.tooLong() ? fail(kVoidExpression) : Expression();
    if (end) *end = newText ? here() : nullptr;
    return value;
}

double cKoExpression::Expression() {
    if (*skipBlanks() == 0) {
        error = kVoidExpression;
        return 0.0;
    }
    double value = Term();
    while (error == kNoError) {
        const char sign = *skipBlanks();
        if (sign != '+' && sign != '-') break;
        moveTo(here() + 1);
        const double term = Term();
        if (error != kNoError) break;
        value = sign == '+' ? value + term : value - term;
    }
    return value;
}

double cKoExpression::Term() {
    if (*skipBlanks() == 0) {
        error = kVoidTerm;
        return 0.0;
    }
    const bool negative = *here() == '-';
    if (negative) moveTo(here() + 1);
    double value = Factor();
    if (negative) value = -value;
    while (error == kNoError) {
        const char sign = *skipBlanks();
        if (sign != '*' && sign != '/') break;
        moveTo(here() + 1);
        const double factor = Factor();
        if (error != kNoError) break;
        value = sign == '*' ? value * factor : value / factor;
    }
    return value;
}

double cKoExpression::Factor() {
    const char first = *skipBlanks();
    if (first == 0) {
        error = kVoidFactor;
        return 0.0;
    }
    if (first == '(') return parenthesis();
    std::uint32_t kind = 0;
    PeekToken(&kind, 0);
    if (kind != kNumber && kind != kNumberD && kind != kNumberTyped && kind != kName) {
        error = kIllegalFactor;
        return 0.0;
    }
    NextToken(&kind, 0);
    const std::size_t length = std::strlen(token.get());
    if (kind != kName) return readReal<char>(token.get(), token.get() + length, nullptr);
    // The buffer of the token is needed again for the arguments.
    const OwnedText name = copyText(token.get(), length);
    return *skipBlanks() == '(' ? call(name.get()) : variable(name.get());
}

double cKoExpression::fail(Error what) noexcept {
    error = what;
    return ___NAN;
}

double cKoExpression::parenthesis() {
    Nesting nesting(*this);
    if (nesting.tooDeep()) return fail(kVoidExpression);
    ++depth;
    moveTo(here() + 1);
    const double value = Expression();
    if (error != kNoError) return value;
    if (*skipBlanks() != ')') {
        error = kMissingParenthesis;
        return value;
    }
    moveTo(here() + 1);
    --depth;
    return value;
}

double cKoExpression::variable(const char* name) {
    const double value = getVariable ? getVariable(name, context) : ___NAN;
    if (value != value) ++unresolved;
    return value;
}

double cKoExpression::call(const char* name) {
    Nesting nesting(*this);
    if (nesting.tooDeep()) return fail(kVoidExpression);
    const ExpressionFunction* const found = findFunction ? findFunction(name, context) : nullptr;
    if (!found || !found->function) {
        error = kUnknownFunction;
        return 0.0;
    }
    ++depth;
    moveTo(here() + 1);
    std::vector<double> arguments;
    for (std::uint32_t i = 0; i < found->argumentCount; ++i) {
        arguments.push_back(Expression());
        if (error != kNoError) return arguments.back();
        if (*skipBlanks() == ',') moveTo(here() + 1);
    }
    if (const char next = *skipBlanks(); next != ')') {
        error = next == 0 ? kMissingParenthesis : kTooManyArguments;
        return 0.0;
    }
    moveTo(here() + 1);
    --depth;
    return found->function(arguments.data());
}

const char* cKoExpression::ErrorText(std::uint32_t error) noexcept {
    static constexpr const char* kTexts[] = {
        "",
        "Missing right parentheses",
        "Illegal expression factor",
        "Illegal expression (void factor)",
        "Illegal expression (void term)",
        "Missing or illegal expression",
        "Unknown function",
        "Too many function arguments",
    };
    return error < std::size(kTexts) ? kTexts[error] : "";
}
