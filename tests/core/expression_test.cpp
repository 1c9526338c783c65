#include "core/expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

// Tokenizer.

struct Token {
    std::string text;
    std::uint32_t kind;
    bool operator==(const Token&) const = default;
};

std::vector<Token> tokens(cKoParser& parser, const char* text, std::uint32_t flags = 0) {
    std::vector<Token> result;
    parser.SetText(text);
    std::uint32_t kind = 0;
    do {
        const std::string token = parser.NextToken(&kind, flags);
        result.push_back({token, kind});
    } while (kind != cKoParser::kEndOfText);
    result.pop_back();
    return result;
}

std::vector<Token> tokens(const char* text) {
    cKoParser parser;
    return tokens(parser, text);
}

TEST(Parser, KnowsNamesNumbersAndCharacters) {
    EXPECT_EQ(tokens("a1 Bc\t2"), (std::vector<Token>{{"a1", 4}, {"Bc", 4}, {"2", 128}}));
    EXPECT_EQ(tokens("1.5e-3-2"), (std::vector<Token>{{"1.5e-3", 128}, {"-2", 128}}));
    EXPECT_EQ(tokens("-.5 .25 - .x"),
              (std::vector<Token>{{"-.5", 128}, {".25", 128}, {"-", 2}, {".", 2}, {"x", 4}}));
    EXPECT_EQ(tokens("2em"), (std::vector<Token>{{"2", 128}, {"em", 4}}));
    EXPECT_EQ(tokens("2e+"), (std::vector<Token>{{"2", 128}, {"e", 4}, {"+", 2}}));
    EXPECT_EQ(tokens("2E5.5"), (std::vector<Token>{{"2E5", 128}, {".5", 128}}));
    EXPECT_EQ(tokens("7."), (std::vector<Token>{{"7.", 128}}));
    EXPECT_EQ(tokens("(\xC3)"), (std::vector<Token>{{"(", 2}, {"\xC3", 2}, {")", 2}}));
    EXPECT_TRUE(tokens("").empty());
    EXPECT_TRUE(tokens(" \r\n\x01").empty());
    EXPECT_TRUE(tokens(nullptr).empty());
}

