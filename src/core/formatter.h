// The formatter behind NewSprintf and its kin, for callers with an argument list of their own.
#pragma once

#include <cstdarg>
#include <string>

#include "core/owned.h"

namespace nuv64 {

// The formatted text. Throws std::bad_alloc.
template <class Ch>
std::basic_string<Ch> formatToString(const Ch* format, va_list arguments);

// The same as a terminated block that may cross the module's boundary.
template <class Ch>
Owned<Ch> formatText(const Ch* format, va_list arguments) {
    const std::basic_string<Ch> text = formatToString(format, arguments);
    return copyText(text.data(), text.size());
}

extern template std::basic_string<char> formatToString(const char* format, va_list arguments);
extern template std::basic_string<char16_t> formatToString(const char16_t* format,
                                                           va_list arguments);

}  // namespace nuv64
