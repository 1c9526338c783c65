#include "nuv64/core/text_search.h"

#include "core/sub_string.h"
#include "core/text.h"

namespace {

using nuv64::isWhite;
using nuv64::kNotFound;
using nuv64::viewOf;
template <class Ch>
using View = std::basic_string_view<Ch>;

// npos and the module's "not found" are the same word.
static_assert(static_cast<uint64_t>(std::string_view::npos) == kNotFound);

constexpr uint32_t kIgnoreCase = 1;
constexpr uint32_t kSkipLeadingWhite = 2;
constexpr uint32_t kTrailingWhiteIsNothing = 4;

template <class Ch>
uint64_t firstNonWhite(View<Ch> text) noexcept {
    for (uint64_t i = 0; i < text.size(); ++i) {
        if (!isWhite(text[i])) return i;
    }
    return kNotFound;
}

template <class Ch>
uint64_t lastNonWhite(View<Ch> text) noexcept {
    for (uint64_t i = text.size(); i-- > 0;) {
        if (!isWhite(text[i])) return i;
    }
    return kNotFound;
}

template <class Ch>
View<Ch> withoutLeadingWhite(View<Ch> text) noexcept {
    return text.substr(std::min<uint64_t>(firstNonWhite(text), text.size()));
}

template <class Ch>
uint64_t charCount(const Ch* text, Ch ch) noexcept {
    const View<Ch> view = viewOf(text);
    return static_cast<uint64_t>(std::count(view.begin(), view.end(), ch));
}

template <class Ch>
uint64_t indexNthItem(const Ch* text, uint64_t n, const Ch* separators) noexcept {
    static constexpr Ch kComma[] = {',', 0};
    if (!text) return kNotFound;
    if (n == 0) return 0;
    const Ch* set = separators && *separators != 0 ? separators : kComma;
    const uint64_t place = View<Ch>(text).find_first_of(set);
    return place == kNotFound ? kNotFound : place + 1;
}

template <class Ch>
bool startsWith(const Ch* text, const Ch* prefix, uint32_t skipWhite) noexcept {
    if (!text) return false;
    if (skipWhite != 0) {
        while (*text != 0 && isWhite(*text)) ++text;
    }
    for (; prefix && *prefix != 0; ++text, ++prefix) {
        if (*text != *prefix) return false;
    }
    return true;
}

template <class Ch>
View<Ch> comparedPart(View<Ch> text, uint32_t options) noexcept {
    if ((options & kSkipLeadingWhite) != 0) text = withoutLeadingWhite(text);
    if ((options & kTrailingWhiteIsNothing) != 0) text = text.substr(0, lastNonWhite(text) + 1);
    return text;
}

template <class Ch>
unsigned comparedCode(Ch ch, bool ignoreCase) noexcept {
    return static_cast<std::make_unsigned_t<Ch>>(ignoreCase ? nuv64::toUpper(ch) : ch);
}

template <class Ch>
int32_t compare(const Ch* a, const Ch* b, uint32_t options, Ch wildcard) noexcept {
    const View<Ch> wholeA = viewOf(a), wholeB = viewOf(b);
    if (wholeA.empty() || wholeB.empty()) return !wholeA.empty() - !wholeB.empty();
    const View<Ch> left = comparedPart(wholeA, options), right = comparedPart(wholeB, options);
    const bool ignoreCase = (options & kIgnoreCase) != 0;
    const uint64_t common = std::min(left.size(), right.size());
    for (uint64_t i = 0; i < common; ++i) {
        if (wildcard != 0 && left[i] == wildcard) continue;
        const unsigned l = comparedCode(left[i], ignoreCase);
        const unsigned r = comparedCode(right[i], ignoreCase);
        if (l != r) return l > r ? 1 : -1;
    }
    return (left.size() > common) - (right.size() > common);
}

template <class Ch>
Ch* locateSubString(const Ch* text, const Ch* sub, uint64_t textLen, uint64_t subLen,
                    uint32_t options, Ch wildcard) noexcept {
    if (!text || !sub || *sub == 0) return const_cast<Ch*>(text);
    const View<Ch> searched = textLen != 0 ? View<Ch>(text, textLen) : View<Ch>(text);
    const View<Ch> pattern = subLen != 0 ? View<Ch>(sub, subLen) : View<Ch>(sub);
    const nuv64::SubString<Ch> wanted(pattern, (options & kIgnoreCase) != 0, wildcard);
    const std::size_t place = wanted.find(searched);
    return place == wanted.npos ? nullptr : const_cast<Ch*>(text + place);
}

}  // namespace

uint64_t StringLen(const char16_t* text) noexcept {
    return viewOf(text).size();
}

uint64_t StringLenA(const char* text) noexcept {
    return viewOf(text).size();
}