TEST(Parser, ReadsStringsWithEscapes) {
    EXPECT_EQ(tokens(R"("a\n\r\t\f\"b\q\\" c)"),
              (std::vector<Token>{{"a\n\r\t\f\"bq\\", 8}, {"c", 4}}));
    EXPECT_EQ(tokens(R"("open)"), (std::vector<Token>{{"open", 8}}));
    EXPECT_EQ(tokens("\"x\\"), (std::vector<Token>{{"x", 8}}));
    EXPECT_EQ(tokens("\"\"\""), (std::vector<Token>{{"", 8}, {"", 8}}));
}

TEST(Parser, TakesFurtherNameCharacters) {
    cKoParser parser;
    parser.nameStart = nuv64::copyText("_$", 2);
    parser.nameChars = nuv64::copyText("_.", 2);
    EXPECT_EQ(tokens(parser, "_a.b_1 a$b"),
              (std::vector<Token>{{"_a.b_1", 4}, {"a", 4}, {"$b", 4}}));
    // Both sets end at the end of the text, not at their own terminator.
    EXPECT_EQ(tokens(parser, "_"), (std::vector<Token>{{"_", 4}}));
}

TEST(Parser, TrimsAllButStringsOnRequest) {
    cKoParser parser;
    EXPECT_EQ(tokens(parser, "ab \"cd\" 1e5", cKoParser::kTrimTokens),
              (std::vector<Token>{{"AB", 4}, {"cd", 8}, {"1E5", 128}}));
    parser.flags = cKoParser::kTrimTokens;
    EXPECT_EQ(tokens(parser, "ab"), (std::vector<Token>{{"AB", 4}}));
    EXPECT_EQ(tokens("ab"), (std::vector<Token>{{"ab", 4}}));
}

TEST(Parser, PeekDoesNotMove) {
    cKoParser parser;
    parser.SetText("  ab 1");
    std::uint32_t kind = 0;
    EXPECT_STREQ(parser.PeekToken(&kind, 0), "ab");
    EXPECT_EQ(kind, 4u);
    EXPECT_EQ(parser.tokenKind, 4u);
    EXPECT_EQ(parser.position, 0u);
    EXPECT_STREQ(parser.NextToken(nullptr, 0), "ab");
    EXPECT_EQ(parser.position, 4u);
    EXPECT_STREQ(parser.PeekToken(nullptr, cKoParser::kTrimTokens), "1");
    EXPECT_STREQ(parser.NextToken(&kind, 0), "1");
    EXPECT_STREQ(parser.NextToken(&kind, 0), "");
    EXPECT_EQ(kind, 1u);
    EXPECT_STREQ(parser.NextToken(&kind, 0), "");
}

TEST(Parser, GrowsForLongTokensAndFreesAnOwnedText) {
    const std::string name(100000, 'x');
    cKoParser parser;
    char* owned = static_cast<char*>(std::malloc(name.size() + 1));
    std::memcpy(owned, name.c_str(), name.size() + 1);
    parser.SetText(owned);
    parser.flags |= cKoParser::kOwnsText;
    EXPECT_EQ(parser.NextToken(nullptr, 0), name);
    EXPECT_GT(parser.capacity, name.size());
    parser.SetText("b");
    EXPECT_EQ(parser.flags & cKoParser::kOwnsText, 0u);
    EXPECT_STREQ(parser.NextToken(nullptr, 0), "b");
}

TEST(Parser, ManyOpenStringsCostNoMoreThanTheirLength) {
    // Each token is read in its own length; a million of them would take minutes otherwise.
    const std::string quotes(1000000, '"');
    cKoParser parser;
    EXPECT_EQ(tokens(parser, quotes.c_str()).size(), 500000u);
}

// Evaluator.

struct Host {
    std::map<std::string, double> variables{{"a", 2.0}, {"b", -3.0}, {"E", 10.0}};
    std::map<std::string, ExpressionFunction> functions{
        {"sqr", {1, [](const double* x) { return x[0] * x[0]; }}},
        {"sub", {2, [](const double* x) { return x[0] - x[1]; }}},
        {"seven", {0, [](const double*) { return 7.0; }}},
        {"void", {1, nullptr}},
    };
};

double variableOf(const char* name, void* context) {
    const auto& all = static_cast<Host*>(context)->variables;
    const auto found = all.find(name);
    return found == all.end() ? std::numeric_limits<double>::quiet_NaN() : found->second;
}

const ExpressionFunction* functionOf(const char* name, void* context) {
    const auto& all = static_cast<Host*>(context)->functions;
    const auto found = all.find(name);
    return found == all.end() ? nullptr : &found->second;
}

struct Evaluation {
    double value;
    std::uint32_t error;
    std::size_t consumed;
    std::uint32_t unresolved;
};

Evaluation evaluate(const std::string& text) {
    Host host;
    cKoExpression expression;
    expression.context = &host;
    expression.getVariable = variableOf;
    expression.findFunction = functionOf;
    const char* end = nullptr;
    const double value = expression.Evaluate(text.c_str(), &end);
    return {value, expression.error, static_cast<std::size_t>(end - text.c_str()),
            expression.unresolved};
}

void expectValue(const std::string& text, double value) {
    const Evaluation result = evaluate(text);
    EXPECT_EQ(result.error, 0u) << text;
    EXPECT_EQ(result.value, value) << text;
    EXPECT_EQ(result.consumed, text.size()) << text;
}

TEST(Expression, FollowsItsGrammar) {
    expectValue("(1+2)*3", 9.0);
    expectValue("1+2*3", 7.0);
    expectValue("-2*3", -6.0);
    expectValue("2*-3", -6.0);
    expectValue("-a*b", 6.0);
    expectValue("-(1+2)", -3.0);
    expectValue("--2", 2.0);
    expectValue("1-2", -1.0);
    expectValue("1 - -2", 3.0);
    expectValue("8/4/2", 1.0);
    expectValue("2-3-4", -5.0);
    expectValue(" ( ( 1.5e1 ) ) ", 15.0);
    expectValue("E*1E1", 100.0);
    expectValue("a+b", -1.0);
    expectValue(".5+-.5", 0.0);
    expectValue("1/3", 1.0 / 3.0);
    expectValue("0.1", 0.1);
}

TEST(Expression, DivisionByZeroIsThatOfTheFloatingPoint) {
    EXPECT_EQ(evaluate("1/0").value, std::numeric_limits<double>::infinity());
    EXPECT_EQ(evaluate("1/0").error, 0u);
    EXPECT_TRUE(std::isnan(evaluate("0/0").value));
}

TEST(Expression, CallsFunctions) {
    expectValue("sqr(3)", 9.0);
    expectValue("sqr (3)", 9.0);
    expectValue("sub(5, 2*2)", 1.0);
    expectValue("seven()", 7.0);
    expectValue("2*sub(sqr(a),seven( ))+1", -5.0);
    expectValue("sqr(3,)", 9.0);  // a comma behind any argument is stepped over
}

TEST(Expression, NamesItsErrors) {
    const auto error = [](const char* text) { return evaluate(text).error; };
    EXPECT_EQ(error("(1+2"), 1u);
    EXPECT_EQ(error("sqr(1"), 1u);
    EXPECT_EQ(error("seven("), 1u);
    EXPECT_EQ(error("2*-a"), 2u);
    EXPECT_EQ(error("---2"), 2u);
    EXPECT_EQ(error("()"), 2u);
    EXPECT_EQ(error("1+)"), 2u);
    EXPECT_EQ(error("\"text\""), 2u);
    EXPECT_EQ(error("sub(1)"), 2u);
    EXPECT_EQ(error("2*"), 3u);
    EXPECT_EQ(error("-"), 3u);
    EXPECT_EQ(error("1+"), 4u);
    EXPECT_EQ(error("(1+"), 4u);
    EXPECT_EQ(error(""), 5u);
    EXPECT_EQ(error("  "), 5u);
    EXPECT_EQ(error("("), 5u);
    EXPECT_EQ(error("sqr("), 5u);
    EXPECT_EQ(error("none(1)"), 6u);
    EXPECT_EQ(error("void(1)"), 6u);
    EXPECT_EQ(error("sqr(1,2)"), 7u);
    EXPECT_EQ(error("seven(1)"), 7u);
    // What was computed so far comes back.
    EXPECT_EQ(evaluate("3+").value, 3.0);
    EXPECT_EQ(evaluate("(1+2").value, 3.0);
    EXPECT_EQ(evaluate("2*3+4*").value, 6.0);
    EXPECT_EQ(evaluate("").value, 0.0);
}

TEST(Expression, StopsWhereTheExpressionEnds) {
    EXPECT_EQ(evaluate("1+2)").consumed, 3u);
    EXPECT_EQ(evaluate("1+2)").value, 3.0);
    EXPECT_EQ(evaluate("1+2)").error, 0u);
    EXPECT_EQ(evaluate("2em").consumed, 1u);
    EXPECT_EQ(evaluate("3 ;x").consumed, 2u);
    cKoExpression expression;
    const char* end = "x";
    EXPECT_EQ(expression.Evaluate(nullptr, &end), 0.0);
    EXPECT_EQ(expression.error, 5u);
    EXPECT_EQ(end, nullptr);
    EXPECT_EQ(expression.Evaluate("2", nullptr), 2.0);
    EXPECT_EQ(expression.error, 0u);
}

TEST(Expression, CountsNamesWithoutANumber) {
    EXPECT_EQ(evaluate("a+x+y").unresolved, 2u);
    EXPECT_TRUE(std::isnan(evaluate("a+x+y").value));
    EXPECT_EQ(evaluate("a").unresolved, 0u);
    cKoExpression alone;
    EXPECT_TRUE(std::isnan(alone.Evaluate("a", nullptr)));
    EXPECT_EQ(alone.error, 0u);
    EXPECT_EQ(alone.unresolved, 1u);
    alone.Evaluate("f(1)", nullptr);
    EXPECT_EQ(alone.error, 6u);
    EXPECT_EQ(alone.unresolved, 0u);
}

TEST(Expression, HasAWordForEachError) {
    EXPECT_STREQ(cKoExpression::ErrorText(0), "");
    EXPECT_STREQ(cKoExpression::ErrorText(1), "Missing right parentheses");
    EXPECT_STREQ(cKoExpression::ErrorText(2), "Illegal expression factor");
    EXPECT_STREQ(cKoExpression::ErrorText(3), "Illegal expression (void factor)");
    EXPECT_STREQ(cKoExpression::ErrorText(4), "Illegal expression (void term)");
    EXPECT_STREQ(cKoExpression::ErrorText(5), "Missing or illegal expression");
    EXPECT_STREQ(cKoExpression::ErrorText(6), "Unknown function");
    EXPECT_STREQ(cKoExpression::ErrorText(7), "Too many function arguments");
    EXPECT_STREQ(cKoExpression::ErrorText(8), "");
    EXPECT_STREQ(cKoExpression::ErrorText(UINT32_MAX), "");
}

std::string nested(std::size_t levels, const char* open) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += open;
    return text + "1" + std::string(levels, ')');
}

