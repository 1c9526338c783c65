// The tokenizer and the expression evaluator behind formula parameters.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/object.h"
#include "core/owned.h"

typedef struct ExpressionFunction {
    std::uint32_t argumentCount;
    double (*function)(const double* arguments);
} ExpressionFunction;

struct cKoParser : cKoObject {
    enum TokenKind : std::uint32_t {
        kEndOfText = 1,
        kCharacter = 2,
        kName = 4,
        kString = 8,
        kNumber = 128,
        kNumberD = 144,
        kNumberTyped = 160,
    };

    cKoParser() = default;
    ~cKoParser() override;
    virtual const char* PeekToken(std::uint32_t* kind, std::uint32_t flags);
    virtual const char* NextToken(std::uint32_t* kind, std::uint32_t flags);

    // The text is read in place and must outlive the parser unless bit 15 of flags is set.
    void SetText(const char* newText) noexcept;

    std::uint32_t flags = 0;
    nuv64::OwnedText nameStart;
    nuv64::OwnedText nameChars;
    const char* text = nullptr;
    std::uint32_t position = 0;
    std::uint32_t tokenKind = 0;
    nuv64::OwnedText token;
    std::uint32_t capacity = 0;
};

struct cKoExpression : cKoParser {
    using Variable = double (*)(const char* name, void* context);
    using FindFunction = const ExpressionFunction* (*)(const char* name, void* context);

    ~cKoExpression() override;

    // Evaluates from text; *end (may be null) is set behind the text consumed. error stays set on
    // failure and the value computed so far is returned.
    double Evaluate(const char* text, const char** end);
    double Expression();
    double Term();
    double Factor();

    static const char* ErrorText(std::uint32_t error) noexcept;

    void* context = nullptr;
    std::uint32_t error = 0;
    std::uint32_t unresolved = 0;
    Variable getVariable = nullptr;
    Variable secondCallback = nullptr;
    FindFunction findFunction = nullptr;
    std::uint32_t depth = 0;
};
