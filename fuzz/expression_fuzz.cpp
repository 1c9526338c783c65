// The formula evaluator and the tokenizer of task scripts on any text. The first byte chooses what
// the host of the evaluator offers; the rest is the text. The variables of a formula are the
// formula itself, so that circles are met at every turn.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/expression.h"
#include "nuv64/core/script_parser.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

struct Block {
    const char* formula;
    unsigned options;
    nuv64::ExpressionChain chain;
};

double variableOf(const char* name, void* context);

const ExpressionFunction* functionOf(const char* name, void*) {
    static const ExpressionFunction functions[] = {
        {0, [](const double*) { return 7.0; }},
        {1, [](const double* x) { return -x[0]; }},
        {3, [](const double* x) { return x[0] + x[1] * x[2]; }},
    };
    const unsigned which = static_cast<unsigned char>(name[0]) % 4;
    return which < 3 ? &functions[which] : nullptr;
}

void prepare(cKoExpression& expression, Block& block) {
    expression.context = &block;
    expression.chain = &block.chain;
    if (block.options & 1) expression.getVariable = variableOf;
    if (block.options & 2) expression.findFunction = functionOf;
    if (block.options & 4) expression.flags |= cKoParser::kTrimTokens;
    if (block.options & 8) {
        expression.nameStart = nuv64::copyText("_$", 2);
        expression.nameChars = nuv64::copyText("_.", 2);
    }
}

double variableOf(const char* name, void* context) {
    Block& block = *static_cast<Block*>(context);
    if (name[0] != 'a') return 2.0;
    cKoExpression expression;
    prepare(expression, block);
    return expression.Evaluate(block.formula, nullptr);
}

void evaluate(const std::string& text, unsigned options) {
    Block block{text.c_str(), options, {}};
    cKoExpression expression;
    prepare(expression, block);
    const char* end = nullptr;
    expression.Evaluate(text.c_str(), &end);
    require(end >= text.c_str() && end <= text.c_str() + text.size());
    require(block.chain.depth == 0);
    require(*cKoExpression::ErrorText(expression.error) != 0 || expression.error == 0);
}

void tokenize(const std::string& text) {
    cKoParser parser;
    parser.SetText(text.c_str());
    std::uint32_t kind = 0;
    do {
        const std::uint32_t before = parser.position;
        parser.NextToken(&kind, 0);
        require(kind == cKoParser::kEndOfText || parser.position > before);
        require(parser.position <= text.size());
    } while (kind != cKoParser::kEndOfText);
}

template <class Ch>
void parseScript(const std::basic_string<Ch>& text,
                 std::uint32_t (*parse)(Ch*, const Ch*, std::uint64_t*)) {
    std::basic_string<Ch> token(text.size() + 1, 0);
    std::uint64_t consumed = 0;
    for (const Ch* at = text.c_str(); parse(token.data(), at, &consumed) != 1; at += consumed) {
        require(consumed != 0);
    }
    require(token[0] == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string terminated(text.c_str());
    evaluate(terminated, data[0]);
    tokenize(terminated);
    parseScript(terminated, data[0] & 16 ? ScriptParserCapA : ScriptParserA);
    parseScript(std::u16string(terminated.begin(), terminated.end()),
                data[0] & 16 ? ScriptParserCap : ScriptParser);
    return 0;
}