TEST(Expression, ADeepTextEndsInsteadOfTheStack) {
    expectValue(nested(100, "("), 1.0);
    expectValue(nested(100, "sqr("), 1.0);
    for (const char* open : {"(", "sqr(", "1+(", "-("}) {
        const Evaluation result = evaluate(nested(1000000, open));
        EXPECT_EQ(result.error, 5u) << open;
    }
    EXPECT_TRUE(std::isnan(evaluate(nested(1000000, "(")).value));
    // Many in a row are not deep.
    std::string row = "0";
    for (int i = 0; i < 50000; ++i) row += "+(1)";
    expectValue(row, 50000.0);
}

// Formulas whose variables are formulas, as a parameter block evaluates them.
struct Block {
    std::map<std::string, std::string> formulas;
    nuv64::ExpressionChain chain;
    int evaluations = 0;

    double valueOf(const char* name) {
        ++evaluations;
        cKoExpression expression;
        expression.context = this;
        expression.chain = &chain;
        expression.getVariable = [](const char* variable, void* context) {
            return static_cast<Block*>(context)->valueOf(variable);
        };
        const double value = expression.Evaluate(formulas[name].c_str(), nullptr);
        return expression.error ? std::numeric_limits<double>::quiet_NaN() : value;
    }
};

TEST(Expression, AChainOfFormulasEnds) {
    Block fine;
    fine.formulas = {{"a", "(b*2)"}, {"b", "c+c"}, {"c", "5"}};
    EXPECT_EQ(fine.valueOf("a"), 20.0);
    EXPECT_EQ(fine.chain.depth, 0u);
    Block self;
    self.formulas = {{"a", "(1+a)"}};
    EXPECT_TRUE(std::isnan(self.valueOf("a")));
    Block circle;
    circle.formulas = {{"a", "b+b"}, {"b", "(a-a)*a"}};
    EXPECT_TRUE(std::isnan(circle.valueOf("a")));
    EXPECT_LT(circle.evaluations, 100000);
    Block doubling;  // no circle, but 2^60 steps
    for (std::size_t i = 1; i <= 60; ++i) {
        const std::string next(i + 1, 'v');
        doubling.formulas[std::string(i, 'v')] = next + "+" + next;
    }
    EXPECT_TRUE(std::isnan(doubling.valueOf("v")));
    EXPECT_LT(doubling.evaluations, 100000);
}

