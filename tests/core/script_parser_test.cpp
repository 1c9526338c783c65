#include "nuv64/core/script_parser.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

struct Token {
    std::string text;
    std::uint32_t kind;
    std::uint64_t consumed;
    bool operator==(const Token&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Token& token) {
    return out << token.text << '|' << token.kind << '|' << token.consumed;
}

template <class Ch>
Token parse(std::uint32_t (*function)(Ch*, const Ch*, std::uint64_t*), const std::string& text) {
    const std::basic_string<Ch> source(text.begin(), text.end());
    std::basic_string<Ch> buffer(text.size() + 1, Ch('#'));
    std::uint64_t consumed = 99;
    const std::uint32_t kind = function(buffer.data(), source.c_str(), &consumed);
    const std::basic_string<Ch> token(buffer.c_str());
    return {std::string(token.begin(), token.end()), kind, consumed};
}

// Both widths at once.
Token token(const std::string& text) {
    const Token narrow = parse(ScriptParserA, text);
    EXPECT_EQ(parse(ScriptParser, text), narrow);
    return narrow;
}

Token capitals(const std::string& text) {
    const Token narrow = parse(ScriptParserCapA, text);
    EXPECT_EQ(parse(ScriptParserCap, text), narrow);
    return narrow;
}

TEST(ScriptParser, KnowsItsKinds) {
    EXPECT_EQ(token(""), (Token{"", 1, 0}));
    EXPECT_EQ(token(" \r\n\t"), (Token{"", 1, 4}));
    EXPECT_EQ(token("  fit12,3"), (Token{"fit12", 4, 7}));
    EXPECT_EQ(token("12.5e3x"), (Token{"12.5e3", 128, 6}));
    EXPECT_EQ(token("-3"), (Token{"-3", 128, 2}));
    EXPECT_EQ(token("-.5"), (Token{"-.5", 128, 3}));
    EXPECT_EQ(token("- 3"), (Token{"-", 2, 1}));
    EXPECT_EQ(token(".x"), (Token{".", 2, 1}));
    EXPECT_EQ(token("#FIT"), (Token{"#", 2, 1}));
    EXPECT_EQ(token("\"a\""), (Token{"\"", 2, 1}));
    EXPECT_EQ(token("_a"), (Token{"_", 2, 1}));
    EXPECT_EQ(token("1e"), (Token{"1", 128, 1}));
}

TEST(ScriptParser, TurnsToCapitals) {
    EXPECT_EQ(capitals(" qArray7 x"), (Token{"QARRAY7", 4, 8}));
    EXPECT_EQ(capitals("1e5"), (Token{"1E5", 128, 3}));
    EXPECT_EQ(capitals("{"), (Token{"{", 2, 1}));
    EXPECT_EQ(capitals(""), (Token{"", 1, 0}));
}

TEST(ScriptParser, UpperHalfCharactersAreSingleOnes) {
    EXPECT_EQ(parse(ScriptParserA, "\xC3\xA9"), (Token{"\xC3", 2, 1}));
    char16_t wide[4] = {};
    std::uint64_t consumed = 0;
    EXPECT_EQ(ScriptParser(wide, u"\u00E9a", &consumed), 2u);
    EXPECT_EQ(wide[0], u'\u00E9');
    EXPECT_EQ(ScriptParserCap(wide, u"\u03C9", &consumed), 2u);
    EXPECT_EQ(wide[0], u'\u03C9');
    EXPECT_EQ(consumed, 1u);
}

TEST(ScriptParser, TakesNulls) {
    std::uint64_t consumed = 9;
    char buffer[4] = "xyz";
    EXPECT_EQ(ScriptParserA(buffer, nullptr, &consumed), 1u);
    EXPECT_EQ(consumed, 0u);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(ScriptParserA(nullptr, "ab", &consumed), 4u);
    EXPECT_EQ(consumed, 2u);
    EXPECT_EQ(ScriptParserA(nullptr, "ab", nullptr), 4u);
    EXPECT_EQ(ScriptParser(nullptr, nullptr, nullptr), 1u);
    EXPECT_EQ(ScriptParserCap(nullptr, nullptr, nullptr), 1u);
    EXPECT_EQ(ScriptParserCapA(nullptr, nullptr, nullptr), 1u);
}

TEST(ScriptParser, TokensTileAnyText) {
    std::mt19937 random(23);
    const std::string letters = "aZ09.-+eE #,\"(\n";
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (auto i = random() % 20; i > 0; --i) text += letters[random() % letters.size()];
        std::size_t at = 0;
        for (;;) {
            const Token next = token(text.substr(at));
            at += next.consumed;
            ASSERT_LE(at, text.size());
            if (next.kind == 1) break;
            ASSERT_FALSE(next.text.empty());
            ASSERT_EQ(text.substr(at - next.text.size(), next.text.size()), next.text);
        }
        ASSERT_EQ(at, text.size());
    }
}

}  // namespace
