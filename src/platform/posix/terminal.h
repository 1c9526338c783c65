// The terminal as a keyboard: bytes as they are typed, without echo.
#pragma once

#include <termios.h>

#include <string>
#include <string_view>

namespace nuv64::platform {

// Bytes that were typed while the terminal was asked for something else. They come first.
int takeTypedAhead() noexcept;  // EOF when there are none
void keepTypedAhead(std::string_view bytes);

// While it lives, standard input, which must be a terminal, gives single bytes. The keys that end
// or stop a program arrive as bytes too, so that the terminal is never left in this state by them.
// Bytes are taken from the system one by one: what is typed ahead of a line stays for its reader.
class KeyMode {
  public:
    struct Byte {
        int value;   // EOF when there is none
        bool ended;  // and none will come
    };

    KeyMode() noexcept;
    ~KeyMode() { restore(); }
    KeyMode(const KeyMode&) = delete;
    KeyMode& operator=(const KeyMode&) = delete;
    void restore() noexcept;

    Byte next() const noexcept;
    Byte nextAtOnce() const noexcept;
    // Within a tenth of a second, as the bytes behind the first one of a key come.
    int nextSoon() const noexcept;
    // The reply to a question to the terminal, within a second.
    int nextOfReply() const noexcept;
    // What the byte does to the process when lines are read, or 0.
    int signalOf(int byte) const noexcept;

  private:
    termios before_{};
    bool changed_ = false;
};

}  // namespace nuv64::platform
