#include "nuv64/core/string_list.h"

#include <string_view>

#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/core/text_copy.h"
#include "nuv64/core/text_edit.h"
#include "nuv64/core/text_search.h"

namespace nuv64 {
namespace {

bool deleteSubString(char16_t* text, const char16_t* sub) {
    return StringDeleteSubString(text, sub);
}
bool deleteSubString(char* text, const char* sub) {
    return StringDeleteSubStringA(text, sub);
}

char16_t* groom(char16_t* text, uint32_t mode) {
    return StringGroom(text, mode);
}
char* groom(char* text, uint32_t mode) {
    return StringGroomA(text, mode);
}

bool equal(const char16_t* a, const char16_t* b, uint32_t options) {
    return StringsCompare(a, b, options, 0) == 0;
}
bool equal(const char* a, const char* b, uint32_t options) {
    return StringsCompareA(a, b, options, 0) == 0;
}

char16_t* append(char16_t** text, const char16_t* more) {
    return StringAppend(text, more);
}
char* append(char** text, const char* more) {
    return StringAppendA(text, more);
}

template <class Ch>
using View = std::basic_string_view<Ch>;

template <class Ch>
View<Ch> viewOf(const Ch* text) {
    return text ? View<Ch>(text) : View<Ch>();
}

// head, the separator (unless it is 0), tail: as one new text.
template <class Ch>
Owned<Ch> join(View<Ch> head, Ch separator, View<Ch> tail) {
    const std::uint64_t between = separator != 0 ? 1 : 0;
    Owned<Ch> text = allocate<Ch>(head.size() + between + tail.size() + 1);
    head.copy(text.get(), head.size());
    if (between) text[head.size()] = separator;
    tail.copy(text.get() + head.size() + between, tail.size());
    text[head.size() + between + tail.size()] = 0;
    return text;
}

template <class Ch>
Ch* addItem(Ch** list, const Ch* item, Ch separator) {
    if (!list) return nullptr;
    Owned<Ch> text = join(viewOf<Ch>(*list), separator, viewOf(item));
    Owned<Ch> old(*list);
    return *list = text.release();
}

template <class Ch>
bool deleteItem(Ch* list, const Ch* item, Ch separator) {
    if (!list) return false;
    return deleteSubString(list, join(viewOf(item), separator, View<Ch>()).get());
}

template <class Ch>
Ch* parseItem(Ch** item, Ch** cursor, Ch separator, uint32_t groomFlags) {
    if (!item || !cursor) return nullptr;
    *item = *cursor;
    if (!*cursor) return nullptr;
    Ch* at = *cursor;
    while (*at != 0 && *at != separator) ++at;
    if (*at != 0) *at++ = 0;
    *cursor = at;
    return groom(*item, groomFlags);
}

template <class Ch>
uint64_t findItem(const Ch* item, const Ch* list, Ch separator, uint32_t ignoreCase,
                  uint32_t groomFlags) {
    const View<Ch> whole = viewOf(list);
    const View<Ch> wanted = viewOf(item);
    Owned<Ch> copy = copyText(whole.data(), whole.size());
    Ch* cursor = copy.get();
    for (uint64_t place = 1;; ++place) {
        Ch* parsed = nullptr;
        parseItem(&parsed, &cursor, separator, groomFlags);
        if (wanted.empty()) {
            if (*parsed == 0) return place;
            continue;
        }
        if (*parsed == 0 && *cursor == 0) return 0;
        if (equal(parsed, item, ignoreCase ? 1 : 0)) return place;
    }
}

// The item of list that begins with key and delimiter, with its separator; empty when there is
// none.
template <class Ch>
View<Ch> itemOfKey(View<Ch> key, View<Ch> list, Ch delimiter, Ch separator) {
    for (std::size_t at = 0; at < list.size(); ++at) {
        if (at != 0 && list[at - 1] != separator) continue;
        if (!list.substr(at).starts_with(key)) continue;
        const std::size_t behind = at + key.size();
        if ((behind < list.size() ? list[behind] : Ch(0)) != delimiter) continue;
        const std::size_t end = list.find(separator, at);
        return list.substr(at, end == list.npos ? end : end - at + 1);
    }
    return {};
}

template <class Ch>
Ch* appendItem(Ch** dest, const Ch* key, const Ch* list, Ch delimiter, Ch separator) {
    if (!dest) return nullptr;
    if (!key || !list) return *dest;
    const View<Ch> found = itemOfKey(viewOf(key), viewOf(list), delimiter, separator);
    if (found.empty()) return *dest;
    append(dest, copyText(found.data(), found.size()).get());
    return *dest;
}

}  // namespace
}  // namespace nuv64

char16_t* StringsListAddItem(char16_t** list, const char16_t* item, char16_t separator) noexcept {
    return nuv64::guardValue<char16_t*>(nullptr,
                                        [&] { return nuv64::addItem(list, item, separator); });
}

char* StringsListAddItemA(char** list, const char* item, char separator) noexcept {
    return nuv64::guardValue<char*>(nullptr, [&] { return nuv64::addItem(list, item, separator); });
}

bool StringsListDeleteItem(char16_t* list, const char16_t* item, char16_t separator) noexcept {
    return nuv64::guardValue(false, [&] { return nuv64::deleteItem(list, item, separator); });
}

bool StringsListDeleteItemA(char* list, const char* item, char separator) noexcept {
    return nuv64::guardValue(false, [&] { return nuv64::deleteItem(list, item, separator); });
}

char16_t* StringsListParseItem(char16_t** item, char16_t** cursor, char16_t separator,
                               uint32_t groomFlags) noexcept {
    return nuv64::parseItem(item, cursor, separator, groomFlags);
}

char* StringsListParseItemA(char** item, char** cursor, char separator,
                            uint32_t groomFlags) noexcept {
    return nuv64::parseItem(item, cursor, separator, groomFlags);
}

uint64_t StringsListFindItem(const char16_t* item, const char16_t* list, char16_t separator,
                             uint32_t ignoreCase, uint32_t groomFlags) noexcept {
    return nuv64::guardValue<uint64_t>(
        0, [&] { return nuv64::findItem(item, list, separator, ignoreCase, groomFlags); });
}

uint64_t StringsListFindItemA(const char* item, const char* list, char separator,
                              uint32_t ignoreCase, uint32_t groomFlags) noexcept {
    return nuv64::guardValue<uint64_t>(
        0, [&] { return nuv64::findItem(item, list, separator, ignoreCase, groomFlags); });
}

char16_t* AppendItemFromList(char16_t** dest, const char16_t* key, char16_t* list,
                             char16_t delimiter, char16_t separator) noexcept {
    return nuv64::guardValue<char16_t*>(dest ? *dest : nullptr, [&] {
        return nuv64::appendItem<char16_t>(dest, key, list, delimiter, separator);
    });
}

char* AppendItemFromListA(char** dest, const char* key, char* list, char delimiter,
                          char separator) noexcept {
    return nuv64::guardValue<char*>(dest ? *dest : nullptr, [&] {
        return nuv64::appendItem<char>(dest, key, list, delimiter, separator);
    });
}
