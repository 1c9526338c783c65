// What the console functions share: text, colours and typed lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/text.h"
#include "platform/console.h"

namespace nuv64 {

// Colours by their use; the numbers are those of ConSetTextColorID.
enum class TextColor : std::uint32_t {
    kNormal = 0,
    kError = 1,
    kPrompt = 4,
    kTitle = 5,
    kTyped = 5
};

void setTextColor(std::uint32_t id) noexcept;
inline void setTextColor(TextColor color) noexcept {
    setTextColor(static_cast<std::uint32_t>(color));
}

// A colour for the text of one block, and back to normal behind it.
class ColoredText {
  public:
    explicit ColoredText(TextColor color) noexcept { setTextColor(color); }
    ~ColoredText() { setTextColor(TextColor::kNormal); }
    ColoredText(const ColoredText&) = delete;
    ColoredText& operator=(const ColoredText&) = delete;
};

// Prints one text. Throws std::bad_alloc, as all here.
inline void print(std::string_view text) {
    if (!text.empty()) platform::writeStandardOutput(text);
}
inline void print(std::u16string_view text) {
    if (!text.empty()) platform::writeStandardOutput(text);
}

// A text of either width with plain ASCII in it.
template <class Ch>
std::basic_string<Ch> joined(const Ch* prefix, std::string_view ascii, const Ch* suffix) {
    std::basic_string<Ch> text(viewOf(prefix));
    text.append(ascii.begin(), ascii.end());
    return text.append(viewOf(suffix));
}

template <class Ch>
void printJoined(const Ch* prefix, std::string_view ascii, const Ch* suffix) {
    print(std::basic_string_view<Ch>(joined(prefix, ascii, suffix)));
}

// The prompt and one line, at most limit characters of it. False at the end of the input.
template <class Ch>
bool readTypedLine(const Ch* prompt, std::basic_string<Ch>& line, std::size_t limit) {
    {
        const ColoredText color(TextColor::kPrompt);
        std::basic_string<Ch> text = joined<Ch>(nullptr, " ", prompt);
        print(std::basic_string_view<Ch>(text += ' '));
        platform::clearToLineEnd();
    }
    const ColoredText color(TextColor::kTyped);
    return platform::readInputLine(line, limit);
}

// The line behind a prompt that the typed inputs read their values from, without grooming.
inline constexpr std::size_t kTypedLineSize = 1024;  // with the terminator
template <class Ch>
bool readTypedLine(const Ch* prompt, std::basic_string<Ch>& line) {
    return readTypedLine(prompt, line, kTypedLineSize - 1);
}

// Prints a prompt of either width, unless it is null, waits for a key and shows it.
std::uint16_t askForKey(const char16_t* prompt, bool wait);
std::uint16_t askForKey(const char* prompt, bool wait);

// "\n Hit any key to continue" and a key.
void waitForAnyKey();

// A failed call in words, in the colour of errors.
void printError(std::uint32_t status);

}  // namespace nuv64
