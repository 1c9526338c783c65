// The console as a user sees it: a process in a pseudo terminal, keys typed on one side, the screen
// read on the other.
#ifndef _WIN32

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "nuv64/core/console_control.h"
#include "nuv64/core/console_input.h"
#include "nuv64/core/console_menu.h"
#include "nuv64/core/console_output.h"

namespace {

const std::string kNormal = "\x1b[97;40m";
const std::string kError = "\x1b[91;40m";
const std::string kPrompt = "\x1b[93;40m";
const std::string kTitle = "\x1b[96;40m";
const std::string& kTyped = kTitle;
const std::string kToLineEnd = "\x1b[K";

// A child process in a terminal of 80 columns and 24 rows; what the action returns is its exit
// code.
class Terminal {
  public:
    template <class Action>
    explicit Terminal(Action action, const char* kind = "xterm") {
        std::fflush(stdout);
        const winsize size{24, 80, 0, 0};
        child_ = ::forkpty(&master_, nullptr, nullptr, &size);
        if (child_ != 0) return;
        ::setenv("TERM", kind, 1);
        ::_exit(action());
    }
    ~Terminal() {
        hangUp();
        wait();
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void type(const std::string& keys) const {
        EXPECT_EQ(::write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }

    // Keys, once the process takes single ones; before that the terminal would show them.
    void press(const std::string& keys) const {
        for (int i = 0; i < 2000 && isInLineMode(); ++i) ::usleep(2000);
        EXPECT_FALSE(isInLineMode());
        type(keys);
    }

    // What appears up to and with a text; everything when it never comes. Without the CRs that the
    // terminal makes of line feeds.
    std::string until(const std::string& text) {
        while (seen_.find(text) == seen_.npos && more()) continue;
        const std::size_t at = seen_.find(text);
        const std::string shown = seen_.substr(0, at == seen_.npos ? at : at + text.size());
        EXPECT_NE(at, seen_.npos) << "no '" << text << "' in '" << seen_ << "'";
        seen_.erase(0, shown.size());
        return shown;
    }
    std::string rest() {
        while (more()) continue;
        return std::exchange(seen_, "");
    }

    // The exit code, or minus the signal that ended the process.
    int wait() {
        int status = 0;
        if (child_ <= 0 || ::waitpid(child_, &status, 0) != child_) return result_;
        child_ = -1;
        result_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        return result_;
    }
    void hangUp() {
        if (master_ != -1) ::close(master_);
        master_ = -1;
    }
    // Lines and echo, as programs expect to find their terminal.
    bool isInLineMode() const {
        termios mode{};
        return ::tcgetattr(master_, &mode) == 0 && (mode.c_lflag & ICANON) && (mode.c_lflag & ECHO);
    }

  private:
    bool more() {
        pollfd output{master_, POLLIN, 0};
        if (::poll(&output, 1, 10000) <= 0) return false;
        char bytes[4096];
        const ssize_t got = ::read(master_, bytes, sizeof bytes);
        if (got <= 0) return false;
        seen_.append(bytes, static_cast<std::size_t>(got));
        std::erase(seen_, '\r');
        return true;
    }

    int master_ = -1;
    pid_t child_ = -1;
    int result_ = -1000;
    std::string seen_;
};

TEST(ConsoleTerminal, ShowsEveryColour) {
    Terminal terminal([] {
        for (const std::uint32_t id : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 0xFFFFFFFFu}) {
            ConSetTextColorID(id);
            CoutChrA('x');
        }
        return 0;
    });
    std::string expected;
    for (const char* color : {"97", "91", "92", "94", "93", "96", "95", "37", "97", "97"})
        expected += std::string("\x1b[") + color + ";40mx";
    EXPECT_EQ(terminal.rest(), expected);
}

TEST(ConsoleTerminal, ColoursPromptsAndErrors) {
    Terminal terminal([] {
        CoutPrompt(u"a", u"b", nullptr, nullptr, nullptr, nullptr);
        CoutPromptA("c", nullptr, nullptr, nullptr, nullptr, nullptr);
        CoutErrorA(14, nullptr, 0);
        CoutError(0, u"own", 0);
        CoutStrA("plain\n");
        ConScipioA("Chgreen");
        ConScipioA("Cd");
        ConScipio(u"Cgx");
        return 0;
    });
    EXPECT_EQ(terminal.rest(), kPrompt + "ab" + kNormal + kPrompt + "c" + kNormal + kError +
                                   " Error 14: Missing input data\n" + kNormal + kError + "own\n" +
                                   kNormal + "plain\n" + "\x1b[92;40mgreen" + kNormal +
                                   "\x1b[37;40mx");
}

TEST(ConsoleTerminal, SendsNoSequencesToADumbOne) {
    Terminal terminal(
        [] {
            CoutPromptA("a", nullptr, nullptr, nullptr, nullptr, nullptr);
            ConClear();
            ConScipioA("Tt");
            std::int32_t x = 0, y = 0;
            return static_cast<int>(ConGetOrSetCursorLocation(&x, &y, 1));
        },
        "dumb");
    EXPECT_EQ(terminal.rest(), "a");
    EXPECT_EQ(terminal.wait(), 5);
}

// The terminal shows what is typed; only a redirected output is free of sequences.
TEST(ConsoleTerminal, SendsNoSequencesToARedirectedOutput) {
    Terminal terminal([] {
        int ends[2];
        if (::pipe(ends) != 0) return 1;
        const int screen = ::dup(STDOUT_FILENO);
        ::dup2(ends[1], STDOUT_FILENO);
        const double value = CinRealA("x:", nullptr);
        CoutErrorA(14, nullptr, 0);
        ::dup2(screen, STDOUT_FILENO);
        char bytes[200] = "";
        if (::read(ends[0], bytes, sizeof bytes - 1) <= 0) return 2;
        CoutfA("{%s}%g", bytes, value);
        return 0;
    });
    terminal.type("2.5\n");
    EXPECT_EQ(terminal.rest(), "2.5\n{ x:  Error 14: Missing input data\n}2.5");
}

TEST(ConsoleTerminal, AsksForANumber) {
    Terminal terminal([] {
        std::uint32_t flags = 0;
        const std::uint32_t value = CinDwordMmA("Count:", 1, 10, &flags);
        CoutDwordA("=", value, " ", 0, 10);
        CoutNumFlagsA(nullptr, flags, nullptr);
        return 0;
    });
    const std::string asked = kPrompt + " Count: " + kToLineEnd + kNormal + kTyped;
    EXPECT_EQ(terminal.until(kTyped), asked);
    terminal.type("x\n");
    EXPECT_EQ(terminal.until(kTyped), "x\n" + kNormal + kPrompt + "     Illegal! Try again:  " +
                                          kToLineEnd + kNormal + kTyped);
    terminal.type("99\n");
    EXPECT_NE(terminal.until(kTyped).find("Too large! Try again:"), std::string::npos);
    terminal.type("0\n");
    EXPECT_NE(terminal.until(kTyped).find("Too small! Try again:"), std::string::npos);
    terminal.type("7\n");
    EXPECT_EQ(terminal.rest(), "7\n" + kNormal + "=7 ");
}

TEST(ConsoleTerminal, TheEndOfTheInputEndsOneLineOnly) {
    Terminal terminal([] {
        const double none = CinRealA("a", nullptr);
        const double one = CinRealA("b", nullptr);
        return std::isnan(none) && one == 1.0 ? 0 : 1;
    });
    terminal.until(kTyped);
    terminal.type("\x04");
    terminal.until(kTyped);
    terminal.type("1\n");
    terminal.rest();
    EXPECT_EQ(terminal.wait(), 0);
}

// Prints the codes of keys until "q".
int printKeys() {
    for (std::uint16_t key = 0; key != u'q';) {
        CoutStrA("?");
        key = CinGetKey(0);
        CoutDwordA("<", key, ">", 0, 10);
    }
    return 0;
}

TEST(ConsoleTerminal, TakesKeysWithoutALineAndWithoutEcho) {
    Terminal terminal(printKeys);
    for (const auto& [keys, code] : {std::pair<const char*, const char*>{"a", "97"},
                                     {" ", "32"},
                                     {"\r", "13"},
                                     {"\x7f", "127"},
                                     {"\x1a", "26"},
                                     {"\x04", "4"},
                                     {"\x1b", "27"},
                                     {"\xC3\xA4", "228"},
                                     {"\xE2\x82\xAC", "8364"},
                                     {"\xF0\x9F\x98\x80", "65533"},
                                     {"\xFF", "65533"}}) {
        EXPECT_EQ(terminal.until("?"), "?");
        terminal.press(keys);
        EXPECT_EQ(terminal.until(">"), "<" + std::string(code) + ">");
    }
    EXPECT_EQ(terminal.until("?"), "?");
    // Cursor and function keys stand for no character.
    terminal.press("\x1b[A\x1b[15~\x1bOP\x1b[1;5Cz");
    EXPECT_EQ(terminal.until(">"), "<122>");
    terminal.press("q");
    terminal.rest();
    EXPECT_EQ(terminal.wait(), 0);
}

TEST(ConsoleTerminal, LeavesTheTerminalAsItWas) {
    Terminal terminal([] {
        CinGetKey(0);
        CoutStrA("+");
        CinNewStringA("line");
        return 0;
    });
    terminal.press("k");
    terminal.until("line");
    EXPECT_TRUE(terminal.isInLineMode());
    terminal.type("\n");
    terminal.rest();
}

TEST(ConsoleTerminal, AnInterruptEndsTheProgramWithTheTerminalInOrder) {
    Terminal terminal([] {
        ::signal(SIGINT, SIG_DFL);
        CoutStrA("?");
        return static_cast<int>(CinGetKey(0));
    });
    terminal.until("?");
    terminal.press("\x03");
    EXPECT_EQ(terminal.wait(), -SIGINT);
    EXPECT_TRUE(terminal.isInLineMode());
}

TEST(ConsoleTerminal, ASurvivedInterruptWaitsOn) {
    Terminal terminal([] {
        ::signal(SIGINT, SIG_IGN);
        return printKeys();
    });
    terminal.until("?");
    terminal.press("\x03");
    terminal.press("aq");
    EXPECT_EQ(terminal.rest().substr(0, 4), "<97>");
}

TEST(ConsoleTerminal, KeysTypedAheadAreKept) {
    Terminal terminal([] {
        ::usleep(100000);
        const std::uint16_t key = CinGetKey(0);
        const double value = CinRealA("x:", nullptr);
        const std::uint16_t next = CinGetKey(0);
        Coutf(u"|%c %g %c|", key, value, next);
        return 0;
    });
    terminal.type("k12.5\nn");
    EXPECT_NE(terminal.rest().find("|k 12.5 n|"), std::string::npos);
}

TEST(ConsoleTerminal, LooksAtTheKeyboardWithoutWaiting) {
    Terminal terminal([] {
        if (CinGetKey(1) != 0) return 1;
        CoutStrA("?");
        std::uint16_t key = 0;
        for (int i = 0; i < 1000 && key == 0; ++i) {
            ::usleep(5000);
            key = CinGetKey(1);
        }
        return key == u'k' && CinGetKey(1) == 0 ? 0 : 2;
    });
    terminal.until("?");
    terminal.type("k");
    EXPECT_EQ(terminal.wait(), 0);
}

std::uint32_t doNothing(std::uint32_t, void*, std::uint32_t) {
    return 0;
}
std::uint32_t missInput(std::uint32_t, void*, std::uint32_t) {
    return 14;
}

const ConMenuRow kMenu[] = {{u"\t Main MENU:", nullptr, 8},
                            {u"l Load a data file", doNothing, 1},
                            {u"s Select data", missInput, 2},
                            {nullptr, nullptr, 0}};

TEST(ConsoleTerminal, RunsAMenu) {
    Terminal terminal([] { return static_cast<int>(ConMenu(kMenu, kMenu->word, nullptr)); });
    const std::string dashes = "\n -----------------------------------------------------------";
    const std::string choice = kPrompt + "\n Your choice: " + kNormal + kTyped;
    const std::string anyKey = kPrompt + "\n Hit any key to continue" + kNormal + kTyped;
    const std::string shown = "\x1b[H\x1b[2J" + kTitle + "\n\t Main MENU:" + dashes + kNormal +
                              kPrompt + "\n l" + kNormal + "\t Load a data file" + kPrompt +
                              "\n s" + kNormal + "\t Select data" + kPrompt +
                              "\n other\t terminate" + kNormal + dashes + choice;
    EXPECT_EQ(terminal.until(choice), shown);
    terminal.press("l");
    EXPECT_EQ(terminal.until(anyKey), "l" + kNormal + anyKey);
    terminal.press(" ");
    EXPECT_EQ(terminal.until(choice), " " + kNormal + shown);
    terminal.press("s");
    EXPECT_EQ(terminal.until(anyKey),
              "s" + kNormal + kError + " Error 14: Missing input data\n" + kNormal + anyKey);
    terminal.press("\r");
    EXPECT_EQ(terminal.until(choice), kNormal + shown);
    terminal.press("\t");
    EXPECT_EQ(terminal.until(choice), kNormal + choice) << "the title's key";
    terminal.press("x");
    EXPECT_EQ(terminal.rest(), "x" + kNormal + " other");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST(ConsoleTerminal, ABlankLeavesTheMenuWithABeep) {
    for (const char* key : {" ", "\r", "\x1b"}) {
        Terminal terminal([] { return static_cast<int>(ConMenu(kMenu, 0, nullptr)); });
        terminal.until("choice: " + kNormal + kTyped);
        terminal.press(key);
        EXPECT_EQ(terminal.rest(), (*key == ' ' ? " " : "") + kNormal + "\a") << int{*key};
        EXPECT_EQ(terminal.wait(), 0);
    }
}

// A closed window must not leave a process that asks nobody for ever.
TEST(ConsoleTerminal, AHangUpEndsTheMenu) {
    Terminal terminal([] {
        ::signal(SIGHUP, SIG_IGN);
        ConMenu(kMenu, 0, nullptr);
        return CinGetKey(0) == 26 && CinGetKey(1) == 26 ? 7 : 1;
    });
    terminal.until("choice:");
    terminal.hangUp();
    EXPECT_EQ(terminal.wait(), 7);
}

TEST(ConsoleTerminal, TellsWhereTheCursorIs) {
    Terminal terminal([] {
        std::int32_t x = 0, y = 0;
        const std::uint32_t status = ConGetOrSetCursorLocation(&x, &y, 1);
        CoutfA("|%u %d %d|", status, x, y);
        Coutf(u"%c", CinGetKey(0));
        Coutf(u"%c|", CinGetKey(0));
        return 0;
    });
    terminal.until("\x1b[6n");
    terminal.press("ab\x1b[5;10R");
    EXPECT_EQ(terminal.rest(), "|0 9 4|ab|") << "what was typed before the answer is kept";
}

TEST(ConsoleTerminal, ATerminalMayStaySilent) {
    Terminal terminal([] {
        return static_cast<int>(ConGetOrSetCursorLocation(nullptr, nullptr, 1)) +
               (CinGetKey(0) == u'k' ? 10 : 0);
    });
    terminal.until("\x1b[6n");
    terminal.press("k");
    EXPECT_EQ(terminal.wait(), 15);
    EXPECT_TRUE(terminal.isInLineMode());
}

TEST(ConsoleTerminal, MovesTheCursorAndClears) {
    Terminal terminal([] {
        std::int32_t x = 3, y = 2;
        if (ConGetOrSetCursorLocation(&x, &y, 0) != 0) return 1;
        x = -5;
        y = 99999;
        ConGetOrSetCursorLocation(&x, &y, 0);
        ConClearEndOfLine();
        ConClearEndOfScreen();
        ConClear();
        ConScipio(u"Xs");
        return 0;
    });
    EXPECT_EQ(terminal.rest(), "\x1b[3;4H\x1b[100000;1H\x1b[K\x1b[J\x1b[H\x1b[2J\x1b[H\x1b[2J");
}

TEST(ConsoleTerminal, FillsWhatLiesOnTheScreen) {
    Terminal terminal([] {
        ConClearSection(2, 1, 4, 2, u'#');
        ConClearSectionA(78, 22, INT32_MAX, INT32_MAX, '.');
        ConClearSection(INT32_MIN, INT32_MIN, 1, 0, 0);
        ConClearSection(5, 5, 4, 5, u'x');
        ConClearSection(5, 5, 5, 4, u'x');
        ConClearSectionA(100, 0, 200, 0, 'x');
        return 0;
    });
    const std::string begin =
                          "\x1b"
                          "7",
                      end =
                          "\x1b"
                          "8";
    EXPECT_EQ(terminal.rest(), begin + "\x1b[2;3H###\x1b[3;3H###" + end + begin +
                                   "\x1b[23;79H..\x1b[24;79H.." + end + begin + "\x1b[1;1H  " +
                                   end + begin + end);
}

TEST(ConsoleTerminal, SetsTheTitle) {
    Terminal terminal([] {
        ConScipio(u"T my \u00E4 title");
        ConScipioA("Ta\x1b]0;b\x07\x1b[31m\nc");
        ConScipioA("T");
        return 0;
    });
    EXPECT_EQ(terminal.rest(), "\x1b]0; my \xC3\xA4 title\a\x1b]0;a]0;b[31mc\a\x1b]0;\a");
}

}  // namespace

#endif
