// Taking path texts apart, in either character width. Paths are written with backslashes on every
// system; where the system's own separator is "/" that counts beside the backslash.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/platform.h"

namespace nuv64 {

template <class Ch>
constexpr bool isSeparator(Ch c) noexcept {
    return c == Ch('\\') || (platform::kSlashSeparates && c == Ch('/'));
}

// The index behind the last ":" or separator; 0 when there is none.
template <class Ch>
constexpr std::size_t cleanNameOffset(std::basic_string_view<Ch> path) noexcept {
    std::size_t i = path.size();
    while (i > 0 && path[i - 1] != Ch(':') && !isSeparator(path[i - 1])) --i;
    return i;
}

// The index of the dot before the extension of the path's last name, or npos. A dot in a folder's
// name cuts nothing.
template <class Ch>
constexpr std::size_t extensionDot(std::basic_string_view<Ch> path) noexcept {
    const std::size_t dot = path.rfind(Ch('.'));
    return dot == path.npos || dot < cleanNameOffset(path) ? path.npos : dot;
}

}  // namespace nuv64
