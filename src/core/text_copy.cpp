#include "nuv64/core/text_copy.h"

#include <cstdarg>
#include <string>

#include "core/guard.h"
#include "core/text.h"

namespace {

using nuv64::Owned;
using nuv64::viewOf;
template <class Ch>
using View = std::basic_string_view<Ch>;

template <class Ch>
Ch* newCopy(const Ch* text, uint64_t first, uint64_t last) noexcept {
    const uint64_t end = last == UINT64_MAX ? last : last + 1;
    return nuv64::tryCopy(nuv64::piece(viewOf(text), first, end)).release();
}

template <class Ch>
Ch* newCopyWithRoom(const Ch* text, uint64_t extra) noexcept {
    const View<Ch> source = viewOf(text);
    if (extra >= PTRDIFF_MAX - source.size()) return nullptr;
    Owned<Ch> copy = nuv64::tryAllocate<Ch>(source.size() + extra + 1);
    if (copy) nuv64::copyToBuffer(source, copy.get(), source.size() + 1);
    return copy.release();
}

// A section that the callers name by its limits; false where there is none.
template <class Ch>
bool findSection(const Ch* text, uint64_t first, uint64_t end, View<Ch>* section) noexcept {
    if (first >= UINT64_MAX - 1) first = 0;
    if (!text || end < first) return false;
    *section = nuv64::piece(viewOf(text), first, end);
    return true;
}

template <class Ch>
Ch* newCopySection(const Ch* text, uint64_t first, uint64_t end) noexcept {
    View<Ch> section;
    if (!findSection(text, first, end, &section)) return nullptr;
    return nuv64::tryCopy(section).release();
}

template <class Ch>
Ch* newCopyItem(const Ch* text, uint64_t n, Ch separator) noexcept {
    if (!text) return nullptr;
    View<Ch> rest(text);
    for (; n != 0; --n) {
        const std::size_t place = rest.find(separator);
        if (place == rest.npos) return nullptr;
        rest.remove_prefix(place + 1);
    }
    return nuv64::tryCopy(rest.substr(0, rest.find(separator))).release();
}

// The texts behind a variable argument list, joined.
template <class Ch>
Ch* newConcat(uint64_t count, va_list texts) noexcept {
    return nuv64::guardValue<Ch*>(nullptr, [&] {
        std::basic_string<Ch> all;
        for (; count != 0; --count) all += viewOf(va_arg(texts, const Ch*));
        return nuv64::copyText(all.data(), all.size()).release();
    });
}

template <class Ch>
Ch* append(Ch** text, const Ch* more) noexcept {
    return text ? nuv64::appendText(text, viewOf(more)) : nullptr;
}

template <class Ch>
Ch* replace(Ch** text, const Ch* newText) noexcept {
    if (!text) return nullptr;
    Owned<Ch> copy = nuv64::tryCopy(viewOf(newText));
    if (!copy) return nullptr;
    std::free(*text);
    return *text = copy.release();
}

// Into the other width by convert; room counts characters without the terminator.
template <class To, class From>
uint64_t convertToBuffer(const From* text, To* buffer, uint64_t room,
                         To (*convert)(From) noexcept) noexcept {
    if (!buffer) return 0;
    uint64_t count = 0;
    for (; text && count < room && text[count] != 0; ++count) buffer[count] = convert(text[count]);
    buffer[count] = 0;
    return count;
}

template <class To, class From>
To* newConverted(const From* text, To (*convert)(From) noexcept) noexcept {
    if (!text) return nullptr;
    const uint64_t length = viewOf(text).size();
    Owned<To> copy = nuv64::tryAllocate<To>(length + 1);
    if (copy) convertToBuffer(text, copy.get(), length, convert);
    return copy.release();
}

template <class Ch>
uint64_t sectionToBuffer(const Ch* text, uint64_t first, uint64_t end, Ch* buffer,
                         uint64_t capacity) noexcept {
    View<Ch> section;
    findSection(text, first, end, &section);
    return nuv64::copyToBuffer(section, buffer, capacity);
}

}  // namespace

char16_t* NewCopyString(const char16_t* text, uint64_t first, uint64_t last) noexcept {
    return newCopy(text, first, last);
}

char* NewCopyStringA(const char* text, uint64_t first, uint64_t last) noexcept {
    return newCopy(text, first, last);
}

char16_t* NewCopyStringEx(const char16_t* text, uint64_t extra) noexcept {
    return newCopyWithRoom(text, extra);
}

char* NewCopyStringExA(const char* text, uint64_t extra) noexcept {
    return newCopyWithRoom(text, extra);
}

char16_t* NewCopyStringSection(const char16_t* text, uint64_t first, uint64_t end) noexcept {
    return newCopySection(text, first, end);
}

char* NewCopyStringSectionA(const char* text, uint64_t first, uint64_t end) noexcept {
    return newCopySection(text, first, end);
}

char16_t* NewCopyStringItem(const char16_t* text, uint64_t n, char16_t separator) noexcept {
    return newCopyItem(text, n, separator);
}

char* NewCopyStringItemA(const char* text, uint64_t n, char separator) noexcept {
    return newCopyItem(text, n, separator);
}

char16_t* NewCopyStringAW(const char* text) noexcept {
    return newConverted(text, nuv64::widen);
}

char* NewCopyStringWA(const char16_t* text) noexcept {
    return newConverted(text, nuv64::narrow);
}

char16_t* NewStringsConcat(uint64_t count, ...) noexcept {
    va_list texts;
    va_start(texts, count);
    char16_t* all = newConcat<char16_t>(count, texts);
    va_end(texts);
    return all;
}

char* NewStringsConcatA(uint64_t count, ...) noexcept {
    va_list texts;
    va_start(texts, count);
    char* all = newConcat<char>(count, texts);
    va_end(texts);
    return all;
}

char16_t* StringAppend(char16_t** text, const char16_t* more) noexcept {
    return append(text, more);
}

char* StringAppendA(char** text, const char* more) noexcept {
    return append(text, more);
}

char16_t* StringReplace(char16_t** text, const char16_t* newText) noexcept {
    return replace(text, newText);
}

char* StringReplaceA(char** text, const char* newText) noexcept {
    return replace(text, newText);
}

uint64_t StringToBuffer(const char16_t* text, char16_t* buffer, uint64_t capacity) noexcept {
    return nuv64::copyToBuffer(viewOf(text), buffer, capacity);
}

uint64_t StringToBufferA(const char* text, char* buffer, uint64_t capacity) noexcept {
    return nuv64::copyToBuffer(viewOf(text), buffer, capacity);
}

uint64_t StringToBufferAW(const char* text, char16_t* buffer, uint64_t capacity) noexcept {
    return capacity == 0 ? 0 : convertToBuffer(text, buffer, capacity - 1, nuv64::widen);
}

uint64_t StringToBufferWA(const char16_t* text, char* buffer, uint64_t capacity) noexcept {
    return convertToBuffer(text, buffer, capacity, nuv64::narrow);
}

uint64_t StringSectionToBuffer(const char16_t* text, uint64_t first, uint64_t end, char16_t* buffer,
                               uint64_t capacity) noexcept {
    return sectionToBuffer(text, first, end, buffer, capacity);
}

uint64_t StringSectionToBufferA(const char* text, uint64_t first, uint64_t end, char* buffer,
                                uint64_t capacity) noexcept {
    return sectionToBuffer(text, first, end, buffer, capacity);
}
