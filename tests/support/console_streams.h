// The standard streams of the test as a user's: typed text, and what was printed.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "support/temp_folder.h"

// Standard input from a text, for the time of one block; nothing can be read behind it.
class TypedInput {
  public:
    explicit TypedInput(const std::string& text) {
        folder_.write("typed", text);
        open(folder_.native("typed").string().c_str());
    }
    ~TypedInput() {
#ifdef _WIN32
        open("NUL");
#else
        open("/dev/null");
#endif
    }
    TypedInput(const TypedInput&) = delete;
    TypedInput& operator=(const TypedInput&) = delete;

  private:
    static void open(const char* name) {
        EXPECT_NE(std::freopen(name, "rb", stdin), nullptr);
    }

    TempFolder folder_;
};

// A text as printedBy gives it: on Windows the test library reads what it captured as text, where
// CR LF is a line feed.
inline std::string asCaptured(std::string text) {
#ifdef _WIN32
    for (std::size_t at; (at = text.find("\r\n")) != text.npos;) text.erase(at, 1);
#endif
    return text;
}

// What an action writes to standard output.
template <class Action>
std::string printedBy(Action&& action) {
    testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

// The same with typed input; result takes what the action gives.
template <class Action, class Result>
std::string dialogue(const std::string& typed, Result& result, Action&& action) {
    const TypedInput input(typed);
    return printedBy([&] { result = action(); });
}
