// Grooming, escapes and the other changes of a text in place, on blocks with room for exactly the
// text. The first two bytes are the mode.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"
#include "nuv64/core/text_edit.h"
#include "nuv64/core/text_search.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

template <class Ch>
std::vector<Ch> block(std::basic_string_view<Ch> text) {
    std::vector<Ch> copy(text.begin(), text.end());
    copy.push_back(0);
    copy.shrink_to_fit();
    return copy;
}

std::u16string widened(std::string_view text) {
    std::u16string wide;
    for (const char c : text) wide += nuv64::widen(c);
    return wide;
}

void groom(const std::string& text, std::uint32_t mode) {
    std::vector<char> narrow = block<char>(text);
    require(StringGroomA(narrow.data(), mode) == narrow.data());
    const std::string groomed(narrow.data());
    require(groomed.size() <= text.size());
    if (!(mode & 1)) {
        std::vector<char16_t> wide = block<char16_t>(widened(text));
        StringGroom(wide.data(), mode);
        require(wide.data() == widened(groomed));
    }
    // What is groomed stays as it is.
    StringGroomA(narrow.data(), mode);
    require(groomed == narrow.data());
    if (!(mode & 0x8004) && !groomed.empty()) require(!nuv64::isWhite(groomed.back()));
}

void restore(const std::string& text) {
    std::vector<char> narrow = block<char>(text);
    std::vector<char16_t> wide = block<char16_t>(widened(text));
    require(StringRestoreEscapesA(narrow.data()) == narrow.data());
    require(StringRestoreEscapes(wide.data()) == wide.data());
    require(std::strlen(narrow.data()) <= text.size());
    if (text.find('\\') == text.npos) require(text == narrow.data());
}

void cutAndDelete(const std::string& text, std::size_t at) {
    const std::string marker = text.substr(at, 2);
    std::vector<char> narrow = block<char>(text);
    StringCutoffCommentsA(narrow.data(), marker.c_str(), 0);
    require(marker.empty() ||
            StringLocateSubStringA(narrow.data(), marker.c_str(), 0, 0, nullptr) == nullptr);
    narrow = block<char>(text);
    const bool deleted = StringDeleteSubStringA(narrow.data(), marker.c_str());
    require(std::strlen(narrow.data()) == text.size() - (deleted ? marker.size() : 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string text = std::string(reinterpret_cast<const char*>(data) + 2, size - 2).c_str();
    const std::uint32_t mode = data[0] | data[1] << 8;
    groom(text, mode);
    restore(text);
    if (!text.empty()) cutAndDelete(text, mode % text.size());
    return 0;
}
