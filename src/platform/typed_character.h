// A character of UTF-8 that comes byte by byte, the same on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/platform.h"

namespace nuv64::platform {

// The 16-bit code of the character that starts with lead, U+FFFD for one that has none. next()
// gives the bytes behind it or EOF; keep(byte) takes back one that belongs to the next character.
template <class Next, class Keep>
std::uint16_t characterFrom(int lead, Next next, Keep keep) {
    std::string bytes(1, static_cast<char>(lead));
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    while (bytes.size() < length) {
        const int c = next();
        if (c == EOF) break;
        if ((c & 0xC0) != 0x80) {
            keep(c);
            break;
        }
        bytes += static_cast<char>(c);
    }
    const std::u16string text = wideFromUtf8(bytes);
    return text.size() == 1 ? text[0] : std::uint16_t{0xFFFD};
}

}  // namespace nuv64::platform