uint64_t StringCharCount(const char16_t* text, char16_t ch) noexcept {
    return charCount(text, ch);
}

uint64_t StringCharCountA(const char* text, char ch) noexcept {
    return charCount(text, ch);
}

bool StringIsChrPresent(const char16_t* text, char16_t ch) noexcept {
    return StringIndex1stChr(text, ch) != kNotFound;
}

bool StringIsChrPresentA(const char* text, char ch) noexcept {
    return StringIndex1stChrA(text, ch) != kNotFound;
}

uint64_t StringIndex1stChr(const char16_t* text, char16_t ch) noexcept {
    return viewOf(text).find(ch);
}

uint64_t StringIndex1stChrA(const char* text, char ch) noexcept {
    return viewOf(text).find(ch);
}

uint64_t StringIndexLastChr(const char16_t* text, char16_t ch) noexcept {
    return viewOf(text).rfind(ch);
}

uint64_t StringIndexLastChrA(const char* text, char ch) noexcept {
    return viewOf(text).rfind(ch);
}

uint64_t StringIndex1stOfChars(const char16_t* text, const char16_t* set, ...) noexcept {
    return viewOf(text).find_first_of(viewOf(set));
}

uint64_t StringIndex1stOfCharsA(const char* text, const char* set, ...) noexcept {
    return viewOf(text).find_first_of(viewOf(set));
}

uint64_t StringIndexLastOfChars(const char16_t* text, const char16_t* set, ...) noexcept {
    return viewOf(text).find_last_of(viewOf(set));
}

uint64_t StringIndexLastOfCharsA(const char* text, const char* set, ...) noexcept {
    return viewOf(text).find_last_of(viewOf(set));
}

uint64_t StringIndex1stNonWhite(const char16_t* text) noexcept {
    return firstNonWhite(viewOf(text));
}

uint64_t StringIndex1stNonWhiteA(const char* text) noexcept {
    return firstNonWhite(viewOf(text));
}

uint64_t StringIndexLastNonWhite(const char16_t* text) noexcept {
    return lastNonWhite(viewOf(text));
}

uint64_t StringIndexLastNonWhiteA(const char* text) noexcept {
    return lastNonWhite(viewOf(text));
}

bool StringIsEmpty(const char16_t* text) noexcept {
    return StringIndex1stNonWhite(text) == kNotFound;
}

bool StringIsEmptyA(const char* text) noexcept {
    return StringIndex1stNonWhiteA(text) == kNotFound;
}

uint64_t StringIndexNthItem(const char16_t* text, uint64_t n, const char16_t* separators) noexcept {
    return indexNthItem(text, n, separators);
}

uint64_t StringIndexNthItemA(const char* text, uint64_t n, const char* separators) noexcept {
    return indexNthItem(text, n, separators);
}

bool StringStartsWith(const char16_t* text, const char16_t* prefix, uint32_t skipWhite) noexcept {
    return startsWith(text, prefix, skipWhite);
}

bool StringStartsWithA(const char* text, const char* prefix, uint32_t skipWhite) noexcept {
    return startsWith(text, prefix, skipWhite);
}

bool StringEndsWith(const char16_t* text, const char16_t* suffix) noexcept {
    return text && viewOf(text).ends_with(viewOf(suffix));
}

bool StringEndsWithA(const char* text, const char* suffix) noexcept {
    return text && viewOf(text).ends_with(viewOf(suffix));
}

int32_t StringsCompare(const char16_t* a, const char16_t* b, uint32_t options,
                       char16_t wildcard) noexcept {
    return compare(a, b, options, wildcard);
}

int32_t StringsCompareA(const char* a, const char* b, uint32_t options, char wildcard) noexcept {
    return compare(a, b, options, wildcard);
}

char16_t* StringLocateSubString(const char16_t* text, const char16_t* sub, uint64_t textLen,
                                uint64_t subLen, const uint64_t*) noexcept {
    return locateSubString<char16_t>(text, sub, textLen, subLen, 0, 0);
}

char* StringLocateSubStringA(const char* text, const char* sub, uint64_t textLen, uint64_t subLen,
                             const uint64_t*) noexcept {
    return locateSubString<char>(text, sub, textLen, subLen, 0, 0);
}

char16_t* StringLocateSubStringEx(const char16_t* text, const char16_t* sub, uint64_t textLen,
                                  uint64_t subLen, uint32_t options, char16_t wildcard,
                                  const uint64_t*) noexcept {
    return locateSubString(text, sub, textLen, subLen, options, wildcard);
}

char* StringLocateSubStringExA(const char* text, const char* sub, uint64_t textLen, uint64_t subLen,
                               uint32_t options, char wildcard, const uint64_t*) noexcept {
    return locateSubString(text, sub, textLen, subLen, options, wildcard);
}
