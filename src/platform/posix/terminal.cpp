#include "platform/posix/terminal.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

constexpr int kKeyMilliseconds = 100;
constexpr int kReplyMilliseconds = 1000;

std::string& typedAhead() noexcept {
    static std::string bytes;
    return bytes;
}

KeyMode::Byte readByte() noexcept {
    unsigned char byte = 0;
    const ssize_t got = retried([&] { return ::read(STDIN_FILENO, &byte, 1); });
    if (got == 1) return {byte, false};
    return {EOF, true};
}

KeyMode::Byte readByteWithin(int milliseconds) noexcept {
    const int early = takeTypedAhead();
    if (early != EOF) return {early, false};
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (retried([&] { return ::poll(&input, 1, milliseconds); }) <= 0) return {EOF, false};
    return readByte();
}

}  // namespace

int takeTypedAhead() noexcept {
    std::string& bytes = typedAhead();
    if (bytes.empty()) return EOF;
    const int first = static_cast<unsigned char>(bytes.front());
    bytes.erase(0, 1);
    return first;
}

void keepTypedAhead(std::string_view bytes) {
    typedAhead().append(bytes);
}

KeyMode::KeyMode() noexcept {
    if (::tcgetattr(STDIN_FILENO, &before_) != 0) return;
    termios mode = before_;
    mode.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG | IEXTEN);
    mode.c_cc[VMIN] = 1;
    mode.c_cc[VTIME] = 0;
    changed_ = ::tcsetattr(STDIN_FILENO, TCSANOW, &mode) == 0;
}

void KeyMode::restore() noexcept {
    if (changed_) ::tcsetattr(STDIN_FILENO, TCSANOW, &before_);
    changed_ = false;
}

KeyMode::Byte KeyMode::next() const noexcept {
    const int early = takeTypedAhead();
    return early != EOF ? Byte{early, false} : readByte();
}

KeyMode::Byte KeyMode::nextAtOnce() const noexcept {
    return readByteWithin(0);
}

int KeyMode::nextSoon() const noexcept {
    return readByteWithin(kKeyMilliseconds).value;
}

int KeyMode::nextOfReply() const noexcept {
    return readByteWithin(kReplyMilliseconds).value;
}

int KeyMode::signalOf(int byte) const noexcept {
    if (!changed_ || (before_.c_lflag & ISIG) == 0) return 0;
    if (byte == before_.c_cc[VINTR]) return SIGINT;
    return byte == before_.c_cc[VQUIT] ? SIGQUIT : 0;
}

}  // namespace nuv64::platform
