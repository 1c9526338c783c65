// The tokenizer and the expression evaluator behind formula parameters.
//
//   expression = term { ("+" | "-") term }
//   term       = [ "-" ] factor { ("*" | "/") factor }
//   factor     = "(" expression ")" | number | name | name "(" expression { "," expression } ")"
//
// A number token may begin with "-", so that "2*-3" is -6, while a name behind "*" takes no sign.
// There is no power. Division by zero is no error: the value is that of the floating point.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/object.h"
#include "core/owned.h"

// A function that the host of an evaluator hands in.
typedef struct ExpressionFunction {
    std::uint32_t argumentCount;
    double (*function)(const double* arguments);
} ExpressionFunction;

static_assert(offsetof(ExpressionFunction, function) == 8 && sizeof(ExpressionFunction) == 16);

namespace nuv64 {

// What the evaluators of one chain share. A variable may be a formula itself, evaluated by an
// evaluator that the variable callback makes; formulas may name each other in a circle, and even
// without one a few dozen of them that each name the next one twice would never end. A callback
// that starts an evaluator hands the chain of its own one on (cKoExpression::chain).
struct ExpressionChain {
    static constexpr std::uint32_t kDepthLimit = 128;
    static constexpr std::uint32_t kEvaluationLimit = 1000;

    std::uint32_t depth = 0;        // formulas, parentheses and function calls open now
    std::uint32_t evaluations = 0;  // formulas ever begun
};

}  // namespace nuv64

struct cKoParser : cKoObject {
    enum TokenKind : std::uint32_t {
        kEndOfText = 1,
        kCharacter = 2,
        kName = 4,
        kString = 8,
        kNumber = 128,
        kNumberD = 144,      // not made here; hosts count it as a number
        kNumberTyped = 160,  // the same
    };

    // Bits of flags.
    static constexpr std::uint32_t kTrimTokens = 1;  // groomed to capitals, unless it is a string
    static constexpr std::uint32_t kKeepNumberLetter = 4;
    static constexpr std::uint32_t kOwnsText = 0x8000;

    cKoParser() = default;
    ~cKoParser() override;
    // The next token, valid until the next call; *kind (may be null) takes its kind. Bit 0 of the
    // argument trims like that of the flags field. Both throw std::bad_alloc, and std::length_error
    // behind 4 GiB of text.
    virtual const char* PeekToken(std::uint32_t* kind, std::uint32_t tokenFlags);
    virtual const char* NextToken(std::uint32_t* kind, std::uint32_t tokenFlags);

    // The text is read in place and must outlive the parser. It is not owned; whoever hands a block
    // over sets kOwnsText afterwards. Null is an empty text.
    void SetText(const char* newText) noexcept;

    std::uint32_t flags = 0;
    nuv64::OwnedText nameStart;
    nuv64::OwnedText nameChars;
    const char* text = nullptr;
    std::uint32_t position = 0;
    std::uint32_t tokenKind = 0;
    nuv64::OwnedText token;
    std::uint32_t capacity = 0;

  protected:
    // The place of the next character that is no blank, and stepping to it.
    const char* here() const noexcept;
    const char* skipBlanks();
    void moveTo(const char* place);

  private:
    struct Scan {
        std::uint32_t kind;
        const char* end;
    };
    Scan scan(const char* at);
    const char* endOfName(const char* at) const noexcept;
    const char* readString(const char* at);
    char* tokenRoom(std::size_t length);
    void setToken(std::string_view newToken);
    const char* read(std::uint32_t* kind, std::uint32_t tokenFlags, bool step);
};

struct cKoExpression : cKoParser {
    using Variable = double (*)(const char* name, void* context);
    using FindFunction = const ExpressionFunction* (*)(const char* name, void* context);

    enum Error : std::uint32_t {
        kNoError = 0,
        kMissingParenthesis = 1,
        kIllegalFactor = 2,
        kVoidFactor = 3,
        kVoidTerm = 4,
        kVoidExpression = 5,  // also: nested too deeply, or a chain that does not end
        kUnknownFunction = 6,
        kTooManyArguments = 7,
    };

    ~cKoExpression() override;

    // Evaluates from text; *end (may be null) is set behind the text consumed, blanks behind it
    // included. On failure error stays set and the value computed so far is returned, 0 for none.
    // A formula that can't be begun because its chain has become too long gives not-a-number.
    double Evaluate(const char* newText, const char** end);
    double Expression();
    double Term();
    double Factor();

    // The words of an error; an empty text for 0 and for an unknown number.
    static const char* ErrorText(std::uint32_t error) noexcept;

    void* context = nullptr;
    std::uint32_t error = 0;
    std::uint32_t unresolved = 0;       // names of the last text that got no number
    Variable getVariable = nullptr;     // null: every name is not-a-number
    Variable secondCallback = nullptr;  // for the host; not called here
    FindFunction findFunction = nullptr;
    std::uint32_t depth = 0;                  // parentheses open; those of an error stay counted
    nuv64::ExpressionChain* chain = nullptr;  // null: this evaluator is a chain of its own

  private:
    class Nesting;
    double fail(Error what) noexcept;
    double parenthesis();
    double variable(const char* name);
    double call(const char* name);

    nuv64::ExpressionChain ownChain;
};
