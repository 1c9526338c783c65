// The streams of the console. A redirected input is read through the stream of the C runtime, which
// the host program may be reading too; a terminal byte by byte, as keys and lines take turns there
// and neither may run ahead of the other.
#include "platform/console.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/posix/native.h"
#include "platform/posix/terminal.h"
#include "platform/typed_character.h"

namespace nuv64::platform {

namespace {

constexpr int kEscape = 27;
constexpr std::uint16_t kEnter = 13;

// The next byte of the stream; EOF at its end, and then the stream may be asked again, as a user
// goes on typing behind an end of file.
int nextStreamByte() noexcept {
    for (;;) {
        errno = 0;
        const int c = std::getc(stdin);
        if (c != EOF) return c;
        const bool interrupted = std::ferror(stdin) && errno == EINTR;
        std::clearerr(stdin);
        if (!interrupted) return EOF;
    }
}

int nextTerminalByte() noexcept {
    unsigned char byte = 0;
    return retried([&] { return ::read(STDIN_FILENO, &byte, 1); }) == 1 ? byte : EOF;
}

int nextByte() noexcept {
    const int early = takeTypedAhead();
    if (early != EOF) return early;
    return inputIsTerminal() ? nextTerminalByte() : nextStreamByte();
}

// A byte that is there already, or EOF.
int nextByteAtOnce() noexcept {
    const int early = takeTypedAhead();
    if (early != EOF) return early;
    const int flags = ::fcntl(STDIN_FILENO, F_GETFL);
    if (flags == -1) return EOF;
    ::fcntl(STDIN_FILENO, F_SETFL, flags | O_NONBLOCK);
    const int c = nextStreamByte();
    const int error = errno;
    ::fcntl(STDIN_FILENO, F_SETFL, flags);
    errno = error;
    return c;
}

void keepByte(int c) {
    keepTypedAhead(std::string(1, static_cast<char>(c)));
}

std::uint16_t streamKey(bool wait) {
    int c = wait ? nextByte() : nextByteAtOnce();
    while (wait && c == 0) c = nextByte();
    if (c == EOF) return !wait && errno == EAGAIN ? std::uint16_t{0} : kEndOfInput;
    return characterFrom(c, nextByte, keepByte);
}

// The sequence of a cursor or function key behind its escape; false for the escape key itself.
bool skipKeySequence(const KeyMode& keys) {
    const int kind = keys.nextSoon();
    if (kind == EOF) return false;
    if (kind != '[' && kind != 'O') {
        keepByte(kind);
        return false;
    }
    for (int c = keys.nextSoon(); c != EOF && (c < 0x40 || c > 0x7E);) c = keys.nextSoon();
    return true;
}

std::uint16_t terminalKey(bool wait) {
    for (;;) {
        KeyMode keys;
        const KeyMode::Byte byte = wait ? keys.next() : keys.nextAtOnce();
        if (byte.ended) return kEndOfInput;
        if (byte.value == EOF) return 0;
        if (const int number = keys.signalOf(byte.value); number != 0) {
            keys.restore();
            ::kill(0, number);  // to the process group, as the terminal would have sent it
            continue;
        }
        if (byte.value == '\n') return kEnter;
        if (byte.value == kEscape && skipKeySequence(keys)) continue;
        if (byte.value == 0) continue;
        return characterFrom(
            byte.value, [&] { return keys.nextSoon(); }, keepByte);
    }
}

void writeStream(std::FILE* stream, std::string_view bytes) noexcept {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::fflush(stream);
}

}  // namespace

bool inputIsTerminal() noexcept {
    return ::isatty(STDIN_FILENO) == 1;
}

bool outputIsTerminal() noexcept {
    if (::isatty(STDOUT_FILENO) != 1) return false;
    const char* kind = std::getenv("TERM");
    return !kind || std::strcmp(kind, "dumb") != 0;
}

void writeStandardOutput(std::string_view text) {
    writeStream(stdout, text);
}

void writeStandardOutput(std::u16string_view text) {
    writeStream(stdout, utf8FromWide(text));
}

void writeStandardError(std::u16string_view text) {
    const std::string bytes = utf8FromWide(text);
    writeFile(STDERR_FILENO, bytes.data(), bytes.size());
}

bool readInputLine(std::string& line, std::size_t limit) {
    line.clear();
    int c = nextByte();
    if (c == EOF) return false;
    for (; c != EOF && c != '\n'; c = nextByte())
        if (line.size() < limit) line += static_cast<char>(c);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

bool readInputLine(std::u16string& line, std::size_t limit) {
    // No character takes more than three bytes; those behind are for one that the limit cuts.
    std::string bytes;
    if (!readInputLine(bytes, limit > kNoLimit / 4 ? kNoLimit : 3 * limit + 3)) return false;
    line = wideFromUtf8(bytes);
    if (line.size() > limit) line.resize(limit);
    if (!line.empty() && (line.back() & 0xFC00) == 0xD800) line.pop_back();
    return true;
}

std::uint16_t readKey(bool wait) noexcept {
    try {
        return inputIsTerminal() ? terminalKey(wait) : streamKey(wait);
    } catch (const std::bad_alloc&) {
        return kEndOfInput;
    }
}

bool beep(std::uint32_t, std::uint32_t) noexcept {
    return ::isatty(STDERR_FILENO) == 1 && writeFile(STDERR_FILENO, "\a", 1);
}

std::int32_t runCommandText(std::u16string_view text) {
    std::fflush(stdout);
    const int result = std::system(utf8FromWide(text).c_str());
    if (result == -1) return -1;
    return WIFEXITED(result) ? WEXITSTATUS(result) : 128 + WTERMSIG(result);
}

}  // namespace nuv64::platform
