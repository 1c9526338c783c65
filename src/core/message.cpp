// Messages to the user: OsMessage in a box where the system has boxes, on the console otherwise.
#include "nuv64/core/system.h"

#include <array>
#include <cstdarg>
#include <string>

#include "core/console_host.h"
#include "core/formatter.h"
#include "core/guard.h"
#include "core/owned.h"
#include "core/system_text.h"
#include "platform/platform.h"

namespace nuv64 {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr std::uint32_t kFailedBox = 0xFFFFFFFF;
constexpr std::uint32_t kHostName = 9;  // kind of OsStringNewCopy

struct MessageKind {
    Buttons buttons;
    Icon icon;
    const char16_t* choices;  // as asked on the console; null where nothing is asked
};

constexpr std::array kKinds = {
    MessageKind{Buttons::kOk, Icon::kInformation, nullptr},
    MessageKind{Buttons::kOk, Icon::kError, nullptr},
    MessageKind{Buttons::kOk, Icon::kWarning, nullptr},
    MessageKind{Buttons::kYesNo, Icon::kQuestion, u"(y)es, (n)o: "},
    MessageKind{Buttons::kOkCancel, Icon::kQuestion, u"(o)k, (c)ancel: "},
    MessageKind{Buttons::kYesNoCancel, Icon::kQuestion, u"(y)es, (n)o, (c)ancel: "},
    MessageKind{Buttons::kRetryCancel, Icon::kWarning, u"(r)etry, (c)ancel: "},
};

std::uint32_t resultOf(Answer answer, Buttons buttons) noexcept {
    switch (answer) {
        case Answer::kYes:
            return 1;
        case Answer::kNo:
            return 0;
        case Answer::kCancel:
            return buttons == Buttons::kYesNoCancel ? 2 : 0;
        case Answer::kFailed:
            break;
    }
    return kFailedBox;
}

// The choice whose letter the line starts with, or kFailed for a line that names none.
Answer answerInLine(const std::u16string& line, std::u16string_view choices) noexcept {
    const std::size_t first = line.find_first_not_of(u" \t");
    if (first == line.npos) return Answer::kFailed;
    const char16_t letter = line[first] | 0x20;  // lower case
    const char16_t marked[] = {u'(', letter, u')', 0};
    if (choices.find(marked) == choices.npos) return Answer::kFailed;
    if (letter == u'n') return Answer::kNo;
    return letter == u'c' ? Answer::kCancel : Answer::kYes;
}

Answer askConsole(const char16_t* choices) {
    for (;;) {
        platform::writeStandardError(choices);
        std::u16string line;
        if (!platform::readInputLine(line)) return Answer::kFailed;
        const Answer answer = answerInLine(line, choices);
        if (answer != Answer::kFailed) return answer;
    }
}

Answer showOnConsole(const MessageKind& kind, const std::u16string& text,
                     const std::u16string& title) {
    const bool newLine = text.empty() || text.back() != u'\n';
    platform::writeStandardError(title + u": " + text + (newLine ? u"\n" : u""));
    if (!consoleMayAsk()) return Answer::kFailed;
    return kind.choices ? askConsole(kind.choices) : Answer::kYes;
}

std::u16string titleText(const char16_t* title) {
    if (title) return title;
    const Owned<char16_t> name(OsStringNewCopy(kHostName));
    return name ? name.get() : u"";
}

template <class Ch>
std::uint32_t showMessage(std::uint32_t kind, const Ch* text, const Ch* title) noexcept {
    return guardValue(kFailedBox, [&] {
        const SystemText message(text);
        const std::u16string body = message.get() ? message.get() : u"";
        const std::u16string heading = titleText(SystemText(title).get());
        const MessageKind& shown = kKinds[kind < kKinds.size() ? kind : 0];
        Answer answer = Answer::kFailed;
        if (platform::hasUserInterface())
            answer = platform::messageBox(body.c_str(), heading.c_str(), shown.buttons, shown.icon);
        if (answer == Answer::kFailed) answer = showOnConsole(shown, body, heading);
        return resultOf(answer, shown.buttons);
    });
}

template <class Ch>
std::uint32_t showFormatted(std::uint32_t kind, const Ch* format, va_list arguments) noexcept {
    return guardValue(kFailedBox, [&] {
        const std::basic_string<Ch> text =
            format ? formatToString(format, arguments) : std::basic_string<Ch>();
        return showMessage<Ch>(kind, text.c_str(), nullptr);
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint32_t OsMessage(uint32_t kind, const char16_t* text, const char16_t* title) noexcept {
    return showMessage(kind, text, title);
}

uint32_t OsMessageA(uint32_t kind, const char* text, const char* title) noexcept {
    return showMessage(kind, text, title);
}

uint32_t OsMessagef(uint32_t kind, const char16_t* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    const uint32_t answer = showFormatted(kind, format, arguments);
    va_end(arguments);
    return answer;
}

uint32_t OsMessagefA(uint32_t kind, const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    const uint32_t answer = showFormatted(kind, format, arguments);
    va_end(arguments);
    return answer;
}
