#ifndef _WIN32
#include "platform/posix/command_line.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using nuv64::platform::splitCommandLine;
using Words = std::vector<std::string>;

// The arguments of the table in "Parsing C++ command-line arguments" (Microsoft).
TEST(CommandLine, PublishedExamples) {
    const auto arguments = [](const std::string& text) {
        Words words = splitCommandLine("p " + text);
        words.erase(words.begin());
        return words;
    };
    EXPECT_EQ(arguments(R"("a b c" d e)"), (Words{"a b c", "d", "e"}));
    EXPECT_EQ(arguments(R"("ab\"c" "\\" d)"), (Words{"ab\"c", "\\", "d"}));
    EXPECT_EQ(arguments(R"(a\\\b d"e f"g h)"), (Words{R"(a\\\b)", "de fg", "h"}));
    EXPECT_EQ(arguments(R"(a\\\"b c d)"), (Words{R"(a\"b)", "c", "d"}));
    EXPECT_EQ(arguments(R"(a\\\\"b c" d e)"), (Words{R"(a\\b c)", "d", "e"}));
    EXPECT_EQ(arguments(R"(a"b"" c d)"), (Words{"ab\" c d"}));
}

TEST(CommandLine, TheProgramKeepsItsBackslashes) {
    EXPECT_EQ(splitCommandLine(R"("C:\a b\c\" d)"), (Words{R"(C:\a b\c\)", "d"}));
    EXPECT_EQ(splitCommandLine(R"(C:\a\b c)"), (Words{R"(C:\a\b)", "c"}));
    EXPECT_EQ(splitCommandLine(R"("p")"), (Words{"p"}));
    EXPECT_EQ(splitCommandLine(R"("p)"), (Words{"p"}));
    EXPECT_EQ(splitCommandLine("  p  \t a \n"), (Words{"p", "a"}));
    EXPECT_EQ(splitCommandLine(""), (Words{""}));
    EXPECT_EQ(splitCommandLine("p \"\" x"), (Words{"p", "", "x"}));
}

// Quotes a word so that it comes through unchanged.
std::string inQuotes(const std::string& word) {
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"') text.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, '\\') + '"';
}

TEST(CommandLine, QuotedWordsComeThroughUnchanged) {
    std::mt19937 random(12);
    for (int i = 0; i < 5000; ++i) {
        Words words{"program"};
        std::string line = "program";
        for (std::size_t n = random() % 4; n > 0; --n) {
            std::string word(random() % 8, ' ');
            for (char& c : word) c = "\\\" ab\t"[random() % 6];
            words.push_back(word);
            line += ' ' + inQuotes(word);
        }
        ASSERT_EQ(splitCommandLine(line), words) << line;
    }
}

}  // namespace
#endif