// Random expressions against a plain evaluation of the same tree.
struct Generator {
    std::mt19937 random;

    std::pair<std::string, double> make(int depth) {
        if (depth == 0 || random() % 4 == 0) {
            const double value = static_cast<double>(random() % 1000) / 8.0;
            char text[32];
            std::snprintf(text, sizeof text, "%.3f", value);
            return {text, value};
        }
        const auto left = make(depth - 1);
        const auto right = make(depth - 1);
        const char* const blank = random() % 2 ? " " : "";
        const auto text = [&](char sign) {
            return "(" + left.first + blank + sign + blank + right.first + ")";
        };
        switch (random() % 4) {
            case 0:
                return {text('+'), left.second + right.second};
            case 1:
                return {text('-'), left.second - right.second};
            case 2:
                return {text('*'), left.second * right.second};
            default:
                return {text('/'), left.second / right.second};
        }
    }
};

TEST(Expression, AgreesWithAPlainEvaluation) {
    Generator generator{std::mt19937(21)};
    for (int i = 0; i < 2000; ++i) {
        const auto [text, value] = generator.make(5);
        const Evaluation result = evaluate(text);
        ASSERT_EQ(result.error, 0u) << text;
        ASSERT_TRUE(result.value == value || (std::isnan(result.value) && std::isnan(value)))
            << text;
    }
}

}  // namespace
